// A Dialogue for tests: it shows nothing, notes everything and gives the answers that the test has queued.
#pragma once

#include "platform/Dialogue.h"

#include <array>
#include <QQueue>
#include <QStringList>

struct BoiteDEssai {
    QString texte;
    QString titre;
    Icone icone = Icone::Aucune;
    bool operator==(const BoiteDEssai &) const = default;
};

struct QuestionDEssai {
    QString texte;
    QString titre;
    QList<Reponse> choix;
    Reponse defaut = Reponse::Non;
    Icone icone = Icone::Question;
    Reponse reponse = Reponse::Non; // the answer that was given
};

class ProgressionDEssai : public Progression
{
public:
    bool visible = false;
    QString titre;
    QString texte;
    QStringList textes; // every status text shown, in order
    int dernierMaximum = 0;
    int derniereValeur = 0;
    int fois = 0; // times that the window was shown
    bool annulable = false;
    bool annulationDemandee = false;

    void montrer(const QString &t, const QString &l) override
    {
        visible = true;
        ++fois;
        titre = t;
        libelle(l);
    }
    void cacher() override { visible = false; }
    void libelle(const QString &t) override
    {
        texte = t;
        textes << t;
    }
    void maximum(int valeur) override { dernierMaximum = valeur; }
    void valeur(int v) override { derniereValeur = v; }
    void permettreAnnulation(bool oui) override { annulable = oui; }
    bool annulee() const override { return annulable && annulationDemandee; }
};

//     DialogueDEssai dialogue;
//     dialogue.reponses.enqueue(Reponse::Oui);
//     ... the routine ...
//     QCOMPARE(dialogue.messages.size(), 1);
//     QCOMPARE(dialogue.messages[0].texte, "...");
//     QVERIFY(dialogue.imprevus.isEmpty());
class DialogueDEssai : public Dialogue
{
public:
    QList<BoiteDEssai> messages;
    QList<QuestionDEssai> questions;
    QList<DemandeFichier> demandes;
    QStringList documents; // handed to their application
    // What was asked without an answer in the queue; a question is then answered by its default, a choice cancelled.
    QStringList imprevus;
    int cessions = 0;
    bool enSablier = false;

    QQueue<Reponse> reponses;
    QQueue<std::optional<QString>> fichiers;
    QQueue<std::optional<Couleur>> couleurs;
    bool documentsOuvrables = true;
    std::function<void()> aLaCession; // run at each yield

    void message(const QString &texte, const QString &titre, Icone icone) override
    {
        messages.append({texte, titre, icone});
    }
    Reponse question(const QString &texte, const QString &titre, const QList<Reponse> &choix, Reponse defaut,
                     Icone icone) override
    {
        Reponse reponse = defaut;
        if (reponses.isEmpty())
            imprevus << texte;
        else
            reponse = reponses.dequeue();
        questions.append({texte, titre, choix, defaut, icone, reponse});
        return reponse;
    }
    std::optional<QString> choisirFichier(const DemandeFichier &demande) override
    {
        demandes << demande;
        if (fichiers.isEmpty()) {
            imprevus << demande.titre;
            return std::nullopt;
        }
        return fichiers.dequeue();
    }
    std::optional<Couleur> choisirCouleur(const Couleur &) override
    {
        if (couleurs.isEmpty()) {
            imprevus << QStringLiteral("couleur");
            return std::nullopt;
        }
        return couleurs.dequeue();
    }
    bool ouvrirDocument(const QString &cheminHote) override
    {
        documents << cheminHote;
        return documentsOuvrables;
    }
    ProgressionDEssai &progression(FenetreProgression fenetre) override
    {
        return m_progressions[static_cast<std::size_t>(fenetre)];
    }
    void ceder() override
    {
        ++cessions;
        if (aLaCession)
            aLaCession();
    }
    void sablier(bool oui) override { enSablier = oui; }

private:
    std::array<ProgressionDEssai, 4> m_progressions;
};
