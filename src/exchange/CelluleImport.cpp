#include "exchange/CelluleImport.h"

#include "capture/M_Variables_OVRA.h"
#include "platform/VersNombre.h"
#include "workbook/Plage.h"

#include <cmath>
#include <QDateTime>
#include <QRegularExpression>

namespace
{
// Numbers from here on do not hold every whole number any more.
constexpr double ENTIERS_EXACTS = 1e15;
// VersNombre goes through a currency type of four decimals in 64 bits.
constexpr double PLUS_GRAND_NOMBRE = 922337203685477.0;
constexpr int PREMIERE_ANNEE = 100;
constexpr int DERNIERE_ANNEE = 9999;

bool estBlanc(QChar c)
{
    return c.isSpace() || c == QChar(0x200B) || c == QChar(QChar::ByteOrderMark);
}

QString texteNombre(double nombre)
{
    if (std::trunc(nombre) == nombre && std::abs(nombre) < ENTIERS_EXACTS)
        return QString::number(nombre, 'f', 0);
    return QString::number(nombre, 'g', 15).replace(u'.', u',');
}

QString texteHeure(const QTime &heure)
{
    return heure.toString(QStringLiteral("hh:mm:ss"));
}

QString texteMoment(const QDateTime &moment)
{
    const QString jour = moment.date().toString(QStringLiteral("dd/MM/yyyy"));
    return moment.time() == QTime(0, 0) ? jour : jour + u' ' + texteHeure(moment.time());
}

// To the nearest second, as the spreadsheet shows it: 10:29:59.9999 is 10:30:00.
QTime heureDeFraction(double fraction)
{
    constexpr int SECONDES_PAR_JOUR = 86400;
    const int secondes = static_cast<int>(std::lround(fraction * SECONDES_PAR_JOUR)) % SECONDES_PAR_JOUR;
    return QTime(0, 0).addSecs(secondes);
}

QTime arrondieALaSeconde(const QTime &heure)
{
    constexpr double MILLISECONDES_PAR_JOUR = 86400000.0;
    return heureDeFraction(heure.msecsSinceStartOfDay() / MILLISECONDES_PAR_JOUR);
}

std::optional<QDate> dateDeTexte(const QString &texte)
{
    static const QRegularExpression francaise(QStringLiteral(R"(\A(\d{1,2})/(\d{1,2})/(\d{4}|\d{2})\z)"));
    static const QRegularExpression iso(QStringLiteral(R"(\A(\d{4})-(\d{1,2})-(\d{1,2})\z)"));
    QDate date;
    if (const auto m = francaise.match(texte); m.hasMatch()) {
        int annee = m.captured(3).toInt();
        if (m.capturedLength(3) == 2)
            annee += annee < 30 ? 2000 : 1900;
        date = QDate(annee, m.captured(2).toInt(), m.captured(1).toInt());
    } else if (const auto n = iso.match(texte); n.hasMatch()) {
        date = QDate(n.captured(1).toInt(), n.captured(2).toInt(), n.captured(3).toInt());
    }
    return date.isValid() ? std::optional(date) : std::nullopt;
}

QString heureDeTexte(const QString &texte)
{
    static const QRegularExpression forme(QStringLiteral(R"(\A(\d{1,2}):(\d{2})(?::(\d{2}))?\z)"));
    const auto m = forme.match(texte);
    if (!m.hasMatch())
        return texte;
    const QString complete = m.captured(1).rightJustified(2, u'0') + u':' + m.captured(2) + u':' +
                             (m.capturedLength(3) > 0 ? m.captured(3) : QStringLiteral("00"));
    return M_Variables_OVRA::HeureValide(complete) ? complete : texte;
}
} // namespace

QString CelluleImport::rogner(const QString &texte)
{
    qsizetype debut = 0;
    qsizetype fin = texte.size();
    while (debut < fin && estBlanc(texte[debut]))
        ++debut;
    while (fin > debut && estBlanc(texte[fin - 1]))
        --fin;
    return texte.mid(debut, fin - debut);
}

bool CelluleImport::estErreur(const QVariant &cellule)
{
    return cellule.canConvert<ErreurCellule>();
}

QString CelluleImport::texte(const QVariant &cellule)
{
    if (estErreur(cellule))
        return cellule.value<ErreurCellule>().signe;
    switch (cellule.typeId()) {
    case QMetaType::Double:
        return texteNombre(cellule.toDouble());
    case QMetaType::QDateTime:
        return texteMoment(cellule.toDateTime());
    case QMetaType::QTime:
        return texteHeure(arrondieALaSeconde(cellule.toTime()));
    default:
        return rogner(cellule.toString());
    }
}

std::optional<QDate> CelluleImport::date(const QVariant &cellule)
{
    std::optional<QDate> lue;
    if (cellule.typeId() == QMetaType::QDateTime)
        lue = cellule.toDateTime().date();
    else if (cellule.typeId() == QMetaType::QString)
        lue = dateDeTexte(rogner(cellule.toString()));
    if (!lue || !lue->isValid() || lue->year() < PREMIERE_ANNEE || lue->year() > DERNIERE_ANNEE)
        return std::nullopt;
    return lue;
}

QString CelluleImport::heure(const QVariant &cellule)
{
    switch (cellule.typeId()) {
    case QMetaType::QTime:
        return texteHeure(arrondieALaSeconde(cellule.toTime()));
    case QMetaType::QDateTime:
        return texteHeure(arrondieALaSeconde(cellule.toDateTime().time()));
    case QMetaType::Double:
        if (const double fraction = cellule.toDouble(); fraction >= 0 && fraction < 1)
            return texteHeure(heureDeFraction(fraction));
        return texte(cellule);
    default:
        return heureDeTexte(texte(cellule));
    }
}

std::optional<double> CelluleImport::nombre(const QVariant &cellule)
{
    double lu = 0;
    if (cellule.typeId() == QMetaType::Double) {
        lu = VersNombre(cellule);
    } else if (cellule.typeId() == QMetaType::QString) {
        const QString valeur = rogner(cellule.toString());
        if (!EstNumerique(valeur))
            return std::nullopt;
        lu = VersNombre(valeur);
    } else {
        return std::nullopt;
    }
    if (!std::isfinite(lu) || std::abs(lu) > PLUS_GRAND_NOMBRE)
        return std::nullopt;
    return lu;
}
