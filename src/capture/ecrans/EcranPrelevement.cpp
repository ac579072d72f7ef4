#include "capture/ecrans/EcranPrelevement.h"

#include "capture/ecrans/EcranDetailPrelevement.h"
#include "capture/ecrans/F_Organisme_Preleveur.h"
#include "capture/ecrans/F_Saisie_Gestionnaire.h"
#include "capture/ecrans/F_Saisie_Laboratoire.h"
#include "capture/ecrans/F_Saisie_Parametre.h"
#include "capture/EnregistrementPrelevement.h"
#include "capture/LecturePrelevement.h"
#include "capture/ListesPrelevement.h"
#include "capture/M_Enreg_Tables.h"
#include "capture/ModelePrelevement.h"
#include "capture/VisualisationPrelevement.h"
#include "frame/Cadre.h"
#include "frame/Session.h"
#include "platform/Saisie.h"
#include "ui_EcranPrelevement.h"
#include "widgets/LectureSeule.h"

#include <QCloseEvent>
#include <QListWidget>
#include <QScopedValueRollback>
#include <QTimer>

using namespace ReglesPrelevement;

namespace
{
constexpr int LARGEURS[NOMBRE_COLONNES] = {28, 10, 13, 17, 10, 25, 25, 25, 25, 17}; // characters

// Enables a control, or disables it and says why.
void permettre(QWidget *controle, const QString &empechement, const QString &infobulle = {})
{
    controle->setEnabled(empechement.isEmpty());
    controle->setToolTip(empechement.isEmpty() ? infobulle : empechement);
}

std::optional<ZoneReglee::Refus> jugerDate(const QString &texte)
{
    if (texte.trimmed().isEmpty() || Saisie::lireDate(texte))
        return std::nullopt;
    return ZoneReglee::Refus{QStringLiteral("La date n'est pas au format adapté : \"jj/mm/aaaa\"."),
                             QStringLiteral("Erreur de type")};
}

std::optional<ZoneReglee::Refus> jugerHeure(const QString &texte)
{
    if (texte.trimmed().isEmpty() || !heureNormale(texte.trimmed()).isEmpty())
        return std::nullopt;
    return ZoneReglee::Refus{
        QStringLiteral("L'heure n'est pas au format adapté : \"hh:mm:ss\" ou \"hh:mm\"."),
        QStringLiteral("Erreur de type")};
}
} // namespace

EcranPrelevement::EcranPrelevement(Session &session, Cadre &cadre, FamillePrelevement famille,
                                   QWidget *parent)
    : Ecran(session, cadre, parent), m_ui(std::make_unique<Ui::EcranPrelevement>()), m_famille(famille),
      m_modele(new ModelePrelevement(session.donnees, famille, this))
{
    m_ui->setupUi(this);
    if (famille == FamillePrelevement::Pesticides)
        m_ui->lbl_titre->setText(QStringLiteral("ANALYSE PESTICIDES"));
    LectureSeule::appliquer(m_ui->txt_station);
    m_ui->cmb_Date->definirRegle(jugerDate);
    m_ui->cmb_heure->definirRegle(jugerHeure);
    m_ui->cmb_Date->lineEdit()->setPlaceholderText(QStringLiteral("jj/mm/aaaa"));
    m_ui->cmb_Date->offrirCalendrier();
    m_ui->cmb_heure->lineEdit()->setPlaceholderText(QStringLiteral("hh:mm"));
    preparerGrille();
    preparer(nullptr, m_ui->cmd_fermer);
    // What was being typed is given up with the rest.
    m_ui->cmd_annul->setProperty("sansVerification", true);

    const auto relierCombo = [this](auto *combo, auto signal, auto action) {
        connect(combo, signal, this, [this, action] {
            if (!this->session().ViderEnCours)
                executer(action);
        });
    };
    relierCombo(m_ui->cmb_code, &ZoneCombo::choixChange, [this] { changerStation(m_ui->cmb_code->code()); });
    relierCombo(m_ui->ZC_CODE_USUEL, &ZoneCombo::choixChange,
                [this] { changerStation(m_ui->ZC_CODE_USUEL->code()); });
    relierCombo(m_ui->cmb_Date, &ZoneComboLibre::texteChoisi, [this] { changerDate(); });
    const auto relierBouton = [this](QPushButton *bouton, auto action) {
        connect(bouton, &QPushButton::clicked, this,
                [this, action] { executer([this, action] { (this->*action)(); }); });
    };
    relierBouton(m_ui->cmd_rech, &EcranPrelevement::rechercher);
    relierBouton(m_ui->cmd_valider, &EcranPrelevement::valider);
    relierBouton(m_ui->cmd_suppr, &EcranPrelevement::supprimer);
    relierBouton(m_ui->cmd_annul, &EcranPrelevement::annuler);
    relierBouton(m_ui->cmd_visual, &EcranPrelevement::visualiser);

    executer([this] {
        chargerStations();
        chargerListes();
        vider();
    });
    commencerPar(m_ui->cmb_code);
}

