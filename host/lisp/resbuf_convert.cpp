#include "host/lisp/resbuf_convert.h"

#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>

#include "host/lisp/builtins.h"

#include "host/ads/value_kind.h"
#include "platform/acutads.h"
#include "platform/crt.h"

namespace lumo::lisp {

using host::ValueKind;
using host::ValueKindOf;

namespace {

bool IsRealPoint(const Ref& v) {
    long n = ListLength(v);
    if (n != 2 && n != 3) return false;
    for (const Ref* p = &v; p->Is(Type::List); p = &p->As<Cons>().cdr)
        if (!p->As<Cons>().car.Is(Type::Real)) return false;
    return true;
}

void AddValue(ChainBuilder& out, const Ref& v) {
    if (!v) { out.Add(RTNIL); return; }
    switch (v.type()) {
    case Type::Int: {
        int32_t x = v.As<Int>().v;
        if (x >= -32768 && x <= 32767) out.Add(RTSHORT)->resval.rint = static_cast<short>(x);
        else out.Add(RTLONG)->resval.rlong = x;
        return;
    }
    case Type::Real: out.Add(RTREAL)->resval.rreal = v.As<Real>().v; return;
    case Type::Str: out.Add(RTSTR)->resval.rstring = _strdup(v.As<Str>().s.c_str()); return;
    case Type::Sym:
        if (v == True()) out.Add(RTT);
        else if (v == Void()) out.Add(RTVOID);
        else out.Add(RTSTR)->resval.rstring = _strdup(v.As<Symbol>().name.c_str());
        return;
    case Type::Ename: {
        resbuf* n = out.Add(RTENAME);
        std::memcpy(n->resval.rlname, v.As<Ename>().name, sizeof n->resval.rlname);
        return;
    }
    case Type::Pickset: {
        resbuf* n = out.Add(RTPICKS);
        std::memcpy(n->resval.rlname, v.As<Pickset>().name, sizeof n->resval.rlname);
        return;
    }
    case Type::List: {
        if (IsRealPoint(v)) {
            long n = ListLength(v);
            resbuf* node = out.Add(n == 2 ? RTPOINT : RT3DPOINT);
            int i = 0;
            for (const Ref* p = &v; p->Is(Type::List); p = &p->As<Cons>().cdr) node->resval.rpoint[i++] = p->As<Cons>().car.As<Real>().v;
            return;
        }
        out.Add(RTLB);
        const Ref* p = &v;
        for (; p->Is(Type::List); p = &p->As<Cons>().cdr) AddValue(out, p->As<Cons>().car);
        if (*p) {
            out.Add(RTDOTE);
            AddValue(out, *p);
        }
        out.Add(RTLE);
        return;
    }
    default: out.Add(RTNONE); return;
    }
}

// Reads values from a chain until the end or an RTLE / RTDOTE of the level.
Ref ReadLevel(const resbuf*& node, bool nested, bool* sawList);

Ref ReadValue(const resbuf*& node) {
    if (node->restype == RTLB) {
        node = node->rbnext;
        return ReadLevel(node, true, nullptr);
    }
    Ref v = FromResbufNode(node);
    node = node->rbnext;
    return v;
}

Ref ReadLevel(const resbuf*& node, bool nested, bool* sawList) {
    ListBuilder out;
    int count = 0;
    bool onlyList = false;
    while (node) {
        if (node->restype == RTLE) {
            node = node->rbnext;  // a stray RTLE at top level is skipped
            if (nested) break;
            continue;
        }
        if (node->restype == RTDOTE) {
            node = node->rbnext;
            if (node && node->restype != RTLE) out.SetTail(ReadValue(node));
            continue;
        }
        onlyList = node->restype == RTLB && count == 0;
        out.Add(ReadValue(node));
        ++count;
        if (count > 1) onlyList = false;
    }
    if (sawList) *sawList = onlyList && count == 1;
    return out.Take();
}

std::string HexOf(const char* bytes, int n) {
    static const char digits[] = "0123456789ABCDEF";
    std::string s;
    for (int i = 0; i < n; ++i) {
        s += digits[(static_cast<unsigned char>(bytes[i]) >> 4) & 15];
        s += digits[static_cast<unsigned char>(bytes[i]) & 15];
    }
    return s;
}

}  // namespace

resbuf* ToResbufChain(Args values) {
    ChainBuilder out;
    for (const Ref& v : values) AddValue(out, v);
    return out.Take();
}

resbuf* ToResbuf(const Ref& value) { return ToResbufChain(Args(&value, 1)); }

Ref FromResbufNode(const resbuf* node) {
    switch (node->restype) {
    case RTSHORT: return MakeInt(node->resval.rint);
    case RTLONG: return MakeInt(node->resval.rlong);
    case RTREAL: case RTANG: case RTORINT: return MakeReal(node->resval.rreal);
    case RTPOINT: return MakePoint(node->resval.rpoint, false);
    case RT3DPOINT: return MakePoint(node->resval.rpoint, true);
    case RTSTR: return MakeStr(node->resval.rstring ? node->resval.rstring : "");
    case RTENAME: return MakeEname(node->resval.rlname);
    case RTPICKS: return MakePickset(node->resval.rlname);
    case RTT: return True();
    case RTVOID: return Void();
    default: break;
    }
    if (node->restype < 5000) return GroupValue(node);
    return nullptr;
}

Ref ValuesOfChain(const resbuf* chain) { return ReadLevel(chain, false, nullptr); }

Ref FromResbufChain(const resbuf* chain) {
    bool single = false;
    Ref all = ReadLevel(chain, false, &single);
    return single ? Car(all) : all;
}

Ref GroupValue(const resbuf* node) {
    switch (ValueKindOf(node->restype)) {
    case ValueKind::Text: return MakeStr(node->resval.rstring ? node->resval.rstring : "");
    case ValueKind::Real: return MakeReal(node->resval.rreal);
    case ValueKind::Point: return MakePoint(node->resval.rpoint, true);
    case ValueKind::Short: return MakeInt(node->resval.rint);
    case ValueKind::Long: return MakeInt(node->resval.rlong);
    case ValueKind::Name: return MakeEname(node->resval.rlname);
    case ValueKind::Binary: return MakeStr(HexOf(node->resval.rbinary.buf, node->resval.rbinary.clen));
    case ValueKind::None: return nullptr;
    }
    return nullptr;
}

bool SetGroupValue(resbuf* node, const Ref& v) {
    switch (ValueKindOf(node->restype)) {
    case ValueKind::Text:
        if (!v.Is(Type::Str)) return false;
        node->resval.rstring = _strdup(v.As<Str>().s.c_str());
        return true;
    case ValueKind::Real:
        if (!IsNumber(v)) return false;
        node->resval.rreal = NumberOf(v);
        return true;
    case ValueKind::Point: {
        long n = ListLength(v);
        if (n < 2 || n > 3) return false;
        int i = 0;
        for (const Ref* p = &v; p->Is(Type::List); p = &p->As<Cons>().cdr) {
            if (!IsNumber(p->As<Cons>().car)) return false;
            node->resval.rpoint[i++] = NumberOf(p->As<Cons>().car);
        }
        return true;
    }
    case ValueKind::Short:
        if (!v.Is(Type::Int)) return false;
        node->resval.rint = static_cast<short>(v.As<Int>().v);
        return true;
    case ValueKind::Long:
        if (!v.Is(Type::Int)) return false;
        node->resval.rlong = v.As<Int>().v;
        return true;
    case ValueKind::Name:
        if (!v.Is(Type::Ename)) return false;
        std::memcpy(node->resval.rlname, v.As<Ename>().name, sizeof node->resval.rlname);
        return true;
    case ValueKind::Binary: {
        if (!v.Is(Type::Str)) return false;
        const std::string& hex = v.As<Str>().s;
        if (hex.size() % 2) return false;
        auto* buf = static_cast<char*>(std::malloc(hex.size() / 2 + 1));
        for (size_t i = 0; i < hex.size() / 2; ++i) buf[i] = static_cast<char>(std::strtol(hex.substr(i * 2, 2).c_str(), nullptr, 16));
        node->resval.rbinary.buf = buf;
        node->resval.rbinary.clen = static_cast<short>(hex.size() / 2);
        return true;
    }
    case ValueKind::None: return !v || v.Is(Type::Int) || v.Is(Type::Str);
    }
    return false;
}

Ref FromEntityChain(const resbuf* chain) {
    ListBuilder out;
    const resbuf* node = chain;
    while (node && node->restype != -3) {
        out.Add(MakeCons(MakeInt(node->restype), GroupValue(node)));
        node = node->rbnext;
    }
    if (!node) return out.Take();
    ListBuilder apps;
    ListBuilder app;
    bool inApp = false;
    for (node = node->rbnext; node; node = node->rbnext) {
        if (node->restype == 1001) {
            if (inApp) apps.Add(app.Take());
            app.Add(MakeStr(node->resval.rstring ? node->resval.rstring : ""));
            inApp = true;
        } else {
            app.Add(MakeCons(MakeInt(node->restype), GroupValue(node)));
        }
    }
    if (inApp) apps.Add(app.Take());
    out.Add(MakeCons(MakeInt(-3), apps.Take()));
    return out.Take();
}

namespace {

bool AddGroup(ChainBuilder& out, const Ref& item) {
    if (!item.Is(Type::List) || !Car(item).Is(Type::Int)) return false;
    int code = Car(item).As<Int>().v;
    // Points are written (10 x y z), other groups as dotted pairs: either
    // way the value is the cdr.
    return SetGroupValue(out.Add(code), Cdr(item));
}

}  // namespace

bool ToEntityChain(const Ref& list, resbuf** out) {
    *out = nullptr;
    ChainBuilder chain;
    for (const Ref* p = &list; p->Is(Type::List); p = &p->As<Cons>().cdr) {
        const Ref& item = p->As<Cons>().car;
        if (Car(item).Is(Type::Int) && Car(item).As<Int>().v == -3) {
            chain.Add(-3);
            for (const Ref* a = &Cdr(item); a->Is(Type::List); a = &a->As<Cons>().cdr) {
                const Ref& app = a->As<Cons>().car;
                if (!Car(app).Is(Type::Str)) return false;
                chain.Add(1001)->resval.rstring = _strdup(Car(app).As<Str>().s.c_str());
                for (const Ref* g = &Cdr(app); g->Is(Type::List); g = &g->As<Cons>().cdr)
                    if (!AddGroup(chain, g->As<Cons>().car)) return false;
            }
            continue;
        }
        if (!AddGroup(chain, item)) return false;
    }
    *out = chain.Take();
    return true;
}

}  // namespace lumo::lisp
