// "Données brutes": every result of the study in one table, filtered, sorted, copied and exported.
#pragma once

#include "analysis/LectureDonneesBrutes.h"
#include "widgets/Ecran.h"

#include <memory>
#include <QTimer>

class ModeleDonneesBrutes;

namespace Ui
{
class F_Donnees_brutes_PC;
}

// What is asked for is read in slices from the window's own loop (LectureDonneesBrutes), the table showing meanwhile what
// it showed; another demand takes the place of one that is being read.
class F_Donnees_brutes_PC : public Ecran
{
    Q_OBJECT
public:
    F_Donnees_brutes_PC(Session &session, Cadre &cadre, QWidget *parent = nullptr);
    ~F_Donnees_brutes_PC() override;

    // The request, as the controls stand.
    DemandeDonneesBrutes demande() const;
    bool lectureEnCours() const { return m_lecture || m_colonne; }

private:
    void relierFiltres();
    void preparerGrille();
    void remplirStations();
    void remplirParametres();
    void viderFiltres();

    // Reads again, whatever was read.
    void afficher();
    // Reads if the filters ask for something else than what they asked for last.
    void filtrer();
    bool periodeValable(const DemandeDonneesBrutes &demande);
    void lire(const DemandeDonneesBrutes &demande);

    // Sorts by this column; the other way round when it is sorted by it already.
    void trier(int colonne);
    void lireColonneDuTri();

    // One more slice of what is under way.
    void avancer(int dureeMs);
    void avancerSansGarde(int dureeMs);
    void arreter();
    void montrer(const std::shared_ptr<JeuDonneesBrutes> &jeu, bool nouveau);

    void proposerDates(const JeuDonneesBrutes &jeu);

    void copier();
    void exporter();
    void surveillerBase();
    void actualiser();
    QString resume() const;

    std::unique_ptr<Ui::F_Donnees_brutes_PC> m_ui;
    ModeleDonneesBrutes *m_modele;
    QTimer m_tranches;
    std::unique_ptr<LectureDonneesBrutes> m_lecture;
    std::unique_ptr<LectureColonneBrute> m_colonne;
    std::shared_ptr<JeuDonneesBrutes> m_aTrier; // the set whose column is being read
    bool m_nouveau = false;                     // ... which is not shown yet
    DemandeDonneesBrutes m_demandee;            // by the filters, last
    MarqueBase m_marque;                        // when what is shown was read
    MarqueBase m_marqueLecture;                 // when what is being read was begun
    int m_tri = -1;                             // column; -1: as read
    Qt::SortOrder m_sens = Qt::AscendingOrder;
};
