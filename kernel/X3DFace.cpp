// Spatial faces: construction from lists, the split-triangle rules, shape
// tests.
#include "kernel/X3DFace.h"

#include <cmath>
#include <cstring>

#include "kernel/XPoly.h"
#include "kernel/XPushPrec.h"
#include "kernel/matrix_routines.h"
#include "kernel/vector_routines.h"
#include "platform/acutads.h"

namespace {
// A corner coordinate beyond this is garbage.
constexpr double kFarCoordinate = 1e9;
// Components below this make an edge empty, dot products below it a right angle.
constexpr double kRightTol = 1e-6;

double Dot(const XPoint& a, const XPoint& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

XPoint Cross(const XPoint& a, const XPoint& b) {
    return XPoint(a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x);
}

XPoly CornersOf(const X3DFace& f) {
    XPoly p;
    for (const XPoint& c : f.pt) p.AppendPoint(c);
    return p;
}
}  // namespace

X3DFace::X3DFace(const resbuf* list, double m[4][4]) : flags(0) {
    const resbuf* type = nullptr;
    for (const resbuf* rb = list; rb; rb = rb->rbnext)
        if (rb->restype == 0) {
            type = rb;
            break;
        }
    if (!type || !type->resval.rstring || std::strcmp(type->resval.rstring, "3DFACE") != 0) {
        flags |= kInvalid;
        return;
    }
    for (const resbuf* rb = list; rb; rb = rb->rbnext) {
        if (rb->restype == 70) flags = (flags & kInvalid) | rb->resval.rint;
        if (rb->restype < 10 || rb->restype > 13) continue;
        XPoint& c = pt[rb->restype - 10];
        c = XPoint(rb->resval.rpoint);
        if (m) AT_xformpt(m, c, c);
        for (int k = 0; k < 3; ++k)
            if (std::fabs(c[k]) > kFarCoordinate) flags |= kInvalid;
    }
}

X3DFace::X3DFace(X3DFace3C& a, X3DFace3C& b) : flags(0) {
    XLine la(1), lb(1);
    if (a.GetMergeLine(la) != RTNORM || b.GetMergeLine(lb) != RTNORM) {
        flags |= kInvalid;
        return;
    }
    bool same = la.start == lb.start && la.end == lb.end;
    bool opposite = la.start == lb.end && la.end == lb.start;
    if (!same && !opposite) {
        flags |= kInvalid;
        return;
    }
    double normal[3];
    plan_para plane{};
    CT_vector_plan3p(a.pt[0], a.pt[1], a.pt[2], normal);
    CT_plan_equation(a.pt[0], normal, &plane);
    const XPoint& bOpp = b.pt[b.OppHidePoint()];
    XPoint onPlane;
    CT_point_prj_plan(bOpp, &plane, onPlane);
    for (int k = 0; k < 3; ++k)
        if (!(std::fabs(onPlane[k] - bOpp[k]) < _distSnap)) {
            flags |= kInvalid;   // not one plane
            return;
        }
    pt[0] = a.pt[a.OppHidePoint()];
    pt[1] = la.start;
    pt[2] = bOpp;
    pt[3] = la.end;
}

int X3DFace::IsLinear() const { return CornersOf(*this).IsLinear(); }
int X3DFace::IsPoint() const { return CornersOf(*this).IsPoint(); }

int X3DFace::GetExtend(double* lo, double* hi) const {
    XPoint l = pt[0], h = pt[0];
    for (const XPoint& c : pt) {
        l = Min(l, c);
        h = Max(h, c);
    }
    l > lo;
    h > hi;
    return RTNORM;
}

int X3DFace::IsRectangular(double* w, double* h) const {
    XPoint e[4];
    for (int i = 0; i < 4; ++i) {
        e[i] = pt[(i + 1) % 4] - pt[i];
        if (std::fabs(e[i].x) < kRightTol && std::fabs(e[i].y) < kRightTol && std::fabs(e[i].z) < kRightTol)
            return 0;
    }
    for (int i = 0; i < 4; ++i)
        if (std::fabs(Dot(e[i], e[(i + 1) % 4])) >= kRightTol) return 0;
    if (w) *w = pt[0].Distance(pt[1]);
    if (h) *h = pt[1].Distance(pt[2]);
    return 1;
}

XPoint X3DFace::Direction() const {
    XPoint n = Cross(pt[1] - pt[0], pt[2] - pt[1]);
    double len = n.Length();
    if (len > 0.0) n /= len;
    return n;
}

X3DFace3C::X3DFace3C(const resbuf* list) : X3DFace(list, nullptr) { Collapse(); }

void X3DFace3C::Collapse() {
    if (flags & kInvalid) return;
    int i = 0;
    for (; i < 4; ++i)
        if (pt[i].Distance(pt[(i + 1) % 4]) < _distSnap) break;
    if (i == 4) {
        flags |= kInvalid;   // four distinct corners
        return;
    }
    // The edge's second corner goes; later corners and their bits move down.
    switch (i) {
    case 0:
        pt[1] = pt[2];
        pt[2] = pt[3];
        flags = (flags & ~15) | ((flags >> 1) & 7);
        break;
    case 1:
        pt[2] = pt[3];
        flags = (flags & ~14) | ((flags >> 1) & 6);
        break;
    case 2: flags = (flags & ~12) | ((flags >> 1) & 4); break;
    default: break;
    }
    flags &= ~8;
    if (flags != 1 && flags != 2 && flags != 4) flags |= kInvalid;
}

int X3DFace3C::GetMergeLine(XLine& line) const {
    int e = MergeEdge();
    if (e < 0) return RTERROR;
    line.start = pt[e];
    line.end = pt[(e + 1) % 3];
    return RTNORM;
}

int X3DFace3C::MergeEdge() const {
    switch (flags) {
    case 1: return 0;
    case 2: return 1;
    case 4: return 2;
    default: return -1;
    }
}

int X3DFace3C::OppHidePoint() const {
    switch (flags) {
    case 1: return 2;
    case 2: return 0;
    case 4: return 1;
    default: return -1;
    }
}
