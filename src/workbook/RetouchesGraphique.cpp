#include "workbook/RetouchesGraphique.h"

#include "workbook/FichierCompose.h"
#include "workbook/PaletteParDefaut.h"

#include <algorithm>
#include <QFile>
#include <QtEndian>

namespace
{
enum Enregistrement : quint16 {
    FIN = 0x000A,
    PROTECTION = 0x0012,
    FENETRE_CLASSEUR = 0x003D,
    FEUILLE = 0x0085,
    FENETRE_FEUILLE = 0x023E,
    FORMAT = 0x041E,
    DEBUT = 0x0809,
    SERIE = 0x1003,
    FORMAT_DONNEES = 0x1006,
    TRAIT = 0x1007,
    MARQUEUR = 0x1009,
    AXE = 0x101D,
    GRADUATIONS = 0x101E,
    CATEGORIES = 0x1020,
    OUVRANT = 0x1033,
    FERMANT = 0x1034,
    EXCEPTION_LEGENDE = 0x1043,
    FORMAT_AXE = 0x104E,
    LIEN = 0x1051
};
constexpr int EN_TETE = 4;
constexpr quint16 TOUTE_LA_SERIE = 0xFFFF;
// In place of a point's number.
constexpr int ENTIERE = -1;
constexpr int AUCUN = -2;

class Retoucheur
{
public:
    Retoucheur(QByteArray &flux, const RetouchesClasseur &retouches, Ajouts ajouts)
        : m_flux(flux), m_retouches(retouches), m_ajouts(ajouts)
    {
    }

    bool retoucher()
    {
        if (!lireEnTete())
            return false;
        for (qsizetype i = 0; i < m_feuilles.size(); ++i) {
            if (concernee(static_cast<int>(i)) && !retoucherFeuille(static_cast<int>(i)))
                return false;
        }
        return true;
    }

private:
    template <class T> T nombre(qsizetype place) const
    {
        return qFromLittleEndian<T>(m_flux.constData() + place);
    }
    template <class T> void ecrire(qsizetype place, T valeur)
    {
        qToLittleEndian(valeur, m_flux.data() + place);
    }
    void ecrire16(qsizetype place, quint16 valeur) { ecrire(place, valeur); }
    // The record at this place is wholly there.
    bool entier(qsizetype place) const
    {
        return place >= 0 && place + EN_TETE <= m_flux.size() &&
               place + EN_TETE + nombre<quint16>(place + 2) <= m_flux.size();
    }
    quint16 genre(qsizetype place) const { return nombre<quint16>(place); }
    quint16 taille(qsizetype place) const { return nombre<quint16>(place + 2); }
    qsizetype suivant(qsizetype place) const { return place + EN_TETE + taille(place); }

    bool concernee(int feuille) const
    {
        const auto &graphiques = m_retouches.graphiques;
        return m_retouches.feuilleActive >= 0 || m_retouches.premieresColonnes.contains(feuille) ||
               std::any_of(graphiques.begin(), graphiques.end(),
                           [feuille](const auto &r) { return r->feuille == feuille && !r->vide(); });
    }

    bool lireEnTete()
    {
        for (qsizetype place = 0; entier(place); place = suivant(place)) {
            const qsizetype donnees = place + EN_TETE;
            if (genre(place) == FIN)
                return true;
            if (genre(place) == FENETRE_CLASSEUR && taille(place) >= 12 && m_retouches.feuilleActive >= 0)
                ecrire16(donnees + 10, static_cast<quint16>(m_retouches.feuilleActive));
            else if (genre(place) == FEUILLE && taille(place) >= 4) {
                m_feuilles.append(nombre<quint32>(donnees));
                m_lieuxFeuilles.append(donnees);
            } else if (genre(place) == FORMAT && taille(place) > 5)
                m_formats.insert(texteFormat(donnees), nombre<quint16>(donnees));
        }
        return false;
    }

