// An ordered list of points that owns them.
#pragma once
#include "frame/DList.h"
#include "kernel/XPoint.h"

class XPoly2D;
struct resbuf;

class XPointList : public DList<XPoint> {
public:
    XPointList() = default;
    XPointList(const XPointList&) = default;
    XPointList& operator=(const XPointList&) = default;

    // The index of an equal point already held (by XPoint::operator==), or of
    // the appended copy.
    int NewAppend(const XPoint& p);
    XPoint* FindPoint(const XPoint& p);   // the first equal point, or null
    int GetExtend(double* lo, double* hi) const;   // RTNONE when empty
    void Center(double* out) const;
    void SetElevation(double z);
    void TransUCS(double m[4][4]);
    void TransUCS(const resbuf* from, const resbuf* to);
    void AsPoly2D(XPoly2D& out) const;
    void AppendPoint(const XPoint& p) { Append(new XPoint(p)); }
};
