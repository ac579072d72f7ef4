// What a workbook of fluxes says, word for word.
#include "analysis/ContenuFlux.h"

#include <QTest>

namespace
{
// A row of which `debits` days of 31 have a flow and `flux` a flux.
LigneFlux ligne(int mois, int debits, int flux)
{
    LigneFlux l;
    l.periode.debut = QDate(2010, mois, 1);
    l.periode.intitule = l.periode.debut.toString(QStringLiteral("MM/yyyy"));
    l.periode.jours = 31;
    l.periode.joursAvecDebit = debits;
    l.periode.joursAvecFlux = flux;
    if (flux > 0)
        l.flux = 1.5;
    return l;
}
} // namespace

class TestContenuFlux : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void titres_data()
    {
        QTest::addColumn<int>("genre");
        QTest::addColumn<bool>("specifique");
        QTest::addColumn<QString>("evolution");
        QTest::addColumn<QString>("axe"); // in nitrogen
        QTest::addColumn<QString>("axeAutre");
        const auto ajouter = [](const char *nom, GenreFlux genre, bool specifique, const char *evolution,
                                const char *axe, const char *autre) {
            QTest::newRow(nom) << static_cast<int>(genre) << specifique << QString::fromUtf8(evolution)
                               << QString::fromUtf8(axe) << QString::fromUtf8(autre);
        };
        ajouter("monthly", GenreFlux::Mensuel, false, " Evolution des flux mensuels en  ",
                "Flux mensuels (T de N-No3)", "Flux mensuels (Tonnes)");
        ajouter("monthly, specific", GenreFlux::Mensuel, true,
                " Evolution des flux spécifiques mensuels en  ", "Flux mensuels (kg de N-No3/ha)",
                "Flux mensuels (Kg/ha)");
        ajouter("annual", GenreFlux::Annuel, false, " Evolution des flux annuels en ",
                "Flux annuels (T de N-No3)", "Flux annuels (Tonnes)");
        ajouter("annual, specific", GenreFlux::Annuel, true, " Evolution des flux spécifiques annuels en ",
                "Flux annuels (kg de N-No3/ha)", "Flux annuels (Kg/ha)");
        ajouter("cumulated", GenreFlux::Cumule, false, " Evolution des flux mensuels cumulés en ",
                "Flux mensuels cumulés (T de N-No3)", "Flux mensuels cumulés (Tonnes)");
        ajouter("cumulated, specific", GenreFlux::Cumule, true,
                " Evolution des flux spécifiques mensuels cumulés en ",
                "Flux mensuels cumulés (kg de N-No3/ha)", "Flux mensuels cumulés (Kg/ha)");
        ajouter("per volume", GenreFlux::ParVolume, false,
                " Evolution des flux mensuels cumulés par volume en ", "Flux mensuels cumulés (T de N-No3)",
                "Flux mensuels cumulés (Tonnes)");
    }

    void titres()
    {
        QFETCH(int, genre);
        QFETCH(bool, specifique);
        QFETCH(QString, evolution);
        QFETCH(QString, axe);
        QFETCH(QString, axeAutre);
        FluxCalcule flux;
        flux.demande.genre = static_cast<GenreFlux>(genre);
        flux.demande.specifique = specifique;
        EnTeteFlux enTete;
        enTete.bassin = QStringLiteral("Le Meu %1");
        enTete.station = QStringLiteral("Pont de l'Ile");
        QCOMPARE(ContenuFlux::titre(flux.demande, enTete, QStringLiteral("Nitrates")),
                 QStringLiteral("BASSIN VERSANT :  Le Meu %1") + evolution +
                     QStringLiteral("Nitrates à la station de mesure Pont de l'Ile"));
        flux.enAzote = true;
        QCOMPARE(ContenuFlux::titreAxe(flux), axe);
        flux.enAzote = false;
        QCOMPARE(ContenuFlux::titreAxe(flux), axeAutre);
    }

    void note()
    {
        FluxCalcule flux;
        flux.lignes = {ligne(1, 31, 31), ligne(3, 28, 28)};
        QCOMPARE(ContenuFlux::note(flux, ModeAnnee::Civile),
                 QStringLiteral("Calcul des flux sur l'année civile"));
        QCOMPARE(ContenuFlux::note(flux, ModeAnnee::Hydrologique),
                 QStringLiteral("Calcul des flux sur l'année hydrologique"));
        flux.lignes << ligne(5, 0, 0);
        QCOMPARE(ContenuFlux::note(flux, ModeAnnee::Civile),
                 QStringLiteral("Calcul des flux sur l'année civile\nAucun débit : 05/2010"));
        for (int mois = 6; mois <= 12; ++mois)
            flux.lignes << ligne(mois, 0, 0);
        QCOMPARE(
            ContenuFlux::note(flux, ModeAnnee::Civile),
            QStringLiteral("Calcul des flux sur l'année civile\nAucun débit : 05/2010, 06/2010, 07/2010, "
                           "08/2010, 09/2010, 10/2010 et 2 autres"));
    }

    // A label where days lack a flow and there is a point to bear it.
    void etiquettes()
    {
        FluxCalcule flux;
        flux.lignes = {ligne(1, 31, 31), ligne(3, 28, 28), ligne(5, 0, 0), ligne(7, 1, 1), ligne(8, 31, 12)};
        QCOMPARE(ContenuFlux::etiquettes(flux),
                 (QVector<QPair<int, QString>>{{2, "28 calc."}, {4, "1 calc."}}));
    }

    void lignes()
    {
        FluxCalcule flux;
        flux.demande.genre = GenreFlux::Mensuel;
        flux.lignes = {ligne(1, 31, 31), ligne(3, 28, 28), ligne(5, 0, 0),
                       ligne(7, 31, 0),  ligne(8, 31, 30), ligne(10, 28, 26)};
        const Valeurs cellules = ContenuFlux::lignes(flux);
        const QVariant vide;
        const Valeurs attendues{
            {QDate(2010, 1, 1), 1.5, vide, vide},
            {QDate(2010, 3, 1), 1.5, 28.0, QStringLiteral("Débit connu 28 jours sur 31")},
            {QDate(2010, 5, 1), vide, 0.0, QStringLiteral("Aucun débit")},
            {QDate(2010, 7, 1), vide, vide, QStringLiteral("Aucune concentration")},
            {QDate(2010, 8, 1), 1.5, vide, QStringLiteral("Concentration inconnue 1 jour")},
            {QDate(2010, 10, 1), 1.5, 28.0,
             QStringLiteral("Débit connu 28 jours sur 31 ; Concentration inconnue 2 jours")}};
        QCOMPARE(cellules, attendues);
    }

    // A civil year is a number, a hydrological one a text.
    void annees()
    {
        FluxCalcule flux;
        flux.demande.genre = GenreFlux::Annuel;
        flux.lignes = {ligne(1, 31, 31)};
        flux.lignes[0].periode.intitule = QStringLiteral("2010");
        QCOMPARE(ContenuFlux::lignes(flux)[0][0], QVariant(2010.0));
        flux.lignes[0].periode.intitule = QStringLiteral("2009-2010");
        QCOMPARE(ContenuFlux::lignes(flux)[0][0], QVariant(QStringLiteral("2009-2010")));
    }

    void surface()
    {
        EnTeteFlux enTete;
        QCOMPARE(ContenuFlux::identite(enTete)[3][0], QVariant(QStringLiteral("non définie")));
        enTete.surfaceKm2 = 176.9;
        QCOMPARE(ContenuFlux::identite(enTete)[3][0], QVariant(176.9));
    }
};

QTEST_GUILESS_MAIN(TestContenuFlux)
#include "test_contenu_flux.moc"
