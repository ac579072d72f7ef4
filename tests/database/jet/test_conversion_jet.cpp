// Opening Access studies: what the user is told, what the new store holds against what mdb-export prints of the file,
// what becomes of the file.
#include "database/DefinitionTable.h"
#include "database/jet/BasesJet.h"
#include "database/jet/ConversionJet.h"
#include "database/jet/OuvertureDEssai.h"
#include "database/Schema.h"
#include "platform/Erreur.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QTemporaryDir>
#include <QtTest>

class TestConversionJet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void courant();
    void v400();
    void ancienRefuse();
    void ancienAccepte();
    void regional();
    void autreBase97();
    void toutesLesTables97();
    void cascades();
    void secondeOuverture();
    void sansVersionAccess();
    void versionIllisible();
    void access2007();
    void magasinAncien_data();
    void magasinAncien();

    void nomsDeLAncien_data();
    void nomsDeLAncien();
    void copieDejaLa();
    void copieDejaLaIdentique();
    void restesDUneConversionTuee();

private:
    // A copy of a base, alone in a new folder.
    QString copie(const QString &base, const QString &nom = QStringLiteral("etude.mdb"));
    QStringList presents() const
    {
        return QDir(m_dossier->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> m_dossier;
};

namespace
{
QByteArray empreinte(const QString &chemin)
{
    QFile fichier(chemin);
    if (!fichier.open(QIODevice::ReadOnly))
        qFatal("illisible : %s", qPrintable(chemin));
    return QCryptographicHash::hash(fichier.readAll(), QCryptographicHash::Sha256);
}

// What the store must hold for a cell that mdb-export prints, by the type that the store declares.
QVariant attendu(const QString &cellule, const QString &type)
{
    if (cellule.isEmpty())
        return {};
    if (type == u"DATE")
        return cellule.left(10);
    if (type == u"TIME")
        return cellule.mid(11);
    if (type == u"DATETIME")
        return cellule.endsWith(u" 00:00:00") ? cellule.left(10) : cellule;
    if (type == u"BOOLEAN")
        return cellule == u"1" ? -1 : 0;
    if (type.startsWith(u"VARCHAR") || type == u"TEXT")
        return cellule;
    return cellule.toDouble();
}

bool egales(const QVariant &lu, const QVariant &voulu)
{
    if (!voulu.isValid())
        return lu.isNull() || lu.toString().isEmpty();
    if (voulu.typeId() == QMetaType::Double)
        return lu.typeId() != QMetaType::QString &&
               qAbs(lu.toDouble() - voulu.toDouble()) <= 1e-7 * qAbs(voulu.toDouble());
    return lu.toString() == voulu.toString();
}

// Compares every row of a table of the file with the store; `change` tells what an upgrade makes of a cell.
using Changement = std::function<QString(const QStringList &ligne, const QStringList &entete, int colonne)>;
QString difference(const DataEnvironment1 &donnees, const QString &fichier, const QString &table,
                   const Changement &change = {})
{
    const QList<QStringList> lignes = BasesJet::mdbExport(fichier, table);
    const QStringList entete = lignes.value(0);
    QStringList types;
    QStringList cites;
    for (const QString &colonne : entete) {
        Requete r = donnees.executer("SELECT type FROM pragma_table_info(?) WHERE name = ? COLLATE NOCASE",
                                     {table, colonne});
        if (!r.suivant())
            return QString("%1.%2 absente").arg(table, colonne);
        types << r.texte(0);
        cites << Structure::citer(colonne);
    }
    Requete r = donnees.executer(
        QString("SELECT %1 FROM %2 ORDER BY rowid").arg(cites.join(u','), Structure::citer(table)));
    for (qsizetype i = 1; i < lignes.size(); ++i) {
        if (!r.suivant())
            return QString("%1 : %2 lignes seulement").arg(table).arg(i - 1);
        for (int j = 0; j < entete.size(); ++j) {
            const QString cellule = change ? change(lignes[i], entete, j) : lignes[i][j];
            if (!egales(r.valeur(j), attendu(cellule, types[j])))
                return QString("%1 ligne %2, %3 (%4) : « %5 » au lieu de « %6 »")
                    .arg(table, QString::number(i), entete[j], types[j], r.texte(j), cellule);
        }
    }
    return r.suivant() ? QString("%1 : des lignes en trop").arg(table) : QString();
}

// The first difference between any table of the file and the store. Rows come in the order of their numbers, which is
// that of the file in these bases.
QString differences(const DataEnvironment1 &donnees, const QString &fichier,
                    const QHash<QString, Changement> &changements = {})
{
    for (const QString &table : BasesJet::mdbTables(fichier))
        if (const QString d = difference(donnees, fichier, table, changements.value(table)); !d.isEmpty())
            return d;
    return {};
}

// The corrections that the upgrade to 4.0.1 makes in the contents of v400 and ancien.
Changement corrigerIntervenant()
{
    return [](const QStringList &ligne, const QStringList &entete, int colonne) {
        if (ligne[entete.indexOf("CodeSandreInterv")] == u"24560051500010") {
            if (entete[colonne] == u"NomInterv")
                return QStringLiteral("CdC Pays de Baud");
            if (entete[colonne] == u"LibelleSandreInterv")
                return QStringLiteral("Communauté de Communes du Pays de Baud");
            if (entete[colonne] == u"StatutInterv")
                return QStringLiteral("Validé");
        }
        return ligne[colonne];
    };
}

// The network "BV Sélune" has this code in the file.
Changement corrigerReseau(const QString &ancien)
{
    return [ancien](const QStringList &ligne, const QStringList &entete, int colonne) {
        return entete[colonne] == u"CodeReseau" && ligne[colonne] == ancien ? QStringLiteral("0400003044")
                                                                            : ligne[colonne];
    };
}

QStringList tablesManquantes(const DataEnvironment1 &donnees)
{
    QStringList manquantes;
    for (const Schema::Table &t : Schema::tables()) {
        const QStringList colonnes = Structure::colonnes(donnees.Connect_Bdd(), t.nom);
        for (const Schema::Colonne &c : t.colonnes)
            if (!colonnes.contains(c.nom))
                manquantes << t.nom + u'.' + c.nom;
    }
    return manquantes;
}
} // namespace

void TestConversionJet::init()
{
    m_dossier = std::make_unique<QTemporaryDir>();
}

QString TestConversionJet::copie(const QString &base, const QString &nom)
{
    const QString chemin = m_dossier->filePath(nom);
    if (!QFile::copy(base, chemin))
        qFatal("copie impossible");
    QFile::setPermissions(chemin, QFile::ReadOwner | QFile::WriteOwner);
    return chemin;
}

void TestConversionJet::courant()
{
    const QString original = BasesJet::chemin("courant.mdb");
    const QString chemin = copie(original);
    OuvertureDEssai essai;
    QVERIFY(essai.ouvrir(chemin));
    QVERIFY2(essai.dialogue.messages.isEmpty(), qPrintable(essai.dialogue.messages.value(0).texte));
    QVERIFY(essai.dialogue.questions.isEmpty());
    const ProgressionDEssai &attente = essai.dialogue.progression(FenetreProgression::FProgress3);
    QCOMPARE(attente.fois, 1);
    QCOMPARE(attente.titre, "Conversion de la base de données");
    QCOMPARE(attente.textes,
             QStringList{"La base de données est au format Access 97 et il existe une version plus "
                         "récente de Microsoft Access sur le poste. La base va être convertie.\n"
                         "Veuillez patienter...."});
    QCOMPARE(attente.dernierMaximum, 0);
    QVERIFY(!attente.visible);
    QCOMPARE(essai.versionAccess, "09");
    QCOMPARE(essai.chaineFournisseur,
             "Provider=Microsoft.Jet.OLEDB.4.0;Persist Security Info=False;Data Source=");

    QCOMPARE(differences(essai.donnees, original), "");
    QCOMPARE(tablesManquantes(essai.donnees), QStringList());
    QCOMPARE(essai.valeur("SELECT count(*) FROM pragma_foreign_key_check"), 0);
    QCOMPARE(essai.valeur("PRAGMA integrity_check"), "ok");
    // Codes are text with their leading zeros, keys are the file's numbers, booleans -1 or 0, dates and times ISO.
    QCOMPARE(essai.valeur("SELECT count(*) FROM STATION_QUALITE WHERE typeof(CodeSandreStationM) <> 'text'"),
             0);
    QCOMPARE(essai.valeur("SELECT quote(CodeSandreStationM) FROM PRELEVEMENT WHERE NumPrel = 1"),
             "'04211940'");
    QCOMPARE(
        essai.valeur("SELECT group_concat(DISTINCT ISOVL) FROM IMPORT_PAR_URF WHERE ISOVL NOT IN (-1, 0)"),
        QVariant(""));
    QCOMPARE(essai.valeur("SELECT DatePrel || ' ' || HeurePrel FROM PRELEVEMENT WHERE NumPrel = 1"),
             "2003-01-13 16:35:00");
    // A sampling without a time is a valid one.
    QVERIFY(essai.valeur("SELECT count(*) FROM PRELEVEMENT WHERE HeurePrel IS NULL").toInt() > 0);
    QCOMPARE(essai.valeur("SELECT max(NumAnaPC) FROM MESURE_PHYSICO"),
             essai.valeur("SELECT max(rowid) FROM MESURE_PHYSICO"));
    // Everything that the program asks of a base can be asked of this one.
    for (const char *commande :
         {"Parametre_PS", "MESURES_PC_RSX", "Station_Qualité", "GestMesure", "Lieu_BV"})
        QVERIFY(essai.donnees.commande(commande).colonnes().size() > 0);

    essai.donnees.liberer();
    QCOMPARE(presents(), (QStringList{"etude.mdb", "etude_old97.mdb"}));
    QCOMPARE(empreinte(m_dossier->filePath("etude_old97.mdb")), empreinte(original));
}

void TestConversionJet::v400()
{
    const QString original = BasesJet::chemin("v400.mdb");
    const QString chemin = copie(original);
    OuvertureDEssai essai;
    QVERIFY(essai.ouvrir(chemin));
    QVERIFY(essai.dialogue.messages.isEmpty() && essai.dialogue.questions.isEmpty());
    QCOMPARE(differences(essai.donnees, original,
                         {{"INTERVENANT", corrigerIntervenant()},
                          {"RESEAU_MESURE", corrigerReseau("0499999999")},
                          {"PRELEVEMENTRSX", corrigerReseau("0499999999")}}),
             "");
    QCOMPARE(essai.valeur("SELECT PROPERTYVALUE FROM APPLICATIONPROPERTIES WHERE PROPERTYNAME = 'DbVersion'"),
             "4.0.1");
    QCOMPARE(essai.valeur("SELECT VERSION FROM TECHNIQUE"), "2L");
    // The file's comments have 50 characters.
    for (const char *colonne : {"CommAnaPC", "CommResAnaPC"})
        QCOMPARE(
            essai.valeur(QString("SELECT type FROM pragma_table_info('MESURE_PHYSICO') WHERE name = '%1'")
                             .arg(colonne)),
            "VARCHAR(255)");
    QCOMPARE(tablesManquantes(essai.donnees), QStringList());
    QCOMPARE(essai.valeur("SELECT count(*) FROM pragma_foreign_key_check"), 0);
}

void TestConversionJet::ancienRefuse()
{
    const QString original = BasesJet::chemin("ancien.mdb");
    const QString chemin = copie(original);
    OuvertureDEssai essai;
    essai.dialogue.reponses.enqueue(Reponse::Non);
    QVERIFY(!essai.ouvrir(chemin));
    QCOMPARE(essai.dialogue.questions.size(), 1);
    QCOMPARE(essai.dialogue.questions[0].titre, "Transposer la base?");
    QVERIFY(essai.dialogue.messages.isEmpty());
    QVERIFY(!essai.donnees.estOuvert());
    QCOMPARE(presents(), QStringList{"etude.mdb"});
    QCOMPARE(empreinte(chemin), empreinte(original));
}

void TestConversionJet::ancienAccepte()
{
    const QString original = BasesJet::chemin("ancien.mdb");
    const QString chemin = copie(original);
    OuvertureDEssai essai;
    essai.dialogue.reponses.enqueue(Reponse::Oui);
    QVERIFY(essai.ouvrir(chemin));
    QVERIFY(essai.dialogue.messages.isEmpty());
    QCOMPARE(essai.dialogue.progression(FenetreProgression::FProgress3).textes.last(),
             "Modification de structure en cours");
    QCOMPARE(differences(essai.donnees, original,
                         {{"INTERVENANT", corrigerIntervenant()},
                          {"RESEAU_MESURE", corrigerReseau("3")},
                          {"PRELEVEMENTRSX", corrigerReseau("3")}}),
             "");
    // The numbers of networks and the coordinates have the types of the current structure.
    QCOMPARE(essai.valeur("SELECT quote(CodeReseau) FROM RESEAU_MESURE WHERE LibelleReseau = 'BV Sélune'"),
             "'0400003044'");
    QCOMPARE(essai.valeur("SELECT quote(CodeReseau) FROM RESEAU_MESURE WHERE rowid = 1"), "'1'");
    QCOMPARE(essai.valeur("SELECT count(*) FROM PRELEVEMENTRSX WHERE typeof(CodeReseau) <> 'text'"), 0);
    QCOMPARE(essai.valeur(
                 "SELECT count(*) FROM STATION_QUALITE WHERE typeof(CoorXStationM) NOT IN ('real', 'null')"),
             0);
    QCOMPARE(essai.valeur("SELECT group_concat(VERSION) FROM TECHNIQUE"), "2L");
    QCOMPARE(tablesManquantes(essai.donnees), QStringList());
    QCOMPARE(essai.valeur("SELECT count(*) FROM pragma_foreign_key_check"), 0);
    // A column that the file alone has is kept.
    QVERIFY(Structure::colonneExiste(essai.donnees.Connect_Bdd(), "MESURE_PHYSICO", "CodeReseau"));
    essai.donnees.liberer();
    QCOMPARE(presents(), (QStringList{"etude.mdb", "etude_old97.mdb"}));
    QCOMPARE(empreinte(m_dossier->filePath("etude_old97.mdb")), empreinte(original));
}

void TestConversionJet::regional()
{
    const QString original = BasesJet::chemin("regional.mdb");
    const QString chemin = copie(original);
    OuvertureDEssai essai;
    QVERIFY(!essai.ouvrir(chemin));
    QCOMPARE(essai.dialogue.messages.size(), 1);
    QCOMPARE(essai.dialogue.messages[0],
             (BoiteDEssai{
                 "La base est une ancienne base locale \nqui a été transposée par l'outil régional ou une "
                 "version ancienne de l'outil local\n\nIl est impossible de l'exploiter",
                 "Erreur", Icone::Aucune}));
    QVERIFY(essai.dialogue.questions.isEmpty());
    QCOMPARE(presents(), QStringList{"etude.mdb"});
    QCOMPARE(empreinte(chemin), empreinte(original));
}

void TestConversionJet::autreBase97()
{
    const QString original = BasesJet::autreBase97();
    if (original.isEmpty())
        QSKIP("autre_base_97.mdb n'est pas là (OVRALIS_BASES_VOISINES)");
    const QString chemin = copie(original);
    OuvertureDEssai essai;
    QVERIFY(!essai.ouvrir(chemin));
    QCOMPARE(essai.dialogue.messages,
             (QList<BoiteDEssai>{{"Base non conforme !", "Attention !", Icone::Critique}}));
    QCOMPARE(essai.dialogue.progression(FenetreProgression::FProgress3).fois, 0);
    QCOMPARE(presents(), QStringList{"etude.mdb"});
    QCOMPARE(empreinte(chemin), empreinte(original));
}

// Tables that the schema does not know, from a file of Access 97: every row all the same.
void TestConversionJet::toutesLesTables97()
{
    const QString original = BasesJet::autreBase97();
    if (original.isEmpty())
        QSKIP("autre_base_97.mdb n'est pas là (OVRALIS_BASES_VOISINES)");
    const QString magasin = m_dossier->filePath("magasin.mdb");
    LecteurJet lecteur(original);
    QVERIFY(!ConversionJet::estUneEtude(lecteur));
    ConversionJet::convertir(lecteur, magasin);
    DataEnvironment1 donnees;
    donnees.ouvrir(magasin);
    for (const QString &table : BasesJet::mdbTables(original)) {
        if (table == u"Categories" || table == u"Employees")
            continue; // hold pictures, which mdb-export prints in a way of its own
        QCOMPARE(difference(donnees, original, table), "");
    }
    QVERIFY(donnees.valeur("SELECT sum(length(Picture)) FROM Categories").toInt() > 0);
    QCOMPARE(donnees.valeur("SELECT typeof(Picture) FROM Categories"), "blob");
}

void TestConversionJet::cascades()
{
    OuvertureDEssai essai;
    QVERIFY(essai.ouvrir(copie(BasesJet::chemin("v400.mdb"))));
    const int nitrates = essai.valeur("SELECT count(*) FROM MESURE_PHYSICO WHERE CodeParam = '1340'").toInt();
    QVERIFY(nitrates > 0);
    essai.donnees.executer("UPDATE PARAMETRE SET CodeParam = '91340' WHERE CodeParam = '1340'");
    QCOMPARE(essai.valeur("SELECT count(*) FROM MESURE_PHYSICO WHERE CodeParam = '91340'"), nitrates);
    const int resultats =
        essai.valeur("SELECT count(*) FROM MESURE_PHYSICO WHERE CodeSandreGest = '22350001800013'").toInt();
    QVERIFY(resultats > 0);
    essai.donnees.executer(
        "UPDATE INTERVENANT SET CodeSandreInterv = '0022' WHERE CodeSandreInterv = '22350001800013'");
    QCOMPARE(essai.valeur("SELECT count(*) FROM MESURE_PHYSICO WHERE CodeSandreGest = '0022'"), resultats);
    QVERIFY(essai.valeur("SELECT count(*) FROM PRELEVEMENTRSX WHERE NumPrel = 1").toInt() > 0);
    essai.donnees.executer("DELETE FROM PRELEVEMENT WHERE NumPrel = 1");
    QCOMPARE(essai.valeur("SELECT count(*) FROM PRELEVEMENTRSX WHERE NumPrel = 1"), 0);
    // The next sampling takes a number of its own.
    const qint64 dernier = essai.valeur("SELECT max(NumPrel) FROM PRELEVEMENT").toLongLong();
    essai.donnees.executer("INSERT INTO PRELEVEMENT (CodeSandreStationM) VALUES ('04211940')");
    QCOMPARE(essai.valeur("SELECT max(NumPrel) FROM PRELEVEMENT"), dernier + 1);
}

// Once accepted, nothing is asked, converted or written any more.
void TestConversionJet::secondeOuverture()
{
    const QString chemin = copie(BasesJet::chemin("ancien.mdb"));
    {
        OuvertureDEssai essai;
        essai.dialogue.reponses.enqueue(Reponse::Oui);
        QVERIFY(essai.ouvrir(chemin));
        essai.donnees.liberer();
    }
    OuvertureDEssai essai;
    QVERIFY(essai.ouvrir(chemin));
    essai.donnees.liberer();
    const QByteArray avant = empreinte(chemin);
    QVERIFY(essai.ouvrir(chemin));
    QVERIFY(essai.dialogue.questions.isEmpty() && essai.dialogue.messages.isEmpty());
    QCOMPARE(essai.dialogue.progression(FenetreProgression::FProgress3).fois, 0);
    QCOMPARE(essai.versionAccess, "09");
    essai.donnees.liberer();
    QCOMPARE(empreinte(chemin), avant);
    QCOMPARE(presents(), (QStringList{"etude.mdb", "etude_old97.mdb"}));
}

// A file that Access never opened has no property AccessVersion; here its name is spoilt.
void TestConversionJet::sansVersionAccess()
{
    const QString chemin = copie(BasesJet::chemin("courant.mdb"));
    QFile fichier(chemin);
    QVERIFY(fichier.open(QIODevice::ReadWrite));
    QByteArray octets = fichier.readAll();
    const QString nom = "AccessVersion";
    const QByteArray cherche(reinterpret_cast<const char *>(nom.utf16()), nom.size() * 2);
    QVERIFY(octets.contains(cherche));
    QByteArray autre = cherche;
    autre[0] = 'B';
    octets.replace(cherche, autre);
    fichier.seek(0);
    fichier.write(octets);
    fichier.close();

    DialogueDEssai dialogue;
    QCOMPARE(EtapesJet::LireVersionAccess(dialogue, chemin), "");
    QCOMPARE(dialogue.messages.size(), 1);
    QCOMPARE(dialogue.messages[0].texte,
             "This database hasn't previously been opened with Microsoft Access.");

    OuvertureDEssai essai;
    QVERIFY(essai.ouvrir(chemin)); // the opening goes on
    QCOMPARE(essai.dialogue.messages, dialogue.messages);
    QCOMPARE(essai.valeur("SELECT count(*) FROM STATION_QUALITE"), 6);
}

void TestConversionJet::versionIllisible()
{
    DialogueDEssai dialogue;
    QCOMPARE(EtapesJet::LireVersionAccess(dialogue, BasesJet::chemin("courant.mdb")), "08");
    QVERIFY(dialogue.messages.isEmpty());
    const QString chemin = copie(BasesJet::chemin("courant.mdb"));
    QVERIFY(QFile::resize(chemin, 8192));
    QCOMPARE(EtapesJet::LireVersionAccess(dialogue, chemin), "");
    QCOMPARE(dialogue.messages.size(), 1);
    QVERIFY(dialogue.messages[0].texte.startsWith("Error: 3049\n"));
    if (const QString autre = BasesJet::autreBase97(); !autre.isEmpty())
        QCOMPARE(EtapesJet::LireVersionAccess(dialogue, autre), "07");
}

void TestConversionJet::access2007()
{
    const QString chemin = m_dossier->filePath("etude.mdb");
    QFile fichier(chemin);
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    fichier.write(QByteArray("\0\1\0\0Standard ACE DB\0\2", 21) + QByteArray(8171, '\0'));
    fichier.close();
    OuvertureDEssai essai;
    QVERIFY(!essai.ouvrir(chemin));
    QCOMPARE(essai.dialogue.messages.size(), 1);
    QCOMPARE(essai.dialogue.messages[0].titre, "Erreur d'ouverture");
    QVERIFY(essai.dialogue.messages[0].texte.contains("Access 2007"));
    QCOMPARE(presents(), QStringList{"etude.mdb"});
}

void TestConversionJet::magasinAncien_data()
{
    QTest::addColumn<bool>("accepte");
    QTest::newRow("accepté") << true;
    QTest::newRow("refusé") << false;
}

// A store of ours, not an Access file, that is at 4.0.0 and of the old format: both upgrades, or not a byte.
void TestConversionJet::magasinAncien()
{
    QFETCH(bool, accepte);
    const QString chemin = m_dossier->filePath("etude.mdb");
    {
        DataEnvironment1 donnees;
        donnees.creer(chemin);
        donnees.executer("DROP TABLE TECHNIQUE");
        donnees.executer("UPDATE APPLICATIONPROPERTIES SET PROPERTYVALUE = '4.0.0'");
        donnees.executer("INSERT INTO RESEAU_MESURE VALUES ('0003', 'BV Sélune', NULL)");
    }
    const QByteArray avant = empreinte(chemin);
    OuvertureDEssai essai;
    essai.dialogue.reponses.enqueue(accepte ? Reponse::Oui : Reponse::Non);
    QCOMPARE(essai.ouvrir(chemin), accepte);
    QCOMPARE(essai.dialogue.questions.size(), 1);
    QVERIFY(essai.dialogue.messages.isEmpty());
    if (accepte) {
        QCOMPARE(essai.valeur("SELECT VERSION FROM TECHNIQUE"), "2L");
        QCOMPARE(essai.valeur("SELECT PROPERTYVALUE FROM APPLICATIONPROPERTIES"), "4.0.1");
        QCOMPARE(essai.valeur("SELECT CodeReseau FROM RESEAU_MESURE"), "0400003044");
        essai.donnees.liberer();
    } else {
        QCOMPARE(empreinte(chemin), avant);
    }
    QCOMPARE(presents(), QStringList{"etude.mdb"});
}

void TestConversionJet::nomsDeLAncien_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QString>("ancien");
    QTest::newRow("mdb") << "etude.mdb"
                         << "etude_old97.mdb";
    QTest::newRow("MDB") << "Étude du Semnon.MDB"
                         << "Étude du Semnon_old97.mdb";
    QTest::newRow("autre extension") << "etude.bak"
                                     << "etude.bak_old97.mdb";
    QTest::newRow("sans extension") << "etude"
                                    << "etude_old97.mdb";
}

