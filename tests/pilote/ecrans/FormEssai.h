// A small form with one control of each kind, to be played with.
#pragma once

#include <QtWidgets>

class F_Essai : public QWidget
{
    Q_OBJECT
public:
    QLineEdit *texte = champ<QLineEdit>("txt_nom");
    QLineEdit *suivant = champ<QLineEdit>("txt_suivant");
    QComboBox *combo = champ<QComboBox>("cmb_station");
    QComboBox *comboLibre = champ<QComboBox>("cmb_libre");
    QDateEdit *date = champ<QDateEdit>("txt_date");
    QPlainTextEdit *notes = champ<QPlainTextEdit>("txt_notes");
    QListWidget *liste = champ<QListWidget>("lst_une");
    QListWidget *listeMultiple = champ<QListWidget>("lst_plusieurs");
    QListWidget *listeEtendue = champ<QListWidget>("lst_etendue");
    QCheckBox *caseACocher = champ<QCheckBox>("chk_usuel");
    QRadioButton *option0 = champ<QRadioButton>("opt_annee_0");
    QRadioButton *option1 = champ<QRadioButton>("opt_annee_1");
    QPushButton *bouton = champ<QPushButton>("cmd_valider_0");
    QPushButton *inerte = champ<QPushButton>("cmd_inerte");
    QPushButton *cache = champ<QPushButton>("cmd_cache");
    QLabel *libelle = champ<QLabel>("lbl_titre");
    QGroupBox *groupe = champ<QGroupBox>("fra_groupe");
    QTabWidget *onglets = champ<QTabWidget>("SSTab1");
    QTableWidget *grille = champ<QTableWidget>("grd_mesures");
    QWidget *promu = champ<QWidget>("sel_station");
    QLineEdit *champPromu = nullptr;

    int clics = 0;
    int touchesEchap = 0;
    QStringList choix;     // rows picked in cmb_station
    QStringList doubles;   // rows double clicked
    QStringList finissees; // fields left, by name
    std::function<void()> auClic;

    F_Essai()
    {
        setObjectName(QStringLiteral("essai"));
        setWindowTitle(QStringLiteral("Un essai"));
        combo->addItems({QStringLiteral("Amont"), QStringLiteral("Aval"), QStringLiteral("Étang")});
        combo->setCurrentIndex(-1);
        static_cast<QStandardItemModel *>(combo->model())->item(1)->setEnabled(false);
        comboLibre->setEditable(true);
        comboLibre->addItems({QStringLiteral("un"), QStringLiteral("deux")});
        date->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
        date->setCalendarPopup(true);
        for (QListWidget *l : {liste, listeMultiple, listeEtendue})
            l->addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        listeMultiple->setSelectionMode(QAbstractItemView::MultiSelection);
        listeEtendue->setSelectionMode(QAbstractItemView::ExtendedSelection);
        option0->setChecked(true);
        bouton->setText(QStringLiteral("&Valider"));
        inerte->setEnabled(false);
        cache->hide();
        libelle->setText(QStringLiteral("Débit (l/s)"));
        groupe->setTitle(QStringLiteral("&Période"));
        onglets->addTab(new QWidget, QStringLiteral("&Données"));
        onglets->addTab(new QWidget, QStringLiteral("Flux"));
        grille->setRowCount(2);
        grille->setColumnCount(2);
        grille->setItem(0, 0, new QTableWidgetItem(QStringLiteral("12")));
        auto *fige = new QTableWidgetItem(QStringLiteral("figé"));
        fige->setFlags(Qt::ItemIsEnabled);
        grille->setItem(1, 1, fige);
        auto *dansCellule = new QToolButton;
        grille->setCellWidget(0, 1, dansCellule);
        connect(dansCellule, &QToolButton::clicked, this, [this] { ++clics; });
        auto *effacer = new QShortcut(QKeySequence(Qt::Key_Delete), grille);
        effacer->setContext(Qt::WidgetShortcut);
        connect(effacer, &QShortcut::activated, this, [this] { grille->removeRow(grille->currentRow()); });
        champPromu = new QLineEdit(promu);
        promu->setMinimumSize(80, 30);

        connect(bouton, &QPushButton::clicked, this, [this] {
            ++clics;
            if (auClic)
                auClic();
        });
        connect(combo, &QComboBox::textActivated, this, [this](const QString &t) { choix << t; });
        connect(liste, &QListWidget::itemDoubleClicked, this,
                [this](QListWidgetItem *element) { doubles << element->text(); });
        for (QLineEdit *l : {texte, suivant})
            connect(l, &QLineEdit::editingFinished, this, [this, l] { finissees << l->objectName(); });
        auto *echap = new QShortcut(QKeySequence(Qt::Key_Escape), this);
        connect(echap, &QShortcut::activated, this, [this] { ++touchesEchap; });
        resize(600, 900);
    }

private:
    template <typename T> T *champ(const char *nom)
    {
        if (!layout())
            new QVBoxLayout(this);
        auto *w = new T;
        w->setObjectName(QString::fromLatin1(nom));
        layout()->addWidget(w);
        return w;
    }
};
