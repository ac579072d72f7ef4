#include "frame/FenetreFille.h"

#include <QCloseEvent>
#include <QPointer>
#include <QTimer>

FenetreFille::FenetreFille(QWidget *ecran, QWidget *parent) : QMdiSubWindow(parent)
{
    setAttribute(Qt::WA_DeleteOnClose);
    // The frame deletes the screen; a screen that deleted itself would leave an empty frame behind.
    ecran->setAttribute(Qt::WA_DeleteOnClose, false);
    setWidget(ecran);
    setWindowIcon(ecran->windowIcon());
}

bool FenetreFille::eventFilter(QObject *objet, QEvent *evenement)
{
    if (objet == widget() && !m_enFermeture) {
        if (evenement->type() == QEvent::Close) {
            // Asked by the screen itself. The filter sees the request before the screen does, so what came of it is
            // looked at once it has been handled.
            const QPointer<FenetreFille> moi(this);
            QTimer::singleShot(0, this, [moi] {
                if (moi && moi->widget() && moi->widget()->isHidden() && !moi->m_enFermeture)
                    moi->close();
            });
        } else if (evenement->type() == QEvent::HideToParent) {
            hide();
        }
    }
    return QMdiSubWindow::eventFilter(objet, evenement);
}

void FenetreFille::closeEvent(QCloseEvent *evenement)
{
    m_enFermeture = true;
    // A screen already closed by itself is not asked twice.
    if (widget() && widget()->isHidden())
        evenement->accept();
    else
        QMdiSubWindow::closeEvent(evenement);
    if (!evenement->isAccepted())
        m_enFermeture = false;
}
