#include "capture/M_Variables_OVRA.h"

#include <QTest>

class TestHeureValide : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void heure_data();
    void heure();
};

// Each row breaks, or just keeps, one clause of the rule: five or eight characters, two digits up to 24, a colon, two
// digits up to 60, and for the long form a second colon and two digits up to 60.
void TestHeureValide::heure_data()
{
    QTest::addColumn<QString>("texte");
    QTest::addColumn<bool>("valide");
    const auto cas = [](const char *texte, bool valide) {
        QTest::newRow(texte) << QString::fromUtf8(texte) << valide;
    };
    cas("10:30", true);
    cas("10:30:15", true);
    cas("00:00", true);
    cas("00:00:00", true);
    cas("24:00", true);
    cas("24:60", true);
    cas("12:60", true);
    cas("12:30:60", true);
    cas("25:00", false);
    cas("12:61", false);
    cas("12:30:61", false);
    cas("", false);
    cas("9:30", false);
    cas("9:30:00", false);
    cas("10:30:1", false);
    cas("10:30:150", false);
    cas("10h30", false);
    cas("10:30h15", false);
    cas("1a:30", false);
    cas("10:3a", false);
    cas("10:30:a0", false);
    cas(" 9:30", false);
    cas("-1:30", false);
    cas("+1:30", false);
    cas("10:-1", false);
    cas("10 30", false);
    cas("٠١:30", false); // digits of another script
}

void TestHeureValide::heure()
{
    QFETCH(QString, texte);
    QFETCH(bool, valide);
    QCOMPARE(M_Variables_OVRA::HeureValide(texte), valide);
}

QTEST_GUILESS_MAIN(TestHeureValide)
#include "test_heure_valide.moc"
