// What the end-to-end tests of the evolution charts share.
#pragma once

#include "analysis/EvolutionPC.h"
#include "EssaiRapport.h"

Q_DECLARE_METATYPE(DemandeEvolution)

class EssaiEvolution : public EssaiRapport
{
public:
    // The whole commands; true when a finished document was shown.
    bool tracer(const DemandeEvolution &d, const DataEnvironment1 &donnees)
    {
        return executer(M_Concentration_OVRA::commandeGraphique(d, donnees, dialogue));
    }
    bool tracerEtEditer(const DemandeEvolution &d, const DataEnvironment1 &donnees)
    {
        return executer(M_Concentration_OVRA::commandeGraphiqueEtRapport(d, donnees, dialogue));
    }

    // What the independent reader says against the sheet "Mesures"; empty when it agrees.
    QString verifierMesures(const DemandeEvolution &d, const QString &base) const
    {
        return comparer("verifier_evolution.py", evolutionEnJson(d), base, sortie());
    }

    static QJsonObject evolutionEnJson(const DemandeEvolution &d)
    {
        const auto nombre = [](const std::optional<double> &v) { return v ? QJsonValue(*v) : QJsonValue(); };
        QJsonObject json = enJson(d.selection);
        QJsonArray courbes;
        for (const CourbeDemandee &courbe : d.courbes)
            courbes.append(QJsonArray{courbe.parametre, courbe.fraction});
        json["courbes"] = courbes;
        json["noms_gestionnaires"] = QJsonArray::fromStringList(d.nomsGestionnaires);
        json["noms_reseaux"] = QJsonArray::fromStringList(d.nomsReseaux);
        json["seq"] = d.fondSEQ;
        json["norme"] = d.norme;
        json["quantile"] = d.quantile;
        json["objectif_moyen"] = nombre(d.objectifMoyen);
        json["objectif_maximal"] = nombre(d.objectifMaximal);
        json["intitule_seuil"] = d.intituleSeuil;
        json["seuil_graphique"] = nombre(d.valeurSeuil);
        json["pluie"] = d.stationPluie;
        return json;
    }
};
