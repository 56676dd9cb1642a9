#include "kernel/XSector.h"

#include <cmath>
#include <numbers>

#include "kernel/XPushPrec.h"
#include "kernel/vector_routines.h"

namespace {
constexpr double kTwoPi = 2.0 * std::numbers::pi;
// A difference this far below zero is a sector that crosses angle 0.
constexpr double kSweepWrap = -1e-6;
}  // namespace

double SectorSweep(double start, double end) {
    double s = end - start;
    return s < kSweepWrap ? s + kTwoPi : s;
}

XSector::XSector() : startAngle(0.0), endAngle(kTwoPi) {}

void XSector::SetAngles(double start, double end) {
    startAngle = start;
    endAngle = end;
}

double XSector::Bulge() const { return SectorSweep(startAngle, endAngle); }

double XSector::MidAngle() const { return CT_std_angle(startAngle + Bulge() / 2.0); }

int XSector::operator!() const { return Bulge() < _angSnap; }

bool XSector::operator==(const XSector& other) const {
    return std::fabs(startAngle - other.startAngle) < _angSnap && std::fabs(endAngle - other.endAngle) < _angSnap;
}

void XSector::TransUCS(double rot) {
    startAngle = CT_std_angle(startAngle + rot);
    endAngle = CT_std_angle(endAngle + rot);
}

// The end tests see the angle just above each end and the 0.005 band below
// it that CT_std_angle folds to 0.
int XSector::AngleFlag(double a) const {
    if (CT_std_angle(a - startAngle) < _angSnap) return 1;
    if (CT_std_angle(a - endAngle) < _angSnap) return 2;
    if (startAngle < endAngle) return (a > startAngle && a < endAngle) ? 3 : 0;
    return (a > startAngle || a < endAngle) ? 3 : 0;
}

double* XSector::NearAngle(double a) {
    double s = CT_std_angle(endAngle - startAngle);
    double t = CT_std_angle(a - startAngle);
    if (t < _angSnap) return &startAngle;
    if (std::fabs(t - s) < _angSnap) return &endAngle;
    if (t >= s) return (t - s < kTwoPi - t) ? &endAngle : &startAngle;
    return (s - t < t) ? &endAngle : &startAngle;
}
