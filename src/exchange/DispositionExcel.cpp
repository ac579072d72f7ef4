#include "exchange/DispositionExcel.h"

#include "workbook/Plage.h"

namespace
{
EnteteExcel obligatoire(const char *entete, const char *nomMessage)
{
    return {{QString::fromUtf8(entete)}, QString::fromUtf8(nomMessage), true};
}
} // namespace

const DispositionExcel &dispositionPhysico()
{
    static const DispositionExcel disposition = {
        obligatoire("Code Agence", " 'Code Agence' "),
        obligatoire("Nom", " 'Nom'"),
        obligatoire("Date", " 'Date'"),
        obligatoire("Heure", " 'Heure' "),
        obligatoire("Paramètre", " 'Paramètre' "),
        obligatoire("Valeur", " 'Valeur' "),
        obligatoire("Code remarque", " 'Code remarque' "),
        obligatoire("Code Fraction", " 'Code Fraction' "),
        obligatoire("Commentaire", " 'Commentaire' "),
        obligatoire("Unité de mesure", " 'Unité de mesure' "),
        obligatoire("Seuil de détection", " 'Seuil de détection' "),
        {{QStringLiteral("Protocole de prélèvement"), QStringLiteral("Protocole de mesure")}, {}, false},
        obligatoire("Gestionnaire", " 'Gestionnaire' "),
        obligatoire("Organisme préleveur", " 'Organisme préleveur' "),
        obligatoire("Laboratoire d'analyses", " 'Laboratoire d'analyses' "),
        obligatoire("Réseau de mesure", " 'Réseau de mesure' "),
    };
    return disposition;
}

const DispositionExcel &dispositionHydro()
{
    static const DispositionExcel disposition = {
        obligatoire("Type de débit", " 'Type de débit' "),
        obligatoire("Numéro de la station", " 'Numéro de la station'"),
        obligatoire("Date", " 'Date'"),
        obligatoire("Heure", " 'Heure' "),
        obligatoire("Débit (l/s)", " 'Débit (l/s)' "),
    };
    return disposition;
}

const DispositionExcel &dispositionPluvio()
{
    static const DispositionExcel disposition = {
        obligatoire("Code_station", " 'code_station' "),
        obligatoire("Date", " 'Date'"),
        obligatoire("Mesures", " 'Mesures'"),
        obligatoire("Commentaire", " 'Commentaire' "),
        obligatoire("Gestionnaire", " 'Gestionnaire' "),
    };
    return disposition;
}

const DispositionExcel &dispositionIntervenant()
{
    static const DispositionExcel disposition = {
        obligatoire("CodeSandreAncien", " 'CodeSandreAncien' "),
        obligatoire("CodeSiretNouveau", " 'CodeSiretNouveau'"),
    };
    return disposition;
}

QStringList entetesDeLigne(const QVector<QVariant> &ligne1)
{
    QStringList entetes;
    for (const QVariant &cellule : ligne1) {
        // An error value is a header that no layout knows.
        const QString texte =
            cellule.canConvert<ErreurCellule>() ? cellule.value<ErreurCellule>().signe : cellule.toString();
        if (texte.isEmpty())
            break;
        entetes << texte;
    }
    return entetes;
}

QString Reconnaissance::message() const
{
    if (manquantes.isEmpty())
        return {};
    const QString noms = manquantes.join(QString());
    if (manquantes.size() == 1)
        return QStringLiteral("La colonne ") + noms +
               QStringLiteral(" n'a pas été reconnue dans le fichier Excel.");
    return QStringLiteral("Les colonnes ") + noms +
           QStringLiteral(" n'ont pas été reconnues dans le fichier Excel.");
}

Reconnaissance reconnaitre(const QStringList &entetes, const DispositionExcel &disposition,
                           const std::function<void()> &reconnue)
{
    Reconnaissance resultat;
    for (qsizetype i = 0; i < entetes.size(); ++i) {
        const auto champ =
            std::find_if(disposition.cbegin(), disposition.cend(), [&](const EnteteExcel &entete) {
                return entete.ecritures.contains(entetes[i], Qt::CaseInsensitive);
            });
        if (champ == disposition.cend())
            continue;
        resultat.colonnes.at(static_cast<std::size_t>(champ - disposition.cbegin())) =
            static_cast<int>(i) + 1;
        if (reconnue)
            reconnue();
    }
    for (qsizetype i = 0; i < disposition.size(); ++i) {
        if (disposition[i].obligatoire && resultat.colonnes.at(static_cast<std::size_t>(i)) == 0)
            resultat.manquantes << disposition[i].nomMessage;
    }
    return resultat;
}
