// Windows attributes of host files.
#include "host/win32/file_info.h"

#include <climits>
#include <cstdlib>
#include <cstring>

#include "host/win32/path_map.h"
#include "platform/win32_files.h"

namespace lumo::win32 {

uint32_t AttributesOf(const std::string& name, const struct stat& st) {
    uint32_t attributes = S_ISDIR(st.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE;
    if (!(st.st_mode & S_IWUSR)) attributes |= FILE_ATTRIBUTE_READONLY;
    size_t slash = name.find_last_of('/');
    std::string base = slash == std::string::npos ? name : name.substr(slash + 1);
    if (base.size() > 1 && base[0] == '.' && base != "..") attributes |= FILE_ATTRIBUTE_HIDDEN;
    return attributes;
}

uint32_t AttributesOfPath(const std::string& mapped) {
    struct stat st;
    if (mapped.empty() || stat(mapped.c_str(), &st) != 0) return INVALID_FILE_ATTRIBUTES;
    return AttributesOf(mapped, st);
}

bool IsDriveRoot(const std::string& mapped) {
    char real[PATH_MAX];
    if (mapped.empty() || !realpath(mapped.c_str(), real)) return false;
    std::string abs = real;
    if (abs == "/") return true;
    char letter = DriveOf(abs);
    return letter && DriveFolder(letter) == abs;
}

uint32_t CopyOutWin(const std::string& text, char* out, uint32_t size) {
    uint32_t needed = static_cast<uint32_t>(text.size()) + 1;
    if (!out || size < needed) return needed;
    std::memcpy(out, text.c_str(), needed);
    return needed - 1;
}

}  // namespace lumo::win32
