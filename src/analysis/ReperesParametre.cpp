#include "analysis/ReperesParametre.h"

#include "analysis/M_Concentration_OVRA.h"
#include "database/DataEnvironment1.h"

namespace
{
// A column as a number; nothing for null.
std::optional<double> nombre(const Requete &requete, int colonne)
{
    const QVariant valeur = requete.valeur(colonne);
    if (valeur.isNull())
        return std::nullopt;
    return valeur.toDouble();
}

std::optional<double> nonNul(std::optional<double> objectif)
{
    return objectif && *objectif != 0 ? objectif : std::nullopt;
}
} // namespace

ReperesParametre lireReperes(const DataEnvironment1 &donnees, const QString &codeStation,
                             const QString &codeParametre, const QString &codeFraction)
{
    ReperesParametre reperes;
    const bool parFraction =
        codeParametre == QStringView(M_Concentration_OVRA::CARBONE_ORGANIQUE) && !codeFraction.isEmpty();
    const QString clause = parFraction ? QStringLiteral(" AND CD_FRACTION = ?") : QString();
    const auto avecFraction = [&](QVariantList parametres) {
        if (parFraction)
            parametres << codeFraction;
        return parametres;
    };

    Requete unite = donnees.executer(
        QStringLiteral(
            "SELECT u.SymboleUnite FROM PARAMETRE p JOIN UNITEREFERENCE u ON u.CodeUnite = p.CodeUnite "
            "WHERE p.CodeParam = ?"),
        {codeParametre});
    if (unite.suivant())
        reperes.unite = unite.texte(0);

    Requete objectif = donnees.executer(
        QStringLiteral("SELECT MoyObjf, MaxObjf FROM OBJECTIF WHERE CodeParam = ? AND NumBV = "
                       "(SELECT NumBV FROM STATION_QUALITE WHERE CodeSandreStationM = ?)") +
            clause,
        avecFraction({codeParametre, codeStation}));
    if (objectif.suivant()) {
        reperes.objectifMoyen = nonNul(nombre(objectif, 0));
        reperes.objectifMaximal = nonNul(nombre(objectif, 1));
    }

    Requete norme =
        donnees.executer(QStringLiteral("SELECT ValeurNorme FROM NORME_AEP WHERE CodeParam = ?") + clause,
                         avecFraction({codeParametre}));
    if (norme.suivant())
        reperes.norme = nombre(norme, 0);

    if (!parFraction || codeFraction == QStringView(M_Concentration_OVRA::FRACTION_DE_LA_GRILLE)) {
        Requete grille =
            donnees.executer(QStringLiteral("SELECT 1 FROM GRILLE_SEQ WHERE CodeParam = ?"), {codeParametre});
        reperes.grille = grille.suivant();
    }
    return reperes;
}
