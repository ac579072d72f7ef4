#include "analysis/CopieDonneesBrutes.h"

#include <algorithm>

namespace
{
// The rows of the rectangles as runs, in order, without overlap: first and last.
QList<QPair<int, int>> suites(const QList<PlageBrute> &plages)
{
    QList<QPair<int, int>> lignes;
    for (const PlageBrute &plage : plages)
        lignes << QPair(plage.premiereLigne, plage.derniereLigne);
    std::sort(lignes.begin(), lignes.end());
    QList<QPair<int, int>> resultat;
    for (const auto &[premiere, derniere] : std::as_const(lignes)) {
        if (resultat.isEmpty() || premiere > resultat.last().second + 1)
            resultat << QPair(premiere, derniere);
        else
            resultat.last().second = std::max(resultat.last().second, derniere);
    }
    return resultat;
}

bool tientEnUneCellule(const QString &texte)
{
    return !texte.contains(u'\t') && !texte.contains(u'\n') && !texte.contains(u'\r');
}

QString cellule(QString texte)
{
    if (tientEnUneCellule(texte))
        return texte;
    texte.replace(QLatin1String("\r\n"), QLatin1String(" "));
    for (const char16_t separateur : {u'\t', u'\n', u'\r'})
        texte.replace(QChar(separateur), u' ');
    return texte;
}
} // namespace

qsizetype CopieDonneesBrutes::nombreLignes(const QList<PlageBrute> &plages)
{
    qsizetype nombre = 0;
    const auto toutes = suites(plages);
    for (const auto &[premiere, derniere] : toutes)
        nombre += derniere - premiere + 1;
    return nombre;
}

QString CopieDonneesBrutes::texte(LignesDonneesBrutes &lignes, const QList<PlageBrute> &plages)
{
    QList<ColonneBrute> colonnes;
    for (const ColonneBrute colonne : ColonnesBrutes::toutes()) {
        const int rang = static_cast<int>(colonne);
        if (std::any_of(plages.begin(), plages.end(), [rang](const PlageBrute &p) {
                return rang >= p.premiereColonne && rang <= p.derniereColonne;
            }))
            colonnes << colonne;
    }
    if (colonnes.isEmpty())
        return {};
    QString texte;
    QStringList cellules;
    for (const ColonneBrute colonne : std::as_const(colonnes))
        cellules << ColonnesBrutes::titre(colonne);
    texte += cellules.join(u'\t') + u'\n';

    constexpr int LIGNES_PAR_LECTURE = 1000;
    const auto toutes = suites(plages);
    for (const auto &[premiere, derniere] : toutes) {
        for (int debut = premiere; debut <= derniere; debut += LIGNES_PAR_LECTURE) {
            const QList<LigneBrute> lues =
                lignes.lire(debut, std::min(LIGNES_PAR_LECTURE, derniere - debut + 1));
            for (qsizetype i = 0; i < lues.size(); ++i) {
                const int rangLigne = debut + static_cast<int>(i);
                cellules.clear();
                for (const ColonneBrute colonne : std::as_const(colonnes)) {
                    const bool choisie = std::any_of(plages.begin(), plages.end(), [&](const PlageBrute &p) {
                        return p.contient(rangLigne, static_cast<int>(colonne));
                    });
                    cellules << (choisie ? cellule(lues[i].texte(colonne)) : QString());
                }
                texte += cellules.join(u'\t') + u'\n';
            }
        }
    }
    return texte;
}
