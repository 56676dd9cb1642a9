// How host code adds LISP functions, and the argument checks they share.
//
//   namespace { Ref Strlen(Args a) { ... } }
//   static const lumo::lisp::BuiltinTable kStrings{{{"strlen", Strlen}, ...}};
//
// Tables register themselves when the host library loads; the symbols are
// bound by InitBuiltins() when the interpreter starts.
#pragma once
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/lisp/value.h"

namespace lumo::lisp {

// An error raised by LISP code; it unwinds to vl-catch-all-apply or the top
// level, which prints "; error: " + message.
struct LispError : std::runtime_error {
    using std::runtime_error::runtime_error;
};
// (exit) and (quit): an error with the host's message.
struct LispExit : LispError {
    LispExit() : LispError("quit / exit abort") {}
};

struct BuiltinEntry {
    const char* name;
    BuiltinFn fn;
};
struct SpecialEntry {
    const char* name;
    SpecialFn fn;
};

class BuiltinTable {
public:
    BuiltinTable(std::initializer_list<BuiltinEntry> entries);
};
class SpecialTable {
public:
    SpecialTable(std::initializer_list<SpecialEntry> entries);
};

// Binds every registered name; safe to call more than once.
void InitBuiltins();
// Binds one function now (for host parts that start later).
void DefineBuiltin(const char* name, BuiltinFn fn);

[[noreturn]] void Fail(const std::string& message);
// "bad argument type: <predicate> <value>"; pass "numberp:" where the host
// prints a colon after the predicate.
[[noreturn]] void TypeError(const char* predicate, const Ref& value);

void ArgCount(Args a, size_t min, size_t max = static_cast<size_t>(-1));
double NumArg(const Ref& v);
int32_t IntArg(const Ref& v);
const std::string& StrArg(const Ref& v);
const Symbol& SymArg(const Ref& v);
// A list, nil included.
const Ref& ListArg(const Ref& v);
// A point: a list of two or three numbers; z is 0 for a 2D point.
void PointArg(const Ref& v, double out[3], bool* is3d = nullptr);
Ref MakePoint(const double p[3], bool is3d = true);

}  // namespace lumo::lisp
