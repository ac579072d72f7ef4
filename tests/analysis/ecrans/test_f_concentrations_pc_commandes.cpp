// The selection screen's typed fields, its checks and what its commands launch.
#include "EcranConcentrations.h"

#include <QLabel>

class TestFConcentrationsPCCommandes : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void seuil();
    void valeurNumerique();
    void echelleMaximale();
    void dates();
    void combosVerifies();
    void stationsLiees();
    void controlesDuRapport();
    void foyerSurLeChampRefuse();
    void rapportIndisponible();
    void demande();
    void demandeAvecFiltres();
    void fichierAnnule();
    void pendantUnRapport();
    void clavier();
};

void TestFConcentrationsPCCommandes::seuil()
{
    Essai e;
    QVERIFY(e.pret());
    e.choisirTout();
    QVERIFY(!e.actif("txt_seuil"));
    e.bouton("chk_seuil")->click();
    QVERIFY(e.actif("txt_seuil"));
    QVERIFY(e.actif("txt_valeur"));
    QCOMPARE(e.trouver<QLabel>("lbl_unite")->text(), s("mg(NO3)/L"));
    QCOMPARE(e.ecran->demandeRapport().seuil, std::nullopt);
    e.ecrire("txt_seuil", "Seuil local");
    e.ecrire("txt_valeur", "0");
    QCOMPARE(e.ecran->demandeRapport().seuil, std::optional(0.0)); // a typed 0 is a threshold
    e.ecrire("txt_valeur", "18,5");
    QCOMPARE(e.ecran->demandeRapport().seuil, std::optional(18.5));
    e.bouton("chk_seuil")->click();
    QCOMPARE(e.texte("txt_seuil"), QString());
    QCOMPARE(e.texte("txt_valeur"), QString());
    QVERIFY(!e.actif("txt_seuil"));
    QVERIFY(!e.actif("txt_valeur"));
    QCOMPARE(e.ecran->demandeRapport().seuil, std::nullopt);
    QVERIFY(e.dialogue.messages.isEmpty());
}

void TestFConcentrationsPCCommandes::valeurNumerique()
{
    Essai e;
    QVERIFY(e.pret());
    e.choisirTout();
    e.bouton("chk_seuil")->click();
    e.ecrire("txt_valeur", "abc");
    QCOMPARE(e.dialogue.messages.size(), 1);
    QCOMPARE(e.dialogue.messages[0].texte, s("La valeur demandée est de type numérique."));
    QCOMPARE(e.dialogue.messages[0].titre, s("Erreur de type"));
    QVERIFY(e.zone("txt_valeur")->hasFocus());
    // The report is not started over a wrong field.
    e.dialogue.messages.clear();
    e.bouton("cmd_rapport")->click();
    QCOMPARE(e.dialogue.messages.size(), 1);
    QCOMPARE(e.dialogue.messages[0].titre, s("Erreur de type"));
    QVERIFY(e.dialogue.demandes.isEmpty());
}

void TestFConcentrationsPCCommandes::echelleMaximale()
{
    Essai e;
    QVERIFY(e.pret());
    e.choisirTout();
    e.bouton("CB_ECHELLE_MAX")->click();
    QVERIFY(e.actif("ZE_ECHELLE_MAX"));
    e.ecrire("ZE_ECHELLE_MAX", "abc"); // judged by the charts' commands, not when it is left
    QTest::qWait(700);
    QVERIFY(e.dialogue.messages.isEmpty());
    // The report takes no scale.
    e.dialogue.fichiers.enqueue(std::nullopt);
    e.bouton("cmd_rapport")->click();
    QVERIFY(e.dialogue.messages.isEmpty());
    QCOMPARE(e.dialogue.demandes.size(), 1);
    e.bouton("CB_ECHELLE_MAX")->click();
    QVERIFY(!e.actif("ZE_ECHELLE_MAX"));
    QCOMPARE(e.texte("ZE_ECHELLE_MAX"), QString());
}

void TestFConcentrationsPCCommandes::dates()
{
    Essai e;
    QVERIFY(e.pret());
    const QString refus = s("La date n'est pas au format adapté : \"jj/mm/aaaa\".");
    for (const char *nom : {"txt_date_debut", "txt_date_fin"}) {
        e.dialogue.messages.clear();
        e.ecrire(nom, "2009-01-01");
        QCOMPARE(e.dialogue.messages.size(), 1);
        QCOMPARE(e.dialogue.messages[0].texte, refus);
        QCOMPARE(e.dialogue.messages[0].titre, s("Erreur de type"));
        QVERIFY(e.zone(nom)->hasFocus());
        e.ecrire(nom, "1/2/2009");
        QCOMPARE(e.texte(nom), s("01/02/2009"));
        QCOMPARE(e.dialogue.messages.size(), 1);
    }
}

