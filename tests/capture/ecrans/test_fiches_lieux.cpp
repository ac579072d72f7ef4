// The sheets of places and stations: what they load, what they save, and what is typed into them that nobody expects.
#include "capture/ecrans/F_Saisie_BV.h"
#include "capture/ecrans/F_Saisie_Commune.h"
#include "capture/ecrans/F_Saisie_Departement.h"
#include "capture/ecrans/F_Saisie_SS_BV.h"
#include "capture/ecrans/F_Saisie_Station_Hydro.h"
#include "capture/ecrans/F_Saisie_Station_Mesure.h"
#include "capture/ecrans/F_Saisie_Station_Pluvio.h"
#include "capture/ecrans/FicheDEssai.h"
#include "capture/FichesLieux.h"
#include "capture/FichesStations.h"
#include "database/Schema.h"

#include <QCheckBox>
#include <QLabel>
#include <QMap>
#include <QSet>
#include <QTableView>

namespace
{
// Texts that a program in a hurry would trip over.
const char *const HOSTILES[] = {"L'\"Île\" d''Arz", "100 %1 %2 %s %n_", "x'); DROP TABLE COMMUNE;--",
                                "Étang 🐟🌊",         "<b>&amp;</b>",     "=1+1",
                                "..\\..\\C:\\"};

int longueur(const QString &table, const QString &colonne)
{
    const Schema::Table *t = Schema::table(table);
    return t->colonnes[t->position(colonne)].longueur;
}

bool estTexte(const QString &table, const QString &colonne)
{
    const Schema::Table *t = Schema::table(table);
    return t->colonnes[t->position(colonne)].genre == Schema::Genre::Texte;
}

// Types each of these texts into all fields of a new row at once, and looks at what is stored.
template <typename Fiche> void typerHostile(const DescriptionFiche &description)
{
    FicheDEssai<Fiche> essai;
    QVERIFY(essai.ouvrir());
    for (const char *hostile : HOSTILES) {
        QMap<QString, QString> attendus;
        for (const ChampFiche &champ : description.champs) {
            const QByteArray nom = champ.controle.toUtf8();
            if (!estTexte(description.table, champ.colonne) ||
                qobject_cast<ZoneCombo *>(essai.controle(nom.constData())))
                continue;
            const QString texte = s(hostile).left(longueur(description.table, champ.colonne)).trimmed();
            essai.taper(nom.constData(), texte);
            attendus.insert(champ.colonne, texte);
        }
        const int avant = essai.base.compter(description.table);
        essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Oui});
        QVERIFY2(essai.dialogue.messages.isEmpty() && essai.dialogue.imprevus.isEmpty(),
                 qPrintable(essai.dernierMessage()));
        QCOMPARE(essai.base.compter(description.table), avant + 1);
        for (auto attendu = attendus.cbegin(); attendu != attendus.cend(); ++attendu)
            QCOMPARE(essai.base
                         .valeur(QStringLiteral("SELECT [%1] FROM [%2] ORDER BY rowid DESC")
                                     .arg(attendu.key(), description.table))
                         .toString(),
                     attendu.value());
    }
    QVERIFY(essai.base.compter(s("COMMUNE")) > 0);
}

