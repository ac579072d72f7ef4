// The program's dialogue with the answers of a test in place of the user's.
#pragma once

#include "frame/DialogueQt.h"

#include <functional>
#include <QQueue>

struct BoiteFactice {
    QString texte;
    QString titre;
    Icone icone = Icone::Aucune;
};

class DialogueFactice final : public DialogueQt
{
public:
    QList<BoiteFactice> messages;
    QStringList questions;
    QList<DemandeFichier> demandes;
    QStringList documents;
    QQueue<Reponse> reponses;
    QQueue<std::optional<QString>> fichiers;
    std::function<void()> auChoix; // run when a file is asked for
    bool ouvrable = true;

    void message(const QString &texte, const QString &titre, Icone icone) override
    {
        if (!cesse())
            messages.append({texte, titre, icone});
    }
    Reponse question(const QString &texte, const QString &titre, const QList<Reponse> &choix, Reponse,
                     Icone) override
    {
        questions << titre + u'|' + texte;
        return reponses.isEmpty() ? refus(choix) : reponses.dequeue();
    }
    std::optional<QString> choisirFichier(const DemandeFichier &demande) override
    {
        demandes << demande;
        if (auChoix)
            auChoix();
        return fichiers.isEmpty() ? std::nullopt : fichiers.dequeue();
    }
    std::optional<Couleur> choisirCouleur(const Couleur &) override { return std::nullopt; }
    bool ouvrirDocument(const QString &cheminHote) override
    {
        documents << cheminHote;
        return ouvrable;
    }
};
