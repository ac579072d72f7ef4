#include "exchange/LigneExcel.h"

#include "exchange/ArretImport.h"
#include "exchange/CelluleImport.h"

LigneExcel::LigneExcel(const QVector<QVariant> &cellules, int numero, const ColonnesReconnues &colonnes,
                       const QStringList &entetes)
    : m_cellules(cellules), m_numero(numero), m_colonnes(colonnes), m_entetes(entetes)
{
}

QVariant LigneExcel::celluleDe(int champ) const
{
    const int position = colonne(champ) - 1;
    if (position < 0 || position >= m_cellules.size())
        return {};
    const QVariant &cellule = m_cellules[position];
    if (CelluleImport::estErreur(cellule))
        throw ArretImport::faute(
            QStringLiteral("La cellule « %1 » de la ligne %2 contient une erreur (%3).")
                .arg(m_entetes.value(position), QString::number(m_numero), CelluleImport::texte(cellule)));
    return cellule;
}

QString LigneExcel::texteDe(int champ) const
{
    return CelluleImport::texte(celluleDe(champ));
}
