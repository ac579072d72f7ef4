// The sampling screen under its user's hands: the keyboard alone, hostile texts, failures, what is left behind.
#include "BaseDEssai.h"
#include "CadreDEssai.h"
#include "capture/ecrans/F_Mesure_Physico.h"
#include "capture/ecrans/F_Mesure_Physico_Detail.h"
#include "capture/ecrans/F_Mesures_Phyto.h"
#include "DialogueDEssai.h"
#include "frame/Session.h"
#include "widgets/GrilleListes.h"
#include "widgets/ZoneCombo.h"
#include "widgets/ZoneComboLibre.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

namespace
{
QString s(const char *texte)
{
    return QString::fromUtf8(texte);
}

struct Essai {
    BaseDEssai base;
    DialogueDEssai dialogue;
    Session session{dialogue};
    CadreDEssai cadre;
    std::unique_ptr<F_Mesure_Physico> ecran;

    explicit Essai(const QStringList &avant = {})
    {
        for (const QString &sql : avant)
            base.sql(sql);
        session.donnees.ouvrir(base.chemin);
        ecran = std::make_unique<F_Mesure_Physico>(session, cadre);
        ecran->show();
        ecran->activateWindow();
    }
    ~Essai() { qDeleteAll(cadre.ecrans); }

    bool pret() { return QTest::qWaitForWindowActive(ecran.get()); }
    template <typename T> T *trouver(const char *nom) const
    {
        T *controle = ecran->findChild<T *>(QString::fromLatin1(nom));
        if (!controle)
            qFatal("no control named %s", nom);
        return controle;
    }
    GrilleListes *grille() const { return trouver<GrilleListes>("DBGrid1"); }
    QPushButton *bouton(const char *nom) const { return trouver<QPushButton>(nom); }
    QString cellule(int ligne, int colonne) const
    {
        return grille()->model()->index(ligne, colonne).data().toString();
    }
    int lignes() const { return grille()->model()->rowCount(); }

    // Keys as they come, to whatever has the focus.
    static void touche(Qt::Key touche, Qt::KeyboardModifiers modificateurs = Qt::NoModifier)
    {
        QWidget *liste = QApplication::activePopupWidget();
        QTest::keyClick(liste ? liste : QApplication::focusWidget(), touche, modificateurs);
        QTest::qWait(1);
    }
    static void frapper(const QString &texte)
    {
        for (const QChar c : texte)
            QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(c),
                                Qt::NoModifier);
        QTest::qWait(1);
    }
    void chercher(const char *date = "01/03/2009", const char *heure = "09:30") const
    {
        auto *code = trouver<ZoneCombo>("cmb_code");
        code->setCurrentIndex(code->findText(s("04211940")));
        trouver<ZoneComboLibre>("cmb_Date")->setCurrentText(s(date));
        trouver<ZoneComboLibre>("cmb_heure")->setCurrentText(s(heure));
        bouton("cmd_rech")->click();
    }
    void ecrire(int ligne, int colonne, const QString &texte) const
    {
        if (ligne == lignes())
            grille()->ajouterLigne();
        grille()->ecrire(grille()->model()->index(ligne, colonne), texte);
        QTest::qWait(1); // a refusal is told
    }
    void ecrireLigne(int ligne, const char *parametre, const char *resultat, const char *preleveur) const
    {
        ecrire(ligne, 0, s(parametre));
        ecrire(ligne, 1, s(resultat));
        ecrire(ligne, 3, s("1"));
        ecrire(ligne, 4, s("23"));
        ecrire(ligne, 5, s(preleveur));
        ecrire(ligne, 6, s("Laboratoire d'Armor"));
        ecrire(ligne, 7, s("Agence de l'eau"));
    }
    // Opens the detail sheet of a row by the button of its network.
    F_Mesure_Physico_Detail *detail(int ligne) const
    {
        grille()->allerA(ligne, 8);
        grille()->derouler();
        auto *fiche =
            qobject_cast<F_Mesure_Physico_Detail *>(cadre.ecrans.isEmpty() ? nullptr : cadre.ecrans.last());
        if (!fiche)
            qFatal("no detail sheet");
        fiche->show();
        return fiche;
    }
    QStringList erreurs() const
    {
        QStringList textes;
        for (const BoiteDEssai &boite : dialogue.messages)
            if (boite.texte.contains(s("en cours de traitement")))
                textes << boite.texte;
        return textes;
    }
};

