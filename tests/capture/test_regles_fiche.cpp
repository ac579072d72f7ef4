// What the fields of the sheets take and refuse, in which words.
#include "capture/FichesLieux.h"
#include "capture/ReglesFiche.h"

#include <QTest>

namespace
{
QString s(const char *texte)
{
    return QString::fromUtf8(texte);
}

QString refus(const char *table, const char *colonne, const QString &texte)
{
    const ChampFiche champ{s("txt"), s(colonne), s("Le champ")};
    const auto trouve = ReglesFiche::refusChamp(s(table), champ, texte);
    return trouve ? trouve->titre + u':' + trouve->message : QString();
}
} // namespace

class TestReglesFiche : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void champs_data()
    {
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("colonne");
        QTest::addColumn<QString>("texte");
        QTest::addColumn<QString>("attendu");
        const QString trop8 = s("Attention:Le champ ne doit contenir que 8 caractères au maximum.");
        const QString nombre = s("Erreur de type:La valeur demandée est de type numérique.");
        const QString date = s("Erreur de type:La date n'est pas au format adapté : \"jj/mm/aaaa\".");
        const QString q = s("STATION_QUALITE");
        QTest::newRow("8 of 8") << q << s("CodeSandreStationM") << s("04211940") << QString();
        QTest::newRow("9 of 8") << q << s("CodeSandreStationM") << s("042119401") << trop8;
        QTest::newRow("blanks do not count") << q << s("CodeSandreStationM") << s("  04211940 ") << QString();
        QTest::newRow("10 000 characters") << q << s("CodeSandreStationM") << QString(10000, u'x') << trop8;
        QTest::newRow("empty") << q << s("CoorXStationM") << s("  ") << QString();
        QTest::newRow("number with comma") << q << s("CoorXStationM") << s("-12,5") << QString();
        QTest::newRow("no number") << q << s("CoorXStationM") << s("12,5 m") << nombre;
        QTest::newRow("nan") << q << s("CoorXStationM") << s("nan") << nombre;
        QTest::newRow("too great") << q << s("CoorXStationM") << QString(30, u'9')
                                   << s("Attention:Le champ est une valeur trop grande.");
        QTest::newRow("endless") << q << s("CoorXStationM") << QString(10000, u'9') << nombre;
        QTest::newRow("whole") << q << s("NumBV") << s("3") << QString();
        QTest::newRow("not whole") << q << s("NumBV") << s("3,5")
                                   << s("Erreur de type:Le champ doit être un nombre entier.");
        QTest::newRow("date") << q << s("CreationStationM") << s("1/3/09") << QString();
        QTest::newRow("no date") << q << s("CreationStationM") << s("31/02/2009") << date;
        const auto invisible = [](int rang) {
            return s("Attention:Le champ contient un caractère invisible (le %1e) qui ne peut pas être "
                     "enregistré. Effacez-le ou retapez le texte.")
                .arg(rang);
        };
        QTest::newRow("control") << q << s("NomStationM") << (s("ab") + QChar(7) + s("c")) << invisible(3);
        QTest::newRow("null") << q << s("NomStationM") << (s("a") + QChar(0) + s("b")) << invisible(2);
        QTest::newRow("half a character")
            << q << s("NomStationM") << (s("a") + QChar(0xD83D)) << invisible(2);
        QTest::newRow("emoji") << q << s("NomStationM") << s("Étang 🐟") << QString();
        QTest::newRow("lines in a name") << q << s("NomStationM") << s("a\nb") << invisible(2);
        QTest::newRow("lines in a memo") << s("PARAMETRE") << s("DéfParam") << s("a\nb\tc") << QString();
        QTest::newRow("long memo") << s("PARAMETRE") << s("DéfParam") << QString(10000, u'x') << QString();
    }
    void champs()
    {
        QFETCH(QString, table);
        QFETCH(QString, colonne);
        QFETCH(QString, texte);
        QFETCH(QString, attendu);
        QCOMPARE(refus(table.toUtf8().constData(), colonne.toUtf8().constData(), texte), attendu);
    }

    void fiche()
    {
        const DescriptionFiche commune = Fiches::commune();
        ValeursFiche valeurs;
        auto premier = ReglesFiche::refusFiche(commune, valeurs);
        QCOMPARE(premier->message, s("Le numéro de la commune doit être renseigné."));
        QCOMPARE(premier->controle, s("txt_code"));
        valeurs.insert(s("NumCommune"), s("22001"));
        valeurs.insert(s("NomCommune"), s("  "));
        premier = ReglesFiche::refusFiche(commune, valeurs);
        QCOMPARE(premier->message, s("Le nom de la commune doit être renseigné."));
        valeurs.insert(s("NomCommune"), QString(36, u'n'));
        premier = ReglesFiche::refusFiche(commune, valeurs);
        QCOMPARE(premier->message, s("Le nom de la commune ne doit contenir que 35 caractères au maximum."));
        valeurs.insert(s("NomCommune"), QString(35, u'n'));
        QVERIFY(!ReglesFiche::refusFiche(commune, valeurs));
    }

    // An empty text is the empty text; an empty date or number is null.
    void ecriture()
    {
        const auto ecrit = [](const char *colonne, const char *texte) {
            return ReglesFiche::valeurAEcrire(s("STATION_QUALITE"), s(colonne), s(texte));
        };
        QCOMPARE(ecrit("NomStationM", "").typeId(), int(QMetaType::QString));
        QVERIFY(!ReglesFiche::valeurAEcrire(s("STATION_QUALITE"), s("NomStationM"), QString()).isNull());
        QCOMPARE(ecrit("NomStationM", "  Pont "), QVariant(s("Pont")));
        QVERIFY(ecrit("CoorXStationM", " ").isNull());
        QCOMPARE(ecrit("CoorXStationM", "1,23456"), QVariant(1.2346));
        QVERIFY(ecrit("CreationStationM", "").isNull());
        QCOMPARE(ecrit("CreationStationM", "01/03/2009"), QVariant(QDate(2009, 3, 1)));
        QCOMPARE(ecrit("NumBV", "3"), QVariant(3LL));
    }

    void affichage()
    {
        const auto montre = [](const char *colonne, const QVariant &valeur) {
            return ReglesFiche::texteAMontrer(s("STATION_QUALITE"), s(colonne), valeur);
        };
        QCOMPARE(montre("CoorXStationM", 12.5), s("12,5"));
        QCOMPARE(montre("CoorXStationM", {}), QString());
        QCOMPARE(montre("CreationStationM", s("2009-03-01")), s("01/03/2009"));
        QCOMPARE(montre("CreationStationM", s("2009-03-01 00:00:00")), s("01/03/2009"));
        QCOMPARE(montre("NomStationM", s("Pont")), s("Pont"));
    }
};

QTEST_GUILESS_MAIN(TestReglesFiche)
#include "test_regles_fiche.moc"