void TestFConcentrationsPCCommandes::combosVerifies()
{
    Essai e;
    QVERIFY(e.pret());
    e.choisir("cmb_code", "04211940");
    e.choisir("cmb_param", "Carbone Organique");
    for (const char *nom : {"cmb_code", "ZC_CODE_USUEL", "cmb_param", "ZC_FRACTION", "cmb_protoc",
                            "cmb_debit", "dbcmb_pluvio"}) {
        e.dialogue.messages.clear();
        ZoneCombo *combo = e.combo(nom);
        const QString code = combo->code();
        combo->setFocus();
        combo->lineEdit()->selectAll();
        QTest::keyClicks(combo, s("zzz"));
        e.controle("chk_quantile")->setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
        QVERIFY2(e.dialogue.messages.size() == 1, nom);
        QCOMPARE(e.dialogue.messages[0].texte, s("Cette valeur n'existe pas dans la liste."));
        QCOMPARE(e.dialogue.messages[0].titre, s("Attention"));
        QVERIFY2(combo->hasFocus(), nom);
        combo->choisir(code);
    }
}

void TestFConcentrationsPCCommandes::stationsLiees()
{
    Essai e;
    e.choisir("cmb_code", "04211940");
    QCOMPARE(e.combo("cmb_debit")->currentText(), s("J7010610"));
    QVERIFY(!e.bouton("opt_debit")->isChecked());
    QCOMPARE(e.ecran->demandeRapport().stationDebit, QString());
    e.bouton("opt_debit")->click();
    QCOMPARE(e.ecran->demandeRapport().stationDebit, s("J7010610"));
    e.choisir("dbcmb_pluvio", "35228001");
    QVERIFY(e.bouton("opt_pluvio")->isChecked());
    QVERIFY(!e.bouton("opt_debit")->isChecked());
    QCOMPARE(e.ecran->demandeRapport().stationDebit, QString());
    e.choisir("cmb_code", "04211950");
    e.choisir("cmb_debit", "J7010610");
    QVERIFY(e.bouton("opt_debit")->isChecked());
}

void TestFConcentrationsPCCommandes::controlesDuRapport()
{
    Essai e;
    QVERIFY(e.pret());
    QCOMPARE(e.refusDuRapport(), s("Le code de la station doit être renseigné"));
    e.choisir("cmb_code", "04211940");
    QCOMPARE(e.refusDuRapport(), s("La période doit être entièrement renseignée"));
    e.ecrire("txt_date_debut", "01/01/2009");
    QCOMPARE(e.refusDuRapport(), s("La période doit être entièrement renseignée"));
    e.ecrire("txt_date_fin", "31/12/2008");
    QCOMPARE(e.refusDuRapport(), s("Un paramètre doit être renseigné"));
    e.choisir("cmb_param", "Nitrates");
    QCOMPARE(e.refusDuRapport(),
             s("Vous devez saisir une date de fin supérieure ou égale à la date de début"));
    QVERIFY(e.dialogue.demandes.isEmpty());
    e.ecrire("txt_date_fin", "01/01/2009");
    e.dialogue.fichiers.enqueue(std::nullopt);
    QCOMPARE(e.refusDuRapport(), s("0 boxes"));
    QCOMPARE(e.dialogue.demandes.size(), 1);
}

void TestFConcentrationsPCCommandes::foyerSurLeChampRefuse()
{
    Essai e;
    QVERIFY(e.pret());
    e.bouton("cmd_rapport")->click();
    QVERIFY(e.combo("cmb_code")->hasFocus());
    e.choisir("cmb_code", "04211940");
    e.bouton("cmd_rapport")->click();
    QVERIFY(e.zone("txt_date_debut")->hasFocus());
    e.ecrire("txt_date_debut", "01/01/2009");
    e.bouton("cmd_rapport")->click();
    QVERIFY(e.zone("txt_date_fin")->hasFocus());
    e.ecrire("txt_date_fin", "01/01/2009");
    e.bouton("cmd_rapport")->click();
    QVERIFY(e.combo("cmb_param")->hasFocus());
}

void TestFConcentrationsPCCommandes::rapportIndisponible()
{
    Essai e;
    e.choisir("cmb_code", "04211940");
    e.bouton("opt_plusieurs_param")->click();
    e.cliquer("lst_param2", "Nitrates");
    QVERIFY(!e.actif("cmd_rapport"));
    QCOMPARE(e.controle("cmd_rapport")->toolTip(), s("Le rapport porte sur un seul paramètre"));
    QVERIFY(!e.actif("cmd_graph_rapport"));
    QCOMPARE(e.controle("cmd_graph_rapport")->toolTip(), s("Le rapport porte sur un seul paramètre"));
    QVERIFY(e.actif("cmd_visualiser"));
}

void TestFConcentrationsPCCommandes::demande()
{
    Essai e;
    QVERIFY(e.pret());
    e.choisirTout();
    const DemandeRapport d = e.ecran->demandeRapport();
    QCOMPARE(d.codeStation, s("04211940"));
    QVERIFY(!d.afficherCodeUsuel);
    QCOMPARE(d.parametre, s("Nitrates"));
    QCOMPARE(d.fraction, QString());
    QCOMPARE(d.debut, QDate(2008, 1, 1));
    QCOMPARE(d.fin, QDate(2009, 12, 31));
    QVERIFY(d.mode == ModeAnnee::Civile);
    QVERIFY(d.gestionnaires.isEmpty() && d.reseaux.isEmpty() && d.commentaires.isEmpty());
    QCOMPARE(d.protocole, QString());
    QCOMPARE(d.seuil, std::nullopt);
    QCOMPARE(d.stationDebit, QString());
}

