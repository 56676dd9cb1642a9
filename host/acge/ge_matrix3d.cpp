// The 4x4 transformation matrix.
#include <cmath>
#include <utility>

#include "platform/acge.h"

constinit const AcGeMatrix3d AcGeMatrix3d::kIdentity;

AcGeMatrix3d& AcGeMatrix3d::setToIdentity() {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) entry[r][c] = r == c ? 1.0 : 0.0;
    return *this;
}

AcGeMatrix3d& AcGeMatrix3d::setToProduct(const AcGeMatrix3d& a, const AcGeMatrix3d& b) {
    double out[4][4];
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) {
            double s = 0.0;
            for (int k = 0; k < 4; ++k) s += a.entry[r][k] * b.entry[k][c];
            out[r][c] = s;
        }
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) entry[r][c] = out[r][c];
    return *this;
}

AcGeMatrix3d AcGeMatrix3d::operator*(const AcGeMatrix3d& m) const {
    AcGeMatrix3d r;
    return r.setToProduct(*this, m);
}

AcGeMatrix3d& AcGeMatrix3d::operator*=(const AcGeMatrix3d& m) { return setToProduct(*this, m); }
AcGeMatrix3d& AcGeMatrix3d::preMultBy(const AcGeMatrix3d& left) { return setToProduct(left, *this); }
AcGeMatrix3d& AcGeMatrix3d::postMultBy(const AcGeMatrix3d& right) { return setToProduct(*this, right); }

// Gauss-Jordan with partial pivoting; a pivot at or below tol means singular.
bool AcGeMatrix3d::inverse(AcGeMatrix3d& result, double tol) const {
    double a[4][8];
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) {
            a[r][c] = entry[r][c];
            a[r][c + 4] = r == c ? 1.0 : 0.0;
        }
    for (int col = 0; col < 4; ++col) {
        int pivot = col;
        for (int r = col + 1; r < 4; ++r)
            if (std::fabs(a[r][col]) > std::fabs(a[pivot][col])) pivot = r;
        if (!(std::fabs(a[pivot][col]) > tol)) return false;
        if (pivot != col)
            for (int c = 0; c < 8; ++c) std::swap(a[pivot][c], a[col][c]);
        double inv = 1.0 / a[col][col];
        for (int c = 0; c < 8; ++c) a[col][c] *= inv;
        for (int r = 0; r < 4; ++r) {
            if (r == col || a[r][col] == 0.0) continue;
            double f = a[r][col];
            for (int c = 0; c < 8; ++c) a[r][c] -= f * a[col][c];
        }
    }
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) result.entry[r][c] = a[r][c + 4];
    return true;
}

AcGeMatrix3d AcGeMatrix3d::inverse() const {
    AcGeMatrix3d r;
    return inverse(r, 0.0) ? r : *this;
}

AcGeMatrix3d& AcGeMatrix3d::invert() {
    AcGeMatrix3d r;
    if (inverse(r, 0.0)) *this = r;
    return *this;
}

bool AcGeMatrix3d::isSingular(const AcGeTol& tol) const {
    AcGeMatrix3d r;
    return !inverse(r, tol.equalVector());
}

AcGeMatrix3d& AcGeMatrix3d::transposeIt() {
    for (int r = 0; r < 4; ++r)
        for (int c = r + 1; c < 4; ++c) std::swap(entry[r][c], entry[c][r]);
    return *this;
}

AcGeMatrix3d AcGeMatrix3d::transpose() const {
    AcGeMatrix3d m = *this;
    return m.transposeIt();
}

