// Saving where it cannot be done: the reason in words, and what was there untouched.
#include "workbook/Tableur.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

class TestEnregistrement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void dossierAbsent();
    void nomDUnDossier();
    void fichierOuvertAilleurs();
    void sansNom();
    void disquePlein();
    void fichierProtege();
    void remplace();

private:
    QString echec(const std::function<void()> &appels)
    {
        try {
            appels();
        } catch (const Erreur &e) {
            return e.description();
        }
        return {};
    }
    QString ancien()
    {
        QFile fichier(m_ancien);
        return fichier.open(QIODevice::ReadOnly) ? QString::fromUtf8(fichier.readAll()) : QString();
    }

    Tableur m_tableur;
    QTemporaryDir m_dossier;
    QString m_ancien;
    std::unique_ptr<Classeur> m_classeur;
};

void TestEnregistrement::initTestCase()
{
    m_ancien = m_dossier.filePath(QStringLiteral("ancien.xls"));
    QFile fichier(m_ancien);
    QVERIFY(fichier.open(QIODevice::WriteOnly) && fichier.write("ce qui était là") > 0);
    fichier.close();
    m_classeur = m_tableur.ajouter();
    // Incompressible enough for the full disk below: some 200 kB.
    Valeurs nombres(2000, QVector<QVariant>(10));
    for (int l = 0; l < 2000; ++l) {
        for (int c = 0; c < 10; ++c)
            nombres[l][c] = (l * 10 + c) / 7.0;
    }
    m_classeur->feuille(1).plage(1, 1, 2000, 10).ecrire(nombres);
}

// After each failure the workbook can still be saved elsewhere, and nothing lies about.
void TestEnregistrement::cleanup()
{
    const QString ailleurs = m_dossier.filePath(QStringLiteral("ailleurs.xls"));
    m_classeur->enregistrerSous(ailleurs);
    QVERIFY(QFile::remove(ailleurs));
    QCOMPARE(QDir(m_dossier.path()).entryList(QDir::Files | QDir::Hidden),
             QStringList{QStringLiteral("ancien.xls")});
}

void TestEnregistrement::dossierAbsent()
{
    const QString dossier = m_dossier.filePath(QStringLiteral("absent"));
    QCOMPARE(
        echec([&] { m_classeur->enregistrerSous(dossier + QStringLiteral("/x.xls")); }),
        QStringLiteral("Le fichier « x.xls » ne peut pas être enregistré : le dossier « %1 » n'existe pas.")
            .arg(dossier));
}

void TestEnregistrement::nomDUnDossier()
{
    QVERIFY(QDir(m_dossier.path()).mkdir(QStringLiteral("pris.xls")));
    QCOMPARE(echec([&] { m_classeur->enregistrerSous(m_dossier.filePath(QStringLiteral("pris.xls"))); }),
             QStringLiteral(
                 "Le fichier « pris.xls » ne peut pas être enregistré : un dossier porte déjà ce nom."));
}

void TestEnregistrement::fichierOuvertAilleurs()
{
    QFile verrou(m_dossier.filePath(QStringLiteral(".~lock.ancien.xls#")));
    QVERIFY(verrou.open(QIODevice::WriteOnly) &&
            verrou.write("Anne Le Goff,anne,poste,20.11.2026 10:00,file:///x;") > 0);
    verrou.close();
    QCOMPARE(
        echec([&] { m_classeur->enregistrerSous(m_ancien); }),
        QStringLiteral(
            "Le fichier « ancien.xls » ne peut pas être enregistré : ce fichier est ouvert dans un autre "
            "programme (Anne Le Goff). Fermez-le, puis recommencez."));
    QCOMPARE(ancien(), QStringLiteral("ce qui était là"));
    QVERIFY(verrou.remove());
}

void TestEnregistrement::sansNom()
{
    const auto neuf = m_tableur.ajouter();
    QCOMPARE(echec([&] { neuf->enregistrer(); }),
             QStringLiteral(
                 "Ce classeur est ouvert en lecture seule ou n'a pas encore de nom : il ne peut pas être "
                 "enregistré."));
}

void TestEnregistrement::disquePlein()
{
    const QString disque = m_dossier.filePath(QStringLiteral("disque"));
    QVERIFY(QDir().mkpath(disque));
    if (QProcess::execute(QStringLiteral("mount"),
                          {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"),
                           QStringLiteral("size=64k"), QStringLiteral("tmpfs"), disque}) != 0)
        QSKIP("Un petit disque ne peut être monté que par l'administrateur.");
    QFile fichier(disque + QStringLiteral("/plein.xls"));
    const bool ecrit = fichier.open(QIODevice::WriteOnly) && fichier.write("avant") == 5;
    fichier.close();
    const QString raison = echec([&] { m_classeur->enregistrerSous(fichier.fileName()); });
    const bool relu = fichier.open(QIODevice::ReadOnly);
    const QByteArray reste = fichier.readAll();
    fichier.close();
    const QStringList contenu = QDir(disque).entryList(QDir::Files | QDir::Hidden);
    QProcess::execute(QStringLiteral("umount"), {disque});
    QVERIFY(ecrit && relu);
    QCOMPARE(raison,
             QStringLiteral("Le fichier « plein.xls » ne peut pas être enregistré : le disque est plein."));
    QCOMPARE(reste, QByteArray("avant"));
    QCOMPARE(contenu, QStringList{QStringLiteral("plein.xls")});
}

void TestEnregistrement::fichierProtege()
{
    QVERIFY(QFile::setPermissions(m_ancien, QFile::ReadOwner));
    const auto rendre =
        qScopeGuard([this] { QFile::setPermissions(m_ancien, QFile::ReadOwner | QFile::WriteOwner); });
    if (QFileInfo(m_ancien).isWritable())
        QSKIP("Rien n'est protégé contre l'administrateur.");
    QCOMPARE(echec([&] { m_classeur->enregistrerSous(m_ancien); }),
             QStringLiteral(
                 "Le fichier « ancien.xls » ne peut pas être enregistré : ce fichier est protégé contre "
                 "l'écriture."));
    QCOMPARE(ancien(), QStringLiteral("ce qui était là"));
}

void TestEnregistrement::remplace()
{
    const QString copie = m_dossier.filePath(QStringLiteral("copie.xls"));
    QVERIFY(QFile::copy(m_ancien, copie));
    m_classeur->enregistrerSous(copie);
    QCOMPARE(m_tableur.ouvrir(copie)->feuille(1).derniereLigne(), 2000);
    QVERIFY(QFile::remove(copie));
}

QTEST_GUILESS_MAIN(TestEnregistrement)
#include "test_enregistrement.moc"
