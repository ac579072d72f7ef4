#include "capture/EnregistrementBassin.h"

#include "capture/FichesLieux.h"
#include "database/Collation.h"
#include "database/DataEnvironment1.h"
#include "database/M_Referentiels.h"

#include <QSet>

namespace
{
// A parameter without a unit is not in the command: it is looked up in its table. What is no name is a code.
QString codeParametre(const DataEnvironment1 &donnees, const QString &texte)
{
    const QString code = M_Referentiels::CodeParametre(donnees, texte);
    if (!code.isEmpty())
        return code;
    return donnees
        .valeur(QStringLiteral("SELECT CodeParam FROM PARAMETRE WHERE NomParam = ? OR CodeParam = ? "
                               "ORDER BY NomParam <> ? LIMIT 1"),
                {texte, texte, texte})
        .toString();
}

QString codeFraction(const DataEnvironment1 &donnees, const QString &texte)
{
    const QString code = M_Referentiels::CodeFraction(donnees, texte);
    return code.isEmpty() ? texte : code;
}

void ecrireObjectifs(const DataEnvironment1 &donnees, const QVariant &numBV)
{
    donnees.executer(QStringLiteral("DELETE FROM OBJECTIF WHERE NumBV = ?"), {numBV});
    QList<QVariantList> lignes;
    // A null of the engine has the type of its column; written back as such it would be an empty text.
    const auto seuil = [](const QVariant &valeur) { return valeur.isNull() ? QVariant() : valeur; };
    Requete temp = donnees.executer(
        QStringLiteral("SELECT Parametre, CD_FRACTION, MoyObjf, MaxObjf FROM Temp_objectif ORDER BY rowid"));
    while (temp.suivant())
        lignes.append({numBV, codeParametre(donnees, temp.texte(0)), codeFraction(donnees, temp.texte(1)),
                       seuil(temp.valeur(2)), seuil(temp.valeur(3))});
    temp.finir();
    for (const QVariantList &ligne : std::as_const(lignes))
        donnees.executer(
            QStringLiteral(
                "INSERT INTO OBJECTIF (NumBV, CodeParam, CD_FRACTION, MoyObjf, MaxObjf) VALUES (?, ?, ?, ?, ?)"),
            ligne);
}

void ecrireSousBassins(const DataEnvironment1 &donnees, const QVariant &numBV, const SaisieBassin &saisie)
{
    for (const QString &code : saisie.sousBassins)
        donnees.executer(QStringLiteral("UPDATE SOUS_BASSIN_VERSANT SET NumBV = ? WHERE CodeSSBV = ?"),
                         {numBV, code.toLongLong()});
    for (const QString &code : saisie.retires)
        donnees.executer(
            QStringLiteral("UPDATE SOUS_BASSIN_VERSANT SET NumBV = NULL WHERE CodeSSBV = ? AND NumBV = ?"),
            {code.toLongLong(), numBV});
}
} // namespace

Enregistrement M_Enreg_Tables::bassin(const SaisieBassin &saisie,
                                      const std::function<void(const QString &)> &nommer)
{
    const DescriptionFiche fiche = Fiches::bassin();
    Enregistrement e = ligne(fiche, saisie.valeurs);
    if (saisie.reference)
        e.avertissement = QStringLiteral("Attention, ce bassin versant sera le bassin de référence.");
    const QString nom = e.cle;
    e.dependants = [fiche, saisie, nommer, nom](const DataEnvironment1 &donnees, qint64 rang) {
        const QVariant numBV = numeroDeBassin(donnees, rang);
        ecrireObjectifs(donnees, numBV);
        ecrireSousBassins(donnees, numBV, saisie);
        recrireLiens(donnees, fiche, rang, saisie.liens);
        if (!saisie.reference)
            return;
        donnees.executer(QStringLiteral("DELETE FROM LIEU_BASSIN_VERSANT"));
        donnees.executer(QStringLiteral("INSERT INTO LIEU_BASSIN_VERSANT (Bassin_versant) VALUES (?)"),
                         {nom});
        if (nommer)
            nommer(nom);
    };
    e.aLaFin = [](const DataEnvironment1 &donnees) {
        donnees.executer(QStringLiteral("DELETE FROM Temp_objectif"));
    };
    return e;
}

void M_Enreg_Tables::preparerObjectifs(const DataEnvironment1 &donnees, const QVariant &numBV)
{
    donnees.executer(QStringLiteral("DELETE FROM Temp_objectif"));
    if (!numBV.isValid())
        return;
    donnees.executer(
        QStringLiteral("INSERT INTO Temp_objectif (Parametre, MoyObjf, MaxObjf, Unite, CD_FRACTION) "
                       "SELECT COALESCE(NomParam, o.CodeParam), MoyObjf, MaxObjf, SymboleUnite, "
                       "COALESCE(LB_NOM_FRACTION, o.CD_FRACTION) FROM OBJECTIF o "
                       "LEFT JOIN PARAMETRE p ON p.CodeParam = o.CodeParam "
                       "LEFT JOIN UNITEREFERENCE u ON u.CodeUnite = p.CodeUnite "
                       "LEFT JOIN FRACTION f ON f.CD_FRACTION = o.CD_FRACTION WHERE o.NumBV = ? "
                       "ORDER BY NomParam COLLATE FRANCAIS, o.CD_FRACTION"),
        {numBV});
}

QString M_Enreg_Tables::refusObjectifs(const DataEnvironment1 &donnees)
{
    QSet<QString> vus;
    Requete temp = donnees.executer(QStringLiteral("SELECT Parametre, CD_FRACTION FROM Temp_objectif"));
    while (temp.suivant()) {
        const QString parametre = temp.texte(0);
        const QString fraction = temp.texte(1);
        if (parametre.isEmpty())
            return QStringLiteral("Chaque objectif doit avoir un paramètre.");
        const QString code = codeParametre(donnees, parametre);
        if (code.isEmpty())
            return QStringLiteral("Le paramètre « %1 » n'existe pas dans la base de données.").arg(parametre);
        const QString paire = Collation::pliee(code + u'\n' + codeFraction(donnees, fraction));
        if (vus.contains(paire))
            return QStringLiteral(
                       "Le paramètre « %1 » a plusieurs objectifs pour la même fraction : gardez-en un "
                       "seul.")
                .arg(parametre);
        vus << paire;
    }
    return {};
}

QVariant M_Enreg_Tables::numeroDeBassin(const DataEnvironment1 &donnees, qint64 rang)
{
    return donnees.valeur(QStringLiteral("SELECT NumBV FROM BASSIN_VERSANT WHERE rowid = ?"), {rang});
}

QStringList M_Enreg_Tables::sousBassinsDe(const DataEnvironment1 &donnees, const QVariant &numBV)
{
    QStringList codes;
    Requete lignes = donnees.executer(
        QStringLiteral("SELECT CodeSSBV FROM SOUS_BASSIN_VERSANT WHERE NumBV = ? ORDER BY CodeSSBV"),
        {numBV});
    while (lignes.suivant())
        codes << lignes.texte(0);
    return codes;
}
