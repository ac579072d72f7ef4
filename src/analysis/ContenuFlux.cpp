#include "analysis/ContenuFlux.h"

namespace
{
QVariant ouVide(const std::optional<double> &valeur)
{
    return valeur ? QVariant(*valeur) : QVariant();
}

QString pluriel(qsizetype nombre)
{
    return nombre > 1 ? QStringLiteral("s") : QString();
}

QString evolution(const FluxDemande &demande)
{
    switch (demande.genre) {
    case GenreFlux::Mensuel:
        return demande.specifique ? QStringLiteral(" Evolution des flux spécifiques mensuels en  ")
                                  : QStringLiteral(" Evolution des flux mensuels en  ");
    case GenreFlux::Annuel:
        return demande.specifique ? QStringLiteral(" Evolution des flux spécifiques annuels en ")
                                  : QStringLiteral(" Evolution des flux annuels en ");
    case GenreFlux::Cumule:
        return demande.specifique ? QStringLiteral(" Evolution des flux spécifiques mensuels cumulés en ")
                                  : QStringLiteral(" Evolution des flux mensuels cumulés en ");
    case GenreFlux::ParVolume:
        return QStringLiteral(" Evolution des flux mensuels cumulés par volume en ");
    }
    return {};
}

QString nomsSansDebit(const FluxCalcule &flux)
{
    constexpr int NOMMES = 6;
    QStringList noms;
    for (const LigneFlux &ligne : flux.lignes) {
        if (ligne.periode.joursAvecDebit == 0)
            noms << ligne.periode.intitule;
    }
    const auto autres = noms.size() - NOMMES;
    const QString debut = noms.mid(0, NOMMES).join(QStringLiteral(", "));
    return autres <= 0 ? debut : debut + QStringLiteral(" et %1 autre%2").arg(autres).arg(pluriel(autres));
}
} // namespace

QString ContenuFlux::statut(GenreFlux genre)
{
    switch (genre) {
    case GenreFlux::Mensuel:
        return QStringLiteral("Calcul des flux mensuels");
    case GenreFlux::Annuel:
        return QStringLiteral("Calcul des flux annuels");
    case GenreFlux::Cumule:
        return QStringLiteral("Calcul des flux mensuels cumulés");
    case GenreFlux::ParVolume:
        return QStringLiteral("Calcul des flux mensuels cumulés par volume");
    }
    return {};
}

QString ContenuFlux::titre(const FluxDemande &demande, const EnTeteFlux &enTete, const QString &parametre)
{
    return QStringLiteral("BASSIN VERSANT :  ") + enTete.bassin + evolution(demande) + parametre +
           QStringLiteral(" à la station de mesure ") + enTete.station;
}

QString ContenuFlux::titreAxe(const FluxCalcule &flux)
{
    const GenreFlux genre = flux.demande.genre;
    const QString debut = genre == GenreFlux::Annuel    ? QStringLiteral("Flux annuels ")
                          : genre == GenreFlux::Mensuel ? QStringLiteral("Flux mensuels ")
                                                        : QStringLiteral("Flux mensuels cumulés ");
    return debut + u'(' + nomUniteFlux(flux.demande.specifique, flux.enAzote) + u')';
}

QString ContenuFlux::titreAxeVolume()
{
    return QStringLiteral("Volumes cumulés (m³)");
}

QString ContenuFlux::note(const FluxCalcule &flux, ModeAnnee mode)
{
    const QString annee = mode == ModeAnnee::Hydrologique
                              ? QStringLiteral("Calcul des flux sur l'année hydrologique")
                              : QStringLiteral("Calcul des flux sur l'année civile");
    const QString sansDebit = nomsSansDebit(flux);
    return sansDebit.isEmpty() ? annee : annee + QStringLiteral("\nAucun débit : ") + sansDebit;
}

QString ContenuFlux::etiquette(const PeriodeFlux &periode)
{
    return QString::number(periode.joursAvecDebit) + QStringLiteral(" calc.");
}

QVector<QPair<int, QString>> ContenuFlux::etiquettes(const FluxCalcule &flux)
{
    QVector<QPair<int, QString>> textes;
    for (int i = 0; i < flux.lignes.size(); ++i) {
        const LigneFlux &ligne = flux.lignes[i];
        if (ligne.flux && ligne.periode.debitIncomplet())
            textes.append({i + 1, etiquette(ligne.periode)});
    }
    return textes;
}

