#include "workbook/Plage.h"

#include "workbook/CellulesUno.h"
#include "workbook/DonneesClasseur.h"
#include "workbook/FormatsPlage.h"

#include <cmath>
#include <com/sun/star/sheet/CellDeleteMode.hpp>
#include <com/sun/star/sheet/CellFlags.hpp>
#include <com/sun/star/sheet/CellInsertMode.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XCellRangeMovement.hpp>
#include <com/sun/star/sheet/XSheetOperation.hpp>
#include <com/sun/star/table/XCell.hpp>

using css::uno::Any;
using css::uno::Reference;
using css::uno::Sequence;
using css::uno::UNO_QUERY_THROW;

namespace
{
enum Numero { TailleDifferente = 50 };

constexpr qint64 SECONDES_PAR_JOUR = 86'400;

Reference<css::sheet::XCellRangeData> cellulesDe(const Plage::Donnees &donnees, int premiere, int derniere)
{
    return {donnees.tranche(premiere, derniere), UNO_QUERY_THROW};
}

// Sign of an error by the spreadsheet's number for it.
QString signeErreur(sal_Int32 numero)
{
    switch (numero) {
    case 32767:
        return QStringLiteral("#N/A");
    case 532:
        return QStringLiteral("#DIV/0!");
    case 524:
        return QStringLiteral("#REF!");
    case 525:
        return QStringLiteral("#NAME?");
    case 519:
        return QStringLiteral("#VALUE!");
    case 503:
        return QStringLiteral("#NUM!");
    case 521:
        return QStringLiteral("#NULL!");
    default:
        return QStringLiteral("#ERR%1").arg(numero);
    }
}

QVariant nombreLu(double nombre, NatureFormat nature, const QDate &origine)
{
    constexpr double DERNIER_JOUR = 2'958'465; // 31/12/9999
    if (nature == NatureFormat::Autre || !(nombre >= 0 && nombre < DERNIER_JOUR + 1))
        return nombre;
    const auto secondes = static_cast<qint64>(std::llround(nombre * SECONDES_PAR_JOUR));
    const QTime heure = QTime(0, 0).addSecs(static_cast<int>(secondes % SECONDES_PAR_JOUR));
    if (nature == NatureFormat::Heure)
        return heure;
    return QDateTime(origine.addDays(secondes / SECONDES_PAR_JOUR), heure, Qt::UTC);
}

int lignesDe(const Plage::Donnees &donnees)
{
    return donnees.adresse.EndRow - donnees.adresse.StartRow + 1;
}

int colonnesDe(const Plage::Donnees &donnees)
{
    return donnees.adresse.EndColumn - donnees.adresse.StartColumn + 1;
}

// The cells of a range, those of `natures` that are dates or times as such.
Valeurs lireCellules(const Plage::Donnees &donnees, const GrilleFormats &natures)
{
    const QDate origine = donnees.feuille->classeur->origineDates;
    const int lignes = lignesDe(donnees);
    const int colonnes = colonnesDe(donnees);
    const int pas = BlocValeurs::Donnees::rangeesParMessage(colonnes);
    Valeurs valeurs(lignes);
    for (int debut = 0; debut < lignes; debut += pas) {
        const int fin = qMin(debut + pas, lignes) - 1;
        const Sequence<Sequence<Any>> lues = cellulesDe(donnees, debut, fin)->getDataArray();
        for (int l = debut; l <= fin; ++l) {
            const Sequence<Any> &cellules = lues[l - debut];
            QVector<QVariant> &rangee = valeurs[l];
            rangee.resize(colonnes);
            for (int c = 0; c < colonnes; ++c) {
                const Any &cellule = cellules[c];
                if (rtl::OUString texte; cellule >>= texte) {
                    if (!texte.isEmpty())
                        rangee[c] = versQt(texte);
                } else if (double nombre = 0; cellule >>= nombre) {
                    rangee[c] = nombreLu(nombre, natures.nature(l, c), origine);
                } else { // an error has no value
                    rangee[c] = QVariant::fromValue(
                        ErreurCellule{signeErreur(donnees.plage()->getCellByPosition(c, l)->getError())});
                }
            }
        }
    }
    return valeurs;
}

void verifierTaille(const Plage::Donnees &donnees, const Valeurs &valeurs)
{
    const auto colonnes = static_cast<qsizetype>(colonnesDe(donnees));
    const bool taille =
        valeurs.size() == lignesDe(donnees) &&
        std::all_of(valeurs.cbegin(), valeurs.cend(), [&](const auto &v) { return v.size() == colonnes; });
    if (!taille)
        throw Erreur(
            TailleDifferente,
            QStringLiteral("Les valeurs à écrire n'ont pas la taille de la plage (%1 lignes, %2 colonnes).")
                .arg(lignesDe(donnees))
                .arg(colonnes));
}

// The formats that the values call for.
FormatsVoulus formatsVoulus(const Plage::Donnees &donnees, const Valeurs &valeurs)
{
    FormatsVoulus formats(donnees);
    for (int l = 0; l < valeurs.size(); ++l)
        for (int c = 0; c < valeurs.at(l).size(); ++c)
            if (const char *format = formatVoulu(valeurs.at(l).at(c)))
                formats.vouloir(l, c, QLatin1String(format));
    return formats;
}
} // namespace

