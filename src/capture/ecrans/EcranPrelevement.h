// The sampling screen of either family: one sampling, a row for each result.
#pragma once

#include "capture/LignePrelevement.h"
#include "widgets/Ecran.h"

#include <memory>

class EcranDetailPrelevement;
class ModelePrelevement;
struct StationProposee;

namespace Ui
{
class EcranPrelevement;
}

// Idle until a search; from then on the key is locked, and the grid holds a new sampling or an existing one, until a save or
// a cancel. What F_Mesure_Physico and F_Mesures_Phyto share, which is all but their names and words.
class EcranPrelevement : public Ecran
{
    Q_OBJECT
public:
    ~EcranPrelevement() override;

protected:
    EcranPrelevement(Session &session, Cadre &cadre, FamillePrelevement famille, QWidget *parent);

    // The detail sheet of the family, for a row.
    virtual EcranDetailPrelevement *creerDetail(const LignePrelevement &ligne) = 0;

    // The screen as it opens.
    void vider();

    void keyPressEvent(QKeyEvent *evenement) override;
    void closeEvent(QCloseEvent *evenement) override;

private:
    void preparerGrille();
    void chargerStations();
    void chargerListes();
    void compterLignes();

    void changerStation(const QString &code);
    void montrerDates();
    void changerDate();
    void montrerHeures();
    void actualiserBoutons();
    void verrouiller(bool cherche);

    void rechercher();
    void valider();
    void supprimer();
    void annuler();
    void visualiser();

    void agirAutre(const QPersistentModelIndex &cellule, const QString &choix);
    template <typename Fiche> void ouvrirFiche();
    void ouvrirDetail(const QPersistentModelIndex &cellule, bool reseaux);
    void montrerEchec(const QString &numeroEtDescription);
    ClePrelevement cle() const;

    std::unique_ptr<Ui::EcranPrelevement> m_ui;
    FamillePrelevement m_famille;
    ModelePrelevement *m_modele;
    QList<StationProposee> m_stations;
    QPointer<EcranDetailPrelevement> m_detail;
    bool m_cherche = false; // a search was made: the key is locked
};
