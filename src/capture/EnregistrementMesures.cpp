#include "capture/EnregistrementMesures.h"

#include "platform/Dialogue.h"

SuiteMesures enregistrerMesures(Dialogue &dialogue, const std::function<void()> &ecrire, const QString &fin)
{
    const auto oui = [&dialogue](const QString &question, const QString &titre) {
        return dialogue.question(question, titre, {Reponse::Oui, Reponse::Non}, Reponse::Oui,
                                 Icone::Question) == Reponse::Oui;
    };
    if (!oui(QStringLiteral("Etes-vous sûr de vouloir enregistrer ces informations?"),
             QStringLiteral("Confirmation"))) {
        dialogue.message(QStringLiteral("L'enregistrement est annulé"), QStringLiteral("Annulation"),
                         Icone::Information);
        return SuiteMesures::Annule;
    }
    ecrire();
    return oui(fin, QStringLiteral("Fin de l'enregistrement")) ? SuiteMesures::Autres : SuiteMesures::Fini;
}
