// Picking one entity at a prompt: the answer is a point, and the entity
// nearest to it within the pick box is the one chosen.
#include <cstring>
#include <vector>

#include "host/ads/prompts.h"
#include "host/lisp/builtins.h"
#include "host/ss/ssget.h"
#include "host/sysvars/sysvars.h"
#include "platform/acedads.h"

namespace {

// ERRNO as the host sets it: 7 for a pick that found nothing, 52 for an
// empty answer.
void SetErrno(int value) { lumo::host::SetSysVar("ERRNO", lumo::host::ShortVar(value)); }

}  // namespace

int acedEntSel(const char* prompt, ads_name entity, ads_point point) {
    if (!entity || !point) return RTERROR;
    int rc = acedGetPoint(nullptr, prompt ? prompt : "\nSelect object: ", point);
    if (rc == RTNONE) {
        SetErrno(52);
        return RTERROR;
    }
    if (rc != RTNORM) return rc;   // RTCAN, or RTKWORD after acedInitGet
    lumo::host::SelectionRequest pick;
    pick.mode = "PICK";
    pick.points.push_back({point[0], point[1]});
    std::vector<int32_t> found;
    if (!lumo::host::SelectEntities(pick, found) || found.empty()) {
        SetErrno(7);
        return RTERROR;
    }
    entity[0] = found.front();
    entity[1] = 1;
    return RTNORM;
}

namespace lumo::lisp {
namespace {

// (entsel [prompt]) -> (ename point), nil when nothing was picked.
Ref Entsel(Args a) {
    ArgCount(a, 0, 1);
    const char* prompt = a.empty() ? nullptr : StrArg(a[0]).c_str();
    ads_name entity;
    ads_point point = {0, 0, 0};
    int rc = acedEntSel(prompt, entity, point);
    if (rc == RTCAN) Fail("Function cancelled");
    if (rc == RTKWORD) return MakeStr(host::LastKeyword());
    if (rc != RTNORM) return nullptr;
    return ListOf({MakeEname(entity), MakePoint(point, true)});
}

const BuiltinTable kEntsel{{{"entsel", Entsel}}};

}  // namespace
}  // namespace lumo::lisp
