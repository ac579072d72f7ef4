#include "database/M_Ouvrir_bdd_OVRA.h"

#include "database/CopieDeTravail.h"
#include "database/DataEnvironment1.h"
#include "database/Schema.h"
#include "database/SondeBase.h"
#include "platform/Dialogue.h"
#include "platform/Erreur.h"
#include "platform/Textes.h"

#include <QFile>

namespace
{
// Every store of ours passes for a file of this version.
constexpr QStringView VERSION_ACCESS_ETUDE = u"09";
constexpr QStringView DERNIERE_VERSION_97 = u"07";
constexpr QStringView VERSION_INITIALE = u"4.0.0";

bool tableExiste(const DataEnvironment1 &donnees, const QString &nom)
{
    Requete r = donnees.executer(
        QStringLiteral("SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE"),
        {nom});
    return r.suivant();
}

// Declared type of a column in capital letters; empty for a column that is not there.
QString typeColonne(const DataEnvironment1 &donnees, const QString &table, const QString &colonne)
{
    Requete r = donnees.executer(
        QStringLiteral("SELECT upper(type) FROM pragma_table_info(?) WHERE name = ? COLLATE NOCASE"),
        {table, colonne});
    return r.suivant() ? r.texte(0) : QString();
}

// `genre` is the type as the schema declares it.
void ajouterColonne(const DataEnvironment1 &donnees, const QString &table, const QString &colonne)
{
    const Schema::Table *modele = Schema::table(table);
    const Schema::Colonne &definition = modele->colonnes[modele->position(colonne)];
    donnees.executer(
        QStringLiteral("ALTER TABLE %1 ADD COLUMN %2 %3").arg(table, colonne, Schema::typeSql(definition)));
    donnees.oublierMemoire();
}

bool codeReseauEstTexte(const Ouverture &o)
{
    if (o.etapes.CodeReseauEstTexte)
        return o.etapes.CodeReseauEstTexte();
    const QString type =
        typeColonne(o.donnees, QStringLiteral("RESEAU_MESURE"), QStringLiteral("CodeReseau"));
    return type.contains(QLatin1String("CHAR")) || type.contains(QLatin1String("TEXT"));
}

[[noreturn]] void etapeAbsente(const QString &raison)
{
    throw Erreur(0, raison);
}

// What keeps a file from being opened is told in French; failures of later statements keep the engine's words.
void enFrancais(const std::function<void()> &ouvrir)
{
    try {
        ouvrir();
    } catch (const Erreur &erreur) {
        throw SondeBase::enFrancais(erreur);
    }
}

// Opens the store that is to be judged, and judges it.
bool juger(Ouverture &o, const QString &fichier)
{
    // Not in WAL yet: the change of mode is written into the file.
    enFrancais([&] { o.donnees.ouvrir(fichier, false); });
    if (!M_Ouvrir_bdd_OVRA::VerifierVersionBase(o)) {
        o.dialogue.message(QStringLiteral("Base non conforme !"), QStringLiteral("Attention !"),
                           Icone::Critique);
        return false;
    }
    return M_Ouvrir_bdd_OVRA::VerifierStructure(o);
}

QString chaineFournisseur(const QString &versionAccess)
{
    const bool ancienne = versionAccess.compare(DERNIERE_VERSION_97) <= 0;
    return QStringLiteral("Provider=Microsoft.Jet.OLEDB.%1;Persist Security Info=False;Data Source=")
        .arg(ancienne ? QStringLiteral("3.51") : QStringLiteral("4.0"));
}
} // namespace

bool M_Ouvrir_bdd_OVRA::OuvrirBase(Ouverture &o)
{
    bool convertie = false;
    std::unique_ptr<CopieDeTravail> copie;
    const auto terminerConversion = [&](bool acceptee) {
        o.donnees.liberer();
        if (convertie && o.etapes.TerminerConversion)
            o.etapes.TerminerConversion(acceptee);
        if (copie && acceptee)
            copie->mettreEnPlace();
        convertie = false;
        copie.reset();
    };
    try {
        o.donnees.liberer();
        QString fichier = o.FichierBase;
        if (SondeBase::examiner(fichier) == SondeBase::Nature::Jet) {
            if (!o.etapes.ConvertirBase97)
                etapeAbsente(QStringLiteral(
                    "Ce fichier est une base Access, que cette version de l'outil ne convertit "
                    "pas."));
            fichier = o.etapes.ConvertirBase97(o.FichierBase);
            if (fichier.isEmpty())
                return false;
            convertie = true;
        } else if (CopieDeTravail::estUtile(fichier)) {
            copie = std::make_unique<CopieDeTravail>(fichier);
            fichier = copie->chemin();
        }
        o.VersionAccess = LireVersionAccess(o, fichier);
        o.ChaineFournisseur = chaineFournisseur(o.VersionAccess);
        if (!juger(o, fichier)) {
            terminerConversion(false);
            return false;
        }
        if (convertie || copie) {
            terminerConversion(true);
            enFrancais([&] { o.donnees.ouvrir(o.FichierBase); });
        } else {
            enFrancais([&] { o.donnees.activerJournal(); });
        }
        return true;
    } catch (const Erreur &erreur) {
        terminerConversion(false);
        o.dialogue.message(QStringLiteral("Erreur à l'ouverture de la base de données : \n ") +
                               erreur.numeroEtDescription(),
                           QStringLiteral("Erreur d'ouverture"), Icone::Exclamation);
        return false;
    }
}

