#include "exchange/EcriturePhysico.h"

#include "database/DataEnvironment1.h"

EcriturePhysico::EcriturePhysico(const DataEnvironment1 &donnees)
    : m_chercherAnalyse(donnees.Connect_Bdd(),
                        "SELECT NumAnaPC FROM ((MESURE_PHYSICO "
                        "INNER JOIN PRELEVEMENT ON MESURE_PHYSICO.NumPrel = PRELEVEMENT.NumPrel) "
                        "INNER JOIN PARAMETRE ON MESURE_PHYSICO.CodeParam = PARAMETRE.CodeParam) "
                        "WHERE DatePrel = ? AND HeurePrel = ? AND MESURE_PHYSICO.CodeParam = ? "
                        "AND CodeSandreStationM = ? AND CodeSandreGest = ? AND Cd_Fraction = ? "
                        "ORDER BY NumAnaPC LIMIT 1"),
      m_chercherPrelevement(donnees.Connect_Bdd(),
                            "SELECT NumPrel FROM PRELEVEMENT WHERE DatePrel = ? AND HeurePrel = ? "
                            "AND CodeSandreStationM = ? AND CodeSandrePrelev = ? ORDER BY NumPrel LIMIT 1"),
      m_ajouterPrelevement(donnees.Connect_Bdd(),
                           "INSERT INTO PRELEVEMENT (CodeSandreStationM, CdPoint, DatePrel, HeurePrel, "
                           "CdSupport, CodeSandrePrelev, CodeSandreProd, Protocole) "
                           "VALUES (?, ?, ?, ?, '3', ?, ?, ?)"),
      m_rattacher(donnees.Connect_Bdd(),
                  "INSERT INTO PRELEVEMENTRSX (NumPrel, CodeReseau) SELECT ?1, ?2 WHERE NOT EXISTS "
                  "(SELECT 1 FROM PRELEVEMENTRSX WHERE NumPrel = ?1 AND CodeReseau = ?2)"),
      m_ajouterAnalyse(donnees.Connect_Bdd(),
                       "INSERT INTO MESURE_PHYSICO (NumPrel, CodeParam, ResultatAnaPC, CodeRemarqueAnaPC, "
                       "CommAnaPC, SeuilAnaPC, CodeSandreLabo, CodeSandreGest, Cd_Fraction) "
                       "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"),
      m_modifierAnalyse(donnees.Connect_Bdd(),
                        "UPDATE MESURE_PHYSICO SET NumPrel = ?, CodeParam = ?, ResultatAnaPC = ?, "
                        "CodeRemarqueAnaPC = ?, CommAnaPC = ?, SeuilAnaPC = ?, CodeSandreLabo = ?, "
                        "CodeSandreGest = ?, Cd_Fraction = ? WHERE NumAnaPC = ?")
{
}

qint64 EcriturePhysico::chercher(const MesurePhysico &m)
{
    return m_chercherAnalyse.premierEntier(
        {m.date.toString(Qt::ISODate), m.heure, m.parametre, m.station, m.gestionnaire, m.fraction});
}

qint64 EcriturePhysico::prelevement(const MesurePhysico &m)
{
    const QString date = m.date.toString(Qt::ISODate);
    if (const qint64 numero = m_chercherPrelevement.premierEntier({date, m.heure, m.station, m.preleveur}))
        return numero;
    // The manager stands as the producer of the data.
    m_ajouterPrelevement.executer({m.station, InstructionDirecte::ouNul(m.point), date, m.heure, m.preleveur,
                                   m.gestionnaire, InstructionDirecte::ouNul(m.protocole)});
    return m_ajouterPrelevement.dernierIdentifiant();
}

void EcriturePhysico::ecrire(const MesurePhysico &m, qint64 numAnaPC)
{
    const qint64 numPrel = prelevement(m);
    m_rattacher.executer({numPrel, m.reseau});
    const auto commentaire = InstructionDirecte::ouNul(m.commentaire);
    const auto seuil = InstructionDirecte::ouNul(m.seuil);
    if (numAnaPC == 0)
        m_ajouterAnalyse.executer({numPrel, m.parametre, m.resultat, m.remarque, commentaire, seuil,
                                   m.laboratoire, m.gestionnaire, m.fraction});
    else
        m_modifierAnalyse.executer({numPrel, m.parametre, m.resultat, m.remarque, commentaire, seuil,
                                    m.laboratoire, m.gestionnaire, m.fraction, numAnaPC});
}
