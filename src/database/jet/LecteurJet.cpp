#include "database/jet/LecteurJet.h"

#include "database/jet/FluxJet.h"
#include "platform/Erreur.h"

#include <cmath>
#include <QCoreApplication>
#include <QDate>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>

using namespace ProtocoleJet;

namespace
{
constexpr int ERREUR_LECTEUR = 3051; // Jet's own number for a base that it cannot open
constexpr int ERREUR_ENDOMMAGE = 3049;
constexpr int BATTEMENT_MS = 40;

QString programmeLecteur()
{
    const QString nom = QStringLiteral("ovralis-lecteur-jet")
#ifdef Q_OS_WIN
                        + QStringLiteral(".exe")
#endif
        ;
    const QString dossier = QCoreApplication::applicationDirPath();
    // Beside the program; where tests and tools are built, in the program's own folder.
    for (const QString &candidat : {dossier + u'/' + nom, dossier + QStringLiteral("/../bin/") + nom})
        if (QFileInfo(candidat).isExecutable())
            return candidat;
    throw Erreur(
        ERREUR_LECTEUR,
        QStringLiteral("Le programme de lecture des bases Access (%1) est introuvable à côté d'Ovralis. "
                       "Réinstallez Ovralis.")
            .arg(nom));
}
} // namespace

QVariant ValeurJet::variant() const
{
    switch (genre) {
    case Valeur::Nulle:
        return {};
    case Valeur::Entier:
        return entier;
    case Valeur::Reel:
    case Valeur::Simple:
    case Valeur::DateHeure:
        return reel;
    case Valeur::Texte:
        return QString::fromUtf8(octets);
    case Valeur::Octets:
        return octets.toByteArray();
    case Valeur::Vrai:
        return true;
    case Valeur::Faux:
        return false;
    }
    return {};
}

DateHeureJet::DateHeureJet(double jours)
{
    // Jet's own bounds: the years 100 to 9999.
    constexpr double PREMIER_JOUR = -657434.0;
    constexpr double DERNIER_JOUR = 2958466.0;
    if (!(jours >= PREMIER_JOUR && jours < DERNIER_JOUR))
        return;
    // Before the origin too, the time counts upwards from midnight: -1.25 is the 29th at six o'clock.
    double jour = std::trunc(jours);
    qint64 secondes = std::llround(std::abs(jours - jour) * 86400.0);
    if (secondes == 86400) {
        secondes = 0;
        jour += 1;
    }
    date = QDate(1899, 12, 30).addDays(static_cast<qint64>(jour)).toString(Qt::ISODate);
    heure = QTime(0, 0).addSecs(static_cast<int>(secondes)).toString(Qt::ISODate);
    minuit = secondes == 0;
    sansDate = jour == 0;
}

struct LecteurJet::Etat {
    Etat(const QString &chemin, Reglages r)
        : reglages(std::move(r)), flux([this] { return plus(); }, QFileInfo(chemin).size())
    {
        // The process sees nothing of the environment that could change its reading.
        QProcessEnvironment environnement;
#ifdef Q_OS_WIN
        environnement.insert(QStringLiteral("SystemRoot"), qEnvironmentVariable("SystemRoot"));
#endif
        processus.setProcessEnvironment(environnement);
        processus.setStandardErrorFile(QProcess::nullDevice());
        processus.setStandardInputFile(QProcess::nullDevice());
        processus.start(reglages.programme.isEmpty() ? programmeLecteur() : reglages.programme,
                        {reglages.structureSeule ? QStringLiteral("--structure") : QStringLiteral("--lignes"),
                         QFileInfo(chemin).absoluteFilePath()},
                        QIODevice::ReadOnly);
        if (!processus.waitForStarted())
            throw Erreur(ERREUR_LECTEUR,
                         QStringLiteral("Le programme de lecture des bases Access n'a pas pu démarrer : ") +
                             processus.errorString());
    }

    ~Etat()
    {
        if (processus.state() != QProcess::NotRunning) {
            processus.kill();
            processus.waitForFinished();
        }
    }

    // The next bytes of the process; empty once it has ended.
    QByteArray plus()
    {
        battre();
        QElapsedTimer silence;
        silence.start();
        while (processus.bytesAvailable() == 0) {
            if (processus.waitForReadyRead(BATTEMENT_MS))
                continue;
            if (processus.state() == QProcess::NotRunning)
                return processus.readAllStandardOutput();
            if (silence.elapsed() > reglages.silenceMs)
                throw Erreur(
                    ERREUR_ENDOMMAGE,
                    QStringLiteral("La lecture de la base de données Access n'avance plus : le fichier est "
                                   "sans doute endommagé. Il n'a pas été modifié."));
            battre();
        }
        return processus.readAllStandardOutput();
    }

    void battre()
    {
        if (reglages.battement &&
            (!dernierBattement.isValid() || dernierBattement.elapsed() >= BATTEMENT_MS)) {
            reglages.battement();
            dernierBattement.start();
        }
    }

    Reglages reglages;
    QProcess processus;
    QElapsedTimer dernierBattement;
    FluxJet flux;
};

std::optional<int> LecteurJet::reconnaitre(const QString &cheminHote)
{
    QFile fichier(cheminHote);
    if (!fichier.open(QIODevice::ReadOnly))
        return {};
    const QByteArray debut = fichier.read(21);
    if (debut.size() < 21 || !debut.startsWith(QByteArrayView("\0\1\0\0Standard Jet DB\0", 20)))
        return {};
    switch (debut[20]) {
    case 0:
        return 3;
    case 1:
        return 4;
    default:
        return {};
    }
}

LecteurJet::LecteurJet(const QString &cheminHote) : LecteurJet(cheminHote, Reglages()) {}

LecteurJet::LecteurJet(const QString &cheminHote, Reglages reglages)
    : m_etat(std::make_unique<Etat>(cheminHote, std::move(reglages)))
{
    m_etat->flux.lireStructure();
}

LecteurJet::~LecteurJet() = default;

int LecteurJet::generation() const
{
    return m_etat->flux.generation;
}

std::optional<QString> LecteurJet::accessVersion() const
{
    return m_etat->flux.accessVersion;
}

const QList<TableJet> &LecteurJet::tables() const
{
    return m_etat->flux.tables;
}

const TableJet *LecteurJet::table(const QString &nom) const
{
    for (const TableJet &t : tables())
        if (t.nom.compare(nom, Qt::CaseInsensitive) == 0)
            return &t;
    return nullptr;
}

const QList<RelationJet> &LecteurJet::relations() const
{
    return m_etat->flux.relations;
}

void LecteurJet::lire(const Recevoir &recevoir)
{
    m_etat->flux.lireLignes(recevoir);
}