void TestConversionJet::nomsDeLAncien()
{
    QFETCH(QString, nom);
    QFETCH(QString, ancien);
    const QString original = BasesJet::chemin("v400.mdb");
    OuvertureDEssai essai;
    QVERIFY(essai.ouvrir(copie(original, nom)));
    essai.donnees.liberer();
    QStringList attendus{nom, ancien};
    attendus.sort();
    QStringList la = presents();
    la.sort();
    QCOMPARE(la, attendus);
    QCOMPARE(empreinte(m_dossier->filePath(ancien)), empreinte(original));
}

void TestConversionJet::copieDejaLa()
{
    const QString chemin = copie(BasesJet::chemin("v400.mdb"));
    QFile precedente(m_dossier->filePath("etude_old97.mdb"));
    QVERIFY(precedente.open(QIODevice::WriteOnly));
    precedente.write("une copie plus ancienne");
    precedente.flush();
    precedente.setFileTime(QDateTime(QDate(2004, 5, 6), QTime(12, 0)), QFileDevice::FileModificationTime);
    precedente.close();
    // Its dated name is taken as well.
    QVERIFY(QFile::copy(precedente.fileName(), m_dossier->filePath("etude_old97_2004-05-06.mdb")));
    OuvertureDEssai essai;
    QVERIFY(essai.ouvrir(chemin));
    essai.donnees.liberer();
    QCOMPARE(presents(), (QStringList{"etude.mdb", "etude_old97.mdb", "etude_old97_2004-05-06.mdb",
                                      "etude_old97_2004-05-06_2.mdb"}));
    QCOMPARE(empreinte(m_dossier->filePath("etude_old97.mdb")), empreinte(BasesJet::chemin("v400.mdb")));
    QFile gardee(m_dossier->filePath("etude_old97_2004-05-06_2.mdb"));
    QVERIFY(gardee.open(QIODevice::ReadOnly));
    QCOMPARE(gardee.readAll(), "une copie plus ancienne");
}

