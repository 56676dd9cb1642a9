#include "kernel/XCircle.h"

#include <cmath>
#include <numbers>

#include "kernel/XArc.h"
#include "kernel/XLine.h"
#include "kernel/XPushPrec.h"
#include "kernel/matrix_routines.h"
#include "kernel/point_position.h"
#include "kernel/vector_routines.h"
#include "platform/acutads.h"

namespace {
// Elevations of two circles must agree within this; fixed, not _distSnap.
constexpr double kElevationSlack = 1e-5;

XLine Bisector(const XPoint& p, const XPoint& q) {
    XPoint mid((p.x + q.x) / 2, (p.y + q.y) / 2, (p.z + q.z) / 2);
    return XLine(mid, acutAngle(p, q) + std::numbers::pi / 2.0);
}
}  // namespace

XCircle::XCircle(const double* a, const double* b)
    : center((a[0] + b[0]) / 2, (a[1] + b[1]) / 2, (a[2] + b[2]) / 2), radius(acutDistance(a, b) / 2) {}

XCircle::XCircle(const XPoint& a, const XPoint& b, const XPoint& c) : radius(0.0) {
    XLine ac = Bisector(a, c), ab = Bisector(a, b);
    XPoint p;
    if (!ac.Intersection(ab, p)) return;
    center = p;
    radius = acutDistance(center, a);
}

void XCircle::Center(double pt[3]) { center > pt; }

int XCircle::Intersection(const XCircle& other, double* a, double* b) const {
    if (!IsEqual(kElevationSlack, 2, other.center.z, center.z)) return 0;
    XPoint p, q;
    if (AT_inter_circle_circle(p, q, center, radius, other.center, other.radius) != RTNORM) return 0;
    if (a) p > a;
    if (b) q > b;
    return 2;
}

int XCircle::Intersection(const XArc& arc, double* a, double* b) const {
    XPoint p[2];
    if (AT_inter_circle_circle(p[0], p[1], center, radius, arc.center, arc.radius) != RTNORM) return 0;
    XPoint kept[2];
    int count = 0;
    for (const XPoint& q : p)
        if (AT_in_arc(q, arc.center, arc.radius, arc.startAngle, arc.endAngle)) kept[count++] = q;
    if (count >= 1 && a) kept[0] > a;
    if (count == 2 && b) kept[1] > b;
    return count;
}

int XCircle::Intersection(const XLine& line, double* a, double* b) const { return line.Intersection(*this, a, b); }

int XCircle::GetExtend(double* lo, double* hi) const {
    lo[0] = center.x - radius;
    lo[1] = center.y - radius;
    lo[2] = center.z;
    hi[0] = center.x + radius;
    hi[1] = center.y + radius;
    hi[2] = center.z;
    return RTNORM;
}

int XCircle::GetSubArc(const XPoint& p, double chord, XArc& out) const {
    if (radius < _distSnap || 2.0 * radius < chord) return RTERROR;
    if (std::fabs(acutDistance(p, center) - radius) >= _distSnap) return RTERROR;
    double h = std::asin(std::fmax(-1.0, std::fmin(1.0, chord / 2.0 / radius)));
    double g = acutAngle(center, p);
    out.center = center;
    out.radius = radius;
    out.startAngle = CT_std_angle(g - h);
    out.endAngle = CT_std_angle(g + h);
    return RTNORM;
}

double XCircle::Length() const { return 2.0 * std::numbers::pi * radius; }

double XCircle::Area() const { return std::numbers::pi * radius * radius; }

int XCircle::operator!() const { return radius < _distSnap; }

bool XCircle::operator==(const XCircle& other) const {
    return std::fabs(center.x - other.center.x) < _distSnap && std::fabs(center.y - other.center.y) < _distSnap &&
           std::fabs(center.z - other.center.z) < _distSnap && std::fabs(radius - other.radius) < _distSnap;
}

XCircle XCircle::Offset(double) const { return *this; }

void XCircle::TransUCS(double m[4][4]) {
    XPoint rim(center.x + radius, center.y, center.z);
    AT_xformpt(m, center, center);
    AT_xformpt(m, rim, rim);
    rim.z = center.z;
    radius = acutDistance(center, rim);
}

int XCircle::OSnap(int mode, XPoint& pt) const {
    if (mode == 4) {
        pt = center;
        return mode;
    }
    if (mode == 512) {
        XPoint q;
        if (pt.Project(*this, q) != RTNORM) return 0;
        pt = q;
        return mode;
    }
    return 0;
}
