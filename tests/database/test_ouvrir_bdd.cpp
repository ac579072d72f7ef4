// The opening of a study, with every way in which it can end.
#include "BaseDEssai.h"
#include "database/M_Ouvrir_bdd_OVRA.h"
#include "database/Schema.h"
#include "DialogueDEssai.h"
#include "platform/Erreur.h"

#include <QDirIterator>
#include <QTest>

#ifdef Q_OS_LINUX
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace M_Ouvrir_bdd_OVRA;

namespace
{
// All files of a folder with their bytes.
QMap<QString, QByteArray> contenu(const QString &dossier)
{
    QMap<QString, QByteArray> fichiers;
    QDirIterator i(dossier, QDir::Files | QDir::Hidden);
    while (i.hasNext()) {
        QFile f(i.next());
        fichiers[i.fileName()] = f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("?");
    }
    return fichiers;
}

void ecrire(const QString &chemin, const QByteArray &octets)
{
    QFile f(chemin);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(octets);
}

// A connection of another program on the same file.
class AutreProgramme
{
public:
    explicit AutreProgramme(const QString &chemin)
    {
        base = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("autre"));
        base.setDatabaseName(chemin);
        base.open();
    }
    ~AutreProgramme()
    {
        base.close();
        base = {};
        QSqlDatabase::removeDatabase(QStringLiteral("autre"));
    }
    bool sql(const char *instruction) { return QSqlQuery(base).exec(QString::fromUtf8(instruction)); }

    QSqlDatabase base;
};

// A closed store, its palette in place, and what an opening needs.
class Etude
{
public:
    explicit Etude(const QString &titre = QStringLiteral("étude d'essai.mdb"), bool journal = true)
        : chemin(dossier.filePath(titre))
    {
        {
            BaseDEssai modele;
            Schema::creerTable(modele.donnees.Connect_Bdd(), QStringLiteral("COULEURS_GRAPH"));
            modele.sql(QStringLiteral("INSERT INTO COULEURS_GRAPH VALUES (1, 10, 20, 30)"));
            if (!journal) {
                modele.sql(QStringLiteral("PRAGMA journal_mode = DELETE"));
            }
            modele.donnees.liberer();
            QFile::copy(modele.chemin, chemin);
        }
        o.FichierBase = chemin;
        o.etapes.CreerCouleurs = [this] {
            etapes << QStringLiteral("creer");
            Schema::creerTable(donnees.Connect_Bdd(), QStringLiteral("COULEURS_GRAPH"));
        };
        o.etapes.ChargerCouleurs = [this] { etapes << QStringLiteral("charger"); };
    }
    // Runs statements on the closed file, as another tool would.
    void modifier(std::initializer_list<const char *> instructions)
    {
        AutreProgramme outil(chemin);
        for (const char *i : instructions)
            QVERIFY2(outil.sql(i), i);
    }
    QString valeur(const char *sql) const
    {
        Requete r = donnees.executer(QString::fromUtf8(sql));
        return r.suivant() ? r.texte(0) : QStringLiteral("(rien)");
    }

    QTemporaryDir dossier;
    QString chemin;
    DataEnvironment1 donnees;
    DialogueDEssai dialogue;
    Ouverture o{donnees, dialogue, {}, {}, {}, {}};
    QStringList etapes;
};

const QString TITRE_ERREUR = QStringLiteral("Erreur d'ouverture");
const QString DEBUT_ERREUR = QStringLiteral("Erreur à l'ouverture de la base de données : \n ");
} // namespace

