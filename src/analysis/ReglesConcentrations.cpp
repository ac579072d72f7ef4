#include "analysis/ReglesConcentrations.h"

#include "analysis/M_Concentration_OVRA.h"
#include "platform/Saisie.h"

namespace
{
QString carboneOrganique()
{
    return QString::fromUtf16(M_Concentration_OVRA::CARBONE_ORGANIQUE);
}
} // namespace

QString ReglesConcentrations::refusParametres(const QStringList &parametres, qsizetype fractions)
{
    if (parametres.size() > 2)
        return QStringLiteral("Vous ne pouvez pas sélectionner plus de deux paramètres. ");
    if (parametres.size() == 2 && fractions >= 2)
        return QStringLiteral("Vous avez sélectionné 2 fractions, vous ne pouvez pas sélectionner plus d'un "
                              "paramètre. ");
    return {};
}

QString ReglesConcentrations::refusFractions(const QStringList &fractions, const QStringList &parametres)
{
    if (fractions.size() > 2)
        return QStringLiteral("Vous ne pouvez pas sélectionner plus de deux fractions. ");
    if (fractions.size() == 2 && parametres.size() == 2 && parametres.contains(carboneOrganique()))
        return QStringLiteral(
            "Vous avez sélectionné 2 paramètres dont le carbone organique, vous ne pouvez pas "
            "sélectionner plus d'une fraction. ");
    return {};
}

bool ReglesConcentrations::demandeFraction(const QStringList &parametres)
{
    return parametres.contains(carboneOrganique());
}

std::optional<ReglesConcentrations::Refus> ReglesConcentrations::premierRefus(const Controles &controles,
                                                                              Commande commande)
{
    const bool avecRapport = commande != Commande::Graphique;
    const bool avecGraphique = commande != Commande::Rapport;
    if (controles.station.isEmpty())
        return Refus{QStringLiteral("Le code de la station doit être renseigné"), Champ::Station};
    if (controles.debut.isNull() || controles.fin.isNull())
        return Refus{QStringLiteral("La période doit être entièrement renseignée"),
                     controles.debut.isNull() ? Champ::DateDebut : Champ::DateFin};
    if (!avecRapport && controles.choix == ChoixParametres::Aucun)
        return Refus{QStringLiteral("Un choix entre un ou deux paramètre(s) doit être renseigné"),
                     Champ::ChoixParametres};
    if (avecRapport && controles.choix == ChoixParametres::Plusieurs)
        return Refus{QStringLiteral("Vous devez sélectionner un paramètre avant d'éditer un rapport."),
                     Champ::ChoixParametres};
    if (controles.parametres == 0)
        return Refus{QStringLiteral("Un paramètre doit être renseigné"), Champ::Parametre};
    if (avecRapport && controles.parametres > 1)
        return Refus{QStringLiteral("Un seul paramètre doit être renseigné"), Champ::Parametre};
    if (controles.fin < controles.debut)
        return Refus{
            QStringLiteral("Vous devez saisir une date de fin supérieure ou égale à la date de début"),
            Champ::DateFin};
    if (avecGraphique && controles.echelleMaximale) {
        if (controles.valeurEchelle.trimmed().isEmpty())
            return Refus{QStringLiteral("Vous devez saisir une valeur pour l'échelle maximale"),
                         Champ::Echelle};
        if (!Saisie::lireNombre(controles.valeurEchelle))
            return Refus{QStringLiteral("La saisie du nombre est incorrecte"), Champ::Echelle};
    }
    return std::nullopt;
}
