#include "platform/Erreur.h"
#include "platform/FichierSur.h"

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
};

QTEST_APPLESS_MAIN(TestFichierSur)
#include "test_fichier_sur.moc"
