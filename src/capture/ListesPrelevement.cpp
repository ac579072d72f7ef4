#include "capture/ListesPrelevement.h"

#include "database/DataEnvironment1.h"
#include "database/M_Referentiels.h"
#include "database/M_Sandrification.h"

namespace
{
// The samplings of a station that hold a result of the family.
QString prelevements(FamillePrelevement famille, const char16_t *colonne)
{
    return QStringLiteral(
               "SELECT DISTINCT %1 FROM PRELEVEMENT WHERE CodeSandreStationM = ? AND %1 IS NOT NULL "
               "AND EXISTS (SELECT 1 FROM MESURE_PHYSICO INNER JOIN PARAMETRE "
               "ON MESURE_PHYSICO.CodeParam = PARAMETRE.CodeParam "
               "WHERE MESURE_PHYSICO.NumPrel = PRELEVEMENT.NumPrel AND CodeGroupeParam %2)")
        .arg(QString::fromUtf16(colonne), ListesPrelevement::condition(famille));
}

bool deLaFamille(const TableMemoire &table, qsizetype ligne, FamillePrelevement famille)
{
    const QVariant groupe = table.valeur(ligne, QStringLiteral("CodeGroupeParam"));
    if (groupe.isNull())
        return false;
    const bool pesticide = groupe.toString().compare(QLatin1String("PS"), Qt::CaseInsensitive) == 0;
    return pesticide == (famille == FamillePrelevement::Pesticides);
}

QStringList noms(const DataEnvironment1 &donnees, const QString &commande, const QString &colonne)
{
    const auto table = donnees.enMemoire(commande);
    QStringList liste;
    for (qsizetype i = 0; i < table->nombreLignes(); ++i) {
        const QString nom = table->texte(i, colonne);
        if (!nom.isEmpty())
            liste << nom;
    }
    return liste;
}
} // namespace

QString ListesPrelevement::condition(FamillePrelevement famille)
{
    return famille == FamillePrelevement::Pesticides ? QStringLiteral("= 'PS'") : QStringLiteral("<> 'PS'");
}

QList<StationProposee> ListesPrelevement::stations(const DataEnvironment1 &donnees)
{
    QList<StationProposee> liste;
    Requete r = donnees.commande(QStringLiteral("Station_Qualité"));
    while (r.suivant()) {
        const StationProposee station{r.texte(QStringLiteral("CodeSandreStationM")),
                                      r.texte(QStringLiteral("CodeUsuelStationM")),
                                      r.texte(QStringLiteral("NomStationM"))};
        // A station of several points comes once for each.
        if (liste.isEmpty() || liste.last().code != station.code)
            liste << station;
    }
    return liste;
}

QList<QDate> ListesPrelevement::dates(const DataEnvironment1 &donnees, FamillePrelevement famille,
                                      const QString &station)
{
    QList<QDate> liste;
    Requete r = donnees.executer(
        prelevements(famille, u"DatePrel") + QStringLiteral(" ORDER BY DatePrel DESC"), {station});
    while (r.suivant()) {
        const QDate jour = r.date(QStringLiteral("DatePrel"));
        if (jour.isValid())
            liste << jour;
    }
    return liste;
}

QStringList ListesPrelevement::heures(const DataEnvironment1 &donnees, FamillePrelevement famille,
                                      const QString &station, QDate date)
{
    QStringList liste;
    Requete r = donnees.executer(prelevements(famille, u"HeurePrel") +
                                     QStringLiteral(" AND DatePrel = ? ORDER BY HeurePrel"),
                                 {station, date});
    while (r.suivant())
        liste << r.texte(0);
    return liste;
}

QStringList ListesPrelevement::parametres(const DataEnvironment1 &donnees, FamillePrelevement famille)
{
    const auto table = donnees.enMemoire(QStringLiteral("Parametre"));
    QStringList liste;
    for (qsizetype i = 0; i < table->nombreLignes(); ++i)
        if (deLaFamille(*table, i, famille))
            liste << table->texte(i, QStringLiteral("NomParam"));
    return liste;
}

QStringList ListesPrelevement::intervenants(const DataEnvironment1 &donnees)
{
    return noms(donnees, QStringLiteral("Gestionnaire"), QStringLiteral("NomGest"));
}

QStringList ListesPrelevement::reseaux(const DataEnvironment1 &donnees)
{
    return noms(donnees, QStringLiteral("Reseau"), QStringLiteral("LibelleReseau"));
}

std::optional<ListesPrelevement::Parametre>
ListesPrelevement::parametre(const DataEnvironment1 &donnees, FamillePrelevement famille, const QString &nom)
{
    if (nom.isEmpty())
        return std::nullopt;
    const auto table = donnees.enMemoire(QStringLiteral("Parametre"));
    for (const qsizetype ligne : table->toutes(QStringLiteral("NomParam"), nom)) {
        if (!deLaFamille(*table, ligne, famille))
            continue;
        const QString nature = table->texte(ligne, QStringLiteral("NatureParam"));
        const bool env = nature.compare(QLatin1String("ENV"), Qt::CaseInsensitive) == 0 ||
                         M_Sandrification::CodeNature(nature) == QLatin1String("ENV");
        return Parametre{table->texte(ligne, QStringLiteral("CodeParam")),
                         table->texte(ligne, QStringLiteral("SymboleUnite")), env};
    }
    return std::nullopt;
}

ReglesPrelevement::References ListesPrelevement::references(const DataEnvironment1 &donnees,
                                                            FamillePrelevement famille)
{
    ReglesPrelevement::References r;
    r.parametre = [&donnees, famille](const QString &nom) {
        return parametre(donnees, famille, nom).has_value();
    };
    r.fraction = [&donnees](const QString &code) { return M_Referentiels::FractionExiste(donnees, code); };
    r.intervenant = [&donnees](const QString &nom) {
        return !M_Referentiels::CodeGestionnaire(donnees, nom).isEmpty();
    };
    r.reseau = [&donnees](const QString &label) {
        return !M_Referentiels::CodeReseauDeLibelle(donnees, label).isEmpty();
    };
    r.environnemental = [&donnees, famille](const QString &nom) {
        const auto trouve = parametre(donnees, famille, nom);
        return trouve && trouve->environnemental;
    };
    return r;
}