EcranPrelevement::~EcranPrelevement()
{
    // A field that loses the focus while the window goes must not call what has gone already.
    const auto enfants = findChildren<QWidget *>();
    for (QWidget *enfant : enfants)
        disconnect(enfant, nullptr, this, nullptr);
}

void EcranPrelevement::preparerGrille()
{
    GrilleListes *grille = m_ui->DBGrid1;
    grille->setModel(m_modele);
    struct {
        int colonne;
        const char *liste;
        GrilleListes::Colonne::Bouton bouton;
    } const LISTES[] = {
        {PARAMETRE, "lst_param", GrilleListes::Colonne::Bouton::Liste},
        {PRELEVEUR, "lst_prelev", GrilleListes::Colonne::Bouton::Liste},
        {LABORATOIRE, "lst_labo", GrilleListes::Colonne::Bouton::Liste},
        {GESTIONNAIRE, "lst_gest", GrilleListes::Colonne::Bouton::Liste},
        // Its button opens the detail sheet; its list serves while one types.
        {RESEAU, "lst_reseau", GrilleListes::Colonne::Bouton::Ecran},
        {AUTRE, "lst_autre", GrilleListes::Colonne::Bouton::Liste},
    };
    QList<GrilleListes::Colonne> colonnes(NOMBRE_COLONNES);
    for (const auto &l : LISTES) {
        auto *liste = new QListWidget(m_ui->contenu);
        liste->setObjectName(QString::fromLatin1(l.liste));
        colonnes[l.colonne].liste = liste;
        colonnes[l.colonne].bouton = l.bouton;
    }
    colonnes[RESEAU].separateur = QStringLiteral(" | ");
    for (int c = 0; c < NOMBRE_COLONNES; ++c) {
        colonnes[c].largeur = LARGEURS[c];
        grille->definirColonne(c, colonnes[c]);
    }
    colonnes[AUTRE].liste->addItems(choixAutre());

    const References references = ListesPrelevement::references(session().donnees, m_famille);
    grille->brancher(&session().dialogue,
                     [this, references](const QModelIndex &cellule, const QString &texte) {
                         std::optional<RefusSaisie> refus;
                         executer([&] { refus = jugerCellule(cellule.column(), texte, references); });
                         // What was typed was wrong as a whole; the networks that were there are not.
                         if (refus && cellule.column() == RESEAU)
                             refus->reste = cellule.data(Qt::EditRole).toString();
                         return refus;
                     });
    connect(grille, &GrilleListes::boutonPresse, this,
            [this](const QModelIndex &cellule) { ouvrirDetail(cellule, true); });
    connect(grille, &GrilleListes::choixFait, this, [this](const QModelIndex &cellule, const QString &texte) {
        if (cellule.column() != AUTRE)
            return;
        // Once the cell is closed.
        const QPersistentModelIndex choisie(cellule);
        QTimer::singleShot(0, this, [this, choisie, texte] { agirAutre(choisie, texte); });
    });
    connect(m_ui->cmd_ajouter, &QPushButton::clicked, grille, &GrilleListes::ajouterLigne);
    connect(m_ui->cmd_retirer, &QPushButton::clicked, this, [grille] {
        if (!grille->currentIndex().isValid())
            return;
        grille->selectRow(grille->currentIndex().row());
        grille->supprimerSelection();
        grille->setFocus(Qt::OtherFocusReason);
    });
    connect(m_modele, &ModelePrelevement::echec, this, &EcranPrelevement::montrerEchec);
    for (auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(m_modele, signal, this, &EcranPrelevement::compterLignes);
    connect(m_modele, &QAbstractItemModel::modelReset, this, &EcranPrelevement::compterLignes);
    compterLignes();
}

void EcranPrelevement::compterLignes()
{
    const int lignes = m_modele->rowCount();
    // The letter that leads to the grid.
    m_ui->lbl_nombre->setText(lignes == 0   ? QStringLiteral("Aucun résul&tat")
                              : lignes == 1 ? QStringLiteral("1 résul&tat")
                                            : QStringLiteral("%1 résul&tats").arg(lignes));
    permettre(m_ui->cmd_retirer, lignes > 0 ? QString() : QStringLiteral("Le tableau est vide"),
              QStringLiteral("Retirer du tableau la ligne où se trouve le curseur"));
}

void EcranPrelevement::chargerStations()
{
    m_stations = ListesPrelevement::stations(session().donnees);
    ListeChoix codes;
    ListeChoix usuels;
    for (const StationProposee &station : std::as_const(m_stations)) {
        codes << Choix{station.code, station.code, station.nom};
        if (!station.usuel.isEmpty())
            usuels << Choix{station.code, station.usuel, station.nom};
    }
    m_ui->cmb_code->remplir(codes);
    m_ui->ZC_CODE_USUEL->remplir(usuels);
}

void EcranPrelevement::chargerListes()
{
    const auto remplir = [this](const char *nom, const QStringList &lignes) {
        auto *liste = findChild<QListWidget *>(QString::fromLatin1(nom));
        liste->clear();
        liste->addItems(lignes);
    };
    const DataEnvironment1 &donnees = session().donnees;
    const QStringList intervenants = ListesPrelevement::intervenants(donnees);
    remplir("lst_param", ListesPrelevement::parametres(donnees, m_famille));
    remplir("lst_labo", intervenants);
    remplir("lst_prelev", intervenants);
    remplir("lst_gest", intervenants);
    remplir("lst_reseau", ListesPrelevement::reseaux(donnees));
}

void EcranPrelevement::vider()
{
    {
        const QScopedValueRollback vider(session().ViderEnCours, true);
        m_ui->cmb_code->vider();
        m_ui->ZC_CODE_USUEL->vider();
        m_ui->txt_station->clear();
        m_ui->cmb_Date->remplir({});
        m_ui->cmb_Date->fixer(QString());
        m_ui->cmb_heure->remplir({});
        m_ui->cmb_heure->fixer(QString());
    }
    m_modele->vider();
    m_ui->cmd_valider->setText(QStringLiteral("&Valider"));
    verrouiller(false);
    actualiserBoutons();
}

// --- The key

ClePrelevement EcranPrelevement::cle() const
{
    return {m_ui->cmb_code->code(), Saisie::lireDate(m_ui->cmb_Date->texte()).value_or(QDate()),
            heureNormale(m_ui->cmb_heure->texte().trimmed())};
}

void EcranPrelevement::changerStation(const QString &code)
{
    m_ui->cmb_code->choisir(code);
    m_ui->ZC_CODE_USUEL->choisir(code);
    QString nom;
    for (const StationProposee &station : std::as_const(m_stations))
        if (!code.isEmpty() && station.code == code)
            nom = station.nom;
    m_ui->txt_station->setText(nom);
    m_ui->txt_station->setToolTip(nom.toHtmlEscaped());
    m_ui->txt_station->setCursorPosition(0);
    montrerDates();
    montrerHeures();
    actualiserBoutons();
}

void EcranPrelevement::montrerDates()
{
    QStringList dates;
    const QString code = m_ui->cmb_code->code();
    if (!code.isEmpty())
        for (const QDate &date : ListesPrelevement::dates(session().donnees, m_famille, code))
            dates << Saisie::ecrireDate(date);
    m_ui->cmb_Date->remplir(dates);
}

void EcranPrelevement::changerDate()
{
    if (const auto date = Saisie::lireDate(m_ui->cmb_Date->texte()))
        m_ui->cmb_Date->fixer(Saisie::ecrireDate(*date));
    montrerHeures();
    actualiserBoutons();
}

void EcranPrelevement::montrerHeures()
{
    const ClePrelevement key = cle();
    m_ui->cmb_heure->remplir(
        key.station.isEmpty() || !key.date.isValid()
            ? QStringList()
            : ListesPrelevement::heures(session().donnees, m_famille, key.station, key.date));
}

void EcranPrelevement::actualiserBoutons()
{
    const bool complete = !m_ui->cmb_code->estVide() && !m_ui->cmb_Date->texte().isEmpty();
    const QString manque =
        complete ? QString() : QStringLiteral("Choisissez d'abord une station et une date");
    permettre(m_ui->cmd_suppr, manque,
              QStringLiteral("Supprimer de la base les résultats de ce prélèvement"));
    permettre(m_ui->cmd_visual, manque, QStringLiteral("Montrer les résultats du tableau dans un classeur"));
}

void EcranPrelevement::verrouiller(bool cherche)
{
    m_cherche = cherche;
    const QString verrou = cherche ? QStringLiteral("« Annuler » libère la station et la date") : QString();
    const QString sansRecherche =
        cherche ? QString() : QStringLiteral("Choisissez une station et une date, puis « Rechercher »");
    for (QWidget *champ :
         {static_cast<QWidget *>(m_ui->cmb_code), static_cast<QWidget *>(m_ui->ZC_CODE_USUEL),
          static_cast<QWidget *>(m_ui->cmb_Date), static_cast<QWidget *>(m_ui->cmb_heure)})
        permettre(champ, verrou);
    for (QComboBox *combo :
         {static_cast<QComboBox *>(m_ui->cmb_code), static_cast<QComboBox *>(m_ui->ZC_CODE_USUEL)})
        combo->lineEdit()->setClearButtonEnabled(!cherche);
    permettre(m_ui->cmd_rech, verrou, QStringLiteral("Chercher ce prélèvement, ou en commencer un nouveau"));
    m_ui->frm_divers->setEnabled(cherche);
    m_ui->frm_divers->setToolTip(sansRecherche);
    permettre(m_ui->cmd_annul, sansRecherche,
              QStringLiteral("Abandonner la saisie en cours ; rien n'est enregistré"));
    permettre(m_ui->cmd_valider, QString(), QStringLiteral("Enregistrer les résultats du tableau"));
    m_ui->cmd_rech->setDefault(!cherche);
    m_ui->cmd_valider->setDefault(cherche);
}

void EcranPrelevement::rechercher()
{
    if (!verifierZones())
        return;
    const ClePrelevement key = cle();
    if (key.station.isEmpty() || !key.date.isValid())
        return;
    changerDate();
    const DataEnvironment1 &donnees = session().donnees;
    const bool trouve = LecturePrelevement::existe(donnees, m_famille, key);
    verrouiller(true);
    auto liberer = qScopeGuard([this] { verrouiller(false); });
    const bool montrer =
        trouve && session().dialogue.question(
                      QStringLiteral("Des enregistrements existent déjà. Désirez-vous les visualiser?"),
                      QStringLiteral("Enregistrements existants"), {Reponse::Oui, Reponse::Non}, Reponse::Oui,
                      Icone::Question) == Reponse::Oui;
    m_modele->charger(montrer ? LecturePrelevement::lire(donnees, m_famille, key)
                              : QList<LignePrelevement>());
    liberer.dismiss();
    m_ui->cmd_valider->setText(montrer ? QStringLiteral("&Modifier") : QStringLiteral("V&alider"));
    m_ui->DBGrid1->setFocus(Qt::OtherFocusReason);
    if (m_modele->rowCount() > 0)
        m_ui->DBGrid1->allerA(0, 0);
}

// --- The sampling

void EcranPrelevement::valider()
{
    if (!verifierZones() || !m_ui->DBGrid1->terminerSaisie())
        return;
    const auto manque =
        premierManque(m_ui->cmb_code->code(), m_ui->cmb_Date->texte().trimmed(), m_modele->textes(),
                      ListesPrelevement::references(session().donnees, m_famille));
    if (manque) {
        session().dialogue.message(manque->message, QStringLiteral("Attention"), Icone::Exclamation);
        if (manque->champ == Manque::Champ::Station)
            m_ui->cmb_code->setFocus(Qt::OtherFocusReason);
        else if (manque->champ == Manque::Champ::Date)
            m_ui->cmb_Date->setFocus(Qt::OtherFocusReason);
        else if (manque->ligne >= 0)
            m_ui->DBGrid1->allerA(manque->ligne, manque->colonne);
        else
            m_ui->DBGrid1->setFocus(Qt::OtherFocusReason);
        return;
    }
    const Suite suite = M_Enreg_Tables::enregistrerMesures(
        session().dialogue,
        [this] {
            EnregistrementPrelevement::ecrire(session().donnees, m_famille, cle(), m_modele->lignes());
        },
        m_famille == FamillePrelevement::Pesticides
            ? QStringLiteral(
                  "L'enregistrement des mesures des pesticides ont été effectuées. Désirez-vous en effectuer "
                  "d'autres?")
            : QStringLiteral(
                  "L'enregistrement des mesures physico-chimiques ont été effectuées. Désirez-vous en "
                  "effectuer d'autres?"));
    if (suite == Suite::Fini) {
        fermer();
    } else if (suite == Suite::Autre) {
        chargerStations();
        vider();
        m_ui->cmb_code->setFocus(Qt::OtherFocusReason);
    }
}

void EcranPrelevement::supprimer()
{
    if (!verifierZones())
        return;
    const ClePrelevement key = cle();
    if (key.station.isEmpty() || !key.date.isValid())
        return;
    if (session().dialogue.question(
            QStringLiteral(
                "La suppression entrainera celle de toutes les mesures correspondantes à la station choisie à "
                "la date et l'heure choisie. Etes-vous sûr de vouloir supprimer ces enregistrements?"),
            QStringLiteral("Suppression d'enregistrements"), {Reponse::Oui, Reponse::Non}, Reponse::Non,
            Icone::Exclamation) != Reponse::Oui)
        return;
    EnregistrementPrelevement::supprimer(session().donnees, m_famille, key);
    m_modele->vider();
    m_ui->cmd_valider->setText(QStringLiteral("&Valider"));
    montrerDates();
    montrerHeures();
    const QString supprime = QStringLiteral("Les résultats de ce prélèvement viennent d'être supprimés");
    permettre(m_ui->cmd_suppr, supprime);
    permettre(m_ui->cmd_visual, supprime);
    (m_cherche ? static_cast<QWidget *>(m_ui->DBGrid1) : m_ui->cmb_code)->setFocus(Qt::OtherFocusReason);
}

void EcranPrelevement::annuler()
{
    vider();
    permettre(m_ui->cmd_valider, QStringLiteral("Choisissez une station et une date, puis « Rechercher »"));
    m_ui->cmb_code->setFocus(Qt::OtherFocusReason);
}

void EcranPrelevement::visualiser()
{
    if (!m_ui->DBGrid1->terminerSaisie())
        return;
    if (m_modele->rowCount() == 0) {
        direRienAVisualiser(session().dialogue);
        return;
    }
    DemandeVisualisation demande;
    demande.famille = m_famille;
    demande.station = m_ui->cmb_code->texte();
    demande.nomStation = m_ui->txt_station->text();
    demande.date = cle().date;
    demande.heure = m_ui->cmb_heure->texte().trimmed();
    demande.lignes = m_modele->textes();
    visualiserMesures(VisualisationPrelevement::vue(demande), session().dialogue, session().tableur,
                      session().etatRapport);
}

// --- The detail sheet and the reference sheets

void EcranPrelevement::agirAutre(const QPersistentModelIndex &cellule, const QString &choix)
{
    int rang = 0; // the last choice ends with a blank, which cells do not keep
    while (rang < choixAutre().size() && choixAutre()[rang].trimmed() != choix)
        ++rang;
    switch (rang) {
    case 0:
        ouvrirDetail(cellule, false);
        break;
    case 1:
        ouvrirFiche<F_Saisie_Gestionnaire>();
        break;
    case 2:
        ouvrirFiche<F_Saisie_Laboratoire>();
        break;
    case 3:
        ouvrirFiche<F_Saisie_Parametre>();
        break;
    case 4:
        ouvrirFiche<F_Organisme_Preleveur>();
        break;
    default: // "Nouveau réseau " opens nothing: the detail sheet has a button for that
        break;
    }
}

// A reference sheet, after which the lists of this screen are read again.
template <typename Fiche> void EcranPrelevement::ouvrirFiche()
{
    FicheReference::ouvrir<Fiche>(session(), cadre(), this,
                                  m_famille == FamillePrelevement::Pesticides ? OrigineSaisie::MESURE_PHYTO
                                                                              : OrigineSaisie::MESURE_PHYSICO,
                                  [this] { executer([this] { chargerListes(); }); });
}

void EcranPrelevement::ouvrirDetail(const QPersistentModelIndex &cellule, bool reseaux)
{
    if (m_detail || !cellule.isValid())
        return;
    m_ui->DBGrid1->allerA(cellule.row(), cellule.column());
    if (!m_ui->DBGrid1->terminerSaisie(true) || !cellule.isValid())
        return;
    m_detail = creerDetail(m_modele->lignes()[cellule.row()]);
    m_detail->montrerPrelevement(m_ui->cmb_code->texte(), m_ui->txt_station->text(), m_ui->cmb_Date->texte(),
                                 m_ui->cmb_heure->texte());
    if (reseaux)
        m_detail->montrerReseaux();
    // The row stays what it is while its sheet is open.
    m_ui->contenu->setEnabled(false);
    connect(m_detail, &EcranDetailPrelevement::valide, this, [this, cellule](const TextesLigne &textes) {
        if (cellule.isValid())
            m_modele->modifier(cellule.row(), textes);
    });
    connect(m_detail, &EcranDetailPrelevement::fermee, this, [this, cellule] {
        m_detail.clear();
        m_ui->contenu->setEnabled(true);
        executer([this] { chargerListes(); });
        if (cellule.isValid())
            m_ui->DBGrid1->allerA(cellule.row(), cellule.column());
    });
    cadre().montrer(m_detail);
}

void EcranPrelevement::montrerEchec(const QString &numeroEtDescription)
{
    QTimer::singleShot(0, this, [this, numeroEtDescription] {
        session().dialogue.message(QStringLiteral("Une erreur s'est produite en cours de traitement : \n") +
                                       numeroEtDescription,
                                   QStringLiteral("Erreur"), Icone::Critique);
    });
}

// --- The window

void EcranPrelevement::keyPressEvent(QKeyEvent *evenement)
{
    const bool nue = evenement->modifiers() == Qt::NoModifier || evenement->modifiers() == Qt::KeypadModifier;
    const bool entree = evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter;
    if (nue && entree && !qobject_cast<QPushButton *>(focusWidget())) {
        evenement->accept();
        (m_cherche ? m_ui->cmd_valider : m_ui->cmd_rech)->click();
        return;
    }
    Ecran::keyPressEvent(evenement);
}

void EcranPrelevement::closeEvent(QCloseEvent *evenement)
{
    Ecran::closeEvent(evenement);
    if (!evenement->isAccepted())
        return;
    if (m_detail)
        m_detail->fermer();
    if (session().donnees.estOuvert())
        executer([this] { m_modele->vider(); });
}
