#include "host/lisp/eval.h"

#include <sys/resource.h>

#include <algorithm>

#include "host/lisp/builtins.h"
#include "host/lisp/printer.h"

namespace lumo::lisp {

Ref (*gCallExternal)(const Exrxsubr& fn, Args args) = nullptr;

namespace {

// Deep recursion in LISP must end in an error, not a crash: evaluation
// stops when it has used most of the thread's stack.
class StackGuard {
public:
    StackGuard() {
        auto here = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
        if (s_depth++ == 0) s_base = here;
        else if (static_cast<std::ptrdiff_t>(s_base - here) > Budget()) {
            --s_depth;
            Fail("stack overflow");
        }
    }
    ~StackGuard() { --s_depth; }
    StackGuard(const StackGuard&) = delete;
    StackGuard& operator=(const StackGuard&) = delete;

private:
    static std::ptrdiff_t Budget() {
        static const std::ptrdiff_t budget = [] {
            rlimit limit{};
            std::ptrdiff_t size = 8 << 20;
            if (getrlimit(RLIMIT_STACK, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY)
                size = static_cast<std::ptrdiff_t>(limit.rlim_cur);
            size = std::min<std::ptrdiff_t>(size, 64 << 20);
            return size - std::max<std::ptrdiff_t>(size / 4, 1 << 20);
        }();
        return budget;
    }
    static inline int s_depth = 0;
    static inline uintptr_t s_base = 0;
};

Ref MakeLambda(const std::string& name, const Ref& params, const Ref& body) {
    auto* f = new Usubr();
    Ref out(f);
    f->name = name;
    bool locals = false;
    for (const Ref* p = &params; p->Is(Type::List); p = &p->As<Cons>().cdr) {
        const Ref& item = p->As<Cons>().car;
        if (item.Is(Type::Sym) && item.As<Symbol>().name == "/") {
            locals = true;
            continue;
        }
        const Symbol* s = &SymArg(item);
        (locals ? f->locals : f->params).push_back(s);
    }
    if (params && !params.Is(Type::List)) TypeError("listp", params);
    f->body = body;
    return out;
}

Ref CallUsubr(const Usubr& f, Args args) {
    if (args.size() < f.params.size()) Fail("too few arguments");
    if (args.size() > f.params.size()) Fail("too many arguments");
    DynamicBinding scope;
    for (size_t i = 0; i < args.size(); ++i) scope.Bind(f.params[i], args[i]);
    for (const Symbol* s : f.locals) scope.Bind(s, nullptr);
    return EvalBody(f.body);
}

[[noreturn]] void BadFunction(const Ref& v) { Fail("bad function: " + ToString(v, true)); }

}  // namespace

DynamicBinding::~DynamicBinding() {
    while (m_count > 0) {
        --m_count;
        Saved& s = m_count < 8 ? m_small[m_count] : m_more[m_count - 8];
        s.sym->value = std::move(s.old);
    }
}

void DynamicBinding::Bind(const Symbol* sym, Ref value) {
    auto* s = const_cast<Symbol*>(sym);
    Saved saved{s, std::move(s->value)};
    if (m_count < 8) m_small[m_count] = std::move(saved);
    else m_more.push_back(std::move(saved));
    ++m_count;
    s->value = std::move(value);
}

bool IsFunction(const Ref& v) {
    return v.Is(Type::Subr) || v.Is(Type::Usubr) || v.Is(Type::Exrxsubr);
}

Ref ResolveFunction(const Ref& fn) {
    if (IsFunction(fn)) return fn;
    if (fn.Is(Type::Sym)) {
        const Ref& value = fn.As<Symbol>().value;
        if (IsFunction(value)) return value;
        if (value.Is(Type::List)) return ResolveFunction(value);
        Fail("no function definition: " + fn.As<Symbol>().name);
    }
    if (fn.Is(Type::List)) {
        const Ref& head = Car(fn);
        if (head.Is(Type::Sym) && head.As<Symbol>().name == "LAMBDA")
            return MakeLambda("", Car(Cdr(fn)), Cdr(Cdr(fn)));
        // A list whose first item is the parameter list (defun-q functions).
        if (!head || head.Is(Type::List)) return MakeLambda("", head, Cdr(fn));
    }
    BadFunction(fn);
}

Ref Apply(const Ref& fn, Args args) {
    Ref f = ResolveFunction(fn);
    switch (f.type()) {
    case Type::Subr: {
        const Subr& s = f.As<Subr>();
        if (s.fn) return s.fn(args);
        BadFunction(f);  // special forms cannot be applied
    }
    case Type::Usubr: return CallUsubr(f.As<Usubr>(), args);
    case Type::Exrxsubr:
        if (!gCallExternal) Fail("no function definition: " + f.As<Exrxsubr>().name);
        return gCallExternal(f.As<Exrxsubr>(), args);
    default: BadFunction(f);
    }
}

Ref EvalBody(const Ref& forms) {
    Ref result;
    for (const Ref* p = &forms; p->Is(Type::List); p = &p->As<Cons>().cdr) result = Eval(p->As<Cons>().car);
    return result;
}

Ref Eval(const Ref& form) {
    if (!form) return nullptr;
    switch (form.type()) {
    case Type::Sym: return form.As<Symbol>().value;
    case Type::List: break;
    default: return form;
    }
    StackGuard guard;
    const Cons& cell = form.As<Cons>();
    Ref fn;
    if (cell.car.Is(Type::Sym)) {
        fn = cell.car.As<Symbol>().value;
        if (!fn) Fail("no function definition: " + cell.car.As<Symbol>().name);
    } else if (cell.car.Is(Type::List)) {
        fn = Car(cell.car).Is(Type::Sym) && Car(cell.car).As<Symbol>().name == "LAMBDA" ? ResolveFunction(cell.car)
                                                                                        : Eval(cell.car);
    } else {
        BadFunction(cell.car);
    }
    if (fn.Is(Type::Subr) && fn.As<Subr>().special) return fn.As<Subr>().special(cell.cdr);
    if (!IsFunction(fn) && !fn.Is(Type::List)) BadFunction(fn);

    Ref small[6];
    std::vector<Ref> big;
    size_t n = 0;
    for (const Ref* p = &cell.cdr; p->Is(Type::List); p = &p->As<Cons>().cdr) {
        Ref v = Eval(p->As<Cons>().car);
        if (n < 6) {
            small[n] = std::move(v);
        } else {
            if (n == 6) big.assign(std::make_move_iterator(small), std::make_move_iterator(small + 6));
            big.push_back(std::move(v));
        }
        ++n;
    }
    Args args = n <= 6 ? Args(small, n) : Args(big);
    return Apply(fn, args);
}

// ---- special forms ----

namespace {

const Ref& Nth(const Ref& list, int n) {
    const Ref* p = &list;
    while (n-- > 0) p = &Cdr(*p);
    return Car(*p);
}

void FormCount(const Ref& forms, long min, long max) {
    long n = ListLength(forms);
    if (n < min) Fail("too few arguments");
    if (max >= 0 && n > max) Fail("too many arguments");
}

Ref Quote(const Ref& f) {
    FormCount(f, 1, 1);
    return Car(f);
}

Ref Function(const Ref& f) {
    FormCount(f, 1, 1);
    const Ref& arg = Car(f);
    if (arg.Is(Type::List) && Car(arg).Is(Type::Sym) && Car(arg).As<Symbol>().name == "LAMBDA")
        return ResolveFunction(arg);
    return arg;
}

Ref Setq(const Ref& f) {
    Ref value;
    for (const Ref* p = &f; p->Is(Type::List); p = &Cdr(Cdr(*p))) {
        const Symbol& s = SymArg(Car(*p));
        if (!Cdr(*p)) Fail("too few arguments");
        value = Eval(Car(Cdr(*p)));
        if (s.constant) Fail("attempt to set constant: " + s.name);
        const_cast<Symbol&>(s).value = value;
    }
    return value;
}

Ref If(const Ref& f) {
    FormCount(f, 2, 3);
    if (Eval(Car(f))) return Eval(Nth(f, 1));
    return Eval(Nth(f, 2));
}

Ref Cond(const Ref& f) {
    for (const Ref* p = &f; p->Is(Type::List); p = &p->As<Cons>().cdr) {
        const Ref& clause = p->As<Cons>().car;
        if (!clause.Is(Type::List)) TypeError("listp", clause);
        Ref test = Eval(Car(clause));
        if (test) return Cdr(clause) ? EvalBody(Cdr(clause)) : test;
    }
    return nullptr;
}

Ref While(const Ref& f) {
    FormCount(f, 1, -1);
    Ref result;
    while (Eval(Car(f))) result = EvalBody(Cdr(f));
    return result;
}

Ref Repeat(const Ref& f) {
    FormCount(f, 1, -1);
    Ref count = Eval(Car(f));
    int32_t n = IntArg(count);
    Ref result;
    for (int32_t i = 0; i < n; ++i) result = EvalBody(Cdr(f));
    return result;
}

Ref Foreach(const Ref& f) {
    FormCount(f, 2, -1);
    const Symbol& var = SymArg(Car(f));
    Ref list = Eval(Nth(f, 1));
    ListArg(list);
    DynamicBinding scope;
    scope.Bind(&var, nullptr);
    Ref result;
    for (const Ref* p = &list; p->Is(Type::List); p = &p->As<Cons>().cdr) {
        const_cast<Symbol&>(var).value = p->As<Cons>().car;
        result = EvalBody(Cdr(Cdr(f)));
    }
    return result;
}

Ref Progn(const Ref& f) { return EvalBody(f); }

Ref And(const Ref& f) {
    for (const Ref* p = &f; p->Is(Type::List); p = &p->As<Cons>().cdr)
        if (!Eval(p->As<Cons>().car)) return nullptr;
    return True();
}

Ref Or(const Ref& f) {
    for (const Ref* p = &f; p->Is(Type::List); p = &p->As<Cons>().cdr)
        if (Eval(p->As<Cons>().car)) return True();
    return nullptr;
}

Ref Defun(const Ref& f) {
    FormCount(f, 2, -1);
    const Symbol& name = SymArg(Car(f));
    Ref fn = MakeLambda(name.name, Nth(f, 1), Cdr(Cdr(f)));
    const_cast<Symbol&>(name).value = fn;
    return Car(f);
}

// defun-q keeps the function as a list, so programs can read and extend it.
Ref DefunQ(const Ref& f) {
    FormCount(f, 2, -1);
    const Symbol& name = SymArg(Car(f));
    const_cast<Symbol&>(name).value = Cdr(f);
    return Car(f);
}

Ref Lambda(const Ref& f) {
    FormCount(f, 1, -1);
    return MakeLambda("", Car(f), Cdr(f));
}

const SpecialTable kSpecials{{
    {"quote", Quote}, {"function", Function}, {"setq", Setq}, {"if", If}, {"cond", Cond},
    {"while", While}, {"repeat", Repeat}, {"foreach", Foreach}, {"progn", Progn},
    {"and", And}, {"or", Or}, {"defun", Defun}, {"defun-q", DefunQ}, {"lambda", Lambda},
}};

}  // namespace

}  // namespace lumo::lisp
