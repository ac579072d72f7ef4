#!/usr/bin/env bash
# The program itself in a real window: the start window and a key that closes it, the choice of the base, the main
# window, its menu, the end. Driven from outside, as a user does, on a display of our own (Xvfb, xdotool).
#
#   parcours_reel.sh OVRALIS INSTALLATION [CAPTURES]
set -euo pipefail

ovralis=$1
installation=$2
captures=${3:-}

for outil in Xvfb xdotool; do
    command -v "$outil" >/dev/null || { echo "SKIPPED: $outil is not installed"; exit 77; }
done

travail=$(mktemp -d)
programme=
serveur=
nettoyer() {
    # Only what was started here, by number.
    if [ -n "$programme" ]; then kill "$programme" 2>/dev/null || true; wait "$programme" 2>/dev/null || true; fi
    if [ -n "$serveur" ]; then kill "$serveur" 2>/dev/null || true; wait "$serveur" 2>/dev/null || true; fi
    rm -rf "$travail"
}
trap nettoyer EXIT

echouer() {
    echo "FAILED: $*" >&2
    [ -z "$captures" ] || capturer echec
    xdotool search --name '.*' 2>/dev/null | while read -r f; do xdotool getwindowname "$f"; done | sort -u >&2 || true
    exit 1
}
capturer() {
    # Pictures are for the eye alone: without the tool that takes them, the test is the same.
    [ -n "$captures" ] && command -v import >/dev/null || return 0
    mkdir -p "$captures"
    import -window root "$captures/$1.png"
}
# attendre SECONDS COMMAND...: until the command succeeds; prints what it printed.
attendre() {
    local fin=$((SECONDS + $1)) sortie
    shift
    while [ $SECONDS -lt $fin ]; do
        if sortie=$("$@" 2>/dev/null); then
            echo "$sortie"
            return 0
        fi
        sleep 0.05
    done
    return 1
}
fenetre() { xdotool search --onlyvisible --name "$1" | head -n 1 | grep .; }
partie() { ! kill -0 "$programme" 2>/dev/null; }
# The spreadsheet process that our program has started: it has our home.
tableur() {
    local processus
    for processus in /proc/[0-9]*; do
        { tr '\0' '\n' <"$processus/cmdline" | head -n 1 | grep -q soffice; } 2>/dev/null || continue
        { tr '\0' '\n' <"$processus/environ" | grep -qxF "HOME=$HOME"; } 2>/dev/null || continue
        echo "${processus#/proc/}"
        return 0
    done
    return 1
}
taper() { xdotool windowfocus --sync "$1"; shift; xdotool key --clearmodifiers "$@"; }

# The server picks a free display and tells its number.
mkfifo "$travail/numero"
Xvfb -displayfd 3 -screen 0 1366x768x24 -nolisten tcp >/dev/null 2>&1 3>"$travail/numero" &
serveur=$!
read -r numero <"$travail/numero"
export DISPLAY=":$numero" QT_QPA_PLATFORM=xcb

# The user's home holds C:\Projet\.
export HOME="$travail/maison"
mkdir -p "$HOME"
cp -r "$installation/Projet" "$HOME/Projet"

# The start window stays two seconds by itself, so the choice of the base must be there sooner than that after the key.
# On a machine that is busy with other tests the answer may be late: cancelling then ends the program, and it is tried
# again.
for essai in 1 2 3 4; do
    [ $essai -lt 4 ] || echouer "the key did not close the start window ($delai ms)"
    "$ovralis" &
    programme=$!
    presentation=$(attendre 20 fenetre '^Ovralis$') || echouer "no start window"
    debut=$(date +%s%N)
    if [ $essai -eq 1 ]; then
        sleep 0.3
        capturer 1_presentation
    fi
    taper "$presentation" space
    choix=$(attendre 10 fenetre '^Choisissez la base de données par défaut$') || echouer "no choice of the base"
    delai=$((($(date +%s%N) - debut) / 1000000))
    [ $delai -ge 1900 ] || break
    taper "$choix" Escape
    attendre 20 partie >/dev/null || echouer "cancelling did not end the program"
    wait "$programme" || echouer "cancelling ended the program with a code"
done
fenetre '^En attente' >/dev/null || echouer "no waiting main window behind the choice"
sleep 0.3
capturer 2_choix_de_la_base
xdotool windowfocus --sync "$choix"
xdotool type --delay 5 "$HOME/Projet/Base/demonstration.mdb"
sleep 0.3
xdotool key Return
choisie=$(date +%s%N)

mere=$(attendre 10 fenetre '^Ovralis - Outil Local / ') || echouer "no main window on the study"
echo "main window ready $(( ($(date +%s%N) - choisie) / 1000000 )) ms after the choice"
sleep 0.5
capturer 3_fenetre_principale

# The menu by its letters: Physico-chimie, Evolution dans le temps.
taper "$mere" alt+p
sleep 0.4
capturer 4_menu
xdotool key e
sleep 1
capturer 5_ecran
xdotool getwindowname "$mere" | grep -q '^Ovralis - Outil Local / ' || echouer "the main window lost its caption"

attendre 30 tableur >/dev/null || echouer "the spreadsheet was not started ahead"

# Quitting asks; Escape stays, then Oui ends.
taper "$mere" alt+q
quitter=$(attendre 10 fenetre "^Fermeture de l'application$") || echouer "no question before the end"
capturer 6_quitter
taper "$quitter" Escape
sleep 0.3
if fenetre "^Fermeture de l'application$" >/dev/null; then echouer "Escape did not close the question"; fi
kill -0 "$programme" || echouer "Escape ended the program"
taper "$mere" alt+q
quitter=$(attendre 10 fenetre "^Fermeture de l'application$") || echouer "no second question"
taper "$quitter" alt+o
attendre 20 partie >/dev/null || echouer "the program did not end"
code=0
wait "$programme" || code=$?
programme=
[ $code -eq 0 ] || echouer "the program ended with code $code"
[ ! -e "$HOME/Projet/Base/demonstration.mdb-wal" ] || echouer "the journal was not folded back"
[ -d "$HOME/Projet/Travail" ] || echouer "no working folder"
# Nothing of the spreadsheet is left behind.
if tableur >/dev/null; then echouer "a spreadsheet process is left"; fi
echo "PASSED"
