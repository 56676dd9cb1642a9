// An angular interval run counter-clockwise from start to end; it crosses
// angle 0 when start is above end.
#pragma once
#include "platform/adsdef.h"

class XSector {
public:
    XSector();   // the whole turn, 0 to 2 pi
    XSector(double start, double end) : startAngle(start), endAngle(end) {}
    explicit XSector(const ads_name ent);   // an ARC's angles, else the whole turn
    XSector(const XSector&) = default;
    XSector& operator=(const XSector&) = default;

    void SetAngles(double start, double end);
    double Bulge() const;   // the sweep in radians, not a polyline bulge
    double MidAngle() const;
    int operator!() const;
    bool operator==(const XSector& other) const;
    void TransUCS(double rot);
    int AngleFlag(double a) const;   // 1 at start, 2 at end, 3 inside, 0 outside
    double* NearAngle(double a);      // the field nearer to a

    double startAngle;
    double endAngle;
};

// end - start, plus 2 pi only when that is below -1e-6: equal angles sweep 0.
double SectorSweep(double start, double end);
