// The LISP family on one current entity.
//
// The list is the host's copy of the entity as it was when it became
// current; lumo_modent changes it in place and writes it back whole, so
// whatever else changed the entity in between is overwritten.
#include "database/entity_lisp.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "database/pickset_slots.h"
#include "frame/LispList.h"
#include "frame/RBList.h"
#include "frame/chain_copy.h"
#include "platform/acdbads.h"
#include "platform/acedads.h"
#include "platform/acedss.h"
#include "platform/acutads.h"
#include "platform/crt.h"

resbuf* gCurrentEntityList = nullptr;
char gCurrentEntityType[64] = "";
resbuf* gEntityListCursor = nullptr;
int32_t gEntityListOccurrence = 0;
ads_name gRememberedEntity = {0, 0};
int32_t gRememberedValid = 0;

void ReleaseCurrentEntityList() {
    acutRelRb(gCurrentEntityList);
    gCurrentEntityList = nullptr;
    gEntityListCursor = nullptr;
    gEntityListOccurrence = 0;
}

namespace {

// Takes the list as the current one; the type stays when asked.
void SetCurrent(resbuf* list, bool keepType) {
    ReleaseCurrentEntityList();
    gCurrentEntityList = list;
    gEntityListCursor = list;
    if (!keepType) {
        const resbuf* type = AT_get_resbuf(list, 0);
        std::snprintf(gCurrentEntityType, sizeof gCurrentEntityType, "%s",
                      type && type->resval.rstring ? type->resval.rstring : "");
    }
}

bool LoadCurrent(const ads_name entity, bool keepType) {
    resbuf* list = acdbEntGet(entity);
    if (!list) return false;
    SetCurrent(list, keepType);
    return true;
}

// The n-th node (from 0) of the code in the list, or null.
resbuf* NthOfCode(resbuf* list, int code, int n) {
    for (resbuf* node = list; node; node = node->rbnext)
        if (node->restype == code && n-- == 0) return node;
    return nullptr;
}

bool IsNameCode(int code) {
    int type = DxfValueType(code);
    return type == RTENAME || type == RTPICKS || code == -1 || code == -2;
}

void ReturnGroupValue(const resbuf* node) {
    if (IsNameCode(node->restype)) {
        acedRetName(node->resval.rlname, RTENAME);
        return;
    }
    switch (DxfValueType(node->restype)) {
    case RTREAL:
        acedRetReal(node->resval.rreal);
        break;
    case RTSTR:
        acedRetStr(node->resval.rstring ? node->resval.rstring : "");
        break;
    case RTSHORT:
        acedRetInt(node->resval.rint);
        break;
    case RTLONG:
        acedRetInt(static_cast<short>(node->resval.rlong));
        break;
    case RTPOINT:
    case RT3DPOINT: {
        ads_point p = {node->resval.rpoint[0], node->resval.rpoint[1], node->resval.rpoint[2]};
        ReturnPoint(p);
        break;
    }
    default:  // no value the family hands out
        break;
    }
}

// The layer a new layer name stands for in the drawing session. No
// session maps layers yet, so a name stands for itself.
const char* SessionLayerName(const char* layer) { return layer; }

// A new node of the code holding the value, or null when the value's type
// doesn't fit the code.
resbuf* NodeForCode(int code, const resbuf* value) {
    resbuf* node = nullptr;
    switch (DxfValueType(code)) {
    case RTREAL:
        if (value->restype != RTREAL && value->restype != RTSHORT) return nullptr;
        node = acutNewRb(code);
        if (node) node->resval.rreal = value->restype == RTREAL ? value->resval.rreal : value->resval.rint;
        return node;
    case RTPOINT:
    case RT3DPOINT: {
        if (value->restype != RTPOINT && value->restype != RT3DPOINT) return nullptr;
        ads_point p = {value->resval.rpoint[0], value->resval.rpoint[1],
                       value->restype == RT3DPOINT ? value->resval.rpoint[2] : 0.0};
        node = acutNewRb(code);
        if (node) acdbUcs2Wcs(p, node->resval.rpoint, false);
        return node;
    }
    case RTSHORT:
        if (value->restype != RTSHORT) return nullptr;
        node = acutNewRb(code);
        if (node) node->resval.rint = value->resval.rint;
        return node;
    case RTSTR: {
        if (value->restype != RTSTR || !value->resval.rstring) return nullptr;
        const char* text = code == 8 ? SessionLayerName(value->resval.rstring) : value->resval.rstring;
        node = acutNewRb(code);
        if (node) node->resval.rstring = _strdup(text);
        return node;
    }
    default:
        return nullptr;
    }
}

// Puts `node` in place of the occurrence of its code in the current list.
bool ReplaceGroup(resbuf* node, int occurrence) {
    resbuf* before = nullptr;
    int n = occurrence;
    for (resbuf* at = gCurrentEntityList; at; before = at, at = at->rbnext) {
        if (at->restype != node->restype || n-- != 0) continue;
        node->rbnext = at->rbnext;
        if (before) before->rbnext = node;
        else gCurrentEntityList = node;
        if (gEntityListCursor == at) gEntityListCursor = node;
        at->rbnext = nullptr;
        acutRelRb(at);
        return true;
    }
    return false;
}

}  // namespace

