#!/usr/bin/env bash
# jouer.sh PILOTE SCENARIO RACINE CAPTURES: plays a scenario with the Access files of the tests in C:\Projet\Base\. A
# scenario that is named refus_<file> must leave that file byte for byte, and nothing beside it.
set -euo pipefail
pilote=$1 scenario=$2 racine=$3 captures=$4
ici=$(cd "$(dirname "$0")" && pwd)
bases=$ici/../../donnees/bases
nom=$(basename "$scenario" .scn)

rm -rf "$racine"
mkdir -p "$racine/Projet/Base"
cp "$bases"/*.mdb "$racine/Projet/Base/"
chmod 644 "$racine/Projet/Base/"*.mdb
# A real base of Access 97, which is not handed on with the sources.
autre=${OVRALIS_BASES_VOISINES:-}/autre_base_97.mdb
if [ -e "$autre" ]; then
    cp "$autre" "$racine/Projet/Base/" && chmod 644 "$racine/Projet/Base/autre_base_97.mdb"
elif grep -q autre_base_97 "$scenario"; then
    echo "OVRALIS_BASES_VOISINES holds no autre_base_97.mdb: skipped"
    exit 77
fi
"$pilote" --racine "$racine" --captures "$captures" "$scenario"

if [[ $nom == refus_* ]]; then
    base=${nom#refus_}.mdb
    original=$bases/$base
    [ -e "$original" ] || original=$autre
    cmp "$original" "$racine/Projet/Base/$base"
    [ "$(find "$racine/Projet/Base" -name "${nom#refus_}*" | wc -l)" = 1 ]
fi
rm -rf "$racine"
