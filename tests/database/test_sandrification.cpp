#include "database/M_Sandrification.h"

#include <QTest>

using namespace M_Sandrification;

class TestSandrification : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void protocoles()
    {
        QCOMPARE(CodeProtocole(QStringLiteral("Suivi calendaire")), 1);
        QCOMPARE(CodeProtocole(QStringLiteral("Suivi pluie")), 2);
        QCOMPARE(CodeProtocole(QStringLiteral("Autre")), 0);
        QCOMPARE(CodeProtocole(QString()), 0);
        QCOMPARE(LibelleProtocole(QStringLiteral("1")), QStringLiteral("Suivi calendaire"));
        QCOMPARE(LibelleProtocole(QStringLiteral("2")), QStringLiteral("Suivi pluie"));
        QCOMPARE(LibelleProtocole(QStringLiteral("0")), QStringLiteral("Non spécifié"));
        QCOMPARE(LibelleProtocole(QString()), QStringLiteral("Non spécifié"));
    }

    void natures_data()
    {
        QTest::addColumn<QString>("code");
        QTest::newRow("Chimique") << "CHI";
        QTest::newRow("Environnemental") << "ENV";
        QTest::newRow("Hydrobiologique") << "HYD";
        QTest::newRow("Microbiologique") << "MIC";
        QTest::newRow("Physique") << "PHY";
        QTest::newRow("Synthétique") << "SYN";
    }

    void natures()
    {
        QFETCH(QString, code);
        const QString libelle = QString::fromUtf8(QTest::currentDataTag());
        QCOMPARE(CodeNature(libelle), code);
        QCOMPARE(LibelleNature(code), libelle);
    }

    // Pesticides have no code of their own: the group tells them.
    void natureInconnue()
    {
        QCOMPARE(CodeNature(QStringLiteral("Pesticides")), QStringLiteral(" "));
        QCOMPARE(CodeNature(QString()), QStringLiteral(" "));
        QCOMPARE(LibelleNature(QStringLiteral("PES")), QStringLiteral(" "));
    }

    void lieux()
    {
        QCOMPARE(CodeLieuAnalyse(QStringLiteral("In situ")), QStringLiteral("1"));
        QCOMPARE(CodeLieuAnalyse(QStringLiteral("Laboratoire")), QStringLiteral("2"));
        QCOMPARE(CodeLieuAnalyse(QStringLiteral("Sans objet")), QStringLiteral("3"));
        QCOMPARE(CodeLieuAnalyse(QStringLiteral("Localisation inconnue")), QStringLiteral("0"));
        QCOMPARE(LibelleLieuAnalyse(QStringLiteral("1")), QStringLiteral("In situ"));
        QCOMPARE(LibelleLieuAnalyse(QStringLiteral("2")), QStringLiteral("Laboratoire"));
        QCOMPARE(LibelleLieuAnalyse(QStringLiteral("3")), QStringLiteral("Sans objet"));
        QCOMPARE(LibelleLieuAnalyse(QStringLiteral("0")), QStringLiteral("Localisation inconnue"));
        QCOMPARE(LibelleLieuAnalyse(QString()), QStringLiteral("Localisation inconnue"));
    }

    void naturesDeStation()
    {
        QCOMPARE(CodeNatureStation(QStringLiteral("Automatique")), QStringLiteral("A"));
        QCOMPARE(CodeNatureStation(QStringLiteral("Manuelle")), QStringLiteral("M"));
        QCOMPARE(CodeNatureStation(QString()), QStringLiteral("0"));
        QCOMPARE(LibelleNatureStation(QStringLiteral("A")), QStringLiteral("Automatique"));
        QCOMPARE(LibelleNatureStation(QStringLiteral("M")), QStringLiteral("Manuelle"));
        QCOMPARE(LibelleNatureStation(QStringLiteral("0")), QStringLiteral(" "));
    }
};

QTEST_APPLESS_MAIN(TestSandrification)
#include "test_sandrification.moc"
