#include "analysis/GraphiqueEvolution.h"

#include "analysis/DispositionEvolution.h"
#include "workbook/AxeGraphique.h"
#include "workbook/BoiteTexte.h"
#include "workbook/Feuille.h"
#include "workbook/SerieGraphique.h"

#include <cmath>

using namespace DispositionEvolution;

namespace
{
// The title box of the templates: what it holds, in points.
constexpr double LARGEUR_TEXTE = 740;
constexpr double HAUTEUR_TEXTE = 78;
constexpr double POLICE_MAXIMALE = 9;
constexpr double POLICE_MINIMALE = 5;
constexpr double INTERLIGNE = 1.16;
constexpr double LARGEUR_CARACTERE = 0.55; // of the size, on average

// The greatest size at which all lines, folded where they are too long, stand in the box.
double taillePour(const QStringList &lignes)
{
    for (double taille = POLICE_MAXIMALE; taille > POLICE_MINIMALE; taille -= 0.5) {
        const double parLigne = std::floor(LARGEUR_TEXTE / (taille * LARGEUR_CARACTERE));
        double hauteur = 0;
        for (const QString &ligne : lignes)
            hauteur +=
                qMax(1.0, std::ceil(static_cast<double>(ligne.size()) / parLigne)) * taille * INTERLIGNE;
        if (hauteur <= HAUTEUR_TEXTE)
            return taille;
    }
    return POLICE_MINIMALE;
}

// The remark codes whose points are marked.
constexpr int CODE_CERCLE = 2;
constexpr int CODE_CROIX = 3;
constexpr int ROUGE = 3; // ColorIndex
constexpr int TAILLE_MARQUE = 9;

struct Emploi {
    SerieEvolution serie;
    int colonne;
    bool sert;
};

// In the order in which what is not used is removed.
QVector<Emploi> emplois(const DescriptionGraphiqueEvolution &d)
{
    return {{SERIE_BLEU, COLONNE_BANDES, d.bandes},
            {SERIE_VERT, COLONNE_BANDES + 1, d.bandes},
            {SERIE_JAUNE, COLONNE_BANDES + 2, d.bandes},
            {SERIE_JAUNE_CLAIR, COLONNE_BANDES + 3, d.bandes},
            {SERIE_ORANGE, COLONNE_BANDES + 4, d.bandes},
            {SERIE_ORANGE_FONCE, COLONNE_BANDES + 5, d.bandes},
            {SERIE_ROUGE, COLONNE_BANDES + 6, d.bandes},
            {SERIE_NORME, COLONNE_NORME, d.norme},
            {SERIE_MEDIANE, COLONNE_MEDIANE, d.mediane},
            {SERIE_QUANTILE, COLONNE_QUANTILE, d.quantile},
            {SERIE_SEUIL, COLONNE_SEUIL, d.seuil},
            {SERIE_OBJECTIF_MOYEN, COLONNE_OBJECTIF_MOYEN, d.objectifMoyen},
            {SERIE_OBJECTIF_MAXIMAL, COLONNE_OBJECTIF_MAXIMAL, d.objectifMaximal},
            {SERIE_DEBIT, COLONNE_DEBIT, d.debit},
            {SERIE_PLUIE, COLONNE_PLUIE, d.pluie},
            {SERIE_COURBE_1, COLONNE_COURBE, true},
            {SERIE_COURBE_2, COLONNE_COURBE + 1, d.deuxCourbes}};
}

// Height of the plot over that of the greatest column.
constexpr double HAUTEUR_SUR_COLONNES = 2.5;

// The first of 1, 1.5, 2, 3, 4, 5, 6, 8 times a power of ten that is at least the number: an axis to it has round steps.
double nombreRond(double nombre)
{
    const double puissance = std::pow(10.0, std::floor(std::log10(nombre)));
    for (const double facteur : {1.0, 1.5, 2.0, 3.0, 4.0, 5.0, 6.0, 8.0})
        if (facteur * puissance >= nombre * (1 - 1e-9))
            return facteur * puissance;
    return 10 * puissance;
}

class Cablage
{
public:
    Cablage(Feuille &mesures, const DescriptionGraphiqueEvolution &description)
        : m_feuille(mesures), m_description(description),
          m_graphique(mesures.graphique(QStringLiteral("Graphique"))),
          m_derniere(PREMIERE_LIGNE + description.lignes - 1)
    {
        for (int numero = 1; numero <= SERIES_EVOLUTION; ++numero)
            m_series.append(m_graphique.serie(numero));
    }

