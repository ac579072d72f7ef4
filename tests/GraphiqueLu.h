// The charts and text boxes of a produced .xls as independent readers see them: the file's own records
// (tests/lire_graphiques.py, which tells the shape), and the objects that Gnumeric makes of them.
#pragma once

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QVector>
#include <QXmlStreamReader>

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

// What Gnumeric makes of the charts of a .xls.
class GnumericLu
{
public:
    struct Serie {
        QString genre; // "GogLinePlot", "GogAreaPlot", "GogBarColPlot"
        QString nom;   // addresses as "Mesures!$B$9:$B$60"; a single cell for the name
        QString valeurs;
        QString abscisses;
        bool dansLegende = true;
    };

    explicit GnumericLu(const QString &chemin)
    {
        const QTemporaryDir dossier;
        const QString sortie = dossier.filePath(QStringLiteral("lu.gnumeric"));
        QProcess conversion;
        conversion.start(QStringLiteral("ssconvert"),
                         {QStringLiteral("-T"), QStringLiteral("Gnumeric_XmlIO:sax:0"), chemin, sortie});
        conversion.waitForFinished(60'000);
        // The libraries below it complain of the host, not of the file.
        const QStringList lignes =
            QString::fromUtf8(conversion.readAllStandardError()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        for (const QString &ligne : lignes)
            if (!ligne.contains(QLatin1String("GLib")) && !ligne.contains(QLatin1String("dconf")) &&
                !ligne.contains(QLatin1String("Gtk-")))
                m_plaintes += ligne + QLatin1Char('\n');
        QFile fichier(sortie);
        if (!fichier.open(QIODevice::ReadOnly)) {
            m_plaintes += QStringLiteral("rien n'a été converti");
            return;
        }
        lire(fichier);
    }

    // What it says while reading; empty for a file that it takes as it is.
    QString plaintes() const { return m_plaintes; }
    QVector<Serie> series() const { return m_series; }
    // Kinds of plot, once each, in order.
    QStringList genres() const
    {
        QStringList genres;
        for (const Serie &serie : m_series)
            if (!genres.contains(serie.genre))
                genres << serie.genre;
        genres.sort();
        return genres;
    }

private:
    void lire(QFile &fichier)
    {
        QXmlStreamReader xml(&fichier);
        QString genre;
        bool dansSerie = false;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            if (xml.name() == QLatin1String("GogObject")) {
                const QString role = xml.attributes().value(QLatin1String("role")).toString();
                if (role == QLatin1String("Plot"))
                    genre = xml.attributes().value(QLatin1String("type")).toString();
                dansSerie = role == QLatin1String("Series");
                if (dansSerie)
                    m_series.append({genre, {}, {}, {}, true});
            } else if (dansSerie && xml.name() == QLatin1String("property") &&
                       xml.attributes().value(QLatin1String("name")) == QLatin1String("has-legend")) {
                m_series.last().dansLegende =
                    xml.readElementText().compare(QLatin1String("FALSE"), Qt::CaseInsensitive) != 0;
            } else if (dansSerie && xml.name() == QLatin1String("dimension")) {
                const int numero = xml.attributes().value(QLatin1String("id")).toInt();
                const QString adresse = xml.readElementText();
                if (numero == -1)
                    m_series.last().nom = adresse;
                else if (numero == 0)
                    m_series.last().abscisses = adresse;
                else if (numero == 1)
                    m_series.last().valeurs = adresse;
            }
        }
    }

    QString m_plaintes;
    QVector<Serie> m_series;
};
