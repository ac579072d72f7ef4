#include "analysis/ecrans/OngletFlux.h"

#include "analysis/CommandeFlux.h"
#include "analysis/FluxConversion.h"
#include "analysis/LectureFlux.h"
#include "analysis/ListesSelection.h"
#include "frame/Session.h"
#include "platform/Saisie.h"
#include "ui_OngletFlux.h"
#include "widgets/LectureSeule.h"

#include <QKeyEvent>

using namespace ReglesFlux;

namespace
{
constexpr auto FAMILLE = Famille::PhysicoChimie;

QString duAu(const char *quoi, const Etendue &etendue)
{
    const QString nom = QString::fromUtf8(quoi);
    if (etendue.premier.isNull())
        return nom + QStringLiteral(" : aucune donnée");
    return nom + QStringLiteral(" : du ") + Saisie::ecrireDate(etendue.premier) + QStringLiteral(" au ") +
           Saisie::ecrireDate(etendue.dernier);
}
} // namespace

OngletFlux::OngletFlux(QWidget *parent) : QWidget(parent), m_ui(std::make_unique<Ui::OngletFlux>())
{
    m_ui->setupUi(this);
    LectureSeule::appliquer(m_ui->txt_param_flux);
    m_ui->cmd_visual_flux->setDefault(true);
    m_ui->cmd_visual_flux->setToolTip(
        QStringLiteral("Calculer les flux cochés et en faire les graphiques, dans un classeur"));
    m_ui->cmd_fermer_flux->setProperty("sansVerification", true);
    m_ui->chk_flux_volume->setToolTip(QStringLiteral("Sur les mois du flux mensuel cumulé"));
}

OngletFlux::~OngletFlux() = default;

void OngletFlux::brancher(Session &session, Hote hote)
{
    m_session = &session;
    m_hote = std::move(hote);
    const auto relier = [this](auto *emetteur, auto signal, auto action) {
        connect(emetteur, signal, this, [this, action] { m_hote.executer([action] { action(); }); });
    };
    relier(m_ui->cmb_code_flux, &ZoneCombo::choixChange,
           [this] { changerStation(m_ui->cmb_code_flux->code()); });
    relier(m_ui->cmb_station_flux, &ZoneCombo::choixChange,
           [this] { changerStation(m_ui->cmb_station_flux->code()); });
    relier(m_ui->cmb_mesures, &ZoneCombo::choixChange, [this] { montrerDonnees(); });
    relier(m_ui->cmd_visual_flux, &QPushButton::clicked, [this] { lancer(); });
    relier(m_ui->cmd_fermer_flux, &QPushButton::clicked, [this] { m_hote.fermer(); });
    // Dates typed beside a box are a choice of it.
    const std::initializer_list<std::pair<QCheckBox *, QList<QLineEdit *>>> periodes = {
        {m_ui->chk_flux_mensuel, {m_ui->txt_mois_debut, m_ui->txt_mois_fin}},
        {m_ui->chk_flux_annuel, {m_ui->txt_annee_debut, m_ui->txt_annee_fin}},
        {m_ui->chk_flux_cumul, {m_ui->txt_cumul_debut, m_ui->txt_cumul_fin}}};
    for (const auto &[boite, zones] : periodes) {
        for (QLineEdit *zone : zones)
            connect(zone, &QLineEdit::textEdited, this, [this, boite = boite](const QString &texte) {
                const bool parVolume = boite == m_ui->chk_flux_cumul && m_ui->chk_flux_volume->isChecked();
                if (!texte.isEmpty() && !parVolume)
                    boite->setChecked(true);
            });
    }
    m_hote.executer([this] {
        chargerListes();
        montrerDonnees();
    });
}

void OngletFlux::chargerListes()
{
    const DataEnvironment1 &donnees = m_session->donnees;
    ListeChoix codes;
    ListeChoix noms;
    const QList<StationProposee> stations = ListesSelection::stations(donnees);
    for (const StationProposee &station : stations) {
        codes << Choix{station.code, station.code, station.nom};
        noms << Choix{station.code, station.nom.isEmpty() ? station.code : station.nom, station.code};
    }
    m_ui->cmb_code_flux->remplir(codes);
    m_ui->cmb_station_flux->remplir(noms);
    ListeChoix debits = ListesSelection::stationsHydro(donnees);
    for (Choix &debit : debits) {
        if (!debit.complement.isEmpty())
            debit.texte = std::exchange(debit.complement, debit.code);
    }
    m_ui->cmb_mesures->remplir(debits);
    m_filtresBase = ListesSelection::filtres(donnees, FAMILLE);
    m_ui->filtres_flux->remplir(m_filtresBase);
}

void OngletFlux::changerStation(const QString &code)
{
    m_ui->cmb_code_flux->choisir(code);
    m_ui->cmb_station_flux->choisir(code);
    ListesFiltres filtres = m_filtresBase;
    if (code.isEmpty()) {
        m_ui->cmb_mesures->vider();
    } else {
        const ListesStation listes = ListesSelection::station(m_session->donnees, FAMILLE, code);
        filtres.gestionnaires = listes.gestionnaires;
        filtres.reseaux = listes.reseaux;
        filtres.protocoles = listes.protocoles;
        m_ui->cmb_mesures->choisir(ListesSelection::stationHydroLiee(m_session->donnees, code));
    }
    m_ui->filtres_flux->remplir(filtres);
    montrerDonnees();
}

