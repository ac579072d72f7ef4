#include "analysis/GraphiqueHydrologie.h"

#include "analysis/DispositionHydrologie.h"
#include "analysis/EchellesHydrologie.h"
#include "analysis/TexteHydrologie.h"
#include "workbook/AxeGraphique.h"
#include "workbook/BoiteTexte.h"
#include "workbook/Feuille.h"
#include "workbook/SerieGraphique.h"

using namespace DispositionHydrologie;

namespace
{
// More points than this, and the flows lose their markers.
constexpr int POINTS_AVEC_MARQUEURS = 50;
// More labels than this, and they stand upright, or they would cover each other.
constexpr int ETIQUETTES_DE_NIVEAU = 24;
// Columns of more rows than this touch each other, or they would be too thin to be seen.
constexpr int COLONNES_ESPACEES = 100;
constexpr int ESPACEMENT = 60; // hundredths of a column's width

QVariant ouRien(const std::optional<double> &valeur)
{
    return valeur ? QVariant(*valeur) : QVariant();
}

class Trace
{
public:
    Trace(Feuille &feuille, const ContenuHydrologie &contenu, const std::function<void()> &etape)
        : m_feuille(feuille), m_contenu(contenu), m_etape(etape),
          m_graphique(feuille.graphique(GRAPHIQUE.toString())),
          m_derniere(PREMIERE_LIGNE + static_cast<int>(contenu.lignes.size()) - 1)
    {
        for (const SerieHydrologie::Ligne &ligne : contenu.lignes) {
            if (ligne.debit_l_s) {
                ++m_debits;
                m_debitMaximal = std::max(m_debitMaximal, *ligne.debit_l_s);
            }
            m_pluieMaximale = std::max(m_pluieMaximale, ligne.pluie_mm.value_or(0));
        }
    }

    void debits()
    {
        const bool debit = m_contenu.debit != GenreDebit::Aucun;
        ecrireEnTete(COLONNE_DATE, debit ? m_contenu.stationDebit : QString(), TexteHydrologie::UNITE_DEBIT,
                     debit);
        ecrireEnTete(COLONNE_PLUIE, m_contenu.stationPluie, TexteHydrologie::UNITE_PLUIE, m_contenu.pluie);
        ecrireIntitule(COLONNE_DEBIT, debit ? TexteHydrologie::nomDebit(m_contenu.debit) : QString());
        ecrireIntitule(COLONNE_PLUIE, m_contenu.pluie ? nomPluie() : QString());
        ecrireLignes(false);

        SerieGraphique ligne = m_graphique.serie(SERIE_PREMIERE);
        SerieGraphique pluie = m_graphique.serie(SERIE_PLUIE);
        if (!m_contenu.pluie)
            pluie.supprimer();
        if (!debit) {
            ligne.supprimer();
            pluie.changerGroupeAxes(1);
        }
        if (debit)
            brancher(ligne, COLONNE_DEBIT);
        if (m_contenu.pluie) {
            brancher(pluie, COLONNE_PLUIE);
            espacer(pluie);
        }
        if (debit)
            habillerDebits(ligne);
        dates();
        AxeGraphique gauche = m_graphique.axe(TypeAxe::Valeur);
        gauche.titre(debit ? TexteHydrologie::titreAxeDebit() : TexteHydrologie::titreAxePluie());
        if (!debit || !m_contenu.pluie) {
            gauche.echelle(deZero());
            return;
        }
        const EchellesHydrologie echelles = echellesHydrologie(m_debitMaximal, m_pluieMaximale);
        gauche.echelle(fixee(echelles.debit));
        AxeGraphique droite = m_graphique.axe(TypeAxe::Valeur, 2);
        EchelleAxe renversee = fixee(echelles.pluie);
        renversee.inversee = true;
        droite.echelle(renversee);
        droite.titre(TexteHydrologie::titreAxePluie());
        // The rain has an axis of dates of its own in the file, along the top: it stays bare.
        AxeGraphique dessus = m_graphique.axe(TypeAxe::Categorie, 2);
        dessus.placeGraduations(PlaceGraduations::Aucune);
        dessus.graduations(Graduation::Aucune, Graduation::Aucune);
    }

    void pluieSeule()
    {
        ecrireEnTete(COLONNE_DATE, m_contenu.stationPluie, TexteHydrologie::UNITE_PLUIE, true);
        ecrireIntitule(COLONNE_DEBIT, nomPluie());
        ecrireLignes(true);
        SerieGraphique pluie = m_graphique.serie(SERIE_PREMIERE);
        brancher(pluie, COLONNE_DEBIT);
        espacer(pluie);
        dates();
        AxeGraphique gauche = m_graphique.axe(TypeAxe::Valeur);
        gauche.titre(TexteHydrologie::titreAxePluie());
        gauche.echelle(deZero());
    }

    void titre()
    {
        m_feuille.zoneTexte(TEXTE.toString())
            .ecrire(m_contenu.titre.join(u'\n'), static_cast<int>(m_contenu.titre.size()));
    }

private:
    bool parMois() const { return m_contenu.debit == GenreDebit::Mensuel; }
    QString nomPluie() const { return TexteHydrologie::nomPluie(parMois()); }
    Plage colonne(int numero) const { return m_feuille.plage(PREMIERE_LIGNE, numero, m_derniere, numero); }

