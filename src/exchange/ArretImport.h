// Why a row stops an import: a fault that the user is told of, or an element that he must settle.
#pragma once

#include "exchange/ImportSession.h"

#include <QString>

// Thrown by the steps of a row, caught by the run (CourseImport), which stores where it stands and hands the case to
// the screens.
struct ArretImport {
    enum class Genre {
        Faute,          // a length or a format: `texte` is shown and the run is over
        ElementVide,    // F_Choix, mode 1
        ElementInconnu, // F_Choix, mode 2
        UniteRefusee,   // F_Choix_unite
        DejaImporte,    // F_Import_Remplace
    };

    Genre genre = Genre::Faute;
    QString texte;         // Faute: the message
    QString libelleAction; // what lbl_action shows
    TypeElement type = TypeElement::Aucun;
    QString nom; // goes to ElementNom, and so on
    QString code;
    QString unite;
    QString parametre;

    // "... Corrigez votre fichier puis recommencer l'import des données." behind `debut`.
    static ArretImport faute(const QString &debut);
    // A value longer than its column: "Le paramètre '" + value + "' ne doit contenir que 255 caractères au maximum..."
    static ArretImport tropLong(const QString &debut, const QString &valeur, int maximum);
    static ArretImport elementVide(const QString &libelleAction, TypeElement type = TypeElement::Aucun);
    static ArretImport elementInconnu(TypeElement type, const QString &nom, const QString &code = {});
};

// A value as a message quotes it: whole up to a few lines of text, cut with "…" beyond.
QString citer(const QString &valeur);

// What lbl_action shows for an element of this kind; empty where the caller sets it.
QString libelleElement(TypeElement type);
