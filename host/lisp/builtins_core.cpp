// Predicates, evaluation and errors.
#include "host/lisp/builtins.h"
#include "host/lisp/equality.h"
#include "host/lisp/eval.h"
#include "host/lisp/reader.h"

namespace lumo::lisp {
namespace {

Ref EqFn(Args a) { ArgCount(a, 2, 2); return MakeBool(Eq(a[0], a[1])); }

Ref EqualFn(Args a) {
    ArgCount(a, 2, 3);
    return MakeBool(Equal(a[0], a[1], a.size() > 2 ? NumArg(a[2]) : 0));
}

Ref Null(Args a) { ArgCount(a, 1, 1); return MakeBool(!a[0]); }
Ref Atom(Args a) { ArgCount(a, 1, 1); return MakeBool(!a[0].Is(Type::List)); }
Ref Listp(Args a) { ArgCount(a, 1, 1); return MakeBool(!a[0] || a[0].Is(Type::List)); }
Ref Consp(Args a) { ArgCount(a, 1, 1); return MakeBool(a[0].Is(Type::List)); }

Ref TypeFn(Args a) {
    ArgCount(a, 1, 1);
    if (!a[0]) return nullptr;
    switch (a[0].type()) {
    case Type::Int: return Sym("INT");
    case Type::Real: return Sym("REAL");
    case Type::Str: return Sym("STR");
    case Type::Sym: return Sym("SYM");
    case Type::List: return Sym("LIST");
    case Type::Subr: return Sym("SUBR");
    case Type::Usubr: return Sym("USUBR");
    case Type::Exrxsubr: return Sym("EXRXSUBR");
    case Type::Ename: return Sym("ENAME");
    case Type::Pickset: return Sym("PICKSET");
    case Type::File: return Sym("FILE");
    case Type::CatchError: return Sym("VL-CATCH-ALL-APPLY-ERROR");
    }
    return nullptr;
}

Ref Boundp(Args a) {
    ArgCount(a, 1, 1);
    return MakeBool(static_cast<bool>(SymArg(a[0]).value));
}

Ref EvalFn(Args a) { ArgCount(a, 1, 1); return Eval(a[0]); }

Ref Read(Args a) {
    ArgCount(a, 0, 1);
    if (a.empty()) return nullptr;
    return ReadOne(StrArg(a[0]));
}

Ref Set(Args a) {
    ArgCount(a, 2, 2);
    const Symbol& s = SymArg(a[0]);
    if (s.constant) Fail("attempt to set constant: " + s.name);
    const_cast<Symbol&>(s).value = a[1];
    return a[1];
}

Ref SymbolValue(Args a) {
    ArgCount(a, 1, 1);
    return SymArg(a[0]).value;
}

Ref CatchAllApply(Args a) {
    ArgCount(a, 2, 2);
    std::vector<Ref> args = ToVector(ListArg(a[1]));
    try {
        return Apply(a[0], args);
    } catch (const LispError& e) {
        return Ref(new CatchError(e.what()));
    }
}

Ref CatchErrorP(Args a) { ArgCount(a, 1, 1); return MakeBool(a[0].Is(Type::CatchError)); }

Ref CatchErrorMessage(Args a) {
    ArgCount(a, 1, 1);
    if (!a[0].Is(Type::CatchError)) TypeError("vl-catch-all-apply-error-p", a[0]);
    return MakeStr(a[0].As<CatchError>().message);
}

Ref Exit(Args a) {
    ArgCount(a, 0, 0);
    throw LispExit();
}

// Loading the extended functions is a no-op here: they are always there.
Ref Nothing(Args) { return nullptr; }

const BuiltinTable kCore{{
    {"eq", EqFn}, {"equal", EqualFn}, {"null", Null}, {"not", Null}, {"atom", Atom},
    {"listp", Listp}, {"vl-consp", Consp}, {"type", TypeFn}, {"boundp", Boundp},
    {"eval", EvalFn}, {"read", Read}, {"set", Set}, {"vl-symbol-value", SymbolValue},
    {"vl-catch-all-apply", CatchAllApply}, {"vl-catch-all-error-p", CatchErrorP},
    {"vl-catch-all-error-message", CatchErrorMessage}, {"exit", Exit}, {"quit", Exit},
    {"vl-load-com", Nothing}, {"vl-load-reactors", Nothing},
}};

}  // namespace
}  // namespace lumo::lisp
