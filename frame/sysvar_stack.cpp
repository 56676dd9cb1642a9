// Saved system variables that go back to their values when popped.
#include "frame/sysvar_stack.h"

#include <cstdio>
#include <cstring>

#include "platform/acedads.h"
#include "platform/acutads.h"
#include "platform/msgbox.h"

namespace {

void Complain(const char* format, const std::string& name) {
    char text[300];
    std::snprintf(text, sizeof text, format, name.c_str());
    AfxMessageBox(text);
}

}  // namespace

SysVarState::SysVarState(const char* variable) : name(variable ? variable : "") {
    saved = acutNewRb(RTSHORT);
    if (!saved || acedGetVar(name.c_str(), saved) != RTNORM) {
        acutRelRb(saved);
        saved = nullptr;
        Complain("Could not save state of system variable \"%s\".", name);
    }
}

SysVarState::~SysVarState() {
    if (!saved) return;
    if (acedSetVar(name.c_str(), saved) != RTNORM) Complain("Could not set system variable \"%s\".", name);
    acutRelRb(saved);
}

void SysVarState::Set(const resbuf* value) {
    if (acedSetVar(name.c_str(), value) != RTNORM) Complain("Could not set system variable \"%s\".", name);
}

void SysVarState::Discard() {
    acutRelRb(saved);
    saved = nullptr;
}

SysVarStack::~SysVarStack() {
    while (head) {
        Link* link = head;
        head = link->next;
        delete link->state;
        delete link;
    }
}

void SysVarStack::Push(SysVarState* state) { head = new Link{state, head}; }

bool SysVarStack::Pop(const char* name) {
    if (!name) return false;
    for (Link** at = &head; *at; at = &(*at)->next) {
        if (std::strcmp((*at)->state->Name().c_str(), name) != 0) continue;
        Link* link = *at;
        *at = link->next;
        delete link->state;
        delete link;
        return true;
    }
    return false;
}

void SysVarStack::Discard() {
    for (Link* link = head; link; link = link->next) link->state->Discard();
}

int SysVarStack::Depth() const {
    int n = 0;
    for (Link* link = head; link; link = link->next) ++n;
    return n;
}
