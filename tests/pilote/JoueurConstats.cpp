// The steps that check.
#include "frame/Demarrage.h"
#include "frame/MDIF_Mere.h"
#include "pilote/Cible.h"
#include "pilote/Constats.h"
#include "pilote/DialoguePilote.h"
#include "pilote/Joueur.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>

namespace
{
QString nomComplet(const Pas &pas)
{
    return pas.texte(0) + u'.' + pas.texte(1);
}

QString normaliser(QString texte)
{
    return texte.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

// One file under two spellings is one document.
QString canonique(const QString &chemin)
{
    const QString reel = QFileInfo(chemin).canonicalFilePath();
    return reel.isEmpty() ? QDir::cleanPath(chemin) : reel;
}
} // namespace

Joueur::Etat Joueur::termine(const Pas & /*pas*/)
{
    constexpr int DELAI_MS = 30000;
    if (m_programmeFini)
        return Etat::Fait;
    exiger(m_lance, QStringLiteral("le programme n'est pas démarré (pas « base »)"));
    exiger(!m_demarrage.pret() && !tropTard(DELAI_MS), QStringLiteral("le programme n'est pas terminé"));
    return Etat::Attend;
}

Joueur::Etat Joueur::messageAttendu(const QString *titre, const QString &texte)
{
    for (BoiteNotee &boite : m_dialogue.messages) {
        if (boite.verifiee)
            continue;
        if (titre)
            comparer(QStringLiteral("titre du message"), boite.titre, *titre);
        comparer(QStringLiteral("message"), boite.texte, normaliser(texte));
        boite.verifiee = true;
        return Etat::Fait;
    }
    exiger(!tropTard(delaiMs) && !m_programmeFini,
           QStringLiteral("message attendu, aucun n'est venu : « %1 »").arg(texte));
    return Etat::Attend;
}

Joueur::Etat Joueur::message(const Pas &pas)
{
    return messageAttendu(nullptr, pas.texte(0));
}

Joueur::Etat Joueur::messageTitre(const Pas &pas)
{
    return messageAttendu(&pas.arguments[0], pas.texte(1));
}

Joueur::Etat Joueur::question(const Pas &pas)
{
    for (QuestionNotee &posee : m_dialogue.questions) {
        if (posee.verifiee)
            continue;
        comparer(QStringLiteral("question"), posee.texte, normaliser(pas.texte(0)));
        comparer(QStringLiteral("réponse"), posee.reponse, pas.texte(1));
        posee.verifiee = true;
        return Etat::Fait;
    }
    exiger(!tropTard(delaiMs) && !m_programmeFini,
           QStringLiteral("question attendue, aucune n'est venue : « %1 »").arg(pas.texte(0)));
    return Etat::Attend;
}

Joueur::Etat Joueur::aucunMessage(const Pas & /*pas*/)
{
    for (const BoiteNotee &boite : std::as_const(m_dialogue.messages))
        exiger(boite.verifiee, QStringLiteral("message non vérifié : « %1 »").arg(boite.texte));
    return Etat::Fait;
}

Joueur::Etat Joueur::ouvert(const Pas &pas)
{
    const QString attendu = canonique(chemin(pas.texte(0)));
    QStringList remis;
    for (const QString &document : std::as_const(m_dialogue.ouverts))
        remis << canonique(document);
    exiger(remis.contains(attendu), QStringLiteral("document « %1 » attendu, remis : « %2 »")
                                        .arg(attendu, remis.join(QLatin1String(" ; "))));
    return Etat::Fait;
}

Joueur::Etat Joueur::fichierExiste(const Pas &pas)
{
    exiger(QFileInfo::exists(chemin(pas.texte(0))),
           QStringLiteral("le fichier %1 n'existe pas").arg(chemin(pas.texte(0))));
    return Etat::Fait;
}

Joueur::Etat Joueur::fichierAbsent(const Pas &pas)
{
    exiger(!QFileInfo::exists(chemin(pas.texte(0))),
           QStringLiteral("le fichier %1 existe").arg(chemin(pas.texte(0))));
    return Etat::Fait;
}

Joueur::Etat Joueur::ferme(const Pas &pas)
{
    const QWidget *form = Cible::formulaire(pas.texte(0));
    exiger(!form || !form->isVisible(), QStringLiteral("la fenêtre %1 est montrée").arg(pas.texte(0)));
    return Etat::Fait;
}

Joueur::Etat Joueur::verifier(const Pas &pas)
{
    comparer(nomComplet(pas), normaliser(Constats::texte(Cible::controle(pas.texte(0), pas.texte(1)))),
             normaliser(pas.texte(2)));
    return Etat::Fait;
}

Joueur::Etat Joueur::verifierCellule(const Pas &pas)
{
    comparer(QStringLiteral("%1, cellule %2, %3").arg(nomComplet(pas), pas.texte(2), pas.texte(3)),
             Constats::cellule(Cible::controle(pas.texte(0), pas.texte(1)), pas.nombre(2), pas.nombre(3)),
             pas.texte(4));
    return Etat::Fait;
}

Joueur::Etat Joueur::verifierLigne(const Pas &pas)
{
    comparer(QStringLiteral("%1, ligne %2").arg(nomComplet(pas), pas.texte(2)),
             Constats::ligne(Cible::controle(pas.texte(0), pas.texte(1)), pas.nombre(2)), pas.texte(3));
    return Etat::Fait;
}

Joueur::Etat Joueur::lignes(const Pas &pas)
{
    const int trouvees = Constats::lignes(Cible::controle(pas.texte(0), pas.texte(1)));
    exiger(trouvees == pas.nombre(2), QStringLiteral("%1 : %2 lignes attendues, %3 trouvées")
                                          .arg(nomComplet(pas), pas.texte(2))
                                          .arg(trouvees));
    return Etat::Fait;
}

Joueur::Etat Joueur::selection(const Pas &pas)
{
    const QStringList lues = Constats::selection(Cible::controle(pas.texte(0), pas.texte(1)));
    comparer(nomComplet(pas) + QStringLiteral(", lignes choisies"), lues.join(u'\n'), pas.texte(2));
    return Etat::Fait;
}

Joueur::Etat Joueur::coche(const Pas &pas)
{
    exiger(Constats::coche(Cible::controle(pas.texte(0), pas.texte(1))),
           nomComplet(pas) + QStringLiteral(" n'est pas coché"));
    return Etat::Fait;
}

Joueur::Etat Joueur::decoche(const Pas &pas)
{
    exiger(!Constats::coche(Cible::controle(pas.texte(0), pas.texte(1))),
           nomComplet(pas) + QStringLiteral(" est coché"));
    return Etat::Fait;
}

Joueur::Etat Joueur::actif(const Pas &pas)
{
    exiger(Cible::controle(pas.texte(0), pas.texte(1))->isEnabled(),
           nomComplet(pas) + QStringLiteral(" est désactivé"));
    return Etat::Fait;
}

Joueur::Etat Joueur::inactif(const Pas &pas)
{
    exiger(!Cible::controle(pas.texte(0), pas.texte(1))->isEnabled(),
           nomComplet(pas) + QStringLiteral(" est actif"));
    return Etat::Fait;
}

Joueur::Etat Joueur::visible(const Pas &pas)
{
    exiger(Cible::controle(pas.texte(0), pas.texte(1))->isVisible(),
           nomComplet(pas) + QStringLiteral(" est caché"));
    return Etat::Fait;
}

Joueur::Etat Joueur::invisible(const Pas &pas)
{
    exiger(!Cible::controle(pas.texte(0), pas.texte(1))->isVisible(),
           nomComplet(pas) + QStringLiteral(" est visible"));
    return Etat::Fait;
}

Joueur::Etat Joueur::menuActif(const Pas &pas)
{
    const QAction *action = entreeDeMenu(pas.texte(0));
    exiger(action->isVisible() && action->isEnabled(),
           QStringLiteral("l'entrée de menu %1 n'est pas active").arg(pas.texte(0)));
    return Etat::Fait;
}

Joueur::Etat Joueur::menuInactif(const Pas &pas)
{
    const QAction *action = entreeDeMenu(pas.texte(0));
    exiger(!action->isVisible() || !action->isEnabled(),
           QStringLiteral("l'entrée de menu %1 est active").arg(pas.texte(0)));
    return Etat::Fait;
}

Joueur::Etat Joueur::foyer(const Pas &pas)
{
    exiger(Constats::foyer(Cible::controle(pas.texte(0), pas.texte(1))),
           nomComplet(pas) + QStringLiteral(" n'a pas le foyer"));
    return Etat::Fait;
}

Joueur::Etat Joueur::titre(const Pas &pas)
{
    comparer(QStringLiteral("titre"), m_demarrage.fenetre()->windowTitle(), pas.texte(0));
    return Etat::Fait;
}

Joueur::Etat Joueur::titreFenetre(const Pas &pas)
{
    comparer(QStringLiteral("titre de ") + pas.texte(0), Cible::formulaireMontre(pas.texte(0))->windowTitle(),
             pas.texte(1));
    return Etat::Fait;
}

Joueur::Etat Joueur::capture(const Pas &pas)
{
    enregistrer(m_demarrage.fenetre(), pas.texte(0));
    return Etat::Fait;
}

Joueur::Etat Joueur::captureFenetre(const Pas &pas)
{
    enregistrer(Cible::formulaireMontre(pas.texte(0)), pas.texte(1));
    return Etat::Fait;
}

void Joueur::enregistrer(QWidget *fenetre, const QString &nom) const
{
    if (m_captures.isEmpty())
        return;
    const QString fichier = QDir(m_captures).filePath(nom);
    QDir().mkpath(QFileInfo(fichier).absolutePath());
    exiger(fenetre->grab().save(fichier), QStringLiteral("l'image %1 ne peut pas être écrite").arg(fichier));
}
