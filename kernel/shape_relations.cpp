#include "kernel/shape_relations.h"

#include <numbers>

#include "kernel/PointList.h"
#include "kernel/XCurveSegment.h"
#include "kernel/XPoly.h"
#include "kernel/XPoly2D.h"
#include "kernel/XPushPrec.h"
#include "kernel/XRectAngle.h"
#include "kernel/point_position.h"
#include "platform/acedads.h"
#include "platform/acutads.h"

namespace {
constexpr double kPi = std::numbers::pi;
// Rays run this far: beyond any drawing's extent.
constexpr double kRayLength = 10000000.0;
// The first ray's turn from the first vertex's direction, for polygons and
// for bulge polylines, and the turn when a ray meets a node.
constexpr double kPolyRayTurn = 0.11 * kPi;
constexpr double kPoly2DRayTurn = 0.13 * kPi;
constexpr int kPoly2DRays = 6;
// The tolerances of the ray crossings in a bulge polyline.
constexpr double kCrossDist = 1e-6;
constexpr double kCrossAng = 0.001;

bool OnOrIn(int k) { return k >= 1 && k <= 3; }
bool InOrBoundary(int k) { return k == 3 || k == 5; }

// The three-point rule of a line against a shape.
int Combine3(int s, int m, int e) {
    if (s == 5 && m == 5 && e == 5) return 5;
    if (InOrBoundary(s) && InOrBoundary(m) && InOrBoundary(e)) return 3;
    if ((s != 0 && s != 5) || (m != 0 && m != 5) || (e != 0 && e != 5)) return 6;
    return 0;
}

XLine Ray(const XPoint& from, double dir) { return XLine(from, XPoint(from, dir, kRayLength), 1); }
}  // namespace

int operator&(const XPoint& p, XPoly& poly) {
    int n = poly.Count();
    if (n < 3) return 0;
    XPoint origin;
    XLine ray = Ray(p, acutAngle(origin, *poly.First()) + kPolyRayTurn);
    XLine edge(1);
    int count = 0;
    bool pending = false;
    for (int i = 0; i < n; ++i) {
        poly.NthLine(i, edge);
        if (OnOrIn(AT_pt_of_line(p, edge.start, edge.end))) return 5;
        XPoint q;
        if (!ray.Intersection(edge, q)) continue;
        bool bad = false;
        switch (AT_pt_of_line(q, edge.start, edge.end)) {
        case 3: ++count; break;
        case 2:
            if (pending) bad = true;
            else ++count, pending = true;
            break;
        case 1:
            if (pending) pending = false;
            else bad = true;
            break;
        default: bad = true; break;
        }
        if (bad) acdbFail("\nBad pt&poly");
    }
    return (count & 1) ? 3 : 0;
}

int operator&(const XPoint& p, XPoly2D& poly) {
    int n = poly.TotalSegments();
    if (n < 2) return 0;
    XPoint origin;
    double dir = acutAngle(origin, *poly.First()) + kPoly2DRayTurn;
    XLine ray(1);
    bool clear = false;
    for (int attempt = 0; attempt < kPoly2DRays && !clear; ++attempt) {
        if (attempt > 0) dir += kPolyRayTurn;
        ray = Ray(p, dir);
        clear = true;
        for (const XPoint& v : poly) {
            if (v == p) return 5;
            if (OnOrIn(AT_pt_of_line(v, ray.start, ray.end))) {
                clear = false;
                break;
            }
        }
    }
    if (!clear) acutPrintf("%s", "\nWarning: unfavourable case in point&poly!");

    XCurveSegment s(1);
    int count = 0;
    for (int i = 0; i < n; ++i) {
        if (poly.Nth(i, s) != RTNORM) return 0;
        if (OnOrIn(p & s)) return 5;
        XPushPrec fine(kCrossDist, kCrossAng);
        XPoint hit[2];
        int k = s.Intersection(ray, hit[0], hit[1]);
        for (int j = 0; j < k && j < 2; ++j) {
            int where = hit[j] & s;
            if (where == 3) {
                ++count;
            } else if (where == 1 || where == 2) {
                ++count;
                acutPrintf("%s", "\nWarning: Point&Poly maybe incorrect");
            }
        }
    }
    return (count & 1) ? 3 : 0;
}