Plage::Plage(std::shared_ptr<Donnees> donnees) : m_donnees(std::move(donnees)) {}

int Plage::ligne() const
{
    return m_donnees->adresse.StartRow + 1;
}

int Plage::colonne() const
{
    return m_donnees->adresse.StartColumn + 1;
}

int Plage::lignes() const
{
    return lignesDe(*m_donnees);
}

int Plage::colonnes() const
{
    return colonnesDe(*m_donnees);
}

Valeurs Plage::valeurs() const
{
    return m_donnees->appeler([this] { return lireCellules(*m_donnees, GrilleFormats(*m_donnees)); });
}

Valeurs Plage::contenu() const
{
    return m_donnees->appeler([this] { return lireCellules(*m_donnees, GrilleFormats()); });
}

QVariant Plage::valeur() const
{
    return (lignes() == 1 && colonnes() == 1 ? *this : cellule(1, 1)).valeurs().first().first();
}

Plage Plage::cellule(int ligne, int colonne) const
{
    css::table::CellRangeAddress lieu = m_donnees->adresse;
    lieu.StartRow = lieu.EndRow = lieu.StartRow + ligne - 1;
    lieu.StartColumn = lieu.EndColumn = lieu.StartColumn + colonne - 1;
    return Plage(std::make_shared<Donnees>(m_donnees->feuille, lieu));
}

void Plage::ecrire(const QVariant &valeur)
{
    ecrire(Valeurs(lignes(), QVector<QVariant>(colonnes(), valeur)));
}

void Plage::ecrire(const Valeurs &valeurs)
{
    ecrireContenu(valeurs);
    m_donnees->appeler([&] { formatsVoulus(*m_donnees, valeurs).appliquer(); });
}

void Plage::ecrireContenu(const Valeurs &valeurs)
{
    verifierTaille(*m_donnees, valeurs);
    const QDate &origine = m_donnees->feuille->classeur->origineDates;
    const int pas = BlocValeurs::Donnees::rangeesParMessage(colonnes());
    m_donnees->appeler([&] {
        for (int debut = 0; debut < lignes(); debut += pas)
            envoyerMessage(
                *m_donnees, debut,
                BlocValeurs::Donnees::message(valeurs, debut, qMin(debut + pas, lignes()), origine));
    });
}

void Plage::ecrireBloc(const BlocValeurs &bloc)
{
    if (m_donnees->feuille->classeur->origineDates != BlocValeurs::Donnees::origineUsuelle()) {
        ecrireContenu(bloc.donnees().valeurs);
        return;
    }
    verifierTaille(*m_donnees, bloc.donnees().valeurs);
    m_donnees->appeler([&] { envoyerBloc(*m_donnees, bloc.donnees()); });
}

void Plage::viderContenu()
{
    constexpr sal_Int32 CONTENU = css::sheet::CellFlags::VALUE | css::sheet::CellFlags::DATETIME |
                                  css::sheet::CellFlags::STRING | css::sheet::CellFlags::FORMULA;
    m_donnees->appeler([this] {
        Reference<css::sheet::XSheetOperation>(m_donnees->plage(), UNO_QUERY_THROW)->clearContents(CONTENU);
    });
}

void Plage::effacer()
{
    constexpr sal_Int32 TOUT = css::sheet::CellFlags::VALUE | css::sheet::CellFlags::DATETIME |
                               css::sheet::CellFlags::STRING | css::sheet::CellFlags::FORMULA |
                               css::sheet::CellFlags::ANNOTATION | css::sheet::CellFlags::HARDATTR |
                               css::sheet::CellFlags::STYLES;
    m_donnees->appeler([this] {
        Reference<css::sheet::XSheetOperation>(m_donnees->plage(), UNO_QUERY_THROW)->clearContents(TOUT);
    });
}

void Plage::supprimerCellules(bool versLeHaut)
{
    m_donnees->appeler([&] {
        Reference<css::sheet::XCellRangeMovement>(m_donnees->feuille->objet(), UNO_QUERY_THROW)
            ->removeRange(m_donnees->adresse,
                          versLeHaut ? css::sheet::CellDeleteMode_UP : css::sheet::CellDeleteMode_LEFT);
    });
    ++m_donnees->feuille->classeur->deplacements;
}

void Plage::insererCellules(bool versLeBas)
{
    m_donnees->appeler([&] {
        Reference<css::sheet::XCellRangeMovement>(m_donnees->feuille->objet(), UNO_QUERY_THROW)
            ->insertCells(m_donnees->adresse,
                          versLeBas ? css::sheet::CellInsertMode_DOWN : css::sheet::CellInsertMode_RIGHT);
    });
    ++m_donnees->feuille->classeur->deplacements;
}
