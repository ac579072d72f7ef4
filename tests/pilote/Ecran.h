// The display on which a scenario is played.
#pragma once

#include <QTemporaryDir>

// Where there is no display, chooses Qt's offscreen platform with a screen of an ordinary size, so that windows are laid
// out as users see them. To be made before the application.
class EcranDEssai
{
public:
    EcranDEssai();

private:
    QTemporaryDir m_dossier; // holds the platform's settings
};
