// Workbooks that cannot be imported, each way of being broken: what the user is told, and that nothing is written.
#include "exchange/ImportDEssai.h"
#include "exchange/M_Test_OVRA.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#ifndef Q_OS_WIN
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

using C = ChampPhysico;
using Fin = IssueImport::Fin;

namespace
{
const QString ECHEC = QStringLiteral(
    "Erreur | Une erreur est survenue au cours de l'import. Votre fichier contient peut-être des "
    "redondances ou est peut-être en cours d'utilisation. \n");
} // namespace

class TestMauvaisClasseurs : public QObject
{
    Q_OBJECT

    ImportDEssai essai;

    void importer(const QString &chemin)
    {
        essai.choisir(chemin);
        QCOMPARE(M_Import_OVRA::ImporterPhysico(essai.session).fin, Fin::Arretee);
        QVERIFY(!essai.dialogue.enSablier);
        QVERIFY(!essai.dialogue.progression(FenetreProgression::FProgress).visible);
    }
    static QString fixture(const QString &nom) { return QStringLiteral(DONNEES_TESTS "/classeurs/") + nom; }
    QString bon(const QString &nom = QStringLiteral("bon.xls"))
    {
        FeuillePhysico feuille = feuillePhysico();
        for (int i = 0; i < 300; ++i)
            feuille.ajouter({{C::Date, QDate(2009, 1, 1).addDays(i)}});
        return essai.ecrire(feuille.valeurs(), nom);
    }
    QString copie(const QString &nom, const QByteArray &contenu)
    {
        QFile fichier(essai.dossier.filePath(nom));
        if (!fichier.open(QIODevice::WriteOnly) || fichier.write(contenu) != contenu.size())
            qFatal("cannot write %s", qPrintable(nom));
        return fichier.fileName();
    }
    static QByteArray contenu(const QString &chemin)
    {
        QFile fichier(chemin);
        return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
    }
    void verifierEchec(const QString &raison)
    {
        QVERIFY2(essai.boite().startsWith(ECHEC), qPrintable(essai.boite()));
        QVERIFY2(essai.boite().endsWith(raison), qPrintable(essai.boite()));
        QCOMPARE(essai.dialogue.messages.size(), 1);
        QCOMPARE(essai.dialogue.messages[0].icone, Icone::Critique);
        QCOMPARE(essai.compter(QStringLiteral("MESURE_PHYSICO")), 0);
        QCOMPARE(essai.compter(QStringLiteral("PRELEVEMENT")), 0);
    }

private Q_SLOTS:
    void initTestCase() { essai.session.tableur.demarrerEnAvance(); }
    void init() { essai.recommencer(); }

    void absent()
    {
        importer(essai.dossier.filePath(QStringLiteral("parti.xls")));
        verifierEchec(QStringLiteral("53 - Le fichier « parti.xls » est introuvable."));
    }

    void pasUnClasseur_data()
    {
        QTest::addColumn<QByteArray>("octets");
        QTest::newRow("texte") << QByteArray("Code Agence;Nom;Date\n04211940;Pont;01/03/2009\n");
        QTest::newRow("image") << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
        QTest::newRow("zeros") << QByteArray(4096, '\0');
    }
    void pasUnClasseur()
    {
        QFETCH(QByteArray, octets);
        importer(copie(QStringLiteral("faux.xls"), octets));
        verifierEchec(QStringLiteral(" - Le fichier « faux.xls » n'est pas un classeur."));
    }

    void fichierVide()
    {
        importer(copie(QStringLiteral("vide.xls"), {}));
        verifierEchec(QStringLiteral(" - Le fichier « vide.xls » est vide."));
    }

