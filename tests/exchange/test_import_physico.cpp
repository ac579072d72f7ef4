// Physico-chemical imports on real workbooks: what is written, what stops a run, how it goes on.
#include "exchange/ImportDEssai.h"

#include <QTest>

using C = ChampPhysico;
using Fin = IssueImport::Fin;

namespace
{
const QString FIN = QStringLiteral("Fin de l'import | ");
QString acheve(int nombre)
{
    return FIN +
           QStringLiteral("L'import du fichier Excel vers la base de données est achevé.\n%1").arg(nombre) +
           (nombre == 1 ? QStringLiteral(" mesure physico-chimique a été enregistrée. ")
                        : QStringLiteral(" mesures physico-chimiques ont été enregistrées. "));
}
} // namespace

class TestImportPhysico : public QObject
{
    Q_OBJECT

    ImportDEssai essai;

    IssueImport importer() { return M_Import_OVRA::ImporterPhysico(essai.session); }
    // Writes the sheet, chooses it and runs.
    IssueImport importer(const FeuillePhysico &feuille)
    {
        essai.choisir(essai.ecrire(feuille.valeurs()));
        return importer();
    }

private Q_SLOTS:
    void initTestCase() { essai.session.tableur.demarrerEnAvance(); }
    void init() { essai.recommencer(); }

    void uneMesure()
    {
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter({{C::Commentaire, QStringLiteral("crue")}, {C::Seuil, QStringLiteral("0,5")}});
        const IssueImport issue = importer(feuille);
        QCOMPARE(essai.boite(), acheve(1));
        QCOMPARE(issue.fin, Fin::Terminee);
        const QString prelevement = QStringLiteral(
            "SELECT CodeSandreStationM || '|' || CdPoint || '|' || DatePrel || '|' || HeurePrel || '|' || "
            "CdSupport || '|' || CodeSandrePrelev || '|' || CodeSandreProd || '|' || Protocole "
            "FROM PRELEVEMENT");
        QCOMPARE(essai.valeur(prelevement).toString(),
                 QStringLiteral("04211940|031|2009-03-01|14:30:00|3|19|17|1"));
        const QString mesure = QStringLiteral(
            "SELECT NumPrel || '|' || CodeParam || '|' || ResultatAnaPC || '|' || CodeRemarqueAnaPC "
            "|| '|' || CommAnaPC || '|' || SeuilAnaPC || '|' || CodeSandreLabo || '|' || "
            "CodeSandreGest || '|' || Cd_Fraction FROM MESURE_PHYSICO");
        QCOMPARE(essai.valeur(mesure).toString(), QStringLiteral("1|1340|38.5|1|crue|0,5|18|17|23"));
        QCOMPARE(essai.valeur(QStringLiteral("SELECT NumPrel || '|' || CodeReseau FROM PRELEVEMENTRSX"))
                     .toString(),
                 QStringLiteral("1|0400000002"));
        // All counters back to nothing.
        QCOMPARE(essai.import().NbEnregistres, 0);
        QCOMPARE(essai.import().LigneReprise, 0);
        QCOMPARE(essai.import().LigneMaxProgression, 0);
        QVERIFY(!essai.import().FormatTeste);
        QVERIFY(!essai.import().RemplacerTout);
        QVERIFY(!essai.dialogue.enSablier);
        QVERIFY(!essai.dialogue.progression(FenetreProgression::FProgress).visible);
    }

    void plusieursMesuresDUnPrelevement()
    {
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter();
        feuille.ajouter({{C::Parametre, QStringLiteral("Glyphosate")}, {C::Unite, QStringLiteral("µg/L")}});
        feuille.ajouter({{C::Date, QDate(2009, 4, 1)}});
        importer(feuille);
        QCOMPARE(essai.boite(), acheve(3));
        QCOMPARE(essai.compter(QStringLiteral("PRELEVEMENT")), 2);
        QCOMPARE(essai.compter(QStringLiteral("MESURE_PHYSICO")), 3);
        QCOMPARE(essai.compter(QStringLiteral("PRELEVEMENTRSX")), 2);
    }

