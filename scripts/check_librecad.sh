#!/usr/bin/env bash
# Opens saved drawings in LibreCAD (Debian's librecad) and prints them to PDF,
# so a person can see that another program reads what lumo writes.
#   scripts/check_librecad.sh OUT_DIR FILE.dxf...
set -euo pipefail
out=$1; shift
command -v librecad >/dev/null || { echo "librecad is not installed (apt-get install librecad)"; exit 2; }
mkdir -p "$out"
for f in "$@"; do
  copy="$out/$(basename "$f")"
  cp "$f" "$copy"
  # LibreCAD prints next to the drawing, under its name.
  QT_QPA_PLATFORM=offscreen librecad dxf2pdf -a "$copy" >/dev/null 2>&1
  pdf="${copy%.*}.pdf"
  if [ -s "$pdf" ]; then echo "opened: $f -> $pdf"; else echo "LibreCAD could not print $f"; exit 1; fi
done
