// The sheet of a manager; of any outside body, under the title "INTERVENANT", when ModeIntervenant is set.
#pragma once

#include "capture/ecrans/FicheActeur.h"

#include <memory>

namespace Ui
{
class F_Saisie_Gestionnaire;
}

// A code that is changed here is carried over to what names the old one; samplings keep it, and a line under the code says so.
class F_Saisie_Gestionnaire : public FicheActeur
{
    Q_OBJECT
public:
    F_Saisie_Gestionnaire(Session &session, Cadre &cadre);
    ~F_Saisie_Gestionnaire() override;

    void Vider_Gestionnaire() { vider(); }

protected:
    Enregistrement enregistrement() const override;
    void montrerDependants(const FicheLue *fiche) override;

private:
    void avertir();

    std::unique_ptr<Ui::F_Saisie_Gestionnaire> m_ui;
    QString m_AncienCodeIntervenant; // the code read when the body was opened
    qint64 m_prelevements = 0;       // that name it
};
