// The current module call and the acedGetArgs/acedRet* side of it.
#include "host/ads/call_frame.h"

#include "host/ads/output.h"
#include "host/lisp/builtins.h"
#include "host/lisp/resbuf_convert.h"
#include "platform/acedads.h"
#include "platform/acutads.h"

namespace lumo::host {

namespace {
CallFrame* gCurrent = nullptr;

int SetResult(lisp::Ref value) {
    if (!gCurrent) return RTERROR;
#ifdef LUMO_HOST_CHECKS
    if (gCurrent->results > 0) WriteError("host check: a second result in one call\n");
#endif
    gCurrent->result = std::move(value);
    ++gCurrent->results;
    return RTNORM;
}
}  // namespace

CallFrameScope::CallFrameScope(Application* app, short code, resbuf* args) : m_saved(gCurrent) {
    m_frame.app = app;
    m_frame.code = code;
    m_frame.args = args;
    gCurrent = &m_frame;
}

CallFrameScope::~CallFrameScope() {
    acutRelRb(m_frame.args);
    gCurrent = m_saved;
}

CallFrame* CurrentCall() { return gCurrent; }

}  // namespace lumo::host

using lumo::host::CurrentCall;
namespace lisp = lumo::lisp;

int acedGetFunCode() { return CurrentCall() ? CurrentCall()->code : static_cast<int>(RTERROR); }
resbuf* acedGetArgs() { return CurrentCall() ? CurrentCall()->args : nullptr; }

int acedRetInt(int value) { return lumo::host::SetResult(lisp::MakeInt(value)); }
int acedRetReal(ads_real value) { return lumo::host::SetResult(lisp::MakeReal(value)); }
int acedRetPoint(const ads_point point) { return lumo::host::SetResult(lisp::MakePoint(point, true)); }
int acedRetStr(const char* text) { return lumo::host::SetResult(lisp::MakeStr(text ? text : "")); }
int acedRetT() { return lumo::host::SetResult(lisp::True()); }
int acedRetNil() { return lumo::host::SetResult(nullptr); }
int acedRetVoid() { return lumo::host::SetResult(lisp::Void()); }

int acedRetName(const ads_name name, int type) {
    // LISP's value holds the set beside the module, which keeps its own hold
    // until it frees the set: modules keep the sets they return in their
    // stores and free them when they replace them.
    if (type == RTPICKS) return lumo::host::SetResult(lisp::MakePickset(name));
    if (type == RTENAME) return lumo::host::SetResult(lisp::MakeEname(name));
    return RTERROR;
}

int acedRetList(const resbuf* list) { return lumo::host::SetResult(lisp::FromResbufChain(list)); }

int acedRetVal(const resbuf* value) {
    if (!value) return lumo::host::SetResult(nullptr);
    // A list value is its whole RTLB ... RTLE chain.
    if (value->restype == RTLB) return lumo::host::SetResult(lisp::FromResbufChain(value));
    return lumo::host::SetResult(lisp::FromResbufNode(value));
}
