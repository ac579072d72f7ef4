#!/usr/bin/env bash
# Starts the program on its folders; without a display, plays the demonstration instead and says where its results are.
set -euo pipefail
cd "$(dirname "$0")/.."
construction=$PWD/build

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    # C:\Projet\ is the folder Projet of the user's home; a base that is there already is left as it is, a template gives
    # way to a newer one only.
    mkdir -p "$HOME"/Projet/{Base,Modèles,Export,Travail,Dessin,MajIntervenant}
    cp -rn "$construction/installation/Projet/Base/." "$HOME/Projet/Base/"
    cp -ru "$construction/installation/Projet/Modèles/." "$HOME/Projet/Modèles/"
    exec "$construction/bin/ovralis"
fi

sortie=$construction/demonstration
rm -rf "$sortie"
mkdir -p "$sortie/captures"
echo "No display: the demonstration is played instead (a laboratory's workbook is imported, a statistics report is made)."
"$construction/bin/pilote" --racine "$sortie/C" --captures "$sortie/captures" tests/scenarios/demonstration.scn

rapport=$sortie/C/Projet/Export/rapport_demonstration.xls
profil=$(mktemp -d)
trap 'rm -rf "$profil"' EXIT
# The picture shows numbers as a French desktop does.
mkdir -p "$profil/user"
cat >"$profil/user/registrymodifications.xcu" <<'XCU'
<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry">
<item oor:path="/org.openoffice.Setup/L10N"><prop oor:name="ooSetupSystemLocale" oor:op="fuse"><value>fr-FR</value></prop></item>
</oor:items>
XCU
soffice "-env:UserInstallation=file://$profil" --headless --convert-to pdf --outdir "$sortie" "$rapport" >/dev/null 2>&1
pdftoppm -png -r 80 "$sortie/rapport_demonstration.pdf" "$sortie/rapport"
echo
echo "Report:          $rapport"
for image in "$sortie"/rapport-*.png; do
    echo "Its picture:     $image"
done
echo "Screen captures: $sortie/captures/"
ls "$sortie/captures" | sed 's/^/                 /'
