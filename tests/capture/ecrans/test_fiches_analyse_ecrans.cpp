// The sheets of parameters, actors, networks and SEQ grids: what each adds to what all sheets do.
#include "capture/ecrans/F_Organisme_Preleveur.h"
#include "capture/ecrans/F_Saisie_Gestionnaire.h"
#include "capture/ecrans/F_Saisie_Laboratoire.h"
#include "capture/ecrans/F_Saisie_Methode.h"
#include "capture/ecrans/F_Saisie_Parametre.h"
#include "capture/ecrans/F_Saisie_Reseau.h"
#include "capture/ecrans/F_Saisie_SEQ.h"
#include "capture/ecrans/F_Saisie_Unite.h"
#include "capture/ecrans/FicheDEssai.h"

#include <QLabel>
#include <QListWidget>

class TestFichesAnalyseEcrans : public QObject
{
    Q_OBJECT

    static QStringList lignes(const QListWidget *liste)
    {
        QStringList textes;
        for (int i = 0; i < liste->count(); ++i)
            textes << liste->item(i)->text();
        return textes;
    }
    template <typename Fiche> static QStringList colonne(const FicheDEssai<Fiche> &essai, const char *sql)
    {
        QStringList textes;
        Requete r = essai.base.donnees.executer(s(sql));
        while (r.suivant())
            textes << r.texte(0);
        return textes;
    }
    // Every sheet: a 10 000-character text is refused in words on the way out of the field, and none reaches the engine.
    template <typename Fiche> static void hostile(const QStringList &champs)
    {
        FicheDEssai<Fiche> essai;
        QVERIFY(essai.ouvrir());
        for (const QString &champ : champs) {
            essai.dialogue.messages.clear();
            essai.taper(champ.toUtf8().constData(), QString(10000, u'x'));
            QTRY_VERIFY2(essai.dialogue.messages.size() == 1, qPrintable(champ));
            QVERIFY2(essai.dernierMessage().contains(s("caractères au maximum")) ||
                         essai.dernierMessage().contains(s("que des chiffres")),
                     qPrintable(essai.dernierMessage()));
            essai.cliquer("cmd_annul");
        }
    }

private Q_SLOTS:
    void parametreCharge()
    {
        FicheDEssai<F_Saisie_Parametre> essai;
        essai.base.sql(s("INSERT INTO NORME_AEP VALUES (1, '1340', '23', 50), (2, '1340', '3', 40.5)"));
        QVERIFY(essai.ouvrir());
        QVERIFY(essai.controle("lbl_sans_unite")->isVisible());
        essai.choisir("cmb_code", "1340");
        QCOMPARE(essai.texte("txt_nom"), s("Nitrates"));
        QCOMPARE(essai.texte("cmb_groupe"), s("Physico-chimie / environnement"));
        QCOMPARE(essai.texte("cmb_nature"), s("Chimique"));
        QCOMPARE(essai.texte("cmb_unite"), s("mg(NO3)/L"));
        QVERIFY(!essai.controle("lbl_sans_unite")->isVisible());
        QCOMPARE(lignes(essai.controle<QListWidget>("lst_unite")), QStringList{s("mg/L")});
        QCOMPARE(essai.texte("cmb_fraction"), s("23 - Eau brute"));
        QCOMPARE(essai.texte("txt_norme"), s("50"));
        essai.choisir("cmb_fraction", "3 - Phase aqueuse de l'eau (filtrée, centrifugée...)");
        QCOMPARE(essai.texte("txt_norme"), s("40,5"));
        essai.choisir("cmb_fraction", "0 - Inconnu");
        QCOMPARE(essai.texte("txt_norme"), QString());
        // Looking at norms is not typing.
        essai.cliquer("cmd_fermer");
        QVERIFY(!essai.fiche->isVisible());
        QVERIFY(essai.dialogue.questions.isEmpty());
    }