    void tronque_data()
    {
        QTest::addColumn<QString>("nom");
        QTest::addColumn<int>("pourcent");
        for (const QString &nom :
             {QStringLiteral("bon.xls"), QStringLiteral("bon.xlsx"), QStringLiteral("bon.ods")}) {
            for (const int pourcent : {1, 25, 50, 75, 90, 99})
                QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(nom).arg(pourcent))) << nom << pourcent;
        }
    }
    // Never a part of the rows without a word.
    void tronque()
    {
        QFETCH(QString, nom);
        QFETCH(int, pourcent);
        const QByteArray entier = contenu(bon(nom));
        QVERIFY(entier.size() > 5000);
        importer(copie(nom, entier.left(entier.size() * pourcent / 100)));
        verifierEchec(
            QStringLiteral(" - Le fichier « %1 » est tronqué ou abîmé : il ne peut pas être lu.").arg(nom));
    }

    void abime_data()
    {
        QTest::addColumn<QString>("nom");
        for (const char *nom : {"bon.xls", "bon.xlsx", "bon.ods"})
            QTest::newRow(nom) << QString::fromLatin1(nom);
    }
    // Bytes changed here and there: whatever comes of it, the program goes on and the base is sound.
    void abime()
    {
        QFETCH(QString, nom);
        const QByteArray entier = contenu(bon(nom));
        QRandomGenerator hasard(42);
        for (int essais = 0; essais < 8; ++essais) {
            QByteArray abime = entier;
            for (int i = 0; i < 20; ++i)
                abime[hasard.bounded(abime.size())] = static_cast<char>(hasard.bounded(256));
            essai.recommencer();
            essai.choisir(copie(nom, abime));
            const IssueImport issue = M_Import_OVRA::ImporterPhysico(essai.session);
            QVERIFY(issue.fin == Fin::Terminee || issue.fin == Fin::Choix || issue.fin == Fin::ChoixUnite ||
                    !essai.dialogue.messages.isEmpty());
            QCOMPARE(essai.valeur(QStringLiteral("PRAGMA integrity_check")).toString(), QStringLiteral("ok"));
            QVERIFY(!essai.dialogue.enSablier);
        }
    }

    void motDePasse_data()
    {
        QTest::addColumn<QString>("nom");
        for (const char *nom : {"mot_de_passe.xls", "mot_de_passe.xlsx", "mot_de_passe.ods"})
            QTest::newRow(nom) << QString::fromLatin1(nom);
    }
    void motDePasse()
    {
        QFETCH(QString, nom);
        importer(fixture(nom));
        verifierEchec(
            QStringLiteral(" - Le fichier « %1 » est protégé par un mot de passe. Enregistrez-le sans mot de "
                           "passe, puis recommencez.")
                .arg(nom));
    }

#ifndef Q_OS_WIN
    // Locked by another program, in the ways that programs of this system lock.
    void verrouDuSysteme()
    {
        const QString chemin = bon();
        const int poignee = ::open(chemin.toUtf8().constData(), O_RDWR);
        QCOMPARE(::flock(poignee, LOCK_EX), 0);
        importer(chemin);
        ::close(poignee);
        verifierEchec(QStringLiteral(
            "70 - Le fichier « bon.xls » est verrouillé par un autre programme. Fermez-le puis "
            "recommencez."));
        importerApresLiberation(chemin);
    }

    void verrouDEnregistrement()
    {
        const QString chemin = bon();
        // The lock of a process never hinders itself: another one has to hold it.
        QProcess autre;
        autre.start(
            QStringLiteral("python3"),
            {QStringLiteral("-c"),
             QStringLiteral("import fcntl,sys\nf=open(sys.argv[1],'r+b')\nfcntl.lockf(f,fcntl.LOCK_EX)\n"
                            "print('pris',flush=True)\nsys.stdin.read()"),
             chemin});
        QVERIFY(autre.waitForStarted());
        QVERIFY(autre.waitForReadyRead());
        importer(chemin);
        autre.closeWriteChannel();
        QVERIFY(autre.waitForFinished());
        verifierEchec(QStringLiteral(
            "70 - Le fichier « bon.xls » est verrouillé par un autre programme. Fermez-le puis "
            "recommencez."));
        importerApresLiberation(chemin);
    }
