#include "kernel/XPoint.h"

#include <cmath>
#include <cstdarg>

#include "kernel/XCircle.h"
#include "kernel/XLine.h"
#include "kernel/XPushPrec.h"
#include "kernel/matrix_routines.h"
#include "kernel/point_position.h"
#include "kernel/vector_routines.h"
#include "platform/acutads.h"

namespace {
// A point this close to the origin on every axis is the origin for operator!.
constexpr double kNullPoint = 1e-6;

bool AtOrigin(const XPoint& p) {
    return std::fabs(p.x) < _distSnap && std::fabs(p.y) < _distSnap && std::fabs(p.z) < _distSnap;
}
}  // namespace

XPoint::XPoint(const XPoint& base, double angle, double dist) {
    acutPolar(base, angle, dist, &x);
}

XPoint& XPoint::operator=(const AcGePoint3d& p) {
    x = p.x;
    y = p.y;
    z = p.z;
    return *this;
}

XPoint& XPoint::operator=(const AcGePoint2d& p) {
    x = p.x;
    y = p.y;
    z = 0.0;
    return *this;
}

XPoint& XPoint::operator=(const double* p) {
    double c[3] = {p[0], p[1], p[2]};
    x = c[0];
    y = c[1];
    z = c[2];
    return *this;
}

void XPoint::operator>(double* out) const {
    out[0] = x;
    out[1] = y;
    out[2] = z;
}

XPoint& XPoint::operator+=(const XPoint& p) {
    x += p.x;
    y += p.y;
    z += p.z;
    return *this;
}

XPoint& XPoint::operator-=(const XPoint& p) {
    x -= p.x;
    y -= p.y;
    z -= p.z;
    return *this;
}

XPoint& XPoint::operator*=(double s) {
    x *= s;
    y *= s;
    z *= s;
    return *this;
}

XPoint& XPoint::operator/=(double s) {
    x /= s;
    y /= s;
    z /= s;
    return *this;
}

bool XPoint::operator==(const XPoint& p) const {
    return std::fabs(x - p.x) < _distSnap && std::fabs(y - p.y) < _distSnap && std::fabs(z - p.z) < _distSnap;
}

bool XPoint::operator==(const double* p) const { return acutDistance(&x, p) < _distSnap; }

int XPoint::operator!() const {
    return std::fabs(x) < kNullPoint && std::fabs(y) < kNullPoint && std::fabs(z) < kNullPoint;
}

double XPoint::Distance2d(const XPoint& p) const { return std::hypot(p.x - x, p.y - y); }

double XPoint::Distance(const XPoint& p) const { return acutDistance(&x, &p.x); }

double XPoint::Distance(const XLine& line) const { return AT_dist_pt_line(&x, line.start, line.end); }

double XPoint::Length() const { return std::sqrt(x * x + y * y + z * z); }

XPoint XPoint::TransformAs(double m[4][4]) const {
    XPoint r;
    AT_xformpt(m, &x, &r.x);
    return r;
}

void XPoint::TransformBy(double m[4][4]) { AT_xformpt(m, &x, &x); }

void XPoint::Mirror(const double* c, double* out) const {
    for (int i = 0; i < 3; ++i) out[i] = 2.0 * (&x)[i] - c[i];
}

void XPoint::Mirror(const XPoint& c, XPoint& out) const { Mirror(&c.x, &out.x); }

void XPoint::Rotate(double angle) {
    double c = std::cos(angle), s = std::sin(angle);
    double nx = x * c - y * s;
    y = x * s + y * c;
    x = nx;
}

void XPoint::Reverse() {
    x = -x;
    y = -y;
    z = -z;
}

// The plane through this point normal to the line, cut with the line: the
// normal is the line's own direction, so the one-sided plane test passes.
int XPoint::Project(const XLine& line, double* out) const {
    double n[3];
    plan_para pl;
    CT_Vector(line.start, line.end, n);
    CT_plan_equation(&x, n, &pl);
    return CT_inter_line_plan1(line.start, line.end, &pl, out) ? RTNORM : RTERROR;
}

int XPoint::Project(const XCircle& circle, double* out) const {
    XPoint from(x, y, circle.center.z);
    XLine ray(from, circle.center, 0);
    XPoint a, b;
    if (ray.Intersection(circle, a, b) != 2) return RTERROR;
    const XPoint& pick = Distance(b) <= Distance(a) ? b : a;
    pick > out;
    return RTNORM;
}

void XPoint::GetMoveMatrix(const XPoint& to, double m[4][4]) const {
    AT_InitTranMat(m, to.x - x, to.y - y, to.z - z);
}

void XPoint::GetRotationMatrix(double angle, double m[4][4]) const {
    double r[4][4];
    AT_InitRotMatrix(angle, r);
    if (AtOrigin(*this)) {
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) m[i][j] = r[i][j];
        return;
    }
    double to[4][4], back[4][4];
    AT_InitTranMat(to, -x, -y, -z);
    AT_InitTranMat(back, x, y, z);
    MatrixMultiply(m, back, r, to, nullptr);
}

void XPoint::GetScaleMatrix(double s, double m[4][4]) const { GetScaleMatrix(s, s, s, m); }

void XPoint::GetScaleMatrix(double sx, double sy, double sz, double m[4][4]) const {
    double s[4][4];
    AT_InitIdenMat(s);
    s[0][0] = sx;
    s[1][1] = sy;
    s[2][2] = sz;
    if (AtOrigin(*this)) {
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) m[i][j] = s[i][j];
        return;
    }
    double to[4][4], back[4][4];
    AT_InitTranMat(to, -x, -y, -z);
    AT_InitTranMat(back, x, y, z);
    MatrixMultiply(m, back, s, to, nullptr);
}

XPoint operator+(const XPoint& a, const XPoint& b) { return XPoint(a.x + b.x, a.y + b.y, a.z + b.z); }
XPoint operator-(const XPoint& a, const XPoint& b) { return XPoint(a.x - b.x, a.y - b.y, a.z - b.z); }

XPoint Max(const XPoint& a, const XPoint& b) {
    return XPoint(std::fmax(a.x, b.x), std::fmax(a.y, b.y), std::fmax(a.z, b.z));
}

XPoint Min(const XPoint& a, const XPoint& b) {
    return XPoint(std::fmin(a.x, b.x), std::fmin(a.y, b.y), std::fmin(a.z, b.z));
}

// The folds read the n - 1 further arguments as the type of the first.
#define LUMO_FOLD(Type, first, n, pick)                \
    Type result = first;                               \
    va_list args;                                      \
    va_start(args, first);                             \
    for (int i = 1; i < n; ++i) {                      \
        Type next = va_arg(args, Type);                \
        result = pick;                                 \
    }                                                  \
    va_end(args);                                      \
    return result

int Maximum(int n, int first, ...) { LUMO_FOLD(int, first, n, next > result ? next : result); }
double Maximum(int n, double first, ...) { LUMO_FOLD(double, first, n, next > result ? next : result); }
XPoint Maximum(int n, XPoint first, ...) { LUMO_FOLD(XPoint, first, n, Max(result, next)); }
int Minimum(int n, int first, ...) { LUMO_FOLD(int, first, n, next < result ? next : result); }
double Minimum(int n, double first, ...) { LUMO_FOLD(double, first, n, next < result ? next : result); }
XPoint Minimum(int n, XPoint first, ...) { LUMO_FOLD(XPoint, first, n, Min(result, next)); }

#undef LUMO_FOLD

XPoint XPointDir2d::Polar(double dist) const {
    XPoint p;
    acutPolar(&x, direction, dist, &p.x);
    return p;
}
