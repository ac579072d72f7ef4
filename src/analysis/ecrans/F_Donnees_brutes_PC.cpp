#include "analysis/ecrans/F_Donnees_brutes_PC.h"

#include "analysis/ecrans/GrilleDonneesBrutes.h"
#include "analysis/ExportDonneesBrutes.h"
#include "analysis/ListesDonneesBrutes.h"
#include "analysis/ModeleDonneesBrutes.h"
#include "analysis/OrdreDonneesBrutes.h"
#include "frame/Session.h"
#include "platform/Erreur.h"
#include "ui_F_Donnees_brutes_PC.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QShortcut>

namespace
{
// A small study is read before the window is drawn again; a large one goes on in slices, short enough for the keys typed
// meanwhile.
constexpr int PREMIERE_TRANCHE_MS = 120;
constexpr int TRANCHE_MS = 25;
} // namespace

F_Donnees_brutes_PC::F_Donnees_brutes_PC(Session &session, Cadre &cadre, QWidget *parent)
    : Ecran(session, cadre, parent), m_ui(std::make_unique<Ui::F_Donnees_brutes_PC>()),
      m_modele(new ModeleDonneesBrutes(session.donnees, this))
{
    m_ui->setupUi(this);
    preparer(m_ui->cmd_afficher, m_ui->cmd_fermer);
    preparerGrille();
    m_ui->pgb_lecture->hide();
    // An editable combo shows that of its field alone.
    for (ZoneCombo *zone : {m_ui->cmb_code, m_ui->cmb_param})
        zone->lineEdit()->setPlaceholderText(zone->placeholderText());
    connect(&m_tranches, &QTimer::timeout, this, [this] { avancer(TRANCHE_MS); });

    connect(m_ui->cmd_afficher, &QPushButton::clicked, this, [this] {
        if (verifierZones())
            afficher();
    });
    connect(m_ui->cmd_vider, &QPushButton::clicked, this, &F_Donnees_brutes_PC::viderFiltres);
    connect(m_ui->cmd_copier, &QPushButton::clicked, this, &F_Donnees_brutes_PC::copier);
    connect(m_ui->cmd_exporter, &QPushButton::clicked, this, &F_Donnees_brutes_PC::exporter);
    auto *relire = new QShortcut(QKeySequence(Qt::Key_F5), this);
    relire->setContext(Qt::WidgetWithChildrenShortcut);
    connect(relire, &QShortcut::activated, m_ui->cmd_afficher, &QPushButton::click);

    executer([this] {
        remplirStations();
        remplirParametres();
    });
    relierFiltres();
    commencerPar(m_ui->cmb_code);
    afficher();
}

F_Donnees_brutes_PC::~F_Donnees_brutes_PC() = default;

void F_Donnees_brutes_PC::preparerGrille()
{
    GrilleDonneesBrutes *grille = m_ui->grille;
    grille->setModel(m_modele);
    grille->donnerLargeurs();
    connect(grille, &GrilleDonneesBrutes::triDemande, this, &F_Donnees_brutes_PC::trier);
    connect(grille, &GrilleDonneesBrutes::copieDemandee, this, &F_Donnees_brutes_PC::copier);
    connect(grille, &GrilleDonneesBrutes::reprise, this, &F_Donnees_brutes_PC::surveillerBase);
    // Rows are read while the table is being drawn.
    connect(m_modele, &ModeleDonneesBrutes::pageLue, this, &F_Donnees_brutes_PC::surveillerBase,
            Qt::QueuedConnection);
}