int lumo_setenttodb() {
    ReleaseCurrentEntityList();
    resbuf* args = acedGetArgs();
    if (!args) {
        if (gRememberedValid && LoadCurrent(gRememberedEntity, false)) acedRetT();
        return RTNORM;
    }
    if (args->restype != RTENAME) return RTNORM;
    if (LoadCurrent(args->resval.rlname, false)) acedRetT();
    return RTNORM;
}

int lumo_getentdxf() {
    resbuf* args = acedGetArgs();
    if (!args || !gCurrentEntityList || args->restype != RTSHORT) return RTNORM;
    const resbuf* flag = args->rbnext;
    if (flag && flag->restype != RTT) return RTNORM;
    int code = args->resval.rint;
    resbuf* node = nullptr;
    if (flag) {
        // the counter moves on also past the last group of the code
        node = NthOfCode(gCurrentEntityList, code, gEntityListOccurrence++);
    } else {
        node = AT_get_resbuf(gCurrentEntityList, code);
    }
    if (node) ReturnGroupValue(node);
    return RTNORM;
}

int lumo_setsstodb() {
    gRememberedValid = 0;
    resbuf* args = acedGetArgs();
    if (!args) return RTNORM;
    bool isSet = args->restype == RTPICKS;
    const resbuf* slot = args->rbnext;
    if (!slot || slot->restype != RTSHORT || slot->resval.rint < 0 || slot->resval.rint > 9 || slot->rbnext)
        return RTNORM;
    if (isSet && StoreSlotSelection(args->resval.rlname, slot->resval.rint) == 0) acedRetT();
    return RTNORM;
}

int lumo_getentdata() {
    resbuf* args = acedGetArgs();
    if (!args || args->restype != RTSHORT || args->rbnext) return RTNORM;
    ads_name set;
    int32_t* position = nullptr;
    if (!GetSlotSelection(args->resval.rint, set, &position) || !position) return RTNORM;
    for (;;) {
        ads_name entity;
        if (acedSSName(set, *position, entity) != RTNORM) return RTNORM;   // the end of the set
        ++*position;
        if (!LoadCurrent(entity, false)) continue;   // gone since it was selected
        gRememberedEntity[0] = entity[0];
        gRememberedEntity[1] = entity[1];
        gRememberedValid = 1;
        acedRetName(entity, RTENAME);
        return RTNORM;
    }
}

int lumo_getpolyvtx() {
    if (acedGetArgs() || !gCurrentEntityList) return RTNORM;
    if (_stricmp(gCurrentEntityType, "LWPOLYLINE") == 0) {
        resbuf* node = gEntityListCursor;
        while (node && node->restype != 10) node = node->rbnext;
        if (!node) return RTNORM;
        gEntityListCursor = node->rbnext;
        ++gEntityListOccurrence;
        ads_point p = {node->resval.rpoint[0], node->resval.rpoint[1], 0.0};
        ReturnPoint(p);
        return RTNORM;
    }
    if (_stricmp(gCurrentEntityType, "POLYLINE") != 0 && _stricmp(gCurrentEntityType, "INSERT") != 0)
        return RTNORM;
    const resbuf* self = AT_get_resbuf(gCurrentEntityList, -1);
    ads_name next;
    if (!self || acdbEntNext(self->resval.rlname, next) != RTNORM || !LoadCurrent(next, true)) return RTNORM;
    const resbuf* point = AT_get_resbuf(gCurrentEntityList, 10);
    if (!point) return RTNORM;
    ads_point p = {point->resval.rpoint[0], point->resval.rpoint[1], point->resval.rpoint[2]};
    ReturnPoint(p);
    return RTNORM;
}

int lumo_modent() {
    resbuf* args = acedGetArgs();
    if (!gCurrentEntityList) return RTNORM;
    bool changed = false;
    for (const resbuf* code = args; code && code->rbnext; code = code->rbnext->rbnext) {
        if (code->restype != RTSHORT) break;
        resbuf* node = NodeForCode(code->resval.rint, code->rbnext);
        if (!node) continue;
        if (ReplaceGroup(node, gEntityListOccurrence)) changed = true;
        else acutRelRb(node);
    }
    if (changed && acdbEntMod(gCurrentEntityList) == RTNORM) acedRetT();
    return RTNORM;
}

int lumo_entdbsinit() {
    if (!acedGetArgs()) gEntityListOccurrence = 0;
    return RTNORM;
}
