// The kernel's point: three doubles, usable wherever the host takes a
// double[3] or one of its point and vector classes.
#pragma once
#include <type_traits>

#include "platform/acge.h"
#include "platform/adsdef.h"

class XLine;
class XCircle;
struct resbuf;

class XPoint {
public:
    XPoint(double xx = 0.0, double yy = 0.0, double zz = 0.0) : x(xx), y(yy), z(zz) {}
    XPoint(const XPoint& base, double angle, double dist);   // polar offset, z kept
    XPoint(const AcGePoint3d& p) : x(p.x), y(p.y), z(p.z) {}
    XPoint(const AcGePoint2d& p) : x(p.x), y(p.y), z(0.0) {}
    XPoint(const double* p) : x(p[0]), y(p[1]), z(p[2]) {}
    XPoint(const XPoint&) = default;
    XPoint& operator=(const XPoint&) = default;
    XPoint& operator=(const AcGePoint3d& p);
    XPoint& operator=(const AcGePoint2d& p);
    XPoint& operator=(const double* p);

    // The object is its own double[3] and host point: these return its address.
    operator double*() { return &x; }
    operator const double*() const { return &x; }
    operator void*() { return &x; }
    operator AcGePoint3d&() { return *reinterpret_cast<AcGePoint3d*>(this); }
    operator const AcGePoint3d&() const { return *reinterpret_cast<const AcGePoint3d*>(this); }
    operator AcGeVector3d&() { return *reinterpret_cast<AcGeVector3d*>(this); }
    operator const AcGeVector3d&() const { return *reinterpret_cast<const AcGeVector3d*>(this); }
    operator AcGePoint2d&() { return *reinterpret_cast<AcGePoint2d*>(this); }
    operator const AcGePoint2d&() const { return *reinterpret_cast<const AcGePoint2d*>(this); }
    operator AcGeVector2d&() { return *reinterpret_cast<AcGeVector2d*>(this); }
    operator const AcGeVector2d&() const { return *reinterpret_cast<const AcGeVector2d*>(this); }

    void operator>(double* out) const;   // copies the coordinates out
    XPoint& operator+=(const XPoint& p);
    XPoint& operator-=(const XPoint& p);
    XPoint& operator*=(double s);
    XPoint& operator/=(double s);
    XPoint& Scale(double s) { return *this *= s; }
    double& operator[](int i) { return (&x)[i]; }
    double operator[](int i) const { return (&x)[i]; }

    // A box test: each axis strictly closer than _distSnap.
    bool operator==(const XPoint& p) const;
    bool operator!=(const XPoint& p) const { return !(*this == p); }
    // A distance test: the spatial distance strictly below _distSnap.
    bool operator==(const double* p) const;
    int operator!() const;   // all three coordinates within 1e-6 of 0

    double Distance2d(const XPoint& p) const;
    double Distance(const XPoint& p) const;
    double Distance(const XLine& line) const;   // -1 for a line without length
    double Length() const;

    XPoint TransformAs(double m[4][4]) const;
    void TransformBy(double m[4][4]);
    void Mirror(const double* c, double* out) const;
    void Mirror(const XPoint& c, XPoint& out) const;
    void Rotate(double angle);
    void Reverse();

    AcGePoint3d AsAcGePoint3d() const { return {x, y, z}; }
    AcGePoint2d AsAcGePoint2d() const { return {x, y}; }
    AcGeVector3d AsAcGeVector3d() const { return {x, y, z}; }
    AcGeVector2d AsAcGeVector2d() const { return {x, y}; }

    int Project(const XLine& line, double* out) const;       // RTNORM or RTERROR
    int Project(const XCircle& circle, double* out) const;   // RTNORM or RTERROR

    void GetMoveMatrix(const XPoint& to, double m[4][4]) const;
    void GetRotationMatrix(double angle, double m[4][4]) const;
    void GetScaleMatrix(double s, double m[4][4]) const;
    void GetScaleMatrix(double sx, double sy, double sz, double m[4][4]) const;

    // Drawing hooks: a POINT on the layer (null: the current one), a POINT
    // copying a model entity's list and extended data, the POINT moved here.
    int Make(const char* layer) const;
    int MakeLike(const ads_name like) const;
    int Modify(const ads_name ent) const;

    double x, y, z;
};

static_assert(sizeof(XPoint) == 3 * sizeof(double), "XPoint is a bare double[3]");
static_assert(std::is_standard_layout_v<XPoint>, "XPoint is a bare double[3]");

XPoint operator+(const XPoint& a, const XPoint& b);
XPoint operator-(const XPoint& a, const XPoint& b);
XPoint Max(const XPoint& a, const XPoint& b);   // per axis
XPoint Min(const XPoint& a, const XPoint& b);

// Folds n values of one type; below 2 the first is the answer.
int Maximum(int n, int first, ...);
double Maximum(int n, double first, ...);
XPoint Maximum(int n, XPoint first, ...);
int Minimum(int n, int first, ...);
double Minimum(int n, double first, ...);
XPoint Minimum(int n, XPoint first, ...);

// A point with a heading in radians.
class XPointDir2d : public XPoint {
public:
    explicit XPointDir2d(double dir = 0.0) : direction(dir) {}
    XPointDir2d(const XPointDir2d&) = default;
    XPointDir2d& operator=(const XPointDir2d&) = default;

    XPoint Polar(double dist) const;   // dist along the heading

    double direction;
};
