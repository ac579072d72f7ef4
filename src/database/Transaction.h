// Several statements as one.
#pragma once

#include <QSqlDatabase>

// Everything since its making is undone when it goes without having been validated. It nests: an inner one is a part of
// the outer one.
class Transaction
{
public:
    explicit Transaction(const QSqlDatabase &base);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    void valider();

private:
    QSqlDatabase m_base;
    bool m_ouverte = true;
};

// While it lives, tables can be dropped and renamed without a thought for what refers to them: foreign keys are off and
// references are left alone. To be made outside a transaction, where the engine would ignore it; one inside another does
// nothing.
class ReglagesStructure
{
public:
    explicit ReglagesStructure(const QSqlDatabase &base);
    ~ReglagesStructure();
    ReglagesStructure(const ReglagesStructure &) = delete;
    ReglagesStructure &operator=(const ReglagesStructure &) = delete;

private:
    QSqlDatabase m_base;
    bool m_clesEtrangeres = false;
    bool m_ancienneMethode = false;
};
