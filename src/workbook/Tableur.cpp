#include "workbook/Tableur.h"

#include "platform/Chemins.h"
#include "workbook/DonneesClasseur.h"
#include "workbook/FormatFichier.h"
#include "workbook/LectureCsv.h"

#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <QFileInfo>

using css::uno::Any;

namespace
{
enum Numero { PasOuvert = 20, MotDePasse };

const char *filtreDe(FormatFichier format)
{
    switch (format) {
    case FormatFichier::Xls:
        return "MS Excel 97";
    case FormatFichier::Xlsx:
        return "Calc MS Excel 2007 XML";
    case FormatFichier::Ods:
        return "calc8";
    case FormatFichier::Csv:
        break;
    }
    return "Text - txt - csv (StarCalc)";
}

std::shared_ptr<Classeur::Donnees> charger(const std::shared_ptr<InstanceCalc> &instance, const QString &url,
                                           const std::vector<css::beans::PropertyValue> &options,
                                           const QString &chemin, bool lectureSeule)
{
    return instance->appeler(instance->delais().fichier, [&]() -> std::shared_ptr<Classeur::Donnees> {
        // Held, as the instance may be ended meanwhile.
        const css::uno::Reference<css::frame::XComponentLoader> chargeur = instance->chargeur();
        const css::uno::Reference<css::sheet::XSpreadsheetDocument> document(
            chargeur->loadComponentFromURL(versUno(url), "_blank", 0, description(options)),
            css::uno::UNO_QUERY);
        if (!document.is())
            return nullptr;
        // Nobody will undo: what is overwritten need not be kept.
        css::uno::Reference<css::beans::XPropertySet>(document, css::uno::UNO_QUERY_THROW)
            ->setPropertyValue("IsUndoEnabled", Any(false));
        return std::make_shared<Classeur::Donnees>(instance, document, chemin, lectureSeule);
    });
}
} // namespace

Tableur::Tableur() = default;

Tableur::~Tableur()
{
    quitter();
}

void Tableur::demarrerEnAvance()
{
    if (!m_instance)
        m_instance = std::make_shared<InstanceCalc>(m_programme, m_delais);
}

std::shared_ptr<InstanceCalc> Tableur::instance()
{
    if (m_instance && !m_instance->repond())
        m_instance.reset();
    demarrerEnAvance();
    // A copy: what runs while this waits may end the program, and the instance with it.
    std::shared_ptr<InstanceCalc> courante = m_instance;
    courante->attendre(m_ceder);
    return courante;
}

std::function<std::unique_ptr<Classeur>()> Tableur::preparerOuverture(const QString &cheminHote,
                                                                      bool lectureSeule)
{
    const ExamenFichier examen = examinerFichier(cheminHote);
    const std::shared_ptr<InstanceCalc> courante = instance();
    std::vector<css::beans::PropertyValue> options{
        propriete("Hidden", Any(true)),
        // Never as the file's owner: what another program holds open is read all the same, and left as it is. A document
        // opened as a reader refuses to be written in, one made from the file as from a template does not; saving under
        // the file's name goes by `enregistrer`, which makes its own checks.
        propriete(lectureSeule ? "ReadOnly" : "AsTemplate", Any(true)),
        propriete("FilterName", Any(rtl::OUString::createFromAscii(filtreDe(examen.format)))),
        propriete("UpdateDocMode", Any(css::document::UpdateDocMode::NO_UPDATE)),
        propriete("MacroExecutionMode", Any(css::document::MacroExecMode::NEVER_EXECUTE)),
    };
    if (examen.format == FormatFichier::Csv)
        options.push_back(propriete("FilterOptions", Any(versUno(optionsCsv(cheminHote)))));

    return [courante, options, cheminHote, lectureSeule, chiffre = examen.chiffre] {
        const QString nom = Chemins::titre(cheminHote);
        std::shared_ptr<Classeur::Donnees> donnees;
        QString raison;
        try {
            donnees =
                charger(courante, InstallationCalc::urlDossier(QFileInfo(cheminHote).absoluteFilePath()),
                        options, cheminHote, lectureSeule);
        } catch (const ErreurTableur &) {
            throw;
        } catch (const Erreur &e) {
            raison = e.description();
        }
        if (!donnees && chiffre)
            throw Erreur(MotDePasse,
                         QStringLiteral("Le fichier « %1 » est protégé par un mot de passe. Enregistrez-le "
                                        "sans mot de passe, puis recommencez.")
                             .arg(nom));
        if (!donnees)
            throw Erreur(
                PasOuvert,
                QStringLiteral("Le fichier « %1 » ne peut pas être ouvert : il est abîmé, ou protégé "
                               "par un mot de passe. %2")
                    .arg(nom, raison)
                    .trimmed());
        return std::make_unique<Classeur>(std::move(donnees));
    };
}

std::unique_ptr<Classeur> Tableur::ouvrir(const QString &cheminHote, bool lectureSeule)
{
    return preparerOuverture(cheminHote, lectureSeule)();
}

std::future<std::unique_ptr<Classeur>> Tableur::commencerOuverture(const QString &cheminHote)
{
    return std::async(std::launch::async, preparerOuverture(cheminHote, false));
}

std::unique_ptr<Classeur> Tableur::ajouter()
{
    auto donnees = charger(instance(), QStringLiteral("private:factory/scalc"),
                           {propriete("Hidden", Any(true))}, QString(), false);
    if (!donnees)
        throw Erreur(
            PasOuvert,
            QStringLiteral("LibreOffice n'a pas pu créer de classeur : son module Calc est absent."));
    return std::make_unique<Classeur>(std::move(donnees));
}

void Tableur::quitter()
{
    if (m_instance)
        m_instance->arreter();
    m_instance.reset();
}

void Tableur::tuer()
{
    ProcessusLie::abattre(numeroProcessus());
}

qint64 Tableur::numeroProcessus() const
{
    return m_instance ? m_instance->numeroProcessus() : 0;
}

void Tableur::definirProgramme(const QString &cheminHote)
{
    m_programme = cheminHote;
}

void Tableur::definirDelais(const DelaisTableur &delais)
{
    m_delais = delais;
}

void Tableur::definirAttente(const std::function<void()> &ceder)
{
    m_ceder = ceder;
}
