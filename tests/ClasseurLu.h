// A produced .xls as an independent reader sees it (tests/lire_xls.py, which tells the shape).
#pragma once

#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QProcess>

class ClasseurLu
{
public:
    explicit ClasseurLu(const QString &chemin)
    {
        QProcess lecteur;
        lecteur.start(QStringLiteral("/usr/bin/python3"), // the Debian one, which has xlrd
                      {QStringLiteral(DONNEES_TESTS "/../lire_xls.py"), chemin});
        lecteur.waitForFinished(60'000);
        m_erreurs = QString::fromUtf8(lecteur.readAllStandardError());
        m_contenu = QJsonDocument::fromJson(lecteur.readAllStandardOutput()).object();
    }

    bool lisible() const { return !m_contenu.isEmpty(); }
    QString erreurs() const { return m_erreurs; }
    QStringList feuilles() const { return m_contenu[QLatin1String("feuilles")].toObject().keys(); }
    QJsonObject feuille(const QString &nom) const
    {
        return m_contenu[QLatin1String("feuilles")].toObject()[nom].toObject();
    }
    QJsonObject cellule(const QString &nomFeuille, const QString &adresse) const
    {
        return feuille(nomFeuille)[QLatin1String("cellules")].toObject()[adresse].toObject();
    }
    QJsonValue valeur(const QString &nomFeuille, const QString &adresse) const
    {
        return cellule(nomFeuille, adresse)[QLatin1String("valeur")];
    }
    QString nom(const QString &nom) const
    {
        return m_contenu[QLatin1String("noms")].toObject()[nom].toString();
    }

private:
    QJsonObject m_contenu;
    QString m_erreurs;
};
