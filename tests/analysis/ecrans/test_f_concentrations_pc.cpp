// What the selection screen offers and shows, and what may be chosen together.
#include "EcranConcentrations.h"

#include <QLabel>
#include <QTabWidget>

class TestFConcentrationsPC : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ouverture();
    void listesDeLaBase();
    void choixDeStation();
    void parLeCodeUsuel();
    void stationVidee();
    void changementDeStation();
    void reperesDuParametre();
    void carboneEtFractions();
    void plusieursParametres();
    void deuxParametresAuPlus();
    void deuxFractionsAuPlus();
    void listeDesFractionsMontree();
    void vidage();
    void baseSansRien();
    void panneDeBase();
};

void TestFConcentrationsPC::ouverture()
{
    Essai e;
    QVERIFY(e.dialogue.messages.isEmpty());
    QCOMPARE(e.ecran->objectName(), s("F_Concentrations_PC"));
    QCOMPARE(e.ecran->windowTitle(), s("Consultation physico-chimique"));
    auto *onglets = e.trouver<QTabWidget>("SSTab_PC");
    QCOMPARE(onglets->tabText(0), s("Concentrations"));
    QCOMPARE(onglets->tabText(1), s("Flux"));
    QCOMPARE(onglets->currentIndex(), 0);
    for (const char *nom : {"chk_seq", "chk_seuil", "CB_ECHELLE_MAX", "ZL_FRACTION", "txt_seuil",
                            "txt_valeur", "ZE_ECHELLE_MAX"})
        QVERIFY2(!e.actif(nom), nom);
    for (const char *nom : {"chk_seq", "chk_seuil", "CB_ECHELLE_MAX", "txt_seuil", "txt_valeur",
                            "ZE_ECHELLE_MAX", "chk_obj_moyen", "chk_freq_depass1"})
        QVERIFY2(!e.controle(nom)->toolTip().isEmpty(), nom);
    for (const char *nom : {"cmd_rapport", "cmd_visualiser", "cmd_graph_rapport"})
        QVERIFY2(e.actif(nom), nom);
    QVERIFY(e.visible("cmb_param"));
    for (const char *nom : {"lst_param2", "ZC_FRACTION", "ZL_FRACTION", "ZT_LIB_FRACTION"})
        QVERIFY2(!e.visible(nom), nom);
    QVERIFY(!e.bouton("opt_un_param")->isChecked());
    QVERIFY(!e.bouton("opt_plusieurs_param")->isChecked());
    QVERIFY(e.bouton("opAnneeCivile")->isChecked());
    const QList<std::pair<const char *, const char *>> legendes = {
        {"chk_AffCodeUsuel", "Afficher le code usuel à la place du code station"},
        {"opt_un_param", "Un seul paramètre"},
        {"opt_plusieurs_param", "Plusieurs paramètres"},
        {"opAnneeHydro", "Hydrologique"},
        {"opAnneeCivile", "Civile"},
        {"chk_obj_moyen", "Objectif moyen"},
        {"chk_obj_max", "Objectif maximal "},
        {"chk_freq_depass1", "Fréquence de dépassement"},
        {"chk_freq_depass2", "Fréquence de dépassement"},
        {"chk_seq", "Grille SEQ-Eau"},
        {"chk_normes_eaux_brutes", "Normes Eaux Potables"},
        {"chk_quantile", "Quantile 90"},
        {"chk_seuil", "Comparaison avec un autre seuil"},
        {"opt_pluvio", "Pluviométrie"},
        {"CB_ECHELLE_MAX", "Définir échelle maximale"},
        {"cmd_visualiser", "&Graphique ..."},
        {"cmd_rapport", "&Rapport ..."},
        {"cmd_graph_rapport", "Graphique &et Rapport ..."},
        {"cmd_fermer", "&Fermer"},
    };
    for (const auto &[nom, legende] : legendes)
        QCOMPARE(e.bouton(nom)->text(), s(legende));
    QCOMPARE(e.trouver<QLabel>("ZT_LIB_FRACTION")->text(), s("Fraction :"));
    QCOMPARE(e.trouver<QLabel>("lbl_debit")->text(), s("Station hydrométrique liée :"));
    QCOMPARE(e.trouver<QLabel>("lbl_pluvio")->text(), s("Station pluviométrique liée :"));
    QCOMPARE(e.trouver<QLabel>("lbl_valeur")->text(), s("Valeur :"));
}

