// The captures of flows and rainfall as they are used: keyboard alone, blocks pasted, texts that fit nowhere.
#include "BaseDEssai.h"
#include "CadreDEssai.h"
#include "capture/ecrans/F_Mesure_Hydro.h"
#include "capture/ecrans/F_Mesure_Pluvio.h"
#include "ClasseurLu.h"
#include "DialogueDEssai.h"
#include "frame/Session.h"
#include "platform/Chemins.h"
#include "platform/Horloge.h"
#include "widgets/GrilleSaisie.h"
#include "widgets/ZoneCombo.h"

#include <QClipboard>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

namespace
{
QString s(const char *texte)
{
    return QString::fromUtf8(texte);
}

template <typename Ecran> struct Essai {
    BaseDEssai base;
    DialogueDEssai dialogue;
    Session session{dialogue};
    CadreDEssai cadre;
    std::unique_ptr<Ecran> ecran;

    explicit Essai(const std::function<void(const BaseDEssai &)> &preparer = {})
    {
        if (preparer)
            preparer(base);
        session.donnees.ouvrir(base.chemin);
        ecran = std::make_unique<Ecran>(session, cadre);
        ecran->show();
        ecran->activateWindow();
    }
    bool pret() { return QTest::qWaitForWindowActive(ecran.get()); }
    template <typename T> T *trouver(const char *nom) const
    {
        T *controle = ecran->template findChild<T *>(QString::fromLatin1(nom));
        if (!controle)
            qFatal("no control named %s", nom);
        return controle;
    }
    GrilleSaisie *grille(const char *nom = "DBGrid1") const { return trouver<GrilleSaisie>(nom); }
    QPushButton *bouton(const char *nom) const { return trouver<QPushButton>(nom); }
    QString cellule(int ligne, int colonne, const char *nom = "DBGrid1") const
    {
        return grille(nom)->model()->index(ligne, colonne).data().toString();
    }
    // Typed where the focus is, as a user does.
    static void taper(const QString &texte)
    {
        for (const QChar c : texte)
            touche(Qt::Key_unknown, Qt::NoModifier, QString(c));
    }
    static void touche(int touche, Qt::KeyboardModifiers modes = Qt::NoModifier, const QString &texte = {})
    {
        QWidget *foyer = QApplication::activePopupWidget() ? QApplication::activePopupWidget()
                                                           : QApplication::focusWidget();
        QVERIFY(foyer);
        if (texte.isEmpty())
            QTest::keyClick(foyer, static_cast<Qt::Key>(touche), modes);
        else
            QTest::keyClicks(foyer, texte, modes);
        QCoreApplication::processEvents();
    }
    void chercher(const char *combo, const char *code)
    {
        auto *liste = trouver<ZoneCombo>(combo);
        liste->setCurrentIndex(liste->findText(s(code)));
        bouton("cmd_rech")->click();
        QCoreApplication::processEvents();
    }
};

const char *const HYDRO = "J7010610";
const char *const PLUVIO = "35228001";
} // namespace

class TestFMesureHydro : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void clavier();
    void validerPendantUneSaisie();
    void refusPendantValider();
    void collage();
    void collageHostile();
    void copie();
    void supprimer();
    void reste();
    void lignesVides();
    void fermetureParLeCadre();
    void echecDeLaBase();
    void pluie();
    void classeurDesDebits();
    void classeurDesPluies();
    void classeurImpossible();
};

