// One row of an imported sheet, read by the fields of its layout.
#pragma once

#include "exchange/DispositionExcel.h"

#include <optional>
#include <QDate>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

// A field that is empty, or whose column the sheet does not have, reads as an empty text. A cell holding an error stops
// the run (ArretImport) when it is read.
class LigneExcel
{
public:
    // `numero` counts from 1, as in the spreadsheet; `entetes` are the headers of row 1, for the messages.
    LigneExcel(const QVector<QVariant> &cellules, int numero, const ColonnesReconnues &colonnes,
               const QStringList &entetes);

    int numero() const { return m_numero; }

    template <class Champ> bool presente(Champ champ) const { return colonne(static_cast<int>(champ)) > 0; }
    template <class Champ> QString texte(Champ champ) const { return texteDe(static_cast<int>(champ)); }
    template <class Champ> bool vide(Champ champ) const { return texte(champ).isEmpty(); }
    template <class Champ> QVariant cellule(Champ champ) const { return celluleDe(static_cast<int>(champ)); }

private:
    int colonne(int champ) const { return m_colonnes.at(static_cast<std::size_t>(champ)); }
    QVariant celluleDe(int champ) const;
    QString texteDe(int champ) const;

    const QVector<QVariant> &m_cellules;
    int m_numero;
    const ColonnesReconnues &m_colonnes;
    const QStringList &m_entetes;
};
