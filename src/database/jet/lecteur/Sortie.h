// The records that the reading process writes; plain C++, see Protocole.h.
#pragma once

#include "database/jet/Protocole.h"

#include <cstdint>
#include <string>
#include <string_view>

// Builds one record at a time and writes it to the standard output.
class Sortie
{
public:
    void commencer(ProtocoleJet::Genre genre);
    void octet(std::uint8_t v) { m_corps.push_back(static_cast<char>(v)); }
    void mot(std::uint16_t v);
    void entier(std::uint32_t v);
    void entierLong(std::int64_t v);
    void reel(double v);
    void simple(float v);
    void texte(std::string_view v);
    void valeur(ProtocoleJet::Valeur v) { octet(static_cast<std::uint8_t>(v)); }
    // False once nobody reads any more.
    bool finir();
    bool vider();

private:
    template <typename T> void brut(T v);

    std::string m_corps;
    std::string m_tampon;
};
