#include "kernel/XPoly2D.h"

#include <cmath>
#include <numbers>

#include "kernel/XArc.h"
#include "kernel/XDirectionCurve.h"
#include "kernel/XPushPrec.h"
#include "kernel/vector_routines.h"
#include "platform/acutads.h"

namespace {
// |angle| at or below this is a straight segment.
constexpr double kStraight = 1e-6;
// HasArcSegment's threshold, on the signed angle.
constexpr double kArcPresent = 1e-5;
constexpr double kHalfPi = std::numbers::pi / 2.0;

// Sets _distSnap for a scope and puts back what it found.
class DistSnapScope {
public:
    explicit DistSnapScope(double tol) : m_saved(_distSnap) { _distSnap = tol; }
    ~DistSnapScope() { _distSnap = m_saved; }
    DistSnapScope(const DistSnapScope&) = delete;
    DistSnapScope& operator=(const DistSnapScope&) = delete;

private:
    double m_saved;
};
}  // namespace

void XPoly2D::Reset() {
    RemoveAll();
    angles.RemoveAll();
}

int XPoly2D::IsValid(int i) const {
    int n = Count();
    if (i < 0 || i >= n) return 0;
    return IsClosed() || i != n - 1;
}

int XPoly2D::TotalSegments() const { return IsClosed() ? Count() : Count() - 1; }

void XPoly2D::AppendNode(const XPoint& p, double angle) {
    Append(new XPoint(p));
    angles.Append(new double(angle));
}

void XPoly2D::InsertNodeAt(int i, const XPoint& p, double angle) {
    if (i >= Count()) {
        AppendNode(p, angle);
        return;
    }
    InsertAt(i, new XPoint(p));
    angles.InsertAt(i, new double(angle));
}

int XPoly2D::AppendSegment(const XCurveSegment& s, int reverse, int withEnd) {
    if (reverse) AppendNode(s.end, -s.angle);
    else AppendNode(s.start, s.angle);
    if (withEnd && !IsClosed()) AppendNode(reverse ? s.start : s.end, 0.0);
    return RTNORM;
}

double XPoly2D::Angle(int i) const {
    const double* a = (i >= 0 && i < angles.Count()) ? angles.GetAt(i) : nullptr;
    return a ? *a : 0.0;
}

void XPoly2D::SetAngle(int i, double angle) {
    if (i < 0 || i >= angles.Count()) return;
    if (double* a = angles.GetAt(i)) *a = angle;
}

int XPoly2D::Nth(int i, XLine& line, XArc& arc) const {
    if (!IsValid(i)) return RTERROR;
    const XPoint& a = *GetAt(i);
    const XPoint& b = *GetAt(i + 1 < Count() ? i + 1 : 0);
    double angle = Angle(i);
    if (std::fabs(angle) <= kStraight) {
        line.start = a;
        line.end = b;
        return 5101;
    }
    arc = XArc(a, b, angle);
    return 5102;
}

int XPoly2D::Nth(int i, XCurveSegment& s) const {
    XLine line(1);
    XArc arc;
    int r = Nth(i, line, arc);
    if (r == RTERROR) return RTERROR;
    if (r == 5101) {
        s.start = line.start;
        s.end = line.end;
        s.angle = 0.0;
    } else {
        arc.GetPoints(s.start, s.end);
        s.angle = arc.Bulge();
    }
    return RTNORM;
}

int XPoly2D::Nth(int i, XDirectionCurve& c) const {
    if (!IsValid(i)) return RTERROR;
    c.start = *GetAt(i);
    c.end = *GetAt(i + 1 < Count() ? i + 1 : 0);
    c.angle = Angle(i);
    return RTNORM;
}

double XPoly2D::Distance(int i) const {
    XCurveSegment s(1);
    if (Nth(i, s) != RTNORM) return 0.0;
    return s.Length();
}

double XPoly2D::Distance() const {
    double sum = 0.0;
    int n = TotalSegments();
    for (int i = 0; i < n; ++i) sum += Distance(i);
    return sum;
}

XPoint XPoly2D::GetPoint(int side, double d) {
    XCurveSegment s(1);
    if (Nth(0, s) != RTNORM) return XPoint();
    double area = PathArea();
    int inner = (area > 0.0 && side == 0) || (area <= 0.0 && side != 0);
    return s.Offset(inner ? 1 : 0, d, 1).MidPoint();
}

