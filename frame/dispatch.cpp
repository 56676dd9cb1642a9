// Registration of the LISP names and dispatch of a call to its handler.
#include <exception>

#include "frame/ApplicationError.h"
#include "frame/function_table.h"
#include "platform/acedads.h"

int PlainRowCount() { return gLispFunctionCount - gRegFuncRowCount; }

int RegisterFunctions() {
    const int plain = PlainRowCount();
    for (int code = 0; code < plain; ++code)
        if (!acedDefun(gLispFunctions[gRegFuncRowCount + code].name, static_cast<short>(code)))
            return RTERROR;
    for (int row = 0; row < gRegFuncRowCount; ++row) {
        const short code = static_cast<short>(plain + row);
        if (!acedDefun(gLispFunctions[row].name, code)) return RTERROR;
        if (acedRegFunc(gLispFunctions[row].handler, code) != RTNORM) return RTERROR;
    }
    return RTNORM;
}

// The one guard of the module: whatever escapes a handler becomes an error
// status and a message, and the host keeps running.
int DispatchFunction() {
    const int code = acedGetFunCode();
    if (code < 0 || code >= PlainRowCount()) {
        acdbFail("收到不存在的函数代码.");
        return RTERROR;
    }
    try {
        return gLispFunctions[gRegFuncRowCount + code].handler();
    } catch (const std::exception& e) {
        ApplicationError("\n%s: %s", gLispFunctions[gRegFuncRowCount + code].name, e.what());
    } catch (...) {
        ApplicationError("\n%s: unexpected failure", gLispFunctions[gRegFuncRowCount + code].name);
    }
    return RTERROR;
}
