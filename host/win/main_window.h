// The host's main window: its message filters and the messages tests and
// scripts inject.
#pragma once
#include "platform/win32.h"

namespace lumo::host {

// Sends a message through the installed filters, in order of installation;
// true if one swallowed it. An Esc key that no filter swallowed counts as
// the user's break (acedUsrBrk).
bool DeliverMessage(UINT message, WPARAM wParam, LPARAM lParam);
int FilterCount();

}  // namespace lumo::host
