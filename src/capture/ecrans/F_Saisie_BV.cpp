#include "capture/ecrans/F_Saisie_BV.h"

#include "capture/ecrans/F_Saisie_Commune.h"
#include "capture/ecrans/F_Saisie_SS_BV.h"
#include "capture/ecrans/ListesFiche.h"
#include "capture/EnregistrementBassin.h"
#include "capture/FichesLieux.h"
#include "capture/TableObjectifs.h"
#include "database/M_Referentiels.h"
#include "ui_F_Saisie_BV.h"
#include "widgets/DelegueChoix.h"

#include <QHeaderView>

F_Saisie_BV::F_Saisie_BV(Session &session, Cadre &cadre)
    : FicheReference(session, cadre, Fiches::bassin()), m_ui(std::make_unique<Ui::F_Saisie_BV>()),
      m_objectifs(new TableObjectifs(session.donnees, this)), m_parametres(new DelegueChoix(this)),
      m_fractions(new DelegueChoix(this))
{
    m_ui->setupUi(this);
    GrilleSaisie *grille = m_ui->grd_objectif;
    grille->definirTable(m_objectifs, &session.dialogue);
    grille->setItemDelegateForColumn(TableObjectifs::PARAMETRE, m_parametres);
    grille->setItemDelegateForColumn(TableObjectifs::FRACTION, m_fractions);
    grille->horizontalHeader()->setSectionResizeMode(TableObjectifs::PARAMETRE, QHeaderView::Stretch);
    grille->horizontalHeader()->setSectionResizeMode(TableObjectifs::FRACTION, QHeaderView::Stretch);
    for (const int colonne : {TableObjectifs::MOYEN, TableObjectifs::MAXIMAL})
        grille->setColumnWidth(
            colonne, grille->fontMetrics().horizontalAdvance(QStringLiteral("Objectif maximal  000")));
    appeler<F_Saisie_Commune>(m_ui->cmd_commune, OrigineSaisie::BASSIN);
    appeler<F_Saisie_SS_BV>(m_ui->cmd_sous_bassin, OrigineSaisie::BASSIN);
    preparerFiche();
}

F_Saisie_BV::~F_Saisie_BV() = default;

void F_Saisie_BV::remplirListes()
{
    const DataEnvironment1 &donnees = session().donnees;
    remplirListe(m_ui->lst_commune, ListesFiche::communes(donnees));
    m_ui->lst_sous_bassin->remplir(ListesFiche::sousBassins(donnees));
    m_parametres->definirLignes(TableObjectifs::parametres(donnees));
    m_fractions->definirLignes(TableObjectifs::fractions(donnees));
}

void F_Saisie_BV::montrerDependants(const FicheLue *fiche)
{
    const DataEnvironment1 &donnees = session().donnees;
    const QVariant numBV = fiche ? QVariant(fiche->rang) : QVariant();
    m_sousBassinsLus = fiche ? M_Enreg_Tables::sousBassinsDe(donnees, numBV) : QStringList();
    m_ui->lst_sous_bassin->choisir(m_sousBassinsLus);
    // A study without a reference basin takes the first one that is typed.
    const QString reference = M_Referentiels::BassinReference(donnees);
    m_ui->chk_reference->setChecked(fiche ? fiche->cle.compare(reference, Qt::CaseInsensitive) == 0
                                          : reference.isEmpty());
    M_Enreg_Tables::preparerObjectifs(donnees, numBV);
    m_objectifs->relireTout();
}

QStringList F_Saisie_BV::saisieDependante() const
{
    QStringList textes{m_ui->lst_sous_bassin->codes().join(u'\n'),
                       m_ui->chk_reference->isChecked() ? QStringLiteral("1") : QString()};
    return textes + m_objectifs->textes();
}

bool F_Saisie_BV::terminerSaisie()
{
    if (!m_ui->grd_objectif->terminerSaisie())
        return false;
    m_objectifs->retirerLignesVides();
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
    SaisieBassin saisie{
        valeurs(), liens(), m_ui->lst_sous_bassin->codes(), {}, m_ui->chk_reference->isChecked()};
    for (const QString &code : m_sousBassinsLus) {
        if (chargee() && !saisie.sousBassins.contains(code))
            saisie.retires << code;
    }
    return M_Enreg_Tables::bassin(saisie, [this](const QString &nom) { cadre().nommerBassin(nom); });
}
