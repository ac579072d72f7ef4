// Writes a sampling, and deletes it.
#pragma once

#include "capture/LignePrelevement.h"

class DataEnvironment1;

namespace EnregistrementPrelevement
{
// Replaces the results that the key has in this family by these rows, and the networks of their samplings by those of the
// rows. Samplings stay: each row goes to the one of its sampler, which is made where there is none; so several samplers
// make several samplings. Without a time, the first sampling of that day and sampler is taken, whatever its time, and a row
// that was read from a sampling goes back to it.
//
// What the screen does not show is kept: methods, further decimals, memberships of networks without a label, and all that
// belongs to samplings that have results of the other family only.
//
// All or nothing: an Erreur says that the store is as it was, and why.
void ecrire(const DataEnvironment1 &donnees, FamillePrelevement famille, const ClePrelevement &cle,
            const QList<LignePrelevement> &lignes);

// Deletes the results that the key has in this family, then every sampling, anywhere, that is left without a result.
void supprimer(const DataEnvironment1 &donnees, FamillePrelevement famille, const ClePrelevement &cle);
} // namespace EnregistrementPrelevement
