#include "database/M_Referentiels.h"

#include "database/DataEnvironment1.h"

namespace
{
// The family: first row of the command whose `critere` is `valeur`, its `resultat`.
QString chercher(const DataEnvironment1 &donnees, const char16_t *commande, const char16_t *critere,
                 const char16_t *resultat, const QString &valeur, const QString &siAbsent = {})
{
    if (valeur.isEmpty())
        return siAbsent;
    const auto table = donnees.enMemoire(QString::fromUtf16(commande));
    const qsizetype ligne = table->premiere(QString::fromUtf16(critere), valeur);
    return ligne < 0 ? siAbsent : table->texte(ligne, QString::fromUtf16(resultat));
}

bool memeUnite(const QString &a, const QString &b, Qt::CaseSensitivity casse)
{
    return a.compare(b, casse) == 0;
}
} // namespace

QString M_Referentiels::CodeParametre(const DataEnvironment1 &donnees, const QString &nom)
{
    return chercher(donnees, u"Parametre", u"NomParam", u"CodeParam", nom);
}

QString M_Referentiels::CodeUniteDeSymbole(const DataEnvironment1 &donnees, const QString &symbole,
                                           const QString &siAbsent)
{
    if (symbole.isEmpty())
        return siAbsent;
    const auto table = donnees.enMemoire(QStringLiteral("Table_UNITEREFERENCE"));
    const QString colonne = QStringLiteral("SymboleUnite");
    const QList<qsizetype> &lignes = table->toutes(colonne, symbole);
    if (lignes.isEmpty())
        return siAbsent;
    const auto exacte = std::find_if(lignes.begin(), lignes.end(), [&](qsizetype l) {
        return memeUnite(table->texte(l, colonne), symbole, Qt::CaseSensitive);
    });
    return table->texte(exacte == lignes.end() ? lignes.first() : *exacte, QStringLiteral("CodeUnite"));
}

QString M_Referentiels::SymboleUniteDeCode(const DataEnvironment1 &donnees, const QString &code)
{
    return chercher(donnees, u"Table_UNITEREFERENCE", u"CodeUnite", u"SymboleUnite", code,
                    QStringLiteral("-"));
}

QString M_Referentiels::CodeDepartement(const DataEnvironment1 &donnees, const QString &nom)
{
    return chercher(donnees, u"Departement", u"NomDepartement", u"NumDepartement", nom);
}

QString M_Referentiels::CodeFraction(const DataEnvironment1 &donnees, const QString &nom)
{
    return chercher(donnees, u"Fraction", u"LB_NOM_FRACTION", u"CD_FRACTION", nom);
}

bool M_Referentiels::FractionExiste(const DataEnvironment1 &donnees, const QString &code)
{
    return !chercher(donnees, u"Fraction", u"CD_FRACTION", u"CD_FRACTION", code).isEmpty();
}

QString M_Referentiels::CodeStationHydro(const DataEnvironment1 &donnees, const QString &intitule)
{
    return chercher(donnees, u"Station_Hydro", u"IntituleStationHM", u"CodeStationHM", intitule);
}

QString M_Referentiels::IntituleStationHydro(const DataEnvironment1 &donnees, const QString &code)
{
    return chercher(donnees, u"Station_Hydro", u"CodeStationHM", u"IntituleStationHM", code);
}

QString M_Referentiels::CodeSousBassin(const DataEnvironment1 &donnees, const QString &nom)
{
    return chercher(donnees, u"Ss_BV", u"NomSSBV", u"CodeSSBV", nom);
}

QString M_Referentiels::NumeroBassin(const DataEnvironment1 &donnees, const QString &nom)
{
    return chercher(donnees, u"BassinVersant", u"NomBV", u"NumBV", nom);
}

QString M_Referentiels::NumeroCommune(const DataEnvironment1 &donnees, const QString &nom)
{
    return chercher(donnees, u"Commune", u"NomCommune", u"NumCommune", nom);
}