void F_Donnees_brutes_PC::relierFiltres()
{
    for (ZoneCombo *zone : {m_ui->cmb_code, m_ui->cmb_param})
        connect(zone, &ZoneCombo::choixChange, this, &F_Donnees_brutes_PC::filtrer);
    for (QRadioButton *option : {m_ui->opt_toutes, m_ui->opt_physico, m_ui->opt_pesticides})
        connect(option, &QRadioButton::toggled, this, [this](bool coche) {
            if (!coche)
                return;
            executer([this] { remplirParametres(); });
            filtrer();
        });
    for (ZoneDate *zone : {m_ui->txt_date_debut, m_ui->txt_date_fin}) {
        // A text that is no date is told by the field itself.
        connect(zone, &QLineEdit::editingFinished, this, [this, zone] {
            if (zone->text().isEmpty() || zone->date().isValid())
                filtrer();
        });
    }
}

void F_Donnees_brutes_PC::remplirStations()
{
    m_ui->cmb_code->remplir(ListesDonneesBrutes::stations(session().donnees));
}

void F_Donnees_brutes_PC::remplirParametres()
{
    m_ui->cmb_param->remplir(ListesDonneesBrutes::parametres(session().donnees, demande().famille));
}

DemandeDonneesBrutes F_Donnees_brutes_PC::demande() const
{
    DemandeDonneesBrutes demande;
    demande.station = m_ui->cmb_code->code();
    demande.parametre = m_ui->cmb_param->code();
    demande.debut = m_ui->txt_date_debut->date();
    demande.fin = m_ui->txt_date_fin->date();
    if (m_ui->opt_physico->isChecked())
        demande.famille = Famille::PhysicoChimie;
    else if (m_ui->opt_pesticides->isChecked())
        demande.famille = Famille::Pesticides;
    return demande;
}

void F_Donnees_brutes_PC::viderFiltres()
{
    m_ui->cmb_code->vider();
    m_ui->cmb_param->vider();
    m_ui->txt_date_debut->clear();
    m_ui->txt_date_fin->clear();
    m_ui->opt_toutes->setChecked(true);
    filtrer();
    m_ui->cmb_code->setFocus(Qt::OtherFocusReason);
}

bool F_Donnees_brutes_PC::periodeValable(const DemandeDonneesBrutes &demande)
{
    if (demande.debut.isNull() || demande.fin.isNull() || demande.debut <= demande.fin)
        return true;
    session().dialogue.message(
        QStringLiteral("Vous devez saisir une date de fin supérieure ou égale à la date de début"),
        QStringLiteral("Attention"), Icone::Exclamation);
    m_ui->txt_date_fin->setFocus(Qt::OtherFocusReason);
    return false;
}

void F_Donnees_brutes_PC::filtrer()
{
    const DemandeDonneesBrutes voulue = demande();
    if (voulue == m_demandee)
        return;
    m_demandee = voulue; // said once, a period that cannot be is not said again at each field that is left
    if (periodeValable(voulue))
        lire(voulue);
}

void F_Donnees_brutes_PC::afficher()
{
    m_demandee = demande();
    if (periodeValable(m_demandee))
        lire(m_demandee);
}

void F_Donnees_brutes_PC::lire(const DemandeDonneesBrutes &demande)
{
    arreter();
    executer([this, &demande] {
        m_marqueLecture = MarqueBase::lire(session().donnees);
        m_lecture = std::make_unique<LectureDonneesBrutes>(session().donnees, demande);
    });
    avancer(PREMIERE_TRANCHE_MS);
}

void F_Donnees_brutes_PC::trier(int colonne)
{
    // What is being read goes on, and will be sorted in its turn.
    const bool enLecture = m_lecture != nullptr;
    m_sens = m_tri == colonne && m_sens == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    m_tri = colonne;
    m_ui->grille->horizontalHeader()->setSortIndicatorShown(true);
    m_ui->grille->horizontalHeader()->setSortIndicator(m_tri, m_sens);
    if (enLecture || !m_modele->jeu())
        return;
    if (!m_aTrier) {
        m_aTrier = m_modele->jeu();
        m_nouveau = false;
    }
    m_colonne.reset();
    executer([this] { lireColonneDuTri(); });
    avancer(PREMIERE_TRANCHE_MS);
}

