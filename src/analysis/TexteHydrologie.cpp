#include "analysis/TexteHydrologie.h"

#include <QLocale>

namespace
{
QString moisEtAnnee(QDate date)
{
    return QLocale(QLocale::French, QLocale::France).toString(date, QStringLiteral("MMMM yyyy"));
}

QString genreEnMots(GenreDebit genre)
{
    return genre == GenreDebit::Mensuel ? QStringLiteral("mensuels") : QStringLiteral("journaliers");
}
} // namespace

QString TexteHydrologie::periode(QDate debut, QDate fin)
{
    return moisEtAnnee(debut) + QStringLiteral(" - ") + moisEtAnnee(fin);
}

QStringList TexteHydrologie::titre(const DemandeHydrologie &demande, const Lieux &lieux, bool debit,
                                   bool pluie)
{
    QStringList lignes{QStringLiteral("BASSIN VERSANT :  ") + lieux.bassin};
    if (debit && pluie)
        lignes << QStringLiteral("Evolution des débits moyens %1 (station ").arg(genreEnMots(demande.debit)) +
                      demande.stationDebit + u')' + QStringLiteral(" et de la pluviométrie (station ") +
                      demande.stationPluie + u')';
    else if (debit)
        lignes << QStringLiteral("Evolution des débits moyens %1 à la station de mesure : ")
                          .arg(genreEnMots(demande.debit)) +
                      demande.stationDebit;
    else
        lignes << QStringLiteral("Evolution des précipitations journalières à la station de mesure : ") +
                      demande.stationPluie;
    if (debit)
        lignes << QStringLiteral("Cours d'eau et Lieu-dit : ") + lieux.nomStationDebit;
    else if (!lieux.nomStationPluie.isEmpty())
        lignes << QStringLiteral("Lieu-dit : ") + lieux.nomStationPluie;
    lignes << QStringLiteral("Période : ") + periode(demande.debut, demande.fin);
    return lignes;
}

QString TexteHydrologie::titreAxeDebit()
{
    return QStringLiteral(" Débit ( ") + UNITE_DEBIT.toString() + QStringLiteral(" ) ");
}

QString TexteHydrologie::titreAxePluie()
{
    return QStringLiteral("Pluviométrie ") + QStringLiteral(" ( ") + UNITE_PLUIE.toString() +
           QStringLiteral(" ) ");
}

QString TexteHydrologie::nomDebit(GenreDebit genre)
{
    return genre == GenreDebit::Mensuel ? QStringLiteral("Débit moyen mensuel (l/s)")
                                        : QStringLiteral("Débit moyen journalier (l/s)");
}

QString TexteHydrologie::nomPluie(bool parMois)
{
    return parMois ? QStringLiteral("Pluviométrie mensuelle (mm)")
                   : QStringLiteral("Pluviométrie journalière (mm)");
}
