#include "capture/SuppressionFiche.h"

#include "capture/LectureFiche.h"
#include "database/DataEnvironment1.h"
#include "database/Schema.h"
#include "platform/Dialogue.h"

namespace
{
QString cite(const QString &nom)
{
    return Schema::entreCrochets(nom);
}

// The value of the sheet's row that other rows name.
QVariant valeurNommee(const DataEnvironment1 &donnees, const DescriptionFiche &description,
                      const FicheLue &fiche, const QString &colonne)
{
    return donnees.valeur(
        QStringLiteral("SELECT %1 FROM %2 WHERE rowid = ?")
            .arg(cite(colonne.isEmpty() ? description.critere : colonne), cite(description.table)),
        {fiche.rang});
}
} // namespace

QString SuppressionFiche::usages(const DataEnvironment1 &donnees, const DescriptionFiche &description,
                                 const FicheLue &fiche)
{
    QStringList parts;
    for (const UsageFiche &usage : description.usages) {
        const qint64 nombre = donnees
                                  .valeur(QStringLiteral("SELECT count(*) FROM %1 WHERE %2 = ?")
                                              .arg(cite(usage.table), cite(usage.colonne)),
                                          {valeurNommee(donnees, description, fiche, usage.nommee)})
                                  .toLongLong();
        if (nombre > 0)
            parts << QStringLiteral("%1 %2").arg(nombre).arg(nombre == 1 ? usage.singulier : usage.pluriel);
    }
    if (parts.size() < 2)
        return parts.join(QString());
    const QString derniere = parts.takeLast();
    return parts.join(QLatin1String(", ")) + QStringLiteral(" et ") + derniere;
}

bool SuppressionFiche::supprimer(const DataEnvironment1 &donnees, Dialogue &dialogue,
                                 const DescriptionFiche &description, const FicheLue &fiche)
{
    const QString titre = QStringLiteral("Suppression d'enregistrements");
    const QString utilisee = usages(donnees, description, fiche);
    if (!utilisee.isEmpty()) {
        const QString e = description.feminin ? QStringLiteral("e") : QString();
        dialogue.message(QStringLiteral("%1 « %2 » ne peut pas être supprimé%3 : %4 %5.")
                             .arg(description.objet, fiche.cle, e,
                                  description.feminin ? QStringLiteral("elle est utilisée par")
                                                      : QStringLiteral("il est utilisé par"),
                                  utilisee),
                         titre, Icone::Exclamation);
        return false;
    }
    if (dialogue.question(QStringLiteral("Etes-vous sûr de vouloir supprimer cet enregistrement?"), titre,
                          {Reponse::Oui, Reponse::Non}, Reponse::Non) != Reponse::Oui)
        return false;
    QList<DependanceFiche> dependances = description.dependances;
    for (const LienFiche &lien : description.liens)
        dependances.append({lien.table, lien.colonneCle, lien.nommee});
    for (const DependanceFiche &dependance : std::as_const(dependances))
        donnees.executer(QStringLiteral("DELETE FROM %1 WHERE %2 = ?")
                             .arg(cite(dependance.table), cite(dependance.colonne)),
                         {valeurNommee(donnees, description, fiche, dependance.nommee)});
    donnees.executer(QStringLiteral("DELETE FROM %1 WHERE rowid = ?").arg(cite(description.table)),
                     {fiche.rang});
    return true;
}
