#include "exchange/LignePhysico.h"

#include "database/M_Sandrification.h"
#include "exchange/ArretImport.h"
#include "exchange/ChampsCommuns.h"

using Champ = ChampPhysico;

namespace
{
constexpr int LONGUEUR_NOM_STATION = 80;
constexpr int LONGUEUR_UNITE = 50;
constexpr int LONGUEUR_RESEAU = 50;
constexpr int LONGUEUR_REMARQUE = 2;
constexpr int LONGUEUR_SEUIL = 50;

QString station(const LigneExcel &ligne, const ReferencesPhysico &references)
{
    const QString numero = ChampsCommuns::numeroStation(ligne, Champ::CodeAgence);
    if (const std::optional<QString> code = references.stations.chercher(numero))
        return *code;
    const QString nom = ligne.texte(Champ::Nom);
    if (nom.size() > LONGUEUR_NOM_STATION)
        throw ArretImport::tropLong(QStringLiteral("Le nom de la station '"), nom, LONGUEUR_NOM_STATION);
    throw ArretImport::elementInconnu(TypeElement::StationQualite, nom, numero);
}

// The parameter's code; its unit is checked after it, as the parameter alone tells which units it may have.
QString parametre(const LigneExcel &ligne, const ReferencesPhysico &references)
{
    const QString nom = ligne.texte(Champ::Parametre);
    if (nom.size() > ChampsCommuns::LONGUEUR_TEXTE)
        throw ArretImport::tropLong(QStringLiteral("Le paramètre '"), nom, ChampsCommuns::LONGUEUR_TEXTE);
    const QString unite = ligne.texte(Champ::Unite);
    if (unite.size() > LONGUEUR_UNITE)
        throw ArretImport::tropLong(QStringLiteral("L'unité '") + citer(unite) +
                                        QStringLiteral("' du paramètre '"),
                                    nom, LONGUEUR_UNITE);
    const std::optional<QString> code = references.parametres.chercher(nom);
    if (!code) {
        ArretImport arret = nom.isEmpty() ? ArretImport::elementVide(libelleElement(TypeElement::Parametre),
                                                                     TypeElement::Parametre)
                                          : ArretImport::elementInconnu(TypeElement::Parametre, nom);
        arret.unite = unite;
        throw arret;
    }
    if (references.unites.ParamUniteAssociee(*code, unite, unite) == 0) {
        ArretImport arret;
        arret.genre = ArretImport::Genre::UniteRefusee;
        arret.type = TypeElement::UniteDeParametre;
        arret.nom = unite;
        arret.parametre = nom;
        throw arret;
    }
    return *code;
}

double resultat(const LigneExcel &ligne)
{
    if (ligne.vide(Champ::Valeur))
        throw ArretImport::elementVide(QStringLiteral(" résultat "));
    if (const std::optional<double> lu = CelluleImport::nombre(ligne.cellule(Champ::Valeur)))
        return *lu;
    throw ArretImport::faute(QStringLiteral("La valeur du résultat : ") + citer(ligne.texte(Champ::Valeur)) +
                             QStringLiteral(" doit être de format numérique."));
}

// A sampling without hour is filed at ten o'clock.
QString heure(const LigneExcel &ligne)
{
    const QString lue = ChampsCommuns::heure(ligne, Champ::Heure);
    return lue.isEmpty() || lue == QStringLiteral("00:00:00") ? QStringLiteral("10:00:00") : lue;
}

QString remarque(const LigneExcel &ligne)
{
    QString code = ligne.texte(Champ::CodeRemarque);
    if (code.size() > LONGUEUR_REMARQUE) // the message has no closing quote
        throw ArretImport::faute(QStringLiteral("Le code remarque '") + citer(code) +
                                 QStringLiteral(" ne doit contenir que 2 caractères au maximum."));
    return code;
}

QString seuil(const LigneExcel &ligne)
{
    QString texte = ligne.texte(Champ::Seuil);
    if (texte.size() > LONGUEUR_SEUIL)
        throw ArretImport::tropLong(QStringLiteral("Le seuil de détection '"), texte, LONGUEUR_SEUIL);
    return texte;
}
} // namespace

MesurePhysico lireLignePhysico(const LigneExcel &ligne, const ReferencesPhysico &references)
{
    MesurePhysico mesure;
    mesure.station = station(ligne, references);
    mesure.point = references.points.value(mesure.station);
    mesure.parametre = parametre(ligne, references);
    mesure.gestionnaire = ChampsCommuns::gestionnaire(ligne, Champ::Gestionnaire, references.gestionnaires);
    mesure.preleveur = ChampsCommuns::codeElement(
        ligne.texte(Champ::Preleveur), QStringLiteral("L'organisme préleveur '"),
        ChampsCommuns::LONGUEUR_INTERVENANT, references.preleveurs, TypeElement::Preleveur);
    mesure.laboratoire = ChampsCommuns::codeElement(
        ligne.texte(Champ::Laboratoire), QStringLiteral("Le laboratoire '"),
        ChampsCommuns::LONGUEUR_INTERVENANT, references.laboratoires, TypeElement::Laboratoire);
    mesure.reseau =
        ChampsCommuns::codeElement(ligne.texte(Champ::Reseau), QStringLiteral("Le réseau de mesure '"),
                                   LONGUEUR_RESEAU, references.reseaux, TypeElement::Reseau);
    mesure.date = ChampsCommuns::jour(ligne.cellule(Champ::Date), {});
    mesure.resultat = resultat(ligne);
    mesure.heure = heure(ligne);
    mesure.remarque = remarque(ligne);
    mesure.fraction =
        references.fractions.chercher(ligne.texte(Champ::CodeFraction)).value_or(QStringLiteral("0"));
    mesure.commentaire = ChampsCommuns::commentaire(ligne, Champ::Commentaire);
    mesure.seuil = seuil(ligne);
    if (ligne.presente(Champ::Protocole))
        mesure.protocole = QString::number(M_Sandrification::CodeProtocole(ligne.texte(Champ::Protocole)));
    return mesure;
}
