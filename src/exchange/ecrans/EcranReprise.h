// What the three screens that settle a stopped import have in common.
#pragma once

#include "widgets/Ecran.h"

class EcranReprise : public Ecran
{
    Q_OBJECT
public:
    using Ecran::Ecran;

    // Closes those that are still open: they speak of a run that is over.
    static void fermerTous(const Session &session);

protected:
    // "Ligne 12 du fichier « mesures.xls »": where the import stands.
    QString emplacement() const;
    // Closes this screen, then runs the import from the stored row on. While the file is still open where it was corrected,
    // says so and stays: the run would fail, and the question be lost.
    void RelancerImport();
};
