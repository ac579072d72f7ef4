// The one menu from which every function is reached.
#pragma once

#include <QStringView>
#include <span>

enum class GenreEntree {
    Menu,     // opens a submenu
    Commande, // does something
    Cachee,   // a command that exists but is not shown
};

struct EntreeMenu {
    QStringView nom;
    QStringView libelle;
    QStringView parent;
    GenreEntree genre;
    QStringView icone; // ":/icones/<icone>.svg"; empty for none
};

std::span<const EntreeMenu> menuPrincipal();
