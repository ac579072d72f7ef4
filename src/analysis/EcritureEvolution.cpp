#include "analysis/EcritureEvolution.h"

#include "analysis/DispositionEvolution.h"
#include "analysis/TexteEvolution.h"
#include "platform/Arrondi.h"
#include "workbook/Feuille.h"
#include "workbook/Recopie.h"

#include <functional>

using namespace DispositionEvolution;

namespace
{
QVariant celluleOuVide(const std::optional<double> &valeur)
{
    return valeur ? QVariant(*valeur) : QVariant();
}

// Figures of a sheet have two decimals.
QVariant arrondi(const std::optional<double> &figure)
{
    return figure ? QVariant(arrondir(*figure, 2)) : QVariant();
}

// A cell without a text is left empty.
QVariant texteOuVide(const QString &texte)
{
    return texte.isEmpty() ? QVariant() : QVariant(texte);
}

// Codes are numbers kept as texts.
QVariant codeRemarque(const QString &code)
{
    const std::optional<double> numero = numeroRemarque(code);
    return numero ? QVariant(*numero) : texteOuVide(code);
}

// What stands on every row: the levels and the bands. Invalid where a column has none.
QVector<QVariant> niveaux(const DemandeEvolution &demande, const Evolution &evolution)
{
    QVector<QVariant> rangee(DERNIERE_COLONNE);
    const auto cellule = [&rangee](int colonne) -> QVariant & { return rangee[colonne - 1]; };
    if (Evolution::avecSeuil(demande))
        cellule(COLONNE_SEUIL) = celluleOuVide(demande.valeurSeuil);
    if (!evolution.seule())
        return rangee;
    cellule(COLONNE_OBJECTIF_MOYEN) = celluleOuVide(demande.objectifMoyen);
    cellule(COLONNE_OBJECTIF_MAXIMAL) = celluleOuVide(demande.objectifMaximal);
    cellule(COLONNE_NORME) = celluleOuVide(evolution.enTete.norme);
    if (evolution.bandes)
        for (int bande = 0; bande < BANDES; ++bande)
            cellule(COLONNE_BANDES + bande) = (*evolution.bandes)[static_cast<size_t>(bande)];
    if (demande.quantile)
        cellule(COLONNE_QUANTILE) = arrondi(evolution.figures->quantile90);
    cellule(COLONNE_MEDIANE) = arrondi(evolution.figures->mediane);
    return rangee;
}

QVector<QVariant> intitules(const DemandeEvolution &demande, const Evolution &evolution,
                            const QVector<QVariant> &niveaux)
{
    QVector<QVariant> rangee(DERNIERE_COLONNE);
    const auto nommer = [&rangee](int colonne, const QString &nom) { rangee[colonne - 1] = nom; };
    const QList<EnTeteRapport> &courbes = evolution.enTete.courbes;
    nommer(COLONNE_DATE, QStringLiteral("Date"));
    for (int courbe = 0; courbe < courbes.size(); ++courbe) {
        nommer(COLONNE_COURBE + courbe,
               TexteEvolution::serie(courbes[courbe].parametre, courbes[courbe].unite));
        nommer(COLONNE_CODE + courbe, courbes.size() == 1
                                          ? QStringLiteral("Code remarque")
                                          : QStringLiteral("Code remarque %1").arg(courbe + 1));
    }
    if (evolution.avecDebit)
        nommer(COLONNE_DEBIT, TexteEvolution::serie(QStringLiteral("Débit - ") + evolution.enTete.debit.nom,
                                                    TexteEvolution::uniteDebit()));
    if (evolution.avecPluie)
        nommer(COLONNE_PLUIE, TexteEvolution::serie(QStringLiteral("Pluie - ") + evolution.enTete.pluie.nom,
                                                    TexteEvolution::unitePluie()));
    const std::pair<int, QString> noms[] = {
        {COLONNE_OBJECTIF_MOYEN, QStringLiteral("Objectif moyen")},
        {COLONNE_OBJECTIF_MAXIMAL, QStringLiteral("Objectif maximal")},
        {COLONNE_SEUIL, demande.intituleSeuil},
        {COLONNE_QUANTILE, QStringLiteral("Quantile 90")},
        {COLONNE_MEDIANE, QStringLiteral("Médiane")},
        {COLONNE_NORME, QStringLiteral("Norme eau potable")},
    };
    for (const auto &[colonne, nom] : noms)
        if (const QVariant &niveau = niveaux[colonne - 1]; niveau.isValid())
            nommer(colonne, TexteEvolution::niveau(nom, niveau.toDouble(), courbes[0].unite));
    if (evolution.bandes) {
        const char *const classes[BANDES] = {"bleu",   "vert",         "jaune", "jaune clair",
                                             "orange", "orange foncé", "rouge"};
        for (int bande = 0; bande < BANDES; ++bande)
            nommer(COLONNE_BANDES + bande, QStringLiteral("SEQ-Eau ") + QString::fromUtf8(classes[bande]));
    }
    return rangee;
}

void ecrireEnTete(Feuille &feuille, const DemandeEvolution &demande, const Evolution &evolution)
{
    const EnTeteEvolution &enTete = evolution.enTete;
    Valeurs valeurs(2, QVector<QVariant>(ENTETE_RESEAUX));
    const auto cellule = [&valeurs](int ligne, int colonne) -> QVariant & {
        return valeurs[ligne - LIGNE_ENTETE][colonne - 1];
    };
    cellule(LIGNE_ENTETE, ENTETE_STATION) = enTete.courbes[0].codeAffiche;
    cellule(LIGNE_ENTETE, ENTETE_BASSIN) = texteOuVide(enTete.courbes[0].bassin);
    for (int courbe = 0; courbe < enTete.courbes.size(); ++courbe) {
        cellule(LIGNE_ENTETE + courbe, ENTETE_PARAMETRE) = enTete.courbes[courbe].parametre;
        cellule(LIGNE_ENTETE + courbe, ENTETE_UNITE) = enTete.courbes[courbe].unite;
    }
    if (evolution.figures) {
        cellule(LIGNE_ENTETE, ENTETE_DEPASSEMENT_MOYEN) = arrondi(evolution.figures->depassementMoyen);
        cellule(LIGNE_ENTETE, ENTETE_DEPASSEMENT_MAXIMAL) = arrondi(evolution.figures->depassementMaximal);
    }
    if (evolution.avecDebit) {
        cellule(LIGNE_ENTETE, ENTETE_DEBIT) = enTete.debit.nom;
        cellule(LIGNE_ENTETE_SECONDE, ENTETE_DEBIT) = TexteEvolution::uniteDebit();
    }
    if (evolution.avecPluie) {
        cellule(LIGNE_ENTETE, ENTETE_PLUIE) = enTete.pluie.nom;
        cellule(LIGNE_ENTETE_SECONDE, ENTETE_PLUIE) = TexteEvolution::unitePluie();
    }
    cellule(LIGNE_ENTETE, ENTETE_PROTOCOLE) = texteOuVide(demande.selection.protocole);
    cellule(LIGNE_ENTETE, ENTETE_GESTIONNAIRES) =
        texteOuVide(demande.nomsGestionnaires.join(QStringLiteral(", ")));
    cellule(LIGNE_ENTETE, ENTETE_RESEAUX) = texteOuVide(demande.nomsReseaux.join(QStringLiteral(", ")));

    // Codes keep their leading zeros whatever the template holds there.
    const auto texte = [&feuille](int colonne) {
        feuille.cellule(LIGNE_ENTETE, colonne).formatNombre(QStringLiteral("@"));
    };
    texte(ENTETE_STATION);
    if (evolution.avecDebit)
        texte(ENTETE_DEBIT);
    if (evolution.avecPluie)
        texte(ENTETE_PLUIE);
    feuille.plage(LIGNE_ENTETE, 1, LIGNE_ENTETE_SECONDE, ENTETE_RESEAUX).ecrire(valeurs);
}

// Columns side by side, of all rows; the first is `premiere`.
BlocPlace colonnes(const QList<LigneEvolution> &lignes, int premiere, int nombre,
                   const std::function<void(QVector<QVariant> &, const LigneEvolution &)> &remplir)
{
    Valeurs valeurs;
    valeurs.reserve(lignes.size());
    for (const LigneEvolution &ligne : lignes) {
        QVector<QVariant> rangee(nombre);
        remplir(rangee, ligne);
        valeurs.append(rangee);
    }
    return {PREMIERE_LIGNE, premiere, BlocValeurs(valeurs)};
}

// A level is the same on every row: all are written some times, and copied down by the application with what lies between them.
void ecrireNiveaux(Feuille &feuille, const QVector<QVariant> &niveaux, int derniere)
{
    const auto present = [](const QVariant &niveau) { return niveau.isValid(); };
    const auto premier = std::find_if(niveaux.cbegin(), niveaux.cend(), present);
    if (premier == niveaux.cend())
        return;
    const auto dernier = std::find_if(niveaux.crbegin(), niveaux.crend(), present).base();
    const int gauche = 1 + static_cast<int>(premier - niveaux.cbegin());
    const int droite = static_cast<int>(dernier - niveaux.cbegin());
    constexpr int CELLULES_ECRITES = 500; // fewer would only make for more messages
    const int ecrites = qMin(CELLULES_ECRITES / (droite - gauche + 1), derniere - PREMIERE_LIGNE + 1);
    feuille.plage(PREMIERE_LIGNE, gauche, PREMIERE_LIGNE + ecrites - 1, droite)
        .ecrireContenu(Valeurs(ecrites, niveaux.mid(gauche - 1, droite - gauche + 1)));
    recopierVersLeBas(feuille.plage(PREMIERE_LIGNE, gauche, derniere, droite), ecrites);
}
} // namespace

