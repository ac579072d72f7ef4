#include "capture/TravailPrelevement.h"

#include "database/DataEnvironment1.h"

namespace
{
QStringList colonnes(FamillePrelevement famille)
{
    QStringList noms{QStringLiteral("Parametre"),   QStringLiteral("Resultat"),
                     QStringLiteral("Unite"),       QStringLiteral("CodeRemarque"),
                     QStringLiteral("CD_FRACTION"), QStringLiteral("Methode"),
                     QStringLiteral("Preleveur"),   QStringLiteral("Laboratoire"),
                     QStringLiteral("Gest"),        QStringLiteral("Reseau"),
                     QStringLiteral("Autre"),       QStringLiteral("Seuil"),
                     QStringLiteral("Protocole"),   QStringLiteral("LD"),
                     QStringLiteral("LQ"),          QStringLiteral("LS")};
    if (famille == FamillePrelevement::Pesticides)
        noms << QStringLiteral("Comment");
    else
        noms << QStringLiteral("CommRes") << QStringLiteral("CommAna") << QStringLiteral("Lieu");
    return noms;
}
} // namespace

TravailPrelevement::TravailPrelevement(const DataEnvironment1 &donnees, FamillePrelevement famille)
    : m_donnees(donnees), m_famille(famille),
      m_table(famille == FamillePrelevement::Pesticides ? QStringLiteral("Temp_mesure_phyto")
                                                        : QStringLiteral("Temp_mesure_physico"))
{
    const QStringList noms = colonnes(famille);
    m_ajout = QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                  .arg(m_table, noms.join(QLatin1String(", ")),
                       QStringList(noms.size(), QStringLiteral("?")).join(QLatin1String(", ")));
    m_modification = QStringLiteral("UPDATE %1 SET %2 = ? WHERE rowid = ?")
                         .arg(m_table, noms.join(QLatin1String(" = ?, ")));
    m_suppression = QStringLiteral("DELETE FROM %1 WHERE rowid = ?").arg(m_table);
}

QVariantList TravailPrelevement::valeurs(const TextesLigne &l) const
{
    QVariantList liste{l.parametre,          l.resultat, l.unite,     l.remarque,
                       l.fraction,           l.methode,  l.preleveur, l.laboratoire,
                       l.gestionnaire,       l.reseau,   l.autre,     l.seuil,
                       l.protocole,          l.ld,       l.lq,        l.ls,
                       l.commentaireResultat};
    if (m_famille == FamillePrelevement::PhysicoChimie)
        liste << l.commentaireAnalyse << l.lieu;
    return liste;
}

void TravailPrelevement::vider() const
{
    m_donnees.executer(QStringLiteral("DELETE FROM ") + m_table);
}

qint64 TravailPrelevement::ajouter(const TextesLigne &ligne) const
{
    Requete &ajout = m_donnees.preparee(m_ajout);
    ajout.executer(valeurs(ligne));
    const qint64 numero = ajout.dernierIdentifiant().toLongLong();
    ajout.finir();
    return numero;
}

void TravailPrelevement::modifier(qint64 numero, const TextesLigne &ligne) const
{
    Requete &modification = m_donnees.preparee(m_modification);
    modification.executer(valeurs(ligne) + QVariantList{numero});
    modification.finir();
}

void TravailPrelevement::supprimer(qint64 numero) const
{
    Requete &suppression = m_donnees.preparee(m_suppression);
    suppression.executer({numero});
    suppression.finir();
}