void TestFConcentrationsPCCommandes::demandeAvecFiltres()
{
    Essai e;
    e.choisir("cmb_code", "04211940");
    e.choisir("cmb_param", "Nitrates");
    e.bouton("chk_AffCodeUsuel")->click();
    e.bouton("opAnneeHydro")->click();
    e.cliquer("lst_gest", "Agence");
    e.cliquer("lst_gest", "Laboratoire");
    e.cliquer("lst_reseau", "Réseau national");
    e.cliquer("lst_comment", "- vide -");
    e.cliquer("lst_comment", "Crue");
    e.choisir("cmb_protoc", "Suivi pluie");
    const DemandeRapport d = e.ecran->demandeRapport();
    QVERIFY(d.afficherCodeUsuel);
    QVERIFY(d.mode == ModeAnnee::Hydrologique);
    QCOMPARE(d.gestionnaires, (QStringList{s("17"), s("18")}));
    QCOMPARE(d.reseaux, QStringList{s("0400000001")});
    QCOMPARE(d.commentaires, (QStringList{QString(), s("Crue")}));
    QCOMPARE(d.protocole, s("Suivi pluie"));
}

void TestFConcentrationsPCCommandes::fichierAnnule()
{
    Essai e;
    QVERIFY(e.pret());
    e.choisirTout();
    e.dialogue.fichiers.enqueue(std::nullopt);
    e.bouton("cmd_rapport")->click();
    QVERIFY(e.dialogue.messages.isEmpty());
    QVERIFY(e.dialogue.documents.isEmpty());
    QCOMPARE(e.dialogue.demandes.size(), 1);
    QCOMPARE(e.dialogue.demandes[0].titre, s("Saisissez le nom du fichier à créer"));
    QVERIFY(e.ecran->isEnabled());
}

void TestFConcentrationsPCCommandes::pendantUnRapport()
{
    Essai e;
    e.session.etatRapport.definir(true);
    QVERIFY(!e.ecran->isEnabled());
    for (const char *nom : {"cmd_rapport", "cmd_visualiser", "cmd_graph_rapport"})
        QVERIFY2(!e.actif(nom), nom);
    QVERIFY(!e.ecran->close());
    e.session.etatRapport.definir(false);
    for (const char *nom : {"cmd_rapport", "cmd_visualiser", "cmd_graph_rapport"})
        QVERIFY2(e.actif(nom), nom);
    QVERIFY(e.ecran->close());
}

void TestFConcentrationsPCCommandes::clavier()
{
    Essai e;
    QVERIFY(e.pret());
    // The station by its code typed, then Enter: the choice is made, and the report's first check speaks.
    ZoneCombo *code = e.combo("cmb_code");
    code->setFocus();
    QTest::keyClicks(code, s("04211940"));
    QTest::keyClick(code, Qt::Key_Return);
    QCOMPARE(e.texte("txt_station"), s("Pont de l'Ile"));
    QCOMPARE(e.dialogue.messages.size(), 1);
    QCOMPARE(e.dialogue.messages[0].texte, s("La période doit être entièrement renseignée"));
    // Letters of labels and buttons.
    const QList<std::pair<Qt::Key, const char *>> lettres = {
        {Qt::Key_U, "ZC_CODE_USUEL"}, {Qt::Key_O, "cmb_code"},  {Qt::Key_D, "txt_date_debut"},
        {Qt::Key_T, "txt_date_fin"},  {Qt::Key_L, "cmb_param"}, {Qt::Key_V, "cmb_protoc"}};
    for (const auto &[lettre, nom] : lettres) {
        QTest::keyClick(e.ecran->focusWidget(), lettre, Qt::AltModifier);
        QVERIFY2(e.controle(nom)->hasFocus(), nom);
    }
    e.dialogue.messages.clear();
    QTest::keyClick(e.ecran->focusWidget(), Qt::Key_R, Qt::AltModifier);
    QTRY_COMPARE(e.dialogue.messages.size(), 1);
    // No letter stands twice on the screen, and every label leads to a field.
    QStringList vues;
    const auto libelles = e.ecran->findChildren<QLabel *>();
    for (const QLabel *libelle : libelles) {
        const qsizetype place = libelle->text().indexOf(u'&');
        if (place < 0 || !libelle->isVisible())
            continue;
        QVERIFY(libelle->buddy());
        const QString lettre = libelle->text().mid(place + 1, 1).toLower();
        QVERIFY2(!vues.contains(lettre), qPrintable(libelle->text()));
        vues << lettre;
    }
    for (const char *lettre : {"r", "g", "e", "f"})
        QVERIFY2(!vues.contains(QString::fromLatin1(lettre)), lettre);
    QTest::keyClick(e.ecran->focusWidget(), Qt::Key_Escape);
    QVERIFY(!e.ecran->isVisible());
}

QTEST_MAIN(TestFConcentrationsPCCommandes)
#include "test_f_concentrations_pc_commandes.moc"
