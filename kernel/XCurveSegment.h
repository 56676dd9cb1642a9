// One piece of curve: a line, an arc or a whole circle, held as two points
// and the included angle between them (radians, counter-clockwise positive,
// 0 for a line, 2 pi for a circle given by its diameter ends).
#pragma once
#include "kernel/XArc.h"
#include "kernel/XLine.h"

class AcDbCurve;
class XPoly2D;

enum CurveType { CurveLine = 0, CurveArc = 1, CurveCircle = 2 };

class XCurveSegment : public XLine {
public:
    explicit XCurveSegment(int isBounded = 1) : XLine(isBounded), angle(0.0) {}
    XCurveSegment(const XPoint& a, const XPoint& b, double includedAngle, int isBounded)
        : XLine(a, b, isBounded), angle(includedAngle) {}
    // A LINE, ARC or CIRCLE of the drawing (see ReadCurveEntity); all zero
    // for anything else.
    XCurveSegment(const ads_name ent, int isBounded);
    XCurveSegment(const XCurveSegment&) = default;
    XCurveSegment& operator=(const XCurveSegment&) = default;
    XCurveSegment& operator=(const XLine& line);       // flag taken, angle 0
    XCurveSegment& operator=(const XArc& arc);         // flag 1, counter-clockwise
    XCurveSegment& operator=(const XCircle& circle);   // ends at 0 and pi, flag kept

    using XLine::Direction;
    using XLine::PathArea;
    using XLine::Intersection;

    int GetExtend(XPoint& lo, XPoint& hi) const override;
    int Make(const char* layer) const override;   // LINE, ARC or CIRCLE by kind
    double Length() const override;
    virtual XArc GetArc() const;
    virtual int OnWhichSide(const XPoint& p) const;      // 0 left, 1 right, 2 on it
    virtual double PathArea(XPoint& p) const;            // the walking form, moves p
    virtual double IDirection(int which) const;          // heading into the curve at an end
    virtual double Direction(const XPoint& p) const;
    virtual int AsPoly2D(XPoly2D& out) const;            // appends, RTNORM
    virtual int Polar(double dist, XPointDir2d& out, int fromStart) const;
    virtual double PathDistance(const XPoint& p, int fromStart) const;
    virtual double OrthoDirection(const XPoint& p) const;
    virtual void SetPoints(const XPoint& a, const XPoint& b);

    bool operator==(const XCurveSegment& other) const;
    int Is(CurveType type) const;
    CurveType GetCurveType() const;
    XCircle GetCircle() const;
    XLine GetLine() const;
    XPoint MidPoint() const;
    double GetChordLength(double along) const;
    int ProjectToMe(const XPoint& p, XPoint& out) const;
    double GetDist2Me(XPoint p) const;
    int GetSubSegment(const XPoint& p, double len, XCurveSegment& out) const;
    int Intersection(const XCurveSegment& other, double* a, double* b) const;
    int Intersection(const XLine& line, double* a, double* b) const;
    int Intersection(const XArc& arc, double* a, double* b) const;
    int Intersection(const XCircle& circle, double* a, double* b) const;
    int OSnap(int mode, XPoint& pt) const;
    void TransformBy(double m[4][4]);
    resbuf* AsFence(int n) const;   // the caller frees the chain
    XCurveSegment Offset(double d, int isBounded) const;
    XCurveSegment Offset(int side, double d, int isBounded) const;

    int MakeLike(const ads_name like) const;
    // A SOLID of fixed size pointing the way of travel at the midpoint; out
    // names it.
    int MakeArrow(ads_name out) const;
    AcDbCurve* AsAcDbCurve() const;   // a new line or arc, null for a circle
    static resbuf* Mask(const char* layer);   // lines, arcs and circles on a layer

    double angle;

protected:
    // The three cases of the internal dispatch.
    enum Case { kLine, kArc, kCircle };
    Case Kind() const;
    // The same, with the finer circle test of Make, OSnap and Polar.
    Case KindStrict() const;
};

// 0 to 4 for a line as AT_pt_of_line, 0 to 3 for an arc as AT_in_arc; for a
// circle 1 on it, 3 inside, 0 outside.
int operator&(const XPoint& p, const XCurveSegment& s);
