#include "workbook/Enregistrement.h"

#include "platform/Chemins.h"

#include <com/sun/star/frame/XStorable.hpp>
#include <filesystem>
#include <future>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>
#include <string_view>

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace
{
enum Numero { PasEnregistre = 70 };

// What keeps a file from being written, in words; empty when nothing is known to.
QString obstacle(const QString &chemin)
{
    const QFileInfo info(chemin);
    const QString dossier = QDir::toNativeSeparators(info.absolutePath());
    if (!QFileInfo(info.absolutePath()).isDir())
        return QStringLiteral("le dossier « %1 » n'existe pas.").arg(dossier);
    if (info.isDir())
        return QStringLiteral("un dossier porte déjà ce nom.");
    const bool fichierProtege = info.exists() && !info.isWritable();
    const bool dossierProtege = !info.exists() && !QFileInfo(info.absolutePath()).isWritable();
    if ((fichierProtege || dossierProtege) && QStorageInfo(info.absolutePath()).isReadOnly())
        return QStringLiteral("ce disque est en lecture seule.");
    if (fichierProtege)
        return QStringLiteral("ce fichier est protégé contre l'écriture.");
    if (dossierProtege)
        return QStringLiteral("le dossier « %1 » est protégé contre l'écriture.").arg(dossier);
    // LibreOffice says with this file that it holds a document open; its first field names the user.
    QFile verrou(QStringLiteral("%1/.~lock.%2#").arg(info.absolutePath(), info.fileName()));
    if (info.exists() && verrou.exists()) {
        QString par;
        if (verrou.open(QIODevice::ReadOnly))
            par = QString::fromUtf8(verrou.read(200)).section(QLatin1Char(','), 0, 0).trimmed();
        return QStringLiteral("ce fichier est ouvert dans un autre programme%1. Fermez-le, puis recommencez.")
            .arg(par.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(par));
    }
    // A program that locks what it holds open refuses a second writer.
    QFile essai(chemin);
    if (info.exists() && !essai.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        return QStringLiteral("ce fichier est ouvert dans un autre programme. Fermez-le, puis recommencez.");
    return {};
}

// Why a write failed, `raison` being the system's own words.
QString motifEchec(const QString &dossier, const QString &raison)
{
    constexpr qint64 PLACE_MINIMALE = 1'000'000;
    const qint64 libre = QStorageInfo(dossier).bytesAvailable();
    if (libre >= 0 && libre < PLACE_MINIMALE)
        return QStringLiteral("le disque est plein.");
    return QStringLiteral("l'écriture a échoué (%1).").arg(raison);
}

// Copies a file over another, which is replaced at the end only. The reason of a failure, else nothing.
QString mettreEnPlace(const QString &source, const QString &chemin)
{
    constexpr qint64 MORCEAU = 1 << 20;
    QFile lu(source);
    QSaveFile ecrit(chemin);
    bool bon = lu.open(QIODevice::ReadOnly) && ecrit.open(QIODevice::WriteOnly);
    while (bon && !lu.atEnd()) {
        const QByteArray octets = lu.read(MORCEAU);
        bon = !octets.isEmpty() && ecrit.write(octets) == octets.size();
    }
    if (bon && ecrit.commit())
        return {};
    return motifEchec(QFileInfo(chemin).absolutePath(), ecrit.errorString());
}

// The same for a file that is about to be written again: nothing waits for the disk.
QString copier(const QString &source, const QString &chemin)
{
    const QString provisoire = chemin + QStringLiteral(".partiel");
    QFile::remove(provisoire);
    QFile lu(source);
    const auto droits =
        lu.permissions() | QFile::WriteOwner | QFile::WriteUser; // a template may be write-protected
    std::error_code erreur;
    if (lu.copy(provisoire) && QFile::setPermissions(provisoire, droits)) {
        std::filesystem::rename(std::filesystem::path(provisoire.toStdU16String()),
                                std::filesystem::path(chemin.toStdU16String()), erreur);
        if (!erreur)
            return {};
    }
    const QString raison = erreur ? QString::fromLocal8Bit(erreur.message().c_str()) : lu.errorString();
    QFile::remove(provisoire);
    return motifEchec(QFileInfo(chemin).absolutePath(), raison);
}

// Runs the call on a thread of its own, which may do so as the connection belongs to none, and gives way meanwhile. What
// it throws comes out here.
void ecrireAPart(const std::function<void()> &ecrire, const std::function<void()> &ceder)
{
    constexpr std::chrono::milliseconds PAUSE(30);
    std::future<void> fin = std::async(std::launch::async, ecrire);
    while (fin.wait_for(PAUSE) != std::future_status::ready)
        ceder();
    fin.get();
}

// An Erreur unless there is no reason.
void refuser(const QString &chemin, const QString &raison)
{
    if (!raison.isEmpty())
        throw Erreur(PasEnregistre, QStringLiteral("Le fichier « %1 » ne peut pas être enregistré : %2")
                                        .arg(Chemins::titre(chemin), raison));
}
} // namespace

const char *filtrePour(const QString &cheminHote)
{
    const QString extension = QFileInfo(cheminHote).suffix().toLower();
    if (extension == QLatin1String("xlsx"))
        return "Calc MS Excel 2007 XML";
    if (extension == QLatin1String("ods"))
        return "calc8";
    return FILTRE_XLS;
}

namespace
{
// The application writes the workbook into its own folder: the path of what it wrote.
QString composer(Classeur::Donnees &donnees, const QString &cheminHote, const char *filtre,
                 const SauvegardeLongue::Patience *patience)
{
    donnees.ouvert();
    refuser(cheminHote, obstacle(cheminHote));

    const QString dossier = donnees.instance->dossierTemporaire();
    const QString provisoire = dossier + QStringLiteral("/classeur");
    try {
        const auto ecrire = [&] {
            Reference<css::frame::XStorable>(donnees.document, UNO_QUERY_THROW)
                ->storeToURL(
                    versUno(InstallationCalc::urlDossier(provisoire)),
                    description({propriete("FilterName", Any(rtl::OUString::createFromAscii(filtre))),
                                 propriete("Overwrite", Any(true))}));
        };
        if (patience)
            donnees.instance->appeler(patience->delaiMs, [&] { ecrireAPart(ecrire, patience->ceder); });
        else
            donnees.instance->appeler(donnees.instance->delais().fichier, ecrire);
    } catch (const ErreurTableur &) {
        throw;
    } catch (const Erreur &e) {
        refuser(cheminHote, motifEchec(dossier, e.description()));
    }
    return provisoire;
}

// What the application wrote becomes the file.
void livrer(const QString &provisoire, const RetouchesClasseur &retouches, const QString &cheminHote,
            const char *filtre)
{
    if (!retouches.vide() && std::string_view(filtre) == FILTRE_XLS &&
        !retoucherFichier(provisoire, retouches))
        refuser(cheminHote, QStringLiteral("la mise en forme de ses graphiques n'a pas pu y être portée."));
    const QString raison = mettreEnPlace(provisoire, cheminHote);
    QFile::remove(provisoire);
    refuser(cheminHote, raison);
}
} // namespace

void ecrireClasseur(Classeur::Donnees &donnees, const QString &cheminHote, const char *filtre,
                    const SauvegardeLongue::Patience *patience)
{
    livrer(composer(donnees, cheminHote, filtre, patience), donnees.retouches, cheminHote, filtre);
}

void ecrireEtFermer(Classeur::Donnees &donnees, const QString &cheminHote, const char *filtre)
{
    const QString provisoire = composer(donnees, cheminHote, filtre, nullptr);
    // The call alone: its failure is turned into words here, on the thread that may touch the process.
    std::future<void> fermeture = std::async(std::launch::async, fermerDocument, donnees.document);
    donnees.document.clear();
    const auto attendre = [&] { donnees.instance->appeler([&fermeture] { fermeture.get(); }); };
    try {
        livrer(provisoire, donnees.retouches, cheminHote, filtre);
    } catch (const Erreur &) {
        try {
            attendre(); // under watch, in any case
        } catch (const Erreur &) {
            // What kept the file from its place is what is told.
        }
        throw;
    }
    attendre();
}

void copierClasseur(const QString &source, const QString &cheminHote)
{
    refuser(cheminHote, obstacle(cheminHote));
    refuser(cheminHote, copier(source, cheminHote));
}
