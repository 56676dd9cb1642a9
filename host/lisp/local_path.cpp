// Paths of the LISP file functions.
#include "host/lisp/local_path.h"

#include <cstdlib>

#include "platform/acedads.h"

namespace lumo::lisp {

std::string LocalPath(const std::string& path) {
    // PATH MAPPING: the one place where Windows paths ("C:\dir\a.txt") become
    // Linux ones; paths pass unchanged until the host's drive table is here.
    return path;
}

std::string DrawingFolder() {
    resbuf rb{};
    if (acedGetVar("DWGPREFIX", &rb) != RTNORM || rb.restype != RTSTR || !rb.resval.rstring) return {};
    std::string folder = rb.resval.rstring;
    std::free(rb.resval.rstring);   // acedGetVar hands strings to the caller
    return folder;
}

}  // namespace lumo::lisp
