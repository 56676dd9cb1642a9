// Lines: equality, intersections, offsets, sub-lines and snaps.
#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "kernel/XArc.h"
#include "kernel/XLine.h"
#include "kernel/XPushPrec.h"
#include "platform/adsdef.h"

namespace {
constexpr double kPi = std::numbers::pi;

XLine Seg(double x1, double y1, double x2, double y2, int bounded = 1) {
    return XLine(XPoint(x1, y1, 0), XPoint(x2, y2, 0), bounded);
}

TEST(XLine, ConstructionAndBasics) {
    XLine d(XPoint(1, 1, 0), kPi / 2);
    EXPECT_EQ(d.bounded, 0);
    EXPECT_NEAR(d.end.y, 101, 1e-12);
    XLine l = Seg(0, 0, 3, 4);
    EXPECT_DOUBLE_EQ(l.Length(), 5);
    EXPECT_NEAR(l.Direction(), std::atan2(4, 3), 1e-15);
    XPoint m;
    l.MidPoint(m);
    EXPECT_EQ(m.x, 1.5);
    XPoint lo, hi;
    Seg(5, 0, 1, 7).GetExtend(lo, hi);
    EXPECT_EQ(lo.x, 1);
    EXPECT_EQ(hi.y, 7);
    l.Reverse();
    EXPECT_EQ(l.start.x, 3);
    l.SetElevation(4);
    EXPECT_EQ(l.end.z, 4);
    EXPECT_DOUBLE_EQ(Seg(0, 1, 4, 3).PathArea(), 8);
    EXPECT_DOUBLE_EQ(Seg(4, 3, 0, 1).PathArea(), -8);
}

TEST(XLine, NearAndFarPointsOnATie) {
    XLine l = Seg(0, 0, 10, 0);
    double mid[3] = {5, 3, 0};
    EXPECT_EQ(l.NearPoint(mid), &l.start.x);
    EXPECT_EQ(l.FarPoint(mid), &l.start.x);
    double nearEnd[3] = {9, 0, 0};
    EXPECT_EQ(l.NearPoint(nearEnd), &l.end.x);
    EXPECT_EQ(l.FarPoint(nearEnd), &l.start.x);
}

TEST(XLine, EqualityAcceptsSwappedEndsButNotOtherFlags) {
    EXPECT_TRUE(Seg(0, 0, 1, 1) == Seg(1, 1, 0.005, 0));
    EXPECT_FALSE(Seg(0, 0, 1, 1) == Seg(0, 0, 1, 1, 0));
    EXPECT_TRUE(Seg(0, 0, 1, 1) != Seg(0, 0, 1.01, 1));
    EXPECT_TRUE(!Seg(0, 0, 0.0099, -0.0099));
    EXPECT_FALSE(!Seg(0, 0, 0.01, 0));
}

TEST(XLine, LineLineSharedEndCrossAndParallel) {
    XPoint p;
    EXPECT_EQ(Seg(0, 0, 10, 0).Intersection(Seg(10, 0, 10, 10), p), 1);
    EXPECT_NEAR(p.x, 10, 1e-12);
    EXPECT_EQ(Seg(0, 0, 10, 10).Intersection(Seg(0, 10, 10, 0), p), 1);
    EXPECT_NEAR(p.x, 5, 1e-12);
    EXPECT_NEAR(p.y, 5, 1e-12);
    EXPECT_EQ(Seg(0, 0, 10, 0).Intersection(Seg(5, 0, 15, 0), p), 0);   // collinear overlap
    EXPECT_EQ(Seg(0, 0, 10, 0).Intersection(Seg(0, 1, 10, 1), p), 0);
}

TEST(XLine, BeyondTheEndRejectsOnlyBoundedLines) {
    XPoint p(-1, -1, -1);
    EXPECT_EQ(Seg(0, 0, 10, 0).Intersection(Seg(5, 5, 5, 1), p), 0);
    EXPECT_EQ(p.x, -1);   // untouched
    EXPECT_EQ(Seg(0, 0, 10, 0).Intersection(Seg(5, 5, 5, 1, 0), p), 1);
    EXPECT_NEAR(p.x, 5, 1e-12);
    EXPECT_NEAR(p.y, 0, 1e-12);
    // A point just short of the end by less than _distSnap still counts.
    EXPECT_EQ(Seg(0, 0, 10, 0).Intersection(Seg(10.009, 5, 10.009, -5), p), 1);
    EXPECT_EQ(Seg(0, 0, 10, 0).Intersection(Seg(10.02, 5, 10.02, -5), p), 0);
}

TEST(XLine, ElevationOfTheFirstLineDecides) {
    XLine tilted(XPoint(0, 0, 0), XPoint(10, 10, 1), 1);
    XPoint p;
    EXPECT_EQ(tilted.Intersection(Seg(0, 10, 10, 0), p), 0);
    XLine high(XPoint(0, 0, 7), XPoint(10, 10, 7), 1);
    ASSERT_EQ(high.Intersection(Seg(0, 10, 10, 0), p), 1);
    EXPECT_EQ(p.z, 7);
}

TEST(XLine, ParallelTestIsOnTheRawDeterminant) {
    // Two short lines crossing at a right angle, with a determinant below
    // _distSnap squared, count as parallel.
    XPoint p;
    XLine a = Seg(0, 0, 0.05, 0), b = Seg(0.02, -0.0009, 0.02, 0.0009, 0);
    EXPECT_EQ(a.Intersection(b, p), 0);
    XPushPrec fine(1e-6, 0.01);
    ASSERT_EQ(a.Intersection(b, p), 1);
    EXPECT_NEAR(p.x, 0.02, 1e-12);
    // Bounded, the short line rejects the point: its vectors are too short
    // for CT_VectorAngle, so the point reads as beyond an end.
    b.bounded = 1;
    EXPECT_EQ(a.Intersection(b, p), 0);
}

TEST(XLine, LineCircleAndArc) {
    XCircle c(XPoint(0, 0, 0), 5);
    XPoint a, b;
    EXPECT_EQ(Seg(-10, 0, 10, 0).Intersection(c, a, b), 2);
    EXPECT_NEAR(a.x, 5, 1e-12);
    EXPECT_NEAR(b.x, -5, 1e-12);
    EXPECT_EQ(Seg(0, 0, 10, 0).Intersection(c, a, b), 1);
    EXPECT_NEAR(a.x, 5, 1e-12);
    XPoint a2(99, 99, 99), b2(99, 99, 99);
    EXPECT_EQ(Seg(-10, 0, 0, 0).Intersection(c, a2, b2), 1);   // only the second survives: written to a
    EXPECT_NEAR(a2.x, -5, 1e-12);
    EXPECT_EQ(b2.x, 99);
    EXPECT_EQ(Seg(-10, 5, 10, 5).Intersection(c, nullptr, nullptr), 2);   // tangent: two equal points
    XCircle up(XPoint(0, 0, 0.00002), 5);
    EXPECT_EQ(Seg(-10, 0, 10, 0).Intersection(up, a, b), 0);
    XArc upper(XPoint(0, 0, 0), 5, 0, kPi);
    EXPECT_EQ(Seg(-10, 3, 10, 3).Intersection(upper, a, b), 2);
    EXPECT_EQ(Seg(-10, -3, 10, -3).Intersection(upper, a, b), 0);
    EXPECT_EQ(Seg(0, -10, 0, 10).Intersection(upper, a, b), 1);
    EXPECT_NEAR(a.y, 5, 1e-9);
    EXPECT_EQ(c.Intersection(Seg(-10, 0, 10, 0), a, b), 2);
}

TEST(XLine, OffsetRunsRightOfTravelAndUnbounds) {
    XLine o = Seg(0, 0, 10, 0).Offset(2);
    EXPECT_EQ(o.bounded, 0);
    EXPECT_NEAR(o.start.y, -2, 1e-12);
    EXPECT_NEAR(o.end.x, 10, 1e-12);
    XLine back = Seg(10, 0, 0, 0).Offset(2);
    EXPECT_NEAR(back.start.y, 2, 1e-12);
}

TEST(XLine, SubLineCentredOnThePoint) {
    XLine l = Seg(0, 0, 10, 0), out(1);
    EXPECT_EQ(l.GetSubLine(XPoint(5, 0, 0), 4, out), RTNORM);
    EXPECT_NEAR(out.start.x, 3, 1e-12);
    EXPECT_NEAR(out.end.x, 7, 1e-12);
    EXPECT_EQ(l.GetSubLine(XPoint(9, 0, 0), 4, out), RTERROR);   // runs past the end
    EXPECT_NEAR(out.end.x, 11, 1e-12);                           // written anyway
    EXPECT_EQ(Seg(0, 0, 10, 0, 0).GetSubLine(XPoint(20, 0, 0), 4, out), RTNORM);
    EXPECT_EQ(l.GetSubLine(XPoint(20, 0, 0), 4, out), RTERROR);
}

TEST(XLine, SnapsAndSides) {
    XLine l = Seg(0, 0, 10, 0);
    XPoint pt(2, 3, 0);
    EXPECT_EQ(l.OSnap(1, pt), 1);
    EXPECT_EQ(pt.x, 0);
    pt = XPoint(5, 3, 0);
    EXPECT_EQ(l.OSnap(1, pt), 1);   // a tie: the second end
    EXPECT_EQ(pt.x, 10);
    pt = XPoint(2, 3, 0);
    EXPECT_EQ(l.OSnap(2, pt), 2);
    EXPECT_EQ(pt.x, 5);
    pt = XPoint(2, 3, 0);
    EXPECT_EQ(l.OSnap(512, pt), 512);
    EXPECT_NEAR(pt.x, 2, 1e-12);
    EXPECT_NEAR(pt.y, 0, 1e-12);
    EXPECT_EQ(l.OSnap(4, pt), 0);
    EXPECT_EQ(l.OnWhichSide(XPoint(5, 1, 0)), 0);
    EXPECT_EQ(l.OnWhichSide(XPoint(5, -1, 0)), 1);
    EXPECT_EQ(l.OnWhichSide(XPoint(5, 0.005, 0)), 2);
}
}  // namespace
