// A polygon whose edges carry a visibility flag, and its triangulator.
// Edge i runs from vertex i to vertex i+1; every index is taken cyclically.
// The triangulator cuts ears next to reflex vertices and falls back to a
// fan, so a polygon without a usable ear may give overlapping triangles.
#pragma once
#include "frame/DList.h"
#include "kernel/XPoly.h"
#include "kernel/XTriangle.h"
#include "platform/adsdef.h"

class XPolygonEx : public XPoly {
public:
    XPolygonEx() = default;
    XPolygonEx(const XPolygonEx&) = default;
    XPolygonEx& operator=(const XPolygonEx&) = default;
    explicit XPolygonEx(const XPoly& poly);   // every edge visible
    // A polyline entity flattened at 30 chords a turn; a spline-fitted or
    // 3D form, or an open one whose ends differ, leaves it empty.
    explicit XPolygonEx(const ads_name entity);

    void Reset();
    void AppendNode(const XPoint& p, int isVisible);
    void RemoveNode(int i);   // vertex i and the flag of edge i
    void Reverse();           // both lists, each by itself

    XPoint* operator[](int i) const { return GetVertex(i); }
    XPoint* GetVertex(int i) const { return GetAt(LimitCycle(i, Count())); }
    int IsVisible(int i) const;
    void SetVisible(int i, int v);
    double GetEdgeLength(int i) const;
    // The interior angle at vertex i of a counter-clockwise polygon, in
    // 0 .. 2 pi; above pi at a reflex vertex.
    double GetAngle(int i) const;
    // The unit normal from the first vertex and two more that span a
    // plane; RTERROR when there are none.
    int GetNormal(XPoint& n) const;
    void Wcs2Ecs(XPoint normal);
    void Ecs2Wcs(XPoint normal);

    // Triangles appended to out, corners reversed against the polygon's
    // counter-clockwise order. With planar 0 the polygon is first moved to
    // its own plane and the triangles back. Fails only without a normal.
    int Trianglize(DList<XTriangle>& out, int planar) const;
    // The triangulation itself, on this polygon, which it consumes.
    int _Trianglize(DList<XTriangle>& out);

    // A closed polyline of the vertices through the PLINE command; the
    // command's status.
    int Make(const char* layer) const;

    DList<int> visible;

private:
    int LimitCycle(int i, int n) const { return n <= 0 ? i : ((i % n) + n) % n; }
};

// The interior angle at p between its neighbours a (before) and b (after),
// computed as XPolygonEx::GetAngle does.
double CornerAngle(const XPoint& a, const XPoint& p, const XPoint& b);

// Joins the island b into a by a bridge of invisible edges at their nearest
// vertices; b must run against a for a simple result. RTNORM.
int ConnectPolygon(const XPolygonEx& a, const XPolygonEx& b, XPolygonEx& out);
