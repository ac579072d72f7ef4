#include "database/M_Structure_2002.h"

#include "database/DataEnvironment1.h"
#include "database/DefinitionTable.h"
#include "database/Schema.h"
#include "database/Transaction.h"
#include "platform/Dialogue.h"

#include <QFileInfo>
#include <QSqlQuery>

namespace
{
using CleEtrangere = DefinitionTable::CleEtrangere;

constexpr int LONGUEUR_COMMENTAIRE = 255;

struct ColonneCommentaire {
    const char *table;
    const char *colonne;
};
constexpr ColonneCommentaire COMMENTAIRES[] = {
    {"MESURE_PHYSICO", "CommAnaPC"},    {"MESURE_PHYSICO", "CommResAnaPC"}, {"MESURE_PLUVIO", "CommMesurePM"},
    {"Temp_mesure_physico", "CommAna"}, {"Temp_mesure_physico", "CommRes"}, {"Temp_mesure_phyto", "Comment"},
    {"Temp_mesure_pluvio", "Comment"},
};

bool memeNom(const QString &a, const char *b)
{
    return a.compare(QLatin1String(b), Qt::CaseInsensitive) == 0;
}

// A foreign key refers to a column that is unique: where it is not told so, an index tells it.
bool rendreUnique(const QSqlDatabase &base, const QString &table, const QString &colonne)
{
    if (!Structure::colonneExiste(base, table, colonne))
        return false;
    if (Structure::estUnique(base, table, colonne))
        return true;
    // Two rows of one code: the study goes on without the cascade rather than not at all.
    return QSqlQuery(base).exec(QStringLiteral("CREATE UNIQUE INDEX %1 ON %2 (%3)")
                                    .arg(Structure::citer(QStringLiteral("IX_") + table + u'_' + colonne),
                                         Structure::citer(table), Structure::citer(colonne)));
}

bool existe(const DataEnvironment1 &donnees, const QString &sql, const QString &valeur)
{
    return donnees.executer(sql, {valeur}).suivant();
}

// The code of one basin's network; its memberships follow. Where another row has the code already, that row stays.
void corrigerReseau(const DataEnvironment1 &donnees)
{
    const QString nouveau = QStringLiteral("0400003044");
    QStringList anciens;
    Requete r = donnees.executer(
        QStringLiteral("SELECT CodeReseau FROM RESEAU_MESURE WHERE LibelleReseau = 'BV Sélune'"));
    while (r.suivant())
        if (const QString code = r.texte(0); code != nouveau)
            anciens << code;
    r.finir();
    for (const QString &ancien : anciens) {
        Transaction transaction(donnees.Connect_Bdd());
        // A file may tie memberships to networks: both change, and are checked at the end.
        donnees.executer(QStringLiteral("PRAGMA defer_foreign_keys = ON"));
        M_Structure_2002::TransposerPrelevements(donnees, ancien, nouveau);
        if (existe(donnees, QStringLiteral("SELECT 1 FROM RESEAU_MESURE WHERE CodeReseau = ?"), nouveau))
            donnees.executer(QStringLiteral("DELETE FROM RESEAU_MESURE WHERE CodeReseau = ?"), {ancien});
        else
            donnees.executer(QStringLiteral("UPDATE RESEAU_MESURE SET CodeReseau = ? WHERE CodeReseau = ?"),
                             {nouveau, ancien});
        transaction.valider();
    }
}

void corrigerIntervenants(const DataEnvironment1 &donnees)
{
    donnees.executer(
        QStringLiteral("UPDATE INTERVENANT SET NomInterv='CdC Pays de Baud', "
                       "LibelleSandreInterv='Communauté de Communes du Pays de Baud', StatutInterv='Validé' "
                       "WHERE CodeSandreInterv='24560051500010'"));
    const QString ancien = QStringLiteral("25220020900010");
    const QString nouveau = QStringLiteral("25220020900028");
    const QString present = QStringLiteral("SELECT 1 FROM INTERVENANT WHERE CodeSandreInterv = ?");
    if (!existe(donnees, present, ancien))
        return;
    // An actor of the new code that is there already takes the results over; the old one stays, without any.
    const bool deja = existe(donnees, present, nouveau);
    if (deja && Structure::tableExiste(donnees.Connect_Bdd(), QStringLiteral("MESURE_PHYSICO")))
        donnees.executer(
            QStringLiteral("UPDATE MESURE_PHYSICO SET CodeSandreGest = ? WHERE CodeSandreGest = ?"),
            {nouveau, ancien});
    donnees.executer(
        QStringLiteral("UPDATE INTERVENANT SET CodeSandreInterv=?, NomInterv='SIAEPPIL', "
                       "LibelleSandreInterv='Syndicat intercommunal d''alimentation en eau potable de "
                       "la presqu''île de Lézardrieux', StatutInterv='Validé' "
                       "WHERE CodeSandreInterv=?"),
        {nouveau, deja ? nouveau : ancien});
}

// Frees RESEAU_MESURE of what stands on its code: the relations that refer to it, then its keys and indexes.
void detacherReseaux(const QSqlDatabase &base)
{
    for (const QString &table : Structure::tables(base)) {
        DefinitionTable definition = DefinitionTable::lire(base, table);
        if (definition.clesEtrangeres.removeIf(
                [](const CleEtrangere &e) { return memeNom(e.tableCible, "RESEAU_MESURE"); }) > 0)
            definition.reconstruire(base);
    }
    for (const Structure::Index &i : Structure::index(base, QStringLiteral("RESEAU_MESURE")))
        Requete(base, QStringLiteral("DROP INDEX ") + Structure::citer(i.nom), {});
    DefinitionTable reseaux = DefinitionTable::lire(base, QStringLiteral("RESEAU_MESURE"));
    reseaux.cle.clear();
    reseaux.nomCle.clear();
    reseaux.uniques.clear();
    reseaux.reconstruire(base);
}

void indexerReseaux(const QSqlDatabase &base)
{
    DefinitionTable reseaux = DefinitionTable::lire(base, QStringLiteral("RESEAU_MESURE"));
    reseaux.nomCle = QStringLiteral("PrimaryKey");
    reseaux.cle = QStringList{QStringLiteral("CodeReseau")};
    reseaux.reconstruire(base);
    Requete(base, QStringLiteral("CREATE UNIQUE INDEX CodeReseau ON RESEAU_MESURE (CodeReseau)"), {});
}

void ajouterColonnesStation(const DataEnvironment1 &donnees)
{
    const QString table = QStringLiteral("STATION_QUALITE");
    constexpr const char *COLONNES[][2] = {{"FinaliteStationM", "VARCHAR(70) COLLATE NOCASE"},
                                           {"LocalisationGlobaleStationM", "VARCHAR(60) COLLATE NOCASE"},
                                           {"LocalisationPreciseStationM", "VARCHAR(80) COLLATE NOCASE"},
                                           {"AltPointCarStationM", "INTEGER"},
                                           {"Mois1EtiageStationM", "INTEGER"},
                                           {"PkPointCarStationM", "DOUBLE"},
                                           {"ArretActiviteStationM", "DATE"},
                                           {"DateMAJStationM", "DATE"},
                                           {"ObtentionCoorStationM", "VARCHAR(1) COLLATE NOCASE"}};
    for (const auto &[nom, type] : COLONNES)
        if (!Structure::colonneExiste(donnees.Connect_Bdd(), table, QLatin1String(nom)))
            donnees.executer(QStringLiteral("ALTER TABLE STATION_QUALITE ADD COLUMN %1 %2")
                                 .arg(QLatin1String(nom), QLatin1String(type)));
}

void transposerTables(const DataEnvironment1 &donnees)
{
    using M_Structure_2002::RemplacerChamp;
    const QSqlDatabase &base = donnees.Connect_Bdd();
    const QString reseaux = QStringLiteral("RESEAU_MESURE");
    const QString stations = QStringLiteral("STATION_QUALITE");
    const QString mesures = QStringLiteral("MESURE_PHYSICO");
    const QString nocase = QStringLiteral("NOCASE");
    const M_Structure_2002::Champ code{QStringLiteral("CodeReseau"), QStringLiteral("VARCHAR(10)"), nocase};

    const ReglagesStructure reglages(base);
    Transaction transaction(base);
    if (!Structure::tableExiste(base, reseaux))
        Schema::creerTable(base, reseaux);
    detacherReseaux(base);
    RemplacerChamp(donnees, reseaux, code);
    RemplacerChamp(donnees, reseaux,
                   {QStringLiteral("FinaliteReseau"), QStringLiteral("VARCHAR(255)"), nocase});
    indexerReseaux(base);
    Schema::creerTable(base, QStringLiteral("TECHNIQUE"));
    donnees.executer(QStringLiteral("INSERT INTO TECHNIQUE (VERSION) VALUES ('2L')"));
    ajouterColonnesStation(donnees);
    RemplacerChamp(donnees, stations, code);
    for (const char *coordonnee : {"CoorXStationM", "CoorYStationM"})
        RemplacerChamp(donnees, stations, {QString::fromLatin1(coordonnee), QStringLiteral("DOUBLE")});
    if (Structure::tableExiste(base, mesures))
        RemplacerChamp(donnees, mesures, code);
    transaction.valider();
}
} // namespace

