// A rectangle of values made ready for the spreadsheet application.
#pragma once

#include "workbook/Plage.h"

class Feuille;

// Turning values into what the application takes is a third of the time of their writing, and wants no workbook: it may be
// done before there is one, while the application opens it, on any thread. Then: plage.ecrireBloc(bloc). A value of a
// type that no cell holds is an Erreur.
class BlocValeurs
{
public:
    explicit BlocValeurs(const Valeurs &valeurs);

    int lignes() const;
    int colonnes() const;

    class Donnees;
    const Donnees &donnees() const { return *m_donnees; }

private:
    std::shared_ptr<const Donnees> m_donnees;
};

// A block with the place of its top left cell, from 1.
struct BlocPlace {
    int ligne = 1;
    int colonne = 1;
    BlocValeurs valeurs;
};

// Writes blocks that do not overlap, formats left as they are: while the application takes one in, the next ones are on
// their way.
void ecrireBlocs(Feuille &feuille, const QVector<BlocPlace> &blocs);
