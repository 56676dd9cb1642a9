// LISP access to the host's editor: system variables, commands, prompts,
// and the message injection that scripts and tests use.
#include <cmath>
#include <cstring>

#include "host/ads/commands.h"
#include "host/ads/input.h"
#include "host/ads/prompts.h"
#include "host/lisp/builtins.h"
#include "host/lisp/printer.h"
#include "host/sysvars/sysvars.h"
#include "host/win/main_window.h"
#include "platform/acedads.h"
#include "platform/acutads.h"

namespace lumo::lisp {
namespace {

using host::SysVarValue;

Ref FromSysVar(const SysVarValue& v) {
    switch (v.type) {
    case RTSHORT: case RTLONG: return MakeInt(v.i);
    case RTREAL: return MakeReal(v.r);
    case RTSTR: return MakeStr(v.s);
    case RTPOINT: return MakePoint(v.p, false);
    default: return MakePoint(v.p, true);
    }
}

Ref Getvar(Args a) {
    ArgCount(a, 1, 1);
    SysVarValue v;
    if (!host::GetSysVar(StrArg(a[0]), v)) return nullptr;
    return FromSysVar(v);
}

Ref Setvar(Args a) {
    ArgCount(a, 2, 2);
    const std::string& name = StrArg(a[0]);
    SysVarValue v;
    const Ref& x = a[1];
    if (x.Is(Type::Int)) {
        v.type = (x.As<Int>().v >= -32768 && x.As<Int>().v <= 32767) ? RTSHORT : RTLONG;
        v.i = x.As<Int>().v;
    } else if (x.Is(Type::Real)) {
        v.type = RTREAL;
        v.r = x.As<Real>().v;
    } else if (x.Is(Type::Str)) {
        v.type = RTSTR;
        v.s = x.As<Str>().s;
    } else if (x.Is(Type::List)) {
        bool is3d = false;
        PointArg(x, v.p, &is3d);
        v.type = is3d ? RT3DPOINT : RTPOINT;
    } else {
        v.type = RTNONE;
    }
    if (!host::SetSysVar(name, v)) Fail("AutoCAD variable setting rejected: \"" + name + "\" " + ToString(x, true));
    return x;
}

std::string TokenText(const Ref& v) {
    if (v.Is(Type::Str)) return v.As<Str>().s;
    if (IsNumber(v)) return v.Is(Type::Int) ? std::to_string(v.As<Int>().v) : FormatReal(NumberOf(v));
    if (v.Is(Type::List)) {
        double p[3];
        bool is3d = false;
        PointArg(v, p, &is3d);
        std::string s = FormatReal(p[0]) + "," + FormatReal(p[1]);
        return is3d ? s + "," + FormatReal(p[2]) : s;
    }
    if (v == Ref()) return "";
    return ToString(v, false);
}

Ref Command(Args a) {
    std::vector<std::string> tokens;
    for (const Ref& v : a) tokens.push_back(TokenText(v));
    host::RunCommandTokens(tokens);
    return nullptr;
}

Ref Initget(Args a) {
    ArgCount(a, 0, 2);
    int bits = 0;
    std::string keywords;
    for (const Ref& v : a) {
        if (v.Is(Type::Int)) bits = v.As<Int>().v;
        else keywords = StrArg(v);
    }
    acedInitGet(bits, keywords.c_str());
    return nullptr;
}

// Esc at a prompt cancels the LISP function, as it does in the host.
Ref Answer(int rc, Ref value) {
    if (rc == RTCAN) Fail("Function cancelled");
    if (rc == RTNONE) return nullptr;
    if (rc == RTKWORD) return MakeStr(host::LastKeyword());
    return value;
}

const char* PromptArg(Args a, size_t i) { return a.size() > i ? StrArg(a[i]).c_str() : nullptr; }

Ref Getstring(Args a) {
    ArgCount(a, 0, 2);
    int cronly = 0;
    size_t p = 0;
    if (!a.empty() && !a[0].Is(Type::Str)) {
        cronly = a[0] ? 1 : 0;
        p = 1;
    }
    char out[133] = {0};
    int rc = acedGetString(cronly, PromptArg(a, p), out);
    return Answer(rc, MakeStr(out));
}

Ref Getint(Args a) {
    ArgCount(a, 0, 1);
    int v = 0;
    int rc = acedGetInt(PromptArg(a, 0), &v);
    return Answer(rc, MakeInt(v));
}

Ref Getreal(Args a) {
    ArgCount(a, 0, 1);
    double v = 0;
    int rc = acedGetReal(PromptArg(a, 0), &v);
    return Answer(rc, MakeReal(v));
}

// (getpoint [base] [prompt]) and its relatives take an optional base point
// before the prompt.
size_t PromptIndex(Args a, double base[3]) {
    if (!a.empty() && a[0].Is(Type::List)) {
        PointArg(a[0], base);
        return 1;
    }
    return 0;
}

Ref Getpoint(Args a) {
    ArgCount(a, 0, 2);
    double base[3] = {0, 0, 0}, out[3] = {0, 0, 0};
    int rc = acedGetPoint(base, PromptArg(a, PromptIndex(a, base)), out);
    return Answer(rc, MakePoint(out, true));
}

// A distance is typed as a number or as a second point from the base.
Ref Getdist(Args a) {
    ArgCount(a, 0, 2);
    double base[3] = {0, 0, 0};
    const char* prompt = PromptArg(a, PromptIndex(a, base));
    double value = 0;
    struct Ctx { double* base; double* value; } ctx{base, &value};
    int rc = host::Prompt(prompt, [](const std::string& text, void* out) {
        auto* c = static_cast<Ctx*>(out);
        char* end = nullptr;
        double v = std::strtod(text.c_str(), &end);
        if (end != text.c_str() && *end == 0) { *c->value = v; return true; }
        double p[3];
        if (!host::ParsePoint(text, p)) return false;
        *c->value = std::hypot(p[0] - c->base[0], p[1] - c->base[1], p[2] - c->base[2]);
        return true;
    }, &ctx);
    return Answer(rc, MakeReal(value));
}

Ref Getkword(Args a) {
    ArgCount(a, 0, 1);
    char out[133] = {0};
    int rc = acedGetKword(PromptArg(a, 0), out);
    if (rc == RTNORM) return MakeStr(out);
    return Answer(rc, nullptr);
}

// ---- injection of window messages, for scripts and tests ----

Ref PostMessage(Args a) {
    ArgCount(a, 2, 3);
    LPARAM lparam = a.size() > 2 ? IntArg(a[2]) : 0;
    return MakeBool(host::DeliverMessage(static_cast<UINT>(IntArg(a[0])), static_cast<WPARAM>(IntArg(a[1])), lparam));
}

Ref Click(Args a) {
    ArgCount(a, 2, 2);
    uint32_t x = static_cast<uint16_t>(IntArg(a[0])), y = static_cast<uint16_t>(IntArg(a[1]));
    return MakeBool(host::DeliverMessage(WM_LBUTTONDOWN, 1, static_cast<LPARAM>(x | (y << 16))));
}

Ref TypedInput(Args a) {
    ArgCount(a, 0, 0);
    std::string text = host::TakeTypedInput();
    return text.empty() ? Ref() : MakeStr(text);
}

Ref RunTyped(Args a) {
    ArgCount(a, 0, 0);
    return MakeBool(host::ProcessTypedInput());
}

Ref FilterCount(Args a) {
    ArgCount(a, 0, 0);
    return MakeInt(host::FilterCount());
}

Ref UserBreak(Args a) {
    ArgCount(a, 0, 0);
    return MakeBool(acedUsrBrk() != 0);
}

const BuiltinTable kHost{{
    {"getvar", Getvar}, {"setvar", Setvar}, {"command", Command}, {"initget", Initget},
    {"getstring", Getstring}, {"getint", Getint}, {"getreal", Getreal}, {"getpoint", Getpoint},
    {"getcorner", Getpoint}, {"getdist", Getdist}, {"getkword", Getkword},
    {"lumo-host:message", PostMessage}, {"lumo-host:click", Click},
    {"lumo-host:typed-input", TypedInput}, {"lumo-host:run-typed", RunTyped},
    {"lumo-host:filter-count", FilterCount}, {"lumo-host:user-break", UserBreak},
}};

}  // namespace
}  // namespace lumo::lisp
