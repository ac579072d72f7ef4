#include "BaseDEssai.h"
#include "maintenance/M_Transposition.h"

#include <QTest>

class TestTransposition : public QObject
{
    Q_OBJECT

private:
    static QStringList reseauxDe(const BaseDEssai &base, qint64 prelevement)
    {
        QStringList codes;
        Requete r = base.donnees.executer(
            "SELECT CodeReseau FROM PRELEVEMENTRSX WHERE NumPrel = ? ORDER BY 1", {prelevement});
        while (r.suivant())
            codes << r.texte(0);
        return codes;
    }
    static void appartient(const BaseDEssai &base, qint64 prelevement, const QString &reseau)
    {
        base.sql("INSERT INTO PRELEVEMENTRSX VALUES (?, ?)", {prelevement, reseau});
    }

private Q_SLOTS:
    // A in the old network, B in both, C in another: A and B end in the new one, once each, C stays.
    void unSeulRattachementParPrelevement()
    {
        BaseDEssai base;
        const qint64 a = base.ajouterPrelevement("04211940", QDate(2010, 1, 1));
        const qint64 b = base.ajouterPrelevement("04211940", QDate(2010, 1, 2));
        const qint64 c = base.ajouterPrelevement("04211940", QDate(2010, 1, 3));
        appartient(base, a, "0400000001");
        appartient(base, b, "0400000001");
        appartient(base, b, "N1");
        appartient(base, c, "0400000002");
        M_Transposition::TransposerPrelevements(base.donnees, "0400000001", "N1");
        QCOMPARE(reseauxDe(base, a), QStringList{"N1"});
        QCOMPARE(reseauxDe(base, b), QStringList{"N1"});
        QCOMPARE(reseauxDe(base, c), QStringList{"0400000002"});
    }

    // Codes that differ by case are one code to the base: no membership may be lost.
    void codesQuiNeDifferentQueParLaCasse()
    {
        BaseDEssai base;
        base.sql("INSERT INTO RESEAU_MESURE VALUES ('rsx', 'Petit réseau', '')");
        const qint64 a = base.ajouterPrelevement("04211940", QDate(2010, 1, 1));
        appartient(base, a, "rsx");
        M_Transposition::TransposerPrelevements(base.donnees, "rsx", "RSX");
        QCOMPARE(reseauxDe(base, a), QStringList{"rsx"});
        M_Transposition::appliquer(base.donnees, {{"RSX", "Petit réseau", "x"}}, [](const QString &) {});
        QCOMPARE(reseauxDe(base, a), QStringList{"rsx"});
        QCOMPARE(base.compter("RESEAU_MESURE"), 3);
    }

    // The label is matched without regard to case; the purpose comes from the entry; a network without entry stays.
    void parLibelle()
    {
        BaseDEssai base;
        const qint64 a = base.ajouterPrelevement("04211940", QDate(2010, 1, 1));
        appartient(base, a, "0400000001");
        QStringList progres;
        M_Transposition::appliquer(base.donnees, {{"0400003044", "RÉSEAU NATIONAL", "Suivi"}},
                                   [&](const QString &libelle) { progres << libelle; });
        QCOMPARE(base.valeur("SELECT FinaliteReseau FROM RESEAU_MESURE WHERE CodeReseau = '0400003044'")
                     .toString(),
                 QString("Suivi"));
        QVERIFY(!base.valeur("SELECT 1 FROM RESEAU_MESURE WHERE CodeReseau = '0400000001'").isValid());
        QCOMPARE(base.compter("RESEAU_MESURE"), 2);
        QCOMPARE(reseauxDe(base, a), QStringList{"0400003044"});
        QCOMPARE(progres, QStringList{"RÉSEAU NATIONAL"});
    }

    // The new code is a network already: the old row goes, the existing one is left as it is.
    void nouveauCodeDejaLa()
    {
        BaseDEssai base;
        M_Transposition::appliquer(base.donnees, {{"0400000002", "Réseau national", "x"}},
                                   [](const QString &) {});
        QCOMPARE(base.compter("RESEAU_MESURE"), 1);
        QCOMPARE(base.valeur("SELECT LibelleReseau FROM RESEAU_MESURE").toString(),
                 QString("Réseau d'Armor"));
    }

    void memeCodeMemeLibelle()
    {
        BaseDEssai base;
        bool progres = false;
        M_Transposition::appliquer(base.donnees, {{"0400000001", "Réseau national", "x"}},
                                   [&](const QString &) { progres = true; });
        QVERIFY(!progres);
        QCOMPARE(base.valeur("SELECT FinaliteReseau FROM RESEAU_MESURE WHERE CodeReseau = '0400000001'")
                     .toString(),
                 QString());
    }
};

QTEST_GUILESS_MAIN(TestTransposition)
#include "test_transposition.moc"
