#include "exchange/DispositionExcel.h"
#include "workbook/Plage.h"

#include <QTest>

namespace
{
QStringList entetesPhysico()
{
    return {QStringLiteral("Code Agence"),
            QStringLiteral("Nom"),
            QStringLiteral("Date"),
            QStringLiteral("Heure"),
            QStringLiteral("Paramètre"),
            QStringLiteral("Valeur"),
            QStringLiteral("Code remarque"),
            QStringLiteral("Code Fraction"),
            QStringLiteral("Commentaire"),
            QStringLiteral("Unité de mesure"),
            QStringLiteral("Seuil de détection"),
            QStringLiteral("Protocole de prélèvement"),
            QStringLiteral("Gestionnaire"),
            QStringLiteral("Organisme préleveur"),
            QStringLiteral("Laboratoire d'analyses"),
            QStringLiteral("Réseau de mesure")};
}

int colonne(const Reconnaissance &r, ChampPhysico champ)
{
    return r.colonnes.at(static_cast<std::size_t>(champ));
}
} // namespace

class TestDispositionExcel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toutesLesColonnes()
    {
        int reconnues = 0;
        const Reconnaissance r = reconnaitre(entetesPhysico(), dispositionPhysico(), [&] { ++reconnues; });
        QVERIFY(r.complete());
        QCOMPARE(r.message(), QString());
        QCOMPARE(reconnues, 16);
        for (int i = 0; i < 16; ++i)
            QCOMPARE(r.colonnes.at(static_cast<std::size_t>(i)), i + 1);
    }

    void casseIndifferenteMaisPasLesBlancs()
    {
        QStringList entetes = entetesPhysico();
        entetes[0] = QStringLiteral("code agence");
        entetes[4] = QStringLiteral("PARAMÈTRE");
        QVERIFY(reconnaitre(entetes, dispositionPhysico()).complete());
        entetes[0] = QStringLiteral("Code Agence ");
        const Reconnaissance r = reconnaitre(entetes, dispositionPhysico());
        QCOMPARE(r.message(),
                 QStringLiteral("La colonne  'Code Agence'  n'a pas été reconnue dans le fichier Excel."));
    }

    void enteteRepeteeLaPlusADroite()
    {
        QStringList entetes = entetesPhysico();
        entetes << QStringLiteral("Remarques du labo") << QStringLiteral("Date");
        const Reconnaissance r = reconnaitre(entetes, dispositionPhysico());
        QVERIFY(r.complete());
        QCOMPARE(colonne(r, ChampPhysico::Date), 18);
    }

    void protocoleFacultatif()
    {
        QStringList entetes = entetesPhysico();
        entetes.removeAt(11);
        const Reconnaissance sans = reconnaitre(entetes, dispositionPhysico());
        QVERIFY(sans.complete());
        QCOMPARE(colonne(sans, ChampPhysico::Protocole), 0);
        entetes << QStringLiteral("Protocole de mesure");
        QCOMPARE(colonne(reconnaitre(entetes, dispositionPhysico()), ChampPhysico::Protocole), 16);
    }

    void plusieursManquantesDansLOrdre()
    {
        // "Valeur" stands before "Code remarque" and "Gestionnaire" in the layout; names keep their own blanks.
        QStringList entetes = entetesPhysico();
        entetes.removeAll(QStringLiteral("Gestionnaire"));
        entetes.removeAll(QStringLiteral("Valeur"));
        entetes.removeAll(QStringLiteral("Nom"));
        QCOMPARE(
            reconnaitre(entetes, dispositionPhysico()).message(),
            QStringLiteral("Les colonnes  'Nom' 'Valeur'  'Gestionnaire'  n'ont pas été reconnues dans le "
                           "fichier Excel."));
    }

    void aucuneEntete()
    {
        QCOMPARE(
            reconnaitre({}, dispositionPhysico()).message(),
            QStringLiteral("Les colonnes  'Code Agence'  'Nom' 'Date' 'Heure'  'Paramètre'  'Valeur'  'Code "
                           "remarque'  'Code Fraction'  'Commentaire'  'Unité de mesure'  'Seuil de "
                           "détection'  'Gestionnaire'  'Organisme préleveur'  'Laboratoire d'analyses'  "
                           "'Réseau de mesure'  n'ont pas été reconnues dans le fichier Excel."));
        QCOMPARE(
            reconnaitre({}, dispositionHydro()).message(),
            QStringLiteral("Les colonnes  'Type de débit'  'Numéro de la station' 'Date' 'Heure'  'Débit "
                           "(l/s)'  n'ont pas été reconnues dans le fichier Excel."));
        QCOMPARE(
            reconnaitre({}, dispositionPluvio()).message(),
            QStringLiteral("Les colonnes  'code_station'  'Date' 'Mesures' 'Commentaire'  'Gestionnaire'  "
                           "n'ont pas été reconnues dans le fichier Excel."));
        QCOMPARE(
            reconnaitre({}, dispositionIntervenant()).message(),
            QStringLiteral("Les colonnes  'CodeSandreAncien'  'CodeSiretNouveau' n'ont pas été reconnues "
                           "dans le fichier Excel."));
    }

    void enteteDePluieEnMinuscules()
    {
        const Reconnaissance r =
            reconnaitre({QStringLiteral("Date"), QStringLiteral("CODE_STATION"), QStringLiteral("Mesures"),
                         QStringLiteral("Commentaire"), QStringLiteral("Gestionnaire")},
                        dispositionPluvio());
        QVERIFY(r.complete());
        QCOMPARE(r.colonnes.at(static_cast<std::size_t>(ChampPluvio::Station)), 2);
    }

    // The first empty cell ends the layout; a cell of blanks is not empty.
    void premiereCelluleVide()
    {
        QCOMPARE(entetesDeLigne({QStringLiteral("Date"), QStringLiteral(" "), {}, QStringLiteral("Heure")}),
                 QStringList({QStringLiteral("Date"), QStringLiteral(" ")}));
        QCOMPARE(entetesDeLigne({QStringLiteral("Date"), QString(), QStringLiteral("Heure")}),
                 QStringList({QStringLiteral("Date")}));
        QCOMPARE(entetesDeLigne({QVariant::fromValue(ErreurCellule{QStringLiteral("#N/A")}), 2009.0}),
                 QStringList({QStringLiteral("#N/A"), QStringLiteral("2009")}));
        QCOMPARE(entetesDeLigne({}), QStringList());
    }
};

QTEST_APPLESS_MAIN(TestDispositionExcel)
#include "test_disposition_excel.moc"
