// What all reference sheets do, tried on the sheet of a commune.
#include "capture/ecrans/F_Saisie_Commune.h"
#include "capture/ecrans/F_Saisie_Departement.h"
#include "capture/ecrans/FicheDEssai.h"

#include <QSignalSpy>

class TestFicheReference : public QObject
{
    Q_OBJECT
    using Essai = FicheDEssai<F_Saisie_Commune>;

private Q_SLOTS:
    void ouverture()
    {
        Essai essai;
        QVERIFY(essai.ouvrir());
        QCOMPARE(essai.controle<QComboBox>("cmb_code")->count(), 2);
        QCOMPARE(essai.texte("cmb_code"), QString());
        QVERIFY(!essai.controle("cmd_suppr")->isEnabled());
        QVERIFY(!essai.controle("cmd_suppr")->toolTip().isEmpty());
        QVERIFY(essai.controle("cmd_valider")->isEnabled());
    }

    void choixDUneCle()
    {
        Essai essai;
        QVERIFY(essai.ouvrir());
        essai.choisir("cmb_code", "35228");
        QCOMPARE(essai.texte("txt_code"), s("35228"));
        QCOMPARE(essai.texte("txt_nom"), s("Quédillac"));
        QCOMPARE(essai.texte("cmb_departement"), s("Ille-et-Vilaine"));
        QVERIFY(essai.controle("cmd_suppr")->isEnabled());
        QVERIFY(essai.dialogue.imprevus.isEmpty());
    }

    // A key that is there loads its row; one that is not begins a new one and keeps what is typed.
    void cleTapee()
    {
        Essai essai;
        QVERIFY(essai.ouvrir());
        essai.taper("txt_code", "22278");
        QCOMPARE(essai.texte("txt_nom"), s("Saint-Brieuc"));
        QCOMPARE(essai.texte("cmb_code"), s("22278"));
        essai.taper("txt_code", "22279");
        QCOMPARE(essai.texte("txt_nom"), s("Saint-Brieuc"));
        QVERIFY(!essai.controle("cmd_suppr")->isEnabled());
    }

    // Enter at the end of a key shows its row; a second one saves.
    void entreeSurUneCle()
    {
        for (const char *champ : {"txt_code", "cmb_code"}) {
            Essai essai;
            QVERIFY(essai.ouvrir());
            QWidget *widget = essai.controle(champ);
            if (auto *combo = qobject_cast<QComboBox *>(widget))
                widget = combo->lineEdit();
            widget->setFocus();
            QTest::keyClicks(widget, s("22278"));
            QTest::keyClick(widget, Qt::Key_Return);
            QCoreApplication::processEvents();
            QCOMPARE(essai.texte("txt_nom"), s("Saint-Brieuc"));
            QVERIFY(essai.dialogue.questions.isEmpty());
            essai.repondre({Reponse::Non});
            QTest::keyClick(essai.controle("txt_nom"), Qt::Key_Return);
            QCOMPARE(essai.dialogue.questions.size(), 1);
        }
    }

