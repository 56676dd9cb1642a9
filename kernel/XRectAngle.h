// An axis-parallel rectangle given by its lower left and upper right corners.
#pragma once
#include "kernel/XCell.h"
#include "kernel/XPoint.h"

class XLine;
class XPoly2D;

class XRectAngle : public XCell {
public:
    XRectAngle() = default;
    XRectAngle(const double* a, const double* b);       // any two opposite corners
    XRectAngle(const double* c, double w, double h);    // about c, at c's z
    XRectAngle(const XRectAngle&) = default;
    XRectAngle& operator=(const XRectAngle&) = default;

    CellType Type() const override { return CellRectAngle; }
    void Center(double pt[3]) override;
    virtual double Area() const;
    // Up to two crossings with the sides, low side first and on round.
    virtual int Intersection(const XLine& l, double* a, double* b) const;

    XPoint GetLowLeft() const { return low; }
    XPoint GetLowRight() const { return XPoint(up.x, low.y, low.z); }
    XPoint GetUpRight() const { return up; }
    XPoint GetUpLeft() const { return XPoint(low.x, up.y, low.z); }
    double Width() const { return up.x - low.x; }
    double Height() const { return up.y - low.y; }
    void SetElevation(double z);
    void AsPoly2D(XPoly2D& out) const;
    // Four LINEs, or a closed LWPOLYLINE in model space; null layer: the
    // current one.
    void Make(const char* layer, int asLines) const;

    XPoint low;
    XPoint up;
};
