#include "exchange/LigneHydro.h"

#include "exchange/ArretImport.h"
#include "exchange/ChampsCommuns.h"

using Champ = ChampHydro;

namespace
{
QString station(const LigneExcel &ligne, const ReferencesHydro &references)
{
    const QString numero = ChampsCommuns::numeroStation(ligne, Champ::Station);
    if (const std::optional<QString> code = references.stations.chercher(numero))
        return *code;
    throw ArretImport::elementInconnu(TypeElement::StationHydro, numero);
}

bool mensuel(const LigneExcel &ligne)
{
    const QString type = ligne.texte(Champ::TypeDebit);
    if (type.isEmpty())
        throw ArretImport::elementVide(QStringLiteral(" délai "));
    if (type != QStringLiteral("QJO") && type != QStringLiteral("QME"))
        throw ArretImport::faute(
            QStringLiteral("La valeur du type du débit '") + citer(type) +
            QStringLiteral("' doit être égale à 'QJO' pour le journalier ou à 'QME' pour le mensuel."));
    return type == QStringLiteral("QME");
}
} // namespace

MesureHydro lireLigneHydro(const LigneExcel &ligne, const ReferencesHydro &references)
{
    MesureHydro mesure;
    mesure.station = station(ligne, references);
    mesure.date = ChampsCommuns::date(ligne, Champ::Date);
    mesure.debit_l_s = ChampsCommuns::nombre(ligne, Champ::Debit, QStringLiteral(" débit "));
    mesure.mensuel = mensuel(ligne);
    mesure.heure = ChampsCommuns::heure(ligne, Champ::Heure);
    if (mesure.heure == QStringLiteral("00:00:00"))
        mesure.heure.clear();
    return mesure;
}
