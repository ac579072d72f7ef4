#include "exchange/CelluleImport.h"
#include "workbook/Plage.h"

#include <QTest>

class TestCelluleImport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textes_data()
    {
        QTest::addColumn<QVariant>("cellule");
        QTest::addColumn<QString>("attendu");
        QTest::newRow("vide") << QVariant() << QString();
        QTest::newRow("blancs") << QVariant(QStringLiteral(" \u00A0\u202F\t\u200B")) << QString();
        QTest::newRow("blancs autour")
            << QVariant(QStringLiteral("\u00A0 Le Meu \u00A0")) << QStringLiteral("Le Meu");
        QTest::newRow("blanc au milieu")
            << QVariant(QStringLiteral("Le\u00A0Meu")) << QStringLiteral("Le\u00A0Meu");
        QTest::newRow("code entier") << QVariant(4190000.0) << QStringLiteral("4190000");
        QTest::newRow("SIRET") << QVariant(18530002000014.0) << QStringLiteral("18530002000014");
        QTest::newRow("decimal") << QVariant(0.02) << QStringLiteral("0,02");
        QTest::newRow("negatif") << QVariant(-3.0) << QStringLiteral("-3");
        QTest::newRow("date") << QVariant(QDateTime(QDate(2009, 3, 1), QTime(0, 0)))
                              << QStringLiteral("01/03/2009");
        QTest::newRow("date et heure")
            << QVariant(QDateTime(QDate(2009, 3, 1), QTime(9, 5))) << QStringLiteral("01/03/2009 09:05:00");
        QTest::newRow("heure") << QVariant(QTime(9, 5)) << QStringLiteral("09:05:00");
        QTest::newRow("erreur") << QVariant::fromValue(ErreurCellule{QStringLiteral("#N/A")})
                                << QStringLiteral("#N/A");
    }
    void textes()
    {
        QFETCH(QVariant, cellule);
        QFETCH(QString, attendu);
        QCOMPARE(CelluleImport::texte(cellule), attendu);
    }

    void dates_data()
    {
        QTest::addColumn<QVariant>("cellule");
        QTest::addColumn<QDate>("attendue"); // invalid: refused
        const auto texte = [](const char *nom, const QString &t, const QDate &d) {
            QTest::newRow(nom) << QVariant(t) << d;
        };
        texte("jj/mm/aaaa", QStringLiteral("01/03/2009"), QDate(2009, 3, 1));
        texte("j/m/aaaa", QStringLiteral("1/3/2009"), QDate(2009, 3, 1));
        texte("jj/mm/aa", QStringLiteral("01/03/09"), QDate(2009, 3, 1));
        texte("29 est 2029", QStringLiteral("01/03/29"), QDate(2029, 3, 1));
        texte("30 est 1930", QStringLiteral("01/03/30"), QDate(1930, 3, 1));
        texte("99 est 1999", QStringLiteral("31/12/99"), QDate(1999, 12, 31));
        texte("iso", QStringLiteral("2009-03-01"), QDate(2009, 3, 1));
        texte("blancs autour", QStringLiteral("\u00A001/03/2009 "), QDate(2009, 3, 1));
        texte("29 fevrier", QStringLiteral("29/02/2008"), QDate(2008, 2, 29));
        texte("pas de 29 fevrier", QStringLiteral("29/02/2009"), QDate());
        texte("31 fevrier", QStringLiteral("31/02/2009"), QDate());
        texte("mois 13", QStringLiteral("01/13/2009"), QDate());
        texte("a l'americaine", QStringLiteral("03/31/2009"), QDate());
        texte("annee de trois chiffres", QStringLiteral("01/03/209"), QDate());
        texte("points", QStringLiteral("01.03.2009"), QDate());
        texte("mots", QStringLiteral("mars 2009"), QDate());
        texte("annee 0", QStringLiteral("0000-01-01"), QDate());
        texte("suite", QStringLiteral("01/03/2009 soir"), QDate());
        QTest::newRow("cellule de date")
            << QVariant(QDateTime(QDate(2009, 3, 1), QTime(15, 0))) << QDate(2009, 3, 1);
        QTest::newRow("an 12000") << QVariant(QDateTime(QDate(12000, 1, 1), QTime(0, 0))) << QDate();
        QTest::newRow("nombre nu") << QVariant(39873.0) << QDate();
        QTest::newRow("heure seule") << QVariant(QTime(10, 0)) << QDate();
        QTest::newRow("vide") << QVariant() << QDate();
    }
    void dates()
    {
        QFETCH(QVariant, cellule);
        QFETCH(QDate, attendue);
        const std::optional<QDate> lue = CelluleImport::date(cellule);
        QCOMPARE(lue.has_value(), attendue.isValid());
        QCOMPARE(lue.value_or(QDate()), attendue);
    }

    void heures_data()
    {
        QTest::addColumn<QVariant>("cellule");
        QTest::addColumn<QString>("attendue");
        const auto texte = [](const QString &t, const QString &attendue) {
            QTest::newRow(qPrintable(t)) << QVariant(t) << attendue;
        };
        texte(QStringLiteral("10:30"), QStringLiteral("10:30:00"));
        texte(QStringLiteral("9:05"), QStringLiteral("09:05:00"));
        texte(QStringLiteral("10:30:15"), QStringLiteral("10:30:15"));
        texte(QStringLiteral("24:00"), QStringLiteral("24:00:00"));
        texte(QStringLiteral("12:60"), QStringLiteral("12:60:00"));
        texte(QStringLiteral("25:00"), QStringLiteral("25:00")); // as it stands: HeureValide will refuse it
        texte(QStringLiteral("10h30"), QStringLiteral("10h30"));
        texte(QStringLiteral(" 10:30 "), QStringLiteral("10:30:00"));
        texte(QString(), QString());
        QTest::newRow("heure") << QVariant(QTime(10, 30)) << QStringLiteral("10:30:00");
        QTest::newRow("presque") << QVariant(QTime(10, 29, 59, 999)) << QStringLiteral("10:30:00");
        QTest::newRow("date et heure")
            << QVariant(QDateTime(QDate(2009, 3, 1), QTime(8, 0))) << QStringLiteral("08:00:00");
        // 0.4375 of a day is 10.5 hours.
        QTest::newRow("fraction") << QVariant(0.4375) << QStringLiteral("10:30:00");
        QTest::newRow("zero") << QVariant(0.0) << QStringLiteral("00:00:00");
        // The hour 14, or the 14th day: not plain.
        QTest::newRow("14") << QVariant(14.0) << QStringLiteral("14");
    }
    void heures()
    {
        QFETCH(QVariant, cellule);
        QFETCH(QString, attendue);
        QCOMPARE(CelluleImport::heure(cellule), attendue);
    }

    void nombres_data()
    {
        QTest::addColumn<QVariant>("cellule");
        QTest::addColumn<bool>("lisible");
        QTest::addColumn<double>("attendu");
        QTest::newRow("virgule") << QVariant(QStringLiteral("0,5")) << true << 0.5;
        QTest::newRow("point") << QVariant(QStringLiteral("0.5")) << true << 0.5;
        QTest::newRow("nombre") << QVariant(0.5) << true << 0.5;
        QTest::newRow("blancs") << QVariant(QStringLiteral("\u00A012,5 ")) << true << 12.5;
        QTest::newRow("milliers") << QVariant(QStringLiteral("1\u00A0234,5")) << true << 1234.5;
        QTest::newRow("negatif") << QVariant(QStringLiteral("-1,5")) << true << -1.5;
        // Four decimals at most: 1.23456 is nearer 1.2346.
        QTest::newRow("quatre decimales") << QVariant(QStringLiteral("1,23456")) << true << 1.2346;
        QTest::newRow("quatre decimales, nombre") << QVariant(1.23456) << true << 1.2346;
        QTest::newRow("inferieur") << QVariant(QStringLiteral("<0,5")) << false << 0.0;
        QTest::newRow("unite") << QVariant(QStringLiteral("5 mg")) << false << 0.0;
        QTest::newRow("deux separateurs") << QVariant(QStringLiteral("1.234,5")) << false << 0.0;
        QTest::newRow("infini") << QVariant(QStringLiteral("inf")) << false << 0.0;
        QTest::newRow("trop grand") << QVariant(1e20) << false << 0.0;
        QTest::newRow("date") << QVariant(QDateTime(QDate(2009, 3, 1), QTime(0, 0))) << false << 0.0;
        QTest::newRow("vide") << QVariant() << false << 0.0;
    }
    void nombres()
    {
        QFETCH(QVariant, cellule);
        QFETCH(bool, lisible);
        QFETCH(double, attendu);
        const std::optional<double> lu = CelluleImport::nombre(cellule);
        QCOMPARE(lu.has_value(), lisible);
        QCOMPARE(lu.value_or(0), attendu);
    }
};

QTEST_APPLESS_MAIN(TestCelluleImport)
#include "test_cellule_import.moc"
