#include "database/M_Sandrification.h"

#include <QStringView>

namespace
{
struct Paire {
    QStringView code;
    QStringView libelle;
};

constexpr Paire PROTOCOLES[] = {{u"1", u"Suivi calendaire"}, {u"2", u"Suivi pluie"}};
constexpr Paire NATURES[] = {{u"CHI", u"Chimique"},        {u"ENV", u"Environnemental"},
                             {u"HYD", u"Hydrobiologique"}, {u"MIC", u"Microbiologique"},
                             {u"PHY", u"Physique"},        {u"SYN", u"Synthétique"}};
constexpr Paire LIEUX[] = {{u"1", u"In situ"}, {u"2", u"Laboratoire"}, {u"3", u"Sans objet"}};
constexpr Paire NATURES_STATION[] = {{u"A", u"Automatique"}, {u"M", u"Manuelle"}};

template <std::size_t N> QString codeDe(const Paire (&paires)[N], const QString &libelle, QStringView sinon)
{
    for (const Paire &p : paires)
        if (p.libelle == libelle)
            return p.code.toString();
    return sinon.toString();
}

template <std::size_t N> QString libelleDe(const Paire (&paires)[N], const QString &code, QStringView sinon)
{
    for (const Paire &p : paires)
        if (p.code == code)
            return p.libelle.toString();
    return sinon.toString();
}
} // namespace

int M_Sandrification::CodeProtocole(const QString &libelle)
{
    return codeDe(PROTOCOLES, libelle, u"0").toInt();
}

QString M_Sandrification::LibelleProtocole(const QString &code)
{
    return libelleDe(PROTOCOLES, code, u"Non spécifié");
}

QString M_Sandrification::CodeNature(const QString &libelle)
{
    return codeDe(NATURES, libelle, u" ");
}

QString M_Sandrification::LibelleNature(const QString &code)
{
    return libelleDe(NATURES, code, u" ");
}

QString M_Sandrification::CodeLieuAnalyse(const QString &libelle)
{
    return codeDe(LIEUX, libelle, u"0");
}

QString M_Sandrification::LibelleLieuAnalyse(const QString &code)
{
    return libelleDe(LIEUX, code, u"Localisation inconnue");
}

QString M_Sandrification::CodeNatureStation(const QString &libelle)
{
    return codeDe(NATURES_STATION, libelle, u"0");
}

QString M_Sandrification::LibelleNatureStation(const QString &code)
{
    return libelleDe(NATURES_STATION, code, u" ");
}
