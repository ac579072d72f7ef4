#include "database/jet/ValeurMagasin.h"

#include <charconv>
#include <cmath>
#include <QDate>
#include <QTime>

using ProtocoleJet::Valeur;

namespace
{
// Whole numbers up to here are exact in a double.
constexpr double ENTIER_EXACT = 9007199254740992.0;

bool entierExact(double v)
{
    return std::abs(v) <= ENTIER_EXACT && v == std::trunc(v);
}

void ecrire(double v, QByteArray &tampon)
{
    char texte[40];
    const auto resultat = entierExact(v) ? std::to_chars(texte, texte + sizeof texte, static_cast<qint64>(v))
                                         : std::to_chars(texte, texte + sizeof texte, v);
    tampon = QByteArray(texte, resultat.ptr - texte);
}

// Date and time together where both say something.
void ecrireDateHeure(const DateHeureJet &d, GenreMagasin genre, QByteArray &tampon)
{
    switch (genre) {
    case GenreMagasin::Date:
        tampon = d.date.toLatin1();
        return;
    case GenreMagasin::Heure:
        tampon = d.heure.toLatin1();
        return;
    default:
        if (d.sansDate && !d.minuit)
            tampon = d.heure.toLatin1();
        else
            tampon = (d.minuit ? d.date : d.date + u' ' + d.heure).toLatin1();
    }
}

bool ecrireDateTapee(const QString &texte, QByteArray &tampon)
{
    for (const char *format : {"dd/MM/yyyy", "d/M/yyyy", "yyyy-MM-dd"})
        if (const QDate date = QDate::fromString(texte, QLatin1String(format)); date.isValid()) {
            tampon = date.toString(Qt::ISODate).toLatin1();
            return true;
        }
    return false;
}

bool ecrireHeureTapee(const QString &texte, QByteArray &tampon)
{
    for (const char *format : {"HH:mm:ss", "HH:mm", "H:mm"})
        if (const QTime heure = QTime::fromString(texte, QLatin1String(format)); heure.isValid()) {
            tampon = heure.toString(Qt::ISODate).toLatin1();
            return true;
        }
    return false;
}

ValeurMagasin nombreTape(QByteArrayView texte, QByteArray &tampon)
{
    tampon = texte.trimmed().toByteArray();
    if (tampon.isEmpty())
        return {};
    tampon.replace(',', '.');
    bool nombre = false;
    const double v = tampon.toDouble(&nombre);
    if (!nombre)
        return texte;
    if (entierExact(v))
        return static_cast<qint64>(v);
    return v;
}

ValeurMagasin texteVers(QByteArrayView texte, GenreMagasin genre, QByteArray &tampon)
{
    switch (genre) {
    case GenreMagasin::Entier:
    case GenreMagasin::Reel:
    case GenreMagasin::Nombre:
    case GenreMagasin::OuiNon:
        return nombreTape(texte, tampon);
    case GenreMagasin::Date:
    case GenreMagasin::DateHeure:
        if (ecrireDateTapee(QString::fromUtf8(texte.trimmed()), tampon))
            return QByteArrayView(tampon);
        return texte.trimmed().isEmpty() ? ValeurMagasin() : texte;
    case GenreMagasin::Heure:
        if (ecrireHeureTapee(QString::fromUtf8(texte.trimmed()), tampon))
            return QByteArrayView(tampon);
        return texte.trimmed().isEmpty() ? ValeurMagasin() : texte;
    case GenreMagasin::Texte:
    case GenreMagasin::Octets:
        break;
    }
    return texte;
}
} // namespace

GenreMagasin genreMagasin(Schema::Genre genre)
{
    switch (genre) {
    case Schema::Genre::Texte:
    case Schema::Genre::Memo:
        return GenreMagasin::Texte;
    case Schema::Genre::Entier:
    case Schema::Genre::Octet:
    case Schema::Genre::NumeroAuto:
        return GenreMagasin::Entier;
    case Schema::Genre::Reel:
    case Schema::Genre::Simple:
        return GenreMagasin::Reel;
    case Schema::Genre::Date:
        return GenreMagasin::Date;
    case Schema::Genre::DateHeure:
        return GenreMagasin::DateHeure;
    case Schema::Genre::Heure:
        return GenreMagasin::Heure;
    case Schema::Genre::OuiNon:
        return GenreMagasin::OuiNon;
    }
    return GenreMagasin::Texte;
}

GenreMagasin genreMagasin(TypeJet type)
{
    switch (type) {
    case TypeJet::Booleen:
        return GenreMagasin::OuiNon;
    case TypeJet::Octet:
    case TypeJet::Entier:
    case TypeJet::EntierLong:
        return GenreMagasin::Entier;
    case TypeJet::Monetaire:
    case TypeJet::Simple:
    case TypeJet::Double:
        return GenreMagasin::Reel;
    case TypeJet::Numerique:
        return GenreMagasin::Nombre;
    case TypeJet::DateHeure:
        return GenreMagasin::DateHeure;
    case TypeJet::Texte:
    case TypeJet::Memo:
    case TypeJet::Guid:
        return GenreMagasin::Texte;
    case TypeJet::Binaire:
    case TypeJet::Ole:
        break;
    }
    return GenreMagasin::Octets;
}

ValeurMagasin versMagasin(const ValeurJet &valeur, GenreMagasin genre, QByteArray &tampon)
{
    switch (valeur.genre) {
    case Valeur::Nulle:
        return {};
    case Valeur::Entier:
        if (genre == GenreMagasin::OuiNon)
            return qint64{valeur.entier != 0 ? -1 : 0};
        if (genre != GenreMagasin::Texte)
            return valeur.entier;
        tampon = QByteArray::number(valeur.entier);
        return QByteArrayView(tampon);
    case Valeur::Reel:
    case Valeur::Simple:
        if (std::isnan(valeur.reel))
            return {};
        if (genre == GenreMagasin::OuiNon)
            return qint64{valeur.reel != 0 ? -1 : 0};
        if (genre == GenreMagasin::Texte) {
            ecrire(valeur.reel, tampon);
            return QByteArrayView(tampon);
        }
        if (genre == GenreMagasin::Entier && entierExact(valeur.reel))
            return static_cast<qint64>(valeur.reel);
        return valeur.reel;
    case Valeur::DateHeure: {
        const DateHeureJet d(valeur.reel);
        if (d.date.isEmpty())
            return {};
        ecrireDateHeure(d, genre, tampon);
        return QByteArrayView(tampon);
    }
    case Valeur::Vrai:
    case Valeur::Faux: {
        const qint64 v = valeur.genre == Valeur::Vrai ? -1 : 0;
        if (genre != GenreMagasin::Texte)
            return v;
        tampon = QByteArray::number(v);
        return QByteArrayView(tampon);
    }
    case Valeur::Texte:
        return texteVers(valeur.octets, genre, tampon);
    case Valeur::Octets:
        return OctetsMagasin{valeur.octets};
    }
    return {};
}