// Ten thousand characters and a character that cannot be seen are refused in words, each in every field.
template <typename Fiche> void refuserHostile(const DescriptionFiche &description)
{
    FicheDEssai<Fiche> essai;
    QVERIFY(essai.ouvrir());
    for (const ChampFiche &champ : description.champs) {
        const QByteArray nom = champ.controle.toUtf8();
        if (qobject_cast<ZoneCombo *>(essai.controle(nom.constData())))
            continue;
        essai.dialogue.messages.clear();
        essai.taper(nom.constData(), QString(10000, u'x'));
        QTRY_VERIFY2(!essai.dialogue.messages.isEmpty(), nom.constData());
        QVERIFY2(essai.dernierMessage().contains(s("caractères au maximum")) ||
                     essai.dialogue.messages.last().titre == s("Erreur de type"),
                 qPrintable(essai.dernierMessage()));
        if (!estTexte(description.table, champ.colonne))
            continue;
        essai.dialogue.messages.clear();
        essai.taper(nom.constData(), s("a") + QChar(7) + s("b"));
        QTRY_VERIFY2(!essai.dialogue.messages.isEmpty(), nom.constData());
        QVERIFY2(essai.dernierMessage().contains(s("caractère invisible")),
                 qPrintable(essai.dernierMessage()));
    }
}
// Whether a sheet can be used by keys alone and on a small screen.
template <typename Fiche> void tenirDebout()
{
    FicheDEssai<Fiche> essai;
    QVERIFY(essai.ouvrir());
    QMap<QString, QString> lettres;
    const auto prendre = [&](const QString &texte, const QWidget *widget) {
        const QString lettre = QKeySequence::mnemonic(texte).toString();
        if (lettre.isEmpty())
            return;
        QVERIFY2(!lettres.contains(lettre), qPrintable(widget->objectName() + u' ' + lettres.value(lettre)));
        lettres.insert(lettre, widget->objectName());
    };
    QSet<const QWidget *> nommes;
    const auto boutons = essai.fiche->template findChildren<QAbstractButton *>();
    for (const QAbstractButton *bouton : boutons)
        prendre(bouton->text(), bouton);
    const auto etiquettes = essai.fiche->template findChildren<QLabel *>();
    for (const QLabel *etiquette : etiquettes) {
        if (etiquette->buddy())
            nommes << etiquette->buddy();
        prendre(etiquette->text(), etiquette);
    }
    // Every field has its label, and Tab goes through all of them, from the key to Fermer.
    QStringList parcours;
    QWidget *courant =
        essai.controle(essai.fiche->template findChild<QWidget *>(s("cmb_code")) ? "cmb_code" : "cmb_nom");
    const QWidget *premier = courant;
    do {
        if ((courant->focusPolicy() & Qt::TabFocus) && courant->isVisible() &&
            !courant->objectName().isEmpty() && !courant->objectName().startsWith(s("qt_")))
            parcours << courant->objectName();
        courant = courant->nextInFocusChain();
    } while (courant != premier);
    const QString attendus = parcours.join(u' ');
    QVERIFY2(attendus.endsWith(s("cmd_valider cmd_suppr cmd_annul cmd_fermer")), qPrintable(attendus));
    for (const QString &nom : std::as_const(parcours)) {
        const QWidget *champ = essai.controle(nom.toUtf8().constData());
        if (!qobject_cast<const QAbstractButton *>(champ))
            QVERIFY2(nommes.contains(champ), qPrintable(nom));
    }
    // Room for the main window's title, menu and status bar on 1366 x 768.
    QVERIFY2(essai.fiche->sizeHint().width() <= 1340 && essai.fiche->sizeHint().height() <= 640,
             qPrintable(QStringLiteral("%1 x %2")
                            .arg(essai.fiche->sizeHint().width())
                            .arg(essai.fiche->sizeHint().height())));
}
} // namespace

