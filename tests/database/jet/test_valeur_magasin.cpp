// What a value of an Access file becomes in the store, kind by kind; rows that break a key.
#include "database/DataEnvironment1.h"
#include "database/jet/EcritureTable.h"
#include "platform/Erreur.h"

#include <QTemporaryDir>
#include <QtTest>

using ProtocoleJet::Valeur;

class TestValeurMagasin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valeurs_data();
    void valeurs();
    void assouplir();
    void numeroEnDouble();
};

namespace
{
ValeurJet entier(qint64 v)
{
    return {Valeur::Entier, v, 0, {}};
}
ValeurJet reel(double v)
{
    return {Valeur::Reel, 0, v, {}};
}
ValeurJet moment(double v)
{
    return {Valeur::DateHeure, 0, v, {}};
}
ValeurJet texte(const char *v)
{
    return {Valeur::Texte, 0, 0, QByteArrayView(v)};
}

// As SQL writes it: NULL, 3, 2.5, 'texte', x'00'.
QString ecrite(const ValeurMagasin &v)
{
    if (const auto *i = std::get_if<qint64>(&v))
        return QString::number(*i);
    if (const auto *d = std::get_if<double>(&v))
        return QString::number(*d, 'g', 17);
    if (const auto *t = std::get_if<QByteArrayView>(&v))
        return u'\'' + QString::fromUtf8(*t) + u'\'';
    if (const auto *o = std::get_if<OctetsMagasin>(&v))
        return "x'" + QString::fromLatin1(o->v.toByteArray().toHex()) + u'\'';
    return "NULL";
}
} // namespace

Q_DECLARE_METATYPE(ValeurJet)

void TestValeurMagasin::valeurs_data()
{
    QTest::addColumn<ValeurJet>("valeur");
    QTest::addColumn<GenreMagasin>("genre");
    QTest::addColumn<QString>("attendue");
    using G = GenreMagasin;
    const auto ligne = [](const char *nom, const ValeurJet &v, G g, const char *attendue) {
        QTest::newRow(nom) << v << g << attendue;
    };
    for (const G g : {G::Texte, G::Entier, G::Reel, G::Date, G::Heure, G::DateHeure, G::OuiNon, G::Octets})
        QTest::addRow("nulle %d", static_cast<int>(g)) << ValeurJet() << g << "NULL";

    ligne("code", texte("0400003044"), G::Texte, "'0400003044'");
    ligne("code de nombre", entier(3), G::Texte, "'3'");
    ligne("code de double", reel(3.0), G::Texte, "'3'");
    ligne("code à décimales", reel(12.5), G::Texte, "'12.5'");
    ligne("vide", texte(""), G::Texte, "''");
    ligne("accents", texte("Île d'Étang"), G::Texte, "'Île d'Étang'");
    ligne("booléen en texte", {Valeur::Vrai, 0, 0, {}}, G::Texte, "'-1'");
    ligne("date en texte", moment(36526.0), G::Texte, "'2000-01-01'");

    ligne("entier", entier(-7), G::Entier, "-7");
    ligne("double entier", reel(42.0), G::Entier, "42");
    ligne("double à décimales", reel(42.5), G::Entier, "42.5"); // not rounded away
    ligne("nombre tapé", texte(" 12 "), G::Entier, "12");
    ligne("nombre à virgule", texte("12,5"), G::Reel, "12.5");
    ligne("nombre à point", texte("12.5"), G::Reel, "12.5");
    ligne("pas un nombre", texte("< 2"), G::Reel, "'< 2'");
    ligne("nombre vide", texte(" "), G::Reel, "NULL");
    ligne("pas de nombre", reel(qQNaN()), G::Reel, "NULL");
    ligne("grand", entier(4294967296), G::Entier, "4294967296");

    ligne("date", moment(36526.0), G::Date, "'2000-01-01'");
    ligne("date avec heure", moment(36526.75), G::Date, "'2000-01-01'");
    ligne("date tapée", texte("01/02/2003"), G::Date, "'2003-02-01'");
    ligne("date tapée autrement", texte("2003-02-01"), G::Date, "'2003-02-01'");
    ligne("pas une date", texte("été"), G::Date, "'été'");
    ligne("date vide", texte(""), G::Date, "NULL");
    ligne("date impossible", moment(1e12), G::Date, "NULL");
    ligne("heure", moment(0.75), G::Heure, "'18:00:00'");
    ligne("heure d'un jour", moment(36526.75), G::Heure, "'18:00:00'");
    ligne("minuit", moment(0.0), G::Heure, "'00:00:00'"); // a time, not the lack of one
    ligne("heure tapée", texte("8:05"), G::Heure, "'08:05:00'");
    ligne("moment, minuit", moment(36526.0), G::DateHeure, "'2000-01-01'");
    ligne("moment", moment(36526.75), G::DateHeure, "'2000-01-01 18:00:00'");
    ligne("moment, heure seule", moment(0.75), G::DateHeure, "'18:00:00'");

    ligne("vrai", {Valeur::Vrai, 0, 0, {}}, G::OuiNon, "-1");
    ligne("faux", {Valeur::Faux, 0, 0, {}}, G::OuiNon, "0");
    ligne("vrai en nombre", entier(1), G::OuiNon, "-1");
    ligne("faux en double", reel(0), G::OuiNon, "0");
    ligne("octets", {Valeur::Octets, 0, 0, QByteArrayView("\1\xff", 2)}, G::Octets, "x'01ff'");
}

