// The palette and the network codes, to and from workbooks made by the real spreadsheet.
#include "BaseDEssai.h"
#include "DialogueDEssai.h"
#include "maintenance/M_ClasseurCouleurs.h"
#include "maintenance/M_Transposition.h"
#include "platform/Chemins.h"
#include "workbook/Tableur.h"

#include <QTest>

class TestClasseursMaintenance : public QObject
{
    Q_OBJECT

private:
    static void palette(const BaseDEssai &base)
    {
        base.sql("CREATE TABLE COULEURS_GRAPH (ordre integer, R integer, G integer, B integer)");
        base.sql("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 40) "
                 "INSERT INTO COULEURS_GRAPH (ordre, R, G, B) SELECT i, i, 100 + i, 200 + i FROM n");
    }
    static QString couleur(const BaseDEssai &base, int ordre)
    {
        return base.valeur("SELECT R || ' ' || G || ' ' || B FROM COULEURS_GRAPH WHERE ordre = ?", {ordre})
            .toString();
    }
    QString classeurReseaux(const QString &nom, const Valeurs &lignes, int ligne, int colonne,
                            bool marque = true)
    {
        const QString chemin = m_dossier.filePath(nom);
        const auto classeur = m_tableur.ajouter();
        Feuille feuille = classeur->feuille(1);
        feuille.plage(1, 1, static_cast<int>(lignes.size()), static_cast<int>(lignes[0].size()))
            .ecrire(lignes);
        if (marque)
            classeur->nommerPlage("reseau_sandre", feuille.cellule(ligne, colonne));
        classeur->enregistrerSous(chemin);
        classeur->fermer();
        return chemin;
    }

private Q_SLOTS:
    void paletteAllerEtRetour()
    {
        BaseDEssai base;
        palette(base);
        DialogueDEssai dialogue;
        const QString chemin = m_dossier.filePath("palette.xls");
        dialogue.fichiers.enqueue(chemin);
        QVERIFY(
            M_ClasseurCouleurs::SauvegarderCouleurs(base.donnees, m_tableur, dialogue, "C:\\Projet\\Base\\"));
        QCOMPARE(dialogue.demandes[0].titre, QString("Fichier d'export pour les couleurs"));
        QCOMPARE(dialogue.demandes[0].filtre, QString("Excel (*.xls)|*.xls|Tous fichiers (*.*)|*.*"));
        QVERIFY(dialogue.demandes[0].enregistrer);
        {
            const auto classeur = m_tableur.ouvrir(chemin, true);
            QCOMPARE(classeur->feuilles().first(), QString("Couleurs"));
            QCOMPARE(classeur->feuille(1).cellule(40, 3).valeur().toDouble(), 240.0);
        }
        base.sql("UPDATE COULEURS_GRAPH SET R = 0, G = 0, B = 0");
        dialogue.fichiers.enqueue(chemin);
        QVERIFY(
            M_ClasseurCouleurs::RestaurerCouleurs(base.donnees, m_tableur, dialogue, "C:\\Projet\\Base\\"));
        QCOMPARE(dialogue.demandes[1].titre, QString("Fichier couleurs à restaurer?"));
        QCOMPARE(couleur(base, 1), QString("1 101 201"));
        QCOMPARE(couleur(base, 40), QString("40 140 240"));
        QCOMPARE(base.compter("COULEURS_GRAPH"), 40);
        QVERIFY(dialogue.messages.isEmpty());
    }

    // Texts read as 0, texts of digits as their number, a number as its whole part; missing rows as black.
    void paletteAbimee()
    {
        BaseDEssai base;
        palette(base);
        const QString chemin = m_dossier.filePath("abimee.xls");
        {
            const auto classeur = m_tableur.ajouter();
            classeur->feuille(1).plage(1, 1, 1, 3).ecrire(Valeurs{{QString("rouge"), QString("12"), 7.9}});
            classeur->nommerPlage("couleurs_OVR", classeur->feuille(1).cellule(1, 1));
            classeur->enregistrerSous(chemin);
        }
        DialogueDEssai dialogue;
        dialogue.fichiers.enqueue(chemin);
        QVERIFY(M_ClasseurCouleurs::RestaurerCouleurs(base.donnees, m_tableur, dialogue, {}));
        QCOMPARE(couleur(base, 1), QString("0 12 7"));
        QCOMPARE(couleur(base, 2), QString("0 0 0"));
        QCOMPARE(base.compter("COULEURS_GRAPH"), 40);
    }