class TestFichesLieux : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void hostileCommune() { typerHostile<F_Saisie_Commune>(Fiches::commune()); }
    void hostileDepartement() { typerHostile<F_Saisie_Departement>(Fiches::departement()); }
    void hostileBassin() { typerHostile<F_Saisie_BV>(Fiches::bassin()); }
    void hostileSousBassin() { typerHostile<F_Saisie_SS_BV>(Fiches::sousBassin()); }
    void hostileQualite() { typerHostile<F_Saisie_Station_Mesure>(Fiches::stationQualite()); }
    void hostileHydro() { typerHostile<F_Saisie_Station_Hydro>(Fiches::stationHydro()); }
    void hostilePluvio() { typerHostile<F_Saisie_Station_Pluvio>(Fiches::stationPluvio()); }

    void refusCommune() { refuserHostile<F_Saisie_Commune>(Fiches::commune()); }
    void refusDepartement() { refuserHostile<F_Saisie_Departement>(Fiches::departement()); }
    void refusBassin() { refuserHostile<F_Saisie_BV>(Fiches::bassin()); }
    void refusSousBassin() { refuserHostile<F_Saisie_SS_BV>(Fiches::sousBassin()); }
    void refusQualite() { refuserHostile<F_Saisie_Station_Mesure>(Fiches::stationQualite()); }
    void refusHydro() { refuserHostile<F_Saisie_Station_Hydro>(Fiches::stationHydro()); }
    void refusPluvio() { refuserHostile<F_Saisie_Station_Pluvio>(Fiches::stationPluvio()); }

    void debout_commune() { tenirDebout<F_Saisie_Commune>(); }
    void debout_departement() { tenirDebout<F_Saisie_Departement>(); }
    void debout_bassin() { tenirDebout<F_Saisie_BV>(); }
    void debout_sousBassin() { tenirDebout<F_Saisie_SS_BV>(); }
    void debout_qualite() { tenirDebout<F_Saisie_Station_Mesure>(); }
    void debout_hydro() { tenirDebout<F_Saisie_Station_Hydro>(); }
    void debout_pluvio() { tenirDebout<F_Saisie_Station_Pluvio>(); }

    void stationRelue()
    {
        FicheDEssai<F_Saisie_Station_Mesure> essai;
        essai.base.sql(s("INSERT INTO StationMesureXCommune VALUES ('04211940', '22278')"));
        essai.base.sql(s("INSERT INTO StationMesureXGest VALUES ('04211940', '19'), ('04211940', '99')"));
        QVERIFY(essai.ouvrir());
        essai.choisir("cmb_code", "04211940");
        QCOMPARE(essai.texte("txt_nom"), s("Pont de l'Ile"));
        QCOMPARE(essai.texte("cmb_bv"), s("BV d'essai"));
        QCOMPARE(essai.texte("cmb_ssbv"), s("Haut du BV"));
        QCOMPARE(essai.texte("txt_site"), s("031"));
        QVERIFY(!essai.controle("txt_site")->isEnabled());
        // Chosen rows come first; one that is in no list is shown by its code and kept.
        QCOMPARE(essai.controle<ListeFiltree>("lst_commune")->item(0)->text(), s("Saint-Brieuc"));
        QCOMPARE(essai.controle<ListeFiltree>("lst_gestionnaire")->codes(), QStringList({s("19"), s("99")}));
        essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Oui});
        QCOMPARE(essai.base.compter(s("StationMesureXGest")), 2);
        QVERIFY(essai.controle("txt_site")->isEnabled());
        QVERIFY(essai.controle<ListeFiltree>("lst_gestionnaire")->codes().isEmpty());
    }

    void pointTropLong()
    {
        FicheDEssai<F_Saisie_Station_Mesure> essai;
        QVERIFY(essai.ouvrir());
        essai.taper("txt_site", "0311");
        QTRY_COMPARE(essai.dernierMessage(),
                     s("Le code du point ne doit contenir que 3 caractères au maximum."));
    }

    // A list that was changed is a change like another.
    void listeChangee()
    {
        FicheDEssai<F_Saisie_Station_Pluvio> essai;
        QVERIFY(essai.ouvrir());
        essai.choisir("cmb_code", "35228001");
        auto *communes = essai.controle<ListeFiltree>("lst_commune");
        communes->item(0)->setSelected(true);
        essai.cliquer("cmd_fermer", {Reponse::Non});
        QCOMPARE(essai.dialogue.questions.size(), 1);
        QVERIFY(essai.fiche->isVisible());
        communes->item(0)->setSelected(false);
        essai.cliquer("cmd_fermer");
        QCOMPARE(essai.dialogue.questions.size(), 1);
        QVERIFY(!essai.fiche->isVisible());
    }

    void bassinRelu()
    {
        FicheDEssai<F_Saisie_BV> essai;
        essai.base.sql(s("INSERT INTO OBJECTIF (NumBV, CodeParam, CD_FRACTION, MoyObjf, MaxObjf) VALUES "
                         "(1, '1340', '23', 25, 37.5)"));
        essai.base.sql(s("INSERT INTO BASSIN_VERSANT (NumBV, NomBV) VALUES (2, 'Autre')"));
        QVERIFY(essai.ouvrir());
        QVERIFY(!essai.controle<QCheckBox>("chk_reference")->isChecked());
        essai.choisir("cmb_nom", "BV d'essai");
        QVERIFY(essai.controle<QCheckBox>("chk_reference")->isChecked());
        QCOMPARE(essai.texte("txt_superf"), s("250,5"));
        auto *grille = essai.controle<QTableView>("grd_objectif");
        QCOMPARE(grille->model()->rowCount(), 1);
        QCOMPARE(grille->model()->index(0, 0).data().toString(), s("Nitrates"));
        QCOMPARE(grille->model()->index(0, 1).data().toString(), s("Eau brute"));
        QCOMPARE(grille->model()->index(0, 3).data().toString(), s("37,5"));
        QVERIFY(!grille->model()->flags(grille->model()->index(0, 4)).testFlag(Qt::ItemIsEditable));
        // An objective that was changed is asked about, and is not saved by going to another basin.
        QVERIFY(grille->model()->setData(grille->model()->index(0, 2), s("30")));
        essai.repondre({Reponse::Oui});
        essai.choisir("cmb_nom", "Autre");
        QCOMPARE(grille->model()->rowCount(), 0);
        QVERIFY(!essai.controle<QCheckBox>("chk_reference")->isChecked());
        QCOMPARE(essai.base.valeur(s("SELECT MoyObjf FROM OBJECTIF WHERE NumBV = 1")), QVariant(25.0));
        essai.cliquer("cmd_fermer");
        QVERIFY(!essai.fiche->isVisible());
    }

    // A sub-basin that the user takes back leaves the basin.
    void sousBassinRetire()
    {
        FicheDEssai<F_Saisie_BV> essai;
        QVERIFY(essai.ouvrir());
        essai.choisir("cmb_nom", "BV d'essai");
        auto *liste = essai.controle<ListeFiltree>("lst_ssbv");
        QCOMPARE(liste->codes(), QStringList{s("1")});
        liste->vider();
        essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Oui, Reponse::Non});
        QVERIFY(essai.base.valeur(s("SELECT NumBV FROM SOUS_BASSIN_VERSANT")).isNull());
        QCOMPARE(essai.base.valeur(s("SELECT CodeParam FROM OBJECTIF")), QVariant());
    }

    // In an empty base the first basin is offered as the reference.
    void premierBassin()
    {
        FicheDEssai<F_Saisie_BV> essai(true);
        QVERIFY(essai.ouvrir());
        QVERIFY(essai.controle<QCheckBox>("chk_reference")->isChecked());
        essai.taper("txt_nom", "L'Arz");
        essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Oui, Reponse::Oui});
        QCOMPARE(essai.base.valeur(s("SELECT Bassin_versant FROM LIEU_BASSIN_VERSANT")),
                 QVariant(s("L'Arz")));
        QCOMPARE(essai.cadre.bassin, s("L'Arz"));
        QVERIFY(!essai.controle<QCheckBox>("chk_reference")->isChecked());
        QCOMPARE(essai.base.compter(s("Temp_objectif")), 0);
    }

    void rattachements()
    {
        FicheDEssai<F_Saisie_Station_Hydro> essai;
        QVERIFY(essai.ouvrir());
        essai.choisir("cmb_code", "J7010610");
        QCOMPARE(essai.texte("txt_nom"), s("Le Meu à Quédillac"));
        QCOMPARE(essai.controle<ListeFiltree>("lst_station")->codes(), QStringList{s("04211940")});
        QCOMPARE(essai.texte("txt_surfreel"), s("120"));
    }
};

QTEST_MAIN(TestFichesLieux)
#include "test_fiches_lieux.moc"
