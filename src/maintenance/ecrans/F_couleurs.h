// The palette of the charts, edited by its swatches.
#pragma once

#include "platform/Dialogue.h"
#include "widgets/Ecran.h"

#include <array>

class QToolButton;

class F_couleurs : public Ecran
{
    Q_OBJECT

public:
    F_couleurs(Session &session, Cadre &cadre, QWidget *parent = nullptr);

private:
    void charger();
    void choisir(int position);
    void valider();
    void peindre(int position);

    std::array<QToolButton *, 40> m_echantillons{};
    std::array<Couleur, 40> m_couleurs{};
    std::array<bool, 40> m_modifiees{};
};
