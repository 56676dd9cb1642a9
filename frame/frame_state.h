// The module-wide state the frame owns: one instance per process.
#pragma once
#include <cstdint>

#include "platform/adsdef.h"
#include "platform/win32.h"

extern HMODULE gModuleHandle;      // set at process attach
extern resbuf gOutputSystem;       // RTSHORT: 0 WCS, 1 the current UCS, for point results
extern double gAcadVersion;        // atof of ACADVER, read at init
extern int32_t gKeyFilterInstalled;
extern int32_t gEscFilterInstalled;
extern int32_t gHotkeysOff;        // the user switched the hotkeys off
extern int32_t gExplodePending;    // an EXPLODE was seen; refresh the link when it ends
extern ads_point gLastPicks[2];    // the last two left-button points, newest first

// The application-name texts and the module's own folder (InitKmv).
extern char gApplicationName[64];   // default "_APPNAME"
extern char gXdataAppName[64];      // default "_PWH", the registered application
extern char gModuleFolder[260];     // drive and folder of the module, default "C:\\"
