// The Dialogue of the real program: Qt's boxes, on the window that is in front.
#pragma once

#include "frame/FenetreAttente.h"
#include "platform/Dialogue.h"

#include <QPointer>

class QAbstractButton;
class QMessageBox;

// A scenario player derives from it and answers in the user's place: it overrides the boxes, the file and colour
// dialogs and the opening of a document, and nothing else.
class DialogueQt : public Dialogue
{
public:
    DialogueQt();
    ~DialogueQt() override;
    DialogueQt(const DialogueQt &) = delete;
    DialogueQt &operator=(const DialogueQt &) = delete;

    void message(const QString &texte, const QString &titre, Icone icone) override;
    Reponse question(const QString &texte, const QString &titre, const QList<Reponse> &choix, Reponse defaut,
                     Icone icone) override;
    std::optional<QString> choisirFichier(const DemandeFichier &demande) override;
    std::optional<Couleur> choisirCouleur(const Couleur &initiale) override;
    bool ouvrirDocument(const QString &cheminHote) override;

    Progression &progression(FenetreProgression fenetre) final;
    void ceder() final;
    void sablier(bool oui) final;

    // The main window and its own progress bar, once they exist.
    void definirFenetre(QWidget *fenetre, Progression *principale);
    // The program is ending while a routine may still be running: from now on nothing is shown, a question gets its
    // refusal and a dialog its cancellation, so that the routine comes to its end by itself.
    void cesser();
    bool cesse() const { return m_cesse; }
    // True while a routine waits inside an event loop: it has yielded, or a box is open.
    bool enAttente() const { return m_attentes > 0; }

    // What closing a question box by its frame answers: Non, else Annuler, else the first choice.
    static Reponse refus(const QList<Reponse> &choix);

private:
    QWidget *parent() const;

    QPointer<QWidget> m_fenetre;
    Progression *m_principale = nullptr;
    FProgress m_progress;
    FProgress2 m_progress2;
    FProgress3 m_progress3;
    bool m_cesse = false;
    bool m_sablier = false;
    int m_attentes = 0;
};
