#include "capture/ecrans/EcranDetailPrelevement.h"

#include "capture/ecrans/F_Saisie_Reseau.h"
#include "capture/ListesPrelevement.h"
#include "database/M_Reseaux.h"
#include "frame/Session.h"
#include "ui_EcranDetailPrelevement.h"
#include "widgets/LectureSeule.h"

#include <QCloseEvent>

namespace
{
constexpr int LONGUEUR_SEUIL = 50;
constexpr int LONGUEUR_COMMENTAIRE = 255;

const QStringList &lieux()
{
    static const QStringList liste{QStringLiteral("In situ"), QStringLiteral("Laboratoire"),
                                   QStringLiteral("Sans objet"), QStringLiteral("Localisation inconnue")};
    return liste;
}

const QStringList &protocoles()
{
    static const QStringList liste{QStringLiteral("Suivi calendaire"), QStringLiteral("Suivi pluie"),
                                   QStringLiteral("Non spécifié")};
    return liste;
}

std::optional<ZoneReglee::Refus> enRefus(const std::optional<RefusSaisie> &refus)
{
    return refus ? std::optional(ZoneReglee::Refus{refus->message, refus->titre}) : std::nullopt;
}
} // namespace

EcranDetailPrelevement::EcranDetailPrelevement(Session &session, Cadre &cadre, FamillePrelevement famille,
                                               const LignePrelevement &ligne, QWidget *parent)
    : Ecran(session, cadre, parent), m_ui(std::make_unique<Ui::EcranDetailPrelevement>()), m_famille(famille),
      m_ligne(ligne)
{
    m_ui->setupUi(this);
    for (QLineEdit *zone :
         {m_ui->txt_code2, m_ui->txt_station2, m_ui->txt_date2, m_ui->txt_heure2, m_ui->txt_prelev2})
        LectureSeule::appliquer(zone);
    const bool pesticides = famille == FamillePrelevement::Pesticides;
    if (pesticides) {
        for (QWidget *absent :
             {static_cast<QWidget *>(m_ui->lbl_lieu), static_cast<QWidget *>(m_ui->cmb_lieu),
              static_cast<QWidget *>(m_ui->lbl_comment_analyse),
              static_cast<QWidget *>(m_ui->txt_comment_analyse)})
            absent->hide();
        m_ui->lbl_comment_result->setText(QStringLiteral("&Commentaire :"));
    }
    poserRegles();
    preparer(m_ui->cmd_valider, m_ui->cmd_fermer);
    connect(m_ui->cmd_valider, &QPushButton::clicked, this, &EcranDetailPrelevement::valider);
    connect(m_ui->cmd_ajouterReseau, &QPushButton::clicked, this, &EcranDetailPrelevement::ajouterReseau);
    connect(m_ui->cmd_supprimerReseau, &QPushButton::clicked, this, &EcranDetailPrelevement::supprimerReseau);
    connect(m_ui->SSTab1, &QTabWidget::currentChanged, this, &EcranDetailPrelevement::changerOnglet);
    connect(m_ui->cmb_reseau, &ZoneCombo::choixChange, this, &EcranDetailPrelevement::actualiserBoutons);
    connect(m_ui->lst_reseaux, &QListWidget::itemSelectionChanged, this,
            &EcranDetailPrelevement::actualiserBoutons);
    connect(m_ui->cmd_nouveauReseau, &QPushButton::clicked, this, [this] {
        FicheReference::ouvrir<F_Saisie_Reseau>(this->session(), this->cadre(), this,
                                                m_famille == FamillePrelevement::Pesticides
                                                    ? OrigineSaisie::MESURE_PHYTO
                                                    : OrigineSaisie::MESURE_PHYSICO,
                                                [this] { executer([this] { chargerReseaux(); }); });
    });
    executer([this] { chargerReseaux(); });
    montrerLigne();
    commencerPar(m_ui->txt_LD);
}

EcranDetailPrelevement::~EcranDetailPrelevement() = default;

void EcranDetailPrelevement::poserRegles()
{
    for (ZoneLibelle *zone :
         {static_cast<ZoneLibelle *>(m_ui->txt_LD), static_cast<ZoneLibelle *>(m_ui->txt_LQ),
          static_cast<ZoneLibelle *>(m_ui->txt_LS)})
        zone->definirRegle([](const QString &t) { return enRefus(ReglesPrelevement::jugerLimite(t)); });
    const auto longueur = [](int maximum, const QString &quoi) {
        return [maximum, quoi](const QString &t) {
            return enRefus(ReglesPrelevement::jugerLongueur(t, maximum, quoi));
        };
    };
    m_ui->txt_seuil->definirRegle(longueur(LONGUEUR_SEUIL, QStringLiteral("Le seuil de détection")));
    m_ui->txt_comment_analyse->definirRegle(
        longueur(LONGUEUR_COMMENTAIRE, QStringLiteral("Le commentaire sur l'analyse")));
    m_ui->txt_comment_result->definirRegle(
        longueur(LONGUEUR_COMMENTAIRE, m_famille == FamillePrelevement::Pesticides
                                           ? QStringLiteral("Le commentaire")
                                           : QStringLiteral("Le commentaire sur le résultat")));
    m_ui->cmb_lieu->definirRegle(
        [](const QString &t) { return enRefus(ReglesPrelevement::jugerLieu(t, lieux())); });
    m_ui->cmb_protocole->definirRegle(
        [](const QString &t) { return enRefus(ReglesPrelevement::jugerProtocole(t, protocoles())); });
    m_ui->cmb_lieu->remplir(lieux());
    m_ui->cmb_protocole->remplir(protocoles());
}

