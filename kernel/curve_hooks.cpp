// Points, lines, circles and arcs to and from the drawing's entities.
#include <cmath>
#include <numbers>
#include <strings.h>

#include "kernel/XArc.h"
#include "kernel/XLine.h"
#include "kernel/entity_lists.h"
#include "kernel/matrix_routines.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"
#include "platform/dbents.h"
#include "platform/dbmain.h"

namespace {
constexpr double kTwoPi = 2.0 * std::numbers::pi;

XPoint PointGroup(const resbuf* list, int code) {
    const resbuf* g = FindGroup(list, code);
    return g ? XPoint(g->resval.rpoint) : XPoint();
}

double RealGroup(const resbuf* list, int code, double fallback) {
    const resbuf* g = FindGroup(list, code);
    return g ? g->resval.rreal : fallback;
}

bool IsKind(const resbuf* list, const char* type) {
    const resbuf* g = FindGroup(list, 0);
    return g && g->resval.rstring && strcasecmp(g->resval.rstring, type) == 0;
}
}  // namespace

int XPoint::Make(const char* layer) const {
    return MakeEntityFromGroups("POINT", layer, acutBuildList(10, &x, 0));
}

int XPoint::MakeLike(const ads_name like) const { return MakeEntityLike(like, acutBuildList(10, &x, 0)); }

int XPoint::Modify(const ads_name ent) const { return ModifyEntityGroups(ent, acutBuildList(10, &x, 0), nullptr); }

XLine::XLine(const ads_name ent, int, double m[4][4]) : bounded(0) {
    AcDbObjectId id;
    if (acdbGetObjectId(id, ent) != Acad::eOk) return;
    AcDbEntity* obj = nullptr;
    if (acdbOpenAcDbEntity(obj, id, AcDb::kForRead) != Acad::eOk || !obj) return;
    if (const AcDbLine* line = AcDbLine::cast(obj)) {
        start = line->startPoint();
        end = line->endPoint();
        if (m) TransUCS(m);
    }
    obj->close();
}

int XLine::Make(const char* layer) const {
    return MakeEntityFromGroups("LINE", layer, acutBuildList(10, &start.x, 11, &end.x, 0));
}

int XLine::MakeLike(const ads_name like) const {
    return MakeEntityLike(like, acutBuildList(10, &start.x, 11, &end.x, 0));
}

int XLine::Modify(const ads_name ent) const {
    return ModifyEntityGroups(ent, acutBuildList(10, &start.x, 11, &end.x, 0), "LINE");
}

XCircle::XCircle(const ads_name ent, double m[4][4]) : radius(0.0) {
    resbuf* list = acdbEntGet(ent);
    if (!list) return;
    center = PointGroup(list, 10);
    radius = RealGroup(list, 40, 0.0);
    acutRelRb(list);
    if (!m) return;
    XPoint rim(center.x + radius, center.y, center.z);
    AT_xformpt(m, center, center);
    AT_xformpt(m, rim, rim);
    radius = center.Distance(rim);
}

int XCircle::Make(const char* layer) const {
    return MakeEntityFromGroups("CIRCLE", layer, acutBuildList(10, &center.x, 40, radius, 0));
}

int XCircle::MakeLike(const ads_name like) const {
    return MakeEntityLike(like, acutBuildList(10, &center.x, 40, radius, 0));
}

int XCircle::Modify(const ads_name ent) const {
    return ModifyEntityGroups(ent, acutBuildList(10, &center.x, 40, radius, 0), nullptr);
}

XSector::XSector(const ads_name ent) : startAngle(0.0), endAngle(kTwoPi) {
    resbuf* list = acdbEntGet(ent);
    if (IsKind(list, "ARC")) {
        startAngle = RealGroup(list, 50, 0.0);
        endAngle = RealGroup(list, 51, kTwoPi);
    }
    acutRelRb(list);
}

XArc::XArc(const ads_name ent) : XCircle(ent, nullptr), XSector(ent) {}

XArc::XArc(const ads_name ent, double m[4][4]) : XArc(ent) {
    if (!m) return;
    XPoint s, e;
    GetPoints(s, e);
    AT_xformpt(m, center, center);
    AT_xformpt(m, s, s);
    AT_xformpt(m, e, e);
    radius = center.Distance(s);
    startAngle = acutAngle(center, s);
    endAngle = acutAngle(center, e);
}

int XArc::Make(const char* layer) const {
    return MakeEntityFromGroups("ARC", layer,
                                acutBuildList(10, &center.x, 40, radius, 50, startAngle, 51, endAngle, 0));
}

int XArc::MakeLike(const ads_name like) const {
    return MakeEntityLike(like, acutBuildList(10, &center.x, 40, radius, 50, startAngle, 51, endAngle, 0));
}

int XArc::Modify(const ads_name ent) const {
    return ModifyEntityGroups(ent, acutBuildList(10, &center.x, 50, startAngle, 51, endAngle, 40, radius, 0),
                              nullptr);
}
