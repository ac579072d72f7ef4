// What the end-to-end tests of the fluxes share: the whole command on a copy of a base, and the independent reader of
// tests/outils/verifier_flux.py.
#pragma once

#include "analysis/CommandeFlux.h"
#include "EssaiRapport.h"
#include "platform/Saisie.h"

Q_DECLARE_METATYPE(DemandeFlux)

class EssaiFlux : public EssaiRapport
{
public:
    EssaiFlux()
    {
        QFile::copy(QStringLiteral(DOSSIER_CONSTRUCTION "/installation/Projet/Modèles/Modele_flux.xls"),
                    modeleFlux());
    }

    QString modeleFlux() const { return racine.filePath(QStringLiteral("Projet/Modèles/Modele_flux.xls")); }

    // The whole command; true when a finished document was shown.
    bool calculer(const DemandeFlux &d, const DataEnvironment1 &donnees)
    {
        dialogue.messages.clear();
        dialogue.documents.clear();
        dialogue.fichiers.enqueue(sortie());
        CoursRapport cours(dialogue, tableur, dossiers, etat);
        return cours.executer(M_Concentration_OVRA::commandeFlux(d, donnees, dialogue));
    }

    // What the independent reader says against the workbook; empty when it agrees.
    QString verifierFlux(const DemandeFlux &d, const QString &base) const
    {
        const QTemporaryDir dossier;
        QFile requete(dossier.filePath(QStringLiteral("demande.json")));
        if (!requete.open(QIODevice::WriteOnly) || requete.write(enJson(d)) < 0)
            return requete.errorString();
        requete.close();
        QProcess python;
        python.setProcessChannelMode(QProcess::MergedChannels);
        python.start(QStringLiteral("/usr/bin/python3"), // the Debian one, which has xlrd
                     {QStringLiteral(DONNEES_TESTS "/../outils/verifier_flux.py"), base, requete.fileName(),
                      sortie()});
        if (!python.waitForFinished(120000))
            return python.errorString();
        const QString dit = QString::fromUtf8(python.readAll());
        return python.exitStatus() == QProcess::NormalExit && python.exitCode() == 0 ? QString() : dit;
    }

    // The monthly, annual, cumulated and per-volume fluxes of the demonstration's outlet.
    static DemandeFlux demande(const QList<FluxDemande> &flux, ModeAnnee mode = ModeAnnee::Civile)
    {
        DemandeFlux d;
        d.codeStation = QStringLiteral("04999010");
        d.codeDebit = QStringLiteral("J7999910");
        d.codeParametre = QStringLiteral("1340");
        d.parametre = QStringLiteral("Nitrates");
        d.mode = mode;
        d.flux = flux;
        return d;
    }
    static FluxDemande mois(GenreFlux genre, int an1, int mois1, int an2, int mois2, bool specifique = false)
    {
        return {genre, bornesMois(QDate(an1, mois1, 1), QDate(an2, mois2, 1)), specifique};
    }
    static FluxDemande annees(int premiere, int derniere, ModeAnnee mode, bool specifique = false)
    {
        return {GenreFlux::Annuel, bornesAnnees(premiere, derniere, mode), specifique};
    }

private:
    // The bounds as they are typed: the last month, the last year.
    static QJsonObject enJson(const FluxDemande &f)
    {
        static const char *const GENRES[] = {"mensuel", "annuel", "cumule", "volume"};
        const bool annuel = f.genre == GenreFlux::Annuel;
        const QDate fin = f.bornes.fin.addMonths(annuel ? -12 : -1);
        const QString forme = annuel ? QStringLiteral("yyyy") : QStringLiteral("yyyy-MM");
        return {{"genre", GENRES[static_cast<int>(f.genre)]},
                {"debut", f.bornes.debut.toString(forme)},
                {"fin", fin.toString(forme)},
                {"specifique", f.specifique}};
    }
    static QByteArray enJson(const DemandeFlux &d)
    {
        QJsonArray flux;
        for (const FluxDemande &f : d.flux)
            flux.append(enJson(f));
        return QJsonDocument(QJsonObject{{"station", d.codeStation},
                                         {"debit", d.codeDebit},
                                         {"parametre", d.codeParametre},
                                         {"annee", d.mode == ModeAnnee::Civile ? "civile" : "hydrologique"},
                                         {"flux", flux},
                                         {"gestionnaires", QJsonArray::fromStringList(d.gestionnaires)},
                                         {"reseaux", QJsonArray::fromStringList(d.reseaux)},
                                         {"protocole", d.protocole == QLatin1String("Suivi calendaire") ? "1"
                                                       : d.protocole == QLatin1String("Suivi pluie")    ? "2"
                                                                                                     : ""}})
            .toJson();
    }
};
