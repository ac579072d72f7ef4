#include "capture/EnregistrementPrelevement.h"

#include "capture/ListesPrelevement.h"
#include "database/DataEnvironment1.h"
#include "database/M_Referentiels.h"
#include "database/M_Sandrification.h"
#include "database/SondeBase.h"
#include "database/Transaction.h"
#include "platform/Erreur.h"
#include "platform/VersNombre.h"

namespace
{
enum Numero { ElementDisparu = 70, PrelevementPerdu };

// The condition on PRELEVEMENT that a key is, and its values.
QString conditionCle(const ClePrelevement &cle)
{
    return cle.heure.isEmpty() ? QStringLiteral("CodeSandreStationM = ? AND DatePrel = ?")
                               : QStringLiteral("CodeSandreStationM = ? AND DatePrel = ? AND HeurePrel = ?");
}

QVariantList valeursCle(const ClePrelevement &cle)
{
    QVariantList liste{cle.station, cle.date};
    if (!cle.heure.isEmpty())
        liste << cle.heure;
    return liste;
}

void effacerResultats(const DataEnvironment1 &donnees, FamillePrelevement famille, const ClePrelevement &cle)
{
    donnees.executer(
        QStringLiteral(
            "DELETE FROM MESURE_PHYSICO WHERE NumPrel IN (SELECT NumPrel FROM PRELEVEMENT WHERE %1) "
            "AND CodeParam IN (SELECT CodeParam FROM PARAMETRE WHERE CodeGroupeParam %2)")
            .arg(conditionCle(cle), ListesPrelevement::condition(famille)),
        valeursCle(cle));
}

// The value to write: what the store held, where the text is what it was read as.
QVariant garder(bool intact, const QVariant &tenue, const QVariant &tapee)
{
    return intact ? tenue : tapee;
}

QVariant texteOuNul(const QString &texte)
{
    return texte.isEmpty() ? QVariant() : QVariant(texte);
}

QVariant nombreOuNul(const QString &texte)
{
    return texte.isEmpty() ? QVariant() : QVariant(VersNombre(texte));
}

// One save under way.
class Ecriture
{
public:
    Ecriture(const DataEnvironment1 &donnees, FamillePrelevement famille, const ClePrelevement &cle)
        : m_donnees(donnees), m_famille(famille), m_cle(cle)
    {
    }

