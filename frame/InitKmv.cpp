// The module's names and folder, set once at initialisation.
#include "frame/InitKmv.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "frame/frame_state.h"
#include "frame/tq_vars.h"
#include "platform/crt.h"
#include "platform/win32.h"

void InitKmv(const char* applicationName) {
    if (applicationName) {
        std::snprintf(gApplicationName, sizeof gApplicationName, "%s", applicationName);
        std::snprintf(gXdataAppName, sizeof gXdataAppName, "%s", applicationName);
    }
    char path[260] = "";
    if (GetModuleFileNameA(gModuleHandle, path, sizeof path)) {
        char drive[3] = "";
        char dir[256] = "";
        _splitpath(path, drive, dir, nullptr, nullptr);
        std::snprintf(gModuleFolder, sizeof gModuleFolder, "%.2s%.255s", drive, dir);
    }
    char* version = static_cast<char*>(std::malloc(256));
    if (!version) return;
    tq_getvar("ACADVER", version);
    gAcadVersion = std::atof(version);
    std::free(version);
}
