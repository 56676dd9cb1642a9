// Polygons with edge visibility: access, normal, planes and the merging of
// islands. The triangulation is in XPolygonEx_trianglize.cpp.
#include "kernel/XPolygonEx.h"

#include "kernel/XPushPrec.h"
#include "kernel/point_position.h"
#include "kernel/vector_routines.h"
#include "platform/acedads.h"
#include "platform/acutads.h"

namespace {
// Polygons whose signed area is above this run clockwise.
constexpr double kClockwiseArea = 1e-6;

void TransformAll(XPolygonEx& poly, const XPoint& normal, bool toEcs) {
    resbuf wcs, ecs;
    wcs.restype = RTSHORT;
    wcs.resval.rint = 0;
    ecs.restype = RT3DPOINT;
    normal > ecs.resval.rpoint;
    for (XPoint& p : poly) {
        if (toEcs) acedTrans(p, &wcs, &ecs, 0, p);
        else acedTrans(p, &ecs, &wcs, 0, p);
    }
}
}  // namespace

double CornerAngle(const XPoint& a, const XPoint& p, const XPoint& b) {
    return CT_std_angle(acutAngle(p, a) - acutAngle(p, b));
}

XPolygonEx::XPolygonEx(const XPoly& poly) {
    for (const XPoint& p : poly) AppendNode(p, 1);
}

void XPolygonEx::Reset() {
    RemoveAll();
    visible.RemoveAll();
}

void XPolygonEx::AppendNode(const XPoint& p, int isVisible) {
    AppendPoint(p);
    visible.Append(new int(isVisible));
}

void XPolygonEx::RemoveNode(int i) {
    int n = Count();
    if (n == 0) return;
    i = LimitCycle(i, n);
    RemoveAt(i);
    if (i < visible.Count()) visible.RemoveAt(i);
}

void XPolygonEx::Reverse() {
    DList<XPoint>::Reverse();
    visible.Reverse();
}

int XPolygonEx::IsVisible(int i) const {
    int n = visible.Count();
    if (n == 0) return 0;
    return *visible.GetAt(LimitCycle(i, n));
}

void XPolygonEx::SetVisible(int i, int v) {
    int n = visible.Count();
    if (n == 0) return;
    *visible.GetAt(LimitCycle(i, n)) = v;
}

double XPolygonEx::GetEdgeLength(int i) const {
    if (Count() == 0) return 0.0;
    return acutDistance(*GetVertex(i), *GetVertex(i + 1));
}

double XPolygonEx::GetAngle(int i) const {
    if (Count() == 0) return 0.0;
    return CornerAngle(*GetVertex(i - 1), *GetVertex(i), *GetVertex(i + 1));
}

int XPolygonEx::GetNormal(XPoint& n) const {
    if (Count() < 3) return RTERROR;
    const XPoint& p0 = *First();
    const XPoint* q = nullptr;
    const XPoint* r = nullptr;
    for (const XPoint& v : *this) {
        if (acutDistance(v, p0) <= _distSnap) continue;
        if (!q) q = &v;
        else if (AT_pt_of_line(v, p0, *q) == 0) {
            r = &v;
            break;
        }
    }
    if (!q || !r) return RTERROR;
    XPoint u = *q - p0, w = *r - p0;
    AcGeVector3d cross = static_cast<const AcGeVector3d&>(u).crossProduct(w);
    cross.normalize();
    n = XPoint(cross.x, cross.y, cross.z);
    return RTNORM;
}

void XPolygonEx::Wcs2Ecs(XPoint normal) { TransformAll(*this, normal, true); }
void XPolygonEx::Ecs2Wcs(XPoint normal) { TransformAll(*this, normal, false); }

int XPolygonEx::Trianglize(DList<XTriangle>& out, int planar) const {
    XPolygonEx work(*this);
    XPoint normal;
    if (!planar) {
        if (GetNormal(normal) != RTNORM) return RTERROR;
        work.Wcs2Ecs(normal);
    }
    if (work.PathArea() > kClockwiseArea) work.Reverse();
    if (planar) return work._Trianglize(out);
    // Only the triangles made here go back to World.
    DList<XTriangle> made;
    int r = work._Trianglize(made);
    for (XTriangle& t : made) t.Ecs2Wcs(normal);
    out.Splice(made);
    return r;
}

int ConnectPolygon(const XPolygonEx& a, const XPolygonEx& b, XPolygonEx& out) {
    int na = a.Count(), nb = b.Count();
    int bi = 0, bj = 0;
    double best = -1.0;
    int i = 0;
    for (const XPoint& p : a) {
        int j = 0;
        for (const XPoint& q : b) {
            double d = acutDistance(p, q);
            if (best < 0.0 || d < best) {   // a later pair only when strictly nearer
                best = d;
                bi = i;
                bj = j;
            }
            ++j;
        }
        ++i;
    }
    out.Reset();
    for (int k = bi; k < bi + na; ++k) out.AppendNode(*a.GetVertex(k), a.IsVisible(k));
    if (na) out.AppendNode(*a.GetVertex(bi), 0);   // the bridge
    for (int k = bj; k < bj + nb; ++k) out.AppendNode(*b.GetVertex(k), b.IsVisible(k));
    if (nb) out.AppendNode(*b.GetVertex(bj), 0);   // and back
    return RTNORM;
}
