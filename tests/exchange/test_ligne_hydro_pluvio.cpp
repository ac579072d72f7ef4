#include "BaseDEssai.h"
#include "exchange/LigneDEssai.h"
#include "exchange/LigneHydro.h"
#include "exchange/LignePluvio.h"
#include "workbook/Plage.h"

#include <QTest>

using Genre = ArretImport::Genre;
Q_DECLARE_METATYPE(ArretImport::Genre)
Q_DECLARE_METATYPE(ChampHydro)
Q_DECLARE_METATYPE(ChampPluvio)

namespace
{
QString suite(const QString &debut)
{
    return debut + QStringLiteral(" Corrigez votre fichier puis recommencer l'import des données.");
}

LigneDEssai<ChampHydro> bonHydro()
{
    LigneDEssai<ChampHydro> ligne(dispositionHydro());
    ligne[ChampHydro::TypeDebit] = QStringLiteral("QJO");
    ligne[ChampHydro::Station] = QStringLiteral("J7010610");
    ligne[ChampHydro::Date] = QStringLiteral("2009-03-01");
    ligne[ChampHydro::Debit] = QStringLiteral("1234,5");
    return ligne;
}

LigneDEssai<ChampPluvio> bonPluvio()
{
    LigneDEssai<ChampPluvio> ligne(dispositionPluvio());
    ligne[ChampPluvio::Station] = 35228001.0;
    ligne[ChampPluvio::Date] = QDateTime(QDate(2009, 3, 1), QTime(0, 0));
    ligne[ChampPluvio::Mesures] = 0.0;
    ligne[ChampPluvio::Commentaire] = QStringLiteral("neige");
    ligne[ChampPluvio::Gestionnaire] = QStringLiteral("Agence de l'eau");
    return ligne;
}
} // namespace

class TestLigneHydroPluvio : public QObject
{
    Q_OBJECT

    ReferencesHydro m_hydro;
    ReferencesPluvio m_pluvio;

    std::optional<ArretImport> arret(const LigneDEssai<ChampHydro> &ligne) const
    {
        return arretDe([&] { lireLigneHydro(ligne.ligne(3), m_hydro); });
    }
    std::optional<ArretImport> arret(const LigneDEssai<ChampPluvio> &ligne) const
    {
        return arretDe([&] { lireLignePluvio(ligne.ligne(3), m_pluvio); });
    }

private Q_SLOTS:
    void initTestCase()
    {
        const BaseDEssai base;
        m_hydro = lireReferencesHydro(base.donnees);
        m_pluvio = lireReferencesPluvio(base.donnees);
    }

    void debitComplet()
    {
        const MesureHydro m = lireLigneHydro(bonHydro().ligne(), m_hydro);
        QCOMPARE(m.station, QStringLiteral("J7010610"));
        QCOMPARE(m.date, QDate(2009, 3, 1));
        QCOMPARE(m.heure, QString()); // no default hour here
        QCOMPARE(m.mensuel, false);
        QCOMPARE(m.debit_l_s, 1234.5);
    }

    void heureDuDebit_data()
    {
        QTest::addColumn<QVariant>("cellule");
        QTest::addColumn<QString>("attendue");
        QTest::newRow("heure") << QVariant(QStringLiteral("08:15")) << QStringLiteral("08:15:00");
        QTest::newRow("minuit") << QVariant(QStringLiteral("00:00:00")) << QString();
        QTest::newRow("minuit court") << QVariant(QStringLiteral("00:00")) << QString();
        QTest::newRow("minuit en heure") << QVariant(QTime(0, 0)) << QString();
        QTest::newRow("24:00") << QVariant(QStringLiteral("24:00")) << QStringLiteral("24:00:00");
    }
    void heureDuDebit()
    {
        QFETCH(QVariant, cellule);
        QFETCH(QString, attendue);
        LigneDEssai<ChampHydro> ligne = bonHydro();
        ligne[ChampHydro::Heure] = cellule;
        QCOMPARE(lireLigneHydro(ligne.ligne(), m_hydro).heure, attendue);
    }

