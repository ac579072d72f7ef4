// The steps that act.
#include "frame/Demarrage.h"
#include "frame/MDIF_Mere.h"
#include "pilote/Cible.h"
#include "pilote/DialoguePilote.h"
#include "pilote/Gestes.h"
#include "pilote/Joueur.h"

#include <QAction>

Joueur::Etat Joueur::quitter(const Pas & /*pas*/)
{
    QAction *action = entreeDeMenu(QStringLiteral("m_quitter"));
    if (!degagee(m_demarrage.fenetre()))
        return Etat::Attend;
    m_dialogue.reponses.prepend(QStringLiteral("Oui"));
    suivant();
    Gestes::menu(action);
    return Etat::Fait;
}

Joueur::Etat Joueur::menu(const Pas &pas)
{
    QAction *action = entreeDeMenu(pas.texte(0));
    exiger(action->isVisible(), QStringLiteral("l'entrée de menu %1 est cachée").arg(pas.texte(0)));
    exiger(action->isEnabled(), QStringLiteral("l'entrée de menu %1 est désactivée").arg(pas.texte(0)));
    if (!degagee(m_demarrage.fenetre()))
        return Etat::Attend;
    suivant();
    Gestes::menu(action);
    return Etat::Fait;
}

Joueur::Etat Joueur::attendre(const Pas &pas)
{
    constexpr int PAR_DEFAUT_S = 30;
    const QWidget *form = Cible::formulaire(pas.texte(0));
    if (form && form->isVisible())
        return Etat::Fait;
    const int secondes = pas.arguments.size() > 1 ? pas.nombre(1) : PAR_DEFAUT_S;
    exiger(!tropTard(secondes * 1000),
           QStringLiteral("la fenêtre %1 n'est pas montrée après %2 s").arg(pas.texte(0)).arg(secondes));
    return Etat::Attend;
}

Joueur::Etat Joueur::saisir(const Pas &pas)
{
    // The field is left once what the typing has set going, a list of proposals say, is over.
    if (m_tape)
        return geste(pas, Gestes::quitter);
    if (QWidget *controle = prete(pas)) {
        m_tape = true;
        m_depuis.start();
        Gestes::taper(controle, pas.texte(2));
    }
    return Etat::Attend;
}

Joueur::Etat Joueur::taper(const Pas &pas)
{
    return geste(pas, [&](QWidget *controle) { Gestes::taper(controle, pas.texte(2)); });
}

Joueur::Etat Joueur::touche(const Pas &pas)
{
    return geste(pas, [&](QWidget *controle) {
        m_enSuspens = true;
        Gestes::touche(controle, pas.texte(2));
    });
}

Joueur::Etat Joueur::choisir(const Pas &pas)
{
    return geste(pas, [&](QWidget *controle) { Gestes::choisir(controle, pas.texte(2)); });
}

Joueur::Etat Joueur::deselectionner(const Pas &pas)
{
    return geste(pas, [&](QWidget *controle) { Gestes::deselectionner(controle, pas.texte(2)); });
}

Joueur::Etat Joueur::doubleClic(const Pas &pas)
{
    return geste(pas, [&](QWidget *controle) { Gestes::doubleClic(controle, pas.texte(2)); });
}

Joueur::Etat Joueur::cocher(const Pas &pas)
{
    return geste(pas, [](QWidget *controle) { Gestes::cocher(controle, true); });
}

Joueur::Etat Joueur::decocher(const Pas &pas)
{
    return geste(pas, [](QWidget *controle) { Gestes::cocher(controle, false); });
}

Joueur::Etat Joueur::cliquer(const Pas &pas)
{
    return geste(pas, Gestes::cliquer);
}

Joueur::Etat Joueur::onglet(const Pas &pas)
{
    return geste(pas, [&](QWidget *controle) { Gestes::onglet(controle, pas.texte(2)); });
}

Joueur::Etat Joueur::cellule(const Pas &pas)
{
    return geste(pas, [&](QWidget *controle) {
        m_enSuspens = true;
        Gestes::cellule(controle, pas.nombre(2), pas.nombre(3), pas.texte(4));
    });
}

Joueur::Etat Joueur::boutonCellule(const Pas &pas)
{
    return geste(pas,
                 [&](QWidget *controle) { Gestes::boutonCellule(controle, pas.nombre(2), pas.nombre(3)); });
}

Joueur::Etat Joueur::supprimerLigne(const Pas &pas)
{
    return geste(pas, [&](QWidget *controle) { Gestes::supprimerLigne(controle, pas.nombre(2)); });
}

Joueur::Etat Joueur::fermer(const Pas &pas)
{
    QWidget *form = Cible::formulaireMontre(pas.texte(0));
    if (!degagee(form))
        return Etat::Attend;
    suivant();
    Gestes::fermer(form);
    return Etat::Fait;
}
