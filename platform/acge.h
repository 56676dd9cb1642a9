// The host's geometry value types: points, vectors, the 4x4 matrix, the
// tolerance context and the growable array they are kept in.
#pragma once
#include "platform/acarray.h"

class AcGeMatrix3d;

// Tolerances of the geometry library. Points compare by distance against
// equalPoint; vectors (and directions) against equalVector.
class AcGeTol {
public:
    constexpr AcGeTol() = default;
    double equalPoint() const { return mEqualPoint; }
    double equalVector() const { return mEqualVector; }
    void setEqualPoint(double value) { mEqualPoint = value; }
    void setEqualVector(double value) { mEqualVector = value; }

private:
    double mEqualPoint = 1e-10;
    double mEqualVector = 1e-12;
};

struct AcGeContext {
    static AcGeTol gTol;   // the process-wide default for every comparison
};

class AcGeVector2d {
public:
    constexpr AcGeVector2d() = default;
    constexpr AcGeVector2d(double xx, double yy) : x(xx), y(yy) {}

    static const AcGeVector2d kIdentity;   // the zero vector
    static const AcGeVector2d kXAxis;
    static const AcGeVector2d kYAxis;

    AcGeVector2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
    AcGeVector2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
    AcGeVector2d operator-() const { return {-x, -y}; }
    AcGeVector2d operator*(double s) const { return {x * s, y * s}; }
    AcGeVector2d operator/(double s) const { return {x / s, y / s}; }
    AcGeVector2d& operator+=(const AcGeVector2d& v) { x += v.x; y += v.y; return *this; }
    AcGeVector2d& operator-=(const AcGeVector2d& v) { x -= v.x; y -= v.y; return *this; }
    AcGeVector2d& operator*=(double s) { x *= s; y *= s; return *this; }
    AcGeVector2d& operator/=(double s) { x /= s; y /= s; return *this; }
    bool operator==(const AcGeVector2d& v) const { return isEqualTo(v); }
    bool operator!=(const AcGeVector2d& v) const { return !isEqualTo(v); }
    double operator[](unsigned i) const { return i == 0 ? x : y; }
    double& operator[](unsigned i) { return i == 0 ? x : y; }

    AcGeVector2d& set(double xx, double yy) { x = xx; y = yy; return *this; }
    AcGeVector2d& negate() { x = -x; y = -y; return *this; }
    AcGeVector2d& rotateBy(double angle);
    AcGeVector2d& normalize(const AcGeTol& tol = AcGeContext::gTol);
    AcGeVector2d normal(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeVector2d perpVector() const { return {-y, x}; }

    double length() const;
    double lengthSqrd() const { return x * x + y * y; }
    double dotProduct(const AcGeVector2d& v) const { return x * v.x + y * v.y; }
    double angle() const;                              // from the x axis, in [0, 2pi)
    double angleTo(const AcGeVector2d& v) const;       // unsigned, in [0, pi]

    bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const;
    bool isUnitLength(const AcGeTol& tol = AcGeContext::gTol) const;
    bool isParallelTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isCodirectionalTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPerpendicularTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isEqualTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const;

    double x = 0.0, y = 0.0;
};

inline AcGeVector2d operator*(double s, const AcGeVector2d& v) { return v * s; }

class AcGePoint2d {
public:
    constexpr AcGePoint2d() = default;
    constexpr AcGePoint2d(double xx, double yy) : x(xx), y(yy) {}

    static const AcGePoint2d kOrigin;

    AcGePoint2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
    AcGePoint2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
    AcGeVector2d operator-(const AcGePoint2d& p) const { return {x - p.x, y - p.y}; }
    AcGePoint2d operator*(double s) const { return {x * s, y * s}; }
    AcGePoint2d operator/(double s) const { return {x / s, y / s}; }
    AcGePoint2d& operator+=(const AcGeVector2d& v) { x += v.x; y += v.y; return *this; }
    AcGePoint2d& operator-=(const AcGeVector2d& v) { x -= v.x; y -= v.y; return *this; }
    AcGePoint2d& operator*=(double s) { x *= s; y *= s; return *this; }
    AcGePoint2d& operator/=(double s) { x /= s; y /= s; return *this; }
    bool operator==(const AcGePoint2d& p) const { return isEqualTo(p); }
    bool operator!=(const AcGePoint2d& p) const { return !isEqualTo(p); }
    double operator[](unsigned i) const { return i == 0 ? x : y; }
    double& operator[](unsigned i) { return i == 0 ? x : y; }

    AcGePoint2d& set(double xx, double yy) { x = xx; y = yy; return *this; }
    AcGePoint2d& rotateBy(double angle, const AcGePoint2d& center = kOrigin);
    AcGePoint2d& scaleBy(double factor, const AcGePoint2d& center = kOrigin);
    AcGeVector2d asVector() const { return {x, y}; }

    double distanceTo(const AcGePoint2d& p) const;
    bool isEqualTo(const AcGePoint2d& p, const AcGeTol& tol = AcGeContext::gTol) const;

