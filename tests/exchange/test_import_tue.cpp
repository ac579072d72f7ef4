// Twenty imports killed outright at random moments: the base stays sound and holds every row that had been counted, none
// of them half written; the import run again completes it, and the spreadsheet application does not outlive the program.
#include "exchange/ImportDEssai.h"

#include "platform/Processus.h"

#include <csignal>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#ifndef Q_OS_WIN
#include <fcntl.h>
#include <unistd.h>
#endif

namespace
{
constexpr int LIGNES = 1500;
constexpr int MORTS = 20;

// What the child tells through a file: rows counted so far, and its spreadsheet process.
struct Compte {
    qint64 lignes = 0;
    qint64 tableur = 0;
};

Compte lireCompte(const QString &chemin)
{
    Compte compte;
    QFile fichier(chemin);
    if (!fichier.open(QIODevice::ReadOnly) ||
        fichier.read(reinterpret_cast<char *>(&compte), sizeof compte) != sizeof compte)
        return {};
    return compte;
}

#ifndef Q_OS_WIN
int importerEnEnfant(const QString &base, const QString &classeur, const QString &fichierCompte)
{
    DialogueGuettant dialogue;
    Session session(dialogue);
    session.donnees.ouvrir(base);
    session.importSession.FichierImport = classeur;
    const int poignee = ::open(fichierCompte.toUtf8().constData(), O_WRONLY | O_CREAT, 0600);
    dialogue.progression(FenetreProgression::FProgress).aChaqueLigne = [&](int) {
        const Compte compte{session.importSession.NbEnregistres, session.tableur.numeroProcessus()};
        if (::pwrite(poignee, &compte, sizeof compte, 0) != sizeof compte)
            ::_exit(2);
    };
    M_Import_OVRA::ImporterPhysico(session);
    return 0;
}
#endif
} // namespace

class TestImportTue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void vingtMorts()
    {
#ifdef Q_OS_WIN
        QSKIP("needs SIGKILL");
#else
        ImportDEssai essai;
        essai.recommencer();
        FeuillePhysico feuille = feuillePhysico();
        // Two results a sampling, so that rows that make a sampling and rows that find one alternate.
        for (int i = 0; i < LIGNES; ++i) {
            if (i % 2 == 0)
                feuille.ajouter({{ChampPhysico::Date, QDate(2000, 1, 1).addDays(i / 2)}});
            else
                feuille.ajouter({{ChampPhysico::Date, QDate(2000, 1, 1).addDays(i / 2)},
                                 {ChampPhysico::Parametre, QStringLiteral("Glyphosate")},
                                 {ChampPhysico::Unite, QStringLiteral("µg/L")}});
        }
        const QString classeur = essai.ecrire(feuille.valeurs());
        const QString fichierCompte = essai.dossier.filePath(QStringLiteral("compte"));
        const quint32 graine = QRandomGenerator::global()->generate();
        QRandomGenerator hasard(graine);
        qInfo("seed %u", graine);
        int tuesEnRoute = 0;
        for (int mort = 0; mort < MORTS; ++mort) {
            essai.recommencer();
            essai.session.donnees.liberer();
            essai.base->donnees.liberer();
            QFile::remove(fichierCompte);
            QProcess enfant;
            enfant.setProcessChannelMode(QProcess::ForwardedErrorChannel);
            enfant.start(QCoreApplication::applicationFilePath(),
                         {QStringLiteral("--enfant"), essai.base->chemin, classeur, fichierCompte});
            QVERIFY(enfant.waitForStarted());
            const qint64 seuil = hasard.bounded(LIGNES);
            while (lireCompte(fichierCompte).lignes < seuil && ProcessusActif(enfant.processId()))
                QThread::usleep(hasard.bounded(400));
            QThread::usleep(hasard.bounded(400));
            ::kill(static_cast<pid_t>(enfant.processId()), SIGKILL);
            QVERIFY(enfant.waitForFinished());
            const Compte compte = lireCompte(fichierCompte);
            verifier(essai, compte);
            tuesEnRoute += compte.lignes < LIGNES ? 1 : 0;

            // Run again, over what is there.
            essai.session.donnees.ouvrir(essai.base->chemin);
            essai.choisir(classeur);
            essai.import().RemplacerTout = true;
            QCOMPARE(M_Import_OVRA::ImporterPhysico(essai.session).fin, IssueImport::Fin::Terminee);
            essai.base->donnees.ouvrir(essai.base->chemin);
            QCOMPARE(essai.compter(QStringLiteral("MESURE_PHYSICO")), LIGNES);
            QCOMPARE(essai.compter(QStringLiteral("PRELEVEMENT")), LIGNES / 2);
            QCOMPARE(essai.compter(QStringLiteral("PRELEVEMENTRSX")), LIGNES / 2);
            QTRY_VERIFY_WITH_TIMEOUT(!ProcessusActif(compte.tableur), 10'000);
        }
        QVERIFY(tuesEnRoute >= MORTS / 2); // the kills did fall into the imports
#endif
    }

private:
    static void verifier(ImportDEssai &essai, const Compte &compte)
    {
        essai.base->donnees.ouvrir(essai.base->chemin);
        QCOMPARE(essai.valeur(QStringLiteral("PRAGMA integrity_check")).toString(), QStringLiteral("ok"));
        QVERIFY(!essai.valeur(QStringLiteral("PRAGMA foreign_key_check")).isValid());
        const int mesures = essai.compter(QStringLiteral("MESURE_PHYSICO"));
        QVERIFY2(mesures >= compte.lignes,
                 qPrintable(QStringLiteral("%1 rows for %2 counted").arg(mesures).arg(compte.lignes)));
        QVERIFY(mesures <= compte.lignes + 1); // the one under way
        QCOMPARE(essai
                     .valeur(QStringLiteral("SELECT count(*) FROM PRELEVEMENT WHERE NumPrel NOT IN "
                                            "(SELECT NumPrel FROM MESURE_PHYSICO)"))
                     .toInt(),
                 0);
        QCOMPARE(essai
                     .valeur(QStringLiteral("SELECT count(*) FROM MESURE_PHYSICO WHERE NumPrel NOT IN "
                                            "(SELECT NumPrel FROM PRELEVEMENTRSX)"))
                     .toInt(),
                 0);
        QCOMPARE(essai
                     .valeur(QStringLiteral("SELECT count(*) FROM MESURE_PHYSICO WHERE NumPrel NOT IN "
                                            "(SELECT NumPrel FROM PRELEVEMENT)"))
                     .toInt(),
                 0);
        essai.base->donnees.liberer();
    }
};

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
#ifndef Q_OS_WIN
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 5 && arguments[1] == QStringLiteral("--enfant"))
        return importerEnEnfant(arguments[2], arguments[3], arguments[4]);
#endif
    TestImportTue test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_import_tue.moc"
