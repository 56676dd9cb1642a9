#!/usr/bin/env bash
# Builds lumo and runs the example job: a LISP script over a bundled drawing.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$(nproc 2>/dev/null || echo 2)" --target lumo_cli lumo
mkdir -p out
exec build/lumo -d examples/floorplan.dxf -o out/floorplan_out.dxf --render out/floorplan.svg examples/main.lsp "$@"
