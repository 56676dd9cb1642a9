// Lines, circles, arcs and ellipses.
#include <cmath>

#include "host/db/stub.h"
#include "host/db/entity_fields.h"
#include "host/db/ocs.h"
#include "platform/dbents.h"

ACRX_DEFINE_MEMBERS(AcDbCurve, AcDbEntity)
ACRX_DEFINE_MEMBERS(AcDbLine, AcDbCurve)
ACRX_DEFINE_MEMBERS(AcDbCircle, AcDbCurve)
ACRX_DEFINE_MEMBERS(AcDbArc, AcDbCurve)
ACRX_DEFINE_MEMBERS(AcDbEllipse, AcDbCurve)

using namespace lumo::db;

Acad::ErrorStatus AcDbCurve::getStartPoint(AcGePoint3d&) const { return Acad::eNotApplicable; }
Acad::ErrorStatus AcDbCurve::getEndPoint(AcGePoint3d&) const { return Acad::eNotApplicable; }

// ---------------------------------------------------------------------------
// LINE

namespace {
using Line = AcDbLine::Data;
constexpr Field kLineFields[] = {
    FReal(39, offsetof(Line, thickness)),
    FPoint(10, offsetof(Line, start), 0, 0, 0, kRequired),
    FPoint(11, offsetof(Line, end), 0, 0, 0, kRequired),
    FPoint(210, offsetof(Line, normal), 0, 0, 1, kListed),
};
constexpr Section kLineSections[] = {kEntitySection, MakeSection("AcDbLine", kLineFields)};
constexpr Record kLineRecord = MakeRecord("LINE", "LINE", kLineSections);
}  // namespace

AcDbLine::AcDbLine() = default;
AcDbLine::AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) {
    m_d.start = start;
    m_d.end = end;
}
const Record& AcDbLine::dxfRecord() const { return kLineRecord; }
void* AcDbLine::dxfData(int level) { return level == 1 ? &m_d : AcDbEntity::dxfData(level); }

Acad::ErrorStatus AcDbLine::transformBy(const AcGeMatrix3d& xform) {
    m_d.start = xform * m_d.start;
    m_d.end = xform * m_d.end;
    AcGeVector3d n = xform * m_d.normal;
    if (!n.isZeroLength()) {
        m_d.thickness *= n.length();
        m_d.normal = n.normal();
    }
    return Acad::eOk;
}

// ---------------------------------------------------------------------------
// CIRCLE and ARC share the "AcDbCircle" section.

namespace {
using Circle = AcDbCircle::Data;
constexpr Field kCircleFields[] = {
    FReal(39, offsetof(Circle, thickness)),
    FPoint(10, offsetof(Circle, center), 0, 0, 0, kRequired),
    FReal(40, offsetof(Circle, radius), 1, kRequired),
    FPoint(210, offsetof(Circle, normal), 0, 0, 1, kListed),
};
constexpr Section kCircleSections[] = {kEntitySection, MakeSection("AcDbCircle", kCircleFields)};
constexpr Record kCircleRecord = MakeRecord("CIRCLE", "CIRCLE", kCircleSections);

using Arc = AcDbArc::Data;
constexpr Field kArcCircleFields[] = {
    FReal(39, offsetof(Arc, thickness)),
    FPoint(10, offsetof(Arc, center), 0, 0, 0, kRequired),
    FReal(40, offsetof(Arc, radius), 1, kRequired),
    FPoint(210, offsetof(Arc, normal), 0, 0, 1, kListed),
};
constexpr Field kArcFields[] = {
    FAngle(50, offsetof(Arc, startAngle), 0, kRequired),
    FAngle(51, offsetof(Arc, endAngle), 0, kRequired),
};
constexpr Section kArcSections[] = {kEntitySection, MakeSection("AcDbCircle", kArcCircleFields),
                                    MakeSection("AcDbArc", kArcFields)};
constexpr Record kArcRecord = MakeRecord("ARC", "ARC", kArcSections);

constexpr double kTwoPi = 6.283185307179586;
double Normalized(double a) {
    a = std::fmod(a, kTwoPi);
    return a < 0 ? a + kTwoPi : a;
}
}  // namespace

