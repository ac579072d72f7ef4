// The rows of the grid as the work table of their screen holds them.
#pragma once

#include "capture/LignePrelevement.h"

class DataEnvironment1;

// Temp_mesure_physico or Temp_mesure_phyto. Every failure is an Erreur.
class TravailPrelevement
{
public:
    TravailPrelevement(const DataEnvironment1 &donnees, FamillePrelevement famille);

    void vider() const;
    // Gives the number of the new row.
    qint64 ajouter(const TextesLigne &ligne) const;
    void modifier(qint64 numero, const TextesLigne &ligne) const;
    void supprimer(qint64 numero) const;

private:
    QVariantList valeurs(const TextesLigne &ligne) const;

    const DataEnvironment1 &m_donnees;
    FamillePrelevement m_famille;
    QString m_table;
    QString m_ajout;
    QString m_modification;
    QString m_suppression;
};
