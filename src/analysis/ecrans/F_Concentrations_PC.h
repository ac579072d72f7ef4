// "Consultation physico-chimique": what is chosen before the statistics report and the charts of one station.
#pragma once

#include "analysis/DemandeEvolution.h"
#include "analysis/ListesSelection.h"
#include "analysis/ReglesConcentrations.h"
#include "analysis/ReperesParametre.h"
#include "widgets/Ecran.h"

#include <functional>
#include <memory>

class QAbstractButton;
class QLabel;
class QLineEdit;
struct CommandeRapport;

namespace Ui
{
class F_Concentrations_PC;
}

class F_Concentrations_PC : public Ecran
{
    Q_OBJECT
public:
    F_Concentrations_PC(Session &session, Cadre &cadre, QWidget *parent = nullptr);
    ~F_Concentrations_PC() override;

    // The request of the report, of the chart, as the controls stand.
    DemandeRapport demandeRapport() const;
    DemandeEvolution demandeEvolution() const;

private:
    void chargerListes();
    // Every field empty and every list without a choice.
    void Vider_Concentrations_PC();

    void changerStation();
    void changerParametre();
    void changerFraction();
    void changerMode();
    void changerSeuil(bool coche);
    void changerEchelle(bool cochee);
    void lancerRapport();
    void lancerGraphique();
    void lancerGraphiqueEtRapport();
    // Checks the screen for a command, then makes and runs it.
    void lancer(ReglesConcentrations::Commande nature, const std::function<CommandeRapport()> &commande);

    // The selected parameters' codes, in either mode.
    QStringList parametres() const;
    QString fractionUnique() const;
    QList<CourbeDemandee> courbesDemandees() const;
    bool plusieurs() const;
    ReglesConcentrations::Controles controles() const;
    QWidget *champ(ReglesConcentrations::Champ nom) const;

    void lireReperesDuParametre();
    // What is shown and what can be used, from what is chosen; each disabled control says why.
    void actualiser();
    void montrerChoixDuParametre();
    void permettreReperes();
    // The values and units that the parameter is held against.
    void montrerReperes();

    std::unique_ptr<Ui::F_Concentrations_PC> m_ui;
    ListesFiltres m_filtresBase;
    ReperesParametre m_reperes;
};
