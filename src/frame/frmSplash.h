// The start window.
#pragma once

#include <memory>
#include <QTimer>
#include <QWidget>

namespace Ui
{
class frmSplash;
}

// Closes by itself after two seconds, at once on a click or on any key; says once that it has.
class frmSplash final : public QWidget
{
    Q_OBJECT
public:
    explicit frmSplash(QWidget *parent = nullptr);
    ~frmSplash() override;

Q_SIGNALS:
    void ferme();

protected:
    bool event(QEvent *evenement) override;
    bool eventFilter(QObject *objet, QEvent *evenement) override;
    void closeEvent(QCloseEvent *evenement) override;
    void showEvent(QShowEvent *evenement) override;
    void paintEvent(QPaintEvent *evenement) override;

private:
    std::unique_ptr<Ui::frmSplash> m_ui;
    QTimer m_timer1;
    bool m_fermee = false;
};
