#include "capture/ecrans/EcranSerie.h"

#include "capture/M_Enreg_Tables.h"
#include "database/TableTravail.h"
#include "frame/Session.h"
#include "platform/Erreur.h"
#include "widgets/GrilleSaisie.h"
#include "widgets/LectureSeule.h"
#include "widgets/ZoneCombo.h"

#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>

namespace
{
// Enables a control, or disables it and says why.
void permettre(QWidget *controle, const QString &empechement, const QString &infobulle = {})
{
    controle->setEnabled(empechement.isEmpty());
    controle->setToolTip(empechement.isEmpty() ? infobulle : empechement);
}

bool accepte(Dialogue &dialogue, const QString &question, const QString &titre, Reponse defaut)
{
    return dialogue.question(question, titre, {Reponse::Oui, Reponse::Non}, defaut, Icone::Question) ==
           Reponse::Oui;
}
} // namespace

void EcranSerie::relier(const Controles &controles, const Textes &textes)
{
    m_controles = controles;
    m_textes = textes;
    LectureSeule::appliquer(m_controles.nom);
    // What was being typed is given up with the rest.
    m_controles.annul->setProperty("sansVerification", true);

    const auto relierBouton = [this](QPushButton *bouton, auto action) {
        connect(bouton, &QPushButton::clicked, this,
                [this, action] { executer([this, action] { (this->*action)(); }); });
    };
    relierBouton(m_controles.rech, &EcranSerie::rechercher);
    relierBouton(m_controles.valider, &EcranSerie::valider);
    relierBouton(m_controles.suppr, &EcranSerie::demanderSuppression);
    relierBouton(m_controles.visual, &EcranSerie::visualiser);
    connect(m_controles.annul, &QPushButton::clicked, this, [this] {
        executer([this] { recommencer(false); });
        m_controles.station->setFocus(Qt::OtherFocusReason);
    });
    connect(m_controles.ajouter, &QPushButton::clicked, this, [this] { grille()->ajouterLigne(); });
    connect(m_controles.retirer, &QPushButton::clicked, this, [this] {
        if (grille()->currentIndex().isValid()) {
            grille()->selectRow(grille()->currentIndex().row());
            grille()->supprimerSelection();
        }
    });
    connect(m_controles.station, &ZoneCombo::choixChange, this, [this] {
        if (!session().ViderEnCours)
            executer([this] { choisirStation(); });
    });
    const QList<TableTravail *> lesTables = tables();
    for (TableTravail *une : lesTables) {
        connect(une, &QAbstractItemModel::rowsInserted, this, &EcranSerie::actualiser);
        connect(une, &QAbstractItemModel::rowsRemoved, this, &EcranSerie::actualiser);
        connect(une, &QAbstractItemModel::modelReset, this, &EcranSerie::actualiser);
    }
    executer([this] { recommencer(true); });
    commencerPar(m_controles.station);
}

void EcranSerie::recommencer(bool validable)
{
    viderTables();
    m_cherche = false;
    m_supprime = false;
    m_validable = validable;
    m_controles.valider->setText(QStringLiteral("&Valider"));
    vider();
    m_controles.station->remplir(stations());
    actualiser();
}

void EcranSerie::viderTables()
{
    const QList<TableTravail *> lesTables = tables();
    for (TableTravail *une : lesTables)
        une->vider();
}

void EcranSerie::actualiser()
{
    const bool choisie = !m_controles.station->estVide();
    const int lignes = table()->rowCount();
    const QString sansStation = choisie ? QString() : QStringLiteral("Choisissez d'abord une station");
    const QString sansRecherche =
        m_cherche ? QString() : QStringLiteral("Choisissez une station, puis « Rechercher »");
    const QString verrou = QStringLiteral("« Annuler » ou « Valider » libère la station");
    const QString rienSupprimer =
        m_supprime ? QStringLiteral("Les mesures de cette station viennent d'être supprimées") : QString();

    permettre(m_controles.station, m_cherche ? verrou : QString());
    permettre(m_controles.rech, m_cherche ? verrou : QString(),
              QStringLiteral("Chercher les mesures de la station choisie"));
    permettre(m_controles.saisie, sansRecherche);
    permettre(m_controles.annul, sansRecherche,
              QStringLiteral("Abandonner la saisie en cours ; rien n'est enregistré"));
    permettre(m_controles.valider, m_cherche || m_validable ? QString() : sansRecherche,
              QStringLiteral("Enregistrer ces mesures à la place de celles de la station"));
    permettre(m_controles.suppr, sansStation.isEmpty() ? rienSupprimer : sansStation,
              QStringLiteral("Supprimer de la base toutes les mesures de la station"));
    permettre(m_controles.visual, sansStation.isEmpty() && lignes == 0 ? rienSupprimer : sansStation,
              QStringLiteral("Montrer les mesures du tableau dans un classeur"));
    m_controles.retirer->setEnabled(lignes > 0);
    m_controles.nombre->setText(lignes == 0   ? QStringLiteral("Aucune mesure")
                                : lignes == 1 ? QStringLiteral("1 mesure")
                                              : QStringLiteral("%1 mesures").arg(lignes));
}

