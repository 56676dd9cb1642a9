// The LISP system family: one platform call each, with the family's limits,
// refusals and messages.
#include "frame/system_lisp.h"

#include <cstdio>
#include <cstring>

#include "frame/LispList.h"
#include "frame/RBList.h"
#include "frame/chain_copy.h"
#include "platform/acedads.h"
#include "platform/acutads.h"
#include "platform/conio.h"
#include "platform/win32_system.h"

namespace {

bool Is(const resbuf* rb, int type) { return rb && rb->restype == type; }

// Handlers that take no argument give nil for any argument.
bool HasArgs() { return acedGetArgs() != nullptr; }

// A folder query with the family's buffer of 261 bytes.
template <class Query>
int RetFolder(Query query) {
    if (HasArgs()) return RTNORM;
    char folder[261];
    unsigned n = query(folder, sizeof folder);
    if (n > 0 && n < sizeof folder) acedRetStr(folder);
    return RTNORM;
}

// The root-path argument of the volume queries: a text, or a message when the
// first argument is of another kind.
const char* RootArgument(const char* complaint) {
    const resbuf* a = acedGetArgs();
    if (!a) return nullptr;
    if (a->restype != RTSTR || !a->resval.rstring) {
        acutPrintf("%s", complaint);
        return nullptr;
    }
    return a->resval.rstring;
}

// The first IDE controller's ports and the identify-device protocol.
enum : unsigned short { kIdeData = 0x1F0, kIdeDrive = 0x1F6, kIdeStatus = 0x1F7 };
// A controller that never becomes ready can't hold the caller for ever: the
// wait gives up after this many reads, far beyond any real drive's delay.
const int kIdeWaitLimit = 1000000;

bool IdeWait() {
    for (int i = 0; i < kIdeWaitLimit; ++i)
        if (!(_inp(kIdeStatus) & 0x80)) return true;
    return false;
}

unsigned short gIdentify[256];   // the drive's identify block, as last read

// The serial of words 10 to 19, blanks trimmed on the left; false when the
// controller doesn't answer.
bool ReadIdeSerial(char* serial) {
    if (!IdeWait()) return false;
    _outp(kIdeDrive, 0xA0);
    if (!IdeWait() || (_inp(kIdeStatus) & 0x50) != 0x50) return false;
    _outp(kIdeDrive, 0xA0);
    _outp(kIdeStatus, 0xEC);
    if (!IdeWait() || (_inp(kIdeStatus) & 0x58) != 0x58) return false;
    for (unsigned short& word : gIdentify) word = _inpw(kIdeData);
    char raw[21];
    for (int i = 0; i < 10; ++i) {
        raw[2 * i] = static_cast<char>(gIdentify[10 + i] >> 8);
        raw[2 * i + 1] = static_cast<char>(gIdentify[10 + i] & 0xFF);
    }
    raw[20] = 0;
    const char* p = raw;
    while (*p == ' ') ++p;
    std::strcpy(serial, p);
    return true;
}

}  // namespace

int lumo_system_beep() {
    const resbuf* a = acedGetArgs();
    if (!Is(a, RTSHORT) || !Is(a->rbnext, RTSHORT)) return RTNORM;
    if (a->resval.rint < 37) {
        acutPrintf("\nfrequency must be between 37 and 32767 Hz!");
        return RTNORM;
    }
    if (Beep(static_cast<DWORD>(a->resval.rint), static_cast<DWORD>(a->rbnext->resval.rint))) acedRetT();
    return RTNORM;
}

int lumo_system_ComputerName() {
    if (HasArgs()) return RTNORM;
    char name[256];
    DWORD size = sizeof name;
    if (GetComputerNameA(name, &size)) acedRetStr(name);
    return RTNORM;
}

int lumo_system_UserName() {
    if (HasArgs()) return RTNORM;
    char name[256];
    DWORD size = sizeof name;
    if (GetUserNameA(name, &size)) acedRetStr(name);
    return RTNORM;
}

int lumo_system_VolumeName() {
    const char* root = RootArgument("\nExpect a strings!");
    if (!root) return RTNORM;
    char label[15];
    if (GetVolumeInformationA(root, label, sizeof label, nullptr, nullptr, nullptr, nullptr, 0)) acedRetStr(label);
    return RTNORM;
}

// The serial as a directory listing shows it: "1A2B-3C4D"; a shorter one is
// split after its fourth digit all the same.
int lumo_system_getSerial() {
    const char* root = RootArgument("\nExpect a String!");
    if (!root) return RTNORM;
    DWORD serial = 0;
    if (!GetVolumeInformationA(root, nullptr, 0, &serial, nullptr, nullptr, nullptr, 0)) return RTNORM;
    char hex[10];
    std::snprintf(hex, sizeof hex, "%X", static_cast<unsigned>(serial));
    char text[12];
    std::snprintf(text, sizeof text, "%.4s-%s", hex, std::strlen(hex) > 4 ? hex + 4 : "");
    acedRetStr(text);
    return RTNORM;
}

int lumo_system_getideserial() {
    if (HasArgs()) return RTNORM;
    char serial[21];
    if (ReadIdeSerial(serial)) acedRetStr(serial);
    return RTNORM;
}

int lumo_system_getscreenResolution() {
    if (HasArgs()) return RTNORM;
    HDC dc = GetDC(nullptr);
    int size[2] = {GetDeviceCaps(dc, HORZRES), GetDeviceCaps(dc, VERTRES)};
    ReleaseDC(nullptr, dc);
    resbuf* list = nullptr;
    for (int v : size) {
        resbuf* n = acutNewRb(v >= -32768 && v <= 32767 ? RTSHORT : RTLONG);
        if (n->restype == RTSHORT) n->resval.rint = static_cast<short>(v);
        else n->resval.rlong = v;
        list = AT_link_list(list, n);
    }
    ReturnChain(list, 0);
    acutRelRb(list);
    return RTNORM;
}

int lumo_system_WinFolder() {
    return RetFolder([](char* out, unsigned size) { return GetWindowsDirectoryA(out, size); });
}

int lumo_system_TempFolder() {
    return RetFolder([](char* out, unsigned size) { return static_cast<unsigned>(GetTempPathA(size, out)); });
}

int lumo_system_WinSysFolder() {
    return RetFolder([](char* out, unsigned size) { return GetSystemDirectoryA(out, size); });
}

// The roots stand 4 bytes apart: "C:\" and its terminator.
int lumo_system_getLogicalDrive() {
    if (HasArgs()) return RTNORM;
    char roots[260];
    DWORD n = GetLogicalDriveStringsA(sizeof roots, roots);
    if (n == 0 || n >= sizeof roots) return RTNORM;
    resbuf* list = nullptr;
    for (const char* p = roots; p < roots + n && *p; p += 4) AppendString(&list, p);
    ReturnChain(list, 0);
    FreeStringChain(list);
    return RTNORM;
}