    void enregistrerUneAutre()
    {
        Essai essai;
        QVERIFY(essai.ouvrir());
        QSignalSpy enregistree(essai.fiche.get(), &FicheReference::enregistree);
        essai.taper("txt_code", "22001");
        essai.taper("txt_nom", "Allineuc");
        essai.choisir("cmb_departement", "Côtes-d'Armor");
        essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Oui});
        QVERIFY(essai.dialogue.messages.isEmpty());
        QCOMPARE(enregistree.size(), 1);
        QVERIFY(essai.fiche->isVisible());
        QCOMPARE(essai.texte("txt_code"), QString());
        QCOMPARE(essai.texte("cmb_departement"), QString());
        // The new row is listed.
        QCOMPARE(essai.controle<QComboBox>("cmb_code")->count(), 3);
        QVERIFY(essai.controle<QComboBox>("cmb_code")->findText(s("22001")) >= 0);
        QCOMPARE(essai.base.valeur(s("SELECT NumDepartement FROM COMMUNE WHERE NumCommune = '22001'")),
                 QVariant(s("22")));
    }

    void enregistrerEtFermer()
    {
        Essai essai;
        QVERIFY(essai.ouvrir());
        QSignalSpy fermee(essai.fiche.get(), &FicheReference::fermee);
        essai.taper("txt_code", "22001");
        essai.taper("txt_nom", "Allineuc");
        essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Non});
        QVERIFY(!essai.fiche->isVisible());
        QCOMPARE(fermee.size(), 1);
        QVERIFY(essai.dialogue.imprevus.isEmpty());
    }

    void refusDeConfirmer()
    {
        Essai essai;
        QVERIFY(essai.ouvrir());
        essai.taper("txt_code", "22001");
        essai.taper("txt_nom", "Allineuc");
        essai.cliquer("cmd_valider", {Reponse::Non});
        QCOMPARE(essai.dernierMessage(), s("L'enregistrement est annulé"));
        QCOMPARE(essai.texte("txt_nom"), s("Allineuc"));
        QCOMPARE(essai.base.compter(s("COMMUNE")), 2);
    }

    void champObligatoire()
    {
        Essai essai;
        QVERIFY(essai.ouvrir());
        essai.taper("txt_code", "22001");
        essai.cliquer("cmd_valider");
        QCOMPARE(essai.dernierMessage(), s("Le nom de la commune doit être renseigné."));
        QCOMPARE(essai.dialogue.messages.last().titre, s("Attention"));
        QVERIFY(essai.controle("txt_nom")->hasFocus());
        QVERIFY(essai.dialogue.questions.isEmpty());
    }

    void longueurEnQuittant()
    {
        Essai essai;
        QVERIFY(essai.ouvrir());
        essai.taper("txt_nom", QString(36, u'x'));
        QTRY_COMPARE(essai.dialogue.messages.size(), 1);
        QCOMPARE(essai.dernierMessage(),
                 s("Le nom de la commune ne doit contenir que 35 caractères au maximum."));
        QTRY_VERIFY(essai.controle("txt_nom")->hasFocus());
    }

    void saisiePerdue()
    {
        Essai essai;
        QVERIFY(essai.ouvrir());
        // Nothing typed: nothing asked.
        essai.cliquer("cmd_fermer");
        QVERIFY(!essai.fiche->isVisible());
        QVERIFY(essai.dialogue.questions.isEmpty());

        QVERIFY(essai.ouvrir());
        essai.taper("txt_nom", "Allineuc");
        essai.cliquer("cmd_fermer", {Reponse::Non});
        QVERIFY(essai.fiche->isVisible());
        QCOMPARE(essai.dialogue.questions.last().texte,
                 s("Les informations saisies ne sont pas enregistrées. Voulez-vous les abandonner?"));
        essai.cliquer("cmd_fermer", {Reponse::Oui});
        QVERIFY(!essai.fiche->isVisible());
    }

    void autreCleSaisiePerdue()
    {
        Essai essai;
        QVERIFY(essai.ouvrir());
        essai.choisir("cmb_code", "35228");
        essai.taper("txt_nom", "Autre");
        essai.repondre({Reponse::Non});
        essai.choisir("cmb_code", "22278");
        QCOMPARE(essai.texte("txt_nom"), s("Autre"));
        QCOMPARE(essai.texte("cmb_code"), s("35228"));
        essai.repondre({Reponse::Oui});
        essai.choisir("cmb_code", "22278");
        QCOMPARE(essai.texte("txt_nom"), s("Saint-Brieuc"));
        QVERIFY(essai.dialogue.imprevus.isEmpty());
    }

    void annuler()
    {
        Essai essai;
        QVERIFY(essai.ouvrir());
        essai.choisir("cmb_code", "35228");
        essai.taper("txt_nom", "Autre");
        essai.cliquer("cmd_annul");
        QCOMPARE(essai.texte("txt_code"), QString());
        QCOMPARE(essai.texte("txt_nom"), QString());
        QVERIFY(essai.dialogue.questions.isEmpty());
        essai.cliquer("cmd_fermer");
        QVERIFY(!essai.fiche->isVisible());
    }

    void supprimer()
    {
        Essai essai;
        QVERIFY(essai.ouvrir());
        essai.choisir("cmb_code", "35228");
        essai.cliquer("cmd_suppr");
        QCOMPARE(
            essai.dernierMessage(),
            s("La commune « 35228 » ne peut pas être supprimée : elle est utilisée par 1 bassin versant."));
        essai.choisir("cmb_code", "22278");
        essai.cliquer("cmd_suppr", {Reponse::Oui});
        QCOMPARE(essai.base.compter(s("COMMUNE")), 1);
        QCOMPARE(essai.texte("txt_code"), QString());
        QCOMPARE(essai.controle<QComboBox>("cmb_code")->count(), 1);
    }

    // A value that no list holds is kept by a save.
    void valeurHorsListe()
    {
        Essai essai;
        essai.base.sql(s("UPDATE COMMUNE SET NumDepartement = '99' WHERE NumCommune = '35228'"));
        QVERIFY(essai.ouvrir());
        essai.choisir("cmb_code", "35228");
        QCOMPARE(essai.texte("cmb_departement"), s("99"));
        essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Non});
        QCOMPARE(essai.base.valeur(s("SELECT NumDepartement FROM COMMUNE WHERE NumCommune = '35228'")),
                 QVariant(s("99")));
    }

    // A sheet opened from another one refreshes its lists when it closes, and knows who called.
    void ficheAppelee()
    {
        Essai essai;
        QVERIFY(essai.ouvrir());
        essai.choisir("cmb_code", "35228");
        essai.cliquer("cmd_departement");
        QCOMPARE(essai.cadre.ecrans.size(), 1);
        auto *departement = qobject_cast<F_Saisie_Departement *>(essai.cadre.ecrans.first());
        QVERIFY(departement);
        QCOMPARE(departement->mode(), int(FicheReference::MODE_ECRAN));
        QCOMPARE(departement->origine(), int(OrigineSaisie::COMMUNE));
        QCOMPARE(essai.session.ModeSaisie, 1);
        QCOMPARE(essai.session.OrigineSaisie, 0);
        essai.base.sql(s("INSERT INTO DEPARTEMENT VALUES ('29', 'Finistère')"));
        departement->close();
        QVERIFY(essai.controle<QComboBox>("cmb_departement")->findText(s("Finistère")) >= 0);
        QCOMPARE(essai.texte("cmb_departement"), s("Ille-et-Vilaine"));
        // The lists alone have changed: nothing to ask about.
        essai.cliquer("cmd_fermer");
        QVERIFY(!essai.fiche->isVisible());
        QVERIFY(essai.dialogue.questions.isEmpty());
    }

    void proposee()
    {
        Essai essai;
        QVERIFY(essai.ouvrir());
        essai.fiche->proposer(s("txt_nom"), s("Allineuc"));
        essai.fiche->proposer(s("cmb_departement"), s("Côtes-d'Armor"));
        QCOMPARE(essai.texte("txt_nom"), s("Allineuc"));
        QCOMPARE(essai.texte("cmb_departement"), s("Côtes-d'Armor"));
        essai.cliquer("cmd_fermer");
        QVERIFY(!essai.fiche->isVisible());
        QVERIFY(essai.dialogue.questions.isEmpty());
    }
};

QTEST_MAIN(TestFicheReference)
#include "test_fiche_reference.moc"
