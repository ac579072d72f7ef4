#include "workbook/LectureCsv.h"

#include <QFile>
#include <QStringDecoder>
#include <QStringList>

QString optionsCsv(const QString &cheminHote)
{
    QFile fichier(cheminHote);
    QByteArray debut;
    if (fichier.open(QIODevice::ReadOnly))
        debut = fichier.read(1 << 20);

    const QByteArray titres = debut.left(debut.indexOf('\n') < 0 ? debut.size() : debut.indexOf('\n'));
    char separateur = ';';
    for (const char candidat : {'\t', ','}) {
        if (titres.count(candidat) > titres.count(separateur))
            separateur = candidat;
    }

    // A cut at the end of the part read may fall inside a character: stop at a whole line.
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString lu = utf8.decode(debut.left(qMax<qsizetype>(debut.lastIndexOf('\n') + 1, 0)));
    Q_UNUSED(lu)
    // Every column as text (2): a code such as 05001000 keeps its zero.
    QStringList colonnes;
    for (qsizetype c = 1; c <= titres.count(separateur) + 1; ++c)
        colonnes << QStringLiteral("%1/2").arg(c);
    constexpr int UTF8 = 76;
    constexpr int WINDOWS_1252 = 1;
    // Separator, text delimiter, encoding, first line, columns, language (French), quoted fields as text.
    return QStringLiteral("%1,34,%2,1,%3,1036,true,false")
        .arg(static_cast<int>(separateur))
        .arg(utf8.hasError() ? WINDOWS_1252 : UTF8)
        .arg(colonnes.join(QLatin1Char('/')));
}