void TestValeurMagasin::valeurs()
{
    QFETCH(ValeurJet, valeur);
    QFETCH(GenreMagasin, genre);
    QFETCH(QString, attendue);
    QByteArray tampon;
    QCOMPARE(ecrite(versMagasin(valeur, genre, tampon)), attendue);
}

namespace
{
struct Magasin {
    QTemporaryDir dossier;
    DataEnvironment1 donnees;

    Magasin()
    {
        donnees.creer(dossier.filePath("magasin.mdb"));
        donnees.executer("PRAGMA foreign_keys = OFF");
    }
};
} // namespace

// Two networks of one code, which a file without a key can hold: both are kept, the key is not.
void TestValeurMagasin::assouplir()
{
    const Magasin m;
    const QSqlDatabase &base = m.donnees.Connect_Bdd();
    EcritureTable ecriture(base, DefinitionTable::lire(base, "RESEAU_MESURE"),
                           {GenreMagasin::Texte, GenreMagasin::Texte});
    ecriture.ajouter({texte("1"), texte("a")});
    QVERIFY(!ecriture.assouplie());
    ecriture.ajouter({texte("1"), texte("b")});
    QVERIFY(ecriture.assouplie());
    ecriture.ajouter({ValeurJet(), texte("c")});
    QCOMPARE(m.donnees.valeur(
                 "SELECT group_concat(coalesce(CodeReseau, '-') || LibelleReseau) FROM RESEAU_MESURE"),
             "1a,1b,-c");
    QVERIFY(DefinitionTable::lire(base, "RESEAU_MESURE").cle.isEmpty());
}

// Two samplings of one number are another matter: their results could not be told apart.
void TestValeurMagasin::numeroEnDouble()
{
    const Magasin m;
    const QSqlDatabase &base = m.donnees.Connect_Bdd();
    EcritureTable ecriture(base, DefinitionTable::lire(base, "PRELEVEMENT"),
                           {GenreMagasin::Entier, GenreMagasin::Texte});
    ecriture.ajouter({entier(12), texte("04211940")});
    QVERIFY_EXCEPTION_THROWN(ecriture.ajouter({entier(12), texte("04211950")}), Erreur);
}

QTEST_GUILESS_MAIN(TestValeurMagasin)
#include "test_valeur_magasin.moc"
