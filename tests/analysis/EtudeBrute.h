// A small study whose raw data hold one case of each kind.
#pragma once

#include "analysis/LectureDonneesBrutes.h"
#include "analysis/LignesDonneesBrutes.h"
#include "BaseDEssai.h"

// Samplings, in the order shown:
//   04211940 01/03/2008 without an hour: carbon 5 (fraction 23), nitrates 12,25; in both networks, the second one first
//   04211940 01/03/2008 10:30: pH null value, code remark 0
//   04211950 02/01/2009: nitrates 0,05 (remark 10, another manager), glyphosate 0,1 (remark 2); by an unknown sampler
// and before them a result whose sampling the file has lost: nitrates 99.
struct EtudeBrute : BaseDEssai {
    qint64 p1, p2, p3;
    qint64 carbone, nitrates1, ph, nitrates3, glyphosate, perdu;

    EtudeBrute()
    {
        // Not in the order in which they are shown.
        p3 = ajouterPrelevement(QStringLiteral("04211950"), {2009, 1, 2}, {}, QStringLiteral("77"));
        p2 = ajouterPrelevement(QStringLiteral("04211940"), {2008, 3, 1}, {10, 30});
        p1 = ajouterPrelevement(QStringLiteral("04211940"), {2008, 3, 1});
        nitrates1 = ajouterMesure(p1, QStringLiteral("1340"), 12.25);
        carbone = ajouterMesure(p1, QStringLiteral("1841"), 5, QStringLiteral("1"), QStringLiteral("17"),
                                QStringLiteral("3"));
        glyphosate = ajouterMesure(p3, QStringLiteral("1506"), 0.1, QStringLiteral("2"));
        nitrates3 =
            ajouterMesure(p3, QStringLiteral("1340"), 0.05, QStringLiteral("10"), QStringLiteral("18"));
        ph = ajouterMesure(p2, QStringLiteral("1302"), 7, QStringLiteral("0"));
        sql(QStringLiteral("UPDATE MESURE_PHYSICO SET ResultatAnaPC = NULL WHERE NumAnaPC = ?"), {ph});
        perdu = ajouterMesure(p3 + 1000, QStringLiteral("1340"), 99);
        for (const char *reseau : {"0400000002", "0400000001"})
            sql(QStringLiteral("INSERT INTO PRELEVEMENTRSX VALUES (?, ?)"),
                {p1, QString::fromLatin1(reseau)});
        sql(QStringLiteral("INSERT INTO PRELEVEMENTRSX VALUES (?, '0400000001')"), {p3});
    }

    std::shared_ptr<JeuDonneesBrutes> lire(const DemandeDonneesBrutes &demande = {}) const
    {
        LectureDonneesBrutes lecture(donnees, demande);
        while (lecture.avancer(1000)) {
        }
        return lecture.jeu();
    }
    static QList<qint64> cles(const JeuDonneesBrutes &jeu)
    {
        QList<qint64> cles;
        for (int i = 0; i < jeu.nombre(); ++i)
            cles << jeu.resultat(i).numAnaPC;
        return cles;
    }
};
