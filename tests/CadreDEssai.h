// A Cadre for tests: it shows nothing and counts what is asked.
#pragma once

#include "frame/Cadre.h"

#include <QList>
#include <QWidget>

class CadreDEssai : public Cadre
{
public:
    QList<QWidget *> ecrans; // given to be shown; the test deletes them
    int reductions = 0;
    int fins = 0;
    QString bassin; // the reference basin last told

    void montrer(QWidget *ecran) override { ecrans << ecran; }
    void reduire() override { ++reductions; }
    void nommerBassin(const QString &nom) override { bassin = nom; }
    void terminer() override { ++fins; }
};
