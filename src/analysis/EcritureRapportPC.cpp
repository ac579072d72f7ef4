#include "analysis/EcritureRapportPC.h"

#include "analysis/ContenuRapportPC.h"
#include "analysis/DispositionRapportPC.h"
#include "workbook/Feuille.h"

using namespace DispositionRapportPC;

namespace
{
// Gives a row the height that its text needs when it takes more lines than the template foresees; merged cells do not grow
// by themselves.
void ajusterHauteur(Feuille &feuille, int ligne, const QString &texte, int caracteresParLigne, int hauteur,
                    int lignesPrevues = 1)
{
    const auto lignes = static_cast<int>((texte.size() + caracteresParLigne - 1) / caracteresParLigne);
    if (lignes > lignesPrevues)
        feuille.hauteurLigne(ligne, hauteur + (lignes - 1) * HAUTEUR_LIGNE_DE_PLUS);
}

// Labels of figures from this row down; those of the exceedances have two lines.
void ajusterHauteurs(Feuille &feuille, int premiereLigne, const QStringList &libelles, int premierDepassement,
                     int depassements)
{
    for (int i = 0; i < libelles.size(); ++i) {
        const int ligne = premiereLigne + i;
        const bool depassement = ligne >= premierDepassement && ligne < premierDepassement + depassements;
        ajusterHauteur(feuille, ligne, libelles[i], CARACTERES_LIBELLE, HAUTEUR_LIGNE, depassement ? 2 : 1);
    }
}

// The cells of the sheet from the title down, in one piece: each exchange with the spreadsheet costs more than the cells
// that it carries. Rows and columns are the sheet's own.
class Cellules
{
public:
    // What the template has there, down to the legend above the yearly blocks.
    explicit Cellules(const Feuille &feuille)
        : m_valeurs(feuille.plage(LIGNE_TITRE, COLONNE_LIBELLES, LIGNE_LEGENDE, DERNIERE_COLONNE).contenu())
    {
    }

