#include "host/lisp/printer.h"

#include <cmath>
#include <cstdio>

namespace lumo::lisp {

namespace {

void AppendQuoted(std::string& out, const std::string& s) {
    out += '"';
    for (char c : s) {
        switch (c) {
        case '"': out += "\\\""; break;
        case '\\': out += "\\\\"; break;
        case '\n': out += "\\n"; break;
        case '\t': out += "\\t"; break;
        case '\r': out += "\\r"; break;
        case '\x1b': out += "\\e"; break;
        default: out += c; break;
        }
    }
    out += '"';
}

std::string Address(const void* p, const char* kind, const std::string& name) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "#<%s @%016llx ", kind,
                  static_cast<unsigned long long>(reinterpret_cast<uintptr_t>(p)));
    return buf + name + ">";
}

void Print(std::string& out, const Ref& v, bool quoted);

void PrintList(std::string& out, const Ref& list, bool quoted) {
    out += '(';
    const Ref* p = &list;
    bool first = true;
    while (p->Is(Type::List)) {
        if (!first) out += ' ';
        first = false;
        Print(out, p->As<Cons>().car, quoted);
        p = &p->As<Cons>().cdr;
    }
    if (*p) {
        out += " . ";
        Print(out, *p, quoted);
    }
    out += ')';
}

void Print(std::string& out, const Ref& v, bool quoted) {
    if (!v) { out += "nil"; return; }
    switch (v.type()) {
    case Type::Int: out += std::to_string(v.As<Int>().v); break;
    case Type::Real: out += FormatReal(v.As<Real>().v); break;
    case Type::Str:
        if (quoted) AppendQuoted(out, v.As<Str>().s);
        else out += v.As<Str>().s;
        break;
    case Type::Sym: out += v.As<Symbol>().name; break;
    case Type::List: PrintList(out, v, quoted); break;
    case Type::Subr: out += Address(v.get(), "SUBR", v.As<Subr>().name); break;
    case Type::Usubr: out += Address(v.get(), "USUBR", v.As<Usubr>().name); break;
    case Type::Exrxsubr: out += Address(v.get(), "EXRXSUBR", v.As<Exrxsubr>().name); break;
    case Type::Ename: out += "<Entity name: " + FormatEname(v.As<Ename>().name) + ">"; break;
    case Type::Pickset: out += "<Selection set: " + std::to_string(v.As<Pickset>().name[0]) + ">"; break;
    case Type::File: out += "#<file \"" + v.As<File>().name + "\">"; break;
    case Type::CatchError: out += "#<%catch-all-apply-error%>"; break;
    }
}

}  // namespace

std::string FormatReal(double v) {
    if (std::isnan(v)) return "-1.#IND";
    if (std::isinf(v)) return v > 0 ? "1.#INF" : "-1.#INF";
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.6g", v);
    std::string s = buf;
    if (s.find('.') != std::string::npos) return s;
    size_t e = s.find('e');
    if (e == std::string::npos) return s + ".0";
    return s.substr(0, e) + ".0" + s.substr(e);
}

std::string FormatEname(const int32_t name[2]) {
    char buf[32];
    unsigned long long id = 0x7ff600000000ULL + static_cast<unsigned long long>(static_cast<uint32_t>(name[0])) * 16;
    std::snprintf(buf, sizeof buf, "%llx", id);
    return buf;
}

std::string ToString(const Ref& value, bool quoted) {
    std::string out;
    Print(out, value, quoted);
    return out;
}

}  // namespace lumo::lisp