bool M_Ouvrir_bdd_OVRA::VerifierVersionBase(Ouverture &o)
{
    try {
        QString version = VERSION_INITIALE.toString();
        if (tableExiste(o.donnees, QStringLiteral("APPLICATIONPROPERTIES"))) {
            Requete r = o.donnees.executer(QStringLiteral(
                "SELECT PROPERTYVALUE FROM APPLICATIONPROPERTIES WHERE PROPERTYNAME LIKE 'DbVersion'"));
            if (r.suivant())
                version = r.texte(0);
        } else {
            Schema::creerTable(o.donnees.Connect_Bdd(), QStringLiteral("APPLICATIONPROPERTIES"));
            o.donnees.executer(QStringLiteral("INSERT INTO APPLICATIONPROPERTIES VALUES ('DbVersion', ?)"),
                               {version});
        }
        if (version == VERSION_INITIALE) {
            if (!o.etapes.MettreAJourVersion)
                etapeAbsente(
                    QStringLiteral("La base est en version 4.0.0, que cette version de l'outil ne met pas à "
                                   "jour."));
            o.etapes.MettreAJourVersion();
        }
        return true;
    } catch (const Erreur &erreur) {
        o.dialogue.message(erreur.description(), Textes::TITRE_PROGRAMME.toString());
        return false;
    }
}

bool M_Ouvrir_bdd_OVRA::VerifierStructure(Ouverture &o)
{
    bool resultat = true;
    if (!tableExiste(o.donnees, QStringLiteral("TECHNIQUE"))) {
        if (!o.etapes.TransposerStructure)
            etapeAbsente(
                QStringLiteral("La base a un format ancien, que cette version de l'outil ne transpose pas."));
        resultat = o.etapes.TransposerStructure();
        // A refused base stays as it is.
        if (!resultat)
            return false;
    } else {
        Requete technique = o.donnees.executer(QStringLiteral("SELECT VERSION FROM TECHNIQUE"));
        const QString version = technique.suivant() ? technique.texte(0) : QString();
        technique.finir();
        if (version == u"2" && !codeReseauEstTexte(o)) {
            o.dialogue.message(
                QStringLiteral("La base est une ancienne base locale \n"
                               "qui a été transposée par l'outil régional ou une version ancienne de "
                               "l'outil local\n\nIl est impossible de l'exploiter"),
                QStringLiteral("Erreur"));
            return false;
        }
    }
    if (!tableExiste(o.donnees, QStringLiteral("COULEURS_GRAPH")))
        o.etapes.CreerCouleurs();
    o.etapes.ChargerCouleurs();
    if (typeColonne(o.donnees, QStringLiteral("STATION_QUALITE"), QStringLiteral("SuperficieStationM"))
            .isEmpty())
        ajouterColonne(o.donnees, QStringLiteral("STATION_QUALITE"), QStringLiteral("SuperficieStationM"));
    return resultat;
}

QString M_Ouvrir_bdd_OVRA::LireVersionAccess(const Ouverture &o, const QString &chemin)
{
    switch (SondeBase::nature(chemin)) {
    case SondeBase::Nature::Etude:
        return VERSION_ACCESS_ETUDE.toString();
    case SondeBase::Nature::Jet:
        return o.etapes.LireVersionJet ? o.etapes.LireVersionJet(chemin) : QString();
    case SondeBase::Nature::Inconnue:
        break;
    }
    return {};
}

void M_Ouvrir_bdd_OVRA::InitChampsCarte(const DataEnvironment1 &donnees, Dialogue &dialogue)
{
    const QString table = QStringLiteral("STATION_QUALITE");
    try {
        if (!typeColonne(donnees, table, QStringLiteral("ALT_NO3")).isEmpty())
            return;
        // ALT_NO3 comes last: it is the sign that all are there.
        for (const char *colonne : {"CONC_MOY", "CONC_MAX", "CONC_AN1", "CONC_AN2", "CONC_AN3", "ALT_NO3"})
            if (typeColonne(donnees, table, QString::fromLatin1(colonne)).isEmpty())
                ajouterColonne(donnees, table, QString::fromLatin1(colonne));
    } catch (const Erreur &erreur) {
        dialogue.message(QStringLiteral("Une erreur est survenue. \n") + erreur.numeroEtDescription(),
                         QStringLiteral("Erreur"));
    }
}
