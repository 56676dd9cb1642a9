// The frame's Windows message filters: the hotkeys and the Esc swallower.
#pragma once
#include "platform/win32.h"

// Tab zooms to the drawing's extents, Ctrl-U and the end of an EXPLODE save
// the selection link, Esc ends the drawing session, a left button records
// its world point. Never swallows a message.
BOOL KeyFilter(MSG* message);
// Swallows Esc key presses so a long LISP loop can't be broken.
BOOL EscFilter(MSG* message);

void InstallKeyFilter();
void RemoveKeyFilter();
// Has the host run `text` as typed at the command line, without
// interrupting the filter. Nothing happens for a null window.
void SendCommandString(HWND window, const char* text);
