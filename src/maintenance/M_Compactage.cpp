#include "maintenance/M_Compactage.h"

#include "database/DataEnvironment1.h"
#include "platform/Chemins.h"
#include "platform/Dialogue.h"
#include "platform/Erreur.h"
#include "platform/FichierSur.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace
{
constexpr int ETAPES = 4;

// The soundness of the copy, before it may take the place of the study.
void verifierCopie(const QString &travail)
{
    DataEnvironment1 copie;
    copie.ouvrir(travail);
    Requete etat = copie.executer(QStringLiteral("PRAGMA quick_check"));
    if (!etat.suivant() || etat.texte(0) != QLatin1String("ok"))
        throw Erreur(11, QStringLiteral("La copie compactée est endommagée."));
}

bool demanderSuppression(Dialogue &dialogue)
{
    const Reponse reponse = dialogue.question(
        QStringLiteral(
            "Le fichier \"Temp_bd_ovra.mdb\" situé dans le répertoire \"C:\\PROJET\\Base\\\" existe déjà, pour "
            "le bon déroulement du compactage de la base de données, il est nécessaire de supprimer ou "
            "déplacer cette base de données. Cliquez sur \"Ok\" pour la supprimer ou sur \"Annuler\" pour "
            "annuler le compactage. "),
        QStringLiteral("Base existante"), {Reponse::OK, Reponse::Annuler}, Reponse::Annuler,
        Icone::Exclamation);
    if (reponse == Reponse::OK)
        return true;
    dialogue.message(QStringLiteral("Le compactage a été annulé."), QStringLiteral("Attention"),
                     Icone::Exclamation);
    return false;
}

void supprimerTravail(const QString &travail)
{
    QFile fichier(travail);
    fichier.setPermissions(fichier.permissions() | QFile::WriteOwner);
    if (!fichier.remove())
        throw Erreur(
            fichier.error(),
            QStringLiteral("« %1 » ne peut pas être supprimé : %2").arg(travail, fichier.errorString()));
}
} // namespace

void M_Compactage::reecrire(const QString &fichier, const QString &travail,
                            const std::function<void(int)> &progres)
{
    progres(0);
    QFile::remove(FichierSur::nomDePreparation(fichier)); // left by a run that was killed
    QDir().mkpath(QFileInfo(travail).absolutePath());
    try {
        {
            DataEnvironment1 source;
            source.ouvrir(fichier);
            source.executer(QStringLiteral("VACUUM INTO ?"), {travail});
        }
        progres(1);
        // A journal that is still there belongs to another program, whose changes the rewriting would undo.
        if (QFileInfo::exists(fichier + QStringLiteral("-wal")))
            throw Erreur(5, QStringLiteral("La base est utilisée par un autre programme."));
        verifierCopie(travail);
        progres(2);
        FichierSur::remplacer(travail, fichier);
        progres(3);
    } catch (...) {
        QFile::remove(travail);
        throw;
    }
    QFile::remove(travail);
    progres(ETAPES);
}

M_Compactage::Issue M_Compactage::compacter(DataEnvironment1 &donnees, const QString &fichierBase,
                                            Dialogue &dialogue, const std::function<bool()> &rouvrir)
{
    const QString travail = Chemins::versHote(QString::fromUtf16(FICHIER_TRAVAIL));
    if (QFileInfo(travail) == QFileInfo(fichierBase)) {
        dialogue.message(
            QStringLiteral("La base ouverte est elle-même le fichier de travail du compactage "
                           "(\"Temp_bd_ovra.mdb\"). Elle n'a pas été touchée : donnez-lui un autre nom, "
                           "ouvrez-la sous ce nom, puis recommencez."),
            QStringLiteral("Compactage impossible"), Icone::Exclamation);
        return Issue::Annule;
    }
    const bool travailPresent = QFileInfo::exists(travail);
    if (travailPresent && !demanderSuppression(dialogue))
        return Issue::Annule;

    Progression &attente = dialogue.progression(FenetreProgression::FProgress3);
    attente.montrer(QStringLiteral("Compactage de la base de données"),
                    QStringLiteral("Veuillez patienter...."));
    attente.maximum(ETAPES);

    std::optional<Erreur> echec;
    try {
        if (travailPresent)
            supprimerTravail(travail);
        donnees.liberer();
        reecrire(fichierBase, travail, [&](int etape) { attente.valeur(etape); });
    } catch (const Erreur &erreur) {
        echec = erreur;
    }
    if (echec)
        dialogue.message(
            QStringLiteral("Erreur : %1\nCette fonction n'est utilisable que si vous possédez Microsoft "
                           "ACCESS sur votre poste !")
                .arg(echec->numeroEtDescription()),
            QStringLiteral("Compactage impossible"), Icone::Exclamation);

    std::optional<Erreur> refus;
    try {
        if (!rouvrir())
            refus = Erreur(0, QStringLiteral("La base n'a pas pu être rouverte."));
    } catch (const Erreur &erreur) {
        refus = erreur;
    }
    attente.cacher();
    if (refus) {
        dialogue.message(QStringLiteral("Une erreur s'est produite. : \n") + refus->numeroEtDescription(),
                         QStringLiteral("Erreur d'ouverture"), Icone::Critique);
        return Issue::BasePerdue;
    }
    if (echec)
        return Issue::Impossible;
    dialogue.message(QStringLiteral("Le compactage de la base de données est terminée. "),
                     QStringLiteral("Fin de compactage"), Icone::Information);
    return Issue::Termine;
}
