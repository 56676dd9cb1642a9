// The operations of Entity that need the geometry kernel: the box of an
// entity, and its transformation through its DXF list.
#include <algorithm>
#include <cmath>
#include <cstring>

#include "database/DragPickSet.h"
#include "database/Entity.h"
#include "database/XBlockTable.h"
#include "database/box_measures.h"
#include "kernel/X3DFace.h"
#include "kernel/XArc.h"
#include "kernel/XLine.h"
#include "kernel/XPoly2D.h"
#include "kernel/XPushPrec.h"
#include "kernel/insert_matrix.h"
#include "kernel/matrix_routines.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"
#include "platform/dbextents.h"
#include "platform/dbents.h"
#include "platform/dbmain.h"

namespace {

void Include(double* min, double* max, const double* p, bool& first) {
    for (int i = 0; i < 3; ++i) {
        min[i] = first ? p[i] : std::min(min[i], p[i]);
        max[i] = first ? p[i] : std::max(max[i], p[i]);
    }
    first = false;
}

void Transformed(double m[4][4], const double* in, double* out) {
    if (m) AT_xformpt(m, in, out);
    else std::copy(in, in + 3, out);
}

bool HostExtents(const int32_t* name, double* min, double* max) {
    AcDbObjectId id;
    AcDbEntity* entity = nullptr;
    if (acdbGetObjectId(id, name) != Acad::eOk || acdbOpenAcDbEntity(entity, id, AcDb::kForRead) != Acad::eOk)
        return false;
    AcDbExtents box;
    bool ok = entity->getGeomExtents(box) == Acad::eOk;
    entity->close();
    if (!ok) return false;
    AcGePoint3d lo = box.minPoint(), hi = box.maxPoint();
    min[0] = lo.x, min[1] = lo.y, min[2] = lo.z;
    max[0] = hi.x, max[1] = hi.y, max[2] = hi.z;
    return true;
}

// Calls visit with each VERTEX entity's list after the polyline, to the
// first entity of another type.
template <class Visit>
void ForEachVertex(const int32_t* polyline, Visit visit) {
    ads_name current = {polyline[0], polyline[1]}, next;
    while (acdbEntNext(current, next) == RTNORM) {
        std::memcpy(current, next, sizeof current);
        RBList list(acdbEntGet(current));
        char type[256] = "";
        if (list.GetData(0, type) != RTNORM || std::strcmp(type, "VERTEX") != 0) break;
        visit(list);
    }
}

// The vertices of a POLYLINE through the matrix; a vertex with a bulge
// makes the box approximate (RTERROR), and spline frame points are left out.
int PolylineWalk(const int32_t* polyline, double m[4][4], double* min, double* max) {
    int result = RTNORM;
    bool first = true;
    ForEachVertex(polyline, [&](RBList& list) {
        int flags = 0;
        list.GetData(70, &flags);
        if ((flags & 128) && !(flags & 64)) return;
        double bulge = 0, p[3];
        list.GetData(42, &bulge);
        if (std::fabs(bulge) > 0.0001) result = RTERROR;
        if (list.GetData(10, p) != RTNORM) return;
        Transformed(m, p, p);
        Include(min, max, p, first);
    });
    return first ? RTNONE : result;
}

int CornersBox(RBList& list, double m[4][4], double* min, double* max) {
    X3DFace face;
    for (int i = 0; i < 4; ++i) {
        double p[3] = {0, 0, 0};
        list.GetData(10 + i, p);
        Transformed(m, p, face.pt[i]);
    }
    return face.GetExtend(min, max);
}

}  // namespace

int Entity::GetExtend(double* min, double* max, double m[4][4]) {
    if (!m && HostExtents(name, min, max)) return RTNORM;
    if (!*this) return RTNONE;
    if (_GetGroups() != RTNORM) return RTNONE;
    char type[256] = "";
    double extrusion[3] = {0, 0, 1}, thickness = 0;
    groups.GetData(0, type);
    groups.GetData(210, extrusion);
    groups.GetData(39, &thickness);
    if (std::fabs(extrusion[0]) >= _distSnap || std::fabs(extrusion[1]) >= _distSnap ||
        std::fabs(extrusion[2] - 1) >= _distSnap)
        return RTNONE;

    int result = RTNONE;
    bool thick = false;
    if (!std::strcmp(type, "LINE")) {
        XLine line(name, 1, m);
        XPoint lo, hi;
        line.GetExtend(lo, hi);
        lo > min;
        hi > max;
        result = RTNORM, thick = true;
    } else if (!std::strcmp(type, "3DFACE")) {
        result = X3DFace(name, m).GetExtend(min, max);
    } else if (!std::strcmp(type, "ARC")) {
        result = XArc(name, m).GetExtend(min, max), thick = true;
    } else if (!std::strcmp(type, "CIRCLE")) {
        result = XCircle(name, m).GetExtend(min, max), thick = true;
    } else if (!std::strcmp(type, "INSERT")) {
        double insert[4][4], product[4][4];
        char block[256] = "";
        if (GetInsertMatrix(name, insert) != RTNORM || groups.GetData(2, block) != RTNORM) return RTNONE;
        if (m) MatrixMultiply(product, m, insert, nullptr);
        else std::memcpy(product, insert, sizeof product);
        result = XBlockTable::GetExtend(block, product, min, max);
    } else if (!std::strcmp(type, "POINT")) {
        double p[3];
        if (groups.GetData(10, p) != RTNORM) return RTNONE;
        Transformed(m, p, min);
        std::copy(min, min + 3, max);
        result = RTNORM;
    } else if (!std::strcmp(type, "POLYLINE")) {
        int flags = 0;
        groups.GetData(70, &flags);
        // A polyline without a segment has no box to give (nothing is written to it).
        if ((flags == 0 || flags == 1) && !m) {
            result = RTNONE;
            if (XPoly2D(name).GetExtend(min, max) == RTNORM) result = RTNORM;
        } else {
            result = PolylineWalk(name, m, min, max);
        }
    } else if (!std::strcmp(type, "SOLID") || !std::strcmp(type, "TRACE")) {
        result = CornersBox(groups, m, min, max);
    }
    if (thick && result != RTNONE) {
        max[2] += thickness;
        // A thick entity's box is only right without a matrix.
        if (std::fabs(thickness) > 1e-6 && m) result = RTERROR;
    }
    return result;
}

