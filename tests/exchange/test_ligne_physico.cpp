#include "BaseDEssai.h"
#include "exchange/LigneDEssai.h"
#include "exchange/LignePhysico.h"
#include "workbook/Plage.h"

#include <QTest>

using Champ = ChampPhysico;
using Genre = ArretImport::Genre;
Q_DECLARE_METATYPE(ArretImport::Genre)
Q_DECLARE_METATYPE(ChampPhysico)
Q_DECLARE_METATYPE(TypeElement)

namespace
{
QString suite(const QString &debut)
{
    return debut + QStringLiteral(" Corrigez votre fichier puis recommencer l'import des données.");
}

QString tropLong(const QString &debut, int longueur, int maximum)
{
    return suite(debut + QString(longueur, u'x') +
                 QStringLiteral("' ne doit contenir que %1 caractères au maximum.").arg(maximum));
}

// A row that goes through.
LigneDEssai<Champ> bonne()
{
    LigneDEssai<Champ> ligne(dispositionPhysico());
    ligne[Champ::CodeAgence] = QStringLiteral("04211940");
    ligne[Champ::Nom] = QStringLiteral("Pont de l'Ile");
    ligne[Champ::Date] = QDateTime(QDate(2009, 3, 1), QTime(0, 0));
    ligne[Champ::Heure] = QTime(14, 30);
    ligne[Champ::Parametre] = QStringLiteral("Nitrates");
    ligne[Champ::Valeur] = 38.5;
    ligne[Champ::CodeRemarque] = 1.0;
    ligne[Champ::CodeFraction] = 23.0;
    ligne[Champ::Commentaire] = QStringLiteral("crue");
    ligne[Champ::Unite] = QStringLiteral("mg(NO3)/L");
    ligne[Champ::Seuil] = 0.5;
    ligne[Champ::Protocole] = QStringLiteral("Suivi pluie");
    ligne[Champ::Gestionnaire] = QStringLiteral("Agence de l'eau");
    ligne[Champ::Preleveur] = QStringLiteral("Préleveur de l'Ouest");
    ligne[Champ::Laboratoire] = QStringLiteral("Laboratoire d'Armor");
    ligne[Champ::Reseau] = QStringLiteral("Réseau d'Armor");
    return ligne;
}
} // namespace

class TestLignePhysico : public QObject
{
    Q_OBJECT

    ReferencesPhysico m_references;

    std::optional<ArretImport> arret(const LigneDEssai<Champ> &ligne) const
    {
        return arretDe([&] { lireLignePhysico(ligne.ligne(12), m_references); });
    }
    MesurePhysico lire(const LigneDEssai<Champ> &ligne) const
    {
        return lireLignePhysico(ligne.ligne(12), m_references);
    }

private Q_SLOTS:
    void initTestCase()
    {
        const BaseDEssai base;
        // A name that an old base holds with blanks, and a namesake of another.
        base.sql(QStringLiteral("INSERT INTO INTERVENANT (CodeSandreInterv, NomInterv) VALUES "
                                "('20', 'Syndicat du Meu  '), ('21', 'Agence de l''eau')"));
        m_references = lireReferencesPhysico(base.donnees);
    }

    void ligneComplete()
    {
        const MesurePhysico m = lire(bonne());
        QCOMPARE(m.station, QStringLiteral("04211940"));
        QCOMPARE(m.point, QStringLiteral("031"));
        QCOMPARE(m.parametre, QStringLiteral("1340"));
        QCOMPARE(m.gestionnaire, QStringLiteral("17"));
        QCOMPARE(m.preleveur, QStringLiteral("19"));
        QCOMPARE(m.laboratoire, QStringLiteral("18"));
        QCOMPARE(m.reseau, QStringLiteral("0400000002"));
        QCOMPARE(m.date, QDate(2009, 3, 1));
        QCOMPARE(m.heure, QStringLiteral("14:30:00"));
        QCOMPARE(m.resultat, 38.5);
        QCOMPARE(m.remarque, QStringLiteral("1"));
        QCOMPARE(m.fraction, QStringLiteral("23"));
        QCOMPARE(m.commentaire, QStringLiteral("crue"));
        QCOMPARE(m.seuil, QStringLiteral("0,5"));
        QCOMPARE(m.protocole, QStringLiteral("2"));
    }

