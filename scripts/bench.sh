#!/bin/sh
# Builds the benchmarks in release mode and runs them, one table per folder.
set -eu
cd "$(dirname "$0")/.."
sh scripts/deps.sh
cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DLUMO_BENCH=ON -DLUMO_TESTS=OFF >/dev/null
cmake --build build-bench -j2 >/dev/null
for b in build-bench/bench/*_bench; do
  [ -x "$b" ] || continue
  echo "== $(basename "$b")"
  "$b" --benchmark_counters_tabular=true "$@"
done
