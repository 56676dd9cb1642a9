// The host's pure geometry utilities on ads points.
#include <cmath>
#include <numbers>

#include "platform/acutads.h"

// Coincident points have angle 0.
ads_real acutAngle(const ads_point from, const ads_point to) {
    double dx = to[0] - from[0], dy = to[1] - from[1];
    if (dx == 0.0 && dy == 0.0) return 0.0;
    double a = std::atan2(dy, dx);
    if (a < 0.0) a += 2.0 * std::numbers::pi;
    return a >= 2.0 * std::numbers::pi ? 0.0 : a;
}

ads_real acutDistance(const ads_point a, const ads_point b) {
    double dx = b[0] - a[0], dy = b[1] - a[1], dz = b[2] - a[2];
    return std::sqrt(dx * dx + dy * dy + dz * dz);
}

void acutPolar(const ads_point base, ads_real angle, ads_real dist, ads_point out) {
    double x = base[0] + dist * std::cos(angle);
    double y = base[1] + dist * std::sin(angle);
    out[0] = x;   // out may be base
    out[1] = y;
    out[2] = base[2];
}
