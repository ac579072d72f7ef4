// The buttons of the evolution charts: what they check, in which order, and what they ask for.
#include "EcranConcentrations.h"

class TestFConcentrationsPCEvolution : public QObject
{
    Q_OBJECT

    // Presses a button and gives the only box that came of it.
    static QString refus(Essai &e, const char *bouton)
    {
        e.dialogue.messages.clear();
        e.bouton(bouton)->click();
        if (e.dialogue.messages.size() != 1)
            return QStringLiteral("%1 boxes").arg(e.dialogue.messages.size());
        if (e.dialogue.messages[0].titre != QLatin1String("Attention"))
            return e.dialogue.messages[0].titre;
        return e.dialogue.messages[0].texte;
    }
    static void cocher(Essai &e, std::initializer_list<const char *> boites)
    {
        for (const char *boite : boites) {
            QVERIFY2(e.actif(boite), boite);
            e.bouton(boite)->click();
        }
    }

private Q_SLOTS:
    void controlesDuGraphique()
    {
        Essai e;
        QVERIFY(e.pret());
        const char *const bouton = "cmd_visualiser";
        QCOMPARE(refus(e, bouton), s("Le code de la station doit être renseigné"));
        e.choisir("cmb_code", "04211940");
        e.ecrire("txt_date_fin", "31/12/2008");
        QCOMPARE(refus(e, bouton), s("La période doit être entièrement renseignée"));
        e.ecrire("txt_date_debut", "01/01/2009");
        QCOMPARE(refus(e, bouton), s("Un choix entre un ou deux paramètre(s) doit être renseigné"));
        e.bouton("opt_plusieurs_param")->click();
        QCOMPARE(refus(e, bouton), s("Un paramètre doit être renseigné"));
        e.bouton("opt_un_param")->click();
        QCOMPARE(refus(e, bouton), s("Un paramètre doit être renseigné"));
        e.choisir("cmb_param", "Nitrates");
        e.bouton("CB_ECHELLE_MAX")->click();
        QCOMPARE(refus(e, bouton),
                 s("Vous devez saisir une date de fin supérieure ou égale à la date de début"));
        e.ecrire("txt_date_fin", "01/01/2009");
        QCOMPARE(refus(e, bouton), s("Vous devez saisir une valeur pour l'échelle maximale"));
        QVERIFY(e.zone("ZE_ECHELLE_MAX")->hasFocus());
        e.ecrire("ZE_ECHELLE_MAX", "dix");
        QCOMPARE(refus(e, bouton), s("La saisie du nombre est incorrecte"));
        QVERIFY(e.dialogue.demandes.isEmpty());
        e.ecrire("ZE_ECHELLE_MAX", "10,5");
        e.dialogue.fichiers.enqueue(std::nullopt);
        QCOMPARE(refus(e, bouton), s("0 boxes"));
        QCOMPARE(e.dialogue.demandes.size(), 1);
        QCOMPARE(e.dialogue.demandes[0].titre, s("Saisissez le nom du fichier à créer"));
    }

    // The report's checks, then those of the scale.
    void controlesDuGraphiqueEtRapport()
    {
        Essai e;
        QVERIFY(e.pret());
        const char *const bouton = "cmd_graph_rapport";
        QCOMPARE(refus(e, bouton), s("Le code de la station doit être renseigné"));
        e.choisir("cmb_code", "04211940");
        QCOMPARE(refus(e, bouton), s("La période doit être entièrement renseignée"));
        e.ecrire("txt_date_debut", "01/01/2009");
        e.ecrire("txt_date_fin", "31/12/2008");
        QCOMPARE(refus(e, bouton), s("Un paramètre doit être renseigné"));
        e.choisir("cmb_param", "Nitrates");
        e.bouton("CB_ECHELLE_MAX")->click();
        QCOMPARE(refus(e, bouton),
                 s("Vous devez saisir une date de fin supérieure ou égale à la date de début"));
        e.ecrire("txt_date_fin", "31/12/2009");
        QCOMPARE(refus(e, bouton), s("Vous devez saisir une valeur pour l'échelle maximale"));
        e.ecrire("ZE_ECHELLE_MAX", "1e3");
        QCOMPARE(refus(e, bouton), s("La saisie du nombre est incorrecte"));
        e.bouton("CB_ECHELLE_MAX")->click();
        e.dialogue.fichiers.enqueue(std::nullopt);
        QCOMPARE(refus(e, bouton), s("0 boxes"));
        QCOMPARE(e.dialogue.demandes.size(), 1);
        // Two parameters have no report.
        e.bouton("opt_plusieurs_param")->click();
        QVERIFY(!e.actif(bouton));
        QCOMPARE(e.controle(bouton)->toolTip(), s("Le rapport porte sur un seul paramètre"));
    }

