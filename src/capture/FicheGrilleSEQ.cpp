#include "capture/FicheGrilleSEQ.h"

#include <algorithm>

const DescriptionFiche &Fiches::grilleSEQ()
{
    static const DescriptionFiche description{
        .table = QStringLiteral("GRILLE_SEQ"),
        .critere = QStringLiteral("CodeParam"),
        .champs = {{QStringLiteral("txt_valeur1"), QStringLiteral("Valeur1SEQ"),
                    QStringLiteral("La valeur du bleu")},
                   {QStringLiteral("txt_valeur2"), QStringLiteral("Valeur2SEQ"),
                    QStringLiteral("La valeur du vert")},
                   {QStringLiteral("txt_valeur3"), QStringLiteral("Valeur3SEQ"),
                    QStringLiteral("La valeur du jaune")},
                   {QStringLiteral("txt_valeur4"), QStringLiteral("Valeur4SEQ"),
                    QStringLiteral("La valeur de l'orange")},
                   {QStringLiteral("cmb_param"), QStringLiteral("CodeParam"),
                    QStringLiteral("Le paramètre de la grille"),
                    QStringLiteral("Le paramètre de la grille doit être renseigné.")}},
        .objet = QStringLiteral("La grille SEQ"),
        .feminin = true,
        .fin = QStringLiteral(
            "L'enregistrement de la grille SEQ a été effectué. Désirez-vous en effectuer un autre?")};
    return description;
}

int FicheGrilleSEQ::borneEnFaute(const Bornes &bornes)
{
    const auto absente = std::find(bornes.begin(), bornes.end(), std::nullopt);
    if (absente != bornes.end())
        return static_cast<int>(absente - bornes.begin());
    const auto palier = std::adjacent_find(bornes.begin(), bornes.end(),
                                           [](const auto &a, const auto &b) { return *a >= *b; });
    return palier == bornes.end() ? -1 : static_cast<int>(palier - bornes.begin()) + 1;
}

QString FicheGrilleSEQ::faute(const Bornes &bornes)
{
    if (std::find(bornes.begin(), bornes.end(), std::nullopt) != bornes.end())
        return QStringLiteral("Les valeurs de la grille doivent être renseignées. ");
    if (borneEnFaute(bornes) >= 0)
        return QStringLiteral(
            "Les valeurs de la grille doivent être dans l'ordre croissant en allant du BLEU vers le ROUGE. ");
    return {};
}
