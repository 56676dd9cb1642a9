#include "kernel/XCurveSegment_entity.h"

#include <numbers>

#include "kernel/XCurveSegment.h"
#include "kernel/entity_lists.h"
#include "platform/acdbads.h"
#include "platform/acedads.h"
#include "platform/acutads.h"
#include "platform/dbents.h"

namespace {
constexpr double kPi = std::numbers::pi;
// The direction mark's size, in drawing units whatever the segment.
constexpr double kArrowLength = 500.0;
constexpr double kArrowHalfWidth = 100.0;

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

XCurveSegment::XCurveSegment(const ads_name ent, int isBounded) : XLine(0), angle(0.0) {
    AcDbObjectId id;
    if (acdbGetObjectId(id, ent) != Acad::eOk) return;
    AcDbEntity* obj = nullptr;
    if (acdbOpenAcDbEntity(obj, id, AcDb::kForRead) != Acad::eOk || !obj) return;
    ReadCurveEntity(obj, isBounded, *this);
    obj->close();
}

AcDbCurve* XCurveSegment::AsAcDbCurve() const { return ::AsAcDbCurve(*this); }

resbuf* XCurveSegment::Mask(const char* layer) { return CurveMask(layer); }

int XCurveSegment::Make(const char* layer) const {
    switch (KindStrict()) {
    case kLine: return GetLine().Make(layer);
    case kArc: return GetArc().Make(layer);
    case kCircle: return GetCircle().Make(layer);
    }
    return RTERROR;
}

int XCurveSegment::MakeLike(const ads_name like) const {
    switch (KindStrict()) {
    case kLine: return GetLine().MakeLike(like);
    case kArc: return GetArc().MakeLike(like);
    case kCircle: return GetCircle().MakeLike(like);
    }
    return RTERROR;
}

int XCurveSegment::MakeArrow(ads_name out) const {
    XPoint m = MidPoint();
    double h = Direction(m);
    XPoint back(m, h - kPi, kArrowLength);
    XPoint a(back, h + kPi / 2.0, kArrowHalfWidth), b(back, h - kPi / 2.0, kArrowHalfWidth);
    XPoint tip(m, h, kArrowLength);
    int result = MakeEntityFromGroups("SOLID", nullptr,
                                      acutBuildList(10, &a.x, 11, &b.x, 12, &tip.x, 13, &tip.x, 0));
    if (result == RTNORM && acdbEntLast(out) != RTNORM) return RTERROR;
    return result;
}
