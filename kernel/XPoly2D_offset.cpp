// Offset and compression of bulge polylines.
#include "kernel/XPoly2D_offset.h"

#include <cmath>
#include <numbers>

#include "kernel/XArc.h"
#include "kernel/XDirectionCurve.h"
#include "kernel/XPoly2D.h"
#include "kernel/XPushPrec.h"
#include "kernel/XSector.h"
#include "kernel/vector_routines.h"
#include "platform/acutads.h"

namespace {
constexpr double kPi = std::numbers::pi;
constexpr double kTwoPi = 2.0 * std::numbers::pi;
// |angle| below this is a line.
constexpr double kLineAngle = 1e-6;
// A stored angle below this runs clockwise.
constexpr double kMinusArc = -1e-8;
// Sweeps this far below zero wrap by a whole turn.
constexpr double kWrap = -1e-6;
// QuickOffset rebuilds segments whose |angle| is above this, and fails on
// rebuilt arcs whose sweep falls below it.
constexpr double kQuickArc = 1e-5;
// Keeps a full fold's miter finite; no real corner comes near it.
constexpr double kTinySine = 1e-300;

bool Vanished(const XDirectionCurve& c) { return c.start == c.end; }

double Wrapped(double sweep) { return sweep < kWrap ? sweep + kTwoPi : sweep; }

// The join of curve c with its neighbour m near q; `atEnd` says whether q
// is c's end (m follows) or c's start (m precedes).
int Join(const XDirectionCurve& c, const XDirectionCurve& m, const XPoint& q, bool atEnd, XPoint& out) {
    XPoint p1, p2;
    int k = c.XCurveSegment::Intersection(static_cast<const XCurveSegment&>(m), p1, p2);
    if (k >= 2) {
        out = acutDistance(p1, q) < acutDistance(p2, q) ? p1 : p2;
        return RTNORM;
    }
    if (k == 1) {
        out = p1;
        return RTNORM;
    }
    double hc = c.IDirection(atEnd ? 1 : 0);
    double hm = m.IDirection(atEnd ? 0 : 1);
    if (std::fabs(std::sin(hc - hm)) >= _angSnap) return RTERROR;   // they cross nowhere
    out = q;                                                         // tangent neighbours
    return RTNORM;
}

int OffsetSegment(const XPoly2D& p, int i, double d, int bounded, XDirectionCurve& out) {
    XDirectionCurve src(1);
    if (p.Nth(i, src) != RTNORM) return RTERROR;
    out = src.Offset(d, bounded);
    return Vanished(out) ? RTERROR : RTNORM;
}

int IsMinus(double angle) { return angle < kMinusArc; }
}  // namespace

int OffsetPoly2D(const XPoly2D& p, double d, XPoly2D& out) {
    if (p.Count() == 0) return RTERROR;
    if (std::fabs(d) < _distSnap) {
        out = p;
        return RTNORM;
    }
    int n = p.TotalSegments();
    out.Reset();
    out.closed = p.closed;
    XDirectionCurve prev(0), cur(0), next(0);
    if (p.IsClosed() && OffsetSegment(p, n - 1, d, 0, prev) != RTNORM) return RTERROR;
    if (n > 0 && OffsetSegment(p, 0, d, 0, cur) != RTNORM) return RTERROR;
    XPoint s, e;
    for (int i = 0; i < n; ++i) {
        if (i == 0) {
            if (!p.IsClosed()) s = cur.start;
            else if (Join(cur, prev, cur.start, false, s) != RTNORM) return RTERROR;
        } else {
            s = e;
        }
        bool lastOpen = !p.IsClosed() && i == n - 1;
        if (lastOpen) {
            e = cur.end;
        } else {
            if (OffsetSegment(p, i + 1 < n ? i + 1 : 0, d, 0, next) != RTNORM) return RTERROR;
            if (Join(cur, next, cur.end, true, e) != RTNORM) return RTERROR;
        }
        double angle = 0.0;
        double a = std::fabs(cur.angle);
        if (a >= kLineAngle && a < kTwoPi - kLineAngle) {
            XPoint c = cur.GetArc().center;
            if (!cur.IsMinusArc()) angle = Wrapped(acutAngle(c, e) - acutAngle(c, s));
            else angle = -Wrapped(acutAngle(c, s) - acutAngle(c, e));
        }
        out.AppendNode(s, angle);
        if (lastOpen) out.AppendNode(e, 0.0);
        prev = cur;
        cur = next;   // each segment is offset once
    }
    return RTNORM;
}