    double x = 0.0, y = 0.0;
};

class AcGeVector3d {
public:
    constexpr AcGeVector3d() = default;
    constexpr AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    static const AcGeVector3d kIdentity;   // the zero vector
    static const AcGeVector3d kXAxis;
    static const AcGeVector3d kYAxis;
    static const AcGeVector3d kZAxis;

    AcGeVector3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    AcGeVector3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    AcGeVector3d operator-() const { return {-x, -y, -z}; }
    AcGeVector3d operator*(double s) const { return {x * s, y * s, z * s}; }
    AcGeVector3d operator/(double s) const { return {x / s, y / s, z / s}; }
    AcGeVector3d& operator+=(const AcGeVector3d& v) { x += v.x; y += v.y; z += v.z; return *this; }
    AcGeVector3d& operator-=(const AcGeVector3d& v) { x -= v.x; y -= v.y; z -= v.z; return *this; }
    AcGeVector3d& operator*=(double s) { x *= s; y *= s; z *= s; return *this; }
    AcGeVector3d& operator/=(double s) { x /= s; y /= s; z /= s; return *this; }
    bool operator==(const AcGeVector3d& v) const { return isEqualTo(v); }
    bool operator!=(const AcGeVector3d& v) const { return !isEqualTo(v); }
    double operator[](unsigned i) const { return i == 0 ? x : (i == 1 ? y : z); }
    double& operator[](unsigned i) { return i == 0 ? x : (i == 1 ? y : z); }

    AcGeVector3d& set(double xx, double yy, double zz) { x = xx; y = yy; z = zz; return *this; }
    AcGeVector3d& negate() { x = -x; y = -y; z = -z; return *this; }
    AcGeVector3d& normalize(const AcGeTol& tol = AcGeContext::gTol);
    AcGeVector3d normal(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeVector3d perpVector() const;                  // the arbitrary-axis x direction
    AcGeVector3d& rotateBy(double angle, const AcGeVector3d& axis);
    AcGeVector3d& transformBy(const AcGeMatrix3d& m);   // ignores the translation
    AcGeVector3d& setToProduct(const AcGeMatrix3d& m, const AcGeVector3d& v);
    AcGeVector2d convert2d() const { return {x, y}; }

    double length() const;
    double lengthSqrd() const { return x * x + y * y + z * z; }
    double dotProduct(const AcGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
    AcGeVector3d crossProduct(const AcGeVector3d& v) const {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }
    double angleTo(const AcGeVector3d& v) const;     // unsigned, in [0, pi]
    // Counter-clockwise seen from the tip of reference, in [0, 2pi).
    double angleTo(const AcGeVector3d& v, const AcGeVector3d& reference) const;

    bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const;
    bool isUnitLength(const AcGeTol& tol = AcGeContext::gTol) const;
    bool isParallelTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isCodirectionalTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPerpendicularTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isEqualTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;

    double x = 0.0, y = 0.0, z = 0.0;
};

inline AcGeVector3d operator*(double s, const AcGeVector3d& v) { return v * s; }

class AcGePoint3d {
public:
    constexpr AcGePoint3d() = default;
    constexpr AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    static const AcGePoint3d kOrigin;

    AcGePoint3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    AcGePoint3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    AcGeVector3d operator-(const AcGePoint3d& p) const { return {x - p.x, y - p.y, z - p.z}; }
    AcGePoint3d operator*(double s) const { return {x * s, y * s, z * s}; }
    AcGePoint3d operator/(double s) const { return {x / s, y / s, z / s}; }
    AcGePoint3d& operator+=(const AcGeVector3d& v) { x += v.x; y += v.y; z += v.z; return *this; }
    AcGePoint3d& operator-=(const AcGeVector3d& v) { x -= v.x; y -= v.y; z -= v.z; return *this; }
    AcGePoint3d& operator*=(double s) { x *= s; y *= s; z *= s; return *this; }
    AcGePoint3d& operator/=(double s) { x /= s; y /= s; z /= s; return *this; }
    bool operator==(const AcGePoint3d& p) const { return isEqualTo(p); }
    bool operator!=(const AcGePoint3d& p) const { return !isEqualTo(p); }
    double operator[](unsigned i) const { return i == 0 ? x : (i == 1 ? y : z); }
    double& operator[](unsigned i) { return i == 0 ? x : (i == 1 ? y : z); }

    AcGePoint3d& set(double xx, double yy, double zz) { x = xx; y = yy; z = zz; return *this; }
    AcGePoint3d& transformBy(const AcGeMatrix3d& m);
    AcGePoint3d& setToProduct(const AcGeMatrix3d& m, const AcGePoint3d& p);
    AcGePoint3d& rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& center = kOrigin);
    AcGePoint3d& scaleBy(double factor, const AcGePoint3d& center = kOrigin);
    AcGeVector3d asVector() const { return {x, y, z}; }
    AcGePoint2d convert2d() const { return {x, y}; }

    double distanceTo(const AcGePoint3d& p) const;
    bool isEqualTo(const AcGePoint3d& p, const AcGeTol& tol = AcGeContext::gTol) const;

    double x = 0.0, y = 0.0, z = 0.0;
};

// A 4x4 matrix acting on column vectors: p' = M p, translation in column 3.
class AcGeMatrix3d {
public:
    constexpr AcGeMatrix3d()   // the identity
        : entry{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}} {}

