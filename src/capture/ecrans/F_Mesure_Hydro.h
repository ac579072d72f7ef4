// "Mesures hydrologiques": the flows of a hydrometric station, daily and monthly.
#pragma once

#include "capture/ecrans/EcranSerie.h"
#include "database/TableTravail.h"

#include <memory>

namespace Ui
{
class F_Mesure_Hydro;
}

class F_Mesure_Hydro : public EcranSerie
{
    Q_OBJECT
public:
    F_Mesure_Hydro(Session &session, Cadre &cadre, QWidget *parent = nullptr);
    ~F_Mesure_Hydro() override;

protected:
    GrilleSaisie *grille() const override;
    TableTravail *table() const override;
    QList<TableTravail *> tables() const override;
    ListeChoix stations() const override;
    void vider() override { Vider_Mesure_Hydro(); }
    bool existe(const QString &station) const override;
    void remplir(const QString &station) override;
    bool complete() const override;
    void enregistrer(const QString &station) override;
    void supprimer(const QString &station) override;
    VueMesures vue() const override;

private:
    // No station; the option keeps its choice.
    void Vider_Mesure_Hydro();
    void changerOption();
    bool journalier() const;

    std::unique_ptr<Ui::F_Mesure_Hydro> m_ui;
    TableTravail m_jours;
    TableTravail m_mois;
};
