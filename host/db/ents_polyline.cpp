// POLYLINE (2D, 3D, polygon mesh, polyface mesh) and its VERTEX kinds.
#include "host/db/database_impl.h"
#include "host/db/entity_fields.h"
#include "host/db/ocs.h"
#include "platform/dbents.h"

ACRX_DEFINE_MEMBERS(AcDb2dPolyline, AcDbCurve)
ACRX_DEFINE_MEMBERS(AcDb3dPolyline, AcDbCurve)
ACRX_DEFINE_MEMBERS(AcDbPolygonMesh, AcDbEntity)
ACRX_DEFINE_MEMBERS(AcDbPolyFaceMesh, AcDbEntity)
ACRX_DEFINE_MEMBERS(AcDbVertex, AcDbEntity)
ACRX_DEFINE_MEMBERS(AcDb2dVertex, AcDbVertex)
ACRX_DEFINE_MEMBERS(AcDb3dPolylineVertex, AcDbVertex)
ACRX_DEFINE_MEMBERS(AcDbPolygonMeshVertex, AcDbVertex)
ACRX_DEFINE_MEMBERS(AcDbPolyFaceMeshVertex, AcDbVertex)
ACRX_DEFINE_MEMBERS(AcDbFaceRecord, AcDbVertex)

using namespace lumo::db;

namespace {
using Poly = PolylineData;

#define LUMO_POLYLINE_FIELDS                                                 \
    FInt16(66, offsetof(Poly, follows), 1, kAlways),                         \
    FPoint(10, offsetof(Poly, origin), 0, 0, 0, kAlways),                    \
    FReal(39, offsetof(Poly, thickness)),                                    \
    FInt16(70, offsetof(Poly, flags), 0, kAlways),                           \
    FReal(40, offsetof(Poly, startWidth)),                                   \
    FReal(41, offsetof(Poly, endWidth)),                                     \
    FInt16(71, offsetof(Poly, m)),                                           \
    FInt16(72, offsetof(Poly, n)),                                           \
    FInt16(73, offsetof(Poly, mDensity)),                                    \
    FInt16(74, offsetof(Poly, nDensity)),                                    \
    FInt16(75, offsetof(Poly, curveType)),                                   \
    FPoint(210, offsetof(Poly, normal), 0, 0, 1, kListed)

constexpr Field kPolyFields[] = {LUMO_POLYLINE_FIELDS};
#undef LUMO_POLYLINE_FIELDS
constexpr Section k2dSections[] = {kEntitySection, MakeSection("AcDb2dPolyline", kPolyFields)};
constexpr Section k3dSections[] = {kEntitySection, MakeSection("AcDb3dPolyline", kPolyFields)};
constexpr Section kMeshSections[] = {kEntitySection, MakeSection("AcDbPolygonMesh", kPolyFields)};
constexpr Section kPfaceSections[] = {kEntitySection, MakeSection("AcDbPolyFaceMesh", kPolyFields)};
constexpr Record k2dRecord = MakeRecord("POLYLINE", "POLYLINE", k2dSections);
constexpr Record k3dRecord = MakeRecord("POLYLINE", "POLYLINE", k3dSections);
constexpr Record kMeshRecord = MakeRecord("POLYLINE", "POLYLINE", kMeshSections);
constexpr Record kPfaceRecord = MakeRecord("POLYLINE", "POLYLINE", kPfaceSections);

using Vertex = AcDbVertex::Data;
constexpr Section kVertexSection{"AcDbVertex", nullptr, 0};
constexpr Field k2dVertexFields[] = {
    FPoint(10, offsetof(Vertex, position), 0, 0, 0, kRequired),
    FReal(40, offsetof(Vertex, startWidth)),
    FReal(41, offsetof(Vertex, endWidth)),
    FReal(42, offsetof(Vertex, bulge), 0, kListed),
    FInt16(70, offsetof(Vertex, flags), 0, kAlways),
    FAngle(50, offsetof(Vertex, tangent)),
};
constexpr Field kPlainVertexFields[] = {
    FPoint(10, offsetof(Vertex, position), 0, 0, 0, kRequired),
    FInt16(70, offsetof(Vertex, flags), 0, kAlways),
};
constexpr Field kFaceFields[] = {
    FPoint(10, offsetof(Vertex, position), 0, 0, 0, kAlways),
    FInt16(70, offsetof(Vertex, flags), 128, kAlways),
    FInt16(71, offsetof(Vertex, index[0])),
    FInt16(72, offsetof(Vertex, index[1])),
    FInt16(73, offsetof(Vertex, index[2])),
    FInt16(74, offsetof(Vertex, index[3])),
};
constexpr Section k2dVertexSections[] = {kEntitySection, kVertexSection, MakeSection("AcDb2dVertex", k2dVertexFields)};
constexpr Section k3dVertexSections[] = {kEntitySection, kVertexSection,
                                         MakeSection("AcDb3dPolylineVertex", kPlainVertexFields)};
constexpr Section kMeshVertexSections[] = {kEntitySection, kVertexSection,
                                           MakeSection("AcDbPolygonMeshVertex", kPlainVertexFields)};
constexpr Section kPfaceVertexSections[] = {kEntitySection, kVertexSection,
                                            MakeSection("AcDbPolyFaceMeshVertex", kPlainVertexFields)};
constexpr Section kFaceSections[] = {kEntitySection, kVertexSection, MakeSection("AcDbFaceRecord", kFaceFields)};
constexpr Record k2dVertexRecord = MakeRecord("VERTEX", "VERTEX", k2dVertexSections);
constexpr Record k3dVertexRecord = MakeRecord("VERTEX", "VERTEX", k3dVertexSections);
constexpr Record kMeshVertexRecord = MakeRecord("VERTEX", "VERTEX", kMeshVertexSections);
constexpr Record kPfaceVertexRecord = MakeRecord("VERTEX", "VERTEX", kPfaceVertexSections);
constexpr Record kFaceRecord = MakeRecord("VERTEX", "VERTEX", kFaceSections);

AcDbVertex* VertexAt(const std::vector<AcDbStub*>& ids, bool last) {
    if (ids.empty()) return nullptr;
    AcDbStub* s = last ? ids.back() : ids.front();
    return s->object ? static_cast<AcDbVertex*>(s->object) : nullptr;
}
}  // namespace

