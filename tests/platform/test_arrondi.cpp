#include "platform/Arrondi.h"

#include <QTest>

class TestArrondi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // 0.125 and 0.375 are exact in binary: the tie goes to the even digit, 0.12 and 0.38.
    void egalitesVersLePair()
    {
        QCOMPARE(arrondir(0.125, 2), 0.12);
        QCOMPARE(arrondir(0.375, 2), 0.38);
        QCOMPARE(arrondir(2.5, 0), 2.0);
        QCOMPARE(arrondir(3.5, 0), 4.0);
        QCOMPARE(arrondir(-2.5, 0), -2.0);
    }
};

QTEST_APPLESS_MAIN(TestArrondi)
#include "test_arrondi.moc"
