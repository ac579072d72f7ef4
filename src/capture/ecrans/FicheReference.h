// What every reference sheet has in common: one row of a table, chosen by its key, typed, saved, deleted.
#pragma once

#include "capture/DescriptionFiche.h"
#include "capture/LectureFiche.h"
#include "capture/M_Enreg_Tables.h"
#include "capture/ReglesFiche.h"
#include "frame/Cadre.h"
#include "frame/Session.h"
#include "widgets/Ecran.h"

#include <QHash>
#include <QPushButton>
#include <QScopedValueRollback>

class ListeFiltree;
class ZoneCombo;
class ZoneComboLibre;

// Which screen opens a sheet (Session::OrigineSaisie); 0 is the menu.
namespace OrigineSaisie
{
enum : int {
    MENU = 0,
    COMMUNE = 1,
    BASSIN = 2,
    SOUS_BASSIN = 3,
    STATION_QUALITE = 4,
    STATION_HYDRO = 5,
    STATION_PLUVIO = 6,
    PARAMETRE = 7,
    GRILLE_SEQ = 8,
    MESURE_PHYSICO = 20,
    MESURE_PHYTO = 21,
    MESURE_HYDRO = 22,
    MESURE_PLUVIO = 23,
    IMPORT = 83,
};
} // namespace OrigineSaisie

// A sheet is a .ui file, a table of fields (DescriptionFiche) and, at the least, this:
//
//     F_Saisie_Commune::F_Saisie_Commune(Session &session, Cadre &cadre)
//         : FicheReference(session, cadre, Fiches::commune()), m_ui(std::make_unique<Ui::F_Saisie_Commune>())
//     {
//         m_ui->setupUi(this);
//         preparerFiche();
//     }
//
// The controls are found by their names: those of the table of fields (ZoneLibelle, ZoneMemo, ZoneNombre, ZoneDate,
// ZoneCombo, ZoneComboLibre or QLineEdit) and of its link tables (ListeFiltree); the key combo `cmb_code` or `cmb_nom` (a ZoneCombo, or, where the
// key is typed in it, a ZoneComboLibre that is also in the table of fields); `cmd_valider`, `cmd_annul`, `cmd_suppr`,
// `cmd_fermer`.
//
// - Choosing a key loads its row. A key typed that exists, in a sheet that is otherwise untouched, does too.
// - Fields are checked when they are left, by the length and type of their columns.
// - What is typed and not saved is asked about before it is lost.
class FicheReference : public Ecran
{
    Q_OBJECT
public:
    ~FicheReference() override;

    // How a screen says that it opens the sheet itself.
    enum Mode { MODE_MENU = 1, MODE_ECRAN = 2, MODE_IMPORT = 3 };

    // Opens a sheet from another screen. When it closes, `rafraichir` runs, unless the caller has gone. `origine` tells
    // the screen that calls.
    template <typename Fiche>
    static Fiche *ouvrir(Session &session, Cadre &cadre, const QObject *appelant, int origine,
                         const std::function<void()> &rafraichir, Mode mode = MODE_ECRAN)
    {
        const QScopedValueRollback garderMode(session.ModeSaisie, static_cast<int>(mode));
        const QScopedValueRollback garderOrigine(session.OrigineSaisie, origine);
        auto *fiche = new Fiche(session, cadre);
        if (appelant && rafraichir)
            connect(fiche, &FicheReference::fermee, appelant, rafraichir);
        cadre.montrer(fiche);
        return fiche;
    }

    // Puts a text, or a combo's row by its text or its code, into a control: what an import has met. It counts as loaded,
    // not as typed.
    void proposer(const QString &controle, const QString &texte);

    // What ModeSaisie and OrigineSaisie were when the sheet was made.
    int mode() const { return m_mode; }
    int origine() const { return m_origine; }

Q_SIGNALS:
    // A row was written or deleted.
    void enregistree();
    // The sheet has closed.
    void fermee();

protected:
    FicheReference(Session &session, Cadre &cadre, const DescriptionFiche &description);