    void debitMensuel()
    {
        LigneDEssai<ChampHydro> ligne = bonHydro();
        ligne[ChampHydro::TypeDebit] = QStringLiteral(" QME ");
        QCOMPARE(lireLigneHydro(ligne.ligne(), m_hydro).mensuel, true);
    }

    void fautesHydro_data()
    {
        QTest::addColumn<ChampHydro>("champ");
        QTest::addColumn<QVariant>("cellule");
        QTest::addColumn<QString>("message");
        QTest::newRow("station") << ChampHydro::Station << QVariant(QStringLiteral("J70106100"))
                                 << suite(
                                        QStringLiteral("Le numéro de la station 'J70106100' ne doit contenir "
                                                       "que 8 caractères au maximum."));
        QTest::newRow("date") << ChampHydro::Date << QVariant(QStringLiteral("hier"))
                              << suite(QStringLiteral(
                                     "La valeur 'hier' doit être au format Date/Heure 'jj/mm/yy'."));
        QTest::newRow("debit") << ChampHydro::Debit << QVariant(QStringLiteral("fort"))
                               << suite(QStringLiteral(
                                      "La valeur du résultat 'fort' doit être de format numérique."));
        QTest::newRow("type")
            << ChampHydro::TypeDebit << QVariant(QStringLiteral("qjo"))
            << suite(QStringLiteral(
                   "La valeur du type du débit 'qjo' doit être égale à 'QJO' pour le journalier "
                   "ou à 'QME' pour le mensuel."));
        QTest::newRow("heure")
            << ChampHydro::Heure << QVariant(QStringLiteral("25:00"))
            << suite(
                   QStringLiteral("La valeur de l'heure '25:00' doit être au format Date/Heure 'hh:mm:ss'."));
        QTest::newRow("erreur")
            << ChampHydro::Debit << QVariant::fromValue(ErreurCellule{QStringLiteral("#DIV/0!")})
            << suite(
                   QStringLiteral("La cellule « Débit (l/s) » de la ligne 3 contient une erreur (#DIV/0!)."));
    }
    void fautesHydro()
    {
        QFETCH(ChampHydro, champ);
        QFETCH(QVariant, cellule);
        QFETCH(QString, message);
        LigneDEssai<ChampHydro> ligne = bonHydro();
        ligne[champ] = cellule;
        const std::optional<ArretImport> a = arret(ligne);
        QVERIFY(a.has_value());
        QCOMPARE(a->genre, Genre::Faute);
        QCOMPARE(a->texte, message);
    }

    void videsHydro()
    {
        const QList<std::pair<ChampHydro, QString>> cas = {
            {ChampHydro::Date, QStringLiteral(" date ")},
            {ChampHydro::Debit, QStringLiteral(" débit ")},
            {ChampHydro::TypeDebit, QStringLiteral(" délai ")}};
        for (const auto &[champ, libelle] : cas) {
            LigneDEssai<ChampHydro> ligne = bonHydro();
            ligne[champ] = QVariant();
            const std::optional<ArretImport> a = arret(ligne);
            QVERIFY(a.has_value());
            QCOMPARE(a->genre, Genre::ElementVide);
            QCOMPARE(a->libelleAction, libelle);
        }
    }

    void stationHydroInconnue()
    {
        LigneDEssai<ChampHydro> ligne = bonHydro();
        ligne[ChampHydro::Station] = QStringLiteral("J0000000");
        const std::optional<ArretImport> a = arret(ligne);
        QCOMPARE(a->genre, Genre::ElementInconnu);
        QCOMPARE(a->type, TypeElement::StationHydro);
        QCOMPARE(a->nom, QStringLiteral("J0000000"));
        QCOMPARE(a->code, QString());
        QCOMPARE(a->libelleAction, QStringLiteral("station hydrométrique "));
    }

