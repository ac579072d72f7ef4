// Numbers that look drawn at random and are the same on every run and every machine.
#pragma once

#include <cstdint>
#include <QString>

// Each series has its own generator, seeded by what it stands for ("04999010|1340|2012-05-08"): a station added or a
// campaign moved changes no other value of the study. The generator is SplitMix64 (Steele, Lea and Flood, 2014).
class Hasard
{
public:
    explicit Hasard(const QString &graine);
    explicit Hasard(std::uint64_t graine) : m_etat(graine) {}

    std::uint64_t entier();
    // Uniform in [0, 1).
    double uniforme();
    // Uniform among 0 to n-1.
    int parmi(int n);
    // Gaussian of mean 0 and deviation 1.
    double normale();
    // exp of a Gaussian of this deviation: a factor around 1.
    double facteur(double ecart);

private:
    std::uint64_t m_etat;
};
