// What may be chosen together on the selection screens of concentrations, and what their commands check first.
#pragma once

#include <optional>
#include <QDate>
#include <QString>
#include <QStringList>

namespace ReglesConcentrations
{
// A chart compares at most two curves. Each function says whether a selection holds: the empty text, or the message that
// refuses its last choice.

// Selected parameters, given the number of fractions selected beside.
QString refusParametres(const QStringList &parametres, qsizetype fractions);
// Selected fractions, given the parameters selected beside.
QString refusFractions(const QStringList &fractions, const QStringList &parametres);
// Fractions are asked for organic carbon alone.
bool demandeFraction(const QStringList &parametres);

enum class Commande { Graphique, Rapport, GraphiqueEtRapport };
enum class ChoixParametres { Aucun, UnSeul, Plusieurs };

// The controls that the commands check.
struct Controles {
    QString station;
    QDate debut;
    QDate fin;
    ChoixParametres choix = ChoixParametres::Aucun;
    qsizetype parametres = 0; // number selected
    bool echelleMaximale = false;
    QString valeurEchelle; // as typed
};

// The control that a check is about.
enum class Champ { Station, DateDebut, DateFin, ChoixParametres, Parametre, Echelle };

struct Refus {
    QString message;
    Champ champ;
};

// The first thing that is wrong, in the order of the checks; nothing when all is well.
std::optional<Refus> premierRefus(const Controles &controles, Commande commande);
} // namespace ReglesConcentrations