    // Everything typed as text, as laboratories' programs write it.
    void toutEnTexte()
    {
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter({{C::Date, QStringLiteral("01/03/2009")},
                         {C::Heure, QStringLiteral("9:05")},
                         {C::Valeur, QStringLiteral("0,5")},
                         {C::CodeRemarque, QStringLiteral("10")},
                         {C::CodeFraction, QStringLiteral("3")}});
        feuille.ajouter({{C::Date, QStringLiteral("02/03/09")}, {C::Valeur, QStringLiteral(" 0.5\u00A0")}});
        feuille.ajouter({{C::Date, QStringLiteral("2009-03-03")}, {C::Heure, QVariant()}});
        essai.choisir(essai.ecrire(feuille.valeurs(), QStringLiteral("texte.xls"), true));
        importer();
        QCOMPARE(essai.boite(), acheve(3));
        QCOMPARE(essai
                     .valeur(QStringLiteral(
                         "SELECT group_concat(DatePrel || ' ' || HeurePrel, ',') FROM PRELEVEMENT"))
                     .toString(),
                 QStringLiteral("2009-03-01 09:05:00,2009-03-02 14:30:00,2009-03-03 10:00:00"));
        QCOMPARE(
            essai.valeur(QStringLiteral("SELECT group_concat(ResultatAnaPC) FROM MESURE_PHYSICO")).toString(),
            QStringLiteral("0.5,0.5,38.5"));
        QCOMPARE(essai.valeur(QStringLiteral("SELECT CodeRemarqueAnaPC || Cd_Fraction FROM MESURE_PHYSICO"))
                     .toString(),
                 QStringLiteral("103"));
    }

    void autresFormats_data()
    {
        QTest::addColumn<QString>("nom");
        QTest::newRow("xlsx") << QStringLiteral("mesures.xlsx");
        QTest::newRow("ods") << QStringLiteral("mesures.ods");
        QTest::newRow("majuscules") << QStringLiteral("MESURES.XLS");
    }
    void autresFormats()
    {
        QFETCH(QString, nom);
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter().ajouter({{C::Date, QDate(2009, 4, 1)}});
        essai.choisir(essai.ecrire(feuille.valeurs(), nom));
        importer();
        QCOMPARE(essai.boite(), acheve(2));
        QCOMPARE(
            essai.valeur(QStringLiteral("SELECT max(DatePrel || HeurePrel) FROM PRELEVEMENT")).toString(),
            QStringLiteral("2009-04-0114:30:00"));
    }

    // A station code typed as a number.
    void codeEnNombre()
    {
        essai.base->sql(QStringLiteral("INSERT INTO STATION_QUALITE (CodeSandreStationM, NomStationM) "
                                       "VALUES ('4190000', 'Gué')"));
        importer(feuillePhysico().ajouter({{C::CodeAgence, 4190000}}));
        QCOMPARE(essai.boite(), acheve(1));
        QCOMPARE(essai.valeur(QStringLiteral("SELECT CodeSandreStationM FROM PRELEVEMENT")).toString(),
                 QStringLiteral("4190000"));
    }

    void entetesSeules()
    {
        QCOMPARE(importer(feuillePhysico()).fin, Fin::Terminee);
        QCOMPARE(essai.boite(), FIN + QStringLiteral("Aucune mesure physico-chimique n'a été enregistrée. "));
    }

    // The first blank of the key column ends the import, whatever stands below.
    void premierVideDeLaCle_data()
    {
        QTest::addColumn<QVariant>("cle");
        QTest::newRow("vide") << QVariant();
        QTest::newRow("blancs") << QVariant(QStringLiteral(" \u00A0"));
    }
    void premierVideDeLaCle()
    {
        QFETCH(QVariant, cle);
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter().ajouter({{C::CodeAgence, cle}}).ajouter({{C::Date, QDate(2009, 5, 1)}});
        importer(feuille);
        QCOMPARE(essai.boite(), acheve(1));
        QCOMPARE(essai.compter(QStringLiteral("MESURE_PHYSICO")), 1);
    }