    void pasUnePalette()
    {
        BaseDEssai base;
        palette(base);
        // The name is there, but on another cell.
        const QString chemin = m_dossier.filePath("autre.xls");
        {
            const auto classeur = m_tableur.ajouter();
            classeur->nommerPlage("couleurs_OVR", classeur->feuille(1).cellule(2, 1));
            classeur->enregistrerSous(chemin);
        }
        DialogueDEssai dialogue;
        dialogue.fichiers.enqueue(chemin);
        QVERIFY(!M_ClasseurCouleurs::RestaurerCouleurs(base.donnees, m_tableur, dialogue, {}));
        QCOMPARE(dialogue.messages.size(), 1);
        QCOMPARE(dialogue.messages[0].texte,
                 QString("Le fichier couleurs choisi a une structure incorrecte"));
        QCOMPARE(dialogue.messages[0].titre, QString("Erreur"));
        QCOMPARE(couleur(base, 40), QString("40 140 240"));
    }

    // Code in B, label in C, purpose in A; from the marked cell to the first blank code; a code typed as a number is
    // whole, a long one is cut to ten characters.
    void entreesDuClasseur()
    {
        const QString chemin =
            classeurReseaux("reseaux.xls",
                            {{QString("Finalité"), QString("Code"), QString("Libellé")},
                             {QString("Suivi"), QString("0400003044"), QString("Réseau national")},
                             {QString(), 400000002.0, QString("Deux")},
                             {QString(), QString("123456789012"), QString("Trois")},
                             {QString(), QString("   "), QString("Blanc")},
                             {QString(), QString("5"), QString("Au-delà")}},
                            2, 2);
        const auto entrees = M_Transposition::lireEntrees(m_tableur, chemin);
        QCOMPARE(entrees.size(), 3);
        QCOMPARE(entrees[0].code, QString("0400003044"));
        QCOMPARE(entrees[0].libelle, QString("Réseau national"));
        QCOMPARE(entrees[0].finalite, QString("Suivi"));
        QCOMPARE(entrees[1].code, QString("400000002"));
        QCOMPARE(entrees[2].code, QString("1234567890"));
    }

    void commandeEntiere()
    {
        BaseDEssai base;
        const QString chemin =
            classeurReseaux("commande.xls", {{QString("N1"), QString("réseau d'armor")}}, 1, 1);
        DialogueDEssai dialogue;
        dialogue.fichiers.enqueue(chemin);
        QVERIFY(M_Transposition::TransposerReseaux(base.donnees, m_tableur, dialogue, {}, {}));
        QCOMPARE(dialogue.demandes[0].titre, QString("Fichier des codes réseaux?"));
        QCOMPARE(base.valeur("SELECT LibelleReseau FROM RESEAU_MESURE WHERE CodeReseau = 'N1'").toString(),
                 QString("réseau d'armor"));
        const ProgressionDEssai &attente = dialogue.progression(FenetreProgression::FProgress3);
        QVERIFY(!attente.visible);
        QCOMPARE(attente.textes.last(), QString("réseau d'armor\nTransposition des codes réseaux en cours"));
    }

    void classeurSansLaMarque()
    {
        BaseDEssai base;
        const QString chemin = classeurReseaux("sans.xls", {{QString("N1"), QString("x")}}, 1, 1, false);
        DialogueDEssai dialogue;
        QVERIFY(!M_Transposition::TransposerReseaux(base.donnees, m_tableur, dialogue, chemin, {}));
        QCOMPARE(dialogue.messages.size(), 1);
        QCOMPARE(dialogue.messages[0].texte,
                 QString("Le fichier de transposition des codes réseau\n%1\nn'a pas la structure requise")
                     .arg(chemin));
        QCOMPARE(dialogue.messages[0].titre, QString("Transposition non effectuée"));
        QCOMPARE(base.compter("RESEAU_MESURE"), 2);
    }

private:
    QTemporaryDir m_dossier;
    Tableur m_tableur;
};

QTEST_GUILESS_MAIN(TestClasseursMaintenance)
#include "test_classeurs_maintenance.moc"