int QuickOffsetPoly2D(const XPoly2D& p, double d, XPoly2D& out) {
    out.Reset();
    out.closed = p.closed;
    int count = p.Count();
    int n = p.TotalSegments();
    bool closed = p.IsClosed();
    XDirectionCurve seg(1);
    int i = 0;
    for (const XPoint& v : p) {
        bool first = !closed && i == 0, last = !closed && i == count - 1;
        double hIn = 0.0, hBack = 0.0;
        if (!last && p.Nth(i, seg) == RTNORM) hIn = seg.IDirection(0);
        if (!first && p.Nth(i > 0 ? i - 1 : n - 1, seg) == RTNORM) hBack = seg.IDirection(1);
        double a, b;
        if (first) {
            a = CT_std_angle(hIn - kPi);
            b = hIn;
        } else if (last) {
            a = hBack;
            b = CT_std_angle(hBack - kPi);
        } else {
            a = CT_std_angle(hIn - kPi);
            b = CT_std_angle(hBack - kPi);
        }
        double sweep = XSector(a, b).Bulge();
        double m = CT_std_angle(a + sweep / 2.0);
        double sine = std::fabs(std::sin(CT_std_angle(m - a)));
        XPoint moved;
        acutPolar(v, m, d / std::fmax(sine, kTinySine), moved);
        moved.z = v.z;
        out.AppendNode(moved, p.Angle(i));
        ++i;
    }
    for (i = 0; i < n; ++i) {
        double angle = p.Angle(i);
        if (std::fabs(angle) <= kQuickArc) continue;
        XDirectionCurve off(1);
        if (OffsetSegment(p, i, d, 1, off) != RTNORM) return RTERROR;
        XArc arc = off.GetArc();
        XPoint mid;
        acutPolar(arc.center, CT_std_angle(arc.startAngle + arc.Bulge() / 2.0), arc.radius, mid);
        XArc rebuilt(*out.Vertex(i), mid, *out.Vertex(i + 1 < count ? i + 1 : 0));
        double s2 = Wrapped(rebuilt.Bulge());
        if (s2 < kQuickArc) return RTERROR;
        out.SetAngle(i, angle <= 0.0 ? -s2 : s2);
    }
    return RTNORM;
}

int MergeCurveSegments(XCurveSegment& cur, const XCurveSegment& next, int curMinus, int nextMinus) {
    if (curMinus != nextMinus) return 0;
    bool curLine = std::fabs(cur.angle) < kLineAngle, nextLine = std::fabs(next.angle) < kLineAngle;
    if (curLine != nextLine) return 0;
    if (curLine) {
        // Only the carriers need agree: opposite directions merge too.
        if (std::fabs(std::sin(acutAngle(cur.start, cur.end) - acutAngle(next.start, next.end))) >= _angSnap)
            return 0;
        cur.end = next.end;
        return 1;
    }
    XArc a = cur.GetArc(), b = next.GetArc();
    if (std::fabs(a.radius - b.radius) >= _distSnap) return 0;
    for (int k = 0; k < 3; ++k)
        if (!(std::fabs(a.center[k] - b.center[k]) < _distSnap)) return 0;
    if (curMinus) a.startAngle = b.startAngle;
    else a.endAngle = b.endAngle;
    cur = a;
    return 1;
}

int CompressPoly2D(XPoly2D& p) {
    XPoly2D r(p.closed);
    XCurveSegment c(1), s(1);
    int cMinus = 0;
    bool have = false;
    int n = p.TotalSegments();
    for (int i = 0; i < n; ++i) {
        if (p.Nth(i, s) != RTNORM) continue;
        if (s.start == s.end) continue;   // empty, or a whole circle given by one point
        int sMinus = IsMinus(p.Angle(i));
        if (!have) {
            c = s;
            cMinus = sMinus;
            have = true;
        } else if (!MergeCurveSegments(c, s, cMinus, sMinus)) {
            r.AppendSegment(c, cMinus, 0);
            c = s;
            cMinus = sMinus;
        }
    }
    if (!have) return RTERROR;
    r.AppendSegment(c, cMinus, 1);
    int m = r.Count();
    if (r.IsClosed() && m >= 2) {
        XCurveSegment first(1), last(1);
        r.Nth(0, first);
        r.Nth(m - 1, last);
        int lastMinus = IsMinus(r.Angle(m - 1));
        if (MergeCurveSegments(last, first, lastMinus, IsMinus(r.Angle(0)))) {
            r.SetAngle(0, lastMinus ? -last.angle : last.angle);
            *r.Vertex(0) = lastMinus ? last.end : last.start;
            r.RemoveAt(m - 1);
            r.angles.RemoveAt(m - 1);
        }
    }
    p = r;
    return RTNORM;
}

int XPoly2D::Offset(double d, XPoly2D& out) const { return OffsetPoly2D(*this, d, out); }
int XPoly2D::QuickOffset(double d, XPoly2D& out) const { return QuickOffsetPoly2D(*this, d, out); }
int XPoly2D::Compress() { return CompressPoly2D(*this); }
