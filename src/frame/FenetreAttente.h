// The wait windows: a caption, a label and a progress bar, while long work runs on the same thread.
#pragma once

#include "platform/Dialogue.h"

#include <memory>
#include <QDialog>

namespace Ui
{
class FenetreAttente;
}

// A wait window is modal to the whole program, so that nothing else can be set going while it shows; the work that it
// stands for goes on in the routine that showed it. It cannot be closed by the user, only cancelled where that is allowed.
class FenetreAttente : public QDialog, public Progression
{
    Q_OBJECT
public:
    // Progression yields to the event loop through `dialogue`.
    FenetreAttente(const QString &nom, Dialogue &dialogue);
    ~FenetreAttente() override;

    void montrer(const QString &titre, const QString &libelle) override;
    void cacher() override;
    void libelle(const QString &texte) override;
    void maximum(int valeur) override;
    void valeur(int valeur) override;
    void permettreAnnulation(bool oui) override;
    bool annulee() const override { return m_annulee; }

    // Escape asks for a cancellation, where there is one; it never closes the window.
    void reject() override;

protected:
    void closeEvent(QCloseEvent *evenement) override;

private:
    void annuler();

    std::unique_ptr<Ui::FenetreAttente> m_ui;
    Dialogue &m_dialogue;
    bool m_annulee = false;
};

class FProgress final : public FenetreAttente
{
    Q_OBJECT
public:
    explicit FProgress(Dialogue &dialogue) : FenetreAttente(QStringLiteral("FProgress"), dialogue) {}
};

class FProgress2 final : public FenetreAttente
{
    Q_OBJECT
public:
    explicit FProgress2(Dialogue &dialogue) : FenetreAttente(QStringLiteral("FProgress2"), dialogue) {}
};

// The one of the frame: structure upgrades, conversion, compaction.
class FProgress3 final : public FenetreAttente
{
    Q_OBJECT
public:
    explicit FProgress3(Dialogue &dialogue) : FenetreAttente(QStringLiteral("FProgress3"), dialogue) {}
};
