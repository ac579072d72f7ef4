#include "Referentiel.h"

#include "database/Schema.h"
#include "Insertion.h"
#include "TableCsv.h"
#include "workbook/PaletteParDefaut.h"

namespace
{
constexpr int VRAI = -1; // booleans as the stores have them
constexpr int FAUX = 0;

QVariant commentaireCas(const QString &cas)
{
    return cas.isEmpty() ? QVariant() : QVariant("N° CAS " + cas);
}

void chargerUnites(const QSqlDatabase &base, const QString &dossier)
{
    const TableCsv table(dossier + "/unites.csv");
    Insertion unite(base, "UNITEREFERENCE", {"CodeUnite", "SymboleUnite", "LibelleUnite", "StatutUnite"});
    for (int i = 0; i < table.lignes(); ++i)
        unite.ligne({table.texte(i, "code"), table.texte(i, "symbole"), table.texte(i, "libelle"),
                     table.texte(i, "statut")});
}

void chargerFractions(const QSqlDatabase &base, const QString &dossier)
{
    const TableCsv table(dossier + "/fractions.csv");
    Insertion fraction(base, "FRACTION", {"CD_FRACTION", "LB_NOM_FRACTION", "LB_STATUT_FRACTION"});
    for (int i = 0; i < table.lignes(); ++i)
        fraction.ligne({table.texte(i, "code"), table.texte(i, "nom"), table.texte(i, "statut")});
}

void chargerParametres(const QSqlDatabase &base, const QString &dossier)
{
    const TableCsv table(dossier + "/parametres.csv");
    Insertion parametre(
        base, "PARAMETRE",
        {"CodeParam", "NomParam", "StatutParam", "CommParam", "NatureParam", "CodeGroupeParam", "CodeUnite"});
    Insertion unite(base, "IMPORT_PAR_URF", {"CodeParam", "CodeUnite", "ISOVL"});
    for (int i = 0; i < table.lignes(); ++i) {
        parametre.ligne({table.texte(i, "code"), table.texte(i, "nom"), table.texte(i, "statut"),
                         commentaireCas(table.texte(i, "cas")), table.texte(i, "nature"),
                         table.texte(i, "groupe"), table.texte(i, "unite")});
        unite.ligne({table.texte(i, "code"), table.texte(i, "unite"), VRAI});
    }
    const TableCsv autres(dossier + "/unites_import.csv");
    for (int i = 0; i < autres.lignes(); ++i)
        unite.ligne({autres.texte(i, "parametre"), autres.texte(i, "unite"), FAUX});
}

void chargerSeuils(const QSqlDatabase &base, const QString &dossier)
{
    const TableCsv grilles(dossier + "/grilles_seq.csv");
    Insertion grille(base, "GRILLE_SEQ",
                     {"CodeParam", "Valeur1SEQ", "Valeur2SEQ", "Valeur3SEQ", "Valeur4SEQ", "Valeur3BisSEQ",
                      "Valeur4BisSEQ"});
    for (int i = 0; i < grilles.lignes(); ++i)
        grille.ligne({grilles.texte(i, "parametre"), grilles.nombre(i, "bleu"), grilles.nombre(i, "vert"),
                      grilles.nombre(i, "jaune"), grilles.nombre(i, "orange"),
                      grilles.nombreOuNul(i, "jaune_bis"), grilles.nombreOuNul(i, "orange_bis")});
    const TableCsv normes(dossier + "/normes_aep.csv");
    Insertion norme(base, "NORME_AEP", {"CodeParam", "CD_FRACTION", "ValeurNorme"});
    for (int i = 0; i < normes.lignes(); ++i)
        norme.ligne({normes.texte(i, "parametre"), normes.texte(i, "fraction"), normes.nombre(i, "valeur")});
}

void chargerDepartements(const QSqlDatabase &base, const QString &dossier)
{
    const TableCsv table(dossier + "/departements.csv");
    Insertion departement(base, "DEPARTEMENT", {"NumDepartement", "NomDepartement"});
    for (int i = 0; i < table.lignes(); ++i)
        departement.ligne({table.texte(i, "code"), table.texte(i, "nom")});
}

// Entries 17 to 56 of the spreadsheet application's own colour table, as an opening would make them.
void chargerPalette(const QSqlDatabase &base)
{
    Schema::creerTable(base, "COULEURS_GRAPH");
    Insertion couleur(base, "COULEURS_GRAPH", {"ordre", "R", "G", "B"});
    for (int ordre = 1; ordre <= 40; ++ordre) {
        const int rvb = couleurParDefaut(ordre + 16);
        couleur.ligne({ordre, rvb >> 16 & 0xff, rvb >> 8 & 0xff, rvb & 0xff});
    }
}
} // namespace

void chargerReferentiel(const QSqlDatabase &base, const QString &dossier)
{
    chargerUnites(base, dossier);
    chargerFractions(base, dossier);
    chargerParametres(base, dossier);
    chargerSeuils(base, dossier);
    chargerDepartements(base, dossier);
    chargerPalette(base);
}