constexpr char OUEST[] = "Préleveur de l'Ouest";
} // namespace

class TestFMesurePhysico : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // A sampling of two rows from the first key to the last, without the mouse.
    void clavierSeul()
    {
        Essai e;
        QVERIFY(e.pret());
        QTRY_COMPARE(QApplication::focusWidget(), e.trouver<QWidget>("cmb_code"));
        e.frapper(s("04211940"));
        e.touche(Qt::Key_Escape); // the list of proposals
        e.touche(Qt::Key_Tab);
        QCOMPARE(e.trouver<QLineEdit>("txt_station")->text(), s("Pont de l'Ile"));
        e.touche(Qt::Key_Tab);
        e.frapper(s("1/3/09"));
        e.touche(Qt::Key_Tab);
        e.frapper(s("09:30"));
        e.touche(Qt::Key_Return);
        QCOMPARE(e.bouton("cmd_valider")->text(), s("V&alider"));
        QCOMPARE(QApplication::focusWidget(), e.grille());
        QCOMPARE(e.trouver<ZoneComboLibre>("cmb_Date")->currentText(), s("01/03/2009"));

        // Typing opens the first row, and the list below the cell follows what is typed, in any case and accent.
        e.frapper(s("NITR"));
        auto *parametres = e.trouver<QListWidget>("lst_param");
        QVERIFY(parametres->isVisible());
        int montrees = 0;
        for (int i = 0; i < parametres->count(); ++i)
            montrees += parametres->item(i)->isHidden() ? 0 : 1;
        QCOMPARE(montrees, 1);
        e.touche(Qt::Key_Down);
        e.touche(Qt::Key_Return);
        QVERIFY(!parametres->isVisible());
        QCOMPARE(e.cellule(0, 0), s("Nitrates"));
        QCOMPARE(e.cellule(0, 2), s("mg(NO3)/L"));
        QCOMPARE(QApplication::focusWidget(), e.grille());
        e.touche(Qt::Key_Right);
        e.frapper(s("12,5"));
        // Tab passes over the unit, which is not typed, and opens the next cell.
        e.touche(Qt::Key_Tab);
        QCOMPARE(e.grille()->currentIndex().column(), 3);
        e.frapper(s("1"));
        e.touche(Qt::Key_Tab);
        e.frapper(s("23"));
        e.touche(Qt::Key_Tab);
        e.frapper(s("ouest"));
        e.touche(Qt::Key_Down);
        e.touche(Qt::Key_Return);
        QCOMPARE(e.cellule(0, 5), s(OUEST));
        // The whole list, by Alt and the arrow; Escape hides it and leaves the cell as it was.
        e.touche(Qt::Key_Right);
        e.touche(Qt::Key_Down, Qt::AltModifier);
        auto *laboratoires = e.trouver<QListWidget>("lst_labo");
        QVERIFY(laboratoires->isVisible());
        e.touche(Qt::Key_Down);
        e.touche(Qt::Key_Escape);
        QVERIFY(!laboratoires->isVisible());
        e.touche(Qt::Key_Escape);
        QCOMPARE(e.cellule(0, 6), QString());
        QVERIFY(e.ecran->isVisible()); // it closed no window
        e.touche(Qt::Key_F4);
        e.touche(Qt::Key_Down);
        e.touche(Qt::Key_Down);
        e.touche(Qt::Key_Return);
        QCOMPARE(e.cellule(0, 6), s("Laboratoire d'Armor"));
        e.touche(Qt::Key_Right);
        e.touche(Qt::Key_F2);
        e.frapper(s("Agence de l'eau"));
        e.touche(Qt::Key_Return);
        QCOMPARE(e.cellule(0, 7), s("Agence de l'eau"));
        // Two networks, the second picked after the separator.
        e.touche(Qt::Key_Right);
        e.frapper(s("Réseau d'Armor | nat"));
        e.touche(Qt::Key_Down);
        e.touche(Qt::Key_Return);
        QCOMPARE(e.cellule(0, 8), s("Réseau d'Armor | Réseau national"));

        // A second row, begun and given up, then begun for good.
        e.touche(Qt::Key_Home);
        e.touche(Qt::Key_Down);
        QTRY_COMPARE(e.lignes(), 2);
        e.touche(Qt::Key_Up);
        QTRY_COMPARE(e.lignes(), 1);
        e.touche(Qt::Key_Insert);
        QCOMPARE(e.lignes(), 2);
        QCOMPARE(e.grille()->currentIndex(), e.grille()->model()->index(1, 0));
        e.frapper(s("Carbone Organique"));
        e.touche(Qt::Key_Tab);
        e.frapper(s("3.2"));
        e.touche(Qt::Key_Tab);
        e.frapper(s("10"));
        e.touche(Qt::Key_Tab);
        e.frapper(s("3"));
        e.touche(Qt::Key_Tab);
        e.frapper(s(OUEST));
        e.touche(Qt::Key_Tab);
        e.frapper(s("Laboratoire d'Armor"));
        e.touche(Qt::Key_Tab);
        e.frapper(s("Agence de l'eau"));
        e.touche(Qt::Key_Return);
        QTRY_COMPARE(QApplication::focusWidget(), e.grille());
        // Networks are the sampling's.
        QCOMPARE(e.cellule(1, 8), s("Réseau d'Armor | Réseau national"));

        e.dialogue.reponses.enqueue(Reponse::Oui);
        e.dialogue.reponses.enqueue(Reponse::Oui);
        e.touche(Qt::Key_A, Qt::AltModifier);
        QTRY_COMPARE(e.dialogue.questions.size(), 2);
        QVERIFY(e.dialogue.imprevus.isEmpty());
        QVERIFY2(e.dialogue.messages.isEmpty(), qPrintable(e.dialogue.messages.value(0).texte));
        QCOMPARE(e.base.compter(s("PRELEVEMENT")), 1);
        QCOMPARE(e.base
                     .valeur(s("SELECT group_concat(CodeParam || '=' || ResultatAnaPC) FROM "
                               "(SELECT * FROM MESURE_PHYSICO ORDER BY NumAnaPC)"))
                     .toString(),
                 s("1340=12.5,1841=3.2"));
        QCOMPARE(e.base.compter(s("PRELEVEMENTRSX")), 2);
        QCOMPARE(e.base.compter(s("Temp_mesure_physico")), 0);
    }

    // Whatever is typed is stored as it is or refused in words; the engine never has its say.
    void textesHostiles_data()
    {
        QTest::addColumn<QString>("texte");
        QTest::newRow("apostrophes") << s("l'eau d''ici'");
        QTest::newRow("guillemets") << s("\"\"");
        QTest::newRow("injection") << s("'; DROP TABLE PRELEVEMENT;--");
        QTest::newRow("pour cent") << s("100 % %s %n %1 _");
        QTest::newRow("emoji") << s("💧🧪 très sale 👩🏽‍🔬");
        QTest::newRow("long") << QString(10000, u'x');
        QTest::newRow("commandes") << s("a\u0001b\u0007c\u001bd\u200be\u202ef");
        QTest::newRow("formule") << s("=CMD()");
        QTest::newRow("html") << s("<b>gras</b><img src='x'>");
        QTest::newRow("accents décomposés") << s("e\u0301te\u0301");
    }
    void textesHostiles()
    {
        QFETCH(QString, texte);
        Essai e({s("INSERT INTO RESEAU_MESURE VALUES ('0400000003', 'A | B ''; --', '')")});
        QVERIFY(e.pret());
        // The key: refused, and emptied.
        for (const char *nom : {"cmb_code", "ZC_CODE_USUEL", "cmb_Date", "cmb_heure"}) {
            auto *combo = e.trouver<QComboBox>(nom);
            combo->setFocus();
            combo->lineEdit()->setText(texte);
            e.dialogue.messages.clear();
            e.bouton("cmd_rech")->click();
            QCOMPARE(e.dialogue.messages.size(), 1);
            QCOMPARE(combo->currentText(), QString());
            e.dialogue.messages.clear();
        }
        e.chercher();
        e.ecrireLigne(0, "Nitrates", "12", OUEST);
        QCOMPARE(e.dialogue.messages.size(), 0);
        for (const int colonne : {0, 1, 3, 4, 5, 6, 7, 8, 9}) {
            e.dialogue.messages.clear();
            e.ecrire(0, colonne, texte);
            QCOMPARE(e.dialogue.messages.size(), 1);
            QCOMPARE(e.cellule(0, colonne), colonne == 4 ? s("0") : QString());
        }
        e.dialogue.messages.clear();
        e.ecrireLigne(0, "Nitrates", "12", OUEST);
        e.ecrire(0, 8, s("A | B '; -- | Réseau national"));
        QCOMPARE(e.dialogue.messages.size(), 0);

        // The detail sheet: what fits is kept to the letter.
        F_Mesure_Physico_Detail *fiche = e.detail(0);
        QCOMPARE(fiche->findChild<QListWidget *>(s("lst_reseaux"))->count(), 2);
        const bool court = texte.size() <= 50;
        const bool moyen = texte.size() <= 255;
        fiche->findChild<QTabWidget *>(s("SSTab1"))->setCurrentIndex(0);
        fiche->findChild<QLineEdit *>(s("txt_seuil"))->setText(texte);
        fiche->findChild<QPlainTextEdit *>(s("txt_comment_analyse"))->setPlainText(texte);
        fiche->findChild<QPlainTextEdit *>(s("txt_comment_analyse"))->document()->setModified(true);
        fiche->findChild<QPlainTextEdit *>(s("txt_comment_result"))->setPlainText(texte);
        fiche->findChild<QPlainTextEdit *>(s("txt_comment_result"))->document()->setModified(true);
        fiche->findChild<QPushButton *>(s("cmd_valider"))->click();
        if (!court || !moyen) {
            QCOMPARE(e.dialogue.messages.size(), 1);
            QVERIFY(e.dialogue.messages[0].texte.contains(s("caractères au maximum.")));
            e.dialogue.messages.clear();
            if (!court)
                fiche->findChild<QLineEdit *>(s("txt_seuil"))->clear();
            if (!moyen)
                for (const char *nom : {"txt_comment_analyse", "txt_comment_result"}) {
                    auto *memo = fiche->findChild<QPlainTextEdit *>(QString::fromLatin1(nom));
                    memo->setPlainText(texte.left(255));
                    memo->document()->setModified(true);
                }
            fiche->findChild<QPushButton *>(s("cmd_valider"))->click();
        }
        QCOMPARE(e.dialogue.messages.size(), 0);
        e.dialogue.reponses.enqueue(Reponse::Oui);
        e.dialogue.reponses.enqueue(Reponse::Oui);
        e.bouton("cmd_valider")->click();
        QCOMPARE(e.dialogue.messages.size(), 0);
        QVERIFY(e.dialogue.imprevus.isEmpty());
        QCOMPARE(e.base.valeur(s("SELECT SeuilAnaPC FROM MESURE_PHYSICO")).toString(),
                 court ? texte : QString());
        QCOMPARE(e.base.valeur(s("SELECT CommAnaPC FROM MESURE_PHYSICO")).toString(), texte.left(255));
        QCOMPARE(e.base.valeur(s("SELECT CommResAnaPC FROM MESURE_PHYSICO")).toString(), texte.left(255));
        QCOMPARE(e.base
                     .valeur(s("SELECT group_concat(CodeReseau) FROM (SELECT CodeReseau FROM PRELEVEMENTRSX "
                               "ORDER BY rowid)"))
                     .toString(),
                 s("0400000003,0400000001"));
        // And comes back.
        e.dialogue.reponses.enqueue(Reponse::Oui);
        e.chercher();
        QCOMPARE(e.cellule(0, 8), s("A | B '; -- | Réseau national"));
        QCOMPARE(e.erreurs(), QStringList());
    }

    // A save that the store refuses: said, and everything is where it was.
    void echecDuneSauvegarde()
    {
        Essai e;
        QVERIFY(e.pret());
        e.chercher();
        e.ecrireLigne(0, "Nitrates", "12", OUEST);
        e.base.sql(s(
            "CREATE TRIGGER panne BEFORE INSERT ON MESURE_PHYSICO BEGIN SELECT RAISE(ABORT, 'panne'); END"));
        e.dialogue.reponses.enqueue(Reponse::Oui);
        e.bouton("cmd_valider")->click();
        QCOMPARE(e.erreurs().size(), 1);
        QVERIFY(e.erreurs()[0].startsWith(s("Une erreur s'est produite en cours de traitement : \n")));
        QVERIFY(e.erreurs()[0].contains(s("Rien n'a été enregistré")));
        QCOMPARE(e.lignes(), 1);
        QVERIFY(e.bouton("cmd_valider")->isEnabled());
        QCOMPARE(e.base.compter(s("PRELEVEMENT")), 0);
        e.base.sql(s("DROP TRIGGER panne"));
        e.dialogue.reponses.enqueue(Reponse::Oui);
        e.dialogue.reponses.enqueue(Reponse::Non);
        e.bouton("cmd_valider")->click();
        QCOMPARE(e.base.compter(s("MESURE_PHYSICO")), 1);
    }

    // Without its work table the screen says so when it opens.
    void sansTableDeTravail()
    {
        Essai e({s("DROP TABLE Temp_mesure_physico")});
        QCOMPARE(e.erreurs().size(), 1);
    }

    void tableDeTravail()
    {
        Essai e({s("INSERT INTO Temp_mesure_physico (Parametre) VALUES ('reste')")});
        QVERIFY(e.pret());
        QCOMPARE(e.base.compter(s("Temp_mesure_physico")), 0); // emptied on entry
        e.chercher();
        e.ecrire(0, 0, s("Nitrates"));
        e.ecrire(0, 1, s("5"));
        QCOMPARE(
            e.base.valeur(s("SELECT Parametre || '|' || Resultat || '|' || Unite FROM Temp_mesure_physico"))
                .toString(),
            s("Nitrates|5|mg(NO3)/L"));
        QCOMPARE(e.base.compter(s("PRELEVEMENT")), 0);
        // A cell that is being typed wrongly is given up with the screen.
        e.grille()->allerA(0, 1);
        e.frapper(s("abc"));
        e.bouton("cmd_fermer")->setFocus();
        e.bouton("cmd_fermer")->click();
        QTest::qWait(10);
        QCOMPARE(e.dialogue.messages.size(), 0);
        QVERIFY(!e.ecran->isVisible());
        QCOMPARE(e.base.compter(s("Temp_mesure_physico")), 0);
    }

    // The command judges a cell that is still open.
    void celluleOuverteALaSauvegarde()
    {
        Essai e;
        QVERIFY(e.pret());
        e.chercher();
        e.ecrireLigne(0, "Nitrates", "12", OUEST);
        e.grille()->allerA(0, 1);
        e.frapper(s("abc"));
        e.bouton("cmd_valider")->click();
        QCOMPARE(e.dialogue.messages.size(), 1);
        QCOMPARE(e.dialogue.messages[0].texte, s("Le résultat doit être de type numérique."));
        QCOMPARE(e.dialogue.questions.size(), 0);
        QCOMPARE(e.grille()->currentIndex(), e.grille()->model()->index(0, 1));
        QCOMPARE(e.cellule(0, 1), QString());
        e.frapper(s("13"));
        e.dialogue.reponses.enqueue(Reponse::Oui);
        e.dialogue.reponses.enqueue(Reponse::Oui);
        e.bouton("cmd_valider")->click();
        QCOMPARE(e.base.valeur(s("SELECT ResultatAnaPC FROM MESURE_PHYSICO")).toDouble(), 13.0);
    }

    // An empty row that was added is none; rows from a spreadsheet are judged cell by cell, the first refusal is told.
    void lignesVidesEtCollees()
    {
        Essai e;
        QVERIFY(e.pret());
        e.chercher();
        e.grille()->ajouterLigne();
        e.grille()->ajouterLigne();
        QCOMPARE(e.lignes(), 1);
        e.bouton("cmd_valider")->click();
        QCOMPARE(e.dialogue.messages.size(), 1);
        QCOMPARE(e.dialogue.messages[0].texte, s("Des éléments sont manquants dans le tableau."));
        QCOMPARE(e.lignes(), 0);

        e.dialogue.messages.clear();
        QApplication::clipboard()->setText(
            s("Nitrates\t1,5\tignorée\t1\nInconnu\tx\t\t1\nCarbone Organique\t3\t\t10\n"));
        e.grille()->setFocus();
        e.touche(Qt::Key_V, Qt::ControlModifier);
        QTest::qWait(5);
        QCOMPARE(e.lignes(), 3);
        QCOMPARE(e.cellule(0, 1), s("1,5"));
        QCOMPARE(e.cellule(0, 2), s("mg(NO3)/L"));
        QCOMPARE(e.cellule(0, 3), s("1"));
        QCOMPARE(e.cellule(1, 0), QString());
        QCOMPARE(e.cellule(2, 0), s("Carbone Organique"));
        QCOMPARE(e.dialogue.messages.size(), 1);
        QCOMPARE(e.dialogue.messages[0].texte, s("Le paramètre saisi n'existe pas."));

        // The user is on the refused cell. Copied, and taken out by their numbers.
        QCOMPARE(e.grille()->currentIndex(), e.grille()->model()->index(1, 0));
        QCOMPARE(e.grille()->selectionModel()->selectedIndexes().size(), 1);
        e.touche(Qt::Key_Up);
        e.grille()->selectRow(2);
        e.touche(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), s("Carbone Organique\t3\tmg(C)/L\t10\t\t\t\t\t\t\n"));
        e.touche(Qt::Key_Delete);
        QCOMPARE(e.lignes(), 2);
        // Del on a cell empties it, and the rule has its say.
        e.grille()->allerA(0, 1);
        e.touche(Qt::Key_Delete);
        QCOMPARE(e.cellule(0, 1), QString());
        QCOMPARE(e.lignes(), 2);
    }

    // Network and protocol of the detail go to the rows of the same sampler, the rest to the row alone.
    void detailPartage()
    {
        Essai e;
        QVERIFY(e.pret());
        e.chercher();
        e.ecrireLigne(0, "Nitrates", "1", OUEST);
        e.ecrireLigne(1, "Carbone Organique", "2", "Agence de l'eau");
        e.ecrireLigne(2, "Carbone Organique", "3", OUEST);
        F_Mesure_Physico_Detail *fiche = e.detail(2);
        QVERIFY(!e.bouton("cmd_valider")->isEnabled());
        QCOMPARE(fiche->findChild<QLineEdit *>(s("txt_prelev2"))->text(), s(OUEST));
        fiche->findChild<QTabWidget *>(s("SSTab1"))->setCurrentIndex(1);
        auto *reseaux = fiche->findChild<ZoneCombo *>(s("cmb_reseau"));
        for (const char *label : {"Réseau national", "Réseau d'Armor", "Réseau national"}) {
            reseaux->setCurrentIndex(reseaux->findText(s(label)));
            fiche->findChild<QPushButton *>(s("cmd_ajouterReseau"))->click();
        }
        fiche->findChild<ZoneComboLibre *>(s("cmb_protocole"))->setCurrentText(s("Suivi pluie"));
        fiche->findChild<QTabWidget *>(s("SSTab1"))->setCurrentIndex(0);
        fiche->findChild<QLineEdit *>(s("txt_LD"))->setText(s("0.5"));
        fiche->findChild<QPushButton *>(s("cmd_valider"))->click();
        QVERIFY(e.bouton("cmd_valider")->isEnabled());
        const QString deux = s("Réseau national | Réseau d'Armor");
        QCOMPARE(e.cellule(0, 8), deux);
        QCOMPARE(e.cellule(1, 8), QString());
        QCOMPARE(e.cellule(2, 8), deux);
        QCOMPARE(e.base
                     .valeur(s("SELECT group_concat(coalesce(Protocole, '') || '/' || LD) FROM "
                               "(SELECT * FROM Temp_mesure_physico ORDER BY rowid)"))
                     .toString(),
                 s("Suivi pluie/,/,Suivi pluie/0,5"));
    }

    // The same with the mouse: the button of a cell, a row of its list, a click elsewhere, the place of the next row.
    void souris()
    {
        Essai e;
        QVERIFY(e.pret());
        e.chercher();
        GrilleListes *grille = e.grille();
        const auto cliquer = [grille](const QPoint &point) {
            QTest::mouseClick(grille->viewport(), Qt::LeftButton, {}, point);
            QTest::qWait(1);
        };
        cliquer(QPoint(40, 60)); // below the last row
        QCOMPARE(e.lignes(), 1);
        const auto bouton = [grille](int colonne) {
            const QRect place = grille->visualRect(grille->model()->index(0, colonne));
            return QPoint(place.right() - 6, place.center().y());
        };
        cliquer(bouton(0));
        auto *liste = e.trouver<QListWidget>("lst_param");
        QVERIFY(liste->isVisible());
        // Below its cell, in front of everything.
        const QRect cellule = grille->visualRect(grille->model()->index(0, 0));
        QCOMPARE(liste->mapToGlobal(QPoint(0, 0)),
                 grille->viewport()->mapToGlobal(cellule.bottomLeft() + QPoint(0, 1)));
        const QRect rangee = liste->visualItemRect(liste->findItems(s("Nitrates"), Qt::MatchExactly)[0]);
        QTest::mouseClick(liste->viewport(), Qt::LeftButton, {}, rangee.center());
        QVERIFY(!liste->isVisible());
        QCOMPARE(e.cellule(0, 0), s("Nitrates"));
        QCOMPARE(e.cellule(0, 2), s("mg(NO3)/L"));
        // The row that the cell holds is the chosen one; a click on another cell hides the list and changes nothing.
        cliquer(bouton(0));
        QCOMPARE(liste->currentItem()->text(), s("Nitrates"));
        cliquer(grille->visualRect(grille->model()->index(0, 1)).center());
        QVERIFY(!liste->isVisible());
        QCOMPARE(e.cellule(0, 0), s("Nitrates"));
        // What was typed is taken when another cell is clicked.
        e.frapper(s("7,5"));
        cliquer(grille->visualRect(grille->model()->index(0, 3)).center());
        QCOMPARE(e.cellule(0, 1), s("7,5"));
        // A cell without a button has none.
        cliquer(bouton(3));
        QCOMPARE(e.cadre.ecrans.size(), 0);
        cliquer(bouton(8));
        QCOMPARE(e.cadre.ecrans.size(), 1);
        QVERIFY(e.dialogue.messages.isEmpty());
    }

    // The calendar, and a list that the arrows open.
    void dates()
    {
        Essai e;
        const qint64 p = e.base.ajouterPrelevement(s("04211940"), QDate(2008, 5, 6), QTime(7, 0));
        e.base.ajouterMesure(p, s("1340"), 1);
        QVERIFY(e.pret());
        auto *code = e.trouver<ZoneCombo>("cmb_code");
        code->setCurrentIndex(code->findText(s("04211940")));
        auto *date = e.trouver<ZoneComboLibre>("cmb_Date");
        QCOMPARE(date->count(), 1);
        QTRY_VERIFY(code->hasFocus());
        date->setFocus();
        e.touche(Qt::Key_Down, Qt::ControlModifier);
        auto *calendrier = QApplication::activePopupWidget()
                               ? QApplication::activePopupWidget()->findChild<QCalendarWidget *>()
                               : nullptr;
        QVERIFY(calendrier);
        calendrier->setSelectedDate(QDate(2008, 5, 6));
        Q_EMIT calendrier->activated(QDate(2008, 5, 6));
        QCOMPARE(date->currentText(), s("06/05/2008"));
        QCOMPARE(e.trouver<ZoneComboLibre>("cmb_heure")->count(), 1);
        QVERIFY(e.bouton("cmd_suppr")->isEnabled());
    }

    // Both families have their own work table, and may be open side by side.
    void deuxFamilles()
    {
        Essai e;
        F_Mesures_Phyto phyto(e.session, e.cadre);
        phyto.show();
        QCOMPARE(phyto.findChild<QLabel *>(s("lbl_titre"))->text(), s("ANALYSE PESTICIDES"));
        QCOMPARE(phyto.findChild<QListWidget *>(s("lst_param"))->count(), 1);
        QCOMPARE(e.trouver<QListWidget>("lst_param")->count(), 3);
        e.chercher();
        e.ecrire(0, 0, s("Nitrates"));
        QCOMPARE(e.base.compter(s("Temp_mesure_physico")), 1);
        QCOMPARE(e.base.compter(s("Temp_mesure_phyto")), 0);
    }
};

QTEST_MAIN(TestFMesurePhysico)
#include "test_f_mesure_physico.moc"