    QString texteFormat(qsizetype donnees) const
    {
        const int longueur = nombre<quint16>(donnees + 2);
        const bool large = m_flux.at(donnees + 4) & 1;
        QString texte;
        for (qsizetype i = 0; i < longueur && donnees + 5 + (i + 1) * (large ? 2 : 1) <= m_flux.size(); ++i)
            texte +=
                large ? QChar(nombre<quint16>(donnees + 5 + 2 * i)) : QLatin1Char(m_flux.at(donnees + 5 + i));
        return simplifier(texte);
    }
    static QString simplifier(const QString &format)
    {
        return QString(format).remove(QLatin1Char('\\')).toLower();
    }

    // The charts of a sheet are streams within its own, in the order in which they are drawn.
    bool retoucherFeuille(int numero)
    {
        int profondeur = 0;
        int rang = 0;
        for (qsizetype place = m_feuilles.at(numero); entier(place); place = suivant(place)) {
            if (genre(place) == DEBUT && ++profondeur == 2) {
                for (const auto &retouche : m_retouches.graphiques)
                    if (retouche->feuille == numero && retouche->rang == rang &&
                        !retoucherGraphique(place, *retouche))
                        return false;
                ++rang;
            }
            if (genre(place) == FENETRE_FEUILLE && profondeur == 1 && taille(place) >= 6)
                retoucherFenetre(place + EN_TETE, numero);
            if (genre(place) == FIN && --profondeur == 0)
                return true;
        }
        return false;
    }

    void retoucherFenetre(qsizetype donnees, int numero)
    {
        constexpr quint16 CHOISIE_ET_DEVANT = 0x0600;
        const auto drapeaux = nombre<quint16>(donnees);
        if (m_retouches.feuilleActive >= 0)
            ecrire16(donnees, static_cast<quint16>(numero == m_retouches.feuilleActive
                                                       ? drapeaux | CHOISIE_ET_DEVANT
                                                       : drapeaux & ~CHOISIE_ET_DEVANT));
        if (const auto colonne = m_retouches.premieresColonnes.constFind(numero);
            colonne != m_retouches.premieresColonnes.constEnd())
            ecrire16(donnees + 4, static_cast<quint16>(*colonne));
    }

    bool retoucherGraphique(qsizetype debut, const RetouchesGraphique &retouche)
    {
        qsizetype fin = debut;
        while (entier(fin) && genre(fin) != FIN) {
            const qsizetype place = fin;
            fin = suivant(fin);
            if (genre(place) == SERIE && !retouche.series.isEmpty() && !retoucherSerie(fin, retouche))
                return false;
            constexpr int DRAPEAUX = 6; // among them, the lowest: between categories
            if (genre(place) == CATEGORIES && retouche.entreCategories && taille(place) >= DRAPEAUX + 2)
                ecrire16(place + EN_TETE + DRAPEAUX, nombre<quint16>(place + EN_TETE + DRAPEAUX) | 1);
        }
        if (!entier(fin))
            return false;
        if (const auto format = m_formats.constFind(simplifier(retouche.formatCategories));
            format != m_formats.constEnd())
            donnerFormat(debut, fin, *format);
        return true;
    }

