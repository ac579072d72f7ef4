// The few texts of a column of many rows, each under a number.
#pragma once

#include <QByteArrayView>
#include <QHash>
#include <QList>
#include <QString>

// Codes are numbered as they come, as they are written; their names are found whatever the case of their letters.
class Lexique
{
public:
    // The number of an absent code.
    static constexpr int AUCUN = -1;
    enum class Par { Code, Libelle };

    // `noms`: names by code, folded (toCaseFolded).
    explicit Lexique(QHash<QString, QString> noms = {}) : m_noms(std::move(noms)) {}

    // The number of a code in UTF-8, given at its first use; AUCUN for an empty one.
    int numero(QByteArrayView code);
    int taille() const { return static_cast<int>(m_codes.size()); }
    // Empty for AUCUN.
    QString code(int numero) const { return numero < 0 ? QString() : m_codes.at(numero); }
    // The name; the code itself where it has none.
    QString libelle(int numero) const { return numero < 0 ? QString() : m_libelles.at(numero); }

    // For each number its place in the order of the codes or of the names, from 1; equal texts share a place.
    QList<quint32> rangs(Par par) const;
    // The same for texts of any origin: numbers by their value before texts in French order, 0 for an empty text.
    static QList<quint32> rangs(const QList<QString> &textes);

private:
    QHash<QString, QString> m_noms;
    QHash<QByteArray, int> m_numeros;
    QList<QString> m_codes;
    QList<QString> m_libelles;
};
