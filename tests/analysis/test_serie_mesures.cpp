#include "analysis/SerieMesures.h"

#include <QRandomGenerator>
#include <QTest>

#include <array>
#include <cmath>

using Retenues = std::vector<MesureRetenue>;
using Figure = std::optional<double>;
Q_DECLARE_METATYPE(Retenues)
Q_DECLARE_METATYPE(Figure)

namespace
{
// The values 1, 2, ... nombre, in falling order so that the sort has work to do.
Retenues premiersEntiers(int nombre)
{
    Retenues mesures;
    for (int i = nombre; i >= 1; --i)
        mesures.push_back({static_cast<double>(i), false});
    return mesures;
}

// The rules taken word for word: an array of texts sized by the records read, filled from its start by the accepted
// ones, sorted by exchanges, its count lowered by one at the first empty pair. Slow on purpose.
class TableauAuPiedDeLaLettre
{
public:
    TableauAuPiedDeLaLettre(const Retenues &retenues, int taille)
        : m_lignes{std::vector<QString>(static_cast<size_t>(taille)),
                   std::vector<QString>(static_cast<size_t>(taille))},
          n(taille)
    {
        size_t place = 0;
        for (const MesureRetenue &mesure : retenues) {
            m_lignes[0][place] = QString::number(mesure.valeur, 'g', 17);
            m_lignes[1][place] = mesure.moitie ? "2" : "1";
            ++place;
        }
        trier();
    }

    Figure moyenne() const
    {
        double somme = 0;
        for (size_t i = 0; i < m_lignes[0].size(); ++i)
            if (!m_lignes[0][i].isEmpty())
                somme += m_lignes[1][i] == "2" ? m_lignes[0][i].toDouble() / 2 : m_lignes[0][i].toDouble();
        return somme / n;
    }

    Figure quantile90() const { return lire(n <= 10 ? n : static_cast<int>(std::nearbyint(n * 0.9 + 0.5))); }
    Figure quantile10() const { return lire(n < 10 ? 1 : static_cast<int>(std::nearbyint(n * 0.1))); }

    Figure mediane() const
    {
        if (n % 2 == 0)
            return (nombre(n / 2) + nombre(n / 2 + 1)) / 2;
        return nombre((n + 1) / 2);
    }

    Figure ecartType() const
    {
        const double centre = *moyenne();
        double somme = 0;
        for (const QString &valeur : m_lignes[0])
            if (!valeur.isEmpty())
                somme += (valeur.toDouble() - centre) * (valeur.toDouble() - centre);
        return std::sqrt(somme / n);
    }

private:
    void trier()
    {
        bool dejaRetire = false;
        const size_t taille = m_lignes[0].size();
        for (size_t i = 0; i < taille; ++i)
            for (size_t j = i + 1; j < taille; ++j) {
                if (m_lignes[0][i].isEmpty() || m_lignes[0][j].isEmpty()) {
                    if (!dejaRetire)
                        --n;
                    dejaRetire = true;
                } else if (m_lignes[0][i].toDouble() > m_lignes[0][j].toDouble()) {
                    std::swap(m_lignes[0][i], m_lignes[0][j]);
                    std::swap(m_lignes[1][i], m_lignes[1][j]);
                }
            }
    }

    Figure lire(int position) const
    {
        const QString &texte = m_lignes[0][static_cast<size_t>(position - 1)];
        return texte.isEmpty() ? std::nullopt : Figure(texte.toDouble());
    }

    double nombre(int position) const { return lire(position).value_or(0); }

    std::array<std::vector<QString>, 2> m_lignes;

public:
    int n;
};
} // namespace

