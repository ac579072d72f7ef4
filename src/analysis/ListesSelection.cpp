#include "analysis/ListesSelection.h"

#include "database/Collation.h"
#include "database/DataEnvironment1.h"
#include "database/M_Sandrification.h"

#include <algorithm>
#include <QSet>

namespace
{
QString comparaison(Famille famille)
{
    return famille == Famille::Pesticides ? QStringLiteral("= 'PS'") : QStringLiteral("<> 'PS'");
}

// The codes of the family's parameters. A table of some thousand rows, held against which a pair read from an index
// says whether it is of the family.
QSet<QString> parametresDeLaFamille(const DataEnvironment1 &donnees, Famille famille)
{
    QSet<QString> codes;
    Requete r = donnees.executer(QStringLiteral("SELECT CodeParam FROM PARAMETRE WHERE CodeGroupeParam ") +
                                 comparaison(famille));
    while (r.suivant())
        codes << r.texte(0).toCaseFolded();
    return codes;
}

// The values of a column of MESURE_PHYSICO that a result of the family bears, from the index on that column and the
// parameter. It jumps from one pair to the next, and to the next value once a pair is of the family: some dozen steps
// where reading the results would take a million.
QStringList valeursPortees(const DataEnvironment1 &donnees, Famille famille, const QString &colonne)
{
    const QSet<QString> parametres = parametresDeLaFamille(donnees, famille);
    const QString debut =
        QStringLiteral("SELECT %1, CodeParam FROM MESURE_PHYSICO WHERE %1 <> '' AND ").arg(colonne);
    const QString fin = QStringLiteral(" ORDER BY %1, CodeParam LIMIT 1").arg(colonne);
    Requete paireSuivante(donnees.Connect_Bdd(),
                          debut + QStringLiteral("(%1, CodeParam) > (?, ?)").arg(colonne) + fin);
    Requete valeurSuivante(donnees.Connect_Bdd(), debut + QStringLiteral("%1 > ?").arg(colonne) + fin);

    QStringList valeurs;
    Requete *requete = &valeurSuivante;
    requete->executer({QString()});
    while (requete->suivant()) {
        const QString valeur = requete->texte(0);
        const QString parametre = requete->texte(1);
        requete->finir();
        if (parametres.contains(parametre.toCaseFolded())) {
            valeurs << valeur;
            requete = &valeurSuivante;
            requete->executer({valeur});
        } else {
            requete = &paireSuivante;
            requete->executer({valeur, parametre});
        }
    }
    return valeurs;
}

// Rows of a small table of codes and names, in the order of the names, that are among these codes (any case).
ListeChoix parmi(Requete &requete, const QSet<QString> &codes)
{
    ListeChoix lignes;
    while (requete.suivant()) {
        if (codes.contains(requete.texte(0).toCaseFolded()))
            lignes << Choix{requete.texte(0), requete.texte(1)};
    }
    return lignes;
}

QSet<QString> ensemble(const QStringList &valeurs)
{
    QSet<QString> resultat;
    for (const QString &valeur : valeurs)
        resultat << valeur.toCaseFolded();
    return resultat;
}

ListeChoix gestionnairesParmi(const DataEnvironment1 &donnees, const QSet<QString> &codes)
{
    Requete r = donnees.executer(QStringLiteral("SELECT CodeSandreInterv, NomInterv FROM INTERVENANT "
                                                "ORDER BY NomInterv COLLATE FRANCAIS, CodeSandreInterv"));
    return parmi(r, codes);
}

// Protocols are stored as codes; two codes may have one label.
ListeChoix protocoles(Requete &requete)
{
    ListeChoix lignes;
    while (requete.suivant()) {
        const QString libelle = M_Sandrification::LibelleProtocole(requete.texte(0));
        const Choix ligne{libelle, libelle};
        if (!lignes.contains(ligne))
            lignes << ligne;
    }
    return lignes;
}

ListeChoix reseaux(Requete &requete)
{
    ListeChoix lignes;
    while (requete.suivant())
        lignes << Choix{requete.texte(0), requete.texte(1)};
    return lignes;
}

// "a sampling p has a result of the family"
QString aUneMesure(Famille famille)
{
    return QStringLiteral(
               "EXISTS (SELECT 1 FROM MESURE_PHYSICO m JOIN PARAMETRE x ON x.CodeParam = m.CodeParam "
               "WHERE m.NumPrel = p.NumPrel AND x.CodeGroupeParam %1)")
        .arg(comparaison(famille));
}

QDate jourExtreme(const DataEnvironment1 &donnees, Famille famille, const QString &station,
                  const QString &ordre)
{
    Requete r =
        donnees.executer(QStringLiteral("SELECT p.DatePrel FROM PRELEVEMENT p WHERE p.CodeSandreStationM = ? "
                                        "AND p.DatePrel IS NOT NULL AND %1 ORDER BY p.DatePrel %2 LIMIT 1")
                             .arg(aUneMesure(famille), ordre),
                         {station});
    return r.suivant() ? r.date(QStringLiteral("DatePrel")) : QDate();
}

// Code twice, name beside.
ListeChoix codesEtNoms(Requete requete)
{
    ListeChoix lignes;
    while (requete.suivant())
        lignes << Choix{requete.texte(0), requete.texte(0), requete.texte(1)};
    return lignes;
}
} // namespace

