// The tab "Flux": its lists, what it refuses, and the request that it makes.
#include "analysis/ecrans/OngletFlux.h"
#include "EcranConcentrations.h"

#include <QLabel>
#include <QTabWidget>

namespace
{
const auto PERIODE = "Une période doit être renseignée";

// The screen on its second tab.
struct EssaiOnglet : Essai {
    EssaiOnglet() { trouver<QTabWidget>("SSTab_PC")->setCurrentIndex(1); }

    DemandeFlux demande() const { return trouver<OngletFlux>("onglet_flux")->demande(); }
    void stations() const { choisir("cmb_code_flux", "04211940"); }
    // Presses the button and gives the only box that came of it.
    QString refus()
    {
        dialogue.messages.clear();
        bouton("cmd_visual_flux")->click();
        if (dialogue.messages.size() != 1 || dialogue.messages[0].titre != QLatin1String("Attention"))
            return QStringLiteral("%1 boxes").arg(dialogue.messages.size());
        return dialogue.messages[0].texte;
    }
    // Presses the button; the file dialog is cancelled.
    void lancer()
    {
        dialogue.messages.clear();
        dialogue.fichiers.enqueue(std::nullopt);
        bouton("cmd_visual_flux")->click();
    }
};
} // namespace

class TestOngletFlux : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ouverture()
    {
        EssaiOnglet e;
        QVERIFY(e.pret());
        QCOMPARE(e.texte("txt_param_flux"), s("Nitrates"));
        QVERIFY(e.zone("txt_param_flux")->isReadOnly());
        QVERIFY(e.bouton("opAnCivil")->isChecked());
        const QList<std::pair<const char *, const char *>> legendes = {
            {"chk_flux_mensuel", "Flux mensuel du "},
            {"chk_flux_annuel", "Flux annuel de"},
            {"chk_flux_cumul", "Flux mensuel cumulé du"},
            {"chk_flux_volume", "Flux mensuel cumulé / Volume "},
            {"cmd_fermer_flux", "&Fermer"}};
        for (const auto &[nom, legende] : legendes)
            QCOMPARE(e.bouton(nom)->text(), s(legende));
        for (const char *nom : {"lbl_format_mois", "lbl_format_cumul"})
            QCOMPARE(e.trouver<QLabel>(nom)->text(), s("Format de date (mm/aaaa) "));
        QCOMPARE(e.trouver<QLabel>("lbl_format_annee")->text(), s("Format de date (aaaa) "));
        QCOMPARE(e.trouver<QLabel>("lbl_mesures")->text(), s("Mesures de débits liées (l/s) :"));
        for (const char *nom : {"frm_flux",
                                "frm_elements_flux",
                                "cmb_station_flux",
                                "cmb_code_flux",
                                "cmb_mesures",
                                "opAnCivil",
                                "opAnHydro",
                                "txt_mois_debut",
                                "txt_mois_fin",
                                "chk_mois_specifique",
                                "txt_annee_debut",
                                "txt_annee_fin",
                                "chk_annee_specifique",
                                "txt_cumul_debut",
                                "txt_cumul_fin",
                                "chk_cumul_specifique",
                                "lst_reseau2",
                                "lst_gest2",
                                "cmb_protoc2",
                                "cmd_visual_flux",
                                "cmd_fermer_flux"}) {
            QVERIFY2(e.visible(nom), nom);
            QVERIFY2(e.actif(nom), nom);
        }
        e.bouton("cmd_fermer_flux")->click();
        QVERIFY(!e.ecran->isVisible());
        QVERIFY(e.dialogue.messages.isEmpty());
    }

    // The code and the name follow each other, and bring the linked flow station and the station's own filters.
    void stations()
    {
        EssaiOnglet e;
        QCOMPARE(e.rangees("cmb_code_flux"), (QStringList{"04211940", "04211950"}));
        QCOMPARE(e.rangees("cmb_station_flux"), (QStringList{"Pont de l'Ile", s("Moulin à papier")}));
        QCOMPARE(e.rangees("cmb_mesures"), QStringList{s("Le Meu à Quédillac")});
        QCOMPARE(e.rangees("lst_reseau2").size(), 2);
        e.choisir("cmb_code_flux", "04211940");
        QCOMPARE(e.combo("cmb_station_flux")->texte(), s("Pont de l'Ile"));
        QCOMPARE(e.combo("cmb_mesures")->code(), s("J7010610"));
        QCOMPARE(e.rangees("lst_reseau2"), QStringList{s("Réseau national")});
        // Nitrates of one day; no flow.
        QCOMPARE(e.trouver<QLabel>("lbl_donnees_flux")->text(),
                 s("Nitrates : du 01/03/2008 au 01/03/2008\nDébits : aucune donnée"));
        e.choisir("cmb_station_flux", "Moulin à papier");
        QCOMPARE(e.combo("cmb_code_flux")->code(), s("04211950"));
        QCOMPARE(e.combo("cmb_mesures")->code(), QString()); // no linked station
        QCOMPARE(e.rangees("lst_gest2"), QStringList{s("Préleveur de l'Ouest")});
    }

    void refus()
    {
        EssaiOnglet e;
        QVERIFY(e.pret());
        const QString deuxStations = s("Les deux stations doivent être renseignées.");
        QCOMPARE(e.refus(), deuxStations);
        QVERIFY(e.combo("cmb_code_flux")->hasFocus());
        e.choisir("cmb_code_flux", "04211950");
        QCOMPARE(e.refus(), deuxStations);
        QVERIFY(e.combo("cmb_mesures")->hasFocus());
        e.choisir("cmb_mesures", "Le Meu à Quédillac");
        QCOMPARE(e.refus(), s(PERIODE)); // nothing asked for
        e.bouton("chk_flux_mensuel")->click();
        QCOMPARE(e.refus(), s(PERIODE));
        QVERIFY(e.zone("txt_mois_debut")->hasFocus());
        e.ecrire("txt_mois_debut", "03/2009");
        QCOMPARE(e.refus(), s(PERIODE));
        QVERIFY(e.zone("txt_mois_fin")->hasFocus());
        e.ecrire("txt_mois_fin", "02/2009");
        QCOMPARE(e.refus(), s("Vous devez saisir une date de fin supérieure ou égale à la date de début"));
        e.ecrire("txt_mois_fin", "02/9999");
        QVERIFY(e.refus().startsWith(s("La période est trop longue")));
        QVERIFY(e.dialogue.demandes.isEmpty());
        e.ecrire("txt_mois_fin", "03/2009");
        e.lancer();
        QVERIFY(e.dialogue.messages.isEmpty());
        QCOMPARE(e.dialogue.demandes.size(), 1);
        // A second kind without its dates is refused too.
        e.bouton("chk_flux_annuel")->click();
        QCOMPARE(e.refus(), s(PERIODE));
        QVERIFY(e.zone("txt_annee_debut")->hasFocus());
        e.bouton("chk_flux_annuel")->click();
        // The per-volume flux has the dates of the cumulated one.
        e.bouton("chk_flux_volume")->click();
        QCOMPARE(e.refus(), s(PERIODE));
        QVERIFY(e.zone("txt_cumul_debut")->hasFocus());
    }

    void formats_data()
    {
        QTest::addColumn<QString>("zone");
        QTest::addColumn<QString>("texte");
        QTest::addColumn<QString>("forme");
        for (const char *zone : {"txt_mois_debut", "txt_mois_fin", "txt_cumul_debut", "txt_cumul_fin"}) {
            for (const char *texte : {"13/2009", "00/2009", "1/2009", "2009-01", "01/200"})
                QTest::addRow("%s %s", zone, texte) << zone << texte << "mm/aaaa";
        }
        for (const char *zone : {"txt_annee_debut", "txt_annee_fin"}) {
            for (const char *texte : {"20", "200a", "0999", "-200"})
                QTest::addRow("%s %s", zone, texte) << zone << texte << "aaaa";
        }
    }

    void formats()
    {
        QFETCH(QString, zone);
        QFETCH(QString, texte);
        QFETCH(QString, forme);
        EssaiOnglet e;
        QVERIFY(e.pret());
        e.ecrire(qPrintable(zone), qPrintable(texte));
        QCOMPARE(e.dialogue.messages.size(), 1);
        QCOMPARE(e.dialogue.messages[0].texte,
                 QStringLiteral("La date n'est pas au format adapté : \"%1\".").arg(forme));
        QCOMPARE(e.dialogue.messages[0].titre, s("Erreur de type"));
        QVERIFY(e.zone(qPrintable(zone))->hasFocus());
        // Nothing starts over a wrong field.
        e.stations();
        e.dialogue.messages.clear();
        e.bouton("cmd_visual_flux")->click();
        QCOMPARE(e.dialogue.messages.size(), 1);
        QCOMPARE(e.dialogue.messages[0].titre, s("Erreur de type"));
        QVERIFY(e.dialogue.demandes.isEmpty());
    }

    void formesPrises()
    {
        EssaiOnglet e;
        QVERIFY(e.pret());
        e.ecrire("txt_mois_debut", "03/09");
        QCOMPARE(e.texte("txt_mois_debut"), s("03/2009"));
        e.ecrire("txt_annee_debut", "2009");
        QCOMPARE(e.texte("txt_annee_debut"), s("2009"));
        QVERIFY(e.dialogue.messages.isEmpty());
        // Dates typed beside a box choose it.
        QVERIFY(e.bouton("chk_flux_mensuel")->isChecked());
        QVERIFY(e.bouton("chk_flux_annuel")->isChecked());
        QVERIFY(!e.bouton("chk_flux_cumul")->isChecked());
        // Those that the per-volume flux takes choose nothing more.
        e.bouton("chk_flux_volume")->click();
        e.ecrire("txt_cumul_debut", "03/2009");
        QVERIFY(!e.bouton("chk_flux_cumul")->isChecked());
    }

    void demande()
    {
        EssaiOnglet e;
        QVERIFY(e.pret());
        e.stations();
        e.bouton("opAnHydro")->click();
        e.ecrire("txt_mois_debut", "01/2008");
        e.ecrire("txt_mois_fin", "12/2008");
        e.ecrire("txt_annee_debut", "2008");
        e.ecrire("txt_annee_fin", "2009");
        e.bouton("chk_annee_specifique")->click();
        e.ecrire("txt_cumul_debut", "02/2008");
        e.ecrire("txt_cumul_fin", "02/2008");
        e.bouton("chk_cumul_specifique")->click();
        e.bouton("chk_flux_volume")->click();
        e.cliquer("lst_gest2", "Agence");
        e.cliquer("lst_reseau2", "Réseau national");
        e.choisir("cmb_protoc2", "Suivi pluie");
        const DemandeFlux d = e.demande();
        QCOMPARE(d.codeStation, s("04211940"));
        QCOMPARE(d.codeDebit, s("J7010610"));
        QCOMPARE(d.codeParametre, s("1340"));
        QCOMPARE(d.parametre, s("Nitrates"));
        QCOMPARE(d.mode, ModeAnnee::Hydrologique);
        const BornesFlux fevrier{QDate(2008, 2, 1), QDate(2008, 3, 1)};
        QCOMPARE(d.flux,
                 (QList<FluxDemande>{{GenreFlux::Mensuel, {QDate(2008, 1, 1), QDate(2009, 1, 1)}, false},
                                     {GenreFlux::Annuel, {QDate(2008, 10, 1), QDate(2010, 10, 1)}, true},
                                     {GenreFlux::Cumule, fevrier, true},
                                     {GenreFlux::ParVolume, fevrier, false}}));
        QCOMPARE(d.gestionnaires, QStringList{"17"});
        QCOMPARE(d.reseaux, QStringList{"0400000001"});
        QCOMPARE(d.protocole, s("Suivi pluie"));
    }

    void surfaceNulle_data()
    {
        QTest::addColumn<QVariant>("surface");
        QTest::newRow("null") << QVariant();
        QTest::newRow("zero") << QVariant(0.0);
    }

    void surfaceNulle()
    {
        QFETCH(QVariant, surface);
        EssaiOnglet e;
        QVERIFY(e.pret());
        e.base.sql("UPDATE STATION_HYDRO SET SurfReelStationHM = ?", {surface});
        e.stations();
        e.ecrire("txt_mois_debut", "01/2008");
        e.ecrire("txt_mois_fin", "12/2008");
        e.lancer();
        QVERIFY(e.dialogue.questions.isEmpty()); // no specific flux is asked for
        QCOMPARE(e.dialogue.demandes.size(), 1);

        e.bouton("chk_mois_specifique")->click();
        e.dialogue.fichiers.clear();
        e.dialogue.reponses.enqueue(Reponse::Non);
        e.bouton("cmd_visual_flux")->click();
        QCOMPARE(e.dialogue.questions.size(), 1);
        QCOMPARE(e.dialogue.questions[0].texte,
                 s("Attention le calcul des flux spécifiques ne pourra se faire car la surface de la station "
                   "hydrométrique est nulle. "));
        QCOMPARE(e.dialogue.questions[0].choix, (QList<Reponse>{Reponse::Oui, Reponse::Non}));
        QCOMPARE(e.dialogue.demandes.size(), 1); // no ends the command

        // Yes goes on with the other fluxes, where there is one.
        e.dialogue.reponses.enqueue(Reponse::Oui);
        QVERIFY(e.refus().startsWith(s("Aucun autre flux n'est demandé")));
        QCOMPARE(e.dialogue.demandes.size(), 1);
        e.ecrire("txt_annee_debut", "2008");
        e.ecrire("txt_annee_fin", "2008");
        e.dialogue.reponses.enqueue(Reponse::Oui);
        e.lancer();
        QVERIFY(e.dialogue.messages.isEmpty());
        QCOMPARE(e.dialogue.demandes.size(), 2);
    }

    // With an area nothing is asked.
    void specifique()
    {
        EssaiOnglet e;
        QVERIFY(e.pret());
        e.stations();
        e.ecrire("txt_mois_debut", "01/2008");
        e.ecrire("txt_mois_fin", "12/2008");
        e.bouton("chk_mois_specifique")->click();
        e.lancer();
        QVERIFY(e.dialogue.questions.isEmpty());
        QCOMPARE(e.dialogue.demandes.size(), 1);
        QCOMPARE(e.dialogue.demandes[0].titre, s("Saisissez le nom du fichier à créer"));
    }

    void clavier()
    {
        EssaiOnglet e;
        QVERIFY(e.pret());
        e.zone("txt_mois_debut")->setFocus();
        QTest::keyClick(e.zone("txt_mois_debut"), Qt::Key_Return);
        QCOMPARE(e.dialogue.messages.size(), 1);
        QCOMPARE(e.dialogue.messages[0].texte, s("Les deux stations doivent être renseignées."));
        // A button that has the focus is the one that Enter presses.
        e.dialogue.messages.clear();
        e.bouton("cmd_fermer_flux")->setFocus();
        QTest::keyClick(e.bouton("cmd_fermer_flux"), Qt::Key_Return);
        QVERIFY(e.dialogue.messages.isEmpty());
        QVERIFY(!e.ecran->isVisible());
    }

    void echappement()
    {
        EssaiOnglet e;
        QVERIFY(e.pret());
        e.zone("txt_mois_debut")->setFocus();
        QTest::keyClick(e.zone("txt_mois_debut"), Qt::Key_Escape);
        QVERIFY(!e.ecran->isVisible());
    }
};

QTEST_MAIN(TestOngletFlux)
#include "test_onglet_flux.moc"