    void pluieComplete()
    {
        const MesurePluvio m = lireLignePluvio(bonPluvio().ligne(), m_pluvio);
        QCOMPARE(m.station, QStringLiteral("35228001"));
        QCOMPARE(m.gestionnaire, QStringLiteral("17"));
        QCOMPARE(m.date, QDate(2009, 3, 1));
        QCOMPARE(m.pluie_mm, 0.0);
        QCOMPARE(m.commentaire, QStringLiteral("neige"));
    }

    void fautesPluvio_data()
    {
        QTest::addColumn<ChampPluvio>("champ");
        QTest::addColumn<QVariant>("cellule");
        QTest::addColumn<QString>("message");
        QTest::newRow("station") << ChampPluvio::Station << QVariant(352280010.0)
                                 << suite(
                                        QStringLiteral("Le numéro de la station '352280010' ne doit contenir "
                                                       "que 8 caractères au maximum."));
        QTest::newRow("gestionnaire")
            << ChampPluvio::Gestionnaire << QVariant(QString(116, u'x'))
            << suite(QStringLiteral("Le gestionnaire '") + QString(116, u'x') +
                     QStringLiteral("' ne doit contenir que 115 caractères au maximum."));
        QTest::newRow("date") << ChampPluvio::Date << QVariant(QStringLiteral("hier"))
                              << suite(QStringLiteral(
                                     "La valeur 'hier' doit être au format Date/Heure 'jj/mm/yy'."));
        QTest::newRow("mesure") << ChampPluvio::Mesures << QVariant(QStringLiteral("traces"))
                                << suite(QStringLiteral(
                                       "La valeur du résultat 'traces' doit être de format numérique."));
        QTest::newRow("commentaire") << ChampPluvio::Commentaire << QVariant(QString(256, u'x'))
                                     << suite(QStringLiteral("Le commentaire '") + QString(256, u'x') +
                                              QStringLiteral(
                                                  "' ne doit contenir que 255 caractères au maximum."));
    }
    void fautesPluvio()
    {
        QFETCH(ChampPluvio, champ);
        QFETCH(QVariant, cellule);
        QFETCH(QString, message);
        LigneDEssai<ChampPluvio> ligne = bonPluvio();
        ligne[champ] = cellule;
        const std::optional<ArretImport> a = arret(ligne);
        QVERIFY(a.has_value());
        QCOMPARE(a->genre, Genre::Faute);
        QCOMPARE(a->texte, message);
    }

    void choixPluvio()
    {
        LigneDEssai<ChampPluvio> ligne = bonPluvio();
        ligne[ChampPluvio::Station] = QStringLiteral("1");
        std::optional<ArretImport> a = arret(ligne);
        QCOMPARE(a->genre, Genre::ElementInconnu);
        QCOMPARE(a->type, TypeElement::StationPluvio);
        QCOMPARE(a->libelleAction, QStringLiteral("station pluvio "));
        ligne = bonPluvio();
        ligne[ChampPluvio::Gestionnaire] = QStringLiteral("Personne");
        a = arret(ligne);
        QCOMPARE(a->genre, Genre::ElementInconnu);
        QCOMPARE(a->type, TypeElement::Gestionnaire);
        ligne = bonPluvio();
        ligne[ChampPluvio::Mesures] = QVariant();
        a = arret(ligne);
        QCOMPARE(a->genre, Genre::ElementVide);
        QCOMPARE(a->libelleAction, QStringLiteral(" résultat "));
        ligne = bonPluvio();
        ligne[ChampPluvio::Date] = QVariant();
        a = arret(ligne);
        QCOMPARE(a->libelleAction, QStringLiteral(" date "));
    }
};

QTEST_GUILESS_MAIN(TestLigneHydroPluvio)
#include "test_ligne_hydro_pluvio.moc"
