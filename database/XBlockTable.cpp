#include "database/XBlockTable.h"

#include <algorithm>
#include <cstring>

#include "database/Entity.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"

int XBlockTable::GetExtend(const char* blockName, double m[4][4], double* min, double* max) {
    if (!blockName) return RTNONE;
    resbuf* block = acdbTblSearch("BLOCK", blockName, 0);
    ads_name first = {0, 0};
    for (const resbuf* rb = block; rb; rb = rb->rbnext)
        if (rb->restype == -2) std::memcpy(first, rb->resval.rlname, sizeof first);
    acutRelRb(block);
    if (!first[0] && !first[1]) return RTNONE;

    int result = RTNONE;
    ads_name current = {first[0], first[1]}, next;
    for (;;) {
        Entity e(current);
        double lo[3], hi[3];
        int rc = e.GetExtend(lo, hi, m);
        if (rc != RTNONE) {
            if (result == RTNONE) {
                std::copy(lo, lo + 3, min);
                std::copy(hi, hi + 3, max);
                result = RTNORM;
            } else {
                for (int i = 0; i < 3; ++i) min[i] = std::min(min[i], lo[i]), max[i] = std::max(max[i], hi[i]);
            }
            if (rc == RTERROR) result = RTERROR;
        }
        if (acdbEntNext(current, next) != RTNORM) break;   // the block's last entity
        std::memcpy(current, next, sizeof current);
    }
    return result;
}
