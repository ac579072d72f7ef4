// Conversions that end badly: killed, without room, on files that are held, protected or damaged. Whatever happens, the
// chosen name bears a whole file, the old one or the new one, and a file that is refused is as it was.
#include "database/jet/BasesJet.h"
#include "database/jet/OuvertureDEssai.h"

#include <cstdio>
#include <fcntl.h>
#include <QCryptographicHash>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>
#include <sys/file.h>
#include <sys/mount.h>
#include <unistd.h>

class TestConversionRobuste : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void tuee();
    void disquePlein();
    void dossierEnLectureSeule();
    void fichierEnLectureSeule();
    void verrouFlock();
    void verrouFcntl();
    void ouvertDansAccess();
    void deuxFois();
    void modifiePendant();
    void coupee_data();
    void coupee();
    void abimee_data();
    void abimee();

private:
    QString copie(const QString &nom, const QString &dossier = {}) const;
    QStringList presents() const
    {
        return QDir(m_dossier->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
    // The opening is refused with one box of this title whose text contains this, and nothing has changed.
    void refusee(const QString &chemin, const QByteArray &avant, const QString &titre,
                 const QString &contient);

    std::unique_ptr<QTemporaryDir> m_dossier;
};

namespace
{
QByteArray contenu(const QString &chemin)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
}

// A small file system of its own; mounted only where the system lets us.
class Disque
{
public:
    Disque(const QString &point, const QByteArray &options) : m_point(point)
    {
        QDir().mkpath(point);
        m_monte = mount("tmpfs", QFile::encodeName(point).constData(), "tmpfs", 0, options.constData()) == 0;
    }
    ~Disque()
    {
        if (m_monte)
            umount2(QFile::encodeName(m_point).constData(), MNT_DETACH);
    }
    bool monte() const { return m_monte; }
    bool proteger() const
    {
        return mount(nullptr, QFile::encodeName(m_point).constData(), nullptr, MS_REMOUNT | MS_RDONLY,
                     nullptr) == 0;
    }

private:
    QString m_point;
    bool m_monte = false;
};

int lignes(const OuvertureDEssai &essai)
{
    return essai
        .valeur("SELECT (SELECT count(*) FROM MESURE_PHYSICO) + (SELECT count(*) FROM PRELEVEMENT) + "
                "(SELECT count(*) FROM PRELEVEMENTRSX) + (SELECT count(*) FROM MESURE_HYDRO) + "
                "(SELECT count(*) FROM MESURE_PLUVIO)")
        .toInt();
}

// As mdb-export counts them in v400.mdb: 3609 results, 234 samplings, 281 memberships, 1132 flows, 1096 rains.
constexpr int LIGNES_V400 = 3609 + 234 + 281 + 1132 + 1096;
} // namespace

void TestConversionRobuste::init()
{
    m_dossier = std::make_unique<QTemporaryDir>();
}

QString TestConversionRobuste::copie(const QString &nom, const QString &dossier) const
{
    const QString chemin = (dossier.isEmpty() ? m_dossier->path() : dossier) + "/etude.mdb";
    QFile::remove(chemin);
    if (!QFile::copy(BasesJet::chemin(nom), chemin))
        qFatal("copie impossible");
    QFile::setPermissions(chemin, QFile::ReadOwner | QFile::WriteOwner);
    return chemin;
}

void TestConversionRobuste::refusee(const QString &chemin, const QByteArray &avant, const QString &titre,
                                    const QString &contient)
{
    OuvertureDEssai essai;
    QVERIFY(!essai.ouvrir(chemin));
    QCOMPARE(essai.dialogue.messages.size(), 1);
    const BoiteDEssai boite = essai.dialogue.messages[0];
    QCOMPARE(boite.titre, titre);
    QVERIFY2(boite.texte.contains(contient), qPrintable(boite.texte));
    if (titre == u"Erreur d'ouverture")
        QVERIFY(boite.texte.startsWith("Erreur à l'ouverture de la base de données : \n "));
    QVERIFY(!essai.dialogue.progression(FenetreProgression::FProgress3).visible);
    QVERIFY(contenu(chemin) == avant);
    const QStringList autour = QDir(QFileInfo(chemin).path()).entryList({"etude*"}, QDir::Files);
    for (const QString &nom : autour)
        QVERIFY2(nom == u"etude.mdb" || nom == u"etude.ldb", qPrintable(nom));
}