void EcranDetailPrelevement::montrerLigne()
{
    m_ui->lbl_parametre->setText(m_ligne.unite.isEmpty()
                                     ? m_ligne.parametre
                                     : QStringLiteral("%1 (%2)").arg(m_ligne.parametre, m_ligne.unite));
    m_ui->txt_LD->setText(m_ligne.ld);
    m_ui->txt_LQ->setText(m_ligne.lq);
    m_ui->txt_LS->setText(m_ligne.ls);
    m_ui->txt_seuil->setText(m_ligne.seuil);
    m_ui->txt_comment_analyse->setPlainText(m_ligne.commentaireAnalyse);
    m_ui->txt_comment_result->setPlainText(m_ligne.commentaireResultat);
    m_ui->cmb_lieu->fixer(m_ligne.lieu.isEmpty() ? lieux()[2] : m_ligne.lieu);
    m_ui->cmb_protocole->fixer(m_ligne.protocole.isEmpty() ? protocoles()[2] : m_ligne.protocole);
    m_ui->txt_prelev2->setText(m_ligne.preleveur);
    const auto connu = [this](const QString &label) {
        return m_ui->cmb_reseau->findText(label, Qt::MatchFixedString) >= 0 ||
               (m_ligne.source && m_ligne.source->reseaux.contains(label));
    };
    m_ui->lst_reseaux->addItems(ReglesPrelevement::decouperReseaux(m_ligne.reseau, connu));
    actualiserBoutons();
}

void EcranDetailPrelevement::chargerReseaux()
{
    ListeChoix lignes;
    for (const QString &label : ListesPrelevement::reseaux(session().donnees))
        lignes << Choix{label, label};
    m_ui->cmb_reseau->remplir(lignes);
}

void EcranDetailPrelevement::montrerPrelevement(const QString &station, const QString &nom,
                                                const QString &date, const QString &heure)
{
    m_ui->txt_code2->setText(station);
    m_ui->txt_station2->setText(nom);
    m_ui->txt_date2->setText(date);
    m_ui->txt_heure2->setText(heure);
    m_ui->txt_station2->setToolTip(nom.toHtmlEscaped());
    m_ui->txt_station2->setCursorPosition(0);
}

void EcranDetailPrelevement::montrerReseaux()
{
    m_ui->SSTab1->setCurrentIndex(1);
    commencerPar(m_ui->cmb_reseau);
}

// Leaving a tab is leaving its fields: one that cannot take its text keeps the user on it.
void EcranDetailPrelevement::changerOnglet(int nouveau)
{
    const QSignalBlocker muet(m_ui->SSTab1);
    m_ui->SSTab1->setCurrentIndex(m_onglet);
    if (!verifierZones())
        return;
    m_onglet = nouveau;
    m_ui->SSTab1->setCurrentIndex(nouveau);
}

void EcranDetailPrelevement::actualiserBoutons()
{
    const bool aAjouter = !m_ui->cmb_reseau->estVide();
    m_ui->cmd_ajouterReseau->setEnabled(aAjouter);
    m_ui->cmd_ajouterReseau->setToolTip(aAjouter ? QString()
                                                 : QStringLiteral("Choisissez d'abord un réseau"));
    const bool aRetirer = !m_ui->lst_reseaux->selectedItems().isEmpty();
    m_ui->cmd_supprimerReseau->setEnabled(aRetirer);
    m_ui->cmd_supprimerReseau->setToolTip(
        aRetirer ? QString() : QStringLiteral("Choisissez dans la liste le réseau à enlever"));
}

void EcranDetailPrelevement::ajouterReseau()
{
    const QString label = m_ui->cmb_reseau->texte();
    if (label.isEmpty())
        return;
    if (m_ui->lst_reseaux->findItems(label, Qt::MatchFixedString).isEmpty())
        m_ui->lst_reseaux->addItem(label);
    m_ui->cmb_reseau->vider();
    actualiserBoutons();
    m_ui->cmb_reseau->setFocus();
}

void EcranDetailPrelevement::supprimerReseau()
{
    qDeleteAll(m_ui->lst_reseaux->selectedItems());
    actualiserBoutons();
    m_ui->lst_reseaux->setFocus();
}

void EcranDetailPrelevement::valider()
{
    if (!verifierZones())
        return;
    TextesLigne l = m_ligne.textes();
    const bool pesticides = m_famille == FamillePrelevement::Pesticides;
    // A comment that was left alone stays as it is stored, to its last odd character.
    if (m_ui->txt_comment_analyse->document()->isModified())
        l.commentaireAnalyse = m_ui->txt_comment_analyse->toPlainText();
    if (m_ui->txt_comment_result->document()->isModified())
        l.commentaireResultat = m_ui->txt_comment_result->toPlainText();
    l.seuil = m_ui->txt_seuil->text();
    l.protocole = m_ui->cmb_protocole->texte();
    if (!pesticides)
        l.lieu = m_ui->cmb_lieu->texte();
    l.ld = ReglesPrelevement::limite(m_ui->txt_LD->text());
    l.lq = ReglesPrelevement::limite(m_ui->txt_LQ->text());
    l.ls = ReglesPrelevement::limite(m_ui->txt_LS->text());
    QStringList labels;
    for (int i = 0; i < m_ui->lst_reseaux->count(); ++i)
        labels << m_ui->lst_reseaux->item(i)->text();
    l.reseau = labels.join(M_Reseaux::SEPARATEUR);
    Q_EMIT valide(l);
    fermer();
}

void EcranDetailPrelevement::closeEvent(QCloseEvent *evenement)
{
    Ecran::closeEvent(evenement);
    if (evenement->isAccepted())
        Q_EMIT fermee();
}
