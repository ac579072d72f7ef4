#include "analysis/ecrans/F_Concentrations_PC.h"

#include "analysis/M_Concentration_OVRA.h"
#include "frame/Session.h"
#include "platform/Saisie.h"
#include "ui_F_Concentrations_PC.h"
#include "widgets/LectureSeule.h"

#include <QScopedValueRollback>

using namespace ReglesConcentrations;

namespace
{
constexpr auto FAMILLE = Famille::PhysicoChimie;

// Enables a control, or disables it and says why.
void permettre(QWidget *controle, const QString &empechement, const QString &infobulle = {})
{
    controle->setEnabled(empechement.isEmpty());
    controle->setToolTip(empechement.isEmpty() ? infobulle : empechement);
}

// The same for a box: one that cannot be used is not ticked.
void permettreCase(QAbstractButton *boite, const QString &empechement, const QString &infobulle = {})
{
    permettre(boite, empechement, infobulle);
    if (!empechement.isEmpty())
        boite->setChecked(false);
}

void montrerValeur(QLineEdit *zone, QLabel *unite, std::optional<double> valeur, const QString &symbole)
{
    zone->setText(valeur ? Saisie::ecrireNombre(*valeur) : QString());
    zone->setEnabled(valeur.has_value());
    unite->setText(valeur ? symbole : QString());
}
} // namespace

F_Concentrations_PC::F_Concentrations_PC(Session &session, Cadre &cadre, QWidget *parent)
    : Ecran(session, cadre, parent), m_ui(std::make_unique<Ui::F_Concentrations_PC>())
{
    m_ui->setupUi(this);
    preparer(m_ui->cmd_rapport, m_ui->cmd_fermer);
    for (QLineEdit *zone : {m_ui->txt_obj_moyen, m_ui->txt_obj_max, m_ui->txt_norme})
        LectureSeule::appliquer(zone);

    m_ui->lst_param2->definirRegle([this](const QStringList &codes) {
        return refusParametres(codes, m_ui->ZL_FRACTION->codes().size());
    });
    m_ui->ZL_FRACTION->definirRegle(
        [this](const QStringList &codes) { return refusFractions(codes, parametres()); });
    for (ListeFiltree *liste : {m_ui->lst_param2, m_ui->ZL_FRACTION}) {
        connect(liste, &ListeFiltree::refus, this, [this](const QString &message) {
            this->session().dialogue.message(message, QStringLiteral("Attention"), Icone::Exclamation);
        });
    }

    const auto relier = [this](auto *emetteur, auto signal, auto action) {
        connect(emetteur, signal, this, [this, action] {
            if (!this->session().ViderEnCours)
                executer([this, action] { (this->*action)(); });
        });
    };
    relier(m_ui->choix_station, &ChoixStation::stationChangee, &F_Concentrations_PC::changerStation);
    relier(m_ui->cmb_param, &ZoneCombo::choixChange, &F_Concentrations_PC::changerParametre);
    relier(m_ui->lst_param2, &ListeFiltree::choixChange, &F_Concentrations_PC::changerParametre);
    relier(m_ui->ZC_FRACTION, &ZoneCombo::choixChange, &F_Concentrations_PC::changerFraction);
    relier(m_ui->ZL_FRACTION, &ListeFiltree::choixChange, &F_Concentrations_PC::changerFraction);
    relier(m_ui->opt_un_param, &QAbstractButton::clicked, &F_Concentrations_PC::changerMode);
    relier(m_ui->opt_plusieurs_param, &QAbstractButton::clicked, &F_Concentrations_PC::changerMode);
    relier(m_ui->chk_obj_moyen, &QAbstractButton::toggled, &F_Concentrations_PC::actualiser);
    relier(m_ui->chk_obj_max, &QAbstractButton::toggled, &F_Concentrations_PC::actualiser);
    connect(m_ui->chk_seuil, &QAbstractButton::toggled, this, &F_Concentrations_PC::changerSeuil);
    connect(m_ui->CB_ECHELLE_MAX, &QAbstractButton::toggled, this, &F_Concentrations_PC::changerEchelle);
    // A station picked beside an option is a choice of that option.
    connect(m_ui->cmb_debit, &ZoneCombo::choixChange, this, [this] {
        if (!m_ui->cmb_debit->estVide())
            m_ui->opt_debit->setChecked(true);
    });
    connect(m_ui->dbcmb_pluvio, &ZoneCombo::choixChange, this, [this] {
        if (!m_ui->dbcmb_pluvio->estVide())
            m_ui->opt_pluvio->setChecked(true);
    });
    connect(m_ui->cmd_rapport, &QPushButton::clicked, this, &F_Concentrations_PC::lancerRapport);
    connect(m_ui->cmd_visualiser, &QPushButton::clicked, this, &F_Concentrations_PC::lancerGraphique);
    connect(m_ui->cmd_graph_rapport, &QPushButton::clicked, this,
            &F_Concentrations_PC::lancerGraphiqueEtRapport);

    executer([this] { chargerListes(); });
    m_ui->onglet_flux->brancher(session, {[this](const auto &commande) { executer(commande); },
                                          [this] { return verifierZones(); }, [this] { fermer(); }});
    Vider_Concentrations_PC();
    commencerPar(champ(Champ::Station));
}

