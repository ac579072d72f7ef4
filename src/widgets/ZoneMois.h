// A month, typed as mm/aaaa or mm/aa.
#pragma once

#include "widgets/ZoneTexte.h"

#include <QDate>

// Five or seven characters: two digits from 01 to 12, a "/", then the year's digits. Any other text is refused with
// `La date n'est pas au format adapté : "mm/aaaa".` under "Erreur de type". An empty field is no error.
class ZoneMois : public ZoneTexte
{
    Q_OBJECT
public:
    explicit ZoneMois(QWidget *parent = nullptr);

    // The first day of the month; null where the text is empty or no month.
    QDate mois() const;
    void fixer(QDate mois);

protected:
    bool accepter() override;
    QString messageRefus() const override;
    QString titreRefus() const override;
};