// Begins to read what the order needs, where it is not there.
void F_Donnees_brutes_PC::lireColonneDuTri()
{
    const auto colonne = static_cast<ColonneBrute>(m_tri);
    if (m_tri >= 0 && !m_aTrier->colonneLue(colonne))
        m_colonne = std::make_unique<LectureColonneBrute>(session().donnees, m_aTrier, colonne);
}

void F_Donnees_brutes_PC::arreter()
{
    m_tranches.stop();
    m_lecture.reset();
    m_colonne.reset();
    m_aTrier.reset();
}

void F_Donnees_brutes_PC::avancer(int dureeMs)
{
    executer([this, dureeMs] {
        try {
            avancerSansGarde(dureeMs);
        } catch (const Erreur &) {
            arreter(); // what was shown stays
            actualiser();
            throw;
        }
    });
}

void F_Donnees_brutes_PC::avancerSansGarde(int dureeMs)
{
    if (m_lecture && !m_lecture->avancer(dureeMs)) {
        m_aTrier = m_lecture->jeu();
        m_nouveau = true;
        m_lecture.reset();
        lireColonneDuTri();
    }
    if (!m_lecture && m_colonne && !m_colonne->avancer(dureeMs))
        m_colonne.reset();
    if (!m_lecture && !m_colonne && m_aTrier)
        montrer(std::exchange(m_aTrier, nullptr), m_nouveau);
    if (lectureEnCours() && !m_tranches.isActive())
        m_tranches.start(0);
    else if (!lectureEnCours())
        m_tranches.stop();
    actualiser();
}

void F_Donnees_brutes_PC::montrer(const std::shared_ptr<JeuDonneesBrutes> &jeu, bool nouveau)
{
    GrilleDonneesBrutes *grille = m_ui->grille;
    const QModelIndex courante = grille->currentIndex();
    const int colonne = std::max(courante.column(), 0);
    // What is read again stays where the user was; another order is looked at from its top.
    const bool meme = nouveau && m_modele->jeu() && m_modele->jeu()->demande == jeu->demande;
    const qint64 cle = meme ? m_modele->numAnaPC(courante.row()) : 0;
    const int decalage = grille->horizontalScrollBar()->value();

    std::vector<quint32> ordre;
    if (m_tri >= 0)
        ordre = OrdreDonneesBrutes::ordonner(OrdreDonneesBrutes::cles(*jeu, static_cast<ColonneBrute>(m_tri)),
                                             m_sens == Qt::DescendingOrder);
    m_modele->montrer(jeu, std::move(ordre));
    if (nouveau) {
        m_marque = m_marqueLecture;
        if (jeu->demande == DemandeDonneesBrutes())
            proposerDates(*jeu);
    }

    const int ligne = cle == 0 ? 0 : std::max(m_modele->ligneDe(cle), 0);
    // Not QTableView's own, which heeds the modifier keys held down.
    grille->selectionModel()->setCurrentIndex(m_modele->index(ligne, colonne),
                                              QItemSelectionModel::ClearAndSelect);
    if (ligne == 0)
        grille->scrollToTop();
    else
        grille->scrollTo(m_modele->index(ligne, colonne), QAbstractItemView::PositionAtCenter);
    grille->horizontalScrollBar()->setValue(decalage);
    surveillerBase();
}

// The calendars open where the study has data.
void F_Donnees_brutes_PC::proposerDates(const JeuDonneesBrutes &jeu)
{
    int premier = 0;
    int dernier = 0;
    for (const JeuDonneesBrutes::Prelevement &p : jeu.prelevements) {
        if (p.jour != 0 && (premier == 0 || p.jour < premier))
            premier = p.jour;
        dernier = std::max(dernier, p.jour);
    }
    m_ui->txt_date_debut->proposer(JourBrut::date(premier));
    m_ui->txt_date_fin->proposer(JourBrut::date(dernier));
}

