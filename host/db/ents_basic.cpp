// Points, solids, traces and 3D faces.
#include "host/db/stub.h"
#include "host/db/entity_fields.h"
#include "host/db/ocs.h"
#include "platform/dbents.h"

ACRX_DEFINE_MEMBERS(AcDbPoint, AcDbEntity)
ACRX_DEFINE_MEMBERS(AcDbTrace, AcDbEntity)
ACRX_DEFINE_MEMBERS(AcDbSolid, AcDbTrace)
ACRX_DEFINE_MEMBERS(AcDbFace, AcDbEntity)

using namespace lumo::db;

// ---------------------------------------------------------------------------
// POINT

namespace {
using Point = AcDbPoint::Data;
constexpr Field kPointFields[] = {
    FPoint(10, offsetof(Point, position), 0, 0, 0, kRequired),
    FReal(39, offsetof(Point, thickness)),
    FPoint(210, offsetof(Point, normal), 0, 0, 1, kListed),
    FAngle(50, offsetof(Point, rotation)),
};
constexpr Section kPointSections[] = {kEntitySection, MakeSection("AcDbPoint", kPointFields)};
constexpr Record kPointRecord = MakeRecord("POINT", "POINT", kPointSections);
}  // namespace

AcDbPoint::AcDbPoint() = default;
AcDbPoint::AcDbPoint(const AcGePoint3d& position) { m_d.position = position; }
const Record& AcDbPoint::dxfRecord() const { return kPointRecord; }
void* AcDbPoint::dxfData(int level) { return level == 1 ? &m_d : AcDbEntity::dxfData(level); }

Acad::ErrorStatus AcDbPoint::transformBy(const AcGeMatrix3d& xform) {
    m_d.position = xform * m_d.position;
    AcGeVector3d n = xform * m_d.normal;
    if (!n.isZeroLength()) m_d.normal = n.normal();
    return Acad::eOk;
}

// ---------------------------------------------------------------------------
// SOLID and TRACE: corners in the entity's own system.

namespace {
using Trace = AcDbTrace::Data;
constexpr Field kTraceFields[] = {
    FPoint(10, offsetof(Trace, corners[0]), 0, 0, 0, kRequired),
    FPoint(11, offsetof(Trace, corners[1]), 0, 0, 0, kRequired),
    FPoint(12, offsetof(Trace, corners[2]), 0, 0, 0, kRequired),
    FPoint(13, offsetof(Trace, corners[3]), 0, 0, 0, kAlways),
    FReal(39, offsetof(Trace, thickness)),
    FPoint(210, offsetof(Trace, normal), 0, 0, 1, kListed),
};
constexpr Section kTraceSections[] = {kEntitySection, MakeSection("AcDbTrace", kTraceFields)};
constexpr Record kTraceRecord = MakeRecord("TRACE", "TRACE", kTraceSections);
constexpr Record kSolidRecord = MakeRecord("SOLID", "SOLID", kTraceSections);
}  // namespace

AcDbTrace::AcDbTrace() = default;
AcDbTrace::AcDbTrace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3) {
    m_d.corners[0] = p0;
    m_d.corners[1] = p1;
    m_d.corners[2] = p2;
    m_d.corners[3] = p3;
}
const Record& AcDbTrace::dxfRecord() const { return kTraceRecord; }
void* AcDbTrace::dxfData(int level) { return level == 1 ? &m_d : AcDbEntity::dxfData(level); }

