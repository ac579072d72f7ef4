// faire_modeles DIR: makes every template workbook in DIR.
#include "Modele.h"
#include "platform/Erreur.h"
#include "workbook/Tableur.h"

#include <cstdio>
#include <QCoreApplication>
#include <QDir>

namespace
{
struct Fabrique {
    const char *nom;
    void (*remplir)(Classeur &);
};

constexpr Fabrique MODELES[] = {
    {"rapport.xls", Modele::rapport},
    {"Modele_concentr.xls", Modele::concentrations},
    {"Concentr_Rapport.xls", Modele::concentrationsEtRapport},
    {"Modele_concentr_hydro.xls", Modele::debits},
    {"Modele_concentr_pluvio.xls", Modele::pluies},
    {"Modele_flux.xls", Modele::flux},
};
} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: faire_modeles DIR\n", stderr);
        return 2;
    }
    try {
        const QDir dossier(QString::fromLocal8Bit(argv[1]));
        Tableur tableur;
        for (const Fabrique &modele : MODELES) {
            const auto classeur = tableur.ajouter();
            modele.remplir(*classeur);
            classeur->enregistrerSous(dossier.absoluteFilePath(QString::fromLatin1(modele.nom)));
        }
    } catch (const Erreur &erreur) {
        std::fprintf(stderr, "faire_modeles: %s\n", erreur.what());
        return 1;
    }
    return 0;
}
