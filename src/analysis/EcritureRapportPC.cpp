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

Valeurs enColonne(const QStringList &textes)
{
    Valeurs valeurs;
    for (const QString &texte : textes)
        valeurs.append(QVector<QVariant>{texte});
    return valeurs;
}

void ecrireEnTete(Feuille &feuille, const DemandeRapport &demande, const RapportPC &rapport)
{
    feuille.cellule(LIGNE_TITRE, COLONNE_LIBELLES).ecrire(ContenuRapportPC::titre(demande.mode));
    const EnTeteRapport &enTete = rapport.enTete;
    const QStringList identite{enTete.bassin, enTete.codeAffiche, enTete.riviere, enTete.station,
                               enTete.parametre};
    feuille.plage(LIGNE_BASSIN, COLONNE_IDENTITE, LIGNE_PARAMETRE, COLONNE_IDENTITE)
        .ecrire(enColonne(identite));
    for (int i = 0; i < identite.size(); ++i)
        ajusterHauteur(feuille, LIGNE_BASSIN + i, identite[i], CARACTERES_IDENTITE, HAUTEUR_IDENTITE);
    feuille.plage(LIGNE_PERIODE, COLONNE_DEBUT, LIGNE_PERIODE, COLONNE_FIN)
        .ecrire(Valeurs{{demande.debut, QStringLiteral("au"), demande.fin}});
    const QString sources = ContenuRapportPC::sources(rapport.sources);
    if (!sources.isEmpty())
        feuille.cellule(LIGNE_SOURCES, COLONNE_LIBELLES).ecrire(sources);
    ajusterHauteur(feuille, LIGNE_SOURCES, sources, CARACTERES_SOURCES, HAUTEUR_LIGNE);
}

// Labels and both columns of figures as one rectangle.
void ecrirePeriode(Feuille &feuille, const RapportPC &rapport)
{
    const QStringList libelles =
        ContenuRapportPC::libellesPeriode(rapport.enTete.unite, rapport.enTete.limites);
    const QVariantList surLaBase = ContenuRapportPC::figuresPeriode(rapport.resultat.surLaBase);
    const QVariantList surLesRetenues = ContenuRapportPC::figuresPeriode(rapport.resultat.surLesRetenues);
    Valeurs valeurs(1 + FIGURES_PERIODE, QVector<QVariant>(COLONNE_SUR_LES_RETENUES));
    valeurs[0][COLONNE_SUR_LA_BASE - 1] = QStringLiteral("Sur l'effectif de la base");
    valeurs[0][COLONNE_SUR_LES_RETENUES - 1] = QStringLiteral("Sur les mesures retenues");
    for (int i = 0; i < FIGURES_PERIODE; ++i) {
        valeurs[i + 1][COLONNE_LIBELLES - 1] = libelles[i];
        valeurs[i + 1][COLONNE_SUR_LA_BASE - 1] = surLaBase[i];
        valeurs[i + 1][COLONNE_SUR_LES_RETENUES - 1] = surLesRetenues[i];
    }
    feuille.plage(LIGNE_INTITULES_PERIODE, COLONNE_LIBELLES, LIGNE_PERIODE_FIN, COLONNE_SUR_LES_RETENUES)
        .ecrire(valeurs);
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

void ecrireAnnees(Feuille &feuille, const RapportPC &rapport)
{
    const int annees = static_cast<int>(rapport.annees.size());
    if (annees == 0)
        return;
    const int blocs = (annees + ANNEES_PAR_BLOC - 1) / ANNEES_PAR_BLOC;
    ajouterBlocs(feuille, blocs);
    raccourcir(feuille, ligneDuBloc(blocs - 1), annees - (blocs - 1) * ANNEES_PAR_BLOC);

    const QStringList libelles =
        ContenuRapportPC::libellesAnnee(rapport.enTete.unite, rapport.enTete.limites);
    const Valeurs valeurs = ContenuRapportPC::blocs(rapport.annees, rapport.resultat.annees, libelles);
    feuille
        .plage(LIGNE_PREMIER_BLOC, COLONNE_LIBELLES,
               LIGNE_PREMIER_BLOC + static_cast<int>(valeurs.size()) - 1, DERNIERE_COLONNE)
        .ecrire(valeurs);
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
    ecrireEnTete(feuille, demande, rapport);
    ecrirePeriode(feuille, rapport);
    ecrireAnnees(feuille, rapport);
}