AcDbCircle::AcDbCircle() = default;
AcDbCircle::AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius) {
    m_d.normal = normal.isZeroLength() ? AcGeVector3d(0, 0, 1) : normal.normal();
    m_d.center = WorldToOcs(m_d.normal, center);
    m_d.radius = radius;
}
const Record& AcDbCircle::dxfRecord() const { return kCircleRecord; }
void* AcDbCircle::dxfData(int level) { return level == 1 ? &m_d : AcDbEntity::dxfData(level); }

namespace {
// Circles and arcs share their centre, radius, thickness and plane.
template <class Round> Acad::ErrorStatus SetRadius(Round& d, double r) {
    if (!(r > 0)) return Acad::eInvalidInput;
    d.radius = r;
    return Acad::eOk;
}

// Moves the shared part; the map says whether the transform keeps a circle
// a circle, and how angles in its plane turn.
template <class Round> PlaneMap MapRound(Round& d, const AcGeMatrix3d& xform) {
    PlaneMap pm = MapPlane(d.normal, xform);
    if (!pm.ok) return pm;
    d.center = pm.Point(d.center);
    d.radius *= pm.scale;
    d.thickness *= pm.scale;
    d.normal = pm.newNormal;
    return pm;
}
}  // namespace

Acad::ErrorStatus AcDbCircle::setRadius(double r) { return SetRadius(m_d, r); }

Acad::ErrorStatus AcDbCircle::transformBy(const AcGeMatrix3d& xform) {
    return MapRound(m_d, xform).ok ? Acad::eOk : Acad::eNotApplicable;
}

AcDbArc::AcDbArc() = default;
AcDbArc::AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle) {
    m_d.center = center;
    m_d.radius = radius;
    m_d.startAngle = startAngle;
    m_d.endAngle = endAngle;
}
AcDbArc::AcDbArc(const AcGePoint3d& center, const AcGeVector3d& normal, double radius, double startAngle,
                 double endAngle) {
    m_d.normal = normal.isZeroLength() ? AcGeVector3d(0, 0, 1) : normal.normal();
    m_d.center = WorldToOcs(m_d.normal, center);
    m_d.radius = radius;
    m_d.startAngle = startAngle;
    m_d.endAngle = endAngle;
}
const Record& AcDbArc::dxfRecord() const { return kArcRecord; }
void* AcDbArc::dxfData(int level) { return level == 1 ? &m_d : AcDbEntity::dxfData(level); }

Acad::ErrorStatus AcDbArc::setRadius(double r) { return SetRadius(m_d, r); }

namespace {
AcGePoint3d ArcPoint(const AcDbArc::Data& d, double a) {
    AcGePoint3d p(d.center.x + d.radius * std::cos(a), d.center.y + d.radius * std::sin(a), d.center.z);
    return OcsToWorld(d.normal, p);
}
}  // namespace

