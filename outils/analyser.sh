#!/usr/bin/env bash
# The static checks of .clang-tidy on the sources, or on the files given. clang cannot read gcc's precompiled headers:
# the commands are taken without them.
set -euo pipefail
cd "$(dirname "$0")/.."
mkdir -p build/analyse
sed -E 's# -Winvalid-pch##g; s# -include [^ ]*cmake_pch\.hxx##g' build/compile_commands.json >build/analyse/compile_commands.json
if [ $# -gt 0 ]; then
    printf '%s\n' "$@"
else
    git ls-files 'src/*.cpp' 'donnees/*.cpp' 'modeles/*.cpp'
fi | xargs -P"$(nproc)" -n4 clang-tidy -p build/analyse --quiet
