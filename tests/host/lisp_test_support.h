// Evaluating LISP text from C++ tests.
#pragma once
#include <string>

#include "host/lisp/builtins.h"
#include "host/lisp/eval.h"
#include "host/lisp/printer.h"
#include "host/lisp/reader.h"
#include "host/lisp/session.h"

namespace lumo::test {

// Evaluates every form; the value of the last. Errors propagate.
inline lisp::Ref Run(const std::string& text) {
    lisp::InitInterpreter();
    lisp::Reader reader(text);
    lisp::Ref form, value;
    while (reader.Next(form)) value = lisp::Eval(form);
    return value;
}

// The prin1 form of the value, or "error: <message>".
inline std::string Show(const std::string& text) {
    try {
        return lisp::ToString(Run(text), true);
    } catch (const lisp::LispError& e) {
        return std::string("error: ") + e.what();
    }
}

}  // namespace lumo::test
