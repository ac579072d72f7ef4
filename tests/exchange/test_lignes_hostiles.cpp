// Rows of any content: each is either read within the bounds of the store or refused with a reason, never anything else.
#include "BaseDEssai.h"
#include "exchange/LigneDEssai.h"
#include "exchange/LigneHydro.h"
#include "exchange/LignePhysico.h"
#include "exchange/LignePluvio.h"
#include "workbook/Plage.h"

#include <cmath>
#include <limits>
#include <QRandomGenerator>
#include <QTest>

namespace
{
constexpr int LIGNES = 20'000;

// A value that a cell can hold: mostly good ones, so that the later steps are reached, and every kind of bad one.
QVariant cellule(QRandomGenerator &hasard, const QVariant &bonne)
{
    static const QList<QVariant> MAUVAISES = {
        QVariant(),
        QStringLiteral(" "),
        QStringLiteral("\u00A0\u200B"),
        QStringLiteral("'; DROP TABLE PRELEVEMENT; --"),
        QStringLiteral("%1 %2 %n"),
        QStringLiteral("<b>&amp;</b>"),
        QStringLiteral("=1+1"),
        QString(QChar(0)) + QStringLiteral("abc"),
        QString(QChar(0xD800)), // half of a pair
        QStringLiteral("31/02/2009"),
        QStringLiteral("99/99/9999"),
        QStringLiteral("24:00"),
        QStringLiteral("99:99:99"),
        QStringLiteral("1e400"),
        QStringLiteral("nan"),
        QStringLiteral("--5"),
        QString(100'000, u'9'),
        0.0,
        -1.0,
        1e300,
        -1e-300,
        std::numeric_limits<double>::infinity(),
        std::numeric_limits<double>::quiet_NaN(),
        QDateTime(QDate(1, 1, 1), QTime(0, 0), Qt::UTC),
        QDateTime(QDate(250'000, 1, 1), QTime(0, 0), Qt::UTC),
        QDateTime(),
        QTime(),
        QTime(23, 59, 59, 999),
        QVariant::fromValue(ErreurCellule{QStringLiteral("#REF!")}),
    };
    return hasard.bounded(8) > 0 ? bonne : MAUVAISES[hasard.bounded(MAUVAISES.size())];
}

void verifierDate(const QDate &date)
{
    QVERIFY(date.isValid() && date.year() >= 100 && date.year() <= 9999);
}

void verifierHeure(const QString &heure)
{
    static const QRegularExpression forme(QStringLiteral(R"(\A\d\d:\d\d:\d\d\z)"));
    QVERIFY2(forme.match(heure).hasMatch(), qPrintable(heure));
}

void verifierArret(const ArretImport &arret)
{
    if (arret.genre == ArretImport::Genre::Faute)
        QVERIFY(!arret.texte.isEmpty() && arret.texte.size() < 1000);
    else if (arret.genre != ArretImport::Genre::UniteRefusee)
        QVERIFY(!arret.libelleAction.isEmpty());
}
} // namespace

class TestLignesHostiles : public QObject
{
    Q_OBJECT

    BaseDEssai m_base;

private Q_SLOTS:
    void physico()
    {
        using C = ChampPhysico;
        const ReferencesPhysico references = lireReferencesPhysico(m_base.donnees);
        const QHash<C, QVariant> bonnes = {
            {C::CodeAgence, QStringLiteral("04211940")},
            {C::Nom, QStringLiteral("Pont")},
            {C::Date, QDateTime(QDate(2009, 3, 1), QTime(0, 0), Qt::UTC)},
            {C::Heure, QTime(10, 0)},
            {C::Parametre, QStringLiteral("Nitrates")},
            {C::Valeur, 1.5},
            {C::CodeRemarque, 1.0},
            {C::CodeFraction, 23.0},
            {C::Commentaire, QVariant()},
            {C::Unite, QStringLiteral("mg/L")},
            {C::Seuil, QVariant()},
            {C::Protocole, QStringLiteral("Suivi pluie")},
            {C::Gestionnaire, QStringLiteral("Agence de l'eau")},
            {C::Preleveur, QStringLiteral("Préleveur de l'Ouest")},
            {C::Laboratoire, QStringLiteral("Laboratoire d'Armor")},
            {C::Reseau, QStringLiteral("Réseau national")},
        };
        QRandomGenerator hasard(20090301);
        int lues = 0;
        for (int i = 0; i < LIGNES; ++i) {
            LigneDEssai<C> ligne(dispositionPhysico());
            for (auto it = bonnes.cbegin(); it != bonnes.cend(); ++it)
                ligne[it.key()] = cellule(hasard, it.value());
            MesurePhysico mesure;
            const auto arret = arretDe([&] { mesure = lireLignePhysico(ligne.ligne(), references); });
            if (arret) {
                verifierArret(*arret);
                continue;
            }
            ++lues;
            verifierDate(mesure.date);
            verifierHeure(mesure.heure);
            QVERIFY(std::isfinite(mesure.resultat));
            QVERIFY(mesure.commentaire.size() <= 255 && mesure.seuil.size() <= 50 &&
                    mesure.remarque.size() <= 2);
            QVERIFY(mesure.fraction == QStringLiteral("0") || mesure.fraction == QStringLiteral("23"));
        }
        QVERIFY(lues > LIGNES / 20); // the good ones do get through
    }

    void hydro()
    {
        using C = ChampHydro;
        const ReferencesHydro references = lireReferencesHydro(m_base.donnees);
        const QHash<C, QVariant> bonnes = {{C::TypeDebit, QStringLiteral("QJO")},
                                           {C::Station, QStringLiteral("J7010610")},
                                           {C::Date, QStringLiteral("01/03/2009")},
                                           {C::Heure, QVariant()},
                                           {C::Debit, 12.0}};
        QRandomGenerator hasard(7);
        for (int i = 0; i < LIGNES; ++i) {
            LigneDEssai<C> ligne(dispositionHydro());
            for (auto it = bonnes.cbegin(); it != bonnes.cend(); ++it)
                ligne[it.key()] = cellule(hasard, it.value());
            MesureHydro mesure;
            const auto arret = arretDe([&] { mesure = lireLigneHydro(ligne.ligne(), references); });
            if (arret) {
                verifierArret(*arret);
                continue;
            }
            verifierDate(mesure.date);
            if (!mesure.heure.isEmpty())
                verifierHeure(mesure.heure);
            QVERIFY(std::isfinite(mesure.debit_l_s));
        }
    }

    void pluvio()
    {
        using C = ChampPluvio;
        const ReferencesPluvio references = lireReferencesPluvio(m_base.donnees);
        const QHash<C, QVariant> bonnes = {{C::Station, QStringLiteral("35228001")},
                                           {C::Date, QStringLiteral("2009-03-01")},
                                           {C::Mesures, 4.2},
                                           {C::Commentaire, QStringLiteral("neige")},
                                           {C::Gestionnaire, QStringLiteral("Agence de l'eau")}};
        QRandomGenerator hasard(11);
        for (int i = 0; i < LIGNES; ++i) {
            LigneDEssai<C> ligne(dispositionPluvio());
            for (auto it = bonnes.cbegin(); it != bonnes.cend(); ++it)
                ligne[it.key()] = cellule(hasard, it.value());
            MesurePluvio mesure;
            const auto arret = arretDe([&] { mesure = lireLignePluvio(ligne.ligne(), references); });
            if (arret) {
                verifierArret(*arret);
                continue;
            }
            verifierDate(mesure.date);
            QVERIFY(std::isfinite(mesure.pluie_mm));
            QVERIFY(mesure.commentaire.size() <= 255);
        }
    }
};

QTEST_GUILESS_MAIN(TestLignesHostiles)
#include "test_lignes_hostiles.moc"
