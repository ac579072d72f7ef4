#include "analysis/LignesDonneesBrutes.h"

#include "analysis/NomsParCode.h"
#include "database/DataEnvironment1.h"
#include "database/InstructionDirecte.h"

#include <algorithm>

LignesDonneesBrutes::LignesDonneesBrutes(const DataEnvironment1 &donnees,
                                         std::shared_ptr<const JeuDonneesBrutes> jeu)
    : m_donnees(donnees), m_jeu(std::move(jeu)), m_fractions(NomsParCode::fractions(donnees)),
      m_intervenants(NomsParCode::intervenants(donnees))
{
}

QList<LigneBrute> LignesDonneesBrutes::lire(qsizetype premiere, qsizetype nombre)
{
    const JeuDonneesBrutes &jeu = *m_jeu;
    const qsizetype fin = std::min(premiere + nombre, jeu.nombre());
    QList<LigneBrute> lignes;
    lignes.reserve(std::max<qsizetype>(fin - premiere, 0));
    InstructionDirecte lecture(m_donnees.Connect_Bdd(),
                               "SELECT ResultatAnaPC, CodeRemarqueAnaPC, Cd_Fraction, CodeSandreGest, "
                               "CodeSandreLabo FROM MESURE_PHYSICO WHERE NumAnaPC = ?");
    for (qsizetype i = premiere; i < fin; ++i) {
        const JeuDonneesBrutes::Resultat &resultat = jeu.resultat(i);
        LigneBrute ligne;
        if (const JeuDonneesBrutes::Prelevement *p = jeu.prelevement(resultat)) {
            ligne.codeStation = jeu.stations.code(p->station);
            ligne.station = jeu.stations.libelle(p->station);
            ligne.date = JourBrut::date(p->jour);
            ligne.heure = JourBrut::heure(p->heure);
            ligne.preleveur = jeu.preleveurs.libelle(p->preleveur);
            ligne.reseaux = jeu.reseaux.libelle(p->reseaux);
        }
        ligne.codeParametre = jeu.parametres.code(resultat.parametre);
        ligne.parametre = jeu.parametres.libelle(resultat.parametre);
        ligne.unite = jeu.unite(resultat.parametre);
        lecture.lire({resultat.numAnaPC});
        ligne.presente = lecture.suivant();
        if (ligne.presente) {
            if (!lecture.estNul(0))
                ligne.resultat = lecture.reel(0);
            ligne.remarque = lecture.texte(1);
            ligne.fraction = m_fractions.libelle(m_fractions.numero(lecture.octets(2)));
            ligne.gestionnaire = m_intervenants.libelle(m_intervenants.numero(lecture.octets(3)));
            ligne.laboratoire = m_intervenants.libelle(m_intervenants.numero(lecture.octets(4)));
            lecture.finir();
        }
        lignes << ligne;
    }
    return lignes;
}
