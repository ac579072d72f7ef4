#include "platform/Erreur.h"
#include "platform/VersNombre.h"

#include <QTest>

class TestVersNombre : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nombres_data();
    void nombres();
    void refus_data();
    void refus();
    void valeursQuiNeSontPasDesTextes();
};

void TestVersNombre::nombres_data()
{
    QTest::addColumn<QString>("texte");
    QTest::addColumn<double>("nombre");
    QTest::newRow("virgule") << QStringLiteral("0,5") << 0.5;
    QTest::newRow("point") << QStringLiteral("0.5") << 0.5;
    QTest::newRow("quatre décimales") << QStringLiteral("1,23456") << 1.2346;
    QTest::newRow("vide") << QString() << 0.0;
    QTest::newRow("négatif") << QStringLiteral("-12,25") << -12.25;
    QTest::newRow("entier") << QStringLiteral("42") << 42.0;
    QTest::newRow("sans zéro") << QStringLiteral(",5") << 0.5;
    QTest::newRow("exposant") << QStringLiteral("1e3") << 1000.0;
    QTest::newRow("blancs autour") << QStringLiteral("  7,1 ") << 7.1;
    QTest::newRow("milliers, espace insécable") << QStringLiteral("12\u00a0345,5") << 12345.5;
    // 0,03125 x 10000 = 312,5 exactly in binary: the tie goes to the even 312. 0,09375 x 10000 = 937,5 to 938.
    QTest::newRow("égalité vers le pair, en dessous") << QStringLiteral("0,03125") << 0.0312;
    QTest::newRow("égalité vers le pair, au-dessus") << QStringLiteral("0,09375") << 0.0938;
}

void TestVersNombre::nombres()
{
    QFETCH(QString, texte);
    QFETCH(double, nombre);
    QCOMPARE(VersNombre(texte), nombre);
    QCOMPARE(EstNumerique(texte), !texte.isEmpty());
}

void TestVersNombre::refus_data()
{
    QTest::addColumn<QString>("texte");
    for (const char *texte : {"abc", "1,2,3", "1.234,5", "inf", "nan", "0x10", "-", "12 m", "1e999"})
        QTest::newRow(texte) << QString::fromLatin1(texte);
}

void TestVersNombre::refus()
{
    QFETCH(QString, texte);
    QVERIFY(!EstNumerique(texte));
    QVERIFY_THROWS_EXCEPTION(Erreur, VersNombre(texte));
}

void TestVersNombre::valeursQuiNeSontPasDesTextes()
{
    QCOMPARE(VersNombre(QVariant()), 0.0);
    QCOMPARE(VersNombre(2.71828), 2.7183);
    QCOMPARE(VersNombre(3), 3.0);
}

QTEST_APPLESS_MAIN(TestVersNombre)
#include "test_vers_nombre.moc"
