#include "exchange/LecteurLignes.h"

#include "exchange/CelluleImport.h"

#include <algorithm>

namespace
{
constexpr int LIGNES_PAR_LOT = 2000;
constexpr int CELLULES_PAR_LOT = 10000; // of a single column
} // namespace

LecteurLignes::LecteurLignes(const Feuille &feuille, int colonnes)
    : m_feuille(feuille), m_colonnes(colonnes), m_derniere(feuille.derniereLigne())
{
}

const QVector<QVariant> &LecteurLignes::ligne(int numero)
{
    static const QVector<QVariant> VIDE;
    if (numero < 1 || numero > m_derniere || m_colonnes < 1)
        return VIDE;
    if (m_lot.isEmpty() || numero < m_premiere || numero >= m_premiere + m_lot.size()) {
        const int fin = std::min(m_derniere, numero + LIGNES_PAR_LOT - 1);
        m_lot = m_feuille.plage(numero, 1, fin, m_colonnes).valeurs();
        m_premiere = numero;
    }
    return m_lot.at(numero - m_premiere);
}

int LecteurLignes::premiereLignePaireVide(int colonne) const
{
    for (int debut = 2; debut <= m_derniere; debut += CELLULES_PAR_LOT) {
        const int fin = std::min(m_derniere, debut + CELLULES_PAR_LOT - 1);
        const Valeurs cellules = m_feuille.plage(debut, colonne, fin, colonne).valeurs();
        for (int ligne = debut; ligne <= fin; ligne += 2) {
            if (CelluleImport::texte(cellules.at(ligne - debut).value(0)).isEmpty())
                return ligne;
        }
    }
    return std::max(2, m_derniere + 1 + (m_derniere + 1) % 2);
}
