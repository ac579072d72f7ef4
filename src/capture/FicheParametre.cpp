#include "capture/FicheParametre.h"

#include "database/DataEnvironment1.h"

namespace
{
// The norm's row: that of 1841 whatever its fraction.
QString conditionNorme(const QString &code)
{
    return FicheParametre::sansFraction(code) ? QStringLiteral("CodeParam = ?")
                                              : QStringLiteral("CodeParam = ? AND CD_FRACTION = ?");
}

void ecrireNorme(const DataEnvironment1 &donnees, const QString &code, const QString &fraction,
                 std::optional<double> valeur)
{
    const QString condition = conditionNorme(code);
    QVariantList valeurs{code};
    if (!FicheParametre::sansFraction(code))
        valeurs << fraction;
    if (!valeur) {
        donnees.executer(QStringLiteral("DELETE FROM NORME_AEP WHERE ") + condition, valeurs);
        return;
    }
    const QVariant numero = donnees.valeur(
        QStringLiteral("SELECT CodeNorme FROM NORME_AEP WHERE %1 ORDER BY CodeNorme LIMIT 1").arg(condition),
        valeurs);
    if (numero.isValid())
        donnees.executer(
            QStringLiteral("UPDATE NORME_AEP SET CodeParam = ?, ValeurNorme = ? WHERE CodeNorme = ?"),
            {code, *valeur, numero});
    else
        donnees.executer(
            QStringLiteral("INSERT INTO NORME_AEP (CodeParam, CD_FRACTION, ValeurNorme) VALUES (?, ?, ?)"),
            {code, FicheParametre::sansFraction(code) ? QVariant() : QVariant(fraction), *valeur});
}
} // namespace

const DescriptionFiche &Fiches::parametre()
{
    static const DescriptionFiche description{
        .table = QStringLiteral("PARAMETRE"),
        .critere = QStringLiteral("CodeParam"),
        .libelle = QStringLiteral("NomParam"),
        .champs = {{QStringLiteral("txt_code"), QStringLiteral("CodeParam"),
                    QStringLiteral("Le code du paramètre"),
                    QStringLiteral("Le code du paramètre doit être renseigné.")},
                   {QStringLiteral("txt_nom"), QStringLiteral("NomParam"),
                    QStringLiteral("Le nom du paramètre"),
                    QStringLiteral("Le nom du paramètre doit être renseigné.")},
                   {QStringLiteral("cmb_statut"), QStringLiteral("StatutParam"),
                    QStringLiteral("Le statut du paramètre")},
                   {QStringLiteral("txt_comm"), QStringLiteral("CommParam"),
                    QStringLiteral("Le commentaire du paramètre")},
                   {QStringLiteral("txt_def"), QStringLiteral("DéfParam"),
                    QStringLiteral("La définition du paramètre")},
                   {QStringLiteral("cmb_groupe"), QStringLiteral("CodeGroupeParam"),
                    QStringLiteral("Le groupe du paramètre")},
                   {QStringLiteral("cmb_nature"), QStringLiteral("NatureParam"),
                    QStringLiteral("La nature du paramètre")},
                   {QStringLiteral("cmb_unite"), QStringLiteral("CodeUnite"),
                    QStringLiteral("L'unité de référence du paramètre")}},
        .objet = QStringLiteral("Le paramètre"),
        .fin = QStringLiteral(
            "L'enregistrement du paramètre a été effectué. Désirez-vous en effectuer un autre?"),
        .usages = {{QStringLiteral("MESURE_PHYSICO"), QStringLiteral("CodeParam"),
                    QStringLiteral("résultat d'analyse"), QStringLiteral("résultats d'analyse")},
                   {QStringLiteral("OBJECTIF"), QStringLiteral("CodeParam"),
                    QStringLiteral("objectif de bassin versant"),
                    QStringLiteral("objectifs de bassin versant")},
                   {QStringLiteral("GRILLE_SEQ"), QStringLiteral("CodeParam"), QStringLiteral("grille SEQ"),
                    QStringLiteral("grilles SEQ")}},
        .dependances = {{QStringLiteral("IMPORT_PAR_URF"), QStringLiteral("CodeParam")},
                        {QStringLiteral("NORME_AEP"), QStringLiteral("CodeParam")}}};
    return description;
}