    void executer(const QList<LignePrelevement> &lignes)
    {
        QList<QVariantList> valeurs;
        QStringList preleveurs;
        // Every name is looked up before the first statement.
        for (int i = 0; i < lignes.size(); ++i) {
            m_ligne = i + 1;
            valeurs << valeursResultat(lignes[i]);
            preleveurs << codePreleveur(lignes[i]);
        }
        effacer();
        QString dernierPreleveur = QStringLiteral("-1");
        qint64 dernierPrelevement = 0;
        for (int i = 0; i < lignes.size(); ++i) {
            const LignePrelevement &ligne = lignes[i];
            m_ligne = i + 1;
            qint64 numPrel = prelevementDOrigine(ligne);
            if (numPrel == 0) {
                if (preleveurs[i].compare(dernierPreleveur, Qt::CaseInsensitive) != 0) {
                    dernierPreleveur = preleveurs[i];
                    dernierPrelevement = prelevement(preleveurs[i]);
                }
                numPrel = dernierPrelevement;
            }
            ecrireProtocole(ligne, numPrel);
            Requete &ajout = m_donnees.preparee(QStringLiteral(
                "INSERT INTO MESURE_PHYSICO (NumPrel, ResultatAnaPC, CodeRemarqueAnaPC, Cd_Fraction, LD, LQ, "
                "LS, LieuAnaPC, SeuilAnaPC, CodeSandreLabo, CodeParam, CodeSandreGest, CommAnaPC, "
                "CommResAnaPC, CodeMethode) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
            ajout.executer(QVariantList{numPrel} + valeurs[i]);
            ajout.finir();
            rattacher(ligne, numPrel);
        }
    }

private:
    [[noreturn]] void disparu(const QString &quoi, const QString &nom) const
    {
        throw Erreur(ElementDisparu,
                     QStringLiteral("%1 « %2 » de la ligne %3 n'existe plus : choisissez-en un autre.")
                         .arg(quoi, nom)
                         .arg(m_ligne));
    }

    QString codeIntervenant(const QString &nom, const QString &quoi) const
    {
        QString code = M_Referentiels::CodeGestionnaire(m_donnees, nom);
        if (code.isEmpty() && !nom.isEmpty())
            disparu(quoi, nom);
        return code;
    }

    QString codePreleveur(const LignePrelevement &ligne) const
    {
        if (ligne.source && ligne.source->textes.preleveur == ligne.preleveur)
            return ligne.source->codePreleveur;
        return codeIntervenant(ligne.preleveur, QStringLiteral("L'organisme préleveur"));
    }

    QVariantList valeursResultat(const LignePrelevement &l) const
    {
        static const SourceLigne RIEN;
        const bool lue = l.source != nullptr;
        const SourceLigne &s = lue ? *l.source : RIEN;
        const TextesLigne &t = s.textes;
        const bool memeParametre = lue && l.parametre == t.parametre;
        QString parametre = s.codeParametre;
        if (!memeParametre) {
            const auto trouve = ListesPrelevement::parametre(m_donnees, m_famille, l.parametre);
            if (!trouve)
                disparu(QStringLiteral("Le paramètre"), l.parametre);
            parametre = trouve->code;
        }
        const QVariant lieu =
            l.lieu.isEmpty() ? QVariant() : QVariant(M_Sandrification::CodeLieuAnalyse(l.lieu));
        const auto intervenant = [this, lue](const QString &nom, const QString &nomLu, const QVariant &code,
                                             const QString &quoi) {
            // A code that was changed on the actor's sheet meanwhile is found anew by the name.
            const bool tient =
                lue && nom == nomLu &&
                (nom.isEmpty() || M_Referentiels::NomGestionnaire(m_donnees, code.toString()) == nom);
            return tient ? code : texteOuNul(codeIntervenant(nom, quoi));
        };
        return {
            garder(lue && l.resultat == t.resultat, s.resultat, VersNombre(l.resultat)),
            garder(lue && l.remarque == t.remarque, s.remarque, l.remarque),
            garder(lue && l.fraction == t.fraction, s.fraction, l.fraction),
            garder(lue && l.ld == t.ld, s.ld, nombreOuNul(l.ld)),
            garder(lue && l.lq == t.lq, s.lq, nombreOuNul(l.lq)),
            garder(lue && l.ls == t.ls, s.ls, nombreOuNul(l.ls)),
            garder(lue && l.lieu == t.lieu, s.lieu, lieu),
            garder(lue && l.seuil == t.seuil, s.seuil, texteOuNul(l.seuil)),
            intervenant(l.laboratoire, t.laboratoire, s.codeLaboratoire,
                        QStringLiteral("Le laboratoire d'analyse")),
            parametre,
            intervenant(l.gestionnaire, t.gestionnaire, s.codeGestionnaire,
                        QStringLiteral("Le gestionnaire")),
            garder(lue && l.commentaireAnalyse == t.commentaireAnalyse, s.commentaireAnalyse,
                   texteOuNul(l.commentaireAnalyse)),
            garder(lue && l.commentaireResultat == t.commentaireResultat, s.commentaireResultat,
                   texteOuNul(l.commentaireResultat)),
            // A method is one of the result that was measured with it.
            memeParametre ? s.methode : QVariant(),
        };
    }

    void effacer() const
    {
        // The samplings whose networks the screen shows; those of the other family alone are none of its business.
        QList<qint64> montres;
        {
            Requete r = m_donnees.executer(
                QStringLiteral("SELECT NumPrel FROM PRELEVEMENT WHERE %1 AND EXISTS (SELECT 1 "
                               "FROM MESURE_PHYSICO INNER JOIN PARAMETRE "
                               "ON PARAMETRE.CodeParam = MESURE_PHYSICO.CodeParam "
                               "WHERE MESURE_PHYSICO.NumPrel = PRELEVEMENT.NumPrel AND CodeGroupeParam %2)")
                    .arg(conditionCle(m_cle), ListesPrelevement::condition(m_famille)),
                valeursCle(m_cle));
            while (r.suivant())
                montres << r.valeur(0).toLongLong();
        }
        effacerResultats(m_donnees, m_famille, m_cle);
        for (const qint64 numPrel : std::as_const(montres))
            m_donnees.executer(
                QStringLiteral("DELETE FROM PRELEVEMENTRSX WHERE NumPrel = ? AND CodeReseau IN "
                               "(SELECT CodeReseau FROM RESEAU_MESURE WHERE LibelleReseau <> '')"),
                {numPrel});
    }

    // The sampling that a row was read from, while its sampler is the same; 0: none.
    static qint64 prelevementDOrigine(const LignePrelevement &ligne)
    {
        return ligne.source && ligne.source->textes.preleveur == ligne.preleveur ? ligne.source->numPrel : 0;
    }

    QVariant chercherPrelevement(const QString &preleveur) const
    {
        return m_donnees.valeur(
            QStringLiteral("SELECT NumPrel FROM PRELEVEMENT WHERE %1 AND CodeSandrePrelev = ? "
                           "ORDER BY NumPrel LIMIT 1")
                .arg(conditionCle(m_cle)),
            valeursCle(m_cle) + QVariantList{preleveur});
    }

    qint64 prelevement(const QString &preleveur) const
    {
        QVariant numero = chercherPrelevement(preleveur);
        if (!numero.isValid()) {
            m_donnees.executer(
                QStringLiteral("INSERT INTO PRELEVEMENT (CodeSandreStationM, CdPoint, DatePrel, HeurePrel, "
                               "CdSupport, CodeSandrePrelev, CodeSandreProd, Protocole) "
                               "VALUES (?, '031', ?, ?, '3', ?, '0', '0')"),
                {m_cle.station, m_cle.date, texteOuNul(m_cle.heure), preleveur});
            numero = chercherPrelevement(preleveur);
        }
        if (!numero.isValid())
            throw Erreur(PrelevementPerdu,
                         QStringLiteral("Le prélèvement qui vient d'être créé ne se retrouve pas."));
        return numero.toLongLong();
    }

    void ecrireProtocole(const LignePrelevement &ligne, qint64 numPrel) const
    {
        if (ligne.protocole.isEmpty())
            return;
        const bool intact = ligne.source && ligne.source->numPrel == numPrel &&
                            ligne.source->textes.protocole == ligne.protocole;
        if (!intact)
            m_donnees.executer(QStringLiteral("UPDATE PRELEVEMENT SET Protocole = ? WHERE NumPrel = ?"),
                               {QString::number(M_Sandrification::CodeProtocole(ligne.protocole)), numPrel});
    }

    void rattacher(const LignePrelevement &ligne, qint64 numPrel) const
    {
        const auto connu = [this, &ligne](const QString &label) {
            return (ligne.source && ligne.source->reseaux.contains(label)) ||
                   !M_Referentiels::CodeReseauDeLibelle(m_donnees, label).isEmpty();
        };
        for (const QString &label : ReglesPrelevement::decouperReseaux(ligne.reseau, connu)) {
            QStringList codes = ligne.source ? ligne.source->reseaux.value(label) : QStringList();
            if (codes.isEmpty())
                codes << M_Referentiels::CodeReseauDeLibelle(m_donnees, label);
            for (const QString &code : std::as_const(codes)) {
                if (code.isEmpty())
                    disparu(QStringLiteral("Le réseau"), label);
                m_donnees.executer(
                    QStringLiteral(
                        "INSERT INTO PRELEVEMENTRSX (NumPrel, CodeReseau) SELECT ?, ? WHERE NOT "
                        "EXISTS (SELECT 1 FROM PRELEVEMENTRSX WHERE NumPrel = ? AND CodeReseau = ?)"),
                    {numPrel, code, numPrel, code});
            }
        }
    }

    const DataEnvironment1 &m_donnees;
    FamillePrelevement m_famille;
    const ClePrelevement &m_cle;
    int m_ligne = 0; // for the messages
};
} // namespace

void EnregistrementPrelevement::ecrire(const DataEnvironment1 &donnees, FamillePrelevement famille,
                                       const ClePrelevement &cle, const QList<LignePrelevement> &lignes)
{
    try {
        Transaction ensemble(donnees.Connect_Bdd());
        Ecriture(donnees, famille, cle).executer(lignes);
        ensemble.valider();
    } catch (const Erreur &erreur) {
        const Erreur dite = SondeBase::enFrancais(erreur);
        throw Erreur(
            dite.numero(),
            dite.description() +
                QStringLiteral("\nRien n'a été enregistré : la base contient ce qu'elle contenait, et "
                               "vos lignes sont toujours dans le tableau."));
    }
}

void EnregistrementPrelevement::supprimer(const DataEnvironment1 &donnees, FamillePrelevement famille,
                                          const ClePrelevement &cle)
{
    Transaction ensemble(donnees.Connect_Bdd());
    effacerResultats(donnees, famille, cle);
    donnees.executer(QStringLiteral("DELETE FROM PRELEVEMENT WHERE NOT EXISTS (SELECT 1 FROM MESURE_PHYSICO "
                                    "WHERE PRELEVEMENT.NumPrel = MESURE_PHYSICO.NumPrel)"));
    ensemble.valider();
}
