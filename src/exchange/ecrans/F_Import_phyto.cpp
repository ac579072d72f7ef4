#include "exchange/ecrans/F_Import_phyto.h"

#include "frame/Session.h"
#include "ui_F_Import_phyto.h"

F_Import_phyto::F_Import_phyto(Session &session, Cadre &cadre)
    : Ecran(session, cadre), m_ui(std::make_unique<Ui::F_Import_phyto>())
{
    m_ui->setupUi(this);
    preparer(m_ui->cmd_import, m_ui->cmd_fermer);
    connect(m_ui->cmd_import, &QPushButton::clicked, this, [&session] { annoncer(session); });
}

F_Import_phyto::~F_Import_phyto() = default;

void F_Import_phyto::annoncer(Session &session)
{
    session.dialogue.message(QStringLiteral("Import PC/PS réuni"), {}, Icone::Aucune);
}
