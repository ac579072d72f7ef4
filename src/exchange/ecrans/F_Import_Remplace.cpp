#include "exchange/ecrans/F_Import_Remplace.h"

#include "frame/Session.h"
#include "ui_F_Import_Remplace.h"

F_Import_Remplace::F_Import_Remplace(Session &session, Cadre &cadre)
    : EcranReprise(session, cadre), m_ui(std::make_unique<Ui::F_Import_Remplace>())
{
    m_ui->setupUi(this);
    // No main button: a stray Enter must not replace data.
    preparer(nullptr, m_ui->cmd_annuler);
    m_ui->lbl_ligne->setText(emplacement());
    commencerPar(m_ui->cmd_annuler);
    connect(m_ui->cmd_remplacer, &QPushButton::clicked, this, &F_Import_Remplace::cmd_remplacer_Click);
}

F_Import_Remplace::~F_Import_Remplace() = default;

void F_Import_Remplace::cmd_remplacer_Click()
{
    ImportSession &import = session().importSession;
    import.RemplacerTout = true;
    // Stations from a spreadsheet never ask to be replaced.
    if (import.typeImport == TypeImport::StationsExcel)
        fermer();
    else
        RelancerImport();
}
