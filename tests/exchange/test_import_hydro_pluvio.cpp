// Imports of flows and of rainfall on real workbooks.
#include "exchange/ImportDEssai.h"

#include <QTest>

using H = ChampHydro;
using P = ChampPluvio;
using Fin = IssueImport::Fin;

namespace
{
QString acheve(int nombre, const QString &phrase)
{
    return QStringLiteral(
               "Fin de l'import | L'import du fichier Excel vers la base de données est achevé.\n%1")
               .arg(nombre) +
           phrase;
}
const QString UN_DEBIT = QStringLiteral(" mesure hydrométrique a été enregistrée. ");
const QString DES_DEBITS = QStringLiteral(" mesures hydrométriques ont été enregistrées. ");
const QString UNE_PLUIE = QStringLiteral(" mesure pluviométrique a été enregistrée. ");
const QString DES_PLUIES = QStringLiteral(" mesures pluviométriques ont été enregistrées. ");
} // namespace

class TestImportHydroPluvio : public QObject
{
    Q_OBJECT

    ImportDEssai essai;

    IssueImport importer(const FeuilleHydro &feuille)
    {
        essai.choisir(essai.ecrire(feuille.valeurs()));
        return M_Import_OVRA::ImporterHydro(essai.session);
    }
    IssueImport importer(const FeuillePluvio &feuille)
    {
        essai.choisir(essai.ecrire(feuille.valeurs()));
        return M_Import_OVRA::ImporterPluvio(essai.session);
    }
    // Every reading in its order: number, date, hour, daily flow, monthly flow; "-" for null.
    QString debits()
    {
        return essai
            .valeur(QStringLiteral(
                "SELECT group_concat(NumMesureHM || ' ' || DateMesureHM || ' ' || "
                "ifnull(HeureMesureHM, '-') || ' ' || ifnull(DebitJourMesureHM, '-') || ' ' || "
                "ifnull(DebitMoisMesureHM, '-'), ', ') FROM "
                "(SELECT * FROM MESURE_HYDRO ORDER BY NumMesureHM)"))
            .toString();
    }

private Q_SLOTS:
    void initTestCase() { essai.session.tableur.demarrerEnAvance(); }
    void init() { essai.recommencer(); }

    // A daily and a monthly flow at one moment are two rows; midnight and no hour are one and the same.
    void jourEtMois()
    {
        FeuilleHydro feuille = feuilleHydro();
        feuille.ajouter()
            .ajouter({{H::TypeDebit, QStringLiteral("QME")}, {H::Debit, QStringLiteral("90,25")}})
            .ajouter({{H::Date, QDate(2009, 3, 2)}, {H::Heure, QStringLiteral("00:00:00")}})
            .ajouter({{H::Date, QDate(2009, 3, 2)}, {H::Heure, QStringLiteral("08:00")}});
        importer(feuille);
        QCOMPARE(essai.boite(), acheve(4, DES_DEBITS));
        QCOMPARE(debits(),
                 QStringLiteral("1 2009-03-01 - 120.5 -, 2 2009-03-01 - - 90.25, 3 2009-03-02 - 120.5 -, "
                                "4 2009-03-02 08:00:00 120.5 -"));
    }

    void remplacementDuBonDebit()
    {
        FeuilleHydro feuille = feuilleHydro();
        feuille.ajouter().ajouter({{H::TypeDebit, QStringLiteral("QME")}, {H::Debit, 90}});
        importer(feuille);
        FeuilleHydro mois = feuilleHydro();
        mois.ajouter({{H::TypeDebit, QStringLiteral("QME")}, {H::Debit, 91}, {H::Heure, QTime(0, 0)}});
        QCOMPARE(importer(mois).fin, Fin::Remplacement);
        essai.import().RemplacerTout = true;
        M_Import_OVRA::ImporterHydro(essai.session);
        QCOMPARE(essai.boite(), acheve(1, UN_DEBIT));
        QCOMPARE(debits(), QStringLiteral("1 2009-03-01 - 120.5 -, 2 2009-03-01 - - 91.0"));
    }