    void blancsEtCasseDesNoms()
    {
        LigneDEssai<Champ> ligne = bonne();
        ligne[Champ::CodeAgence] = QStringLiteral(" 04211940\u00A0");
        ligne[Champ::Parametre] = QStringLiteral("\u00A0NITRATES ");
        ligne[Champ::Unite] = QStringLiteral("mg/l "); // by its symbol, in another case
        ligne[Champ::Gestionnaire] = QStringLiteral("syndicat du meu");
        ligne[Champ::Preleveur] = QStringLiteral("PRÉLEVEUR DE L'OUEST");
        const MesurePhysico m = lire(ligne);
        QCOMPARE(m.station, QStringLiteral("04211940"));
        QCOMPARE(m.parametre, QStringLiteral("1340"));
        QCOMPARE(m.gestionnaire, QStringLiteral("20"));
        QCOMPARE(m.preleveur, QStringLiteral("19"));
    }

    void uniteParSonCode()
    {
        LigneDEssai<Champ> ligne = bonne();
        ligne[Champ::Unite] = 162.0;
        QCOMPARE(lire(ligne).parametre, QStringLiteral("1340"));
    }

    void pesticideParLeMemeChemin()
    {
        LigneDEssai<Champ> ligne = bonne();
        ligne[Champ::Parametre] = QStringLiteral("Glyphosate");
        ligne[Champ::Unite] =
            QStringLiteral("\u03BCg/L"); // the Greek mu of one keyboard, the micro sign of another
        QCOMPARE(lire(ligne).parametre, QStringLiteral("1506"));
    }

    void stationSansPoint()
    {
        LigneDEssai<Champ> ligne = bonne();
        ligne[Champ::CodeAgence] = QStringLiteral("04211950");
        QCOMPARE(lire(ligne).point, QString());
    }

    void protocoles()
    {
        LigneDEssai<Champ> ligne = bonne();
        ligne[Champ::Protocole] = QStringLiteral("Suivi calendaire");
        QCOMPARE(lire(ligne).protocole, QStringLiteral("1"));
        ligne[Champ::Protocole] = QStringLiteral("autre");
        QCOMPARE(lire(ligne).protocole, QStringLiteral("0"));
        ligne.sansColonne(Champ::Protocole);
        QCOMPARE(lire(ligne).protocole, QString());
    }

    void fractions_data()
    {
        QTest::addColumn<QVariant>("cellule");
        QTest::addColumn<QString>("attendue");
        QTest::newRow("connue") << QVariant(QStringLiteral("3")) << QStringLiteral("3");
        QTest::newRow("inconnue") << QVariant(QStringLiteral("999")) << QStringLiteral("0");
        QTest::newRow("vide") << QVariant() << QStringLiteral("0");
        QTest::newRow("en nombre") << QVariant(23.0) << QStringLiteral("23");
    }
    void fractions()
    {
        QFETCH(QVariant, cellule);
        QFETCH(QString, attendue);
        LigneDEssai<Champ> ligne = bonne();
        ligne[Champ::CodeFraction] = cellule;
        QCOMPARE(lire(ligne).fraction, attendue);
    }

    void heures_data()
    {
        QTest::addColumn<QVariant>("cellule");
        QTest::addColumn<QString>("attendue");
        QTest::newRow("vide") << QVariant() << QStringLiteral("10:00:00");
        QTest::newRow("00:00") << QVariant(QStringLiteral("00:00")) << QStringLiteral("10:00:00");
        QTest::newRow("00:00:00") << QVariant(QStringLiteral("00:00:00")) << QStringLiteral("10:00:00");
        QTest::newRow("minuit") << QVariant(QTime(0, 0)) << QStringLiteral("10:00:00");
        QTest::newRow("24:00") << QVariant(QStringLiteral("24:00")) << QStringLiteral("24:00:00");
        QTest::newRow("12:60") << QVariant(QStringLiteral("12:60")) << QStringLiteral("12:60:00");
    }
    void heures()
    {
        QFETCH(QVariant, cellule);
        QFETCH(QString, attendue);
        LigneDEssai<Champ> ligne = bonne();
        ligne[Champ::Heure] = cellule;
        QCOMPARE(lire(ligne).heure, attendue);
    }

