#include "capture/VueMesures.h"

#include "platform/Chemins.h"
#include "platform/Dialogue.h"
#include "platform/Horloge.h"
#include "workbook/CoursRapport.h"
#include "workbook/Tableur.h"

#include <QFile>
#include <QScopeGuard>

QString cheminVueMesures(const VueMesures &vue)
{
    return QString::fromUtf16(Chemins::EXPORT) + vue.debutDuNom +
           Horloge::maintenant().date().toString(QStringLiteral("dd-MM-yy")) + QStringLiteral(".xls");
}

void visualiserMesures(const VueMesures &vue, Dialogue &dialogue, Tableur &tableur, EtatRapport &etat)
{
    if (etat.enCours())
        return;
    const QString chemin = Chemins::versHote(cheminVueMesures(vue));
#ifdef Q_OS_WIN
    QFile::remove(QStringLiteral("c:\\tampon.txt")); // left there by former versions
#endif
    etat.definir(true);
    Progression &attente = dialogue.progression(FenetreProgression::FProgress);
    attente.montrer(QStringLiteral("Visualisation des mesures sous Excel"),
                    QStringLiteral("Écriture des mesures"));
    attente.maximum(0);
    tableur.definirAttente([&dialogue] { dialogue.ceder(); });
    {
        const auto fin = qScopeGuard([&] {
            tableur.definirAttente({});
            attente.cacher();
            etat.definir(false);
        });
        dialogue.ceder();
        const std::unique_ptr<Classeur> classeur = tableur.ajouter();
        classeur->policeParDefaut(QStringLiteral("Arial"), 10);
        Feuille feuille = classeur->feuille(1);
        feuille.renommer(QStringLiteral("Mesures"));
        vue.remplir(feuille);
        classeur->enregistrerSous(chemin);
        classeur->fermer();
    }
    dialogue.ouvrirDocument(chemin);
}

void direRienAVisualiser(Dialogue &dialogue)
{
    dialogue.message(
        QStringLiteral("Votre base de données est vide, il est impossible d'exporter des données. "),
        QStringLiteral("Erreur"), Icone::Exclamation);
}
