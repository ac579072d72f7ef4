// Reports of the demonstration study, read back by an independent reader.
#include "BaseConstruite.h"
#include "EssaiRapport.h"

#include <QTest>

namespace
{
const QString EXUTOIRE = QStringLiteral("04999010");

DemandeRapport demande(const QString &station, const QString &parametre, QDate debut, QDate fin,
                       ModeAnnee mode = ModeAnnee::Civile)
{
    DemandeRapport d;
    d.codeStation = station;
    d.parametre = parametre;
    d.debut = debut;
    d.fin = fin;
    d.mode = mode;
    return d;
}
} // namespace

class TestRapportDemonstration : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<EssaiRapport> m_essai;
    std::unique_ptr<BaseConstruite> m_etude;

    // Codes of everything that bears a result of the outlet's nitrates.
    QStringList codes(const QString &colonne, const QString &jointure = {}) const
    {
        QStringList liste;
        Requete r = m_etude->donnees.executer(
            QStringLiteral(
                "SELECT DISTINCT %1 FROM PRELEVEMENT JOIN MESURE_PHYSICO USING (NumPrel) %2 "
                "WHERE CodeSandreStationM = ? AND CodeParam = '1340' AND %1 IS NOT NULL ORDER BY %1")
                .arg(colonne, jointure),
            {EXUTOIRE});
        while (r.suivant())
            liste << r.texte(0);
        return liste;
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_essai = std::make_unique<EssaiRapport>();
        m_etude = std::make_unique<BaseConstruite>(QStringLiteral("demonstration.mdb"));
    }

    void cleanupTestCase()
    {
        m_etude.reset();
        m_essai.reset();
    }

    void comparaison_data()
    {
        QTest::addColumn<DemandeRapport>("d");
        const auto hydro = ModeAnnee::Hydrologique;
        const QString nitrates = QStringLiteral("Nitrates");
        const QDate debut(2008, 1, 1);
        const QDate fin(2018, 12, 31);

        QTest::newRow("one civil year")
            << demande(EXUTOIRE, nitrates, QDate(2012, 1, 1), QDate(2012, 12, 31));
        QTest::newRow("eleven civil years") << demande(EXUTOIRE, nitrates, debut, fin);
        QTest::newRow("hydrological years") << demande(EXUTOIRE, nitrates, debut, QDate(2013, 8, 15), hydro);
        QTest::newRow("years without a measure") << demande(EXUTOIRE, nitrates, QDate(1998, 5, 1), fin);
        QTest::newRow("another station, another parameter")
            << demande(QStringLiteral("04999030"), QStringLiteral("Ammonium"), debut, fin, hydro);
        QTest::newRow("values below the detection threshold")
            << demande(QStringLiteral("04999060"), QStringLiteral("Orthophosphates"), debut, fin);
        QTest::newRow("a parameter without objective nor grid")
            << demande(EXUTOIRE, QStringLiteral("Chlorures"), QDate(2010, 1, 1), QDate(2015, 6, 30));

        DemandeRapport d = demande(EXUTOIRE, nitrates, debut, fin);
        d.stationDebit = QStringLiteral("J7999910");
        d.seuil = 30;
        d.afficherCodeUsuel = true;
        QTest::newRow("flows, threshold, everyday code") << d;
        d = demande(EXUTOIRE, nitrates, debut, fin);
        d.gestionnaires = codes(QStringLiteral("CodeSandreGest")).mid(0, 1);
        QTest::newRow("first producer") << d;
        d = demande(EXUTOIRE, nitrates, debut, fin);
        d.reseaux = codes(QStringLiteral("PRELEVEMENTRSX.CodeReseau"),
                          QStringLiteral("JOIN PRELEVEMENTRSX USING (NumPrel)"))
                        .mid(0, 1);
        QTest::newRow("first network") << d;
        d = demande(EXUTOIRE, nitrates, debut, fin);
        d.commentaires = QStringList{""};
        QTest::newRow("without a comment") << d;
        d.commentaires = codes(QStringLiteral("CommResAnaPC"));
        QTest::newRow("with a comment") << d;
        d = demande(EXUTOIRE, nitrates, debut, fin);
        d.protocole = QStringLiteral("Suivi calendaire");
        QTest::newRow("protocol") << d;
        d = demande(EXUTOIRE, QStringLiteral("Carbone Organique"), debut, fin);
        d.fraction = QStringLiteral("23 - Eau brute");
        QTest::newRow("organic carbon, raw water") << d;
        d.fraction = QStringLiteral("3 - Phase aqueuse de l'eau (filtrée, centrifugée...)");
        QTest::newRow("organic carbon, dissolved") << d;
    }

    void comparaison()
    {
        QFETCH(DemandeRapport, d);
        QVERIFY2(m_essai->editer(d, m_etude->donnees), qPrintable(m_essai->dialogue.messages.value(0).texte));
        const QString differences = m_essai->verifier(d, m_etude->chemin());
        QVERIFY2(differences.isEmpty(), qPrintable(differences));
    }

    // Every station and parameter that the study has, each in one year: nothing in its content fails a report.
    void tousLesParametres()
    {
        Requete r = m_etude->donnees.executer(QStringLiteral(
            "SELECT CodeSandreStationM, NomParam, min(DatePrel), max(DatePrel) FROM PRELEVEMENT "
            "JOIN MESURE_PHYSICO USING (NumPrel) JOIN PARAMETRE USING (CodeParam) "
            "WHERE CodeGroupeParam <> 'PS' AND CodeParam <> '1841' GROUP BY CodeSandreStationM, CodeParam"));
        int rapports = 0;
        while (r.suivant()) {
            // One in four, so that the test stays short; the others differ by nothing that matters here.
            if (rapports++ % 4 != 0)
                continue;
            const DemandeRapport d =
                demande(r.texte(0), r.texte(1), QDate::fromString(r.texte(2), Qt::ISODate),
                        QDate::fromString(r.texte(3), Qt::ISODate));
            QVERIFY2(m_essai->editer(d, m_etude->donnees), qPrintable(d.codeStation + u' ' + d.parametre));
            const QString differences = m_essai->verifier(d, m_etude->chemin());
            QVERIFY2(differences.isEmpty(),
                     qPrintable(d.codeStation + u' ' + d.parametre + u'\n' + differences));
        }
        QVERIFY(rapports > 20);
    }
};

QTEST_GUILESS_MAIN(TestRapportDemonstration)
#include "test_rapport_demonstration.moc"
