// A year, typed as aaaa.
#pragma once

#include "widgets/ZoneTexte.h"

#include <QDate>

// Four digits. Any other text is refused with `La date n'est pas au format adapté : "aaaa".` under "Erreur de type". An
// empty field is no error.
class ZoneAnnee : public ZoneTexte
{
    Q_OBJECT
public:
    explicit ZoneAnnee(QWidget *parent = nullptr);

    // 1 January of the year; null where the text is empty or no year.
    QDate annee() const;

protected:
    bool accepter() override;
    QString messageRefus() const override;
    QString titreRefus() const override;
};
