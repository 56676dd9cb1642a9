// A circle and a sector at once: the arc run counter-clockwise from the
// start angle to the end angle. A clockwise arc exists only as a directed
// curve.
#pragma once
#include "kernel/XCircle.h"
#include "kernel/XSector.h"

class XArc : public XCircle, public XSector {
public:
    XArc() = default;   // radius 0, the whole turn
    XArc(const double* c, double r, double start, double end) : XCircle(c, r), XSector(start, end) {}
    // By its ends and the signed included angle; the angle must not be 0.
    XArc(const XPoint& a, const XPoint& b, double angle);
    // Through three points, running through m.
    XArc(const XPoint& a, const XPoint& m, const XPoint& b);
    explicit XArc(const ads_name ent);   // circle and sector of the entity
    // With m the centre and both ends go through it and the arc is rebuilt
    // from them, so a mirror turns its direction.
    XArc(const ads_name ent, double m[4][4]);
    XArc(const XArc&) = default;
    XArc& operator=(const XArc&) = default;
    XArc& operator=(const XSector& sector);   // the angles only

    int Intersection(const XCircle& other, double* a, double* b) const override;
    int Intersection(const XArc& other, double* a, double* b) const override;
    int Intersection(const XLine& line, double* a, double* b) const override;
    int GetExtend(double* lo, double* hi) const override;
    int GetSubArc(const XPoint& p, double chord, XArc& out) const override;
    double Length() const override;
    int MakeLike(const ads_name like) const override;
    int Make(const char* layer) const override;
    int Modify(const ads_name ent) const override;

    double ChordLength() const;
    double Area() const;       // the circular sector; a whole turn folds to 0
    double PathArea() const;   // integral of y dx from start to end
    int operator!() const;
    bool operator==(const XArc& other) const;
    void MidPoint(XPoint& out) const;
    void GetPoints(XPoint& a, XPoint& b) const;
    void SetPoints(const XPoint& a, const XPoint& b);
    XArc Offset(double d) const;   // positive d grows the radius
    double IDirection(int which) const;
    double ODirection(int which) const;
    double* SelectNear(double* a, double* b) const;
    int OSnap(int mode, XPoint& pt) const;
    void TransUCS(double m[4][4]);
};
