#include "BaseDEssai.h"
#include "database/InstructionDirecte.h"
#include "platform/Erreur.h"

#include <QTest>

class TestInstructionDirecte : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void lireLesLignes();
    void relancer();
    void valeursCopiees();
    void erreurs();
};

void TestInstructionDirecte::lireLesLignes()
{
    const BaseDEssai base;
    InstructionDirecte lecture(base.donnees.Connect_Bdd(),
                               "SELECT 7, 0.25, 'é💧', NULL, '' UNION ALL SELECT -1, -0.5, 'b', 3, 'c'");
    lecture.lire();
    QVERIFY(lecture.suivant());
    QCOMPARE(lecture.entier(0), 7);
    QCOMPARE(lecture.reel(1), 0.25);
    QCOMPARE(lecture.texte(2), QStringLiteral("é💧"));
    QVERIFY(lecture.estNul(3));
    QCOMPARE(lecture.entier(3), 0);
    QVERIFY(lecture.octets(3).isEmpty());
    QVERIFY(!lecture.estNul(4));
    QVERIFY(lecture.texte(4).isEmpty());
    QVERIFY(lecture.suivant());
    QCOMPARE(lecture.entier(0), -1);
    QVERIFY(!lecture.estNul(3));
    QVERIFY(!lecture.suivant());
}

// A run that was not read to its end is given up by the next one, or by finir: no lock stays.
void TestInstructionDirecte::relancer()
{
    const BaseDEssai base;
    InstructionDirecte lecture(base.donnees.Connect_Bdd(),
                               "SELECT CodeParam FROM PARAMETRE WHERE CodeParam >= ? ORDER BY CodeParam");
    lecture.lire({QStringLiteral("1302")});
    QVERIFY(lecture.suivant());
    QCOMPARE(lecture.texte(0), QStringLiteral("1302"));
    lecture.lire({QStringLiteral("15")});
    QVERIFY(lecture.suivant());
    QCOMPARE(lecture.texte(0), QStringLiteral("1506"));
    lecture.finir();
    base.sql(QStringLiteral("VACUUM")); // refused while a statement is being read
}

// The values need not outlive the call.
void TestInstructionDirecte::valeursCopiees()
{
    const BaseDEssai base;
    InstructionDirecte lecture(base.donnees.Connect_Bdd(), "SELECT ?, ?");
    {
        QString passager = QString(1000, u'x');
        lecture.lire({passager, InstructionDirecte::ouNul(QString())});
        passager.fill(u'y');
    }
    QVERIFY(lecture.suivant());
    QCOMPARE(lecture.texte(0), QString(1000, u'x'));
    QVERIFY(lecture.estNul(1));
    lecture.finir();
}

void TestInstructionDirecte::erreurs()
{
    BaseDEssai base;
    QVERIFY_EXCEPTION_THROWN(InstructionDirecte(base.donnees.Connect_Bdd(), "SELECT absente FROM PARAMETRE"),
                             Erreur);
    InstructionDirecte lecture(base.donnees.Connect_Bdd(), "SELECT abs(?)");
    lecture.lire({std::numeric_limits<qint64>::min()}); // an overflow, told when the row is reckoned
    QVERIFY_EXCEPTION_THROWN(lecture.suivant(), Erreur);
    lecture.lire({qint64(-3)});
    QVERIFY(lecture.suivant());
    QCOMPARE(lecture.entier(0), 3);
}

QTEST_GUILESS_MAIN(TestInstructionDirecte)
#include "test_instruction_directe.moc"