// ---------------------------------------------------------------------------

AcDbObjectIterator* lumo::db::PolylineParts::vertexIterator() const { return new AcDbObjectIterator(subents); }

Acad::ErrorStatus lumo::db::PolylineParts::addVertex(AcDbEntity& self, AcDbObjectId* id, AcDbVertex* vertex) {
    if (id) id->setNull();
    if (!vertex) return Acad::eNullObjectPointer;
    AcDbDatabase* db = self.database();
    if (!db) return Acad::eNoDatabase;
    if (vertex->stub()) return Acad::eAlreadyInDb;
    auto& impl = db->impl();
    vertex->setPropertiesFrom(&self);
    AcDbStub* s = impl.Add(vertex, self.objectId());
    subents.push_back(s);
    if (!seqend) {
        auto* end = new AcDbSequenceEnd;
        end->setPropertiesFrom(&self);
        seqend = impl.Add(end, self.objectId());
    }
    vertex->openFor(AcDb::kForWrite);
    if (id) *id = s;
    return Acad::eOk;
}

void* AcDbVertex::dxfData(int level) { return level == 1 ? &m_v : AcDbEntity::dxfData(level); }

#define LUMO_POLYLINE_DATA(CLASS, RECORD)                                                       \
    const Record& CLASS::dxfRecord() const { return RECORD; }                                    \
    void* CLASS::dxfData(int level) { return level == 1 ? &poly : AcDbEntity::dxfData(level); }
LUMO_POLYLINE_DATA(AcDb2dPolyline, k2dRecord)
LUMO_POLYLINE_DATA(AcDb3dPolyline, k3dRecord)
LUMO_POLYLINE_DATA(AcDbPolygonMesh, kMeshRecord)
LUMO_POLYLINE_DATA(AcDbPolyFaceMesh, kPfaceRecord)
#undef LUMO_POLYLINE_DATA

