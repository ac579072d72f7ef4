#include "analysis/JeuDonneesBrutes.h"

namespace
{
// The number that stands at this place of a text in so many digits; -1 where they are none.
int chiffres(QByteArrayView texte, qsizetype debut, qsizetype nombre)
{
    int valeur = 0;
    for (qsizetype i = debut; i < debut + nombre; ++i) {
        if (texte[i] < '0' || texte[i] > '9')
            return -1;
        valeur = valeur * 10 + (texte[i] - '0');
    }
    return valeur;
}
} // namespace

int JeuDonneesBrutes::rangAttribut(ColonneBrute colonne)
{
    for (std::size_t i = 0; i < ATTRIBUTS.size(); ++i)
        if (ATTRIBUTS[i] == colonne)
            return static_cast<int>(i);
    return -1;
}

bool JeuDonneesBrutes::colonneLue(ColonneBrute colonne) const
{
    if (colonne == ColonneBrute::Resultat)
        return valeurs.size() == resultats.size();
    const int rang = rangAttribut(colonne);
    return rang < 0 || attributs[static_cast<std::size_t>(rang)].numeros.size() == resultats.size();
}

int JourBrut::lire(QByteArrayView iso)
{
    if (iso.size() < 10 || iso[4] != '-' || iso[7] != '-')
        return 0;
    const int annee = chiffres(iso, 0, 4);
    const int mois = chiffres(iso, 5, 2);
    const int jour = chiffres(iso, 8, 2);
    return annee < 0 || mois < 1 || mois > 12 || jour < 1 || jour > 31 ? 0
                                                                       : annee * 10'000 + mois * 100 + jour;
}

int JourBrut::deDate(QDate date)
{
    return date.isValid() ? date.year() * 10'000 + date.month() * 100 + date.day() : 0;
}

QDate JourBrut::date(int jour)
{
    return jour > 0 ? QDate(jour / 10'000, jour / 100 % 100, jour % 100) : QDate();
}

int JourBrut::lireHeure(QByteArrayView texte)
{
    if (texte.size() != 8 || texte[2] != ':' || texte[5] != ':')
        return -1;
    const QTime heure(chiffres(texte, 0, 2), chiffres(texte, 3, 2), chiffres(texte, 6, 2));
    return heure.isValid() ? QTime(0, 0).secsTo(heure) : -1;
}

QTime JourBrut::heure(int secondes)
{
    return secondes < 0 ? QTime() : QTime(0, 0).addSecs(secondes);
}
