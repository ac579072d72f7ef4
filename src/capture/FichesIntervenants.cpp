#include "capture/FichesIntervenants.h"

#include "capture/LectureFiche.h"
#include "capture/SuppressionFiche.h"
#include "database/DataEnvironment1.h"

#include <QSqlRecord>

namespace
{
using Champs = QList<ChampFiche>;

ChampFiche champ(const char16_t *controle, const char16_t *colonne, const QString &designation,
                 const QString &siVide = {})
{
    return {QString::fromUtf16(controle), QString::fromUtf16(colonne), designation, siVide};
}

// `de`: "du laboratoire".
DescriptionFiche base(const QString &objet, const QString &de, const QString &fin)
{
    DescriptionFiche d;
    d.table = QStringLiteral("INTERVENANT");
    d.critere = QStringLiteral("CodeSandreInterv");
    d.cleInterne = QStringLiteral("Code");
    d.libelle = QStringLiteral("NomInterv");
    d.objet = objet;
    d.fin = fin;
    const auto usage = [&d](const char *table, const char *colonne, const char16_t *singulier,
                            const char16_t *pluriel) {
        d.usages.append({QString::fromLatin1(table), QString::fromLatin1(colonne),
                         QString::fromUtf16(singulier), QString::fromUtf16(pluriel)});
    };
    usage("MESURE_PHYSICO", "CodeSandreGest", u"résultat d'analyse dont il est le gestionnaire",
          u"résultats d'analyse dont il est le gestionnaire");
    usage("MESURE_PHYSICO", "CodeSandreLabo", u"résultat d'analyse dont il est le laboratoire",
          u"résultats d'analyse dont il est le laboratoire");
    usage("PRELEVEMENT", "CodeSandrePrelev", u"prélèvement dont il est le préleveur",
          u"prélèvements dont il est le préleveur");
    usage("PRELEVEMENT", "CodeSandreProd", u"prélèvement dont il est le producteur",
          u"prélèvements dont il est le producteur");
    usage("MESURE_PLUVIO", "CodeSandreGest", u"mesure de pluie", u"mesures de pluie");
    usage("StationMesureXGest", "CodeSandreGest", u"station de qualité", u"stations de qualité");
    usage("StationHydroXGest", "CodeSandreGest", u"station hydrométrique", u"stations hydrométriques");
    usage("StationPluvioXGest", "CodeSandreGest", u"station pluviométrique", u"stations pluviométriques");
    d.champs =
        Champs{champ(u"txt_code", u"CodeSandreInterv", QStringLiteral("Le code ") + de,
                     QStringLiteral("Le code %1 doit être renseigné.").arg(de)),
               champ(u"txt_nom", u"NomInterv", QStringLiteral("Le nom ") + de,
                     QStringLiteral("Le nom %1 doit être renseigné.").arg(de)),
               champ(u"txt_libellesandre", u"LibelleSandreInterv", QStringLiteral("Le libellé ") + de)};
    return d;
}

ChampFiche statut(const QString &de)
{
    return champ(u"cmb_statut", u"StatutInterv", QStringLiteral("Le statut ") + de);
}
ChampFiche rue(const QString &de)
{
    return champ(u"txt_rue", u"RueInterv", QStringLiteral("La rue ") + de);
}
ChampFiche codePostal(const QString &de)
{
    return champ(u"txt_cp", u"CPInterv", QStringLiteral("Le code postal ") + de);
}
ChampFiche ville(const QString &de)
{
    return champ(u"txt_ville", u"VilleInterv", QStringLiteral("La ville ") + de);
}
ChampFiche commentaire(const QString &de)
{
    return champ(u"txt_comm", u"CommInterv", QStringLiteral("Le commentaire ") + de);
}

DescriptionFiche sansDepartement(const QString &objet, const QString &de, const QString &fin)
{
    DescriptionFiche d = base(objet, de, fin);
    d.champs += Champs{codePostal(de), statut(de), rue(de), ville(de), commentaire(de)};
    return d;
}

DescriptionFiche avecDepartement(const QString &objet, const QString &de, const QString &fin)
{
    DescriptionFiche d = base(objet, de, fin);
    d.champs += Champs{
        statut(de),
        rue(de),
        ville(de),
        champ(u"txt_departpays", u"DépartPaysInterv", QStringLiteral("Le département ou le pays ") + de),
        commentaire(de),
        codePostal(de)};
    return d;
}

bool reporte(const DescriptionFiche &description)
{
    return description.champ(QStringLiteral("DépartPaysInterv"));
}

// Where a body's code stands, in the order in which a new one is carried over.
struct Place {
    const char *table;
    const char *colonne;
};
constexpr Place PLACES_REPORTEES[] = {
    {"MESURE_PHYSICO", "CodeSandreGest"},     {"MESURE_PHYSICO", "CodeSandreLabo"},
    {"MESURE_PHYSICO", "CodeSandrePrelev"}, // in some old files only
    {"MESURE_PLUVIO", "CodeSandreGest"},      {"StationHydroXGest", "CodeSandreGest"},
    {"StationMesureXGest", "CodeSandreGest"}, {"StationPluvioXGest", "CodeSandreGest"},
};

bool aColonne(const DataEnvironment1 &donnees, const QString &table, const QString &colonne)
{
    return donnees.Connect_Bdd().record(table).contains(colonne);
}
} // namespace