int Entity::GetExtend(double* center, double* width, double* height, double* depth) {
    double min[3], max[3];
    int rc = GetExtend(min, max, nullptr);
    if (rc != RTNONE) MeasureBox(min, max, center, width, height, depth);
    return rc;
}

namespace {

int TransformLwPolyline(const int32_t* name, double m[4][4]) {
    AcDbObjectId id;
    AcDbPolyline* poly = nullptr;
    if (acdbGetObjectId(id, name) != Acad::eOk || acdbOpenObject(poly, id, AcDb::kForWrite) != Acad::eOk)
        return RTERROR;
    for (unsigned int i = 0; i < poly->numVerts(); ++i) {
        AcGePoint2d p;
        poly->getPointAt(i, p);
        double in[3] = {p.x, p.y, 0}, out[3];
        AT_xformpt(m, in, out);
        poly->setPointAt(i, AcGePoint2d(out[0], out[1]));
    }
    poly->close();
    return RTNORM;
}

// Moves each of the codes through the matrix in the list, then writes it.
int TransformCodes(RBList& list, double m[4][4], int firstCode, int lastCode) {
    for (int code = firstCode; code <= lastCode; ++code) {
        double p[3];
        if (list.GetData(code, p) != RTNORM) continue;
        AT_xformpt(m, p, p);
        list.SetData(code, p);
    }
    return acdbEntMod(list.Head());
}

int TransformVertices(const int32_t* polyline, double m[4][4]) {
    int result = RTNORM;
    ForEachVertex(polyline, [&](RBList& list) {
        if (TransformCodes(list, m, 10, 10) != RTNORM) result = RTERROR;
    });
    return result;
}

int TransformArc(const int32_t* name, RBList& list, double m[4][4]) {
    double center[3], radius = 0, start = 0, end = 0;
    if (list.GetData(10, center) != RTNORM || list.GetData(40, &radius) != RTNORM ||
        list.GetData(50, &start) != RTNORM || list.GetData(51, &end) != RTNORM)
        return RTERROR;
    if (end < start) end += 2 * M_PI;
    double a[3], mid[3], b[3];
    acutPolar(center, start, radius, a);
    acutPolar(center, (start + end) / 2, radius, mid);
    acutPolar(center, end, radius, b);
    for (double* p : {a, mid, b}) {
        p[2] = center[2];
        AT_xformpt(m, p, p);
    }
    return XArc(XPoint(a), XPoint(mid), XPoint(b)).Modify(name);
}

}  // namespace

int Entity::XTransform(double m[4][4]) {
    if (_GetGroups() != RTNORM) return RTERROR;
    char type[256] = "";
    groups.GetData(0, type);
    if (!std::strcmp(type, "LWPOLYLINE")) return TransformLwPolyline(name, m);
    if (!std::strcmp(type, "LINE")) return XLine(name, 1, m).Modify(name);
    if (!std::strcmp(type, "3DFACE")) return X3DFace(name, m).Modify(name);
    if (!std::strcmp(type, "POINT")) return TransformCodes(groups, m, 10, 10);
    if (!std::strcmp(type, "SOLID") || !std::strcmp(type, "TRACE")) return TransformCodes(groups, m, 10, 13);
    if (!std::strcmp(type, "POLYLINE")) return TransformVertices(name, m);
    if (!std::strcmp(type, "ARC")) return TransformArc(name, groups, m);
    acutPrintf("\nThe transformation of %s entities is not supported.", type);
    return RTERROR;
}

int Entity::Move(const XPoint& base, XPoint& to) {
    PickSet set(PickSet::kCreateEmpty | PickSet::kOwnsSet);
    set.Add(name);
    return DragPickSet(base, set, PickSet::kOwnsSet).Move(base, to);
}

int Entity::Rotate(const XPoint& base, double* angle) {
    PickSet set(PickSet::kCreateEmpty | PickSet::kOwnsSet);
    set.Add(name);
    return DragPickSet(base, set, PickSet::kOwnsSet).Rotate(base, angle);
}

int Entity::Scale(const XPoint& base, double* factor) {
    PickSet set(PickSet::kCreateEmpty | PickSet::kOwnsSet);
    set.Add(name);
    return DragPickSet(base, set, PickSet::kOwnsSet).Scale(base, factor);
}