    // To be called once, after setupUi.
    void preparerFiche();

    // Empties the sheet, under ViderEnCours; each sheet gives it its own name (Vider_Commune).
    void vider();
    // A button opens another sheet; when that one closes, the lists of this one are read again.
    template <typename Fiche> void appeler(QPushButton *bouton, int origine)
    {
        connect(bouton, &QAbstractButton::clicked, this, [this, origine] {
            executer([this, origine] {
                ouvrir<Fiche>(session(), cadre(), this, origine,
                              [this] { executer([this] { rafraichir(); }); });
            });
        });
    }
    // Fills a combo. A stored value that is not among the rows is added when a row that holds it is shown, so that a save
    // keeps it.
    void remplirCombo(ZoneCombo *combo, const ListeChoix &lignes);
    // Fills the list of a link table. Chosen rows are shown first, so that they are seen in a long list.
    void remplirListe(ListeFiltree *liste, const ListeChoix &lignes);
    // The lists of all combos and of the key combo, read again; what was chosen stays.
    void rafraichir();
    // Shows the row of this key, if there is one; for screens that open the sheet on it.
    bool montrerCle(const QString &cle);

    // For a sheet with more than the fields of its table:
    // fills its lists (at the start, and when a sheet opened from it closes);
    virtual void remplirListes() {}
    // gives the rows of its key combo: what is unique as the code, the criterion as the text;
    virtual ListeChoix cles() const;
    // shows what belongs to the row (nothing: the sheet is being emptied);
    virtual void montrerDependants(const FicheLue * /*fiche*/) {}
    // shows what hangs on a field that `proposer` has filled;
    virtual void suivreProposition() {}
    // what the user has put beside the fields, to tell whether anything has changed;
    virtual QStringList saisieDependante() const { return {}; }
    // takes what is being typed outside the fields (a grid's cell); false where it cannot be taken, which is told;
    virtual bool terminerSaisie() { return true; }
    // what refuses the save beside the fields;
    virtual std::optional<RefusFiche> refusSaisie() const { return std::nullopt; }
    // what the save writes.
    virtual Enregistrement enregistrement() const;
    // after a save, before its sheet is emptied or closed.
    virtual void apresEnregistrement() {}

    const DescriptionFiche &description() const { return m_description; }
    // The values of the fields, by column.
    ValeursFiche valeurs() const;
    // The rows chosen in the lists, by link table.
    LiensFiche liens() const;
    QString texte(const ChampFiche &champ) const;
    void fixer(const ChampFiche &champ, const QString &texte);
    // The row that is loaded, or nothing for a new one.
    const std::optional<FicheLue> &chargee() const { return m_chargee; }

    void keyPressEvent(QKeyEvent *evenement) override;
    void closeEvent(QCloseEvent *evenement) override;

private:
    QWidget *controle(const QString &nom) const;
    void brancherChamp(const ChampFiche &champ);
    void choisirCle();
    void suivreCle();
    void charger(const QString &code);
    void valider();
    void annuler();
    void supprimer();
    void retenirSaisie();
    bool modifiee() const;
    bool abandonner();
    void remplirCles();
    void montrerEtat();
    void refuser(const RefusFiche &refus);
    QStringList saisie() const;

    const DescriptionFiche m_description;
    int m_mode;
    int m_origine;
    ZoneCombo *m_cles = nullptr; // null where the key is typed in its combo
    ZoneComboLibre *m_clesLibres = nullptr;
    QPushButton *m_valider = nullptr;
    QPushButton *m_suppr = nullptr;
    void montrerLies(const QString &controle, const QStringList &codes);

    QHash<ZoneCombo *, ListeChoix> m_listes;
    QHash<ListeFiltree *, ListeChoix> m_listesLiees;
    std::optional<FicheLue> m_chargee;
    QStringList m_saisieConnue; // as loaded, or as emptied
    bool m_fermetureDecidee = false;
    bool m_vientDeCharger = false; // by the event under way
};