void TestFMesureHydro::clavier()
{
    Essai<F_Mesure_Hydro> e;
    QVERIFY(e.pret());
    // Station, search, two rows, save: no mouse.
    QTRY_VERIFY(e.trouver<ZoneCombo>("cmb_station_hydro")->hasFocus());
    e.taper(s(HYDRO));
    e.touche(Qt::Key_Tab);
    QCOMPARE(e.trouver<QLineEdit>("txt_station_hydro")->text(), s("Le Meu à Quédillac"));
    QVERIFY(e.bouton("cmd_rech")->hasFocus());
    e.touche(Qt::Key_Return);
    QVERIFY(e.grille()->hasFocus());
    QCOMPARE(e.grille()->model()->rowCount(), 0);
    e.taper(s("1")); // typing begins the first row
    QCOMPARE(e.grille()->model()->rowCount(), 1);
    e.taper(s("/3/2009"));
    e.touche(Qt::Key_Tab); // taken, the next cell opens
    e.taper(s("8:3"));     // given up
    e.touche(Qt::Key_Escape);
    QVERIFY(e.ecran->isVisible());
    QCOMPARE(e.cellule(0, 1), QString());
    e.touche(Qt::Key_Right);
    e.taper(s("12,5"));
    e.touche(Qt::Key_Tab); // after the last cell of the last row: a new one
    QCOMPARE(e.grille()->model()->rowCount(), 2);
    e.taper(s("02/03/2009"));
    e.touche(Qt::Key_Return);
    QCOMPARE(e.cellule(1, 0), s("02/03/2009"));
    e.touche(Qt::Key_Right);
    e.touche(Qt::Key_Right);
    e.touche(Qt::Key_F2);
    e.taper(s("14"));
    e.dialogue.reponses << Reponse::Oui << Reponse::Oui;
    e.touche(Qt::Key_A, Qt::AltModifier); // "V&alider" comes before "&Annuler"
    QTRY_COMPARE(e.dialogue.questions.size(), 2);
    QVERIFY(e.dialogue.messages.isEmpty());
    QCOMPARE(
        e.base
            .valeur(s("SELECT group_concat(DateMesureHM || ' ' || DebitJourMesureHM, '|') FROM MESURE_HYDRO "
                      "WHERE HeureMesureHM IS NULL"))
            .toString(),
        s("2009-03-01 12.5|2009-03-02 14.0"));
    QVERIFY(e.trouver<ZoneCombo>("cmb_station_hydro")->hasFocus());
    e.touche(Qt::Key_Escape);
    QVERIFY(!e.ecran->isVisible());
}

void TestFMesureHydro::validerPendantUneSaisie()
{
    // A cell still open when the save is asked for is taken with the rest.
    Essai<F_Mesure_Hydro> e;
    QVERIFY(e.pret());
    e.chercher("cmb_station_hydro", HYDRO);
    e.taper(s("01/03/2009"));
    e.touche(Qt::Key_Tab);
    e.touche(Qt::Key_Tab);
    e.taper(s("7"));
    e.dialogue.reponses << Reponse::Oui << Reponse::Oui;
    e.bouton("cmd_valider")->click();
    QCOMPARE(e.dialogue.questions.size(), 2);
    QCOMPARE(e.base.valeur(s("SELECT DebitJourMesureHM FROM MESURE_HYDRO")).toDouble(), 7.0);
}

void TestFMesureHydro::refusPendantValider()
{
    Essai<F_Mesure_Hydro> e;
    QVERIFY(e.pret());
    e.chercher("cmb_station_hydro", HYDRO);
    e.taper(s("hier"));
    e.bouton("cmd_valider")->click();
    QTRY_COMPARE(e.dialogue.messages.size(), 1);
    QCOMPARE(e.dialogue.messages[0].texte, s("La date n'est pas au format adapté : \"jj/mm/aaaa\"."));
    QVERIFY(e.dialogue.questions.isEmpty());
    QVERIFY(e.grille()->hasFocus());
    QCOMPARE(e.grille()->currentIndex(), e.grille()->model()->index(0, 0));
    // Nor does it go unsaid when the other grid comes in its place.
    e.dialogue.messages.clear();
    e.taper(s("avant-hier"));
    e.trouver<QRadioButton>("opt_debit_mensuel")->click();
    QTRY_COMPARE(e.dialogue.messages.size(), 1);
    e.trouver<QRadioButton>("opt_debit_jour")->click();
    e.grille()->setFocus();
    // Cancelling with a wrong text in a cell says nothing.
    e.dialogue.messages.clear();
    e.taper(s("demain"));
    QTest::mouseClick(e.bouton("cmd_annul"), Qt::LeftButton);
    QCoreApplication::processEvents();
    QVERIFY(e.dialogue.messages.isEmpty());
    QCOMPARE(e.base.compter(s("Temp_mesure_hydro_jour")), 0);
}