class TestOuvrirBdd : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void uneEtudeCouranteSOuvreSansEcriture_data();
    void uneEtudeCouranteSOuvreSansEcriture();
    void deuxOuverturesUneSeuleConnexion();
    void unJournalDUnProgrammeTueEstRejoue();

    void fichiersInutilisables_data();
    void fichiersInutilisables();
    void verrouDUnAutreProgramme_data();
    void verrouDUnAutreProgramme();
    void lectureSeule_data();
    void lectureSeule();
    void unFichierJetNEstPasConverti_data();
    void unFichierJetNEstPasConverti();

    void sansTableDesVersions();
    void sansLigneDbVersion();
    void version400();
    void autreVersion();
    void miseAJourImpossible_data();
    void miseAJourImpossible();

    void structure2Texte();
    void structure2NonTexte_data();
    void structure2NonTexte();
    void structureAutreOuVide_data();
    void structureAutreOuVide();
    void formatAncienAccepte();
    void formatAncienRefuse();
    void formatAncienSansEtape();

    void couleursAbsentes();
    void couleursImpossibles();
    void superficieAbsente();
    void colonnesDesCartes();
    void colonnesDesCartesImpossibles();

    void conversionAcceptee();
    void conversionRefusee();
    void conversionImpossible();
    void versionAccess();

private:
    void verifierRefusIntact(Etude &e, const QString &raison);
};

void TestOuvrirBdd::uneEtudeCouranteSOuvreSansEcriture_data()
{
    QTest::addColumn<QString>("titre");
    for (const char *titre : {"étude d'essai.mdb", "a b#c%20?d.mdb", "sans extension"})
        QTest::newRow(titre) << QString::fromUtf8(titre);
}

