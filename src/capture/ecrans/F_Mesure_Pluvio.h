// "Mesures hydrologiques": the rainfall of a station, day by day.
#pragma once

#include "capture/ecrans/EcranSerie.h"
#include "database/TableTravail.h"

#include <memory>

namespace Ui
{
class F_Mesure_Pluvio;
}

class F_Mesure_Pluvio : public EcranSerie
{
    Q_OBJECT
public:
    F_Mesure_Pluvio(Session &session, Cadre &cadre, QWidget *parent = nullptr);
    ~F_Mesure_Pluvio() override;

protected:
    GrilleSaisie *grille() const override;
    TableTravail *table() const override;
    QList<TableTravail *> tables() const override;
    ListeChoix stations() const override;
    void vider() override { Vider_Mesure_Pluvio(); }
    bool existe(const QString &station) const override;
    void remplir(const QString &station) override;
    bool complete() const override;
    void enregistrer(const QString &station) override;
    void supprimer(const QString &station) override;
    VueMesures vue() const override;

private:
    void Vider_Mesure_Pluvio();

    std::unique_ptr<Ui::F_Mesure_Pluvio> m_ui;
    TableTravail m_pluies;
};
