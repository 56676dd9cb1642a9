// LWPOLYLINE: vertices with bulges and widths in the polyline's own plane.
#include <algorithm>

#include "host/db/stub.h"
#include "host/db/entity_fields.h"
#include "host/db/ocs.h"
#include "platform/dbents.h"

ACRX_DEFINE_MEMBERS(AcDbPolyline, AcDbCurve)

using namespace lumo::db;

namespace {
using Poly = AcDbPolyline::Data;
enum Slot { kCount, kVertices };

Poly& DataOf(AcDbObject& o) { return static_cast<AcDbPolyline&>(o).data(); }
const Poly& DataOf(const AcDbObject& o) { return static_cast<const AcDbPolyline&>(o).data(); }

bool ReadPoly(AcDbObject& obj, int slot, TagCursor& in, ReadContext&) {
    Poly& d = DataOf(obj);
    const Tag& t = in.Next();
    if (slot == kCount) {
        d.verts.reserve(static_cast<size_t>(std::clamp<int64_t>(t.i, 0, 1 << 20)));
        return true;
    }
    if (t.kind != ValueKind::Point) return false;
    AcDbPolyline::Vertex v;
    v.point.set(t.v[0], t.v[1]);
    while (!in.Done()) {
        const Tag& n = in.Peek();
        if (n.code == 40) v.startWidth = n.v[0];
        else if (n.code == 41) v.endWidth = n.v[0];
        else if (n.code == 42) v.bulge = n.v[0];
        else if (n.code != 91) break;   // 91, a vertex's number, isn't kept
        in.Next();
    }
    d.verts.push_back(v);
    return true;
}

void WritePoly(const AcDbObject& obj, int slot, int, TagSink& out) {
    const Poly& d = DataOf(obj);
    if (slot == kCount) {
        out.Int(90, static_cast<int64_t>(d.verts.size()));
        return;
    }
    bool list = !IsDxf(out.flavor());
    for (const auto& v : d.verts) {
        double p[2] = {v.point.x, v.point.y};
        out.Point(10, p, 2);
        if (list || v.startWidth != 0 || v.endWidth != 0) {
            out.Real(40, v.startWidth);
            out.Real(41, v.endWidth);
        }
        if (list || v.bulge != 0) out.Real(42, v.bulge);
    }
}

void ClearPoly(AcDbObject& obj, int slot) {
    if (slot == kVertices) DataOf(obj).verts.clear();
}

constexpr CustomIO kPolyIO{ReadPoly, WritePoly, ClearPoly};
constexpr Field kPolyFields[] = {
    FCustom(90, kCount),
    FInt16(70, offsetof(Poly, flags), 0, kAlways),
    FReal(43, offsetof(Poly, constantWidth), 0, kListed),
    FReal(38, offsetof(Poly, elevation), 0, kListed),
    FReal(39, offsetof(Poly, thickness), 0, kListed),
    FCustom(10, kVertices, kRequired),
    FPoint(210, offsetof(Poly, normal), 0, 0, 1, kListed),
};
constexpr Section kPolySections[] = {kEntitySection, MakeSection("AcDbPolyline", kPolyFields)};
constexpr Record kPolyRecord = MakeRecord("LWPOLYLINE", nullptr, kPolySections, &kPolyIO);
}  // namespace