    void mettre(int ligne, int colonne, const QVariant &valeur)
    {
        m_valeurs[ligne - LIGNE_TITRE][colonne - COLONNE_LIBELLES] = valeur;
    }
    // Rows below the legend.
    void ajouter(const Valeurs &rangees) { m_valeurs += rangees; }
    void ecrire(const Feuille &feuille) const
    {
        feuille
            .plage(LIGNE_TITRE, COLONNE_LIBELLES, LIGNE_TITRE + static_cast<int>(m_valeurs.size()) - 1,
                   DERNIERE_COLONNE)
            .ecrireContenu(m_valeurs);
    }

private:
    Valeurs m_valeurs;
};

void mettreEnTete(Cellules &cellules, Feuille &feuille, const DemandeRapport &demande,
                  const RapportPC &rapport)
{
    cellules.mettre(LIGNE_TITRE, COLONNE_LIBELLES, ContenuRapportPC::titre(demande.mode));
    const EnTeteRapport &enTete = rapport.enTete;
    const QStringList identite{enTete.bassin, enTete.codeAffiche, enTete.riviere, enTete.station,
                               enTete.parametre};
    for (int i = 0; i < identite.size(); ++i) {
        cellules.mettre(LIGNE_BASSIN + i, COLONNE_IDENTITE, identite[i]);
        ajusterHauteur(feuille, LIGNE_BASSIN + i, identite[i], CARACTERES_IDENTITE, HAUTEUR_IDENTITE);
    }
    cellules.mettre(LIGNE_PERIODE, COLONNE_DEBUT, demande.debut);
    cellules.mettre(LIGNE_PERIODE, COLONNE_DEBUT + 1, QStringLiteral("au"));
    cellules.mettre(LIGNE_PERIODE, COLONNE_FIN, demande.fin);
    const QString sources = ContenuRapportPC::sources(rapport.sources);
    cellules.mettre(LIGNE_SOURCES, COLONNE_LIBELLES, sources);
    ajusterHauteur(feuille, LIGNE_SOURCES, sources, CARACTERES_SOURCES, HAUTEUR_LIGNE);
}

// Labels and both columns of figures.
void mettrePeriode(Cellules &cellules, Feuille &feuille, const RapportPC &rapport)
{
    const QStringList libelles =
        ContenuRapportPC::libellesPeriode(rapport.enTete.unite, rapport.enTete.limites);
    const QVariantList surLaBase = ContenuRapportPC::figuresPeriode(rapport.resultat.surLaBase);
    const QVariantList surLesRetenues = ContenuRapportPC::figuresPeriode(rapport.resultat.surLesRetenues);
    cellules.mettre(LIGNE_INTITULES_PERIODE, COLONNE_SUR_LA_BASE,
                    QStringLiteral("Sur l'effectif de la base"));
    cellules.mettre(LIGNE_INTITULES_PERIODE, COLONNE_SUR_LES_RETENUES,
                    QStringLiteral("Sur les mesures retenues"));
    for (int i = 0; i < FIGURES_PERIODE; ++i) {
        const int ligne = LIGNE_PERIODE_EFFECTIF + i;
        cellules.mettre(ligne, COLONNE_LIBELLES, libelles[i]);
        cellules.mettre(ligne, COLONNE_SUR_LA_BASE, surLaBase[i]);
        cellules.mettre(ligne, COLONNE_SUR_LES_RETENUES, surLesRetenues[i]);
    }
    ajusterHauteurs(feuille, LIGNE_PERIODE_EFFECTIF, libelles, LIGNE_PERIODE_DEPASSEMENTS,
                    DEPASSEMENTS_PERIODE);
}

// Rows for the blocks after the first, which take its looks. The application gives inserted rows the height of a row with
// one line.
void ajouterBlocs(Feuille &feuille, int blocs)
{
    const Plage premier = feuille.plage(LIGNE_PREMIER_BLOC, COLONNE_LIBELLES,
                                        LIGNE_PREMIER_BLOC + FIGURES_ANNEE, DERNIERE_COLONNE);
    for (int bloc = 1; bloc < blocs; ++bloc) {
        const int ligne = ligneDuBloc(bloc);
        feuille.insererLignes(ligne, LIGNES_BLOC);
        feuille.copier(premier, ligne, COLONNE_LIBELLES);
        feuille.hauteurLignes(ligne + RANG_DEPASSEMENT_MOYEN, DEPASSEMENTS_ANNEE, HAUTEUR_DEUX_LIGNES);
        if (bloc % BLOCS_PAR_PAGE == 1)
            feuille.sautDePage(ligne);
    }
}

// Cuts a block down to its years: the last column, with the outline, moves to the last year, and what follows goes.
void raccourcir(Feuille &feuille, int ligne, int annees)
{
    if (annees == ANNEES_PAR_BLOC)
        return;
    const int derniere = COLONNE_PREMIERE_ANNEE + annees - 1;
    const int fin = ligne + FIGURES_ANNEE;
    feuille.copier(feuille.plage(ligne, DERNIERE_COLONNE, fin, DERNIERE_COLONNE), ligne, derniere);
    feuille.plage(ligne, derniere + 1, fin, DERNIERE_COLONNE).effacer();
}

// Fills of the classes of one block, a run of years of one class at a time.
void colorerClasses(Feuille &feuille, int ligne, const QList<StatistiquesAnnee> &annees)
{
    for (int debut = 0; debut < annees.size();) {
        int fin = debut + 1;
        while (fin < annees.size() && annees[fin].couleurClasse == annees[debut].couleurClasse)
            ++fin;
        if (annees[debut].couleurClasse)
            feuille.plage(ligne, COLONNE_PREMIERE_ANNEE + debut, ligne, COLONNE_PREMIERE_ANNEE + fin - 1)
                .fond(*annees[debut].couleurClasse);
        debut = fin;
    }
}

void mettreAnnees(Cellules &cellules, Feuille &feuille, const RapportPC &rapport)
{
    const int annees = static_cast<int>(rapport.annees.size());
    if (annees == 0)
        return;
    const int blocs = (annees + ANNEES_PAR_BLOC - 1) / ANNEES_PAR_BLOC;
    ajouterBlocs(feuille, blocs);
    raccourcir(feuille, ligneDuBloc(blocs - 1), annees - (blocs - 1) * ANNEES_PAR_BLOC);

    const QStringList libelles =
        ContenuRapportPC::libellesAnnee(rapport.enTete.unite, rapport.enTete.limites);
    cellules.ajouter(ContenuRapportPC::blocs(rapport.annees, rapport.resultat.annees, libelles));
    for (int bloc = 0; bloc < blocs; ++bloc) {
        const int ligne = ligneDuBloc(bloc);
        ajusterHauteurs(feuille, ligne + 1, libelles, ligne + RANG_DEPASSEMENT_MOYEN, DEPASSEMENTS_ANNEE);
        colorerClasses(feuille, ligne + RANG_CLASSE,
                       rapport.resultat.annees.mid(qsizetype(bloc) * ANNEES_PAR_BLOC, ANNEES_PAR_BLOC));
    }
}
} // namespace

void ecrireRapportPC(Feuille &feuille, const DemandeRapport &demande, const RapportPC &rapport)
{
    Cellules cellules(feuille);
    mettreEnTete(cellules, feuille, demande, rapport);
    mettrePeriode(cellules, feuille, rapport);
    mettreAnnees(cellules, feuille, rapport);
    cellules.ecrire(feuille);
}
