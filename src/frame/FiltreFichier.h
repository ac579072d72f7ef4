// From the program's file filters to those of Qt's file dialog.
#pragma once

#include <QStringList>

// "Excel (*.xls)|*.xls|Tous fichiers (*.*)|*.*" gives "Excel (*.xls) (*.xls)" and "Tous fichiers (*.*) (*)". The
// patterns always stand in the last parentheses, which the dialog hides (QFileDialog::HideNameFilterDetails), so that
// the caption shows as it was given. Several patterns are separated by ";". A caption without pattern is left out.
QStringList filtresQt(const QString &filtre);

// The extension of a filter as the dialog has it ("xlsx" for "Excel 2007 (*.xlsx)"); empty for one of every file.
QString extensionDuFiltre(const QString &filtreQt);
