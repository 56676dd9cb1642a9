// The Win32 types, messages and calls that modules use, as the host provides them.
#pragma once
#include <cstdint>

typedef int BOOL;
typedef unsigned int UINT;
typedef uint32_t DWORD;
typedef uint16_t WORD;
typedef uintptr_t WPARAM;
typedef intptr_t LPARAM;
typedef intptr_t LRESULT;
typedef void* PVOID;
typedef void* LPVOID;
typedef struct HWND__* HWND;
typedef struct HINSTANCE__* HINSTANCE;
typedef HINSTANCE HMODULE;
typedef uintptr_t ULONG_PTR;

struct POINT {
    int32_t x;
    int32_t y;
};

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};

struct COPYDATASTRUCT {
    ULONG_PTR dwData;
    DWORD cbData;
    PVOID lpData;
};

enum : UINT {
    WM_PAINT = 0x000F,
    WM_COPYDATA = 0x004A,
    WM_KEYDOWN = 0x0100,
    WM_KEYUP = 0x0101,
    WM_CHAR = 0x0102,
    WM_LBUTTONDOWN = 0x0201,
};

enum : UINT { VK_TAB = 0x09, VK_RETURN = 0x0D, VK_ESCAPE = 0x1B };

LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
#define SendMessage SendMessageA
BOOL IsWindow(HWND window);
DWORD GetModuleFileNameA(HMODULE module, char* out, DWORD size);
DWORD GetTickCount();

#define LOWORD(l) ((WORD)(((uintptr_t)(l)) & 0xffff))
#define HIWORD(l) ((WORD)((((uintptr_t)(l)) >> 16) & 0xffff))
#define GET_X_LPARAM(lp) ((int)(short)LOWORD(lp))
#define GET_Y_LPARAM(lp) ((int)(short)HIWORD(lp))

enum : DWORD { DLL_PROCESS_DETACH = 0, DLL_PROCESS_ATTACH = 1 };
