#include "exchange/EcriturePhysico.h"

#include "database/DataEnvironment1.h"

namespace
{
// NULL for an empty text.
QVariant ouNul(const QString &texte)
{
    return texte.isEmpty() ? QVariant() : QVariant(texte);
}

qint64 premierNumero(Requete &requete, const QVariantList &parametres)
{
    requete.executer(parametres);
    const qint64 numero = requete.suivant() ? requete.valeur(0).toLongLong() : 0;
    requete.finir();
    return numero;
}
} // namespace

EcriturePhysico::EcriturePhysico(const DataEnvironment1 &donnees)
    : m_chercherAnalyse(
          donnees.Connect_Bdd(),
          QStringLiteral("SELECT NumAnaPC FROM ((MESURE_PHYSICO "
                         "INNER JOIN PRELEVEMENT ON MESURE_PHYSICO.NumPrel = PRELEVEMENT.NumPrel) "
                         "INNER JOIN PARAMETRE ON MESURE_PHYSICO.CodeParam = PARAMETRE.CodeParam) "
                         "WHERE DatePrel = ? AND HeurePrel = ? AND MESURE_PHYSICO.CodeParam = ? "
                         "AND CodeSandreStationM = ? AND CodeSandreGest = ? AND Cd_Fraction = ? "
                         "ORDER BY NumAnaPC LIMIT 1")),
      m_chercherPrelevement(
          donnees.Connect_Bdd(),
          QStringLiteral("SELECT NumPrel FROM PRELEVEMENT WHERE DatePrel = ? AND HeurePrel = ? "
                         "AND CodeSandreStationM = ? AND CodeSandrePrelev = ? ORDER BY NumPrel LIMIT 1")),
      m_ajouterPrelevement(
          donnees.Connect_Bdd(),
          QStringLiteral(
              "INSERT INTO PRELEVEMENT (CodeSandreStationM, CdPoint, DatePrel, HeurePrel, CdSupport, "
              "CodeSandrePrelev, CodeSandreProd, Protocole) VALUES (?, ?, ?, ?, '3', ?, ?, ?)")),
      m_rattacher(
          donnees.Connect_Bdd(),
          QStringLiteral("INSERT INTO PRELEVEMENTRSX (NumPrel, CodeReseau) SELECT ?, ? WHERE NOT EXISTS "
                         "(SELECT 1 FROM PRELEVEMENTRSX WHERE NumPrel = ? AND CodeReseau = ?)")),
      m_ajouterAnalyse(
          donnees.Connect_Bdd(),
          QStringLiteral("INSERT INTO MESURE_PHYSICO (NumPrel, CodeParam, ResultatAnaPC, CodeRemarqueAnaPC, "
                         "CommAnaPC, SeuilAnaPC, CodeSandreLabo, CodeSandreGest, Cd_Fraction) "
                         "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)")),
      m_modifierAnalyse(
          donnees.Connect_Bdd(),
          QStringLiteral("UPDATE MESURE_PHYSICO SET NumPrel = ?, CodeParam = ?, ResultatAnaPC = ?, "
                         "CodeRemarqueAnaPC = ?, CommAnaPC = ?, SeuilAnaPC = ?, CodeSandreLabo = ?, "
                         "CodeSandreGest = ?, Cd_Fraction = ? WHERE NumAnaPC = ?"))
{
}

qint64 EcriturePhysico::chercher(const MesurePhysico &mesure)
{
    return premierNumero(m_chercherAnalyse, {mesure.date, mesure.heure, mesure.parametre, mesure.station,
                                             mesure.gestionnaire, mesure.fraction});
}

qint64 EcriturePhysico::prelevement(const MesurePhysico &mesure)
{
    if (const qint64 numero = premierNumero(m_chercherPrelevement,
                                            {mesure.date, mesure.heure, mesure.station, mesure.preleveur}))
        return numero;
    // The manager stands as the producer of the data.
    m_ajouterPrelevement.executer({mesure.station, ouNul(mesure.point), mesure.date, mesure.heure,
                                   mesure.preleveur, mesure.gestionnaire, ouNul(mesure.protocole)});
    return m_ajouterPrelevement.dernierIdentifiant().toLongLong();
}

void EcriturePhysico::ecrire(const MesurePhysico &mesure, qint64 numAnaPC)
{
    const qint64 numPrel = prelevement(mesure);
    m_rattacher.executer({numPrel, mesure.reseau, numPrel, mesure.reseau});
    QVariantList valeurs = {numPrel,
                            mesure.parametre,
                            mesure.resultat,
                            mesure.remarque,
                            ouNul(mesure.commentaire),
                            ouNul(mesure.seuil),
                            mesure.laboratoire,
                            mesure.gestionnaire,
                            mesure.fraction};
    if (numAnaPC == 0) {
        m_ajouterAnalyse.executer(valeurs);
    } else {
        valeurs << numAnaPC;
        m_modifierAnalyse.executer(valeurs);
    }
}
