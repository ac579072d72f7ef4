// The table of the raw data screen.
#pragma once

#include "analysis/CopieDonneesBrutes.h"

#include <QTableView>

// Rows may come by the million: nothing here looks at more of them than the screen shows. Enter, Escape and typed letters
// are left to the screen.
class GrilleDonneesBrutes : public QTableView
{
    Q_OBJECT
public:
    explicit GrilleDonneesBrutes(QWidget *parent = nullptr);

    // Widths for what each column usually holds, and for its title with the mark of the order.
    void donnerLargeurs();
    // Most of a small screen.
    QSize sizeHint() const override { return {1280, 560}; }

    // What is selected, as rectangles.
    QList<PlageBrute> selection() const;

    void keyboardSearch(const QString &) override {} // would read every row

Q_SIGNALS:
    void copieDemandee();
    // By a click on the header, or Ctrl+T on the current column.
    void triDemande(int colonne);
    // The user comes back to the table.
    void reprise();

protected:
    void keyPressEvent(QKeyEvent *evenement) override;
    void focusInEvent(QFocusEvent *evenement) override;
};
