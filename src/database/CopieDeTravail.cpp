#include "database/CopieDeTravail.h"

#include "database/DataEnvironment1.h"
#include "database/DefinitionTable.h"
#include "platform/Erreur.h"
#include "platform/FichierSur.h"

#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

namespace
{
constexpr const char *SUITES[] = {"", "-journal", "-wal", "-shm"};

void effacer(const QString &chemin)
{
    for (const char *suite : SUITES)
        QFile::remove(chemin + QLatin1String(suite));
}
} // namespace

bool CopieDeTravail::estUtile(const QString &fichier)
{
    DataEnvironment1 donnees;
    donnees.ouvrir(fichier, false);
    const QSqlDatabase &base = donnees.Connect_Bdd();
    if (!Structure::tableExiste(base, QStringLiteral("TECHNIQUE")) ||
        !Structure::tableExiste(base, QStringLiteral("APPLICATIONPROPERTIES")))
        return true;
    Requete r = donnees.executer(QStringLiteral(
        "SELECT PROPERTYVALUE FROM APPLICATIONPROPERTIES WHERE PROPERTYNAME LIKE 'DbVersion'"));
    return !r.suivant() || r.texte(0) == QLatin1String("4.0.0");
}

CopieDeTravail::CopieDeTravail(const QString &fichier) : m_fichier(QFileInfo(fichier).canonicalFilePath())
{
    // Rows that stand in another program's journal are not in the file.
    if (QFileInfo(m_fichier + QStringLiteral("-wal")).size() > 0)
        throw Erreur(SQLITE_BUSY,
                     QStringLiteral("Le fichier est utilisé par un autre programme. Fermez ce programme, "
                                    "puis recommencez."));
    effacer(chemin()); // left by a run that was killed
    QFile origine(m_fichier);
    if (!origine.copy(chemin())) {
        const QString raison = origine.errorString();
        effacer(chemin());
        throw Erreur(origine.error(),
                     QStringLiteral("La base de données doit être mise à jour, mais elle ne peut pas "
                                    "être copiée dans son dossier : %1")
                         .arg(raison));
    }
}

CopieDeTravail::~CopieDeTravail()
{
    effacer(chemin());
}

QString CopieDeTravail::chemin() const
{
    return m_fichier + QStringLiteral(".conversion");
}

void CopieDeTravail::mettreEnPlace()
{
    FichierSur::mettreEnPlace(chemin(), m_fichier);
}
