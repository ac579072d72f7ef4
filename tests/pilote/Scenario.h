// A scenario's text, read into steps.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <stdexcept>

// One step a line; `#` begins a comment; texts stand in double quotes. In a text, `\n` is a line break, `\"` a quote
// and `\\` a backslash; a backslash before anything else is itself. The paths of base, fichier, fichier_existe,
// fichier_absent and ouvert know no escape at all: "C:\nouveau\x.xls" is what it looks like.
struct Pas {
    int ligne = 0; // from 1
    QString verbe;
    // In the order written. FORM.CONTROL is two arguments, so that `cliquer F_X.cmd_y` has "F_X" and "cmd_y".
    QStringList arguments;
    // The word `annuler` in place of an answer.
    bool annuler = false;

    QString texte(int rang) const { return arguments.value(rang); }
    int nombre(int rang) const { return arguments.value(rang).toInt(); }
};

struct Scenario {
    QString nom; // as given on the command line; begins every failure line
    QString dossier;
    QList<Pas> pas;
};

// The scenario cannot be read: "name:LINE: why".
class ScenarioIllisible : public std::runtime_error
{
public:
    explicit ScenarioIllisible(const QString &raison) : std::runtime_error(raison.toStdString()) {}
};

// Throws ScenarioIllisible for a file that cannot be read, an unknown step, wrong arguments, an unclosed text.
Scenario lireScenario(const QString &chemin);
Scenario lireScenario(const QString &nom, const QString &dossier, const QString &contenu);
