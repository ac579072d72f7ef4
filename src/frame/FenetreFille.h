// The frame around one screen in the main window.
#pragma once

#include <QMdiSubWindow>

// Follows its screen: hidden when the screen hides itself, closed when the screen closes itself; and the screen is
// deleted with it.
class FenetreFille final : public QMdiSubWindow
{
    Q_OBJECT
public:
    FenetreFille(QWidget *ecran, QWidget *parent);

protected:
    bool eventFilter(QObject *objet, QEvent *evenement) override;
    void closeEvent(QCloseEvent *evenement) override;

private:
    bool m_enFermeture = false;
};
