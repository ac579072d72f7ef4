// The objectives of a basin, as the rows of a grid on Temp_objectif.
#pragma once

#include "database/TableTravail.h"

// A parameter and a fraction are known names (a code is taken too, and shown as its name); the unit follows the
// parameter, and a parameter that is typed first gets the fraction that captures take by default.
class TableObjectifs : public TableTravail
{
    Q_OBJECT
public:
    enum Colonne { PARAMETRE, FRACTION, MOYEN, MAXIMAL, UNITE };

    explicit TableObjectifs(const DataEnvironment1 &donnees, QObject *parent = nullptr);

    // Reads Temp_objectif again.
    void relireTout();
    // Makes the rows of Temp_objectif those of this grid: another sheet may have used the table meanwhile.
    void deposer() const;
    // Every cell, for a comparison.
    QStringList textes() const;

    // The names that the lists of the two columns offer.
    static QStringList parametres(const DataEnvironment1 &donnees);
    static QStringList fractions(const DataEnvironment1 &donnees);

    Qt::ItemFlags flags(const QModelIndex &cellule) const override;
    bool setData(const QModelIndex &cellule, const QVariant &valeur, int role = Qt::EditRole) override;

private:
    const DataEnvironment1 &m_base;
};