Acad::ErrorStatus AcDbArc::getStartPoint(AcGePoint3d& p) const {
    p = ArcPoint(m_d, m_d.startAngle);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::getEndPoint(AcGePoint3d& p) const {
    p = ArcPoint(m_d, m_d.endAngle);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::transformBy(const AcGeMatrix3d& xform) {
    PlaneMap pm = MapRound(m_d, xform);
    if (!pm.ok) return Acad::eNotApplicable;
    double s = pm.Angle(m_d.startAngle), e = pm.Angle(m_d.endAngle);
    m_d.startAngle = Normalized(pm.mirrored ? e : s);
    m_d.endAngle = Normalized(pm.mirrored ? s : e);
    return Acad::eOk;
}

// ---------------------------------------------------------------------------
// ELLIPSE: centre and major axis in world coordinates.

namespace {
using Ellipse = AcDbEllipse::Data;
constexpr Field kEllipseFields[] = {
    FPoint(10, offsetof(Ellipse, center), 0, 0, 0, kRequired),
    FPoint(11, offsetof(Ellipse, majorAxis), 1, 0, 0, kRequired),
    FPoint(210, offsetof(Ellipse, normal), 0, 0, 1, kListed),
    FReal(40, offsetof(Ellipse, ratio), 1, kRequired),
    FReal(41, offsetof(Ellipse, startParam), 0, kAlways),
    FReal(42, offsetof(Ellipse, endParam), kTwoPi, kAlways),
};
constexpr Section kEllipseSections[] = {kEntitySection, MakeSection("AcDbEllipse", kEllipseFields)};
constexpr Record kEllipseRecord = MakeRecord("ELLIPSE", nullptr, kEllipseSections);

// The parameter of an angle measured from the major axis.
double ParamOf(double angle, double ratio) {
    return std::atan2(std::sin(angle), std::cos(angle) * ratio);
}
}  // namespace

AcDbEllipse::AcDbEllipse() = default;
AcDbEllipse::AcDbEllipse(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& majorAxis,
                         double radiusRatio, double startAngle, double endAngle) {
    set(center, normal, majorAxis, radiusRatio, startAngle, endAngle);
}
const Record& AcDbEllipse::dxfRecord() const { return kEllipseRecord; }
void* AcDbEllipse::dxfData(int level) { return level == 1 ? &m_d : AcDbEntity::dxfData(level); }

Acad::ErrorStatus AcDbEllipse::set(const AcGePoint3d& center, const AcGeVector3d& normal,
                                   const AcGeVector3d& majorAxis, double radiusRatio, double startAngle,
                                   double endAngle) {
    if (!(radiusRatio > 0 && radiusRatio <= 1) || majorAxis.isZeroLength()) return Acad::eInvalidInput;
    m_d.center = center;
    m_d.normal = normal.isZeroLength() ? AcGeVector3d(0, 0, 1) : normal.normal();
    m_d.majorAxis = majorAxis;
    m_d.ratio = radiusRatio;
    bool whole = std::fabs(endAngle - startAngle - kTwoPi) < 1e-12;
    m_d.startParam = whole ? 0.0 : Normalized(ParamOf(startAngle, radiusRatio));
    m_d.endParam = whole ? kTwoPi : Normalized(ParamOf(endAngle, radiusRatio));
    return Acad::eOk;
}

AcGeVector3d AcDbEllipse::minorAxis() const { return m_d.normal.crossProduct(m_d.majorAxis) * m_d.ratio; }

Acad::ErrorStatus AcDbEllipse::setRadiusRatio(double r) {
    if (!(r > 0 && r <= 1)) return Acad::eInvalidInput;
    m_d.ratio = r;
    return Acad::eOk;
}

double AcDbEllipse::startAngle() const {
    return Normalized(std::atan2(std::sin(m_d.startParam) * m_d.ratio, std::cos(m_d.startParam)));
}

double AcDbEllipse::endAngle() const {
    double a = std::atan2(std::sin(m_d.endParam) * m_d.ratio, std::cos(m_d.endParam));
    return m_d.endParam >= kTwoPi - 1e-12 ? kTwoPi : Normalized(a);
}

bool AcDbEllipse::isClosed() const { return std::fabs(m_d.endParam - m_d.startParam - kTwoPi) < 1e-10; }

Acad::ErrorStatus AcDbEllipse::getStartPoint(AcGePoint3d& p) const {
    p = m_d.center + m_d.majorAxis * std::cos(m_d.startParam) + minorAxis() * std::sin(m_d.startParam);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::getEndPoint(AcGePoint3d& p) const {
    p = m_d.center + m_d.majorAxis * std::cos(m_d.endParam) + minorAxis() * std::sin(m_d.endParam);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::transformBy(const AcGeMatrix3d& xform) {
    PlaneMap pm = MapPlane(m_d.normal, xform);
    if (!pm.ok) return Acad::eNotApplicable;
    m_d.center = xform * m_d.center;
    m_d.majorAxis = xform * m_d.majorAxis;
    m_d.normal = pm.newNormal;
    if (pm.mirrored) {
        double s = m_d.startParam, e = m_d.endParam;
        m_d.startParam = Normalized(-e);
        m_d.endParam = Normalized(-s);
        if (m_d.endParam <= m_d.startParam) m_d.endParam += kTwoPi;
    }
    return Acad::eOk;
}
