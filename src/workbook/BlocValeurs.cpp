#include "workbook/BlocValeurs.h"

#include "platform/Erreur.h"
#include "workbook/CellulesUno.h"
#include "workbook/DonneesClasseur.h"
#include "workbook/Feuille.h"

#include <cmath>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/table/XCell.hpp>
#include <future>

using css::uno::Any;
using css::uno::Sequence;

namespace
{
enum Numero { ValeurInconnue = 51 };

constexpr qint64 MILLISECONDES_PAR_JOUR = 86'400'000;

// A cell holds no more; the application would cut the rest off without a sign.
QString abreger(const QString &texte)
{
    constexpr qsizetype LONGUEUR_MAXIMALE = 32'767;
    return texte.size() <= LONGUEUR_MAXIMALE ? texte : texte.left(LONGUEUR_MAXIMALE - 1) + QChar(0x2026);
}

double fractionDuJour(const QTime &heure)
{
    return QTime(0, 0).msecsTo(heure) / static_cast<double>(MILLISECONDES_PAR_JOUR);
}

// A value as a cell takes it; an empty one stands for the error #N/A, which no array of values can hold. An Erreur for a
// type that no cell holds.
Any valeurEcrite(const QVariant &valeur, const QDate &origineDates)
{
    switch (valeur.typeId()) {
    case QMetaType::UnknownType:
        return Any(rtl::OUString());
    case QMetaType::QString:
        return Any(versUno(abreger(valeur.toString())));
    case QMetaType::QDate: {
        const QDate jour = valeur.toDate();
        return jour.isValid() ? Any(static_cast<double>(origineDates.daysTo(jour))) : Any(rtl::OUString());
    }
    case QMetaType::QDateTime: {
        const QDateTime moment = valeur.toDateTime();
        if (!moment.isValid())
            return Any(rtl::OUString());
        return Any(static_cast<double>(origineDates.daysTo(moment.date())) + fractionDuJour(moment.time()));
    }
    case QMetaType::QTime: {
        const QTime heure = valeur.toTime();
        return heure.isValid() ? Any(fractionDuJour(heure)) : Any(rtl::OUString());
    }
    default:
        break;
    }
    bool estNombre = false;
    const double nombre = valeur.toDouble(&estNombre);
    if (!estNombre)
        throw Erreur(ValeurInconnue,
                     QStringLiteral("Une valeur de type « %1 » ne peut pas être écrite dans une cellule.")
                         .arg(QLatin1String(valeur.typeName())));
    return std::isfinite(nombre) ? Any(nombre) : Any();
}
} // namespace

const char *formatVoulu(const QVariant &valeur)
{
    switch (valeur.typeId()) {
    case QMetaType::QDate:
        return valeur.toDate().isValid() ? "dd/mm/yyyy" : nullptr;
    case QMetaType::QDateTime:
        if (!valeur.toDateTime().isValid())
            return nullptr;
        return valeur.toDateTime().time() > QTime(0, 0) ? "dd/mm/yyyy hh:mm" : "dd/mm/yyyy";
    case QMetaType::QTime:
        return valeur.toTime().isValid() ? "hh:mm" : nullptr;
    default:
        return nullptr;
    }
}

int BlocValeurs::Donnees::rangeesParMessage(int colonnes)
{
    constexpr int CELLULES = 80'000;
    return qMax(1, CELLULES / qMax(1, colonnes));
}

BlocValeurs::Donnees::Message BlocValeurs::Donnees::message(const Valeurs &valeurs, int debut, int fin,
                                                            const QDate &origine)
{
    Message pret;
    pret.rangees.realloc(fin - debut);
    Sequence<Any> *rangees = pret.rangees.getArray();
    for (int l = debut; l < fin; ++l) {
        const QVector<QVariant> &source = valeurs.at(l);
        Sequence<Any> rangee(static_cast<sal_Int32>(source.size()));
        Any *cellules = rangee.getArray();
        for (int c = 0; c < source.size(); ++c) {
            cellules[c] = valeurEcrite(source.at(c), origine);
            if (!cellules[c].hasValue()) {
                // An array with such a value in it would bring the application down.
                pret.erreurs.append({l, c});
                cellules[c] <<= rtl::OUString();
            }
        }
        rangees[l - debut] = rangee;
    }
    return pret;
}

BlocValeurs::BlocValeurs(const Valeurs &valeurs)
{
    auto donnees = std::make_shared<Donnees>();
    donnees->valeurs = valeurs;
    const auto lignes = static_cast<int>(valeurs.size());
    const int pas =
        Donnees::rangeesParMessage(lignes > 0 ? static_cast<int>(valeurs.constFirst().size()) : 0);
    for (int debut = 0; debut < lignes; debut += pas)
        donnees->messages.push_back(
            Donnees::message(valeurs, debut, qMin(debut + pas, lignes), Donnees::origineUsuelle()));
    m_donnees = std::move(donnees);
}

int BlocValeurs::lignes() const
{
    return static_cast<int>(m_donnees->valeurs.size());
}

int BlocValeurs::colonnes() const
{
    return lignes() > 0 ? static_cast<int>(m_donnees->valeurs.constFirst().size()) : 0;
}

void envoyerMessage(const Plage::Donnees &plage, int debut, const BlocValeurs::Donnees::Message &message)
{
    const css::uno::Reference<css::sheet::XCellRangeData> cellules(
        plage.tranche(debut, debut + message.rangees.getLength() - 1), css::uno::UNO_QUERY_THROW);
    cellules->setDataArray(message.rangees);
    for (const auto &[l, c] : message.erreurs)
        plage.plage()->getCellByPosition(c, l)->setFormula("=NA()");
}

void envoyerBloc(const Plage::Donnees &plage, const BlocValeurs::Donnees &bloc)
{
    int debut = 0;
    for (const BlocValeurs::Donnees::Message &message : bloc.messages) {
        envoyerMessage(plage, debut, message);
        debut += message.rangees.getLength();
    }
}

void ecrireBlocs(Feuille &feuille, const QVector<BlocPlace> &blocs)
{
    std::vector<Plage> plages;
    for (const BlocPlace &bloc : blocs)
        plages.push_back(feuille.plage(bloc.ligne, bloc.colonne, bloc.ligne + bloc.valeurs.lignes() - 1,
                                       bloc.colonne + bloc.valeurs.colonnes() - 1));
    if (feuille.donnees().classeur->origineDates != BlocValeurs::Donnees::origineUsuelle()) {
        for (size_t i = 0; i < plages.size(); ++i)
            plages[i].ecrireBloc(blocs[static_cast<qsizetype>(i)].valeurs);
        return;
    }
    // Each on a thread of its own, the calls alone: the application takes them from all, and writes one after the other.
    feuille.donnees().appeler([&] {
        std::vector<std::future<void>> envois;
        for (size_t i = 0; i < plages.size(); ++i) {
            const Plage::Donnees &plage = plages[i].donnees();
            plage.plage(); // asked for here: the thread only writes
            envois.push_back(std::async(std::launch::async, envoyerBloc, std::cref(plage),
                                        std::cref(blocs[static_cast<qsizetype>(i)].valeurs.donnees())));
        }
        for (auto &envoi : envois)
            envoi.get();
    });
}
