// What the captures of flows and of rainfall have in common: the whole series of one station, looked for, typed, saved,
// deleted or shown as a workbook.
#pragma once

#include "capture/VueMesures.h"
#include "platform/Choix.h"
#include "widgets/Ecran.h"

class GrilleSaisie;
class QLabel;
class QLineEdit;
class QPushButton;
class TableTravail;
class ZoneCombo;

// Idle until a station is searched; the station is then locked, the rows can be typed, and `valider` bears "&Modifier"
// where the rows are those of the base. A save, a cancel or the closing empties the work tables.
class EcranSerie : public Ecran
{
    Q_OBJECT
public:
    using Ecran::Ecran;

protected:
    struct Controles {
        ZoneCombo *station = nullptr;
        QLineEdit *nom = nullptr;
        QWidget *saisie = nullptr; // the frame of the grids
        QLabel *nombre = nullptr;  // how many rows the grid in view has
        QPushButton *ajouter = nullptr;
        QPushButton *retirer = nullptr;
        QPushButton *rech = nullptr;
        QPushButton *valider = nullptr;
        QPushButton *annul = nullptr;
        QPushButton *suppr = nullptr;
        QPushButton *visual = nullptr;
        QPushButton *fermer = nullptr;
    };
    struct Textes {
        QString stationManquante;
        QString finEnregistrement;
    };

    // To be called once the controls are there and the work tables exist.
    void relier(const Controles &controles, const Textes &textes);
    // Empties the work tables and goes back to Idle, with this caption's button usable or not.
    void recommencer(bool validable);
    // What is shown and what can be used, from what is chosen.
    void actualiser();

    const Controles &controles() const { return m_controles; }

    // The grid in view.
    virtual GrilleSaisie *grille() const = 0;
    virtual TableTravail *table() const = 0; // the rows of that grid
    virtual QList<TableTravail *> tables() const = 0;
    virtual ListeChoix stations() const = 0;
    // The form's Vider routine: no station, no name.
    virtual void vider() = 0;
    virtual bool existe(const QString &station) const = 0;
    virtual void remplir(const QString &station) = 0;
    virtual bool complete() const = 0;
    virtual void enregistrer(const QString &station) = 0;
    virtual void supprimer(const QString &station) = 0;
    virtual VueMesures vue() const = 0;

    void closeEvent(QCloseEvent *evenement) override;

private:
    void choisirStation();
    void rechercher();
    void valider();
    void demanderSuppression();
    void visualiser();
    void viderTables();
    void dire(const QString &texte, const QString &titre) const;

    Controles m_controles;
    Textes m_textes;
    bool m_cherche = false;
    bool m_supprime = false; // the station's measures were just deleted
    bool m_validable = true;
};
