#!/usr/bin/python3
# The distribution's interpreter, which has the distribution's ezdxf.
"""Strict check of DXF files with ezdxf: each file must load with the strict
reader and pass an audit with no errors and no fixes.

Exit 0 when all pass, 1 when one fails, 77 when ezdxf isn't installed (the
test harness reports that as skipped)."""
import sys

try:
    import ezdxf
except ImportError:
    print("python3-ezdxf is not installed: check skipped")
    sys.exit(77)

failed = False
for path in sys.argv[1:]:
    try:
        doc = ezdxf.readfile(path)
    except Exception as e:  # the strict reader refused the file
        print(f"{path}: not read: {e}")
        failed = True
        continue
    auditor = doc.audit()
    if auditor.has_errors or auditor.has_fixes:
        failed = True
        print(f"{path}: {len(auditor.errors)} errors, {len(auditor.fixes)} fixes")
        for e in auditor.errors:
            print(f"  error: {e.message}")
        for f in auditor.fixes:
            print(f"  fix: {f.message}")
    else:
        print(f"{path}: ok ({doc.dxfversion}, {len(doc.modelspace())} entities in model space)")
sys.exit(1 if failed else 0)