    void aucunDebit()
    {
        importer(feuilleHydro());
        QCOMPARE(essai.boite(),
                 QStringLiteral("Fin de l'import | Aucune mesure hydrométrique n'a été enregistrée. "));
    }

    void stationHydroInconnue()
    {
        const IssueImport issue =
            importer(feuilleHydro().ajouter({{H::Station, QStringLiteral("J0000000")}}));
        QCOMPARE(issue.fin, Fin::Choix);
        QCOMPARE(issue.mode, 2);
        QCOMPARE(issue.element, QStringLiteral("J0000000"));
        QCOMPARE(issue.libelleAction, QStringLiteral("station hydrométrique "));
        QCOMPARE(essai.import().typeElement, TypeElement::StationHydro);
    }

    void delaiVide()
    {
        const IssueImport issue = importer(feuilleHydro().ajouter({{H::TypeDebit, QVariant()}}));
        QCOMPARE(issue.fin, Fin::Choix);
        QCOMPARE(issue.mode, 1);
        QCOMPARE(issue.libelleAction, QStringLiteral(" délai "));
    }

    void formatHydroRefuse()
    {
        importer(feuillePluvioCommeHydro());
        QCOMPARE(
            essai.boite(),
            QStringLiteral(
                "Erreur de fichier | Les colonnes  'Type de débit'  'Numéro de la station' 'Heure'  "
                "'Débit (l/s)'  n'ont pas été reconnues dans le fichier Excel. // Attention | Ce fichier "
                "n'est pas au format adapté"));
    }

    void pluies()
    {
        FeuillePluvio feuille = feuillePluvio();
        feuille.ajouter({{P::Commentaire, QStringLiteral("neige")}})
            .ajouter({{P::Date, QDate(2009, 3, 2)}, {P::Mesures, 0}})
            .ajouter({{P::Gestionnaire, QStringLiteral("Laboratoire d'Armor")}});
        importer(feuille);
        QCOMPARE(essai.boite(), acheve(3, DES_PLUIES));
        QCOMPARE(
            essai
                .valeur(QStringLiteral(
                    "SELECT group_concat(DateMesurePM || ' ' || JourMesurePM || ' ' || ifnull(CommMesurePM, '-') || "
                    "' ' || CodeStationPM || ' ' || CodeSandreGest, ', ') FROM "
                    "(SELECT * FROM MESURE_PLUVIO ORDER BY NumMesurePM)"))
                .toString(),
            QStringLiteral("2009-03-01 4.2 neige 35228001 17, 2009-03-02 0.0 - 35228001 17, "
                           "2009-03-01 4.2 - 35228001 18"));
    }

    void remplacementDeLaPluie()
    {
        importer(feuillePluvio().ajouter({{P::Commentaire, QStringLiteral("neige")}}));
        QCOMPARE(importer(feuillePluvio().ajouter({{P::Mesures, 5}})).fin, Fin::Remplacement);
        essai.import().RemplacerTout = true;
        M_Import_OVRA::ImporterPluvio(essai.session);
        QCOMPARE(essai.boite(), acheve(1, UNE_PLUIE));
        QCOMPARE(essai
                     .valeur(QStringLiteral(
                         "SELECT count(*) || ' ' || NumMesurePM || ' ' || JourMesurePM || ' ' || "
                         "ifnull(CommMesurePM, '-') FROM MESURE_PLUVIO"))
                     .toString(),
                 QStringLiteral("1 1 5.0 -"));
    }

    void aucunePluie()
    {
        importer(feuillePluvio());
        QCOMPARE(essai.boite(),
                 QStringLiteral("Fin de l'import | Aucune mesure pluviométrique n'a été enregistrée. "));
    }

private:
    // A workbook of rainfall given to the import of flows.
    static FeuilleHydro feuillePluvioCommeHydro()
    {
        DispositionExcel disposition = dispositionPluvio();
        return {disposition, {}};
    }
};

QTEST_GUILESS_MAIN(TestImportHydroPluvio)
#include "test_import_hydro_pluvio.moc"
