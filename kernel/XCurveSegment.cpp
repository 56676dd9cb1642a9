#include "kernel/XCurveSegment.h"

#include <cmath>
#include <numbers>

#include "kernel/XPoly.h"
#include "kernel/XPoly2D.h"
#include "kernel/XPushPrec.h"
#include "kernel/matrix_routines.h"
#include "kernel/point_position.h"
#include "kernel/vector_routines.h"
#include "platform/acutads.h"

namespace {
constexpr double kPi = std::numbers::pi;
constexpr double kTwoPi = 2.0 * std::numbers::pi;
// |angle| below this is a straight segment.
constexpr double kLineAngle = 1e-6;
// |2 pi - angle| below this is a whole circle by GetCurveType and Is.
constexpr double kCircleAngle = 1e-5;
// The arc case ends this far below 2 pi in the internal dispatch.
constexpr double kArcLimit = 1e-6;
// A walk backwards starts at this distance.
constexpr double kBackwards = -1e-9;
// Differences this far below zero wrap by a whole turn.
constexpr double kWrap = -1e-6;

bool SameBox(const XPoint& a, const XPoint& b) {
    return std::fabs(a.x - b.x) < _distSnap && std::fabs(a.y - b.y) < _distSnap &&
           std::fabs(a.z - b.z) < _distSnap;
}
}  // namespace

XCurveSegment::Case XCurveSegment::Kind() const {
    double a = std::fabs(angle);
    if (a < kLineAngle) return kLine;
    if (a > kLineAngle && a < kTwoPi - kArcLimit) return kArc;
    return kCircle;
}

XCurveSegment::Case XCurveSegment::KindStrict() const {
    Case c = Kind();
    if (c == kCircle && !(std::fabs(kTwoPi - std::fabs(angle)) < kCircleAngle)) return static_cast<Case>(-1);
    return c;
}

XCurveSegment& XCurveSegment::operator=(const XLine& line) {
    start = line.start;
    end = line.end;
    bounded = line.bounded;
    angle = 0.0;
    return *this;
}

XCurveSegment& XCurveSegment::operator=(const XArc& arc) {
    arc.GetPoints(start, end);
    bounded = 1;
    angle = arc.Bulge();
    return *this;
}

XCurveSegment& XCurveSegment::operator=(const XCircle& circle) {
    const XPoint& c = circle.center;
    start = XPoint(c.x + circle.radius, c.y, c.z);
    end = XPoint(c.x - circle.radius, c.y, c.z);
    angle = kTwoPi;
    return *this;
}

bool XCurveSegment::operator==(const XCurveSegment& other) const {
    CurveType t = GetCurveType();
    if (t != other.GetCurveType()) return false;
    if (t == CurveLine) return GetLine() == other.GetLine();
    if (t == CurveArc) return GetArc() == other.GetArc();
    return GetCircle() == other.GetCircle();
}

int XCurveSegment::Is(CurveType type) const {
    double a = std::fabs(angle);
    switch (type) {
    case CurveLine: return a < kLineAngle;
    case CurveCircle: return std::fabs(kTwoPi - a) < kCircleAngle;
    case CurveArc: return a > kLineAngle && a < kTwoPi - kArcLimit;
    }
    return 0;
}

CurveType XCurveSegment::GetCurveType() const {
    double a = std::fabs(angle);
    if (a < kLineAngle) return CurveLine;
    if (std::fabs(kTwoPi - a) < kCircleAngle) return CurveCircle;
    return CurveArc;
}

XCircle XCurveSegment::GetCircle() const { return XCircle(start, end); }

XLine XCurveSegment::GetLine() const { return XLine(start, end, bounded); }

XArc XCurveSegment::GetArc() const { return XArc(start, end, angle); }

int XCurveSegment::GetExtend(XPoint& lo, XPoint& hi) const {
    switch (Kind()) {
    case kLine: return XLine::GetExtend(lo, hi);
    case kArc: return GetArc().GetExtend(lo, hi);
    default: return GetCircle().GetExtend(lo, hi);
    }
}

