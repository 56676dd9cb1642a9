#include "host/win/main_window.h"

#include <algorithm>
#include <string>
#include <vector>

#include "host/ads/input.h"
#include "platform/acedads.h"
#include "platform/acedwin.h"

namespace lumo::host {
namespace {

struct MainWindow {};
MainWindow gMainWindow;

std::vector<AcedFilterWinMsgFn>& Filters() {
    static std::vector<AcedFilterWinMsgFn> filters;
    return filters;
}

bool gUserBreak = false;

HWND MainHandle() { return reinterpret_cast<HWND>(&gMainWindow); }

}  // namespace

bool DeliverMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    MSG msg{MainHandle(), message, wParam, lParam, GetTickCount(), {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}};
    // A filter may remove itself while it runs: walk a copy.
    std::vector<AcedFilterWinMsgFn> filters = Filters();
    for (AcedFilterWinMsgFn filter : filters)
        if (filter(&msg)) return true;
    if (message == WM_KEYDOWN && wParam == VK_ESCAPE) gUserBreak = true;
    return false;
}

int FilterCount() { return static_cast<int>(Filters().size()); }

}  // namespace lumo::host

using namespace lumo::host;

HWND adsw_acadMainWnd() { return MainHandle(); }

BOOL IsWindow(HWND window) { return window == MainHandle(); }

BOOL acedRegisterFilterWinMsg(AcedFilterWinMsgFn filter) {
    if (!filter) return 0;
    auto& filters = Filters();
    if (std::find(filters.begin(), filters.end(), filter) == filters.end()) filters.push_back(filter);
    return 1;
}

BOOL acedRemoveFilterWinMsg(AcedFilterWinMsgFn filter) {
    auto& filters = Filters();
    auto it = std::find(filters.begin(), filters.end(), filter);
    if (it == filters.end()) return 0;
    filters.erase(it);
    return 1;
}

// WM_COPYDATA with dwData 1 to the main window types its text at the command
// line; the host reads it when the running call returns.
LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (window != MainHandle()) return 0;
    if (message == WM_COPYDATA) {
        auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        if (!data || data->dwData != 1 || !data->lpData) return 0;
        const char* text = static_cast<const char*>(data->lpData);
        size_t n = data->cbData;
        while (n > 0 && text[n - 1] == 0) --n;
        PushTypedInput(std::string(text, n));
        return 1;
    }
    return DeliverMessage(message, wParam, lParam) ? 1 : 0;
}

int acedUsrBrk() {
    bool pressed = gUserBreak;
    gUserBreak = false;
    return pressed ? 1 : 0;
}