void F_Donnees_brutes_PC::copier()
{
    executer([this] {
        Dialogue &dialogue = session().dialogue;
        const QList<PlageBrute> plages = m_ui->grille->selection();
        const qsizetype nombre = CopieDonneesBrutes::nombreLignes(plages);
        if (nombre == 0) {
            dialogue.message(QStringLiteral("Sélectionnez d'abord les cellules à copier : Ctrl+A les prend "
                                            "toutes."),
                             QStringLiteral("Attention"), Icone::Exclamation);
            return;
        }
        if (nombre > CopieDonneesBrutes::LIGNES_AU_PLUS) {
            dialogue.message(
                QStringLiteral(
                    "%1 lignes sont sélectionnées, et %2 au plus peuvent être copiées. Rien n'a été "
                    "copié : réduisez la sélection, ou utilisez « Exporter ... ».")
                    .arg(nombreEntierFrancais(nombre),
                         nombreEntierFrancais(CopieDonneesBrutes::LIGNES_AU_PLUS)),
                QStringLiteral("Attention"), Icone::Exclamation);
            return;
        }
        dialogue.sablier(true);
        const auto rendre = qScopeGuard([&dialogue] { dialogue.sablier(false); });
        LignesDonneesBrutes lignes(session().donnees, m_modele->jeu());
        QGuiApplication::clipboard()->setText(CopieDonneesBrutes::texte(lignes, plages));
        m_ui->lbl_etat->setText(nombre == 1
                                    ? QStringLiteral("1 ligne copiée.")
                                    : QStringLiteral("%1 lignes copiées.").arg(nombreEntierFrancais(nombre)));
    });
}

void F_Donnees_brutes_PC::exporter()
{
    executer([this] {
        ExportDonneesBrutes::exporter(
            {session().dialogue, session().tableur, session().dossiers, session().etatRapport},
            session().donnees, m_modele->jeu());
    });
}

void F_Donnees_brutes_PC::surveillerBase()
{
    if (!session().donnees.estOuvert() || lectureEnCours())
        return;
    executer([this] {
        const bool change = !(MarqueBase::lire(session().donnees) == m_marque);
        m_ui->lbl_etat->setText(change ? QStringLiteral("La base a été modifiée depuis : F5 pour relire.")
                                       : QString());
    });
}

QString F_Donnees_brutes_PC::resume() const
{
    if (lectureEnCours())
        return m_lecture ? QStringLiteral("Lecture des résultats ...") : QStringLiteral("Tri en cours ...");
    const auto &jeu = m_modele->jeu();
    if (!jeu)
        return {};
    if (jeu->nombre() == 0)
        return jeu->demande == DemandeDonneesBrutes()
                   ? QStringLiteral("La base ne contient aucun résultat.")
                   : QStringLiteral("Aucun résultat ne répond à ces filtres.");
    if (jeu->nombre() == 1)
        return QStringLiteral("1 résultat");
    return nombreEntierFrancais(jeu->nombre()) + QStringLiteral(" résultats");
}

void F_Donnees_brutes_PC::actualiser()
{
    m_ui->lbl_nombre->setText(resume());
    m_ui->pgb_lecture->setVisible(lectureEnCours());
    if (m_lecture)
        m_ui->pgb_lecture->setValue(m_lecture->pourcentage());
    else if (m_colonne)
        m_ui->pgb_lecture->setValue(m_colonne->pourcentage());
    const bool vide = !m_modele->jeu() || m_modele->jeu()->nombre() == 0;
    const QString raison = lectureEnCours() ? QStringLiteral("Attendez la fin de la lecture")
                           : vide           ? QStringLiteral("Il n'y a aucun résultat")
                                            : QString();
    const auto permettre = [&raison](QWidget *bouton, const QString &infobulle) {
        bouton->setEnabled(raison.isEmpty());
        bouton->setToolTip(raison.isEmpty() ? infobulle : raison);
    };
    permettre(m_ui->cmd_copier, QStringLiteral("Copier les cellules sélectionnées (Ctrl+C)"));
    permettre(m_ui->cmd_exporter, QStringLiteral("Écrire tous les résultats affichés dans un classeur"));
}
