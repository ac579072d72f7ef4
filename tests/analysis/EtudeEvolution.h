// A study for the evolution charts: nitrates, pH, organic carbon in two fractions, flows and rain of a few years
// on one station, with every kind of remark code; and what a test may ask for of it.
#pragma once

#include "analysis/DemandeEvolution.h"
#include "BaseDEssai.h"

#include <QRandomGenerator>

class EtudeEvolution : public BaseDEssai
{
public:
    inline static const QString STATION = QStringLiteral("04211940");
    inline static const CourbeDemandee NITRATES{QStringLiteral("Nitrates"), {}};
    inline static const CourbeDemandee PH{QStringLiteral("Potentiel en Hydrogène (pH)"), {}};
    inline static const CourbeDemandee CARBONE{QStringLiteral("Carbone Organique"), {}};
    inline static const CourbeDemandee CARBONE_BRUT{QStringLiteral("Carbone Organique"),
                                                    QStringLiteral("23 - Eau brute")};
    inline static const CourbeDemandee CARBONE_AQUEUX{
        QStringLiteral("Carbone Organique"),
        QStringLiteral("3 - Phase aqueuse de l'eau (filtrée, centrifugée...)")};

    EtudeEvolution()
    {
        sql("INSERT INTO OBJECTIF VALUES (1, '1340', '3', 25, 50), (1, '1841', '23', 5, 7.5)");
        sql("INSERT INTO NORME_AEP (CodeParam, CD_FRACTION, ValeurNorme) VALUES ('1340', '0', 50), "
            "('1841', '23', 10)");
        sql("INSERT INTO GRILLE_SEQ (CodeParam, Valeur1SEQ, Valeur2SEQ, Valeur3SEQ, Valeur4SEQ, Valeur3BisSEQ, "
            "Valeur4BisSEQ) VALUES ('1340', 2, 10, 25, 50, 15, 60), ('1841', 5, 7, 10, 12, NULL, NULL)");
        remplir();
    }

    static DemandeEvolution demande(const QList<CourbeDemandee> &courbes, QDate debut = QDate(2008, 1, 1),
                                    QDate fin = QDate(2010, 12, 31))
    {
        DemandeEvolution d;
        d.selection.codeStation = STATION;
        d.selection.debut = debut;
        d.selection.fin = fin;
        d.courbes = courbes;
        return d;
    }

    // Nitrates with everything that one curve can have, but flow and rain.
    static DemandeEvolution toutCoche()
    {
        DemandeEvolution d = demande({NITRATES});
        d.fondSEQ = true;
        d.objectifMoyen = 25;
        d.frequenceMoyen = true;
        d.objectifMaximal = 50;
        d.frequenceMaximal = true;
        d.norme = true;
        d.quantile = true;
        d.intituleSeuil = QStringLiteral("Seuil du contrat");
        d.valeurSeuil = 37.5;
        return d;
    }

    // As many samples of nitrates on a station of its own, day after day from 1 January 2015.
    DemandeEvolution serieDe(int mesures) const
    {
        const QString station = QStringLiteral("04211950");
        sql("DELETE FROM MESURE_PHYSICO WHERE NumPrel IN "
            "(SELECT NumPrel FROM PRELEVEMENT WHERE CodeSandreStationM = ?)",
            {station});
        sql("DELETE FROM PRELEVEMENT WHERE CodeSandreStationM = ?", {station});
        for (int i = 0; i < mesures; ++i)
            ajouterMesure(ajouterPrelevement(station, QDate(2015, 1, 1).addDays(i)), "1340", 10 + i % 7,
                          i % 10 == 3 ? "2" : "1");
        DemandeEvolution d = demande({NITRATES}, QDate(2015, 1, 1), QDate(2015, 12, 31));
        d.selection.codeStation = station;
        return d;
    }

private:
    void remplir() const
    {
        QRandomGenerator hasard(1841);
        const QStringList codes{"1", "1", "1", "1", "1", "2", "3", "10", "0", ""};
        const auto code = [&] { return codes[hasard.bounded(codes.size())]; };
        donnees.executer("BEGIN");
        for (QDate jour(2007, 12, 20); jour < QDate(2011, 2, 1);
             jour = jour.addDays(hasard.bounded(20, 38))) {
            const qint64 prel =
                ajouterPrelevement(STATION, jour, {}, "19", QString::number(hasard.bounded(3)));
            sql("INSERT INTO PRELEVEMENTRSX VALUES (?, ?)",
                {prel, hasard.bounded(3) == 0 ? "0400000002" : "0400000001"});
            const qint64 mesure = ajouterMesure(prel, "1340", hasard.bounded(30000, 700000) / 10000.0, code(),
                                                hasard.bounded(3) == 0 ? "18" : "17", "3");
            if (hasard.bounded(4) == 0)
                sql("UPDATE MESURE_PHYSICO SET CommResAnaPC = 'crue' WHERE NumAnaPC = ?", {mesure});
            if (hasard.bounded(6) == 0) // twice on one day
                ajouterMesure(ajouterPrelevement(STATION, jour, QTime(16, 0)), "1340",
                              hasard.bounded(400) / 10.0, code());
            ajouterMesure(prel, "1302", hasard.bounded(650, 850) / 100.0);
            ajouterMesure(prel, "1841", hasard.bounded(200, 1500) / 100.0, code(), "17", "23");
            if (hasard.bounded(4) > 0)
                ajouterMesure(prel, "1841", hasard.bounded(100, 900) / 100.0, code(), "17", "3");
            ajouterMesure(prel, "1506", 0.1);
        }
        for (QDate jour(2007, 12, 1); jour < QDate(2011, 2, 1); jour = jour.addDays(1)) {
            if (hasard.bounded(15) > 0)
                ajouterDebitJour("J7010610", jour, hasard.bounded(1, 90000) / 10.0);
            if (hasard.bounded(2) == 0)
                sql("INSERT INTO MESURE_PLUVIO (CodeStationPM, DateMesurePM, JourMesurePM) VALUES (?, ?, ?)",
                    {QStringLiteral("35228001"), jour, hasard.bounded(300) / 10.0});
        }
        donnees.executer("COMMIT");
    }
};
