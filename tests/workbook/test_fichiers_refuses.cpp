// Files that are no sound workbook, or that cannot be read: each ends in words, none in a prompt, a wait or a guess.
#include "workbook/Tableur.h"

#include <QTemporaryDir>
#include <QtTest>
#include <random>

class TestFichiersRefuses : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void refuses_data();
    void refuses();
    void tronquesPartout_data();
    void tronquesPartout();
    void octetsChanges();
    void verrouilleParUnAutre();
    void extensionTrompeuse();
    void textes_data();
    void textes();

private:
    QString ecrire(const char *nom, const QByteArray &contenu)
    {
        QFile fichier(m_dossier.filePath(QString::fromUtf8(nom)));
        if (!fichier.open(QIODevice::WriteOnly) || fichier.write(contenu) != contenu.size())
            qFatal("dossier temporaire");
        return fichier.fileName();
    }
    static QByteArray lire(const QString &chemin)
    {
        QFile fichier(chemin);
        return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
    }
    // The words of the refusal; empty when the file opens.
    QString refus(const QString &chemin)
    {
        try {
            m_tableur.ouvrir(chemin);
        } catch (const Erreur &e) {
            return e.description();
        }
        return {};
    }

    Tableur m_tableur;
    QTemporaryDir m_dossier;
    QByteArray m_xls;
    QByteArray m_xlsx;
    QByteArray m_ods;
};