// Elimination with partial pivoting; each row swap flips the sign.
double AcGeMatrix3d::det() const {
    double a[4][4];
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) a[r][c] = entry[r][c];
    double d = 1.0;
    for (int col = 0; col < 4; ++col) {
        int pivot = col;
        for (int r = col + 1; r < 4; ++r)
            if (std::fabs(a[r][col]) > std::fabs(a[pivot][col])) pivot = r;
        if (a[pivot][col] == 0.0) return 0.0;
        if (pivot != col) {
            for (int c = 0; c < 4; ++c) std::swap(a[pivot][c], a[col][c]);
            d = -d;
        }
        d *= a[col][col];
        for (int r = col + 1; r < 4; ++r) {
            double f = a[r][col] / a[col][col];
            for (int c = col; c < 4; ++c) a[r][c] -= f * a[col][c];
        }
    }
    return d;
}

AcGeMatrix3d& AcGeMatrix3d::setTranslation(const AcGeVector3d& v) {
    entry[0][3] = v.x;
    entry[1][3] = v.y;
    entry[2][3] = v.z;
    return *this;
}

AcGeMatrix3d& AcGeMatrix3d::setToTranslation(const AcGeVector3d& v) {
    setToIdentity();
    return setTranslation(v);
}

// Rodrigues' rotation about the unit axis, then the centre is held fixed.
AcGeMatrix3d& AcGeMatrix3d::setToRotation(double angle, const AcGeVector3d& axis,
                                          const AcGePoint3d& center) {
    setToIdentity();
    AcGeVector3d u = axis.normal();
    if (u.isZeroLength()) return *this;
    double c = std::cos(angle), s = std::sin(angle), t = 1.0 - c;
    entry[0][0] = t * u.x * u.x + c;
    entry[0][1] = t * u.x * u.y - s * u.z;
    entry[0][2] = t * u.x * u.z + s * u.y;
    entry[1][0] = t * u.x * u.y + s * u.z;
    entry[1][1] = t * u.y * u.y + c;
    entry[1][2] = t * u.y * u.z - s * u.x;
    entry[2][0] = t * u.x * u.z - s * u.y;
    entry[2][1] = t * u.y * u.z + s * u.x;
    entry[2][2] = t * u.z * u.z + c;
    AcGeVector3d rc = *this * center.asVector();
    return setTranslation(center.asVector() - rc);
}

AcGeMatrix3d& AcGeMatrix3d::setToScaling(double factor, const AcGePoint3d& center) {
    setToIdentity();
    for (int i = 0; i < 3; ++i) entry[i][i] = factor;
    return setTranslation(center.asVector() * (1.0 - factor));
}

AcGeMatrix3d& AcGeMatrix3d::setToMirroring(const AcGePoint3d& point) { return setToScaling(-1.0, point); }

AcGeMatrix3d& AcGeMatrix3d::setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                           const AcGeVector3d& yAxis, const AcGeVector3d& zAxis) {
    setToIdentity();
    const AcGeVector3d* axes[3] = {&xAxis, &yAxis, &zAxis};
    for (int c = 0; c < 3; ++c) {
        entry[0][c] = axes[c]->x;
        entry[1][c] = axes[c]->y;
        entry[2][c] = axes[c]->z;
    }
    return setTranslation(origin.asVector());
}

void AcGeMatrix3d::getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                                  AcGeVector3d& zAxis) const {
    origin.set(entry[0][3], entry[1][3], entry[2][3]);
    xAxis.set(entry[0][0], entry[1][0], entry[2][0]);
    yAxis.set(entry[0][1], entry[1][1], entry[2][1]);
    zAxis.set(entry[0][2], entry[1][2], entry[2][2]);
}

AcGeMatrix3d& AcGeMatrix3d::setToAlignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromX,
                                               const AcGeVector3d& fromY, const AcGeVector3d& fromZ,
                                               const AcGePoint3d& toOrigin, const AcGeVector3d& toX,
                                               const AcGeVector3d& toY, const AcGeVector3d& toZ) {
    AcGeMatrix3d from, to;
    from.setCoordSystem(fromOrigin, fromX, fromY, fromZ);
    to.setCoordSystem(toOrigin, toX, toY, toZ);
    return setToProduct(to, from.inverse());
}

