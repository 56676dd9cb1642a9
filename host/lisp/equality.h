// The host's two equalities, shared by the builtins that search lists.
#pragma once
#include "host/lisp/value.h"

namespace lumo::lisp {

// Same object; integers and symbols by value.
bool Eq(const Ref& a, const Ref& b);
// Same structure; numbers within `fuzz` of each other.
bool Equal(const Ref& a, const Ref& b, double fuzz = 0);

}  // namespace lumo::lisp
