#include "exchange/ArretImport.h"

namespace
{
// A box cannot show the 100 000 characters that a cell may hold.
constexpr int LONGUEUR_CITEE = 300;
} // namespace

ArretImport ArretImport::faute(const QString &debut)
{
    ArretImport arret;
    arret.texte = debut + QStringLiteral(" Corrigez votre fichier puis recommencer l'import des données.");
    return arret;
}

ArretImport ArretImport::tropLong(const QString &debut, const QString &valeur, int maximum)
{
    return faute(debut + citer(valeur) +
                 QStringLiteral("' ne doit contenir que %1 caractères au maximum.").arg(maximum));
}

ArretImport ArretImport::elementVide(const QString &libelleAction, TypeElement type)
{
    ArretImport arret;
    arret.genre = Genre::ElementVide;
    arret.libelleAction = libelleAction;
    arret.type = type;
    return arret;
}

ArretImport ArretImport::elementInconnu(TypeElement type, const QString &nom, const QString &code)
{
    ArretImport arret;
    arret.genre = Genre::ElementInconnu;
    arret.libelleAction = libelleElement(type);
    arret.type = type;
    arret.nom = nom;
    arret.code = code;
    return arret;
}

QString citer(const QString &valeur)
{
    return valeur.size() <= LONGUEUR_CITEE ? valeur : valeur.left(LONGUEUR_CITEE) + QChar(0x2026);
}

QString libelleElement(TypeElement type)
{
    switch (type) {
    case TypeElement::StationQualite:
        return QStringLiteral("station qualité ");
    case TypeElement::Parametre:
        return QStringLiteral("paramètre ");
    case TypeElement::Gestionnaire:
        return QStringLiteral("gestionnaire ");
    case TypeElement::Laboratoire:
        return QStringLiteral("laboratoire ");
    case TypeElement::Reseau:
        return QStringLiteral("réseau ");
    case TypeElement::Preleveur:
        return QStringLiteral(" préleveur ");
    case TypeElement::StationHydro:
        return QStringLiteral("station hydrométrique ");
    case TypeElement::StationPluvio:
        return QStringLiteral("station pluvio ");
    case TypeElement::Commune:
        return QStringLiteral(" commune ");
    case TypeElement::Bassin:
        return QStringLiteral(" bassin versant ");
    case TypeElement::Aucun:
    case TypeElement::ParametreParCode:
    case TypeElement::UniteDeParametre:
    case TypeElement::CommuneTrames:
        break;
    }
    return {};
}
