#!/bin/sh
# Loading and saving a large DXF file: the host against ezdxf on the same
# file, side by side. Not a test; it takes minutes and gigabytes.
#
#   scripts/bench_dxf.sh [ENTITIES]        (default 1000000)
#
# Builds bench/hostdb in build-bench (Release) unless LUMO_BENCH_BIN names a
# built hostdb_bench. Each measurement runs in its own process so that its
# peak memory (getrusage) is its own. ezdxf is skipped when it is missing.
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
entities=${1:-1000000}
work=${LUMO_BENCH_DIR:-$(mktemp -d)}
bin=${LUMO_BENCH_BIN:-}
if [ -z "$bin" ]; then
    build="$root/build-bench"
    cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DLUMO_BENCH=ON >/dev/null
    cmake --build "$build" --target hostdb_bench -j2 >/dev/null
    bin="$build/bench/hostdb_bench"
fi
python=python3
[ -x /usr/bin/python3 ] && python=/usr/bin/python3

file="$work/bench_$entities.dxf"
json="$work/results.txt"
: > "$json"

# One benchmark in its own process; appends "name seconds peak_MiB file_MiB".
host_run() {
    LUMO_BENCH_ENTITIES=$entities LUMO_BENCH_DXF=$file LUMO_BENCH_OUT=$file \
        "$bin" --benchmark_filter="^$1/" --benchmark_format=json >"$work/$1.json"
    $python - "$work/$1.json" "$1" >>"$json" <<'EOF'
import json, sys
run = json.load(open(sys.argv[1]))["benchmarks"][0]
unit = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}[run.get("time_unit", "ns")]
print(sys.argv[2], run["real_time"] * unit, run["peak_MiB"], run["file_MiB"])
EOF
}

echo "writing $entities entities to $file ..."
host_run DxfWriteNew
host_run DxfLoad
host_run DxfSave

if $python -c "import ezdxf" 2>/dev/null; then
    echo "ezdxf reading and writing the same file ..."
    $python - "$file" "$work/ezdxf_out.dxf" >>"$json" <<'EOF'
import os, resource, sys, time
import ezdxf
src, dst = sys.argv[1], sys.argv[2]
mib = os.path.getsize(src) / 2**20
t = time.perf_counter()
doc = ezdxf.readfile(src)
load = time.perf_counter() - t
peak = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss / 1024
print("ezdxf_load", load, peak, mib)
t = time.perf_counter()
doc.saveas(dst)
save = time.perf_counter() - t
peak = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss / 1024
print("ezdxf_save", save, peak, os.path.getsize(dst) / 2**20)
EOF
    rm -f "$work/ezdxf_out.dxf"
else
    echo "ezdxf is not installed: its column stays empty"
fi

$python - "$json" "$entities" <<'EOF'
import sys
rows = {}
for line in open(sys.argv[1]):
    name, secs, peak, mib = line.split()
    rows[name] = (float(secs), float(peak), float(mib))
print(f"\n{sys.argv[2]} entities, file {rows['DxfLoad'][2]:.1f} MiB\n")
print(f"{'':14}{'lumo s':>9}{'MB/s':>8}{'peak MiB':>10}{'peak/file':>10}"
      f"{'ezdxf s':>10}{'MB/s':>8}{'peak MiB':>10}{'speed-up':>10}")
for what, ours, theirs in (("load", "DxfLoad", "ezdxf_load"), ("save", "DxfSave", "ezdxf_save")):
    s, p, m = rows[ours]
    line = f"{what:14}{s:9.2f}{m * 1.048576 / s:8.1f}{p:10.0f}{p / m:10.2f}"
    if theirs in rows:
        es, ep, em = rows[theirs]
        line += f"{es:10.2f}{em * 1.048576 / es:8.1f}{ep:10.0f}{es / s:9.1f}x"
    print(line)
s, p, m = rows["DxfWriteNew"]
print(f"{'build+save':14}{s:9.2f}{m * 1.048576 / s:8.1f}{p:10.0f}   (drawing made in memory first; time is the save)")
EOF
[ -n "${LUMO_BENCH_DIR:-}" ] || rm -rf "$work"
