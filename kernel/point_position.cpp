#include "kernel/point_position.h"

#include <cmath>
#include <numbers>

#include "kernel/XPushPrec.h"
#include "kernel/vector_routines.h"
#include "platform/acutads.h"

namespace {
// A cosine this close to +-1 is exactly 0 or pi in the point-line distance.
constexpr double kDistCosSnap = 1e-8;
// Slack of the line-circle and circle-circle tests; fixed, not _distSnap.
constexpr double kCircleSlack = 1e-5;

double Dist(const double* a, const double* b) {
    double dx = b[0] - a[0], dy = b[1] - a[1], dz = b[2] - a[2];
    return std::sqrt(dx * dx + dy * dy + dz * dz);
}

bool Near3(const double* u) {
    return std::fabs(u[0]) <= _distSnap && std::fabs(u[1]) <= _distSnap && std::fabs(u[2]) <= _distSnap;
}
}  // namespace

double AT_dist_pt_line(const double* p, const double* a, const double* b) {
    double d1 = Dist(p, a), d2 = Dist(a, b);
    if (d1 <= _distSnap) return 0.0;
    if (d2 <= _distSnap) return -1.0;
    // The cosine of the angle at a. The law of cosines, (d2^2 + d1^2 - d3^2)
    // / (2 d1 d2), equals this dot product form, which keeps its precision
    // when the line is far longer than the distance from p to a (a ray).
    double u[3], v[3];
    CT_Vector(a, p, u);
    CT_Vector(a, b, v);
    double c = (u[0] * v[0] + u[1] * v[1] + u[2] * v[2]) / (d1 * d2);
    double angle;
    if (std::fabs(c - 1.0) < kDistCosSnap) angle = 0.0;
    else if (std::fabs(c + 1.0) < kDistCosSnap) angle = std::numbers::pi;
    else angle = std::acos(std::fmax(-1.0, std::fmin(1.0, c)));
    return std::fabs(d1 * std::sin(angle));
}

int AT_in_line(const double* p, const double* a, const double* b) {
    if (AT_dist_pt_line(p, a, b) > _distSnap) return 0;
    double u[3], v[3];
    CT_Vector(p, a, u);
    CT_Vector(p, b, v);
    if (Near3(u)) return 1;
    if (Near3(v)) return 2;
    double g = CT_VectorAngle(u, v);
    if (std::fabs(g) < _angSnap) return 4;
    if (std::fabs(g - std::numbers::pi) < _angSnap) return 3;
    return 0;
}

int AT_pt_of_line(const double* p, const double* a, const double* b) { return AT_in_line(p, a, b); }

int AT_in_arc(const double* p, const double* c, double r, double a1, double a2) {
    double ang = acutAngle(c, p), d = acutDistance(c, p);
    if (std::fabs(d - r) > _distSnap) return 0;
    double s[3], e[3];
    acutPolar(c, a1, r, s);
    acutPolar(c, a2, r, e);
    if (std::fabs(p[0] - s[0]) < _distSnap && std::fabs(p[1] - s[1]) < _distSnap) return 1;
    if (std::fabs(p[0] - e[0]) < _distSnap && std::fabs(p[1] - e[1]) < _distSnap) return 2;
    if (a1 < a2) return (ang > a1 && ang < a2) ? 3 : 0;
    return (ang > a1 || ang < a2) ? 3 : 0;
}

int AT_inter_line_circle(double* a, double* b, const double* p1, const double* p2, const double* c,
                         double r) {
    if (AT_dist_pt_line(c, p1, p2) > r + kCircleSlack) return RTERROR;
    double dx = p2[0] - p1[0];
    if (std::fabs(dx) <= _distSnap) {
        double x = (p1[0] + p2[0]) / 2.0;
        double h = r * r - (x - c[0]) * (x - c[0]);
        if (h < kCircleSlack) h = 0.0;
        double s = std::sqrt(h);
        a[0] = x;
        a[1] = c[1] + s;
        b[0] = x;
        b[1] = c[1] - s;
    } else {
        double m = (p2[1] - p1[1]) / dx;
        double k = p1[1] - c[1] - p1[0] * m;
        double bq = 2.0 * c[0] - 2.0 * k * m;
        double aq = m * m + 1.0;
        double disc = bq * bq - 4.0 * aq * (c[0] * c[0] - r * r + k * k);
        if (std::fabs(disc) < kCircleSlack) disc = 0.0;
        else if (disc < -kCircleSlack) return RTERROR;
        double s = std::sqrt(disc);
        a[0] = (bq + s) / (2.0 * aq);
        b[0] = (bq - s) / (2.0 * aq);
        a[1] = (a[0] - p1[0]) * m + p1[1];
        b[1] = (b[0] - p1[0]) * m + p1[1];
    }
    a[2] = c[2];
    b[2] = c[2];
    return RTNORM;
}

int AT_inter_circle_circle(double* a, double* b, const double* c1, double r1, const double* c2,
                           double r2) {
    double d = acutDistance(c1, c2);
    if (d >= r1 + r2 + kCircleSlack) return RTERROR;
    // Two points of the smaller circle on the line of centres: both inside
    // the other circle (or on it) means no crossing.
    bool firstSmall = r1 <= r2;
    const double* cs = firstSmall ? c1 : c2;
    const double* cb = firstSmall ? c2 : c1;
    double rs = firstSmall ? r1 : r2, rb = firstSmall ? r2 : r1;
    double g0 = acutAngle(cs, cb), q1[3], q2[3];
    acutPolar(cs, g0, rs, q1);
    acutPolar(cs, g0 + std::numbers::pi, rs, q2);
    if (acutDistance(q1, cb) < rb + _distSnap && acutDistance(q2, cb) < rb + _distSnap) return RTERROR;
    if (d == 0.0 || r2 == 0.0) return RTERROR;
    double cosT = (d * d + r2 * r2 - r1 * r1) / (2.0 * d * r2);
    double t = std::acos(std::fmax(-1.0, std::fmin(1.0, cosT)));
    double g = acutAngle(c2, c1);
    acutPolar(c2, CT_std_angle(g + t), r2, a);
    acutPolar(c2, CT_std_angle(g - t), r2, b);
    return RTNORM;
}
