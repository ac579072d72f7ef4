#include "platform/Saisie.h"

#include <QTest>

class TestSaisie : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void dates_data();
    void dates();
    void mois_data();
    void mois();
    void nombres_data();
    void nombres();
    void debuts();
    void ecriture();
};

void TestSaisie::dates_data()
{
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QDate>("date"); // null: refused
    const auto cas = [](const char *texte, QDate date) {
        QTest::newRow(texte) << QString::fromUtf8(texte) << date;
    };
    cas("01/03/2009", QDate(2009, 3, 1));
    cas("1/3/2009", QDate(2009, 3, 1));
    cas(" 31/12/1999 ", QDate(1999, 12, 31));
    cas("01/03/09", QDate(2009, 3, 1));
    cas("31/12/29", QDate(2029, 12, 31));
    cas("01/01/30", QDate(1930, 1, 1));
    cas("29/02/2008", QDate(2008, 2, 29));
    cas("29/02/2009", QDate());
    cas("31/04/2009", QDate());
    cas("01/13/2009", QDate());
    cas("00/01/2009", QDate());
    cas("2009-03-01", QDate());
    cas("01-03-2009", QDate());
    cas("01/03", QDate());
    cas("01/03/209", QDate());
    cas("01/03/20099", QDate());
    cas("01/03/0000", QDate());
    cas("01/03/0209", QDate());
    cas("demain", QDate());
    cas("", QDate());
    cas("٠١/٠٣/٢٠٠٩", QDate()); // digits of another script
}

void TestSaisie::dates()
{
    QFETCH(QString, texte);
    QFETCH(QDate, date);
    const auto lue = Saisie::lireDate(texte);
    QCOMPARE(lue.has_value(), date.isValid());
    QCOMPARE(lue.value_or(QDate()), date);
}

void TestSaisie::mois_data()
{
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QDate>("mois");
    const auto cas = [](const char *texte, QDate mois) {
        QTest::newRow(texte) << QString::fromUtf8(texte) << mois;
    };
    cas("01/2009", QDate(2009, 1, 1));
    cas("12/2009", QDate(2009, 12, 1));
    cas("03/09", QDate(2009, 3, 1));
    cas("13/2009", QDate());
    cas("00/2009", QDate());
    cas("1/2009", QDate());
    cas("01/209", QDate());
    cas("01-2009", QDate());
    cas("01/20a9", QDate());
    cas("", QDate());
}

void TestSaisie::mois()
{
    QFETCH(QString, texte);
    QFETCH(QDate, mois);
    const auto lu = Saisie::lireMois(texte);
    QCOMPARE(lu.has_value(), mois.isValid());
    QCOMPARE(lu.value_or(QDate()), mois);
}

void TestSaisie::nombres_data()
{
    QTest::addColumn<QString>("texte");
    QTest::addColumn<bool>("lisible");
    QTest::addColumn<double>("valeur");
    const auto cas = [](const char *texte, bool lisible, double valeur) {
        QTest::newRow(texte) << QString::fromUtf8(texte) << lisible << valeur;
    };
    cas("12", true, 12);
    cas("12,5", true, 12.5);
    cas("12.5", true, 12.5);
    cas(" 0,1 ", true, 0.1);
    cas("0", true, 0);
    cas(",5", true, 0.5);
    cas("5,", true, 5);
    cas("-3", true, -3);
    cas("", false, 0);
    cas("-", false, 0);
    cas(",", false, 0);
    cas("1,2,3", false, 0);
    cas("1 000", false, 0);
    cas("1e3", false, 0);
    cas("douze", false, 0);
    cas("nan", false, 0);
    cas("12 mg/l", false, 0);
}

void TestSaisie::nombres()
{
    QFETCH(QString, texte);
    QFETCH(bool, lisible);
    QFETCH(double, valeur);
    const auto lu = Saisie::lireNombre(texte);
    QCOMPARE(lu.has_value(), lisible);
    QCOMPARE(lu.value_or(0), valeur);
}

void TestSaisie::debuts()
{
    for (const char *texte : {"", "-", "+", ",", "12", "12,", "-0.", " 3"})
        QVERIFY2(Saisie::debutDeNombre(QString::fromLatin1(texte)), texte);
    for (const char *texte : {"a", "1a", "--1", "1,2,", "1 0"})
        QVERIFY2(!Saisie::debutDeNombre(QString::fromLatin1(texte)), texte);
}

void TestSaisie::ecriture()
{
    QCOMPARE(Saisie::ecrireDate(QDate(2009, 3, 1)), QStringLiteral("01/03/2009"));
    QCOMPARE(Saisie::ecrireDate(QDate()), QString());
    QCOMPARE(Saisie::ecrireMois(QDate(2009, 3, 1)), QStringLiteral("03/2009"));
    QCOMPARE(Saisie::ecrireNombre(8.3), QStringLiteral("8,3"));
    QCOMPARE(Saisie::ecrireNombre(12), QStringLiteral("12"));
    QCOMPARE(Saisie::ecrireNombre(50.0), QStringLiteral("50"));
    QCOMPARE(Saisie::ecrireNombre(0.1), QStringLiteral("0,1"));
    QCOMPARE(Saisie::ecrireNombre(0), QStringLiteral("0"));
    QCOMPARE(Saisie::ecrireNombre(-0.00001), QStringLiteral("0"));
    QCOMPARE(Saisie::ecrireNombre(1.23456), QStringLiteral("1,2346"));
}

QTEST_GUILESS_MAIN(TestSaisie)
#include "test_saisie.moc"
