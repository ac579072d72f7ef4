// What may be typed in a sampling and what a save requires, without a store and without a window.
#include "capture/LecturePrelevement.h"
#include "capture/ReglesPrelevement.h"
#include "capture/VisualisationPrelevement.h"

#include <QTest>

using namespace ReglesPrelevement;

namespace
{
QString s(const char *texte)
{
    return QString::fromUtf8(texte);
}

// Two parameters, one of them measured on the spot; fractions 0 and 3; an actor with an apostrophe; networks, one of which
// bears the separator in its own label.
References references()
{
    const auto parmi = [](QStringList noms) {
        return [noms](const QString &nom) { return noms.contains(nom, Qt::CaseInsensitive); };
    };
    References r;
    r.parametre = parmi({s("Nitrates"), s("Température de l'Eau")});
    r.fraction = parmi({s("0"), s("3")});
    r.intervenant = parmi({s("Agence de l'eau"), s("Préleveur")});
    r.reseau = parmi({s("National"), s("Local"), s("Amont | Aval")});
    r.environnemental = parmi({s("Température de l'Eau")});
    return r;
}

TextesLigne complete()
{
    TextesLigne l;
    l.parametre = s("Nitrates");
    l.resultat = s("12,5");
    l.remarque = s("1");
    l.fraction = s("3");
    l.preleveur = s("Préleveur");
    l.laboratoire = s("Agence de l'eau");
    l.gestionnaire = s("Agence de l'eau");
    return l;
}
} // namespace

