// Import of a laboratory's workbook of 60 000 rows.
//
// The whole command (menu to closing message, the real progress window, spreadsheet application warm) is held against
// what it cannot do without: opening the workbook and reading its cells, and a bare prepared insert of the same rows into
// the same three tables, committed row by row. The bare insert talks to the engine directly, on a connection set as the
// program's own. Everything is measured in one process, several times in turn; medians are printed.
//
//   banc_import [ROWS] [TURNS]
#include "database/DataEnvironment1.h"
#include "exchange/LecteurLignes.h"
#include "exchange/M_Import_OVRA.h"
#include "frame/DialogueQt.h"
#include "frame/Session.h"
#include "OutilsBanc.h"
#include "platform/Erreur.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <sqlite3.h>

using OutilsBanc::mediane;

namespace
{
// Prints the boxes instead of waiting on them.
class DialogueBanc : public DialogueQt
{
public:
    void message(const QString &texte, const QString &titre, Icone) override
    {
        dernier = titre + QStringLiteral(": ") + texte;
    }
    QString dernier;
};

// Highest memory of this process so far, in megabytes; 0 where the system does not tell.
double picMemoire()
{
    QFile etat(QStringLiteral("/proc/self/status"));
    if (!etat.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &ligne : etat.readAll().split('\n')) {
        if (ligne.startsWith("VmHWM:"))
            return ligne.mid(6).simplified().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

void lancer(const QString &programme, const QStringList &arguments)
{
    const QString chemin = QStringLiteral(DOSSIER_CONSTRUCTION "/bin/") + programme;
    if (QProcess::execute(
            chemin, QStringList{QStringLiteral("--donnees"), QStringLiteral(DOSSIER_SOURCES "/donnees")} +
                        arguments) != 0)
        qFatal("%s failed", qPrintable(chemin));
}

void copier(const QString &source, const QString &cible)
{
    for (const QString &suite : {QString(), QStringLiteral("-wal"), QStringLiteral("-shm")})
        QFile::remove(cible + suite);
    if (!QFile::copy(source, cible))
        qFatal("cannot copy %s", qPrintable(source));
}

// Time passed, and processor time of this program in it, in seconds.
struct Duree {
    double totale = 0;
    double processeur = 0;
};

class Chrono
{
public:
    Chrono() { m_depuis.start(); }
    Duree duree() const
    {
        return {static_cast<double>(m_depuis.nsecsElapsed()) / 1e9,
                static_cast<double>(std::clock() - m_processeur) / CLOCKS_PER_SEC};
    }

private:
    QElapsedTimer m_depuis;
    std::clock_t m_processeur = std::clock();
};

void imprimer(const char *nom, const QVector<Duree> &durees)
{
    QVector<double> totales;
    QVector<double> processeur;
    for (const Duree &d : durees) {
        totales << d.totale;
        processeur << d.processeur;
    }
    std::printf("  %-28s  %7.2f s (of which %.2f s of this program's processor time)\n", nom,
                mediane(totales), mediane(processeur));
}

Duree lireCellules(Session &session, const QString &classeur)
{
    const Chrono chrono;
    const auto ouvert = session.tableur.ouvrir(classeur, true);
    const Feuille feuille = ouvert->feuille(1);
    LecteurLignes lecteur(feuille, feuille.derniereColonne());
    const int derniere = feuille.derniereLigne();
    for (int ligne = 1; ligne <= derniere; ++ligne)
        lecteur.ligne(ligne);
    ouvert->fermer();
    return chrono.duree();
}

// One row of a table, as the engine's values.
using Rangee = QVector<QByteArray>;
struct Rangees {
    // For each result in order: the sampling and memberships that came with it, if it was the first of its sampling.
    struct Pas {
        QVector<Rangee> prelevements;
        QVector<Rangee> reseaux;
        Rangee mesure;
    };
    QVector<Pas> pas;
};

QVector<Rangee> toutes(sqlite3 *base, const char *sql)
{
    QVector<Rangee> rangees;
    sqlite3_stmt *requete = nullptr;
    sqlite3_prepare_v2(base, sql, -1, &requete, nullptr);
    while (sqlite3_step(requete) == SQLITE_ROW) {
        Rangee rangee;
        for (int c = 0; c < sqlite3_column_count(requete); ++c)
            rangee << QByteArray(reinterpret_cast<const char *>(sqlite3_column_text(requete, c)));
        rangees << rangee;
    }
    sqlite3_finalize(requete);
    return rangees;
}

// What an import has written into this base.
Rangees relire(const QString &fichier)
{
    sqlite3 *base = nullptr;
    sqlite3_open(fichier.toUtf8().constData(), &base);
    QHash<QByteArray, Rangee> prelevements;
    for (const Rangee &r :
         toutes(base, "SELECT NumPrel, CodeSandreStationM, CdPoint, DatePrel, HeurePrel, CdSupport, "
                      "CodeSandrePrelev, CodeSandreProd, Protocole FROM PRELEVEMENT"))
        prelevements.insert(r[0], r);
    QHash<QByteArray, QVector<Rangee>> reseaux;
    for (const Rangee &r : toutes(base, "SELECT NumPrel, CodeReseau FROM PRELEVEMENTRSX"))
        reseaux[r[0]] << r;
    Rangees resultat;
    for (
        const Rangee &r : toutes(
            base,
            "SELECT NumPrel, CodeParam, ResultatAnaPC, CodeRemarqueAnaPC, CommAnaPC, SeuilAnaPC, CodeSandreLabo, "
            "CodeSandreGest, Cd_Fraction FROM MESURE_PHYSICO ORDER BY NumAnaPC")) {
        Rangees::Pas pas;
        if (prelevements.contains(r[0]))
            pas.prelevements << prelevements.take(r[0]);
        pas.reseaux = reseaux.take(r[0]);
        pas.mesure = r;
        resultat.pas << pas;
    }
    sqlite3_close(base);
    return resultat;
}

class Insertion
{
public:
    Insertion(sqlite3 *base, const char *sql) { sqlite3_prepare_v2(base, sql, -1, &m_requete, nullptr); }
    ~Insertion() { sqlite3_finalize(m_requete); }
    Insertion(const Insertion &) = delete;
    Insertion &operator=(const Insertion &) = delete;
    void executer(const Rangee &valeurs = {})
    {
        for (int i = 0; i < valeurs.size(); ++i) {
            if (valeurs[i].isNull())
                sqlite3_bind_null(m_requete, i + 1);
            else
                sqlite3_bind_text(m_requete, i + 1, valeurs[i].constData(),
                                  static_cast<int>(valeurs[i].size()), SQLITE_STATIC);
        }
        if (sqlite3_step(m_requete) != SQLITE_DONE)
            qFatal("insert failed");
        sqlite3_reset(m_requete);
    }

private:
    sqlite3_stmt *m_requete = nullptr;
};

Duree inserer(const QString &fichier, const Rangees &rangees)
{
    const Chrono chrono;
    sqlite3 *base = nullptr;
    sqlite3_open(fichier.toUtf8().constData(), &base);
    sqlite3_exec(base,
                 "PRAGMA foreign_keys = ON; PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL; "
                 "PRAGMA wal_autocheckpoint = 8000; PRAGMA cache_size = -32000",
                 nullptr, nullptr, nullptr);
    {
        Insertion commencer(base, "BEGIN");
        Insertion finir(base, "COMMIT");
        Insertion prelevement(
            base, "INSERT INTO PRELEVEMENT (NumPrel, CodeSandreStationM, CdPoint, DatePrel, HeurePrel, "
                  "CdSupport, CodeSandrePrelev, CodeSandreProd, Protocole) "
                  "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)");
        Insertion reseau(base, "INSERT INTO PRELEVEMENTRSX (NumPrel, CodeReseau) VALUES (?, ?)");
        Insertion mesure(base,
                         "INSERT INTO MESURE_PHYSICO (NumPrel, CodeParam, ResultatAnaPC, CodeRemarqueAnaPC, "
                         "CommAnaPC, SeuilAnaPC, CodeSandreLabo, CodeSandreGest, Cd_Fraction) "
                         "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)");
        for (const Rangees::Pas &pas : rangees.pas) {
            commencer.executer();
            for (const Rangee &r : pas.prelevements)
                prelevement.executer(r);
            for (const Rangee &r : pas.reseaux)
                reseau.executer(r);
            mesure.executer(pas.mesure);
            finir.executer();
        }
    }
    sqlite3_close(base);
    return chrono.duree();
}

// The command, from the chosen file to the closing message.
Duree importer(Session &session, DialogueBanc &dialogue, const QString &base, const QString &classeur)
{
    session.donnees.ouvrir(base);
    session.importSession = {};
    session.importSession.FichierImport = classeur;
    const Chrono chrono;
    const IssueImport issue = M_Import_OVRA::ImporterPhysico(session);
    const Duree duree = chrono.duree();
    if (issue.fin != IssueImport::Fin::Terminee)
        qFatal("the import stopped: %s %s %s", qPrintable(dialogue.dernier), qPrintable(issue.libelleAction),
               qPrintable(issue.element));
    session.donnees.liberer();
    return duree;
}

void mesurer(int lignes, int tours)
{
    QTemporaryDir dossier;
    const QString vide = dossier.filePath(QStringLiteral("elements.mdb"));
    const QString classeur = dossier.filePath(QStringLiteral("mesures.xls"));
    lancer(QStringLiteral("creer_bases"), {QStringLiteral("elements"), vide});
    lancer(QStringLiteral("creer_classeurs"), {QStringLiteral("banc"), QString::number(lignes), classeur});

    DialogueBanc dialogue;
    Session session(dialogue);
    const QString base = dossier.filePath(QStringLiteral("base.mdb"));
    session.tableur.ajouter(); // warm
    copier(vide, base);
    importer(session, dialogue, base, classeur);
    std::printf("import of %d rows, %s\n", lignes, qPrintable(dialogue.dernier.section(u'\n', 1)));
    std::printf("  peak memory of the program    %7.0f MB (below 300)\n", picMemoire());
    const Rangees rangees = relire(base);

    QVector<Duree> imports;
    QVector<Duree> lectures;
    QVector<Duree> insertions;
    QVector<double> rapports;
    for (int tour = 0; tour < tours; ++tour) {
        lectures << lireCellules(session, classeur);
        copier(vide, base);
        insertions << inserer(base, rangees);
        copier(vide, base);
        imports << importer(session, dialogue, base, classeur);
        rapports << imports.last().totale / (lectures.last().totale + insertions.last().totale);
    }
    imprimer("whole command", imports);
    imprimer("reading the cells", lectures);
    imprimer("bare insert, row by row", insertions);
    std::printf("  ratio                         %7.2f   (at most 1.50)\n", mediane(rapports));
}
} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    try {
        mesurer(arguments.value(1, QStringLiteral("60000")).toInt(),
                arguments.value(2, QStringLiteral("3")).toInt());
    } catch (const Erreur &erreur) {
        std::fprintf(stderr, "%s\n", qPrintable(erreur.numeroEtDescription()));
        return 1;
    }
    return 0;
}
