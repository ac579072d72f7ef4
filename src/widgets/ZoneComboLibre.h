// A combo that offers texts and takes any other, under a rule of its screen.
#pragma once

#include "widgets/ZoneReglee.h"

#include <QComboBox>

// Rows are proposals: what counts is the text. For choices among the rows alone there is ZoneCombo.
class ZoneComboLibre : public QComboBox, public ZoneReglee
{
    Q_OBJECT
public:
    explicit ZoneComboLibre(QWidget *parent = nullptr);

    // Replaces the proposals; the text stays.
    void remplir(const QStringList &propositions);
    QString texte() const { return currentText(); }
    // Shows a text. Emits nothing.
    void fixer(const QString &texte);

Q_SIGNALS:
    // A row was picked, or the field left with a text that can be taken.
    void texteChoisi();

protected:
    QString texteAJuger() const override { return currentText(); }
    void selectionnerTexte() override;
    void focusOutEvent(QFocusEvent *evenement) override;
    void keyPressEvent(QKeyEvent *evenement) override;
    void wheelEvent(QWheelEvent *evenement) override;
};
