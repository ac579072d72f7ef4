// What the benches share: a stopwatch, the median, a base of many results.
#pragma once

#include "platform/Erreur.h"

#include <algorithm>
#include <QElapsedTimer>
#include <QList>
#include <QProcess>

namespace OutilsBanc
{
// The middle one of an odd number of measures.
template <typename Liste> auto mediane(Liste durees)
{
    std::sort(durees.begin(), durees.end());
    return durees[durees.size() / 2];
}

// In milliseconds.
template <typename Travail> double chronometrer(Travail &&travail)
{
    QElapsedTimer chrono;
    chrono.start();
    travail();
    return static_cast<double>(chrono.nsecsElapsed()) / 1e6;
}

// A study with this many results, made by the program that makes the bases.
inline void creerBase(const QString &fichier, int resultats)
{
    QProcess creation;
    creation.setProcessChannelMode(QProcess::ForwardedChannels);
    creation.start(QStringLiteral(DOSSIER_CONSTRUCTION "/bin/creer_bases"),
                   {QStringLiteral("--donnees"), QStringLiteral(DOSSIER_SOURCES "/donnees"),
                    QStringLiteral("resultats"), QString::number(resultats), fichier});
    if (!creation.waitForFinished(-1) || creation.exitStatus() != QProcess::NormalExit ||
        creation.exitCode() != 0)
        throw Erreur(0, QStringLiteral("creer_bases: ") + creation.errorString());
}
} // namespace OutilsBanc