#endif

    void ouvertDansUnTableur()
    {
        const QString chemin = bon();
        copie(QStringLiteral(".~lock.bon.xls#"), ",marie,poste12,21.11.2026 10:00,file:///home/marie;");
        importer(chemin);
        verifierEchec(
            QStringLiteral("70 - Le fichier « bon.xls » est ouvert dans un autre programme (marie, poste12). "
                           "Fermez-le puis recommencez."));
        QVERIFY(QFile::remove(essai.dossier.filePath(QStringLiteral(".~lock.bon.xls#"))));
        importerApresLiberation(chemin);
    }

    // No cell at all: no header is recognised.
    void classeurSansCellule()
    {
        importer(essai.ecrire({}, QStringLiteral("rien.xls")));
        QVERIFY2(essai.boite().startsWith(
                     QStringLiteral("Erreur de fichier | Les colonnes  'Code Agence'  'Nom' 'Date'")),
                 qPrintable(essai.boite()));
        QVERIFY(
            essai.boite().endsWith(QStringLiteral("// Attention | Ce fichier n'est pas au format adapté")));
    }

    void enteteManquante()
    {
        Valeurs valeurs = feuillePhysico().ajouter().valeurs();
        valeurs[0][static_cast<int>(C::Gestionnaire)] = QStringLiteral("Gestionnaire ");
        importer(essai.ecrire(valeurs));
        QCOMPARE(essai.boite(),
                 QStringLiteral(
                     "Erreur de fichier | La colonne  'Gestionnaire'  n'a pas été reconnue dans le fichier "
                     "Excel. // Attention | Ce fichier n'est pas au format adapté"));
    }

    // A blank header hides the columns to its right.
    void enteteVide()
    {
        Valeurs valeurs = feuillePhysico().ajouter().valeurs();
        valeurs[0][static_cast<int>(C::Gestionnaire)] = QVariant();
        importer(essai.ecrire(valeurs));
        QCOMPARE(essai.boite(),
                 QStringLiteral(
                     "Erreur de fichier | Les colonnes  'Gestionnaire'  'Organisme préleveur'  'Laboratoire "
                     "d'analyses'  'Réseau de mesure'  n'ont pas été reconnues dans le fichier Excel. // "
                     "Attention | Ce fichier n'est pas au format adapté"));
    }

    void celluleLongue_data()
    {
        QTest::addColumn<QString>("nom");
        // A .xls cell holds 32 767 characters at most; the others hold the 100 000.
        for (const char *nom : {"cellule_longue.xls", "cellule_longue.xlsx", "cellule_longue.ods"})
            QTest::newRow(nom) << QString::fromLatin1(nom);
    }
    void celluleLongue()
    {
        QFETCH(QString, nom);
        importer(fixture(nom));
        QCOMPARE(essai.boite(),
                 QStringLiteral("Erreur | Le commentaire '") + QString(300, u'x') +
                     QStringLiteral("…' ne doit contenir que 255 caractères au maximum. Corrigez votre "
                                    "fichier puis recommencer l'import des données."));
        QCOMPARE(essai.compter(QStringLiteral("MESURE_PHYSICO")), 1); // the row before it
    }

    void celluleEnErreur_data()
    {
        QTest::addColumn<QString>("nom");
        for (const char *nom : {"cellule_erreur.xls", "cellule_erreur.xlsx", "cellule_erreur.ods"})
            QTest::newRow(nom) << QString::fromLatin1(nom);
    }
    void celluleEnErreur()
    {
        QFETCH(QString, nom);
        importer(fixture(nom));
        QCOMPARE(essai.boite(),
                 QStringLiteral("Erreur | La cellule « Valeur » de la ligne 3 contient une erreur (#N/A). "
                                "Corrigez votre fichier puis recommencer l'import des données."));
        QCOMPARE(essai.compter(QStringLiteral("MESURE_PHYSICO")), 1);
    }

    void dateImpossible()
    {
        importer(essai.ecrire(feuillePhysico().ajouter({{C::Date, QStringLiteral("31/02/2009")}}).valeurs()));
        QCOMPARE(essai.boite(),
                 QStringLiteral("Erreur | La valeur '31/02/2009' doit être au format Date/Heure "
                                "'jj/mm/yy'."));
        QCOMPARE(essai.compter(QStringLiteral("PRELEVEMENT")), 0);
    }

    // The spreadsheet application dies while rows are still to come: told, and the import run again completes it.
    void tableurMort()
    {
        FeuillePhysico feuille = feuillePhysico();
        for (int i = 0; i < 2500; ++i)
            feuille.ajouter({{C::Date, QDate(2000, 1, 1).addDays(i)}});
        const QString chemin = essai.ecrire(feuille.valeurs());
        essai.choisir(chemin);
        essai.dialogue.progression(FenetreProgression::FProgress).aChaqueLigne = [this](int ligne) {
            if (ligne == 100)
                essai.session.tableur.tuer();
        };
        QCOMPARE(M_Import_OVRA::ImporterPhysico(essai.session).fin, Fin::Arretee);
        QVERIFY2(essai.boite().startsWith(ECHEC), qPrintable(essai.boite()));
        // The rows that had been fetched by then.
        const int faites = essai.compter(QStringLiteral("MESURE_PHYSICO"));
        QVERIFY(faites >= 100 && faites < 2500);
        QCOMPARE(essai.import().NbEnregistres, faites);
        essai.dialogue.progression(FenetreProgression::FProgress).aChaqueLigne = {};
        essai.choisir(chemin);
        essai.import().RemplacerTout = true;
        QVERIFY2(M_Import_OVRA::ImporterPhysico(essai.session).fin == Fin::Terminee,
                 qPrintable(essai.boite()));
        QCOMPARE(essai.compter(QStringLiteral("MESURE_PHYSICO")), 2500);
    }

    // The check alone, for who wants no more: positions kept, flag set, workbook let go.
    void verificationSeule()
    {
        essai.choisir(bon());
        QCOMPARE(M_Test_OVRA::TesterFormatPhysico(essai.session), M_Test_OVRA::FORMAT_RECONNU);
        QVERIFY(essai.import().FormatTeste);
        QCOMPARE(essai.import().ColonnesExcel[15], 16);
        QCOMPARE(essai.dialogue.progression(FenetreProgression::FProgress).dernierMaximum, 17);
        QCOMPARE(M_Test_OVRA::TesterFormatHydro(essai.session), M_Test_OVRA::FORMAT_REFUSE);
        QVERIFY(!essai.import().FormatTeste);
        QCOMPARE(M_Test_OVRA::TesterFormatPluvio(essai.session), M_Test_OVRA::FORMAT_REFUSE);
    }

    void verificationDesIntervenants()
    {
        const QString chemin =
            essai.ecrire({{QStringLiteral("codesandreancien"), QStringLiteral("CodeSiretNouveau")}});
        ColonnesReconnues colonnes{};
        QCOMPARE(M_Test_OVRA::TesterFormatIntervenant(essai.session, chemin, colonnes),
                 M_Test_OVRA::FORMAT_RECONNU);
        QCOMPARE(colonnes[0], 1);
        QCOMPARE(colonnes[1], 2);
        QCOMPARE(M_Test_OVRA::TesterFormatIntervenant(essai.session, bon(), colonnes),
                 M_Test_OVRA::FORMAT_REFUSE);
    }

private:
    void importerApresLiberation(const QString &chemin)
    {
        essai.choisir(chemin);
        QCOMPARE(M_Import_OVRA::ImporterPhysico(essai.session).fin, Fin::Terminee);
        QCOMPARE(essai.compter(QStringLiteral("MESURE_PHYSICO")), 300);
    }
};

QTEST_GUILESS_MAIN(TestMauvaisClasseurs)
#include "test_mauvais_classeurs.moc"
