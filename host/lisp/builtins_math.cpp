// Numbers: integers wrap at 32 bits as the host's do; any real operand makes
// the result real.
#include <cmath>
#include <cstdint>
#include <string>

#include "host/lisp/builtins.h"
#include "host/lisp/printer.h"

namespace lumo::lisp {
namespace {

// Checks that every argument is a number, and tells whether all are integers.
bool AllInts(Args a) {
    bool ints = true;
    for (const Ref& v : a) {
        NumArg(v);
        ints = ints && v.Is(Type::Int);
    }
    return ints;
}

int32_t Wrap(int64_t v) { return static_cast<int32_t>(static_cast<uint32_t>(static_cast<uint64_t>(v))); }

Ref Plus(Args a) {
    if (AllInts(a)) {
        int64_t s = 0;
        for (const Ref& v : a) s = Wrap(s + v.As<Int>().v);
        return MakeInt(static_cast<int32_t>(s));
    }
    double s = 0;
    for (const Ref& v : a) s += NumberOf(v);
    return MakeReal(s);
}

Ref Minus(Args a) {
    if (a.empty()) return MakeInt(0);
    if (AllInts(a)) {
        int64_t s = a[0].As<Int>().v;
        if (a.size() == 1) return MakeInt(Wrap(-s));
        for (size_t i = 1; i < a.size(); ++i) s = Wrap(s - a[i].As<Int>().v);
        return MakeInt(static_cast<int32_t>(s));
    }
    double s = NumberOf(a[0]);
    if (a.size() == 1) return MakeReal(-s);
    for (size_t i = 1; i < a.size(); ++i) s -= NumberOf(a[i]);
    return MakeReal(s);
}

Ref Times(Args a) {
    if (a.empty()) return MakeInt(0);
    if (AllInts(a)) {
        int64_t s = 1;
        for (const Ref& v : a) s = Wrap(s * v.As<Int>().v);
        return MakeInt(static_cast<int32_t>(s));
    }
    double s = 1;
    for (const Ref& v : a) s *= NumberOf(v);
    return MakeReal(s);
}

Ref Divide(Args a) {
    if (a.empty()) return MakeInt(0);
    if (AllInts(a)) {
        int64_t s = a[0].As<Int>().v;
        for (size_t i = 1; i < a.size(); ++i) {
            int32_t d = a[i].As<Int>().v;
            if (d == 0) Fail("divide by zero");
            s = Wrap(s / d);
        }
        return MakeInt(static_cast<int32_t>(s));
    }
    double s = NumberOf(a[0]);
    for (size_t i = 1; i < a.size(); ++i) {
        double d = NumberOf(a[i]);
        if (d == 0) Fail("divide by zero");
        s /= d;
    }
    return MakeReal(s);
}

Ref Rem(Args a) {
    if (a.empty()) return MakeInt(0);
    if (AllInts(a)) {
        int32_t s = a[0].As<Int>().v;
        for (size_t i = 1; i < a.size(); ++i) {
            int32_t d = a[i].As<Int>().v;
            if (d == 0) Fail("divide by zero");
            s = d == -1 ? 0 : s % d;
        }
        return MakeInt(s);
    }
    double s = NumberOf(a[0]);
    for (size_t i = 1; i < a.size(); ++i) {
        double d = NumberOf(a[i]);
        if (d == 0) Fail("divide by zero");
        s = std::fmod(s, d);
    }
    return MakeReal(s);
}

Ref Step(Args a, int delta) {
    ArgCount(a, 1, 1);
    if (a[0].Is(Type::Int)) return MakeInt(Wrap(int64_t{a[0].As<Int>().v} + delta));
    return MakeReal(NumArg(a[0]) + delta);
}
Ref OnePlus(Args a) { return Step(a, 1); }
Ref OneMinus(Args a) { return Step(a, -1); }

Ref Abs(Args a) {
    ArgCount(a, 1, 1);
    if (a[0].Is(Type::Int)) return MakeInt(Wrap(std::llabs(a[0].As<Int>().v)));
    return MakeReal(std::fabs(NumArg(a[0])));
}

Ref Extreme(Args a, bool wantMax) {
    if (a.empty()) return MakeInt(0);
    bool ints = AllInts(a);
    double best = NumberOf(a[0]);
    for (const Ref& v : a) {
        double x = NumberOf(v);
        if (wantMax ? x > best : x < best) best = x;
    }
    return ints ? MakeInt(static_cast<int32_t>(best)) : MakeReal(best);
}
Ref Max(Args a) { return Extreme(a, true); }
Ref Min(Args a) { return Extreme(a, false); }

Ref Gcd(Args a) {
    ArgCount(a, 2, 2);
    int64_t x = std::llabs(IntArg(a[0])), y = std::llabs(IntArg(a[1]));
    if (x == 0 && y == 0) Fail("bad argument value: positive 0");
    while (y) {
        int64_t t = x % y;
        x = y;
        y = t;
    }
    return MakeInt(Wrap(x));
}

[[noreturn]] void Undefined(const Ref& v) { Fail("function undefined for argument: " + ToString(v, true)); }

Ref Sqrt(Args a) {
    ArgCount(a, 1, 1);
    double x = NumArg(a[0]);
    if (x < 0) Undefined(a[0]);
    return MakeReal(std::sqrt(x));
}

Ref Exp(Args a) {
    ArgCount(a, 1, 1);
    return MakeReal(std::exp(NumArg(a[0])));
}

Ref Log(Args a) {
    ArgCount(a, 1, 1);
    double x = NumArg(a[0]);
    if (x <= 0) Undefined(a[0]);
    return MakeReal(std::log(x));
}

Ref Expt(Args a) {
    ArgCount(a, 2, 2);
    if (AllInts(a)) {
        int64_t base = a[0].As<Int>().v, e = a[1].As<Int>().v, r = 1;
        if (e < 0) return MakeInt(base == 1 ? 1 : base == -1 ? (e % 2 ? -1 : 1) : 0);
        for (int64_t i = 0; i < e && i < 64; ++i) r = Wrap(r * base);
        return MakeInt(static_cast<int32_t>(r));
    }
    return MakeReal(std::pow(NumberOf(a[0]), NumberOf(a[1])));
}

Ref Sin(Args a) { ArgCount(a, 1, 1); return MakeReal(std::sin(NumArg(a[0]))); }
Ref Cos(Args a) { ArgCount(a, 1, 1); return MakeReal(std::cos(NumArg(a[0]))); }

Ref Atan(Args a) {
    ArgCount(a, 1, 2);
    if (a.size() == 1) return MakeReal(std::atan(NumArg(a[0])));
    return MakeReal(std::atan2(NumArg(a[0]), NumArg(a[1])));
}

Ref Fix(Args a) {
    ArgCount(a, 1, 1);
    if (a[0].Is(Type::Int)) return a[0];
    double t = std::trunc(NumArg(a[0]));
    // Beyond the integer range the host keeps the truncated real.
    if (t < INT32_MIN || t > INT32_MAX || std::isnan(t)) return MakeReal(t);
    return MakeInt(static_cast<int32_t>(t));
}

Ref Float(Args a) { ArgCount(a, 1, 1); return MakeReal(NumArg(a[0])); }

Ref Logand(Args a) {
    int32_t r = a.empty() ? 0 : -1;
    for (const Ref& v : a) r &= IntArg(v);
    return MakeInt(r);
}

Ref Logior(Args a) {
    int32_t r = 0;
    for (const Ref& v : a) r |= IntArg(v);
    return MakeInt(r);
}

Ref Lsh(Args a) {
    ArgCount(a, 0, 2);
    uint32_t v = a.empty() ? 0 : static_cast<uint32_t>(IntArg(a[0]));
    int32_t n = a.size() < 2 ? 0 : IntArg(a[1]);
    if (n >= 32 || n <= -32) return MakeInt(0);
    return MakeInt(static_cast<int32_t>(n >= 0 ? v << n : v >> -n));
}

Ref Not32(Args a) { ArgCount(a, 1, 1); return MakeInt(~IntArg(a[0])); }

// Comparisons take numbers or strings, compared pairwise along the arguments.
int Compare(const Ref& x, const Ref& y) {
    if (x.Is(Type::Str) && y.Is(Type::Str)) {
        int c = x.As<Str>().s.compare(y.As<Str>().s);
        return c < 0 ? -1 : c > 0;
    }
    double a = NumArg(x), b = NumArg(y);
    return a < b ? -1 : a > b;
}

template <bool (*Holds)(int)>
Ref Chain(Args a) {
    ArgCount(a, 1);
    for (size_t i = 0; i + 1 < a.size(); ++i)
        if (!Holds(Compare(a[i], a[i + 1]))) return nullptr;
    if (a.size() == 1) Compare(a[0], a[0]);
    return True();
}
bool IsEq(int c) { return c == 0; }
bool IsNe(int c) { return c != 0; }
bool IsLt(int c) { return c < 0; }
bool IsLe(int c) { return c <= 0; }
bool IsGt(int c) { return c > 0; }
bool IsGe(int c) { return c >= 0; }

Ref Zerop(Args a) { ArgCount(a, 1, 1); return MakeBool(NumArg(a[0]) == 0); }
Ref Minusp(Args a) { ArgCount(a, 1, 1); return MakeBool(NumArg(a[0]) < 0); }
Ref Numberp(Args a) { ArgCount(a, 1, 1); return MakeBool(IsNumber(a[0])); }

const BuiltinTable kMath{{
    {"+", Plus}, {"-", Minus}, {"*", Times}, {"/", Divide}, {"rem", Rem}, {"1+", OnePlus},
    {"1-", OneMinus}, {"abs", Abs}, {"max", Max}, {"min", Min}, {"gcd", Gcd}, {"sqrt", Sqrt},
    {"exp", Exp}, {"log", Log}, {"expt", Expt}, {"sin", Sin}, {"cos", Cos}, {"atan", Atan},
    {"fix", Fix}, {"float", Float}, {"logand", Logand}, {"logior", Logior}, {"lsh", Lsh},
    {"~", Not32}, {"=", Chain<IsEq>}, {"/=", Chain<IsNe>}, {"<", Chain<IsLt>}, {"<=", Chain<IsLe>},
    {">", Chain<IsGt>}, {">=", Chain<IsGe>}, {"zerop", Zerop}, {"minusp", Minusp}, {"numberp", Numberp},
}};

}  // namespace
}  // namespace lumo::lisp