    // Each message, word for word.
    void fautes_data()
    {
        QTest::addColumn<Champ>("champ");
        QTest::addColumn<QVariant>("cellule");
        QTest::addColumn<QString>("message");
        const auto x = [](int n) { return QVariant(QString(n, u'x')); };
        QTest::newRow("station") << Champ::CodeAgence << x(9)
                                 << tropLong(QStringLiteral("Le numéro de la station '"), 9, 8);
        QTest::newRow("parametre") << Champ::Parametre << x(256)
                                   << tropLong(QStringLiteral("Le paramètre '"), 256, 255);
        QTest::newRow("unite")
            << Champ::Unite << x(51)
            << suite(QStringLiteral("L'unité '") + QString(51, u'x') +
                     QStringLiteral(
                         "' du paramètre 'Nitrates' ne doit contenir que 50 caractères au maximum."));
        QTest::newRow("gestionnaire")
            << Champ::Gestionnaire << x(116) << tropLong(QStringLiteral("Le gestionnaire '"), 116, 115);
        QTest::newRow("preleveur") << Champ::Preleveur << x(116)
                                   << tropLong(QStringLiteral("L'organisme préleveur '"), 116, 115);
        QTest::newRow("laboratoire") << Champ::Laboratoire << x(116)
                                     << tropLong(QStringLiteral("Le laboratoire '"), 116, 115);
        QTest::newRow("reseau") << Champ::Reseau << x(51)
                                << tropLong(QStringLiteral("Le réseau de mesure '"), 51, 50);
        // Of all messages this one alone ends here.
        QTest::newRow("date") << Champ::Date << QVariant(QStringLiteral("31/02/2009"))
                              << QStringLiteral(
                                     "La valeur '31/02/2009' doit être au format Date/Heure 'jj/mm/yy'.");
        QTest::newRow("date en nombre")
            << Champ::Date << QVariant(39873.0)
            << QStringLiteral("La valeur '39873' doit être au format Date/Heure 'jj/mm/yy'.");
        QTest::newRow("valeur") << Champ::Valeur << QVariant(QStringLiteral("<0,5"))
                                << suite(QStringLiteral(
                                       "La valeur du résultat : <0,5 doit être de format numérique."));
        QTest::newRow("heure")
            << Champ::Heure << QVariant(QStringLiteral("25:00"))
            << suite(
                   QStringLiteral("La valeur de l'heure '25:00' doit être au format Date/Heure 'hh:mm:ss'."));
        // No closing quote.
        QTest::newRow("remarque")
            << Champ::CodeRemarque << QVariant(100.0)
            << suite(QStringLiteral("Le code remarque '100 ne doit contenir que 2 caractères au maximum."));
        QTest::newRow("commentaire") << Champ::Commentaire << x(256)
                                     << tropLong(QStringLiteral("Le commentaire '"), 256, 255);
        QTest::newRow("seuil") << Champ::Seuil << x(51)
                               << tropLong(QStringLiteral("Le seuil de détection '"), 51, 50);
        QTest::newRow("cellule en erreur")
            << Champ::Valeur << QVariant::fromValue(ErreurCellule{QStringLiteral("#N/A")})
            << suite(QStringLiteral("La cellule « Valeur » de la ligne 12 contient une erreur (#N/A)."));
        QTest::newRow("protocole en erreur")
            << Champ::Protocole << QVariant::fromValue(ErreurCellule{QStringLiteral("#REF!")})
            << suite(QStringLiteral(
                   "La cellule « Protocole de prélèvement » de la ligne 12 contient une erreur (#REF!)."));
        // A box cannot show 100 000 characters: the value is cut.
        QTest::newRow("100 000 caractères")
            << Champ::Commentaire << x(100000)
            << suite(QStringLiteral("Le commentaire '") + QString(300, u'x') +
                     QStringLiteral("…' ne doit contenir que 255 caractères au maximum."));
    }
    void fautes()
    {
        QFETCH(Champ, champ);
        QFETCH(QVariant, cellule);
        QFETCH(QString, message);
        LigneDEssai<Champ> ligne = bonne();
        ligne[champ] = cellule;
        const std::optional<ArretImport> a = arret(ligne);
        QVERIFY(a.has_value());
        QCOMPARE(a->genre, Genre::Faute);
        QCOMPARE(a->texte, message);
    }

