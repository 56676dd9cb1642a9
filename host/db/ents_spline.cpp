// SPLINE, and the modeler entities (REGION, 3DSOLID, BODY) kept as their data.
#include <algorithm>

#include "host/db/stub.h"
#include "host/db/entity_fields.h"
#include "platform/dbents.h"

ACRX_DEFINE_MEMBERS(AcDbSpline, AcDbCurve)
ACRX_DEFINE_MEMBERS(AcDbModelerGeometryBase, AcDbEntity)
ACRX_DEFINE_MEMBERS(AcDbRegion, AcDbModelerGeometryBase)
ACRX_DEFINE_MEMBERS(AcDb3dSolid, AcDbModelerGeometryBase)
ACRX_DEFINE_MEMBERS(AcDbBody, AcDbModelerGeometryBase)

using namespace lumo::db;

namespace {
using Spline = AcDbSpline::Data;
enum Slot { kKnotCount, kControlCount, kFitCount, kKnots, kWeights, kControl, kFit };

Spline& DataOf(AcDbObject& o) { return static_cast<AcDbSpline&>(o).data(); }
const Spline& DataOf(const AcDbObject& o) { return const_cast<AcDbSpline&>(static_cast<const AcDbSpline&>(o)).data(); }

bool ReadSpline(AcDbObject& obj, int slot, TagCursor& in, ReadContext&) {
    Spline& d = DataOf(obj);
    const Tag& t = in.Next();
    switch (slot) {
    case kKnots: d.knots.push_back(t.v[0]); break;
    case kWeights: d.weights.push_back(t.v[0]); break;
    case kControl:
    case kFit: {
        if (t.kind != ValueKind::Point) return false;
        AcGePoint3d p(t.v[0], t.v[1], t.dims > 2 ? t.v[2] : 0);
        (slot == kControl ? d.controlPoints : d.fitPoints).push_back(p);
        break;
    }
    default: break;   // the counts follow from the lists
    }
    return true;
}

void WriteSpline(const AcDbObject& obj, int slot, int code, TagSink& out) {
    const Spline& d = DataOf(obj);
    switch (slot) {
    case kKnotCount: out.Int(code, static_cast<int64_t>(d.knots.size())); break;
    case kControlCount: out.Int(code, static_cast<int64_t>(d.controlPoints.size())); break;
    case kFitCount: out.Int(code, static_cast<int64_t>(d.fitPoints.size())); break;
    case kKnots: for (double k : d.knots) out.Real(code, k); break;
    case kWeights: for (double w : d.weights) out.Real(code, w); break;
    case kControl: for (const auto& p : d.controlPoints) out.Point(code, &p.x, 3); break;
    case kFit: for (const auto& p : d.fitPoints) out.Point(code, &p.x, 3); break;
    default: break;
    }
}

void ClearSpline(AcDbObject& obj, int slot) {
    Spline& d = DataOf(obj);
    if (slot == kKnots) d.knots.clear();
    if (slot == kWeights) d.weights.clear();
    if (slot == kControl) d.controlPoints.clear();
    if (slot == kFit) d.fitPoints.clear();
}

constexpr CustomIO kSplineIO{ReadSpline, WriteSpline, ClearSpline};
constexpr Field kSplineFields[] = {
    FPoint(210, offsetof(Spline, normal), 0, 0, 1),
    FInt16(70, offsetof(Spline, flags), 8, kAlways),
    FInt16(71, offsetof(Spline, degree), 3, kAlways),
    FCustom(72, kKnotCount),
    FCustom(73, kControlCount),
    FCustom(74, kFitCount),
    FReal(42, offsetof(Spline, knotTol), 1e-10, kAlways),
    FReal(43, offsetof(Spline, controlTol), 1e-10, kAlways),
    FReal(44, offsetof(Spline, fitTol), 1e-10),
    FPoint(12, offsetof(Spline, startTangent)),
    FPoint(13, offsetof(Spline, endTangent)),
    FCustom(40, kKnots),
    FCustom(41, kWeights),
    FCustom(10, kControl),
    FCustom(11, kFit),
};
constexpr Section kSplineSections[] = {kEntitySection, MakeSection("AcDbSpline", kSplineFields)};
constexpr Record kSplineRecord = MakeRecord("SPLINE", nullptr, kSplineSections, &kSplineIO);
}  // namespace

AcDbSpline::AcDbSpline() = default;

AcDbSpline::AcDbSpline(const AcGePoint3dArray& fitPoints, int order, double fitTolerance) {
    m_d.degree = static_cast<int16_t>(std::max(1, order - 1));
    m_d.fitTol = fitTolerance;
    for (int i = 0; i < fitPoints.length(); ++i) m_d.fitPoints.push_back(fitPoints[i]);
}

AcDbSpline::AcDbSpline(int degree, bool rational, bool closed, bool periodic, const AcGePoint3dArray& controlPoints,
                       const AcGeDoubleArray& knots, const AcGeDoubleArray& weights, double controlPtTol,
                       double knotTol) {
    m_d.degree = static_cast<int16_t>(degree);
    m_d.flags = static_cast<int16_t>(8 | (closed ? 1 : 0) | (periodic ? 2 : 0) | (rational ? 4 : 0));
    for (int i = 0; i < controlPoints.length(); ++i) m_d.controlPoints.push_back(controlPoints[i]);
    for (int i = 0; i < knots.length(); ++i) m_d.knots.push_back(knots[i]);
    if (rational)
        for (int i = 0; i < weights.length(); ++i) m_d.weights.push_back(weights[i]);
    if (controlPtTol > 0) m_d.controlTol = controlPtTol;
    if (knotTol > 0) m_d.knotTol = knotTol;
}

