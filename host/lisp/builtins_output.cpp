// Printing to the command line or to an open file.
#include "host/ads/output.h"
#include "host/lisp/builtins.h"
#include "host/lisp/printer.h"

namespace lumo::lisp {
namespace {

void Emit(const std::string& text, Args a, size_t fileIndex) {
    if (a.size() > fileIndex) {
        const Ref& f = a[fileIndex];
        if (!f.Is(Type::File)) TypeError("streamp", f);
        if (f.As<File>().fp) std::fputs(text.c_str(), f.As<File>().fp);
        return;
    }
    host::WriteOutput(text);
}

Ref Princ(Args a) {
    ArgCount(a, 0, 2);
    if (a.empty()) return Void();
    Emit(ToString(a[0], false), a, 1);
    return a[0];
}

Ref Prin1(Args a) {
    ArgCount(a, 0, 2);
    if (a.empty()) return Void();
    Emit(ToString(a[0], true), a, 1);
    return a[0];
}

Ref Print(Args a) {
    ArgCount(a, 0, 2);
    if (a.empty()) return Void();
    Emit("\n" + ToString(a[0], true) + " ", a, 1);
    return a[0];
}

Ref Terpri(Args a) {
    ArgCount(a, 0, 1);
    Emit("\n", a, 0);
    return nullptr;
}

Ref Prompt(Args a) {
    ArgCount(a, 1, 1);
    host::WriteOutput(StrArg(a[0]));
    return nullptr;
}

// With no screen, an alert box shows on the command line.
Ref Alert(Args a) {
    ArgCount(a, 1, 1);
    host::WriteOutput(StrArg(a[0]) + "\n");
    return nullptr;
}

const BuiltinTable kOutput{{
    {"princ", Princ}, {"prin1", Prin1}, {"print", Print}, {"terpri", Terpri},
    {"prompt", Prompt}, {"alert", Alert},
}};

}  // namespace
}  // namespace lumo::lisp
