// Polygons, rectangles and point lists to and from the drawing's entities.
#include <strings.h>

#include "kernel/PointList.h"
#include "kernel/XArc.h"
#include "kernel/XLine.h"
#include "kernel/XPoly.h"
#include "kernel/XRectAngle.h"
#include "kernel/entity_lists.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"
#include "platform/dbents.h"
#include "platform/dbmain.h"

namespace {
// The first record of a polyface's faces ends its vertices.
constexpr int kFaceRecordFlag = 128;

bool IsKind(const resbuf* list, const char* type) {
    const resbuf* g = FindGroup(list, 0);
    return g && g->resval.rstring && strcasecmp(g->resval.rstring, type) == 0;
}
}  // namespace

XPoly::XPoly(const ads_name ent) {
    resbuf* list = acdbEntGet(ent);
    if (IsKind(list, "LWPOLYLINE")) {
        const resbuf* elevation = FindGroup(list, 38);
        double z = elevation ? elevation->resval.rreal : 0.0;
        for (const resbuf* g = list; g; g = g->rbnext)
            if (g->restype == 10) AppendPoint(XPoint(g->resval.rpoint[0], g->resval.rpoint[1], z));
    } else if (IsKind(list, "POLYLINE")) {
        ads_name at = {ent[0], ent[1]}, next;
        while (acdbEntNext(at, next) == RTNORM) {
            resbuf* vertex = acdbEntGet(next);
            const resbuf* flags = FindGroup(vertex, 70);
            const resbuf* point = FindGroup(vertex, 10);
            bool stop = !IsKind(vertex, "VERTEX") || (flags && flags->resval.rint == kFaceRecordFlag);
            if (!stop && point) AppendPoint(XPoint(point->resval.rpoint));
            acutRelRb(vertex);
            if (stop) break;
            at[0] = next[0];
            at[1] = next[1];
        }
    }
    acutRelRb(list);
}

void XRectAngle::Make(const char* layer, int asLines) const {
    XPoint corner[4] = {GetLowLeft(), GetLowRight(), GetUpRight(), GetUpLeft()};
    if (asLines) {
        for (int i = 0; i < 4; ++i) XLine(corner[i], corner[(i + 1) % 4], 1).Make(layer);
        return;
    }
    auto* pl = new AcDbPolyline(4);
    for (unsigned int i = 0; i < 4; ++i) pl->addVertexAt(i, AcGePoint2d(corner[i].x, corner[i].y), 0.0, -1.0, -1.0);
    pl->setClosed(true);
    pl->setElevation(low.z);
    char name[kLayerNameSize];
    LayerOrCurrent(layer, name);
    if (AssureLayerRecord(name, 7) == RTNORM) pl->setLayer(name);
    if (AppendToCurrentSpace(pl) != RTNORM) {
        delete pl;
        return;
    }
    pl->close();
}

// The first piece goes into the entity itself, the others are copies of it.
int PointList::Update(const ads_name ent) {
    int result = RTERROR;
    int count = Count();
    if (kind == 2) {
        resbuf* list = acdbEntGet(ent);
        const resbuf* layer = FindGroup(list, 8);
        char name[kLayerNameSize];
        LayerOrCurrent(layer ? layer->resval.rstring : nullptr, name);
        acutRelRb(list);
        double r = acutDistance(center, *First());
        for (int i = 0; i < count && count > 1; ++i) {
            const XPoint& a = *GetAt(i);
            const XPoint& b = *GetAt(i + 1 < count ? i + 1 : 0);
            result = XArc(center, r, acutAngle(center, a), acutAngle(center, b)).Make(name);
        }
        if (count > 1) result = acdbEntDel(ent);
        return result;
    }
    for (int i = 0; i + 1 < count; ++i) {
        const XPoint& a = *GetAt(i);
        const XPoint& b = *GetAt(i + 1);
        if (kind == 0) {
            XLine piece(a, b, 1);
            result = i == 0 ? piece.Modify(ent) : piece.MakeLike(ent);
        } else {
            XArc piece(center, acutDistance(center, a), acutAngle(center, a), acutAngle(center, b));
            result = i == 0 ? piece.Modify(ent) : piece.MakeLike(ent);
        }
    }
    return result;
}
