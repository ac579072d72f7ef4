#include "database/jet/lecteur/Sortie.h"

#include <cstdio>
#include <cstring>

using namespace ProtocoleJet;

namespace
{
constexpr std::size_t TAMPON = 131072;
}

template <typename T> void Sortie::brut(T v)
{
    for (std::size_t i = 0; i < sizeof(T); ++i)
        m_corps.push_back(static_cast<char>((v >> (8 * i)) & 0xff));
}

void Sortie::commencer(Genre genre)
{
    m_corps.assign(TAILLE_ENTETE, '\0');
    m_corps[0] = static_cast<char>(genre);
}

void Sortie::mot(std::uint16_t v)
{
    brut(v);
}

void Sortie::entier(std::uint32_t v)
{
    brut(v);
}

void Sortie::entierLong(std::int64_t v)
{
    brut(static_cast<std::uint64_t>(v));
}

void Sortie::reel(double v)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &v, sizeof bits);
    brut(bits);
}

void Sortie::simple(float v)
{
    std::uint32_t bits = 0;
    std::memcpy(&bits, &v, sizeof bits);
    brut(bits);
}

void Sortie::texte(std::string_view v)
{
    entier(static_cast<std::uint32_t>(v.size()));
    m_corps.append(v);
}

bool Sortie::finir()
{
    const auto taille = static_cast<std::uint32_t>(m_corps.size() - TAILLE_ENTETE);
    for (std::size_t i = 0; i < 4; ++i)
        m_corps[1 + i] = static_cast<char>((taille >> (8 * i)) & 0xff);
    m_tampon.append(m_corps);
    return m_tampon.size() < TAMPON || vider();
}

bool Sortie::vider()
{
    const bool ecrit = std::fwrite(m_tampon.data(), 1, m_tampon.size(), stdout) == m_tampon.size() &&
                       std::fflush(stdout) == 0;
    m_tampon.clear();
    return ecrit;
}
