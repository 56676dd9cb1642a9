// Cutting a bulge polyline: in two at the points nearest to two given
// points, or into one database curve per segment.
#pragma once
#include "platform/acarray.h"

class XPoint;
class XPoly2D;

// i reduced modulo n into 0 .. n-1; i itself when n is not positive.
int DePeriod(int n, int i);

// out1 runs from the cut nearer the start to the other cut, out2 from there
// on around to the first cut; both open. A point with no segment under its
// projection gives RTERROR.
int SplitPoly2D(const XPoly2D& p, const XPoint& a, const XPoint& b, XPoly2D& out1, XPoly2D& out2);

// A new AcDbLine or AcDbArc per segment, appended to out; the caller owns
// them. Clockwise arcs keep their shape but not their direction.
void SplitPoly2D(const XPoly2D& p, AcArray<void*>& out);
