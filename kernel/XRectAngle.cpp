#include "kernel/XRectAngle.h"

#include "kernel/XLine.h"
#include "kernel/XPoly2D.h"
#include "kernel/XPushPrec.h"

namespace {
constexpr double kElevationSlack = 1e-5;
}  // namespace

XRectAngle::XRectAngle(const double* a, const double* b) : low(Min(a, b)), up(Max(a, b)) {}

XRectAngle::XRectAngle(const double* c, double w, double h)
    : low(c[0] - w / 2, c[1] - h / 2, c[2]), up(c[0] + w / 2, c[1] + h / 2, c[2]) {}

void XRectAngle::Center(double pt[3]) {
    pt[0] = (low.x + up.x) / 2;
    pt[1] = (low.y + up.y) / 2;
    pt[2] = (low.z + up.z) / 2;
}

double XRectAngle::Area() const { return Width() * Height(); }

int XRectAngle::Intersection(const XLine& l, double* a, double* b) const {
    if (!IsEqual(kElevationSlack, 4, l.start.z, l.end.z, low.z, up.z)) return 0;
    XPoint corner[4] = {GetLowLeft(), GetLowRight(), GetUpRight(), GetUpLeft()};
    int count = 0;
    for (int i = 0; i < 4; ++i) {
        XLine side(corner[i], corner[(i + 1) % 4], 1);
        XPoint p;
        if (!side.Intersection(l, p)) continue;
        if (count == 0) {
            if (a) p > a;
            count = 1;
        } else {
            if (b) p > b;
            return 2;
        }
    }
    return count;
}

void XRectAngle::SetElevation(double z) {
    low.z = z;
    up.z = z;
}

void XRectAngle::AsPoly2D(XPoly2D& out) const {
    XPoint corner[4] = {GetLowLeft(), GetLowRight(), GetUpRight(), GetUpLeft()};
    for (XPoint& c : corner) {
        c.z = low.z;
        out.AppendNode(c, 0.0);
    }
    out.closed = 1;
}
