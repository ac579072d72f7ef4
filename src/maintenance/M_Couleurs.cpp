#include "maintenance/M_Couleurs.h"

#include "database/DataEnvironment1.h"
#include "database/Schema.h"
#include "database/Transaction.h"
#include "platform/Chemins.h"
#include "platform/Erreur.h"
#include "workbook/PaletteParDefaut.h"
#include "workbook/Tableur.h"

#include <QFile>

namespace
{
constexpr int PREMIER_INDEX = 17;

M_Couleurs::Palette parDefaut()
{
    M_Couleurs::Palette palette;
    for (std::size_t i = 0; i < M_Couleurs::NOMBRE; ++i) {
        const int rvb = couleurParDefaut(PREMIER_INDEX + static_cast<int>(i));
        palette.R[i] = rvb >> 16 & 0xff;
        palette.G[i] = rvb >> 8 & 0xff;
        palette.B[i] = rvb & 0xff;
    }
    return palette;
}

// A colour channel: a whole number from 0 to 255, 0 where the cell holds no number.
int canal(const QVariant &cellule)
{
    return std::clamp(static_cast<int>(cellule.toDouble()), 0, 255);
}

std::optional<M_Couleurs::Palette> lireFichier(Tableur &tableur, const QString &chemin)
{
    if (!QFile::exists(chemin))
        return std::nullopt;
    try {
        const auto classeur = tableur.ouvrir(chemin, true);
        const Valeurs cellules = classeur->feuille(1).plage(1, 1, M_Couleurs::NOMBRE, 3).valeurs();
        M_Couleurs::Palette palette;
        for (std::size_t i = 0; i < M_Couleurs::NOMBRE; ++i) {
            const auto &ligne = cellules[static_cast<qsizetype>(i)];
            palette.R[i] = canal(ligne[0]);
            palette.G[i] = canal(ligne[1]);
            palette.B[i] = canal(ligne[2]);
        }
        return palette;
    } catch (const Erreur &) {
        // A file that does not open is as good as none.
        return std::nullopt;
    }
}
} // namespace

void M_Couleurs::CreerCouleurs(const DataEnvironment1 &donnees, Tableur &tableur, const QString &cheminBase)
{
    const Palette palette =
        lireFichier(tableur, Chemins::versHote(cheminBase) + FICHIER.toString()).value_or(parDefaut());
    Transaction transaction(donnees.Connect_Bdd());
    Schema::creerTable(donnees.Connect_Bdd(), QStringLiteral("COULEURS_GRAPH"));
    Requete insertion(donnees.Connect_Bdd(),
                      QStringLiteral("INSERT INTO COULEURS_GRAPH VALUES (?, ?, ?, ?)"));
    for (std::size_t i = 0; i < NOMBRE; ++i)
        insertion.executer({static_cast<int>(i) + 1, palette.R[i], palette.G[i], palette.B[i]});
    insertion.finir();
    transaction.valider();
}

M_Couleurs::Palette M_Couleurs::ChargerCouleurs(const DataEnvironment1 &donnees)
{
    Palette palette;
    Requete r = donnees.executer(QStringLiteral("SELECT R, G, B FROM COULEURS_GRAPH ORDER BY ordre"));
    for (std::size_t i = 0; i < NOMBRE && r.suivant(); ++i) {
        palette.R[i] = r.valeur(0).toInt();
        palette.G[i] = r.valeur(1).toInt();
        palette.B[i] = r.valeur(2).toInt();
    }
    return palette;
}