void TestOuvrirBdd::uneEtudeCouranteSOuvreSansEcriture()
{
    QFETCH(QString, titre);
    Etude e(titre);
    const auto avant = contenu(e.dossier.path());
    QVERIFY(OuvrirBase(e.o));
    QVERIFY(e.donnees.estOuvert());
    QCOMPARE(e.etapes, QStringList{QStringLiteral("charger")});
    QCOMPARE(e.o.VersionAccess, QStringLiteral("09"));
    QCOMPARE(e.o.ChaineFournisseur,
             QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Persist Security Info=False;Data Source="));
    QCOMPARE(e.valeur("PRAGMA journal_mode"), QStringLiteral("wal"));
    QCOMPARE(e.valeur("SELECT NomParam FROM PARAMETRE WHERE CodeParam = '1340'"), QStringLiteral("Nitrates"));
    e.donnees.liberer();
    QCOMPARE(contenu(e.dossier.path()), avant);
    QVERIFY(e.dialogue.messages.isEmpty() && e.dialogue.questions.isEmpty());
}

void TestOuvrirBdd::deuxOuverturesUneSeuleConnexion()
{
    Etude e;
    QVERIFY(OuvrirBase(e.o));
    QVERIFY(OuvrirBase(e.o));
    QCOMPARE(QSqlDatabase::connectionNames().size(), 1);
    e.donnees.liberer();
    QCOMPARE(QSqlDatabase::connectionNames().size(), 0);
    QCOMPARE(contenu(e.dossier.path()).keys(), QStringList{QStringLiteral("étude d'essai.mdb")});
}

// The files as a killed program leaves them: copied while the journal is full.
void TestOuvrirBdd::unJournalDUnProgrammeTueEstRejoue()
{
    Etude e;
    const QString copie = e.dossier.filePath(QStringLiteral("copie.mdb"));
    QVERIFY(OuvrirBase(e.o));
    e.donnees.executer(QStringLiteral("INSERT INTO DEPARTEMENT VALUES ('56', 'Morbihan')"));
    QVERIFY(QFileInfo(e.chemin + QStringLiteral("-wal")).size() > 0);
    QVERIFY(QFile::copy(e.chemin, copie));
    QVERIFY(QFile::copy(e.chemin + QStringLiteral("-wal"), copie + QStringLiteral("-wal")));
    e.donnees.liberer();
    e.o.FichierBase = copie;
    QVERIFY(OuvrirBase(e.o));
    QCOMPARE(e.valeur("SELECT NomDepartement FROM DEPARTEMENT WHERE NumDepartement = '56'"),
             QStringLiteral("Morbihan"));
    QVERIFY(e.dialogue.messages.isEmpty());
}

void TestOuvrirBdd::verifierRefusIntact(Etude &e, const QString &raison)
{
    const auto avant = contenu(e.dossier.path());
    QVERIFY(!OuvrirBase(e.o));
    QVERIFY(!e.donnees.estOuvert());
    QCOMPARE(e.dialogue.messages.size(), 1);
    QCOMPARE(e.dialogue.messages[0].texte, DEBUT_ERREUR + raison);
    QCOMPARE(e.dialogue.messages[0].titre, TITRE_ERREUR);
    QCOMPARE(e.dialogue.messages[0].icone, Icone::Exclamation);
    QVERIFY(e.etapes.isEmpty());
    QCOMPARE(contenu(e.dossier.path()), avant);
    QCOMPARE(QSqlDatabase::connectionNames().size(), 0);
}

void TestOuvrirBdd::fichiersInutilisables_data()
{
    QTest::addColumn<QString>("cas");
    QTest::addColumn<QString>("raison");
    const auto ligne = [](const char *cas, const char *raison) {
        QTest::newRow(cas) << QString::fromLatin1(cas) << QString::fromUtf8(raison);
    };
    const char *const pasUneBase = "26 - Ce fichier n'est pas une base de données.";
    const char *const incomplet = "11 - Le fichier est incomplet : la fin en manque.";
    ligne("texte", pasUneBase);
    ligne("court", pasUneBase);
    ligne("vide", "26 - Le fichier est vide.");
    ligne("coupe", incomplet);
    ligne("coupe a une page", incomplet);
    ligne("coupe, journal WAL", incomplet);
    ligne("entete seul", incomplet);
    ligne("signe seul", incomplet);
    ligne("autre base",
          "26 - Ce fichier est une base de données, mais pas celle d'une étude de l'outil : les tables des "
          "prélèvements, des résultats ou des stations en sont absentes.");
    ligne("pages detruites", "11 - Le fichier est endommagé.");
    ligne("absent", "14 - Le fichier « %1 » n'existe pas.");
    ligne("dossier", "14 - « %1 » n'est pas un fichier.");
}

void TestOuvrirBdd::fichiersInutilisables()
{
    QFETCH(QString, cas);
    QFETCH(QString, raison);
    Etude e(QStringLiteral("essai.mdb"), cas.endsWith(u"WAL"));
    const QByteArray bon = contenu(e.dossier.path()).value(QStringLiteral("essai.mdb"));
    QVERIFY(bon.size() > 50000);
    if (cas == u"texte")
        ecrire(e.chemin, QByteArray("Ceci n'est pas une base. ").repeated(200));
    else if (cas == u"court")
        ecrire(e.chemin, "x");
    else if (cas == u"vide")
        ecrire(e.chemin, {});
    else if (cas == u"coupe")
        ecrire(e.chemin, bon.left(bon.size() / 2 + 77));
    else if (cas == u"coupe a une page" || cas == u"coupe, journal WAL")
        ecrire(e.chemin, bon.left(bon.size() - 4096));
    else if (cas == u"entete seul")
        ecrire(e.chemin, bon.left(100));
    else if (cas == u"signe seul")
        ecrire(e.chemin, bon.left(16));
    else if (cas == u"pages detruites")
        ecrire(e.chemin, bon.left(100) + QByteArray(bon.size() - 100, '\x5a'));
    else if (cas == u"autre base") {
        QFile::remove(e.chemin);
        e.modifier({"CREATE TABLE CLIENTS (nom TEXT)", "CREATE TABLE PRELEVEMENT (x)"});
    } else if (cas == u"absent") {
        QFile::remove(e.chemin);
    } else if (cas == u"dossier") {
        QFile::remove(e.chemin);
        QVERIFY(QDir().mkdir(e.chemin));
    }
    verifierRefusIntact(e, raison.contains(u"%1") ? raison.arg(e.chemin) : raison);
}

void TestOuvrirBdd::verrouDUnAutreProgramme_data()
{
    QTest::addColumn<bool>("journal");
    QTest::addColumn<QByteArray>("verrou");
    QTest::newRow("exclusif") << false << QByteArray("BEGIN EXCLUSIVE");
    QTest::newRow("écriture") << false << QByteArray("BEGIN IMMEDIATE");
    QTest::newRow("écriture, journal WAL") << true << QByteArray("BEGIN IMMEDIATE");
}

void TestOuvrirBdd::verrouDUnAutreProgramme()
{
    QFETCH(bool, journal);
    QFETCH(QByteArray, verrou);
    Etude e(QStringLiteral("essai.mdb"), journal);
    const QByteArray avant = contenu(e.dossier.path()).value(QStringLiteral("essai.mdb"));
    {
        AutreProgramme autre(e.chemin);
        QVERIFY(autre.sql(verrou.constData()));
        QVERIFY(!OuvrirBase(e.o));
        QCOMPARE(e.dialogue.messages.size(), 1);
        QCOMPARE(e.dialogue.messages[0].texte,
                 DEBUT_ERREUR +
                     QStringLiteral("5 - Le fichier est utilisé par un autre programme. Fermez ce programme, "
                                    "puis recommencez."));
        QVERIFY(autre.sql("ROLLBACK"));
    }
    QCOMPARE(contenu(e.dossier.path()).value(QStringLiteral("essai.mdb")), avant);
    // Freed, it opens.
    QVERIFY(OuvrirBase(e.o));
}

void TestOuvrirBdd::lectureSeule_data()
{
    QTest::addColumn<bool>("fichierSeul");
    QTest::newRow("fichier") << true;
    QTest::newRow("dossier") << false;
}

// Rights do not stop root: as root, the opening is tried under another user.
void TestOuvrirBdd::lectureSeule()
{
#ifdef Q_OS_LINUX
    QFETCH(bool, fichierSeul);
    constexpr uid_t AUTRE = 65534;
    Etude e(QStringLiteral("essai.mdb"), false);
    const bool root = geteuid() == 0;
    if (root && fichierSeul)
        QVERIFY(chown(qPrintable(e.dossier.path()), AUTRE, AUTRE) == 0);
    QVERIFY(chmod(qPrintable(e.dossier.path()), fichierSeul ? 0755 : 0555) == 0);
    QVERIFY(chmod(qPrintable(e.chemin), fichierSeul ? 0444 : 0666) == 0);
    const auto avant = contenu(e.dossier.path());
    if (root)
        QVERIFY(setresuid(AUTRE, AUTRE, 0) == 0);
    const bool ouverte = OuvrirBase(e.o);
    if (root)
        QVERIFY(setresuid(0, 0, 0) == 0);
    QVERIFY(chmod(qPrintable(e.dossier.path()), 0755) == 0);
    QVERIFY(!ouverte);
    QCOMPARE(e.dialogue.messages.size(), 1);
    QCOMPARE(e.dialogue.messages[0].texte,
             DEBUT_ERREUR +
                 (fichierSeul
                      ? QStringLiteral("8 - Le fichier est en lecture seule.")
                      : QStringLiteral("8 - Le dossier « %1 » est en lecture seule.").arg(e.dossier.path())));
    QCOMPARE(contenu(e.dossier.path()), avant);
#else
    QSKIP("Rights are tried on Linux");
#endif
}

void TestOuvrirBdd::unFichierJetNEstPasConverti_data()
{
    QTest::addColumn<QByteArray>("entete");
    QTest::newRow("Jet 3, Jet 4") << QByteArray("\x00\x01\x00\x00Standard Jet DB\x00\x01", 21);
    QTest::newRow("ACE") << QByteArray("\x00\x01\x00\x00Standard ACE DB\x00\x02", 21);
}

void TestOuvrirBdd::unFichierJetNEstPasConverti()
{
    QFETCH(QByteArray, entete);
    Etude e(QStringLiteral("essai.sqlite"));
    ecrire(e.chemin, entete + QByteArray(4096, '\0'));
    verifierRefusIntact(
        e,
        QStringLiteral("0 - Ce fichier est une base Access, que cette version de l'outil ne convertit pas."));
}

void TestOuvrirBdd::sansTableDesVersions()
{
    Etude e;
    e.modifier({"DROP TABLE APPLICATIONPROPERTIES"});
    e.o.etapes.MettreAJourVersion = [&] {
        e.etapes << e.valeur("SELECT PROPERTYNAME || '=' || PROPERTYVALUE FROM APPLICATIONPROPERTIES");
    };
    QVERIFY(OuvrirBase(e.o));
    QCOMPARE(e.etapes, QStringList({QStringLiteral("DbVersion=4.0.0"), QStringLiteral("charger")}));
    // Both columns are obligatory.
    QVERIFY_THROWS_EXCEPTION(
        Erreur, e.donnees.executer(QStringLiteral("INSERT INTO APPLICATIONPROPERTIES VALUES ('x', NULL)")));
}

// It counts as 4.0.0 at every opening: the upgrade has no row to mark.
void TestOuvrirBdd::sansLigneDbVersion()
{
    Etude e;
    e.modifier(
        {"DELETE FROM APPLICATIONPROPERTIES", "INSERT INTO APPLICATIONPROPERTIES VALUES ('Autre', '9')"});
    int fois = 0;
    e.o.etapes.MettreAJourVersion = [&] { ++fois; };
    QVERIFY(OuvrirBase(e.o));
    QVERIFY(OuvrirBase(e.o));
    QCOMPARE(fois, 2);
    QCOMPARE(e.valeur("SELECT count(*) FROM APPLICATIONPROPERTIES"), QStringLiteral("1"));
}

void TestOuvrirBdd::version400()
{
    Etude e;
    // The name is found whatever its case.
    e.modifier({"UPDATE APPLICATIONPROPERTIES SET PROPERTYNAME = 'DBVERSION', PROPERTYVALUE = '4.0.0'"});
    e.o.etapes.MettreAJourVersion = [&] {
        e.etapes << QStringLiteral("version");
        e.donnees.executer(QStringLiteral("UPDATE APPLICATIONPROPERTIES SET PROPERTYVALUE = '4.0.1'"));
    };
    QVERIFY(OuvrirBase(e.o));
    QVERIFY(OuvrirBase(e.o));
    QCOMPARE(e.etapes,
             QStringList({QStringLiteral("version"), QStringLiteral("charger"), QStringLiteral("charger")}));
    QVERIFY(e.dialogue.messages.isEmpty());
}

void TestOuvrirBdd::autreVersion()
{
    Etude e;
    e.modifier({"UPDATE APPLICATIONPROPERTIES SET PROPERTYVALUE = '5.2'"});
    QVERIFY(OuvrirBase(e.o));
    QCOMPARE(e.valeur("SELECT PROPERTYVALUE FROM APPLICATIONPROPERTIES"), QStringLiteral("5.2"));
}

void TestOuvrirBdd::miseAJourImpossible_data()
{
    QTest::addColumn<bool>("etapeDonnee");
    QTest::addColumn<QString>("description");
    QTest::newRow("elle échoue") << true << QStringLiteral("La contrainte n'existe pas.");
    QTest::newRow("elle manque") << false
                                 << QStringLiteral(
                                        "La base est en version 4.0.0, que cette version de l'outil ne met "
                                        "pas à jour.");
}

void TestOuvrirBdd::miseAJourImpossible()
{
    QFETCH(bool, etapeDonnee);
    QFETCH(QString, description);
    Etude e;
    e.modifier({"UPDATE APPLICATIONPROPERTIES SET PROPERTYVALUE = '4.0.0'"});
    if (etapeDonnee)
        e.o.etapes.MettreAJourVersion = [] {
            throw Erreur(3372, QStringLiteral("La contrainte n'existe pas."));
        };
    const auto avant = contenu(e.dossier.path());
    QVERIFY(!OuvrirBase(e.o));
    QCOMPARE(e.dialogue.messages.size(), 2);
    QCOMPARE(e.dialogue.messages[0].texte, description);
    const BoiteDEssai nonConforme{QStringLiteral("Base non conforme !"), QStringLiteral("Attention !"),
                                  Icone::Critique};
    QCOMPARE(e.dialogue.messages[1], nonConforme);
    QVERIFY(e.etapes.isEmpty());
    QVERIFY(!e.donnees.estOuvert());
    QCOMPARE(contenu(e.dossier.path()), avant);
}

void TestOuvrirBdd::structure2Texte()
{
    Etude e;
    e.modifier({"UPDATE TECHNIQUE SET VERSION = '2'"});
    e.o.etapes.TransposerStructure = [&] {
        e.etapes << QStringLiteral("transposer");
        return true;
    };
    QVERIFY(OuvrirBase(e.o));
    QCOMPARE(e.etapes, QStringList{QStringLiteral("charger")});
    QVERIFY(e.dialogue.messages.isEmpty());
}

void TestOuvrirBdd::structure2NonTexte_data()
{
    QTest::addColumn<bool>("parLEtape");
    QTest::newRow("type du fichier d'origine") << true;
    QTest::newRow("type de la colonne") << false;
}

void TestOuvrirBdd::structure2NonTexte()
{
    QFETCH(bool, parLEtape);
    Etude e(QStringLiteral("essai.mdb"), false);
    e.modifier({"UPDATE TECHNIQUE SET VERSION = '2'", "DROP TABLE COULEURS_GRAPH"});
    if (parLEtape)
        e.o.etapes.CodeReseauEstTexte = [] { return false; };
    else
        e.modifier({"DROP TABLE RESEAU_MESURE",
                    "CREATE TABLE RESEAU_MESURE (CodeReseau INTEGER, LibelleReseau TEXT)"});
    const auto avant = contenu(e.dossier.path());
    QVERIFY(!OuvrirBase(e.o));
    const BoiteDEssai attendue{
        QStringLiteral(
            "La base est une ancienne base locale \nqui a été transposée par l'outil régional ou une version "
            "ancienne de l'outil local\n\nIl est impossible de l'exploiter"),
        QStringLiteral("Erreur"), Icone::Aucune};
    QCOMPARE(e.dialogue.messages, QList<BoiteDEssai>{attendue});
    QVERIFY(e.etapes.isEmpty());
    QCOMPARE(contenu(e.dossier.path()), avant);
}

void TestOuvrirBdd::structureAutreOuVide_data()
{
    QTest::addColumn<QByteArray>("instruction");
    QTest::newRow("2L") << QByteArray("UPDATE TECHNIQUE SET VERSION = '2L'");
    QTest::newRow("3") << QByteArray("UPDATE TECHNIQUE SET VERSION = '3'");
    QTest::newRow("sans ligne") << QByteArray("DELETE FROM TECHNIQUE");
}

// Whatever the type of the code: only "2" calls for it.
void TestOuvrirBdd::structureAutreOuVide()
{
    QFETCH(QByteArray, instruction);
    Etude e;
    e.modifier({instruction.constData()});
    e.o.etapes.CodeReseauEstTexte = [] { return false; };
    QVERIFY(OuvrirBase(e.o));
    QVERIFY(e.dialogue.messages.isEmpty());
}

void TestOuvrirBdd::formatAncienAccepte()
{
    Etude e;
    e.modifier({"DROP TABLE TECHNIQUE", "DROP TABLE COULEURS_GRAPH"});
    e.o.etapes.TransposerStructure = [&] {
        e.etapes << QStringLiteral("transposer");
        return true;
    };
    QVERIFY(OuvrirBase(e.o));
    QCOMPARE(e.etapes,
             QStringList({QStringLiteral("transposer"), QStringLiteral("creer"), QStringLiteral("charger")}));
}

void TestOuvrirBdd::formatAncienRefuse()
{
    Etude e(QStringLiteral("essai.mdb"), false);
    e.modifier({"DROP TABLE TECHNIQUE", "DROP TABLE COULEURS_GRAPH"});
    e.o.etapes.TransposerStructure = [] { return false; };
    const auto avant = contenu(e.dossier.path());
    QVERIFY(!OuvrirBase(e.o));
    QVERIFY(e.dialogue.messages.isEmpty());
    QVERIFY(e.etapes.isEmpty());
    QVERIFY(!e.donnees.estOuvert());
    QCOMPARE(contenu(e.dossier.path()), avant);
}

void TestOuvrirBdd::formatAncienSansEtape()
{
    Etude e(QStringLiteral("essai.mdb"), false);
    e.modifier({"DROP TABLE TECHNIQUE"});
    verifierRefusIntact(
        e, QStringLiteral("0 - La base a un format ancien, que cette version de l'outil ne transpose pas."));
}

void TestOuvrirBdd::couleursAbsentes()
{
    Etude e;
    e.modifier({"DROP TABLE COULEURS_GRAPH"});
    QVERIFY(OuvrirBase(e.o));
    QVERIFY(OuvrirBase(e.o));
    QCOMPARE(e.etapes,
             QStringList({QStringLiteral("creer"), QStringLiteral("charger"), QStringLiteral("charger")}));
}

void TestOuvrirBdd::couleursImpossibles()
{
    Etude e;
    e.o.etapes.ChargerCouleurs = [] { throw Erreur(429, QStringLiteral("Le tableur ne répond pas.")); };
    QVERIFY(!OuvrirBase(e.o));
    QCOMPARE(e.dialogue.messages.size(), 1);
    QCOMPARE(e.dialogue.messages[0].texte, DEBUT_ERREUR + QStringLiteral("429 - Le tableur ne répond pas."));
    QVERIFY(!e.donnees.estOuvert());
}

void TestOuvrirBdd::superficieAbsente()
{
    Etude e;
    e.modifier({"ALTER TABLE STATION_QUALITE DROP COLUMN SuperficieStationM"});
    QVERIFY(OuvrirBase(e.o));
    QCOMPARE(
        e.valeur("SELECT type FROM pragma_table_info('STATION_QUALITE') WHERE name = 'SuperficieStationM'"),
        QStringLiteral("DOUBLE"));
}

void TestOuvrirBdd::colonnesDesCartes()
{
    Etude e;
    for (const char *colonne : {"ALT_NO3", "CONC_MOY", "CONC_MAX", "CONC_AN1", "CONC_AN2", "CONC_AN3"})
        e.modifier({(QByteArray("ALTER TABLE STATION_QUALITE DROP COLUMN ") + colonne).constData()});
    QVERIFY(OuvrirBase(e.o));
    const char *const colonnes = "SELECT group_concat(name || ' ' || type, ', ') FROM "
                                 "(SELECT name, type FROM pragma_table_info('STATION_QUALITE') "
                                 "WHERE name LIKE 'ALT_NO3' OR name LIKE 'CONC_%' ORDER BY name)";
    for (int fois = 0; fois < 2; ++fois) {
        InitChampsCarte(e.donnees, e.dialogue);
        QCOMPARE(e.valeur(colonnes),
                 QStringLiteral("ALT_NO3 TINYINT, CONC_AN1 REAL, CONC_AN2 REAL, CONC_AN3 REAL, "
                                "CONC_MAX REAL, CONC_MOY REAL"));
    }
    QVERIFY(e.dialogue.messages.isEmpty());
    // The stations' rows are read again with their new columns.
    QCOMPARE(e.donnees.enMemoire(QStringLiteral("Station"))->valeur(0, QStringLiteral("ALT_NO3")),
             QVariant());
}

void TestOuvrirBdd::colonnesDesCartesImpossibles()
{
    Etude e;
    e.modifier({"DROP TABLE STATION_QUALITE"});
    e.donnees.ouvrir(e.chemin);
    InitChampsCarte(e.donnees, e.dialogue);
    QCOMPARE(e.dialogue.messages.size(), 1);
    QCOMPARE(e.dialogue.messages[0].texte,
             QStringLiteral("Une erreur est survenue. \n1 - no such table: STATION_QUALITE"));
    QCOMPARE(e.dialogue.messages[0].titre, QStringLiteral("Erreur"));
}

// The store made from a Jet file is judged where it was made, and opened where the file was.
void TestOuvrirBdd::conversionAcceptee()
{
    Etude e;
    const QString jet = e.dossier.filePath(QStringLiteral("ancien.mdb"));
    ecrire(jet, QByteArray("\x00\x01\x00\x00Standard Jet DB\x00", 20) + QByteArray(100, '\0'));
    e.o.FichierBase = jet;
    e.o.etapes.LireVersionJet = [](const QString &) { return QStringLiteral("07"); };
    QCOMPARE(LireVersionAccess(e.o, jet), QStringLiteral("07"));
    e.o.etapes.ConvertirBase97 = [&](const QString &fichier) {
        e.etapes << QStringLiteral("convertir ") + fichier;
        return e.chemin;
    };
    e.o.etapes.TerminerConversion = [&](bool acceptee) {
        e.etapes << (acceptee ? QStringLiteral("acceptée") : QStringLiteral("refusée"));
        QVERIFY(!e.donnees.estOuvert());
        QFile::remove(jet);
        QVERIFY(QFile::rename(e.chemin, jet));
    };
    QVERIFY(OuvrirBase(e.o));
    QCOMPARE(e.etapes, QStringList({QStringLiteral("convertir ") + jet, QStringLiteral("charger"),
                                    QStringLiteral("acceptée")}));
    QCOMPARE(e.valeur("SELECT NomParam FROM PARAMETRE WHERE CodeParam = '1340'"), QStringLiteral("Nitrates"));
    QCOMPARE(e.o.VersionAccess, QStringLiteral("09"));
    QCOMPARE(e.valeur("PRAGMA journal_mode"), QStringLiteral("wal"));
}

void TestOuvrirBdd::conversionRefusee()
{
    Etude e;
    e.modifier({"DROP TABLE TECHNIQUE"});
    const QString jet = e.dossier.filePath(QStringLiteral("ancien.mdb"));
    ecrire(jet, QByteArray("\x00\x01\x00\x00Standard Jet DB\x00", 20));
    e.o.FichierBase = jet;
    e.o.etapes.ConvertirBase97 = [&](const QString &) { return e.chemin; };
    e.o.etapes.TransposerStructure = [] { return false; };
    e.o.etapes.TerminerConversion = [&](bool acceptee) {
        e.etapes << (acceptee ? QStringLiteral("acceptée") : QStringLiteral("refusée"));
    };
    QVERIFY(!OuvrirBase(e.o));
    QCOMPARE(e.etapes, QStringList{QStringLiteral("refusée")});
    QVERIFY(e.dialogue.messages.isEmpty());
}

void TestOuvrirBdd::conversionImpossible()
{
    Etude e;
    ecrire(e.chemin, QByteArray("\x00\x01\x00\x00Standard Jet DB\x00", 20));
    e.o.etapes.ConvertirBase97 = [](const QString &) -> QString {
        throw Erreur(70, QStringLiteral("Le dossier est protégé."));
    };
    e.o.etapes.TerminerConversion = [&](bool) { e.etapes << QStringLiteral("terminer"); };
    verifierRefusIntact(e, QStringLiteral("70 - Le dossier est protégé."));
}

void TestOuvrirBdd::versionAccess()
{
    Etude e;
    QCOMPARE(LireVersionAccess(e.o, e.chemin), QStringLiteral("09"));
    const QString jet = e.dossier.filePath(QStringLiteral("j"));
    ecrire(jet, QByteArray("\x00\x01\x00\x00Standard Jet DB\x00", 20));
    QCOMPARE(LireVersionAccess(e.o, jet), QString());
    QCOMPARE(LireVersionAccess(e.o, e.dossier.filePath(QStringLiteral("absent"))), QString());
    // A file without a version, or of version "07", takes the older provider; only a conversion that goes on with the
    // Jet file itself meets the case.
    e.o.etapes.ConvertirBase97 = [&](const QString &fichier) { return fichier; };
    for (const char *version : {"", "07", "08"}) {
        e.o.FichierBase = jet;
        e.o.etapes.LireVersionJet = [version](const QString &) { return QString::fromLatin1(version); };
        QVERIFY(!OuvrirBase(e.o));
        const QString attendu = QByteArray(version) == "08" ? QStringLiteral("4.0") : QStringLiteral("3.51");
        QCOMPARE(e.o.ChaineFournisseur,
                 QStringLiteral("Provider=Microsoft.Jet.OLEDB.%1;Persist Security Info=False;Data Source=")
                     .arg(attendu));
    }
}

QTEST_GUILESS_MAIN(TestOuvrirBdd)
#include "test_ouvrir_bdd.moc"
