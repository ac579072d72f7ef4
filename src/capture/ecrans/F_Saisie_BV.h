// The sheet of a basin: what it is, its communes, its sub-basins, its objectives, and whether the study is about it.
#pragma once

#include "capture/ecrans/FicheReference.h"

#include <memory>

class QListWidget;
class TableObjectifs;

namespace Ui
{
class F_Saisie_BV;
}

class F_Saisie_BV : public FicheReference
{
    Q_OBJECT
public:
    F_Saisie_BV(Session &session, Cadre &cadre);
    ~F_Saisie_BV() override;

    void Vider_BV() { vider(); }

protected:
    void remplirListes() override;
    void montrerDependants(const FicheLue *fiche) override;
    QStringList saisieDependante() const override;
    bool terminerSaisie() override;
    std::optional<RefusFiche> refusSaisie() const override;
    Enregistrement enregistrement() const override;

private:
    std::unique_ptr<Ui::F_Saisie_BV> m_ui;
    void preparerGrille();

    TableObjectifs *m_objectifs;
    QListWidget *m_parametres;
    QListWidget *m_fractions;
    QStringList m_sousBassinsLus; // of the row that is shown
};
