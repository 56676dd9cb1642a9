#include "host/lisp/value.h"

#include <cctype>
#include <unordered_map>

namespace lumo::lisp {

void (*gPicksetRetained)(const int32_t name[2]) = nullptr;
void (*gPicksetReleased)(const int32_t name[2]) = nullptr;

namespace {

// Small integers are shared and never freed: loop counters and list indexes
// then cost no allocation.
constexpr int32_t kSmallMin = -256, kSmallMax = 1024;

const Int* SmallInt(int32_t v) {
    // Never destroyed: values may be released by other static destructors.
    static const std::vector<const Int*>* table = [] {
        auto* t = new std::vector<const Int*>;
        for (int32_t i = kSmallMin; i <= kSmallMax; ++i) {
            auto* n = new Int(i);
            n->refs = 1 << 30;
            t->push_back(n);
        }
        return t;
    }();
    return (*table)[v - kSmallMin];
}

void DestroyOne(const Value* v) {
    switch (v->type) {
    case Type::Int: delete static_cast<const Int*>(v); break;
    case Type::Real: delete static_cast<const Real*>(v); break;
    case Type::Str: delete static_cast<const Str*>(v); break;
    case Type::Subr: delete static_cast<const Subr*>(v); break;
    case Type::Usubr: delete static_cast<const Usubr*>(v); break;
    case Type::Exrxsubr: delete static_cast<const Exrxsubr*>(v); break;
    case Type::Ename: delete static_cast<const Ename*>(v); break;
    case Type::CatchError: delete static_cast<const CatchError*>(v); break;
    case Type::Pickset: {
        auto* p = static_cast<const Pickset*>(v);
        if (gPicksetReleased) gPicksetReleased(p->name);
        delete p;
        break;
    }
    case Type::File: {
        auto* f = static_cast<const File*>(v);
        if (f->fp) std::fclose(f->fp);
        delete f;
        break;
    }
    case Type::Sym:   // interned: never reaches zero
    case Type::List:  // handled by the caller
        break;
    }
}

}  // namespace

// Long lists are freed along their cdr chain in a loop, not by recursion,
// so a list of a million items cannot exhaust the stack.
void Ref::Destroy(const Value* v) {
    while (v) {
        if (v->type != Type::List) {
            DestroyOne(v);
            return;
        }
        auto* cell = const_cast<Cons*>(static_cast<const Cons*>(v));
        const Value* next = cell->cdr.m_p;
        cell->cdr.m_p = nullptr;
        delete cell;
        if (next && --next->refs == 0) v = next;
        else v = nullptr;
    }
}

Ref MakeInt(int32_t v) {
    if (v >= kSmallMin && v <= kSmallMax) return Ref(SmallInt(v));
    return Ref(new Int(v));
}
Ref MakeReal(double v) { return Ref(new Real(v)); }
Ref MakeStr(std::string s) { return Ref(new Str(std::move(s))); }
Ref MakeCons(Ref car, Ref cdr) { return Ref(new Cons(std::move(car), std::move(cdr))); }
Ref MakeEname(const int32_t name[2]) { return Ref(new Ename(name[0], name[1])); }
Ref MakePickset(const int32_t name[2]) {
    if (gPicksetRetained) gPicksetRetained(name);
    return Ref(new Pickset(name[0], name[1]));
}
Ref MakeBool(bool b) { return b ? True() : Ref(); }

const Symbol* Intern(std::string_view name) {
    static auto& table = *new std::unordered_map<std::string, Symbol*>;  // lives as long as the process
    std::string key(name);
    for (char& c : key) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    auto it = table.find(key);
    if (it != table.end()) return it->second;
    auto* s = new Symbol(key);
    s->refs = 1 << 30;
    table.emplace(std::move(key), s);
    return s;
}

Ref Sym(std::string_view name) { return Ref(Intern(name)); }

Ref True() {
    static const Ref t = [] {
        Ref r = Sym("T");
        auto* s = const_cast<Symbol*>(&r.As<Symbol>());
        s->value = r;
        s->constant = true;
        return r;
    }();
    return t;
}

Ref Void() {
    static const Ref v = Sym("");
    return v;
}

Ref ListOf(std::initializer_list<Ref> items) {
    ListBuilder b;
    for (const Ref& r : items) b.Add(r);
    return b.Take();
}

Ref ListFrom(const std::vector<Ref>& items, Ref tail) {
    Ref out = std::move(tail);
    for (auto it = items.rbegin(); it != items.rend(); ++it) out = MakeCons(*it, std::move(out));
    return out;
}

std::vector<Ref> ToVector(const Ref& list) {
    std::vector<Ref> out;
    for (const Value* p = list.get(); p && p->type == Type::List;) {
        auto* c = static_cast<const Cons*>(p);
        out.push_back(c->car);
        p = c->cdr.get();
    }
    return out;
}

long ListLength(const Ref& list) {
    long n = 0;
    const Value* p = list.get();
    for (; p && p->type == Type::List; p = static_cast<const Cons*>(p)->cdr.get()) ++n;
    return p ? -1 : n;
}

void ListBuilder::Add(Ref item) {
    Ref cell = MakeCons(std::move(item), nullptr);
    Cons* raw = const_cast<Cons*>(&cell.As<Cons>());
    if (m_tail) m_tail->cdr = std::move(cell);
    else m_head = std::move(cell);
    m_tail = raw;
}

void ListBuilder::SetTail(Ref tail) {
    if (m_tail) m_tail->cdr = std::move(tail);
    else m_head = std::move(tail);
}

}  // namespace lumo::lisp
