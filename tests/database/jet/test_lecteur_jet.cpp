// Reading Access bases: every value against what mdb-export prints, and files that are no base, cut short or damaged.
#include "database/jet/BasesJet.h"
#include "database/jet/LecteurJet.h"
#include "platform/Erreur.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class TestLecteurJet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reconnaitre();
    void structure();
    void relations();
    void toutesLesValeurs_data();
    void toutesLesValeurs();
    void dates_data();
    void dates();
    void coupe_data();
    void coupe();
    void lecteurAbsent();
    void lecteurMuet();
    void lecteurBavard();

private:
    QString ecrire(const QString &nom, const QByteArray &octets) const;

    QTemporaryDir m_dossier;
};

QString TestLecteurJet::ecrire(const QString &nom, const QByteArray &octets) const
{
    QFile fichier(m_dossier.filePath(nom));
    if (!fichier.open(QIODevice::WriteOnly) || fichier.write(octets) != octets.size())
        qFatal("ecriture impossible");
    fichier.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return fichier.fileName();
}

void TestLecteurJet::reconnaitre()
{
    QCOMPARE(LecteurJet::reconnaitre(BasesJet::chemin("courant.mdb")), std::optional<int>(4));
    QVERIFY(!LecteurJet::reconnaitre(m_dossier.filePath("absent.mdb")));
    // The name says nothing: the same bytes under another extension are a base, other bytes under .mdb are none.
    const QString renomme = m_dossier.filePath("etude.txt");
    QVERIFY(QFile::copy(BasesJet::chemin("courant.mdb"), renomme));
    QCOMPARE(LecteurJet::reconnaitre(renomme), std::optional<int>(4));
    QVERIFY(!LecteurJet::reconnaitre(
        ecrire("store.mdb", QByteArray("SQLite format 3\0", 16) + QByteArray(100, '\0'))));
    // The first bytes of Access 2007 and later.
    QVERIFY(!LecteurJet::reconnaitre(ecrire("ace.mdb", QByteArray("\0\1\0\0Standard ACE DB\0\2", 21))));
    QVERIFY(!LecteurJet::reconnaitre(ecrire("court.mdb", QByteArray("\0\1\0\0Standard Jet DB\0", 20))));
    if (const QString autre = BasesJet::autreBase97(); !autre.isEmpty())
        QCOMPARE(LecteurJet::reconnaitre(autre), std::optional<int>(3));
}

void TestLecteurJet::structure()
{
    const LecteurJet lecteur(BasesJet::chemin("ancien.mdb"));
    QCOMPARE(lecteur.generation(), 4);
    QCOMPARE(lecteur.accessVersion(), std::optional<QString>("08.50"));
    QVERIFY(!lecteur.table("TECHNIQUE"));
    QVERIFY(!lecteur.table("MSysObjects"));
    const TableJet *reseau = lecteur.table("reseau_mesure");
    QVERIFY(reseau);
    QCOMPARE(reseau->nom, "RESEAU_MESURE");
    QCOMPARE(reseau->lignes, 3);
    QCOMPARE(reseau->colonnes.size(), 3);
    QCOMPARE(reseau->colonnes[0].nom, "CodeReseau");
    QCOMPARE(reseau->colonnes[0].type, TypeJet::Entier);
    QCOMPARE(reseau->colonnes[2].type, TypeJet::Texte);
    QCOMPARE(reseau->colonnes[2].longueur, 50);
    const TableJet *prelevement = lecteur.table("PRELEVEMENT");
    QVERIFY(prelevement);
    QCOMPARE(prelevement->colonnes[0].nom, "NumPrel");
    QVERIFY(prelevement->colonnes[0].numeroAuto);
    QCOMPARE(prelevement->colonnes[3].type, TypeJet::DateHeure);
    QVERIFY(!prelevement->colonnes[3].numeroAuto);
    QVERIFY(lecteur.table("Rattachement_hydro_ mesure"));
    QCOMPARE(lecteur.table("PARAMETRE")->colonnes[4].nom, QStringLiteral("DéfParam"));
    QCOMPARE(lecteur.table("PARAMETRE")->colonnes[4].type, TypeJet::Memo);
}

