// Entity coordinate systems and transforms of planar entities.
#include "host/db/ocs.h"

#include <cmath>

namespace lumo::db {

namespace {
constexpr double kSimilarityTol = 1e-9;   // relative: the plane's axes stay equal and square
}

AcGePoint3d OcsToWorld(const AcGeVector3d& normal, const AcGePoint3d& p) {
    return AcGeMatrix3d::planeToWorld(normal) * p;
}

AcGePoint3d WorldToOcs(const AcGeVector3d& normal, const AcGePoint3d& p) {
    return AcGeMatrix3d::worldToPlane(normal) * p;
}

AcGePoint3d PlaneMap::Point(const AcGePoint3d& ocs) const {
    return WorldToOcs(newNormal, m * OcsToWorld(oldNormal, ocs));
}

PlaneMap MapPlane(const AcGeVector3d& normal, const AcGeMatrix3d& m) {
    PlaneMap pm;
    pm.m = m;
    pm.oldNormal = normal.isZeroLength() ? AcGeVector3d(0, 0, 1) : normal.normal();
    AcGeMatrix3d toWorld = AcGeMatrix3d::planeToWorld(pm.oldNormal);
    AcGeVector3d x = m * (toWorld * AcGeVector3d(1, 0, 0));
    AcGeVector3d y = m * (toWorld * AcGeVector3d(0, 1, 0));
    AcGeVector3d n = m * pm.oldNormal;
    double sx = x.length(), sy = y.length();
    pm.scale = sx;
    if (sx <= 0 || std::fabs(sx - sy) > kSimilarityTol * sx || std::fabs(x.dotProduct(y)) > kSimilarityTol * sx * sy)
        return pm;
    AcGeVector3d n1 = x.crossProduct(y).normal();
    pm.mirrored = n1.dotProduct(n) < 0;
    pm.newNormal = pm.mirrored ? -n1 : n1;
    AcGeVector3d xo = AcGeMatrix3d::worldToPlane(pm.newNormal) * x;
    pm.angle = std::atan2(xo.y, xo.x);
    pm.ok = true;
    return pm;
}

}  // namespace lumo::db
