// CT_std_angle as a plain loop: moves the angle by whole turns one at a time.
#pragma once
#include <cmath>
#include <numbers>

namespace reference {

inline double StdAngleLoop(double a) {
    const double twoPi = 2.0 * std::numbers::pi;
    if (std::fabs(a - twoPi) < 0.005) return 0.0;
    while (a > twoPi + 0.001) a -= twoPi;
    while (a < -0.001) a += twoPi;
    return a;
}

}  // namespace reference