void TestFConcentrationsPC::listesDeLaBase()
{
    Essai e;
    QCOMPARE(e.rangees("cmb_code"), (QStringList{s("04211940"), s("04211950")}));
    QCOMPARE(e.rangees("ZC_CODE_USUEL"), QStringList{s("ESS1")});
    // Glyphosate's manager at the first station is the second station's one for nitrates.
    QCOMPARE(e.rangees("lst_gest"),
             (QStringList{s("Agence de l'eau"), s("Laboratoire d'Armor"), s("Préleveur de l'Ouest")}));
    QCOMPARE(e.rangees("lst_reseau"), (QStringList{s("Réseau d'Armor"), s("Réseau national")}));
    QCOMPARE(e.rangees("lst_comment"), (QStringList{s("- vide -"), s("Crue")}));
    QCOMPARE(e.rangees("cmb_protoc"), (QStringList{s("Suivi calendaire"), s("Suivi pluie")}));
    QCOMPARE(e.rangees("cmb_debit"), QStringList{s("J7010610")});
    QCOMPARE(e.rangees("dbcmb_pluvio"), QStringList{s("35228001")});
    QVERIFY(e.combo("cmb_param")->count() == 0);
}

void TestFConcentrationsPC::choixDeStation()
{
    Essai e;
    e.choisir("cmb_code", "04211940");
    QCOMPARE(e.texte("txt_station"), s("Pont de l'Ile"));
    QVERIFY(e.zone("txt_station")->isReadOnly());
    QCOMPARE(e.combo("ZC_CODE_USUEL")->currentText(), s("ESS1"));
    QCOMPARE(e.combo("cmb_debit")->currentText(), s("J7010610"));
    const QStringList parametres{s("Carbone Organique"), s("Nitrates"), s("Potentiel en Hydrogène (pH)")};
    QCOMPARE(e.rangees("cmb_param"), parametres);
    QCOMPARE(e.rangees("lst_param2"), parametres);
    const QStringList fractions{s("23 - Eau brute"), s("0 - Inconnu"),
                                s("3 - Phase aqueuse de l'eau (filtrée, centrifugée...)")};
    QCOMPARE(e.rangees("ZC_FRACTION"), fractions);
    QCOMPARE(e.rangees("ZL_FRACTION"), fractions);
    QCOMPARE(e.rangees("lst_gest"), (QStringList{s("Agence de l'eau"), s("Laboratoire d'Armor")}));
    QCOMPARE(e.rangees("lst_reseau"), QStringList{s("Réseau national")});
    QCOMPARE(e.rangees("cmb_protoc"), QStringList{s("Suivi pluie")});
    QCOMPARE(e.rangees("lst_comment"), (QStringList{s("- vide -"), s("Crue")}));
    QVERIFY(e.dialogue.messages.isEmpty());
}

void TestFConcentrationsPC::parLeCodeUsuel()
{
    Essai e;
    e.choisir("ZC_CODE_USUEL", "ESS1");
    QCOMPARE(e.combo("cmb_code")->currentText(), s("04211940"));
    QCOMPARE(e.texte("txt_station"), s("Pont de l'Ile"));
    QCOMPARE(e.rangees("cmb_param").size(), 3);
}

void TestFConcentrationsPC::stationVidee()
{
    Essai e;
    QVERIFY(e.pret());
    e.choisir("cmb_code", "04211940");
    ZoneCombo *code = e.combo("cmb_code");
    code->setFocus();
    code->lineEdit()->selectAll();
    QTest::keyClick(code, Qt::Key_Delete);
    QCOMPARE(e.texte("txt_station"), QString());
    QCOMPARE(e.combo("ZC_CODE_USUEL")->currentText(), QString());
    QCOMPARE(e.rangees("lst_gest").size(), 3);
    QCOMPARE(e.refusDuRapport(), s("Le code de la station doit être renseigné"));
}