    void cabler()
    {
        const QVector<Emploi> tous = emplois(m_description);
        oter(tous);
        serie(SERIE_COURBE_1).abscisses(colonne(COLONNE_DATE));
        for (const Emploi &emploi : tous)
            if (emploi.sert)
                brancher(emploi);
        legende(tous);
        courbes();
        axes();
    }

private:
    SerieGraphique &serie(SerieEvolution numero) { return m_series[numero - 1]; }
    Plage colonne(int numero) const { return m_feuille.plage(PREMIERE_LIGNE, numero, m_derniere, numero); }

    // What is not used, with its cells; columns side by side are cleared at once.
    void oter(const QVector<Emploi> &tous)
    {
        QVector<int> numeros;
        QVector<int> colonnes;
        for (const Emploi &emploi : tous)
            if (!emploi.sert) {
                numeros << emploi.serie;
                colonnes << emploi.colonne;
            }
        if (numeros.isEmpty())
            return;
        m_graphique.supprimerSeries(numeros);
        std::sort(colonnes.begin(), colonnes.end());
        for (qsizetype debut = 0; debut < colonnes.size();) {
            qsizetype fin = debut + 1;
            while (fin < colonnes.size() && colonnes[fin] == colonnes[fin - 1] + 1)
                ++fin;
            m_feuille.plage(LIGNE_INTITULES, colonnes[debut], m_derniere, colonnes[fin - 1]).viderContenu();
            debut = fin;
        }
    }

    void brancher(const Emploi &emploi)
    {
        // Its name is in the template already: what stands on row 8.
        serie(emploi.serie).valeurs(colonne(emploi.colonne));
    }

    void legende(const QVector<Emploi> &tous)
    {
        for (const Emploi &emploi : tous) {
            const int bande = emploi.colonne - COLONNE_BANDES;
            if (emploi.sert && bande >= 0 && bande < BANDES &&
                m_description.bandesVides[static_cast<size_t>(bande)])
                serie(emploi.serie).dansLegende(false);
        }
    }

    bool secondeADroite() const
    {
        return m_description.deuxCourbes && !m_description.debit && !m_description.pluie;
    }

    void courbes()
    {
        const int nombre = m_description.deuxCourbes ? 2 : 1;
        if (secondeADroite())
            serie(SERIE_COURBE_2).changerGroupeAxes(2);
        for (int courbe = 0; courbe < nombre; ++courbe) {
            SerieGraphique &trace = serie(courbe == 0 ? SERIE_COURBE_1 : SERIE_COURBE_2);
            if (m_description.effectifs[static_cast<size_t>(courbe)] > POINTS_AVEC_MARQUEURS) {
                AspectMarqueur sans;
                sans.style = Marqueur::Aucun;
                trace.marqueur(sans);
            }
            for (const auto &[code, style] :
                 {std::pair(CODE_CERCLE, Marqueur::Cercle), std::pair(CODE_CROIX, Marqueur::Croix)}) {
                QVector<int> points;
                for (const auto &point : m_description.points)
                    if (point.courbe == courbe && point.code == code)
                        points.append(point.ligne + 1);
                trace.marqueurs(points, {style, TAILLE_MARQUE, Teinte::index(ROUGE), Teinte::aucune()});
            }
        }
    }

    void axes()
    {
        AxeGraphique dates = m_graphique.axe(TypeAxe::Categorie);
        dates.orientation(90);
        dates.formatNombre(QStringLiteral("dd/mm/yy"));
        AxeGraphique gauche = m_graphique.axe(TypeAxe::Valeur);
        EchelleAxe echelle;
        echelle.minimum = 0;
        echelle.maximum = m_description.echelleMaximale;
        gauche.echelle(echelle);
        gauche.titre(m_description.titreAxe);
        if (!m_graphique.aAxeSecondaire())
            return;
        AxeGraphique droite = m_graphique.axe(TypeAxe::Valeur, 2);
        EchelleAxe libre;
        libre.minimum = 0;
        if ((m_description.debit || m_description.pluie) && m_description.maximumSecondaire > 0)
            libre.maximum = nombreRond(m_description.maximumSecondaire * HAUTEUR_SUR_COLONNES);
        droite.echelle(libre);
        droite.titre(m_description.titreAxeSecondaire);
    }

    Feuille &m_feuille;
    const DescriptionGraphiqueEvolution &m_description;
    Graphique m_graphique;
    int m_derniere;
    QVector<SerieGraphique> m_series;
};
} // namespace

void cablerGraphiqueEvolution(Feuille &mesures, const DescriptionGraphiqueEvolution &description)
{
    const QStringList lignes = description.titre + description.figures;
    BoiteTexte texte = mesures.zoneTexte(QStringLiteral("Text Box 1"));
    texte.ecrire(lignes.join(QLatin1Char('\n')), static_cast<int>(description.titre.size()),
                 BoiteTexte::Police{QStringLiteral("Arial"), taillePour(lignes)});
    Cablage(mesures, description).cabler();
}
