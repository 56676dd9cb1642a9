// The ends of a curve with the points inserted on it, kept in order along
// the curve: kind 0 line, 1 arc, 2 circle. Lines and arcs start with their two
// ends, a circle with one point.
#pragma once
#include "kernel/XPointList.h"
#include "platform/adsdef.h"

class XCurveSegment;
class XPoly2D;

class PointList : public XPointList {
public:
    PointList(const XPoint& a, const XPoint& b, double angle);
    PointList(const PointList&) = default;
    PointList& operator=(const PointList&) = default;

    // RTNORM when p went strictly inside a stretch. With extend, a point
    // beyond the ends is added all the same but the answer stays RTERROR.
    int Insert(const XPoint& p, int extend);
    void AsPoly2D(XPoly2D& out) const;
    // Replaces the entity by the pieces between the points: the first piece
    // changes it, the others copy it; a circle becomes arcs on its layer and
    // goes. The result of the last operation.
    int Update(const ads_name ent);

    XPoint center;
    int kind;

protected:
    double SweepBetween(const XPoint& a, const XPoint& b) const;
};

class XSortedVertexList : public PointList {
public:
    XSortedVertexList(const XPoint& a, const XPoint& b, double angle) : PointList(a, b, angle) {}
    explicit XSortedVertexList(const XCurveSegment& s);

    void InsertBeforeLast(const XPoint& p);   // no test at all
    int AsPoly2D(XPoly2D& out) const;         // one segment per stretch; RTNORM
};