QList<StationProposee> ListesSelection::stations(const DataEnvironment1 &donnees)
{
    QList<StationProposee> resultat;
    Requete r = donnees.executer(QStringLiteral("SELECT CodeSandreStationM, CodeUsuelStationM, NomStationM "
                                                "FROM STATION_QUALITE ORDER BY CodeSandreStationM"));
    while (r.suivant())
        resultat << StationProposee{r.texte(0), r.texte(1).trimmed(), r.texte(2)};
    return resultat;
}

ListesFiltres ListesSelection::filtres(const DataEnvironment1 &donnees, Famille famille)
{
    ListesFiltres listes;
    listes.gestionnaires = gestionnairesParmi(
        donnees, ensemble(valeursPortees(donnees, famille, QStringLiteral("CodeSandreGest"))));

    Requete r = donnees.executer(
        QStringLiteral(
            "SELECT n.CodeReseau, n.LibelleReseau FROM RESEAU_MESURE n WHERE EXISTS (SELECT 1 FROM PRELEVEMENTRSX r "
            "JOIN PRELEVEMENT p ON p.NumPrel = r.NumPrel WHERE r.CodeReseau = n.CodeReseau AND %1) "
            "ORDER BY n.LibelleReseau COLLATE FRANCAIS, n.CodeReseau")
            .arg(aUneMesure(famille)));
    listes.reseaux = reseaux(r);

    QStringList commentaires = valeursPortees(donnees, famille, QStringLiteral("CommResAnaPC"));
    std::stable_sort(commentaires.begin(), commentaires.end(),
                     [](const QString &a, const QString &b) { return Collation::comparer(a, b) < 0; });
    listes.commentaires << Choix{QString(), QString::fromUtf16(COMMENTAIRE_VIDE)};
    for (const QString &commentaire : std::as_const(commentaires))
        listes.commentaires << Choix{commentaire, commentaire};

    Requete prot = donnees.executer(
        QStringLiteral(
            "SELECT v FROM (SELECT DISTINCT Protocole AS v FROM PRELEVEMENT WHERE Protocole IS NOT NULL) "
            "WHERE EXISTS (SELECT 1 FROM PRELEVEMENT p WHERE p.Protocole = v AND %1) ORDER BY v")
            .arg(aUneMesure(famille)));
    listes.protocoles = protocoles(prot);
    return listes;
}

