#include "kernel/XArc.h"

#include <cmath>
#include <numbers>

#include "kernel/XLine.h"
#include "kernel/XPushPrec.h"
#include "kernel/matrix_routines.h"
#include "kernel/point_position.h"
#include "kernel/vector_routines.h"
#include "platform/acutads.h"

namespace {
constexpr double kPi = std::numbers::pi;
constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr double kElevationSlack = 1e-5;
}  // namespace

XArc::XArc(const XPoint& a, const XPoint& b, double angle) {
    double h = acutDistance(a, b) / 2.0;
    double t = std::fabs(angle) / 2.0;
    double r = h / std::sin(t);
    double e = std::fabs(r * std::cos(t));
    XPoint m((a.x + b.x) / 2, (a.y + b.y) / 2, (a.z + b.z) / 2);
    double g = acutAngle(a, b);
    XPoint right(m, g - kPi / 2.0, e), left(m, g + kPi / 2.0, e);
    radius = r;
    if (angle > 0.0) {
        center = angle <= kPi ? left : right;
        startAngle = acutAngle(center, a);
        endAngle = acutAngle(center, b);
    } else {
        center = -angle <= kPi ? right : left;
        startAngle = acutAngle(center, b);
        endAngle = acutAngle(center, a);
    }
}

XArc::XArc(const XPoint& a, const XPoint& m, const XPoint& b) : XCircle(a, m, b) {
    if (radius < _distSnap) return;
    startAngle = acutAngle(center, a);
    endAngle = acutAngle(center, b);
    if (AT_in_arc(m, center, radius, startAngle, endAngle) != 3) {
        double t = startAngle;
        startAngle = endAngle;
        endAngle = t;
    }
}

XArc& XArc::operator=(const XSector& sector) {
    XSector::operator=(sector);
    return *this;
}

int XArc::Intersection(const XCircle& other, double* a, double* b) const { return other.Intersection(*this, a, b); }

int XArc::Intersection(const XArc& other, double* a, double* b) const {
    if (!IsEqual(kElevationSlack, 2, other.center.z, center.z)) return 0;
    XPoint p[2];
    if (AT_inter_circle_circle(p[0], p[1], center, radius, other.center, other.radius) != RTNORM) return 0;
    XPoint kept[2];
    int count = 0;
    for (const XPoint& q : p) {
        if (!AT_in_arc(q, other.center, other.radius, other.startAngle, other.endAngle)) continue;
        if (!AT_in_arc(q, center, radius, startAngle, endAngle)) continue;
        kept[count++] = q;
    }
    if (count >= 1 && a) kept[0] > a;
    if (count == 2 && b) kept[1] > b;
    return count;
}

int XArc::Intersection(const XLine& line, double* a, double* b) const { return line.Intersection(*this, a, b); }

int XArc::GetExtend(double* lo, double* hi) const {
    if (radius < _distSnap) return XCircle::GetExtend(lo, hi);
    XPoint s, e;
    GetPoints(s, e);
    XPoint l = Min(s, e), h = Max(s, e);
    const double axis[4][2] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
    for (const auto& d : axis) {
        XPoint q(center.x + d[0] * radius, center.y + d[1] * radius, center.z);
        if (AT_in_arc(q, center, radius, startAngle, endAngle) != 3) continue;
        l = Min(l, q);
        h = Max(h, q);
    }
    l.z = h.z = center.z;
    l > lo;
    h > hi;
    return RTNORM;
}

int XArc::GetSubArc(const XPoint& p, double chord, XArc& out) const {
    int r = XCircle::GetSubArc(p, chord, out);
    if (r != RTNORM) return r;
    if (!AngleFlag(out.startAngle) || !AngleFlag(out.endAngle)) return RTERROR;
    return RTNORM;
}

double XArc::Length() const { return Bulge() * radius; }

double XArc::ChordLength() const { return std::fabs(2.0 * radius * std::sin(Bulge() / 2.0)); }

double XArc::Area() const { return CT_std_angle(endAngle - startAngle) * radius * radius / 2.0; }

double XArc::PathArea() const {
    double s = startAngle, e = endAngle, a;
    if (e >= s) a = e - std::sin(2 * e) / 2 - s + std::sin(2 * s) / 2;
    else a = std::sin(2 * s) / 2 + (kTwoPi - s) + e - std::sin(2 * e) / 2;
    return -a * radius * radius / 2.0 + (std::cos(e) - std::cos(s)) * center.y * radius;
}

int XArc::operator!() const { return radius < _distSnap || Bulge() < _angSnap; }

bool XArc::operator==(const XArc& other) const {
    return XCircle::operator==(other) && std::fabs(startAngle - other.startAngle) < _angSnap &&
           std::fabs(endAngle - other.endAngle) < _angSnap;
}

void XArc::MidPoint(XPoint& out) const { acutPolar(center, MidAngle(), radius, out); }

void XArc::GetPoints(XPoint& a, XPoint& b) const {
    acutPolar(center, startAngle, radius, a);
    acutPolar(center, endAngle, radius, b);
}

void XArc::SetPoints(const XPoint& a, const XPoint& b) {
    startAngle = acutAngle(center, a);
    endAngle = acutAngle(center, b);
}

XArc XArc::Offset(double d) const {
    XArc r = *this;
    r.radius = radius + d;
    if (r.radius < _distSnap) r.radius = 0.0;
    return r;
}

double XArc::IDirection(int which) const {
    return which == 0 ? CT_std_angle(startAngle + kPi / 2.0) : CT_std_angle(endAngle - kPi / 2.0);
}

double XArc::ODirection(int which) const {
    return CT_std_angle(IDirection(which) + kPi);
}

double* XArc::SelectNear(double* a, double* b) const {
    XPoint s, e;
    GetPoints(s, e);
    double da = std::fmin(acutDistance(a, s), acutDistance(a, e));
    double db = std::fmin(acutDistance(b, s), acutDistance(b, e));
    return da >= db ? b : a;
}

int XArc::OSnap(int mode, XPoint& pt) const {
    if (mode == 1) {
        XPoint s, e;
        GetPoints(s, e);
        pt = acutDistance(s, pt) < acutDistance(e, pt) ? s : e;
        return mode;
    }
    if (mode == 2) {
        MidPoint(pt);
        return mode;
    }
    return XCircle::OSnap(mode, pt);
}

// Through three transformed points, so that a mirror keeps the arc's points.
void XArc::TransUCS(double m[4][4]) {
    XPoint s, e, mid;
    GetPoints(s, e);
    MidPoint(mid);
    AT_xformpt(m, s, s);
    AT_xformpt(m, e, e);
    AT_xformpt(m, mid, mid);
    *this = XArc(s, mid, e);
}
