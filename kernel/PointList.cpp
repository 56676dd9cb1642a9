#include "kernel/PointList.h"

#include <cmath>
#include <numbers>

#include "kernel/XArc.h"
#include "kernel/XCurveSegment.h"
#include "kernel/XPoly2D.h"
#include "kernel/XPushPrec.h"
#include "kernel/point_position.h"
#include "kernel/vector_routines.h"
#include "platform/acutads.h"

namespace {
constexpr double kPi = std::numbers::pi;
constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr double kStraight = 1e-6;
constexpr double kWrap = -1e-6;
}  // namespace

PointList::PointList(const XPoint& a, const XPoint& b, double angle) : kind(1) {
    if (std::fabs(angle) < kStraight) {
        kind = 0;
    } else if (std::fabs(kTwoPi - angle) < kStraight) {
        kind = 2;
        center = XPoint((a.x + b.x) / 2, (a.y + b.y) / 2, (a.z + b.z) / 2);
        AppendPoint(a);
        return;
    } else {
        center = XArc(a, b, angle).center;
    }
    AppendPoint(a);
    AppendPoint(b);
}

double PointList::SweepBetween(const XPoint& a, const XPoint& b) const {
    double s = acutAngle(center, b) - acutAngle(center, a);
    return s < kWrap ? s + kTwoPi : s;
}

int PointList::Insert(const XPoint& p, int extend) {
    if (IsEmpty()) return RTERROR;
    if (kind == 2) {
        double r = acutDistance(center, *First());
        if (!(std::fabs(acutDistance(center, p) - r) < _distSnap)) return RTERROR;
        double a = acutAngle(center, p);
        int i = 0;
        for (Node* n = HeadNode(); n; n = n->next, ++i) {
            if (i == 0) continue;
            double ai = acutAngle(center, *n->item);
            if (std::fabs(CT_std_angle(a - ai)) < _angSnap) return RTERROR;
            if (a < ai) {
                InsertBefore(n, new XPoint(p));
                return RTNORM;
            }
        }
        AppendPoint(p);
        return RTNORM;
    }
    for (Node* n = HeadNode(); n && n->next; n = n->next) {
        const XPoint& a = *n->item;
        const XPoint& b = *n->next->item;
        int k;
        if (kind == 0) {
            k = AT_pt_of_line(p, a, b);
        } else {
            double r = acutDistance(center, a);
            k = AT_in_arc(p, center, r, acutAngle(center, a), acutAngle(center, b));
        }
        if (k == 3) {
            InsertAfter(n, new XPoint(p));
            return RTNORM;
        }
    }
    if (!extend) return RTERROR;
    const XPoint& first = *First();
    const XPoint& last = *Last();
    if (kind == 0) {
        if (AT_pt_of_line(p, first, last) != 4) return RTERROR;
    } else if (!(std::fabs(acutDistance(center, p) - acutDistance(center, first)) < _distSnap)) {
        return RTERROR;
    }
    if (p.Distance2d(last) <= p.Distance2d(first)) AppendPoint(p);
    else AddHead(new XPoint(p));
    return RTERROR;
}

void PointList::AsPoly2D(XPoly2D& out) const {
    if (kind == 2) {
        if (Count() <= 2) {
            const XPoint& a = *First();
            XPoint b(2 * center.x - a.x, 2 * center.y - a.y, a.z);
            out.AppendNode(a, kPi);
            out.AppendNode(b, kPi);
        } else {
            for (Node* n = HeadNode(); n; n = n->next)
                out.AppendNode(*n->item, SweepBetween(*n->item, *(n->next ? n->next : HeadNode())->item));
        }
        out.closed = 1;
        return;
    }
    for (Node* n = HeadNode(); n; n = n->next) {
        double angle = (kind == 1 && n->next) ? SweepBetween(*n->item, *n->next->item) : 0.0;
        out.AppendNode(*n->item, angle);
    }
}

XSortedVertexList::XSortedVertexList(const XCurveSegment& s) : PointList(s.start, s.end, s.angle) {}

void XSortedVertexList::InsertBeforeLast(const XPoint& p) {
    if (IsEmpty()) AppendPoint(p);
    else InsertBefore(TailNode(), new XPoint(p));
}

int XSortedVertexList::AsPoly2D(XPoly2D& out) const {
    if (kind == 2 && Count() <= 2) {
        PointList::AsPoly2D(out);
        return RTNORM;
    }
    for (Node* n = HeadNode(); n; n = n->next) {
        const Node* next = n->next ? n->next : (kind == 2 ? HeadNode() : nullptr);
        if (!next) {
            out.AppendNode(*n->item, 0.0);
            break;
        }
        double angle = kind == 0 ? 0.0 : SweepBetween(*n->item, *next->item);
        XCurveSegment s(*n->item, *next->item, angle, 1);
        out.AppendSegment(s, 0, 0);
    }
    out.closed = kind == 2 ? 1 : 0;
    return RTNORM;
}
