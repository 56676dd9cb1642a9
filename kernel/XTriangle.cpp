// Output triangles.
#include "kernel/XTriangle.h"

#include "kernel/point_position.h"
#include "kernel/vector_routines.h"
#include "platform/acedads.h"
#include "platform/acutads.h"

namespace {
// Corners nearer than this are one corner, whatever _distSnap says.
constexpr double kSameCorner = 1e-9;

void Transform(XPoint* pts, int n, const XPoint& normal, bool toEcs) {
    resbuf wcs, ecs;
    wcs.restype = RTSHORT;
    wcs.resval.rint = 0;
    ecs.restype = RT3DPOINT;
    normal > ecs.resval.rpoint;
    for (int i = 0; i < n; ++i) {
        if (toEcs) acedTrans(pts[i], &wcs, &ecs, 0, pts[i]);
        else acedTrans(pts[i], &ecs, &wcs, 0, pts[i]);
    }
}
}  // namespace

int XTriangle::IsLinear() const {
    if (acutDistance(pt[0], pt[1]) < kSameCorner) return 1;
    return AT_pt_of_line(pt[2], pt[0], pt[1]) != 0;
}

void XTriangle::Wcs2Ecs(XPoint normal) { Transform(pt, 3, normal, true); }
void XTriangle::Ecs2Wcs(XPoint normal) { Transform(pt, 3, normal, false); }