// Twenty kills at random moments of the whole opening, from the first byte to the renaming.
void TestConversionRobuste::tuee()
{
    const QByteArray original = contenu(BasesJet::chemin("v400.mdb"));
    const auto lancer = [&](QProcess &processus, const QString &chemin) {
        processus.start(QCoreApplication::applicationFilePath(), {"--convertir", chemin});
        return processus.waitForStarted();
    };
    // How long one takes here and now.
    QElapsedTimer duree;
    duree.start();
    {
        QProcess entiere;
        QVERIFY(lancer(entiere, copie("v400.mdb")));
        QVERIFY(entiere.waitForFinished(60000));
        QCOMPARE(entiere.exitCode(), 0);
    }
    const qint64 totale = duree.elapsed();
    const quint32 graine = QRandomGenerator::global()->generate();
    qInfo("graine %u, conversion entière en %lld ms", graine, static_cast<long long>(totale));
    QRandomGenerator hasard(graine);
    int restees = 0;
    for (int i = 0; i < 20; ++i) {
        m_dossier = std::make_unique<QTemporaryDir>();
        const QString chemin = copie("v400.mdb");
        QProcess processus;
        QVERIFY(lancer(processus, chemin));
        // Some runs come to their end before the kill.
        if (!processus.waitForFinished(static_cast<int>(hasard.bounded(static_cast<quint32>(totale) + 20)))) {
            processus.kill();
            QVERIFY(processus.waitForFinished(10000));
        }

        // One name or the other bears the old file, whole.
        const QString ancien = m_dossier->filePath("etude_old97.mdb");
        if (contenu(chemin) == original)
            ++restees;
        else
            QVERIFY(contenu(ancien) == original);
        if (QFileInfo::exists(ancien))
            QVERIFY(contenu(ancien) == original);
        // And the chosen one opens, with every row, by a conversion or without.
        OuvertureDEssai essai;
        QVERIFY(essai.ouvrir(chemin));
        QVERIFY(essai.dialogue.messages.isEmpty());
        QCOMPARE(lignes(essai), LIGNES_V400);
        QCOMPARE(essai.valeur("PRAGMA integrity_check"), "ok");
        essai.donnees.liberer();
        QCOMPARE(presents(), (QStringList{"etude.mdb", "etude_old97.mdb"}));
        QVERIFY(contenu(ancien) == original);
    }
    qInfo("%d fois avant la mise en place", restees);
}

void TestConversionRobuste::disquePlein()
{
    const qint64 taille = QFileInfo(BasesJet::chemin("v400.mdb")).size();
    const QByteArray original = contenu(BasesJet::chemin("v400.mdb"));
    int refus = 0;
    int reussites = 0;
    // From no room at all to room enough, 128 KB at a time.
    for (qint64 reste = 0; reste <= 3 << 20; reste += 128 << 10) {
        const QString point = m_dossier->filePath(QString("disque%1").arg(reste));
        const Disque disque(point, "size=" + QByteArray::number(taille + reste));
        if (!disque.monte())
            QSKIP("aucun disque ne peut être monté ici (il faut être administrateur)");
        const QString chemin = copie("v400.mdb", point);
        OuvertureDEssai essai;
        if (essai.ouvrir(chemin)) {
            ++reussites;
            QCOMPARE(lignes(essai), LIGNES_V400);
            essai.donnees.liberer();
            QVERIFY(contenu(point + "/etude_old97.mdb") == original);
            continue;
        }
        ++refus;
        QVERIFY(!essai.dialogue.messages.isEmpty());
        QVERIFY2(essai.dialogue.messages[0].texte.contains("disque") ||
                     essai.dialogue.messages[0].texte.contains("disk is full") ||
                     essai.dialogue.messages[0].texte.contains("écrit"),
                 qPrintable(essai.dialogue.messages[0].texte));
        QVERIFY(contenu(chemin) == original);
        QCOMPARE(QDir(point).entryList(QDir::Files), QStringList{"etude.mdb"});
    }
    QVERIFY(refus > 0);
    QVERIFY(reussites > 0);
    qInfo("%d refus, %d réussites", refus, reussites);
}

