#include "capture/EcritureSerie.h"

#include "database/TableTravail.h"
#include "workbook/Feuille.h"

namespace
{
constexpr int LIGNE_TITRE = 1;
constexpr int LIGNE_STATION = 3;
constexpr int LIGNE_INTITULES = 5;
constexpr int PREMIERE_LIGNE = 6;
constexpr int COLONNES_EN_TETE = 4;

constexpr int LARGEUR_COLONNE = 4200; // hundredths of a millimetre
constexpr int LARGEUR_NOM = 9000;
constexpr int FOND_INTITULES = 33; // as in the reports

// A date of the store becomes a date of the sheet; a text that is none, as old files have, stays one.
QVariant pourLaFeuille(const QVariant &valeur)
{
    if (valeur.isNull() || valeur.typeId() != QMetaType::QString)
        return valeur;
    const QString texte = valeur.toString();
    const QDate date = QDate::fromString(texte.left(10), Qt::ISODate);
    if (date.isValid())
        return date;
    const QTime heure = QTime::fromString(texte, QStringLiteral("hh:mm:ss"));
    return heure.isValid() ? QVariant(heure) : valeur;
}

void ecrireTexte(Feuille &feuille, int ligne, int colonne, const QString &texte)
{
    Plage cellule = feuille.cellule(ligne, colonne);
    cellule.formatNombre(QStringLiteral("@"));
    cellule.ecrire(texte);
}
} // namespace

void ecrireSerie(Feuille &feuille, const EnTeteSerie &enTete, const TableTravail &lignes)
{
    feuille.cellule(LIGNE_TITRE, 1).ecrire(enTete.titre);
    Plage titre = feuille.cellule(LIGNE_TITRE, 1);
    titre.gras(true);
    titre.taillePolice(13);
    feuille.cellule(LIGNE_STATION, 1).ecrire(enTete.libelleCode);
    ecrireTexte(feuille, LIGNE_STATION, 2, enTete.code);
    if (!enTete.libelleNom.isEmpty()) {
        feuille.cellule(LIGNE_STATION, 3).ecrire(enTete.libelleNom);
        ecrireTexte(feuille, LIGNE_STATION, COLONNES_EN_TETE, enTete.nom);
    }

    const int colonnes = lignes.columnCount();
    const int mesures = lignes.rowCount();
    Valeurs intitules(1);
    for (int j = 0; j < colonnes; ++j)
        intitules[0] << lignes.colonne(j).titre;
    Plage bandeau = feuille.plage(LIGNE_INTITULES, 1, LIGNE_INTITULES, colonnes);
    bandeau.ecrire(intitules);
    bandeau.gras(true);
    bandeau.fond(FOND_INTITULES);
    bandeau.alignementHorizontal(Alignement::Centre);

    if (mesures > 0) {
        Valeurs valeurs(mesures);
        for (int i = 0; i < mesures; ++i)
            for (int j = 0; j < colonnes; ++j)
                valeurs[i] << pourLaFeuille(lignes.valeur(i, j));
        const int derniere = PREMIERE_LIGNE + mesures - 1;
        feuille.plage(PREMIERE_LIGNE, 1, derniere, 1).formatNombre(enTete.formatDates);
        feuille.plage(PREMIERE_LIGNE, 1, derniere, colonnes).ecrire(valeurs);
    }
    for (int j = 1; j <= colonnes; ++j)
        feuille.largeurColonne(j, LARGEUR_COLONNE);
    if (!enTete.libelleNom.isEmpty())
        feuille.largeurColonne(COLONNES_EN_TETE, LARGEUR_NOM);
    MiseEnPage page;
    page.premiereLigneRepetee = LIGNE_INTITULES;
    page.derniereLigneRepetee = LIGNE_INTITULES;
    page.piedDroite = QStringLiteral("Page &P / &N");
    feuille.mettreEnPage(page);
}
