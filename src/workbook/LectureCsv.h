// How a text file of columns is to be read: its separator and its encoding.
#pragma once

#include <QString>

// The options of the text import for this file, judged on its beginning: separator ";", tab or "," (the one that
// stands most often in the first line), UTF-8 or Windows-1252. Cells come as texts, as they were written.
QString optionsCsv(const QString &cheminHote);
