#include "kernel/XPushPrec.h"

#include <cmath>
#include <cstdarg>

double _distSnap = 0.01;
double _angSnap = 0.01;

XPushPrec::XPushPrec(double dist, double ang) : m_savedDist(_distSnap), m_savedAng(_angSnap) {
    _distSnap = dist;
    _angSnap = ang;
}

XPushPrec::~XPushPrec() {
    _distSnap = m_savedDist;
    _angSnap = m_savedAng;
}

int IsEqual(double tol, int n, double x0, double x1, ...) {
    if (!(std::fabs(x1 - x0) < tol)) return 0;
    va_list args;
    va_start(args, x1);
    int equal = 1;
    for (int i = 2; i < n && equal; ++i) {
        double xi = va_arg(args, double);
        if (!(std::fabs(xi - x0) < tol)) equal = 0;
    }
    va_end(args);
    return equal;
}
