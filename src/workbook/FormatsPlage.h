// Which cells of a range are formatted as dates or times, and giving them such formats.
// Needs the headers of the office: included by the sources of this folder only.
#pragma once

#include "workbook/DonneesClasseur.h"

#include <QHash>
#include <QVector>

enum class NatureFormat : quint8 { Autre, Date, Heure };

// Rows and columns count from 0 inside the range.
class GrilleFormats
{
public:
    // Neither dates nor times.
    GrilleFormats() = default;
    explicit GrilleFormats(const Plage::Donnees &plage);
    NatureFormat nature(int ligne, int colonne) const
    {
        return m_natures.isEmpty() ? m_unique
                                   : m_natures.at(static_cast<qsizetype>(ligne) * m_colonnes + colonne);
    }

private:
    NatureFormat m_unique = NatureFormat::Autre;
    int m_colonnes = 0;
    QVector<NatureFormat> m_natures; // empty when all cells are alike
};

// Gathers the cells that have received a date or a time, then gives the right format to those that lack one.
class FormatsVoulus
{
public:
    explicit FormatsVoulus(const Plage::Donnees &plage) : m_plage(plage) {}
    void vouloir(int ligne, int colonne, QLatin1String format);
    void appliquer() const;

private:
    const Plage::Donnees &m_plage;
    QHash<QLatin1String, QVector<QPair<int, int>>> m_cellules; // by format: row and column
};
