// The LISP functions on entities, symbol tables and dictionaries: entget,
// entmake, entmod, entnext, tblsearch, dictsearch and their kin, over the
// host's ADS calls (platform/acdbads.h).
#include <cstring>

#include "host/ads/value_kind.h"
#include "host/db/database_impl.h"
#include "host/lisp/builtins.h"
#include "host/lisp/printer.h"
#include "host/lisp/resbuf_convert.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"

namespace lumo::lisp {
namespace {

using host::ValueKind;

// Chains the ADS calls hand back, released when done.
struct Chain {
    resbuf* rb = nullptr;
    explicit Chain(resbuf* r = nullptr) : rb(r) {}
    ~Chain() { acutRelRb(rb); }
    Chain(const Chain&) = delete;
    Chain& operator=(const Chain&) = delete;
};

const int32_t* EnameArg(const Ref& v) {
    if (!v.Is(Type::Ename)) TypeError("lentityp", v);
    return v.As<Ename>().name;
}

// Whether a value can stand as the value of a group: the host raises
// "bad DXF group" for one that can't.
bool GroupFits(int code, const Ref& value) {
    ValueKind kind = host::ValueKindOf(code);
    switch (kind) {
    case ValueKind::Text: return value.Is(Type::Str);
    case ValueKind::Real: return IsNumber(value);
    case ValueKind::Short:
    case ValueKind::Long: return value.Is(Type::Int);
    case ValueKind::Name: return value.Is(Type::Ename);
    case ValueKind::Binary: return value.Is(Type::Str);
    case ValueKind::Point: {
        long n = ListLength(value);
        if (n < 2 || n > 3) return false;
        for (const Ref& x : ToVector(value))
            if (!IsNumber(x)) return false;
        return true;
    }
    case ValueKind::None: return code == -3;
    }
    return false;
}

void CheckGroups(const Ref& list) {
    for (const Ref& item : ToVector(list)) {
        bool ok = item.Is(Type::List) && Car(item).Is(Type::Int);
        if (ok && Car(item).As<Int>().v == -3) {
            for (const Ref& app : ToVector(Cdr(item))) {
                ok = ok && app.Is(Type::List) && Car(app).Is(Type::Str);
                for (const Ref& g : ToVector(Cdr(app)))
                    ok = ok && g.Is(Type::List) && Car(g).Is(Type::Int) && GroupFits(Car(g).As<Int>().v, Cdr(g));
            }
        } else if (ok) {
            ok = GroupFits(Car(item).As<Int>().v, Cdr(item));
        }
        if (!ok) Fail("bad DXF group: " + ToString(item, true));
    }
}

// A list for entmake and entmod as a chain.
resbuf* ListChain(const Ref& list) {
    ListArg(list);
    if (!list) return nullptr;
    CheckGroups(list);
    resbuf* rb = nullptr;
    if (!ToEntityChain(list, &rb)) Fail("bad DXF group: " + ToString(list, true));
    return rb;
}

// entget's list as LISP shows it: the vertices of an LWPOLYLINE as 2D points.
Ref EntityValue(const resbuf* chain) {
    bool lw = chain && chain->rbnext && chain->rbnext->restype == 0 && chain->rbnext->resval.rstring &&
              std::strcmp(chain->rbnext->resval.rstring, "LWPOLYLINE") == 0;
    Ref list = FromEntityChain(chain);
    ListBuilder out;
    const resbuf* node = chain;
    for (const Ref* p = &list; p->Is(Type::List); p = &p->As<Cons>().cdr, node = node ? node->rbnext : nullptr) {
        const Ref& item = p->As<Cons>().car;
        int code = Car(item).Is(Type::Int) ? Car(item).As<Int>().v : 0;
        if (lw && code == 10 && node) {
            out.Add(MakeCons(Car(item), MakePoint(node->resval.rpoint, false)));
        } else {
            out.Add(item);
        }
    }
    return out.Take();
}

Ref NameValue(const ads_name n) { return MakeEname(n); }

Ref Entget(Args a) {
    ArgCount(a, 1, 2);
    const int32_t* e = EnameArg(a[0]);
    Chain apps;
    if (a.size() > 1) {
        ListArg(a[1]);
        resbuf** link = &apps.rb;
        for (const Ref& app : ToVector(a[1])) {
            if (!app.Is(Type::Str)) TypeError("stringp", app);
            *link = acutBuildList(RTSTR, app.As<Str>().s.c_str(), 0);
            link = &(*link)->rbnext;
        }
    }
    Chain list(apps.rb ? acdbEntGetX(e, apps.rb) : acdbEntGet(e));
    return list.rb ? EntityValue(list.rb) : nullptr;
}

Ref Entmake(Args a) {
    ArgCount(a, 0, 1);
    if (a.empty() || !a[0]) return nullptr;
    Chain list(ListChain(a[0]));
    if (acdbEntMake(list.rb) != RTNORM) return nullptr;
    // the ENDBLK of a definition answers with the block's name
    if (ToString(Cdr(Car(a[0])), false) == "ENDBLK" || ToString(Cdr(Car(Cdr(a[0]))), false) == "ENDBLK") {
        const std::string& name = acdbHostApplicationServices()->workingDatabase()->impl().ads.lastBlock;
        return MakeStr(name);
    }
    return a[0];
}

Ref Entmakex(Args a) {
    ArgCount(a, 0, 1);
    if (a.empty() || !a[0]) return nullptr;
    Chain list(ListChain(a[0]));
    ads_name made;
    if (acdbEntMakeX(list.rb, made) != RTNORM) return nullptr;
    return made[0] ? NameValue(made) : a[0];
}

Ref Entmod(Args a) {
    ArgCount(a, 1, 1);
    if (!a[0]) return nullptr;
    Chain list(ListChain(a[0]));
    return acdbEntMod(list.rb) == RTNORM ? a[0] : nullptr;
}

Ref Entupd(Args a) {
    ArgCount(a, 1, 1);
    return acdbEntUpd(EnameArg(a[0])) == RTNORM ? a[0] : nullptr;
}

Ref Entdel(Args a) {
    ArgCount(a, 1, 1);
    return acdbEntDel(EnameArg(a[0])) == RTNORM ? a[0] : nullptr;
}

Ref Entnext(Args a) {
    ArgCount(a, 0, 1);
    ads_name next;
    const int32_t* from = a.empty() || !a[0] ? nullptr : EnameArg(a[0]);
    return acdbEntNext(from, next) == RTNORM ? NameValue(next) : nullptr;
}

Ref Entlast(Args a) {
    ArgCount(a, 0, 0);
    ads_name last;
    return acdbEntLast(last) == RTNORM ? NameValue(last) : nullptr;
}

Ref Handent(Args a) {
    ArgCount(a, 1, 1);
    ads_name e;
    return acdbHandEnt(StrArg(a[0]).c_str(), e) == RTNORM ? NameValue(e) : nullptr;
}

Ref Tblsearch(Args a) {
    ArgCount(a, 2, 3);
    Chain entry(acdbTblSearch(StrArg(a[0]).c_str(), StrArg(a[1]).c_str(), a.size() > 2 && a[2] ? 1 : 0));
    return entry.rb ? EntityValue(entry.rb) : nullptr;
}

Ref Tblnext(Args a) {
    ArgCount(a, 1, 2);
    Chain entry(acdbTblNext(StrArg(a[0]).c_str(), a.size() > 1 && a[1] ? 1 : 0));
    return entry.rb ? EntityValue(entry.rb) : nullptr;
}

Ref Tblobjname(Args a) {
    ArgCount(a, 2, 2);
    ads_name e;
    return acdbTblObjName(StrArg(a[0]).c_str(), StrArg(a[1]).c_str(), e) == RTNORM ? NameValue(e) : nullptr;
}

Ref Regapp(Args a) {
    ArgCount(a, 1, 1);
    return acdbRegApp(StrArg(a[0]).c_str()) == RTNORM ? a[0] : nullptr;
}

Ref Namedobjdict(Args a) {
    ArgCount(a, 0, 0);
    ads_name d;
    return acdbNamedObjDict(d) == RTNORM ? NameValue(d) : nullptr;
}

Ref Dictsearch(Args a) {
    ArgCount(a, 2, 3);
    Chain entry(acdbDictSearch(EnameArg(a[0]), StrArg(a[1]).c_str(), a.size() > 2 && a[2] ? 1 : 0));
    return entry.rb ? EntityValue(entry.rb) : nullptr;
}

Ref Dictnext(Args a) {
    ArgCount(a, 1, 2);
    Chain entry(acdbDictNext(EnameArg(a[0]), a.size() > 1 && a[1] ? 1 : 0));
    return entry.rb ? EntityValue(entry.rb) : nullptr;
}

Ref Dictadd(Args a) {
    ArgCount(a, 3, 3);
    return acdbDictAdd(EnameArg(a[0]), StrArg(a[1]).c_str(), EnameArg(a[2])) == RTNORM ? a[2] : nullptr;
}

Ref Dictremove(Args a) {
    ArgCount(a, 2, 2);
    const int32_t* dict = EnameArg(a[0]);
    Chain entry(acdbDictSearch(dict, StrArg(a[1]).c_str(), 0));
    if (!entry.rb || acdbDictRemove(dict, StrArg(a[1]).c_str()) != RTNORM) return nullptr;
    return NameValue(entry.rb->resval.rlname);   // the first group is -1
}

Ref Dictrename(Args a) {
    ArgCount(a, 3, 3);
    return acdbDictRename(EnameArg(a[0]), StrArg(a[1]).c_str(), StrArg(a[2]).c_str()) == RTNORM ? a[2] : nullptr;
}

Ref Snvalid(Args a) {
    ArgCount(a, 1, 2);
    int pipe = a.size() > 1 ? IntArg(a[1]) : 0;
    return MakeBool(acdbSNValid(StrArg(a[0]).c_str(), pipe) == RTNORM);
}

Ref Xdsize(Args a) {
    ArgCount(a, 1, 1);
    if (!a[0]) return nullptr;
    Chain list(ListChain(MakeCons(MakeCons(MakeInt(-3), a[0]), nullptr)));
    int32_t size = 0;
    return acdbXdSize(list.rb, &size) == RTNORM ? MakeInt(size) : nullptr;
}

Ref Xdroom(Args a) {
    ArgCount(a, 1, 1);
    int32_t room = 0;
    return acdbXdRoom(EnameArg(a[0]), &room) == RTNORM ? MakeInt(room) : nullptr;
}

}  // namespace

static const BuiltinTable kEntities{{
    {"entget", Entget},         {"entmake", Entmake},       {"entmakex", Entmakex},
    {"entmod", Entmod},         {"entupd", Entupd},         {"entdel", Entdel},
    {"entnext", Entnext},       {"entlast", Entlast},       {"handent", Handent},
    {"tblsearch", Tblsearch},   {"tblnext", Tblnext},       {"tblobjname", Tblobjname},
    {"regapp", Regapp},         {"namedobjdict", Namedobjdict},
    {"dictsearch", Dictsearch}, {"dictnext", Dictnext},     {"dictadd", Dictadd},
    {"dictremove", Dictremove}, {"dictrename", Dictrename}, {"snvalid", Snvalid},
    {"xdsize", Xdsize},         {"xdroom", Xdroom},
}};

}  // namespace lumo::lisp
