#include "maintenance/M_ClasseurCouleurs.h"

#include "database/DataEnvironment1.h"
#include "platform/Chemins.h"
#include "workbook/Tableur.h"

#include <QFile>

namespace
{
const QString MARQUE = QStringLiteral("couleurs_OVR");
const QString FILTRE = QStringLiteral("Excel (*.xls)|*.xls|Tous fichiers (*.*)|*.*");

// A number, or a text that reads as one, cut to its whole part; anything else is 0.
int canal(const QVariant &valeur)
{
    if (valeur.typeId() == QMetaType::Double)
        return static_cast<int>(valeur.toDouble());
    bool numerique = false;
    const double nombre = valeur.toString().trimmed().replace(u',', u'.').toDouble(&numerique);
    return numerique ? static_cast<int>(nombre) : 0;
}

void remplirClasseur(Classeur &classeur, const DataEnvironment1 &donnees)
{
    Feuille feuille = classeur.feuille(1);
    feuille.renommer(QStringLiteral("Couleurs"));
    Valeurs lignes;
    Requete palette = donnees.executer(QStringLiteral("SELECT R, G, B FROM COULEURS_GRAPH ORDER BY ordre"));
    while (palette.suivant())
        lignes.append(
            {palette.valeur(0).toDouble(), palette.valeur(1).toDouble(), palette.valeur(2).toDouble()});
    if (!lignes.isEmpty())
        feuille.plage(1, 1, static_cast<int>(lignes.size()), 3).ecrire(lignes);
    classeur.nommerPlage(MARQUE, feuille.cellule(1, 1));
}
} // namespace

bool M_ClasseurCouleurs::SauvegarderCouleurs(const DataEnvironment1 &donnees, Tableur &tableur,
                                             Dialogue &dialogue, const QString &dossierInitial)
{
    DemandeFichier demande;
    demande.titre = QStringLiteral("Fichier d'export pour les couleurs");
    demande.filtre = FILTRE;
    demande.dossierInitial = dossierInitial;
    demande.extensionDefaut = QStringLiteral("xls");
    demande.enregistrer = true;
    const std::optional<QString> choisi = dialogue.choisirFichier(demande);
    if (!choisi)
        return false;

    const QString fichier = Chemins::versHote(*choisi);
    const auto classeur = tableur.ajouter();
    classeur->enregistrerSous(fichier);
    try {
        remplirClasseur(*classeur, donnees);
        classeur->enregistrer();
    } catch (...) {
        QFile::remove(fichier); // half a palette would be taken for a whole one
        throw;
    }
    classeur->fermer();
    return true;
}

std::optional<QList<Couleur>> M_ClasseurCouleurs::lirePalette(const Classeur &classeur)
{
    const std::optional<Plage> marque = classeur.plageNommee(MARQUE);
    if (!marque || marque->ligne() != 1 || marque->colonne() != 1)
        return std::nullopt;
    QList<Couleur> couleurs;
    const Valeurs lignes = classeur.feuille(1).plage(1, 1, NOMBRE_COULEURS, 3).valeurs();
    for (const QVector<QVariant> &ligne : lignes)
        couleurs.append({canal(ligne[0]), canal(ligne[1]), canal(ligne[2])});
    return couleurs;
}

void M_ClasseurCouleurs::remplacerPalette(const DataEnvironment1 &donnees, const QList<Couleur> &couleurs)
{
    donnees.executer(QStringLiteral("BEGIN IMMEDIATE"));
    try {
        donnees.executer(QStringLiteral("DELETE FROM COULEURS_GRAPH"));
        Requete ajout(donnees.Connect_Bdd(),
                      QStringLiteral("INSERT INTO COULEURS_GRAPH (ordre, R, G, B) VALUES (?, ?, ?, ?)"));
        for (qsizetype i = 0; i < couleurs.size(); ++i)
            ajout.executer({static_cast<int>(i) + 1, couleurs[i].r, couleurs[i].g, couleurs[i].b});
        ajout.finir();
        donnees.executer(QStringLiteral("COMMIT"));
    } catch (...) {
        donnees.executer(QStringLiteral("ROLLBACK"));
        throw;
    }
}

bool M_ClasseurCouleurs::RestaurerCouleurs(const DataEnvironment1 &donnees, Tableur &tableur,
                                           Dialogue &dialogue, const QString &dossierInitial)
{
    DemandeFichier demande;
    demande.titre = QStringLiteral("Fichier couleurs à restaurer?");
    demande.filtre = FILTRE;
    demande.dossierInitial = dossierInitial;
    demande.extensionDefaut = QStringLiteral("xls");
    const std::optional<QString> choisi = dialogue.choisirFichier(demande);
    if (!choisi)
        return false;

    const auto classeur = tableur.ouvrir(Chemins::versHote(*choisi), true);
    const std::optional<QList<Couleur>> couleurs = lirePalette(*classeur);
    classeur->fermer();
    if (!couleurs) {
        dialogue.message(QStringLiteral("Le fichier couleurs choisi a une structure incorrecte"),
                         QStringLiteral("Erreur"), Icone::Exclamation);
        return false;
    }
    remplacerPalette(donnees, *couleurs);
    return true;
}