void OngletFlux::montrerDonnees()
{
    QStringList lignes;
    if (const QString code = m_ui->cmb_code_flux->code(); !code.isEmpty())
        lignes << duAu("Nitrates", etendueConcentrations(m_session->donnees, code, NITRATES.toString()));
    if (const QString code = m_ui->cmb_mesures->code(); !code.isEmpty())
        lignes << duAu("Débits", etendueDebits(m_session->donnees, code));
    m_ui->lbl_donnees_flux->setText(lignes.join(u'\n'));
}

Controles OngletFlux::controles() const
{
    Controles lus;
    lus.station = m_ui->cmb_code_flux->code();
    lus.stationDebit = m_ui->cmb_mesures->code();
    lus.mode = m_ui->opAnHydro->isChecked() ? ModeAnnee::Hydrologique : ModeAnnee::Civile;
    lus.mensuel = {m_ui->chk_flux_mensuel->isChecked(), m_ui->txt_mois_debut->mois(),
                   m_ui->txt_mois_fin->mois(), m_ui->chk_mois_specifique->isChecked()};
    lus.annuel = {m_ui->chk_flux_annuel->isChecked(), m_ui->txt_annee_debut->annee(),
                  m_ui->txt_annee_fin->annee(), m_ui->chk_annee_specifique->isChecked()};
    lus.cumule = {m_ui->chk_flux_cumul->isChecked(), m_ui->txt_cumul_debut->mois(),
                  m_ui->txt_cumul_fin->mois(), m_ui->chk_cumul_specifique->isChecked()};
    lus.parVolume = m_ui->chk_flux_volume->isChecked();
    return lus;
}

DemandeFlux OngletFlux::demande() const
{
    const Controles lus = controles();
    DemandeFlux demande;
    demande.codeStation = lus.station;
    demande.codeDebit = lus.stationDebit;
    demande.codeParametre = NITRATES.toString();
    demande.parametre = m_ui->txt_param_flux->text();
    demande.mode = lus.mode;
    demande.flux = fluxDemandes(lus);
    demande.gestionnaires = m_ui->filtres_flux->gestionnaires();
    demande.reseaux = m_ui->filtres_flux->reseaux();
    demande.protocole = m_ui->filtres_flux->protocole();
    return demande;
}

std::optional<DemandeFlux> OngletFlux::demandeConfirmee() const
{
    DemandeFlux voulue = demande();
    if (!demandeSpecifique(voulue.flux) ||
        lireEnTeteFlux(m_session->donnees, voulue.codeStation, voulue.codeDebit).surfaceUtilisable())
        return voulue;
    const QString titre = QStringLiteral("Attention");
    if (m_session->dialogue.question(
            QStringLiteral("Attention le calcul des flux spécifiques ne pourra se faire car la surface de la "
                           "station hydrométrique est nulle. "),
            titre, {Reponse::Oui, Reponse::Non}, Reponse::Non, Icone::Exclamation) != Reponse::Oui)
        return std::nullopt;
    voulue.flux.removeIf([](const FluxDemande &flux) { return flux.specifique; });
    if (!voulue.flux.isEmpty())
        return voulue;
    m_session->dialogue.message(
        QStringLiteral(
            "Aucun autre flux n'est demandé : il n'y a rien à calculer. Renseignez la surface de la "
            "station hydrométrique, ou décochez « Spécifique »."),
        titre, Icone::Exclamation);
    return std::nullopt;
}

void OngletFlux::lancer()
{
    if (!m_hote.verifierZones())
        return;
    if (const auto refus = premierRefus(controles())) {
        m_session->dialogue.message(refus->message, QStringLiteral("Attention"), Icone::Exclamation);
        champ(refus->champ)->setFocus(Qt::OtherFocusReason);
        return;
    }
    const std::optional<DemandeFlux> confirmee = demandeConfirmee();
    if (!confirmee)
        return;
    CoursRapport cours(m_session->dialogue, m_session->tableur, m_session->dossiers, m_session->etatRapport);
    cours.executer(M_Concentration_OVRA::commandeFlux(*confirmee, m_session->donnees, m_session->dialogue));
}

QWidget *OngletFlux::champ(Champ nom) const
{
    switch (nom) {
    case Champ::Station:
        return m_ui->cmb_code_flux;
    case Champ::StationDebit:
        return m_ui->cmb_mesures;
    case Champ::Choix:
        return m_ui->chk_flux_mensuel;
    case Champ::DebutMensuel:
        return m_ui->txt_mois_debut;
    case Champ::FinMensuel:
        return m_ui->txt_mois_fin;
    case Champ::DebutAnnuel:
        return m_ui->txt_annee_debut;
    case Champ::FinAnnuel:
        return m_ui->txt_annee_fin;
    case Champ::DebutCumule:
        return m_ui->txt_cumul_debut;
    case Champ::FinCumule:
        return m_ui->txt_cumul_fin;
    }
    return nullptr;
}

void OngletFlux::keyPressEvent(QKeyEvent *evenement)
{
    const bool nue = evenement->modifiers() == Qt::NoModifier || evenement->modifiers() == Qt::KeypadModifier;
    const bool entree = evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter;
    // A button that has the focus is the one that Enter presses: the screen does that.
    if (!nue || !entree || qobject_cast<QPushButton *>(focusWidget())) {
        QWidget::keyPressEvent(evenement);
        return;
    }
    m_ui->cmd_visual_flux->click();
}
