#include "kernel/insert_matrix.h"

#include "kernel/XPoint.h"
#include "kernel/matrix_routines.h"
#include "platform/dbents.h"
#include "platform/dbmain.h"
#include "platform/dbsymtb.h"
#include "platform/gescl3d.h"

int GetInsertMatrix(const ads_name name, double m[4][4]) {
    AcDbObjectId id;
    if (acdbGetObjectId(id, name) != Acad::eOk) return RTERROR;
    AcDbBlockReference* ref = nullptr;
    if (acdbOpenObject(ref, id, AcDb::kForRead) != Acad::eOk || !ref) return RTERROR;
    XPoint ins(ref->position());
    double rot = ref->rotation();
    AcGeScale3d scale = ref->scaleFactors();
    AcDbObjectId blockId = ref->blockTableRecord();
    ref->close();
    XPoint base;
    AcDbBlockTableRecord* block = nullptr;
    if (acdbOpenObject(block, blockId, AcDb::kForRead) == Acad::eOk && block) {
        base = XPoint(block->origin());
        block->close();
    }
    ConstructMatrix(base, ins, scale.sx, scale.sy, scale.sz, rot, m);
    return RTNORM;
}