class TestSerieMesures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void chiffres_data()
    {
        QTest::addColumn<Retenues>("retenues");
        QTest::addColumn<qint64>("taille");
        QTest::addColumn<qint64>("n");
        QTest::addColumn<Figure>("moyenne");
        QTest::addColumn<Figure>("quantile90");
        QTest::addColumn<Figure>("quantile10");
        QTest::addColumn<Figure>("mediane");
        QTest::addColumn<Figure>("ecartType");
        const Figure tiret;

        // One value: it is every quantile, and there is nothing to deviate from.
        QTest::newRow("one record") << Retenues{{12.5, false}} << qint64(1) << qint64(1) << Figure(12.5)
                                    << Figure(12.5) << Figure(12.5) << Figure(12.5) << Figure(0);
        // Code 2: the mean is 0.25, the rest 0.5; |0.5 - 0.25| = 0.25.
        QTest::newRow("one record, code 2") << Retenues{{0.5, true}} << qint64(1) << qint64(1) << Figure(0.25)
                                            << Figure(0.5) << Figure(0.5) << Figure(0.5) << Figure(0.25);
        // Mean 12/3; squared differences 4 + 0 + 4, over 3.
        QTest::newRow("three records")
            << Retenues{{4, false}, {2, false}, {6, false}} << qint64(3) << qint64(3) << Figure(4)
            << Figure(6) << Figure(2) << Figure(4) << Figure(std::sqrt(8.0 / 3));
        // One of four refused: 3 is the count, by chance that of the accepted ones.
        QTest::newRow("one refused") << Retenues{{10, false}, {30, false}, {20, false}} << qint64(4)
                                     << qint64(3) << Figure(20) << Figure(30) << Figure(10) << Figure(20)
                                     << Figure(std::sqrt(200.0 / 3));
        // Two of five refused: the count is 4, one less than five and not two. Mean 60/4; the 4th entry is empty, so no
        // quantile 90; median of the 2nd and 3rd; squared differences from 15: 25 + 25 + 225, over 4.
        QTest::newRow("two refused") << Retenues{{30, false}, {10, false}, {20, false}} << qint64(5)
                                     << qint64(4) << Figure(15) << tiret << Figure(10) << Figure(25)
                                     << Figure(std::sqrt(275.0 / 4));
        // Count 2: the median takes the empty 2nd entry for 0, (7 + 0) / 2; squared difference 12.25, over 2.
        QTest::newRow("an empty entry in the median")
            << Retenues{{7, false}} << qint64(3) << qint64(2) << Figure(3.5) << tiret << Figure(7)
            << Figure(3.5) << Figure(std::sqrt(12.25 / 2));
        // Count 5: the median is the empty 3rd entry; mean 8/5 = 1.6; (8 - 1.6)^2 = 40.96, over 5.
        QTest::newRow("a median of nothing")
            << Retenues{{8, false}} << qint64(6) << qint64(5) << Figure(1.6) << tiret << Figure(8)
            << Figure(0) << Figure(std::sqrt(40.96 / 5));
        // Values 1 and 3, the latter halved in the mean: (1 + 1.5) / 2 = 1.25; 0.0625 + 3.0625 = 3.125, over 2.
        QTest::newRow("code 2 in a mean of two")
            << Retenues{{3, true}, {1, false}} << qint64(2) << qint64(2) << Figure(1.25) << Figure(3)
            << Figure(1) << Figure(2) << Figure(1.25);
        // 1 to 10: the small case, position 10 and (10 x 0.1 = 1) position 1; variance (100 - 1) / 12.
        QTest::newRow("ten records") << premiersEntiers(10) << qint64(10) << qint64(10) << Figure(5.5)
                                     << Figure(10) << Figure(1) << Figure(5.5)
                                     << Figure(std::sqrt(99.0 / 12));
        // 1 to 11: 11 x 0.9 + 0.5 = 10.4 and 1.1.
        QTest::newRow("eleven records") << premiersEntiers(11) << qint64(11) << qint64(11) << Figure(6)
                                        << Figure(10) << Figure(1) << Figure(6) << Figure(std::sqrt(10.0));
        // 1 to 25: 23 and 2.5, a tie that goes to 2.
        QTest::newRow("twenty-five records")
            << premiersEntiers(25) << qint64(25) << qint64(25) << Figure(13) << Figure(23) << Figure(2)
            << Figure(13) << Figure(std::sqrt(52.0));
        // Nothing accepted: no figure at all, whatever was read.
        QTest::newRow("none accepted")
            << Retenues{} << qint64(3) << qint64(2) << tiret << tiret << tiret << tiret << tiret;
    }

    void chiffres()
    {
        QFETCH(Retenues, retenues);
        QFETCH(qint64, taille);
        const SerieMesures serie(retenues, taille);
        QTEST(serie.effectif(), "n");
        const auto comparer = [](const char *nom, const Figure &obtenu, const Figure &attendu) {
            QVERIFY2(obtenu.has_value() == attendu.has_value(), nom);
            if (attendu)
                QVERIFY2(std::abs(*obtenu - *attendu) < 1e-12, nom);
        };
        QFETCH(Figure, moyenne);
        QFETCH(Figure, quantile90);
        QFETCH(Figure, quantile10);
        QFETCH(Figure, mediane);
        QFETCH(Figure, ecartType);
        comparer("moyenne", serie.moyenne(), moyenne);
        comparer("quantile90", serie.quantile90(), quantile90);
        if (!retenues.empty()) {
            comparer("quantile10", serie.quantile10(), quantile10);
            comparer("mediane", serie.mediane(), mediane);
        }
        comparer("ecartType", serie.ecartType(), ecartType);
    }

    // n x 0.9 + 0.5 and n x 0.1 by hand; a half goes to the even whole.
    void positions_data()
    {
        QTest::addColumn<qint64>("n");
        QTest::addColumn<qint64>("haute");
        QTest::addColumn<qint64>("basse");
        QTest::newRow("1") << qint64(1) << qint64(1) << qint64(1);
        QTest::newRow("9") << qint64(9) << qint64(9) << qint64(1);
        QTest::newRow("10") << qint64(10) << qint64(10) << qint64(1);
        QTest::newRow("12: 11.3, 1.2") << qint64(12) << qint64(11) << qint64(1);
        QTest::newRow("15: 14, 1.5") << qint64(15) << qint64(14) << qint64(2);
        QTest::newRow("16: 14.9, 1.6") << qint64(16) << qint64(15) << qint64(2);
        QTest::newRow("20: 18.5, 2") << qint64(20) << qint64(18) << qint64(2);
        QTest::newRow("30: 27.5, 3") << qint64(30) << qint64(28) << qint64(3);
        QTest::newRow("35: 32, 3.5") << qint64(35) << qint64(32) << qint64(4);
        QTest::newRow("999999") << qint64(999999) << qint64(900000) << qint64(100000);
    }

    void positions()
    {
        QFETCH(qint64, n);
        QTEST(positionQuantile90(n), "haute");
        QTEST(positionQuantile10(n), "basse");
    }

    // Three values in a base of a million results: n = 999 999, mean 6 / 999 999, nothing at the high positions.
    void baseDUnMillion()
    {
        const SerieMesures serie({{1, false}, {2, false}, {3, false}}, 1000000);
        QCOMPARE(serie.effectif(), 999999);
        QCOMPARE(*serie.moyenne(), 6.0 / 999999);
        QVERIFY(!serie.quantile90());
        QVERIFY(!serie.quantile10());
        QCOMPARE(*serie.mediane(), 0.0);
        // The empty entries are counted, never laid out: half a billion billions of them would not fit anywhere.
        const SerieMesures immense({{4, false}}, Q_INT64_C(500000000000000000));
        QCOMPARE(immense.effectif(), Q_INT64_C(499999999999999999));
    }

    // Series at random, against the exchanges taken word for word. Values are multiples of 1/16, so that sums are exact in
    // any order; few distinct ones, so that ties are common.
    void commeLesEchanges()
    {
        QRandomGenerator hasard(20090301);
        for (int essai = 0; essai < 3000; ++essai) {
            const int taille = hasard.bounded(1, 60);
            const int acceptees = essai % 3 == 0 ? taille : hasard.bounded(1, taille + 1);
            const int distinctes = hasard.bounded(1, 40);
            Retenues retenues;
            for (int i = 0; i < acceptees; ++i)
                retenues.push_back({hasard.bounded(-2, distinctes) / 16.0, hasard.bounded(4) == 0});
            const TableauAuPiedDeLaLettre lettre(retenues, taille);
            const SerieMesures serie(retenues, taille);
            QCOMPARE(serie.effectif(), lettre.n);
            QCOMPARE(serie.moyenne(), lettre.moyenne());
            QCOMPARE(serie.quantile90(), lettre.quantile90());
            QCOMPARE(serie.quantile10(), lettre.quantile10());
            QCOMPARE(serie.mediane(), lettre.mediane());
            QVERIFY(std::abs(*serie.ecartType() - *lettre.ecartType()) < 1e-12);
        }
    }
};

QTEST_APPLESS_MAIN(TestSerieMesures)
#include "test_serie_mesures.moc"
