#include "analysis/OrdreDonneesBrutes.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numeric>

namespace
{
// Orders doubles as unsigned numbers: a positive one after every negative one, these the other way round. 0 is free for
// what is no number, as no finite number gives it.
quint64 cleDeNombre(double nombre)
{
    constexpr quint64 SIGNE = quint64(1) << 63;
    if (std::isnan(nombre))
        return 0;
    const auto bits = std::bit_cast<quint64>(nombre == 0 ? 0.0 : nombre); // -0 is 0
    return bits & SIGNE ? ~bits : bits | SIGNE;
}

quint64 rangDe(const QList<quint32> &rangs, int numero)
{
    return numero < 0 ? 0 : rangs.at(numero);
}

template <typename F> std::vector<quint64> parPrelevement(const JeuDonneesBrutes &jeu, F cle)
{
    std::vector<quint64> deChacun(jeu.prelevements.size());
    std::transform(jeu.prelevements.begin(), jeu.prelevements.end(), deChacun.begin(), cle);
    std::vector<quint64> cles(jeu.resultats.size());
    std::transform(jeu.resultats.begin(), jeu.resultats.end(), cles.begin(),
                   [&](const JeuDonneesBrutes::Resultat &r) {
                       return r.prelevement < 0 ? 0 : deChacun[static_cast<std::size_t>(r.prelevement)];
                   });
    return cles;
}

std::vector<quint64> parParametre(const JeuDonneesBrutes &jeu, const QList<quint32> &rangs)
{
    std::vector<quint64> cles(jeu.resultats.size());
    std::transform(jeu.resultats.begin(), jeu.resultats.end(), cles.begin(),
                   [&](const JeuDonneesBrutes::Resultat &r) { return rangDe(rangs, r.parametre); });
    return cles;
}

QList<quint32> rangsDesUnites(const JeuDonneesBrutes &jeu)
{
    QList<QString> unites;
    for (int i = 0; i < jeu.parametres.taille(); ++i)
        unites << jeu.unite(i);
    return Lexique::rangs(unites);
}
} // namespace

std::vector<quint64> OrdreDonneesBrutes::cles(const JeuDonneesBrutes &jeu, ColonneBrute colonne)
{
    using Prelevement = JeuDonneesBrutes::Prelevement;
    const auto parTexte = [&jeu](const Lexique &lexique, Lexique::Par par, int Prelevement::*membre) {
        const QList<quint32> rangs = lexique.rangs(par);
        return parPrelevement(jeu, [&](const Prelevement &p) { return rangDe(rangs, p.*membre); });
    };
    switch (colonne) {
    case ColonneBrute::CodeStation:
        return parTexte(jeu.stations, Lexique::Par::Code, &Prelevement::station);
    case ColonneBrute::Station:
        return parTexte(jeu.stations, Lexique::Par::Libelle, &Prelevement::station);
    case ColonneBrute::Date:
        return parPrelevement(jeu, [](const Prelevement &p) { return static_cast<quint64>(p.jour); });
    case ColonneBrute::Heure:
        return parPrelevement(jeu, [](const Prelevement &p) { return static_cast<quint64>(p.heure + 1); });
    case ColonneBrute::Preleveur:
        return parTexte(jeu.preleveurs, Lexique::Par::Libelle, &Prelevement::preleveur);
    case ColonneBrute::Reseaux:
        return parTexte(jeu.reseaux, Lexique::Par::Libelle, &Prelevement::reseaux);
    case ColonneBrute::CodeParametre:
        return parParametre(jeu, jeu.parametres.rangs(Lexique::Par::Code));
    case ColonneBrute::Parametre:
        return parParametre(jeu, jeu.parametres.rangs(Lexique::Par::Libelle));
    case ColonneBrute::Unite:
        return parParametre(jeu, rangsDesUnites(jeu));
    case ColonneBrute::Resultat: {
        std::vector<quint64> cles(jeu.valeurs.size());
        std::transform(jeu.valeurs.begin(), jeu.valeurs.end(), cles.begin(), cleDeNombre);
        return cles;
    }
    case ColonneBrute::Remarque:
    case ColonneBrute::Fraction:
    case ColonneBrute::Gestionnaire:
    case ColonneBrute::Laboratoire:
        break;
    }
    const auto &attribut = jeu.attributs[static_cast<std::size_t>(JeuDonneesBrutes::rangAttribut(colonne))];
    const QList<quint32> rangs = attribut.lexique.rangs(Lexique::Par::Libelle);
    std::vector<quint64> cles(attribut.numeros.size());
    std::transform(attribut.numeros.begin(), attribut.numeros.end(), cles.begin(),
                   [&](int numero) { return rangDe(rangs, numero); });
    return cles;
}

// A radix sort, least significant part first: each pass is stable, and a part that is the same in every key costs none.
std::vector<quint32> OrdreDonneesBrutes::ordonner(std::vector<quint64> cles, bool decroissant)
{
    constexpr int BITS = 16;
    constexpr quint64 MASQUE = (quint64(1) << BITS) - 1;
    std::vector<quint32> ordre(cles.size());
    std::iota(ordre.begin(), ordre.end(), 0);
    if (cles.empty())
        return ordre;
    if (decroissant)
        std::transform(cles.begin(), cles.end(), cles.begin(), [](quint64 cle) { return ~cle; });
    quint64 differences = 0;
    for (const quint64 cle : cles)
        differences |= cle ^ cles.front();

    std::vector<quint32> suivant(ordre.size());
    for (int decalage = 0; decalage < 64; decalage += BITS) {
        if (((differences >> decalage) & MASQUE) == 0)
            continue;
        std::vector<quint32> debuts(MASQUE + 2);
        for (const quint64 cle : cles)
            ++debuts[((cle >> decalage) & MASQUE) + 1];
        std::partial_sum(debuts.begin(), debuts.end(), debuts.begin());
        for (const quint32 place : ordre)
            suivant[debuts[(cles[place] >> decalage) & MASQUE]++] = place;
        ordre.swap(suivant);
    }
    return ordre;
}
