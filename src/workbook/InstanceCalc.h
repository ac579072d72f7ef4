// One running LibreOffice Calc: its process, the connection to it, and the calls made through it.
// Needs the headers of the office: included by the sources of this folder only.
#pragma once

#include "platform/ProcessusLie.h"
#include "workbook/Garde.h"
#include "workbook/InstallationCalc.h"
#include "workbook/Tableur.h"
#include "workbook/Uno.h"

#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <future>
#include <optional>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <type_traits>

class InstanceCalc
{
public:
    // Starts the process and, on a thread, the connection; returns at once and throws nothing.
    InstanceCalc(const QString &programmeImpose, const DelaisTableur &delais);
    ~InstanceCalc();
    InstanceCalc(const InstanceCalc &) = delete;
    InstanceCalc &operator=(const InstanceCalc &) = delete;

    // Waits until the instance can be used, calling `ceder` meanwhile; an ErreurTableur tells why it cannot.
    void attendre(const std::function<void()> &ceder);
    // False once its process is gone, or it never ran, or does not answer within the bound (it is then killed).
    bool repond();
    // Kills the process. Whoever still holds a workbook of it gets an ErreurTableur.
    void arreter();
    qint64 numeroProcessus() const
    {
        return m_processus && m_processus->vivant() ? m_processus->numero() : 0;
    }
    // Host path of a folder that goes with the instance.
    QString dossierTemporaire() const { return m_profil->path() + QStringLiteral("/tmp"); }
    const DelaisTableur &delais() const { return m_delais; }
    // An object of the application by its service's full name.
    css::uno::Reference<css::uno::XInterface> creer(const rtl::OUString &service) const
    {
        return m_fabrique->createInstanceWithContext(service, m_contexte);
    }
    const css::uno::Reference<css::frame::XComponentLoader> &chargeur() const { return m_chargeur; }

    // Runs calls to the application under watch. Its exceptions come out as Erreur, its death as ErreurTableur.
    template <class F> std::invoke_result_t<F> appeler(int delai, F &&appels)
    {
        verifierVie();
        try {
            const Garde::Veille veille(m_garde, delai);
            return appels();
        } catch (const css::lang::DisposedException &e) {
            traduire(e, true);
        } catch (const css::uno::Exception &e) {
            traduire(e, false);
        }
    }
    template <class F> std::invoke_result_t<F> appeler(F &&appels)
    {
        return appeler(m_delais.appel, std::forward<F>(appels));
    }

private:
    void lancer();
    void connecter();
    void echouer(int numero, const QString &raison);
    void verifierVie();
    [[noreturn]] void traduire(const css::uno::Exception &exception, bool connexionCoupee);

    DelaisTableur m_delais;
    InstallationCalc m_installation;
    QString m_nomTube;
    std::optional<QTemporaryDir> m_profil;
    std::unique_ptr<ProcessusLie> m_processus;
    QElapsedTimer m_depuisLancement;
    std::optional<ErreurTableur> m_echec; // why it can no longer be used
    Garde m_garde;
    std::atomic<bool> m_abandon{false};
    std::future<void> m_connexion;
    QString m_echecConnexion; // written by the connection's thread, read after its end
    bool m_prete = false;
    bool m_relancee = false; // it asked for it, once
    css::uno::Reference<css::uno::XComponentContext> m_contexte;
    css::uno::Reference<css::lang::XMultiComponentFactory> m_fabrique;
    css::uno::Reference<css::frame::XComponentLoader> m_chargeur;
};
