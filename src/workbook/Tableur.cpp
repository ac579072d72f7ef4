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

using Document = css::uno::Reference<css::sheet::XSpreadsheetDocument>;

// The call alone: what it throws is the application's own. Empty for a file that it makes no sheets of.
Document charger(const css::uno::Reference<css::frame::XComponentLoader> &chargeur, const QString &url,
                 const std::vector<css::beans::PropertyValue> &options)
{
    return {chargeur->loadComponentFromURL(versUno(url), "_blank", 0, description(options)),
            css::uno::UNO_QUERY};
}

std::shared_ptr<Classeur::Donnees> donneesDe(const std::shared_ptr<InstanceCalc> &instance,
                                             const Document &document, const QString &chemin,
                                             bool lectureSeule)
{
    if (!document.is())
        return nullptr;
    // Nobody will undo: what is overwritten need not be kept.
    css::uno::Reference<css::beans::XPropertySet>(document, css::uno::UNO_QUERY_THROW)
        ->setPropertyValue("IsUndoEnabled", Any(false));
    return std::make_shared<Classeur::Donnees>(instance, document, chemin, lectureSeule);
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

// The call runs on a thread of its own, for which the connection has no owner. Its failure is turned into words on the main
// one, which alone may touch the process.
class OuvertureEnCours::Donnees
{
public:
    std::shared_ptr<InstanceCalc> instance;
    QString chemin;
    bool lectureSeule = false;
    bool chiffre = false; // with a password
    std::future<Document> document;
};

OuvertureEnCours::OuvertureEnCours(std::unique_ptr<Donnees> donnees) : m_donnees(std::move(donnees)) {}

OuvertureEnCours::~OuvertureEnCours()
{
    try {
        if (m_donnees)
            attendre();
    } catch (const Erreur &) {
        // Nobody wants it any more.
    }
}

std::unique_ptr<Classeur> OuvertureEnCours::attendre()
{
    const std::unique_ptr<Donnees> d = std::move(m_donnees);
    const QString nom = Chemins::titre(d->chemin);
    std::shared_ptr<Classeur::Donnees> ouvert;
    QString raison;
    try {
        ouvert = d->instance->appeler(d->instance->delais().fichier, [&d] {
            return donneesDe(d->instance, d->document.get(), d->chemin, d->lectureSeule);
        });
    } catch (const ErreurTableur &) {
        throw;
    } catch (const Erreur &e) {
        raison = e.description();
    }
    if (!ouvert && d->chiffre)
        throw Erreur(MotDePasse,
                     QStringLiteral("Le fichier « %1 » est protégé par un mot de passe. Enregistrez-le "
                                    "sans mot de passe, puis recommencez.")
                         .arg(nom));
    if (!ouvert)
        throw Erreur(PasOuvert,
                     QStringLiteral("Le fichier « %1 » ne peut pas être ouvert : il est abîmé, ou protégé "
                                    "par un mot de passe. %2")
                         .arg(nom, raison)
                         .trimmed());
    return std::make_unique<Classeur>(std::move(ouvert));
}

OuvertureEnCours Tableur::commencerOuverture(const QString &cheminHote, bool lectureSeule)
{
    const ExamenFichier examen = examinerFichier(cheminHote);
    auto donnees = std::make_unique<OuvertureEnCours::Donnees>();
    donnees->instance = instance();
    donnees->chemin = cheminHote;
    donnees->lectureSeule = lectureSeule;
    donnees->chiffre = examen.chiffre;
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
    const QString url = InstallationCalc::urlDossier(QFileInfo(cheminHote).absoluteFilePath());
    donnees->document = std::async(std::launch::async, charger, donnees->instance->chargeur(), url, options);
    return OuvertureEnCours(std::move(donnees));
}

std::unique_ptr<Classeur> Tableur::ouvrir(const QString &cheminHote, bool lectureSeule)
{
    return commencerOuverture(cheminHote, lectureSeule).attendre();
}

std::unique_ptr<Classeur> Tableur::ajouter()
{
    const std::shared_ptr<InstanceCalc> courante = instance();
    auto donnees = courante->appeler(courante->delais().fichier, [&courante] {
        const Document document = charger(courante->chargeur(), QStringLiteral("private:factory/scalc"),
                                          {propriete("Hidden", Any(true))});
        return donneesDe(courante, document, QString(), false);
    });
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