void TestFConcentrationsPC::changementDeStation()
{
    Essai e;
    e.choisir("cmb_code", "04211940");
    e.choisir("cmb_param", "Nitrates");
    e.cliquer("lst_gest", "Agence");
    e.choisir("cmb_code", "04211950");
    QCOMPARE(e.combo("cmb_param")->currentText(), s("Nitrates"));
    QCOMPARE(e.rangees("lst_gest"), QStringList{s("Préleveur de l'Ouest")});
    QCOMPARE(e.ecran->demandeRapport().gestionnaires, QStringList());
    QCOMPARE(e.combo("cmb_debit")->currentText(), QString());
    e.choisir("cmb_code", "04211940");
    e.choisir("cmb_param", "Carbone Organique");
    QVERIFY(e.visible("ZC_FRACTION"));
    e.choisir("cmb_code", "04211950");
    QCOMPARE(e.combo("cmb_param")->currentText(), QString());
    QVERIFY(!e.visible("ZC_FRACTION"));
    QVERIFY(!e.actif("chk_seuil"));
}

void TestFConcentrationsPC::reperesDuParametre()
{
    Essai e;
    e.choisir("cmb_code", "04211940");
    e.choisir("cmb_param", "Nitrates");
    QVERIFY2(e.bouton("opt_un_param")->isChecked(), "a parameter picked is a choice of one parameter");
    QCOMPARE(e.trouver<QLabel>("lbl_unite")->text(), s("mg(NO3)/L"));
    QCOMPARE(e.texte("txt_obj_moyen"), s("25"));
    QCOMPARE(e.texte("txt_obj_max"), s("37,5"));
    QCOMPARE(e.texte("txt_norme"), s("50"));
    for (const char *nom : {"chk_obj_moyen", "chk_obj_max", "chk_normes_eaux_brutes", "chk_seq",
                            "chk_quantile", "chk_seuil", "CB_ECHELLE_MAX", "cmd_rapport"})
        QVERIFY2(e.actif(nom), nom);
    QVERIFY(!e.actif("chk_freq_depass1"));
    e.bouton("chk_obj_moyen")->click();
    QVERIFY(e.actif("chk_freq_depass1"));
    QVERIFY(!e.actif("chk_freq_depass2"));
    e.bouton("chk_freq_depass1")->click();
    e.bouton("chk_obj_moyen")->click();
    QVERIFY(!e.bouton("chk_freq_depass1")->isChecked());
    e.bouton("chk_seq")->click();

    // A parameter of which nothing is known.
    e.choisir("cmb_param", "Potentiel en Hydrogène (pH)");
    QCOMPARE(e.texte("txt_obj_moyen"), QString());
    QCOMPARE(e.texte("txt_norme"), QString());
    for (const char *nom : {"chk_obj_moyen", "chk_obj_max", "chk_normes_eaux_brutes", "chk_seq"}) {
        QVERIFY2(!e.actif(nom), nom);
        QVERIFY2(!e.bouton(nom)->isChecked(), nom);
        QVERIFY2(!e.controle(nom)->toolTip().isEmpty(), nom);
    }
    QCOMPARE(e.trouver<QLabel>("lbl_unite")->text(), s("unité pH"));
}

void TestFConcentrationsPC::carboneEtFractions()
{
    Essai e;
    e.choisir("cmb_code", "04211940");
    e.choisir("cmb_param", "Carbone Organique");
    QVERIFY(e.visible("ZC_FRACTION"));
    QVERIFY(e.visible("ZT_LIB_FRACTION"));
    QVERIFY(!e.visible("ZL_FRACTION"));
    e.choisir("ZC_FRACTION", "23 - Eau brute");
    QCOMPARE(e.texte("txt_obj_moyen"), s("5"));
    QCOMPARE(e.texte("txt_obj_max"), QString()); // an objective of 0 is none
    QVERIFY(e.actif("chk_seq"));
    e.choisir("ZC_FRACTION", "3 - Phase aqueuse de l'eau (filtrée, centrifugée...)");
    QCOMPARE(e.texte("txt_obj_moyen"), s("4"));
    QCOMPARE(e.texte("txt_obj_max"), s("6"));
    QVERIFY2(!e.actif("chk_seq"), "the grid holds for raw water alone");
    QCOMPARE(e.ecran->demandeRapport().fraction, s("3 - Phase aqueuse de l'eau (filtrée, centrifugée...)"));
    e.choisir("cmb_param", "Nitrates");
    QVERIFY(!e.visible("ZC_FRACTION"));
    QCOMPARE(e.ecran->demandeRapport().fraction, QString());
}

