// A period: two dates, and the one that the data offer.
#pragma once

#include <QDate>
#include <QWidget>

class QLabel;
class QPushButton;
class ZoneDate;

// Each screen names the date fields inside, as its properties in the .ui file.
class ChoixPeriode : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString nomDebut READ nomDebut WRITE setNomDebut)
    Q_PROPERTY(QString nomFin READ nomFin WRITE setNomFin)
public:
    explicit ChoixPeriode(QWidget *parent = nullptr);

    // Null where a field is empty or holds no date.
    QDate debut() const;
    QDate fin() const;
    void fixer(QDate debut, QDate fin);
    void vider();

    // The first and last day for which there are data: shown under the fields, taken with one button, and where the
    // calendars open. Null dates: there are none.
    void proposer(QDate premier, QDate dernier);

    QString nomDebut() const;
    QString nomFin() const;
    void setNomDebut(const QString &nom);
    void setNomFin(const QString &nom);

private:
    ZoneDate *m_debut;
    ZoneDate *m_fin;
    QPushButton *m_tout;
    QLabel *m_etendue;
    QDate m_premier;
    QDate m_dernier;
};
