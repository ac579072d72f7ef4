#include "Hasard.h"

#include <cmath>
#include <numbers>

namespace
{
// FNV-1a, 64 bits, over the UTF-8 bytes.
std::uint64_t empreinte(const QString &texte)
{
    std::uint64_t h = 0xcbf29ce484222325ULL;
    const QByteArray octets = texte.toUtf8();
    for (const char octet : octets) {
        h ^= static_cast<unsigned char>(octet);
        h *= 0x100000001b3ULL;
    }
    return h;
}
} // namespace

Hasard::Hasard(const QString &graine) : m_etat(empreinte(graine)) {}

std::uint64_t Hasard::entier()
{
    m_etat += 0x9e3779b97f4a7c15ULL;
    std::uint64_t z = m_etat;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
    return z ^ (z >> 31);
}

double Hasard::uniforme()
{
    return static_cast<double>(entier() >> 11) * 0x1.0p-53;
}

int Hasard::parmi(int n)
{
    return static_cast<int>(uniforme() * n);
}

double Hasard::normale()
{
    // Box and Muller; 1 - u keeps the logarithm off zero.
    const double rayon = std::sqrt(-2.0 * std::log(1.0 - uniforme()));
    return rayon * std::cos(2.0 * std::numbers::pi * uniforme());
}

double Hasard::facteur(double ecart)
{
    return std::exp(ecart * normale());
}