void TestLecteurJet::relations()
{
    // As mdb-export prints MSysRelationships: grbit 256 is "updates cascade", 4096 "deletes cascade".
    const LecteurJet courant(BasesJet::chemin("courant.mdb"));
    QCOMPARE(courant.relations().size(), 3);
    const RelationJet r = courant.relations().at(2);
    QCOMPARE(r.nom, "PRELEVEMENTPRELEVEMENTRSX");
    QCOMPARE(r.table, "PRELEVEMENTRSX");
    QCOMPARE(r.colonnes, QStringList{"NumPrel"});
    QCOMPARE(r.tableCible, "PRELEVEMENT");
    QCOMPARE(r.colonnesCible, QStringList{"NumPrel"});
    QVERIFY(r.imposee && r.majEnCascade && r.suppressionEnCascade);
    QVERIFY(courant.relations().at(0).majEnCascade);
    QVERIFY(!courant.relations().at(0).suppressionEnCascade);

    const LecteurJet ancien(BasesJet::chemin("ancien.mdb"));
    QCOMPARE(ancien.relations().size(), 4);
    for (const RelationJet &a : ancien.relations())
        QVERIFY(a.imposee && !a.majEnCascade && !a.suppressionEnCascade);
}

void TestLecteurJet::toutesLesValeurs_data()
{
    QTest::addColumn<QString>("base");
    for (const char *nom : {"courant.mdb", "v400.mdb", "ancien.mdb", "regional.mdb"})
        QTest::newRow(nom) << BasesJet::chemin(nom);
    QTest::newRow("autre_base_97.mdb") << BasesJet::autreBase97();
}

namespace
{
// A value read and the same cell as mdb-export prints it.
bool egales(ProtocoleJet::Valeur genre, const QVariant &lu, const QString &attendu)
{
    using ProtocoleJet::Valeur;
    switch (genre) {
    case Valeur::Nulle:
        return attendu.isEmpty();
    case Valeur::Vrai:
        return attendu == u"1";
    case Valeur::Faux:
        return attendu == u"0";
    case Valeur::Entier:
        return QString::number(lu.toLongLong()) == attendu;
    case Valeur::Reel: // printed with 15 or 16 digits
        return qAbs(lu.toDouble() - attendu.toDouble()) <= 1e-14 * qAbs(lu.toDouble());
    case Valeur::Simple:
        return static_cast<float>(lu.toDouble()) == attendu.toFloat();
    case Valeur::DateHeure: {
        const DateHeureJet d(lu.toDouble());
        return d.date + u' ' + d.heure == attendu;
    }
    case Valeur::Texte:
        return lu.toString() == attendu;
    case Valeur::Octets: // printed in a way of its own
        return lu.toByteArray().isEmpty() == attendu.isEmpty();
    }
    return false;
}
} // namespace

void TestLecteurJet::toutesLesValeurs()
{
    QFETCH(QString, base);
    if (base.isEmpty())
        QSKIP("autre_base_97.mdb n'est pas là (OVRALIS_BASES_VOISINES)");

    LecteurJet lecteur(base);
    QHash<QString, QList<QList<QVariant>>> lues;
    QHash<QString, QList<QList<ProtocoleJet::Valeur>>> genres;
    lecteur.lire([&](const TableJet &table, const std::vector<ValeurJet> &ligne) {
        QList<QVariant> valeurs;
        QList<ProtocoleJet::Valeur> g;
        for (const ValeurJet &v : ligne) {
            valeurs << v.variant();
            g << v.genre;
        }
        lues[table.nom] << valeurs;
        genres[table.nom] << g;
    });

    QStringList noms;
    for (const TableJet &t : lecteur.tables())
        noms << t.nom;
    noms.sort();
    QCOMPARE(noms, BasesJet::mdbTables(base));

    qsizetype comparees = 0;
    for (const TableJet &table : lecteur.tables()) {
        const QList<QStringList> attendues = BasesJet::mdbExport(base, table.nom);
        QStringList entete;
        for (const ColonneJet &c : table.colonnes)
            entete << c.nom;
        QCOMPARE(attendues.value(0), entete);
        QCOMPARE(lues[table.nom].size(), attendues.size() - 1);
        QCOMPARE(lues[table.nom].size(), table.lignes);
        for (qsizetype i = 1; i < attendues.size(); ++i) {
            const QList<QVariant> &ligne = lues[table.nom][i - 1];
            QCOMPARE(attendues[i].size(), ligne.size());
            for (qsizetype j = 0; j < ligne.size(); ++j) {
                if (!egales(genres[table.nom][i - 1][j], ligne[j], attendues[i][j]))
                    QFAIL(qPrintable(QStringLiteral("%1, ligne %2, %3 : lu « %4 », mdb-export « %5 »")
                                         .arg(table.nom, QString::number(i), entete[j], ligne[j].toString(),
                                              attendues[i][j])));
                ++comparees;
            }
        }
    }
    QVERIFY(comparees > 1000);
}

