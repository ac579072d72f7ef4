#include "maintenance/ecrans/F_MiseAJour_Intervenant.h"

#include "database/Utilitaires.h"
#include "exchange/M_Test_OVRA.h"
#include "frame/Session.h"
#include "platform/Erreur.h"
#include "ui_F_MiseAJour_Intervenant.h"

namespace
{
const QString PREFIXE_JOURNAL = QStringLiteral("Importation MAJ codes intervenants");
} // namespace

F_MiseAJour_Intervenant::F_MiseAJour_Intervenant(Session &session, Cadre &cadre, QWidget *parent)
    : Ecran(session, cadre, parent), m_ui(std::make_unique<Ui::F_MiseAJour_Intervenant>())
{
    m_ui->setupUi(this);
    connect(m_ui->PB_IMPORTER, &QPushButton::clicked, this, &F_MiseAJour_Intervenant::importer);
    connect(m_ui->PB_MAJ, &QPushButton::clicked, this, &F_MiseAJour_Intervenant::mettreAJour);
    connect(m_ui->PB_FERMER, &QPushButton::clicked, this, &Ecran::fermer);

    const auto trier = [this](M_Intervenants::Tri tri) {
        m_tri = tri;
        remplirListes();
    };
    connect(m_ui->PB_TRI_LIB, &QPushButton::clicked, this, [=] { trier(M_Intervenants::Tri::Libelle); });
    connect(m_ui->PB_TRI_ANCIEN, &QPushButton::clicked, this,
            [=] { trier(M_Intervenants::Tri::AncienCode); });
    connect(m_ui->PB_TRI_NOUVEAU, &QPushButton::clicked, this,
            [=] { trier(M_Intervenants::Tri::NouveauCode); });

    // Three lists, one selection, one scroll.
    const QList<QListWidget *> listes{m_ui->ZL_LIBELLE, m_ui->ZL_CODE_SANDRE, m_ui->ZL_CODE_SIRET};
    for (QListWidget *liste : listes) {
        connect(liste, &QListWidget::currentRowChanged, this, [this, liste] { accorderListes(liste); });
        for (QListWidget *autre : listes)
            if (autre != liste)
                connect(liste->verticalScrollBar(), &QScrollBar::valueChanged, autre->verticalScrollBar(),
                        &QScrollBar::setValue);
    }
    preparer(m_ui->PB_IMPORTER, m_ui->PB_FERMER);
    remplirListes();
}

F_MiseAJour_Intervenant::~F_MiseAJour_Intervenant() = default;

void F_MiseAJour_Intervenant::importer()
{
    if (!m_ui->RB_IMPORT_NOUVEAU->isChecked() && !m_ui->RB_ECRASER->isChecked()) {
        session().dialogue.message(QStringLiteral("Vous devez sélectionner un mode d'import !"),
                                   QStringLiteral("Importation des correspondances Intervenants"),
                                   Icone::Exclamation);
        m_ui->RB_IMPORT_NOUVEAU->setFocus();
        return;
    }
    DemandeFichier demande;
    demande.titre = QStringLiteral("Choisissez le fichier à importer");
    demande.filtre = QStringLiteral("Excel (*.xls)|*.xls");
    demande.dossierInitial = session().CheminBase;
    const std::optional<QString> choisi = session().dialogue.choisirFichier(demande);
    if (!choisi)
        return;
    setEnabled(false);
    executer([&] { importerFichier(Chemins::versHote(*choisi)); });
    setEnabled(true);
    remplirListes();
}

void F_MiseAJour_Intervenant::importerFichier(const QString &fichier)
{
    ColonnesReconnues colonnes{};
    if (M_Test_OVRA::TesterFormatIntervenant(session(), fichier, colonnes) != M_Test_OVRA::FORMAT_RECONNU)
        return;
    const QList<M_Intervenants::Correspondance> paires =
        M_Intervenants::lireCorrespondances(session().tableur, fichier);

    Utilitaires::Journal journal(session().dialogue);
    const QString chemin = journal.OuvrirJournal(PREFIXE_JOURNAL);
    const int importees =
        M_Intervenants::importer(session().donnees, paires, m_ui->RB_ECRASER->isChecked(),
                                 [&](const QString &ligne) { journal.EcrireJournal(ligne); });
    journal.EcrireJournal(
        importees > 0
            ? QString::number(importees) +
                  QStringLiteral(" correspondances code Sandre Intervenant -> code Siret importées.")
            : QStringLiteral("Aucune correspondance code Sandre Intervenant -> code Siret importée."));
    journal.FermerJournal(PREFIXE_JOURNAL);
    session().dialogue.message(
        QStringLiteral("Importation terminée. Le fichier journal ") + chemin + QStringLiteral(" a été créé."),
        QStringLiteral("Importation des correspondances Intervenants"), Icone::Information);
}