void TestFConcentrationsPC::plusieursParametres()
{
    Essai e;
    e.choisir("cmb_code", "04211940");
    e.choisir("cmb_param", "Nitrates");
    e.bouton("chk_obj_moyen")->click();
    e.bouton("chk_quantile")->click();
    e.bouton("opt_plusieurs_param")->click();
    QVERIFY(!e.visible("cmb_param"));
    QVERIFY(e.visible("lst_param2"));
    QVERIFY(e.combo("cmb_param")->estVide());
    QCOMPARE(e.texte("txt_obj_moyen"), QString());
    for (const char *nom :
         {"chk_seq", "chk_obj_moyen", "chk_obj_max", "chk_normes_eaux_brutes", "chk_quantile"}) {
        QVERIFY2(!e.actif(nom), nom);
        QVERIFY2(!e.bouton(nom)->isChecked(), nom);
    }
    QVERIFY(!e.actif("cmd_rapport"));
    QVERIFY(!e.controle("cmd_rapport")->toolTip().isEmpty());
    QVERIFY(!e.actif("cmd_graph_rapport"));
    QVERIFY(!e.actif("chk_seuil"));
    e.cliquer("lst_param2", "Nitrates");
    QVERIFY(e.actif("chk_seuil"));
    QVERIFY(e.actif("CB_ECHELLE_MAX"));
    QVERIFY(!e.actif("chk_seq"));
    QCOMPARE(e.trouver<QLabel>("lbl_unite")->text(), s("mg(NO3)/L"));
    e.bouton("opt_un_param")->click();
    QCOMPARE(e.liste("lst_param2")->codes(), QStringList());
    QVERIFY(e.visible("cmb_param"));
    QVERIFY(e.actif("cmd_rapport"));
    QVERIFY(e.actif("chk_quantile"));
}

void TestFConcentrationsPC::deuxParametresAuPlus()
{
    Essai e;
    e.choisir("cmb_code", "04211940");
    e.bouton("opt_plusieurs_param")->click();
    e.cliquer("lst_param2", "Nitrates");
    e.cliquer("lst_param2", "Potentiel");
    QVERIFY(e.dialogue.messages.isEmpty());
    e.cliquer("lst_param2", "Carbone");
    QTRY_COMPARE(e.dialogue.messages.size(), 1);
    QCOMPARE(e.dialogue.messages[0].texte, s("Vous ne pouvez pas sélectionner plus de deux paramètres. "));
    QCOMPARE(e.dialogue.messages[0].titre, s("Attention"));
    QCOMPARE(e.liste("lst_param2")->textes(), (QStringList{s("Nitrates"), s("Potentiel en Hydrogène (pH)")}));
    QVERIFY2(!e.visible("ZL_FRACTION"), "the refused parameter asks for no fraction");

    // Two fractions of carbon leave no room for a second parameter.
    e.cliquer("lst_param2", "Nitrates");
    e.cliquer("lst_param2", "Potentiel");
    e.cliquer("lst_param2", "Carbone");
    e.cliquer("ZL_FRACTION", "23");
    e.cliquer("ZL_FRACTION", "3 -");
    e.cliquer("lst_param2", "Nitrates");
    QTRY_COMPARE(e.dialogue.messages.size(), 2);
    QCOMPARE(e.dialogue.messages[1].texte,
             s("Vous avez sélectionné 2 fractions, vous ne pouvez pas sélectionner plus d'un paramètre. "));
    QCOMPARE(e.liste("lst_param2")->textes(), QStringList{s("Carbone Organique")});
}

