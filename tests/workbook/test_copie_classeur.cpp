// A template taken up under a new name, and cells copied with their looks; read back by an independent reader.
#include "ClasseurLu.h"
#include "platform/Erreur.h"
#include "workbook/Tableur.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QTemporaryDir>
#include <QtTest>

class TestCopieClasseur : public QObject
{
    Q_OBJECT

private:
    QString fichier(const char *nom) const { return m_dossier.filePath(QString::fromUtf8(nom)); }
    static QByteArray octets(const QString &chemin)
    {
        QFile lu(chemin);
        return lu.open(QIODevice::ReadOnly) ? lu.readAll() : QByteArray();
    }

    Tableur m_tableur;
    QTemporaryDir m_dossier;

private Q_SLOTS:
    // A block of two rows with looks, a blank row, a note below.
    void initTestCase()
    {
        const auto classeur = m_tableur.ajouter();
        classeur->policeParDefaut(QStringLiteral("Arial"), 10);
        Feuille feuille = classeur->feuille(1);
        feuille.renommer(QStringLiteral("F"));
        Plage bloc = feuille.plage(QStringLiteral("A1:C2"));
        bloc.ecrire(Valeurs{{"a", 1.0, 2.0}, {"b", 3.0, 4.0}});
        bloc.fond(33);
        bloc.formatNombre(QStringLiteral("0.00"));
        bloc.bord(Bord::Droite, TraitBord::Continu, EpaisseurBord::Moyen);
        feuille.cellule(4, 1).ecrire(QStringLiteral("note"));
        feuille.hauteurLignes(1, 2, 1000);
        classeur->enregistrerSous(fichier("modele.xls"));
    }

    // The file stands under its new name at once, as it is; what is then written goes there, and the template stays.
    void reprendreSous()
    {
        const QByteArray modele = octets(fichier("modele.xls"));
        QVERIFY(!modele.isEmpty());
        const auto classeur = m_tableur.ouvrir(fichier("modele.xls"));
        classeur->reprendreSous(fichier("copie.xls"));
        QCOMPARE(octets(fichier("copie.xls")), modele);
        QCOMPARE(classeur->chemin(), fichier("copie.xls"));
        classeur->feuille(1).cellule(4, 1).ecrire(QStringLiteral("écrite"));
        classeur->enregistrer();
        classeur->fermer();
        QCOMPARE(ClasseurLu(fichier("copie.xls")).valeur("F", "A4").toString(), QStringLiteral("écrite"));
        QCOMPARE(octets(fichier("modele.xls")), modele);
    }

    // A template that was installed write-protected gives a copy that can be saved; a file of that name is replaced, and nothing
    // else is left beside it.
    void reprendreSousUnModeleProtege()
    {
        QDir(m_dossier.path()).mkdir(QStringLiteral("été"));
        const QString modele = fichier("protege.xls");
        const QString copie = fichier("été/copie.xls");
        QVERIFY(QFile::copy(fichier("modele.xls"), modele));
        QVERIFY(QFile::copy(fichier("modele.xls"), copie));
        QVERIFY(QFile::setPermissions(modele, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
        const auto classeur = m_tableur.ouvrir(modele);
        classeur->reprendreSous(copie);
        QVERIFY(QFile::permissions(copie).testFlag(QFile::WriteOwner));
        classeur->enregistrer();
        QCOMPARE(QDir(fichier("été")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList{QStringLiteral("copie.xls")});
    }

    // What cannot be put there is told, and the workbook keeps its name.
    void reprendreSousRefuse()
    {
        const auto classeur = m_tableur.ouvrir(fichier("modele.xls"));
        QString raison;
        try {
            classeur->reprendreSous(fichier("absent/copie.xls"));
        } catch (const Erreur &erreur) {
            raison = erreur.description();
        }
        QVERIFY2(raison.startsWith(QStringLiteral("Le fichier « copie.xls » ne peut pas être enregistré : ")),
                 qPrintable(raison));
        QCOMPARE(classeur->chemin(), fichier("modele.xls"));
    }

    void copierEtEffacer()
    {
        const auto classeur = m_tableur.ouvrir(fichier("modele.xls"));
        Feuille feuille = classeur->feuille(1);
        feuille.insererLignes(4, 2);
        feuille.copier(feuille.plage(QStringLiteral("A1:C2")), 4, 1);
        feuille.sautDePage(4);
        // The block is cut to two columns: the last one, with its edge, moves to the left.
        feuille.copier(feuille.plage(QStringLiteral("C4:C5")), 4, 2);
        feuille.plage(QStringLiteral("C4:C5")).effacer();
        classeur->enregistrerSous(fichier("blocs.xls"));
        classeur->fermer();

        const ClasseurLu lu(fichier("blocs.xls"));
        QVERIFY2(lu.lisible(), qPrintable(lu.erreurs()));
        QCOMPARE(lu.valeur("F", "A5").toString(), QStringLiteral("b"));
        QCOMPARE(lu.valeur("F", "B5").toDouble(), 4.0);
        QCOMPARE(lu.cellule("F", "B5")["index_fond"].toInt(), 33);
        QCOMPARE(lu.cellule("F", "B5")["format"].toString(), QStringLiteral("0.00"));
        QCOMPARE(lu.cellule("F", "B5")["bords"].toObject()["droite"].toInt(), 2);
        QVERIFY(lu.valeur("F", "C5").isNull() || lu.valeur("F", "C5").isUndefined());
        QVERIFY(lu.cellule("F", "C5")["fond"].isNull() || lu.cellule("F", "C5")["fond"].isUndefined());
        // The block it was copied from has kept its three columns; what stood below was pushed down.
        QCOMPARE(lu.valeur("F", "C2").toDouble(), 4.0);
        QCOMPARE(lu.valeur("F", "A6").toString(), QStringLiteral("note"));
        QCOMPARE(lu.feuille("F")["sauts"].toArray(), QJsonArray({4}));
    }

    // Ten millimetres are 28.3 points; the default font shows on a cell that was given none.
    void hauteursEtPolice()
    {
        const ClasseurLu lu(fichier("modele.xls"));
        for (const char *ligne : {"1", "2"})
            QVERIFY(qAbs(lu.feuille("F")["hauteurs"].toObject()[QLatin1String(ligne)].toDouble() - 28.35) <
                    0.2);
        QCOMPARE(lu.cellule("F", "A4")["police"].toObject()["nom"].toString(), QStringLiteral("Arial"));
    }
};

QTEST_GUILESS_MAIN(TestCopieClasseur)
#include "test_copie_classeur.moc"
