#include "analysis/EcritureRapportPC.h"

#include "analysis/ContenuRapportPC.h"
#include "analysis/DispositionRapportPC.h"
#include "workbook/Feuille.h"

using namespace DispositionRapportPC;

namespace
{
constexpr int COULEUR_ENTETE_DE_BLOC = 33;

// Gives a row the height that its text needs when it takes more than one line; merged cells do not grow by themselves.
void ajusterHauteur(Feuille &feuille, int ligne, const QString &texte, int caracteresParLigne, int hauteur)
{
    const auto lignes = (texte.size() + caracteresParLigne - 1) / caracteresParLigne;
    if (lignes > 1)
        feuille.hauteurLigne(ligne, hauteur + static_cast<int>(lignes - 1) * HAUTEUR_LIGNE_DE_PLUS);
}

void ajusterHauteurs(Feuille &feuille, int premiereLigne, const QStringList &libelles)
{
    for (qsizetype i = 0; i < libelles.size(); ++i)
        ajusterHauteur(feuille, premiereLigne + static_cast<int>(i), libelles[i], CARACTERES_LIBELLE,
                       HAUTEUR_LIGNE);
}

Valeurs enColonne(const QVariantList &figures)
{
    Valeurs valeurs;
    for (const QVariant &figure : figures)
        valeurs.append(QVector<QVariant>{figure});
    return valeurs;
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
    feuille.cellule(LIGNE_CODE, COLONNE_IDENTITE).formatNombre(QStringLiteral("@"));
    const EnTeteRapport &enTete = rapport.enTete;
    const QStringList identite{enTete.bassin, enTete.codeAffiche, enTete.riviere, enTete.station,
                               enTete.parametre};
    feuille.plage(LIGNE_BASSIN, COLONNE_IDENTITE, LIGNE_PARAMETRE, COLONNE_IDENTITE)
        .ecrire(enColonne(identite));
    for (int i = 0; i < identite.size(); ++i)
        ajusterHauteur(feuille, LIGNE_BASSIN + i, identite[i], CARACTERES_IDENTITE, HAUTEUR_IDENTITE);
    for (const auto &[colonne, date] :
         {std::pair(COLONNE_DEBUT, demande.debut), std::pair(COLONNE_FIN, demande.fin)}) {
        Plage cellule = feuille.cellule(LIGNE_PERIODE, colonne);
        cellule.formatNombre(QStringLiteral("dd/mm/yyyy"));
        cellule.ecrire(QVariant(date));
    }
    const QString sources = ContenuRapportPC::sources(rapport.sources);
    if (!sources.isEmpty())
        feuille.cellule(LIGNE_SOURCES, COLONNE_LIBELLES).ecrire(sources);
    ajusterHauteur(feuille, LIGNE_SOURCES, sources, CARACTERES_SOURCES, HAUTEUR_LIGNE);
}

void ecrirePeriode(Feuille &feuille, const RapportPC &rapport)
{
    const EnTeteRapport &enTete = rapport.enTete;
    const QStringList libelles = ContenuRapportPC::libellesPeriode(enTete.unite, enTete.limites);
    feuille.plage(LIGNE_PERIODE_EFFECTIF + 1, COLONNE_LIBELLES, LIGNE_PERIODE_FIN, COLONNE_LIBELLES)
        .ecrire(enColonne(libelles));
    ajusterHauteurs(feuille, LIGNE_PERIODE_EFFECTIF + 1, libelles);

    const auto colonne = [&feuille](int numero, const QString &intitule, const StatistiquesPeriode &periode) {
        QVariantList cellules{intitule};
        cellules += ContenuRapportPC::figuresPeriode(periode);
        feuille.plage(LIGNE_INTITULES_PERIODE, numero, LIGNE_PERIODE_FIN, numero).ecrire(enColonne(cellules));
    };
    colonne(COLONNE_SUR_LA_BASE, QStringLiteral("Sur l'effectif de la base"), rapport.resultat.surLaBase);
    colonne(COLONNE_SUR_LES_RETENUES, QStringLiteral("Sur les mesures retenues"),
            rapport.resultat.surLesRetenues);
}

void encadrer(const Plage &bloc)
{
    Plage plage = bloc;
    for (const Bord bord : {Bord::Gauche, Bord::Haut, Bord::Bas, Bord::Droite})
        plage.bord(bord, TraitBord::Continu, EpaisseurBord::Moyen);
    if (plage.colonnes() > 1)
        plage.bord(Bord::InterieurVertical, TraitBord::Continu, EpaisseurBord::Fin);
    if (plage.lignes() > 1)
        plage.bord(Bord::InterieurHorizontal, TraitBord::Continu, EpaisseurBord::Fin);
}

// Fills, borders and number formats of one block. Inserted rows bear no more than the style of a blank row.
void styler(Feuille &feuille, int ligneEntete, int annees)
{
    const int derniere = COLONNE_PREMIERE_ANNEE + annees - 1;
    Plage entete = feuille.plage(ligneEntete, COLONNE_LIBELLES, ligneEntete, derniere);
    entete.fond(COULEUR_ENTETE_DE_BLOC);
    feuille.plage(ligneEntete, COLONNE_PREMIERE_ANNEE, ligneEntete, derniere).gras(true);
    encadrer(feuille.plage(ligneEntete, COLONNE_LIBELLES, ligneEntete + FIGURES_ANNEE, derniere));
    // Rounded to two decimals, they are shown with two; the counts above stay plain.
    for (const auto &[premier, dernier] :
         {std::pair(RANG_MOYENNE, RANG_MINIMUM), std::pair(RANG_MEDIANE, RANG_MOYENNE_PONDEREE)})
        feuille.plage(ligneEntete + premier, COLONNE_PREMIERE_ANNEE, ligneEntete + dernier, derniere)
            .formatNombre(QStringLiteral("0.00"));
}

void ecrireAnnees(Feuille &feuille, const RapportPC &rapport)
{
    const int annees = static_cast<int>(rapport.annees.size());
    if (annees == 0)
        return;
    const int blocs = (annees + ANNEES_PAR_BLOC - 1) / ANNEES_PAR_BLOC;
    for (int bloc = 1; bloc < blocs; ++bloc)
        feuille.insererLignes(ligneDuBloc(bloc), LIGNES_BLOC);

    const QStringList libelles =
        ContenuRapportPC::libellesAnnee(rapport.enTete.unite, rapport.enTete.limites);
    const Valeurs valeurs = ContenuRapportPC::blocs(rapport.annees, rapport.resultat.annees, libelles);
    feuille
        .plage(LIGNE_PREMIER_BLOC, COLONNE_LIBELLES,
               LIGNE_PREMIER_BLOC + static_cast<int>(valeurs.size()) - 1, DERNIERE_COLONNE)
        .ecrire(valeurs);

    for (int bloc = 0; bloc < blocs; ++bloc) {
        feuille.hauteurLignes(ligneDuBloc(bloc), LIGNES_BLOC, HAUTEUR_LIGNE);
        ajusterHauteurs(feuille, ligneDuBloc(bloc) + 1, libelles);
        if (bloc % BLOCS_PAR_PAGE == 1)
            feuille.sautDePage(ligneDuBloc(bloc));
        styler(feuille, ligneDuBloc(bloc), std::min(ANNEES_PAR_BLOC, annees - bloc * ANNEES_PAR_BLOC));
    }
    for (int k = 0; k < annees; ++k)
        if (const auto &couleur = rapport.resultat.annees[k].couleurClasse)
            feuille
                .cellule(ligneDuBloc(k / ANNEES_PAR_BLOC) + RANG_CLASSE,
                         COLONNE_PREMIERE_ANNEE + k % ANNEES_PAR_BLOC)
                .fond(*couleur);
}
} // namespace

void ecrireRapportPC(Feuille &feuille, const DemandeRapport &demande, const RapportPC &rapport)
{
    ecrireEnTete(feuille, demande, rapport);
    ecrirePeriode(feuille, rapport);
    ecrireAnnees(feuille, rapport);
}
