// Evaluation with the host's semantics: one value cell per symbol, dynamic
// scope for arguments and locals.
#pragma once
#include "host/lisp/value.h"

namespace lumo::lisp {

Ref Eval(const Ref& form);
// Evaluates each form of a list; the value of the last.
Ref EvalBody(const Ref& forms);
// Calls a function value (or a symbol naming one, or a lambda list).
Ref Apply(const Ref& fn, Args args);
// The callable value behind a function argument of mapcar, apply, ...
Ref ResolveFunction(const Ref& fn);
bool IsFunction(const Ref& v);

// How a module's function is called; installed by the bridge.
extern Ref (*gCallExternal)(const Exrxsubr& fn, Args args);

// Binds symbols for the lifetime of the object and restores them after,
// whatever way the scope is left.
class DynamicBinding {
public:
    DynamicBinding() = default;
    DynamicBinding(const DynamicBinding&) = delete;
    DynamicBinding& operator=(const DynamicBinding&) = delete;
    ~DynamicBinding();
    void Bind(const Symbol* sym, Ref value);
private:
    struct Saved { Symbol* sym; Ref old; };
    Saved m_small[8];
    std::vector<Saved> m_more;
    size_t m_count = 0;
};

}  // namespace lumo::lisp
