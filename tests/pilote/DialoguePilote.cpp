#include "pilote/DialoguePilote.h"

#include <QFileInfo>

namespace
{
QString nomIcone(Icone icone)
{
    switch (icone) {
    case Icone::Information:
        return QStringLiteral("Information");
    case Icone::Question:
        return QStringLiteral("Question");
    case Icone::Exclamation:
        return QStringLiteral("Exclamation");
    case Icone::Critique:
        return QStringLiteral("Critique");
    case Icone::Aucune:
        break;
    }
    return QStringLiteral("Aucune");
}

QString nomReponse(Reponse reponse)
{
    switch (reponse) {
    case Reponse::OK:
        return QStringLiteral("OK");
    case Reponse::Annuler:
        return QStringLiteral("Annuler");
    case Reponse::Oui:
        return QStringLiteral("Oui");
    case Reponse::Non:
        break;
    }
    return QStringLiteral("Non");
}

QString normaliser(QString texte)
{
    return texte.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}
} // namespace

void DialoguePilote::noter(const QStringList &champs) const
{
    ecrire(champs.join(QLatin1String(" | ")).replace(u'\n', QLatin1String("\\n")));
}

void DialoguePilote::message(const QString &texte, const QString &titre, Icone icone)
{
    if (cesse())
        return;
    messages.append({titre, normaliser(texte)});
    noter({QStringLiteral("MESSAGE"), nomIcone(icone), titre, normaliser(texte)});
}

Reponse DialoguePilote::question(const QString &texte, const QString &titre, const QList<Reponse> &choix,
                                 Reponse /*defaut*/, Icone /*icone*/)
{
    if (cesse())
        return refus(choix);
    Reponse rendue = refus(choix);
    if (reponses.isEmpty()) {
        imprevu(QStringLiteral("question sans réponse prévue : ") + normaliser(texte));
    } else {
        const QString voulue = reponses.dequeue();
        const auto trouvee = std::find_if(choix.begin(), choix.end(),
                                          [&](Reponse reponse) { return nomReponse(reponse) == voulue; });
        if (trouvee != choix.end())
            rendue = *trouvee;
        else
            imprevu(QStringLiteral("la question n'offre pas la réponse « %1 » : %2")
                        .arg(voulue, normaliser(texte)));
    }
    questions.append({titre, normaliser(texte), nomReponse(rendue)});
    noter({QStringLiteral("QUESTION"), titre, normaliser(texte), nomReponse(rendue)});
    return rendue;
}

std::optional<QString> DialoguePilote::choisirFichier(const DemandeFichier &demande)
{
    if (cesse())
        return std::nullopt;
    std::optional<QString> reponse;
    if (fichiers.isEmpty())
        imprevu(QStringLiteral("choix de fichier sans réponse prévue : ") + demande.titre);
    else
        reponse = fichiers.dequeue();
    noter({QStringLiteral("FICHIER"), demande.titre, demande.filtre,
           reponse.value_or(QStringLiteral("annuler"))});
    if (!reponse)
        return std::nullopt;
    QString chemin = resoudre(*reponse);
    if (demande.enregistrer && !demande.extensionDefaut.isEmpty() && QFileInfo(chemin).suffix().isEmpty())
        chemin += u'.' + demande.extensionDefaut;
    return chemin;
}

std::optional<Couleur> DialoguePilote::choisirCouleur(const Couleur & /*initiale*/)
{
    if (cesse())
        return std::nullopt;
    if (couleurs.isEmpty()) {
        imprevu(QStringLiteral("choix de couleur sans réponse prévue"));
        return std::nullopt;
    }
    return couleurs.dequeue();
}

bool DialoguePilote::ouvrirDocument(const QString &cheminHote)
{
    if (cesse())
        return false;
    ouverts << cheminHote;
    noter({QStringLiteral("OUVRIR"), cheminHote});
    return true;
}