Valeurs ContenuFlux::identite(const EnTeteFlux &enTete)
{
    const QVariant surface =
        enTete.surfaceKm2 ? QVariant(*enTete.surfaceKm2) : QVariant(QStringLiteral("non définie"));
    return {{enTete.bassin}, {enTete.station}, {enTete.stationDebit}, {surface}};
}

QVector<QVariant> ContenuFlux::titresMesures()
{
    return {QStringLiteral("Date"), QStringLiteral("Concentration (mg/l)")};
}

QVector<QVariant> ContenuFlux::titresJours()
{
    return {QStringLiteral("Date"), QStringLiteral("Débit (l/s)"), QStringLiteral("Volume (l)"),
            QStringLiteral("Concentration (mg/l)"), QStringLiteral("Flux (mg)")};
}

QString ContenuFlux::nomBloc(GenreFlux genre)
{
    switch (genre) {
    case GenreFlux::Mensuel:
        return QStringLiteral("Flux mensuels");
    case GenreFlux::Annuel:
        return QStringLiteral("Flux annuels");
    case GenreFlux::Cumule:
        return QStringLiteral("Flux mensuels cumulés");
    case GenreFlux::ParVolume:
        return QStringLiteral("Flux mensuels cumulés par volume");
    }
    return {};
}

Valeurs ContenuFlux::mesures(const FluxCalcule &flux)
{
    Valeurs valeurs;
    for (const ConcentrationDuJour &mesure : flux.mesures)
        valeurs.append(QVector<QVariant>{mesure.jour, mesure.concentrationMgL});
    return valeurs;
}

Valeurs ContenuFlux::jours(const FluxCalcule &flux)
{
    Valeurs valeurs;
    valeurs.reserve(flux.jours.size());
    for (const JourFlux &jour : flux.jours)
        valeurs.append(QVector<QVariant>{jour.jour, ouVide(jour.debitLS), ouVide(jour.volumeJourL),
                                         ouVide(jour.concentrationMgL), ouVide(jour.fluxMg)});
    return valeurs;
}

QVector<QVariant> ContenuFlux::titresFlux(const FluxCalcule &flux)
{
    const bool annuel = flux.demande.genre == GenreFlux::Annuel;
    QVector<QVariant> titres{annuel ? QStringLiteral("Année") : QStringLiteral("Mois"), titreAxe(flux),
                             QStringLiteral("Jours calculés, s'il en manque"), QStringLiteral("Observation")};
    if (flux.demande.genre == GenreFlux::ParVolume)
        titres << titreAxeVolume();
    return titres;
}

Valeurs ContenuFlux::lignes(const FluxCalcule &flux)
{
    const bool annuel = flux.demande.genre == GenreFlux::Annuel;
    Valeurs valeurs;
    for (const LigneFlux &ligne : flux.lignes) {
        const PeriodeFlux &periode = ligne.periode;
        bool nombre = false;
        const int annee = periode.intitule.toInt(&nombre);
        const QVariant date = !annuel  ? QVariant(periode.debut)
                              : nombre ? QVariant(static_cast<double>(annee))
                                       : QVariant(periode.intitule);
        const QVariant calcules =
            periode.debitIncomplet() ? QVariant(static_cast<double>(periode.joursAvecDebit)) : QVariant();
        const QString dite = observation(periode);
        QVector<QVariant> cellules{date, ouVide(ligne.flux), calcules,
                                   dite.isEmpty() ? QVariant() : QVariant(dite)};
        if (flux.demande.genre == GenreFlux::ParVolume)
            cellules << ouVide(ligne.volumeM3);
        valeurs.append(cellules);
    }
    return valeurs;
}

QString ContenuFlux::observation(const PeriodeFlux &periode)
{
    if (periode.joursAvecDebit == 0)
        return QStringLiteral("Aucun débit");
    if (periode.joursAvecFlux == 0)
        return QStringLiteral("Aucune concentration");
    QStringList dites;
    if (periode.debitIncomplet())
        dites << QStringLiteral("Débit connu %1 jour%2 sur %3")
                     .arg(periode.joursAvecDebit)
                     .arg(pluriel(periode.joursAvecDebit))
                     .arg(periode.jours);
    const int sansConcentration = periode.joursAvecDebit - periode.joursAvecFlux;
    if (sansConcentration > 0)
        dites << QStringLiteral("Concentration inconnue %1 jour%2")
                     .arg(sansConcentration)
                     .arg(pluriel(sansConcentration));
    return dites.join(QStringLiteral(" ; "));
}
