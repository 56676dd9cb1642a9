// Groups: one result-buffer node with typed constructors.
#include "frame/Groups.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

#include "frame/TypeOfCode.h"
#include "platform/acutads.h"
#include "platform/crt.h"

extern double _distSnap;  // the kernel's point tolerance

namespace {
void Reset(resbuf& node, int type) {
    node.rbnext = nullptr;
    node.restype = static_cast<short>(type);
    std::memset(&node.resval, 0, sizeof node.resval);
}
}  // namespace

void* Groups::operator new(size_t) { return acutNewRb(0); }
void Groups::operator delete(Groups* p, std::destroying_delete_t) { acutRelRb(p); }
void Groups::operator delete(void* p) { std::free(p); }

Groups::Groups() { Reset(*this, RTSHORT); }
Groups::Groups(int value) {
    Reset(*this, RTSHORT);
    resval.rint = static_cast<short>(value);
}
Groups::Groups(double value) {
    Reset(*this, RTREAL);
    resval.rreal = value;
}
Groups::Groups(const double* point) {
    Reset(*this, RT3DPOINT);
    std::memcpy(resval.rpoint, point, sizeof resval.rpoint);
}
Groups::Groups(const char* text) {
    Reset(*this, RTSTR);
    resval.rstring = _strdup(text);
}
Groups::Groups(const int32_t* name) {
    Reset(*this, RTENAME);
    resval.rlname[0] = name[0];
    resval.rlname[1] = name[1];
}
Groups::Groups(long value) {
    Reset(*this, RTLONG);
    resval.rlong = static_cast<int32_t>(value);
}
Groups::Groups(int, int value) {
    Reset(*this, 1070);
    resval.rint = static_cast<short>(value);
}
Groups::Groups(int, double value) {
    Reset(*this, 1040);
    resval.rreal = value;
}
Groups::Groups(int code, const char* text) {
    Reset(*this, code);
    resval.rstring = _strdup(text);
}

// A copy is the node byte for byte, its link included; only the text is
// duplicated.
Groups::Groups(const Groups& other) : resbuf(other) {
    if (TypeOfCode(restype) == RTSTR) resval.rstring = _strdup(other.resval.rstring);
}

Groups& Groups::operator=(const Groups& other) {
    if (this == &other) return *this;
    // The former text goes here rather than leaking: nothing can reach it
    // once the node is overwritten.
    if (TypeOfCode(restype) == RTSTR) std::free(resval.rstring);
    static_cast<resbuf&>(*this) = other;
    if (TypeOfCode(restype) == RTSTR) resval.rstring = _strdup(other.resval.rstring);
    return *this;
}

// A node on the stack or in an array owns its text.
Groups::~Groups() {
    if (TypeOfCode(restype) == RTSTR) std::free(resval.rstring);
}

bool Groups::operator==(const Groups& other) const {
    if (restype != other.restype) return false;
    switch (TypeOfCode(restype)) {
    case RTREAL:
    case RTANG:
        return std::fabs(resval.rreal - other.resval.rreal) < 1e-8;
    case RTPOINT:
    case RT3DPOINT:
        for (int i = 0; i < 3; ++i)
            if (std::fabs(resval.rpoint[i] - other.resval.rpoint[i]) >= _distSnap) return false;
        return true;
    case RTSHORT:
        return resval.rint == other.resval.rint;
    case RTLONG:
        return resval.rlong == other.resval.rlong;
    case RTSTR:
        if (!resval.rstring || !other.resval.rstring) return resval.rstring == other.resval.rstring;
        return _stricmp(resval.rstring, other.resval.rstring) == 0;
    case RTENAME:
    case RTPICKS:
        return resval.rlname[0] == other.resval.rlname[0] && resval.rlname[1] == other.resval.rlname[1];
    default:  // RTORINT and everything outside the value types
        return false;
    }
}