void F_MiseAJour_Intervenant::mettreAJour()
{
    try {
        const int nombre = M_Intervenants::nombreCorrespondances(session().donnees);
        if (nombre == 0)
            return;
        if (session().dialogue.question(
                QStringLiteral("Mise à jour de %1 codes intervenants (cf Liste des nouveaux codes Siret). "
                               "Confirmez-vous cette mise à jour ?")
                    .arg(nombre),
                QStringLiteral("OVL - Mise à jour des codes intervenants"), {Reponse::Oui, Reponse::Non},
                Reponse::Non, Icone::Question) != Reponse::Oui)
            return;
        setEnabled(false);
        Progression &barre = session().dialogue.progression(FenetreProgression::Principale);
        barre.montrer({}, QStringLiteral("Mise à jour des codes intervenants"));
        barre.maximum(nombre);
        const auto remettre = qScopeGuard([&] {
            barre.cacher();
            setEnabled(true);
        });
        const int regroupes =
            M_Intervenants::mettreAJour(session().donnees, [&](int position) { barre.valeur(position); });
        QString fin = QStringLiteral("Mise à jour terminée.");
        if (regroupes == 1)
            fin += QStringLiteral(
                "\n1 nouveau code désignait déjà un intervenant : les mesures de l'ancien lui ont été "
                "rattachées.");
        else if (regroupes > 1)
            fin += QStringLiteral(
                       "\n%1 nouveaux codes désignaient déjà un intervenant : les mesures des anciens leur "
                       "ont été rattachées.")
                       .arg(regroupes);
        session().dialogue.message(fin, QStringLiteral("OVL - Mise à jour des codes intervenants"),
                                   Icone::Information);
    } catch (const Erreur &erreur) {
        session().dialogue.message(QStringLiteral("Erreur : ") + erreur.description(),
                                   QStringLiteral("OVL - Mise à jour des codes intervenants"),
                                   Icone::Critique);
    }
    remplirListes();
}

void F_MiseAJour_Intervenant::remplirListes()
{
    QList<M_Intervenants::LigneIntervenant> lignes;
    try {
        lignes = M_Intervenants::lister(session().donnees, m_tri);
    } catch (const Erreur &erreur) {
        session().dialogue.message(QStringLiteral("Erreur : ") + erreur.description(),
                                   QStringLiteral("Erreur"), Icone::Critique);
    }
    for (QListWidget *liste : {m_ui->ZL_LIBELLE, m_ui->ZL_CODE_SANDRE, m_ui->ZL_CODE_SIRET}) {
        const QSignalBlocker muet(liste);
        liste->clear();
    }
    for (const M_Intervenants::LigneIntervenant &ligne : lignes) {
        m_ui->ZL_LIBELLE->addItem(ligne.nom);
        m_ui->ZL_CODE_SANDRE->addItem(ligne.code);
        m_ui->ZL_CODE_SIRET->addItem(ligne.nouveau);
    }
    accorderBoutons();
}

void F_MiseAJour_Intervenant::accorderListes(const QListWidget *source)
{
    for (QListWidget *liste : {m_ui->ZL_LIBELLE, m_ui->ZL_CODE_SANDRE, m_ui->ZL_CODE_SIRET}) {
        if (liste == source)
            continue;
        const QSignalBlocker muet(liste);
        liste->setCurrentRow(source->currentRow());
        liste->scrollToItem(liste->currentItem());
    }
}

void F_MiseAJour_Intervenant::accorderBoutons()
{
    bool correspondances = false;
    try {
        correspondances = M_Intervenants::nombreCorrespondances(session().donnees) > 0;
    } catch (const Erreur &) {
        // Told already by the filling of the lists.
    }
    m_ui->PB_MAJ->setEnabled(correspondances);
    m_ui->PB_MAJ->setToolTip(
        correspondances ? QString()
                        : QStringLiteral("Aucune correspondance n'est enregistrée : importez-en d'abord."));
}
