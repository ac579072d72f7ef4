// The course that every report and chart command follows, written once.
#pragma once

#include "platform/Dialogue.h"
#include "workbook/Tableur.h"

#include <functional>
#include <QObject>
#include <QString>

// Last folder used for each kind of document ("Document Excel", "Document texte (SANDRE)"), for this run.
class DossiersRecents
{
public:
    QString dossier(const QString &nature) const;
    void retenir(const QString &nature, const QString &dossier);

private:
    QHash<QString, QString> m_dossiers;
};

// Whether a report is being made: while it is, every way to start another is disabled.
class EtatRapport : public QObject
{
    Q_OBJECT
public:
    bool enCours() const { return m_enCours; }
    void definir(bool enCours);

Q_SIGNALS:
    void change(bool enCours);

private:
    bool m_enCours = false;
};

enum class FinRapport {
    Rapport,   // "Fin de création", "L'édition du rapport est terminée. "
    Graphique, // "Fin du graphique", "La création du graphique est terminée. "
};

struct CommandeRapport {
    QString modele; // file name of the template, "rapport.xls"
    FinRapport fin = FinRapport::Rapport;
    // Fills the workbook. Returns the number of measures written: 0 means that nothing was, and the command then shows
    // `avertissementVide` under "Attention" and leaves no file.
    std::function<int(Classeur &)> remplir;
    QString avertissementVide;
};

// Asks for the output name, opens the template, saves it at once under that name, fills, saves, closes, tells, shows.
// A cancelled dialog ends it quietly; a failure ends as told, the spreadsheet let go, and no half file left.
class CoursRapport
{
public:
    CoursRapport(Dialogue &dialogue, Tableur &tableur, DossiersRecents &dossiers, EtatRapport &etat);
    // True when a finished document was shown.
    bool executer(const CommandeRapport &commande);

private:
    Dialogue &m_dialogue;
    Tableur &m_tableur;
    DossiersRecents &m_dossiers;
    EtatRapport &m_etat;
};
