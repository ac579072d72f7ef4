// The objectives of a basin as the rows of a grid: what a cell takes, what follows a parameter.
#include "capture/EnregDEssai.h"
#include "capture/TableObjectifs.h"

#include <QSignalSpy>
#include <QTest>

class TestTableObjectifs : public QObject
{
    Q_OBJECT

    using T = TableObjectifs;

    static bool taper(T &table, int colonne, const char *texte, int ligne = 0)
    {
        return table.setData(table.index(ligne, colonne), s(texte));
    }
    static QString cellule(const T &table, int colonne, int ligne = 0)
    {
        return table.index(ligne, colonne).data().toString();
    }

private Q_SLOTS:
    void parametre()
    {
        const EnregDEssai essai;
        T table(essai.base.donnees);
        QVERIFY(table.insertRow(0));
        // Any case, or the code; the unit and the default fraction follow.
        QVERIFY(taper(table, T::PARAMETRE, "nitrates"));
        QCOMPARE(cellule(table, T::PARAMETRE), s("Nitrates"));
        QCOMPARE(cellule(table, T::UNITE), s("mg(NO3)/L"));
        QCOMPARE(cellule(table, T::FRACTION), s("Inconnu"));
        QVERIFY(taper(table, T::FRACTION, "23"));
        QVERIFY(taper(table, T::PARAMETRE, "1841"));
        QCOMPARE(cellule(table, T::PARAMETRE), s("Carbone Organique"));
        QCOMPARE(cellule(table, T::UNITE), s("mg(C)/L"));
        QCOMPARE(cellule(table, T::FRACTION), s("Eau brute"));
        QCOMPARE(essai.ligne("SELECT Parametre, CD_FRACTION, Unite FROM Temp_objectif"),
                 s("Carbone Organique|Eau brute|mg(C)/L"));
    }

    void refus()
    {
        const EnregDEssai essai;
        T table(essai.base.donnees);
        QSignalSpy refus(&table, &TableTravail::refus);
        QVERIFY(table.insertRow(0));
        QVERIFY(!taper(table, T::PARAMETRE, "Nitrate"));
        QCOMPARE(refus.takeFirst().at(1).toString(), s("Cette valeur n'existe pas dans la liste."));
        QVERIFY(!taper(table, T::FRACTION, "'; --"));
        refus.clear();
        for (const char *nombre : {"vingt", "1e3", "nan", "9999999999999", "1.2.3"})
            QVERIFY2(!taper(table, T::MOYEN, nombre), nombre);
        QCOMPARE(refus.takeFirst().at(1).toString(), s("La valeur demandée est de type numérique."));
        QVERIFY(!taper(table, T::UNITE, "mg/L"));
        QVERIFY(!table.flags(table.index(0, T::UNITE)).testFlag(Qt::ItemIsEditable));
        QVERIFY(taper(table, T::MOYEN, "12,34567"));
        QCOMPARE(cellule(table, T::MOYEN), s("12,3457"));
        QVERIFY(taper(table, T::MAXIMAL, "-1.5"));
        QVERIFY(taper(table, T::MOYEN, ""));
        QCOMPARE(essai.ligne("SELECT MoyObjf, MaxObjf FROM Temp_objectif"), s("NULL|-1.5"));
    }

    // Another sheet has used the table meanwhile: what is saved is what this grid shows.
    void deposer()
    {
        const EnregDEssai essai;
        T table(essai.base.donnees);
        QVERIFY(table.insertRow(0));
        QVERIFY(taper(table, T::PARAMETRE, "Nitrates"));
        QVERIFY(taper(table, T::MOYEN, "25"));
        QVERIFY(table.insertRow(1)); // left empty
        essai.base.sql(s("DELETE FROM Temp_objectif"));
        essai.base.sql(s("INSERT INTO Temp_objectif (Parametre) VALUES ('Autre')"));
        table.deposer();
        QCOMPARE(essai.base.compter(s("Temp_objectif")), 1);
        QCOMPARE(essai.ligne("SELECT Parametre, CD_FRACTION, MoyObjf, MaxObjf, Unite FROM Temp_objectif"),
                 s("Nitrates|Inconnu|25|NULL|mg(NO3)/L"));
        QCOMPARE(table.textes(),
                 QStringList({s("Nitrates"), s("Inconnu"), s("25"), QString(), s("mg(NO3)/L")}));
    }

    void listes()
    {
        const EnregDEssai essai;
        QCOMPARE(T::parametres(essai.base.donnees).size(), 4);
        QCOMPARE(T::parametres(essai.base.donnees).first(), s("Carbone Organique"));
        QCOMPARE(T::fractions(essai.base.donnees).size(), 3);
    }
};

QTEST_GUILESS_MAIN(TestTableObjectifs)
#include "test_table_objectifs.moc"
