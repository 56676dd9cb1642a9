// Lists: the host's list functions, including the vl- family.
#include <algorithm>
#include <string>

#include "host/lisp/builtins.h"
#include "host/lisp/equality.h"
#include "host/lisp/eval.h"

namespace lumo::lisp {
namespace {

const Ref& ConsArg(const Ref& v) {
    if (v && !v.Is(Type::List)) TypeError("consp", v);
    return v;
}

// car/cdr compositions: the path is read right to left, 'a' car, 'd' cdr.
template <char... Path>
Ref Cxr(Args a) {
    ArgCount(a, 1, 1);
    Ref v = a[0];
    constexpr char path[] = {Path...};
    for (int i = static_cast<int>(sizeof path) - 1; i >= 0; --i) {
        ConsArg(v);
        v = path[i] == 'a' ? Car(v) : Cdr(v);
    }
    return v;
}

Ref ConsFn(Args a) { ArgCount(a, 2, 2); return MakeCons(a[0], a[1]); }

Ref List(Args a) { return ListFrom(std::vector<Ref>(a.begin(), a.end())); }

Ref Append(Args a) {
    ListBuilder out;
    for (size_t i = 0; i < a.size(); ++i) {
        ListArg(a[i]);
        if (i + 1 == a.size()) {
            out.SetTail(a[i]);
            break;
        }
        for (const Ref& item : ToVector(a[i])) out.Add(item);
    }
    return out.Take();
}

Ref Reverse(Args a) {
    ArgCount(a, 1, 1);
    Ref out;
    for (const Ref* p = &ListArg(a[0]); p->Is(Type::List); p = &p->As<Cons>().cdr) out = MakeCons(p->As<Cons>().car, out);
    return out;
}

Ref Length(Args a) {
    ArgCount(a, 1, 1);
    long n = ListLength(ListArg(a[0]));
    if (n < 0) TypeError("listp", a[0]);
    return MakeInt(static_cast<int32_t>(n));
}

Ref Nth(Args a) {
    ArgCount(a, 2, 2);
    int32_t n = IntArg(a[0]);
    const Ref* p = &ListArg(a[1]);
    if (n < 0) return nullptr;
    for (; n > 0 && p->Is(Type::List); --n) p = &p->As<Cons>().cdr;
    return Car(*p);
}

Ref Last(Args a) {
    ArgCount(a, 1, 1);
    const Ref* p = &ListArg(a[0]);
    Ref last;
    for (; p->Is(Type::List); p = &p->As<Cons>().cdr) last = p->As<Cons>().car;
    return last;
}

Ref Member(Args a) {
    ArgCount(a, 2, 2);
    for (const Ref* p = &ListArg(a[1]); p->Is(Type::List); p = &p->As<Cons>().cdr)
        if (Equal(a[0], p->As<Cons>().car)) return *p;
    return nullptr;
}

Ref Assoc(Args a) {
    ArgCount(a, 2, 2);
    for (const Ref* p = &ListArg(a[1]); p->Is(Type::List); p = &p->As<Cons>().cdr) {
        const Ref& item = p->As<Cons>().car;
        if (item.Is(Type::List) && Equal(a[0], item.As<Cons>().car)) return item;
    }
    return nullptr;
}

Ref Subst(Args a) {
    ArgCount(a, 3, 3);
    if (!a[2].Is(Type::List)) return a[2];
    ListBuilder out;
    const Ref* p = &a[2];
    for (; p->Is(Type::List); p = &p->As<Cons>().cdr) {
        const Ref& item = p->As<Cons>().car;
        out.Add(Equal(item, a[1]) ? a[0] : item);
    }
    out.SetTail(*p);
    return out.Take();
}

Ref Mapcar(Args a) {
    ArgCount(a, 2);
    Ref fn = ResolveFunction(a[0]);
    std::vector<const Ref*> lists;
    for (size_t i = 1; i < a.size(); ++i) lists.push_back(&ListArg(a[i]));
    ListBuilder out;
    std::vector<Ref> args(lists.size());
    for (;;) {
        for (size_t i = 0; i < lists.size(); ++i) {
            if (!lists[i]->Is(Type::List)) return out.Take();
            args[i] = lists[i]->As<Cons>().car;
            lists[i] = &lists[i]->As<Cons>().cdr;
        }
        out.Add(Apply(fn, args));
    }
}

Ref ApplyFn(Args a) {
    ArgCount(a, 2, 2);
    std::vector<Ref> args = ToVector(ListArg(a[1]));
    return Apply(a[0], args);
}

Ref ListStar(Args a) {
    ArgCount(a, 1);
    std::vector<Ref> items(a.begin(), a.end() - 1);
    return ListFrom(items, a.back());
}

// Sorts by calling the predicate; a predicate that is no strict order still
// gives some permutation, never a crash.
std::vector<size_t> SortedOrder(const std::vector<Ref>& items, const Ref& pred) {
    Ref fn = ResolveFunction(pred);
    std::vector<size_t> order(items.size());
    for (size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::stable_sort(order.begin(), order.end(), [&](size_t x, size_t y) {
        Ref args[2] = {items[x], items[y]};
        return static_cast<bool>(Apply(fn, Args(args, 2)));
    });
    return order;
}

// Sorting drops repeated atoms that are eq (the host's vl-sort does).
Ref VlSort(Args a) {
    ArgCount(a, 2, 2);
    std::vector<Ref> items = ToVector(ListArg(a[0]));
    std::vector<Ref> sorted;
    for (size_t i : SortedOrder(items, a[1])) {
        const Ref& item = items[i];
        if (!sorted.empty() && item && !item.Is(Type::List) && Eq(sorted.back(), item)) continue;
        sorted.push_back(item);
    }
    return ListFrom(sorted);
}

Ref VlSortI(Args a) {
    ArgCount(a, 2, 2);
    std::vector<Ref> items = ToVector(ListArg(a[0]));
    ListBuilder out;
    for (size_t i : SortedOrder(items, a[1])) out.Add(MakeInt(static_cast<int32_t>(i)));
    return out.Take();
}

Ref VlRemove(Args a) {
    ArgCount(a, 2, 2);
    ListBuilder out;
    for (const Ref& item : ToVector(ListArg(a[1])))
        if (!Equal(item, a[0])) out.Add(item);
    return out.Take();
}

Ref FilterBy(Args a, bool keep) {
    ArgCount(a, 2, 2);
    Ref fn = ResolveFunction(a[0]);
    ListBuilder out;
    for (const Ref& item : ToVector(ListArg(a[1])))
        if (static_cast<bool>(Apply(fn, Args(&item, 1))) == keep) out.Add(item);
    return out.Take();
}
Ref VlRemoveIf(Args a) { return FilterBy(a, false); }
Ref VlRemoveIfNot(Args a) { return FilterBy(a, true); }

Ref VlPosition(Args a) {
    ArgCount(a, 2, 2);
    int32_t i = 0;
    for (const Ref* p = &ListArg(a[1]); p->Is(Type::List); p = &p->As<Cons>().cdr, ++i)
        if (Equal(a[0], p->As<Cons>().car)) return MakeInt(i);
    return nullptr;
}

Ref VlMemberIf(Args a) {
    ArgCount(a, 2, 2);
    Ref fn = ResolveFunction(a[0]);
    for (const Ref* p = &ListArg(a[1]); p->Is(Type::List); p = &p->As<Cons>().cdr)
        if (Apply(fn, Args(&p->As<Cons>().car, 1))) return *p;
    return nullptr;
}

// vl-some and vl-every walk several lists in step, like mapcar.
Ref Quantify(Args a, bool every) {
    ArgCount(a, 2);
    Ref fn = ResolveFunction(a[0]);
    std::vector<const Ref*> lists;
    for (size_t i = 1; i < a.size(); ++i) lists.push_back(&ListArg(a[i]));
    std::vector<Ref> args(lists.size());
    for (;;) {
        for (size_t i = 0; i < lists.size(); ++i) {
            if (!lists[i]->Is(Type::List)) return every ? True() : nullptr;
            args[i] = lists[i]->As<Cons>().car;
            lists[i] = &lists[i]->As<Cons>().cdr;
        }
        Ref r = Apply(fn, args);
        if (every && !r) return nullptr;
        if (!every && r) return r;
    }
}
Ref VlSome(Args a) { return Quantify(a, false); }
Ref VlEvery(Args a) { return Quantify(a, true); }

Ref AcadStrlsort(Args a) {
    ArgCount(a, 1, 1);
    std::vector<Ref> items = ToVector(ListArg(a[0]));
    for (const Ref& item : items)
        if (!item.Is(Type::Str)) return nullptr;
    std::stable_sort(items.begin(), items.end(),
                     [](const Ref& x, const Ref& y) { return x.As<Str>().s < y.As<Str>().s; });
    return ListFrom(items);
}

Ref VlListLength(Args a) {
    ArgCount(a, 1, 1);
    long n = ListLength(ListArg(a[0]));
    return n < 0 ? Ref() : MakeInt(static_cast<int32_t>(n));
}

const BuiltinTable kLists{{
    {"car", Cxr<'a'>}, {"cdr", Cxr<'d'>}, {"caar", Cxr<'a', 'a'>}, {"cadr", Cxr<'a', 'd'>},
    {"cdar", Cxr<'d', 'a'>}, {"cddr", Cxr<'d', 'd'>}, {"caaar", Cxr<'a', 'a', 'a'>},
    {"caadr", Cxr<'a', 'a', 'd'>}, {"cadar", Cxr<'a', 'd', 'a'>}, {"caddr", Cxr<'a', 'd', 'd'>},
    {"cdaar", Cxr<'d', 'a', 'a'>}, {"cdadr", Cxr<'d', 'a', 'd'>}, {"cddar", Cxr<'d', 'd', 'a'>},
    {"cdddr", Cxr<'d', 'd', 'd'>}, {"caaaar", Cxr<'a', 'a', 'a', 'a'>}, {"caaadr", Cxr<'a', 'a', 'a', 'd'>},
    {"caadar", Cxr<'a', 'a', 'd', 'a'>}, {"caaddr", Cxr<'a', 'a', 'd', 'd'>}, {"cadaar", Cxr<'a', 'd', 'a', 'a'>},
    {"cadadr", Cxr<'a', 'd', 'a', 'd'>}, {"caddar", Cxr<'a', 'd', 'd', 'a'>}, {"cadddr", Cxr<'a', 'd', 'd', 'd'>},
    {"cdaaar", Cxr<'d', 'a', 'a', 'a'>}, {"cdaadr", Cxr<'d', 'a', 'a', 'd'>}, {"cdadar", Cxr<'d', 'a', 'd', 'a'>},
    {"cdaddr", Cxr<'d', 'a', 'd', 'd'>}, {"cddaar", Cxr<'d', 'd', 'a', 'a'>}, {"cddadr", Cxr<'d', 'd', 'a', 'd'>},
    {"cdddar", Cxr<'d', 'd', 'd', 'a'>}, {"cddddr", Cxr<'d', 'd', 'd', 'd'>},
    {"cons", ConsFn}, {"list", List}, {"append", Append}, {"reverse", Reverse}, {"length", Length},
    {"nth", Nth}, {"last", Last}, {"member", Member}, {"assoc", Assoc}, {"subst", Subst},
    {"mapcar", Mapcar}, {"apply", ApplyFn}, {"vl-list*", ListStar}, {"vl-sort", VlSort},
    {"vl-sort-i", VlSortI}, {"vl-remove", VlRemove}, {"vl-remove-if", VlRemoveIf},
    {"vl-remove-if-not", VlRemoveIfNot}, {"vl-position", VlPosition}, {"vl-member-if", VlMemberIf},
    {"vl-some", VlSome}, {"vl-every", VlEvery}, {"acad_strlsort", AcadStrlsort},
    {"vl-list-length", VlListLength},
}};

}  // namespace
}  // namespace lumo::lisp