AcGeMatrix3d& AcGeMatrix3d::setToPlaneToWorld(const AcGeVector3d& normal) {
    AcGeVector3d n = normal.normal();
    if (n.isZeroLength()) return setToIdentity();
    AcGeVector3d ax = n.perpVector();
    AcGeVector3d ay = n.crossProduct(ax).normal();
    return setCoordSystem(AcGePoint3d::kOrigin, ax, ay, n);
}

// The plane axes are orthonormal, so the inverse is the transpose.
AcGeMatrix3d& AcGeMatrix3d::setToWorldToPlane(const AcGeVector3d& normal) {
    return setToPlaneToWorld(normal).transposeIt();
}

double AcGeMatrix3d::scale() const {
    double best = 0.0;
    for (int c = 0; c < 3; ++c) {
        double len = std::sqrt(entry[0][c] * entry[0][c] + entry[1][c] * entry[1][c] + entry[2][c] * entry[2][c]);
        if (len > best) best = len;
    }
    return best;
}

// The linear part and the perspective row compare against the vector
// tolerance, the translation against the point tolerance.
bool AcGeMatrix3d::isEqualTo(const AcGeMatrix3d& m, const AcGeTol& tol) const {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) {
            double limit = (c == 3 && r < 3) ? tol.equalPoint() : tol.equalVector();
            if (std::fabs(entry[r][c] - m.entry[r][c]) > limit) return false;
        }
    return true;
}

bool AcGeMatrix3d::isScaledOrtho(const AcGeTol& tol) const {
    AcGePoint3d o;
    AcGeVector3d ax[3];
    getCoordSystem(o, ax[0], ax[1], ax[2]);
    for (const AcGeVector3d& v : ax)
        if (v.isZeroLength(tol)) return false;
    return ax[0].isPerpendicularTo(ax[1], tol) && ax[1].isPerpendicularTo(ax[2], tol) &&
           ax[0].isPerpendicularTo(ax[2], tol);
}

bool AcGeMatrix3d::isUniScaledOrtho(const AcGeTol& tol) const {
    if (!isScaledOrtho(tol)) return false;
    AcGePoint3d o;
    AcGeVector3d ax[3];
    getCoordSystem(o, ax[0], ax[1], ax[2]);
    double l0 = ax[0].length();
    double limit = tol.equalVector() * (l0 > 1.0 ? l0 : 1.0);
    return std::fabs(ax[1].length() - l0) <= limit && std::fabs(ax[2].length() - l0) <= limit;
}

AcGeMatrix3d AcGeMatrix3d::translation(const AcGeVector3d& v) { return AcGeMatrix3d().setToTranslation(v); }

AcGeMatrix3d AcGeMatrix3d::rotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& center) {
    return AcGeMatrix3d().setToRotation(angle, axis, center);
}

AcGeMatrix3d AcGeMatrix3d::scaling(double factor, const AcGePoint3d& center) {
    return AcGeMatrix3d().setToScaling(factor, center);
}

AcGeMatrix3d AcGeMatrix3d::worldToPlane(const AcGeVector3d& normal) {
    return AcGeMatrix3d().setToWorldToPlane(normal);
}

AcGeMatrix3d AcGeMatrix3d::planeToWorld(const AcGeVector3d& normal) {
    return AcGeMatrix3d().setToPlaneToWorld(normal);
}

AcGeMatrix3d AcGeMatrix3d::alignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromX,
                                         const AcGeVector3d& fromY, const AcGeVector3d& fromZ,
                                         const AcGePoint3d& toOrigin, const AcGeVector3d& toX,
                                         const AcGeVector3d& toY, const AcGeVector3d& toZ) {
    return AcGeMatrix3d().setToAlignCoordSys(fromOrigin, fromX, fromY, fromZ, toOrigin, toX, toY, toZ);
}