AcDb2dPolyline::AcDb2dPolyline() = default;

AcDb2dPolyline::AcDb2dPolyline(AcDb::Poly2dType type, const AcGePoint3dArray& vertices, double elevation,
                               bool closed, double startWidth, double endWidth) {
    poly.origin.z = elevation;
    poly.flags = static_cast<int16_t>((closed ? 1 : 0) | (type != AcDb::k2dSimplePoly ? 4 : 0));
    poly.curveType = type == AcDb::k2dQuadSplinePoly ? 5 : type == AcDb::k2dCubicSplinePoly ? 6 : 0;
    poly.startWidth = startWidth;
    poly.endWidth = endWidth;
    for (int i = 0; i < vertices.length(); ++i) {
        const AcGePoint3d& p = vertices[i];
        m_pending.push_back(new AcDb2dVertex(AcGePoint3d(p.x, p.y, elevation), 0, startWidth, endWidth));
    }
}

AcDb2dPolyline::~AcDb2dPolyline() {
    for (AcDb2dVertex* v : m_pending) delete v;
}

AcDb::Poly2dType AcDb2dPolyline::polyType() const {
    if (poly.flags & 4) return poly.curveType == 5 ? AcDb::k2dQuadSplinePoly : AcDb::k2dCubicSplinePoly;
    return (poly.flags & 2) ? AcDb::k2dFitCurvePoly : AcDb::k2dSimplePoly;
}

AcGePoint3d AcDb2dPolyline::vertexPosition(const AcDb2dVertex& vertex) const {
    AcGePoint3d p = vertex.position();
    return OcsToWorld(poly.normal, AcGePoint3d(p.x, p.y, poly.origin.z));
}

