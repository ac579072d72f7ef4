// A base that the build laid out, copied aside so that a test leaves the build as it found it.
#pragma once

#include "database/DataEnvironment1.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class BaseConstruite
{
public:
    // "vierge.mdb", "demonstration.mdb"
    explicit BaseConstruite(const QString &nom)
    {
        const QString origine = QStringLiteral(DOSSIER_CONSTRUCTION "/installation/Projet/Base/") + nom;
        m_chemin = m_dossier.filePath(nom);
        if (!QFile::copy(origine, m_chemin))
            qFatal("%s is not built", qPrintable(origine));
        donnees.ouvrir(m_chemin);
    }
    ~BaseConstruite() { donnees.liberer(); }
    BaseConstruite(const BaseConstruite &) = delete;
    BaseConstruite &operator=(const BaseConstruite &) = delete;

    QString chemin() const { return m_chemin; }
    // First value of the first row; null without a row.
    QVariant valeur(const QString &sql, const QVariantList &parametres = {}) const
    {
        Requete requete = donnees.executer(sql, parametres);
        return requete.suivant() ? requete.valeur(0) : QVariant();
    }
    int compte(const QString &sql, const QVariantList &parametres = {}) const
    {
        return valeur(sql, parametres).toInt();
    }
    // First column of every row.
    QStringList colonne(const QString &sql, const QVariantList &parametres = {}) const
    {
        QStringList valeurs;
        Requete requete = donnees.executer(sql, parametres);
        while (requete.suivant())
            valeurs << requete.texte(0);
        return valeurs;
    }

    DataEnvironment1 donnees;

private:
    QTemporaryDir m_dossier;
    QString m_chemin;
};

// Rows of a table of donnees/, its header left out, as this test reads them: no code of the program that makes bases.
inline QList<QStringList> lignesCsv(const QString &nom)
{
    QFile fichier(QDir::cleanPath(DONNEES_TESTS "/../../donnees/" + nom));
    if (!fichier.open(QIODevice::ReadOnly))
        qFatal("%s cannot be read", qPrintable(fichier.fileName()));
    QList<QStringList> lignes;
    const QStringList textes = QString::fromUtf8(fichier.readAll()).split(u'\n', Qt::SkipEmptyParts);
    for (const QString &texte : textes.mid(1))
        lignes << texte.split(u';');
    return lignes;
}
