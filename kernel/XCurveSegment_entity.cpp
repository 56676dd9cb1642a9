#include "kernel/XCurveSegment_entity.h"

#include "kernel/XCurveSegment.h"
#include "platform/acedads.h"
#include "platform/acutads.h"
#include "platform/dbents.h"

namespace {
// The centre in the coordinate system of the entity's normal.
XPoint ToOwnSystem(const AcGePoint3d& center, const AcGeVector3d& normal) {
    resbuf from{}, to{};
    from.restype = RTSHORT;
    from.resval.rint = 0;
    to.restype = RT3DPOINT;
    to.resval.rpoint[0] = normal.x;
    to.resval.rpoint[1] = normal.y;
    to.resval.rpoint[2] = normal.z;
    XPoint c(center), out;
    if (acedTrans(c, &from, &to, 0, out) != RTNORM) return c;
    return out;
}
}  // namespace

int ReadCurveEntity(const AcDbEntity* ent, int bounded, XCurveSegment& out) {
    out = XCurveSegment(bounded);
    out.bounded = 0;
    if (const auto* line = AcDbLine::cast(ent)) {
        out = XCurveSegment(XPoint(line->startPoint()), XPoint(line->endPoint()), 0.0, bounded);
        return RTNORM;
    }
    if (const auto* arc = AcDbArc::cast(ent)) {
        XPoint c = ToOwnSystem(arc->center(), arc->normal());
        XArc a(c, arc->radius(), arc->startAngle(), arc->endAngle());
        out = a;
        return RTNORM;
    }
    if (const auto* circle = AcDbCircle::cast(ent)) {
        XPoint c = ToOwnSystem(circle->center(), circle->normal());
        out.bounded = bounded;
        out = XCircle(c, circle->radius());
        return RTNORM;
    }
    return RTERROR;
}

AcDbCurve* AsAcDbCurve(const XCurveSegment& s) {
    if (s.Is(CurveLine)) return new AcDbLine(s.start, s.end);
    if (s.Is(CurveArc)) {
        XArc arc = s.GetArc();
        return new AcDbArc(arc.center, arc.radius, arc.startAngle, arc.endAngle);
    }
    return nullptr;
}

resbuf* CurveMask(const char* layer) {
    // RTDXF0 stands for group 0, which would end the list.
    return acutBuildList(-4, "<or", RTDXF0, "LINE", RTDXF0, "ARC", RTDXF0, "CIRCLE", -4, "or>", 8,
                         layer ? layer : "*", 0);
}