class TestReglesPrelevement : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cellulesPrises_data()
    {
        QTest::addColumn<int>("colonne");
        QTest::addColumn<QString>("texte");
        QTest::newRow("paramètre") << int(PARAMETRE) << s("Nitrates");
        QTest::newRow("apostrophe") << int(PARAMETRE) << s("Température de l'Eau");
        QTest::newRow("résultat vide") << int(RESULTAT) << QString();
        QTest::newRow("virgule") << int(RESULTAT) << s("-12,5");
        QTest::newRow("point") << int(RESULTAT) << s("12.5");
        for (const char *code : {"0", "1", "2", "3", "10"})
            QTest::newRow(code) << int(CODE_REMARQUE) << s(code);
        QTest::newRow("fraction") << int(FRACTION) << s("3");
        QTest::newRow("préleveur") << int(PRELEVEUR) << s("Préleveur");
        QTest::newRow("labo vidé") << int(LABORATOIRE) << QString();
        QTest::newRow("gestionnaire") << int(GESTIONNAIRE) << s("Agence de l'eau");
        QTest::newRow("aucun réseau") << int(RESEAU) << QString();
        QTest::newRow("deux réseaux") << int(RESEAU) << s("Local | National");
        QTest::newRow("barre dans le libellé") << int(RESEAU) << s("Amont | Aval | Local");
        QTest::newRow("autre") << int(AUTRE) << s("Autres détails");
        QTest::newRow("autre, sans son blanc") << int(AUTRE) << s("Nouveau réseau");
    }
    void cellulesPrises()
    {
        QFETCH(int, colonne);
        QFETCH(QString, texte);
        QVERIFY(!jugerCellule(colonne, texte, references()));
    }

    void cellulesRefusees_data()
    {
        QTest::addColumn<int>("colonne");
        QTest::addColumn<QString>("texte");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("titre");
        QTest::addColumn<QString>("reste");
        QTest::addColumn<bool>("retour");
        const auto ligne = [](const char *nom, int colonne, const QString &texte, const char *message,
                              const char *titre, const char *reste, bool retour) {
            QTest::newRow(nom) << colonne << texte << s(message) << s(titre) << s(reste) << retour;
        };
        for (const char *texte : {"", "Nitrite", "'; DROP TABLE PARAMETRE;--", "%"})
            ligne(qPrintable(s("paramètre ") + s(texte)), PARAMETRE, s(texte),
                  "Le paramètre saisi n'existe pas.", "Erreur", "", true);
        for (const QString &texte :
             {s("douze"), s("1,2,3"), s("1e999"), s("1e308"), s("💧"), QString(10000, u'9')})
            ligne(qPrintable(s("résultat ") + texte.left(6)), RESULTAT, texte,
                  "Le résultat doit être de type numérique.", "Erreur de type", "", true);
        for (const char *texte : {"", "4", "01", "1,0", "-1", "100"})
            ligne(qPrintable(s("remarque ") + s(texte)), CODE_REMARQUE, s(texte),
                  "Le code remarque doit être 0, 1, 2, 3 ou 10.", "Attention", "", true);
        for (const char *texte : {"", "99"})
            ligne(qPrintable(s("fraction ") + s(texte)), FRACTION, s(texte),
                  "Le code fraction saisi n'existe pas.", "Erreur", "0", false);
        ligne("préleveur", PRELEVEUR, s("Untel"), "L'organisme préleveur saisi n'existe pas.", "Erreur", "",
              false);
        ligne("labo", LABORATOIRE, s("Untel"), "Le laboratoire d'analyse saisi n'existe pas.", "Erreur", "",
              false);
        ligne("gestionnaire", GESTIONNAIRE, s("Untel"), "Le gestionnaire saisi n'existe pas.", "Erreur", "",
              false);
        ligne("réseau", RESEAU, s("Local | Ailleurs"), "Le réseau saisi n'existe pas.", "Erreur", "", false);
        for (const char *texte : {"", "Autre"})
            ligne(qPrintable(s("autre ") + s(texte)), AUTRE, s(texte), "L'élément demandé n'existe pas.",
                  "Erreur", "", false);
    }
    void cellulesRefusees()
    {
        QFETCH(int, colonne);
        QFETCH(QString, texte);
        QFETCH(QString, message);
        QFETCH(QString, titre);
        QFETCH(QString, reste);
        QFETCH(bool, retour);
        const auto refus = jugerCellule(colonne, texte, references());
        QVERIFY(refus);
        QCOMPARE(refus->message, message);
        QCOMPARE(refus->titre, titre);
        QCOMPARE(refus->reste, reste);
        QCOMPARE(refus->retour, retour);
    }

    void reseaux()
    {
        const auto connu = references().reseau;
        QCOMPARE(decouperReseaux(QString(), connu), QStringList());
        QCOMPARE(decouperReseaux(s("National"), connu), QStringList{s("National")});
        QCOMPARE(decouperReseaux(s("Local | National"), connu), QStringList({s("Local"), s("National")}));
        QCOMPARE(decouperReseaux(s("Local | Local"), connu), QStringList{s("Local")});
        QCOMPARE(decouperReseaux(s("Local | Amont | Aval | National"), connu),
                 QStringList({s("Local"), s("Amont | Aval"), s("National")}));
        // What is not known stays in pieces, to be named one by one.
        QCOMPARE(decouperReseaux(s("Amont | Local"), connu), QStringList({s("Amont"), s("Local")}));
    }

    void manques()
    {
        const References r = references();
        const auto message = [&r](const QString &station, const QString &date,
                                  const QList<TextesLigne> &lignes) {
            const auto manque = premierManque(station, date, lignes, r);
            return manque ? manque->message : QString();
        };
        const QString station = s("04211940");
        const QString date = s("01/03/2009");
        const QString tableau = s("Des éléments sont manquants dans le tableau.");
        QCOMPARE(message({}, {}, {}), s("Le nom doit être renseigné. "));
        QCOMPARE(message(station, {}, {}), s("La date doit être renseignée. "));
        QCOMPARE(message(station, date, {}), tableau);
        QCOMPARE(message(station, date, {complete()}), QString());

        // Each of the seven is required of a chemical parameter; the cell that is missing is told.
        for (const int colonne :
             {PARAMETRE, RESULTAT, CODE_REMARQUE, PRELEVEUR, GESTIONNAIRE, LABORATOIRE, FRACTION}) {
            TextesLigne l = complete();
            texte(l, colonne).clear();
            const auto manque = premierManque(station, date, {complete(), l}, r);
            QVERIFY2(manque, qPrintable(QString::number(colonne)));
            QCOMPARE(manque->message, tableau);
            QCOMPARE(manque->ligne, 1);
            QCOMPARE(manque->colonne, colonne);
        }
        // Of one measured on the spot, neither laboratory nor fraction; the unit and the network of none.
        TextesLigne sonde = complete();
        sonde.parametre = s("Température de l'Eau");
        sonde.laboratoire.clear();
        sonde.fraction.clear();
        QCOMPARE(message(station, date, {sonde}), QString());
        sonde.gestionnaire.clear();
        QCOMPARE(message(station, date, {sonde}), tableau);
        // A remark code 0 is a code.
        TextesLigne zero = complete();
        zero.remarque = s("0");
        zero.resultat = s("0");
        QCOMPARE(message(station, date, {zero}), QString());
    }

    void heures()
    {
        QCOMPARE(heureNormale(s("09:30")), s("09:30:00"));
        QCOMPARE(heureNormale(s("09:30:15")), s("09:30:15"));
        QCOMPARE(heureNormale(s("24:00")), s("24:00:00"));
        for (const char *texte : {"", "9:30", "25:00", "09h30", "09:30:", "09:61"})
            QCOMPARE(heureNormale(s(texte)), QString());
    }

    void limites()
    {
        QVERIFY(!jugerLimite(QString()));
        QVERIFY(!jugerLimite(s("0.05")));
        QCOMPARE(jugerLimite(s("<0,05"))->message, s("La valeur demandée doit être de type numérique."));
        QVERIFY(jugerLimite(s("1e308")));
        QCOMPARE(jugerLimite(s("<0,05"))->titre, s("Erreur de type"));
        QCOMPARE(limite(s(" 0.05 ")), s("0,05"));
        const QStringList lieux{s("In situ")};
        QVERIFY(!jugerLieu(s("In situ"), lieux));
        QVERIFY(!jugerLieu(QString(), lieux));
        QCOMPARE(jugerLieu(QString(51, u'x'), lieux)->message,
                 s("Le lieu d'analyses ne doit contenir que 50 caractères au maximum."));
        QCOMPARE(jugerLieu(QString(50, u'x'), lieux)->message, s("Cette valeur n'existe pas dans la liste."));
        QCOMPARE(jugerProtocole(QString(256, u'x'), lieux)->message,
                 s("Le protocole de suivi ne doit contenir que 255 caractères au maximum."));
        QCOMPARE(jugerProtocole(QString(256, u'x'), lieux)->titre, s("Attention"));
        QVERIFY(!jugerLongueur(QString(255, u'x'), 255, s("Le commentaire")));
        QCOMPARE(jugerLongueur(QString(10000, u'x'), 255, s("Le commentaire"))->message,
                 s("Le commentaire ne doit contenir que 255 caractères au maximum."));
    }

    // One sampler is one sampling, unless the rows were read from two.
    void prelevements()
    {
        LignePrelevement a;
        a.preleveur = s("Préleveur");
        LignePrelevement b = a;
        b.preleveur = s("PRÉLEVEUR");
        QVERIFY(memePrelevement(a, b));
        b.preleveur = s("Autre");
        QVERIFY(!memePrelevement(a, b));
        b.preleveur = a.preleveur;
        auto premier = std::make_shared<SourceLigne>();
        premier->numPrel = 1;
        auto second = std::make_shared<SourceLigne>();
        second->numPrel = 2;
        a.source = premier;
        QVERIFY(memePrelevement(a, b));
        b.source = second;
        QVERIFY(!memePrelevement(a, b));
        b.source = premier;
        QVERIFY(memePrelevement(a, b));
    }

    void nombresMontres()
    {
        QCOMPARE(LecturePrelevement::nombre(QVariant()), QString());
        QCOMPARE(LecturePrelevement::nombre(12.5), s("12,5"));
        QCOMPARE(LecturePrelevement::nombre(0.0), s("0"));
        QCOMPARE(LecturePrelevement::nombre(0.00001), s("0,00001"));
        QCOMPARE(LecturePrelevement::nombre(1234567.0), s("1234567"));
    }

    void classeur()
    {
        DemandeVisualisation demande;
        TextesLigne l = complete();
        l.unite = s("mg/L");
        l.commentaireAnalyse = s("=1+1");
        l.commentaireResultat = s("trouble");
        l.lieu = s("In situ");
        l.seuil = s("0,05");
        l.reseau = s("Local | National");
        l.protocole = s("Suivi pluie");
        TextesLigne zeros = l;
        zeros.fraction = s("023");
        zeros.seuil = s("< 0,05");
        demande.lignes = {l, zeros};
        Valeurs v = VisualisationPrelevement::tableau(demande);
        QCOMPARE(v.size(), 3);
        const QVector<QVariant> titres{s("Paramètre"),
                                       s("Valeur"),
                                       s("Code remarque"),
                                       s("Fraction"),
                                       s("Commentaires sur l'analyse"),
                                       s("Commentaires sur le résultat"),
                                       s("Unité du paramètre"),
                                       s("Lieu"),
                                       s("Seuil de détection"),
                                       s("Organisme préleveur"),
                                       s("Laboratoire d'analyses"),
                                       s("Gestionnaire"),
                                       s("Réseau de mesure"),
                                       s("Protocole de prélèvement")};
        QCOMPARE(v[0], titres);
        const QVector<QVariant> rangee{s("Nitrates"),
                                       12.5,
                                       1.0,
                                       3.0,
                                       s("=1+1"),
                                       s("trouble"),
                                       s("mg/L"),
                                       s("In situ"),
                                       0.05,
                                       s("Préleveur"),
                                       s("Agence de l'eau"),
                                       s("Agence de l'eau"),
                                       s("Local | National"),
                                       s("Suivi pluie")};
        QCOMPARE(v[1], rangee);
        QCOMPARE(v[2][3], QVariant(s("023")));
        QCOMPARE(v[2][8], QVariant(s("< 0,05")));

        // Pesticides: one comment, no place.
        demande.famille = FamillePrelevement::Pesticides;
        v = VisualisationPrelevement::tableau(demande);
        QCOMPARE(v[0].size(), 12);
        QCOMPARE(v[0][4], QVariant(s("Commentaires")));
        QCOMPARE(v[1][4], QVariant(s("trouble")));
        QCOMPARE(v[1][5], QVariant(s("mg/L")));
    }
};

QTEST_GUILESS_MAIN(TestReglesPrelevement)
#include "test_regles_prelevement.moc"
