// What routines ask of the user and of the desktop. The real one shows boxes (frame/DialogueQt); the scenario player
// and the tests have their own.
#pragma once

#include <optional>
#include <QList>
#include <QString>

enum class Icone { Aucune, Information, Question, Exclamation, Critique };
enum class Reponse { OK, Annuler, Oui, Non };

struct DemandeFichier {
    QString titre;
    // As in "Excel (*.xls)|*.xls|Tous fichiers (*.*)|*.*": caption and pattern in turn.
    QString filtre;
    // Folder shown first, in the Windows form or the host's; may not exist.
    QString dossierInitial;
    QString nomPropose;
    // Extension added to a typed name that has none ("xls"); only when saving.
    QString extensionDefaut;
    // A file to create (an existing one asks before it is replaced) rather than one to open.
    bool enregistrer = false;
};

struct Couleur {
    int r = 0;
    int g = 0;
    int b = 0;
    bool operator==(const Couleur &) const = default;
};

// The windows in which long work shows where it stands.
enum class FenetreProgression {
    Principale, // the progress bar and status text of the main window
    FProgress,
    FProgress2,
    FProgress3,
};

// One such window. All calls but `montrer` do nothing while it is hidden. Each call yields to the event loop at most
// every 40 ms, so that a loop may call it for every row.
class Progression
{
public:
    virtual ~Progression() = default;
    // `titre` is a wait window's caption (unused by the main window), `libelle` the status text.
    virtual void montrer(const QString &titre, const QString &libelle) = 0;
    virtual void cacher() = 0;
    virtual void libelle(const QString &texte) = 0;
    // A maximum of 0 hides the bar.
    virtual void maximum(int valeur) = 0;
    virtual void valeur(int valeur) = 0;
    // True once the user has pressed the window's Annuler; only where `permettreAnnulation` was called.
    virtual void permettreAnnulation(bool oui) = 0;
    virtual bool annulee() const = 0;
};

class Dialogue
{
public:
    virtual ~Dialogue() = default;

    virtual void message(const QString &texte, const QString &titre, Icone icone = Icone::Aucune) = 0;
    // `choix` are the buttons, `defaut` the one that Enter presses. Closing the box by its frame answers Non or Annuler.
    virtual Reponse question(const QString &texte, const QString &titre, const QList<Reponse> &choix,
                             Reponse defaut, Icone icone = Icone::Question) = 0;
    // The chosen path in the host's form, or nothing on cancel.
    virtual std::optional<QString> choisirFichier(const DemandeFichier &demande) = 0;
    virtual std::optional<Couleur> choisirCouleur(const Couleur &initiale) = 0;
    // Hands a document to the application that the desktop has for it. False when there is none.
    virtual bool ouvrirDocument(const QString &cheminHote) = 0;
    virtual Progression &progression(FenetreProgression fenetre) = 0;
    // Lets pending events be handled once.
    virtual void ceder() = 0;
    // The waiting cursor, over everything, until called with false.
    virtual void sablier(bool oui) = 0;
};
