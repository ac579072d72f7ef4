// The progress bar and status text of the main window.
#pragma once

#include "platform/Dialogue.h"

#include <QWidget>

class QLabel;
class QProgressBar;
class QToolButton;

// Stands in the status bar; empty when no work is going on.
class BarreProgression final : public QWidget, public Progression
{
    Q_OBJECT
public:
    BarreProgression(Dialogue &dialogue, QWidget *parent);

    void montrer(const QString &titre, const QString &libelle) override;
    void cacher() override;
    void libelle(const QString &texte) override;
    void maximum(int valeur) override;
    void valeur(int valeur) override;
    void permettreAnnulation(bool oui) override;
    bool annulee() const override { return m_annulee; }

private:
    Dialogue &m_dialogue;
    QLabel *m_texte;
    QProgressBar *m_barre;
    QToolButton *m_annuler;
    bool m_montree = false;
    bool m_annulee = false;
};
