// The whole road on the demonstration study, as `make run` plays it without a display: start, import of a laboratory's
// workbook, report. The report is then worked out again from the study that the import has completed.
#include "EssaiRapport.h"

#include <QTest>

class TestRouteDemonstration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void importPuisRapport()
    {
        const QTemporaryDir racine;
        QProcess pilote;
        pilote.setProcessChannelMode(QProcess::MergedChannels);
        pilote.start(QStringLiteral(DOSSIER_CONSTRUCTION "/bin/pilote"),
                     {QStringLiteral("--racine"), racine.path(), QStringLiteral("--captures"),
                      racine.filePath("captures"),
                      QStringLiteral(DONNEES_TESTS "/../scenarios/demonstration.scn")});
        QVERIFY2(pilote.waitForFinished(240'000), qPrintable(pilote.errorString()));
        QVERIFY2(pilote.exitCode() == 0, qPrintable(QString::fromUtf8(pilote.readAll())));

        // What the scenario chooses on the screen.
        DemandeRapport d;
        d.codeStation = QStringLiteral("04999010");
        d.parametre = QStringLiteral("Nitrates");
        d.debut = QDate(2012, 1, 1);
        d.fin = QDate(2019, 12, 31);
        d.stationDebit = QStringLiteral("J7999910");
        d.seuil = 30;
        const QString differences = EssaiRapport::verifier(
            d, racine.filePath(QStringLiteral("Projet/Base/demonstration.mdb")),
            racine.filePath(QStringLiteral("Projet/Export/rapport_demonstration.xls")));
        QVERIFY2(differences.isEmpty(), qPrintable(differences));
    }
};

QTEST_GUILESS_MAIN(TestRouteDemonstration)
#include "test_route_demonstration.moc"
