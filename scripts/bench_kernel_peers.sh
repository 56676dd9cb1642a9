#!/bin/sh
# Runs the kernel's triangulation and offset benchmarks beside two peer
# libraries (GEOS and Clipper) on the same shapes, and prints one table:
# each case's time for lumo and for each peer, lumo's time as a ratio to the
# peer's, and how each grows with size (the exponent k in time ~ n^k from one
# size to the next, ten times larger).
#
# Installs the peers' -dev packages when missing. Extra arguments go to the
# benchmark program (e.g. --benchmark_filter=Comb). BUILD_DIR and JOBS
# override the build folder and the build's parallelism.
set -eu
cd "$(dirname "$0")/.."
BUILD_DIR=${BUILD_DIR:-build-peer-bench}
JOBS=${JOBS:-2}

missing=""
[ -f /usr/include/geos_c.h ] || missing="$missing libgeos-dev"
[ -f /usr/include/polyclipping/clipper.hpp ] || missing="$missing libpolyclipping-dev"
command -v pkg-config >/dev/null 2>&1 || missing="$missing pkg-config"
if [ -n "$missing" ]; then
  if [ "$(id -u)" -eq 0 ]; then SUDO=""; else SUDO="sudo"; fi
  echo "installing:$missing" >&2
  $SUDO apt-get update >/dev/null
  # shellcheck disable=SC2086
  $SUDO env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $missing >/dev/null
fi
bash scripts/deps.sh

cmake -S . -B "$BUILD_DIR" -DCMAKE_BUILD_TYPE=Release -DLUMO_TESTS=OFF -DLUMO_BENCH=ON -DLUMO_PEER_BENCH=ON >/dev/null
cmake --build "$BUILD_DIR" --target kernel_peer_bench -j"$JOBS" >/dev/null

json="$BUILD_DIR/kernel_peer_bench.json"
"$BUILD_DIR/bench/kernel_peer_bench" --benchmark_counters_tabular=true \
  --benchmark_out="$json" --benchmark_out_format=json "$@" >&2

python3 - "$json" <<'EOF'
import json, math, sys

runs = json.load(open(sys.argv[1]))["benchmarks"]
# name -> {size: ms}; a run that failed shows as "failed".
times = {}
for r in runs:
    if r.get("run_type") != "iteration" or "/" not in r["name"]:
        continue
    name, size = r["name"].split("/")[:2]
    if r.get("error_occurred"):
        ms = None
    else:
        scale = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}[r["time_unit"]]
        ms = r["real_time"] * scale
    times.setdefault(name, {})[int(size)] = ms

cases = [
    ("triangulation, star", "BM_TrianglizeStar", [("GEOS CDT", "BM_TrianglizeStar_GEOS")]),
    ("triangulation, comb", "BM_TrianglizeComb", [("GEOS CDT", "BM_TrianglizeComb_GEOS")]),
    ("offset with arcs", "BM_OffsetWithArcs",
     [("GEOS buffer", "BM_OffsetWithArcs_GEOSBuffer"),
      ("GEOS offset curve", "BM_OffsetWithArcs_GEOSOffsetCurve"),
      ("Clipper offset", "BM_OffsetWithArcs_Clipper")]),
]

def fmt(ms):
    return "failed" if ms is None else ("-" if ms is False else "%.3f" % ms)

def growth(series, size):
    prev = size // 10
    a, b = series.get(prev), series.get(size)
    if not a or not b:
        return ""
    return "n^%.2f" % math.log10(b / a)

print()
print("%-20s %8s %12s %-18s %12s %8s %8s %8s" %
      ("case", "n", "lumo ms", "peer", "peer ms", "ratio", "lumo k", "peer k"))
for title, ours, peers in cases:
    lumo = times.get(ours, {})
    sizes = sorted(set(lumo) | {s for _, p in peers for s in times.get(p, {})})
    if not sizes:
        continue
    for size in sizes:
        for label, key in peers:
            peer = times.get(key, {})
            a, b = lumo.get(size, False), peer.get(size, False)
            ratio = "%.2f" % (a / b) if a and b else ""
            print("%-20s %8d %12s %-18s %12s %8s %8s %8s" %
                  (title, size, fmt(a), label, fmt(b), ratio, growth(lumo, size), growth(peer, size)))
    print()
print("ratio: lumo's time over the peer's (below 1: lumo is faster).")
print("k: exponent of the growth from the size ten times smaller.")
print("Clipper has no triangulation; arcs reach the peers flattened at 64 chords a turn.")
EOF