    void remplacement()
    {
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter().ajouter({{C::Date, QDate(2009, 4, 1)}});
        importer(feuille);
        // Data that no import writes.
        essai.base->sql(QStringLiteral("UPDATE MESURE_PHYSICO SET CodeMethode = '12'"));
        FeuillePhysico nouvelle = feuillePhysico();
        nouvelle.ajouter({{C::Valeur, 1}})
            .ajouter({{C::Date, QDate(2009, 4, 1)}, {C::Valeur, 2}})
            .ajouter({{C::Date, QDate(2009, 5, 1)}, {C::Valeur, 3}});
        QCOMPARE(importer(nouvelle).fin, Fin::Remplacement);
        QCOMPARE(essai.boite(), QString());
        QCOMPARE(essai.import().LigneReprise, 2);
        QCOMPARE(
            essai.valeur(QStringLiteral("SELECT group_concat(ResultatAnaPC) FROM MESURE_PHYSICO")).toString(),
            QStringLiteral("38.5,38.5"));
        essai.import().RemplacerTout = true; // "Tout remplacer"
        QCOMPARE(importer().fin, Fin::Terminee);
        QCOMPARE(essai.boite(), acheve(3));
        // On the same analyses and the same samplings.
        QCOMPARE(essai
                     .valeur(QStringLiteral(
                         "SELECT group_concat(NumAnaPC || ':' || NumPrel || ':' || ResultatAnaPC) "
                         "FROM MESURE_PHYSICO"))
                     .toString(),
                 QStringLiteral("1:1:1.0,2:2:2.0,3:3:3.0"));
        QCOMPARE(essai.valeur(QStringLiteral("SELECT CodeMethode FROM MESURE_PHYSICO WHERE NumAnaPC = 1"))
                     .toString(),
                 QStringLiteral("12"));
        QVERIFY(!essai.import().RemplacerTout);
    }

    // The sampler is no part of what makes an analysis the same: it moves to the sampling of the new one.
    void remplacementSousUnAutrePreleveur()
    {
        importer(feuillePhysico().ajouter());
        essai.choisir(essai.ecrire(
            feuillePhysico().ajouter({{C::Preleveur, QStringLiteral("Laboratoire d'Armor")}}).valeurs()));
        essai.import().RemplacerTout = true;
        QCOMPARE(importer().fin, Fin::Terminee);
        QCOMPARE(essai.compter(QStringLiteral("PRELEVEMENT")), 2);
        QCOMPARE(essai
                     .valeur(QStringLiteral(
                         "SELECT count(*) || ':' || NumAnaPC || ':' || NumPrel FROM MESURE_PHYSICO"))
                     .toString(),
                 QStringLiteral("1:1:2"));
    }

    void deuxGestionnairesDeuxAnalyses()
    {
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter().ajouter({{C::Gestionnaire, QStringLiteral("Laboratoire d'Armor")}});
        importer(feuille);
        QCOMPARE(essai.boite(), acheve(2));
        QCOMPARE(essai.compter(QStringLiteral("PRELEVEMENT")), 1);
        QCOMPARE(essai.compter(QStringLiteral("MESURE_PHYSICO")), 2);
        // The producer is the manager of the row that made the sampling.
        QCOMPARE(essai.valeur(QStringLiteral("SELECT CodeSandreProd FROM PRELEVEMENT")).toString(),
                 QStringLiteral("17"));
    }

    void deuxFractionsDeuxAnalyses()
    {
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter().ajouter({{C::CodeFraction, 3}}).ajouter({{C::CodeFraction, 999}});
        importer(feuille);
        QCOMPARE(essai.boite(), acheve(3));
        QCOMPARE(
            essai.valeur(QStringLiteral("SELECT group_concat(Cd_Fraction) FROM MESURE_PHYSICO")).toString(),
            QStringLiteral("23,3,0"));
    }

