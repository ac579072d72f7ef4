// A row of an imported sheet, for the tests of its steps.
#pragma once

#include "exchange/ArretImport.h"
#include "exchange/LigneExcel.h"

#include <optional>

// Columns stand in the order of the layout. `Champ` is the layout's enumeration.
//
//     LigneDEssai<ChampPhysico> ligne(dispositionPhysico());
//     ligne[ChampPhysico::Valeur] = 0.5;
//     lireLignePhysico(ligne.ligne(), references);
template <class Champ> class LigneDEssai
{
public:
    explicit LigneDEssai(const DispositionExcel &disposition)
    {
        for (qsizetype i = 0; i < disposition.size(); ++i) {
            m_colonnes[static_cast<std::size_t>(i)] = static_cast<int>(i) + 1;
            m_entetes << disposition[i].ecritures.constFirst();
        }
        m_cellules.resize(disposition.size());
    }

    QVariant &operator[](Champ champ) { return m_cellules[static_cast<qsizetype>(champ)]; }
    // As if the sheet had no such column.
    void sansColonne(Champ champ) { m_colonnes[static_cast<std::size_t>(champ)] = 0; }
    LigneExcel ligne(int numero = 2) const { return {m_cellules, numero, m_colonnes, m_entetes}; }

private:
    QVector<QVariant> m_cellules;
    ColonnesReconnues m_colonnes{};
    QStringList m_entetes;
};

// What the steps threw, or nothing where they went through.
template <class Etapes> std::optional<ArretImport> arretDe(const Etapes &etapes)
{
    try {
        etapes();
    } catch (const ArretImport &arret) {
        return arret;
    }
    return std::nullopt;
}
