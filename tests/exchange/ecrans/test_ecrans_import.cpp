// The screens of the import: what each mode shows, what each button does to the import and to the others.
#include "exchange/ecrans/ControleurImport.h"
#include "exchange/ecrans/F_Choix.h"
#include "exchange/ecrans/F_Choix_unite.h"
#include "exchange/ecrans/F_Import_physico.h"
#include "exchange/ecrans/F_Import_phyto.h"
#include "exchange/ecrans/F_Import_Remplace.h"
#include "exchange/ImportDEssai.h"
#include "frame/Cadre.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

using C = ChampPhysico;

namespace
{
class CadreDEssai : public Cadre
{
public:
    ~CadreDEssai() override { delete ecran; }
    void montrer(QWidget *nouveau) override
    {
        ecran = nouveau;
        ecran->setAttribute(Qt::WA_DeleteOnClose);
        ecran->show();
        ++fois;
    }
    void reduire() override { ++reductions; }
    void terminer() override {}

    QPointer<QWidget> ecran;
    int fois = 0;
    int reductions = 0;
};
} // namespace

class TestEcransImport : public QObject
{
    Q_OBJECT

    ImportDEssai essai;
    std::unique_ptr<CadreDEssai> cadre;

    QWidget &enfant(const QString &nom) const
    {
        auto *widget = cadre->ecran ? cadre->ecran->findChild<QWidget *>(nom) : nullptr;
        if (!widget)
            qFatal("no widget %s", qPrintable(nom));
        return *widget;
    }
    QPushButton &bouton(const char *nom) const { return dynamic_cast<QPushButton &>(enfant(nom)); }
    bool actif(const char *nom) const { return enfant(nom).isEnabled(); }
    QString texte(const char *nom) const
    {
        QWidget &widget = enfant(QString::fromLatin1(nom));
        if (const auto *etiquette = qobject_cast<QLabel *>(&widget))
            return etiquette->text();
        return dynamic_cast<QLineEdit &>(widget).text();
    }
    // Names of the controls that show, in the order given.
    QStringList visibles(const QStringList &noms) const
    {
        QStringList liste;
        for (const QString &nom : noms) {
            if (enfant(nom).isVisible())
                liste << nom;
        }
        return liste;
    }
    // States of Ajouter, Corriger, Ignorer, Continuer: "acic" with a capital where enabled.
    QString etats() const
    {
        return QString(actif("cmd_ajouter") ? u'A' : u'a') + (actif("cmd_corriger") ? u'C' : u'c') +
               (actif("cmd_ignorer") ? u'I' : u'i') + (actif("cmd_continuer") ? u'S' : u's');
    }
    F_Choix *choix(int mode, const OuvrirFiche &fiche)
    {
        auto *ecran = new F_Choix(essai.session, *cadre, QStringLiteral("gestionnaire "),
                                  QStringLiteral("Personne"), fiche);
        ecran->AfficherChoix(mode);
        cadre->montrer(ecran);
        return ecran;
    }
    void choisirFichier(const FeuillePhysico &feuille)
    {
        essai.choisir(essai.ecrire(feuille.valeurs()));
        essai.import().typeImport = TypeImport::Physico;
        ControleurImport::RelancerImport(essai.session, *cadre);
    }

private Q_SLOTS:
    void initTestCase() { essai.session.tableur.demarrerEnAvance(); }
    void init()
    {
        essai.recommencer();
        essai.dialogue.documents.clear();
        essai.dialogue.documentsOuvrables = true;
        cadre = std::make_unique<CadreDEssai>();
    }
    void cleanup() { QVERIFY(essai.dialogue.imprevus.isEmpty()); }