void M_Structure_2002::RefaireClesEtrangeres(const DataEnvironment1 &donnees, const QString &table)
{
    const QSqlDatabase &base = donnees.Connect_Bdd();
    DefinitionTable definition = DefinitionTable::lire(base, table);
    bool change = false;
    for (const Schema::CleEtrangere &voulue : Schema::clesEtrangeres()) {
        if (voulue.table.compare(table, Qt::CaseInsensitive) != 0 || definition.position(voulue.colonne) < 0)
            continue;
        const CleEtrangere cle{
            voulue.nom, {voulue.colonne},           voulue.tableCible, {voulue.colonneCible},
            true,       voulue.suppressionEnCascade};
        definition.retirerCleEtrangere(cle);
        if (rendreUnique(base, voulue.tableCible, voulue.colonneCible))
            definition.clesEtrangeres << cle;
        change = true;
    }
    if (change)
        definition.reconstruire(base);
}

void M_Structure_2002::RetyperColonne(const DataEnvironment1 &donnees, const QString &table,
                                      const QString &colonne, int longueur)
{
    const QSqlDatabase &base = donnees.Connect_Bdd();
    const QString t = Structure::citer(table);
    const QString c = Structure::citer(colonne);
    const QString cNouv = Structure::citer(colonne + QStringLiteral("_Nouv"));
    const QString type = QStringLiteral("VARCHAR(%1) COLLATE NOCASE").arg(longueur);
    const bool presente = Structure::colonneExiste(base, table, colonne);
    const QList<Structure::Index> index = Structure::index(base, table, colonne);

    Transaction transaction(base);
    if (!Structure::colonneExiste(base, table, colonne + QStringLiteral("_Nouv")))
        donnees.executer(QStringLiteral("ALTER TABLE %1 ADD COLUMN %2 %3").arg(t, cNouv, type));
    if (presente) {
        // Where the column has no value, one in the spare column is what an interrupted run had put away.
        donnees.executer(QStringLiteral("UPDATE %1 SET %2 = %3 WHERE %3 IS NOT NULL").arg(t, cNouv, c));
        for (const Structure::Index &i : index)
            donnees.executer(QStringLiteral("DROP INDEX ") + Structure::citer(i.nom));
        donnees.executer(QStringLiteral("ALTER TABLE %1 DROP COLUMN %2").arg(t, c));
    }
    donnees.executer(QStringLiteral("ALTER TABLE %1 ADD COLUMN %2 %3").arg(t, c, type));
    donnees.executer(QStringLiteral("UPDATE %1 SET %2 = %3 WHERE %3 IS NOT NULL").arg(t, c, cNouv));
    donnees.executer(QStringLiteral("ALTER TABLE %1 DROP COLUMN %2").arg(t, cNouv));
    for (const Structure::Index &i : index)
        donnees.executer(i.instruction);
    transaction.valider();
}

