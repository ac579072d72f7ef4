#include "capture/ecrans/F_Saisie_Station_Mesure.h"

#include "capture/ecrans/F_Saisie_BV.h"
#include "capture/ecrans/F_Saisie_Commune.h"
#include "capture/ecrans/F_Saisie_Gestionnaire.h"
#include "capture/ecrans/F_Saisie_SS_BV.h"
#include "capture/ecrans/ListesFiche.h"
#include "capture/EnregistrementStation.h"
#include "capture/FichesStations.h"
#include "database/M_Sandrification.h"
#include "ui_F_Saisie_Station_Mesure.h"

namespace
{
constexpr int LONGUEUR_POINT = 3; // of LOCALISATION.CdPoint
} // namespace

F_Saisie_Station_Mesure::F_Saisie_Station_Mesure(Session &session, Cadre &cadre)
    : FicheReference(session, cadre, Fiches::stationQualite()),
      m_ui(std::make_unique<Ui::F_Saisie_Station_Mesure>())
{
    m_ui->setupUi(this);
    appeler<F_Saisie_BV>(m_ui->cmd_bv, OrigineSaisie::STATION_QUALITE);
    appeler<F_Saisie_SS_BV>(m_ui->cmd_ssbv, OrigineSaisie::STATION_QUALITE);
    appeler<F_Saisie_Commune>(m_ui->cmd_commune, OrigineSaisie::STATION_QUALITE);
    appeler<F_Saisie_Gestionnaire>(m_ui->cmd_gestionnaire, OrigineSaisie::STATION_QUALITE);
    m_ui->txt_site->definirRegle([](const QString &texte) -> std::optional<ZoneReglee::Refus> {
        const QString refus =
            ReglesFiche::refusTexte(QStringLiteral("Le code du point"), texte.trimmed(), LONGUEUR_POINT);
        if (refus.isEmpty())
            return std::nullopt;
        return ZoneReglee::Refus{refus, QStringLiteral("Attention")};
    });
    preparerFiche();
}

F_Saisie_Station_Mesure::~F_Saisie_Station_Mesure() = default;

void F_Saisie_Station_Mesure::remplirListes()
{
    const DataEnvironment1 &donnees = session().donnees;
    ListeChoix natures;
    for (const char *libelle : {"Automatique", "Manuelle"}) {
        const QString texte = QString::fromLatin1(libelle);
        natures.append({M_Sandrification::CodeNatureStation(texte), texte});
    }
    remplirCombo(m_ui->cmb_nature, natures);
    // The maps filter on the first ones; studies have others.
    QStringList situations = session().TypesCarte;
    const QStringList connues = LectureFiche::valeursConnues(donnees, QStringLiteral("STATION_QUALITE"),
                                                             QStringLiteral("SituationStationM"));
    for (const QString &connue : connues) {
        if (!situations.contains(connue, Qt::CaseInsensitive))
            situations << connue;
    }
    m_ui->cmb_situation->remplir(situations);
    remplirCombo(m_ui->cmb_bv, ListesFiche::bassins(donnees));
    remplirCombo(m_ui->cmb_ssbv, ListesFiche::sousBassins(donnees));
    remplirListe(m_ui->lst_commune, ListesFiche::communes(donnees));
    remplirListe(m_ui->lst_gestionnaire, ListesFiche::gestionnaires(donnees));
}

void F_Saisie_Station_Mesure::montrerDependants(const FicheLue *fiche)
{
    const QString point = fiche ? M_Enreg_Tables::pointDeStation(session().donnees, fiche->cle) : QString();
    m_ui->txt_site->setText(point);
    // The point of a station that has one stays.
    m_ui->txt_site->setEnabled(point.isEmpty());
    m_ui->txt_site->setToolTip(
        point.isEmpty() ? QStringLiteral("Code du point d'une nouvelle station ; 031 si rien n'est saisi")
                        : QStringLiteral("Le point d'une station enregistrée ne change pas"));
}

QStringList F_Saisie_Station_Mesure::saisieDependante() const
{
    return {m_ui->txt_site->text()};
}

Enregistrement F_Saisie_Station_Mesure::enregistrement() const
{
    return M_Enreg_Tables::stationQualite({valeurs(), liens(), m_ui->txt_site->text()});
}
