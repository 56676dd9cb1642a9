// The LISP folder and file functions.
#include "frame/directory_lisp.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/acedads.h"
#include "platform/acutads.h"
#include "platform/crt.h"
#include "platform/crt_files.h"
#include "platform/win32_files.h"

namespace {

// The first argument as a text, or null when it is missing or of another
// kind.
const char* PathArgument() {
    const resbuf* a = acedGetArgs();
    return a && a->restype == RTSTR && a->resval.rstring ? a->resval.rstring : nullptr;
}

// A path argument of at most `limit` characters; a longer one never reaches
// the platform.
const char* PathArgument(size_t limit) {
    const char* path = PathArgument();
    return path && std::strlen(path) <= limit ? path : nullptr;
}

// The second argument as a text, or null.
const char* SecondText() {
    const resbuf* a = acedGetArgs();
    const resbuf* b = a ? a->rbnext : nullptr;
    return b && b->restype == RTSTR && b->resval.rstring ? b->resval.rstring : nullptr;
}

int RetBool(bool ok) {
    if (ok) acedRetT();
    return RTNORM;
}

}  // namespace

int lumo_system_getfileAttributes() {
    const char* path = PathArgument(260);
    if (!path) return RTNORM;
    int attributes = static_cast<int>(GetFileAttributesA(path));
    if (attributes >= 0) acedRetInt(attributes);
    return RTNORM;
}

int lumo_system_setfileAttributes() {
    const char* path = PathArgument(260);
    if (!path) return RTNORM;
    const resbuf* value = acedGetArgs()->rbnext;
    DWORD attributes;
    if (value && value->restype == RTSHORT) attributes = static_cast<DWORD>(static_cast<int>(value->resval.rint));
    else if (value && value->restype == RTLONG) attributes = static_cast<DWORD>(value->resval.rlong);
    else return RTNORM;
    return RetBool(SetFileAttributesA(path, attributes));
}

int lumo_system_createfolder() {
    const char* path = PathArgument(248);
    return path ? RetBool(CreateDirectoryA(path, nullptr)) : RTNORM;
}

int lumo_system_setCurrentFolder() {
    const char* path = PathArgument();
    return path ? RetBool(SetCurrentDirectoryA(path)) : RTNORM;
}

// A rename as the platform's C runtime does it: the new name must be free.
int lumo_system_filerename() {
    const char* from = PathArgument();
    const char* to = SecondText();
    return from && to ? RetBool(MoveFileA(from, to)) : RTNORM;
}

// Serves lumo_system_filemove too, which therefore copies: the source is
// never deleted. Both files open in text mode, also for a file that isn't
// text; the host's files have no line-end translation, so bytes pass as
// they are.
int lumo_system_filecopy() {
    const char* from = PathArgument();
    const char* to = SecondText();
    if (!from || !to || _stricmp(from, to) == 0) return RTNORM;
    FILE* in = _fsopen(from, "r", _SH_DENYNO);
    if (!in) return RTNORM;
    _unlink(to);
    FILE* out = _fsopen(to, "wt", _SH_DENYNO);
    if (!out) {
        std::fclose(in);
        return RTNORM;
    }
    for (int c; (c = std::getc(in)) != EOF;) std::putc(c, out);
    std::fclose(in);
    std::fclose(out);
    acedRetT();
    return RTNORM;
}

int lumo_system_filedel() {
    const char* path = PathArgument();
    return path ? RetBool(_unlink(path) == 0) : RTNORM;
}

int EmptyFolder(const char* folder) {
    if (!folder) return 0;
    char wildcard[_MAX_PATH + 8];
    std::snprintf(wildcard, sizeof wildcard, "%s\\*.*", folder);
    _finddata_t entry;
    intptr_t search = _findfirst(wildcard, &entry);
    if (search == -1) return 0;
    int ok = 1;
    do {
        if (!std::strcmp(entry.name, ".") || !std::strcmp(entry.name, "..")) continue;
        char path[_MAX_PATH + 8];
        std::snprintf(path, sizeof path, "%s\\%s", folder, entry.name);
        if (entry.attrib & _A_SUBDIR) {
            if (!EmptyFolder(path) || _rmdir(path) != 0) ok = 0;
        } else if (_unlink(path) != 0) {
            ok = 0;
        }
    } while (_findnext(search, &entry) == 0);
    _findclose(search);
    return ok;
}

// A drive's root and a path without a drive are refused: the folder part
// must name a folder below the root.
int lumo_system_deltree() {
    const char* path = PathArgument();
    if (!path) return RTNORM;
    char drive[_MAX_DRIVE], dir[_MAX_DIR];
    _splitpath(path, drive, dir, nullptr, nullptr);
    if (!drive[0] || !dir[0] || !std::strcmp(dir, "\\") || !std::strcmp(dir, "/")) return RTNORM;
    return RetBool(EmptyFolder(path) == 1);
}

int lumo_getcdir() {
    if (acedGetArgs()) return RTNORM;
    const int kLimit = 500;
    char* folder = static_cast<char*>(std::malloc(kLimit));
    if (!folder) {
        acutPrintf("\nNo Memory!");
        return RTNORM;
    }
    if (_getcwd(folder, kLimit)) acedRetStr(folder);
    std::free(folder);
    return RTNORM;
}

int lumo_makedir() {
    const char* path = PathArgument();
    return path ? RetBool(_mkdir(path) == 0) : RTNORM;
}

int lumo_chdir() {
    const char* path = PathArgument();
    return path ? RetBool(_chdir(path) == 0) : RTNORM;
}

int lumo_rmdir() {
    const char* path = PathArgument();
    return path ? RetBool(_rmdir(path) == 0) : RTNORM;
}
