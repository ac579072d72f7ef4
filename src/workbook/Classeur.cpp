#include "workbook/Classeur.h"

#include "workbook/DonneesClasseur.h"
#include "workbook/Enregistrement.h"

#include <com/sun/star/container/NoSuchElementException.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/lang/Locale.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeReferrer.hpp>
#include <com/sun/star/sheet/XNamedRanges.hpp>
#include <com/sun/star/sheet/XSpreadsheets.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <com/sun/star/util/Date.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <com/sun/star/util/XNumberFormats.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>
#include <com/sun/star/util/XNumberFormatTypes.hpp>

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace
{
enum Numero { FeuilleAbsente = 30, SansNom, DejaFerme, NomRefuse };
} // namespace

Classeur::Donnees::Donnees(std::shared_ptr<InstanceCalc> instanceCalc,
                           const Reference<css::sheet::XSpreadsheetDocument> &doc, QString cheminHote,
                           bool lecture)
    : instance(std::move(instanceCalc)), document(doc), chemin(std::move(cheminHote)), lectureSeule(lecture)
{
    css::util::Date origine(30, 12, 1899);
    Reference<css::beans::XPropertySet>(doc, UNO_QUERY_THROW)->getPropertyValue("NullDate") >>= origine;
    origineDates = QDate(origine.Year, origine.Month, origine.Day);
}

const Reference<css::sheet::XSpreadsheetDocument> &Classeur::Donnees::ouvert() const
{
    if (!document.is())
        throw Erreur(DejaFerme, QStringLiteral("Le classeur est déjà fermé."));
    return document;
}

const Reference<css::util::XNumberFormats> &Classeur::Donnees::formats()
{
    if (!m_formats.is())
        m_formats =
            Reference<css::util::XNumberFormatsSupplier>(document, UNO_QUERY_THROW)->getNumberFormats();
    return m_formats;
}

sal_Int32 Classeur::Donnees::cleFormat(const QString &format)
{
    if (const auto connue = m_cles.constFind(format); connue != m_cles.constEnd())
        return *connue;
    // Turned into the instance's own language: a format of another one is marked with that language in the file.
    const css::lang::Locale anglais("en", "US", rtl::OUString());
    const css::lang::Locale sien;
    sal_Int32 cle = -1;
    if (format == QLatin1String("General"))
        cle = Reference<css::util::XNumberFormatTypes>(formats(), UNO_QUERY_THROW)->getStandardIndex(sien);
    else
        cle = formats()->addNewConverted(versUno(format), anglais, sien);
    m_cles.insert(format, cle);
    return cle;
}

sal_Int16 Classeur::Donnees::typeFormat(sal_Int32 cle)
{
    if (const auto connu = m_types.constFind(cle); connu != m_types.constEnd())
        return *connu;
    sal_Int16 type = 0;
    formats()->getByKey(cle)->getPropertyValue("Type") >>= type;
    m_types.insert(cle, type);
    return type;
}

Classeur::Classeur(std::shared_ptr<Donnees> donnees) : m_donnees(std::move(donnees)) {}

Classeur::~Classeur()
{
    try {
        fermer();
    } catch (const Erreur &) {
        // The instance is gone, and the workbook with it.
    }
}

void Classeur::enregistrerSous(const QString &cheminHote)
{
    ecrireClasseur(*m_donnees, cheminHote, filtrePour(cheminHote));
    m_donnees->chemin = cheminHote;
    m_donnees->lectureSeule = false;
}

void Classeur::reprendreSous(const QString &cheminHote)
{
    m_donnees->ouvert();
    copierClasseur(m_donnees->chemin, cheminHote);
    m_donnees->chemin = cheminHote;
    m_donnees->lectureSeule = false;
}

const QString &Classeur::Donnees::cheminEnregistrable() const
{
    if (lectureSeule || chemin.isEmpty())
        throw Erreur(SansNom,
                     QStringLiteral("Ce classeur est ouvert en lecture seule ou n'a pas encore de nom : "
                                    "il ne peut pas être enregistré."));
    return chemin;
}

void Classeur::enregistrer()
{
    const QString &chemin = m_donnees->cheminEnregistrable();
    ecrireClasseur(*m_donnees, chemin, filtrePour(chemin));
}

void Classeur::enregistrerEtFermer()
{
    const QString &chemin = m_donnees->cheminEnregistrable();
    ecrireEtFermer(*m_donnees, chemin, filtrePour(chemin));
}

void Classeur::exporterPdf(const QString &cheminHote)
{
    const auto tous = [this](auto &&faire) {
        m_donnees->instance->appeler([&] {
            for (const auto &graphique : m_donnees->graphiques)
                faire(graphique);
        });
    };
    tous([](const auto &graphique) { graphique->unlockControllers(); });
    ecrireClasseur(*m_donnees, cheminHote, "calc_pdf_Export");
    tous([](const auto &graphique) { graphique->lockControllers(); });
}

void Classeur::fermer()
{
    m_donnees->fermer();
}

void Classeur::Donnees::fermer()
{
    if (!document.is())
        return;
    const Reference<css::sheet::XSpreadsheetDocument> ferme = document;
    document.clear();
    instance->appeler([&ferme] { fermerDocument(ferme); });
}

void fermerDocument(const Reference<css::sheet::XSpreadsheetDocument> &document)
{
    Reference<css::util::XCloseable>(document, UNO_QUERY_THROW)->close(true);
}

QString Classeur::chemin() const
{
    return m_donnees->chemin;
}

QStringList Classeur::feuilles() const
{
    return m_donnees->instance->appeler([this] {
        QStringList noms;
        const css::uno::Sequence<rtl::OUString> lus = m_donnees->ouvert()->getSheets()->getElementNames();
        for (const rtl::OUString &nom : lus)
            noms.append(versQt(nom));
        return noms;
    });
}

