#!/usr/bin/env bash
# Builds lumo and runs every test, then again under AddressSanitizer and
# UndefinedBehaviorSanitizer. Exits non-zero on the first failure.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
jobs=$(nproc 2>/dev/null || echo 2)

run_suite() {   # run_suite BUILD_DIR [cmake options...]
  local dir=$1; shift
  cmake -S . -B "$dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" >/dev/null
  cmake --build "$dir" -j"$jobs"
  (cd "$dir" && ctest --output-on-failure -j"$jobs")
}

echo "== tests"
run_suite build
if [ "${LUMO_SKIP_SANITIZE:-0}" != 1 ]; then
  echo "== tests under ASan+UBSan"
  export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
  export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
  run_suite build-sanitize -DLUMO_SANITIZE=ON
fi
