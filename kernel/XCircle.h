// A circle in a plane parallel to XY.
#pragma once
#include "kernel/XCell.h"
#include "kernel/XPoint.h"
#include "platform/adsdef.h"

class XArc;
class XLine;

class XCircle : public XCell {
public:
    XCircle() : radius(0.0) {}
    XCircle(const double* c, double r) : center(c), radius(r) {}
    XCircle(const double* a, const double* b);   // on the diameter a b
    XCircle(const XPoint& a, const XPoint& b, const XPoint& c);   // circumcircle, 0 when collinear
    // Groups 10 and 40 of the entity; with m, centre and a rim point
    // transformed and the radius their distance.
    XCircle(const ads_name ent, double m[4][4]);
    XCircle(const XCircle&) = default;
    XCircle& operator=(const XCircle&) = default;

    CellType Type() const override { return CellCircle; }
    void Center(double pt[3]) override;
    // Counts of surviving points; a gets the first, b the second. Either may be null.
    virtual int Intersection(const XCircle& other, double* a, double* b) const;
    virtual int Intersection(const XArc& arc, double* a, double* b) const;
    virtual int Intersection(const XLine& line, double* a, double* b) const;
    virtual int GetExtend(double* lo, double* hi) const;
    virtual int GetSubArc(const XPoint& p, double chord, XArc& out) const;
    virtual double Length() const;
    virtual int MakeLike(const ads_name like) const;
    virtual int Make(const char* layer) const;
    virtual int Modify(const ads_name ent) const;

    double Area() const;
    int operator!() const;
    bool operator==(const XCircle& other) const;
    XCircle Offset(double d) const;   // the same circle: d is ignored by design
    void TransUCS(double m[4][4]);
    int OSnap(int mode, XPoint& pt) const;

    XPoint center;
    double radius;
};