const DescriptionFiche &Fiches::laboratoire()
{
    static const DescriptionFiche description = sansDepartement(
        QStringLiteral("Le laboratoire"), QStringLiteral("du laboratoire"),
        QStringLiteral(
            "L'enregistrement du laboratoire d'analyses a été effectué. Désirez-vous en effectuer un autre?"));
    return description;
}

const DescriptionFiche &Fiches::preleveur()
{
    static const DescriptionFiche description = sansDepartement(
        QStringLiteral("L'organisme préleveur"), QStringLiteral("de l'organisme préleveur"),
        QStringLiteral(
            "L'enregistrement de l'organisme préleveur a été effectué. Désirez-vous en effectuer un autre?"));
    return description;
}

const DescriptionFiche &Fiches::gestionnaire()
{
    static const DescriptionFiche description = avecDepartement(
        QStringLiteral("Le gestionnaire"), QStringLiteral("du gestionnaire"),
        QStringLiteral(
            "L'enregistrement du gestionnaire a été effectué. Désirez-vous en effectuer un autre?"));
    return description;
}

const DescriptionFiche &Fiches::intervenant()
{
    static const DescriptionFiche description = avecDepartement(
        QStringLiteral("L'intervenant"), QStringLiteral("de l'intervenant"),
        QStringLiteral(
            "L'enregistrement de l'intervenant a été effectué. Désirez-vous en effectuer un autre?"));
    return description;
}

void FichesIntervenants::reporterCode(const DataEnvironment1 &donnees, const QString &ancien,
                                      const QString &nouveau)
{
    if (ancien.isEmpty() || ancien == nouveau)
        return;
    for (const Place &place : PLACES_REPORTEES) {
        const QString table = QString::fromLatin1(place.table);
        const QString colonne = QString::fromLatin1(place.colonne);
        if (aColonne(donnees, table, colonne))
            donnees.executer(QStringLiteral("UPDATE %1 SET %2 = ? WHERE %2 = ?").arg(table, colonne),
                             {nouveau, ancien});
    }
}

qint64 FichesIntervenants::prelevements(const DataEnvironment1 &donnees, const QString &code)
{
    return donnees
        .valeur(QStringLiteral(
                    "SELECT count(*) FROM PRELEVEMENT WHERE CodeSandrePrelev = ? OR CodeSandreProd = ?"),
                {code, code})
        .toLongLong();
}

QString FichesIntervenants::fauteCode(const DataEnvironment1 &donnees, const DescriptionFiche &description,
                                      const QString &ancien, const QString &code)
{
    if (reporte(description) || ancien.compare(code.trimmed(), Qt::CaseInsensitive) == 0)
        return {};
    const auto fiche =
        LectureFiche::lire(donnees, description, LectureFiche::codeDe(donnees, description, ancien));
    const QString utilise = fiche ? SuppressionFiche::usages(donnees, description, *fiche) : QString();
    if (utilise.isEmpty())
        return {};
    return QStringLiteral(
               "Le code « %1 » est utilisé par %2 : il ne peut pas être changé sur cette fiche.\nPour le "
               "changer partout, passez par « Compléments », « Intervenants ».")
        .arg(ancien, utilise);
}
