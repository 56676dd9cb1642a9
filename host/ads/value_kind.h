// What a result buffer of a given type or group code holds: one table for the
// whole host (release, copy, conversion to LISP, DXF).
#pragma once

namespace lumo::host {

enum class ValueKind { None, Text, Real, Point, Short, Long, Name, Binary };

// RT codes map to their own kinds; DXF group codes by the drawing format's
// ranges (0-9 texts, 10-39 points, 40-59 reals, 60-79 shorts, 90-99 longs,
// 1004 binary, 1000-1009 texts, ...).
ValueKind ValueKindOf(int code);

}  // namespace lumo::host
