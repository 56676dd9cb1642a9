// acedDefun and the call of a module's function from LISP.
#include "host/ads/defun.h"

#include <algorithm>
#include <string>

#include "host/ads/call_frame.h"
#include "host/ads/output.h"
#include "host/app/applications.h"
#include "host/lisp/builtins.h"
#include "host/lisp/eval.h"
#include "host/lisp/resbuf_convert.h"
#include "host/lisp/session.h"
#include "platform/acedads.h"
#include "platform/acutads.h"

namespace lumo::host {
namespace {

using namespace lumo::lisp;

// The argument chain is made fresh for each call and released after it;
// the module sees it through acedGetArgs only while the call runs.
Ref CallModule(const Exrxsubr& fn, Args args) {
    auto* app = static_cast<Application*>(fn.app);
    CurrentApplicationScope current(app);
    CallFrameScope scope(app, fn.code, ToResbufChain(args));
    auto direct = app->directFunctions.find(fn.code);
    if (direct != app->directFunctions.end()) {
        if (direct->second() != RSRSLT) Fail("ADS request error");
    } else {
        app->entry(AcRx::kInvkSubrMsg, app);
    }
    return std::move(scope.frame().result);
}

const bool kInstalled = [] {
    gCallExternal = CallModule;
    return true;
}();

bool BoundTo(const Ref& value, const Application& app) {
    return value.Is(Type::Exrxsubr) && value.As<Exrxsubr>().app == &app;
}

}  // namespace

void UndefineApplication(const Application& app) {
    for (const std::string& name : app.functions) {
        auto* sym = const_cast<Symbol*>(Intern(name));
        if (BoundTo(sym->value, app)) sym->value = nullptr;
    }
}

}  // namespace lumo::host

using namespace lumo::lisp;
using lumo::host::Application;
using lumo::host::CurrentApplication;

int acedDefun(const char* name, short code) {
    Application* app = CurrentApplication();
    if (!app || !name || !*name || !lumo::host::kInstalled) return 0;
    auto* sym = const_cast<Symbol*>(Intern(name));
    if (sym->constant) return 0;
    sym->value = Ref(new Exrxsubr(sym->name, app, code));
    if (std::find(app->functions.begin(), app->functions.end(), sym->name) == app->functions.end())
        app->functions.push_back(sym->name);
    return RTNORM;
}

int acedUndef(const char* name, short code) {
    Application* app = CurrentApplication();
    if (!app || !name) return RTERROR;
    auto* sym = const_cast<Symbol*>(Intern(name));
    if (!lumo::host::BoundTo(sym->value, *app) || sym->value.As<Exrxsubr>().code != code) return RTERROR;
    sym->value = nullptr;
    return RTNORM;
}

int acedRegFunc(int (*handler)(), int code) {
    Application* app = CurrentApplication();
    if (!app) return RTERROR;
    if (handler) app->directFunctions[code] = handler;
    else app->directFunctions.erase(code);
    return RTNORM;
}

// The first node names the function (as a string or symbol name); the rest
// are its arguments. An error in the function is reported and gives RTERROR.
int acedInvoke(const resbuf* args, resbuf** result) {
    if (result) *result = nullptr;
    if (!args || args->restype != RTSTR || !args->resval.rstring) return RTERROR;
    const Symbol* fn = Intern(args->resval.rstring);
    std::vector<Ref> values = ToVector(ValuesOfChain(args->rbnext));
    try {
        Ref value = Apply(Ref(fn), values);
        if (result) *result = ToResbuf(value);
        return RTNORM;
    } catch (const LispError& e) {
        lumo::host::WriteError("; error: " + std::string(e.what()) + "\n");
        return RTERROR;
    }
}
