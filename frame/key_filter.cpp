// The frame's Windows message filters. The main filter runs for every
// message and reads "cmdnames" first; nothing more belongs on that path.
#include "frame/key_filter.h"

#include <cstdlib>
#include <cstring>
#include <string>

#include "frame/frame_state.h"
#include "frame/session_hooks.h"
#include "platform/acedads.h"
#include "platform/acedwin.h"
#include "platform/crt.h"

namespace {

std::string GetStringVar(const char* name) {
    resbuf value;
    value.rbnext = nullptr;
    if (acedGetVar(name, &value) != RTNORM || value.restype != RTSTR) return {};
    std::string text = value.resval.rstring ? value.resval.rstring : "";
    std::free(value.resval.rstring);
    return text;
}

int GetIntVar(const char* name) {
    resbuf value;
    value.rbnext = nullptr;
    if (acedGetVar(name, &value) != RTNORM) return 0;
    if (value.restype == RTSHORT) return value.resval.rint;
    if (value.restype == RTLONG) return value.resval.rlong;
    if (value.restype == RTSTR) std::free(value.resval.rstring);
    return 0;
}

constexpr WPARAM kCtrlU = 21;

}  // namespace

BOOL KeyFilter(MSG* message) {
    const std::string active = GetStringVar("cmdnames");
    switch (message->message) {
    case WM_CHAR:
        if (_stricmp(active.c_str(), "ZOOM") != 0 && message->wParam == VK_TAB)
            SendCommandString(adsw_acadMainWnd(), "'ZOOM\nD\n");
        if (message->wParam == kCtrlU && GetIntVar("CMDACTIVE") == 0)
            SendCommandString(adsw_acadMainWnd(), "lumo_savsslink\n");
        break;
    case WM_PAINT:
        if (GetIntVar("CMDACTIVE") != 0) {
            const std::string names = GetStringVar("CMDNAMES");
            if (_stricmp(names.c_str(), "EXPLODE") == 0) gExplodePending = 1;
        } else if (gExplodePending == 1) {
            gExplodePending = 0;
            SendCommandString(adsw_acadMainWnd(), "'lumo_savsslink\n");
        }
        break;
    case WM_KEYDOWN:
        if (message->wParam == VK_ESCAPE) EndDrawingSession();
        break;
    case WM_LBUTTONDOWN: {
        POINT pixel{GET_X_LPARAM(message->lParam), GET_Y_LPARAM(message->lParam)};
        ads_point world = {0, 0, 0};
        acedCoordFromPixelToWorld(-1, pixel, world);
        std::memcpy(gLastPicks[1], gLastPicks[0], sizeof gLastPicks[0]);
        gLastPicks[0][0] = world[0];
        gLastPicks[0][1] = world[1];
        gLastPicks[0][2] = 0;
        break;
    }
    default:
        break;
    }
    return 0;
}

BOOL EscFilter(MSG* message) { return message->message == WM_KEYDOWN && message->wParam == VK_ESCAPE; }

void InstallKeyFilter() {
    if (gKeyFilterInstalled) return;
    if (acedRegisterFilterWinMsg(KeyFilter)) gKeyFilterInstalled = 1;
}

void RemoveKeyFilter() {
    if (gKeyFilterInstalled != 1) return;
    acedRemoveFilterWinMsg(KeyFilter);
    gKeyFilterInstalled = 0;
}

void SendCommandString(HWND window, const char* text) {
    if (!window || !text) return;
    COPYDATASTRUCT data;
    data.dwData = 1;
    data.cbData = static_cast<DWORD>(std::strlen(text) + 1);
    data.lpData = const_cast<char*>(text);
    SendMessageA(adsw_acadMainWnd(), WM_COPYDATA, reinterpret_cast<WPARAM>(window),
                 reinterpret_cast<LPARAM>(&data));
}
