// Spatial faces: a 3DFACE's data, the triangle half of a split
// quadrilateral, and a face by three points.
#pragma once
#include "kernel/XLine.h"
#include "kernel/XPoint.h"
#include "platform/adsdef.h"

class X3DFace3C;

// Four corners and the group-70 word: bits 1, 2, 4, 8 hide edge i (corner
// i to corner i+1, the last to corner 0); bit 16 marks an invalid face.
class X3DFace {
public:
    static constexpr int kInvalid = 16;

    explicit X3DFace(int faceFlags = 0) : flags(faceFlags) {}
    // A 3DFACE's list (group 0 checked), corners through m when it is not
    // null; a corner beyond 1e9 on any axis marks the face invalid.
    X3DFace(const resbuf* entityList, double m[4][4]);
    X3DFace(const ads_name entity, double m[4][4]);
    // The quadrilateral of two coplanar triangles sharing their hidden edge.
    X3DFace(X3DFace3C& a, X3DFace3C& b);
    X3DFace(const X3DFace&) = default;
    X3DFace& operator=(const X3DFace&) = default;
    virtual ~X3DFace() = default;

    int operator!() const { return (flags & kInvalid) != 0; }
    int IsLinear() const;
    int IsPoint() const;
    int GetExtend(double* lo, double* hi) const;   // RTNORM
    // 1 with the sides' lengths when the corners make a rectangle.
    int IsRectangular(double* w, double* h) const;
    XPoint Direction() const;   // unit normal of (c1 - c0) x (c2 - c1)

    // A 3DFACE of groups 10 to 13 and 70; null layer: the current one.
    int Make(const char* layer) const;
    int Modify(const ads_name entity) const;

    XPoint pt[4];
    int flags;
};

// A triangle in corners 0, 1, 2 with exactly one invisible edge (flags 1, 2
// or 4); anything else is marked invalid.
class X3DFace3C : public X3DFace {
public:
    X3DFace3C() = default;
    explicit X3DFace3C(const resbuf* entityList);
    explicit X3DFace3C(const ads_name entity);
    X3DFace3C(const X3DFace3C&) = default;
    X3DFace3C& operator=(const X3DFace3C&) = default;

    int GetMergeLine(XLine& line) const;   // the hidden edge; RTERROR when invalid
    int MergeEdge() const;                 // its index, -1 when invalid
    int OppHidePoint() const;              // the corner facing it, -1 when invalid

private:
    void Collapse();   // drops the corner of the first empty edge
};

// A face by three points.
class XRectFace {
public:
    XRectFace() = default;
    XRectFace(const XRectFace&) = default;
    XRectFace& operator=(const XRectFace&) = default;
    // 1 when the second or third point is the origin within 1e-6.
    int operator!() const { return !pt[1] || !pt[2]; }

    XPoint pt[3];
};