F_Concentrations_PC::~F_Concentrations_PC() = default;

void F_Concentrations_PC::chargerListes()
{
    const DataEnvironment1 &donnees = session().donnees;
    m_ui->choix_station->remplir(ListesSelection::stations(donnees));
    m_ui->cmb_debit->remplir(ListesSelection::stationsHydro(donnees));
    m_ui->dbcmb_pluvio->remplir(ListesSelection::stationsPluvio(donnees));
    m_filtresBase = ListesSelection::filtres(donnees, FAMILLE);
    m_ui->filtres->remplir(m_filtresBase);
}

void F_Concentrations_PC::Vider_Concentrations_PC()
{
    {
        const QScopedValueRollback vider(session().ViderEnCours, true);
        m_ui->choix_station->vider();
        m_ui->choix_periode->vider();
        m_ui->choix_periode->proposer(QDate(), QDate());
        m_ui->cmb_param->vider();
        m_ui->lst_param2->vider();
        m_ui->ZC_FRACTION->vider();
        m_ui->ZL_FRACTION->vider();
        m_ui->filtres->vider();
        // Neither option is chosen until the user chooses one, or a parameter.
        for (QRadioButton *option : {m_ui->opt_un_param, m_ui->opt_plusieurs_param}) {
            option->setAutoExclusive(false);
            option->setChecked(false);
            option->setAutoExclusive(true);
        }
        m_ui->opAnneeCivile->setChecked(true);
        m_ui->opt_sans_debit->setChecked(true);
        m_ui->cmb_debit->vider();
        m_ui->dbcmb_pluvio->vider();
        m_ui->chk_seuil->setChecked(false);
        m_ui->CB_ECHELLE_MAX->setChecked(false);
        changerSeuil(false);
        changerEchelle(false);
        m_reperes = {};
    }
    montrerReperes();
    actualiser();
}

void F_Concentrations_PC::changerStation()
{
    const DataEnvironment1 &donnees = session().donnees;
    const QString code = m_ui->choix_station->code();
    ListesFiltres filtres = m_filtresBase;
    if (code.isEmpty()) {
        m_ui->choix_periode->proposer(QDate(), QDate());
        m_ui->cmb_debit->vider();
    } else {
        const ListesStation listes = ListesSelection::station(donnees, FAMILLE, code);
        m_ui->cmb_param->remplir(listes.parametres);
        m_ui->lst_param2->remplir(listes.parametres);
        m_ui->ZC_FRACTION->remplir(listes.fractions);
        m_ui->ZL_FRACTION->remplir(listes.fractions);
        filtres.gestionnaires = listes.gestionnaires;
        filtres.reseaux = listes.reseaux;
        filtres.protocoles = listes.protocoles;
        m_ui->choix_periode->proposer(listes.premierJour, listes.dernierJour);
        m_ui->cmb_debit->choisir(ListesSelection::stationHydroLiee(donnees, code));
    }
    m_ui->filtres->remplir(filtres);
    lireReperesDuParametre();
}

void F_Concentrations_PC::changerParametre()
{
    if (!plusieurs() && !m_ui->cmb_param->estVide())
        m_ui->opt_un_param->setChecked(true);
    if (!demandeFraction(parametres())) {
        m_ui->ZC_FRACTION->vider();
        m_ui->ZL_FRACTION->vider();
    }
    lireReperesDuParametre();
}

void F_Concentrations_PC::changerFraction()
{
    lireReperesDuParametre();
}

void F_Concentrations_PC::changerMode()
{
    m_ui->cmb_param->vider();
    m_ui->lst_param2->vider();
    m_ui->ZC_FRACTION->vider();
    m_ui->ZL_FRACTION->vider();
    lireReperesDuParametre();
}

