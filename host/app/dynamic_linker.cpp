#include "host/app/dynamic_linker.h"

#include <string>

#include "host/ads/output.h"
#include "host/app/applications.h"

namespace lumo::host {
namespace {

// Runtime libraries of the host itself: always present.
bool IsHostLibrary(const std::string& name) { return name == "acbr15.dll"; }

class HostDynamicLinker : public AcRxDynamicLinker {
public:
    bool loadModule(const char* fileName, bool printErrors, bool) override {
        if (!fileName) return false;
        if (IsHostLibrary(fileName) || FindApplication(fileName)) return true;
        std::string error;
        if (LoadApplication(fileName, &error)) return true;
        if (printErrors) WriteOutput("\nUnable to load " + std::string(fileName) + ": " + error + "\n");
        return false;
    }
    bool unloadModule(const char*, bool) override { return false; }
    bool registerAppMDIAware(void* appId) override {
        if (!appId) return false;
        static_cast<Application*>(appId)->mdiAware = true;
        return true;
    }
    bool isApplicationLoaded(const char* fileName) const override {
        return fileName && (IsHostLibrary(fileName) || FindApplication(fileName));
    }
};

}  // namespace

AcRxDynamicLinker& DynamicLinker() {
    static HostDynamicLinker linker;
    return linker;
}

}  // namespace lumo::host

bool acrxUnlockApplication(void* appId) {
    if (!appId) return false;
    static_cast<lumo::host::Application*>(appId)->unlocked = true;
    return true;
}

bool acrxLockApplication(void* appId) {
    if (!appId) return false;
    static_cast<lumo::host::Application*>(appId)->unlocked = false;
    return true;
}
