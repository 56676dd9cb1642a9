// Points and vectors of space.
#include <cmath>
#include <numbers>

#include "platform/acge.h"

constinit const AcGeVector3d AcGeVector3d::kIdentity(0.0, 0.0, 0.0);
constinit const AcGeVector3d AcGeVector3d::kXAxis(1.0, 0.0, 0.0);
constinit const AcGeVector3d AcGeVector3d::kYAxis(0.0, 1.0, 0.0);
constinit const AcGeVector3d AcGeVector3d::kZAxis(0.0, 0.0, 1.0);
constinit const AcGePoint3d AcGePoint3d::kOrigin(0.0, 0.0, 0.0);

namespace {
double Length3(double x, double y, double z) { return std::sqrt(x * x + y * y + z * z); }
}  // namespace

double AcGeVector3d::length() const { return Length3(x, y, z); }

// A vector too short to have a direction is left as it is.
AcGeVector3d& AcGeVector3d::normalize(const AcGeTol& tol) {
    double len = length();
    if (len > tol.equalVector()) {
        x /= len;
        y /= len;
        z /= len;
    }
    return *this;
}

AcGeVector3d AcGeVector3d::normal(const AcGeTol& tol) const {
    AcGeVector3d v = *this;
    return v.normalize(tol);
}

// The arbitrary-axis rule: a normal close to the z axis takes its x
// direction from the world y axis, any other from the world z axis.
AcGeVector3d AcGeVector3d::perpVector() const {
    constexpr double kNearZ = 1.0 / 64.0;
    AcGeVector3d n = normal();
    AcGeVector3d axis = (std::fabs(n.x) < kNearZ && std::fabs(n.y) < kNearZ) ? kYAxis : kZAxis;
    return axis.crossProduct(n).normal();
}

AcGeVector3d& AcGeVector3d::rotateBy(double angle, const AcGeVector3d& axis) {
    AcGeMatrix3d m;
    m.setToRotation(angle, axis);
    return transformBy(m);
}

AcGeVector3d& AcGeVector3d::transformBy(const AcGeMatrix3d& m) { return setToProduct(m, *this); }

AcGeVector3d& AcGeVector3d::setToProduct(const AcGeMatrix3d& m, const AcGeVector3d& v) {
    double nx = m.entry[0][0] * v.x + m.entry[0][1] * v.y + m.entry[0][2] * v.z;
    double ny = m.entry[1][0] * v.x + m.entry[1][1] * v.y + m.entry[1][2] * v.z;
    double nz = m.entry[2][0] * v.x + m.entry[2][1] * v.y + m.entry[2][2] * v.z;
    x = nx;
    y = ny;
    z = nz;
    return *this;
}

double AcGeVector3d::angleTo(const AcGeVector3d& v) const {
    return std::atan2(crossProduct(v).length(), dotProduct(v));
}

double AcGeVector3d::angleTo(const AcGeVector3d& v, const AcGeVector3d& reference) const {
    double a = angleTo(v);
    if (a == 0.0) return 0.0;
    if (crossProduct(v).dotProduct(reference) < 0.0) a = 2.0 * std::numbers::pi - a;
    return a;
}

bool AcGeVector3d::isZeroLength(const AcGeTol& tol) const { return length() <= tol.equalVector(); }

bool AcGeVector3d::isUnitLength(const AcGeTol& tol) const {
    return std::fabs(length() - 1.0) <= tol.equalVector();
}

bool AcGeVector3d::isParallelTo(const AcGeVector3d& v, const AcGeTol& tol) const {
    if (isZeroLength(tol) || v.isZeroLength(tol)) return false;
    return normal(tol).crossProduct(v.normal(tol)).length() <= tol.equalVector();
}

bool AcGeVector3d::isCodirectionalTo(const AcGeVector3d& v, const AcGeTol& tol) const {
    if (isZeroLength(tol) || v.isZeroLength(tol)) return false;
    return (normal(tol) - v.normal(tol)).length() <= tol.equalVector();
}

bool AcGeVector3d::isPerpendicularTo(const AcGeVector3d& v, const AcGeTol& tol) const {
    if (isZeroLength(tol) || v.isZeroLength(tol)) return false;
    return std::fabs(normal(tol).dotProduct(v.normal(tol))) <= tol.equalVector();
}

bool AcGeVector3d::isEqualTo(const AcGeVector3d& v, const AcGeTol& tol) const {
    return (*this - v).length() <= tol.equalVector();
}

AcGePoint3d& AcGePoint3d::transformBy(const AcGeMatrix3d& m) { return setToProduct(m, *this); }

// A projective bottom row divides through by w, as homogeneous points do.
AcGePoint3d& AcGePoint3d::setToProduct(const AcGeMatrix3d& m, const AcGePoint3d& p) {
    double c[4];
    for (int r = 0; r < 4; ++r)
        c[r] = m.entry[r][0] * p.x + m.entry[r][1] * p.y + m.entry[r][2] * p.z + m.entry[r][3];
    if (c[3] != 1.0 && c[3] != 0.0) {
        c[0] /= c[3];
        c[1] /= c[3];
        c[2] /= c[3];
    }
    x = c[0];
    y = c[1];
    z = c[2];
    return *this;
}

AcGePoint3d& AcGePoint3d::rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& center) {
    AcGeMatrix3d m;
    m.setToRotation(angle, axis, center);
    return transformBy(m);
}

AcGePoint3d& AcGePoint3d::scaleBy(double factor, const AcGePoint3d& center) {
    *this = center + (*this - center) * factor;
    return *this;
}

double AcGePoint3d::distanceTo(const AcGePoint3d& p) const {
    return Length3(x - p.x, y - p.y, z - p.z);
}

bool AcGePoint3d::isEqualTo(const AcGePoint3d& p, const AcGeTol& tol) const {
    return distanceTo(p) <= tol.equalPoint();
}

AcGePoint3d operator*(const AcGeMatrix3d& m, const AcGePoint3d& p) {
    AcGePoint3d r;
    return r.setToProduct(m, p);
}

AcGeVector3d operator*(const AcGeMatrix3d& m, const AcGeVector3d& v) {
    AcGeVector3d r;
    return r.setToProduct(m, v);
}
