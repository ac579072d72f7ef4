#include "platform/NombreFrancais.h"

#include <QTest>

class TestNombreFrancais : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void virguleSansZeros_data()
    {
        QTest::addColumn<double>("valeur");
        QTest::addColumn<int>("decimales");
        QTest::addColumn<QString>("texte");
        QTest::newRow("one decimal") << 8.3 << 2 << "8,3";
        QTest::newRow("two decimals") << 8.33 << 2 << "8,33";
        QTest::newRow("whole") << 12.0 << 2 << "12";
        QTest::newRow("a hundred keeps its zeros") << 100.0 << 2 << "100";
        QTest::newRow("no decimal asked for") << 100.0 << 0 << "100";
        QTest::newRow("zero") << 0.0 << 2 << "0";
        QTest::newRow("rounded") << 33.3333 << 2 << "33,33";
        QTest::newRow("tie to the even digit") << 0.125 << 2 << "0,12";
        QTest::newRow("negative") << -0.5 << 2 << "-0,5";
        QTest::newRow("rounds to zero") << -0.001 << 2 << "0";
        QTest::newRow("no separator of thousands") << 1234567.5 << 4 << "1234567,5";
    }

    void virguleSansZeros()
    {
        QFETCH(double, valeur);
        QFETCH(int, decimales);
        QTEST(nombreFrancais(valeur, decimales), "texte");
    }
};

QTEST_APPLESS_MAIN(TestNombreFrancais)
#include "test_nombre_francais.moc"
