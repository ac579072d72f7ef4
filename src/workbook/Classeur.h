// One open workbook.
#pragma once

#include "workbook/Feuille.h"

#include <memory>
#include <QString>
#include <QStringList>

// Closed without saving when destroyed.
class Classeur
{
public:
    class Donnees;
    explicit Classeur(std::unique_ptr<Donnees> donnees);
    ~Classeur();

    // Saves under this host path in the .xls format; the workbook then bears that name. An existing file is replaced.
    void enregistrerSous(const QString &cheminHote);
    void enregistrer();
    void fermer();

    QStringList feuilles() const;
    // A sheet by its name, or by its position from 1. An absent one is an Erreur.
    Feuille feuille(const QString &nom) const;
    Feuille feuille(int position) const;
    Feuille ajouterFeuille(const QString &nom);

    // The range behind a defined name ("reseau_sandre"), or nothing.
    std::optional<Plage> plageNommee(const QString &nom) const;
    void nommerPlage(const QString &nom, const Plage &plage);

private:
    std::unique_ptr<Donnees> m_donnees;
};
