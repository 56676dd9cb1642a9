#include "database/pickset_lisp.h"

#include <cstdio>

#include "database/PickSet.h"
#include "database/selection_links.h"
#include "database/selection_mark.h"
#include "database/selection_slots.h"
#include "platform/acdbads.h"
#include "platform/acedads.h"
#include "platform/acedss.h"
#include "platform/acutads.h"

namespace {

int Nil() {
    acedRetNil();
    return RTNORM;
}

bool IsEmptySet(const int32_t* name) {
    int32_t n = 0;
    return acedSSLength(name, &n) != RTNORM || n == 0;
}

// Both arguments sets: the result goes to slot 0, which lets go of the set
// it held, and back to LISP.
int Algebra(PickSet (*op)(const PickSet&, const PickSet&)) {
    const resbuf* a = acedGetArgs();
    const resbuf* b = a ? a->rbnext : nullptr;
    if (!a || !b || a->restype != RTPICKS || b->restype != RTPICKS) return Nil();
    PickSet result = op(PickSet(a->resval.rlname), PickSet(b->resval.rlname));
    SaveSlot(result, 0);
    acedRetName(result, RTPICKS);
    return RTNORM;
}

void Report(const char* text) {
    char line[512];
    std::snprintf(line, sizeof line, "%s %dof%d %s", text, LinkCount(), gSelectionLinkMax, "个选择集");
    acutPrintf("%s", line);
}

int CommandActive() {
    resbuf rb;
    return acedGetVar("CMDACTIVE", &rb) == RTNORM ? rb.resval.rint : 0;
}

int NthLinkCommand(int k) {
    ads_name set;
    if (NthLink(k, set)) acedRetName(set, RTPICKS);
    else acedRetVoid();
    return RTNORM;
}

// The entities since the mark as the newest link, for c:lumo_getss and c:pp.
int SaveNewEntities() {
    const int active = CommandActive();
    ads_name last;
    if (acdbEntLast(last) != RTNORM) {
        if (!active) acutPrintf("\n当前数据库没有任何实体，创建选择集失败!");
        acedRetVoid();
        return RTNORM;
    }
    int saved = -1;   // nothing new
    if (CollectSinceMark(gLinkScratch)) {
        if (IsEmptySet(gLinkScratch)) acedSSFree(gLinkScratch);
        else saved = AddLink(gLinkScratch);
    }
    if (active) return NthLinkCommand(1);   // used at a selection prompt
    if (saved == 1) Report("\n已经保存了上次标记后所有产生的新实体到当前的选择集。\n数据库中共保存了");
    else if (saved == 0) Report("\n选择集已经在数据库中，保存失败。\n数据库中共保存了");
    acedRetVoid();
    return RTNORM;
}

}  // namespace

int lumo_PickSet_Union() { return Algebra(operator+); }
int lumo_PickSet_Subtract() { return Algebra(operator-); }
int lumo_PickSet_Intersect() { return Algebra(operator*); }

int lumo_getss() {
    const resbuf* args = acedGetArgs();
    int slot = -1;
    if (args && args->restype == RTSHORT && args->resval.rint >= 0 && args->resval.rint <= 10) slot = args->resval.rint;
    ads_name last, set;
    if (acdbEntLast(last) != RTNORM) return Nil();
    if (slot < 0 && (gGetSsSet[0] || gGetSsSet[1])) {
        acedSSFree(gGetSsSet);
        gGetSsSet[0] = gGetSsSet[1] = 0;
    }
    if (!CollectSinceMark(set)) return Nil();
    if (slot >= 0) {
        SaveSlot(set, slot);
    } else {
        gGetSsSet[0] = set[0];
        gGetSsSet[1] = set[1];
    }
    if (IsEmptySet(set)) {
        acedSSFree(set);
        if (slot < 0) gGetSsSet[0] = gGetSsSet[1] = 0;
        return Nil();
    }
    acedRetName(set, RTPICKS);
    return RTNORM;
}

int c_lumo_getss() { return SaveNewEntities(); }
int c_pp() { return SaveNewEntities(); }

int lumo_savssnum() {
    const resbuf* args = acedGetArgs();
    if (!args) return Nil();
    acedRetInt(SetLinkCapacity(args->restype == RTSHORT ? args->resval.rint : 0));
    return RTNORM;
}

int c_lumo_savsslink() {
    if (acedSSGet("I", nullptr, nullptr, nullptr, gLinkScratch) != RTNORM &&
        acedSSGet("p", nullptr, nullptr, nullptr, gLinkScratch) != RTNORM) {
        Report("\n当前选择集不存在，保存失败。\n数据库中共保存了");
    } else if (AddLink(gLinkScratch)) {
        Report("\n已经保存了当前的选择集，数据库中共保存了");
    } else {
        Report("\n当前选择集已经在数据库中，保存失败。\n数据库中共保存了");
    }
    acedRetVoid();
    return RTNORM;
}

int lumo_setmark() {
    SetMark();
    acedRetT();
    return RTNORM;
}

int c_lumo_setmark() { return lumo_setmark(); }

int C_P1() { return NthLinkCommand(1); }
int C_P2() { return NthLinkCommand(2); }
int C_P3() { return NthLinkCommand(3); }
int C_P4() { return NthLinkCommand(4); }
int C_P5() { return NthLinkCommand(5); }
int C_P6() { return NthLinkCommand(6); }
int C_P7() { return NthLinkCommand(7); }
int C_P8() { return NthLinkCommand(8); }
int C_P9() { return NthLinkCommand(9); }