void TestFConcentrationsPC::deuxFractionsAuPlus()
{
    Essai e;
    e.choisir("cmb_code", "04211940");
    e.bouton("opt_plusieurs_param")->click();
    e.cliquer("lst_param2", "Carbone");
    e.cliquer("ZL_FRACTION", "23");
    e.cliquer("ZL_FRACTION", "0 -");
    e.cliquer("ZL_FRACTION", "3 -");
    QTRY_COMPARE(e.dialogue.messages.size(), 1);
    QCOMPARE(e.dialogue.messages[0].texte, s("Vous ne pouvez pas sélectionner plus de deux fractions. "));
    QCOMPARE(e.dialogue.messages[0].titre, s("Attention"));
    QCOMPARE(e.liste("ZL_FRACTION")->codes(), (QStringList{s("23"), s("0")}));

    e.cliquer("ZL_FRACTION", "0 -");
    e.cliquer("lst_param2", "Nitrates");
    e.cliquer("ZL_FRACTION", "3 -");
    QTRY_COMPARE(e.dialogue.messages.size(), 2);
    QCOMPARE(e.dialogue.messages[1].texte,
             s("Vous avez sélectionné 2 paramètres dont le carbone organique, vous ne "
               "pouvez pas sélectionner plus d'une fraction. "));
    QCOMPARE(e.liste("ZL_FRACTION")->codes(), QStringList{s("23")});
}

void TestFConcentrationsPC::listeDesFractionsMontree()
{
    Essai e;
    e.choisir("cmb_code", "04211940");
    e.bouton("opt_plusieurs_param")->click();
    QVERIFY(!e.visible("ZL_FRACTION"));
    e.cliquer("lst_param2", "Nitrates");
    QVERIFY(!e.visible("ZL_FRACTION"));
    e.cliquer("lst_param2", "Carbone");
    QVERIFY(e.visible("ZL_FRACTION"));
    QVERIFY(e.actif("ZL_FRACTION"));
    QVERIFY(e.visible("ZT_LIB_FRACTION"));
    QVERIFY(!e.visible("ZC_FRACTION"));
    e.cliquer("ZL_FRACTION", "23");
    e.cliquer("lst_param2", "Carbone");
    QVERIFY(!e.visible("ZL_FRACTION"));
    QCOMPARE(e.liste("ZL_FRACTION")->codes(), QStringList());
}

void TestFConcentrationsPC::vidage()
{
    Essai e;
    QVERIFY(e.pret());
    e.choisirTout();
    QVERIFY(!e.session.ViderEnCours);
    e.ecran = std::make_unique<F_Concentrations_PC>(e.session, e.cadre);
    e.ecran->show();
    for (const char *nom : {"txt_station", "txt_date_debut", "txt_date_fin", "txt_obj_moyen", "txt_obj_max",
                            "txt_norme", "txt_seuil", "txt_valeur", "ZE_ECHELLE_MAX"})
        QCOMPARE(e.texte(nom), QString());
    for (const char *nom :
         {"cmb_code", "ZC_CODE_USUEL", "cmb_param", "ZC_FRACTION", "cmb_protoc", "cmb_debit", "dbcmb_pluvio"})
        QCOMPARE(e.combo(nom)->currentText(), QString());
    for (const char *nom : {"lst_param2", "ZL_FRACTION", "lst_gest", "lst_reseau", "lst_comment"})
        QCOMPARE(e.liste(nom)->codes(), QStringList());
    // While a reset is under way the handlers do nothing.
    e.session.ViderEnCours = true;
    e.choisir("cmb_code", "04211940");
    QCOMPARE(e.combo("cmb_param")->count(), 0);
    e.session.ViderEnCours = false;
}

void TestFConcentrationsPC::baseSansRien()
{
    DialogueDEssai dialogue;
    Session session(dialogue);
    CadreDEssai cadre;
    const BaseDEssai vide(true);
    session.donnees.ouvrir(vide.chemin);
    F_Concentrations_PC ecran(session, cadre);
    ecran.show();
    ecran.findChild<QPushButton *>(QStringLiteral("cmd_rapport"))->click();
    QCOMPARE(dialogue.messages.size(), 1);
    QCOMPARE(dialogue.messages[0].texte, s("Le code de la station doit être renseigné"));
}

void TestFConcentrationsPC::panneDeBase()
{
    Essai e;
    e.session.donnees.executer(s("DROP TABLE [Rattachement_hydro_ mesure]"));
    e.choisir("cmb_code", "04211940");
    QCOMPARE(e.dialogue.messages.size(), 1);
    QCOMPARE(e.dialogue.messages[0].titre, s("Erreur"));
    QVERIFY(e.dialogue.messages[0].texte.startsWith(
        s("Une erreur s'est produite en cours de traitement : \n1 - ")));
    QVERIFY(e.ecran->isVisible());
}

QTEST_MAIN(TestFConcentrationsPC)
#include "test_f_concentrations_pc.moc"