double XCurveSegment::Length() const {
    switch (Kind()) {
    case kLine: return acutDistance(start, end);
    case kArc: return GetArc().Length();
    default: return GetCircle().Length();
    }
}

XPoint XCurveSegment::MidPoint() const {
    XPoint m;
    switch (Kind()) {
    case kLine: XLine::MidPoint(m); break;
    case kArc: GetArc().MidPoint(m); break;
    default: m = start; break;
    }
    return m;
}

double XCurveSegment::GetChordLength(double along) const {
    if (Kind() != kArc) return std::fabs(along);
    double r = GetArc().radius;
    return std::fabs(2.0 * r * std::sin(along / (2.0 * r)));
}

int XCurveSegment::ProjectToMe(const XPoint& p, XPoint& out) const {
    switch (Kind()) {
    case kLine: return p.Project(GetLine(), out);
    case kArc: return p.Project(static_cast<const XCircle&>(GetArc()), out);
    default: return p.Project(GetCircle(), out);
    }
}

double XCurveSegment::GetDist2Me(XPoint p) const {
    XPoint q;
    ProjectToMe(p, q);
    double d = p.Distance2d(q);
    return OnWhichSide(q) == 0 ? -d : d;
}

int XCurveSegment::GetSubSegment(const XPoint& p, double len, XCurveSegment& out) const {
    out.angle = angle;
    out.bounded = 1;
    switch (GetCurveType()) {
    case CurveLine: {
        XLine copy = GetLine(), sub(1);
        int r = copy.GetSubLine(p, len, sub);
        out.start = sub.start;
        out.end = sub.end;
        return r;
    }
    case CurveArc:
    case CurveCircle: {
        XArc sub;
        int r;
        if (GetCurveType() == CurveCircle) r = GetCircle().XCircle::GetSubArc(p, len, sub);
        else if (bounded == 0) r = GetArc().XCircle::GetSubArc(p, len, sub);
        else r = GetArc().GetSubArc(p, len, sub);
        if (r != RTNORM) return r;
        sub.GetPoints(out.start, out.end);
        out.angle = sub.Bulge();
        return RTNORM;
    }
    }
    return RTERROR;
}

int XCurveSegment::Intersection(const XLine& line, double* a, double* b) const {
    switch (Kind()) {
    case kLine: return XLine::Intersection(line, a);
    case kArc:
        if (bounded == 1) return GetArc().Intersection(line, a, b);
        return static_cast<const XCircle&>(GetArc()).XCircle::Intersection(line, a, b);
    default: return GetCircle().Intersection(line, a, b);
    }
}

int XCurveSegment::Intersection(const XArc& arc, double* a, double* b) const {
    switch (Kind()) {
    case kLine: return GetLine().Intersection(arc, a, b);
    case kArc:
        if (bounded == 1) return GetArc().Intersection(arc, a, b);
        return static_cast<const XCircle&>(GetArc()).XCircle::Intersection(arc, a, b);
    default: return GetCircle().Intersection(arc, a, b);
    }
}

int XCurveSegment::Intersection(const XCircle& circle, double* a, double* b) const {
    switch (Kind()) {
    case kLine: return GetLine().Intersection(circle, a, b);
    case kArc:
        if (bounded == 1) return GetArc().Intersection(circle, a, b);
        return static_cast<const XCircle&>(GetArc()).XCircle::Intersection(circle, a, b);
    default: return GetCircle().Intersection(circle, a, b);
    }
}

int XCurveSegment::Intersection(const XCurveSegment& other, double* a, double* b) const {
    switch (other.Kind()) {
    case kLine: return Intersection(other.GetLine(), a, b);
    case kArc:
        if (other.bounded != 0) return Intersection(other.GetArc(), a, b);
        {
            // A copy that is a circle, not an arc seen as one: virtual calls
            // on it must not bring the arc's angles back.
            const XCircle whole = other.GetArc();
            return Intersection(whole, a, b);
        }
    default: return Intersection(other.GetCircle(), a, b);
    }
}

