#include "maintenance/M_Transposition.h"

#include "database/DataEnvironment1.h"
#include "platform/Chemins.h"
#include "platform/Erreur.h"
#include "workbook/Tableur.h"
#include "workbook/TexteCellule.h"

#include <QFileInfo>

namespace
{
constexpr int LONGUEUR_CODE = 10;

struct Reseau {
    QString code;
    QString libelle;
};
} // namespace

QList<M_Transposition::EntreeReseau> M_Transposition::lireEntrees(Tableur &tableur, const QString &fichier)
{
    const auto classeur = tableur.ouvrir(fichier, true);
    const std::optional<Plage> marque = classeur->plageNommee(QStringLiteral("reseau_sandre"));
    const Feuille feuille = classeur->feuille(1);
    if (!marque)
        throw Erreur(0, QStringLiteral("La cellule « reseau_sandre » est absente du classeur."));

    const int colonne = marque->colonne();
    const int derniere = feuille.derniereLigne();
    QList<EntreeReseau> entrees;
    if (derniere < marque->ligne())
        return entrees;
    // From the purpose (none when the codes stand in the first column) to the label.
    const int premiere = std::max(1, colonne - 1);
    const Valeurs lignes = feuille.plage(marque->ligne(), premiere, derniere, colonne + 1).valeurs();
    for (const QVector<QVariant> &ligne : lignes) {
        const QString code = texteCellule(ligne[colonne - premiere]).trimmed();
        if (code.isEmpty())
            break;
        entrees.append({code.left(LONGUEUR_CODE), texteCellule(ligne[colonne - premiere + 1]),
                        colonne > premiere ? texteCellule(ligne[0]) : QString()});
    }
    return entrees;
}

void M_Transposition::appliquer(const DataEnvironment1 &donnees, const QList<EntreeReseau> &entrees,
                                const std::function<void(const QString &)> &progres)
{
    QList<Reseau> reseaux;
    Requete tous = donnees.executer(QStringLiteral("SELECT CodeReseau, LibelleReseau FROM RESEAU_MESURE"));
    while (tous.suivant())
        reseaux.append({tous.texte(0), tous.texte(1)});
    tous.finir();

    for (const Reseau &reseau : reseaux) {
        for (const EntreeReseau &entree : entrees) {
            if (entree.libelle.compare(reseau.libelle, Qt::CaseInsensitive) != 0 ||
                entree.code.compare(reseau.code, Qt::CaseInsensitive) == 0)
                continue;
            progres(entree.libelle);
            TransposerPrelevements(donnees, reseau.code, entree.code);
            donnees.executer(QStringLiteral("DELETE FROM RESEAU_MESURE WHERE CodeReseau = ?"), {reseau.code});
            donnees.executer(
                QStringLiteral(
                    "INSERT INTO RESEAU_MESURE (CodeReseau, LibelleReseau, FinaliteReseau) SELECT ?, ?, ? "
                    "WHERE NOT EXISTS (SELECT 1 FROM RESEAU_MESURE WHERE CodeReseau = ?)"),
                {entree.code, entree.libelle, entree.finalite, entree.code});
        }
    }
}

bool M_Transposition::TransposerReseaux(const DataEnvironment1 &donnees, Tableur &tableur, Dialogue &dialogue,
                                        const QString &fichier, const QString &dossierInitial)
{
    static const QString enCours = QStringLiteral("Transposition des codes réseaux en cours");
    Progression &attente = dialogue.progression(FenetreProgression::FProgress3);
    attente.libelle(enCours);

    QString choisi = fichier;
    if (choisi.isEmpty()) {
        DemandeFichier demande;
        demande.titre = QStringLiteral("Fichier des codes réseaux?");
        demande.filtre = QStringLiteral("Excel (*.xls)|*.xls|Tous fichiers (*.*)|*.*");
        demande.dossierInitial = dossierInitial;
        demande.extensionDefaut = QStringLiteral("xls");
        const std::optional<QString> reponse = dialogue.choisirFichier(demande);
        if (!reponse)
            return false;
        choisi = *reponse;
        attente.montrer(QStringLiteral("Transposition codes réseaux"), enCours);
        attente.maximum(0);
    }

    QList<EntreeReseau> entrees;
    try {
        entrees = lireEntrees(tableur, Chemins::versHote(choisi));
    } catch (const Erreur &) {
        if (fichier.isEmpty())
            attente.cacher();
        // A spreadsheet that does not start says nothing about the file: that goes up as it is.
        if (tableur.numeroProcessus() == 0)
            throw;
        dialogue.message(
            QStringLiteral("Le fichier de transposition des codes réseau\n%1\nn'a pas la structure requise")
                .arg(choisi),
            QStringLiteral("Transposition non effectuée"), Icone::Exclamation);
        return false;
    }

    try {
        appliquer(donnees, entrees,
                  [&](const QString &libelle) { attente.libelle(libelle + u'\n' + enCours); });
    } catch (...) {
        if (fichier.isEmpty())
            attente.cacher();
        throw;
    }
    if (fichier.isEmpty())
        attente.cacher();
    return true;
}