void TestFMesureHydro::collage()
{
    Essai<F_Mesure_Hydro> e;
    QVERIFY(e.pret());
    e.chercher("cmb_station_hydro", HYDRO);
    QApplication::clipboard()->setText(s("01/01/2009\t\t10,5\r\n02/01/2009\t08:00\t11\r\n"));
    e.touche(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(e.grille()->model()->rowCount(), 2);
    QCOMPARE(e.cellule(1, 1), s("08:00:00"));
    QCOMPARE(e.cellule(0, 2), s("10,5"));
    QVERIFY(e.dialogue.messages.isEmpty());
    QCOMPARE(e.trouver<QLabel>("lbl_nombre")->text(), s("2 mesures"));
}

void TestFMesureHydro::collageHostile()
{
    Essai<F_Mesure_Hydro> e;
    QVERIFY(e.pret());
    e.chercher("cmb_station_hydro", HYDRO);
    const QStringList hostiles{s("'; DROP TABLE MESURE_HYDRO;--"),
                               s("100%"),
                               s("\"\""),
                               QString(10'000, u'x'),
                               s("🌊🌧"),
                               s("\x01\x7f"),
                               s("=1+1")};
    QStringList lignes;
    for (const QString &texte : hostiles)
        lignes << texte + u'\t' + texte + u'\t' + texte;
    QApplication::clipboard()->setText(lignes.join(u'\n'));
    e.touche(Qt::Key_V, Qt::ControlModifier);
    // One box for the twenty-one cells, all left empty; the engine has nothing to say.
    QTRY_COMPARE(e.dialogue.messages.size(), 1);
    QCOMPARE(e.dialogue.messages[0].titre, s("Erreur de type"));
    QVERIFY(e.dialogue.messages[0].texte.startsWith(s("21 valeurs collées n'ont pas le format attendu")));
    for (int i = 0; i < hostiles.size(); ++i)
        for (int j = 0; j < 3; ++j)
            QCOMPARE(e.cellule(i, j), QString());
    e.dialogue.messages.clear();
    e.bouton("cmd_valider")->click();
    QCOMPARE(e.dialogue.messages.size(), 1);
    QCOMPARE(e.dialogue.messages[0].texte, s("Des éléments sont manquants dans le tableau."));
    QCOMPARE(e.base.compter(s("MESURE_HYDRO")), 0);
}

void TestFMesureHydro::copie()
{
    Essai<F_Mesure_Hydro> e([](const BaseDEssai &base) {
        base.ajouterDebitJour(s(HYDRO), QDate(2009, 1, 1), 10.5);
        base.ajouterDebitJour(s(HYDRO), QDate(2009, 1, 2), 11);
    });
    QVERIFY(e.pret());
    e.dialogue.reponses << Reponse::Oui;
    e.chercher("cmb_station_hydro", HYDRO);
    e.grille()->selectAll();
    e.touche(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), s("01/01/2009\t\t10,5\n02/01/2009\t\t11\n"));
}

void TestFMesureHydro::supprimer()
{
    Essai<F_Mesure_Hydro> e([](const BaseDEssai &base) {
        for (int jour = 1; jour <= 5; ++jour)
            base.ajouterDebitJour(s(HYDRO), QDate(2009, 1, jour), jour);
    });
    QVERIFY(e.pret());
    e.dialogue.reponses << Reponse::Oui;
    e.chercher("cmb_station_hydro", HYDRO);
    GrilleSaisie *grille = e.grille();
    QCOMPARE(grille->model()->rowCount(), 5);
    // Rows 1, 2 and 4 in one go; then a single cell.
    for (const int ligne : {0, 1, 3})
        grille->selectionModel()->select(grille->model()->index(ligne, 0),
                                         QItemSelectionModel::Select | QItemSelectionModel::Rows);
    e.touche(Qt::Key_Delete);
    QCOMPARE(grille->model()->rowCount(), 2);
    QCOMPARE(e.cellule(0, 2), s("3"));
    QCOMPARE(e.cellule(1, 2), s("5"));
    grille->clearSelection();
    grille->setCurrentIndex(grille->model()->index(1, 2));
    e.touche(Qt::Key_Delete);
    QCOMPARE(grille->model()->rowCount(), 2);
    QCOMPARE(e.cellule(1, 2), QString());
}

void TestFMesureHydro::reste()
{
    // Rows that an interrupted run left in the work tables are gone when the screen opens.
    Essai<F_Mesure_Hydro> e([](const BaseDEssai &base) {
        base.sql(s("INSERT INTO Temp_mesure_hydro_jour (DateMesure, DebitJour) VALUES ('1990-01-01', 1)"));
        base.sql(s("INSERT INTO Temp_mesure_hydro_mois (DateMesure, DebitMois) VALUES ('1990-01-01', 1)"));
    });
    QCOMPARE(e.base.compter(s("Temp_mesure_hydro_jour")), 0);
    QCOMPARE(e.base.compter(s("Temp_mesure_hydro_mois")), 0);
}

void TestFMesureHydro::lignesVides()
{
    // A row in which nothing was typed does not stop a save.
    Essai<F_Mesure_Hydro> e;
    QVERIFY(e.pret());
    e.chercher("cmb_station_hydro", HYDRO);
    e.trouver<QRadioButton>("opt_debit_mensuel")->click();
    QVERIFY(e.grille("DBGrid2")->isVisible());
    QVERIFY(!e.grille("DBGrid1")->isVisible());
    QApplication::clipboard()->setText(s("01/01/2009\t8"));
    e.grille("DBGrid2")->setFocus();
    e.touche(Qt::Key_V, Qt::ControlModifier);
    e.touche(Qt::Key_Insert);
    QCOMPARE(e.grille("DBGrid2")->model()->rowCount(), 2);
    e.dialogue.reponses << Reponse::Oui << Reponse::Non;
    e.bouton("cmd_valider")->click();
    QCOMPARE(e.dialogue.questions.size(), 2);
    QCOMPARE(e.base.valeur(s("SELECT DebitMoisMesureHM FROM MESURE_HYDRO")).toDouble(), 8.0);
    QVERIFY(!e.ecran->isVisible());
}

void TestFMesureHydro::fermetureParLeCadre()
{
    Essai<F_Mesure_Hydro> e;
    QVERIFY(e.pret());
    e.chercher("cmb_station_hydro", HYDRO);
    e.taper(s("01/03/2009"));
    e.touche(Qt::Key_Return);
    QCOMPARE(e.base.compter(s("Temp_mesure_hydro_jour")), 1);
    e.ecran->close();
    QCOMPARE(e.base.compter(s("Temp_mesure_hydro_jour")), 0);
    QVERIFY(e.dialogue.messages.isEmpty());
}

void TestFMesureHydro::echecDeLaBase()
{
    // The store refuses a row in the middle of the save: told, and the station's flows are as they were.
    Essai<F_Mesure_Hydro> e([](const BaseDEssai &base) {
        base.ajouterDebitJour(s(HYDRO), QDate(2009, 1, 1), 10);
        base.ajouterDebitJour(s(HYDRO), QDate(2009, 1, 2), 11);
    });
    QVERIFY(e.pret());
    e.dialogue.reponses << Reponse::Oui << Reponse::Oui;
    e.chercher("cmb_station_hydro", HYDRO);
    e.base.sql(s("CREATE TRIGGER panne BEFORE INSERT ON MESURE_HYDRO WHEN NEW.DateMesureHM = '2009-01-02' "
                 "BEGIN SELECT RAISE(ABORT, 'en panne'); END"));
    e.bouton("cmd_valider")->click();
    QCOMPARE(e.dialogue.messages.size(), 1);
    QVERIFY(
        e.dialogue.messages[0].texte.startsWith(s("Une erreur s'est produite en cours de traitement : \n")));
    QVERIFY(e.dialogue.messages[0].texte.endsWith(s("en panne")));
    QCOMPARE(e.base.compter(s("MESURE_HYDRO")), 2);
    QCOMPARE(e.grille()->model()->rowCount(), 2); // what was typed is still there
}

void TestFMesureHydro::pluie()
{
    Essai<F_Mesure_Pluvio> e([](const BaseDEssai &base) {
        base.sql(s(
            "INSERT INTO MESURE_PLUVIO (CodeStationPM, DateMesurePM, JourMesurePM, CommMesurePM, CodeSandreGest) "
            "VALUES ('35228001', '2009-01-01', 5, 'Orage', '17')"));
    });
    QVERIFY(e.pret());
    e.dialogue.reponses << Reponse::Oui;
    e.chercher("cmb_station", PLUVIO);
    QCOMPARE(e.bouton("cmd_valider")->text(), s("&Modifier"));
    e.grille()->setCurrentIndex(e.grille()->model()->index(0, 1));
    e.taper(s("6.25"));
    e.touche(Qt::Key_Return);
    e.dialogue.reponses << Reponse::Oui << Reponse::Oui;
    e.bouton("cmd_valider")->click();
    QCOMPARE(e.dialogue.questions.last().texte,
             s("L'enregistrement des mesures pluviométriques ont été effectuées. Désirez-vous en effectuer "
               "d'autres?"));
    QCOMPARE(e.base
                 .valeur(s("SELECT DateMesurePM || ' ' || JourMesurePM || ' ' || CommMesurePM || ' ' || "
                           "CodeSandreGest FROM MESURE_PLUVIO"))
                 .toString(),
             s("2009-01-01 6.25 Orage 17"));
}

namespace
{
// The folder that stands for C:\, and the moment of the file's name.
struct Racine {
    QTemporaryDir dossier;
    explicit Racine(bool avecExport = true)
    {
        Chemins::definirRacine(dossier.path());
        if (avecExport)
            QDir(dossier.path()).mkpath(s("Projet/Export"));
        Horloge::regler(QDateTime(QDate(2026, 1, 31), QTime(10, 0)));
    }
    QString fichier(const char *nom) const { return dossier.filePath(s("Projet/Export/") + s(nom)); }
};

// "A1 value (format)" of the cells that hold something, in the order of the rows.
QStringList cellules(const QString &chemin, const QStringList &adresses)
{
    const ClasseurLu lu(chemin);
    QStringList lignes;
    for (const QString &adresse : adresses) {
        const QJsonObject cellule = lu.cellule(s("Mesures"), adresse);
        lignes << adresse + u' ' + cellule[s("valeur")].toVariant().toString() + s(" (") +
                      cellule[s("format")].toString() + u')';
    }
    return lignes;
}
} // namespace

void TestFMesureHydro::classeurDesDebits()
{
    const Racine racine;
    Essai<F_Mesure_Hydro> e([](const BaseDEssai &base) {
        base.sql(s("UPDATE STATION_HYDRO SET IntituleStationHM = '=1+1'"));
        base.ajouterDebitJour(s(HYDRO), QDate(2009, 3, 2), 12.5);
        base.ajouterDebitJour(s(HYDRO), QDate(2009, 3, 1), 10);
        base.sql(s("UPDATE MESURE_HYDRO SET HeureMesureHM = '08:30:00' WHERE DateMesureHM = '2009-03-02'"));
        base.sql(s("INSERT INTO MESURE_HYDRO (CodeStationHM, DateMesureHM, DebitMoisMesureHM) "
                   "VALUES ('J7010610', '2009-03-01', 845)"));
    });
    QVERIFY(e.pret());
    e.dialogue.reponses << Reponse::Oui;
    e.chercher("cmb_station_hydro", HYDRO);
    const QString chemin = racine.fichier("Mesures_Hydro_31-01-26.xls");
    e.bouton("cmd_visual")->click();
    QVERIFY(e.dialogue.messages.isEmpty());
    QCOMPARE(e.dialogue.documents, (QStringList{chemin}));
    QCOMPARE(e.dialogue.progression(FenetreProgression::FProgress).titre,
             s("Visualisation des mesures sous Excel"));
    QVERIFY(!e.dialogue.progression(FenetreProgression::FProgress).visible);
    QCOMPARE(
        cellules(chemin, {s("A1"), s("A3"), s("B3"), s("C3"), s("D3"), s("A5"), s("B5"), s("C5"), s("A6"),
                          s("C6"), s("A7"), s("B7"), s("C7")}),
        (QStringList{s("A1 LISTE DES MESURES HYDROMETRIQUES JOURNALIERES (General)"),
                     s("A3 Station hydrométrique: (General)"), s("B3 J7010610 (@)"), s("C3 Nom : (General)"),
                     s("D3 =1+1 (@)"), s("A5 Date (General)"), s("B5 Heure (General)"),
                     s("C5 Débit (l/s) (General)"), s("A6 2009-03-01T00:00:00 (dd/mm/yyyy)"),
                     s("C6 10 (General)"), s("A7 2009-03-02T00:00:00 (dd/mm/yyyy)"), s("B7 08:30:00 (hh:mm)"),
                     s("C7 12.5 (General)")}));

    // The other grid, the same day: the file is replaced.
    e.trouver<QRadioButton>("opt_debit_mensuel")->click();
    e.bouton("cmd_visual")->click();
    QCOMPARE(cellules(chemin, {s("A1"), s("A5"), s("B5"), s("A6"), s("B6")}),
             (QStringList{s("A1 LISTE DES MESURES HYDROMETRIQUES MENSUELLES (General)"),
                          s("A5 Date (General)"), s("B5 Débit (l/s) (General)"),
                          s("A6 2009-03-01T00:00:00 (dd/mm/yyyy)"), s("B6 845 (General)")}));
    QVERIFY(ClasseurLu(chemin).valeur(s("Mesures"), s("C6")).toVariant().isNull());
}

void TestFMesureHydro::classeurDesPluies()
{
    const Racine racine;
    Essai<F_Mesure_Pluvio> e([](const BaseDEssai &base) {
        base.sql(s("INSERT INTO MESURE_PLUVIO (CodeStationPM, DateMesurePM, JourMesurePM) "
                   "VALUES ('35228001', '2009-01-15', 5.25)"));
    });
    QVERIFY(e.pret());
    e.dialogue.reponses << Reponse::Oui;
    e.chercher("cmb_station", PLUVIO);
    e.bouton("cmd_visual")->click();
    const QString chemin = racine.fichier("Mesures_Pluvio_31-01-26.xls");
    QCOMPARE(cellules(chemin, {s("A1"), s("A3"), s("B3"), s("A5"), s("B5"), s("B6")}),
             (QStringList{s("A1 LISTE DES MESURES PLUVIOMETRIQUES (General)"),
                          s("A3 Station pluviométrique: (General)"), s("B3 35228001 (@)"),
                          s("A5 Date (General)"), s("B5 Hauteur (mm) (General)"), s("B6 5.25 (General)")}));
    const QJsonObject date = ClasseurLu(chemin).cellule(s("Mesures"), s("A6"));
    QCOMPARE(date[s("valeur")].toString(), s("2009-01-15T00:00:00"));
    QCOMPARE(date[s("format")].toString().remove(u'\\').toLower(), s("m/d/yy"));
}

void TestFMesureHydro::classeurImpossible()
{
    // There is no folder to write in: told, and the screen can be used again.
    const Racine racine(false);
    Essai<F_Mesure_Hydro> e(
        [](const BaseDEssai &base) { base.ajouterDebitJour(s(HYDRO), QDate(2009, 3, 1), 10); });
    QVERIFY(e.pret());
    e.dialogue.reponses << Reponse::Oui;
    e.chercher("cmb_station_hydro", HYDRO);
    e.bouton("cmd_visual")->click();
    QCOMPARE(e.dialogue.messages.size(), 1);
    QVERIFY(
        e.dialogue.messages[0].texte.startsWith(s("Une erreur s'est produite en cours de traitement : \n")));
    QCOMPARE(e.dialogue.messages[0].titre, s("Erreur"));
    QVERIFY(e.dialogue.documents.isEmpty());
    QVERIFY(e.bouton("cmd_visual")->isEnabled());
    QVERIFY(!e.dialogue.progression(FenetreProgression::FProgress).visible);
    QVERIFY(!e.session.etatRapport.enCours());
}

QTEST_MAIN(TestFMesureHydro)
#include "test_f_mesure_hydro.moc"
