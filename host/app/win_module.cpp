// The Win32 and MFC module calls of the host: module handles and file
// names, the extension-module chain.
#include <dlfcn.h>
#include <unistd.h>

#include <chrono>
#include <climits>
#include <cstring>
#include <string>

#include "host/app/applications.h"
#include "platform/afx.h"
#include "platform/win32.h"

namespace {

CDynLinkLibrary* gLibraries = nullptr;

DWORD CopyOut(const std::string& path, char* out, DWORD size) {
    if (!out || size == 0) return 0;
    size_t n = std::min<size_t>(path.size(), size - 1);
    std::memcpy(out, path.data(), n);
    out[n] = 0;
    return static_cast<DWORD>(n);
}

}  // namespace

// The handle a module receives at attach is its dlopen handle.
DWORD GetModuleFileNameA(HMODULE module, char* out, DWORD size) {
    if (!module) {
        char buf[PATH_MAX];
        ssize_t n = readlink("/proc/self/exe", buf, sizeof buf - 1);
        return n > 0 ? CopyOut(std::string(buf, static_cast<size_t>(n)), out, size) : 0;
    }
    void* handle = reinterpret_cast<void*>(module);
    for (const char* probe : {"acrxEntryPoint", "DllMain"}) {
        void* symbol = dlsym(handle, probe);
        Dl_info info{};
        if (symbol && dladdr(symbol, &info) && info.dli_fname) {
            char real[PATH_MAX];
            return CopyOut(realpath(info.dli_fname, real) ? real : info.dli_fname, out, size);
        }
    }
    return 0;
}

DWORD GetTickCount() {
    using namespace std::chrono;
    return static_cast<DWORD>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module) {
    if (!module) return 0;
    state.hModule = module;
    state.hResource = module;
    state.bInitialized = 1;
    return 1;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL) { state.bInitialized = 0; }

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_pNextDLL(gLibraries) {
    gLibraries = this;
}

CDynLinkLibrary::~CDynLinkLibrary() {
    for (CDynLinkLibrary** p = &gLibraries; *p; p = &(*p)->m_pNextDLL) {
        if (*p == this) {
            *p = m_pNextDLL;
            break;
        }
    }
}
