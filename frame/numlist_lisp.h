// The LISP number-list family: sorts of numbers and keyed elements, and
// deletions from element lists. Arguments are a flat run of values, not a
// list.
#pragma once

int lumo_realsort1();   // sorted, near-equal values removed
int lumo_realsort2();   // sorted, all kept
int lumo_rlistsort1();  // elements sorted by key, near-equal keys removed
int lumo_rlistsort2();  // elements sorted by key, all kept
int lumo_rlistdel1();   // elements without those matching the target
int lumo_rlistdel2();   // elements without the first match

// The sorts' comparison: 0 when |a - b| is below 1e-5, else 1 if a is the
// greater, -1 otherwise. It isn't transitive; the sorts are built to stand
// that.
int CompareWithTolerance(double a, double b);