void EcranSerie::choisirStation()
{
    const ListeChoix lignes = stations();
    m_controles.nom->clear();
    for (const Choix &ligne : lignes)
        if (ligne.code == m_controles.station->code())
            m_controles.nom->setText(ligne.complement);
    m_controles.nom->setCursorPosition(0);
    m_supprime = false;
    actualiser();
}

void EcranSerie::rechercher()
{
    if (!m_controles.station->verifier())
        return;
    if (m_controles.station->estVide()) {
        dire(m_textes.stationManquante, QStringLiteral("Attention"));
        m_controles.station->setFocus(Qt::OtherFocusReason);
        return;
    }
    const QString station = m_controles.station->code();
    viderTables();
    const bool montrer =
        existe(station) &&
        accepte(session().dialogue,
                QStringLiteral("Des enregistrements existent déjà. Désirez-vous les visualiser?"),
                QStringLiteral("Enregistrements existants"), Reponse::Oui);
    m_cherche = true;
    m_supprime = false;
    if (montrer)
        remplir(station);
    m_controles.valider->setText(montrer ? QStringLiteral("&Modifier") : QStringLiteral("V&alider"));
    actualiser();
    grille()->setFocus(Qt::OtherFocusReason);
    if (table()->rowCount() > 0)
        grille()->setCurrentIndex(table()->index(0, 0));
}

void EcranSerie::valider()
{
    if (!verifierZones() || !grille()->terminerSaisie())
        return;
    const auto refuser = [this](const QString &texte, QWidget *champ) {
        dire(texte, QStringLiteral("Attention"));
        champ->setFocus(Qt::OtherFocusReason);
    };
    if (m_controles.station->estVide()) {
        refuser(m_textes.stationManquante, m_controles.station);
        return;
    }
    const QList<TableTravail *> lesTables = tables();
    for (TableTravail *une : lesTables)
        une->retirerLignesVides();
    if (!complete()) {
        refuser(QStringLiteral("Des éléments sont manquants dans le tableau."), grille());
        return;
    }
    const QString station = m_controles.station->code();
    const Suite suite = M_Enreg_Tables::enregistrerMesures(
        session().dialogue, [this, &station] { enregistrer(station); }, m_textes.finEnregistrement);
    if (suite == Suite::Fini)
        fermer();
    if (suite != Suite::Autre)
        return;
    recommencer(true);
    m_controles.station->setFocus(Qt::OtherFocusReason);
}

void EcranSerie::demanderSuppression()
{
    if (!accepte(session().dialogue,
                 QStringLiteral(
                     "La suppression entrainera celle de toutes les mesures correspondantes de la station "
                     "choisie. Etes-vous sûr de vouloir supprimer ces enregistrements?"),
                 QStringLiteral("Suppression d'enregistrements"), Reponse::Non))
        return;
    supprimer(m_controles.station->code());
    viderTables();
    m_controles.valider->setText(QStringLiteral("&Valider"));
    m_supprime = true;
    actualiser();
}

void EcranSerie::visualiser()
{
    if (!grille()->terminerSaisie())
        return;
    table()->retirerLignesVides();
    if (table()->rowCount() == 0) {
        direRienAVisualiser(session().dialogue);
        return;
    }
    visualiserMesures(vue(), session().dialogue, session().tableur, session().etatRapport);
}

void EcranSerie::dire(const QString &texte, const QString &titre) const
{
    session().dialogue.message(texte, titre, Icone::Exclamation);
}

void EcranSerie::closeEvent(QCloseEvent *evenement)
{
    Ecran::closeEvent(evenement);
    if (!evenement->isAccepted() || !session().donnees.estOuvert())
        return;
    executer([this] { viderTables(); });
}
