#include "widgets/ChoixStation.h"

#include "widgets/LectureSeule.h"
#include "widgets/ZoneCombo.h"

#include <QCheckBox>
#include <QCollator>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

ChoixStation::ChoixStation(QWidget *parent)
    : QWidget(parent), m_code(new ZoneCombo(this)), m_usuel(new ZoneCombo(this)), m_nom(new QLineEdit(this)),
      m_afficherUsuel(new QCheckBox(this)), m_codeAffiche(new QLabel(this))
{
    auto *libelleCode = new QLabel(QStringLiteral("C&ode Station :"), this);
    libelleCode->setBuddy(m_code);
    m_code->setAccessibleName(QStringLiteral("Code Station :"));
    m_code->setMinimumContentsLength(9);
    m_code->lineEdit()->setPlaceholderText(QStringLiteral("Code ou nom"));
    auto *libelleUsuel = new QLabel(QStringLiteral("Code &Usuel :"), this);
    libelleUsuel->setBuddy(m_usuel);
    m_usuel->setAccessibleName(QStringLiteral("Code Usuel :"));
    m_usuel->setMinimumContentsLength(9);
    auto *libelleNom = new QLabel(QStringLiteral("Nom :"), this);
    libelleNom->setBuddy(m_nom);
    LectureSeule::appliquer(m_nom);
    m_afficherUsuel->setText(QStringLiteral("Afficher le code usuel à la place du code station"));
    m_codeAffiche->setForegroundRole(QPalette::PlaceholderText);

    auto *grille = new QGridLayout(this);
    grille->setContentsMargins(0, 0, 0, 0);
    grille->addWidget(libelleCode, 0, 0, Qt::AlignRight | Qt::AlignVCenter);
    grille->addWidget(m_code, 0, 1);
    grille->addWidget(libelleUsuel, 0, 2, Qt::AlignRight | Qt::AlignVCenter);
    grille->addWidget(m_usuel, 0, 3);
    grille->addWidget(libelleNom, 1, 0, Qt::AlignRight | Qt::AlignVCenter);
    grille->addWidget(m_nom, 1, 1, 1, 3);
    grille->addWidget(m_afficherUsuel, 2, 1, 1, 3);
    grille->addWidget(m_codeAffiche, 3, 1, 1, 3);
    grille->setColumnStretch(1, 1);
    grille->setColumnStretch(3, 1);

    connect(m_code, &ZoneCombo::choixChange, this, [this] {
        montrer(m_code->code());
        Q_EMIT stationChangee();
    });
    connect(m_usuel, &ZoneCombo::choixChange, this, [this] {
        montrer(m_usuel->code());
        Q_EMIT stationChangee();
    });
    connect(m_afficherUsuel, &QCheckBox::toggled, this, &ChoixStation::montrerCodeAffiche);
    montrerCodeAffiche();
}

void ChoixStation::remplir(const QList<StationProposee> &stations)
{
    m_stations = stations;
    ListeChoix codes;
    ListeChoix usuels;
    for (const StationProposee &station : stations) {
        codes << Choix{station.code, station.code, station.nom};
        if (!station.usuel.isEmpty())
            usuels << Choix{station.code, station.usuel, station.nom};
    }
    QCollator ordre(QLocale(QLocale::French, QLocale::France));
    ordre.setNumericMode(true);
    std::stable_sort(usuels.begin(), usuels.end(), [&ordre](const Choix &a, const Choix &b) {
        return ordre.compare(a.texte, b.texte) < 0;
    });
    m_code->remplir(codes);
    m_usuel->remplir(usuels);
    montrer(m_code->code());
}

QString ChoixStation::code() const
{
    return m_code->code();
}

QString ChoixStation::nom() const
{
    return m_nom->text();
}

bool ChoixStation::afficherUsuel() const
{
    return m_afficherUsuel->isChecked();
}

void ChoixStation::choisir(const QString &code)
{
    montrer(code);
}

void ChoixStation::vider()
{
    m_afficherUsuel->setChecked(false);
    montrer(QString());
}

// Shows a station in all three controls.
void ChoixStation::montrer(const QString &code)
{
    m_code->choisir(code);
    m_usuel->choisir(code);
    QString nom;
    for (const StationProposee &station : std::as_const(m_stations)) {
        if (!code.isEmpty() && station.code == code)
            nom = station.nom;
    }
    m_nom->setText(nom);
    m_nom->setToolTip(nom);
    m_nom->setCursorPosition(0);
    montrerCodeAffiche();
}

// Says beforehand which code the documents will bear.
void ChoixStation::montrerCodeAffiche()
{
    if (m_code->estVide())
        m_codeAffiche->clear();
    else if (!m_afficherUsuel->isChecked())
        m_codeAffiche->setText(QStringLiteral("Code porté sur les documents : %1").arg(m_code->texte()));
    else if (m_usuel->estVide())
        m_codeAffiche->setText(
            QStringLiteral("Pas de code usuel : les documents porteront %1").arg(m_code->texte()));
    else
        m_codeAffiche->setText(QStringLiteral("Code porté sur les documents : %1").arg(m_usuel->texte()));
}

QString ChoixStation::nomCode() const
{
    return m_code->objectName();
}

QString ChoixStation::nomUsuel() const
{
    return m_usuel->objectName();
}

QString ChoixStation::nomStation() const
{
    return m_nom->objectName();
}

QString ChoixStation::nomAffichageUsuel() const
{
    return m_afficherUsuel->objectName();
}

void ChoixStation::setNomCode(const QString &nom)
{
    m_code->setObjectName(nom);
}

void ChoixStation::setNomUsuel(const QString &nom)
{
    m_usuel->setObjectName(nom);
}

void ChoixStation::setNomStation(const QString &nom)
{
    m_nom->setObjectName(nom);
}

void ChoixStation::setNomAffichageUsuel(const QString &nom)
{
    m_afficherUsuel->setObjectName(nom);
}
