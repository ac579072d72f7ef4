// The named commands: every one opened, its columns in order.
#include "BaseDEssai.h"
#include "database/Commandes.h"
#include "database/Schema.h"
#include "platform/Erreur.h"

#include <QTest>

class TestCommandes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void colonnes_data();
    void colonnes();
    void ilYEnASoixanteSix() { QCOMPARE(Commandes::noms().size(), 66); }
};

void TestCommandes::colonnes_data()
{
    QTest::addColumn<QString>("attendues");
    for (const QString &nom : Commandes::noms())
        QTest::newRow(qPrintable(nom)) << QString();
}

void TestCommandes::colonnes()
{
    const BaseDEssai base;
    base.donnees.commande(QString::fromUtf8(QTest::currentDataTag()));
}

QTEST_GUILESS_MAIN(TestCommandes)
#include "test_commandes.moc"
