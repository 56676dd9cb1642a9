// The applications the host has loaded, and the one whose code is running.
#pragma once
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/rxobject.h"
#include "platform/win32.h"

namespace lumo::host {

struct Application {
    std::string path;
    void* handle = nullptr;              // from dlopen; null for in-process entries
    AcRxEntryPointFn entry = nullptr;
    bool unlocked = false;
    bool mdiAware = false;
    std::map<int, int (*)()> directFunctions;   // acedRegFunc
    std::vector<std::string> functions;         // names given to acedDefun
};

// Loads a module by path: dlopen, its DllMain with DLL_PROCESS_ATTACH, then
// kInitAppMsg. Null with `error` set on failure.
Application* LoadApplication(const std::string& path, std::string* error);
// Registers an entry point already linked into the process (tests).
Application* AddApplication(const std::string& name, AcRxEntryPointFn entry);
// Sends a message to one application, as the current one.
AcRx::AppRetCode SendAppMessage(Application& app, AcRx::AppMsgCode message);
// Sends a message to every application in load order.
void BroadcastAppMessage(AcRx::AppMsgCode message);
// kUnloadDwgMsg, kQuitMsg, DLL_PROCESS_DETACH and dlclose for every
// application, newest first.
void UnloadAllApplications();
Application* FindApplication(const std::string& path);

// The application whose entry point or function is running; null at top level.
Application* CurrentApplication();
class CurrentApplicationScope {
public:
    explicit CurrentApplicationScope(Application* app);
    ~CurrentApplicationScope();
    CurrentApplicationScope(const CurrentApplicationScope&) = delete;
    CurrentApplicationScope& operator=(const CurrentApplicationScope&) = delete;
private:
    Application* m_saved;
};

}  // namespace lumo::host
