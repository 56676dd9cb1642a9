#include "database/block_making.h"

#include <cstring>

#include "database/PickSet.h"
#include "frame/RBList.h"
#include "kernel/XPoint.h"
#include "kernel/entity_lists.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"
#include "platform/crt.h"

namespace {

bool TypeIs(const int32_t* entity, const char* type) {
    RBList list(acdbEntGet(entity));
    char text[256] = "";
    return list.GetData(0, text) == RTNORM && std::strcmp(text, type) == 0;
}

// The entity and, for a polyline or an insert with attributes, everything
// up to its SEQEND.
int CopyIntoBlock(const int32_t* entity) {
    if (MakeEntityLike(entity, nullptr) != RTNORM) return RTERROR;
    RBList list(acdbEntGet(entity));
    int follows = 0;
    list.GetData(66, &follows);
    if (!follows && !TypeIs(entity, "POLYLINE")) return RTNORM;
    ads_name current = {entity[0], entity[1]}, next;
    while (acdbEntNext(current, next) == RTNORM) {
        if (MakeEntityLike(next, nullptr) != RTNORM) return RTERROR;
        if (TypeIs(next, "SEQEND")) break;
        std::memcpy(current, next, sizeof current);
    }
    return RTNORM;
}

// The newest block whose name starts with the prefix: anonymous blocks get
// their number when defined.
void NewestBlockName(const char* prefix, char* out) {
    size_t n = std::strlen(prefix);
    for (resbuf* record = acdbTblNext("BLOCK", 1); record; record = acdbTblNext("BLOCK", 0)) {
        RBList list(record);
        char name[256] = "";
        if (list.GetData(2, name) == RTNORM && _strnicmp(name, prefix, n) == 0) std::strcpy(out, name);
    }
}

}  // namespace

int MakeBlock(const char* name, const PickSet& set, const XPoint& base, char* nameOut) {
    if (!name || !*name) return RTERROR;
    const bool anonymous = _strnicmp(name, "*U", 2) == 0;
    RBList begin(RTDXF0, "BLOCK", 2, name, 70, anonymous ? 1 : 0, 10, static_cast<const double*>(base), 0);
    if (acdbEntMake(begin.Head()) != RTNORM) return RTERROR;
    ads_name e;
    for (int32_t i = 0, n = set.Length(); i < n; ++i)
        if (set.EntityAt(i, e) == RTNORM) CopyIntoBlock(e);
    RBList end(RTDXF0, "ENDBLK", 0);
    if (acdbEntMake(end.Head()) != RTNORM) return RTERROR;
    if (nameOut) {
        std::strcpy(nameOut, name);
        if (anonymous) NewestBlockName("*U", nameOut);
    }
    return RTNORM;
}
