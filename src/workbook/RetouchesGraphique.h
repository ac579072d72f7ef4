// What the application's filter of .xls cannot write of a chart, put into the finished file: markers without fill or with
// colours of their own, the line through a marked point, the number format of the category axis, and its place (the filter
// judges by the kind of the first series: lines begin on the axis, columns beside it, which parts the two on one chart),
// the series that the legend does not name. And which part of a sheet is seen first.
//
// Records of the format are changed in place ([MS-XLS]: MarkerFormat, LineFormat, IFmtRecord, CatSerRange, Window1, Window2);
// one is added (LegendException), and the places of the sheets that come after it follow (BoundSheet8).
#pragma once

#include <memory>
#include <optional>
#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>

// A rectangle of cells, rows and columns from 0.
struct RectangleCellules {
    int ligne1 = 0;
    int colonne1 = 0;
    int ligne2 = 0;
    int colonne2 = 0;
    bool operator==(const RectangleCellules &) const = default;
};

struct RetoucheMarqueur {
    std::optional<int> bord; // 0xRRGGBB; none: as the filter wrote it
    std::optional<int> fond;
    bool sansFond = false;
};

struct RetouchesSerie {
    std::optional<RectangleCellules> valeurs; // by which the series is known in the file
    bool horsLegende = false;
    std::optional<RetoucheMarqueur> serie;
    QHash<int, RetoucheMarqueur> points; // from 0; their lines become the series' one again
};

struct RetouchesGraphique {
    int feuille = 0; // place of the sheet, from 0
    int rang = 0;    // place of the chart among those of its sheet, from 0
    QVector<std::shared_ptr<RetouchesSerie>> series;
    QString
        formatCategories; // English form; it must be in the workbook's table of formats, or it is left out
    bool entreCategories = false; // the axes of both groups begin half a place before the first category

    bool vide() const;
};

struct RetouchesClasseur {
    QVector<std::shared_ptr<RetouchesGraphique>> graphiques;
    // Column, from 0, at the left edge of a sheet's window; a workbook that is never shown has no windows to save.
    QHash<int, int> premieresColonnes;
    int feuilleActive = -1; // in front when the file is opened; -1: as it is

    bool vide() const;
};

// Whether records may be added.
enum class Ajouts { Oui, Non };
// Changes the stream "Workbook" of a .xls, whose length stays where nothing is added. False when its records do not hang
// together: it is then to be left as it was.
bool retoucherClasseur(QByteArray &flux, const RetouchesClasseur &retouches, Ajouts ajouts = Ajouts::Oui);
// The same on a file; nothing is added to one that has no room for it.
bool retoucherFichier(const QString &chemin, const RetouchesClasseur &retouches);
