#include "kernel/vector_routines.h"

#include <cmath>
#include <numbers>

namespace {
constexpr double kPi = std::numbers::pi;
constexpr double kTwoPi = 2.0 * std::numbers::pi;

// Vectors whose squared length is at most this have no direction here.
constexpr double kVectorAngleMinSq = 0.0001;
// A cosine this close to +-1 is taken as exactly 0 or pi.
constexpr double kVectorAngleCosSnap = 1e-5;
// Normal components below this make three points collinear.
constexpr double kPlaneNormalZero = 1e-5;
// The line must run along the normal by at least this much.
constexpr double kLinePlaneMinDot = 1e-6;
// |x / r| below this counts as on the y axis.
constexpr double kRsitaVertical = 0.0001;
constexpr double kRsitaNegative = 1e-6;
// Angles this close below 2 pi fold to exactly 0.
constexpr double kStdAngleFullTurn = 0.005;
// The folding window reaches this far beyond 0 and 2 pi.
constexpr double kStdAngleSlack = 0.001;
constexpr double kAcuteLimit = kPi + 0.0001;

double Dot(const double* a, const double* b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }
}  // namespace

void CT_Vector(const double* a, const double* b, double* out) {
    for (int i = 0; i < 3; ++i) out[i] = b[i] - a[i];
}

double CT_VectorAngle(const double* a, const double* b) {
    double la = Dot(a, a), lb = Dot(b, b);
    if (!(la > kVectorAngleMinSq && lb > kVectorAngleMinSq)) return 0.0;
    double c = Dot(a, b) / std::sqrt(la * lb);
    if (std::fabs(c - 1.0) < kVectorAngleCosSnap) return 0.0;
    if (std::fabs(c + 1.0) < kVectorAngleCosSnap) return kPi;
    return std::acos(std::fmax(-1.0, std::fmin(1.0, c)));
}

int CT_vector_plan3p(const double* p0, const double* p1, const double* p2, double* n) {
    double u[3], v[3];
    CT_Vector(p0, p1, u);
    CT_Vector(p0, p2, v);
    n[0] = u[1] * v[2] - u[2] * v[1];
    n[1] = u[2] * v[0] - u[0] * v[2];
    n[2] = u[0] * v[1] - u[1] * v[0];
    if (std::fabs(n[0]) < kPlaneNormalZero && std::fabs(n[1]) < kPlaneNormalZero &&
        std::fabs(n[2]) < kPlaneNormalZero)
        return 0;
    return 1;
}

int CT_plan_equation(const double* p, const double* n, plan_para* pl) {
    pl->a = n[0];
    pl->b = n[1];
    pl->c = n[2];
    pl->d = -Dot(n, p);
    return 1;
}

// The test is on the signed dot product, so a line running against the
// normal finds nothing: callers rely on that one-sidedness.
int CT_inter_line_plan2(const double* p, const double* dir, const plan_para* pl, double* out) {
    double n[3] = {pl->a, pl->b, pl->c};
    double q = Dot(n, dir);
    if (!(q >= kLinePlaneMinDot)) return 0;
    double t = -(Dot(n, p) + pl->d) / q;
    for (int i = 0; i < 3; ++i) out[i] = p[i] + t * dir[i];
    return 1;
}

int CT_inter_line_plan1(const double* a, const double* b, const plan_para* pl, double* out) {
    double dir[3];
    CT_Vector(a, b, dir);
    return CT_inter_line_plan2(a, dir, pl, out);
}

int CT_point_prj_plan(const double* p, const plan_para* pl, double* out) {
    double n[3] = {pl->a, pl->b, pl->c};
    return CT_inter_line_plan2(p, n, pl, out);
}

int CT_XYZtoRsita(const double* p, double* ang, double* r) {
    double x = p[0], y = p[1];
    *r = std::sqrt(x * x + y * y);
    if (*r == 0.0) {
        *ang = 0.0;
        return 1;
    }
    if (std::fabs(x / *r) < kRsitaVertical) {
        *ang = y <= 0.0 ? 3.0 * kPi / 2.0 : kPi / 2.0;
        return 1;
    }
    double a = std::atan(y / x);
    if (x < 0.0) a += kPi;
    if (a < -kRsitaNegative) a += kTwoPi;
    *ang = a;
    return 1;
}

double CT_std_angle(double a) {
    if (std::fabs(a - kTwoPi) < kStdAngleFullTurn) return 0.0;
    const double upper = kTwoPi + kStdAngleSlack, lower = -kStdAngleSlack;
    if (a > upper) a -= kTwoPi * std::ceil((a - upper) / kTwoPi);
    else if (a < lower) a += kTwoPi * std::ceil((lower - a) / kTwoPi);
    // The product above may land a rounding step outside the window.
    if (a > upper) a -= kTwoPi;
    if (a < lower) a += kTwoPi;
    return a;
}

double CT_acute_angle(double a) {
    double b = CT_std_angle(a);
    return b <= kAcuteLimit ? b : kTwoPi - b;
}
