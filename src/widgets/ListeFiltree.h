// A list in which several rows are chosen; when it is long, a field over it filters the rows by what is typed.
#pragma once

#include "platform/Choix.h"

#include <functional>
#include <QListWidget>

class QLineEdit;

// A click or the space bar chooses a row and takes it back. A row stays chosen while a filter hides it.
class ListeFiltree : public QListWidget
{
    Q_OBJECT
public:
    // Whether these rows may be chosen together: an empty text, or the message that refuses the last one.
    using Regle = std::function<QString(const QStringList &codes)>;

    explicit ListeFiltree(QWidget *parent = nullptr);

    // Replaces the rows. Chosen codes that are still there stay chosen. Emits nothing.
    void remplir(const ListeChoix &lignes);

    // Codes, or texts, of the chosen rows, in the order of the list.
    QStringList codes() const;
    QStringList textes() const;

    // Chooses these rows alone, or none. Emits nothing.
    void choisir(const QStringList &codes);
    void vider() { choisir({}); }

    // A row that the rule refuses is taken back at once, and `refus` tells.
    void definirRegle(Regle regle) { m_regle = std::move(regle); }

    // Small: a list takes the room that its screen has left.
    QSize sizeHint() const override { return {200, 90}; }
    QSize minimumSizeHint() const override { return {120, 54}; }

Q_SIGNALS:
    void choixChange();
    void refus(const QString &message);

protected:
    void resizeEvent(QResizeEvent *evenement) override;
    void keyPressEvent(QKeyEvent *evenement) override;
    bool eventFilter(QObject *objet, QEvent *evenement) override;

private:
    void filtrer(const QString &texte);
    void suivreChoix(const QItemSelection &nouveaux);
    void placerFiltre();

    QLineEdit *m_filtre;
    Regle m_regle;
    bool m_silence = false;
};
