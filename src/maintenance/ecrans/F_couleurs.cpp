#include "maintenance/ecrans/F_couleurs.h"

#include "frame/Session.h"
#include "maintenance/M_Couleurs.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace
{
constexpr int COLONNES = 8;
constexpr int COTE = 36; // side of a swatch, pixels
} // namespace

F_couleurs::F_couleurs(Session &session, Cadre &cadre, QWidget *parent) : Ecran(session, cadre, parent)
{
    setObjectName(QStringLiteral("F_couleurs"));
    setWindowTitle(QStringLiteral("Couleurs"));

    auto *groupe = new QGroupBox(QStringLiteral("Couleurs pour Multistations et Evolution"));
    auto *grille = new QGridLayout(groupe);
    grille->setSpacing(6);
    for (int i = 0; i < static_cast<int>(m_echantillons.size()); ++i) {
        auto *echantillon = new QToolButton;
        echantillon->setObjectName(QStringLiteral("Label1_%1").arg(i));
        echantillon->setFixedSize(COTE, COTE);
        echantillon->setIconSize(QSize(COTE - 8, COTE - 8));
        echantillon->setFocusPolicy(Qt::StrongFocus);
        connect(echantillon, &QToolButton::clicked, this, [this, i] { choisir(i); });
        grille->addWidget(echantillon, i / COLONNES, i % COLONNES);
        m_echantillons[static_cast<size_t>(i)] = echantillon;
    }

    auto *aide = new QLabel(QStringLiteral("Cliquez sur une couleur pour la changer."));
    auto *boutons = new QDialogButtonBox;
    auto *Command2 = boutons->addButton(QStringLiteral("&Valider"), QDialogButtonBox::AcceptRole);
    Command2->setObjectName(QStringLiteral("Command2"));
    auto *Command1 = boutons->addButton(QStringLiteral("&Annuler"), QDialogButtonBox::RejectRole);
    Command1->setObjectName(QStringLiteral("Command1"));
    connect(Command2, &QPushButton::clicked, this, &F_couleurs::valider);
    connect(Command1, &QPushButton::clicked, this, &Ecran::fermer);

    auto *disposition = new QVBoxLayout(this);
    disposition->setContentsMargins(12, 12, 12, 12);
    disposition->setSpacing(12);
    disposition->addWidget(aide);
    disposition->addWidget(groupe);
    disposition->addStretch();
    disposition->addWidget(boutons);

    preparer(Command2, Command1);
    charger();
}

void F_couleurs::charger()
{
    executer([this] {
        Requete palette = session().donnees.executer(
            QStringLiteral("SELECT ordre, R, G, B FROM COULEURS_GRAPH ORDER BY ordre"));
        while (palette.suivant()) {
            const int position = palette.valeur(0).toInt() - 1;
            if (position < 0 || position >= static_cast<int>(m_couleurs.size()))
                continue;
            m_couleurs[static_cast<size_t>(position)] = {palette.valeur(1).toInt(), palette.valeur(2).toInt(),
                                                         palette.valeur(3).toInt()};
        }
    });
    for (int i = 0; i < static_cast<int>(m_echantillons.size()); ++i)
        peindre(i);
}

void F_couleurs::peindre(int position)
{
    const Couleur &couleur = m_couleurs[static_cast<size_t>(position)];
    QToolButton *echantillon = m_echantillons[static_cast<size_t>(position)];
    QPixmap image(COTE - 8, COTE - 8);
    image.fill(QColor(couleur.r & 255, couleur.g & 255, couleur.b & 255));
    echantillon->setIcon(image);
    const QString valeur = QStringLiteral("Couleur %1 : rouge %2, vert %3, bleu %4")
                               .arg(position + 1)
                               .arg(couleur.r)
                               .arg(couleur.g)
                               .arg(couleur.b);
    echantillon->setToolTip(valeur);
    echantillon->setAccessibleName(valeur);
}

void F_couleurs::choisir(int position)
{
    const auto i = static_cast<size_t>(position);
    const std::optional<Couleur> choisie = session().dialogue.choisirCouleur(m_couleurs[i]);
    if (!choisie)
        return;
    m_couleurs[i] = *choisie;
    m_modifiees[i] = true;
    peindre(position);
}

void F_couleurs::valider()
{
    executer([this] {
        Requete mise(session().donnees.Connect_Bdd(),
                     QStringLiteral("UPDATE COULEURS_GRAPH SET R = ?, G = ?, B = ? WHERE ordre = ?"));
        for (size_t i = 0; i < m_couleurs.size(); ++i)
            if (m_modifiees[i])
                mise.executer({m_couleurs[i].r, m_couleurs[i].g, m_couleurs[i].b, static_cast<int>(i) + 1});
        mise.finir();
        const M_Couleurs::Palette palette = M_Couleurs::ChargerCouleurs(session().donnees);
        session().CouleurR = palette.R;
        session().CouleurG = palette.G;
        session().CouleurB = palette.B;
        fermer();
    });
}
