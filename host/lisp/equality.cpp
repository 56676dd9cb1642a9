#include "host/lisp/equality.h"

#include <cmath>
#include <cstring>

namespace lumo::lisp {

bool Eq(const Ref& a, const Ref& b) {
    if (a == b) return true;
    if (!a || !b) return false;
    if (a.Is(Type::Int) && b.Is(Type::Int)) return a.As<Int>().v == b.As<Int>().v;
    if (a.Is(Type::Ename) && b.Is(Type::Ename)) return std::memcmp(a.As<Ename>().name, b.As<Ename>().name, 8) == 0;
    if (a.Is(Type::Pickset) && b.Is(Type::Pickset))
        return std::memcmp(a.As<Pickset>().name, b.As<Pickset>().name, 8) == 0;
    return false;
}

bool Equal(const Ref& a, const Ref& b, double fuzz) {
    const Ref* x = &a;
    const Ref* y = &b;
    for (;;) {
        if (Eq(*x, *y)) return true;
        if (!*x || !*y) return false;
        if (IsNumber(*x) && IsNumber(*y)) return std::fabs(NumberOf(*x) - NumberOf(*y)) <= fuzz;
        if (x->type() != y->type()) return false;
        switch (x->type()) {
        case Type::Str: return x->As<Str>().s == y->As<Str>().s;
        case Type::List:
            if (!Equal(x->As<Cons>().car, y->As<Cons>().car, fuzz)) return false;
            x = &x->As<Cons>().cdr;
            y = &y->As<Cons>().cdr;
            break;
        default: return false;
        }
    }
}

}  // namespace lumo::lisp