int XPoly2D::Polar(double dist, XPoint& pt, double* dir) const {
    if (IsClosed() || TotalSegments() < 1) return RTERROR;
    int n = TotalSegments();
    double reach = 0.0;
    int seg = -1;
    for (int i = 0; i < n; ++i) {
        reach += Distance(i);
        if (reach >= dist - _distSnap) {
            seg = i;
            break;
        }
    }
    if (seg < 0) return RTERROR;
    double back = reach - dist;
    XLine line(1);
    XArc arc;
    if (Nth(seg, line, arc) == 5101) {
        double len = line.Length();
        acutPolar(line.end, acutAngle(line.end, line.start), back, pt);
        pt.z = len > 0.0 ? line.end.z + (line.start.z - line.end.z) * back / len : line.end.z;
        if (dir) *dir = acutAngle(line.start, line.end);
        return seg;
    }
    double step = back / arc.radius;
    double t, heading;
    if (Angle(seg) > 0.0) {
        t = arc.endAngle - step;
        heading = CT_std_angle(t + kHalfPi);
    } else {
        t = arc.startAngle + step;
        heading = CT_std_angle(t - kHalfPi);
    }
    acutPolar(arc.center, t, arc.radius, pt);
    if (dir) *dir = heading;
    return seg;
}

double XPoly2D::PathArea() const {
    double sum = 0.0;
    int n = TotalSegments();
    XLine line(1);
    XArc arc;
    for (int i = 0; i < n; ++i) {
        int r = Nth(i, line, arc);
        if (r == 5101) sum += (line.start.y + line.end.y) * (line.end.x - line.start.x) / 2.0;
        else if (r == 5102) sum += Angle(i) > 0.0 ? arc.PathArea() : -arc.PathArea();
    }
    return sum;
}

double XPoly2D::Area() const { return std::fabs(PathArea()); }

int XPoly2D::GetExtend(double* lo, double* hi) const {
    int n = TotalSegments();
    if (n < 1) return RTERROR;
    XPoint l = *First(), h = *First();
    XLine line(1);
    XArc arc;
    for (int i = 0; i < n; ++i) {
        int r = Nth(i, line, arc);
        if (r == 5101) {
            l = Min(l, Min(line.start, line.end));
            h = Max(h, Max(line.start, line.end));
        } else if (r == 5102) {
            XPoint al, ah;
            arc.GetExtend(al, ah);
            l = Min(l, al);
            h = Max(h, ah);
        }
    }
    l > lo;
    h > hi;
    return RTNORM;
}

int XPoly2D::HitTestOnCurve(const XPoint& p, double tol) const {
    int i = 0;
    for (const XPoint& v : *this) {
        if (v.Distance2d(p) < tol) return i + 1;
        ++i;
    }
    DistSnapScope scope(tol);
    int n = TotalSegments();
    XCurveSegment s(1);
    for (i = 0; i < n; ++i) {
        if (Nth(i, s) != RTNORM) continue;
        if ((p & s) == 3) return ~i;
    }
    return 0;
}

// The signed test is deliberate: clockwise arcs do not count.
int XPoly2D::HasArcSegment() const {
    int n = TotalSegments();
    for (int i = 0; i < n; ++i)
        if (Angle(i) > kArcPresent) return 1;
    return 0;
}

int XPoly2D::IsSelfIntersect() const {
    int n = Count();
    XArc arc;
    for (int i = 0; i + 2 < n; ++i) {
        XLine a(1);
        Nth(i, a, arc);
        if (a.Length() <= _distSnap) continue;
        int stop = (i == 0 && IsClosed()) ? n - 1 : n;
        for (int j = i + 2; j < stop; ++j) {
            XLine b(1);
            Nth(j, b, arc);
            if (b.Length() <= _distSnap) continue;
            if (a.Intersection(b, nullptr)) return 1;
        }
    }
    return 0;
}

int XPoly2D::Reverse() {
    if (Count() < 2) return RTERROR;
    XPoly2D r(closed);
    XDirectionCurve c(1);
    for (int i = TotalSegments() - 1; i >= 0; --i) {
        Nth(i, c);
        r.AppendNode(c.end, -c.angle);
    }
    if (!IsClosed()) r.AppendNode(*First(), -Angle(Count() - 1));
    *this = r;
    return RTNORM;
}

int LimitCycle(int i, int n) {
    if (n <= 0) return i;
    i %= n;
    return i < 0 ? i + n : i;
}

void ExplodePoly2D(const XPoly2D& p, DList<XCurveSegment>& out) {
    int n = p.TotalSegments();
    for (int i = 0; i < n; ++i) {
        auto* s = new XCurveSegment(1);
        p.Nth(i, *s);
        out.Append(s);
    }
}
