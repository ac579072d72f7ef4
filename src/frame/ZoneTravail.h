// The client area of the main window.
#pragma once

#include <QIcon>
#include <QMdiArea>

class ZoneTravail final : public QMdiArea
{
    Q_OBJECT
public:
    explicit ZoneTravail(QWidget *parent);
    // What stands under the mark while no screen hides it.
    void definirLegende(const QString &titre, const QString &precision);

protected:
    void paintEvent(QPaintEvent *evenement) override;

private:
    QIcon m_marque;
    QString m_titre;
    QString m_precision;
};
