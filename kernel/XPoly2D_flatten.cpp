// Turning a bulge polyline into straight points.
#include <cmath>
#include <numbers>

#include "kernel/XArc.h"
#include "kernel/XLine.h"
#include "kernel/XPoly.h"
#include "kernel/XPoly2D.h"
#include "kernel/XPushPrec.h"
#include "platform/acutads.h"

namespace {
constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr double kStraight = 1e-6;
// A relative sagitta this small means dev reaches the radius.
constexpr double kFlatCircle = 1e-6;
constexpr int kMaxCircleDivisions = 200;
// The sweep of an arc rebuilt from its ends may miss an exact fraction of a
// turn by a rounding step; this keeps a quarter circle at n / 4 steps.
constexpr double kStepRounding = 1e-9;

int StepsFor(int perCircle, double sweep) {
    int steps = static_cast<int>(perCircle * sweep / kTwoPi + kStepRounding);
    return steps < 1 ? 1 : steps;
}
}  // namespace

int GetCirDivNum(double r, double dev) {
    double c = 1.0 - dev / r;
    if (c < kFlatCircle) return 1;
    double n = std::numbers::pi / std::acos(std::fmin(1.0, c)) + 0.5;
    if (!(n < kMaxCircleDivisions)) return kMaxCircleDivisions;   // also NaN and dev <= 0
    int k = static_cast<int>(n);
    return k < 1 ? 1 : k;
}

// open: the list ends where the curve ends, a closed source repeating its
// first point; otherwise the polygon is implicitly closed and each arc's far
// end is left to the next node.
int XPoly2D::Flatten(XPoly& out, bool open, int n, double dev, bool byDeviation) const {
    out.RemoveAll();
    int count = Count();
    XLine line(1);
    XArc arc;
    int i = 0;
    for (Node* nd = HeadNode(); nd; nd = nd->next, ++i) {
        double angle = Angle(i);
        bool last = i == count - 1;
        if (std::fabs(angle) < kStraight) {
            out.AppendPoint(*nd->item);
            if (open && last && IsClosed()) out.AppendPoint(*First());
            continue;
        }
        if (!IsValid(i)) {
            if (open) out.AppendPoint(*nd->item);
            break;
        }
        if (Nth(i, line, arc) != 5102) {
            out.AppendPoint(*nd->item);
            continue;
        }
        double sweep = arc.Bulge();
        if (byDeviation && !open && (arc.radius < _distSnap || sweep < _angSnap)) continue;
        int steps = StepsFor(byDeviation ? GetCirDivNum(arc.radius, dev) : n, sweep);
        double step = sweep / steps;
        int writes = (open && last && IsClosed()) ? steps + 1 : steps;
        for (int k = 0; k < writes; ++k) {
            double t = angle > 0.0 ? arc.startAngle + k * step : arc.endAngle - k * step;
            XPoint p;
            acutPolar(arc.center, t, arc.radius, p);
            out.AppendPoint(p);
        }
    }
    return RTNORM;
}

int XPoly2D::MapToPolygon(XPoly& out, int n) const { return Flatten(out, false, n, 0.0, false); }
int XPoly2D::MapToPolygon1(XPoly& out, double dev) const { return Flatten(out, false, 0, dev, true); }
int XPoly2D::AsOpenPoly(XPoly& out, int n) const { return Flatten(out, true, n, 0.0, false); }
int XPoly2D::AsOpenPoly1(XPoly& out, double dev) const { return Flatten(out, true, 0, dev, true); }

namespace {
// The flattened points as straight nodes; a closed source's repeated first
// point is left out.
void AppendStraight(const XPoly& poly, bool closedSource, XPoly2D& out) {
    int keep = poly.Count() - (closedSource && poly.Count() > 0 ? 1 : 0);
    int i = 0;
    for (auto* nd = poly.HeadNode(); nd && i < keep; nd = nd->next, ++i) out.AppendNode(*nd->item, 0.0);
}
}  // namespace

void XPoly2D::Disperse(XPoly2D& out, int n) const {
    XPoly poly;
    AsOpenPoly(poly, n);
    AppendStraight(poly, IsClosed(), out);
    out.closed = closed;
}

void XPoly2D::Disperse1(XPoly2D& out, double dev) const {
    XPoly poly;
    AsOpenPoly1(poly, dev);
    AppendStraight(poly, IsClosed(), out);
    out.closed = closed;
}

resbuf* XPoly2D::Fence(int n) const {
    XPoly poly;
    if (MapToPolygon(poly, n) != RTNORM) return nullptr;
    return poly.Fence();
}

resbuf* XPoly2D::Polygon(int n) const {
    XPoly poly;
    if (MapToPolygon(poly, n) != RTNORM) return nullptr;
    return poly.Polygon();
}

int XPoly2D::CreatePface(int n, const char* layer) const {
    XPoly poly;
    MapToPolygon(poly, n);
    poly.CreatePface(layer);
    return RTNORM;
}