int XCurveSegment::OSnap(int mode, XPoint& pt) const {
    switch (KindStrict()) {
    case kLine: return GetLine().OSnap(mode, pt);
    case kArc: return GetArc().OSnap(mode, pt);
    case kCircle: return GetCircle().OSnap(mode, pt);
    }
    return 0;
}

void XCurveSegment::TransformBy(double m[4][4]) {
    if (Kind() != kArc) {
        AT_xformpt(m, start, start);
        AT_xformpt(m, end, end);
        return;
    }
    XPoint mid = MidPoint();
    AT_xformpt(m, start, start);
    AT_xformpt(m, mid, mid);
    AT_xformpt(m, end, end);
    XArc arc(start, mid, end);
    angle = arc.Bulge();
    arc.GetPoints(start, end);
}

resbuf* XCurveSegment::AsFence(int n) const {
    XPoly2D path(0);
    AsPoly2D(path);
    XPoly poly;
    path.MapToPolygon(poly, n);
    return poly.Polygon();
}

XCurveSegment XCurveSegment::Offset(double d, int isBounded) const { return Offset(1, d, isBounded); }

XCurveSegment XCurveSegment::Offset(int side, double d, int isBounded) const {
    double base = side ? -kPi / 2.0 : kPi / 2.0;
    XCurveSegment r(start, end, angle, isBounded);
    Case kind = Kind();
    if (kind == kLine) {
        double a = CT_std_angle(acutAngle(start, end) + base);
        acutPolar(start, a, d, r.start);
        acutPolar(end, a, d, r.end);
        return r;
    }
    XArc arc(start, end, kind == kCircle ? kPi : angle);
    double radius = side ? arc.radius + d : arc.radius - d;
    if (radius >= _distSnap) {
        acutPolar(arc.center, arc.startAngle, radius, r.start);
        acutPolar(arc.center, arc.endAngle, radius, r.end);
    } else {
        r.start = arc.center;
        r.end = arc.center;
    }
    return r;
}

double XCurveSegment::PathArea(XPoint& p) const {
    p.z = start.z;
    const XPoint& far = acutDistance(start, p) >= acutDistance(end, p) ? start : end;
    double area;
    switch (Kind()) {
    case kLine: area = (far.y + p.y) * (far.x - p.x) / 2.0; break;
    case kArc:
        area = GetArc().PathArea();
        if (!SameBox(p, start)) area = -area;
        break;
    default: {
        double r = GetCircle().radius;
        area = kPi * r * r;
        break;
    }
    }
    p = far;
    return area;
}

int XCurveSegment::OnWhichSide(const XPoint& p) const {
    XPoint q;
    if (ProjectToMe(p, q) != RTNORM) return 2;
    if (SameBox(p, q)) return 2;
    double d = Direction(q);
    double g = acutAngle(p, q);
    if (std::fabs(CT_std_angle(d - (g + kPi / 2.0))) < _angSnap) return 0;
    if (std::fabs(CT_std_angle((g + kPi / 2.0) - d)) < _angSnap) return 0;
    return 1;
}

double XCurveSegment::Direction(const XPoint& p) const {
    switch (Kind()) {
    case kLine: return acutAngle(start, end);
    case kArc: return CT_std_angle(acutAngle(GetArc().center, p) + kPi / 2.0);
    default: return CT_std_angle(acutAngle(GetCircle().center, p) + kPi / 2.0);
    }
}

double XCurveSegment::OrthoDirection(const XPoint& p) const { return CT_std_angle(Direction(p) - kPi / 2.0); }

