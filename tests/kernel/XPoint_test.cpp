// Points, the snap tolerances and IsEqual.
#include <cstring>
#include <numbers>

#include <gtest/gtest.h>

#include "kernel/XCircle.h"
#include "kernel/XLine.h"
#include "kernel/XPoint.h"
#include "kernel/XPushPrec.h"
#include "platform/adsdef.h"

namespace {
constexpr double kPi = std::numbers::pi;

TEST(XPushPrec, DefaultsAndNestedRestore) {
    EXPECT_EQ(_distSnap, 0.01);
    EXPECT_EQ(_angSnap, 0.01);
    {
        XPushPrec outer(0.5, 0.25);
        EXPECT_EQ(_distSnap, 0.5);
        EXPECT_EQ(_angSnap, 0.25);
        {
            XPushPrec inner(1e-6, 1e-3);
            EXPECT_EQ(_distSnap, 1e-6);
        }
        EXPECT_EQ(_distSnap, 0.5);
        EXPECT_EQ(_angSnap, 0.25);
    }
    EXPECT_EQ(_distSnap, 0.01);
    EXPECT_EQ(_angSnap, 0.01);
}

TEST(IsEqual, ComparesEveryValueWithTheFirst) {
    EXPECT_EQ(IsEqual(0.1, 3, 1.0, 1.05, 0.95), 1);
    EXPECT_EQ(IsEqual(0.1, 3, 1.0, 1.05, 1.15), 0);
    EXPECT_EQ(IsEqual(0.1, 2, 1.0, 1.1), 0);   // strictly closer than tol
    EXPECT_EQ(IsEqual(0.1, 1, 1.0, 2.0), 0);   // x1 is compared even for n below 2
    EXPECT_EQ(IsEqual(0.1, 1, 1.0, 1.01), 1);
}

TEST(XPoint, IsAPlainDoubleTriple) {
    XPoint p(1, 2, 3);
    double* raw = p;
    EXPECT_EQ(raw, &p.x);
    EXPECT_EQ(raw[2], 3.0);
    AcGePoint3d& ge = p;
    ge.y = 20;
    EXPECT_EQ(p.y, 20.0);
    const AcGeVector2d& v2 = p;
    EXPECT_EQ(v2.x, 1.0);
    XPoint arr[2] = {XPoint(1, 1, 1), XPoint(2, 2, 2)};
    EXPECT_EQ(reinterpret_cast<double*>(arr)[3], 2.0);
    double out[3];
    p > out;
    EXPECT_EQ(std::memcmp(out, &p.x, sizeof out), 0);
}

TEST(XPoint, BoxEqualityIsStrictAtDistSnap) {
    EXPECT_FALSE(XPoint(0, 0, 0) == XPoint(0.01, 0, 0));
    EXPECT_TRUE(XPoint(0, 0, 0) == XPoint(0.00999, 0, 0));
    EXPECT_TRUE(XPoint(0, 0, 0) != XPoint(0, 0, -0.01));
    // The box test and the distance test disagree on a diagonal.
    XPoint o, d(0.009, 0.009, 0.009);
    EXPECT_TRUE(o == d);
    EXPECT_FALSE(o == static_cast<const double*>(d));
    EXPECT_TRUE(o == static_cast<const double*>(XPoint(0.0099, 0, 0)));
}

TEST(XPoint, NotTestsNearnessToTheOrigin) {
    EXPECT_TRUE(!XPoint(0.0000009, 0, 0));
    EXPECT_FALSE(!XPoint(0.00001, 0, 0));
    EXPECT_TRUE(XPoint(0.00001, 0, 0) == XPoint());
}

TEST(XPoint, PolarArithmeticAndDistances) {
    XPoint p(XPoint(1, 1, 5), kPi / 2, 2);
    EXPECT_NEAR(p.x, 1, 1e-15);
    EXPECT_NEAR(p.y, 3, 1e-15);
    EXPECT_EQ(p.z, 5);
    XPoint a(1, 2, 3), b(4, 6, 3);
    EXPECT_DOUBLE_EQ(a.Distance(b), 5);
    EXPECT_DOUBLE_EQ(XPoint(0, 0, 0).Distance2d(XPoint(3, 4, 100)), 5);
    EXPECT_DOUBLE_EQ(XPoint(2, 3, 6).Length(), 7);
    XPoint c = a + b;
    EXPECT_EQ(c.x, 5);
    c -= a;
    EXPECT_EQ(c.y, 6);
    c.Scale(2);
    EXPECT_EQ(c.z, 6);
    c /= 3;
    EXPECT_EQ(c.x, 8.0 / 3);
    XPoint m;
    XPoint(1, 1, 1).Mirror(XPoint(3, 0, -1), m);
    EXPECT_EQ(m.x, -1);
    EXPECT_EQ(m.y, 2);
    EXPECT_EQ(m.z, 3);
    XPoint r(1, 0, 7);
    r.Rotate(kPi / 2);
    EXPECT_NEAR(r.x, 0, 1e-15);
    EXPECT_NEAR(r.y, 1, 1e-15);
    EXPECT_EQ(r.z, 7);
    r.Reverse();
    EXPECT_EQ(r.z, -7);
    XPoint from2d(AcGePoint2d(4, 5));
    EXPECT_EQ(from2d.z, 0);
}

TEST(XPoint, MaxMinAndTheVariadicFolds) {
    XPoint hi = Max(XPoint(1, 5, 0), XPoint(3, 2, -1));
    EXPECT_EQ(hi.x, 3);
    EXPECT_EQ(hi.y, 5);
    EXPECT_EQ(hi.z, 0);
    EXPECT_EQ(Maximum(4, 3, 9, -2, 7), 9);
    EXPECT_EQ(Minimum(4, 3, 9, -2, 7), -2);
    EXPECT_EQ(Maximum(3, 1.5, -2.5, 0.5), 1.5);
    EXPECT_EQ(Minimum(1, 1.5, -100.0), 1.5);   // below 2 the first is the answer
    XPoint lo = Minimum(3, XPoint(1, 5, 0), XPoint(3, 2, -1), XPoint(0, 9, 9));
    EXPECT_EQ(lo.x, 0);
    EXPECT_EQ(lo.y, 2);
    EXPECT_EQ(lo.z, -1);
}

TEST(XPoint, DistanceToALineUsesTheCosineRule) {
    XLine l(XPoint(0, 0, 0), XPoint(10, 0, 0), 1);
    EXPECT_NEAR(XPoint(5, 3, 0).Distance(l), 3, 1e-12);
    EXPECT_NEAR(XPoint(20, 4, 0).Distance(l), 4, 1e-12);   // the carrier, not the segment
    EXPECT_EQ(XPoint(0.005, 0, 0).Distance(l), 0);
    XLine dot(XPoint(1, 1, 0), XPoint(1, 1, 0), 1);
    EXPECT_EQ(XPoint(5, 5, 0).Distance(dot), -1);
}

TEST(XPoint, ProjectOnLinesAndCircles) {
    XLine l(XPoint(0, 0, 0), XPoint(10, 10, 0), 1);
    XPoint foot;
    ASSERT_EQ(XPoint(10, 0, 0).Project(l, foot), RTNORM);
    EXPECT_NEAR(foot.x, 5, 1e-12);
    EXPECT_NEAR(foot.y, 5, 1e-12);
    XLine none(XPoint(1, 1, 0), XPoint(1, 1, 0), 1);
    EXPECT_EQ(XPoint(3, 0, 0).Project(none, foot), RTERROR);

    XCircle c(XPoint(0, 0, 2), 5);
    ASSERT_EQ(XPoint(3, 4, 0).Project(c, foot), RTNORM);   // scaled onto the rim
    EXPECT_NEAR(foot.x, 3, 1e-9);
    EXPECT_NEAR(foot.y, 4, 1e-9);
    EXPECT_EQ(foot.z, 2);
    ASSERT_EQ(XPoint(-20, 0, 0).Project(c, foot), RTNORM);
    EXPECT_NEAR(foot.x, -5, 1e-9);
    EXPECT_NEAR(foot.y, 0, 1e-9);
}

TEST(XPoint, PointBasedMatrices) {
    double m[4][4];
    XPoint base(2, 0, 0);
    base.GetRotationMatrix(kPi / 2, m);
    XPoint p = XPoint(3, 0, 0).TransformAs(m);
    EXPECT_NEAR(p.x, 2, 1e-12);
    EXPECT_NEAR(p.y, 1, 1e-12);
    base.GetScaleMatrix(3, m);
    p = XPoint(3, 1, 1).TransformAs(m);
    EXPECT_NEAR(p.x, 5, 1e-12);
    EXPECT_NEAR(p.y, 3, 1e-12);
    EXPECT_NEAR(p.z, 3, 1e-12);
    XPoint(0.001, 0, 0).GetScaleMatrix(2, 3, 4, m);   // near the origin: the bare scaling
    EXPECT_EQ(m[0][3], 0);
    EXPECT_EQ(m[1][1], 3);
    base.GetMoveMatrix(XPoint(5, 5, 5), m);
    p = XPoint(0, 0, 0);
    p.TransformBy(m);
    EXPECT_EQ(p.x, 3);
    EXPECT_EQ(p.y, 5);
}

TEST(XPointDir2d, PolarFollowsTheHeading) {
    XPointDir2d d(kPi);
    EXPECT_EQ(d.x, 0);
    d.x = 1;
    XPoint p = d.Polar(3);
    EXPECT_NEAR(p.x, -2, 1e-12);
    EXPECT_NEAR(p.y, 0, 1e-12);
}
}  // namespace
