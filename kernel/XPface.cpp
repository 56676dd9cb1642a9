// Polyface meshes in memory.
#include "kernel/XPface.h"

int XPface::VertexNumber(const XPoint& p) { return NewAppend(p) + 1; }

void XTrianglePface::AsPface(XPface& out) const {
    for (const XTriangle& t : *this) {
        // Face edge c0-c1 is the triangle's bit 1, c1-c2 bit 0, c2-c0 bit 2.
        int i1 = out.VertexNumber(t.pt[0]), i2 = out.VertexNumber(t.pt[1]), i3 = out.VertexNumber(t.pt[2]);
        if (t.flags & 2) i1 = -i1;
        if (t.flags & 1) i2 = -i2;
        if (t.flags & 4) i3 = -i3;
        out.faces.Append(new XPolyFacet(i1, i2, i3, 0));
    }
}