void TestConversionJet::copieDejaLaIdentique()
{
    const QString chemin = copie(BasesJet::chemin("v400.mdb"));
    copie(BasesJet::chemin("v400.mdb"), "etude_old97.mdb");
    OuvertureDEssai essai;
    QVERIFY(essai.ouvrir(chemin));
    essai.donnees.liberer();
    QCOMPARE(presents(), (QStringList{"etude.mdb", "etude_old97.mdb"}));
}

// A run that was killed leaves a store of its own, or the file's second name; the next one takes both away.
void TestConversionJet::restesDUneConversionTuee()
{
    const QString original = BasesJet::chemin("ancien.mdb");
    const QString chemin = copie(original);
    for (const char *reste : {".conversion", ".conversion-journal", ".conversion-wal"}) {
        QFile fichier(chemin + reste);
        QVERIFY(fichier.open(QIODevice::WriteOnly));
        fichier.write("reste");
    }
    QCOMPARE(QProcess::execute("ln", {chemin, m_dossier->filePath("etude_old97.mdb")}), 0);
    OuvertureDEssai essai;
    essai.dialogue.reponses.enqueue(Reponse::Non);
    QVERIFY(!essai.ouvrir(chemin));
    QCOMPARE(presents(), QStringList{"etude.mdb"});
    QCOMPARE(empreinte(chemin), empreinte(original));
}

QTEST_GUILESS_MAIN(TestConversionJet)
#include "test_conversion_jet.moc"