void TestFichiersRefuses::initTestCase()
{
    auto classeur = m_tableur.ajouter();
    classeur->feuille(1)
        .plage(1, 1, 300, 10)
        .ecrire(QStringLiteral("texte assez long pour remplir des secteurs"));
    for (const char *nom : {"sain.xls", "sain.xlsx", "sain.ods"})
        classeur->enregistrerSous(m_dossier.filePath(QLatin1String(nom)));
    m_xls = lire(m_dossier.filePath(QStringLiteral("sain.xls")));
    m_xlsx = lire(m_dossier.filePath(QStringLiteral("sain.xlsx")));
    m_ods = lire(m_dossier.filePath(QStringLiteral("sain.ods")));
    QVERIFY(m_xls.size() > 10'000);
    for (const char *nom : {"sain.xls", "sain.xlsx", "sain.ods"})
        QCOMPARE(refus(m_dossier.filePath(QLatin1String(nom))), QString());
}

void TestFichiersRefuses::refuses_data()
{
    QTest::addColumn<QString>("chemin");
    QTest::addColumn<QString>("raison");
    const auto cas = [](const char *nom, const QString &chemin, const QString &raison) {
        QTest::newRow(nom) << chemin
                           << QStringLiteral("Le fichier « %1 » ").arg(QFileInfo(chemin).fileName()) + raison;
    };
    const QString pasUnClasseur = QStringLiteral("n'est pas un classeur.");
    const QString abime = QStringLiteral("est tronqué ou abîmé : il ne peut pas être lu.");
    const QString motDePasse =
        QStringLiteral("est protégé par un mot de passe. Enregistrez-le sans mot de passe, "
                       "puis recommencez.");
    cas("absent", m_dossier.filePath(QStringLiteral("absent.xls")), QStringLiteral("n'existe pas."));
    cas("vide", ecrire("vide.xls", {}), QStringLiteral("est vide."));
    QVERIFY(QDir(m_dossier.path()).mkdir(QStringLiteral("dossier.xls")));
    cas("dossier", m_dossier.filePath(QStringLiteral("dossier.xls")),
        QStringLiteral("ne peut pas être lu : il est peut-être ouvert dans un autre programme, ou ses droits "
                       "l'interdisent."));
    cas("texte", ecrire("texte.xls", "Code station;Valeur\n05001000;12,5\n"), pasUnClasseur);
    cas("page web", ecrire("web.xls", "<html><table><tr><td>1</td></tr></table></html>"), pasUnClasseur);
    cas("image", ecrire("image.xlsx", "\x89PNG\r\n\x1a\n et la suite"), pasUnClasseur);
    cas("quatre octets", ecrire("court.xls", m_xls.left(4)), abime);
    cas("en-tête suivi de rien", ecrire("entete.xls", m_xls.left(512)), abime);
    cas("en-tête suivi de n'importe quoi", ecrire("hasard.xls", m_xls.left(512) + QByteArray(20'000, 'x')),
        abime);
    QByteArray autre = m_xls;
    const QByteArray nomFlux =
        QByteArray::fromHex("57006f0072006b0062006f006f006b00"); // "Workbook" in UTF-16
    QCOMPARE(autre.count(nomFlux), 1);
    autre.replace(nomFlux, QByteArray::fromHex("44006f00630075006d0065006e007400")); // "Document"
    cas("autre document composé", ecrire("document.xls", autre), pasUnClasseur);
    cas("paquet sans classeur",
        ecrire("paquet.xlsx", QByteArray(m_xlsx).replace("xl/workbook.xml", "xl/document.xml")),
        pasUnClasseur);
    for (const char *extension : {"xls", "xlsx", "ods"}) {
        const QString fichier =
            QStringLiteral(DONNEES_TESTS "/classeurs/mot_de_passe.") + QLatin1String(extension);
        QVERIFY(QFile::exists(fichier));
        cas(qPrintable(QStringLiteral("mot de passe ") + QLatin1String(extension)), fichier, motDePasse);
    }
}

void TestFichiersRefuses::refuses()
{
    QFETCH(QString, chemin);
    QFETCH(QString, raison);
    QCOMPARE(refus(chemin), raison);
}

void TestFichiersRefuses::tronquesPartout_data()
{
    QTest::addColumn<QByteArray>("entier");
    QTest::addColumn<QString>("nom");
    QTest::newRow("xls") << m_xls << QStringLiteral("tronque.xls");
    QTest::newRow("xlsx") << m_xlsx << QStringLiteral("tronque.xlsx");
    QTest::newRow("ods") << m_ods << QStringLiteral("tronque.ods");
}

// Cut at twenty places, the last one short of a sector from the end.
void TestFichiersRefuses::tronquesPartout()
{
    QFETCH(QByteArray, entier);
    QFETCH(QString, nom);
    for (int vingtieme = 1; vingtieme <= 20; ++vingtieme) {
        const QString chemin = ecrire(qPrintable(nom), entier.left((entier.size() - 600) * vingtieme / 20));
        QCOMPARE(refus(chemin),
                 QStringLiteral("Le fichier « %1 » est tronqué ou abîmé : il ne peut pas être lu.").arg(nom));
    }
}

// Whatever bytes are wrong, the file opens or is refused; the instance lives on, or another takes its place.
void TestFichiersRefuses::octetsChanges()
{
    std::mt19937 hasard(20090301);
    for (int essai = 0; essai < 60; ++essai) {
        QByteArray abime = essai % 3 == 0 ? m_xls : essai % 3 == 1 ? m_xlsx : m_ods;
        for (int i = 0; i < 40; ++i)
            abime[static_cast<qsizetype>(hasard() % static_cast<quint32>(abime.size()))] =
                static_cast<char>(hasard());
        refus(ecrire(essai % 3 == 0 ? "abime.xls" : essai % 3 == 1 ? "abime.xlsx" : "abime.ods", abime));
    }
    QCOMPARE(refus(m_dossier.filePath(QStringLiteral("sain.xls"))), QString());
}

// Another LibreOffice says with a file of its own that it holds the workbook open: it is read all the same.
void TestFichiersRefuses::verrouilleParUnAutre()
{
    const QString verrou = ecrire(
        ".~lock.sain.xls#", ",quelqu'un,poste,20.11.2026 10:00,file:///home/quelquun/.config/libreoffice/4;");
    const auto classeur = m_tableur.ouvrir(m_dossier.filePath(QStringLiteral("sain.xls")), true);
    QCOMPARE(classeur->feuille(1).derniereLigne(), 300);
    QVERIFY(QFile::exists(verrou));
}

// The content decides, not the name.
void TestFichiersRefuses::extensionTrompeuse()
{
    QCOMPARE(refus(ecrire("en_fait_xlsx.xls", m_xlsx)), QString());
    QCOMPARE(refus(ecrire("en_fait_xls.ods", m_xls)), QString());
    QCOMPARE(refus(ecrire("en_fait_ods.xlsx", m_ods)), QString());
    QCOMPARE(refus(ecrire("sans_extension", m_xls)), QString());
}

void TestFichiersRefuses::textes_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::newRow("point-virgule, Windows") << QByteArray("Code;Libell\xE9\r\n05001000;\"a;b\"\r\n");
    QTest::newRow("tabulation, UTF-8") << QByteArray("Code\tLibell\xC3\xA9\n05001000\ta;b\n");
    QTest::newRow("virgule, UTF-8, sans fin de ligne") << QByteArray("Code,Libell\xC3\xA9\n05001000,a;b");
}

void TestFichiersRefuses::textes()
{
    QFETCH(QByteArray, contenu);
    const auto classeur = m_tableur.ouvrir(ecrire("colonnes.csv", contenu), true);
    QCOMPARE(classeur->feuille(1).plage(QStringLiteral("A1:B2")).valeurs(),
             (Valeurs{{QStringLiteral("Code"), QStringLiteral("Libellé")},
                      {QStringLiteral("05001000"), QStringLiteral("a;b")}}));
}

QTEST_GUILESS_MAIN(TestFichiersRefuses)
#include "test_fichiers_refuses.moc"