Acad::ErrorStatus AcDbTrace::getPointAt(uint16_t index, AcGePoint3d& p) const {
    if (index > 3) return Acad::eInvalidIndex;
    p = OcsToWorld(m_d.normal, m_d.corners[index]);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbTrace::setPointAt(uint16_t index, const AcGePoint3d& p) {
    if (index > 3) return Acad::eInvalidIndex;
    m_d.corners[index] = WorldToOcs(m_d.normal, p);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbTrace::transformBy(const AcGeMatrix3d& xform) {
    AcGePoint3d world[4];
    for (uint16_t i = 0; i < 4; ++i) getPointAt(i, world[i]);
    AcGeVector3d n = xform * m_d.normal;
    if (!n.isZeroLength()) {
        m_d.thickness *= n.length();
        m_d.normal = n.normal();
    }
    for (uint16_t i = 0; i < 4; ++i) setPointAt(i, xform * world[i]);
    return Acad::eOk;
}

AcDbSolid::AcDbSolid() = default;
AcDbSolid::AcDbSolid(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3)
    : AcDbTrace(p0, p1, p2, p3) {}
AcDbSolid::AcDbSolid(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2)
    : AcDbTrace(p0, p1, p2, p2) {}
const Record& AcDbSolid::dxfRecord() const { return kSolidRecord; }

// ---------------------------------------------------------------------------
// 3DFACE: world corners.

namespace {
using Face = AcDbFace::Data;
constexpr Field kFaceFields[] = {
    FPoint(10, offsetof(Face, corners[0]), 0, 0, 0, kRequired),
    FPoint(11, offsetof(Face, corners[1]), 0, 0, 0, kRequired),
    FPoint(12, offsetof(Face, corners[2]), 0, 0, 0, kRequired),
    FPoint(13, offsetof(Face, corners[3]), 0, 0, 0, kAlways),
    FInt16(70, offsetof(Face, invisible), 0, kListed),
};
constexpr Section kFaceSections[] = {kEntitySection, MakeSection("AcDbFace", kFaceFields)};
constexpr Record kFaceRecord = MakeRecord("3DFACE", "3DFACE", kFaceSections);

int16_t EdgeBits(bool e0, bool e1, bool e2, bool e3) {
    return static_cast<int16_t>((e0 ? 0 : 1) | (e1 ? 0 : 2) | (e2 ? 0 : 4) | (e3 ? 0 : 8));
}
}  // namespace

AcDbFace::AcDbFace() = default;
AcDbFace::AcDbFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3,
                   bool e0vis, bool e1vis, bool e2vis, bool e3vis) {
    m_d.corners[0] = p0;
    m_d.corners[1] = p1;
    m_d.corners[2] = p2;
    m_d.corners[3] = p3;
    m_d.invisible = EdgeBits(e0vis, e1vis, e2vis, e3vis);
}
AcDbFace::AcDbFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, bool e0vis, bool e1vis,
                   bool e2vis, bool e3vis)
    : AcDbFace(p0, p1, p2, p2, e0vis, e1vis, e2vis, e3vis) {}
const Record& AcDbFace::dxfRecord() const { return kFaceRecord; }
void* AcDbFace::dxfData(int level) { return level == 1 ? &m_d : AcDbEntity::dxfData(level); }

Acad::ErrorStatus AcDbFace::getVertexAt(uint16_t index, AcGePoint3d& p) const {
    if (index > 3) return Acad::eInvalidIndex;
    p = m_d.corners[index];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::setVertexAt(uint16_t index, const AcGePoint3d& p) {
    if (index > 3) return Acad::eInvalidIndex;
    m_d.corners[index] = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::isEdgeVisibleAt(uint16_t index, bool& visible) const {
    if (index > 3) return Acad::eInvalidIndex;
    visible = !(m_d.invisible & (1 << index));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::makeEdgeInvisibleAt(uint16_t index) {
    if (index > 3) return Acad::eInvalidIndex;
    m_d.invisible = static_cast<int16_t>(m_d.invisible | (1 << index));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::makeEdgeVisibleAt(uint16_t index) {
    if (index > 3) return Acad::eInvalidIndex;
    m_d.invisible = static_cast<int16_t>(m_d.invisible & ~(1 << index));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::transformBy(const AcGeMatrix3d& xform) {
    for (auto& c : m_d.corners) c = xform * c;
    return Acad::eOk;
}