void M_Structure_2002::RemplacerChamp(const DataEnvironment1 &donnees, const QString &table,
                                      const Champ &champ)
{
    const QSqlDatabase &base = donnees.Connect_Bdd();
    DefinitionTable definition = DefinitionTable::lire(base, table);
    const DefinitionTable::Colonne nouvelle{champ.nom, champ.type, champ.collation, false, {}};
    if (const qsizetype position = definition.position(champ.nom); position >= 0) {
        definition.colonnes[position].type = nouvelle.type;
        definition.colonnes[position].collation = nouvelle.collation;
    } else {
        definition.colonnes << nouvelle;
    }
    definition.reconstruire(base);
}

void M_Structure_2002::MettreAJourVersion(const DataEnvironment1 &donnees)
{
    const QSqlDatabase &base = donnees.Connect_Bdd();
    {
        const ReglagesStructure reglages(base);
        Transaction transaction(base);
        for (const QString &table : Structure::tables(base)) {
            if (memeNom(table, "MESURE_PHYSICO") || memeNom(table, "PRELEVEMENTRSX"))
                RefaireClesEtrangeres(donnees, table);
            for (const ColonneCommentaire &c : COMMENTAIRES)
                if (memeNom(table, c.table))
                    RetyperColonne(donnees, table, QString::fromLatin1(c.colonne), LONGUEUR_COMMENTAIRE);
        }
        transaction.valider();
    }
    // From here the cascades made above are at work.
    Transaction transaction(base);
    if (Structure::tableExiste(base, QStringLiteral("RESEAU_MESURE")))
        corrigerReseau(donnees);
    if (Structure::tableExiste(base, QStringLiteral("INTERVENANT")))
        corrigerIntervenants(donnees);
    donnees.executer(QStringLiteral(
        "UPDATE APPLICATIONPROPERTIES SET PROPERTYVALUE = '4.0.1' WHERE PROPERTYNAME LIKE 'DbVersion'"));
    transaction.valider();
    donnees.oublierMemoire();
}

