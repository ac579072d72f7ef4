// The charts and text boxes of a produced .xls as independent readers see them: the file's own records
// (tests/lire_graphiques.py, which tells the shape), and the objects that Gnumeric makes of them.
#pragma once

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>

class GraphiquesLus
{
public:
    explicit GraphiquesLus(const QString &chemin)
    {
        QProcess lecteur;
        lecteur.start(QStringLiteral("/usr/bin/python3"), // the Debian one, which has xlrd
                      {QStringLiteral(DONNEES_TESTS "/../lire_graphiques.py"), chemin});
        lecteur.waitForFinished(60'000);
        m_erreurs = QString::fromUtf8(lecteur.readAllStandardError());
        m_contenu = QJsonDocument::fromJson(lecteur.readAllStandardOutput()).object();
    }

    bool lisible() const { return !m_contenu.isEmpty(); }
    QString erreurs() const { return m_erreurs; }
    QJsonObject feuille(const QString &nom) const { return m_contenu[nom].toObject(); }
    QString texte(const QString &feuilleVoulue, const QString &zone) const
    {
        return feuille(feuilleVoulue)[QLatin1String("textes")].toObject()[zone].toString();
    }
    // The chart of this name: the one whose corner stands on the cell that bears the name. Empty without.
    QJsonObject graphique(const QString &feuilleVoulue,
                          const QString &nom = QStringLiteral("Graphique")) const
    {
        QString cle = nom;
        const QString cellule = feuille(feuilleVoulue)[QLatin1String("noms")]
                                    .toObject()[cle.replace(QLatin1Char(' '), QLatin1Char('_'))]
                                    .toString();
        const QJsonArray tous = feuille(feuilleVoulue)[QLatin1String("graphiques")].toArray();
        for (const QJsonValue &graphique : tous)
            if (feuilleVoulue + QLatin1Char('!') + graphique[QLatin1String("cellule")].toString() == cellule)
                return graphique.toObject();
        return {};
    }
    // The series whose values are this range ("Mesures!B9:B60"); empty without.
    static QJsonObject serie(const QJsonObject &graphique, const QString &valeurs)
    {
        const QJsonArray toutes = graphique[QLatin1String("series")].toArray();
        for (const QJsonValue &serie : toutes)
            if (serie[QLatin1String("valeurs")].toString() == valeurs)
                return serie.toObject();
        return {};
    }
    // Ranges of the values of all series, in the file's order.
    static QStringList valeurs(const QJsonObject &graphique)
    {
        QStringList adresses;
        const QJsonArray toutes = graphique[QLatin1String("series")].toArray();
        for (const QJsonValue &serie : toutes)
            adresses << serie[QLatin1String("valeurs")].toString();
        return adresses;
    }
    // Type 1 category, 2 value; group 1 or 2.
    static QJsonObject axe(const QJsonObject &graphique, int type, int groupe = 1)
    {
        const QJsonArray tous = graphique[QLatin1String("axes")].toArray();
        for (const QJsonValue &axe : tous)
            if (axe[QLatin1String("type")].toInt() == type && axe[QLatin1String("groupe")].toInt() == groupe)
                return axe.toObject();
        return {};
    }

private:
    QJsonObject m_contenu;
    QString m_erreurs;
};
