// The workbook layer's main road, on the real application.
#include "workbook/Tableur.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

class TestClasseur : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_tableur.demarrerEnAvance(); }
    void valeursAllerRetour();

private:
    Tableur m_tableur;
    QTemporaryDir m_dossier;
};

void TestClasseur::valeursAllerRetour()
{
    const QString chemin = m_dossier.filePath(QStringLiteral("écrit.xls"));
    const Valeurs ecrites{
        {QStringLiteral("Évian"), QStringLiteral("00123"), QStringLiteral("=1+1"), 12.5},
        {QDate(2009, 3, 1), QDateTime(QDate(2010, 12, 31), QTime(23, 59, 58)), QTime(14, 30), {}}};
    {
        auto classeur = m_tableur.ajouter();
        classeur->feuille(1).plage(2, 3, 3, 6).ecrire(ecrites);
        classeur->enregistrerSous(chemin);
    }
    auto classeur = m_tableur.ouvrir(chemin);
    const Valeurs lues = classeur->feuille(1).plage(QStringLiteral("C2:F3")).valeurs();
    QCOMPARE(lues.at(0), ecrites.at(0));
    QCOMPARE(lues.at(1).at(0).toDateTime(), QDateTime(QDate(2009, 3, 1), QTime(0, 0), Qt::UTC));
    QCOMPARE(lues.at(1).at(1).toDateTime(), QDateTime(QDate(2010, 12, 31), QTime(23, 59, 58), Qt::UTC));
    QCOMPARE(lues.at(1).at(2).toTime(), QTime(14, 30));
    QVERIFY(!lues.at(1).at(3).isValid());
}

QTEST_GUILESS_MAIN(TestClasseur)
#include "test_classeur.moc"
