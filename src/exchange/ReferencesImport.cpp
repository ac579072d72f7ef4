#include "exchange/ReferencesImport.h"

#include "database/Collation.h"
#include "database/DataEnvironment1.h"
#include "exchange/CelluleImport.h"

namespace
{
QString cle(const QString &nom)
{
    return Collation::pliee(CelluleImport::rogner(nom));
}

TableDeNoms lireTable(const DataEnvironment1 &donnees, const QString &commande, const QString &colonneNom,
                      const QString &colonneCode)
{
    TableDeNoms table;
    Requete r = donnees.commande(commande);
    while (r.suivant())
        table.ajouter(r.texte(colonneNom), r.texte(colonneCode));
    return table;
}

UnitesAssociees lireUnites(const DataEnvironment1 &donnees)
{
    UnitesAssociees unites;
    Requete r = donnees.commande(QStringLiteral("IMPORT_PAR_URF"));
    while (r.suivant())
        unites.ajouter(r.texte(QStringLiteral("CodeParam")), r.texte(QStringLiteral("CodeUnite")),
                       r.texte(QStringLiteral("SymboleUnite")),
                       r.valeur(QStringLiteral("ISOVL")).toInt() != 0);
    return unites;
}
} // namespace

void TableDeNoms::ajouter(const QString &nom, const QString &code)
{
    const QString nomPlie = cle(nom);
    if (!nomPlie.isEmpty() && !m_codes.contains(nomPlie))
        m_codes.insert(nomPlie, code);
    m_cherches.clear();
}

std::optional<QString> TableDeNoms::chercher(const QString &nom) const
{
    if (const auto connu = m_cherches.constFind(nom); connu != m_cherches.constEnd())
        return *connu;
    const auto trouve = m_codes.constFind(cle(nom));
    return *m_cherches.insert(nom, trouve == m_codes.constEnd() ? std::nullopt : std::optional(*trouve));
}

void UnitesAssociees::ajouter(const QString &codeParam, const QString &codeUnite, const QString &symbole,
                              bool isOvl)
{
    m_unites[cle(codeParam)].append({cle(codeUnite), cle(symbole), isOvl});
    m_cherchees.clear();
}

int UnitesAssociees::ParamUniteAssociee(const QString &codeParam, const QString &codeUnite,
                                        const QString &symbole) const
{
    const QStringList cherchee = {codeParam, codeUnite, symbole};
    if (const auto connue = m_cherchees.constFind(cherchee); connue != m_cherchees.constEnd())
        return *connue;
    return *m_cherchees.insert(cherchee, premiere(codeParam, codeUnite, symbole));
}

int UnitesAssociees::premiere(const QString &codeParam, const QString &codeUnite,
                              const QString &symbole) const
{
    const auto parametre = m_unites.constFind(cle(codeParam));
    if (parametre == m_unites.constEnd())
        return 0;
    const QString code = cle(codeUnite);
    const QString signe = cle(symbole);
    for (const Unite &unite : *parametre) {
        if ((!code.isEmpty() && unite.code == code) || (!signe.isEmpty() && unite.symbole == signe))
            return unite.isOvl ? 1 : 2;
    }
    return 0;
}

ReferencesPhysico lireReferencesPhysico(const DataEnvironment1 &donnees)
{
    ReferencesPhysico references;
    Requete stations = donnees.commande(QStringLiteral("Station_Qualité"));
    while (stations.suivant()) {
        const QString code = stations.texte(QStringLiteral("CodeSandreStationM"));
        references.stations.ajouter(code, code);
        // A station has a row for each of its points: the first counts.
        if (!references.points.contains(code))
            references.points.insert(code, stations.texte(QStringLiteral("CdPoint")));
    }
    references.parametres = lireTable(donnees, QStringLiteral("Parametre"), QStringLiteral("NomParam"),
                                      QStringLiteral("CodeParam"));
    references.unites = lireUnites(donnees);
    references.gestionnaires = lireTable(donnees, QStringLiteral("Gestionnaire"), QStringLiteral("NomGest"),
                                         QStringLiteral("CodeSandreGest"));
    references.preleveurs = lireTable(donnees, QStringLiteral("Preleveur"), QStringLiteral("NomPrelev"),
                                      QStringLiteral("CodeSandrePrelev"));
    references.laboratoires = lireTable(donnees, QStringLiteral("Laboratoire"), QStringLiteral("NomLabo"),
                                        QStringLiteral("CodeSandreLabo"));
    references.reseaux = lireTable(donnees, QStringLiteral("Reseau"), QStringLiteral("LibelleReseau"),
                                   QStringLiteral("CodeReseau"));
    references.fractions = lireTable(donnees, QStringLiteral("Fraction"), QStringLiteral("CD_FRACTION"),
                                     QStringLiteral("CD_FRACTION"));
    return references;
}

ReferencesHydro lireReferencesHydro(const DataEnvironment1 &donnees)
{
    return {lireTable(donnees, QStringLiteral("Station_Hydro"), QStringLiteral("CodeStationHM"),
                      QStringLiteral("CodeStationHM"))};
}

ReferencesPluvio lireReferencesPluvio(const DataEnvironment1 &donnees)
{
    return {lireTable(donnees, QStringLiteral("Station_Pluvio"), QStringLiteral("CodeStationPM"),
                      QStringLiteral("CodeStationPM")),
            lireTable(donnees, QStringLiteral("Gestionnaire"), QStringLiteral("NomGest"),
                      QStringLiteral("CodeSandreGest"))};
}
