// Entity coordinate systems and how a transform carries an entity that
// lives in one (circle, arc, text, block reference, polyline).
#pragma once
#include "platform/acge.h"

namespace lumo::db {

// World to the entity system of a normal, and back (arbitrary-axis rule).
AcGePoint3d OcsToWorld(const AcGeVector3d& normal, const AcGePoint3d& p);
AcGePoint3d WorldToOcs(const AcGeVector3d& normal, const AcGePoint3d& p);

// A transform seen from an entity's plane: where a point of the old system
// lands in the new one, the new normal, the scale within the plane, the
// angle that the old x axis turns by, and whether the plane is mirrored
// (angles then run the other way). `ok` is false when the transform doesn't
// keep circles circles (non-uniform scale in the plane).
struct PlaneMap {
    AcGeMatrix3d m;
    AcGeVector3d oldNormal, newNormal;
    double scale = 1;
    double angle = 0;
    bool mirrored = false;
    bool ok = false;

    AcGePoint3d Point(const AcGePoint3d& ocs) const;
    // An angle of the old plane in the new plane.
    double Angle(double a) const { return mirrored ? angle - a : angle + a; }
};
PlaneMap MapPlane(const AcGeVector3d& normal, const AcGeMatrix3d& m);

}  // namespace lumo::db
