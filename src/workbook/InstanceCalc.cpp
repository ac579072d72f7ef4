#include "workbook/InstanceCalc.h"

#include <com/sun/star/bridge/UnoUrlResolver.hpp>
#include <com/sun/star/bridge/XUnoUrlResolver.hpp>
#include <com/sun/star/connection/NoConnectException.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <QCoreApplication>
#include <QDir>
#include <QThread>
#include <QUuid>
#include <rtl/bootstrap.hxx>

using css::uno::Reference;

namespace
{
enum Numero { Absent = 1, Demarrage, Morte, Figee };

// The office's runtime inside our own process, that makes remote objects look local. Made once; never taken down, as
// threads of a connection may outlive it by a moment at the end of the program.
const Reference<css::uno::XComponentContext> &contexteLocal(const QString &dossierProgramme)
{
    static const auto *contexte = [&dossierProgramme] {
        const rtl::OUString dossier = versUno(InstallationCalc::urlDossier(dossierProgramme));
        rtl::Bootstrap::set("URE_INTERNAL_LIB_DIR", dossier);
        rtl::Bootstrap::set("UNO_TYPES", dossier + "/types.rdb " + dossier + "/types/offapi.rdb");
        rtl::Bootstrap::set("UNO_SERVICES", dossier + "/services.rdb");
        return new Reference(cppu::defaultBootstrap_InitialComponentContext(dossier + "/unorc"));
    }();
    return *contexte;
}

// Code by which the office says that it must be started again, having changed its own profile.
bool demandeRelance(int codeSortie)
{
    return codeSortie == 79 || codeSortie == 81;
}
} // namespace

InstanceCalc::InstanceCalc(const QString &programmeImpose, const DelaisTableur &delais) : m_delais(delais)
{
    m_depuisLancement.start();
    try {
        m_installation = InstallationCalc::chercher(programmeImpose);
        if (m_installation.programme.isEmpty() || m_installation.dossierProgramme.isEmpty())
            throw Erreur(Absent,
                         QStringLiteral("LibreOffice Calc est introuvable sur cet ordinateur. Installez-le, "
                                        "puis recommencez."));
        m_profil.emplace(QDir::tempPath() + QStringLiteral("/ovralis-calc-XXXXXX"));
        if (!m_profil->isValid())
            throw Erreur(Demarrage, QStringLiteral("Le dossier temporaire « %1 » ne peut pas être écrit : %2")
                                        .arg(QDir::tempPath(), m_profil->errorString()));
        m_installation.ecrireProfil(m_profil->path());
        m_nomTube = QStringLiteral("ovralis") + QUuid::createUuid().toString(QUuid::Id128);
        lancer();
        m_connexion = std::async(std::launch::async, [this] { connecter(); });
    } catch (const Erreur &e) {
        echouer(e.numero(), e.description());
    }
}

InstanceCalc::~InstanceCalc()
{
    arreter();
}

void InstanceCalc::lancer()
{
    const QString dossier = m_profil->path();
    const QStringList arguments{
        QStringLiteral("-env:UserInstallation=") + InstallationCalc::urlDossier(dossier),
        QStringLiteral("--headless"),
        QStringLiteral("--invisible"),
        QStringLiteral("--norestore"),
        QStringLiteral("--nolockcheck"),
        QStringLiteral("--nologo"),
        QStringLiteral("--nodefault"),
        QStringLiteral("--nofirststartwizard"),
        QStringLiteral("--accept=pipe,name=%1;urp;StarOffice.ComponentContext").arg(m_nomTube),
    };
    // Its temporary files in the profile, erased with it; file names in UTF-8 whatever our locale; no display.
    const QStringList environnement{QStringLiteral("TMPDIR=") + dossier + QStringLiteral("/tmp"),
                                    QStringLiteral("LC_ALL=C.UTF-8"),
                                    QStringLiteral("SAL_USE_VCLPLUGIN=svp")};
    m_processus =
        std::make_unique<ProcessusLie>(m_installation.programme, arguments, environnement,
                                       InstallationCalc::prises(dossier, m_nomTube) + QStringList(dossier));
    m_garde.definirProcessus(m_processus->numero());
}

