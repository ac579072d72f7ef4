#include "capture/ecrans/F_Saisie_Commune.h"

#include "capture/ecrans/F_Saisie_Departement.h"
#include "capture/FichesLieux.h"
#include "ui_F_Saisie_Commune.h"

F_Saisie_Commune::F_Saisie_Commune(Session &session, Cadre &cadre)
    : FicheReference(session, cadre, Fiches::commune()), m_ui(std::make_unique<Ui::F_Saisie_Commune>())
{
    m_ui->setupUi(this);
    appeler<F_Saisie_Departement>(m_ui->cmd_departement, OrigineSaisie::COMMUNE);
    preparerFiche();
}

F_Saisie_Commune::~F_Saisie_Commune() = default;

void F_Saisie_Commune::remplirListes()
{
    const DataEnvironment1 &donnees = session().donnees;
    remplirCombo(m_ui->cmb_departement,
                 LectureFiche::liste(donnees, QStringLiteral("Departement"), QStringLiteral("NumDepartement"),
                                     QStringLiteral("NomDepartement"), QStringLiteral("NumDepartement")));
    m_ui->cmb_situation->remplir(
        LectureFiche::valeursConnues(donnees, QStringLiteral("COMMUNE"), QStringLiteral("SituationCommune")));
}
