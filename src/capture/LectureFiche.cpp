#include "capture/LectureFiche.h"

#include "capture/M_Enreg_Tables.h"
#include "capture/ReglesFiche.h"
#include "database/DataEnvironment1.h"
#include "database/Schema.h"

namespace
{
QString cite(const QString &nom)
{
    return Schema::entreCrochets(nom);
}
} // namespace

ListeChoix LectureFiche::cles(const DataEnvironment1 &donnees, const DescriptionFiche &description)
{
    const QString libelle = description.libelle.isEmpty() ? QStringLiteral("''") : cite(description.libelle);
    ListeChoix liste;
    Requete lignes =
        donnees.executer(QStringLiteral("SELECT rowid, %1, %2 FROM %3 ORDER BY %1 COLLATE FRANCAIS")
                             .arg(cite(description.critere), libelle, cite(description.table)));
    while (lignes.suivant())
        liste.append({lignes.texte(0), lignes.texte(1), lignes.texte(2)});
    return liste;
}

std::optional<FicheLue> LectureFiche::lire(const DataEnvironment1 &donnees,
                                           const DescriptionFiche &description, const QString &code)
{
    Requete ligne =
        donnees.executer(QStringLiteral("SELECT rowid AS rang_de_la_ligne, * FROM %1 WHERE rowid = ?")
                             .arg(cite(description.table)),
                         {code.toLongLong()});
    if (code.isEmpty() || !ligne.suivant())
        return std::nullopt;
    FicheLue lue;
    lue.rang = ligne.valeur(0).toLongLong();
    lue.cle = ligne.texte(description.critere);
    if (!description.cleInterne.isEmpty())
        lue.interne = ligne.texte(description.cleInterne);
    for (const ChampFiche &champ : description.champs)
        lue.valeurs.insert(champ.colonne, ReglesFiche::texteAMontrer(description.table, champ.colonne,
                                                                     ligne.valeur(champ.colonne)));
    for (const LienFiche &lien : description.liens) {
        const QString nommee = lien.nommee.isEmpty() ? description.critere : lien.nommee;
        lue.liens.insert(lien.table,
                         lies(donnees, lien.table, lien.colonneCle, ligne.valeur(nommee), lien.colonneLiee));
    }
    return lue;
}

QString LectureFiche::codeDe(const DataEnvironment1 &donnees, const DescriptionFiche &description,
                             const QString &valeur)
{
    const auto rang =
        M_Enreg_Tables::chercher(donnees, description.table, description.critere, valeur.trimmed());
    return rang ? QString::number(*rang) : QString();
}

QStringList LectureFiche::lies(const DataEnvironment1 &donnees, const QString &table,
                               const QString &colonneCle, const QVariant &cle, const QString &colonneLiee)
{
    QStringList liste;
    Requete lignes = donnees.executer(QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ? ORDER BY rowid")
                                          .arg(cite(colonneLiee), cite(table), cite(colonneCle)),
                                      {cle});
    while (lignes.suivant())
        liste << lignes.texte(0);
    return liste;
}

QStringList LectureFiche::valeursConnues(const DataEnvironment1 &donnees, const QString &table,
                                         const QString &colonne)
{
    QStringList liste;
    Requete lignes = donnees.executer(
        QStringLiteral("SELECT DISTINCT %1 FROM %2 WHERE %1 <> '' ORDER BY %1 COLLATE FRANCAIS")
            .arg(cite(colonne), cite(table)));
    while (lignes.suivant())
        liste << lignes.texte(0);
    return liste;
}

ListeChoix LectureFiche::liste(const DataEnvironment1 &donnees, const QString &commande, const QString &code,
                               const QString &texte, const QString &complement)
{
    ListeChoix liste;
    Requete lignes = donnees.commande(commande);
    while (lignes.suivant()) {
        Choix choix{lignes.texte(code), lignes.texte(texte)};
        if (!complement.isEmpty())
            choix.complement = lignes.texte(complement);
        if (choix.texte.isEmpty())
            choix.texte = choix.code;
        liste.append(choix);
    }
    return liste;
}
