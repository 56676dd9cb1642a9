#include "host/app/applications.h"

#include <dlfcn.h>

#include <algorithm>

#include "host/ads/defun.h"

namespace lumo::host {

namespace {

std::vector<std::unique_ptr<Application>>& Apps() {
    static std::vector<std::unique_ptr<Application>> apps;
    return apps;
}

Application* gCurrent = nullptr;

using DllMainFn = BOOL (*)(HINSTANCE, DWORD, LPVOID);

void CallDllMain(Application& app, DWORD reason) {
    if (!app.handle) return;
    if (auto fn = reinterpret_cast<DllMainFn>(dlsym(app.handle, "DllMain")))
        fn(reinterpret_cast<HINSTANCE>(app.handle), reason, nullptr);
}

}  // namespace

Application* CurrentApplication() { return gCurrent; }

CurrentApplicationScope::CurrentApplicationScope(Application* app) : m_saved(gCurrent) { gCurrent = app; }
CurrentApplicationScope::~CurrentApplicationScope() { gCurrent = m_saved; }

AcRx::AppRetCode SendAppMessage(Application& app, AcRx::AppMsgCode message) {
    CurrentApplicationScope scope(&app);
    return app.entry(message, &app);
}

void BroadcastAppMessage(AcRx::AppMsgCode message) {
    for (size_t i = 0; i < Apps().size(); ++i) SendAppMessage(*Apps()[i], message);
}

Application* FindApplication(const std::string& path) {
    for (auto& app : Apps())
        if (app->path == path) return app.get();
    return nullptr;
}

Application* AddApplication(const std::string& name, AcRxEntryPointFn entry) {
    auto app = std::make_unique<Application>();
    app->path = name;
    app->entry = entry;
    Application* raw = app.get();
    Apps().push_back(std::move(app));
    SendAppMessage(*raw, AcRx::kInitAppMsg);
    return raw;
}

Application* LoadApplication(const std::string& path, std::string* error) {
    if (Application* loaded = FindApplication(path)) return loaded;
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        if (error) *error = dlerror();
        return nullptr;
    }
    auto entry = reinterpret_cast<AcRxEntryPointFn>(dlsym(handle, "acrxEntryPoint"));
    if (!entry) {
        if (error) *error = path + ": no acrxEntryPoint";
        dlclose(handle);
        return nullptr;
    }
    auto app = std::make_unique<Application>();
    app->path = path;
    app->handle = handle;
    app->entry = entry;
    Application* raw = app.get();
    Apps().push_back(std::move(app));
    CallDllMain(*raw, DLL_PROCESS_ATTACH);
    if (SendAppMessage(*raw, AcRx::kInitAppMsg) != AcRx::kRetOK) {
        if (error) *error = path + ": the application refused to load";
        CallDllMain(*raw, DLL_PROCESS_DETACH);
        Apps().pop_back();
        dlclose(handle);
        return nullptr;
    }
    return raw;
}

void UnloadAllApplications() {
    auto& apps = Apps();
    for (auto it = apps.rbegin(); it != apps.rend(); ++it) SendAppMessage(**it, AcRx::kUnloadDwgMsg);
    for (auto it = apps.rbegin(); it != apps.rend(); ++it) SendAppMessage(**it, AcRx::kQuitMsg);
    while (!apps.empty()) {
        Application& app = *apps.back();
        UndefineApplication(app);
        CallDllMain(app, DLL_PROCESS_DETACH);
        // Modules stay mapped: objects they made (class records, LISP
        // functions) may still be referenced until the process ends.
        apps.pop_back();
    }
}

}  // namespace lumo::host
