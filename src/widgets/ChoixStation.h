// The choice of a quality station, by its code, its usual code or its name.
#pragma once

#include "platform/Choix.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class ZoneCombo;

// Two combos that follow each other, and the station's name. Both lists show the names too, so that a station is found
// by typing a part of any of the three. Each screen names the controls inside, as its properties in the .ui file.
class ChoixStation : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString nomCode READ nomCode WRITE setNomCode)
    Q_PROPERTY(QString nomUsuel READ nomUsuel WRITE setNomUsuel)
    Q_PROPERTY(QString nomStation READ nomStation WRITE setNomStation)
    Q_PROPERTY(QString nomAffichageUsuel READ nomAffichageUsuel WRITE setNomAffichageUsuel)
public:
    explicit ChoixStation(QWidget *parent = nullptr);

    // In the order of their codes; the usual codes are listed in their own order.
    void remplir(const QList<StationProposee> &stations);

    // The chosen station's code and name; empty where none is chosen.
    QString code() const;
    QString nom() const;
    // Whether the documents show the usual code in place of the code.
    bool afficherUsuel() const;

    // Chooses a station, or none; emits nothing.
    void choisir(const QString &code);
    void vider();

    QString nomCode() const;
    QString nomUsuel() const;
    QString nomStation() const;
    QString nomAffichageUsuel() const;
    void setNomCode(const QString &nom);
    void setNomUsuel(const QString &nom);
    void setNomStation(const QString &nom);
    void setNomAffichageUsuel(const QString &nom);

Q_SIGNALS:
    // The user has chosen another station, possibly none.
    void stationChangee();

private:
    void montrer(const QString &code);
    void montrerCodeAffiche();

    ZoneCombo *m_code;
    ZoneCombo *m_usuel;
    QLineEdit *m_nom;
    QCheckBox *m_afficherUsuel;
    QLabel *m_codeAffiche;
    QList<StationProposee> m_stations;
};
