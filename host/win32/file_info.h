// Windows attributes of host files, shared by the Win32 and C runtime calls.
#pragma once
#include <sys/stat.h>

#include <cstdint>
#include <string>

namespace lumo::win32 {

// The attribute bits (FILE_ATTRIBUTE_*, which equal the _A_* bits) of a file
// named `name` with status `st`.
uint32_t AttributesOf(const std::string& name, const struct stat& st);
// The attributes of the Linux path `mapped`, or 0xFFFFFFFF when it is absent.
uint32_t AttributesOfPath(const std::string& mapped);
// True when the Linux folder `mapped` is the root of a drive or of the
// filesystem: Windows lists no "." and ".." there and deletes nothing there.
bool IsDriveRoot(const std::string& mapped);
// Copies `text` into `out` of `size` bytes if it fits with its terminator and
// returns its length; otherwise writes nothing and returns the size needed.
uint32_t CopyOutWin(const std::string& text, char* out, uint32_t size);

}  // namespace lumo::win32
