// "Recherche de l'élément": an element of the imported file is unknown or missing; add it, correct it or pass over it.
#pragma once

#include "exchange/ecrans/EcranReprise.h"
#include "exchange/ecrans/FichesAjout.h"

#include <memory>

namespace Ui
{
class F_Choix;
}

class F_Choix : public EcranReprise
{
    Q_OBJECT
public:
    // `libelleAction` names the kind of element or the field, `element` is what the file holds. `fiche` adds such an
    // element to the base.
    F_Choix(Session &session, Cadre &cadre, const QString &libelleAction, const QString &element,
            OuvrirFiche fiche);
    ~F_Choix() override;

    // Takes away what an element left: its texts and the state of the buttons.
    void Vider_Choix();
    // 1: the element is empty; 2: it is unknown; 5: a unit is unknown for the parameter named by `libelleAction`.
    void AfficherChoix(int mode);

private:
    void cmd_ajouter_Click();
    void cmd_corriger_Click();
    void cmd_ignorer_Click();
    void cmd_continuer_Click();
    // Adding or correcting settles the row: what is left is to go on.
    void attendreLaSuite();
    // Ajouter is there where the state allows it and there is a sheet.
    void permettreAjout(bool oui);

    std::unique_ptr<Ui::F_Choix> m_ui;
    OuvrirFiche m_fiche;
};
