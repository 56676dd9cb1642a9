// Calling a LISP handler of the module from a C++ test, the way the host
// calls it: arguments from LISP text, the result in its printed form.
#pragma once
#include <string>
#include <vector>

#include "host/ads/call_frame.h"
#include "host/lisp/eval.h"
#include "host/lisp/printer.h"
#include "host/lisp/reader.h"
#include "host/lisp/resbuf_convert.h"
#include "host/lisp/session.h"

namespace lumo::test {

// Evaluates each form of `args` ("\"abc\" 2", "'(1 2) \"-\"") and hands the
// values to `handler` as its argument chain. The result prints as prin1
// does; a handler that sets none gives "nil".
inline std::string CallHandler(int (*handler)(), const std::string& args) {
    lisp::InitInterpreter();
    lisp::Reader reader(args);
    std::vector<lisp::Ref> values;
    for (lisp::Ref form; reader.Next(form);) values.push_back(lisp::Eval(form));
    host::CallFrameScope scope(nullptr, 0, lisp::ToResbufChain(values));
    handler();
    return lisp::ToString(scope.frame().result, true);
}

}  // namespace lumo::test
