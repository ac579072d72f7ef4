// A combo in which one types to find, and which takes nothing but a row of its list.
#pragma once

#include "platform/Choix.h"
#include "widgets/ZoneVerifiee.h"

#include <QComboBox>

// Typing shows the rows that hold the text, in any case, with or without accents, in the row or its complement. The
// choice changes when a row is picked, or when the field is left (or Enter pressed) with the text of a row. An empty text
// is no choice. Any other text is refused with "Cette valeur n'existe pas dans la liste." under "Attention".
class ZoneCombo : public QComboBox, public ZoneVerifiee
{
    Q_OBJECT
public:
    explicit ZoneCombo(QWidget *parent = nullptr);

    // Replaces the rows. The choice stays where its code is still there, else becomes none. Emits nothing.
    void remplir(const ListeChoix &lignes);

    // The chosen row's code and text; empty where none is chosen.
    QString code() const { return m_code; }
    QString texte() const { return m_texte; }
    bool estVide() const { return m_rang < 0; }

    // Chooses the row with this code, or none. Emits nothing.
    void choisir(const QString &code);
    void vider();

    void showPopup() override;

Q_SIGNALS:
    // The user's choice has changed, possibly to none.
    void choixChange();

protected:
    bool accepter() override;
    QString messageRefus() const override;
    QString titreRefus() const override;
    void selectionnerTexte() override;

    void focusOutEvent(QFocusEvent *evenement) override;
    void keyPressEvent(QKeyEvent *evenement) override;
    void wheelEvent(QWheelEvent *evenement) override;

private:
    void placer(int rang);
    void retenir(int rang);

    int m_rang = -1;
    QString m_code;
    QString m_texte;
    int m_largeurListes = 0; // pixels
    bool m_silence = false;
};
