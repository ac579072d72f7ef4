// Workbooks such as a laboratory or a weather service would send, to be imported.
#pragma once

#include "workbook/Tableur.h"

#include <QString>

class Banc;
class Campagnes;

// The year after the study's last: everything that these workbooks name is in the demonstration base, and none of their
// rows. `etude` and `referentiel` are folders of tables; the format follows the file's name.
namespace Classeurs
{
// Results of the campaigns of "classeur_2019.csv", one a row, under the headers of the physico-chemical layout. Written
// as people write them: codes as texts, but for a station whose code has no leading zero; numbers, some with a comma
// and typed as text; times as times, as text, or none.
void creerAnalyses(Tableur &tableur, const Campagnes &campagnes, const QString &donnees,
                   const QString &fichier);
// The same layout with five rows, of which three stop the import: an unknown station, a unit that the parameter is not
// imported in, an unknown sampler.
void creerAnalysesACorriger(Tableur &tableur, const QString &donnees, const QString &fichier);
// The same layout with eleven rows, of which most name something new: two stations, a parameter, two managers, a sampler, a
// laboratory, a network, and a unit in which its parameter is not yet imported.
void creerAnalysesAvecNouveautes(Tableur &tableur, const QString &donnees, const QString &fichier);
// Daily flows of January to March 2019 at both hydrometric stations, then the three monthly means of each.
void creerDebits(Tableur &tableur, const Campagnes &campagnes, const QString &donnees,
                 const QString &fichier);
// Daily rain of January to March 2019.
void creerPluies(Tableur &tableur, const Campagnes &campagnes, const QString &donnees,
                 const QString &fichier);
// `lignes` rows for a base made by "creer_bases elements" or "creer_bases resultats" (see Banc.h).
void creerBanc(Tableur &tableur, const Banc &banc, int lignes, const QString &fichier);
} // namespace Classeurs
