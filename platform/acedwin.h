// The host's main window and the hooks into its message loop.
#pragma once
#include "platform/adsdef.h"
#include "platform/win32.h"

// A filter sees every message of the host's loop; non-zero swallows it.
typedef BOOL (*AcedFilterWinMsgFn)(MSG* message);

BOOL acedRegisterFilterWinMsg(AcedFilterWinMsgFn filter);   // non-zero on success
BOOL acedRemoveFilterWinMsg(AcedFilterWinMsgFn filter);
HWND adsw_acadMainWnd();
// Converts a pixel of a viewport (-1: the current one) to a world point.
bool acedCoordFromPixelToWorld(int viewport, POINT pixel, ads_point out);
bool acedCoordFromWorldToPixel(int viewport, const ads_point world, POINT& out);
