// A table made anew: what must survive, and what must not happen half way.
#include "BaseDEssai.h"

#include "database/DefinitionTable.h"
#include "database/Transaction.h"
#include "platform/Erreur.h"

#include <QtTest>

class TestDefinitionTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void relecture();
    void reconstruction();
    void conversions();
    void echecSansTrace();
    void nomsHostiles();
    void transactions();
};

namespace
{
const char *const TABLE =
    "CREATE TABLE [Essai n°1] ([Numéro] INTEGER PRIMARY KEY, Code VARCHAR(8) COLLATE NOCASE NOT NULL UNIQUE, "
    "Valeur DOUBLE DEFAULT (1 + 1), Père VARCHAR(5), "
    "CONSTRAINT LIEN FOREIGN KEY (Père) REFERENCES PARAMETRE (CodeParam) ON UPDATE CASCADE ON DELETE CASCADE, "
    "FOREIGN KEY (Code) REFERENCES INTERVENANT (CodeSandreInterv))";

QString schema(const BaseDEssai &base)
{
    QStringList lignes;
    Requete r = base.donnees.executer("SELECT coalesce(sql, '') FROM sqlite_master ORDER BY type, name");
    while (r.suivant())
        lignes << r.texte(0);
    return lignes.join(u'\n');
}
} // namespace

void TestDefinitionTable::relecture()
{
    const BaseDEssai base;
    base.sql(TABLE);
    const DefinitionTable d = DefinitionTable::lire(base.donnees.Connect_Bdd(), "essai n°1");
    QCOMPARE(d.nom, "Essai n°1");
    QCOMPARE(d.colonnes.size(), 4);
    QCOMPARE(d.colonnes[1].type, "VARCHAR(8)");
    QCOMPARE(d.colonnes[1].collation, "NOCASE");
    QVERIFY(d.colonnes[1].nonNulle);
    QVERIFY(!d.colonnes[2].nonNulle);
    QCOMPARE(d.colonnes[2].defaut, "1 + 1");
    QCOMPARE(d.cle, QStringList{"Numéro"});
    QCOMPARE(d.uniques, QList<QStringList>{{"Code"}});
    QCOMPARE(d.clesEtrangeres.size(), 2);
    QCOMPARE(d.clesEtrangeres[0].nom, "LIEN");
    QCOMPARE(d.clesEtrangeres[0].colonnes, QStringList{"Père"});
    QCOMPARE(d.clesEtrangeres[0].colonnesCible, QStringList{"CodeParam"});
    QVERIFY(d.clesEtrangeres[0].majEnCascade && d.clesEtrangeres[0].suppressionEnCascade);
    QCOMPARE(d.clesEtrangeres[1].nom, "");
    QVERIFY(!d.clesEtrangeres[1].majEnCascade && !d.clesEtrangeres[1].suppressionEnCascade);
    QCOMPARE(d.position("père"), 3);
    QCOMPARE(d.position("absente"), -1);
    // The name of a key is kept too: FRACTION's is FractionKey.
    QCOMPARE(DefinitionTable::lire(base.donnees.Connect_Bdd(), "FRACTION").nomCle, "FractionKey");
    QVERIFY_EXCEPTION_THROWN(DefinitionTable::lire(base.donnees.Connect_Bdd(), "absente"), Erreur);
}

void TestDefinitionTable::reconstruction()
{
    const BaseDEssai base;
    base.sql(TABLE);
    base.sql("CREATE INDEX IX_VALEUR ON [Essai n°1] (Valeur) WHERE Valeur > 0");
    base.sql("CREATE INDEX IX_PERE ON [Essai n°1] (Père)");
    base.sql("CREATE TRIGGER SURVEILLE AFTER DELETE ON [Essai n°1] BEGIN SELECT 1; END");
    base.sql("CREATE TABLE Fils (Code REFERENCES [Essai n°1] (Code) ON UPDATE CASCADE)");
    base.sql("CREATE VIEW Vue AS SELECT Code FROM [Essai n°1]");
    base.sql("INSERT INTO [Essai n°1] VALUES (7, '17', 2.5, '1340'), (3, '18', NULL, NULL)");
    base.sql("INSERT INTO Fils VALUES ('17')");

    DefinitionTable d = DefinitionTable::lire(base.donnees.Connect_Bdd(), "Essai n°1");
    d.colonnes.removeAt(3);
    d.clesEtrangeres.removeFirst();
    d.colonnes.insert(1, {"Ajout", "VARCHAR(3)", "NOCASE", false, {}});
    d.reconstruire(base.donnees.Connect_Bdd());

    const DefinitionTable r = DefinitionTable::lire(base.donnees.Connect_Bdd(), "Essai n°1");
    QCOMPARE(Structure::colonnes(base.donnees.Connect_Bdd(), "Essai n°1"),
             (QStringList{"Numéro", "Ajout", "Code", "Valeur"}));
    QCOMPARE(r.cle, QStringList{"Numéro"});
    QCOMPARE(r.uniques, QList<QStringList>{{"Code"}});
    QCOMPARE(r.colonnes[3].defaut, "1 + 1");
    QCOMPARE(r.clesEtrangeres.size(), 1);
    // Rows, their order and their numbers.
    QCOMPARE(base.compter("Essai n°1"), 2);
    QCOMPARE(base.valeur("SELECT Code FROM [Essai n°1] WHERE Numéro = 7"), "17");
    QVERIFY(base.valeur("SELECT Valeur FROM [Essai n°1] WHERE Numéro = 3").isNull());
    // The index of the column that went has gone, the other and the trigger stand, the view reads.
    const QList<Structure::Index> index = Structure::index(base.donnees.Connect_Bdd(), "Essai n°1");
    QCOMPARE(index.size(), 1);
    QCOMPARE(index[0].nom, "IX_VALEUR");
    QCOMPARE(base.valeur("SELECT count(*) FROM sqlite_master WHERE type = 'trigger' AND name = 'SURVEILLE'"),
             1);
    QCOMPARE(base.valeur("SELECT count(*) FROM Vue"), 2);
    // Who refers to the table still does, and foreign keys are on again.
    base.sql("UPDATE [Essai n°1] SET Code = '19' WHERE Code = '17'");
    QCOMPARE(base.valeur("SELECT Code FROM Fils"), "19");
    QCOMPARE(base.valeur("PRAGMA foreign_keys"), 1);
    QCOMPARE(base.valeur("PRAGMA legacy_alter_table"), 0);
}

