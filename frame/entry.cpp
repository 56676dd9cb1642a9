// The module's entry: process attach, the application messages and the
// order of things at load and unload.
#include "database/entity_lisp.h"
#include "database/selection_links.h"
#include "database/selection_mark.h"
#include "frame/InitKmv.h"
#include "frame/frame_state.h"
#include "frame/function_table.h"
#include "frame/key_filter.h"
#include "frame/session_hooks.h"
#include "platform/acedads.h"
#include "platform/acutads.h"
#include "platform/afx.h"
#include "platform/rxobject.h"

namespace {

AFX_EXTENSION_MODULE gExtensionModule;

bool OnExtensionAttach(HMODULE module) {
    if (!AfxInitExtensionModule(gExtensionModule, module)) return false;
    new CDynLinkLibrary(gExtensionModule);  // lives as long as the process
    return true;
}

void OnModuleStart() {
    gOutputSystem.resval.rint = 0;
    gSelectionLinks = nullptr;   // empty at this point: nothing to free
    ClearMark();
    acutPrintf("%s", "\n***  == AutoCAD 应用程序开发接口LuMo_API For ACAD 2000 Build 20506 ==  ***\n\n");
    AcRxDictionary* classes = acrxClassDictionary;
    if (!classes || !classes->at("AcBrEntity")) {
        if (AcRxDynamicLinker* linker = acrxDynamicLinker) linker->loadModule("acbr15.dll", true, false);
    }
    ReadLayerDefs(0);
    InstallKeyFilter();
}

void OnInitApp(void* packet) {
    if (OnExtensionAttach(gModuleHandle)) InitKmv(nullptr);
    acrxUnlockApplication(packet);
    if (AcRxDynamicLinker* linker = acrxDynamicLinker) linker->registerAppMDIAware(packet);
    OnModuleStart();
}

// Runs for every drawing that closes; nothing puts the filter back when the
// next drawing loads, until c:lumo_hotkey does.
void OnUnloadDrawing() {
    ReleaseLayerDefsHead();
    ReleaseCurrentEntityList();
    RemoveKeyFilter();
}

void OnSaveDrawing() {}

}  // namespace

extern "C" BOOL DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) gModuleHandle = instance;
    return 1;
}

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) {
    switch (message) {
    case AcRx::kInitAppMsg:
        OnInitApp(packet);
        break;
    case AcRx::kLoadDwgMsg:
        RegisterFunctions();
        break;
    case AcRx::kInvkSubrMsg:
        DispatchFunction();
        break;
    case AcRx::kUnloadDwgMsg:
    case AcRx::kEndMsg:
    case AcRx::kQuitMsg:
        OnUnloadDrawing();
        break;
    case AcRx::kSaveMsg:
        OnSaveDrawing();
        break;
    default:  // kUnloadAppMsg, kCfgMsg and the rest: nothing
        break;
    }
    return AcRx::kRetOK;
}