    static const AcGeMatrix3d kIdentity;

    AcGeMatrix3d operator*(const AcGeMatrix3d& m) const;
    AcGeMatrix3d& operator*=(const AcGeMatrix3d& m);
    bool operator==(const AcGeMatrix3d& m) const { return isEqualTo(m); }
    bool operator!=(const AcGeMatrix3d& m) const { return !isEqualTo(m); }
    double operator()(unsigned row, unsigned col) const { return entry[row][col]; }
    double& operator()(unsigned row, unsigned col) { return entry[row][col]; }
    const double* operator[](unsigned row) const { return entry[row]; }
    double* operator[](unsigned row) { return entry[row]; }

    AcGeMatrix3d& setToIdentity();
    AcGeMatrix3d& preMultBy(const AcGeMatrix3d& left);     // this = left * this
    AcGeMatrix3d& postMultBy(const AcGeMatrix3d& right);   // this = this * right
    AcGeMatrix3d& setToProduct(const AcGeMatrix3d& a, const AcGeMatrix3d& b);
    AcGeMatrix3d& invert();                 // a singular matrix stays as it is
    AcGeMatrix3d inverse() const;           // of a singular matrix: a copy of it
    bool inverse(AcGeMatrix3d& result, double tol) const;   // false when singular
    bool isSingular(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeMatrix3d& transposeIt();
    AcGeMatrix3d transpose() const;
    double det() const;

    AcGeMatrix3d& setTranslation(const AcGeVector3d& v);
    AcGeMatrix3d& setToTranslation(const AcGeVector3d& v);
    AcGeMatrix3d& setToRotation(double angle, const AcGeVector3d& axis,
                                const AcGePoint3d& center = AcGePoint3d::kOrigin);
    AcGeMatrix3d& setToScaling(double factor, const AcGePoint3d& center = AcGePoint3d::kOrigin);
    AcGeMatrix3d& setToMirroring(const AcGePoint3d& point);   // point reflection
    // Maps the world axes onto the given axes placed at origin.
    AcGeMatrix3d& setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                 const AcGeVector3d& yAxis, const AcGeVector3d& zAxis);
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                        AcGeVector3d& zAxis) const;
    AcGeMatrix3d& setToAlignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromX,
                                     const AcGeVector3d& fromY, const AcGeVector3d& fromZ,
                                     const AcGePoint3d& toOrigin, const AcGeVector3d& toX,
                                     const AcGeVector3d& toY, const AcGeVector3d& toZ);
    // Between the world and the plane coordinate system of a normal, whose
    // x axis follows the arbitrary-axis rule of entity coordinate systems.
    AcGeMatrix3d& setToWorldToPlane(const AcGeVector3d& normal);
    AcGeMatrix3d& setToPlaneToWorld(const AcGeVector3d& normal);

    AcGeVector3d translation() const { return {entry[0][3], entry[1][3], entry[2][3]}; }
    double scale() const;   // the largest column length of the linear part
    bool isEqualTo(const AcGeMatrix3d& m, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isUniScaledOrtho(const AcGeTol& tol = AcGeContext::gTol) const;
    bool isScaledOrtho(const AcGeTol& tol = AcGeContext::gTol) const;

    static AcGeMatrix3d translation(const AcGeVector3d& v);
    static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axis,
                                 const AcGePoint3d& center = AcGePoint3d::kOrigin);
    static AcGeMatrix3d scaling(double factor, const AcGePoint3d& center = AcGePoint3d::kOrigin);
    static AcGeMatrix3d worldToPlane(const AcGeVector3d& normal);
    static AcGeMatrix3d planeToWorld(const AcGeVector3d& normal);
    static AcGeMatrix3d alignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromX,
                                      const AcGeVector3d& fromY, const AcGeVector3d& fromZ,
                                      const AcGePoint3d& toOrigin, const AcGeVector3d& toX,
                                      const AcGeVector3d& toY, const AcGeVector3d& toZ);

    double entry[4][4];
};

AcGePoint3d operator*(const AcGeMatrix3d& m, const AcGePoint3d& p);
AcGeVector3d operator*(const AcGeMatrix3d& m, const AcGeVector3d& v);

typedef AcArray<AcGePoint2d> AcGePoint2dArray;
typedef AcArray<AcGePoint3d> AcGePoint3dArray;
typedef AcArray<AcGeVector2d> AcGeVector2dArray;
typedef AcArray<AcGeVector3d> AcGeVector3dArray;
typedef AcArray<double> AcGeDoubleArray;
typedef AcArray<int> AcGeIntArray;
