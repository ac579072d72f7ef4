// The help as the build lays it out: every link of every page leads somewhere, every screen has its page.
#include "frame/RegistreEcrans.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

class TestAide : public QObject
{
    Q_OBJECT
private:
    const QDir m_dossier{QStringLiteral(DONNEES_TESTS "/../../docs/aide")};
    QString lire(const QString &nom) const
    {
        QFile page(m_dossier.filePath(nom));
        return page.open(QIODevice::ReadOnly) ? QString::fromUtf8(page.readAll()) : QString();
    }

private Q_SLOTS:
    void pages_data()
    {
        QTest::addColumn<QString>("nom");
        const QStringList pages = m_dossier.entryList({QStringLiteral("*.html")});
        QVERIFY(pages.contains(QStringLiteral("index.html")));
        for (const QString &page : pages)
            QTest::newRow(qPrintable(page)) << page;
    }
    void pages()
    {
        QFETCH(QString, nom);
        const QString page = lire(nom);
        QVERIFY(page.contains(QLatin1String("<html lang=\"fr\">")));
        QVERIFY(page.contains(QLatin1String("<meta charset=\"utf-8\">")));
        QVERIFY(page.contains(QLatin1String("href=\"style.css\"")));
        QVERIFY(!page.contains(QLatin1String("<script")));
        static const QRegularExpression lien(QStringLiteral("(?:href|src)=\"([^\"#]*)(#[^\"]*)?\""));
        QRegularExpressionMatchIterator liens = lien.globalMatch(page);
        while (liens.hasNext()) {
            const QString cible = liens.next().captured(1);
            // The help works without a network: nothing of it is elsewhere.
            QVERIFY2(!cible.contains(QLatin1String("//")), qPrintable(cible));
            QVERIFY2(cible.isEmpty() || m_dossier.exists(cible), qPrintable(cible));
        }
    }

    // From the first page, every other one can be reached.
    void atteignables()
    {
        QStringList aLire = {QStringLiteral("index.html")};
        QSet<QString> vues;
        static const QRegularExpression lien(QStringLiteral("href=\"([^\"#]*\\.html)"));
        while (!aLire.isEmpty()) {
            const QString page = aLire.takeLast();
            if (vues.contains(page))
                continue;
            vues << page;
            QRegularExpressionMatchIterator liens = lien.globalMatch(lire(page));
            while (liens.hasNext())
                aLire << liens.next().captured(1);
        }
        const QStringList pages = m_dossier.entryList({QStringLiteral("*.html")});
        for (const QString &page : pages)
            QVERIFY2(vues.contains(page), qPrintable(page));
    }

    void unePageParEcran()
    {
        for (const EntreeRegistre &entree : registreEcrans())
            if (!entree.classe.isEmpty())
                QVERIFY2(m_dossier.exists(entree.classe + QStringLiteral(".html")),
                         qPrintable(entree.classe));
    }
};

QTEST_GUILESS_MAIN(TestAide)
#include "test_aide.moc"