Acad::ErrorStatus AcDb2dPolyline::getStartPoint(AcGePoint3d& p) const {
    auto* v = VertexAt(subents, false);
    if (!v) return Acad::eDegenerateGeometry;
    p = vertexPosition(static_cast<const AcDb2dVertex&>(*v));
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::getEndPoint(AcGePoint3d& p) const {
    auto* v = VertexAt(subents, !isClosed());
    if (!v) return Acad::eDegenerateGeometry;
    p = vertexPosition(static_cast<const AcDb2dVertex&>(*v));
    return Acad::eOk;
}

AcDb3dPolyline::AcDb3dPolyline() { poly.flags = 8; }

AcDb::Poly3dType AcDb3dPolyline::polyType() const {
    if (!(poly.flags & 4)) return AcDb::k3dSimplePoly;
    return poly.curveType == 5 ? AcDb::k3dQuadSplinePoly : AcDb::k3dCubicSplinePoly;
}

Acad::ErrorStatus AcDb3dPolyline::getStartPoint(AcGePoint3d& p) const {
    auto* v = VertexAt(subents, false);
    if (!v) return Acad::eDegenerateGeometry;
    p = v->data().position;
    return Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::getEndPoint(AcGePoint3d& p) const {
    auto* v = VertexAt(subents, !isClosed());
    if (!v) return Acad::eDegenerateGeometry;
    p = v->data().position;
    return Acad::eOk;
}

AcDbPolygonMesh::AcDbPolygonMesh() { poly.flags = 16; }

AcDbPolyFaceMesh::AcDbPolyFaceMesh() { poly.flags = 64; }

Acad::ErrorStatus AcDbPolyFaceMesh::appendVertex(AcDbPolyFaceMeshVertex* vertex) {
    Acad::ErrorStatus es = addVertex(*this, nullptr, vertex);
    if (es == Acad::eOk) ++poly.m;
    return es;
}

Acad::ErrorStatus AcDbPolyFaceMesh::appendFaceRecord(AcDbFaceRecord* face) {
    Acad::ErrorStatus es = addVertex(*this, nullptr, face);
    if (es == Acad::eOk) ++poly.n;
    return es;
}

// ---------------------------------------------------------------------------

AcDb2dVertex::AcDb2dVertex() = default;
AcDb2dVertex::AcDb2dVertex(const AcGePoint3d& position, double bulge, double startWidth, double endWidth) {
    m_v.position = position;
    m_v.bulge = bulge;
    m_v.startWidth = startWidth;
    m_v.endWidth = endWidth;
}
const Record& AcDb2dVertex::dxfRecord() const { return k2dVertexRecord; }

AcDb::Vertex2dType AcDb2dVertex::vertexType() const {
    if (m_v.flags & 1) return AcDb::k2dCurveFitVertex;
    if (m_v.flags & 8) return AcDb::k2dSplineFitVertex;
    if (m_v.flags & 16) return AcDb::k2dSplineCtlVertex;
    return AcDb::k2dVertex;
}

AcDb3dPolylineVertex::AcDb3dPolylineVertex() { m_v.flags = 32; }
AcDb3dPolylineVertex::AcDb3dPolylineVertex(const AcGePoint3d& position) : AcDb3dPolylineVertex() {
    m_v.position = position;
}
const Record& AcDb3dPolylineVertex::dxfRecord() const { return k3dVertexRecord; }

AcDb::Vertex3dType AcDb3dPolylineVertex::vertexType() const {
    if (m_v.flags & 16) return AcDb::k3dControlVertex;
    if (m_v.flags & 8) return AcDb::k3dFitVertex;
    return AcDb::k3dSimpleVertex;
}

AcDbPolygonMeshVertex::AcDbPolygonMeshVertex() { m_v.flags = 64; }
AcDbPolygonMeshVertex::AcDbPolygonMeshVertex(const AcGePoint3d& position) : AcDbPolygonMeshVertex() {
    m_v.position = position;
}
const Record& AcDbPolygonMeshVertex::dxfRecord() const { return kMeshVertexRecord; }

AcDbPolyFaceMeshVertex::AcDbPolyFaceMeshVertex() { m_v.flags = 192; }
AcDbPolyFaceMeshVertex::AcDbPolyFaceMeshVertex(const AcGePoint3d& position) : AcDbPolyFaceMeshVertex() {
    m_v.position = position;
}
const Record& AcDbPolyFaceMeshVertex::dxfRecord() const { return kPfaceVertexRecord; }

AcDbFaceRecord::AcDbFaceRecord() { m_v.flags = 128; }
AcDbFaceRecord::AcDbFaceRecord(int16_t v0, int16_t v1, int16_t v2, int16_t v3) : AcDbFaceRecord() {
    m_v.index[0] = v0;
    m_v.index[1] = v1;
    m_v.index[2] = v2;
    m_v.index[3] = v3;
}
const Record& AcDbFaceRecord::dxfRecord() const { return kFaceRecord; }

Acad::ErrorStatus AcDbFaceRecord::getVertexAt(uint16_t index, int16_t& vertex) const {
    if (index > 3) return Acad::eInvalidIndex;
    vertex = static_cast<int16_t>(m_v.index[index] < 0 ? -m_v.index[index] : m_v.index[index]);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFaceRecord::setVertexAt(uint16_t index, int16_t vertex) {
    if (index > 3) return Acad::eInvalidIndex;
    bool hidden = m_v.index[index] < 0;
    m_v.index[index] = static_cast<int16_t>(hidden ? -vertex : vertex);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFaceRecord::isEdgeVisibleAt(uint16_t index, bool& visible) const {
    if (index > 3) return Acad::eInvalidIndex;
    visible = m_v.index[index] >= 0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFaceRecord::makeEdgeInvisibleAt(uint16_t index) {
    if (index > 3) return Acad::eInvalidIndex;
    if (m_v.index[index] > 0) m_v.index[index] = static_cast<int16_t>(-m_v.index[index]);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFaceRecord::makeEdgeVisibleAt(uint16_t index) {
    if (index > 3) return Acad::eInvalidIndex;
    if (m_v.index[index] < 0) m_v.index[index] = static_cast<int16_t>(-m_v.index[index]);
    return Acad::eOk;
}