    void deuxiemeReseau()
    {
        importer(feuillePhysico().ajouter());
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter({{C::Reseau, QStringLiteral("Réseau national")}});
        feuille.ajouter({{C::Reseau, QStringLiteral("Réseau national")},
                         {C::Parametre, QStringLiteral("Carbone Organique")},
                         {C::Unite, QStringLiteral("mg(C)/L")}});
        essai.choisir(essai.ecrire(feuille.valeurs()));
        essai.import().RemplacerTout = true;
        importer();
        QCOMPARE(essai.boite(), acheve(2));
        QCOMPARE(essai.compter(QStringLiteral("PRELEVEMENT")), 1);
        QCOMPARE(
            essai
                .valeur(QStringLiteral(
                    "SELECT group_concat(CodeReseau) FROM (SELECT CodeReseau FROM PRELEVEMENTRSX ORDER BY rowid)"))
                .toString(),
            QStringLiteral("0400000002,0400000001"));
    }

    void sansColonneProtocole()
    {
        Valeurs valeurs = feuillePhysico().ajouter().valeurs();
        for (QVector<QVariant> &ligne : valeurs)
            ligne.remove(static_cast<int>(C::Protocole));
        essai.choisir(essai.ecrire(valeurs));
        importer();
        QCOMPARE(essai.boite(), acheve(1));
        QVERIFY(essai.valeur(QStringLiteral("SELECT Protocole FROM PRELEVEMENT")).isNull());
    }

    // A fault stops the run at once; what was done stays, and no row is stored to resume at.
    void faute()
    {
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter()
            .ajouter({{C::Heure, QStringLiteral("25:00")}})
            .ajouter({{C::Date, QDate(2009, 5, 1)}});
        QCOMPARE(importer(feuille).fin, Fin::Arretee);
        QCOMPARE(
            essai.boite(),
            QStringLiteral("Erreur | La valeur de l'heure '25:00' doit être au format Date/Heure 'hh:mm:ss'. "
                           "Corrigez votre fichier puis recommencer l'import des données."));
        QCOMPARE(essai.compter(QStringLiteral("MESURE_PHYSICO")), 1);
        QCOMPARE(essai.import().LigneReprise, 0);
        QCOMPARE(essai.import().NbEnregistres, 1);
        QCOMPARE(essai.import().LigneMaxProgression,
                 6); // rows 2, 4 hold a key; 6 is the first even one without
        QVERIFY(!essai.dialogue.enSablier);
    }

    void elementInconnu()
    {
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter().ajouter(
            {{C::CodeAgence, QStringLiteral("04219999")}, {C::Nom, QStringLiteral("Pont neuf")}});
        const IssueImport issue = importer(feuille);
        QCOMPARE(issue.fin, Fin::Choix);
        QCOMPARE(issue.mode, 2);
        QCOMPARE(issue.libelleAction, QStringLiteral("station qualité "));
        QCOMPARE(issue.element, QStringLiteral("04219999 : Pont neuf"));
        QCOMPARE(essai.boite(), QString());
        QCOMPARE(essai.import().LigneReprise, 3);
        QCOMPARE(essai.import().ElementCode, QStringLiteral("04219999"));
        QCOMPARE(essai.import().ElementNom, QStringLiteral("Pont neuf"));
        QCOMPARE(essai.import().typeElement, TypeElement::StationQualite);
        QVERIFY(essai.import().FormatTeste);
        // The station is added meanwhile: the run goes on from there and counts all rows.
        essai.base->sql(
            QStringLiteral("INSERT INTO STATION_QUALITE (CodeSandreStationM) VALUES ('04219999')"));
        QCOMPARE(importer().fin, Fin::Terminee);
        QCOMPARE(essai.boite(), acheve(2));
        QVERIFY(essai.dialogue.progression(FenetreProgression::FProgress)
                    .textes.contains(QStringLiteral("Reprise à la ligne 3")));
    }

    void parametreInconnuEtVide()
    {
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter(
            {{C::Parametre, QStringLiteral("Nitrites")}, {C::Unite, QStringLiteral("mg(NO2)/L")}});
        IssueImport issue = importer(feuille);
        QCOMPARE(issue.fin, Fin::Choix);
        QCOMPARE(issue.mode, 2);
        QCOMPARE(issue.element, QStringLiteral("Nitrites"));
        QCOMPARE(essai.import().ElementUnite, QStringLiteral("mg(NO2)/L"));
        issue = importer(feuillePhysico().ajouter({{C::Parametre, QVariant()}}));
        QCOMPARE(issue.fin, Fin::Choix);
        QCOMPARE(issue.mode, 1);
        QCOMPARE(issue.libelleAction, QStringLiteral("paramètre "));
        QCOMPARE(essai.import().typeElement, TypeElement::Parametre);
    }

