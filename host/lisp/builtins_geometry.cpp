// Geometry: polar, angle, distance, inters and trans on LISP points. A point
// is a list of two or three numbers; results keep the caller's dimension
// where the host keeps it (polar, inters), and 2D input makes distance and
// inters work in the XY plane.
#include <algorithm>
#include <cmath>

#include "host/lisp/builtins.h"
#include "platform/acedads.h"
#include "platform/acutads.h"

namespace lumo::lisp {
namespace {

// Parameters of an intersection within this much past a segment's ends
// still count as on it: the end points of touching segments are found.
constexpr double kParamFuzz = 1e-10;
// Lines whose direction cross product is this small relative to their
// lengths are parallel.
constexpr double kParallel = 1e-12;

Ref Polar(Args a) {
    ArgCount(a, 3, 3);
    double base[3], out[3];
    bool is3d = false;
    PointArg(a[0], base, &is3d);
    acutPolar(base, NumArg(a[1]), NumArg(a[2]), out);
    return MakePoint(out, is3d);
}

// Measured in the XY plane: z is left out.
Ref Angle(Args a) {
    ArgCount(a, 2, 2);
    double p[3], q[3];
    PointArg(a[0], p);
    PointArg(a[1], q);
    p[2] = q[2] = 0.0;
    return MakeReal(acutAngle(p, q));
}

Ref Distance(Args a) {
    ArgCount(a, 2, 2);
    double p[3], q[3];
    bool p3 = false, q3 = false;
    PointArg(a[0], p, &p3);
    PointArg(a[1], q, &q3);
    if (!p3 || !q3) p[2] = q[2] = 0.0;
    return MakeReal(acutDistance(p, q));
}

bool OnSegment(double t) { return t >= -kParamFuzz && t <= 1.0 + kParamFuzz; }

bool Inters2d(const double p1[3], const double p2[3], const double p3[3], const double p4[3], bool onseg, double out[3]) {
    double rx = p2[0] - p1[0], ry = p2[1] - p1[1];
    double sx = p4[0] - p3[0], sy = p4[1] - p3[1];
    double den = rx * sy - ry * sx;
    if (std::fabs(den) <= kParallel * std::hypot(rx, ry) * std::hypot(sx, sy)) return false;
    double wx = p3[0] - p1[0], wy = p3[1] - p1[1];
    double t = (wx * sy - wy * sx) / den;
    double u = (wx * ry - wy * rx) / den;
    if (onseg && (!OnSegment(t) || !OnSegment(u))) return false;
    out[0] = p1[0] + t * rx;
    out[1] = p1[1] + t * ry;
    out[2] = 0.0;
    return true;
}

double Dot(const double a[3], const double b[3]) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

// Lines in space meet where their closest points coincide.
bool Inters3d(const double p1[3], const double p2[3], const double p3[3], const double p4[3], bool onseg, double out[3]) {
    double r[3], s[3], w[3];
    for (int k = 0; k < 3; ++k) {
        r[k] = p2[k] - p1[k];
        s[k] = p4[k] - p3[k];
        w[k] = p1[k] - p3[k];
    }
    double a = Dot(r, r), b = Dot(r, s), c = Dot(s, s), d = Dot(r, w), e = Dot(s, w);
    double den = a * c - b * b;
    if (den <= kParallel * kParallel * a * c) return false;
    double t = (b * e - c * d) / den;
    double u = (a * e - b * d) / den;
    if (onseg && (!OnSegment(t) || !OnSegment(u))) return false;
    double gap = 0.0, scale = std::sqrt(std::max(a, c));
    for (int k = 0; k < 3; ++k) {
        out[k] = p1[k] + t * r[k];
        double g = out[k] - (p3[k] + u * s[k]);
        gap += g * g;
    }
    return std::sqrt(gap) <= 1e-10 * std::max(1.0, scale);
}

// (inters p1 p2 p3 p4 [onseg]): onseg absent or non-nil limits the result to
// both segments; nil takes the lines as infinite.
Ref Inters(Args a) {
    ArgCount(a, 4, 5);
    double p[4][3];
    bool all3d = true;
    for (int i = 0; i < 4; ++i) {
        bool is3d = false;
        PointArg(a[static_cast<size_t>(i)], p[i], &is3d);
        all3d = all3d && is3d;
    }
    bool onseg = a.size() < 5 || a[4];
    double out[3];
    bool hit = all3d ? Inters3d(p[0], p[1], p[2], p[3], onseg, out) : Inters2d(p[0], p[1], p[2], p[3], onseg, out);
    return hit ? MakePoint(out, all3d) : Ref();
}

// A coordinate system argument: 0 world, 1 user, 2 display, 3 paper space,
// an entity name (its object system), or an extrusion direction.
bool SystemArg(const Ref& v, resbuf& rb) {
    rb.rbnext = nullptr;
    if (v.Is(Type::Int)) {
        rb.restype = RTSHORT;
        rb.resval.rint = static_cast<short>(v.As<Int>().v);
        return v.As<Int>().v >= 0 && v.As<Int>().v <= 3;
    }
    if (v.Is(Type::Ename)) {
        rb.restype = RTENAME;
        rb.resval.rlname[0] = v.As<Ename>().name[0];
        rb.resval.rlname[1] = v.As<Ename>().name[1];
        return true;
    }
    if (v.Is(Type::List) && ListLength(v) == 3) {
        rb.restype = RT3DPOINT;
        PointArg(v, rb.resval.rpoint);
        return true;
    }
    return false;
}

Ref Trans(Args a) {
    ArgCount(a, 3, 4);
    double pt[3], out[3];
    PointArg(a[0], pt);
    resbuf from{}, to{};
    if (!SystemArg(a[1], from) || !SystemArg(a[2], to)) return nullptr;
    bool disp = a.size() > 3 && a[3];
    if (acedTrans(pt, &from, &to, disp ? 1 : 0, out) != RTNORM) return nullptr;
    return MakePoint(out, true);
}

const BuiltinTable kGeometry{{
    {"polar", Polar}, {"angle", Angle}, {"distance", Distance}, {"inters", Inters}, {"trans", Trans},
}};

}  // namespace
}  // namespace lumo::lisp