    void demandeNue()
    {
        Essai e;
        QVERIFY(e.pret());
        e.choisirTout();
        const DemandeEvolution d = e.ecran->demandeEvolution();
        QCOMPARE(d.selection.codeStation, s("04211940"));
        QCOMPARE(d.selection.debut, QDate(2008, 1, 1));
        QCOMPARE(d.courbes, QList<CourbeDemandee>({{s("Nitrates"), {}}}));
        QVERIFY(!d.fondSEQ && !d.norme && !d.quantile && !d.frequenceMoyen && !d.frequenceMaximal);
        QVERIFY(!d.objectifMoyen && !d.objectifMaximal && !d.valeurSeuil && !d.echelleMaximale);
        QVERIFY(d.intituleSeuil.isEmpty() && d.stationPluie.isEmpty());
        QVERIFY(d.nomsGestionnaires.isEmpty() && d.nomsReseaux.isEmpty());
    }

    void toutCoche()
    {
        Essai e;
        QVERIFY(e.pret());
        e.choisirTout();
        cocher(e, {"chk_obj_moyen", "chk_freq_depass1", "chk_obj_max", "chk_freq_depass2", "chk_seq",
                   "chk_normes_eaux_brutes", "chk_quantile", "chk_seuil", "CB_ECHELLE_MAX", "opt_debit"});
        e.ecrire("txt_seuil", "Seuil local ");
        e.ecrire("txt_valeur", "18.5");
        e.ecrire("ZE_ECHELLE_MAX", "60");
        e.cliquer("lst_gest", "Agence");
        e.cliquer("lst_reseau", "Réseau national");
        DemandeEvolution d = e.ecran->demandeEvolution();
        QVERIFY(d.fondSEQ && d.norme && d.quantile && d.frequenceMoyen && d.frequenceMaximal);
        QCOMPARE(d.objectifMoyen, std::optional(25.0));
        QCOMPARE(d.objectifMaximal, std::optional(37.5));
        QCOMPARE(d.intituleSeuil, s("Seuil local"));
        QCOMPARE(d.valeurSeuil, std::optional(18.5));
        QCOMPARE(d.echelleMaximale, std::optional(60.0));
        QCOMPARE(d.selection.stationDebit, s("J7010610"));
        QCOMPARE(d.selection.gestionnaires, QStringList{s("17")});
        QCOMPARE(d.nomsGestionnaires, QStringList{s("Agence de l'eau")});
        QCOMPARE(d.nomsReseaux, QStringList{s("Réseau national")});
        e.choisir("dbcmb_pluvio", "35228001");
        d = e.ecran->demandeEvolution();
        QCOMPARE(d.stationPluie, s("35228001"));
        QCOMPARE(d.selection.stationDebit, QString());
        // What is unticked is asked for no more, its frequency neither.
        cocher(e, {"chk_obj_moyen"});
        d = e.ecran->demandeEvolution();
        QVERIFY(!d.objectifMoyen && !d.frequenceMoyen);
        // Two curves take none of what belongs to one.
        e.bouton("opt_plusieurs_param")->click();
        e.cliquer("lst_param2", "Nitrates");
        d = e.ecran->demandeEvolution();
        QVERIFY(!d.fondSEQ && !d.norme && !d.quantile && !d.objectifMaximal && !d.frequenceMaximal);
    }

    void unCarboneEtSaFraction()
    {
        Essai e;
        QVERIFY(e.pret());
        e.choisirTout();
        e.choisir("cmb_param", "Carbone Organique");
        QCOMPARE(e.ecran->demandeEvolution().courbes, QList<CourbeDemandee>({{s("Carbone Organique"), {}}}));
        e.choisir("ZC_FRACTION", "23 - Eau brute");
        QCOMPARE(e.ecran->demandeEvolution().courbes,
                 QList<CourbeDemandee>({{s("Carbone Organique"), s("23 - Eau brute")}}));
    }

    // Two parameters; carbon beside another one, with its fraction or without; carbon in two fractions.
    void deuxCourbes()
    {
        Essai e;
        QVERIFY(e.pret());
        e.choisirTout();
        e.bouton("opt_plusieurs_param")->click();
        e.cliquer("lst_param2", "Nitrates");
        QCOMPARE(e.ecran->demandeEvolution().courbes, QList<CourbeDemandee>({{s("Nitrates"), {}}}));
        e.cliquer("lst_param2", "Carbone");
        QCOMPARE(e.ecran->demandeEvolution().courbes,
                 QList<CourbeDemandee>({{s("Carbone Organique"), {}}, {s("Nitrates"), {}}}));
        e.cliquer("ZL_FRACTION", "23");
        QCOMPARE(e.ecran->demandeEvolution().courbes,
                 QList<CourbeDemandee>({{s("Carbone Organique"), s("23 - Eau brute")}, {s("Nitrates"), {}}}));
        e.cliquer("lst_param2", "Nitrates");
        e.cliquer("ZL_FRACTION", "3");
        const QString aqueuse = s("3 - Phase aqueuse de l'eau (filtrée, centrifugée...)");
        QCOMPARE(e.ecran->demandeEvolution().courbes,
                 QList<CourbeDemandee>(
                     {{s("Carbone Organique"), s("23 - Eau brute")}, {s("Carbone Organique"), aqueuse}}));
        QVERIFY(e.dialogue.messages.isEmpty());
    }
};

QTEST_MAIN(TestFConcentrationsPCEvolution)
#include "test_f_concentrations_pc_evolution.moc"
