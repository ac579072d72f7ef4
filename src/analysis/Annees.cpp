#include "analysis/Annees.h"

int moisEntiers(QDate debut, QDate fin)
{
    return 12 * (fin.year() - debut.year()) + fin.month() - debut.month();
}

QList<Annee> decouperEnAnnees(QDate debut, QDate fin, ModeAnnee mode)
{
    constexpr int OCTOBRE = 10;
    const bool hydrologique = mode == ModeAnnee::Hydrologique;
    const int nombre = 1 + (hydrologique ? moisEntiers(debut, fin) / 12 : fin.year() - debut.year());
    const int moisDeDebut = hydrologique ? OCTOBRE : 1;

    QDate premier = debut;
    if (hydrologique && debut.month() < OCTOBRE)
        premier = QDate(debut.year() - 1, OCTOBRE, 1);

    QList<Annee> annees;
    for (int i = 0; i < nombre; ++i) {
        const int an = premier.year() + i;
        Annee annee;
        annee.debut = i == 0 ? premier : QDate(an, moisDeDebut, 1);
        annee.fin = i == nombre - 1 ? fin : QDate(an + 1, moisDeDebut, 1).addDays(-1);
        annee.intitule = QString::number(an);
        if (hydrologique)
            annee.intitule += u'-' + QString::number(an + 1);
        annees << annee;
    }
    return annees;
}
