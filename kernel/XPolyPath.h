// A bulge polyline under the name of a path: the same value, its own type.
#pragma once
#include "kernel/XPoly2D.h"

class XPolyPath : public XPoly2D {
public:
    XPolyPath() = default;
    explicit XPolyPath(const XPoly2D& poly) : XPoly2D(poly) {}
    explicit XPolyPath(const ads_name ent) : XPoly2D(ent) {}
    XPolyPath(const XPolyPath&) = default;
    XPolyPath& operator=(const XPolyPath&) = default;
    ~XPolyPath() override = default;
};
