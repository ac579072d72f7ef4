// The management of the codes of the outside bodies: correspondences, consultation, update.
#pragma once

#include "maintenance/M_Intervenants.h"
#include "widgets/Ecran.h"

#include <memory>

class QListWidget;
namespace Ui
{
class F_MiseAJour_Intervenant;
}

class F_MiseAJour_Intervenant : public Ecran
{
    Q_OBJECT

public:
    F_MiseAJour_Intervenant(Session &session, Cadre &cadre, QWidget *parent = nullptr);
    ~F_MiseAJour_Intervenant() override;

private:
    void importer();
    void importerFichier(const QString &fichier);
    void mettreAJour();
    void remplirListes();
    void accorderListes(const QListWidget *source);
    void accorderBoutons();

    std::unique_ptr<Ui::F_MiseAJour_Intervenant> m_ui;
    M_Intervenants::Tri m_tri = M_Intervenants::Tri::Libelle;
};
