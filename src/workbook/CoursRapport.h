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
    // Replaces the closing message's text, where a product has words of its own.
    QString texteFin;
    // Reads and computes what the filling wants, without a word to the user, while the application opens the template:
    // it must not use the application. What it throws ends the report as a failure of the filling. May be empty.
    std::function<void()> preparer;
    // Fills the workbook, already saved under its name. Returns the number of measures written: 0 means that nothing
    // was, and the command then shows `avertissementVide` under "Attention" (nothing where it is empty) and leaves no
    // file. What it throws ends the report: see below.
    std::function<int(Classeur &)> remplir;
    QString avertissementVide;
};

// Asks for the output name, opens the template, saves it at once under that name, fills, saves, closes, tells, shows.
// A cancelled dialog ends it quietly. Otherwise there are three ways to end badly, none of which leaves a file:
//   - what `preparer` or `remplir` throws as an Erreur: "Une erreur s'est produite en cours de traitement : " and its words;
//   - the spreadsheet absent, unable to start, killed or hung at any moment, filling included, the template missing,
//     a save refused: "Erreur de l'application"; the reason stays as the main window's status text;
//   - nothing written: the command's own warning.
// EtatRapport is set from the dialog's answer to the end, whatever happens; a second call meanwhile does nothing.
//
//     CommandeRapport commande;
//     commande.modele = QStringLiteral("rapport.xls");
//     commande.remplir = [&](Classeur &classeur) { return remplirRapport(classeur, resultat); };
//     CoursRapport(session.dialogue, session.tableur, session.dossiers, session.etatRapport).executer(commande);
class CoursRapport
{
public:
    CoursRapport(Dialogue &dialogue, Tableur &tableur, DossiersRecents &dossiers, EtatRapport &etat);
    // True when a finished document was shown.
    bool executer(const CommandeRapport &commande);

private:
    std::optional<QString> demanderNom();
    std::unique_ptr<Classeur> ouvrirEtPreparer(const CommandeRapport &commande, const QString &modele);
    bool produire(const CommandeRapport &commande, const QString &chemin);

    Dialogue &m_dialogue;
    Tableur &m_tableur;
    DossiersRecents &m_dossiers;
    EtatRapport &m_etat;
};
