#!/usr/bin/env bash
# Runs every bench program and prints its figures; a figure is never a failure.
set -euo pipefail
cd "$(dirname "$0")/.."
export QT_QPA_PLATFORM=offscreen
for banc in build/bench/banc_*; do
    [ -f "$banc" ] && [ -x "$banc" ] || continue
    echo "== $(basename "$banc")"
    "$banc" || echo "   (ended with code $?)"
done