    void uniteRefusee()
    {
        const IssueImport issue = importer(feuillePhysico().ajouter({{C::Unite, QStringLiteral("µg/L")}}));
        QCOMPARE(issue.fin, Fin::ChoixUnite);
        QCOMPARE(essai.import().ElementNom, QStringLiteral("µg/L"));
        QCOMPARE(essai.import().ElementParametre, QStringLiteral("Nitrates"));
        QCOMPARE(essai.import().typeElement, TypeElement::UniteDeParametre);
    }

    // A skipped row: one row only, and the next one with the same element asks again.
    void ligneIgnoree()
    {
        FeuillePhysico feuille = feuillePhysico();
        const FeuillePhysico::Ligne inconnu = {{C::Gestionnaire, QStringLiteral("Personne")}};
        feuille.ajouter(inconnu).ajouter(inconnu).ajouter();
        QCOMPARE(importer(feuille).fin, Fin::Choix);
        QCOMPARE(essai.import().LigneReprise, 2);
        essai.import().LigneReprise = 3; // "Ignorer"
        QCOMPARE(importer().fin, Fin::Choix);
        QCOMPARE(essai.import().LigneReprise, 3);
        essai.import().LigneReprise = 4;
        QCOMPARE(importer().fin, Fin::Terminee);
        QCOMPARE(essai.boite(), acheve(1));
    }

    void derniereLigneIgnoree()
    {
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter().ajouter({{C::Gestionnaire, QStringLiteral("Personne")}});
        QCOMPARE(importer(feuille).fin, Fin::Choix);
        ++essai.import().LigneReprise;
        QCOMPARE(importer().fin, Fin::Terminee);
        QCOMPARE(essai.boite(), acheve(1));
    }

    // A file corrected between two runs is read anew, at the columns that the check found: columns that were moved keep
    // their old positions.
    void colonnesGardeesALaReprise()
    {
        const FeuillePhysico::Ligne inconnu = {{C::Gestionnaire, QStringLiteral("Personne")}};
        QCOMPARE(importer(feuillePhysico().ajouter(inconnu)).fin, Fin::Choix);
        Valeurs corrige = feuillePhysico().ajouter().valeurs();
        // "Gestionnaire" and "Organisme préleveur" change places, headers and cells.
        for (QVector<QVariant> &ligne : corrige)
            ligne.swapItemsAt(static_cast<int>(C::Gestionnaire), static_cast<int>(C::Preleveur));
        essai.ecrire(corrige);
        QCOMPARE(importer().fin, Fin::Terminee);
        QCOMPARE(essai.valeur(QStringLiteral("SELECT CodeSandreGest FROM MESURE_PHYSICO")).toString(),
                 QStringLiteral("19"));
        // A new run looks for them again.
        essai.choisir(essai.ecrire(corrige));
        QCOMPARE(importer().fin, Fin::Terminee);
        QCOMPARE(
            essai
                .valeur(QStringLiteral(
                    "SELECT group_concat(CodeSandreGest) FROM (SELECT CodeSandreGest FROM MESURE_PHYSICO ORDER BY NumAnaPC)"))
                .toString(),
            QStringLiteral("19,17"));
    }