QVector<BlocPlace> preparerMesures(const Evolution &evolution)
{
    const int courbes = static_cast<int>(evolution.enTete.courbes.size());
    const QList<LigneEvolution> &lignes = evolution.lignes;
    QVector<BlocPlace> pretes;
    pretes << colonnes(lignes, COLONNE_DATE, 1 + courbes, [courbes](auto &rangee, const auto &ligne) {
        rangee[0] = ligne.date;
        for (int courbe = 0; courbe < courbes; ++courbe)
            rangee[1 + courbe] = celluleOuVide(ligne.valeurs[static_cast<size_t>(courbe)]);
    });
    pretes << colonnes(lignes, COLONNE_CODE, courbes, [courbes](auto &rangee, const auto &ligne) {
        for (int courbe = 0; courbe < courbes; ++courbe)
            rangee[courbe] = codeRemarque(ligne.codes[static_cast<size_t>(courbe)]);
    });
    if (evolution.avecDebit)
        pretes << colonnes(lignes, COLONNE_DEBIT, 1,
                           [](auto &rangee, const auto &ligne) { rangee[0] = celluleOuVide(ligne.debit); });
    if (evolution.avecPluie)
        pretes << colonnes(lignes, COLONNE_PLUIE, 1,
                           [](auto &rangee, const auto &ligne) { rangee[0] = celluleOuVide(ligne.pluie); });
    return pretes;
}

void ecrireEvolution(Feuille &feuille, const DemandeEvolution &demande, const Evolution &evolution,
                     const QVector<BlocPlace> &mesures)
{
    ecrireEnTete(feuille, demande, evolution);
    const int derniere = PREMIERE_LIGNE + static_cast<int>(evolution.lignes.size()) - 1;
    const QVector<QVariant> constantes = niveaux(demande, evolution);
    feuille.plage(LIGNE_INTITULES, COLONNE_DATE, LIGNE_INTITULES, DERNIERE_COLONNE)
        .ecrire(Valeurs{intitules(demande, evolution, constantes)});
    feuille.plage(PREMIERE_LIGNE, COLONNE_DATE, derniere, COLONNE_DATE)
        .formatNombre(QStringLiteral("dd/mm/yyyy"));
    feuille.plage(PREMIERE_LIGNE, COLONNE_COURBE, derniere, COLONNE_COURBE + 1)
        .formatNombre(QStringLiteral("General"));
    // The levels first: flows and rain stand between their columns.
    ecrireNiveaux(feuille, constantes, derniere);
    ecrireBlocs(feuille, mesures);
}
