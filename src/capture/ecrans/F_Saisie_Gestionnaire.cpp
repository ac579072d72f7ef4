#include "capture/ecrans/F_Saisie_Gestionnaire.h"

#include "capture/FichesIntervenants.h"
#include "ui_F_Saisie_Gestionnaire.h"

#include <QTimer>

namespace
{
// From the menu alone: a screen or an import that opens the sheet wants a manager.
bool enIntervenant(const Session &session)
{
    return session.ModeIntervenant && session.ModeSaisie == FicheReference::MODE_MENU;
}
} // namespace

F_Saisie_Gestionnaire::F_Saisie_Gestionnaire(Session &session, Cadre &cadre)
    : FicheActeur(session, cadre, enIntervenant(session) ? Fiches::intervenant() : Fiches::gestionnaire()),
      m_ui(std::make_unique<Ui::F_Saisie_Gestionnaire>())
{
    m_ui->setupUi(this);
    if (enIntervenant(session)) {
        setWindowTitle(QStringLiteral("INTERVENANT"));
        m_ui->cadre_identite->setTitle(QStringLiteral("Intervenant"));
        m_ui->lbl_cle->setText(QStringLiteral("Intervenant &enregistré :"));
        m_ui->cmb_code->setToolTip(QStringLiteral(
            "Choisir un intervenant pour le consulter ou le modifier ; vide pour en saisir un nouveau"));
    }
    session.ModeIntervenant = false;
    connect(m_ui->txt_code, &QLineEdit::textChanged, this, &F_Saisie_Gestionnaire::avertir);
    preparerFiche();
}

F_Saisie_Gestionnaire::~F_Saisie_Gestionnaire() = default;

Enregistrement F_Saisie_Gestionnaire::enregistrement() const
{
    Enregistrement e = FicheActeur::enregistrement();
    const QString ancien = m_AncienCodeIntervenant;
    const QString nouveau = valeurs().value(QStringLiteral("CodeSandreInterv")).trimmed();
    e.dependants = [ancien, nouveau](const DataEnvironment1 &donnees, qint64 /*rang*/) {
        FichesIntervenants::reporterCode(donnees, ancien, nouveau);
    };
    return e;
}

void F_Saisie_Gestionnaire::montrerDependants(const FicheLue *fiche)
{
    m_AncienCodeIntervenant = fiche ? fiche->cle : QString();
    m_prelevements = fiche ? FichesIntervenants::prelevements(session().donnees, m_AncienCodeIntervenant) : 0;
    avertir();
}

void F_Saisie_Gestionnaire::avertir()
{
    const QString code = m_ui->txt_code->text().trimmed();
    const bool change =
        !m_AncienCodeIntervenant.isEmpty() && !code.isEmpty() && code != m_AncienCodeIntervenant;
    m_ui->lbl_report->setVisible(change && m_prelevements > 0);
    if (m_prelevements == 0)
        return;
    m_ui->lbl_report->setText(
        (m_prelevements == 1
             ? QStringLiteral("1 prélèvement garde l'ancien code (préleveur ou producteur).")
             : QStringLiteral("%1 prélèvements gardent l'ancien code (préleveur ou producteur).")
                   .arg(m_prelevements)) +
        QStringLiteral("\nPour le changer aussi : « Gestion Correspondance Intervenants »."));
    // The window takes the room that the line needs.
    QTimer::singleShot(0, this, [this] {
        QWidget *fenetre = parentWidget() ? parentWidget() : this;
        fenetre->resize(fenetre->size() + (sizeHint() - size()).expandedTo({0, 0}));
    });
}
