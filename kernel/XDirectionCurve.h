// A curve segment whose angle gives a direction of travel: a negative angle
// is an arc run clockwise from start to end (a "minus arc").
#pragma once
#include "kernel/XCurveSegment.h"

class XDirectionCurve : public XCurveSegment {
public:
    explicit XDirectionCurve(int isBounded = 1) : XCurveSegment(isBounded) {}
    XDirectionCurve(const XPoint& a, const XPoint& b, double includedAngle, int isBounded)
        : XCurveSegment(a, b, includedAngle, isBounded) {}
    // The arc as it stands, or with reverse run clockwise from its end.
    XDirectionCurve(const XArc& arc, int reverse);
    XDirectionCurve(const XDirectionCurve&) = default;
    XDirectionCurve& operator=(const XDirectionCurve&) = default;

    using XCurveSegment::PathArea;
    using XCurveSegment::Direction;

    void TransUCS(double m[4][4]) override;
    void TransUCS(const resbuf* from, const resbuf* to) override;
    void Reverse() override;   // the same points travelled the other way
    XArc GetArc() const override;   // counter-clockwise either way
    int OnWhichSide(const XPoint& p) const override;
    double PathArea(XPoint& p) const override;
    double IDirection(int which) const override;
    double Direction(const XPoint& p) const override;
    int AsPoly2D(XPoly2D& out) const override;
    int Polar(double dist, XPointDir2d& out, int fromStart) const override;
    double PathDistance(const XPoint& p, int fromStart) const override;
    double OrthoDirection(const XPoint& p) const override;
    void SetPoints(const XPoint& a, const XPoint& b) override;

    int IsMinusArc() const;
    XCurveSegment GetCurve() const;   // the counter-clockwise normal form
    XDirectionCurve Offset(double d, int isBounded) const;   // to the right of travel

private:
    // Negates the angle when the images of the X and Y axes swap handedness.
    void FlipOnMirror(const double o[3], const double x[3], const double y[3]);
};