QStringList FicheParametre::natures()
{
    return {QStringLiteral("Physique"),        QStringLiteral("Chimique"),
            QStringLiteral("Hydrobiologique"), QStringLiteral("Microbiologique"),
            QStringLiteral("Synthétique"),     QStringLiteral("Environnemental"),
            GROUPE_PESTICIDES.toString()};
}

QString FicheParametre::groupe(const QString &codeChoisi, const QString &nature)
{
    return codeChoisi == QLatin1String("PS") || nature == GROUPE_PESTICIDES ? QStringLiteral("PS")
                                                                            : QStringLiteral("PC");
}

QString FicheParametre::codeDuNom(const DataEnvironment1 &donnees, const QString &nom)
{
    const auto table = donnees.enMemoire(QStringLiteral("Parametre"));
    const qsizetype ligne = table->premiere(QStringLiteral("NomParam"), nom);
    return ligne < 0 ? QString() : table->texte(ligne, QStringLiteral("CodeParam"));
}

QStringList FicheParametre::autresUnites(const DataEnvironment1 &donnees, const QString &code,
                                         const QString &reference)
{
    QStringList unites;
    Requete r = donnees.executer(
        QStringLiteral("SELECT CodeUnite FROM IMPORT_PAR_URF WHERE CodeParam = ? ORDER BY rowid"), {code});
    while (r.suivant()) {
        const QString unite = r.texte(0);
        if (!unite.isEmpty() && unite != reference && !unites.contains(unite))
            unites << unite;
    }
    return unites;
}

void FicheParametre::ecrireUnites(const DataEnvironment1 &donnees, const QString &code,
                                  const QString &reference, const QStringList &autres)
{
    const QStringList presentes = autresUnites(donnees, code, reference);
    const auto effacer = [&](const QString &unite) {
        donnees.executer(QStringLiteral("DELETE FROM IMPORT_PAR_URF WHERE CodeParam = ? AND CodeUnite = ?"),
                         {code, unite});
    };
    const auto ajouter = [&](const QString &unite, bool deCeSysteme) {
        donnees.executer(QStringLiteral("INSERT INTO IMPORT_PAR_URF VALUES (?, ?, ?)"),
                         {code, unite, deCeSysteme});
    };
    if (!reference.isEmpty()) {
        effacer(reference);
        ajouter(reference, true);
    }
    for (const QString &unite : presentes)
        if (!autres.contains(unite))
            effacer(unite);
    for (const QString &unite : autres)
        if (unite != reference && !presentes.contains(unite))
            ajouter(unite, false);
}

bool FicheParametre::sansFraction(const QString &code)
{
    return code == QLatin1String("1841");
}

FicheParametre::Normes FicheParametre::normes(const DataEnvironment1 &donnees, const QString &code)
{
    Normes lues;
    Requete r = donnees.executer(
        QStringLiteral(
            "SELECT CD_FRACTION, ValeurNorme FROM NORME_AEP WHERE CodeParam = ? ORDER BY CodeNorme"),
        {code});
    while (r.suivant()) {
        const QString fraction = sansFraction(code) ? QString() : r.texte(0);
        if (!lues.contains(fraction) && !r.valeur(1).isNull())
            lues.insert(fraction, r.valeur(1).toDouble());
    }
    return lues;
}

void FicheParametre::ecrireNormes(const DataEnvironment1 &donnees, const QString &code, const Normes &normes)
{
    for (auto norme = normes.cbegin(); norme != normes.cend(); ++norme)
        if (sansFraction(code) || !norme.key().isEmpty())
            ecrireNorme(donnees, code, norme.key(), norme.value());
}