// On its own thread. Ends with the connection made, or without it when abandoned.
void InstanceCalc::connecter()
{
    try {
        const auto &local = contexteLocal(m_installation.dossierProgramme);
        const auto resolveur = css::bridge::UnoUrlResolver::create(local);
        const rtl::OUString url =
            versUno(QStringLiteral("uno:pipe,name=%1;urp;StarOffice.ComponentContext").arg(m_nomTube));
        while (!m_abandon) {
            try {
                m_contexte.set(resolveur->resolve(url), css::uno::UNO_QUERY_THROW);
                m_fabrique.set(m_contexte->getServiceManager(), css::uno::UNO_SET_THROW);
                m_chargeur.set(css::frame::Desktop::create(m_contexte), css::uno::UNO_QUERY_THROW);
                return;
            } catch (const css::connection::NoConnectException &) {
                QThread::msleep(15); // not listening yet
            }
        }
    } catch (const css::uno::Exception &e) {
        m_echecConnexion = versQt(e.Message); // `attendre` sees that there is no loader
    }
}

void InstanceCalc::attendre(const std::function<void()> &ceder)
{
    while (!m_prete && !m_echec) {
        if (ceder)
            ceder();
        if (m_echec) // it may have been ended from there
            break;
        if (m_connexion.wait_for(std::chrono::milliseconds(10)) == std::future_status::ready) {
            if (m_chargeur.is())
                m_prete = true;
            else
                echouer(Demarrage, QStringLiteral("LibreOffice Calc s'est arrêté pendant son démarrage. ") +
                                       m_echecConnexion);
        } else if (!m_processus->vivant()) {
            if (demandeRelance(m_processus->codeSortie()) && !m_relancee) {
                m_relancee = true;
                m_processus->relancer();
                m_garde.definirProcessus(m_processus->numero());
                continue;
            }
            const QString detail = m_processus->erreurDemarrage().isEmpty()
                                       ? QStringLiteral("code %1").arg(m_processus->codeSortie())
                                       : m_processus->erreurDemarrage();
            echouer(Demarrage, QStringLiteral("LibreOffice Calc n'a pas pu démarrer (%1).").arg(detail));
        } else if (m_depuisLancement.elapsed() > m_delais.demarrage) {
            echouer(Demarrage, QStringLiteral("LibreOffice Calc n'a pas démarré en %1 secondes.")
                                   .arg(m_delais.demarrage / 1000));
        }
    }
    verifierVie();
}

void InstanceCalc::echouer(int numero, const QString &raison)
{
    if (!m_echec)
        m_echec.emplace(numero, raison);
    m_abandon = true;
    if (m_processus)
        m_processus->tuer();
    if (m_connexion.valid())
        m_connexion.wait();
}

void InstanceCalc::arreter()
{
    echouer(Morte, QStringLiteral("LibreOffice Calc a été arrêté."));
    m_chargeur.clear();
    m_fabrique.clear();
    m_contexte.clear();
    m_processus.reset();
}

bool InstanceCalc::repond()
{
    if (m_echec)
        return false;
    if (!m_prete)
        return m_processus->vivant();
    try {
        appeler(m_delais.essai, [this] { m_contexte->getServiceManager(); });
    } catch (const ErreurTableur &) {
        return false;
    }
    return true;
}

void InstanceCalc::verifierVie()
{
    if (m_echec)
        throw ErreurTableur(*m_echec);
}

void InstanceCalc::traduire(const css::uno::Exception &exception, bool connexionCoupee)
{
    if (m_garde.aTue())
        echouer(Figee, QStringLiteral("LibreOffice Calc ne répondait plus et a été arrêté."));
    verifierVie();
    // The connection is lost a moment before the process can be seen to be dead.
    if (m_processus->attendreFin(connexionCoupee ? 2000 : 0))
        echouer(Morte, QStringLiteral("LibreOffice Calc s'est arrêté brusquement."));
    verifierVie();
    throw Erreur(0, versQt(exception.Message));
}