bool M_Structure_2002::TransposerStructure(const DataEnvironment1 &donnees,
                                           const Transposition &transposition)
{
    const Reponse reponse = transposition.dialogue.question(
        QStringLiteral("La base de donnée choisie a un format ancien\n\n"
                       "Si vous ne disposez pas de sauvegarde à jour \n"
                       "     tapez sur Non \n"
                       "     le programme s'arrêtera et vous pourrez alors affectuer une sauvegarde\n"
                       "     et relancer l'application\n\n"
                       "En tapant sur Oui la modification de structure sera effectuée automatiquement"),
        QStringLiteral("Transposer la base?"), {Reponse::Oui, Reponse::Non}, Reponse::Non);
    if (reponse != Reponse::Oui)
        return false;
    Progression &attente = transposition.dialogue.progression(FenetreProgression::FProgress3);
    attente.montrer(QStringLiteral("Transposer la base"),
                    QStringLiteral("Modification de structure en cours"));
    attente.maximum(0);
    try {
        transposerTables(donnees);
        donnees.oublierMemoire();
        if (transposition.TransposerReseaux && QFileInfo::exists(transposition.fichierReseaux))
            transposition.TransposerReseaux(transposition.fichierReseaux);
    } catch (...) {
        attente.cacher();
        throw;
    }
    attente.cacher();
    return true;
}

void M_Structure_2002::TransposerPrelevements(const DataEnvironment1 &donnees, const QString &ancien,
                                              const QString &nouveau)
{
    // The base takes codes that differ by case for one: the samplings would be "in both", and lose their membership.
    if (ancien.compare(nouveau, Qt::CaseInsensitive) == 0)
        return;
    if (!Structure::tableExiste(donnees.Connect_Bdd(), QStringLiteral("PRELEVEMENTRSX")))
        return;
    donnees.executer(QStringLiteral("DELETE FROM PRELEVEMENTRSX WHERE CodeReseau = ? AND NumPrel IN "
                                    "(SELECT NumPrel FROM PRELEVEMENTRSX WHERE CodeReseau = ?)"),
                     {nouveau, ancien});
    donnees.executer(QStringLiteral("UPDATE PRELEVEMENTRSX SET CodeReseau = ? WHERE CodeReseau = ?"),
                     {nouveau, ancien});
}