double XCurveSegment::IDirection(int which) const {
    switch (Kind()) {
    case kLine: {
        double a = acutAngle(start, end);
        return which == 0 ? a : CT_std_angle(a + kPi);
    }
    case kArc: {
        XArc arc = GetArc();
        return which == 0 ? CT_std_angle(arc.startAngle + kPi / 2.0) : CT_std_angle(arc.endAngle - kPi / 2.0);
    }
    default:
        acutPrintf("%s", "\nInvalid Call to IDirection() for Circle!");
        return angle;
    }
}

int XCurveSegment::AsPoly2D(XPoly2D& out) const {
    if (GetCurveType() == CurveCircle) {
        out.AppendNode(start, kPi);
        out.AppendNode(end, kPi);
        out.closed = 1;
    } else {
        out.AppendNode(start, angle);
        out.AppendNode(end, 0.0);
        out.closed = 0;
    }
    return RTNORM;
}

int XCurveSegment::Polar(double dist, XPointDir2d& out, int fromStart) const {
    bool back = dist <= kBackwards;
    switch (KindStrict()) {
    case kLine: {
        double heading = fromStart ? acutAngle(start, end) : CT_std_angle(acutAngle(start, end) + kPi);
        acutPolar(fromStart ? start : end, heading, dist, out);
        out.direction = back ? CT_std_angle(heading + kPi) : heading;
        return RTNORM;
    }
    case kArc: {
        XArc arc = GetArc();
        double step = dist / arc.radius;
        if (!fromStart) step = -step;
        double t = CT_std_angle((fromStart ? arc.startAngle : arc.endAngle) + step);
        acutPolar(arc.center, t, arc.radius, out);
        int k = ((!fromStart) != back) ? 1 : 0;
        out.direction = CT_std_angle(k * kPi + t + kPi / 2.0);
        return RTNORM;
    }
    default: return RTERROR;
    }
}

double XCurveSegment::PathDistance(const XPoint& p, int fromStart) const {
    XPoint q = p;
    ProjectToMe(p, q);
    int k = q & *this;
    if (k == 1) return fromStart ? 0.0 : Length();
    if (k == 2) return fromStart ? Length() : 0.0;
    if (k != 0 && k != 3 && k != 4) return 0.0;
    if (Kind() == kLine) {
        const XPoint& from = fromStart ? start : end;
        const XPoint& other = fromStart ? end : start;
        double d1 = acutDistance(from, q);
        if (k == 3) return d1;
        double d2 = acutDistance(other, q);
        return d2 <= d1 ? d1 : -d1;
    }
    XArc arc = Kind() == kArc ? GetArc() : XArc(GetCircle().center, GetCircle().radius, 0.0, kTwoPi);
    if (Kind() != kArc) arc.startAngle = arc.endAngle = acutAngle(arc.center, start);
    double t = acutAngle(arc.center, q), a;
    if (k == 3) a = fromStart ? t - arc.startAngle : arc.endAngle - t;
    else a = fromStart ? arc.startAngle - t : t - arc.endAngle;
    if (a < kWrap) a += kTwoPi;
    return k == 3 ? a * arc.radius : -a * arc.radius;
}

void XCurveSegment::SetPoints(const XPoint& a, const XPoint& b) {
    if (Kind() != kArc) {
        start = a;
        end = b;
        return;
    }
    XArc arc = GetArc();
    arc.startAngle = acutAngle(arc.center, a);
    arc.endAngle = acutAngle(arc.center, b);
    arc.GetPoints(start, end);
    bounded = 1;
    angle = arc.Bulge();
}

int operator&(const XPoint& p, const XCurveSegment& s) {
    double a = std::fabs(s.angle);
    if (a < kLineAngle) return AT_pt_of_line(p, s.start, s.end);
    if (a > kLineAngle && a < kTwoPi - kArcLimit) {
        XArc arc = s.GetArc();
        return AT_in_arc(p, arc.center, arc.radius, arc.startAngle, arc.endAngle);
    }
    XCircle c = s.GetCircle();
    double d = acutDistance(c.center, p);
    if (std::fabs(d - c.radius) < _distSnap) return 1;
    return d < c.radius ? 3 : 0;
}
