#!/usr/bin/env bash
# The fuzz programs, run long; their seeds are printed, so that a failure can be played again.
set -euo pipefail
cd "$(dirname "$0")/.."
for fuzz in build/fuzz/fuzz_*; do
    [ -f "$fuzz" ] && [ -x "$fuzz" ] || continue
    echo "== $(basename "$fuzz")"
    "$fuzz" --nombre "${NOMBRE:-20000}"
done