void F_Concentrations_PC::changerSeuil(bool coche)
{
    const QString empechement =
        coche ? QString() : QStringLiteral("Cochez « Comparaison avec un autre seuil » pour en saisir un");
    for (QLineEdit *zone : {m_ui->txt_seuil, static_cast<QLineEdit *>(m_ui->txt_valeur)}) {
        permettre(zone, empechement);
        if (!coche)
            zone->clear();
    }
    montrerReperes();
}

void F_Concentrations_PC::changerEchelle(bool cochee)
{
    permettre(m_ui->ZE_ECHELLE_MAX,
              cochee ? QString() : QStringLiteral("Cochez « Définir échelle maximale » pour la saisir"));
    if (!cochee)
        m_ui->ZE_ECHELLE_MAX->clear();
}

bool F_Concentrations_PC::plusieurs() const
{
    return m_ui->opt_plusieurs_param->isChecked();
}

QStringList F_Concentrations_PC::parametres() const
{
    if (plusieurs())
        return m_ui->lst_param2->codes();
    const QString code = m_ui->cmb_param->code();
    return code.isEmpty() ? QStringList() : QStringList{code};
}

// The fraction that tells the objectives of a single parameter apart; empty where there is none or several.
QString F_Concentrations_PC::fractionUnique() const
{
    return plusieurs() ? QString() : m_ui->ZC_FRACTION->code();
}

void F_Concentrations_PC::lireReperesDuParametre()
{
    const QStringList codes = parametres();
    m_reperes = codes.isEmpty() ? ReperesParametre()
                                : lireReperes(session().donnees, m_ui->choix_station->code(), codes.first(),
                                              fractionUnique());
    montrerReperes();
    actualiser();
}

void F_Concentrations_PC::montrerReperes()
{
    const bool seul = !plusieurs();
    const QString &unite = m_reperes.unite;
    montrerValeur(m_ui->txt_obj_moyen, m_ui->lbl_unite_obj_moyen,
                  seul ? m_reperes.objectifMoyen : std::nullopt, unite);
    montrerValeur(m_ui->txt_obj_max, m_ui->lbl_unite_obj_max, seul ? m_reperes.objectifMaximal : std::nullopt,
                  unite);
    montrerValeur(m_ui->txt_norme, m_ui->lbl_unite_norme, seul ? m_reperes.norme : std::nullopt, unite);
    m_ui->lbl_unite->setText(unite);
    m_ui->lbl_unite_echelle->setText(unite);
}

void F_Concentrations_PC::actualiser()
{
    montrerChoixDuParametre();
    permettreReperes();
    const QString sansRapport =
        plusieurs() ? QStringLiteral("Le rapport porte sur un seul paramètre") : QString();
    permettre(m_ui->cmd_rapport, sansRapport,
              QStringLiteral("Éditer le rapport statistique du paramètre à cette station"));
    permettre(m_ui->cmd_visualiser, {},
              QStringLiteral("Tracer l'évolution d'une ou de deux courbes à cette station"));
    permettre(m_ui->cmd_graph_rapport, sansRapport,
              QStringLiteral("Réunir le rapport et le graphique du paramètre dans un même classeur"));
}

void F_Concentrations_PC::montrerChoixDuParametre()
{
    const bool liste = plusieurs();
    const bool fraction = demandeFraction(parametres());
    m_ui->cmb_param->setVisible(!liste);
    m_ui->lst_param2->setVisible(liste);
    m_ui->lbl_param->setBuddy(liste ? static_cast<QWidget *>(m_ui->lst_param2) : m_ui->cmb_param);
    m_ui->ZT_LIB_FRACTION->setVisible(fraction);
    m_ui->ZT_LIB_FRACTION->setBuddy(liste ? static_cast<QWidget *>(m_ui->ZL_FRACTION) : m_ui->ZC_FRACTION);
    m_ui->ZC_FRACTION->setVisible(fraction && !liste);
    m_ui->ZL_FRACTION->setVisible(fraction && liste);
    m_ui->ZL_FRACTION->setEnabled(fraction);
    m_ui->grille_parametre->setColumnStretch(1, fraction ? 2 : 0);
}