void TestConversionRobuste::dossierEnLectureSeule()
{
    const QString point = m_dossier->filePath("protege");
    const Disque disque(point, "size=8m");
    if (!disque.monte())
        QSKIP("aucun disque ne peut être monté ici (il faut être administrateur)");
    const QString chemin = copie("courant.mdb", point);
    QVERIFY(disque.proteger());
    refusee(chemin, contenu(BasesJet::chemin("courant.mdb")), "Erreur d'ouverture", "lecture seule");
}

void TestConversionRobuste::fichierEnLectureSeule()
{
    const QString chemin = copie("courant.mdb");
    QFile::setPermissions(chemin, QFile::ReadOwner);
    refusee(chemin, contenu(BasesJet::chemin("courant.mdb")), "Erreur d'ouverture", "lecture seule");
}

void TestConversionRobuste::verrouFlock()
{
    const QString chemin = copie("courant.mdb");
    const int autre = ::open(QFile::encodeName(chemin).constData(), O_RDONLY);
    QCOMPARE(::flock(autre, LOCK_SH), 0);
    refusee(chemin, contenu(BasesJet::chemin("courant.mdb")), "Erreur d'ouverture",
            "utilisé par un autre programme");
    ::close(autre);
    OuvertureDEssai essai;
    QVERIFY(essai.ouvrir(chemin));
}

void TestConversionRobuste::verrouFcntl()
{
    const QString chemin = copie("courant.mdb");
    QProcess autre;
    autre.start(QCoreApplication::applicationFilePath(), {"--verrouiller", chemin});
    QVERIFY(autre.waitForReadyRead(10000));
    refusee(chemin, contenu(BasesJet::chemin("courant.mdb")), "Erreur d'ouverture",
            "utilisé par un autre programme");
    autre.closeWriteChannel();
    QVERIFY(autre.waitForFinished(10000));
}

// Access keeps a file of its own beside a base that someone has open.
void TestConversionRobuste::ouvertDansAccess()
{
    const QString chemin = copie("courant.mdb");
    QFile ldb(m_dossier->filePath("etude.ldb"));
    QVERIFY(ldb.open(QIODevice::WriteOnly));
    ldb.write(QByteArray("POSTE-12").leftJustified(32, '\0') + QByteArray("Admin").leftJustified(32, '\0'));
    ldb.close();
    refusee(chemin, contenu(BasesJet::chemin("courant.mdb")), "Erreur d'ouverture", "« etude.ldb »");
}

// The file is opened a second time while the user is still thinking about the question.
void TestConversionRobuste::deuxFois()
{
    const QString chemin = copie("ancien.mdb");
    QString vu;
    struct Hesitant : DialogueDEssai {
        std::function<void()> pendant;
        Reponse question(const QString &, const QString &, const QList<Reponse> &, Reponse, Icone) override
        {
            pendant();
            return Reponse::Non;
        }
    } hesitant;
    hesitant.pendant = [&] {
        OuvertureDEssai second;
        QVERIFY(!second.ouvrir(chemin));
        vu = second.dialogue.messages.value(0).texte;
    };
    DataEnvironment1 donnees;
    Ouverture o{donnees, hesitant, chemin, {}, {}, {}};
    o.etapes.MettreAJourVersion = [&] { M_Structure_2002::MettreAJourVersion(donnees); };
    o.etapes.TransposerStructure = [&] {
        return M_Structure_2002::TransposerStructure(donnees, {hesitant, {}, {}});
    };
    EtapesJet::brancher(o.etapes, hesitant);
    QVERIFY(!M_Ouvrir_bdd_OVRA::OuvrirBase(o));
    QVERIFY2(vu.contains("utilisé par un autre programme"), qPrintable(vu));
    QCOMPARE(presents(), QStringList{"etude.mdb"});
    QVERIFY(contenu(chemin) == contenu(BasesJet::chemin("ancien.mdb")));
}

// A program that locks nothing writes into the file meanwhile: its change is not lost.
void TestConversionRobuste::modifiePendant()
{
    const QString chemin = copie("courant.mdb");
    QByteArray modifie;
    OuvertureDEssai essai;
    DataEnvironment1 &donnees = essai.donnees;
    Ouverture o{donnees, essai.dialogue, chemin, {}, {}, {}};
    o.etapes.ChargerCouleurs = [&] {
        QFile fichier(chemin);
        QVERIFY(fichier.open(QIODevice::Append));
        fichier.write(QByteArray(4096, '\0'));
        fichier.close();
        modifie = contenu(chemin);
    };
    EtapesJet::brancher(o.etapes, essai.dialogue);
    QVERIFY(!M_Ouvrir_bdd_OVRA::OuvrirBase(o));
    QCOMPARE(essai.dialogue.messages.size(), 1);
    QVERIFY(essai.dialogue.messages[0].texte.contains("modifiée par un autre programme"));
    QVERIFY(contenu(chemin) == modifie);
    QCOMPARE(presents(), QStringList{"etude.mdb"});
}

