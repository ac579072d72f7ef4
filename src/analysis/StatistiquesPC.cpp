#include "analysis/StatistiquesPC.h"

namespace
{
// The running maximum and minimum. The minimum only follows strictly positive values, so that a series of zeros has none.
class Extremes
{
public:
    void ajouter(double valeur)
    {
        if (valeur > m_maximum)
            m_maximum = valeur;
        if (valeur > 0 && valeur < m_minimum)
            m_minimum = valeur;
    }

    double maximumOuZero() const { return m_maximum; }

    std::optional<double> maximum() const
    {
        return m_maximum == 0 ? std::nullopt : std::optional<double>(m_maximum);
    }

    std::optional<double> minimum() const
    {
        return m_minimum == AUCUN ? std::nullopt : std::optional<double>(m_minimum);
    }

private:
    static constexpr double AUCUN = 999999999;
    double m_maximum = 0;
    double m_minimum = AUCUN;
};

class CompteDepassements
{
public:
    explicit CompteDepassements(const Limites &limites) : m_limites(limites) {}

    void ajouter(double valeur)
    {
        ++m_total;
        m_moyen += m_limites.objectifMoyen && valeur > *m_limites.objectifMoyen ? 1 : 0;
        m_maximum += m_limites.objectifMaximum && valeur > *m_limites.objectifMaximum ? 1 : 0;
        m_seuil += m_limites.seuil && valeur > *m_limites.seuil ? 1 : 0;
    }

    Depassements frequences() const
    {
        return {frequence(m_limites.objectifMoyen, m_moyen), frequence(m_limites.objectifMaximum, m_maximum),
                frequence(m_limites.seuil, m_seuil)};
    }

private:
    std::optional<double> frequence(const std::optional<double> &limite, int nombre) const
    {
        if (!limite || m_total == 0)
            return std::nullopt;
        return 100.0 * nombre / m_total;
    }

    const Limites &m_limites;
    int m_total = 0;
    int m_moyen = 0;
    int m_maximum = 0;
    int m_seuil = 0;
};

// The mean weighted by the flows. It holds only when there are as many flows as accepted records: one sampling day
// without a flow, and the year has none.
class MoyennePonderee
{
public:
    void ajouter(double valeur, const QList<double> &debits)
    {
        ++m_mesures;
        for (const double debit : debits) {
            ++m_debits;
            m_sommeDebits += debit;
            m_sommePonderee += debit * valeur;
        }
    }

    std::optional<double> moyenne() const
    {
        if (m_debits == 0 || m_debits != m_mesures || m_sommeDebits == 0)
            return std::nullopt;
        return m_sommePonderee / m_sommeDebits;
    }

private:
    int m_mesures = 0;
    int m_debits = 0;
    double m_sommeDebits = 0;
    double m_sommePonderee = 0;
};

// What runs on over all the years.
struct CumulPeriode {
    explicit CumulPeriode(const Limites &limites) : depassements(limites) {}

    std::vector<MesureRetenue> retenues;
    Extremes extremes;
    CompteDepassements depassements;
};

StatistiquesAnnee calculerAnnee(const AnneeLue &lue, const DonneesStatistiques &donnees,
                                CumulPeriode &periode, QStringList &sources)
{
    std::vector<MesureRetenue> retenues;
    Extremes extremes;
    CompteDepassements depassements(donnees.limites);
    MoyennePonderee ponderee;

    for (const EnregistrementPC &enregistrement : lue.enregistrements) {
        const EffetRemarque effet = effetRemarque(enregistrement.codeRemarque);
        if (!donnees.filtres.accepte(enregistrement) || effet == EffetRemarque::Ecarte)
            continue;
        const MesureRetenue mesure{enregistrement.valeur, effet == EffetRemarque::Moitie};
        retenues.push_back(mesure);
        periode.retenues.push_back(mesure);
        extremes.ajouter(mesure.valeur);
        periode.extremes.ajouter(mesure.valeur);
        depassements.ajouter(mesure.valeur);
        periode.depassements.ajouter(mesure.valeur);
        ponderee.ajouter(mesure.valeur, lue.debits.value(enregistrement.date));
        if (!enregistrement.gestionnaire.isEmpty() && !sources.contains(enregistrement.gestionnaire))
            sources << enregistrement.gestionnaire;
    }

    StatistiquesAnnee annee;
    annee.vide = retenues.empty();
    if (annee.vide)
        return annee;
    const SerieMesures serie(std::move(retenues), lue.enregistrements.size());
    annee.effectif = serie.effectif();
    annee.moyenne = serie.moyenne();
    annee.quantile90 = serie.quantile90();
    annee.maximum = extremes.maximum();
    annee.quantile10 = serie.quantile10();
    annee.minimum = extremes.minimum();
    annee.depassements = depassements.frequences();
    annee.mediane = serie.mediane();
    annee.ecartType = serie.ecartType();
    annee.moyennePonderee = ponderee.moyenne();
    if (donnees.grille && annee.quantile90)
        annee.couleurClasse = couleurClasseSEQ(*annee.quantile90, *donnees.grille);
    return annee;
}

StatistiquesPeriode calculerPeriode(const CumulPeriode &cumul, qint64 taille)
{
    StatistiquesPeriode periode;
    periode.vide = cumul.retenues.empty();
    if (periode.vide)
        return periode;
    const SerieMesures serie(cumul.retenues, taille);
    periode.effectif = serie.effectif();
    periode.moyenne = serie.moyenne();
    periode.maximum = cumul.extremes.maximumOuZero();
    periode.minimum = cumul.extremes.minimum();
    periode.depassements = cumul.depassements.frequences();
    periode.quantile90 = serie.quantile90();
    periode.quantile10 = serie.quantile10();
    periode.ecartType = serie.ecartType();
    periode.mediane = serie.mediane();
    return periode;
}
} // namespace

std::optional<double> numeroRemarque(const QString &codeRemarque)
{
    QString nombre = codeRemarque.trimmed();
    nombre.replace(u',', u'.');
    bool lisible = false;
    const double code = nombre.toDouble(&lisible);
    return lisible ? std::optional<double>(code) : std::nullopt;
}

EffetRemarque effetRemarque(const QString &codeRemarque)
{
    const std::optional<double> code = numeroRemarque(codeRemarque);
    if (code == 0)
        return EffetRemarque::Ecarte;
    return code == 2 ? EffetRemarque::Moitie : EffetRemarque::TelQuel;
}

bool FiltresMesures::accepte(const EnregistrementPC &enregistrement) const
{
    if (!gestionnaires.isEmpty() && !gestionnaires.contains(enregistrement.gestionnaire))
        return false;
    return commentaires.isEmpty() || commentaires.contains(enregistrement.commentaire);
}

ResultatStatistiques calculerStatistiques(const DonneesStatistiques &donnees)
{
    ResultatStatistiques resultat;
    CumulPeriode periode(donnees.limites);
    for (const AnneeLue &lue : donnees.annees) {
        resultat.annees << calculerAnnee(lue, donnees, periode, resultat.sources);
        resultat.mesuresLues += static_cast<int>(lue.enregistrements.size());
    }
    const auto retenues = static_cast<qint64>(periode.retenues.size());
    resultat.mesuresRetenues = static_cast<int>(retenues);
    // Another program may have taken results out of the base since they were read: never fewer entries than values.
    resultat.surLaBase = calculerPeriode(periode, std::max(donnees.resultatsDeLaBase, retenues));
    resultat.surLesRetenues = calculerPeriode(periode, retenues);
    return resultat;
}
