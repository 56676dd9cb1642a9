// Polyface meshes in memory, and lists of triangles drawn as one.
#pragma once
#include "frame/DList.h"
#include "kernel/XPointList.h"
#include "kernel/XTriangle.h"
#include "platform/acarray.h"

// A face record: four vertex numbers from 1, negative where the edge that
// starts there is invisible, 0 for an absent fourth corner.
class XPolyFacet {
public:
    XPolyFacet(int a = 0, int b = 0, int c = 0, int d = 0) : index{a, b, c, d} {}
    // The face's VERTEX record; null layer: the current one.
    int Make(const char* layer) const;

    int index[4];
};

// The vertices (the point list) and the faces of a mesh.
class XPface : public XPointList {
public:
    XPface() = default;
    XPface(const XPface&) = default;
    XPface& operator=(const XPface&) = default;

    // The index from 1 of an equal vertex, or of the one appended.
    int VertexNumber(const XPoint& p);
    // POLYLINE, its VERTEX records, the face records and SEQEND; the
    // result of the last one made.
    int Make(const char* layer) const;

    DList<XPolyFacet> faces;
};

// An owning list of triangles.
class XTrianglePface : public DList<XTriangle> {
public:
    XTrianglePface() = default;
    // One face per triangle over shared vertices, diagonals hidden.
    void AsPface(XPface& out) const;
    int MakePolyface(const char* layer) const;
    int MakeSolid(const char* layer) const;   // a SOLID per triangle
};

// The 3DFACE objects of the array (others skipped) as one mesh for the
// caller; null when no vertex or face results.
XPface* ConstructPolyFace(const AcArray<void*>& faces);
