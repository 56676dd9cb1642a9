// One call of a module's LISP function: its code, its arguments and the
// result the module sets. Calls nest when a module invokes LISP that calls
// back into a module.
#pragma once
#include "host/lisp/value.h"
#include "platform/adsdef.h"

namespace lumo::host {

struct Application;

struct CallFrame {
    Application* app = nullptr;
    short code = 0;
    resbuf* args = nullptr;
    lisp::Ref result;
    int results = 0;
};

class CallFrameScope {
public:
    CallFrameScope(Application* app, short code, resbuf* args);
    ~CallFrameScope();
    CallFrameScope(const CallFrameScope&) = delete;
    CallFrameScope& operator=(const CallFrameScope&) = delete;
    CallFrame& frame() { return m_frame; }
private:
    CallFrame m_frame;
    CallFrame* m_saved;
};

CallFrame* CurrentCall();

}  // namespace lumo::host
