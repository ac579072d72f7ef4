// A limit of a result: a text that is no number is refused and goes.
#pragma once

#include "widgets/ZoneLibelle.h"

class ZoneLimite : public ZoneLibelle
{
    Q_OBJECT
public:
    using ZoneLibelle::ZoneLibelle;

protected:
    void selectionnerTexte() override { clear(); }
};
