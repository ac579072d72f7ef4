// What kind of workbook a file is, judged by its content.
#pragma once

#include <QByteArray>
#include <QString>

enum class FormatFichier {
    Xls,  // BIFF stream in an OLE2 compound file
    Xlsx, // Office Open XML package
    Ods,  // OpenDocument package
    Csv   // text, by the file's extension alone
};

struct ExamenFichier {
    FormatFichier format = FormatFichier::Xls;
    // The workbook's content looks encrypted. Some are under a password that every program knows, only to keep their
    // structure from being changed: those open all the same.
    bool chiffre = false;
};

// Looks at the file without the spreadsheet application, which would open nearly anything as text and a truncated
// workbook without a word. An Erreur in French: absent, unreadable, empty, not a workbook, truncated, locked by a
// password. Sources of the layouts: [MS-CFB] and [MS-XLS] 2.4.117, APPNOTE.TXT 4.3.
ExamenFichier examinerFichier(const QString &cheminHote);
