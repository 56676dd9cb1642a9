// Points and vectors of the plane.
#include <cmath>
#include <numbers>

#include "platform/acge.h"

constinit AcGeTol AcGeContext::gTol;

constinit const AcGeVector2d AcGeVector2d::kIdentity(0.0, 0.0);
constinit const AcGeVector2d AcGeVector2d::kXAxis(1.0, 0.0);
constinit const AcGeVector2d AcGeVector2d::kYAxis(0.0, 1.0);
constinit const AcGePoint2d AcGePoint2d::kOrigin(0.0, 0.0);

double AcGeVector2d::length() const { return std::hypot(x, y); }

AcGeVector2d& AcGeVector2d::rotateBy(double angle) {
    double c = std::cos(angle), s = std::sin(angle);
    double nx = x * c - y * s;
    y = x * s + y * c;
    x = nx;
    return *this;
}

// A vector too short to have a direction is left as it is.
AcGeVector2d& AcGeVector2d::normalize(const AcGeTol& tol) {
    double len = length();
    if (len > tol.equalVector()) {
        x /= len;
        y /= len;
    }
    return *this;
}

AcGeVector2d AcGeVector2d::normal(const AcGeTol& tol) const {
    AcGeVector2d v = *this;
    return v.normalize(tol);
}

double AcGeVector2d::angle() const {
    if (x == 0.0 && y == 0.0) return 0.0;
    double a = std::atan2(y, x);
    if (a < 0.0) a += 2.0 * std::numbers::pi;
    return a >= 2.0 * std::numbers::pi ? 0.0 : a;
}

double AcGeVector2d::angleTo(const AcGeVector2d& v) const {
    double cross = x * v.y - y * v.x;
    return std::atan2(std::fabs(cross), dotProduct(v));
}

bool AcGeVector2d::isZeroLength(const AcGeTol& tol) const { return length() <= tol.equalVector(); }

bool AcGeVector2d::isUnitLength(const AcGeTol& tol) const {
    return std::fabs(length() - 1.0) <= tol.equalVector();
}

bool AcGeVector2d::isParallelTo(const AcGeVector2d& v, const AcGeTol& tol) const {
    if (isZeroLength(tol) || v.isZeroLength(tol)) return false;
    AcGeVector2d a = normal(tol), b = v.normal(tol);
    return std::fabs(a.x * b.y - a.y * b.x) <= tol.equalVector();
}

bool AcGeVector2d::isCodirectionalTo(const AcGeVector2d& v, const AcGeTol& tol) const {
    if (isZeroLength(tol) || v.isZeroLength(tol)) return false;
    return (normal(tol) - v.normal(tol)).length() <= tol.equalVector();
}

bool AcGeVector2d::isPerpendicularTo(const AcGeVector2d& v, const AcGeTol& tol) const {
    if (isZeroLength(tol) || v.isZeroLength(tol)) return false;
    return std::fabs(normal(tol).dotProduct(v.normal(tol))) <= tol.equalVector();
}

bool AcGeVector2d::isEqualTo(const AcGeVector2d& v, const AcGeTol& tol) const {
    return (*this - v).length() <= tol.equalVector();
}

AcGePoint2d& AcGePoint2d::rotateBy(double angle, const AcGePoint2d& center) {
    AcGeVector2d v = *this - center;
    *this = center + v.rotateBy(angle);
    return *this;
}

AcGePoint2d& AcGePoint2d::scaleBy(double factor, const AcGePoint2d& center) {
    *this = center + (*this - center) * factor;
    return *this;
}

double AcGePoint2d::distanceTo(const AcGePoint2d& p) const { return std::hypot(x - p.x, y - p.y); }

bool AcGePoint2d::isEqualTo(const AcGePoint2d& p, const AcGeTol& tol) const {
    return distanceTo(p) <= tol.equalPoint();
}
