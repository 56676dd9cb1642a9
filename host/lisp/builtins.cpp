#include "host/lisp/builtins.h"

#include "host/lisp/printer.h"

namespace lumo::lisp {

namespace {

std::vector<BuiltinEntry>& PendingBuiltins() {
    static std::vector<BuiltinEntry> v;
    return v;
}
std::vector<SpecialEntry>& PendingSpecials() {
    static std::vector<SpecialEntry> v;
    return v;
}

void Bind(const char* name, BuiltinFn fn, SpecialFn special) {
    auto* sym = const_cast<Symbol*>(Intern(name));
    sym->value = Ref(new Subr(sym->name, fn, special));
}

}  // namespace

BuiltinTable::BuiltinTable(std::initializer_list<BuiltinEntry> entries) {
    for (const auto& e : entries) PendingBuiltins().push_back(e);
}

SpecialTable::SpecialTable(std::initializer_list<SpecialEntry> entries) {
    for (const auto& e : entries) PendingSpecials().push_back(e);
}

void InitBuiltins() {
    for (const auto& e : PendingBuiltins()) Bind(e.name, e.fn, nullptr);
    for (const auto& e : PendingSpecials()) Bind(e.name, nullptr, e.fn);
    True();
    auto* pi = const_cast<Symbol*>(Intern("PI"));
    if (!pi->value) pi->value = MakeReal(3.14159265358979323846);
}

void DefineBuiltin(const char* name, BuiltinFn fn) { Bind(name, fn, nullptr); }

void Fail(const std::string& message) { throw LispError(message); }

void TypeError(const char* predicate, const Ref& value) {
    Fail(std::string("bad argument type: ") + predicate + " " + ToString(value, true));
}

void ArgCount(Args a, size_t min, size_t max) {
    if (a.size() < min) Fail("too few arguments");
    if (a.size() > max) Fail("too many arguments");
}

double NumArg(const Ref& v) {
    if (!IsNumber(v)) TypeError("numberp:", v);
    return NumberOf(v);
}

int32_t IntArg(const Ref& v) {
    if (!v.Is(Type::Int)) TypeError("fixnump:", v);
    return v.As<Int>().v;
}

const std::string& StrArg(const Ref& v) {
    if (!v.Is(Type::Str)) TypeError("stringp", v);
    return v.As<Str>().s;
}

const Symbol& SymArg(const Ref& v) {
    if (!v.Is(Type::Sym)) TypeError("symbolp", v);
    return v.As<Symbol>();
}

const Ref& ListArg(const Ref& v) {
    if (v && !v.Is(Type::List)) TypeError("listp", v);
    return v;
}

void PointArg(const Ref& v, double out[3], bool* is3d) {
    out[0] = out[1] = out[2] = 0;
    long n = ListLength(v);
    if (!v.Is(Type::List) || n < 2) TypeError("2D/3D point:", v);
    int i = 0;
    for (const Ref* p = &v; p->Is(Type::List) && i < 3; p = &p->As<Cons>().cdr, ++i) {
        const Ref& item = p->As<Cons>().car;
        if (!IsNumber(item)) TypeError("2D/3D point:", v);
        out[i] = NumberOf(item);
    }
    if (is3d) *is3d = n >= 3;
}

Ref MakePoint(const double p[3], bool is3d) {
    if (is3d) return ListOf({MakeReal(p[0]), MakeReal(p[1]), MakeReal(p[2])});
    return ListOf({MakeReal(p[0]), MakeReal(p[1])});
}

}  // namespace lumo::lisp
