// The drawing's bulge and the kernel's included angle meet only here.
#pragma once
#include <cmath>

// |b| below this is a straight segment, read as exactly 0.
inline constexpr double kBulgeZero = 1e-6;

inline double BulgeToAngle(double bulge) {
    return std::fabs(bulge) < kBulgeZero ? 0.0 : 4.0 * std::atan(bulge);
}

inline double AngleToBulge(double angle) { return std::tan(angle / 4.0); }
