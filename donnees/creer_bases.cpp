// Makes the bases that the installation lays out, and big ones to measure with. The same content on every run.
//
//   creer_bases --donnees DIR vierge FICHIER          reference content only
//   creer_bases --donnees DIR demonstration FICHIER   the demonstration study
//   creer_bases --donnees DIR resultats N FICHIER     N results, for the benches (see Banc.h)
//   creer_bases --donnees DIR elements FICHIER        what a workbook of `creer_classeurs banc` needs, without results
//
// DIR is the folder of this program's tables (donnees/). An existing FICHIER is replaced, once the new one is whole.
#include "Banc.h"
#include "database/Requete.h"
#include "database/Schema.h"
#include "Demonstration.h"
#include "platform/Erreur.h"
#include "Referentiel.h"

#include <cstdio>
#include <functional>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>

namespace
{
void echouer(const QString &pourquoi)
{
    throw Erreur(0, pourquoi);
}

void executer(const QSqlDatabase &base, const QString &sql)
{
    Requete requete(base, sql, {});
    requete.finir();
}

void creer(const QString &fichier, const std::function<void(const QSqlDatabase &)> &remplir)
{
    const QString provisoire = fichier + QStringLiteral(".nouveau");
    QFile::remove(provisoire);
    {
        QSqlDatabase base = QSqlDatabase::addDatabase("QSQLITE", "creer_bases");
        base.setDatabaseName(provisoire);
        if (!base.open())
            echouer(provisoire + " : " + base.lastError().text());
        // Nothing is lost if this run is cut short: the file is not yet under its name.
        executer(base, "PRAGMA journal_mode = MEMORY");
        executer(base, "PRAGMA synchronous = OFF");
        executer(base, "PRAGMA foreign_keys = ON");
        Schema::creer(base);
        executer(base, "BEGIN");
        remplir(base);
        executer(base, "COMMIT");
        base.close();
    }
    QSqlDatabase::removeDatabase("creer_bases");
    QFile::remove(fichier);
    if (!QFile::rename(provisoire, fichier))
        echouer(fichier + " ne peut pas être écrit");
}

int nombre(const QString &texte)
{
    bool lisible = false;
    const int n = texte.toInt(&lisible);
    if (!lisible || n < 1)
        echouer(texte + " n'est pas un nombre de résultats");
    return n;
}

void executer(const QString &donnees, const QStringList &arguments)
{
    const QString commande = arguments.value(0);
    const QString referentiel = donnees + "/referentiel";
    if (commande == "vierge" && arguments.size() == 2) {
        creer(arguments[1], [&](const QSqlDatabase &base) { chargerReferentiel(base, referentiel); });
    } else if (commande == "demonstration" && arguments.size() == 2) {
        creer(arguments[1], [&](const QSqlDatabase &base) {
            chargerReferentiel(base, referentiel);
            remplirDemonstration(base, donnees + "/etude");
        });
    } else if ((commande == "resultats" && arguments.size() == 3) ||
               (commande == "elements" && arguments.size() == 2)) {
        const int resultats = commande == "resultats" ? nombre(arguments[1]) : 0;
        creer(arguments.last(), [&](const QSqlDatabase &base) {
            const Banc banc(donnees);
            chargerReferentiel(base, referentiel);
            banc.remplirElements(base);
            if (resultats > 0)
                banc.remplirResultats(base, resultats);
        });
    } else {
        echouer(
            "Usage : creer_bases --donnees DIR (vierge | demonstration | elements | resultats N) FICHIER");
    }
}
} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser analyseur;
    analyseur.addOption({"donnees", "Dossier des tables", "DIR"});
    analyseur.addPositionalArgument("commande",
                                    "vierge, demonstration, elements ou resultats N, puis le fichier");
    analyseur.addHelpOption();
    analyseur.process(application);
    try {
        executer(analyseur.value("donnees"), analyseur.positionalArguments());
    } catch (const Erreur &erreur) {
        std::fprintf(stderr, "creer_bases : %s\n", erreur.what());
        return 1;
    }
    return 0;
}
