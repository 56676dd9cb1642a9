// Circles, sectors and arcs.
#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "kernel/XArc.h"
#include "kernel/XLine.h"
#include "kernel/XPushPrec.h"
#include "platform/adsdef.h"

namespace {
constexpr double kPi = std::numbers::pi;

TEST(XCircle, ConstructionsAndMeasures) {
    XCircle d(XPoint(0, 0, 0), XPoint(4, 0, 0));
    EXPECT_EQ(d.center.x, 2);
    EXPECT_EQ(d.radius, 2);
    XCircle c(XPoint(1, 0, 0), XPoint(0, 1, 0), XPoint(-1, 0, 0));
    EXPECT_NEAR(c.center.x, 0, 1e-12);
    EXPECT_NEAR(c.center.y, 0, 1e-12);
    EXPECT_NEAR(c.radius, 1, 1e-12);
    XCircle flat(XPoint(0, 0, 0), XPoint(1, 1, 0), XPoint(2, 2, 0));
    EXPECT_EQ(flat.radius, 0);
    EXPECT_EQ(flat.center.x, 0);
    EXPECT_EQ(c.Type(), CellCircle);
    EXPECT_NEAR(c.Length(), 2 * kPi, 1e-12);
    EXPECT_NEAR(c.Area(), kPi, 1e-12);
    EXPECT_TRUE(!XCircle(XPoint(), 0.0099));
    EXPECT_FALSE(!XCircle(XPoint(), 0.01));
    double lo[3], hi[3];
    XCircle(XPoint(1, 2, 3), 4).GetExtend(lo, hi);
    EXPECT_EQ(lo[0], -3);
    EXPECT_EQ(hi[1], 6);
    EXPECT_EQ(lo[2], 3);
}

TEST(XCircle, OffsetIgnoresItsArgument) {
    XCircle c(XPoint(), 2);
    EXPECT_EQ(c.Offset(5).radius, 2);
    XArc a(XPoint(), 2, 0, 1);
    EXPECT_EQ(a.Offset(5).radius, 7);
    EXPECT_EQ(a.Offset(-3).radius, 0);
    EXPECT_EQ(a.Offset(-1.995).radius, 0);   // 0.005 is below _distSnap
}

TEST(XCircle, CircleCircleCountsAndElevation) {
    XCircle a(XPoint(0, 0, 0), 5), b(XPoint(8, 0, 0), 5);
    XPoint p, q;
    EXPECT_EQ(a.Intersection(b, p, q), 2);
    EXPECT_NEAR(p.x, 4, 1e-12);
    EXPECT_EQ(a.Intersection(a, p, q), 0);
    EXPECT_EQ(a.Intersection(XCircle(XPoint(10, 0, 0), 4.9), p, q), 0);
    EXPECT_EQ(a.Intersection(XCircle(XPoint(10, 0, 0), 5), nullptr, nullptr), 2);
    EXPECT_EQ(a.Intersection(XCircle(XPoint(8, 0, 0.00002), 5), p, q), 0);
    XArc upper(XPoint(8, 0, 0), 5, 0, kPi);
    EXPECT_EQ(a.Intersection(upper, p, q), 1);
    EXPECT_NEAR(p.y, 3, 1e-12);
}

TEST(XCircle, SubArcAroundAPoint) {
    XCircle c(XPoint(), 10);
    XArc out;
    ASSERT_EQ(c.GetSubArc(XPoint(10, 0, 0), 10, out), RTNORM);
    EXPECT_NEAR(out.startAngle, 2 * kPi - kPi / 6, 1e-12);
    EXPECT_NEAR(out.endAngle, kPi / 6, 1e-12);
    EXPECT_EQ(c.GetSubArc(XPoint(10, 0, 0), 21, out), RTERROR);
    EXPECT_EQ(c.GetSubArc(XPoint(10.0101, 0, 0), 1, out), RTERROR);
    EXPECT_EQ(c.GetSubArc(XPoint(10.0099, 0, 0), 1, out), RTNORM);
    XArc arc(XPoint(), 10, 0, kPi / 2);
    EXPECT_EQ(arc.GetSubArc(XPoint(10, 0, 0), 2, out), RTERROR);   // sticks out below the start
    EXPECT_EQ(arc.GetSubArc(XPoint(0, 10, 0), 2, out), RTERROR);
    EXPECT_EQ(arc.GetSubArc(XPoint(10 * std::cos(0.7), 10 * std::sin(0.7), 0), 2, out), RTNORM);
}

TEST(XSector, SweepWrapsOnlyBelowMinusOneMillionth) {
    EXPECT_EQ(XSector(1, 1).Bulge(), 0);
    EXPECT_NEAR(XSector(1, 0.9999999).Bulge(), -1e-7, 1e-15);
    EXPECT_NEAR(XSector(1, 0.999).Bulge(), 2 * kPi - 0.001, 1e-12);
    EXPECT_NEAR(XSector().Bulge(), 2 * kPi, 0);
    EXPECT_TRUE(!XSector(1, 1.0099));
    EXPECT_FALSE(!XSector(1, 1.01));
    EXPECT_NEAR(XSector(3 * kPi / 2, kPi / 2).MidAngle(), 0, 1e-12);
    EXPECT_TRUE(XSector(1, 2) == XSector(1.0099, 1.9901));
    XSector s(1, 2);
    s.TransUCS(2 * kPi - 1);
    EXPECT_NEAR(s.startAngle, 0, 1e-12);
    EXPECT_NEAR(s.endAngle, 1, 1e-12);
}

TEST(XSector, AngleFlagAndNearAngle) {
    XSector s(1, 2);
    EXPECT_EQ(s.AngleFlag(1.005), 1);
    EXPECT_EQ(s.AngleFlag(0.994), 0);   // 0.006 below start
    EXPECT_EQ(s.AngleFlag(2.0), 2);
    EXPECT_EQ(s.AngleFlag(1.5), 3);
    EXPECT_EQ(s.AngleFlag(3.0), 0);
    XSector wrap(6, 0.5);
    EXPECT_EQ(wrap.AngleFlag(0.1), 3);
    EXPECT_EQ(wrap.AngleFlag(3.0), 0);
    EXPECT_EQ(s.NearAngle(1.1), &s.startAngle);
    EXPECT_EQ(s.NearAngle(1.9), &s.endAngle);
    EXPECT_EQ(s.NearAngle(2.5), &s.endAngle);
    EXPECT_EQ(s.NearAngle(0.5), &s.startAngle);
    EXPECT_EQ(s.NearAngle(1.0), &s.startAngle);
}

TEST(XArc, ByEndsAndSignedAngle) {
    XArc ccw(XPoint(1, 0, 0), XPoint(-1, 0, 0), kPi);
    EXPECT_NEAR(ccw.center.x, 0, 1e-12);
    EXPECT_NEAR(ccw.center.y, 0, 1e-12);
    EXPECT_NEAR(ccw.radius, 1, 1e-12);
    EXPECT_NEAR(ccw.startAngle, 0, 1e-12);
    EXPECT_NEAR(ccw.endAngle, kPi, 1e-12);
    // Clockwise: the stored arc is counter-clockwise with the ends swapped.
    XArc cw(XPoint(1, 0, 0), XPoint(-1, 0, 0), -kPi / 2);
    EXPECT_NEAR(cw.center.y, 1, 1e-12);
    EXPECT_NEAR(cw.radius, std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(cw.startAngle, 5 * kPi / 4, 1e-12);
    EXPECT_NEAR(cw.endAngle, 7 * kPi / 4, 1e-12);
    // More than a half turn puts the centre on the other side of the chord.
    XArc small(XPoint(1, 0, 0), XPoint(-1, 0, 0), kPi / 2);
    EXPECT_NEAR(small.center.y, -1, 1e-12);
    XArc big(XPoint(1, 0, 0), XPoint(-1, 0, 0), 3 * kPi / 2);
    EXPECT_NEAR(big.center.y, 1, 1e-12);
    EXPECT_NEAR(big.Bulge(), 3 * kPi / 2, 1e-12);
}

TEST(XArc, ThreePointsRunThroughTheMiddle) {
    XArc a(XPoint(1, 0, 0), XPoint(0, 1, 0), XPoint(-1, 0, 0));
    EXPECT_NEAR(a.startAngle, 0, 1e-12);
    EXPECT_NEAR(a.endAngle, kPi, 1e-12);
    XArc b(XPoint(1, 0, 0), XPoint(0, -1, 0), XPoint(-1, 0, 0));
    EXPECT_NEAR(b.startAngle, kPi, 1e-12);
    EXPECT_NEAR(b.endAngle, 0, 1e-12);
    XArc flat(XPoint(0, 0, 0), XPoint(1, 0, 0), XPoint(2, 0, 0));
    EXPECT_EQ(flat.radius, 0);
    EXPECT_NEAR(flat.endAngle, 2 * kPi, 0);
}

TEST(XArc, MeasuresAndAreas) {
    XArc half(XPoint(), 1, 0, kPi);
    EXPECT_NEAR(half.Length(), kPi, 1e-12);
    EXPECT_NEAR(half.ChordLength(), 2, 1e-12);
    EXPECT_NEAR(half.Area(), kPi / 2, 1e-12);
    EXPECT_NEAR(half.PathArea(), -kPi / 2, 1e-12);
    EXPECT_EQ(XArc(XPoint(), 1, 0, 2 * kPi).Area(), 0);
    XArc lower(XPoint(), 1, kPi, 0);
    EXPECT_NEAR(lower.PathArea(), -kPi / 2, 1e-12);   // integral of y dx from (-1,0) to (1,0) over the bottom
    XArc raised(XPoint(0, 3, 0), 1, 0, kPi);
    EXPECT_NEAR(raised.PathArea(), -kPi / 2 - 6, 1e-12);
    EXPECT_TRUE(!XArc(XPoint(), 1, 1, 1.005));
    EXPECT_TRUE(!XArc(XPoint(), 0.005, 0, 1));
    EXPECT_TRUE(XArc(XPoint(), 1, 0, 1) == XArc(XPoint(0.005, 0, 0), 1.005, 0.005, 0.995));
}

TEST(XArc, PointsDirectionsAndNearest) {
    XArc a(XPoint(), 2, 0, kPi / 2);
    XPoint s, e, m;
    a.GetPoints(s, e);
    EXPECT_NEAR(s.x, 2, 1e-12);
    EXPECT_NEAR(e.y, 2, 1e-12);
    a.MidPoint(m);
    EXPECT_NEAR(m.x, std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(a.IDirection(0), kPi / 2, 1e-12);
    EXPECT_NEAR(a.IDirection(1), 0, 1e-12);
    EXPECT_NEAR(a.ODirection(0), 3 * kPi / 2, 1e-12);
    XPoint p(3, 0, 0), q(0, 2.5, 0);
    EXPECT_EQ(a.SelectNear(p, q), &q.x);
    XArc moved = a;
    moved.SetPoints(XPoint(0, 5, 0), XPoint(-5, 0, 0));
    EXPECT_NEAR(moved.startAngle, kPi / 2, 1e-12);
    EXPECT_NEAR(moved.endAngle, kPi, 1e-12);
    EXPECT_EQ(moved.radius, 2);
}

TEST(XArc, ExtentTakesTheAxisPointsInside) {
    double lo[3], hi[3];
    XArc(XPoint(0, 0, 4), 2, kPi / 4, 3 * kPi / 4).GetExtend(lo, hi);
    EXPECT_NEAR(lo[0], -std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(hi[1], 2, 1e-12);   // north is inside
    EXPECT_NEAR(lo[1], std::sqrt(2.0), 1e-12);
    EXPECT_EQ(lo[2], 4);
    XArc(XPoint(), 2, 3 * kPi / 2, kPi / 2).GetExtend(lo, hi);
    EXPECT_NEAR(hi[0], 2, 1e-12);    // east, across angle 0
    EXPECT_NEAR(lo[0], 0, 1e-12);
}

TEST(XArc, ArcArcAndSnaps) {
    XArc a(XPoint(0, 0, 0), 5, 0, kPi), b(XPoint(8, 0, 0), 5, 0, kPi);
    XPoint p, q;
    EXPECT_EQ(a.Intersection(b, p, q), 1);
    EXPECT_NEAR(p.y, 3, 1e-12);
    XArc lowB(XPoint(8, 0, 0), 5, kPi, 2 * kPi);
    EXPECT_EQ(a.Intersection(lowB, p, q), 0);
    EXPECT_EQ(a.Intersection(static_cast<const XCircle&>(XCircle(XPoint(8, 0, 0), 5)), p, q), 1);
    XPoint pt(4, 1, 0);
    EXPECT_EQ(a.OSnap(1, pt), 1);
    EXPECT_NEAR(pt.x, 5, 1e-12);
    pt = XPoint(0, 0, 0);
    EXPECT_EQ(a.OSnap(1, pt), 1);   // a tie: the second end
    EXPECT_NEAR(pt.x, -5, 1e-12);
    EXPECT_EQ(a.OSnap(2, pt), 2);
    EXPECT_NEAR(pt.y, 5, 1e-12);
    EXPECT_EQ(a.OSnap(4, pt), 4);
    EXPECT_EQ(pt.y, 0);
}

TEST(XArc, TransUCSKeepsTheArcUnderAMirror) {
    XArc a(XPoint(), 1, 0, kPi / 2);
    double mirror[4][4] = {{-1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    a.TransUCS(mirror);
    EXPECT_NEAR(a.startAngle, kPi / 2, 1e-12);
    EXPECT_NEAR(a.endAngle, kPi, 1e-12);
    XCircle c(XPoint(1, 0, 0), 2);
    double scale[4][4] = {{3, 0, 0, 0}, {0, 3, 0, 0}, {0, 0, 3, 5}, {0, 0, 0, 1}};
    c.TransUCS(scale);
    EXPECT_NEAR(c.radius, 6, 1e-12);
    EXPECT_EQ(c.center.z, 5);
}
}  // namespace