ListesStation ListesSelection::station(const DataEnvironment1 &donnees, Famille famille,
                                       const QString &codeStation)
{
    // One pass over the station's results gives three lists.
    QSet<QString> parametres;
    QSet<QString> fractions;
    QSet<QString> gestionnaires;
    const QSet<QString> connus = parametresDeLaFamille(donnees, famille);
    Requete triplets = donnees.executer(
        QStringLiteral("SELECT DISTINCT m.CodeParam, m.Cd_Fraction, m.CodeSandreGest FROM PRELEVEMENT p "
                       "JOIN MESURE_PHYSICO m ON m.NumPrel = p.NumPrel WHERE p.CodeSandreStationM = ?"),
        {codeStation});
    while (triplets.suivant()) {
        const QString parametre = triplets.texte(0).toCaseFolded();
        if (!connus.contains(parametre))
            continue;
        parametres << parametre;
        fractions << triplets.texte(1).toCaseFolded();
        gestionnaires << triplets.texte(2).toCaseFolded();
    }

    ListesStation listes;
    Requete p = donnees.executer(QStringLiteral("SELECT CodeParam, NomParam FROM PARAMETRE "
                                                "ORDER BY NomParam COLLATE FRANCAIS, CodeParam"));
    listes.parametres = parmi(p, parametres);
    Requete f = donnees.executer(QStringLiteral("SELECT CD_FRACTION, LB_NOM_FRACTION FROM FRACTION "
                                                "ORDER BY LB_NOM_FRACTION COLLATE FRANCAIS, CD_FRACTION"));
    listes.fractions = parmi(f, fractions);
    for (Choix &fraction : listes.fractions)
        fraction.texte = fraction.code + QStringLiteral(" - ") + fraction.texte;
    listes.gestionnaires = gestionnairesParmi(donnees, gestionnaires);

    Requete rsx = donnees.executer(
        QStringLiteral(
            "SELECT n.CodeReseau, n.LibelleReseau FROM RESEAU_MESURE n WHERE n.CodeReseau IN "
            "(SELECT r.CodeReseau FROM PRELEVEMENT p JOIN PRELEVEMENTRSX r ON r.NumPrel = p.NumPrel "
            "WHERE p.CodeSandreStationM = ? AND %1) ORDER BY n.LibelleReseau COLLATE FRANCAIS, n.CodeReseau")
            .arg(aUneMesure(famille)),
        {codeStation});
    listes.reseaux = reseaux(rsx);
    Requete prot = donnees.executer(
        QStringLiteral("SELECT DISTINCT p.Protocole FROM PRELEVEMENT p WHERE p.CodeSandreStationM = ? "
                       "AND p.Protocole IS NOT NULL AND %1 ORDER BY p.Protocole")
            .arg(aUneMesure(famille)),
        {codeStation});
    listes.protocoles = protocoles(prot);

    listes.premierJour = jourExtreme(donnees, famille, codeStation, QStringLiteral("ASC"));
    listes.dernierJour = jourExtreme(donnees, famille, codeStation, QStringLiteral("DESC"));
    return listes;
}

ListeChoix ListesSelection::stationsHydro(const DataEnvironment1 &donnees)
{
    return codesEtNoms(donnees.executer(
        QStringLiteral("SELECT CodeStationHM, IntituleStationHM FROM STATION_HYDRO ORDER BY CodeStationHM")));
}

QString ListesSelection::stationHydroLiee(const DataEnvironment1 &donnees, const QString &codeStation)
{
    Requete r = donnees.executer(QStringLiteral("SELECT CodeStationHM FROM [Rattachement_hydro_ mesure] "
                                                "WHERE CodeSandreStationM = ? ORDER BY CodeStationHM"),
                                 {codeStation});
    return r.suivant() ? r.texte(0) : QString();
}

ListeChoix ListesSelection::stationsPluvio(const DataEnvironment1 &donnees)
{
    return codesEtNoms(donnees.executer(QStringLiteral(
        "SELECT CodeStationPM, IntituleStationPM FROM STATION_PLUVIO ORDER BY CodeStationPM")));
}
