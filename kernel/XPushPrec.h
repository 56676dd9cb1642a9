// The kernel's two comparison tolerances and their scoped override.
#pragma once

// Two coordinates closer than _distSnap are one coordinate; two directions
// closer than _angSnap (radians) are one direction. Read at each test.
extern double _distSnap;
extern double _angSnap;

// Sets both tolerances for the life of the object and restores what it found,
// so nested overrides unwind as a stack.
class XPushPrec {
public:
    XPushPrec(double dist, double ang);
    ~XPushPrec();
    XPushPrec(const XPushPrec&) = delete;
    XPushPrec& operator=(const XPushPrec&) = delete;

private:
    double m_savedDist;
    double m_savedAng;
};

// 1 when each of x1 .. x(n-1) lies strictly closer than tol to x0. x1 is
// compared even when n is below 2.
int IsEqual(double tol, int n, double x0, double x1, ...);