AcDbPolyline::AcDbPolyline() = default;
AcDbPolyline::AcDbPolyline(unsigned int numVerts) { m_d.verts.reserve(numVerts); }
const Record& AcDbPolyline::dxfRecord() const { return kPolyRecord; }
void* AcDbPolyline::dxfData(int level) { return level == 1 ? &m_d : AcDbEntity::dxfData(level); }

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned int index, const AcGePoint2d& p, double bulge,
                                            double startWidth, double endWidth) {
    if (index > m_d.verts.size()) index = static_cast<unsigned int>(m_d.verts.size());
    Vertex v;
    v.point = p;
    v.bulge = bulge;
    v.startWidth = startWidth < 0 ? m_d.constantWidth : startWidth;
    v.endWidth = endWidth < 0 ? m_d.constantWidth : endWidth;
    m_d.verts.insert(m_d.verts.begin() + index, v);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::removeVertexAt(unsigned int index) {
    if (index >= m_d.verts.size()) return Acad::eInvalidIndex;
    m_d.verts.erase(m_d.verts.begin() + index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint2d& p) const {
    if (index >= m_d.verts.size()) return Acad::eInvalidIndex;
    p = m_d.verts[index].point;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint3d& p) const {
    if (index >= m_d.verts.size()) return Acad::eInvalidIndex;
    const AcGePoint2d& q = m_d.verts[index].point;
    p = OcsToWorld(m_d.normal, AcGePoint3d(q.x, q.y, m_d.elevation));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setPointAt(unsigned int index, const AcGePoint2d& p) {
    if (index >= m_d.verts.size()) return Acad::eInvalidIndex;
    m_d.verts[index].point = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getBulgeAt(unsigned int index, double& bulge) const {
    if (index >= m_d.verts.size()) return Acad::eInvalidIndex;
    bulge = m_d.verts[index].bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setBulgeAt(unsigned int index, double bulge) {
    if (index >= m_d.verts.size()) return Acad::eInvalidIndex;
    m_d.verts[index].bulge = bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const {
    if (index >= m_d.verts.size()) return Acad::eInvalidIndex;
    startWidth = m_d.verts[index].startWidth;
    endWidth = m_d.verts[index].endWidth;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setWidthsAt(unsigned int index, double startWidth, double endWidth) {
    if (index >= m_d.verts.size()) return Acad::eInvalidIndex;
    m_d.verts[index].startWidth = startWidth;
    m_d.verts[index].endWidth = endWidth;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getConstantWidth(double& width) const {
    width = m_d.constantWidth;
    for (const auto& v : m_d.verts)
        if (v.startWidth != width || v.endWidth != width) return Acad::eInvalidInput;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setConstantWidth(double width) {
    if (width < 0) return Acad::eInvalidInput;
    m_d.constantWidth = width;
    for (auto& v : m_d.verts) v.startWidth = v.endWidth = width;
    return Acad::eOk;
}

void AcDbPolyline::reset(bool reuse, unsigned int numVerts) {
    if (!reuse) m_d.verts.clear();
    else if (numVerts < m_d.verts.size()) m_d.verts.resize(numVerts);
}

void AcDbPolyline::setClosed(bool on) { m_d.flags = static_cast<int16_t>(on ? (m_d.flags | 1) : (m_d.flags & ~1)); }
void AcDbPolyline::setPlinegen(bool on) { m_d.flags = static_cast<int16_t>(on ? (m_d.flags | 128) : (m_d.flags & ~128)); }

bool AcDbPolyline::isOnlyLines() const {
    return std::none_of(m_d.verts.begin(), m_d.verts.end(), [](const Vertex& v) { return v.bulge != 0; });
}

bool AcDbPolyline::hasWidth() const {
    return std::any_of(m_d.verts.begin(), m_d.verts.end(),
                       [](const Vertex& v) { return v.startWidth != 0 || v.endWidth != 0; });
}

Acad::ErrorStatus AcDbPolyline::getStartPoint(AcGePoint3d& p) const {
    return m_d.verts.empty() ? Acad::eDegenerateGeometry : getPointAt(0, p);
}

Acad::ErrorStatus AcDbPolyline::getEndPoint(AcGePoint3d& p) const {
    if (m_d.verts.empty()) return Acad::eDegenerateGeometry;
    return getPointAt(isClosed() ? 0 : static_cast<unsigned int>(m_d.verts.size() - 1), p);
}

Acad::ErrorStatus AcDbPolyline::transformBy(const AcGeMatrix3d& xform) {
    PlaneMap pm = MapPlane(m_d.normal, xform);
    if (!pm.ok) return Acad::eNotApplicable;
    double z = m_d.elevation;
    for (auto& v : m_d.verts) {
        AcGePoint3d q = pm.Point(AcGePoint3d(v.point.x, v.point.y, m_d.elevation));
        v.point.set(q.x, q.y);
        z = q.z;
        v.startWidth *= pm.scale;
        v.endWidth *= pm.scale;
        if (pm.mirrored) v.bulge = -v.bulge;
    }
    if (m_d.verts.empty()) z = pm.Point(AcGePoint3d(0, 0, m_d.elevation)).z;
    m_d.elevation = z;
    m_d.constantWidth *= pm.scale;
    m_d.thickness *= pm.scale;
    m_d.normal = pm.newNormal;
    return Acad::eOk;
}
