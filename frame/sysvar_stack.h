// Saved system variables that go back to their values when popped.
#pragma once
#include <string>

#include "platform/adsdef.h"

// One saved variable. Made, it reads the variable's value; destroyed, it
// sets the variable back to that value. A failure of either shows a
// message box, and the state stands all the same.
class SysVarState {
public:
    explicit SysVarState(const char* name);
    SysVarState(const SysVarState&) = delete;
    SysVarState& operator=(const SysVarState&) = delete;
    virtual ~SysVarState();

    // Sets the variable to `value` (one node); a message box on failure.
    void Set(const resbuf* value);
    // Lets the saved value go without setting it back.
    void Discard();

    const std::string& Name() const { return name; }
    const resbuf* Saved() const { return saved; }

private:
    std::string name;
    resbuf* saved = nullptr;
};

// Newest state first.
class SysVarStack {
public:
    SysVarStack() = default;
    SysVarStack(const SysVarStack&) = delete;
    SysVarStack& operator=(const SysVarStack&) = delete;
    // Destroys every state, newest first, so each variable ends at the value
    // its oldest state saved.
    ~SysVarStack();

    void Push(SysVarState* state);
    // Destroys the newest state of that name (case counts); false if none.
    bool Pop(const char* name);
    // Frees every state without setting anything back.
    void Discard();
    int Depth() const;

private:
    struct Link {
        SysVarState* state;
        Link* next;
    };
    Link* head = nullptr;
};