const Record& AcDbSpline::dxfRecord() const { return kSplineRecord; }
void* AcDbSpline::dxfData(int level) { return level == 1 ? &m_d : AcDbEntity::dxfData(level); }

Acad::ErrorStatus AcDbSpline::getControlPointAt(int index, AcGePoint3d& p) const {
    if (index < 0 || index >= numControlPoints()) return Acad::eInvalidIndex;
    p = m_d.controlPoints[static_cast<size_t>(index)];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::setControlPointAt(int index, const AcGePoint3d& p) {
    if (index < 0 || index >= numControlPoints()) return Acad::eInvalidIndex;
    m_d.controlPoints[static_cast<size_t>(index)] = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getFitPointAt(int index, AcGePoint3d& p) const {
    if (index < 0 || index >= numFitPoints()) return Acad::eInvalidIndex;
    p = m_d.fitPoints[static_cast<size_t>(index)];
    return Acad::eOk;
}

double AcDbSpline::weightAt(int index) const {
    if (index < 0 || static_cast<size_t>(index) >= m_d.weights.size()) return 1.0;
    return m_d.weights[static_cast<size_t>(index)];
}

Acad::ErrorStatus AcDbSpline::getNurbsData(int& degree, bool& rational, bool& closed, bool& periodic,
                                           AcGePoint3dArray& controlPoints, AcGeDoubleArray& knots,
                                           AcGeDoubleArray& weights, double& controlPtTol, double& knotTol) const {
    degree = m_d.degree;
    rational = isRational();
    closed = isClosed();
    periodic = isPeriodic();
    controlPoints.setLogicalLength(0);
    knots.setLogicalLength(0);
    weights.setLogicalLength(0);
    for (const auto& p : m_d.controlPoints) controlPoints.append(p);
    for (double k : m_d.knots) knots.append(k);
    for (double w : m_d.weights) weights.append(w);
    controlPtTol = m_d.controlTol;
    knotTol = m_d.knotTol;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getStartPoint(AcGePoint3d& p) const {
    const auto& pts = m_d.controlPoints.empty() ? m_d.fitPoints : m_d.controlPoints;
    if (pts.empty()) return Acad::eDegenerateGeometry;
    p = pts.front();   // clamped splines start and end at their end control points
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getEndPoint(AcGePoint3d& p) const {
    const auto& pts = m_d.controlPoints.empty() ? m_d.fitPoints : m_d.controlPoints;
    if (pts.empty()) return Acad::eDegenerateGeometry;
    p = isClosed() ? pts.front() : pts.back();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::transformBy(const AcGeMatrix3d& xform) {
    for (auto& p : m_d.controlPoints) p = xform * p;
    for (auto& p : m_d.fitPoints) p = xform * p;
    m_d.startTangent = xform * m_d.startTangent;
    m_d.endTangent = xform * m_d.endTangent;
    AcGeVector3d n = xform * m_d.normal;
    if (!n.isZeroLength()) m_d.normal = n.normal();
    return Acad::eOk;
}

// ---------------------------------------------------------------------------
// The modeler's data: lines under 1, continued under 3.

namespace {
using Geometry = AcDbModelerGeometryBase::Data;
constexpr char kContinued = '\3';

bool ReadLine(AcDbObject& obj, int, TagCursor& in, ReadContext&) {
    const Tag& t = in.Next();
    if (t.kind != ValueKind::Text) return false;
    auto& lines = static_cast<AcDbModelerGeometryBase&>(obj).data().lines;
    lines.push_back(t.code == 3 ? kContinued + std::string(t.s) : std::string(t.s));
    return true;
}

void WriteLines(const AcDbObject& obj, int, int code, TagSink& out) {
    if (code != 1) return;
    for (const std::string& s : const_cast<AcDbModelerGeometryBase&>(
                                    static_cast<const AcDbModelerGeometryBase&>(obj)).data().lines) {
        if (!s.empty() && s[0] == kContinued) out.Text(3, std::string_view(s).substr(1));
        else out.Text(1, s);
    }
}

void ClearLines(AcDbObject& obj, int) { static_cast<AcDbModelerGeometryBase&>(obj).data().lines.clear(); }

constexpr CustomIO kGeometryIO{ReadLine, WriteLines, ClearLines};
constexpr Field kGeometryFields[] = {
    FInt16(70, offsetof(Geometry, version), 1, kAlways),
    FCustom(1, 0),
    FCustom(3, 0),
};
constexpr Section kRegionSections[] = {kEntitySection, MakeSection("AcDbModelerGeometry", kGeometryFields)};
constexpr Record kRegionRecord = MakeRecord("REGION", nullptr, kRegionSections, &kGeometryIO);
constexpr Record kSolidRecord = MakeRecord("3DSOLID", nullptr, kRegionSections, &kGeometryIO);
constexpr Record kBodyRecord = MakeRecord("BODY", nullptr, kRegionSections, &kGeometryIO);
}  // namespace

void* AcDbModelerGeometryBase::dxfData(int level) { return level == 1 ? &m_g : AcDbEntity::dxfData(level); }

AcDbRegion::AcDbRegion() = default;
const Record& AcDbRegion::dxfRecord() const { return kRegionRecord; }

Acad::ErrorStatus AcDbRegion::createFromCurves(const AcDbVoidPtrArray&, AcDbVoidPtrArray& regions) {
    regions.setLogicalLength(0);
    return Acad::eNotImplementedYet;
}

AcDb3dSolid::AcDb3dSolid() = default;
const Record& AcDb3dSolid::dxfRecord() const { return kSolidRecord; }

AcDbBody::AcDbBody() = default;
const Record& AcDbBody::dxfRecord() const { return kBodyRecord; }
