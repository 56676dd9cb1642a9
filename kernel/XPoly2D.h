// The planar polyline of straight and circular segments. Each node holds a
// vertex and the included angle (radians, counter-clockwise positive) of the
// segment that starts there; in an open polyline the last angle is 0. The
// drawing's bulge b converts only at the border: angle = 4 atan(b).
#pragma once
#include "frame/DList.h"
#include "kernel/XPoint.h"
#include "platform/adsdef.h"

class XArc;
class XCurveSegment;
class XDirectionCurve;
class XLine;
class XPoly;
struct resbuf;

class XPoly2D : public DList<XPoint> {
public:
    explicit XPoly2D(int isClosed = 0) : closed(isClosed) {}
    // The nodes of a LWPOLYLINE or an old polyline (see ReadPolyEntity);
    // empty for anything else.
    explicit XPoly2D(const ads_name ent);
    XPoly2D(const XPoly2D&) = default;
    XPoly2D& operator=(const XPoly2D&) = default;
    ~XPoly2D() override = default;

    virtual void Reset();   // empties both lists; closed stays

    int operator!() const { return Count() < 2; }
    int IsClosed() const { return closed & 1; }
    int IsValid(int i) const;   // segment i exists
    int TotalSegments() const;
    void AppendNode(const XPoint& p, double angle);
    void InsertNodeAt(int i, const XPoint& p, double angle);
    int AppendSegment(const XCurveSegment& s, int reverse, int withEnd);

    XPoint* Vertex(int i) const { return GetAt(i); }
    double Angle(int i) const;   // 0 out of range
    void SetAngle(int i, double angle);

    // 5101 for a line (line filled), 5102 for an arc (arc filled), or RTERROR.
    int Nth(int i, XLine& line, XArc& arc) const;
    // Counter-clockwise form: a clockwise arc comes out reversed. Flag kept.
    int Nth(int i, XCurveSegment& s) const;
    // The raw segment with its signed angle.
    int Nth(int i, XDirectionCurve& c) const;
    double Distance(int i) const;
    double Distance() const;
    XPoint GetPoint(int side, double d);
    int Polar(double dist, XPoint& pt, double* dir) const;   // the segment index or RTERROR
    double PathArea() const;   // positive for clockwise
    double Area() const;
    int GetExtend(double* lo, double* hi) const;
    // i + 1 at vertex i, -(i + 1) on segment i, 0 elsewhere.
    int HitTestOnCurve(const XPoint& p, double tol) const;
    int HasArcSegment() const;
    int IsSelfIntersect() const;
    int Reverse();   // in place: RTERROR below 2 nodes
    // Offsets by intersecting the neighbouring offset segments, or quickly
    // along the bisectors; compression merges what continues straight on.
    int Offset(double d, XPoly2D& out) const;
    int QuickOffset(double d, XPoly2D& out) const;
    int Compress();

    // Flattening: n chords per whole circle, or the chord count that keeps the
    // sagitta at dev.
    int MapToPolygon(XPoly& out, int n) const;
    int MapToPolygon1(XPoly& out, double dev) const;
    int AsOpenPoly(XPoly& out, int n) const;
    int AsOpenPoly1(XPoly& out, double dev) const;
    void Disperse(XPoly2D& out, int n) const;
    void Disperse1(XPoly2D& out, double dev) const;
    resbuf* Fence(int n) const;
    resbuf* Polygon(int n) const;
    int CreatePface(int n, const char* layer) const;

    // A LWPOLYLINE in model space, on the layer when one is given (made if
    // missing): RTNORM, or RTERROR below 2 nodes.
    int Make(const char* layer) const;
    int MakeSegment(int i, const char* layer) const;   // a LINE or an ARC; RTNORM
    int MakeSegments(const char* layer) const;

    int closed;
    DList<double> angles;

protected:
    int MakeVertex(int i, const char* layer) const;   // a VERTEX, bulge in 42

private:
    // One flattening walk: open or closed, chords per circle n or by dev.
    int Flatten(XPoly& out, bool open, int n, double dev, bool byDeviation) const;
};

int GetCirDivNum(double r, double dev);
int LimitCycle(int i, int n);
void ExplodePoly2D(const XPoly2D& p, DList<XCurveSegment>& out);