    // `place`: what follows the record of the series.
    bool retoucherSerie(qsizetype place, const RetouchesGraphique &retouche)
    {
        const RetouchesSerie *siennes = nullptr;
        int profondeur = 0;
        bool horsLegende = false;
        int point = AUCUN; // whose format is being read
        QByteArray trait;  // the series' line, which comes before those of its points
        for (; entier(place); place = suivant(place)) {
            const qsizetype donnees = place + EN_TETE;
            const quint16 octets = taille(place);
            switch (genre(place)) {
            case OUVRANT:
                ++profondeur;
                break;
            case FERMANT:
                if (--profondeur == 0) {
                    if (siennes && siennes->horsLegende && !horsLegende && m_ajouts == Ajouts::Oui)
                        oterDeLaLegende(place);
                    return true;
                }
                if (profondeur == 1)
                    point = AUCUN;
                break;
            case LIEN:
                if (const auto lieu = valeursLiees(donnees, octets))
                    for (const auto &serie : retouche.series)
                        if (serie->valeurs == lieu)
                            siennes = serie.get();
                break;
            case EXCEPTION_LEGENDE:
                horsLegende = horsLegende || profondeur == 1;
                break;
            case FORMAT_DONNEES:
                if (octets >= 2) {
                    const auto numero = nombre<quint16>(donnees);
                    point = numero == TOUTE_LA_SERIE ? ENTIERE : static_cast<int>(numero);
                }
                break;
            case TRAIT:
                if (point == ENTIERE)
                    trait = m_flux.mid(donnees, octets);
                else if (siennes && siennes->points.contains(point) && trait.size() == octets)
                    m_flux.replace(donnees, octets, trait);
                break;
            case MARQUEUR:
                if (siennes && octets >= 16)
                    retoucherMarqueur(donnees, *siennes, point);
                break;
            default:
                break;
            }
        }
        return false;
    }

    // `place`: the end of the series' records.
    void oterDeLaLegende(qsizetype place)
    {
        constexpr quint16 OTEE = 1;
        QByteArray exception(EN_TETE + 4, '\0');
        qToLittleEndian<quint16>(EXCEPTION_LEGENDE, exception.data());
        qToLittleEndian<quint16>(4, exception.data() + 2);
        qToLittleEndian(TOUTE_LA_SERIE, exception.data() + EN_TETE);
        qToLittleEndian(OTEE, exception.data() + EN_TETE + 2);
        m_flux.insert(place, exception);
        decaler(static_cast<quint32>(place), static_cast<quint32>(exception.size()));
    }

    // After an insertion: the sheets that begin behind it. The filter gives no other place in the stream (no index of rows).
    void decaler(quint32 place, quint32 octets)
    {
        for (qsizetype i = 0; i < m_feuilles.size(); ++i) {
            if (m_feuilles.at(i) < place)
                continue;
            m_feuilles[i] += octets;
            ecrire(m_lieuxFeuilles.at(i), m_feuilles.at(i));
        }
    }

    // The range of the values that a link record (BRAI) gives; nothing for another link.
    std::optional<RectangleCellules> valeursLiees(qsizetype donnees, quint16 octets) const
    {
        constexpr char VALEURS = 1;
        constexpr int DEBUT_FORMULE = 8;
        if (octets < DEBUT_FORMULE + 7 || m_flux.at(donnees) != VALEURS)
            return std::nullopt;
        const qsizetype formule = donnees + DEBUT_FORMULE;
        const auto champ = [&](int rang) {
            return static_cast<int>(nombre<quint16>(formule + 3 + 2 * rang));
        };
        constexpr int COLONNE = 0xFF; // flags stand above
        const int jeton = m_flux.at(formule) & 0x1F;
        if (jeton == 0x1A)
            return RectangleCellules{champ(0), champ(1) & COLONNE, champ(0), champ(1) & COLONNE};
        if (jeton == 0x1B && octets >= DEBUT_FORMULE + 11)
            return RectangleCellules{champ(0), champ(2) & COLONNE, champ(1), champ(3) & COLONNE};
        return std::nullopt;
    }

    void retoucherMarqueur(qsizetype donnees, const RetouchesSerie &siennes, int point)
    {
        std::optional<RetoucheMarqueur> voulu;
        if (point == ENTIERE)
            voulu = siennes.serie;
        else if (siennes.points.contains(point))
            voulu = siennes.points.value(point);
        if (!voulu)
            return;
        constexpr quint16 SANS_FOND = 0x10;
        if (voulu->bord)
            colorer(donnees, donnees + 12, *voulu->bord);
        if (voulu->fond)
            colorer(donnees + 4, donnees + 14, *voulu->fond);
        if (voulu->sansFond)
            ecrire16(donnees + 10, nombre<quint16>(donnees + 10) | SANS_FOND);
    }

