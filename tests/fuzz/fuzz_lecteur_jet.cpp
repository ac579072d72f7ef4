// Access files with spoilt pages, and spoilt streams of the reading process: each ends as a whole conversion or as an
// Erreur with words, in bounded time; nothing else, and no fault of ours under the sanitizers. The library's own faults
// stay in its process, where they are counted.
#include "fuzz/Hasard.h"

#include "database/DataEnvironment1.h"
#include "database/DefinitionTable.h"
#include "database/jet/ConversionJet.h"
#include "database/jet/FluxJet.h"
#include "database/jet/ValeurMagasin.h"
#include "platform/Erreur.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace
{
constexpr int SILENCE_MS = 5000;
constexpr qint64 DUREE_MAXIMALE_MS = 60000;
const QString SONDE = QStringLiteral(DOSSIER_CONSTRUCTION "/fuzz/lecteur_jet_sonde");

int comptees = 0;
int refusees = 0;
int perdues = 0; // the reading process died or hung

[[noreturn]] void faute(int essai, const QString &quoi)
{
    std::fprintf(stderr, "essai %d : %s\n", essai, qPrintable(quoi));
    std::exit(1);
}

QByteArray contenu(const QString &chemin)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
}

QList<QByteArray> bases()
{
    QList<QByteArray> liste;
    for (const char *nom : {"ancien.mdb", "v400.mdb", "regional.mdb"})
        liste << contenu(QStringLiteral(DONNEES_TESTS "/bases/") + QLatin1String(nom));
    // A file of Access 97, where there is one.
    const QByteArray autre =
        contenu(qEnvironmentVariable("OVRALIS_BASES_VOISINES") + QStringLiteral("/autre_base_97.mdb"));
    if (!autre.isEmpty())
        liste << autre;
    return liste;
}

// The sanitizer's report of the reading process, when the fault is in our code and not in the library.
QString fauteDeLaSonde(const QString &chemin)
{
    QProcess processus;
    processus.setStandardOutputFile(QProcess::nullDevice());
    processus.start(SONDE, {QStringLiteral("--lignes"), chemin});
    if (!processus.waitForFinished(SILENCE_MS)) {
        processus.kill();
        processus.waitForFinished();
        return {};
    }
    const QString rapport = QString::fromUtf8(processus.readAllStandardError());
    if (rapport.contains(QLatin1String("runtime error:")))
        return rapport;
    for (const QString &ligne : rapport.split(u'\n')) {
        if (!ligne.trimmed().startsWith(u'#') || ligne.contains(QLatin1String("interceptor")) ||
            ligne.contains(QLatin1String("libasan")) || ligne.contains(QLatin1String("sanitizer")))
            continue;
        // The first frame that is not the sanitizer's own tells whose fault it is.
        const bool aNous =
            ligne.contains(QLatin1String("FichierJet")) || ligne.contains(QLatin1String("Sortie"));
        return aNous ? rapport : QString();
    }
    return {};
}

void verifierConversion(int essai, const QString &magasin, qint64 lignes)
{
    DataEnvironment1 donnees;
    donnees.ouvrir(magasin, false);
    qint64 la = 0;
    QStringList tables;
    Requete r = donnees.executer(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table'"));
    while (r.suivant())
        tables << r.texte(0);
    r.finir();
    for (const QString &table : tables)
        la += donnees.valeur(QStringLiteral("SELECT count(*) FROM ") + Structure::citer(table)).toLongLong();
    if (la != lignes)
        faute(essai, QStringLiteral("%1 lignes lues, %2 dans le magasin").arg(lignes).arg(la));
}

void essayerFichier(int essai, const QTemporaryDir &dossier, const QByteArray &octets)
{
    const QString chemin = dossier.filePath(QStringLiteral("essai.mdb"));
    QFile fichier(chemin);
    if (!fichier.open(QIODevice::WriteOnly | QIODevice::Truncate) || fichier.write(octets) != octets.size())
        faute(essai, QStringLiteral("écriture"));
    fichier.close();
    const QString magasin = dossier.filePath(QStringLiteral("magasin.db"));
    QFile::remove(magasin);
    LecteurJet::Reglages reglages;
    reglages.programme = SONDE;
    reglages.silenceMs = SILENCE_MS;
    QElapsedTimer duree;
    duree.start();
    try {
        qint64 lignes = 0;
        {
            LecteurJet lecteur(chemin, reglages);
            for (const TableJet &t : lecteur.tables())
                lignes += t.lignes;
            ConversionJet::convertir(lecteur, magasin);
        }
        verifierConversion(essai, magasin, lignes);
        ++comptees;
    } catch (const Erreur &erreur) {
        if (erreur.description().isEmpty())
            faute(essai, QStringLiteral("une erreur sans mots"));
        ++refusees;
        if (erreur.description().contains(QLatin1String("en cours de route")) ||
            erreur.description().contains(QLatin1String("n'avance plus"))) {
            ++perdues;
            if (const QString rapport = fauteDeLaSonde(chemin); !rapport.isEmpty())
                faute(essai, rapport);
        }
    }
    if (duree.elapsed() > DUREE_MAXIMALE_MS)
        faute(essai, QStringLiteral("%1 ms").arg(duree.elapsed()));
}

void essayerFlux(Gacheur &gacheur, QByteArray octets, qint64 tailleFichier)
{
    gacheur.octets(octets, 0, gacheur.tirer(2) == 0 ? qMin<qsizetype>(octets.size(), 20000) : octets.size());
    if (gacheur.tirer(4) == 0)
        octets.truncate(gacheur.tirer(octets.size()));
    qsizetype lu = 0;
    FluxJet flux(
        [&] {
            const QByteArray morceau = octets.mid(lu, 1 + gacheur.tirer(60000));
            lu += morceau.size();
            return morceau;
        },
        tailleFichier);
    try {
        flux.lireStructure();
        flux.lireLignes([](const TableJet &, const std::vector<ValeurJet> &ligne) {
            QByteArray tampon;
            for (const ValeurJet &v : ligne)
                for (const GenreMagasin genre :
                     {GenreMagasin::Texte, GenreMagasin::Date, GenreMagasin::Entier})
                    versMagasin(v, genre, tampon);
        });
    } catch (const Erreur &) {
        return;
    }
}

QByteArray fluxSain(const QString &base)
{
    QProcess processus;
    processus.start(SONDE, {QStringLiteral("--lignes"), base});
    processus.waitForFinished();
    return processus.readAllStandardOutput();
}
} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const ReglagesFuzz reglages;
    Gacheur gacheur(reglages.graine);
    const QTemporaryDir dossier;
    const QList<QByteArray> saines = bases();
    const QString base = QStringLiteral(DONNEES_TESTS "/bases/ancien.mdb");
    const QByteArray flux = fluxSain(base);
    if (flux.size() < 100000)
        faute(0, QStringLiteral("le lecteur ne lit pas une base saine"));
    for (int i = 0; i < reglages.nombre; ++i) {
        QByteArray octets = saines[gacheur.tirer(saines.size())];
        // Pages of 2048 bytes in a file of Access 97, of 4096 later.
        gacheur.pages(octets, octets[20] == 0 ? 2048 : 4096);
        essayerFichier(i, dossier, octets);
        essayerFlux(gacheur, flux, QFileInfo(base).size());
    }
    std::printf("%d converties, %d refusées, dont %d où le lecteur s'est perdu\n", comptees, refusees,
                perdues);
    return 0;
}
