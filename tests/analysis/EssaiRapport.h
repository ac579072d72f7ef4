// What the end-to-end tests of the report share: a root with the template, the spreadsheet application, the whole command,
// and the independent reader of tests/outils/verifier_rapport.py.
#pragma once

#include "analysis/M_Concentration_OVRA.h"
#include "database/DataEnvironment1.h"
#include "DialogueDEssai.h"
#include "platform/Chemins.h"
#include "workbook/CoursRapport.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

Q_DECLARE_METATYPE(DemandeRapport)

class EssaiRapport
{
public:
    EssaiRapport()
    {
        Chemins::definirRacine(racine.path());
        QDir(racine.path()).mkpath(QStringLiteral("Projet/Modèles"));
        QDir(racine.path()).mkpath(QStringLiteral("Projet/Export"));
        const QDir modeles(QStringLiteral(DOSSIER_CONSTRUCTION "/installation/Projet/Modèles"));
        for (const QString &nom : modeles.entryList({QStringLiteral("*.xls")}))
            QFile::copy(modeles.filePath(nom), racine.filePath(QStringLiteral("Projet/Modèles/") + nom));
        tableur.demarrerEnAvance();
    }

    QString modele() const { return racine.filePath(QStringLiteral("Projet/Modèles/rapport.xls")); }
    QString sortie() const { return racine.filePath(QStringLiteral("Projet/Export/essai.xls")); }

    // The whole command; true when a finished document was shown.
    bool editer(const DemandeRapport &d, const DataEnvironment1 &donnees)
    {
        return executer(M_Concentration_OVRA::commandeRapport(d, donnees, dialogue));
    }
    bool executer(const CommandeRapport &commande)
    {
        dialogue.messages.clear();
        dialogue.documents.clear();
        dialogue.fichiers.enqueue(sortie());
        CoursRapport cours(dialogue, tableur, dossiers, etat);
        return cours.executer(commande);
    }

    // What the independent reader says against the report; empty when it agrees.
    QString verifier(const DemandeRapport &d, const QString &base) const
    {
        return verifier(d, base, sortie());
    }
    static QString verifier(const DemandeRapport &d, const QString &base, const QString &rapport)
    {
        return comparer("verifier_rapport.py", enJson(d), base, rapport);
    }
    // The request as the independent readers take it.
    static QJsonObject enJson(const DemandeRapport &d)
    {
        return {{"station", d.codeStation},
                {"code_usuel", d.afficherCodeUsuel},
                {"parametre", d.parametre},
                {"fraction", d.fraction},
                {"debut", d.debut.toString(Qt::ISODate)},
                {"fin", d.fin.toString(Qt::ISODate)},
                {"annee", d.mode == ModeAnnee::Civile ? "civile" : "hydrologique"},
                {"gestionnaires", QJsonArray::fromStringList(d.gestionnaires)},
                {"reseaux", QJsonArray::fromStringList(d.reseaux)},
                {"commentaires", QJsonArray::fromStringList(d.commentaires)},
                {"protocole", d.protocole},
                {"seuil", d.seuil ? QJsonValue(*d.seuil) : QJsonValue()},
                {"debit", d.stationDebit}};
    }
    // Runs one of them on a produced workbook; what it says against it.
    static QString comparer(const char *lecteur, const QJsonObject &demande, const QString &base,
                            const QString &classeur)
    {
        const QTemporaryDir dossier;
        QFile requete(dossier.filePath(QStringLiteral("demande.json")));
        if (!requete.open(QIODevice::WriteOnly) || requete.write(QJsonDocument(demande).toJson()) < 0)
            return requete.errorString();
        requete.close();
        QProcess python;
        python.setProcessChannelMode(QProcess::MergedChannels);
        python.start(QStringLiteral("/usr/bin/python3"), // the Debian one, which has xlrd
                     {QStringLiteral(DONNEES_TESTS "/../outils/") + QLatin1String(lecteur), base,
                      requete.fileName(), classeur});
        if (!python.waitForFinished(60000))
            return python.errorString();
        const QString dit = QString::fromUtf8(python.readAll());
        return python.exitStatus() == QProcess::NormalExit && python.exitCode() == 0 ? QString() : dit;
    }

    QTemporaryDir racine;
    Tableur tableur;
    DialogueDEssai dialogue;
    DossiersRecents dossiers;
    EtatRapport etat;
};