    void colorer(qsizetype couleur, qsizetype index, int rvb)
    {
        m_flux[couleur] = static_cast<char>(rvb >> 16);
        m_flux[couleur + 1] = static_cast<char>(rvb >> 8);
        m_flux[couleur + 2] = static_cast<char>(rvb);
        constexpr int PREMIERE = 8; // the format counts the palette from here
        for (int i = 1; i <= COULEURS_PAR_DEFAUT; ++i)
            if (couleurParDefaut(i) == rvb) {
                ecrire16(index, static_cast<quint16>(PREMIERE + i - 1));
                return;
            }
    }

    // The axis' format takes the room of the chart's protection record, which says nothing.
    void donnerFormat(qsizetype debut, qsizetype fin, quint16 format)
    {
        qsizetype protection = -1;
        qsizetype axe = -1;
        for (qsizetype place = debut; place < fin; place = suivant(place)) {
            if (genre(place) == PROTECTION && taille(place) == 2)
                protection = place;
            if (genre(place) == AXE && axe < 0 && taille(place) >= 2 && nombre<quint16>(place + EN_TETE) == 0)
                axe = place;
            if (axe < 0)
                continue;
            if (genre(place) == FORMAT_AXE && taille(place) == 2) {
                ecrire16(place + EN_TETE, format);
                return;
            }
            if (genre(place) == GRADUATIONS && protection >= 0) {
                constexpr int OCTETS = EN_TETE + 2;
                QByteArray enregistrement(OCTETS, '\0');
                qToLittleEndian<quint16>(FORMAT_AXE, enregistrement.data());
                qToLittleEndian<quint16>(2, enregistrement.data() + 2);
                qToLittleEndian(format, enregistrement.data() + EN_TETE);
                m_flux.insert(place, enregistrement);
                m_flux.remove(protection, OCTETS);
                return;
            }
            if (genre(place) == FERMANT)
                return;
        }
    }

    QByteArray &m_flux;
    const RetouchesClasseur &m_retouches;
    Ajouts m_ajouts;
    QVector<quint32> m_feuilles;        // where each begins
    QVector<qsizetype> m_lieuxFeuilles; // where that is written
    QHash<QString, quint16> m_formats;
};
} // namespace

bool RetouchesGraphique::vide() const
{
    return formatCategories.isEmpty() && !entreCategories &&
           std::all_of(series.begin(), series.end(), [](const auto &serie) {
               return !serie->horsLegende && !serie->serie && serie->points.isEmpty();
           });
}

bool RetouchesClasseur::vide() const
{
    return premieresColonnes.isEmpty() && feuilleActive < 0 &&
           std::all_of(graphiques.begin(), graphiques.end(), [](const auto &r) { return r->vide(); });
}

bool retoucherClasseur(QByteArray &flux, const RetouchesClasseur &retouches, Ajouts ajouts)
{
    return Retoucheur(flux, retouches, ajouts).retoucher();
}

bool retoucherFichier(const QString &chemin, const RetouchesClasseur &retouches)
{
    QFile fichier(chemin);
    FichierCompose compose;
    QByteArray flux;
    const QString nom = QStringLiteral("Workbook");
    if (!fichier.open(QIODevice::ReadWrite) || !compose.lire(fichier) ||
        !compose.flux(nom, fichier.size(), flux))
        return false;
    QByteArray retouche = flux;
    if (!retoucherClasseur(retouche, retouches))
        return false;
    if (compose.remplacer(nom, retouche))
        return true;
    return retouche.size() > flux.size() && retoucherClasseur(flux, retouches, Ajouts::Non) &&
           compose.remplacer(nom, flux);
}