    // The row of a stop stays through "Annuler": the next import, even of another file, starts there.
    void ligneRepriseGardee()
    {
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter().ajouter({{C::Date, QDate(2009, 4, 1)}}).ajouter({{C::Date, QDate(2009, 5, 1)}});
        essai.base->sql(
            QStringLiteral("INSERT INTO PRELEVEMENT (NumPrel, CodeSandreStationM, DatePrel, HeurePrel) "
                           "VALUES (50, '04211940', '2009-04-01', '14:30:00')"));
        essai.base->ajouterMesure(50, QStringLiteral("1340"), 1);
        QCOMPARE(importer(feuille).fin, Fin::Remplacement);
        QCOMPARE(essai.import().LigneReprise, 3);
        // "Annuler" does nothing more. A new file whose first rows would stop the run:
        FeuillePhysico autre = feuillePhysico();
        autre.ajouter({{C::Valeur, QStringLiteral("faux")}}).ajouter({{C::Date, QDate(2010, 4, 1)}});
        QCOMPARE(importer(autre).fin, Fin::Terminee);
        QCOMPARE(essai.boite(), acheve(1));
        QCOMPARE(essai.import().LigneReprise, 0);
    }

    // A file that is refused leaves the row to resume at as it was.
    void formatRefuse()
    {
        Valeurs valeurs = feuillePhysico().ajouter().valeurs();
        valeurs[0][static_cast<int>(C::Valeur)] = QStringLiteral("Résultat");
        essai.choisir(essai.ecrire(valeurs));
        essai.import().LigneReprise = 7;
        QCOMPARE(importer().fin, Fin::Arretee);
        QCOMPARE(essai.boite(),
                 QStringLiteral(
                     "Erreur de fichier | La colonne  'Valeur'  n'a pas été reconnue dans le fichier Excel. "
                     "// Attention | Ce fichier n'est pas au format adapté"));
        QCOMPARE(essai.import().LigneReprise, 7);
        QVERIFY(!essai.import().FormatTeste);
        QCOMPARE(essai.compter(QStringLiteral("MESURE_PHYSICO")), 0);
    }

    void progression()
    {
        FeuillePhysico feuille = feuillePhysico();
        for (int i = 0; i < 4; ++i)
            feuille.ajouter({{C::Date, QDate(2009, 1, 1).addDays(i)}});
        importer(feuille);
        const ProgressionDEssai &fenetre = essai.dialogue.progression(FenetreProgression::FProgress);
        QCOMPARE(fenetre.titre, QStringLiteral("Import des données du fichier Excel"));
        // Keys in rows 2 to 5: the first even row without one is 6, where the run also ends.
        QCOMPARE(fenetre.dernierMaximum, 6);
        QCOMPARE(fenetre.derniereValeur, 6);
    }

    void interruption()
    {
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter().ajouter({{C::Date, QDate(2009, 4, 1)}});
        ProgressionDEssai &fenetre = essai.dialogue.progression(FenetreProgression::FProgress);
        fenetre.annulationDemandee = true;
        QCOMPARE(importer(feuille).fin, Fin::Arretee);
        fenetre.annulationDemandee = false;
        QVERIFY2(essai.boite().startsWith(
                     QStringLiteral("Import interrompu | L'import a été interrompu à la ligne 2.")),
                 qPrintable(essai.boite()));
        QCOMPARE(essai.compter(QStringLiteral("MESURE_PHYSICO")), 0);
        essai.choisir(essai.import().FichierImport);
        QCOMPARE(importer().fin, Fin::Terminee);
        QCOMPARE(essai.boite(), acheve(2));
    }

    // The user stops an import at its third row: the same file goes on from there, another one begins at its top.
    void interruptionEnRoute_data()
    {
        QTest::addColumn<bool>("memeFichier");
        QTest::addColumn<int>("mesures");
        QTest::newRow("meme fichier") << true << 2;
        QTest::newRow("autre fichier") << false << 3;
    }
    void interruptionEnRoute()
    {
        QFETCH(bool, memeFichier);
        QFETCH(int, mesures);
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter().ajouter({{C::Date, QDate(2009, 4, 1)}}).ajouter({{C::Date, QDate(2009, 5, 1)}});
        auto &fenetre = essai.dialogue.progression(FenetreProgression::FProgress);
        fenetre.aChaqueLigne = [&](int ligne) { fenetre.annulationDemandee = ligne == 3; };
        QCOMPARE(importer(feuille).fin, Fin::Arretee);
        fenetre.aChaqueLigne = {};
        fenetre.annulationDemandee = false;
        QCOMPARE(essai.compter(QStringLiteral("MESURE_PHYSICO")), 1);
        QCOMPARE(essai.import().LigneReprise, 3);
        FeuillePhysico autre = feuillePhysico();
        for (int i = 0; i < 3; ++i)
            autre.ajouter({{C::Date, QDate(2015, 1, 1).addDays(i)}});
        essai.choisir(memeFichier ? essai.import().FichierImport
                                  : essai.ecrire(autre.valeurs(), QStringLiteral("autre.xls")));
        QCOMPARE(importer().fin, Fin::Terminee);
        QCOMPARE(essai.boite(), acheve(mesures));
    }

