#include "kernel/entity_lists.h"

#include <algorithm>
#include <cstring>
#include <strings.h>

#include "frame/tq_vars.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"
#include "platform/dbmain.h"
#include "platform/dbsymtb.h"

namespace {
// The handle and the owner belong to the model, not to its copy.
bool IsIdentity(int code) { return code == -1 || code == 5 || code == 330 || code == 360; }

// Overwrites the value of the first node of each group's code; a code the
// list lacks goes before the extended data, or at the end. Texts are not
// replaced (the hooks never replace one).
void PutOver(resbuf*& list, const resbuf* groups) {
    for (const resbuf* g = groups; g; g = g->rbnext) {
        resbuf* hit = nullptr;
        resbuf* beforeXdata = nullptr;
        resbuf* last = nullptr;
        for (resbuf* n = list; n; n = n->rbnext) {
            if (n->restype == g->restype && !hit) hit = n;
            if (n->rbnext && n->rbnext->restype == -3 && !beforeXdata) beforeXdata = n;
            last = n;
        }
        if (hit) {
            if (g->restype < 0 || g->restype > 9) hit->resval = g->resval;
            continue;
        }
        resbuf* copy = acutNewRb(g->restype);
        if (!copy) return;
        copy->resval = g->resval;
        resbuf* after = beforeXdata ? beforeXdata : last;
        if (!after) {
            list = copy;
        } else {
            copy->rbnext = after->rbnext;
            after->rbnext = copy;
        }
    }
}

void Unlink(resbuf*& list, bool (*drop)(int)) {
    resbuf** link = &list;
    while (*link) {
        if (drop((*link)->restype)) {
            resbuf* gone = *link;
            *link = gone->rbnext;
            gone->rbnext = nullptr;
            acutRelRb(gone);
        } else {
            link = &(*link)->rbnext;
        }
    }
}
}  // namespace

void LayerOrCurrent(const char* layer, char* out) {
    char current[512] = "";
    if (!layer) layer = tq_getvar("clayer", current) == RTNORM && current[0] ? current : "0";
    size_t n = std::min(std::strlen(layer), static_cast<size_t>(kLayerNameSize - 1));   // names are cut, not refused
    std::memcpy(out, layer, n);
    out[n] = '\0';
}

int MakeEntityFromGroups(const char* type, const char* layer, resbuf* groups) {
    char name[kLayerNameSize];
    LayerOrCurrent(layer, name);
    resbuf* head = acutBuildList(RTDXF0, type, 8, name, 0);
    if (!head) {
        acutRelRb(groups);
        return RTERROR;
    }
    head->rbnext->rbnext = groups;
    int result = acdbEntMake(head);
    acutRelRb(head);
    return result;
}

int MakeEntityLike(const ads_name like, resbuf* groups) {
    resbuf* apps = acutBuildList(RTSTR, "*", 0);
    resbuf* list = acdbEntGetX(like, apps);
    acutRelRb(apps);
    if (!list) {
        acutRelRb(groups);
        return RTERROR;
    }
    Unlink(list, IsIdentity);
    PutOver(list, groups);
    acutRelRb(groups);
    int result = acdbEntMake(list);
    acutRelRb(list);
    return result;
}

int ModifyEntityGroups(const ads_name ent, resbuf* groups, const char* type) {
    resbuf* list = acdbEntGet(ent);
    const resbuf* kind = FindGroup(list, 0);
    if (!list || (type && !(kind && kind->resval.rstring && strcasecmp(kind->resval.rstring, type) == 0))) {
        acutRelRb(list);
        acutRelRb(groups);
        return RTERROR;
    }
    PutOver(list, groups);
    acutRelRb(groups);
    int result = acdbEntMod(list);
    acutRelRb(list);
    return result;
}

const resbuf* FindGroup(const resbuf* list, int code) {
    for (const resbuf* n = list; n; n = n->rbnext)
        if (n->restype == code) return n;
    return nullptr;
}

int AssureLayerRecord(const char* name, int color) {
    if (!name || !*name) return RTERROR;
    if (resbuf* found = acdbTblSearch("LAYER", name, 0)) {
        acutRelRb(found);
        return RTNORM;
    }
    resbuf* record = acutBuildList(RTDXF0, "LAYER", 2, name, 70, 0, 62, color, 6, "CONTINUOUS", 0);
    int result = record ? acdbEntMake(record) : RTERROR;
    acutRelRb(record);
    return result;
}

namespace {
int AppendToBlock(AcDbEntity* ent, AcDbObjectId block) {
    AcDbBlockTableRecord* record = nullptr;
    if (acdbOpenObject(record, block, AcDb::kForWrite) != Acad::eOk || !record) return RTERROR;
    AcDbObjectId id;
    Acad::ErrorStatus es = record->appendAcDbEntity(id, ent);
    record->close();
    return es == Acad::eOk ? RTNORM : RTERROR;
}
}  // namespace

int AppendToModelSpace(AcDbEntity* ent) {
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    AcDbBlockTable* table = nullptr;
    if (!db || db->getBlockTable(table, AcDb::kForRead) != Acad::eOk) return RTERROR;
    AcDbObjectId model;
    Acad::ErrorStatus es = table->getAt(ACDB_MODEL_SPACE, model);
    table->close();
    return es == Acad::eOk ? AppendToBlock(ent, model) : RTERROR;
}

int AppendToCurrentSpace(AcDbEntity* ent) {
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    return db ? AppendToBlock(ent, db->currentSpaceId()) : RTERROR;
}
