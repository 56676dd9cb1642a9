// A segment, or with bounded 0 the unbounded line through two points.
#pragma once
#include "kernel/XPoint.h"
#include "platform/adsdef.h"

class XArc;
class XCircle;
class XPoly;
class PointList;
struct resbuf;

class XLine {
public:
    explicit XLine(int isBounded = 0) : bounded(isBounded) {}
    XLine(const double* a, const double* b, int isBounded) : start(a), end(b), bounded(isBounded) {}
    XLine(const XPoint& p, double angle);   // to 100.0 along angle, unbounded
    // The ends of a LINE entity, through m when m is given; zero ends and
    // flag 0 for anything else. The int is accepted and not kept.
    XLine(const ads_name ent, int, double m[4][4]);
    XLine(const XLine&) = default;
    XLine& operator=(const XLine&) = default;
    virtual ~XLine() = default;

    virtual void TransUCS(double m[4][4]);
    virtual void TransUCS(const resbuf* from, const resbuf* to);
    virtual void Reverse();
    virtual int GetExtend(XPoint& lo, XPoint& hi) const;   // RTNORM
    virtual double Length() const;
    virtual double PathArea() const;   // signed area between the segment and the X axis
    virtual int Make(const char* layer) const;   // a LINE; null layer: the current one

    int MakeLike(const ads_name like) const;     // a LINE copying the model's list
    int Modify(const ads_name ent) const;        // RTERROR unless ent is a LINE

    void SetPoints(const XPoint& a, const XPoint& b);
    void SetElevation(double z);
    double* NearPoint(const double* p);
    double* FarPoint(const double* p);
    void MidPoint(XPoint& out) const;
    double Direction() const;

    bool operator==(const XLine& other) const;
    int operator!=(const XLine& other) const { return !(*this == other); }
    int operator!() const;   // the ends closer than _distSnap on every axis

    int Intersection(const XLine& other, double* out) const;   // 1 or 0
    int Intersection(const XArc& arc, double* a, double* b) const;         // 0, 1, 2
    int Intersection(const XCircle& circle, double* a, double* b) const;   // 0, 1, 2
    // Inserts the crossings with the polygon's edges into list; the count of
    // points inserted.
    int Intersection(XPoly& poly, PointList& list) const;

    XLine Offset(double d) const;   // positive d to the right of travel
    int GetSubLine(const XPoint& p, double len, XLine& out) const;
    int OSnap(int mode, XPoint& pt) const;
    int OnWhichSide(const XPoint& p) const;   // 0 left, 1 right, 2 on it

    XPoint start;
    XPoint end;
    int bounded;
};
