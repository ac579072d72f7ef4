// The detail sheet of a row of a sampling: what the grid has no column for.
#pragma once

#include "capture/LignePrelevement.h"
#include "widgets/Ecran.h"

#include <memory>

namespace Ui
{
class EcranDetailPrelevement;
}

class EcranDetailPrelevement : public Ecran
{
    Q_OBJECT
public:
    ~EcranDetailPrelevement() override;

    // The sampling, shown and not changed.
    void montrerPrelevement(const QString &station, const QString &nom, const QString &date,
                            const QString &heure);
    void montrerReseaux(); // its tab

Q_SIGNALS:
    // The row as the user wants it.
    void valide(const TextesLigne &textes);
    void fermee();

protected:
    EcranDetailPrelevement(Session &session, Cadre &cadre, FamillePrelevement famille,
                           const LignePrelevement &ligne, QWidget *parent);
    void closeEvent(QCloseEvent *evenement) override;

private:
    void poserRegles();
    void montrerLigne();
    void chargerReseaux();
    void ajouterReseau();
    void supprimerReseau();
    void changerOnglet(int nouveau);
    void actualiserBoutons();
    void valider();

    std::unique_ptr<Ui::EcranDetailPrelevement> m_ui;
    FamillePrelevement m_famille;
    LignePrelevement m_ligne;
    int m_onglet = 0;
};