    // A run-time failure in the middle: the row is undone whole, those before it stay, the state stays as it was.
    void echecDeLaBase()
    {
        essai.base->sql(
            QStringLiteral("CREATE TRIGGER REFUS BEFORE INSERT ON MESURE_PHYSICO WHEN NEW.ResultatAnaPC = 2 "
                           "BEGIN SELECT raise(ABORT, 'valeur refusée'); END"));
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter().ajouter({{C::Date, QDate(2009, 4, 1)}, {C::Valeur, 2}});
        QCOMPARE(importer(feuille).fin, Fin::Arretee);
        QCOMPARE(essai.dialogue.messages.size(), 1);
        QCOMPARE(essai.dialogue.messages[0].icone, Icone::Critique);
        QVERIFY2(essai.boite().startsWith(QStringLiteral(
                     "Erreur | Une erreur est survenue au cours de l'import. Votre fichier contient "
                     "peut-être des redondances ou est peut-être en cours d'utilisation. \n")),
                 qPrintable(essai.boite()));
        QVERIFY2(essai.boite().endsWith(QStringLiteral(" - valeur refusée")), qPrintable(essai.boite()));
        QCOMPARE(essai.compter(QStringLiteral("MESURE_PHYSICO")), 1);
        QCOMPARE(essai.compter(QStringLiteral("PRELEVEMENT")), 1);
        QCOMPARE(essai.compter(QStringLiteral("PRELEVEMENTRSX")), 1);
        QCOMPARE(essai.import().NbEnregistres, 1);
        QVERIFY(essai.import().FormatTeste);
        // The connection is usable again at once.
        essai.base->sql(QStringLiteral("DROP TRIGGER REFUS"));
        essai.import().RemplacerTout = true;
        essai.oublierLesBoites();
        QCOMPARE(importer().fin, Fin::Terminee);
    }

    // Text from a file is data: nothing in it is ever run.
    void texteHostile()
    {
        importer(
            feuillePhysico().ajouter({{C::Commentaire, QStringLiteral("'); DROP TABLE MESURE_PHYSICO; --")},
                                      {C::Seuil, QStringLiteral("=1+1")}}));
        QCOMPARE(essai.boite(), acheve(1));
        QCOMPARE(
            essai.valeur(QStringLiteral("SELECT CommAnaPC || SeuilAnaPC FROM MESURE_PHYSICO")).toString(),
            QStringLiteral("'); DROP TABLE MESURE_PHYSICO; --=1+1"));
    }

    // More rows than one bundle of the reader holds, and a resumption in the second one.
    void plusDUnLot()
    {
        FeuillePhysico feuille = feuillePhysico();
        for (int i = 0; i < 2500; ++i)
            feuille.ajouter({{C::Date, QDate(2000, 1, 1).addDays(i)},
                             {C::Gestionnaire,
                              i == 2200 ? QStringLiteral("Personne") : QStringLiteral("Agence de l'eau")}});
        QCOMPARE(importer(feuille).fin, Fin::Choix);
        QCOMPARE(essai.import().LigneReprise, 2202);
        QCOMPARE(essai.import().LigneMaxProgression, 2502);
        ++essai.import().LigneReprise;
        QCOMPARE(importer().fin, Fin::Terminee);
        QCOMPARE(essai.boite(), acheve(2499));
        QCOMPARE(essai.compter(QStringLiteral("MESURE_PHYSICO")), 2499);
    }
};

QTEST_GUILESS_MAIN(TestImportPhysico)
#include "test_import_physico.moc"
