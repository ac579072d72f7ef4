#include "database/M_Reseaux.h"

#include "database/DataEnvironment1.h"
#include "database/M_Referentiels.h"

QString M_Reseaux::ReseauxMesures(const DataEnvironment1 &donnees, Requete &mesures)
{
    donnees.executer(QStringLiteral("DELETE FROM Temp_mesures_reseaux"));
    QString dernier;
    int prelevements = 0;
    QVariant enCours;
    QStringList libelles;
    const auto ecrire = [&] {
        if (enCours.isNull())
            return;
        dernier = libelles.join(SEPARATEUR);
        Requete &insertion = donnees.preparee(
            QStringLiteral("INSERT INTO Temp_mesures_reseaux (NumPrel, CodeReseau) VALUES (?, ?)"));
        insertion.executer({enCours, dernier});
        insertion.finir();
        ++prelevements;
    };
    while (mesures.suivant()) {
        const QVariant numero = mesures.valeur(QStringLiteral("NumPrel"));
        if (numero != enCours) {
            ecrire();
            enCours = numero;
            libelles.clear();
        }
        const QString libelle =
            M_Referentiels::LibelleReseauDeCode(donnees, mesures.texte(QStringLiteral("CodeReseau")));
        // A result of the sampling each gives the same networks again.
        if (!libelle.isEmpty() && !libelles.contains(libelle))
            libelles << libelle;
    }
    ecrire();
    return prelevements == 1 ? dernier : QString();
}
