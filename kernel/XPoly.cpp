#include "kernel/XPoly.h"

#include <cmath>

#include "kernel/XLine.h"
#include "kernel/XPface.h"
#include "kernel/XPolygonEx.h"
#include "kernel/XPushPrec.h"
#include "kernel/point_position.h"
#include "platform/acutads.h"

XPoly::XPoly(const resbuf* list) {
    for (const resbuf* rb = list; rb && (rb->restype == RT3DPOINT || rb->restype == RTPOINT); rb = rb->rbnext)
        AppendPoint(XPoint(rb->resval.rpoint));
}

int XPoly::NthLine(int i, XLine& out) const {
    int n = Count();
    if (i < 0 || i >= n) return RTERROR;
    out.start = *GetAt(i);
    out.end = *GetAt(i + 1 < n ? i + 1 : 0);
    return RTNORM;
}

double XPoly::PathArea() const {
    double sum = 0.0;
    for (Node* nd = HeadNode(); nd; nd = nd->next) {
        const XPoint& a = *nd->item;
        const XPoint& b = *(nd->next ? nd->next : HeadNode())->item;
        sum += (a.y + b.y) * (b.x - a.x) / 2.0;
    }
    return sum;
}

double XPoly::Area() const { return std::fabs(PathArea()); }

int XPoly::IsPoint() const {
    if (IsEmpty()) return 0;
    const XPoint& first = *First();
    for (const XPoint& p : *this)
        if (!(p == first)) return 0;
    return 1;
}

int XPoly::IsLinear() const {
    int n = Count();
    XLine edge(1);
    int i = 0;
    for (; i < n; ++i) {
        NthLine(i, edge);
        if (acutDistance(edge.start, edge.end) > _distSnap) break;
    }
    if (i == n) return 0;
    for (const XPoint& p : *this)
        if (!AT_pt_of_line(p, edge.start, edge.end)) return 0;
    return 1;
}

int XPoly::IsPlan() const {
    acutPrintf("\nIsPlan Not finished!");
    return 0;
}

int RectangleOfEdges(const XLine e[4], double* center, double* w, double* h, const XPoint& p0,
                     const XPoint& p2) {
    double d[4], len[4];
    for (int i = 0; i < 4; ++i) {
        d[i] = e[i].Direction();
        len[i] = e[i].Length();
    }
    if (!(std::fabs(std::cos(d[0] - d[1])) < _angSnap && std::fabs(std::cos(d[2] - d[3])) < _angSnap)) return 0;
    if (!(std::fabs(std::sin(d[0] - d[2])) < _angSnap)) return 0;
    if (!(std::fabs(len[0] - len[2]) < _distSnap && std::fabs(len[1] - len[3]) < _distSnap)) return 0;
    double width, height;
    if (std::fabs(std::sin(d[0])) < _angSnap) {
        width = len[0];
        height = len[1];
    } else if (std::fabs(std::sin(d[1])) < _angSnap) {
        width = len[1];
        height = len[0];
    } else {
        return 0;
    }
    if (w) *w = width;
    if (h) *h = height;
    if (center) {
        center[0] = (p0.x + p2.x) / 2;
        center[1] = (p0.y + p2.y) / 2;
        center[2] = (p0.z + p2.z) / 2;
    }
    return 1;
}

int XPoly::IsRectAngle(double* center, double* w, double* h) const {
    if (Count() != 4) return 0;
    XLine e[4] = {XLine(1), XLine(1), XLine(1), XLine(1)};
    for (int i = 0; i < 4; ++i) NthLine(i, e[i]);
    return RectangleOfEdges(e, center, w, h, *GetAt(0), *GetAt(2));
}

resbuf* XPoly::ResbufList(int close) const {
    resbuf* head = nullptr;
    resbuf** link = &head;
    auto add = [&link](const XPoint& p) {
        resbuf* rb = acutNewRb(RT3DPOINT);
        if (!rb) return;
        p > rb->resval.rpoint;
        *link = rb;
        link = &rb->rbnext;
    };
    for (const XPoint& p : *this) add(p);
    if (close && !IsEmpty()) add(*First());
    return head;
}

// Triangulation belongs to the face classes; without them there is no face.
int XPoly::CreatePface(const char* layer) {
    XPolygonEx polygon(*this);
    XTrianglePface triangles;
    if (polygon.Trianglize(triangles, 1) != RTNORM || triangles.Count() == 0) return RTERROR;
    return triangles.MakePolyface(layer);
}
