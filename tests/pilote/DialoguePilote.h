// Answers in the user's place, and notes what was shown.
#pragma once

#include "frame/DialogueQt.h"

#include <functional>
#include <QQueue>
#include <QStringList>

struct BoiteNotee {
    QString titre;
    QString texte; // line breaks as "\n"
    bool verifiee = false;
};

struct QuestionNotee {
    QString titre;
    QString texte;
    QString reponse;
    bool verifiee = false;
};

class DialoguePilote final : public DialogueQt
{
public:
    QList<BoiteNotee> messages;
    QList<QuestionNotee> questions;
    QStringList ouverts; // host paths

    QQueue<QString> reponses;
    QQueue<std::optional<QString>> fichiers; // paths as the scenario writes them; nothing to cancel
    QQueue<std::optional<Couleur>> couleurs;

    // Told of a box or dialog that nobody has answered; what the program then gets is a refusal.
    std::function<void(const QString &)> imprevu;
    // From a path of the scenario to one of this host.
    std::function<QString(const QString &)> resoudre;
    // Where each line goes (the standard output).
    std::function<void(const QString &)> ecrire;

    void message(const QString &texte, const QString &titre, Icone icone) override;
    Reponse question(const QString &texte, const QString &titre, const QList<Reponse> &choix, Reponse defaut,
                     Icone icone) override;
    std::optional<QString> choisirFichier(const DemandeFichier &demande) override;
    std::optional<Couleur> choisirCouleur(const Couleur &initiale) override;
    bool ouvrirDocument(const QString &cheminHote) override;

private:
    void noter(const QStringList &champs) const;
};