    // The longest values that each column takes.
    void longueursPermises()
    {
        LigneDEssai<Champ> ligne = bonne();
        ligne[Champ::Commentaire] = QString(255, u'x');
        ligne[Champ::Seuil] = QString(50, u'x');
        ligne[Champ::CodeRemarque] = QStringLiteral("10");
        const MesurePhysico m = lire(ligne);
        QCOMPARE(m.commentaire.size(), 255);
        QCOMPARE(m.seuil.size(), 50);
        QCOMPARE(m.remarque, QStringLiteral("10"));
        // Unknown rather than too long.
        ligne[Champ::Gestionnaire] = QString(115, u'x');
        QCOMPARE(arret(ligne)->genre, Genre::ElementInconnu);
    }

    void stationInconnue()
    {
        LigneDEssai<Champ> ligne = bonne();
        ligne[Champ::CodeAgence] = 4190000.0;
        ligne[Champ::Nom] = QStringLiteral("Pont neuf");
        const std::optional<ArretImport> a = arret(ligne);
        QVERIFY(a.has_value());
        QCOMPARE(a->genre, Genre::ElementInconnu);
        QCOMPARE(a->type, TypeElement::StationQualite);
        QCOMPARE(a->libelleAction, QStringLiteral("station qualité "));
        QCOMPARE(a->code, QStringLiteral("4190000"));
        QCOMPARE(a->nom, QStringLiteral("Pont neuf"));
        // Only an unknown station has its name looked at.
        ligne[Champ::Nom] = QString(81, u'x');
        QCOMPARE(arret(ligne)->texte, tropLong(QStringLiteral("Le nom de la station '"), 81, 80));
        ligne[Champ::CodeAgence] = QStringLiteral("04211940");
        QVERIFY(!arret(ligne).has_value());
    }

    // Unknown or empty references: the kind, the name shown, what lbl_action says.
    void references_data()
    {
        QTest::addColumn<Champ>("champ");
        QTest::addColumn<TypeElement>("type");
        QTest::addColumn<QString>("libelle");
        QTest::newRow("parametre") << Champ::Parametre << TypeElement::Parametre
                                   << QStringLiteral("paramètre ");
        QTest::newRow("gestionnaire")
            << Champ::Gestionnaire << TypeElement::Gestionnaire << QStringLiteral("gestionnaire ");
        QTest::newRow("preleveur") << Champ::Preleveur << TypeElement::Preleveur
                                   << QStringLiteral(" préleveur ");
        QTest::newRow("laboratoire") << Champ::Laboratoire << TypeElement::Laboratoire
                                     << QStringLiteral("laboratoire ");
        QTest::newRow("reseau") << Champ::Reseau << TypeElement::Reseau << QStringLiteral("réseau ");
    }
    void references()
    {
        QFETCH(Champ, champ);
        QFETCH(TypeElement, type);
        QFETCH(QString, libelle);
        LigneDEssai<Champ> ligne = bonne();
        ligne[champ] = QStringLiteral(" Inconnu au bataillon ");
        std::optional<ArretImport> a = arret(ligne);
        QVERIFY(a.has_value());
        QCOMPARE(a->genre, Genre::ElementInconnu);
        QCOMPARE(a->type, type);
        QCOMPARE(a->nom, QStringLiteral("Inconnu au bataillon"));
        QCOMPARE(a->libelleAction, libelle);
        ligne[champ] = QStringLiteral("\u00A0");
        a = arret(ligne);
        QVERIFY(a.has_value());
        QCOMPARE(a->genre, Genre::ElementVide);
        QCOMPARE(a->type, type);
        QCOMPARE(a->libelleAction, libelle);
    }

    void parametreInconnuPorteSonUnite()
    {
        LigneDEssai<Champ> ligne = bonne();
        ligne[Champ::Parametre] = QStringLiteral("Nitrites");
        ligne[Champ::Unite] = QStringLiteral("mg(NO2)/L");
        const std::optional<ArretImport> a = arret(ligne);
        QCOMPARE(a->nom, QStringLiteral("Nitrites"));
        QCOMPARE(a->unite, QStringLiteral("mg(NO2)/L"));
    }

