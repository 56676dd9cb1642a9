// The module-wide state the frame owns.
#include "frame/frame_state.h"

HMODULE gModuleHandle = nullptr;
resbuf gOutputSystem = {nullptr, RTSHORT, {0.0}};
double gAcadVersion = 0;
int32_t gKeyFilterInstalled = 0;
int32_t gEscFilterInstalled = 0;
int32_t gHotkeysOff = 0;
int32_t gExplodePending = 0;
ads_point gLastPicks[2] = {{0, 0, 0}, {0, 0, 0}};

char gApplicationName[64] = "_APPNAME";
char gXdataAppName[64] = "_PWH";
char gModuleFolder[260] = "C:\\";
