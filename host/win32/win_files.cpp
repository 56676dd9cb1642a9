// The Win32 calls on files, folders and drives, over the host's path mapping.
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "host/win32/file_info.h"
#include "host/win32/machine.h"
#include "host/win32/path_map.h"
#include "platform/win32_files.h"

using namespace lumo::win32;

namespace {

bool Exists(const std::string& mapped) {
    struct stat st;
    return !mapped.empty() && lstat(mapped.c_str(), &st) == 0;
}

std::string TempFolder() {
    const std::string& set = Machine().tempFolder;
    std::string folder = set;
    if (folder.empty()) {
        const char* tmp = std::getenv("TMPDIR");
        folder = ToWindowsPath(tmp && *tmp ? tmp : "/tmp");
    }
    // A folder on no drive stays a Linux path, whose separator is the slash:
    // a name appended to it must not become part of the folder's last name.
    if (folder.back() != '\\' && folder.back() != '/') folder += folder[0] == '/' ? '/' : '\\';
    return folder;
}

}  // namespace

DWORD GetFileAttributesA(LPCSTR path) { return path ? AttributesOfPath(MapPath(path)) : INVALID_FILE_ATTRIBUTES; }

BOOL SetFileAttributesA(LPCSTR path, DWORD attributes) {
    if (!path) return FALSE;
    std::string mapped = MapPath(path);
    struct stat st;
    if (mapped.empty() || stat(mapped.c_str(), &st) != 0) return FALSE;
    mode_t mode = st.st_mode & 07777;
    if (attributes & FILE_ATTRIBUTE_READONLY) mode &= ~static_cast<mode_t>(S_IWUSR | S_IWGRP | S_IWOTH);
    else mode |= S_IWUSR;
    return chmod(mapped.c_str(), mode) == 0;
}

BOOL CreateDirectoryA(LPCSTR path, LPSECURITY_ATTRIBUTES) {
    return path && mkdir(MapPath(path).c_str(), 0777) == 0;
}

BOOL RemoveDirectoryA(LPCSTR path) { return path && rmdir(MapPath(path).c_str()) == 0; }

BOOL SetCurrentDirectoryA(LPCSTR path) { return path && chdir(MapPath(path).c_str()) == 0; }

DWORD GetCurrentDirectoryA(DWORD size, LPSTR buffer) {
    char real[PATH_MAX];
    if (!getcwd(real, sizeof real)) return 0;
    return CopyOutWin(ToWindowsPath(real), buffer, size);
}

BOOL DeleteFileA(LPCSTR path) { return path && unlink(MapPath(path).c_str()) == 0; }

BOOL MoveFileA(LPCSTR existing, LPCSTR newName) {
    if (!existing || !newName) return FALSE;
    std::string from = MapPath(existing), to = MapPath(newName);
    if (!Exists(from) || Exists(to)) return FALSE;
    return std::rename(from.c_str(), to.c_str()) == 0;
}

BOOL CopyFileA(LPCSTR existing, LPCSTR newName, BOOL failIfExists) {
    if (!existing || !newName) return FALSE;
    std::string from = MapPath(existing), to = MapPath(newName);
    if (failIfExists && Exists(to)) return FALSE;
    FILE* in = std::fopen(from.c_str(), "rb");
    if (!in) return FALSE;
    FILE* out = std::fopen(to.c_str(), "wb");
    if (!out) {
        std::fclose(in);
        return FALSE;
    }
    char buf[8192];
    bool ok = true;
    for (size_t n; (n = std::fread(buf, 1, sizeof buf, in)) > 0;)
        if (std::fwrite(buf, 1, n, out) != n) ok = false;
    ok = !std::ferror(in) && ok;
    std::fclose(in);
    return std::fclose(out) == 0 && ok;
}

UINT GetWindowsDirectoryA(LPSTR buffer, UINT size) { return CopyOutWin(Machine().windowsFolder, buffer, size); }
UINT GetSystemDirectoryA(LPSTR buffer, UINT size) { return CopyOutWin(Machine().systemFolder, buffer, size); }
DWORD GetTempPathA(DWORD size, LPSTR buffer) { return CopyOutWin(TempFolder(), buffer, size); }

DWORD GetLogicalDriveStringsA(DWORD size, LPSTR buffer) {
    std::string roots;
    for (char letter : DriveLetters()) {
        roots += letter;
        roots += ":\\";
        roots += '\0';
    }
    // The final NUL is the one CopyOutWin adds.
    return CopyOutWin(roots, buffer, size);
}

DWORD GetLogicalDrives() {
    DWORD mask = 0;
    for (char letter : DriveLetters()) mask |= DWORD{1} << (letter - 'A');
    return mask;
}