    void uniteRefusee_data()
    {
        QTest::addColumn<QString>("unite");
        QTest::newRow("d'un autre parametre") << QStringLiteral("µg/L");
        QTest::newRow("inconnue") << QStringLiteral("pouce");
        QTest::newRow("vide") << QString();
    }
    void uniteRefusee()
    {
        QFETCH(QString, unite);
        LigneDEssai<Champ> ligne = bonne();
        ligne[Champ::Unite] = unite;
        const std::optional<ArretImport> a = arret(ligne);
        QVERIFY(a.has_value());
        QCOMPARE(a->genre, Genre::UniteRefusee);
        QCOMPARE(a->type, TypeElement::UniteDeParametre);
        QCOMPARE(a->nom, unite);
        QCOMPARE(a->parametre, QStringLiteral("Nitrates"));
    }

    void champsVides_data()
    {
        QTest::addColumn<Champ>("champ");
        QTest::addColumn<QString>("libelle");
        QTest::newRow("date") << Champ::Date << QStringLiteral(" date ");
        QTest::newRow("valeur") << Champ::Valeur << QStringLiteral(" résultat ");
    }
    void champsVides()
    {
        QFETCH(Champ, champ);
        QFETCH(QString, libelle);
        LigneDEssai<Champ> ligne = bonne();
        ligne[champ] = QStringLiteral("  ");
        const std::optional<ArretImport> a = arret(ligne);
        QVERIFY(a.has_value());
        QCOMPARE(a->genre, Genre::ElementVide);
        QCOMPARE(a->type, TypeElement::Aucun);
        QCOMPARE(a->libelleAction, libelle);
    }

    void remarqueEtCommentaireVides()
    {
        LigneDEssai<Champ> ligne = bonne();
        ligne[Champ::CodeRemarque] = QVariant();
        ligne[Champ::Commentaire] = QVariant();
        ligne[Champ::Seuil] = QVariant();
        const MesurePhysico m = lire(ligne);
        QCOMPARE(m.remarque, QString());
        QCOMPARE(m.commentaire, QString());
        QCOMPARE(m.seuil, QString());
    }

    // A row with every field wrong is refused on one after the other, in the fixed order.
    void ordreDesControles()
    {
        LigneDEssai<Champ> ligne(dispositionPhysico());
        const QString long300(300, u'x');
        for (int i = 0; i < 16; ++i)
            ligne[static_cast<Champ>(i)] = long300;
        LigneDEssai<Champ> juste = bonne();
        const QList<std::pair<Champ, QString>> ordre = {
            {Champ::CodeAgence, QStringLiteral("Le numéro de la station '")},
            {Champ::Parametre, QStringLiteral("Le paramètre '")},
            {Champ::Unite, QStringLiteral("L'unité '")},
            {Champ::Gestionnaire, QStringLiteral("Le gestionnaire '")},
            {Champ::Preleveur, QStringLiteral("L'organisme préleveur '")},
            {Champ::Laboratoire, QStringLiteral("Le laboratoire '")},
            {Champ::Reseau, QStringLiteral("Le réseau de mesure '")},
            {Champ::Date, QStringLiteral("La valeur 'x")},
            {Champ::Valeur, QStringLiteral("La valeur du résultat : ")},
            {Champ::Heure, QStringLiteral("La valeur de l'heure '")},
            {Champ::CodeRemarque, QStringLiteral("Le code remarque '")},
            {Champ::Commentaire, QStringLiteral("Le commentaire '")},
            {Champ::Seuil, QStringLiteral("Le seuil de détection '")},
        };
        for (const auto &[champ, debut] : ordre) {
            const std::optional<ArretImport> a = arret(ligne);
            QVERIFY(a.has_value());
            QVERIFY2(a->texte.startsWith(debut), qPrintable(a->texte));
            ligne[champ] = juste[champ];
        }
        QVERIFY(!arret(ligne).has_value());
    }

    // Of two rows of one name, the first of the named command counts: actors come by code, and "17" before "21".
    void premierDesHomonymes() { QCOMPARE(lire(bonne()).gestionnaire, QStringLiteral("17")); }
};

QTEST_GUILESS_MAIN(TestLignePhysico)
#include "test_ligne_physico.moc"
