// LISP values of the host's interpreter.
//
// Values are reference counted. LISP code cannot change a cons in place, so
// there are no cycles and counting frees everything deterministically; that
// also lets a selection set go away when its last reference does. Symbols
// are interned and never freed, so they compare by pointer.
#pragma once
#include <cstdint>
#include <cstdio>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lumo::lisp {

enum class Type : uint8_t {
    Int, Real, Str, Sym, List, Subr, Usubr, Exrxsubr, Ename, Pickset, File, CatchError,
};

struct Value {
    mutable int32_t refs = 0;
    Type type;
    explicit Value(Type t) : type(t) {}
};

// An owning pointer to a value; a null Ref is nil.
class Ref {
public:
    Ref() = default;
    Ref(std::nullptr_t) {}
    explicit Ref(const Value* v) : m_p(v) { if (m_p) ++m_p->refs; }
    Ref(const Ref& o) : m_p(o.m_p) { if (m_p) ++m_p->refs; }
    Ref(Ref&& o) noexcept : m_p(o.m_p) { o.m_p = nullptr; }
    ~Ref() { if (m_p && --m_p->refs == 0) Destroy(m_p); }
    Ref& operator=(Ref o) noexcept { std::swap(m_p, o.m_p); return *this; }

    const Value* get() const { return m_p; }
    explicit operator bool() const { return m_p != nullptr; }
    bool IsNil() const { return m_p == nullptr; }
    Type type() const { return m_p->type; }
    bool Is(Type t) const { return m_p && m_p->type == t; }
    friend bool operator==(const Ref& a, const Ref& b) { return a.m_p == b.m_p; }
    template <class T> const T& As() const { return *static_cast<const T*>(m_p); }

private:
    static void Destroy(const Value* v);
    const Value* m_p = nullptr;
};

using Args = std::span<const Ref>;
using BuiltinFn = Ref (*)(Args args);
// Special forms get their argument forms unevaluated.
using SpecialFn = Ref (*)(const Ref& forms);

struct Int : Value { int32_t v; explicit Int(int32_t x) : Value(Type::Int), v(x) {} };
struct Real : Value { double v; explicit Real(double x) : Value(Type::Real), v(x) {} };
struct Str : Value { std::string s; explicit Str(std::string x) : Value(Type::Str), s(std::move(x)) {} };
struct Cons : Value {
    Ref car, cdr;
    Cons(Ref a, Ref d) : Value(Type::List), car(std::move(a)), cdr(std::move(d)) {}
};
struct Symbol : Value {
    std::string name;   // upper case, as printed
    Ref value;          // one cell for values and functions alike
    bool constant = false;
    explicit Symbol(std::string n) : Value(Type::Sym), name(std::move(n)) {}
};
struct Subr : Value {
    std::string name;
    BuiltinFn fn = nullptr;
    SpecialFn special = nullptr;
    Subr(std::string n, BuiltinFn f, SpecialFn s) : Value(Type::Subr), name(std::move(n)), fn(f), special(s) {}
};
struct Usubr : Value {
    std::string name;
    std::vector<const Symbol*> params;
    std::vector<const Symbol*> locals;
    Ref body;  // list of forms
    Usubr() : Value(Type::Usubr) {}
};
// A function a module defined; the bridge knows how to call it.
struct Exrxsubr : Value {
    std::string name;
    void* app;
    short code;
    Exrxsubr(std::string n, void* a, short c) : Value(Type::Exrxsubr), name(std::move(n)), app(a), code(c) {}
};
struct Ename : Value {
    int32_t name[2];
    Ename(int32_t a, int32_t b) : Value(Type::Ename), name{a, b} {}
};
struct Pickset : Value {
    int32_t name[2];
    Pickset(int32_t a, int32_t b) : Value(Type::Pickset), name{a, b} {}
};
struct File : Value {
    std::FILE* fp;
    std::string name;
    File(std::FILE* f, std::string n) : Value(Type::File), fp(f), name(std::move(n)) {}
};
// What vl-catch-all-apply returns when the call failed.
struct CatchError : Value {
    std::string message;
    explicit CatchError(std::string m) : Value(Type::CatchError), message(std::move(m)) {}
};

// The selection-set table counts the LISP values that hold a set: one more
// when a value is made, one less when the last reference to it goes away.
extern void (*gPicksetRetained)(const int32_t name[2]);
extern void (*gPicksetReleased)(const int32_t name[2]);

Ref MakeInt(int32_t v);
Ref MakeReal(double v);
Ref MakeStr(std::string s);
Ref MakeCons(Ref car, Ref cdr);
Ref MakeEname(const int32_t name[2]);
Ref MakePickset(const int32_t name[2]);
Ref MakeBool(bool b);

// Interns a symbol by name, case-insensitively.
const Symbol* Intern(std::string_view name);
Ref Sym(std::string_view name);
Ref True();
// What (princ) returns: a symbol with no name, printed as nothing.
Ref Void();

inline const Ref& Car(const Ref& r) { static const Ref nil; return r.Is(Type::List) ? r.As<Cons>().car : nil; }
inline const Ref& Cdr(const Ref& r) { static const Ref nil; return r.Is(Type::List) ? r.As<Cons>().cdr : nil; }
inline bool IsNumber(const Ref& r) { return r.Is(Type::Int) || r.Is(Type::Real); }
inline double NumberOf(const Ref& r) { return r.Is(Type::Int) ? r.As<Int>().v : r.As<Real>().v; }

// Builds a proper list from the given items.
Ref ListOf(std::initializer_list<Ref> items);
Ref ListFrom(const std::vector<Ref>& items, Ref tail = nullptr);
// The items of a list; the tail of a dotted list is dropped.
std::vector<Ref> ToVector(const Ref& list);
// Length of a proper list; -1 for a dotted one.
long ListLength(const Ref& list);

// Appends to the end of a list under construction in O(1).
class ListBuilder {
public:
    void Add(Ref item);
    void SetTail(Ref tail);
    Ref Take() { m_tail = nullptr; return std::move(m_head); }
private:
    Ref m_head;
    Cons* m_tail = nullptr;
};

}  // namespace lumo::lisp
