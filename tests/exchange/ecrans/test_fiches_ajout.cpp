// What "Ajouter" opens for each kind of element, and what it puts into the sheet.
#include "BaseDEssai.h"
#include "CadreDEssai.h"
#include "DialogueDEssai.h"
#include "exchange/ecrans/FichesAjout.h"
#include "frame/Session.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

class TestFichesAjout : public QObject
{
    Q_OBJECT

    static QString texte(const QWidget *fiche, const QString &nom)
    {
        if (const auto *combo = fiche->findChild<QComboBox *>(nom))
            return combo->currentText();
        const auto *ligne = fiche->findChild<QLineEdit *>(nom);
        return ligne ? ligne->text() : QStringLiteral("?");
    }

private Q_SLOTS:
    void fiches_data()
    {
        QTest::addColumn<TypeElement>("type");
        QTest::addColumn<TypeImport>("import");
        QTest::addColumn<QString>("fiche");
        QTest::addColumn<QStringList>("champs"); // "txt_code=..."
        const auto cas = [](const char *nom, TypeElement type, TypeImport import, const char *fiche,
                            const QStringList &champs) {
            QTest::newRow(nom) << type << import << QString::fromLatin1(fiche) << champs;
        };
        using E = TypeElement;
        using I = TypeImport;
        const QString nom = QStringLiteral("txt_nom=L'Élément"), code = QStringLiteral("txt_code=L'Élément");
        const QString sansNom = QStringLiteral("txt_nom="), sansCode = QStringLiteral("txt_code=");
        const QString unite = QStringLiteral("cmb_unite=mg/L");
        cas("station qualité", E::StationQualite, I::Physico, "F_Saisie_Station_Mesure",
            {nom, QStringLiteral("txt_code=04000001")});
        cas("station qualité, trames", E::StationQualite, I::Trames, "F_Saisie_Station_Mesure",
            {nom, QStringLiteral("txt_code=04000001")});
        cas("paramètre", E::Parametre, I::Physico, "F_Saisie_Parametre", {nom, sansCode, unite});
        cas("paramètre, trames", E::Parametre, I::Trames, "F_Saisie_Parametre", {sansNom, code, unite});
        cas("paramètre par code, XML", E::ParametreParCode, I::Quesu, "F_Saisie_Parametre",
            {sansNom, code, unite});
        cas("gestionnaire", E::Gestionnaire, I::Physico, "F_Saisie_Gestionnaire", {nom, sansCode});
        cas("gestionnaire, pluies", E::Gestionnaire, I::Pluvio, "F_Saisie_Gestionnaire", {nom, sansCode});
        cas("gestionnaire, trames", E::Gestionnaire, I::TramesBis, "F_Saisie_Gestionnaire", {sansNom, code});
        cas("laboratoire", E::Laboratoire, I::PhysicoBis, "F_Saisie_Laboratoire", {nom, sansCode});
        cas("laboratoire, XML", E::Laboratoire, I::Quesu, "F_Saisie_Laboratoire", {sansNom, code});
        cas("préleveur", E::Preleveur, I::Physico, "F_Organisme_Preleveur", {nom, sansCode});
        cas("préleveur, stations en trames", E::Preleveur, I::StationsTrames, "F_Organisme_Preleveur",
            {sansNom, code});
        cas("réseau", E::Reseau, I::Physico, "F_Saisie_Reseau",
            {QStringLiteral("cmb_code=L'Élément"), QStringLiteral("txt_libelle=L'Élément")});
        cas("réseau, trames", E::Reseau, I::Trames, "F_Saisie_Reseau",
            {QStringLiteral("cmb_code=L'Élément"), QStringLiteral("txt_libelle=")});
        cas("station hydrométrique", E::StationHydro, I::Hydro, "F_Saisie_Station_Hydro", {nom, code});
        cas("station pluviométrique", E::StationPluvio, I::Pluvio, "F_Saisie_Station_Pluvio", {nom, code});
        cas("unité d'un paramètre", E::UniteDeParametre, I::Physico, "F_Saisie_Parametre",
            {QStringLiteral("txt_nom=Nitrates"), QStringLiteral("txt_code=1340"),
             QStringLiteral("cmb_unite=mg(NO3)/L"),
             QStringLiteral("cmb_groupe=Physico-chimie / environnement")});
        cas("commune", E::Commune, I::StationsExcel, "F_Saisie_Commune", {nom, sansCode});
        cas("commune, trames", E::CommuneTrames, I::StationsTrames, "F_Saisie_Commune", {nom, sansCode});
        cas("bassin versant", E::Bassin, I::StationsExcel, "F_Saisie_BV", {nom});
    }
    void fiches()
    {
        QFETCH(TypeElement, type);
        QFETCH(TypeImport, import);
        QFETCH(QString, fiche);
        QFETCH(QStringList, champs);
        const BaseDEssai base;
        DialogueDEssai dialogue;
        Session session(dialogue);
        session.donnees.ouvrir(base.chemin);
        session.ModeIntervenant = true; // left by the menu: an import wants the sheet of its element
        session.importSession.typeImport = import;
        session.importSession.typeElement = type;
        session.importSession.ElementNom = QStringLiteral("L'Élément");
        session.importSession.ElementCode = QStringLiteral("04000001");
        session.importSession.ElementUnite = QStringLiteral("mg/L");
        session.importSession.ElementParametre = QStringLiteral("Nitrates");
        CadreDEssai cadre;
        const OuvrirFiche ouvrir = ficheAjout(type);
        QVERIFY(ouvrir);
        ouvrir(session, cadre);
        QCOMPARE(cadre.ecrans.size(), 1);
        const std::unique_ptr<QWidget> ouverte(cadre.ecrans.first());
        QCOMPARE(QString::fromLatin1(ouverte->metaObject()->className()), fiche);
        QVERIFY(ouverte->windowTitle() != QLatin1String("INTERVENANT"));
        for (const QString &champ : std::as_const(champs)) {
            const qsizetype egal = champ.indexOf(u'=');
            QCOMPARE(champ.left(egal) + u'=' + texte(ouverte.get(), champ.left(egal)), champ);
        }
        // What the file says is no typing of the user's: closing asks nothing.
        ouverte->show();
        QVERIFY(ouverte->close());
        QVERIFY(dialogue.questions.isEmpty());
    }

    // A unit that differs by its case is not the file's.
    void uniteExacte()
    {
        const BaseDEssai base;
        DialogueDEssai dialogue;
        Session session(dialogue);
        session.donnees.ouvrir(base.chemin);
        session.importSession.typeImport = TypeImport::Physico;
        session.importSession.ElementUnite = QStringLiteral("MG/L");
        CadreDEssai cadre;
        ficheAjout(TypeElement::Parametre)(session, cadre);
        const std::unique_ptr<QWidget> ouverte(cadre.ecrans.first());
        QCOMPARE(texte(ouverte.get(), QStringLiteral("cmb_unite")), QString());
    }

    void sansFiche() { QVERIFY(!ficheAjout(TypeElement::Aucun)); }
};

QTEST_MAIN(TestFichesAjout)
#include "test_fiches_ajout.moc"