    void parametreNouveau()
    {
        FicheDEssai<F_Saisie_Parametre> essai;
        QVERIFY(essai.ouvrir());
        essai.taper("txt_code", "9001");
        essai.taper("txt_nom", "Essai");
        essai.choisir("cmb_nature", "Pesticides");
        QCOMPARE(essai.texte("cmb_groupe"), s("Pesticides"));
        essai.choisir("cmb_unite", "µg/L");
        essai.choisir("cmb_unite_import", "mg/L");
        QCOMPARE(essai.texte("cmb_unite_import"), QString());
        essai.choisir("cmb_unite_import", "mg/L");
        QCOMPARE(lignes(essai.controle<QListWidget>("lst_unite")), QStringList{s("mg/L")});
        // A norm that is typed before its fraction is chosen.
        essai.taper("txt_norme", "0,1");
        essai.cliquer("cmd_valider");
        QCOMPARE(essai.dernierMessage(), s("Choisissez la fraction à laquelle s'applique la norme."));
        QVERIFY(essai.controle("cmb_fraction")->hasFocus());
        essai.choisir("cmb_fraction", "23 - Eau brute");
        QCOMPARE(essai.texte("txt_norme"), s("0,1"));
        essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Oui});
        QCOMPARE(colonne(essai, "SELECT CodeGroupeParam || NatureParam || CodeUnite FROM PARAMETRE "
                                "WHERE CodeParam = '9001'"),
                 QStringList{s("PSPesticides133")});
        QCOMPARE(colonne(essai,
                         "SELECT CodeUnite || ':' || ISOVL FROM IMPORT_PAR_URF WHERE CodeParam = '9001' "
                         "ORDER BY rowid"),
                 QStringList({s("133:-1"), s("162:0")}));
        QCOMPARE(colonne(essai, "SELECT CodeParam || CD_FRACTION || ':' || ValeurNorme FROM NORME_AEP"),
                 QStringList{s("900123:0.1")});
        // Emptied, and its new row listed.
        QCOMPARE(lignes(essai.controle<QListWidget>("lst_unite")), QStringList());
        QCOMPARE(essai.texte("txt_norme"), QString());
        QVERIFY(essai.controle<QComboBox>("cmb_code")->findText(s("9001")) >= 0);
    }

    // The former unit of reference stays one in which the parameter may be imported, unless it is taken out.
    void changerDUnite()
    {
        FicheDEssai<F_Saisie_Parametre> essai;
        QVERIFY(essai.ouvrir());
        essai.choisir("cmb_code", "1340");
        essai.choisir("cmb_unite", "mg/L");
        auto *liste = essai.controle<QListWidget>("lst_unite");
        QCOMPARE(lignes(liste), QStringList{s("mg(NO3)/L")});
        QVERIFY(!essai.controle("cmd_retirer_unite")->isEnabled());
        liste->setFocus();
        liste->setCurrentRow(0);
        QTest::keyClick(liste, Qt::Key_Delete);
        QCOMPARE(liste->count(), 0);
        essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Non});
        QCOMPARE(colonne(essai, "SELECT CodeUnite FROM IMPORT_PAR_URF WHERE CodeParam = '1340'"),
                 QStringList{s("162")});
    }

    // The field is emptied: the norm goes. One that is typed over changes. Organic carbon needs no fraction.
    void normes()
    {
        FicheDEssai<F_Saisie_Parametre> essai;
        essai.base.sql(s("INSERT INTO NORME_AEP VALUES (1, '1340', '23', 50), (2, '1340', '3', 40)"));
        QVERIFY(essai.ouvrir());
        essai.choisir("cmb_code", "1340");
        essai.taper("txt_norme", "");
        essai.choisir("cmb_fraction", "3 - Phase aqueuse de l'eau (filtrée, centrifugée...)");
        essai.taper("txt_norme", "45");
        essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Oui});
        QCOMPARE(colonne(essai, "SELECT CD_FRACTION || ':' || ValeurNorme FROM NORME_AEP"),
                 QStringList{s("3:45.0")});
        essai.choisir("cmb_code", "1841");
        essai.taper("txt_norme", "2");
        essai.choisir("cmb_fraction", "23 - Eau brute");
        QCOMPARE(essai.texte("txt_norme"), s("2"));
        essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Non});
        QCOMPARE(colonne(essai, "SELECT coalesce(CD_FRACTION, '-') || ':' || ValeurNorme FROM NORME_AEP "
                                "WHERE CodeParam = '1841'"),
                 QStringList{s("-:2.0")});
    }

    void codeEnChiffres()
    {
        FicheDEssai<F_Saisie_Parametre> essai;
        QVERIFY(essai.ouvrir());
        essai.taper("txt_code", "13A");
        QTRY_COMPARE(essai.dialogue.messages.size(), 1);
        QCOMPARE(essai.dernierMessage(), s("Le code du paramètre ne doit contenir que des chiffres."));
        QCOMPARE(essai.dialogue.messages.last().titre, s("Erreur de type"));
        essai.taper("txt_code", "1302");
        QCOMPARE(essai.texte("txt_nom"), s("Potentiel en Hydrogène (pH)"));
    }

    // Enter in the field that adds a unit adds it, and saves nothing.
    void entreeAjouteLUnite()
    {
        FicheDEssai<F_Saisie_Parametre> essai;
        QVERIFY(essai.ouvrir());
        auto *combo = essai.controle<QComboBox>("cmb_unite_import");
        combo->setFocus();
        QTest::keyClicks(combo, s("mg/L"));
        QTest::keyClick(combo, Qt::Key_Return);
        QCOMPARE(lignes(essai.controle<QListWidget>("lst_unite")), QStringList{s("mg/L")});
        QVERIFY(essai.dialogue.messages.isEmpty());
        QVERIFY(essai.dialogue.questions.isEmpty());
    }

    // An import proposes the unit of its file: what hangs on it follows.
    void uniteProposee()
    {
        FicheDEssai<F_Saisie_Parametre> essai;
        QVERIFY(essai.ouvrir());
        essai.fiche->proposer(s("cmb_unite"), s("mg/L"));
        QVERIFY(!essai.controle("lbl_sans_unite")->isVisible());
        QCOMPARE(essai.texte("lbl_unite_norme"), s("mg/L"));
    }

    void uniteDuParametre()
    {
        FicheDEssai<F_Saisie_Parametre> essai;
        QVERIFY(essai.ouvrir());
        essai.cliquer("cmd_unite");
        QCOMPARE(essai.cadre.ecrans.size(), 1);
        QVERIFY(qobject_cast<F_Saisie_Unite *>(essai.cadre.ecrans.first()));
        essai.base.sql(s("INSERT INTO UNITEREFERENCE VALUES ('900', 'kg/j', '', '')"));
        essai.cadre.ecrans.first()->close();
        essai.choisir("cmb_unite", "kg/j");
        QCOMPARE(essai.texte("lbl_unite_norme"), s("kg/j"));
    }

    // During an import, the unit that the base does not know comes filled with the file's symbol, and is chosen once it is there.
    void uniteInconnueDUnImport()
    {
        FicheDEssai<F_Saisie_Parametre> essai;
        essai.session.importSession.ElementUnite = s("kg/j");
        auto *fiche = FicheReference::ouvrir<F_Saisie_Parametre>(
            essai.session, essai.cadre, nullptr, OrigineSaisie::IMPORT, {}, FicheReference::MODE_IMPORT);
        fiche->proposer(s("cmb_unite"), s("kg/j"));
        auto *unite = fiche->findChild<QComboBox *>(s("cmb_unite"));
        QCOMPARE(unite->currentText(), QString());
        fiche->findChild<QPushButton *>(s("cmd_unite"))->click();
        QCOMPARE(essai.cadre.ecrans.size(), 2);
        QWidget *ficheUnite = essai.cadre.ecrans.last();
        QCOMPARE(ficheUnite->findChild<QLineEdit *>(s("txt_symbole"))->text(), s("kg/j"));
        essai.base.sql(s("INSERT INTO UNITEREFERENCE VALUES ('900', 'kg/j', '', '')"));
        ficheUnite->show();
        QVERIFY(ficheUnite->close());
        QCOMPARE(unite->currentText(), s("kg/j"));
        QVERIFY(essai.dialogue.questions.isEmpty());
    }

    void gestionnaire()
    {
        FicheDEssai<F_Saisie_Gestionnaire> essai;
        essai.base.ajouterPrelevement(s("04211940"), QDate(2009, 3, 1), {}, s("17"));
        essai.base.sql(s("INSERT INTO StationMesureXGest VALUES ('04211940', '17')"));
        QVERIFY(essai.ouvrir());
        QCOMPARE(essai.fiche->windowTitle(), s("Gestionnaire"));
        QCOMPARE(essai.texte("cmd_valider"), s("&Valider"));
        essai.choisir("cmb_code", "17");
        QCOMPARE(essai.texte("cmd_valider"), s("&Modifier"));
        QVERIFY(!essai.controle("lbl_report")->isVisible());
        essai.taper("txt_code", "170");
        QVERIFY(essai.controle("lbl_report")->isVisible());
        QCOMPARE(
            essai.texte("lbl_report"),
            s("1 prélèvement garde l'ancien code (préleveur ou producteur).\nPour le changer aussi : « Gestion "
              "Correspondance Intervenants »."));
        essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Oui});
        QCOMPARE(colonne(essai, "SELECT CodeSandreGest FROM StationMesureXGest"), QStringList{s("170")});
        QCOMPARE(colonne(essai, "SELECT CodeSandreInterv FROM INTERVENANT ORDER BY Code"),
                 QStringList({s("170"), s("18"), s("19")}));
        // A body that is typed, not chosen, carries nothing over.
        essai.taper("txt_code", "171");
        essai.taper("txt_nom", "Autre");
        essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Non});
        QCOMPARE(colonne(essai, "SELECT CodeSandreGest FROM StationMesureXGest"), QStringList{s("170")});
        QCOMPARE(essai.base.compter(s("INTERVENANT")), 4);
        QVERIFY(essai.dialogue.messages.isEmpty());
    }

    void codeDUnAutre()
    {
        FicheDEssai<F_Saisie_Gestionnaire> essai;
        QVERIFY(essai.ouvrir());
        essai.choisir("cmb_code", "17");
        essai.taper("txt_code", "18");
        essai.cliquer("cmd_valider");
        QVERIFY2(essai.dernierMessage().contains(s("18")), qPrintable(essai.dernierMessage()));
        QVERIFY(essai.dialogue.questions.isEmpty());
        QCOMPARE(essai.base.compter(s("INTERVENANT")), 3);
    }

    void intervenant()
    {
        FicheDEssai<F_Saisie_Gestionnaire> essai;
        essai.session.ModeIntervenant = true;
        QVERIFY(essai.ouvrir());
        QCOMPARE(essai.fiche->windowTitle(), s("INTERVENANT"));
        QVERIFY(!essai.session.ModeIntervenant);
        essai.choisir("cmb_code", "17");
        essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Non});
        QCOMPARE(essai.dialogue.questions.last().texte,
                 s("L'enregistrement de l'intervenant a été effectué. Désirez-vous en effectuer un autre?"));
        // A sheet that another screen opens is a manager's.
        essai.session.ModeIntervenant = true;
        const auto *autre = FicheReference::ouvrir<F_Saisie_Gestionnaire>(essai.session, essai.cadre, nullptr,
                                                                          OrigineSaisie::MESURE_PHYSICO, {});
        QCOMPARE(autre->windowTitle(), s("Gestionnaire"));
    }

    void laboratoireEnUsage()
    {
        FicheDEssai<F_Saisie_Laboratoire> essai;
        const qint64 prel = essai.base.ajouterPrelevement(s("04211940"), QDate(2009, 3, 1));
        essai.base.ajouterMesure(prel, s("1340"), 12);
        QVERIFY(essai.ouvrir());
        essai.choisir("cmb_code", "18");
        essai.cliquer("cmd_suppr");
        QCOMPARE(essai.dernierMessage(),
                 s("Le laboratoire « 18 » ne peut pas être supprimé : il est utilisé par 1 "
                   "résultat d'analyse dont il est le laboratoire."));
        essai.taper("txt_code", "88");
        essai.cliquer("cmd_valider");
        QVERIFY(essai.dernierMessage().startsWith(s("Le code « 18 » est utilisé par 1 résultat d'analyse")));
        QVERIFY(essai.dialogue.questions.isEmpty());
    }

    void reseau()
    {
        FicheDEssai<F_Saisie_Reseau> essai;
        QVERIFY(essai.ouvrir());
        essai.taper("cmb_code", "0400000002");
        QCOMPARE(essai.texte("txt_libelle"), s("Réseau d'Armor"));
        essai.cliquer("cmd_annul");
        essai.taper("cmb_code", "N'1");
        essai.taper("txt_libelle", "Réseau %1 ;--");
        essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Non});
        QCOMPARE(colonne(essai, "SELECT LibelleReseau FROM RESEAU_MESURE WHERE CodeReseau = 'N''1'"),
                 QStringList{s("Réseau %1 ;--")});
    }

    void grilleSEQ()
    {
        FicheDEssai<F_Saisie_SEQ> essai;
        essai.base.sql(s("INSERT INTO GRILLE_SEQ VALUES (1, '1340', 2, 10, 25, 50, 18, NULL)"));
        QVERIFY(essai.ouvrir());
        essai.choisir("cmb_param", "Nitrates"); // it has a grid: it is shown
        QCOMPARE(essai.texte("cmb_code"), s("1340"));
        QCOMPARE(essai.texte("txt_valeur4"), s("50"));
        QCOMPARE(essai.texte("lbl_unite1"), s("mg(NO3)/L"));
        essai.taper("txt_valeur2", "");
        essai.cliquer("cmd_valider");
        QCOMPARE(essai.dernierMessage(), s("Les valeurs de la grille doivent être renseignées. "));
        QVERIFY(essai.controle("txt_valeur2")->hasFocus());
        essai.taper("txt_valeur2", "26");
        essai.cliquer("cmd_valider");
        QCOMPARE(essai.dernierMessage(),
                 s("Les valeurs de la grille doivent être dans l'ordre croissant en allant "
                   "du BLEU vers le ROUGE. "));
        QVERIFY(essai.controle("txt_valeur3")->hasFocus());
        essai.taper("txt_valeur2", "12,5");
        essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Oui});
        QCOMPARE(colonne(essai, "SELECT Valeur2SEQ || ' ' || Valeur3BisSEQ FROM GRILLE_SEQ"),
                 QStringList{s("12.5 18.0")});
        // A new grid.
        essai.choisir("cmb_param", "Glyphosate");
        QCOMPARE(essai.texte("txt_valeur1"), QString());
        for (const auto &[champ, valeur] : {std::pair("txt_valeur1", "0.1"),
                                            {"txt_valeur2", "0.7"},
                                            {"txt_valeur3", "1.4"},
                                            {"txt_valeur4", "2"}})
            essai.taper(champ, valeur);
        essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Oui});
        QCOMPARE(essai.base.compter(s("GRILLE_SEQ")), 2);
        essai.choisir("cmb_code", "1506");
        essai.cliquer("cmd_suppr", {Reponse::Oui});
        QCOMPARE(essai.base.compter(s("GRILLE_SEQ")), 1);
    }

    // The list of the grids' parameters knows a parameter that was typed meanwhile.
    void parametreDeLaGrille()
    {
        FicheDEssai<F_Saisie_SEQ> essai;
        QVERIFY(essai.ouvrir());
        essai.cliquer("cmd_param");
        QVERIFY(qobject_cast<F_Saisie_Parametre *>(essai.cadre.ecrans.value(0)));
        essai.base.sql(
            s("INSERT INTO PARAMETRE (CodeParam, NomParam, CodeUnite) VALUES ('9001', 'Neuf', '162')"));
        essai.cadre.ecrans.first()->close();
        essai.choisir("cmb_param", "Neuf");
        QCOMPARE(essai.texte("lbl_unite4"), s("mg/L"));
    }

    // Numbers that no measure has are refused in words, on both sheets that hold some.
    void nombresDemesures()
    {
        const QString immense(20, u'9');
        FicheDEssai<F_Saisie_SEQ> grille;
        QVERIFY(grille.ouvrir());
        grille.choisir("cmb_param", "Nitrates");
        for (const char *champ : {"txt_valeur1", "txt_valeur2", "txt_valeur3", "txt_valeur4"})
            grille.taper(champ, immense);
        grille.cliquer("cmd_valider");
        QCOMPARE(grille.dernierMessage(), s("La valeur du bleu est une valeur trop grande."));
        FicheDEssai<F_Saisie_Parametre> parametre;
        QVERIFY(parametre.ouvrir());
        parametre.choisir("cmb_code", "1340");
        parametre.choisir("cmb_fraction", "23 - Eau brute");
        parametre.taper("txt_norme", immense);
        parametre.cliquer("cmd_valider");
        QCOMPARE(parametre.dernierMessage(), s("La norme est une valeur trop grande."));
        QCOMPARE(grille.base.compter(s("GRILLE_SEQ")) + parametre.base.compter(s("NORME_AEP")), 0);
        QVERIFY(grille.dialogue.questions.isEmpty() && parametre.dialogue.questions.isEmpty());
    }

    void textesTropLongs()
    {
        hostile<F_Saisie_Unite>({s("txt_code"), s("txt_symbole"), s("txt_libelle"), s("cmb_statut")});
        hostile<F_Saisie_Reseau>({s("cmb_code"), s("txt_libelle"), s("txt_finalite")});
        hostile<F_Saisie_Methode>({s("txt_code"), s("txt_nom"), s("txt_comm")});
        hostile<F_Saisie_Parametre>({s("txt_code"), s("txt_nom"), s("cmb_statut"), s("txt_comm")});
        hostile<F_Saisie_Gestionnaire>({s("txt_code"), s("txt_nom"), s("txt_libellesandre"), s("cmb_statut"),
                                        s("txt_rue"), s("txt_cp"), s("txt_ville"), s("txt_departpays"),
                                        s("txt_comm")});
        hostile<F_Organisme_Preleveur>({s("txt_code"), s("txt_nom"), s("txt_libellesandre"), s("cmb_statut"),
                                        s("txt_rue"), s("txt_cp"), s("txt_ville"), s("txt_comm")});
    }
};

QTEST_MAIN(TestFichesAnalyseEcrans)
#include "test_fiches_analyse_ecrans.moc"
