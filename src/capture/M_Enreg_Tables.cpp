#include "capture/M_Enreg_Tables.h"

#include "capture/ReglesFiche.h"
#include "database/Collation.h"
#include "database/DataEnvironment1.h"
#include "database/Schema.h"
#include "database/SondeBase.h"
#include "platform/Dialogue.h"
#include "platform/Erreur.h"

namespace
{
bool confirme(Dialogue &dialogue, const QString &texte, const QString &titre, Icone icone = Icone::Question)
{
    return dialogue.question(texte, titre, {Reponse::Oui, Reponse::Non}, Reponse::Oui, icone) == Reponse::Oui;
}

Suite annuler(Dialogue &dialogue)
{
    dialogue.message(QStringLiteral("L'enregistrement est annulé"), QStringLiteral("Annulation"),
                     Icone::Information);
    return Suite::Annule;
}

Suite finir(Dialogue &dialogue, const QString &question)
{
    return confirme(dialogue, question, QStringLiteral("Fin de l'enregistrement")) ? Suite::Autre
                                                                                   : Suite::Fini;
}

QString cite(const QString &nom)
{
    return Schema::entreCrochets(nom);
}

qint64 ecrire(const DataEnvironment1 &donnees, const Enregistrement &e, std::optional<qint64> rang)
{
    QStringList noms;
    QVariantList valeurs;
    for (const Enregistrement::Colonne &colonne : e.colonnes) {
        noms << cite(colonne.nom);
        valeurs << colonne.valeur;
    }
    if (!rang) {
        const QStringList marques(noms.size(), QStringLiteral("?"));
        return donnees
            .executer(
                QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                    .arg(cite(e.table), noms.join(QLatin1String(", ")), marques.join(QLatin1String(", "))),
                valeurs)
            .dernierIdentifiant()
            .toLongLong();
    }
    donnees.executer(QStringLiteral("UPDATE %1 SET %2 = ? WHERE rowid = ?")
                         .arg(cite(e.table), noms.join(QLatin1String(" = ?, "))),
                     valeurs + QVariantList{*rang});
    return *rang;
}

Suite derouler(const DataEnvironment1 &donnees, Dialogue &dialogue, const Enregistrement &e)
{
    const std::optional<qint64> trouve = M_Enreg_Tables::chercher(donnees, e.table, e.critere, e.cle);
    const QString demande = trouve ? QStringLiteral("Etes-vous sûr de vouloir modifier ces informations?")
                                   : QStringLiteral("Etes-vous sûr de vouloir enregistrer ces informations?");
    const bool averti = e.avertissement.isEmpty() ||
                        confirme(dialogue, e.avertissement, QStringLiteral("Attention"), Icone::Exclamation);
    if (!averti || !confirme(dialogue, demande, QStringLiteral("Confirmation")))
        return annuler(dialogue);
    const qint64 rang = ecrire(donnees, e, trouve);
    if (e.dependants)
        e.dependants(donnees, rang);
    const Suite suite = finir(dialogue, e.fin);
    if (e.aLaFin)
        e.aLaFin(donnees);
    return suite;
}

// Runs a save under the handler that all of them have.
Suite garder(Dialogue &dialogue, const std::function<Suite()> &action)
{
    try {
        return action();
    } catch (const Erreur &erreur) {
        dialogue.message(QStringLiteral("Une erreur s'est produite en cours de traitement : \n") +
                             SondeBase::enFrancais(erreur).numeroEtDescription(),
                         QStringLiteral("Erreur"), Icone::Critique);
        return Suite::Echec;
    }
}
} // namespace

Suite M_Enreg_Tables::enregistrer(const DataEnvironment1 &donnees, Dialogue &dialogue,
                                  const Enregistrement &enregistrement)
{
    return garder(dialogue, [&] { return derouler(donnees, dialogue, enregistrement); });
}

Suite M_Enreg_Tables::enregistrerMesures(Dialogue &dialogue, const std::function<void()> &ecrire,
                                         const QString &fin)
{
    return garder(dialogue, [&] {
        if (!confirme(dialogue, QStringLiteral("Etes-vous sûr de vouloir enregistrer ces informations?"),
                      QStringLiteral("Confirmation")))
            return annuler(dialogue);
        ecrire();
        return finir(dialogue, fin);
    });
}

std::optional<qint64> M_Enreg_Tables::chercher(const DataEnvironment1 &donnees, const QString &table,
                                               const QString &colonne, const QString &valeur)
{
    if (valeur.isEmpty())
        return std::nullopt;
    // Reference tables are small, and the store's own comparison knows no case beyond that of A to Z.
    const QString cherchee = Collation::pliee(valeur);
    Requete lignes = donnees.executer(
        QStringLiteral("SELECT rowid, %1 FROM %2 ORDER BY rowid").arg(cite(colonne), cite(table)));
    while (lignes.suivant()) {
        if (Collation::pliee(lignes.texte(1)) == cherchee)
            return lignes.valeur(0).toLongLong();
    }
    return std::nullopt;
}

Enregistrement M_Enreg_Tables::ligne(const DescriptionFiche &description, const ValeursFiche &valeurs,
                                     const QString &interne, const LiensFiche &liens)
{
    Enregistrement e;
    e.table = description.table;
    const bool choisie = !interne.isEmpty() && !description.cleInterne.isEmpty();
    e.critere = choisie ? description.cleInterne : description.critere;
    e.cle = choisie ? interne : valeurs.value(description.critere).trimmed();
    for (const ChampFiche &champ : description.champs)
        e.colonnes.append({champ.colonne, ReglesFiche::valeurAEcrire(description.table, champ.colonne,
                                                                     valeurs.value(champ.colonne))});
    e.fin = description.fin;
    if (!description.liens.isEmpty())
        e.dependants = [description, liens](const DataEnvironment1 &donnees, qint64 rang) {
            recrireLiens(donnees, description, rang, liens);
        };
    return e;
}

void M_Enreg_Tables::recrireLiens(const DataEnvironment1 &donnees, const DescriptionFiche &description,
                                  qint64 rang, const LiensFiche &liens)
{
    for (const LienFiche &lien : description.liens) {
        const QString nommee = lien.nommee.isEmpty() ? description.critere : lien.nommee;
        const QVariant cle = donnees.valeur(
            QStringLiteral("SELECT %1 FROM %2 WHERE rowid = ?").arg(cite(nommee), cite(description.table)),
            {rang});
        recrireLiens(donnees, lien.table, lien.colonneCle, cle, lien.colonneLiee, liens.value(lien.table));
    }
}

void M_Enreg_Tables::recrireLiens(const DataEnvironment1 &donnees, const QString &table,
                                  const QString &colonneCle, const QVariant &cle, const QString &colonneLiee,
                                  const QStringList &lies)
{
    donnees.executer(QStringLiteral("DELETE FROM %1 WHERE %2 = ?").arg(cite(table), cite(colonneCle)), {cle});
    for (const QString &lie : lies)
        donnees.executer(QStringLiteral("INSERT INTO %1 (%2, %3) VALUES (?, ?)")
                             .arg(cite(table), cite(colonneCle), cite(colonneLiee)),
                         {cle, lie});
}
