// The boxes that users see: each is really opened, looked at and answered by a key or a button.
#include "frame/DialogueQt.h"
#include "frame/FiltreFichier.h"

#include <QtWidgets>

#include <QTest>

namespace
{
// Does something to the dialog that is about to open, once it is there.
template <typename T> void surBoite(const std::function<void(T *)> &geste)
{
    auto *timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, geste] {
        if (auto *boite = qobject_cast<T *>(QApplication::activeModalWidget())) {
            timer->stop();
            timer->deleteLater();
            geste(boite);
        }
    });
    timer->start(5);
}

QStringList boutons(const QMessageBox *boite)
{
    QStringList textes;
    const QList<QAbstractButton *> liste = boite->buttons();
    for (const QAbstractButton *bouton : liste)
        textes << bouton->text();
    textes.sort();
    return textes;
}

const QList<Reponse> OUI_NON = {Reponse::Oui, Reponse::Non};
} // namespace

class TestDialogueQt : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void message()
    {
        DialogueQt dialogue;
        bool vu = false;
        surBoite<QMessageBox>([&](QMessageBox *boite) {
            vu = true;
            QCOMPARE(boite->text(), QStringLiteral("Une <b>station</b>\ninconnue"));
            QCOMPARE(boite->textFormat(), Qt::PlainText);
            QCOMPARE(boite->windowTitle(), QStringLiteral("Attention"));
            QCOMPARE(boite->icon(), QMessageBox::Warning);
            QCOMPARE(boutons(boite), QStringList{QStringLiteral("OK")});
            QTest::keyClick(boite, Qt::Key_Return);
        });
        dialogue.message(QStringLiteral("Une <b>station</b>\ninconnue"), QStringLiteral("Attention"),
                         Icone::Exclamation);
        QVERIFY(vu);
    }

    void question_data()
    {
        QTest::addColumn<int>("touche");
        QTest::addColumn<int>("defaut");
        QTest::addColumn<int>("reponse");
        const auto cas = [](const char *nom, int touche, Reponse defaut, Reponse reponse) {
            QTest::newRow(nom) << touche << static_cast<int>(defaut) << static_cast<int>(reponse);
        };
        cas("Entrée, Oui par défaut", Qt::Key_Return, Reponse::Oui, Reponse::Oui);
        cas("Entrée, Non par défaut", Qt::Key_Return, Reponse::Non, Reponse::Non);
        cas("Échap", Qt::Key_Escape, Reponse::Oui, Reponse::Non);
        cas("fermée", 0, Reponse::Oui, Reponse::Non);
    }
    void question()
    {
        QFETCH(int, touche);
        QFETCH(int, defaut);
        QFETCH(int, reponse);
        DialogueQt dialogue;
        surBoite<QMessageBox>([&](QMessageBox *boite) {
            QCOMPARE(boutons(boite), QStringList({QStringLiteral("&Non"), QStringLiteral("&Oui")}));
            if (touche)
                QTest::keyClick(boite, static_cast<Qt::Key>(touche));
            else
                boite->close();
        });
        const Reponse rendue = dialogue.question(QStringLiteral("Continuer ?"), QStringLiteral("Question"),
                                                 OUI_NON, static_cast<Reponse>(defaut), Icone::Question);
        QCOMPARE(static_cast<int>(rendue), reponse);
    }

    void questionParBouton()
    {
        DialogueQt dialogue;
        surBoite<QMessageBox>([](QMessageBox *boite) {
            for (QAbstractButton *bouton : boite->buttons())
                if (bouton->text() == QLatin1String("Annuler"))
                    bouton->click();
        });
        QCOMPARE(dialogue.question(QStringLiteral("?"), QString(),
                                   {Reponse::Oui, Reponse::Non, Reponse::Annuler}, Reponse::Oui,
                                   Icone::Question),
                 Reponse::Annuler);
    }

    void refus()
    {
        QCOMPARE(DialogueQt::refus(OUI_NON), Reponse::Non);
        QCOMPARE(DialogueQt::refus({Reponse::OK, Reponse::Annuler}), Reponse::Annuler);
        QCOMPARE(DialogueQt::refus({Reponse::OK}), Reponse::OK);
    }

    void ouvrirUnFichier()
    {
        QTemporaryDir dossier;
        const QString fichier = dossier.filePath(QStringLiteral("étude.mdb"));
        QFile vide(fichier);
        QVERIFY(vide.open(QIODevice::WriteOnly));
        vide.close();
        DialogueQt dialogue;
        DemandeFichier demande;
        demande.titre = QStringLiteral("Choisissez");
        demande.filtre = QStringLiteral("Access (*.mdb)|*.mdb");
        demande.dossierInitial = dossier.path();
        surBoite<QFileDialog>([&](QFileDialog *boite) {
            QCOMPARE(boite->windowTitle(), QStringLiteral("Choisissez"));
            QCOMPARE(boite->directory().canonicalPath(), QDir(dossier.path()).canonicalPath());
            QCOMPARE(boite->labelText(QFileDialog::Accept), QStringLiteral("&Ouvrir"));
            QCOMPARE(boite->labelText(QFileDialog::Reject), QStringLiteral("Annuler"));
            QCOMPARE(boite->nameFilters(), QStringList{QStringLiteral("Access (*.mdb) (*.mdb)")});
            QVERIFY(boite->testOption(QFileDialog::HideNameFilterDetails));
            boite->selectFile(fichier);
            QMetaObject::invokeMethod(boite, "accept");
        });
        const std::optional<QString> choisi = dialogue.choisirFichier(demande);
        QVERIFY(choisi);
        QCOMPARE(QFileInfo(*choisi).canonicalFilePath(), QFileInfo(fichier).canonicalFilePath());

        surBoite<QFileDialog>([](QFileDialog *boite) { boite->reject(); });
        QVERIFY(!dialogue.choisirFichier(demande));
        // A folder that is not there: the dialog opens elsewhere.
        demande.dossierInitial = dossier.filePath(QStringLiteral("absent/"));
        surBoite<QFileDialog>([](QFileDialog *boite) {
            QVERIFY(boite->directory().exists());
            boite->reject();
        });
        QVERIFY(!dialogue.choisirFichier(demande));
    }

    void enregistrerUnFichier()
    {
        QTemporaryDir dossier;
        DialogueQt dialogue;
        DemandeFichier demande;
        demande.titre = QStringLiteral("Saisissez le nom du fichier à créer");
        demande.filtre = QStringLiteral("Excel (*.xls)|*.xls");
        demande.dossierInitial = dossier.path();
        demande.extensionDefaut = QStringLiteral("xls");
        demande.enregistrer = true;
        surBoite<QFileDialog>([&](QFileDialog *boite) {
            QCOMPARE(boite->acceptMode(), QFileDialog::AcceptSave);
            QVERIFY(!boite->testOption(QFileDialog::DontConfirmOverwrite));
            boite->findChild<QLineEdit *>()->setText(QStringLiteral("rapport"));
            QMetaObject::invokeMethod(boite, "accept");
        });
        QCOMPARE(dialogue.choisirFichier(demande).value_or(QString()),
                 dossier.filePath(QStringLiteral("rapport.xls")));
    }

    void extensionDuFiltreChoisi()
    {
        QTemporaryDir dossier;
        DialogueQt dialogue;
        DemandeFichier demande;
        demande.filtre = QStringLiteral("Excel (*.xls)|*.xls|Excel 2007 (*.xlsx)|*.xlsx|Tous (*.*)|*.*");
        demande.dossierInitial = dossier.path();
        demande.nomPropose = QStringLiteral("rapport.xls");
        demande.extensionDefaut = QStringLiteral("xls");
        demande.enregistrer = true;
        const auto choisirXlsx = [](QFileDialog *boite, const QString &tape) {
            auto *types = boite->findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
            QTest::keyClick(types, Qt::Key_Down);
            QCOMPARE(types->currentIndex(), 1);
            if (!tape.isEmpty())
                boite->findChild<QLineEdit *>()->setText(tape);
            QMetaObject::invokeMethod(boite, "accept");
        };
        surBoite<QFileDialog>([&](QFileDialog *boite) { choisirXlsx(boite, {}); });
        QCOMPARE(dialogue.choisirFichier(demande).value_or(QString()),
                 dossier.filePath(QStringLiteral("rapport.xlsx")));
        surBoite<QFileDialog>([&](QFileDialog *boite) { choisirXlsx(boite, QStringLiteral("bilan")); });
        QCOMPARE(dialogue.choisirFichier(demande).value_or(QString()),
                 dossier.filePath(QStringLiteral("bilan.xlsx")));
        QCOMPARE(extensionDuFiltre(QStringLiteral("Tous (*.*) (*)")), QString());
        QCOMPARE(extensionDuFiltre(QStringLiteral("Classeurs (*.xlsx *.ods)")), QStringLiteral("xlsx"));
    }

    void couleur()
    {
        DialogueQt dialogue;
        surBoite<QColorDialog>([](QColorDialog *boite) {
            QCOMPARE(boite->currentColor(), QColor(10, 20, 30));
            boite->setCurrentColor(QColor(200, 100, 50));
            boite->accept();
        });
        QVERIFY(dialogue.choisirCouleur({10, 20, 30}) == (Couleur{200, 100, 50}));
        surBoite<QColorDialog>([](QColorDialog *boite) { boite->reject(); });
        QVERIFY(!dialogue.choisirCouleur({10, 20, 30}));
    }

    // The program ends while a box is open: it is closed as by a refusal, and nothing opens any more.
    void finPendantUneBoite()
    {
        DialogueQt dialogue;
        surBoite<QMessageBox>([&](QMessageBox *) {
            QVERIFY(dialogue.enAttente());
            dialogue.cesser();
        });
        QCOMPARE(dialogue.question(QStringLiteral("?"), QString(), OUI_NON, Reponse::Oui, Icone::Question),
                 Reponse::Non);
        QVERIFY(!dialogue.enAttente());
        dialogue.message(QStringLiteral("jamais vu"), QString(), Icone::Aucune);
        QVERIFY(!dialogue.choisirFichier({}));
        QVERIFY(!dialogue.choisirCouleur({}));
        QVERIFY(!dialogue.ouvrirDocument(QStringLiteral("/rien")));
    }

    void sablier()
    {
        DialogueQt dialogue;
        dialogue.sablier(true);
        dialogue.sablier(true);
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        surBoite<QMessageBox>([](QMessageBox *boite) {
            QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
            boite->reject();
        });
        dialogue.message(QStringLiteral("x"), QString(), Icone::Aucune);
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        dialogue.sablier(false);
        QVERIFY(!QGuiApplication::overrideCursor());
        dialogue.sablier(false);
    }

    void fenetreDAttente()
    {
        DialogueQt dialogue;
        Progression &attente = dialogue.progression(FenetreProgression::FProgress);
        auto *fenetre = dynamic_cast<QDialog *>(&attente);
        QVERIFY(fenetre);
        QCOMPARE(fenetre->objectName(), QStringLiteral("FProgress"));
        QCOMPARE(QString::fromLatin1(fenetre->metaObject()->className()), QStringLiteral("FProgress"));
        auto *texte = fenetre->findChild<QLabel *>(QStringLiteral("lbl_texte"));
        auto *jauge = fenetre->findChild<QProgressBar *>();
        auto *annuler = fenetre->findChild<QPushButton *>(QStringLiteral("cmd_annuler"));
        attente.libelle(QStringLiteral("sans effet"));
        attente.maximum(10);
        QVERIFY(texte->text().isEmpty());
        attente.montrer(QStringLiteral("Import"), QStringLiteral("Lecture"));
        QVERIFY(fenetre->isVisible());
        QCOMPARE(fenetre->windowModality(), Qt::ApplicationModal);
        QCOMPARE(fenetre->windowTitle(), QStringLiteral("Import"));
        QCOMPARE(texte->text(), QStringLiteral("Lecture"));
        QVERIFY(!jauge->isVisible());
        attente.maximum(17);
        attente.valeur(5);
        QVERIFY(jauge->isVisible());
        QCOMPARE(jauge->value(), 5);
        attente.valeur(99);
        QCOMPARE(jauge->value(), 17);
        attente.maximum(0);
        QVERIFY(!jauge->isVisible());
        // It cannot be closed, nor cancelled before that is allowed.
        fenetre->close();
        QTest::keyClick(fenetre, Qt::Key_Escape);
        QVERIFY(fenetre->isVisible());
        QVERIFY(!attente.annulee());
        attente.permettreAnnulation(true);
        QTest::keyClick(fenetre, Qt::Key_Escape);
        QVERIFY(fenetre->isVisible());
        QVERIFY(attente.annulee());
        QVERIFY(!annuler->isEnabled());
        attente.cacher();
        QVERIFY(!fenetre->isVisible());
        attente.montrer(QStringLiteral("Encore"), QString());
        QVERIFY(!attente.annulee());
        QVERIFY(!annuler->isVisible());
        attente.cacher();
        QVERIFY(
            dynamic_cast<QDialog *>(&dialogue.progression(FenetreProgression::FProgress3))->objectName() ==
            QLatin1String("FProgress3"));
    }

    // A loop of many short steps yields to the events, at most every 40 ms.
    void cessions()
    {
        DialogueQt dialogue;
        Progression &attente = dialogue.progression(FenetreProgression::FProgress2);
        attente.montrer(QString(), QString());
        attente.maximum(1000);
        int evenements = 0;
        QTimer battement;
        QObject::connect(&battement, &QTimer::timeout, [&] { ++evenements; });
        battement.start(0);
        QElapsedTimer depuis;
        depuis.start();
        int pas = 0;
        while (depuis.elapsed() < 410)
            attente.valeur(++pas % 1000);
        attente.cacher();
        QVERIFY2(evenements >= 3 && evenements <= 20, qPrintable(QString::number(evenements)));
        QVERIFY(pas > 1000);
    }

    void filtres()
    {
        QCOMPARE(filtresQt(QStringLiteral("Excel (*.xls)|*.xls")),
                 QStringList{QStringLiteral("Excel (*.xls) (*.xls)")});
        QCOMPARE(
            filtresQt(QStringLiteral("Excel (.xls)|*.xls|Classeurs|*.xlsx; *.ods|Tous fichiers (*.*)|*.*")),
            QStringList({QStringLiteral("Excel (.xls) (*.xls)"), QStringLiteral("Classeurs (*.xlsx *.ods)"),
                         QStringLiteral("Tous fichiers (*.*) (*)")}));
        QVERIFY(filtresQt(QString()).isEmpty());
        QVERIFY(filtresQt(QStringLiteral("seul")).isEmpty());
    }
};

QTEST_MAIN(TestDialogueQt)
#include "test_dialogue_qt.moc"
