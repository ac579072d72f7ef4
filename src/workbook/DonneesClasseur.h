// What stands behind the handles Classeur, Feuille and Plage.
// Needs the headers of the office: included by the sources of this folder only.
#pragma once

#include "workbook/Classeur.h"
#include "workbook/InstanceCalc.h"
#include "workbook/RetouchesGraphique.h"
#include "workbook/Uno.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/drawing/XDrawPage.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/table/CellRangeAddress.hpp>
#include <com/sun/star/table/XCellRange.hpp>
#include <com/sun/star/util/XNumberFormats.hpp>
#include <QHash>
#include <vector>

class Classeur::Donnees
{
public:
    Donnees(std::shared_ptr<InstanceCalc> instanceCalc,
            const css::uno::Reference<css::sheet::XSpreadsheetDocument> &doc, QString cheminHote,
            bool lecture);

    // The document; an Erreur once it is closed.
    const css::uno::Reference<css::sheet::XSpreadsheetDocument> &ouvert() const;
    // The path under which it can be saved; an Erreur where there is none.
    const QString &cheminEnregistrable() const;
    void fermer();
    // Key of a number format given in its English form; made when the document lacks it.
    sal_Int32 cleFormat(const QString &format);
    // Type of a format (css::util::NumberFormat flags) by its key.
    sal_Int16 typeFormat(sal_Int32 cle);

    std::shared_ptr<InstanceCalc> instance;
    css::uno::Reference<css::sheet::XSpreadsheetDocument> document; // empty once closed
    QString chemin;
    bool lectureSeule = false;
    QDate origineDates; // the day numbered 0
    // Counts the insertions and deletions of cells: some make the application's sheet objects forget a column, so that
    // they are asked for again after each.
    int deplacements = 0;
    int renommages = 0; // of sheets
    // Charts that were asked for: drawn only when the workbook is to be seen, as the application would draw each anew
    // to answer the filter's questions, which takes longer than all the rest of a save.
    std::vector<css::uno::Reference<css::frame::XModel>> graphiques;
    // What a .xls is to be given after each save.
    RetouchesClasseur retouches;
    void suspendre(const css::uno::Reference<css::frame::XModel> &graphique)
    {
        graphique->lockControllers();
        graphiques.push_back(graphique);
    }

private:
    const css::uno::Reference<css::util::XNumberFormats> &formats();

    css::uno::Reference<css::util::XNumberFormats> m_formats;
    QHash<QString, sal_Int32> m_cles;
    QHash<sal_Int32, sal_Int16> m_types;
};

// The call alone: what it throws is the application's own.
void fermerDocument(const css::uno::Reference<css::sheet::XSpreadsheetDocument> &document);

class Feuille::Donnees
{
public:
    Donnees(std::shared_ptr<Classeur::Donnees> donneesClasseur,
            const css::uno::Reference<css::sheet::XSpreadsheet> &objet)
        : classeur(std::move(donneesClasseur)), m_objet(objet), m_deplacements(classeur->deplacements)
    {
    }

    std::shared_ptr<Classeur::Donnees> classeur;
    const css::uno::Reference<css::sheet::XSpreadsheet> &objet() const;
    QString nom() const;
    void renommer(const QString &nom);
    // Its place among the sheets, from 0: asked once, as sheets are only ever added after the others.
    sal_Int16 rang() const;
    // Its drawn objects.
    const css::uno::Reference<css::drawing::XDrawPage> &dessins() const;
    // All calls to the application go through here.
    template <class F> std::invoke_result_t<F> appeler(F &&appels) const
    {
        classeur->ouvert();
        return classeur->instance->appeler(std::forward<F>(appels));
    }

private:
    mutable css::uno::Reference<css::sheet::XSpreadsheet> m_objet;
    mutable int m_deplacements;
    mutable QString m_nom;
    mutable int m_renommages = 0; // what the workbook had seen of them when the name was asked
    mutable std::optional<sal_Int16> m_rang;
    mutable css::uno::Reference<css::drawing::XDrawPage> m_dessins;
};

class Plage::Donnees
{
public:
    Donnees(std::shared_ptr<Feuille::Donnees> feuilleDonnees, const css::table::CellRangeAddress &lieu)
        : feuille(std::move(feuilleDonnees)), adresse(lieu)
    {
    }

    // The application's object, asked for when it is needed: a chart only wants the address.
    const css::uno::Reference<css::table::XCellRange> &plage() const;

    // The same rectangle's part, rows counted from 0 inside it.
    css::uno::Reference<css::table::XCellRange> tranche(int premiereLigne, int derniereLigne) const
    {
        if (premiereLigne == 0 && derniereLigne == adresse.EndRow - adresse.StartRow)
            return plage();
        return plage()->getCellRangeByPosition(0, premiereLigne, adresse.EndColumn - adresse.StartColumn,
                                               derniereLigne);
    }
    // Asked for once: each question to the application is a message and its answer.
    const css::uno::Reference<css::beans::XPropertySet> &proprietes() const
    {
        if (!m_proprietes.is())
            m_proprietes.set(plage(), css::uno::UNO_QUERY_THROW);
        return m_proprietes;
    }
    void definir(const char *propriete, const css::uno::Any &valeur) const
    {
        appeler([&] { proprietes()->setPropertyValue(rtl::OUString::createFromAscii(propriete), valeur); });
    }
    css::uno::Any lire(const char *propriete) const
    {
        return appeler(
            [&] { return proprietes()->getPropertyValue(rtl::OUString::createFromAscii(propriete)); });
    }
    template <class F> std::invoke_result_t<F> appeler(F &&appels) const
    {
        return feuille->appeler(std::forward<F>(appels));
    }

    std::shared_ptr<Feuille::Donnees> feuille;
    css::table::CellRangeAddress adresse; // from 0

private:
    mutable css::uno::Reference<css::table::XCellRange> m_plage;
    mutable css::uno::Reference<css::beans::XPropertySet> m_proprietes;
};