    // A station's code and its unit; the basin stands beside the first.
    void ecrireEnTete(int colonne, const QString &station, QStringView unite, bool sert)
    {
        m_feuille.plage(LIGNE_STATION, colonne, LIGNE_UNITE, colonne)
            .ecrire(sert ? Valeurs{{station}, {unite.toString()}} : Valeurs{{QVariant()}, {QVariant()}});
        if (colonne == COLONNE_DATE)
            m_feuille.cellule(LIGNE_STATION, COLONNE_DEBIT).ecrire(m_contenu.bassin);
    }

    void ecrireIntitule(int colonne, const QString &nom)
    {
        m_feuille.cellule(LIGNE_INTITULES, colonne).ecrire(nom.isEmpty() ? QVariant() : QVariant(nom));
    }

    void ecrireLignes(bool pluieEnPremier)
    {
        Valeurs valeurs;
        valeurs.reserve(m_contenu.lignes.size());
        for (const SerieHydrologie::Ligne &ligne : m_contenu.lignes) {
            const QVariant pluie = ouRien(ligne.pluie_mm);
            valeurs.append(pluieEnPremier ? QVector<QVariant>{ligne.date, pluie}
                                          : QVector<QVariant>{ligne.date, ouRien(ligne.debit_l_s), pluie});
        }
        colonne(COLONNE_DATE).formatNombre((parMois() ? FORMAT_MOIS : FORMAT_JOURS).toString());
        m_feuille
            .plage(PREMIERE_LIGNE, COLONNE_DATE, m_derniere, pluieEnPremier ? COLONNE_DEBIT : COLONNE_PLUIE)
            .ecrire(valeurs);
        m_etape();
    }

    void brancher(SerieGraphique &serie, int numero)
    {
        serie.abscisses(colonne(COLONNE_DATE));
        serie.valeurs(colonne(numero));
        serie.nommer(m_feuille.cellule(LIGNE_INTITULES, numero));
        m_etape();
    }

    void espacer(SerieGraphique &colonnes) const
    {
        colonnes.espacement(m_contenu.lignes.size() > COLONNES_ESPACEES ? 0 : ESPACEMENT);
    }

    void habillerDebits(SerieGraphique &ligne) const
    {
        if (m_debits > POINTS_AVEC_MARQUEURS) {
            AspectMarqueur sans;
            sans.style = Marqueur::Aucun;
            ligne.marqueur(sans);
        }
        if (!parMois())
            return;
        AspectEtiquette etiquette;
        etiquette.formatNombre = QStringLiteral("#,##0");
        etiquette.place = PlaceEtiquette::DessusDuPoint;
        etiquette.taillePolice = m_debits > ETIQUETTES_DE_NIVEAU ? 6 : 8;
        etiquette.orientation = m_debits > ETIQUETTES_DE_NIVEAU ? 90 : 0;
        ligne.etiquettes(etiquette);
    }

    void dates()
    {
        AxeGraphique axe = m_graphique.axe(TypeAxe::Categorie);
        axe.formatNombre((parMois() ? FORMAT_MOIS : FORMAT_JOURS).toString());
        axe.orientation(90);
        // One step more at both ends, so that the first and last columns are whole and no label stands on an axis.
        const QDate premier = m_contenu.lignes.first().date;
        const QDate dernier = m_contenu.lignes.last().date;
        EchelleAxe echelle;
        echelle.minimum = numero(parMois() ? premier.addMonths(-1) : premier.addDays(-1));
        echelle.maximum = numero(parMois() ? dernier.addMonths(1) : dernier.addDays(1));
        axe.echelle(echelle);
        axe.entreCategories(true);
    }

    // The day's number in the sheet.
    static double numero(QDate date) { return static_cast<double>(QDate(1899, 12, 30).daysTo(date)); }

    static EchelleAxe deZero()
    {
        EchelleAxe echelle;
        echelle.minimum = 0;
        return echelle;
    }

    static EchelleAxe fixee(const EchelleDepuisZero &echelle)
    {
        EchelleAxe axe = deZero();
        axe.maximum = echelle.maximum;
        axe.pasMajeur = echelle.pas;
        return axe;
    }

    Feuille &m_feuille;
    const ContenuHydrologie &m_contenu;
    const std::function<void()> &m_etape;
    Graphique m_graphique;
    int m_derniere;
    int m_debits = 0;
    double m_debitMaximal = 0;
    double m_pluieMaximale = 0;
};
} // namespace

void tracerDebits(Feuille &feuille, const ContenuHydrologie &contenu, const std::function<void()> &etape)
{
    Trace trace(feuille, contenu, etape);
    trace.titre();
    trace.debits();
}

void tracerPluie(Feuille &feuille, const ContenuHydrologie &contenu, const std::function<void()> &etape)
{
    Trace trace(feuille, contenu, etape);
    trace.titre();
    trace.pluieSeule();
}
