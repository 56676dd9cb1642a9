// Where a point, line or rectangle stands against a shape: 0 outside,
// 3 inside, 5 on the boundary (all of it, for a shape), 6 crossing.
#pragma once

class XLine;
class XPoint;
class XPoly;
class XPoly2D;
class XRectAngle;
struct resbuf;

int operator&(const XPoint& p, XPoly& poly);
int operator&(const XPoint& p, XPoly2D& poly);
int operator&(const XPoint& p, const XRectAngle& rect);
int operator&(const XRectAngle& a, const XRectAngle& b);   // not symmetric
int operator&(const XLine& line, XPoly& poly);
int operator&(const XLine& line, XPoly2D& poly);
int operator&(const XRectAngle& rect, XPoly2D& poly);

// An axis-parallel rectangle from the first four RT3DPOINT items of a chain.
int GetRectTangle(const resbuf* pts, XPoint& center, double* w, double* h);