void TestConversionRobuste::coupee_data()
{
    QTest::addColumn<qint64>("taille");
    const qint64 entiere = QFileInfo(BasesJet::chemin("courant.mdb")).size();
    for (int i = 0; i < 24; ++i)
        QTest::addRow("%d/24", i) << entiere * i / 24;
    for (const qint64 taille : {qint64{1}, qint64{20}, qint64{21}, qint64{4096}, entiere - 1, entiere - 4096})
        QTest::addRow("%lld", static_cast<long long>(taille)) << taille;
}

void TestConversionRobuste::coupee()
{
    QFETCH(qint64, taille);
    const QString chemin = copie("courant.mdb");
    QVERIFY(QFile::resize(chemin, taille));
    const QByteArray avant = contenu(chemin);
    OuvertureDEssai essai;
    if (essai.ouvrir(chemin)) {
        // What is cut off held no row: mdb-export counts 9744 results, 3007 flows and 2922 rains.
        QCOMPARE(essai.valeur("SELECT count(*) FROM MESURE_PHYSICO"), 9744);
        QCOMPARE(essai.valeur("SELECT count(*) FROM MESURE_HYDRO"), 3007);
        QCOMPARE(essai.valeur("SELECT count(*) FROM MESURE_PLUVIO"), 2922);
        return;
    }
    QCOMPARE(essai.dialogue.messages.size(), 1);
    QVERIFY(contenu(chemin) == avant);
    QCOMPARE(presents(), QStringList{"etude.mdb"});
}

void TestConversionRobuste::abimee_data()
{
    QTest::addColumn<int>("page");
    // The catalogue, the definition of a table, pages of rows; the pages that follow the first are 4096 bytes long.
    for (const int page : {2, 3, 4, 24, 63, 67, 100, 200, 400})
        QTest::addRow("page %d", page) << page;
}

// A page of noise in the place of a page of the file.
void TestConversionRobuste::abimee()
{
    QFETCH(int, page);
    const QString chemin = copie("courant.mdb");
    QFile fichier(chemin);
    QVERIFY(fichier.open(QIODevice::ReadWrite));
    QRandomGenerator hasard(static_cast<quint32>(page));
    QByteArray bruit(4096, '\0');
    for (char &c : bruit)
        c = static_cast<char>(hasard.bounded(256));
    QVERIFY(fichier.seek(qint64{4096} * page));
    fichier.write(bruit);
    fichier.close();
    const QByteArray avant = contenu(chemin);
    OuvertureDEssai essai;
    if (essai.ouvrir(chemin)) {
        QCOMPARE(essai.valeur("SELECT count(*) FROM MESURE_PHYSICO"), 9744);
        return;
    }
    QCOMPARE(essai.dialogue.messages.size(), 1);
    QVERIFY(contenu(chemin) == avant);
    QCOMPARE(presents(), QStringList{"etude.mdb"});
}

namespace
{
// What this program does as a second process of its own tests.
int convertir(const QString &chemin)
{
    OuvertureDEssai essai;
    return essai.ouvrir(chemin) ? 0 : 1;
}

int verrouiller(const QString &chemin)
{
    const int fichier = ::open(QFile::encodeName(chemin).constData(), O_RDWR);
    struct flock verrou = {};
    verrou.l_type = F_RDLCK;
    verrou.l_whence = SEEK_SET;
    if (fichier < 0 || ::fcntl(fichier, F_SETLK, &verrou) != 0)
        return 1;
    std::puts("verrou");
    std::fflush(stdout);
    return std::getchar() == EOF ? 0 : 1;
}
} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == u"--convertir")
        return convertir(arguments.value(2));
    if (arguments.value(1) == u"--verrouiller")
        return verrouiller(arguments.value(2));
    TestConversionRobuste test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_conversion_robuste.moc"
