#include "capture/ecrans/F_Saisie_BV.h"

#include "capture/ecrans/F_Saisie_Commune.h"
#include "capture/ecrans/F_Saisie_SS_BV.h"
#include "capture/ecrans/ListesFiche.h"
#include "capture/EnregistrementBassin.h"
#include "capture/FichesLieux.h"
#include "capture/TableObjectifs.h"
#include "database/M_Referentiels.h"
#include "ui_F_Saisie_BV.h"

#include <QListWidget>

F_Saisie_BV::F_Saisie_BV(Session &session, Cadre &cadre)
    : FicheReference(session, cadre, Fiches::bassin()), m_ui(std::make_unique<Ui::F_Saisie_BV>()),
      m_objectifs(new TableObjectifs(session.donnees, this)), m_parametres(new QListWidget(this)),
      m_fractions(new QListWidget(this))
{
    m_ui->setupUi(this);
    preparerGrille();
    appeler<F_Saisie_Commune>(m_ui->cmd_commune, OrigineSaisie::BASSIN);
    appeler<F_Saisie_SS_BV>(m_ui->cmd_ssbv, OrigineSaisie::BASSIN);
    preparerFiche();
}

F_Saisie_BV::~F_Saisie_BV() = default;

void F_Saisie_BV::preparerGrille()
{
    GrilleListes *grille = m_ui->grd_objectif;
    grille->setModel(m_objectifs);
    m_parametres->setObjectName(QStringLiteral("lst_param"));
    m_fractions->setObjectName(QStringLiteral("lst_fraction"));
    using Bouton = GrilleListes::Colonne::Bouton;
    grille->definirColonne(TableObjectifs::PARAMETRE, {34, m_parametres, Bouton::Liste});
    grille->definirColonne(TableObjectifs::FRACTION, {34, m_fractions, Bouton::Liste});
    grille->definirColonne(TableObjectifs::MOYEN, {18});
    grille->definirColonne(TableObjectifs::MAXIMAL, {18});
    grille->definirColonne(TableObjectifs::UNITE, {14});
    grille->brancher(&session().dialogue,
                     [this](const QModelIndex &cellule, const QString &texte) -> std::optional<RefusSaisie> {
                         const ColonneTravail &colonne = m_objectifs->colonne(cellule.column());
                         std::optional<QVariant> lu;
                         executer([&] { lu = texte.isEmpty() ? QVariant() : colonne.lire(texte); });
                         if (lu)
                             return std::nullopt;
                         return RefusSaisie{colonne.message, colonne.titreMessage};
                     });
}

void F_Saisie_BV::remplirListes()
{
    const DataEnvironment1 &donnees = session().donnees;
    remplirListe(m_ui->lst_commune, ListesFiche::communes(donnees));
    m_ui->lst_ssbv->remplir(ListesFiche::sousBassins(donnees));
    m_parametres->clear();
    m_parametres->addItems(TableObjectifs::parametres(donnees));
    m_fractions->clear();
    m_fractions->addItems(TableObjectifs::fractions(donnees));
}

void F_Saisie_BV::montrerDependants(const FicheLue *fiche)
{
    const DataEnvironment1 &donnees = session().donnees;
    const QVariant numBV = fiche ? M_Enreg_Tables::numeroDeBassin(donnees, fiche->rang) : QVariant();
    m_sousBassinsLus = fiche ? M_Enreg_Tables::sousBassinsDe(donnees, numBV) : QStringList();
    m_ui->lst_ssbv->choisir(m_sousBassinsLus);
    // A study without a reference basin takes the first one that is typed.
    const QString reference = M_Referentiels::BassinReference(donnees);
    m_ui->chk_reference->setChecked(fiche ? fiche->cle.compare(reference, Qt::CaseInsensitive) == 0
                                          : reference.isEmpty());
    M_Enreg_Tables::preparerObjectifs(donnees, numBV);
    m_objectifs->relireTout();
}

QStringList F_Saisie_BV::saisieDependante() const
{
    QStringList textes{m_ui->lst_ssbv->codes().join(u'\n'),
                       m_ui->chk_reference->isChecked() ? QStringLiteral("1") : QString()};
    return textes + m_objectifs->textes();
}

bool F_Saisie_BV::terminerSaisie()
{
    if (!m_ui->grd_objectif->terminerSaisie())
        return false;
    m_objectifs->deposer();
    return true;
}

std::optional<RefusFiche> F_Saisie_BV::refusSaisie() const
{
    const QString refus = M_Enreg_Tables::refusObjectifs(session().donnees);
    if (refus.isEmpty())
        return std::nullopt;
    return RefusFiche{refus, QStringLiteral("Attention"), QStringLiteral("grd_objectif")};
}

Enregistrement F_Saisie_BV::enregistrement() const
{
    SaisieBassin saisie{valeurs(), liens(), m_ui->lst_ssbv->codes(), {}, m_ui->chk_reference->isChecked()};
    for (const QString &code : m_sousBassinsLus) {
        if (chargee() && !saisie.sousBassins.contains(code))
            saisie.retires << code;
    }
    return M_Enreg_Tables::bassin(saisie, [this](const QString &nom) { cadre().nommerBassin(nom); });
}
