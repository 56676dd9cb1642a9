// The frame's own LISP functions.
#include "frame/frame_lisp.h"

#include "frame/frame_state.h"
#include "frame/key_filter.h"
#include "frame/session_hooks.h"
#include "platform/acedads.h"
#include "platform/acedwin.h"
#include "platform/acutads.h"

int lumo_ucson() {
    gOutputSystem.resval.rint = 1;
    acedRetInt(1);
    return RTNORM;
}

int lumo_ucsoff() {
    gOutputSystem.resval.rint = 0;
    acedRetVoid();
    return RTNORM;
}

int lumo_maskesc() {
    if (!gEscFilterInstalled && acedRegisterFilterWinMsg(EscFilter)) gEscFilterInstalled = 1;
    if (gEscFilterInstalled) acedRetT();
    else acedRetNil();
    return RTNORM;
}

int lumo_resesc() {
    if (gEscFilterInstalled) {
        acedRemoveFilterWinMsg(EscFilter);
        gEscFilterInstalled = 0;  // cleared whether or not the host agreed
    }
    acedRetT();
    return RTNORM;
}

int c_lumo_hotkey() {
    if (!gHotkeysOff) {
        if (YesNoQuestion("\n是否关闭热键定义?<Yes>:", 1) == 1) {
            RemoveKeyFilter();
            gHotkeysOff = 1;
        }
    } else if (YesNoQuestion("\n是否开启热键定义?<Yes>:", 1) == 1) {
        InstallKeyFilter();
        gHotkeysOff = 0;
    }
    acedRetVoid();
    return RTNORM;
}

int sharp_Ls() { return RTNORM; }

// A debugging aid: prints the type code of the first argument.
int TEMP() {
    const resbuf* args = acedGetArgs();
    if (args) acutPrintf("%d", args->restype);  // no argument: nothing to print
    return RTNORM;
}
