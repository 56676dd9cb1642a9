#include "database/selection_mark.h"

#include "platform/acdbads.h"
#include "platform/acedss.h"

ads_name gMarkEntity = {0, 0};
ads_name gGetSsSet = {0, 0};

void ClearMark() { gMarkEntity[0] = gMarkEntity[1] = 0; }

void SetMark() {
    if (acdbEntLast(gMarkEntity) != RTNORM) ClearMark();
}

bool CollectSinceMark(ads_name out) {
    if (gMarkEntity[0] == 0 && gMarkEntity[1] == 0) return acedSSGet("X", nullptr, nullptr, nullptr, out) == RTNORM;
    if (acedSSAdd(nullptr, nullptr, out) != RTNORM) return false;
    ads_name current = {gMarkEntity[0], gMarkEntity[1]}, next;
    while (acdbEntNext(current, next) == RTNORM) {
        acedSSAdd(next, out, out);
        current[0] = next[0];
        current[1] = next[1];
    }
    return true;
}
