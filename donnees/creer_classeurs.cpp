// Makes the workbooks to import that go with the demonstration study, and big ones to measure with.
//
//   creer_classeurs --donnees DIR demonstration DOSSIER   all five, as .xls and .xlsx
//   creer_classeurs --donnees DIR banc N FICHIER          N rows of analyses (an .xls holds 65 535 at most), for a base
//                                                         made by "creer_bases elements" or "creer_bases resultats"
//
// DIR is the folder of this program's tables (donnees/). Needs the spreadsheet application.
#include "Banc.h"
#include "Campagnes.h"
#include "Classeurs.h"
#include "platform/Erreur.h"

#include <cstdio>
#include <QCommandLineParser>
#include <QCoreApplication>

namespace
{
void executer(const QString &donnees, const QStringList &arguments)
{
    Tableur tableur;
    if (arguments.value(0) == "demonstration" && arguments.size() == 2) {
        const Campagnes campagnes(donnees + "/etude");
        const QString dossier = arguments[1] + '/';
        for (const char *extension : {".xls", ".xlsx"}) {
            Classeurs::creerAnalyses(tableur, campagnes, donnees,
                                     dossier + "analyses_laboratoire" + extension);
            Classeurs::creerAnalysesACorriger(tableur, donnees, dossier + "analyses_a_corriger" + extension);
            Classeurs::creerAnalysesAvecNouveautes(tableur, donnees,
                                                   dossier + "analyses_nouveautes" + extension);
            Classeurs::creerDebits(tableur, campagnes, donnees, dossier + "debits" + extension);
            Classeurs::creerPluies(tableur, campagnes, donnees, dossier + "pluies" + extension);
        }
    } else if (arguments.value(0) == "banc" && arguments.size() == 3 && arguments[1].toInt() > 0) {
        Classeurs::creerBanc(tableur, Banc(donnees), arguments[1].toInt(), arguments[2]);
    } else {
        throw Erreur(0, "Usage : creer_classeurs --donnees DIR (demonstration DOSSIER | banc N FICHIER)");
    }
}
} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser analyseur;
    analyseur.addOption({"donnees", "Dossier des tables", "DIR"});
    analyseur.addPositionalArgument("commande", "demonstration DOSSIER, ou banc N FICHIER");
    analyseur.addHelpOption();
    analyseur.process(application);
    try {
        executer(analyseur.value("donnees"), analyseur.positionalArguments());
    } catch (const Erreur &erreur) {
        std::fprintf(stderr, "creer_classeurs : %s\n", erreur.what());
        return 1;
    }
    return 0;
}
