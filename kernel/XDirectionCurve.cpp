#include "kernel/XDirectionCurve.h"

#include <cmath>
#include <numbers>

#include "kernel/XPoly2D.h"
#include "kernel/XPushPrec.h"
#include "kernel/matrix_routines.h"
#include "kernel/vector_routines.h"
#include "platform/acedads.h"
#include "platform/acutads.h"

namespace {
constexpr double kPi = std::numbers::pi;
// Below this the angle runs clockwise.
constexpr double kMinusArc = -1e-8;
constexpr double kLineAngle = 1e-6;
// The handedness probe: the images of two axes 3 pi / 2 apart mean a mirror.
constexpr double kProbeLength = 1000.0;
constexpr double kMirrorTurn = 4.71238898038469;
}  // namespace

XDirectionCurve::XDirectionCurve(const XArc& arc, int reverse) : XCurveSegment(1) {
    arc.GetPoints(start, end);
    angle = arc.Bulge();
    if (reverse) {
        XLine::Reverse();
        angle = -angle;
    }
}

int XDirectionCurve::IsMinusArc() const { return angle < kMinusArc; }

XCurveSegment XDirectionCurve::GetCurve() const {
    if (!IsMinusArc()) return XCurveSegment(start, end, angle, bounded);
    return XCurveSegment(end, start, -angle, 1);
}

XArc XDirectionCurve::GetArc() const {
    if (!IsMinusArc()) return XArc(start, end, angle);
    return XArc(end, start, std::fabs(angle));
}

void XDirectionCurve::Reverse() {
    XLine::Reverse();
    angle = -angle;
}

void XDirectionCurve::FlipOnMirror(const double o[3], const double x[3], const double y[3]) {
    double turn = CT_std_angle(acutAngle(o, y) - acutAngle(o, x));
    if (std::fabs(turn - kMirrorTurn) < _angSnap) angle = -angle;
}

void XDirectionCurve::TransUCS(double m[4][4]) {
    XLine::TransUCS(m);
    double o[3] = {0, 0, 0}, x[3] = {kProbeLength, 0, 0}, y[3] = {0, kProbeLength, 0};
    AT_xformpt(m, o, o);
    AT_xformpt(m, x, x);
    AT_xformpt(m, y, y);
    FlipOnMirror(o, x, y);
}

void XDirectionCurve::TransUCS(const resbuf* from, const resbuf* to) {
    XLine::TransUCS(from, to);
    double o[3] = {0, 0, 0}, x[3] = {kProbeLength, 0, 0}, y[3] = {0, kProbeLength, 0};
    acedTrans(o, from, to, 0, o);
    acedTrans(x, from, to, 0, x);
    acedTrans(y, from, to, 0, y);
    FlipOnMirror(o, x, y);
}

int XDirectionCurve::OnWhichSide(const XPoint& p) const {
    if (!IsMinusArc()) return XCurveSegment::OnWhichSide(p);
    return 1 - GetCurve().OnWhichSide(p);
}

double XDirectionCurve::PathArea(XPoint& p) const {
    if (!IsMinusArc()) return XCurveSegment::PathArea(p);
    return -GetCurve().PathArea(p);
}

double XDirectionCurve::IDirection(int which) const {
    if (!IsMinusArc()) return XCurveSegment::IDirection(which);
    return GetCurve().IDirection(1 - which);
}

// For a minus arc a plain sign change, not a turn by pi: callers expect it.
double XDirectionCurve::Direction(const XPoint& p) const {
    if (!IsMinusArc()) return XCurveSegment::Direction(p);
    return -GetCurve().Direction(p);
}

double XDirectionCurve::OrthoDirection(const XPoint& p) const {
    if (!IsMinusArc()) return XCurveSegment::OrthoDirection(p);
    return CT_std_angle(GetCurve().OrthoDirection(p) + kPi);
}

int XDirectionCurve::AsPoly2D(XPoly2D& out) const {
    if (!IsMinusArc()) return XCurveSegment::AsPoly2D(out);
    int r = GetCurve().AsPoly2D(out);
    out.Reverse();
    return r;
}

int XDirectionCurve::Polar(double dist, XPointDir2d& out, int fromStart) const {
    if (!IsMinusArc()) return XCurveSegment::Polar(dist, out, fromStart);
    return GetCurve().Polar(dist, out, fromStart ? 0 : 1);
}

double XDirectionCurve::PathDistance(const XPoint& p, int fromStart) const {
    if (!IsMinusArc()) return XCurveSegment::PathDistance(p, fromStart);
    return GetCurve().PathDistance(p, fromStart ? 0 : 1);
}

void XDirectionCurve::SetPoints(const XPoint& a, const XPoint& b) {
    if (!IsMinusArc()) {
        XCurveSegment::SetPoints(a, b);
        return;
    }
    XCurveSegment n = GetCurve();
    n.SetPoints(b, a);
    start = n.start;
    end = n.end;
    angle = -n.angle;
}

XDirectionCurve XDirectionCurve::Offset(double d, int isBounded) const {
    if (std::fabs(angle) < kLineAngle) {
        double a = acutAngle(start, end) - kPi / 2.0;
        XDirectionCurve r(start, end, 0.0, isBounded);
        acutPolar(start, a, d, r.start);
        acutPolar(end, a, d, r.end);
        return r;
    }
    XArc arc = GetArc();
    int minus = IsMinusArc();
    double radius = minus ? arc.radius - d : arc.radius + d;
    if (radius < _distSnap) return XDirectionCurve(1);
    arc.radius = radius;
    XDirectionCurve r(arc, minus);
    r.bounded = isBounded;
    return r;
}
