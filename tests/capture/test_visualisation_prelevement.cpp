// The workbook of "Visualiser", made by the real application and read by an independent reader.
#include "capture/VisualisationPrelevement.h"
#include "ClasseurLu.h"
#include "DialogueDEssai.h"
#include "platform/Chemins.h"
#include "platform/Horloge.h"
#include "workbook/CoursRapport.h"
#include "workbook/Tableur.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

namespace
{
QString s(const char *texte)
{
    return QString::fromUtf8(texte);
}
} // namespace

class TestVisualisationPrelevement : public QObject
{
    Q_OBJECT
    QTemporaryDir m_racine;
    DialogueDEssai m_dialogue;
    Tableur m_tableur;
    EtatRapport m_etat;

    QString produire(const DemandeVisualisation &demande)
    {
        visualiserMesures(VisualisationPrelevement::vue(demande), m_dialogue, m_tableur, m_etat);
        return m_dialogue.documents.value(0);
    }
    static DemandeVisualisation demande()
    {
        DemandeVisualisation d;
        d.station = s("04211940");
        d.nomStation = s("Pont de l'Ile");
        d.date = QDate(2009, 3, 1);
        d.heure = s("09:30");
        TextesLigne l;
        l.parametre = s("Nitrates");
        l.resultat = s("12,5");
        l.remarque = s("10");
        l.fraction = s("3");
        l.commentaireAnalyse = s("=1+1");
        l.commentaireResultat = s("eau \"thé\" 💧");
        l.unite = s("mg(NO3)/L");
        l.lieu = s("In situ");
        l.seuil = s("< 0,1");
        l.preleveur = s("Préleveur de l'Ouest");
        l.laboratoire = s("Laboratoire d'Armor");
        l.gestionnaire = s("Agence de l'eau");
        l.reseau = s("National | Local");
        l.protocole = s("Suivi pluie");
        d.lignes << l;
        return d;
    }

private Q_SLOTS:
    void initTestCase()
    {
        Chemins::definirRacine(m_racine.path());
        QVERIFY(QDir(m_racine.path()).mkpath(s("PROJET/Export")));
        Horloge::regler(QDateTime(QDate(2026, 1, 31), QTime(10, 0)));
    }
    void init() { m_dialogue.documents.clear(); }

    void physico()
    {
        const QString fichier = produire(demande());
        QVERIFY2(fichier.endsWith(s("Export/Mesures_Physico_31-01-26.xls")), qPrintable(fichier));
        const ClasseurLu lu(fichier);
        QVERIFY2(lu.lisible(), qPrintable(lu.erreurs()));
        QCOMPARE(lu.feuilles(), QStringList{s("Mesures")});
        const auto valeur = [&lu](const char *adresse) { return lu.valeur(s("Mesures"), s(adresse)); };
        const auto format = [&lu](const char *adresse) {
            return lu.cellule(s("Mesures"), s(adresse))[QLatin1String("format")].toString();
        };
        const std::pair<const char *, const char *> textes[] = {
            {"A1", "LISTE DES MESURES PHYSICO-CHIMIQUES"},
            {"A3", "Code Agence :"},
            {"B3", "04211940"},
            {"C3", "Nom :"},
            {"D3", "Pont de l'Ile"},
            {"A4", "Date :"},
            {"B4", "2009-03-01T00:00:00"},
            {"C4", "Heure :"},
            {"A6", "Paramètre"},
            {"N6", "Protocole de prélèvement"},
            {"A7", "Nitrates"},
            {"E7", "=1+1"},
            {"F7", "eau \"thé\" 💧"},
            {"G7", "mg(NO3)/L"},
            {"H7", "In situ"},
            {"I7", "< 0,1"},
            {"J7", "Préleveur de l'Ouest"},
            {"K7", "Laboratoire d'Armor"},
            {"L7", "Agence de l'eau"},
            {"M7", "National | Local"},
            {"N7", "Suivi pluie"},
        };
        for (const auto &[adresse, texte] : textes)
            QCOMPARE(valeur(adresse).toString(), s(texte));
        QCOMPARE(valeur("B7").toDouble(), 12.5);
        QCOMPARE(valeur("C7").toDouble(), 10.0);
        QCOMPARE(valeur("D7").toDouble(), 3.0);
        QCOMPARE(format("B3"), s("@"));
        QCOMPARE(format("D3"), s("@"));
        QVERIFY(valeur("D4").toString().contains(s("09:30")));
        QVERIFY(!m_etat.enCours());
    }

    void pesticides()
    {
        DemandeVisualisation d = demande();
        d.famille = FamillePrelevement::Pesticides;
        d.heure.clear();
        const QString fichier = produire(d);
        QVERIFY2(fichier.endsWith(s("Export/Mesures_Phyto_31-01-26.xls")), qPrintable(fichier));
        const ClasseurLu lu(fichier);
        QCOMPARE(lu.valeur(s("Mesures"), s("A1")).toString(), s("LISTE DES MESURES DES PESTICIDES"));
        QCOMPARE(lu.valeur(s("Mesures"), s("E6")).toString(), s("Commentaires"));
        QCOMPARE(lu.valeur(s("Mesures"), s("E7")).toString(), s("eau \"thé\" 💧"));
        QCOMPARE(lu.valeur(s("Mesures"), s("D4")).toString(), QString());
    }
};

QTEST_GUILESS_MAIN(TestVisualisationPrelevement)
#include "test_visualisation_prelevement.moc"
