// Message boxes of the host's window system and of MFC.
//
// The host has no screen: a box prints its text to the command line. A box
// with only an OK button answers IDOK at once; a box that asks a question
// takes its answer from the next line of input (the first letter of the
// button: Y, N, O, C, A, R, I), an empty or unknown line taking the first
// button, and no input at all (Esc) taking Cancel, or No, or Abort.
#pragma once
#include "platform/win32.h"

enum : UINT {
    MB_OK = 0x0, MB_OKCANCEL = 0x1, MB_ABORTRETRYIGNORE = 0x2, MB_YESNOCANCEL = 0x3,
    MB_YESNO = 0x4, MB_RETRYCANCEL = 0x5, MB_TYPEMASK = 0xF,
    MB_ICONHAND = 0x10, MB_ICONQUESTION = 0x20, MB_ICONEXCLAMATION = 0x30, MB_ICONASTERISK = 0x40,
    MB_ICONERROR = MB_ICONHAND, MB_ICONSTOP = MB_ICONHAND, MB_ICONWARNING = MB_ICONEXCLAMATION,
    MB_ICONINFORMATION = MB_ICONASTERISK,
};

enum : int { IDOK = 1, IDCANCEL = 2, IDABORT = 3, IDRETRY = 4, IDIGNORE = 5, IDYES = 6, IDNO = 7 };

// The button chosen. `caption` may be null.
int MessageBoxA(HWND owner, const char* text, const char* caption, UINT type);
#define MessageBox MessageBoxA
// The same with the application's caption.
int AfxMessageBox(const char* text, UINT type = MB_OK, UINT helpId = 0);
