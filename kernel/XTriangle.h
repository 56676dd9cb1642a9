// An output triangle of the triangulator, with a mask of invisible edges:
// bit 0 for the edge from corner 2 to corner 1, bit 1 from corner 1 to
// corner 0, bit 2 from corner 0 to corner 2.
#pragma once
#include "kernel/XPoint.h"

class XTriangle {
public:
    XTriangle() : flags(0) {}
    XTriangle(const XPoint& a, const XPoint& b, const XPoint& c, int edgeFlags) : flags(edgeFlags), pt{a, b, c} {}
    XTriangle(const XTriangle&) = default;
    XTriangle& operator=(const XTriangle&) = default;

    int IsInvisible() const { return flags == 7; }
    // 1 when corners 0 and 1 are closer than 1e-9 or corner 2 lies on their line.
    int IsLinear() const;
    // Between World and the entity coordinate system of the normal.
    void Wcs2Ecs(XPoint normal);
    void Ecs2Wcs(XPoint normal);

    int flags;
    XPoint pt[3];
};