int operator&(const XPoint& p, const XRectAngle& r) {
    double t = _distSnap;
    if (p.x > r.up.x + t || p.y > r.up.y + t || p.x < r.low.x - t || p.y < r.low.y - t) return 0;
    if (p.x >= r.up.x - t || p.y >= r.up.y - t || p.x <= r.low.x + t || p.y <= r.low.y + t) return 5;
    return 3;
}

int operator&(const XRectAngle& a, const XRectAngle& b) {
    int c1 = a.GetLowLeft() & b, c2 = a.GetUpRight() & b;
    int c3 = a.GetLowRight() & b, c4 = a.GetUpLeft() & b;
    if (c1 == 5 && c2 == 5) {
        if (c3 == 5) return 5;
        if (InOrBoundary(c3) && InOrBoundary(c4)) return 3;
    }
    if ((c1 == 3 || (c1 == 5 && c2 != 5)) && InOrBoundary(c2) && InOrBoundary(c3) && InOrBoundary(c4)) return 3;
    for (int c : {c1, c2, c3, c4})
        if (c != 0 && c != 5) return 6;
    return 0;
}

int operator&(const XLine& line, XPoly& poly) {
    XPoint mid;
    line.MidPoint(mid);
    return Combine3(line.start & poly, mid & poly, line.end & poly);
}

int operator&(const XLine& line, XPoly2D& poly) {
    XPoint mid;
    line.MidPoint(mid);
    int s = line.start & poly, m = mid & poly, e = line.end & poly;
    PointList crossings(line.start, line.end, 0.0);
    XCurveSegment seg(1);
    int n = poly.TotalSegments();
    for (int i = 0; i < n; ++i) {
        if (poly.Nth(i, seg) != RTNORM) break;
        XPoint hit[2];
        int k = seg.Intersection(line, hit[0], hit[1]);
        for (int j = 0; j < k && j < 2; ++j) crossings.Insert(hit[j], 0);
    }
    if (crossings.Count() > 2) return 6;
    return Combine3(s, m, e);
}

int operator&(const XRectAngle& rect, XPoly2D& poly) {
    XPoint corner[4] = {rect.GetLowLeft(), rect.GetLowRight(), rect.GetUpRight(), rect.GetUpLeft()};
    int code[4];
    for (int i = 0; i < 4; ++i) code[i] = XLine(corner[i], corner[(i + 1) % 4], 1) & poly;
    int a = code[0], b = code[1], c = code[2], d = code[3];
    if (a == 5 && b == 5 && c == 5) {
        if (d == 5) return 5;
        if (d == 3) return 3;
    }
    if (InOrBoundary(a) && InOrBoundary(b) && InOrBoundary(c) && InOrBoundary(d)) return 3;
    for (int k : code)
        if (k != 0 && k != 5) return 6;
    return 0;
}

int GetRectTangle(const resbuf* pts, XPoint& center, double* w, double* h) {
    XPoint p[4];
    const resbuf* rb = pts;
    for (int i = 0; i < 4; ++i, rb = rb->rbnext) {
        if (!rb || rb->restype != RT3DPOINT) return RTERROR;
        p[i] = rb->resval.rpoint;
    }
    XLine e[4] = {XLine(p[0], p[1], 0), XLine(p[1], p[2], 0), XLine(p[2], p[3], 0), XLine(p[3], p[0], 0)};
    return RectangleOfEdges(e, center, w, h, p[0], p[2]) ? RTNORM : RTERROR;
}

int XLine::Intersection(XPoly& poly, PointList& list) const {
    XLine edge(1);
    int n = poly.Count();
    for (int i = 0; i < n; ++i) {
        poly.NthLine(i, edge);
        XPoint q;
        if (!Intersection(edge, q)) continue;
        if (AT_pt_of_line(q, start, end) == 3) list.Insert(q, 0);
    }
    return list.Count() - 2;
}
