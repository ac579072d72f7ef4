#include "exchange/LignePluvio.h"

#include "exchange/ArretImport.h"
#include "exchange/ChampsCommuns.h"

using Champ = ChampPluvio;

MesurePluvio lireLignePluvio(const LigneExcel &ligne, const ReferencesPluvio &references)
{
    MesurePluvio mesure;
    const QString numero = ChampsCommuns::numeroStation(ligne, Champ::Station);
    const std::optional<QString> station = references.stations.chercher(numero);
    if (!station)
        throw ArretImport::elementInconnu(TypeElement::StationPluvio, numero);
    mesure.station = *station;
    mesure.gestionnaire = ChampsCommuns::gestionnaire(ligne, Champ::Gestionnaire, references.gestionnaires);
    mesure.date = ChampsCommuns::date(ligne, Champ::Date);
    mesure.pluie_mm = ChampsCommuns::nombre(ligne, Champ::Mesures, QStringLiteral(" résultat "));
    mesure.commentaire = ChampsCommuns::commentaire(ligne, Champ::Commentaire);
    return mesure;
}
