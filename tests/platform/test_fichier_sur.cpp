#include "platform/Erreur.h"
#include "platform/FichierSur.h"

#include <cerrno>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace
{
void ecrire(const QString &chemin, const QByteArray &contenu)
{
    QFile fichier(chemin);
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    fichier.write(contenu);
}

QByteArray lire(const QString &chemin)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("absent");
}
} // namespace

class TestFichierSur : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void remplaceEtNeLaisseRien()
    {
        QTemporaryDir dossier;
        ecrire(dossier.filePath("source"), "nouveau");
        ecrire(dossier.filePath("cible"), "ancien");
        FichierSur::remplacer(dossier.filePath("source"), dossier.filePath("cible"));
        QCOMPARE(lire(dossier.filePath("cible")), QByteArray("nouveau"));
        QCOMPARE(QDir(dossier.path()).entryList(QDir::Files), (QStringList{"cible", "source"}));
    }

    void derriereUnLien()
    {
        QTemporaryDir dossier;
        ecrire(dossier.filePath("source"), "nouveau");
        ecrire(dossier.filePath("vrai"), "ancien");
        QVERIFY(QFile::link(dossier.filePath("vrai"), dossier.filePath("lien")));
        FichierSur::remplacer(dossier.filePath("source"), dossier.filePath("lien"));
        QCOMPARE(lire(dossier.filePath("vrai")), QByteArray("nouveau"));
        QVERIFY(QFileInfo(dossier.filePath("lien")).isSymLink());
    }

    void sourceAbsente()
    {
        QTemporaryDir dossier;
        ecrire(dossier.filePath("cible"), "ancien");
        QVERIFY_THROWS_EXCEPTION(Erreur,
                                 FichierSur::remplacer(dossier.filePath("rien"), dossier.filePath("cible")));
        QCOMPARE(lire(dossier.filePath("cible")), QByteArray("ancien"));
        QCOMPARE(QDir(dossier.path()).entryList(QDir::Files), QStringList{"cible"});
    }

    // A folder of the target's name cannot be replaced by a file: the rename is what fails.
    void cibleIrremplacable()
    {
        QTemporaryDir dossier;
        ecrire(dossier.filePath("source"), "nouveau");
        QVERIFY(QDir(dossier.path()).mkpath("cible/plein"));
        QVERIFY_THROWS_EXCEPTION(
            Erreur, FichierSur::remplacer(dossier.filePath("source"), dossier.filePath("cible")));
        QVERIFY(QDir(dossier.filePath("cible/plein")).exists());
        QCOMPARE(QDir(dossier.path()).entryList(QDir::Files), QStringList{"source"});
    }

    void doubler()
    {
        QTemporaryDir dossier;
        ecrire(dossier.filePath("un"), "contenu");
        FichierSur::doubler(dossier.filePath("un"), dossier.filePath("deux"));
        QCOMPARE(lire(dossier.filePath("deux")), QByteArray("contenu"));
        // The first name given to another file, the second keeps the content.
        ecrire(dossier.filePath("autre"), "autre");
        FichierSur::mettreEnPlace(dossier.filePath("autre"), dossier.filePath("un"));
        QCOMPARE(lire(dossier.filePath("un")), QByteArray("autre"));
        QCOMPARE(lire(dossier.filePath("deux")), QByteArray("contenu"));
        QCOMPARE(QDir(dossier.path()).entryList(QDir::Files), (QStringList{"deux", "un"}));
    }

    // A name that is taken is never given.
    void doublerSurUnFichier()
    {
        QTemporaryDir dossier;
        ecrire(dossier.filePath("un"), "contenu");
        ecrire(dossier.filePath("deux"), "à garder");
        QVERIFY_THROWS_EXCEPTION(Erreur,
                                 FichierSur::doubler(dossier.filePath("un"), dossier.filePath("deux")));
        QCOMPARE(lire(dossier.filePath("deux")), QByteArray("à garder"));
    }

    void mettreEnPlaceImpossible()
    {
        QTemporaryDir dossier;
        ecrire(dossier.filePath("cible"), "ancien");
        QVERIFY_THROWS_EXCEPTION(
            Erreur, FichierSur::mettreEnPlace(dossier.filePath("rien"), dossier.filePath("cible")));
        QCOMPARE(lire(dossier.filePath("cible")), QByteArray("ancien"));
    }

    void raisons()
    {
        QCOMPARE(FichierSur::raison(ENOSPC), QStringLiteral("Le disque est plein."));
        QCOMPARE(FichierSur::raison(EROFS), QStringLiteral("Le disque est en lecture seule."));
        QVERIFY(!FichierSur::raison(12345).isEmpty());
    }
};

QTEST_APPLESS_MAIN(TestFichierSur)
#include "test_fichier_sur.moc"
