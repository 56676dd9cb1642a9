// The LISP functions on selection sets.
#include <cctype>

#include "host/lisp/builtins.h"
#include "host/lisp/resbuf_convert.h"
#include "host/ss/selection_sets.h"
#include "host/ss/ss_filter.h"
#include "host/ss/ssget.h"
#include "platform/acedss.h"
#include "platform/acutads.h"

namespace lumo::lisp {
namespace {

using host::SelectionSet;

const int32_t* SetArg(const Ref& v) {
    if (!v.Is(Type::Pickset)) TypeError("lselsetp", v);
    return v.As<Pickset>().name;
}

const int32_t* EnameArg(const Ref& v) {
    if (!v.Is(Type::Ename)) TypeError("lentityp", v);
    return v.As<Ename>().name;
}

// A set made by the host becomes LISP's: the value holds it from now on.
Ref HandToLisp(const int32_t name[2]) {
    Ref value = MakePickset(name);
    host::ReleaseModuleHold(name);
    return value;
}

bool IsPoint(const Ref& v) {
    long n = ListLength(v);
    return v.Is(Type::List) && (n == 2 || n == 3) && IsNumber(Car(v)) && IsNumber(Car(Cdr(v)));
}

struct ChainHolder {
    resbuf* chain = nullptr;
    ~ChainHolder() { acutRelRb(chain); }
};

// (ssget [mode] [pt1 [pt2]] [points] [filter])
Ref Ssget(Args a) {
    ArgCount(a, 0, 4);
    size_t i = 0;
    std::string mode;
    if (i < a.size() && a[i].Is(Type::Str)) mode = a[i++].As<Str>().s;
    std::string upper;
    for (char c : mode) if (c != '_') upper += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    const bool polygonMode = upper == "WP" || upper == "CP" || upper == "F";
    std::vector<Ref> points;
    Ref pointList, filter;
    for (; i < a.size(); ++i) {
        if (IsPoint(a[i]) && !polygonMode) points.push_back(a[i]);
        else if (polygonMode && !pointList && IsPoint(Car(a[i]))) pointList = a[i];
        else if (a[i].Is(Type::List)) filter = a[i];
        else if (a[i]) TypeError("listp", a[i]);
    }
    ChainHolder filterChain, pointChain;
    host::SelectionFilter check;
    if (filter && (!ToEntityChain(filter, &filterChain.chain) || !check.Parse(filterChain.chain))) Fail("bad SSGET list");
    ads_name ss;
    double p1[3] = {0, 0, 0}, p2[3] = {0, 0, 0};
    const void* first = nullptr;
    const void* second = nullptr;
    if (pointList) {
        pointChain.chain = ToResbufChain(ToVector(pointList));
        first = pointChain.chain;
    } else {
        if (!points.empty()) { PointArg(points[0], p1); first = p1; }
        if (points.size() > 1) { PointArg(points[1], p2); second = p2; }
    }
    int rc = acedSSGet(mode.empty() ? nullptr : mode.c_str(), first, second, filterChain.chain, ss);
    if (rc == RTCAN) Fail("Function cancelled");
    return rc == RTNORM ? HandToLisp(ss) : Ref();
}

Ref Ssadd(Args a) {
    ArgCount(a, 0, 2);
    const int32_t* ent = a.empty() ? nullptr : EnameArg(a[0]);
    const int32_t* set = a.size() > 1 ? SetArg(a[1]) : nullptr;
    ads_name result;
    if (acedSSAdd(ent, set, result) != RTNORM) return nullptr;
    return set ? a[1] : HandToLisp(result);
}

Ref Ssdel(Args a) {
    ArgCount(a, 2, 2);
    return acedSSDel(EnameArg(a[0]), SetArg(a[1])) == RTNORM ? a[1] : Ref();
}

Ref Sslength(Args a) {
    ArgCount(a, 1, 1);
    int32_t n = 0;
    if (acedSSLength(SetArg(a[0]), &n) != RTNORM) return nullptr;
    return MakeInt(n);
}

Ref Ssname(Args a) {
    ArgCount(a, 2, 2);
    const int32_t* set = SetArg(a[0]);
    int32_t index = a[1].Is(Type::Real) ? static_cast<int32_t>(a[1].As<Real>().v) : IntArg(a[1]);
    ads_name ent;
    if (acedSSName(set, index, ent) != RTNORM) return nullptr;
    return MakeEname(ent);
}

Ref Ssmemb(Args a) {
    ArgCount(a, 2, 2);
    return acedSSMemb(EnameArg(a[0]), SetArg(a[1])) == RTNORM ? a[0] : Ref();
}

// Every member was selected by no particular method here: (0 ename 0).
Ref Ssnamex(Args a) {
    ArgCount(a, 1, 2);
    const SelectionSet* set = host::FindSelectionSet(SetArg(a[0]));
    if (!set) return nullptr;
    ListBuilder out;
    for (size_t i = 0; i < set->members.size(); ++i) {
        if (a.size() > 1 && static_cast<size_t>(IntArg(a[1])) != i) continue;
        int32_t name[2] = {set->members[i], 1};
        out.Add(ListOf({MakeInt(0), MakeEname(name), MakeInt(0)}));
    }
    return out.Take();
}

Ref Sssetfirst(Args a) {
    ArgCount(a, 0, 2);
    auto& pickfirst = host::PickfirstSelection();
    pickfirst.clear();
    if (a.size() > 1 && a[1]) {
        const SelectionSet* set = host::FindSelectionSet(SetArg(a[1]));
        if (set) pickfirst = set->members;
    }
    return ListOf({a.empty() ? Ref() : a[0], a.size() > 1 ? a[1] : Ref()});
}

Ref Ssgetfirst(Args a) {
    ArgCount(a, 0, 0);
    const auto& pickfirst = host::PickfirstSelection();
    if (pickfirst.empty()) return ListOf({nullptr, nullptr});
    SelectionSet* set = host::NewSelectionSet();
    if (!set) return ListOf({nullptr, nullptr});
    for (int32_t s : pickfirst) set->Add(s);
    int32_t name[2];
    host::NameOfSet(*set, name);
    return ListOf({nullptr, HandToLisp(name)});
}

// (gc): LISP's garbage collection, which frees the selection sets no
// value refers to any more.
Ref Gc(Args a) {
    ArgCount(a, 0, 0);
    host::CollectSelectionSets();
    return nullptr;
}

const BuiltinTable kSelectionSets{{
    {"ssget", Ssget}, {"ssadd", Ssadd}, {"ssdel", Ssdel}, {"sslength", Sslength},
    {"ssname", Ssname}, {"ssmemb", Ssmemb}, {"ssnamex", Ssnamex},
    {"sssetfirst", Sssetfirst}, {"ssgetfirst", Ssgetfirst}, {"gc", Gc},
}};

}  // namespace
}  // namespace lumo::lisp
