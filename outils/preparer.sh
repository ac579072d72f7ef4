#!/usr/bin/env bash
# Installs the Debian packages of outils/paquets.txt that are missing, as root or through sudo; does nothing where
# all are there.
set -euo pipefail
cd "$(dirname "$0")"

manquants=()
installes=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' 2>/dev/null | awk '$2 == "installed" { print $1 }')
while read -r paquet; do
    grep -qxF -- "$paquet" <<<"$installes" || manquants+=("$paquet")
done < <(sed -e 's/#.*//' -e '/^[[:space:]]*$/d' paquets.txt)
[ ${#manquants[@]} -eq 0 ] && exit 0

root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
        echo "These packages are missing and sudo is not there: ${manquants[*]}" >&2
        exit 1
    }
    root=(sudo)
fi
echo "Installing: ${manquants[*]}"
"${root[@]}" apt-get update -qq
"${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${manquants[@]}"