void TestDefinitionTable::conversions()
{
    const BaseDEssai base;
    base.sql("CREATE TABLE T (N, R DOUBLE, X VARCHAR(20))");
    base.sql("INSERT INTO T VALUES (12, 3.0, ' 12,5 '), (NULL, 3.25, ''), (0, NULL, 'amont')");
    DefinitionTable d = DefinitionTable::lire(base.donnees.Connect_Bdd(), "T");
    d.colonnes[0].type = "VARCHAR(10)";
    d.colonnes[1].type = "VARCHAR(10)";
    d.colonnes[2].type = "DOUBLE";
    d.reconstruire(base.donnees.Connect_Bdd());
    const auto ligne = [&](int n) {
        return base.valeur(
            QString("SELECT coalesce(quote(N), '') || ' ' || quote(R) || ' ' || quote(X) FROM T "
                    "WHERE rowid = %1")
                .arg(n));
    };
    // A whole number has no decimals as text; a text that is a number is one; what is none stays.
    QCOMPARE(ligne(1), "'12' '3' 12.5");
    QCOMPARE(ligne(2), "NULL '3.25' NULL");
    QCOMPARE(ligne(3), "'0' NULL 'amont'");
}

void TestDefinitionTable::echecSansTrace()
{
    const BaseDEssai base;
    base.sql("CREATE TABLE T (A VARCHAR(5), B INTEGER)");
    base.sql("CREATE INDEX IX_A ON T (A)");
    base.sql("INSERT INTO T VALUES ('x', 1), ('x', 2)");
    const QString avant = schema(base);
    DefinitionTable d = DefinitionTable::lire(base.donnees.Connect_Bdd(), "T");
    d.cle = QStringList{"A"}; // two rows of one key
    QVERIFY_EXCEPTION_THROWN(d.reconstruire(base.donnees.Connect_Bdd()), Erreur);
    QCOMPARE(schema(base), avant);
    QCOMPARE(base.compter("T"), 2);
    QCOMPARE(base.valeur("PRAGMA foreign_keys"), 1);
}

// A name is data, whatever its characters.
void TestDefinitionTable::nomsHostiles()
{
    const BaseDEssai base;
    DefinitionTable d;
    d.nom = "T]); DROP TABLE PARAMETRE; --";
    d.colonnes << DefinitionTable::Colonne{"a\"] b", "TEXT", {}, false, {}};
    base.sql(d.instruction());
    base.sql(QString("INSERT INTO %1 VALUES ('v')").arg(Structure::citer(d.nom)));
    DefinitionTable relue = DefinitionTable::lire(base.donnees.Connect_Bdd(), d.nom);
    relue.colonnes << DefinitionTable::Colonne{"c", "TEXT", {}, false, {}};
    relue.reconstruire(base.donnees.Connect_Bdd());
    QCOMPARE(base.valeur(QString("SELECT count(*) FROM %1").arg(Structure::citer(d.nom))), 1);
    QVERIFY(Structure::tableExiste(base.donnees.Connect_Bdd(), "PARAMETRE"));
}

void TestDefinitionTable::transactions()
{
    const BaseDEssai base;
    base.sql("CREATE TABLE T (A)");
    {
        Transaction dehors(base.donnees.Connect_Bdd());
        base.sql("INSERT INTO T VALUES (1)");
        {
            const Transaction dedans(base.donnees.Connect_Bdd());
            base.sql("INSERT INTO T VALUES (2)");
        }
        dehors.valider();
    }
    QCOMPARE(base.compter("T"), 1);
    {
        const Transaction dehors(base.donnees.Connect_Bdd());
        Transaction dedans(base.donnees.Connect_Bdd());
        base.sql("INSERT INTO T VALUES (3)");
        dedans.valider();
    }
    QCOMPARE(base.compter("T"), 1);
}

QTEST_GUILESS_MAIN(TestDefinitionTable)
#include "test_definition_table.moc"
