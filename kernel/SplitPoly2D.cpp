// Cutting bulge polylines.
#include "kernel/SplitPoly2D.h"

#include <cmath>
#include <numbers>

#include "kernel/XArc.h"
#include "kernel/XDirectionCurve.h"
#include "kernel/XPoly2D.h"
#include "kernel/XPushPrec.h"
#include "platform/acutads.h"
#include "platform/dbents.h"

namespace {
constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr double kLineAngle = 1e-6;
// Sweeps this far below zero wrap by a whole turn.
constexpr double kWrap = -1e-6;

struct Cut {
    int segment = -1;
    double distance = -1.0;   // unset
    XPoint at;
};

// The included angle of the part of c from `from` to `to`.
double StretchAngle(const XDirectionCurve& c, const XPoint& from, const XPoint& to) {
    if (std::fabs(c.angle) < kLineAngle) return 0.0;
    if (!c.IsMinusArc()) {
        XCurveSegment s(c.start, c.end, c.angle, 1);
        s.SetPoints(from, to);
        return s.angle;
    }
    XPoint center = c.GetArc().center;
    double sweep = acutAngle(center, from) - acutAngle(center, to);
    return -(sweep < kWrap ? sweep + kTwoPi : sweep);
}

// The nodes of segments first .. last (indices taken modulo the count),
// from `from` on segment first to `to` on segment last; (to, 0) ends them.
void AppendRun(const XPoly2D& p, int first, int last, const XPoint& from, const XPoint& to, XPoly2D& out) {
    int n = p.TotalSegments();
    XDirectionCurve c(1);
    for (int i = first; i <= last; ++i) {
        p.Nth(DePeriod(n, i), c);
        if (i == first && i == last) {
            out.AppendNode(from, StretchAngle(c, from, to));
        } else if (i == first) {
            if (acutDistance(from, c.end) >= _distSnap) out.AppendNode(from, StretchAngle(c, from, c.end));
        } else if (i == last) {
            if (acutDistance(to, c.start) >= _distSnap) out.AppendNode(c.start, StretchAngle(c, c.start, to));
        } else {
            out.AppendNode(c.start, c.angle);
        }
    }
    out.AppendNode(to, 0.0);
}
}  // namespace

int DePeriod(int n, int i) {
    if (n <= 0) return i;
    i %= n;
    return i < 0 ? i + n : i;
}

int SplitPoly2D(const XPoly2D& p, const XPoint& a, const XPoint& b, XPoly2D& out1, XPoly2D& out2) {
    Cut cuts[2];
    const XPoint* pts[2] = {&a, &b};
    int n = p.TotalSegments();
    XCurveSegment s(1);
    for (int i = 0; i < n; ++i) {
        if (p.Nth(i, s) != RTNORM) continue;
        s.bounded = 1;
        for (int k = 0; k < 2; ++k) {
            XPoint q;
            if (s.ProjectToMe(*pts[k], q) != RTNORM) continue;
            int where = q & s;
            if (where < 1 || where > 3) continue;
            double dist = acutDistance(*pts[k], q);
            if (cuts[k].distance >= 0.0 && !(dist < cuts[k].distance)) continue;   // only a strictly nearer one
            cuts[k] = {i, dist, q};
        }
    }
    if (cuts[0].segment < 0 || cuts[1].segment < 0) return RTERROR;
    // The lower segment first; on one segment b's cut leads.
    const Cut& lo = cuts[0].segment < cuts[1].segment ? cuts[0] : cuts[1];
    const Cut& hi = cuts[0].segment < cuts[1].segment ? cuts[1] : cuts[0];
    out1.Reset();
    out1.closed = 0;
    out2.Reset();
    out2.closed = 0;
    AppendRun(p, lo.segment, hi.segment, lo.at, hi.at, out1);
    AppendRun(p, hi.segment, lo.segment + n, hi.at, lo.at, out2);
    return RTNORM;
}

void SplitPoly2D(const XPoly2D& p, AcArray<void*>& out) {
    int n = p.TotalSegments();
    XCurveSegment s(1);
    for (int i = 0; i < n; ++i) {
        if (p.Nth(i, s) != RTNORM) continue;
        if (s.Is(CurveLine)) {
            out.append(new AcDbLine(s.start, s.end));
        } else if (s.Is(CurveArc)) {
            XArc arc = s.GetArc();
            out.append(new AcDbArc(arc.center, arc.radius, arc.startAngle, arc.endAngle));
        }
    }
}
