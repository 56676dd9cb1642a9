#include "kernel/XLine.h"

#include <cmath>
#include <numbers>

#include "kernel/XArc.h"
#include "kernel/XCurveSegment.h"
#include "kernel/XPushPrec.h"
#include "kernel/matrix_routines.h"
#include "kernel/point_position.h"
#include "kernel/vector_routines.h"
#include "platform/acedads.h"
#include "platform/acutads.h"

namespace {
// Length of the defining stretch of a line given by a point and an angle.
constexpr double kDirectedLineLength = 100.0;
// Elevations of a line and a circle must agree within this; fixed, finer
// than _distSnap.
constexpr double kElevationSlack = 1e-5;
constexpr double kHalfPi = std::numbers::pi / 2.0;

bool SameBox(const XPoint& a, const XPoint& b) {
    return std::fabs(a.x - b.x) < _distSnap && std::fabs(a.y - b.y) < _distSnap &&
           std::fabs(a.z - b.z) < _distSnap;
}

// The line-circle candidates that survive the arc test (when arc is given)
// and, for a bounded line, the segment test; written a first, b second.
int FilterLineCircle(const XLine& line, const double* center, double radius, const XArc* arc, double* a,
                     double* b) {
    if (!IsEqual(kElevationSlack, 3, center[2], line.start.z, line.end.z)) return 0;
    XPoint p[2];
    if (AT_inter_line_circle(p[0], p[1], line.start, line.end, center, radius) != RTNORM) return 0;
    XPoint kept[2];
    int count = 0;
    for (const XPoint& q : p) {
        if (arc && !AT_in_arc(q, arc->center, arc->radius, arc->startAngle, arc->endAngle)) continue;
        if (line.bounded == 1) {
            int k = AT_pt_of_line(q, line.start, line.end);
            if (k < 1 || k > 3) continue;
        }
        kept[count++] = q;
    }
    if (count >= 1 && a) kept[0] > a;
    if (count == 2 && b) kept[1] > b;
    return count;
}
}  // namespace

XLine::XLine(const XPoint& p, double angle) : start(p), end(p, angle, kDirectedLineLength), bounded(0) {}

void XLine::TransUCS(double m[4][4]) {
    AT_xformpt(m, start, start);
    AT_xformpt(m, end, end);
}

void XLine::TransUCS(const resbuf* from, const resbuf* to) {
    acedTrans(start, from, to, 0, start);
    acedTrans(end, from, to, 0, end);
}

void XLine::Reverse() {
    XPoint t = start;
    start = end;
    end = t;
}

int XLine::GetExtend(XPoint& lo, XPoint& hi) const {
    lo = Min(start, end);
    hi = Max(start, end);
    return RTNORM;
}

double XLine::Length() const { return start.Distance(end); }

double XLine::PathArea() const { return (start.y + end.y) * (end.x - start.x) / 2.0; }

void XLine::SetPoints(const XPoint& a, const XPoint& b) {
    start = a;
    end = b;
}

void XLine::SetElevation(double z) {
    start.z = z;
    end.z = z;
}

double* XLine::NearPoint(const double* p) {
    return acutDistance(start, p) <= acutDistance(end, p) ? &start.x : &end.x;
}

double* XLine::FarPoint(const double* p) {
    return acutDistance(start, p) >= acutDistance(end, p) ? &start.x : &end.x;
}

void XLine::MidPoint(XPoint& out) const { out = XPoint((start.x + end.x) / 2, (start.y + end.y) / 2, (start.z + end.z) / 2); }

double XLine::Direction() const { return acutAngle(start, end); }

bool XLine::operator==(const XLine& other) const {
    if (bounded != other.bounded) return false;
    return (SameBox(start, other.start) && SameBox(end, other.end)) ||
           (SameBox(start, other.end) && SameBox(end, other.start));
}

int XLine::operator!() const {
    return std::fabs(end.x - start.x) < _distSnap && std::fabs(end.y - start.y) < _distSnap &&
           std::fabs(end.z - start.z) < _distSnap;
}

// The carriers meet in the plane; the point takes this line's start z. The
// parallel test is on the unnormalised determinant, so long near-parallel
// lines may pass it where short ones fail.
int XLine::Intersection(const XLine& other, double* out) const {
    if (std::fabs(start.z - end.z) > _distSnap) return 0;
    const XPoint &a = start, &b = end, &c = other.start, &d = other.end;
    double det = (c.x - d.x) * (b.y - a.y) - (d.y - c.y) * (a.x - b.x);
    if (std::fabs(det) < _distSnap * _distSnap) return 0;
    double p = a.y * b.x - a.x * b.y;
    double q = c.y * d.x - c.x * d.y;
    XPoint r((q * (a.x - b.x) - (c.x - d.x) * p) / det, ((d.y - c.y) * p - q * (b.y - a.y)) / det, a.z);
    if ((bounded & 1) && AT_pt_of_line(r, start, end) == 4) return 0;
    if ((other.bounded & 1) && AT_pt_of_line(r, other.start, other.end) == 4) return 0;
    if (out) r > out;
    return 1;
}

int XLine::Intersection(const XArc& arc, double* a, double* b) const {
    return FilterLineCircle(*this, arc.center, arc.radius, &arc, a, b);
}

int XLine::Intersection(const XCircle& circle, double* a, double* b) const {
    return FilterLineCircle(*this, circle.center, circle.radius, nullptr, a, b);
}

XLine XLine::Offset(double d) const {
    double a = CT_std_angle(Direction() - kHalfPi);
    XLine r(0);
    acutPolar(start, a, d, r.start);
    acutPolar(end, a, d, r.end);
    return r;
}

int XLine::GetSubLine(const XPoint& p, double len, XLine& out) const {
    double dir = Direction();
    acutPolar(p, dir - std::numbers::pi, len / 2.0, out.start);
    acutPolar(p, dir, len / 2.0, out.end);
    int ks = AT_pt_of_line(out.start, start, end);
    int ke = AT_pt_of_line(out.end, start, end);
    if (ks >= 1 && ks <= 3 && ke >= 1 && ke <= 3) return RTNORM;
    if (ks == 4 && ke == 4 && bounded == 0) return RTNORM;
    return RTERROR;
}

int XLine::OSnap(int mode, XPoint& pt) const {
    switch (mode) {
    case 1:
        pt = acutDistance(start, pt) < acutDistance(end, pt) ? start : end;
        return mode;
    case 2:
        MidPoint(pt);
        return mode;
    case 512: {
        XPoint foot;
        if (pt.Project(*this, foot) != RTNORM) return 0;
        pt = foot;
        return mode;
    }
    default:
        return 0;
    }
}

int XLine::OnWhichSide(const XPoint& p) const {
    XCurveSegment s(start, end, 0.0, bounded);
    return s.OnWhichSide(p);
}