Feuille Classeur::feuille(const QString &nom) const
{
    return m_donnees->instance->appeler([&] {
        try {
            const Reference<css::sheet::XSpreadsheet> trouvee(
                m_donnees->ouvert()->getSheets()->getByName(versUno(nom)), UNO_QUERY_THROW);
            return Feuille(std::make_shared<Feuille::Donnees>(m_donnees, trouvee));
        } catch (const css::container::NoSuchElementException &) {
            throw Erreur(FeuilleAbsente, QStringLiteral("Le classeur n'a pas de feuille « %1 ».").arg(nom));
        }
    });
}

Feuille Classeur::feuille(int position) const
{
    return m_donnees->instance->appeler([&] {
        const Reference<css::container::XIndexAccess> toutes(m_donnees->ouvert()->getSheets(),
                                                             UNO_QUERY_THROW);
        if (position < 1 || position > toutes->getCount())
            throw Erreur(FeuilleAbsente,
                         QStringLiteral("Le classeur n'a pas de feuille n° %1.").arg(position));
        const Reference<css::sheet::XSpreadsheet> trouvee(toutes->getByIndex(position - 1), UNO_QUERY_THROW);
        return Feuille(std::make_shared<Feuille::Donnees>(m_donnees, trouvee));
    });
}

Feuille Classeur::ajouterFeuille(const QString &nom)
{
    m_donnees->instance->appeler([&] {
        const Reference<css::sheet::XSpreadsheets> toutes = m_donnees->ouvert()->getSheets();
        if (toutes->hasByName(versUno(nom)))
            throw Erreur(NomRefuse, QStringLiteral("Le classeur a déjà une feuille « %1 ».").arg(nom));
        const Reference<css::container::XIndexAccess> parPosition(toutes, UNO_QUERY_THROW);
        toutes->insertNewByName(versUno(nom), static_cast<sal_Int16>(parPosition->getCount()));
    });
    return feuille(nom);
}

std::optional<Plage> Classeur::plageNommee(const QString &nom) const
{
    return m_donnees->instance->appeler([&]() -> std::optional<Plage> {
        const Reference<css::container::XIndexAccess> toutes(m_donnees->ouvert()->getSheets(),
                                                             UNO_QUERY_THROW);
        // A name belongs to the workbook or, in files of other programs, to one sheet.
        QVector<Reference<css::uno::XInterface>> porteurs{m_donnees->ouvert()};
        for (sal_Int32 i = 0; i < toutes->getCount(); ++i)
            porteurs.append(Reference<css::uno::XInterface>(toutes->getByIndex(i), UNO_QUERY_THROW));
        for (const auto &porteur : porteurs) {
            const Reference<css::container::XNameAccess> noms(
                Reference<css::beans::XPropertySet>(porteur, UNO_QUERY_THROW)
                    ->getPropertyValue("NamedRanges"),
                UNO_QUERY_THROW);
            if (!noms->hasByName(versUno(nom)))
                continue;
            const Reference<css::sheet::XCellRangeReferrer> nommee(noms->getByName(versUno(nom)),
                                                                   css::uno::UNO_QUERY);
            const Reference<css::table::XCellRange> plage =
                nommee.is() ? nommee->getReferredCells() : nullptr;
            if (!plage.is())
                continue; // a name may stand for a formula or a constant
            const css::table::CellRangeAddress lieu =
                Reference<css::sheet::XCellRangeAddressable>(plage, UNO_QUERY_THROW)->getRangeAddress();
            const Reference<css::sheet::XSpreadsheet> feuille(toutes->getByIndex(lieu.Sheet),
                                                              UNO_QUERY_THROW);
            auto donneesFeuille = std::make_shared<Feuille::Donnees>(m_donnees, feuille);
            return Plage(std::make_shared<Plage::Donnees>(std::move(donneesFeuille), lieu));
        }
        return std::nullopt;
    });
}

void Classeur::policeParDefaut(const QString &nom, double points)
{
    m_donnees->instance->appeler([&] {
        const Reference<css::style::XStyleFamiliesSupplier> styles(m_donnees->ouvert(), UNO_QUERY_THROW);
        const Reference<css::container::XNameAccess> cellules(
            styles->getStyleFamilies()->getByName("CellStyles"), UNO_QUERY_THROW);
        const Reference<css::beans::XPropertySet> style(cellules->getByName("Default"), UNO_QUERY_THROW);
        style->setPropertyValue("CharFontName", css::uno::Any(versUno(nom)));
        style->setPropertyValue("CharHeight", css::uno::Any(static_cast<float>(points)));
    });
}

void Classeur::figerHauteurs()
{
    m_donnees->instance->appeler([this] {
        Reference<css::beans::XPropertySet>(m_donnees->ouvert(), UNO_QUERY_THROW)
            ->setPropertyValue("IsAdjustHeightEnabled", css::uno::Any(false));
    });
}

void Classeur::nommerPlage(const QString &nom, const Plage &plage)
{
    m_donnees->instance->appeler([&] {
        const css::table::CellRangeAddress &lieu = plage.donnees().adresse;
        const Reference<css::sheet::XNamedRanges> noms(
            Reference<css::beans::XPropertySet>(m_donnees->ouvert(), UNO_QUERY_THROW)
                ->getPropertyValue("NamedRanges"),
            UNO_QUERY_THROW);
        if (noms->hasByName(versUno(nom)))
            noms->removeByName(versUno(nom));
        rtl::OUString adresse;
        plage.donnees().lire("AbsoluteName") >>= adresse;
        noms->addNewByName(versUno(nom), adresse,
                           css::table::CellAddress(lieu.Sheet, lieu.StartColumn, lieu.StartRow), 0);
    });
}