QString M_Referentiels::CodeGestionnaire(const DataEnvironment1 &donnees, const QString &nom)
{
    return chercher(donnees, u"Gestionnaire", u"NomGest", u"CodeSandreGest", nom);
}

QString M_Referentiels::CodePreleveur(const DataEnvironment1 &donnees, const QString &nom)
{
    return chercher(donnees, u"Preleveur", u"NomPrelev", u"CodeSandrePrelev", nom);
}

QString M_Referentiels::CodeLaboratoire(const DataEnvironment1 &donnees, const QString &nom)
{
    return chercher(donnees, u"Laboratoire", u"NomLabo", u"CodeSandreLabo", nom);
}

QString M_Referentiels::CodeReseauDeLibelle(const DataEnvironment1 &donnees, const QString &libelle)
{
    return chercher(donnees, u"Reseau", u"LibelleReseau", u"CodeReseau", libelle);
}

QString M_Referentiels::LibelleReseauDeCode(const DataEnvironment1 &donnees, const QString &code)
{
    return chercher(donnees, u"Reseau", u"CodeReseau", u"LibelleReseau", code);
}

QString M_Referentiels::NomGestionnaire(const DataEnvironment1 &donnees, const QString &code)
{
    return chercher(donnees, u"Gestionnaire", u"CodeSandreGest", u"NomGest", code);
}

QString M_Referentiels::CodeUsuelStation(const DataEnvironment1 &donnees, const QString &code)
{
    if (code.isEmpty())
        return {};
    const auto table = donnees.enMemoire(QStringLiteral("Station"));
    const qsizetype ligne = table->premiere(QStringLiteral("CodeSandreStationM"), code);
    if (ligne < 0)
        return {};
    const QVariant usuel = table->valeur(ligne, QStringLiteral("CodeUsuelStationM"));
    return usuel.isNull() ? QStringLiteral("Null") : usuel.toString();
}

QString M_Referentiels::BassinReference(const DataEnvironment1 &donnees)
{
    const auto table = donnees.enMemoire(QStringLiteral("Lieu_BV"));
    return table->nombreLignes() == 0 ? QString() : table->texte(0, QStringLiteral("Bassin_versant"));
}

int M_Referentiels::UniteParametreConnue(const DataEnvironment1 &donnees, const QString &parametre,
                                         const QString &codeUnite, const QString &symbole)
{
    if (parametre.isEmpty() || (codeUnite.isEmpty() && symbole.isEmpty()))
        return 0;
    const auto table = donnees.enMemoire(QStringLiteral("IMPORT_PAR_URF"));
    const QList<qsizetype> &lignes = table->toutes(QStringLiteral("CodeParam"), parametre);
    // A symbol written in the same way comes before one that differs by its case (mS, MS). The rows of a parameter come
    // with the unit of this system first.
    for (const Qt::CaseSensitivity casse : {Qt::CaseSensitive, Qt::CaseInsensitive})
        for (const qsizetype l : lignes) {
            const bool parCode = !codeUnite.isEmpty() &&
                                 memeUnite(table->texte(l, QStringLiteral("CodeUnite")), codeUnite, casse);
            const bool parSymbole =
                !symbole.isEmpty() &&
                memeUnite(table->texte(l, QStringLiteral("SymboleUnite")), symbole, casse);
            if (parCode || parSymbole)
                return table->valeur(l, QStringLiteral("ISOVL")).toInt() != 0 ? 1 : 2;
        }
    return 0;
}

int M_Referentiels::ParamUniteAssociee(const DataEnvironment1 &donnees, const QString &codeParam,
                                       const QString &codeUnite, const QString &symboleUnite)
{
    return UniteParametreConnue(donnees, codeParam, codeUnite, symboleUnite);
}

bool M_Referentiels::DansListe(const QString &valeur, const QStringList &liste, qsizetype n)
{
    return valeur.isEmpty() || liste.first(std::clamp<qsizetype>(n, 0, liste.size())).contains(valeur);
}
