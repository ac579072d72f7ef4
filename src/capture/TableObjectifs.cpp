#include "capture/TableObjectifs.h"

#include "database/Collation.h"
#include "database/DataEnvironment1.h"
#include "platform/Saisie.h"
#include "platform/VersNombre.h"

namespace
{
constexpr double PLUS_GRAND = 1e12;

// The name, as it is stored, of what was typed: a name in any case, or a code.
std::optional<QVariant> nomConnu(const DataEnvironment1 &donnees, const QString &sql, const QString &texte)
{
    const QString cherche = Collation::pliee(texte);
    std::optional<QVariant> parCode;
    Requete lignes = donnees.executer(sql);
    while (lignes.suivant()) {
        if (Collation::pliee(lignes.texte(1)) == cherche)
            return lignes.texte(1);
        if (Collation::pliee(lignes.texte(0)) == cherche)
            parCode = lignes.texte(1);
    }
    return parCode;
}

const QString &sqlParametres()
{
    static const QString sql =
        QStringLiteral("SELECT CodeParam, NomParam FROM PARAMETRE WHERE NomParam <> '' "
                       "ORDER BY NomParam COLLATE FRANCAIS");
    return sql;
}

const QString &sqlFractions()
{
    static const QString sql = QStringLiteral("SELECT CD_FRACTION, LB_NOM_FRACTION FROM FRACTION "
                                              "ORDER BY LB_NOM_FRACTION COLLATE FRANCAIS");
    return sql;
}

QStringList noms(const DataEnvironment1 &donnees, const QString &sql)
{
    QStringList liste;
    Requete lignes = donnees.executer(sql);
    while (lignes.suivant())
        liste << lignes.texte(1);
    return liste;
}

ColonneTravail texte(const char16_t *champ, const char16_t *titre,
                     const std::function<std::optional<QVariant>(const QString &)> &lire)
{
    return {QString::fromUtf16(champ),
            QString::fromUtf16(titre),
            lire,
            [](const QVariant &valeur) { return valeur.toString(); },
            QStringLiteral("Cette valeur n'existe pas dans la liste."),
            QStringLiteral("Attention")};
}

ColonneTravail nombre(const char16_t *champ, const char16_t *titre)
{
    const auto lire = [](const QString &saisi) -> std::optional<QVariant> {
        const std::optional<double> lu = Saisie::lireNombre(saisi);
        if (!lu || std::abs(*lu) > PLUS_GRAND)
            return std::nullopt;
        return VersNombre(*lu);
    };
    return {QString::fromUtf16(champ),
            QString::fromUtf16(titre),
            lire,
            [](const QVariant &valeur) { return Saisie::ecrireNombre(valeur.toDouble()); },
            QStringLiteral("La valeur demandée est de type numérique."),
            QStringLiteral("Erreur de type"),
            true};
}

QList<ColonneTravail> colonnes(const DataEnvironment1 &donnees)
{
    return {texte(u"Parametre", u"Paramètre",
                  [&donnees](const QString &saisi) { return nomConnu(donnees, sqlParametres(), saisi); }),
            texte(u"CD_FRACTION", u"Fraction analysée",
                  [&donnees](const QString &saisi) { return nomConnu(donnees, sqlFractions(), saisi); }),
            nombre(u"MoyObjf", u"Objectif moyen"), nombre(u"MaxObjf", u"Objectif maximal"),
            texte(u"Unite", u"Unité", [](const QString &saisi) { return QVariant(saisi); })};
}
} // namespace

TableObjectifs::TableObjectifs(const DataEnvironment1 &donnees, QObject *parent)
    : TableTravail(donnees, QStringLiteral("Temp_objectif"), colonnes(donnees), parent), m_base(donnees)
{
}

void TableObjectifs::relireTout()
{
    relire(QStringLiteral("rowid"));
}

void TableObjectifs::deposer() const
{
    m_base.executer(QStringLiteral("DELETE FROM Temp_objectif"));
    for (int ligne = 0; ligne < rowCount(); ++ligne) {
        if (ligneVide(ligne))
            continue;
        QVariantList valeurs;
        for (const Colonne colonne : {PARAMETRE, FRACTION, MOYEN, MAXIMAL, UNITE}) {
            const QVariant lue = valeur(ligne, colonne);
            valeurs << (lue.isNull() ? QVariant() : lue);
        }
        m_base.executer(
            QStringLiteral("INSERT INTO Temp_objectif (Parametre, CD_FRACTION, MoyObjf, MaxObjf, Unite) "
                           "VALUES (?, ?, ?, ?, ?)"),
            valeurs);
    }
}

QStringList TableObjectifs::textes() const
{
    QStringList liste;
    for (int ligne = 0; ligne < rowCount(); ++ligne) {
        if (ligneVide(ligne))
            continue;
        for (int colonne = 0; colonne < columnCount(); ++colonne)
            liste << data(index(ligne, colonne)).toString();
    }
    return liste;
}

QStringList TableObjectifs::parametres(const DataEnvironment1 &donnees)
{
    return noms(donnees, sqlParametres());
}

QStringList TableObjectifs::fractions(const DataEnvironment1 &donnees)
{
    return noms(donnees, sqlFractions());
}

Qt::ItemFlags TableObjectifs::flags(const QModelIndex &cellule) const
{
    const Qt::ItemFlags drapeaux = TableTravail::flags(cellule);
    return cellule.column() == UNITE ? drapeaux & ~Qt::ItemIsEditable : drapeaux;
}

bool TableObjectifs::setData(const QModelIndex &cellule, const QVariant &valeur, int role)
{
    if (cellule.column() == UNITE)
        return false; // it follows the parameter
    if (!TableTravail::setData(cellule, valeur, role))
        return false;
    if (role != Qt::EditRole || cellule.column() != PARAMETRE)
        return true;
    const QModelIndex unite = cellule.siblingAtColumn(UNITE);
    const QString parametre = data(cellule).toString();
    const QVariant symbole = m_base.valeur(
        QStringLiteral(
            "SELECT SymboleUnite FROM PARAMETRE p JOIN UNITEREFERENCE u ON u.CodeUnite = p.CodeUnite "
            "WHERE p.NomParam = ?"),
        {parametre});
    TableTravail::setData(unite, symbole.toString(), role);
    const QModelIndex fraction = cellule.siblingAtColumn(FRACTION);
    if (!parametre.isEmpty() && data(fraction).toString().isEmpty())
        TableTravail::setData(fraction,
                              m_base
                                  .valeur(QStringLiteral("SELECT LB_NOM_FRACTION FROM FRACTION WHERE "
                                                         "CD_FRACTION = '0'"))
                                  .toString(),
                              role);
    return true;
}
