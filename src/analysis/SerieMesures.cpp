#include "analysis/SerieMesures.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{
// dixiemes / 10 to the nearest whole, ties to even. In whole numbers, as 0.1 and 0.9 have no exact binary form.
qint64 arrondirDixiemes(qint64 dixiemes)
{
    const qint64 entier = dixiemes / 10;
    const qint64 reste = dixiemes % 10;
    if (reste > 5 || (reste == 5 && entier % 2 != 0))
        return entier + 1;
    return entier;
}
} // namespace

SerieMesures::SerieMesures(std::vector<MesureRetenue> retenues, qint64 taille)
    : m_triees(std::move(retenues)), m_effectif(taille)
{
    std::sort(m_triees.begin(), m_triees.end(), [](const MesureRetenue &g, const MesureRetenue &d) {
        return g.valeur != d.valeur ? g.valeur < d.valeur : g.moitie < d.moitie;
    });
    Q_ASSERT(taille >= this->retenues());
    if (taille > this->retenues())
        --m_effectif;
}

std::optional<double> SerieMesures::a(qint64 position) const
{
    if (position < 1 || position > retenues())
        return std::nullopt;
    return m_triees[static_cast<size_t>(position - 1)].valeur;
}

std::optional<double> SerieMesures::moyenne() const
{
    if (m_triees.empty())
        return std::nullopt;
    double somme = 0;
    for (const MesureRetenue &mesure : m_triees)
        somme += mesure.moitie ? mesure.valeur / 2 : mesure.valeur;
    return somme / static_cast<double>(m_effectif);
}

std::optional<double> SerieMesures::quantile90() const
{
    return a(positionQuantile90(m_effectif));
}

std::optional<double> SerieMesures::quantile10() const
{
    return a(positionQuantile10(m_effectif));
}

std::optional<double> SerieMesures::mediane() const
{
    if (m_triees.empty())
        return std::nullopt;
    if (m_effectif % 2 != 0)
        return a((m_effectif + 1) / 2).value_or(0);
    return (a(m_effectif / 2).value_or(0) + a(m_effectif / 2 + 1).value_or(0)) / 2;
}

std::optional<double> SerieMesures::ecartType() const
{
    const std::optional<double> centre = moyenne();
    if (!centre)
        return std::nullopt;
    double somme = 0;
    for (const MesureRetenue &mesure : m_triees)
        somme += (mesure.valeur - *centre) * (mesure.valeur - *centre);
    return std::sqrt(somme / static_cast<double>(m_effectif));
}

qint64 positionQuantile90(qint64 n)
{
    return n <= 10 ? n : arrondirDixiemes(9 * n + 5);
}

qint64 positionQuantile10(qint64 n)
{
    return n < 10 ? 1 : arrondirDixiemes(n);
}
