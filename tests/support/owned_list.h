// A result-buffer list a test owns and releases at the end of its scope,
// with lookups of the values in it.
#pragma once
#include <string>

#include "platform/acutads.h"

namespace testsupport {

struct OwnedList {
    resbuf* p;
    explicit OwnedList(resbuf* r) : p(r) {}
    ~OwnedList() { acutRelRb(p); }
    OwnedList(const OwnedList&) = delete;
    OwnedList& operator=(const OwnedList&) = delete;

    // The nth node (from 0) of the group code, or null.
    const resbuf* Find(int code, int nth = 0) const {
        for (resbuf* r = p; r; r = r->rbnext)
            if (r->restype == code && nth-- == 0) return r;
        return nullptr;
    }
    std::string Text(int code) const {
        const resbuf* r = Find(code);
        return r && r->resval.rstring ? r->resval.rstring : "";
    }
};

}  // namespace testsupport
