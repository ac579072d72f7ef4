// The three sheets of the outside bodies (INTERVENANT): laboratories, samplers, managers. One table: any body can be used in
// any role.
#pragma once

#include "capture/DescriptionFiche.h"

class DataEnvironment1;

namespace Fiches
{
const DescriptionFiche &laboratoire();
const DescriptionFiche &preleveur();
// The one that also shows the department or country, and that carries a changed code over.
const DescriptionFiche &gestionnaire();
// The same, under the words of an actor without a role.
const DescriptionFiche &intervenant();
} // namespace Fiches

namespace FichesIntervenants
{
// Carries a manager's new code over to what names the old one: results, rainfall measures, stations. Samplings keep the old
// one; the update of the actors' codes changes them.
void reporterCode(const DataEnvironment1 &donnees, const QString &ancien, const QString &nouveau);

// Samplings that name this code as their sampler or their producer.
qint64 prelevements(const DataEnvironment1 &donnees, const QString &code);

// Why the code of a chosen body cannot be changed on a sheet that does not carry it over: what uses it. An empty text where
// nothing does, on the manager's sheet, and for the same code in another case.
QString fauteCode(const DataEnvironment1 &donnees, const DescriptionFiche &description, const QString &ancien,
                  const QString &code);
} // namespace FichesIntervenants
