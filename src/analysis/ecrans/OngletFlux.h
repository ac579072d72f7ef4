// The tab "Flux" of the physico-chemical selection screen: what is chosen before the fluxes of one station.
#pragma once

#include "analysis/DemandeFlux.h"
#include "analysis/ReglesFlux.h"
#include "platform/Choix.h"

#include <functional>
#include <memory>
#include <QWidget>

struct Session;

namespace Ui
{
class OngletFlux;
}

class OngletFlux : public QWidget
{
    Q_OBJECT
public:
    // What the tab needs of the screen that holds it.
    struct Hote {
        std::function<void(const std::function<void()> &)> executer; // the one handler of failures
        std::function<bool()> verifierZones;                         // the checked fields that are shown
        std::function<void()> fermer;
    };

    explicit OngletFlux(QWidget *parent = nullptr);
    ~OngletFlux() override;

    // Connects the controls and fills the lists; to be called once.
    void brancher(Session &session, Hote hote);

    // The request, as the controls stand.
    DemandeFlux demande() const;

protected:
    // Enter makes the chart.
    void keyPressEvent(QKeyEvent *evenement) override;

private:
    void chargerListes();
    void changerStation(const QString &code);
    // What the base holds of the two stations.
    void montrerDonnees();
    ReglesFlux::Controles controles() const;
    QWidget *champ(ReglesFlux::Champ nom) const;
    void lancer();
    // The request without what cannot be reckoned for want of an area, after asking; nothing: the command ends.
    std::optional<DemandeFlux> demandeConfirmee() const;

    std::unique_ptr<Ui::OngletFlux> m_ui;
    Session *m_session = nullptr;
    Hote m_hote;
    ListesFiltres m_filtresBase;
};