void F_Concentrations_PC::permettreReperes()
{
    const QString unSeul = plusieurs() ? QStringLiteral("Disponible pour un seul paramètre") : QString();
    const QString sansParametre =
        parametres().isEmpty() ? QStringLiteral("Choisissez d'abord un paramètre") : QString();
    // The first reason there is, of: several parameters, no parameter, nothing known of this one.
    const auto raison = [&](bool connu, const QString &inconnu) {
        return !unSeul.isEmpty()          ? unSeul
               : !sansParametre.isEmpty() ? sansParametre
               : connu                    ? QString()
                                          : inconnu;
    };
    permettreCase(m_ui->chk_obj_moyen,
                  raison(m_reperes.objectifMoyen.has_value(),
                         QStringLiteral("Le bassin n'a pas d'objectif moyen pour ce paramètre")));
    permettreCase(m_ui->chk_obj_max,
                  raison(m_reperes.objectifMaximal.has_value(),
                         QStringLiteral("Le bassin n'a pas d'objectif maximal pour ce paramètre")));
    permettreCase(m_ui->chk_normes_eaux_brutes,
                  raison(m_reperes.norme.has_value(),
                         QStringLiteral("Il n'y a pas de norme d'eau potable pour ce paramètre")));
    permettreCase(m_ui->chk_seq, raison(m_reperes.grille,
                                        QStringLiteral("Il n'y a pas de grille SEQ-Eau pour ce paramètre")));
    permettreCase(m_ui->chk_quantile, unSeul);
    for (const auto &[objectif, frequence] : {std::pair(m_ui->chk_obj_moyen, m_ui->chk_freq_depass1),
                                              std::pair(m_ui->chk_obj_max, m_ui->chk_freq_depass2)}) {
        permettreCase(frequence, objectif->isChecked()
                                     ? QString()
                                     : QStringLiteral("Cochez d'abord l'objectif auquel elle se rapporte"));
    }
    permettreCase(m_ui->chk_seuil, sansParametre);
    permettreCase(m_ui->CB_ECHELLE_MAX, sansParametre);
}

Controles F_Concentrations_PC::controles() const
{
    Controles lus;
    lus.station = m_ui->choix_station->code();
    lus.debut = m_ui->choix_periode->debut();
    lus.fin = m_ui->choix_periode->fin();
    lus.choix = plusieurs()                       ? ChoixParametres::Plusieurs
                : m_ui->opt_un_param->isChecked() ? ChoixParametres::UnSeul
                                                  : ChoixParametres::Aucun;
    lus.parametres = parametres().size();
    lus.echelleMaximale = m_ui->CB_ECHELLE_MAX->isChecked();
    lus.valeurEchelle = m_ui->ZE_ECHELLE_MAX->text();
    return lus;
}

DemandeRapport F_Concentrations_PC::demandeRapport() const
{
    DemandeRapport demande;
    demande.codeStation = m_ui->choix_station->code();
    demande.afficherCodeUsuel = m_ui->choix_station->afficherUsuel();
    demande.parametre = m_ui->cmb_param->texte();
    demande.fraction = m_ui->ZC_FRACTION->texte();
    demande.debut = m_ui->choix_periode->debut();
    demande.fin = m_ui->choix_periode->fin();
    demande.mode = m_ui->opAnneeCivile->isChecked() ? ModeAnnee::Civile : ModeAnnee::Hydrologique;
    demande.gestionnaires = m_ui->filtres->gestionnaires();
    demande.reseaux = m_ui->filtres->reseaux();
    demande.commentaires = m_ui->filtres->commentaires();
    demande.protocole = m_ui->filtres->protocole();
    demande.seuil = m_ui->txt_valeur->nombre();
    if (m_ui->opt_debit->isChecked())
        demande.stationDebit = m_ui->cmb_debit->code();
    return demande;
}

void F_Concentrations_PC::lancerRapport()
{
    lancer(Commande::Rapport, [this] {
        return M_Concentration_OVRA::commandeRapport(demandeRapport(), session().donnees, session().dialogue);
    });
}

void F_Concentrations_PC::lancer(Commande nature, const std::function<CommandeRapport()> &commande)
{
    executer([&] {
        if (!verifierZones())
            return;
        if (const auto refus = premierRefus(controles(), nature)) {
            session().dialogue.message(refus->message, QStringLiteral("Attention"), Icone::Exclamation);
            champ(refus->champ)->setFocus(Qt::OtherFocusReason);
            return;
        }
        CoursRapport cours(session().dialogue, session().tableur, session().dossiers, session().etatRapport);
        cours.executer(commande());
    });
}

QWidget *F_Concentrations_PC::champ(Champ nom) const
{
    switch (nom) {
    case Champ::Station:
        return findChild<QWidget *>(m_ui->choix_station->nomCode());
    case Champ::DateDebut:
        return findChild<QWidget *>(m_ui->choix_periode->nomDebut());
    case Champ::DateFin:
        return findChild<QWidget *>(m_ui->choix_periode->nomFin());
    case Champ::ChoixParametres:
        return m_ui->opt_un_param;
    case Champ::Parametre:
        return m_ui->lbl_param->buddy();
    case Champ::Echelle:
        return m_ui->ZE_ECHELLE_MAX;
    }
    return nullptr;
}