    void modes_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QStringList>("attendus");
        QTest::newRow("vide") << 1
                              << QStringList{QStringLiteral("Label2"), QStringLiteral("Label5"),
                                             QStringLiteral("Label6"), QStringLiteral("lbl_action")};
        QTest::newRow("inconnu") << 2
                                 << QStringList{QStringLiteral("Label1"),     QStringLiteral("Label2"),
                                                QStringLiteral("Label3"),     QStringLiteral("Label4"),
                                                QStringLiteral("Label7"),     QStringLiteral("lbl_action"),
                                                QStringLiteral("txt_element")};
        QTest::newRow("unite") << 5 << QStringList{QStringLiteral("Label1"),     QStringLiteral("Label3"),
                                                   QStringLiteral("Label4"),     QStringLiteral("Label8"),
                                                   QStringLiteral("Label9"),     QStringLiteral("lbl_action"),
                                                   QStringLiteral("txt_element")};
    }
    void modes()
    {
        QFETCH(int, mode);
        QFETCH(QStringList, attendus);
        choix(mode, [](Session &, Cadre &) {});
        QCOMPARE(visibles({QStringLiteral("Label1"), QStringLiteral("Label2"), QStringLiteral("Label3"),
                           QStringLiteral("Label4"), QStringLiteral("Label5"), QStringLiteral("Label6"),
                           QStringLiteral("Label7"), QStringLiteral("Label8"), QStringLiteral("Label9"),
                           QStringLiteral("lbl_action"), QStringLiteral("txt_element")}),
                 attendus);
        QCOMPARE(actif("cmd_ajouter"), mode != 1);
        QCOMPARE(etats().mid(1), QStringLiteral("CIs"));
    }

    void textesDeChoix()
    {
        choix(2, {});
        QCOMPARE(cadre->ecran->windowTitle(), QStringLiteral("Recherche de l'élément"));
        QCOMPARE(texte("Label1"),
                 QStringLiteral("n'a pas été reconnu dans la base de données.\nVoulez-vous :\n- L'ajouter "
                                "dans la base de données.\n- Le corriger dans le fichier Excel.\n- Ou "
                                "ignorer les mesures contenant cet élément."));
        QCOMPARE(texte("Label2"), QStringLiteral("L'élément  "));
        QCOMPARE(texte("Label3"), QStringLiteral("\""));
        QCOMPARE(texte("Label4"), QStringLiteral("\""));
        QCOMPARE(texte("Label5"), QStringLiteral(" est vide."));
        QCOMPARE(texte("Label6"),
                 QStringLiteral("Voulez-vous :\n- Le corriger dans le fichier Excel.\n- Ou ignorer les "
                                "mesures contenant cet élément à vide."));
        QCOMPARE(texte("Label7"), QStringLiteral(" : "));
        QCOMPARE(texte("Label8"), QStringLiteral("L'unité"));
        QCOMPARE(texte("Label9"), QStringLiteral(" correspondant au paramètre :"));
        QCOMPARE(texte("lbl_action"), QStringLiteral("gestionnaire "));
        QCOMPARE(texte("txt_element"), QStringLiteral("Personne"));
    }

    // Ajouter without a sheet: disabled, and says why.
    void sansFiche()
    {
        choix(2, {});
        QCOMPARE(etats(), QStringLiteral("aCIs"));
        QVERIFY(!bouton("cmd_ajouter").toolTip().isEmpty());
        bouton("cmd_ignorer").click();
        QVERIFY(!actif("cmd_ajouter"));
    }

    void ajouter()
    {
        essai.import().LigneReprise = 7;
        int ouvertures = 0;
        choix(2, [&](Session &, Cadre &) { ++ouvertures; });
        QCOMPARE(etats(), QStringLiteral("ACIs"));
        bouton("cmd_ajouter").click();
        QCOMPARE(ouvertures, 1);
        QCOMPARE(etats(), QStringLiteral("aciS"));
        QCOMPARE(essai.import().LigneReprise, 7);
    }

    void corriger()
    {
        essai.import().LigneReprise = 7;
        essai.import().FichierImport = QStringLiteral("/tmp/mesures.xls");
        choix(2, {});
        bouton("cmd_corriger").click();
        QCOMPARE(essai.dialogue.documents, QStringList{QStringLiteral("/tmp/mesures.xls")});
        QCOMPARE(cadre->reductions, 1);
        QCOMPARE(etats(), QStringLiteral("aciS"));
        QCOMPARE(essai.import().LigneReprise, 7);
        QVERIFY(essai.dialogue.messages.isEmpty());
    }

    // No program for the file: the main window stays, and the user is told what to do.
    void corrigerSansApplication()
    {
        essai.dialogue.documentsOuvrables = false;
        choix(2, {});
        bouton("cmd_corriger").click();
        QCOMPARE(cadre->reductions, 0);
        QCOMPARE(essai.dialogue.messages.size(), 1);
    }

    void ignorerPuisRevenir_data()
    {
        QTest::addColumn<QString>("retour");
        QTest::newRow("corriger") << QStringLiteral("cmd_corriger");
        QTest::newRow("ajouter") << QStringLiteral("cmd_ajouter");
    }
    // Ignorer skips the row; Corriger or Ajouter takes the skip back, once.
    void ignorerPuisRevenir()
    {
        QFETCH(QString, retour);
        essai.import().LigneReprise = 7;
        choix(2, [](Session &, Cadre &) {});
        bouton("cmd_ignorer").click();
        QCOMPARE(essai.boite(),
                 QStringLiteral("Attention | Vos données contenant cet élément ne seront pas enregistrées"));
        QCOMPARE(etats(), QStringLiteral("ACiS"));
        QCOMPARE(essai.import().LigneReprise, 8);
        QVERIFY(essai.import().LigneIgnoree);
        dynamic_cast<QPushButton &>(enfant(retour)).click();
        QCOMPARE(etats(), QStringLiteral("aciS"));
        QCOMPARE(essai.import().LigneReprise, 7);
        QVERIFY(!essai.import().LigneIgnoree);
    }

    void ignorerUnXml()
    {
        essai.import().typeImport = TypeImport::Quesu;
        choix(2, {});
        bouton("cmd_ignorer").click();
        QCOMPARE(etats(), QStringLiteral("aciS"));
    }

    // The whole road: unknown manager, skipped; the run goes on to its end.
    void continuer()
    {
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter({{C::Gestionnaire, QStringLiteral("Personne")}}).ajouter();
        choisirFichier(feuille);
        QVERIFY(qobject_cast<F_Choix *>(cadre->ecran));
        QCOMPARE(texte("lbl_ligne"), QStringLiteral("Ligne 2 du fichier « mesures.xls »"));
        QCOMPARE(texte("txt_element"), QStringLiteral("Personne"));
        bouton("cmd_ignorer").click();
        essai.oublierLesBoites();
        bouton("cmd_continuer").click();
        QVERIFY(!essai.import().LigneIgnoree);
        QTRY_VERIFY(!cadre->ecran);
        QCOMPARE(essai.boite(),
                 QStringLiteral("Fin de l'import | L'import du fichier Excel vers la base de données est "
                                "achevé.\n1 mesure physico-chimique a été enregistrée. "));
        QCOMPARE(essai.compter(QStringLiteral("MESURE_PHYSICO")), 1);
    }

    // Ignorer then Corriger: the run resumes at the row in question, corrected meanwhile.
    void corrigerLeFichier()
    {
        choisirFichier(feuillePhysico().ajouter({{C::Gestionnaire, QStringLiteral("Personne")}}));
        bouton("cmd_ignorer").click();
        bouton("cmd_corriger").click();
        essai.ecrire(feuillePhysico().ajouter().valeurs());
        bouton("cmd_continuer").click();
        QCOMPARE(essai.compter(QStringLiteral("MESURE_PHYSICO")), 1);
    }

    // Still open where it was corrected: the question stays, and waits.
    void fichierEncoreOuvert()
    {
        choisirFichier(feuillePhysico().ajouter({{C::Gestionnaire, QStringLiteral("Personne")}}));
        bouton("cmd_ignorer").click();
        QFile verrou(essai.dossier.filePath(QStringLiteral(".~lock.mesures.xls#")));
        QVERIFY(verrou.open(QIODevice::WriteOnly) && verrou.write(",marie,poste12,21.11.2026 10:00,;") > 0);
        verrou.close();
        essai.oublierLesBoites();
        bouton("cmd_continuer").click();
        QCOMPARE(essai.boite(),
                 QStringLiteral("Attention | Le fichier « mesures.xls » est ouvert dans un autre programme "
                                "(marie, poste12). Fermez-le puis recommencez."));
        QVERIFY(cadre->ecran && cadre->ecran->isVisible());
        QVERIFY(essai.import().LigneIgnoree);
        QVERIFY(verrou.remove());
        bouton("cmd_continuer").click();
        QTRY_VERIFY(!cadre->ecran);
        QVERIFY(
            essai.boite().endsWith(QStringLiteral("Aucune mesure physico-chimique n'a été enregistrée. ")));
    }

    void elementVide()
    {
        choisirFichier(feuillePhysico().ajouter({{C::Date, QVariant()}}));
        QVERIFY(enfant(QStringLiteral("Label5")).isVisible());
        QCOMPARE(texte("lbl_action"), QStringLiteral(" date "));
    }

    void unite()
    {
        FeuillePhysico feuille = feuillePhysico();
        feuille.ajouter({{C::Unite, QStringLiteral("µg/L")}}).ajouter({{C::Unite, QStringLiteral("pouce")}});
        choisirFichier(feuille);
        QVERIFY(qobject_cast<F_Choix_unite *>(cadre->ecran));
        QCOMPARE(cadre->ecran->windowTitle(), QStringLiteral("Erreur d'unité"));
        QCOMPARE(texte("LabelURF"), QStringLiteral("µg/L"));
        QCOMPARE(texte("LabelPAR"), QStringLiteral("Nitrates"));
        QCOMPARE(texte("Label1"),
                 QStringLiteral("Voulez-vous :\n- La corriger dans le fichier Excel.\n- Ou ignorer les "
                                "mesures contenant cet élément."));
        QVERIFY(!actif("cmd_continuer"));
        bouton("cmd_ignorer").click();
        QCOMPARE(essai.boite(),
                 QStringLiteral("Attention | Vos données contenant cet élément ne seront pas enregistrées"));
        QVERIFY(!actif("cmd_ignorer"));
        QVERIFY(actif("cmd_corriger"));
        bouton("cmd_corriger").click();
        QCOMPARE(essai.import().LigneReprise, 2);
        QVERIFY(!actif("cmd_corriger"));
        essai.import().LigneReprise = 3;
        bouton("cmd_continuer").click();
        QCOMPARE(texte("LabelURF"), QStringLiteral("pouce"));
    }

    void toutRemplacer()
    {
        choisirFichier(feuillePhysico().ajouter());
        choisirFichier(feuillePhysico().ajouter({{C::Valeur, 1}}));
        QVERIFY(qobject_cast<F_Import_Remplace *>(cadre->ecran));
        QCOMPARE(cadre->ecran->windowTitle(), QStringLiteral("Continuer l'import"));
        QCOMPARE(texte("Label1"),
                 QStringLiteral("Certaines de ces informations ont déjà été importées.\nVoulez-vous :\n- "
                                "Remplacer les données existantes par les nouvelles.\n- Ou annuler "
                                "l'import des données."));
        bouton("cmd_remplacer").click();
        QTRY_VERIFY(!cadre->ecran);
        QCOMPARE(essai.valeur(QStringLiteral("SELECT ResultatAnaPC FROM MESURE_PHYSICO")).toDouble(), 1.0);
    }

    void annulerLeRemplacement()
    {
        choisirFichier(feuillePhysico().ajouter());
        choisirFichier(feuillePhysico().ajouter({{C::Valeur, 1}}));
        essai.oublierLesBoites();
        QTest::keyClick(cadre->ecran, Qt::Key_Escape);
        QTRY_VERIFY(!cadre->ecran);
        QCOMPARE(essai.valeur(QStringLiteral("SELECT ResultatAnaPC FROM MESURE_PHYSICO")).toDouble(), 38.5);
        QCOMPARE(essai.boite(), QString());
        QCOMPARE(essai.import().LigneReprise, 2);
        QVERIFY(!essai.import().RemplacerTout);
    }

    // Stations are not among the imports that replacing restarts.
    void remplacerDesStations()
    {
        essai.import().typeImport = TypeImport::StationsExcel;
        cadre->montrer(new F_Import_Remplace(essai.session, *cadre));
        bouton("cmd_remplacer").click();
        QTRY_VERIFY(!cadre->ecran);
        QVERIFY(essai.import().RemplacerTout);
        QVERIFY(essai.dialogue.messages.isEmpty());
    }

    // A new import closes the question that another one has left open.
    void questionLaissee()
    {
        choisirFichier(feuillePhysico().ajouter({{C::Gestionnaire, QStringLiteral("Personne")}}));
        const QPointer<QWidget> ancienne = cadre->ecran;
        const QString bon = essai.ecrire(feuillePhysico().ajouter().valeurs(), QStringLiteral("autre.xls"));
        ControleurImport::importerFichier(essai.session, *cadre, bon);
        QTRY_VERIFY(!ancienne);
        QCOMPARE(essai.import().TitreImport, QStringLiteral("autre.xls"));
    }

    void choixDuFormat()
    {
        cadre->montrer(new F_Import_physico(essai.session, *cadre));
        QCOMPARE(cadre->ecran->windowTitle(), QStringLiteral("Import de données physico-chimiques"));
        auto &formats = dynamic_cast<QComboBox &>(enfant(QStringLiteral("cmb_format")));
        QCOMPARE(formats.count(), 3);
        QCOMPARE(formats.itemText(0), QStringLiteral("Document Excel"));
        QCOMPARE(formats.itemText(1), QStringLiteral("Document Texte (Trames SANDRE 1997-1)"));
        QCOMPARE(formats.itemText(2), QStringLiteral("Document XML-SANDRE QUESU 2.0"));
        // A format whose reader does not exist is greyed.
        const TypeImport types[] = {TypeImport::Physico, TypeImport::Trames, TypeImport::Quesu};
        for (int i = 0; i < 3; ++i)
            QCOMPARE(formats.model()->flags(formats.model()->index(i, 0)).testFlag(Qt::ItemIsEnabled),
                     ControleurImport::lecteurDisponible(types[i]));
        QCOMPARE(formats.currentText(), QStringLiteral("Document Excel"));
    }

    void formatHorsDeLaListe()
    {
        cadre->montrer(new F_Import_physico(essai.session, *cadre));
        auto &formats = dynamic_cast<QComboBox &>(enfant(QStringLiteral("cmb_format")));
        formats.setEditText(QStringLiteral("Parchemin"));
        bouton("cmd_import").click();
        QCOMPARE(essai.boite(), QStringLiteral("Attention | Cette valeur n'existe pas dans la liste."));
        QVERIFY(essai.dialogue.demandes.isEmpty());
    }

    void importerParLEcran()
    {
        essai.session.CheminBase = essai.dossier.path();
        const QString chemin =
            essai.ecrire(feuillePhysico().ajouter().valeurs(), QStringLiteral("Labo.XLSX"));
        essai.oublierLesBoites();
        essai.import().NbEnregistres = 5;
        cadre->montrer(new F_Import_physico(essai.session, *cadre));
        essai.dialogue.fichiers.enqueue(chemin);
        bouton("cmd_import").click();
        QTRY_VERIFY(!cadre->ecran);
        const DemandeFichier &demande = essai.dialogue.demandes.constLast();
        QCOMPARE(demande.titre, QStringLiteral("Choisissez le fichier à importer"));
        QCOMPARE(demande.filtre,
                 QStringLiteral("Excel (.xls)|*.xls|Excel et OpenDocument (.xlsx, .ods)|*.xlsx;*.ods"));
        QCOMPARE(demande.dossierInitial, essai.dossier.path());
        QVERIFY(!demande.enregistrer);
        QCOMPARE(essai.import().FichierImport, chemin);
        QCOMPARE(essai.import().TitreImport, QStringLiteral("Labo.XLSX"));
        QCOMPARE(essai.import().DossierFichier, essai.dossier.path() + QLatin1Char('/'));
        QCOMPARE(essai.import().typeImport, TypeImport::Physico);
        QCOMPARE(essai.boite(),
                 QStringLiteral("Fin de l'import | L'import du fichier Excel vers la base de données est "
                                "achevé.\n1 mesure physico-chimique a été enregistrée. "));
    }

    void fichierNonChoisi()
    {
        essai.dialogue.demandes.clear();
        cadre->montrer(new F_Import_physico(essai.session, *cadre));
        essai.dialogue.fichiers.enqueue(std::nullopt);
        bouton("cmd_import").click();
        QVERIFY(cadre->ecran);
        QVERIFY(essai.dialogue.messages.isEmpty());
        QCOMPARE(essai.import().FichierImport, QString());
    }

    // The extension decides, whatever the list says.
    void typeParLExtension_data()
    {
        QTest::addColumn<QString>("nom");
        QTest::addColumn<TypeImport>("type");
        QTest::newRow("xml") << QStringLiteral("mesures.XML") << TypeImport::Quesu;
        QTest::newRow("txt") << QStringLiteral("mesures.txt") << TypeImport::Trames;
        QTest::newRow("autre") << QStringLiteral("mesures.csv") << TypeImport::Trames;
        QTest::newRow("xls") << QStringLiteral("mesures.Xls") << TypeImport::Physico;
        QTest::newRow("xlsx") << QStringLiteral("mesures.xlsx") << TypeImport::Physico;
        QTest::newRow("ods") << QStringLiteral("mesures.ODS") << TypeImport::Physico;
    }
    void typeParLExtension()
    {
        QFETCH(QString, nom);
        QFETCH(TypeImport, type);
        // No such file: each road ends in a message of its own.
        ControleurImport::importerFichier(essai.session, *cadre, essai.dossier.filePath(nom));
        QCOMPARE(essai.import().typeImport, type);
        QCOMPARE(essai.dialogue.messages.size(), 1);
    }

    void debitsParLeMenu()
    {
        const QString chemin = essai.ecrire(feuilleHydro().ajouter().valeurs(), QStringLiteral("debits.xls"));
        essai.dialogue.fichiers.enqueue(chemin);
        essai.import().RemplacerTout = true;
        ControleurImport::importerHydro(essai.session, *cadre);
        QCOMPARE(essai.import().typeImport, TypeImport::Hydro);
        QCOMPARE(essai.compter(QStringLiteral("MESURE_HYDRO")), 1);
        QVERIFY(essai.dialogue.demandes.constLast().filtre.startsWith(QStringLiteral("Excel (*.xls)|*.xls")));
        // The same again, not replaced: the menu clears what "Tout remplacer" had set.
        essai.dialogue.fichiers.enqueue(chemin);
        essai.import().RemplacerTout = true;
        ControleurImport::importerHydro(essai.session, *cadre);
        QVERIFY(qobject_cast<F_Import_Remplace *>(cadre->ecran));
    }

    void pluiesParLeMenu()
    {
        essai.dialogue.fichiers.enqueue(
            essai.ecrire(feuillePluvio().ajouter().valeurs(), QStringLiteral("pluies.xls")));
        ControleurImport::importerPluvio(essai.session, *cadre);
        QCOMPARE(essai.compter(QStringLiteral("MESURE_PLUVIO")), 1);
        essai.dialogue.fichiers.enqueue(std::nullopt);
        essai.oublierLesBoites();
        ControleurImport::importerPluvio(essai.session, *cadre);
        QCOMPARE(essai.boite(), QString());
    }

    void pesticides()
    {
        cadre->montrer(new F_Import_phyto(essai.session, *cadre));
        bouton("cmd_import").click();
        QCOMPARE(essai.boite(), QStringLiteral(" | Import PC/PS réuni"));
    }
};

QTEST_MAIN(TestEcransImport)
#include "test_ecrans_import.moc"
