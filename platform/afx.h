// The MFC extension-module record and the Win32 module handle.
#pragma once
#include "platform/win32.h"

struct AFX_EXTENSION_MODULE {
    BOOL bInitialized = 0;
    HMODULE hModule = nullptr;
    HMODULE hResource = nullptr;
};

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module);
void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all = 0);

// Links an extension module into the host's resource chain; lives until exit.
class CDynLinkLibrary {
public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system = 0);
    virtual ~CDynLinkLibrary();
    HMODULE m_hModule;
    HMODULE m_hResource;
    CDynLinkLibrary* m_pNextDLL;
};
