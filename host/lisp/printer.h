// The host's printed forms of LISP values.
#pragma once
#include <string>

#include "host/lisp/value.h"

namespace lumo::lisp {

// prin1 form when `quoted` (strings in quotes with escapes), princ form otherwise.
std::string ToString(const Ref& value, bool quoted);
// A real as the host prints it: six significant digits, always with a point.
std::string FormatReal(double v);
// The printed form of an entity name.
std::string FormatEname(const int32_t name[2]);

}  // namespace lumo::lisp
