// Values of cells as the application takes them.
// Needs the headers of the office: included by the sources of this folder only.
#pragma once

#include "workbook/BlocValeurs.h"
#include "workbook/Uno.h"

#include <com/sun/star/uno/Any.hxx>

// The number format, in its English form, that a value calls for; null for none.
const char *formatVoulu(const QVariant &valeur);

class BlocValeurs::Donnees
{
public:
    struct Message {
        css::uno::Sequence<css::uno::Sequence<css::uno::Any>> rangees;
        QVector<QPair<int, int>> erreurs; // row and column, from 0, in the whole, of the cells to hold #N/A
    };
    // Rows that go in one message, whole: more would only swell both processes.
    static int rangeesParMessage(int colonnes);
    // Rows `debut` to before `fin`.
    static Message message(const Valeurs &valeurs, int debut, int fin, const QDate &origine);
    // The day numbered 0 in workbooks of our templates.
    static QDate origineUsuelle() { return {1899, 12, 30}; }

    Valeurs valeurs;
    std::vector<Message> messages; // dates counted from the usual origin
};

// Into the rows of a range from `debut` on, counted from 0 inside it.
void envoyerMessage(const Plage::Donnees &plage, int debut, const BlocValeurs::Donnees::Message &message);
void envoyerBloc(const Plage::Donnees &plage, const BlocValeurs::Donnees &bloc);