void TestLecteurJet::dates_data()
{
    QTest::addColumn<double>("jours");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("heure");
    // The origin is day 0; 01/01/1900 is day 2, 01/01/2000 day 36526.
    QTest::newRow("origine") << 0.0 << "1899-12-30"
                             << "00:00:00";
    QTest::newRow("2000") << 36526.0 << "2000-01-01"
                          << "00:00:00";
    QTest::newRow("heure seule") << 10.0 / 24 << "1899-12-30"
                                 << "10:00:00";
    QTest::newRow("date et heure") << 36526 + 23.5 / 24 << "2000-01-01"
                                   << "23:30:00";
    // A fraction of a second before midnight is the next day, not 24:00:00.
    QTest::newRow("arrondi") << 36526.9999999 << "2000-01-02"
                             << "00:00:00";
    // Before the origin the fraction still counts upwards: -1.25 is the 29th at six.
    QTest::newRow("avant") << -1.25 << "1899-12-29"
                           << "06:00:00";
    QTest::newRow("hors bornes") << 1e9 << ""
                                 << "";
    QTest::newRow("pas un nombre") << qQNaN() << ""
                                   << "";
}

void TestLecteurJet::dates()
{
    QFETCH(double, jours);
    QFETCH(QString, date);
    QFETCH(QString, heure);
    const DateHeureJet d(jours);
    QCOMPARE(d.date, date);
    QCOMPARE(d.heure, heure);
}

void TestLecteurJet::coupe_data()
{
    QTest::addColumn<qint64>("taille");
    const qint64 entiere = QFileInfo(BasesJet::chemin("v400.mdb")).size();
    // In the first page, among the catalogue, in the middle of pages, near the end.
    for (const qint64 taille :
         {qint64{21}, qint64{100}, qint64{2048}, qint64{4095}, qint64{4096}, qint64{8192}, qint64{12288},
          qint64{20000}, qint64{65536}, qint64{131072}, qint64{262144}, qint64{524288}, entiere / 2,
          entiere * 3 / 4, entiere - 200000, entiere - 65536, entiere - 40960, entiere - 8192, entiere - 1})
        QTest::addRow("%lld", static_cast<long long>(taille)) << taille;
}

void TestLecteurJet::coupe()
{
    QFETCH(qint64, taille);
    const QString chemin = m_dossier.filePath(QStringLiteral("coupe_%1.mdb").arg(taille));
    QVERIFY(QFile::copy(BasesJet::chemin("v400.mdb"), chemin));
    QVERIFY(QFile::resize(chemin, taille));
    qint64 lignes = 0;
    try {
        LecteurJet lecteur(chemin);
        lecteur.lire([&](const TableJet &, const std::vector<ValeurJet> &) { ++lignes; });
    } catch (const Erreur &e) {
        QVERIFY2(e.description().contains("pas été modifié"), e.what());
        return;
    }
    // Whoever gets to the end without a word has missed nothing.
    qint64 attendues = 0;
    for (const QString &table : BasesJet::mdbTables(BasesJet::chemin("v400.mdb")))
        attendues += BasesJet::mdbExport(BasesJet::chemin("v400.mdb"), table).size() - 1;
    QCOMPARE(lignes, attendues);
}

void TestLecteurJet::lecteurAbsent()
{
    LecteurJet::Reglages reglages;
    reglages.programme = m_dossier.filePath("personne");
    QVERIFY_EXCEPTION_THROWN(LecteurJet(BasesJet::chemin("courant.mdb"), reglages), Erreur);
}

// A reading process that hangs is given up, and does not outlive its reader.
void TestLecteurJet::lecteurMuet()
{
    LecteurJet::Reglages reglages;
    reglages.silenceMs = 300;
    reglages.programme = ecrire("muet", "#!/bin/sh\necho $$ > '" + m_dossier.filePath("pid").toUtf8() +
                                            "'\nexec /bin/sleep 60\n");
    int battements = 0;
    reglages.battement = [&] { ++battements; };
    QElapsedTimer duree;
    duree.start();
    try {
        const LecteurJet lecteur(BasesJet::chemin("courant.mdb"), reglages);
        QFAIL("lu");
    } catch (const Erreur &e) {
        QVERIFY2(e.description().contains("n'avance plus"), e.what());
    }
    QVERIFY(duree.elapsed() < 10000);
    QVERIFY(battements >= 3);
    QFile pid(m_dossier.filePath("pid"));
    QVERIFY(pid.open(QIODevice::ReadOnly));
    const QString numero = QString::fromLatin1(pid.readAll().trimmed());
    QVERIFY(!numero.isEmpty());
    QVERIFY(!QFileInfo::exists("/proc/" + numero));
}

// One that writes without end is stopped by what the size of the file allows.
void TestLecteurJet::lecteurBavard()
{
    LecteurJet::Reglages reglages;
    reglages.programme = ecrire("bavard", "#!/bin/sh\nexec /bin/cat /dev/zero\n");
    QVERIFY_EXCEPTION_THROWN(LecteurJet(BasesJet::chemin("courant.mdb"), reglages), Erreur);
}

QTEST_GUILESS_MAIN(TestLecteurJet)
#include "test_lecteur_jet.moc"
