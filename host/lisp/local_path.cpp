// Paths of the LISP file functions.
#include "host/lisp/local_path.h"

#include <cstdlib>

#include "host/win32/path_map.h"
#include "platform/acedads.h"

namespace lumo::lisp {

// Windows paths ("C:\dir\a.txt") become Linux ones through the host's drive
// table, and names are found in any letter case.
std::string LocalPath(const std::string& path) { return win32::MapPath(path); }

std::string DrawingFolder() {
    resbuf rb{};
    if (acedGetVar("DWGPREFIX", &rb) != RTNORM || rb.restype != RTSTR || !rb.resval.rstring) return {};
    std::string folder = rb.resval.rstring;
    std::free(rb.resval.rstring);   // acedGetVar hands strings to the caller
    return folder;
}

}  // namespace lumo::lisp
