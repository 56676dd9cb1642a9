// The frame's side of the drawing session and the yes/no question.
//
// The session family (lumo_begin, lumo_end, the layer definitions) is not
// part of this module yet: with no session ever begun there are no layer
// definitions to hold. Ending a session (lumo_end, or Esc) still empties the
// value stacks, which belong to whatever the session was doing.
#include "frame/session_hooks.h"

#include <cstring>

#include "frame/object_stacks.h"
#include "platform/acedads.h"
#include "platform/crt.h"

int ReadLayerDefs(int) { return 0; }

void EndDrawingSession() { EmptyValueStacks(); }

void ReleaseLayerDefsHead() {}

int YesNoQuestion(const char* prompt, int defaultAnswer) {
    char answer[133] = "";
    acedInitGet(0, "Yes No");
    switch (acedGetKword(prompt, answer)) {
    case RTNORM:
        return _stricmp(answer, "Yes") == 0 ? 1 : 0;
    case RTNONE:  // Enter takes the default
        return defaultAnswer;
    default:  // Esc
        return 0;
    }
}
