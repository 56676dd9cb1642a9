// A closed polygon: the last vertex joins the first, which is not repeated.
#pragma once
#include "kernel/XCell.h"
#include "kernel/XPointList.h"
#include "platform/adsdef.h"

class XLine;
struct resbuf;

class XPoly : public XPointList, public XCell {
public:
    XPoly() = default;
    // Points from the chain while its items are RT3DPOINT or RTPOINT.
    explicit XPoly(const resbuf* list);
    // The vertices of a LWPOLYLINE (at its elevation) or of an old polyline
    // up to its SEQEND or its first face record; empty for anything else.
    explicit XPoly(const ads_name ent);
    XPoly(const XPoly&) = default;
    XPoly& operator=(const XPoly&) = default;

    CellType Type() const override { return CellPoly; }
    void Center(double pt[3]) override { XPointList::Center(pt); }

    int operator!() const { return Count() < 3; }
    int NthLine(int i, XLine& out) const;   // RTNORM or RTERROR; only the ends are set
    double PathArea() const;   // positive for a clockwise polygon
    double Area() const;
    int IsPoint() const;
    int IsLinear() const;
    int IsPlan() const;   // never finished: says so and answers 0
    int IsRectAngle(double* center, double* w, double* h) const;
    resbuf* ResbufList(int close) const;   // RT3DPOINT items; the caller frees them
    resbuf* Polygon() const { return ResbufList(0); }
    resbuf* Fence() const { return ResbufList(1); }
    int CreatePface(const char* layer);
};

// The axis-parallel rectangle test on four unbounded edge lines; 1 or 0.
int RectangleOfEdges(const XLine edges[4], double* center, double* w, double* h, const XPoint& p0,
                     const XPoint& p2);
