// Each tolerance test at exactly the tolerance and one small step past it,
// on both sides. The tolerances are set to a power of two so that the
// differences below are exact.
#include <cmath>
#include <numbers>
#include <random>

#include <gtest/gtest.h>

#include "host/test_support.h"
#include "kernel/PointList.h"
#include "kernel/XArc.h"
#include "kernel/XCurveSegment.h"
#include "kernel/XLine.h"
#include "kernel/XPoly2D.h"
#include "kernel/XPushPrec.h"
#include "kernel/point_position.h"
#include "kernel/shape_relations.h"
#include "reference/point_in_bulge_polygon.h"

namespace {
constexpr double kPi = std::numbers::pi;
constexpr double kTol = 0.0625;
const double kStep = std::ldexp(1.0, -20);   // far below the tolerance, far above rounding

class ToleranceEdges : public ::testing::Test {
protected:
    XPushPrec prec{kTol, kTol};
};

TEST_F(ToleranceEdges, PointBoxEqualityOnEveryAxisAndSide) {
    for (int axis = 0; axis < 3; ++axis)
        for (double sign : {1.0, -1.0}) {
            XPoint a(3, 5, 7), at = a, inside = a;
            at[axis] += sign * kTol;
            inside[axis] += sign * (kTol - kStep);
            EXPECT_FALSE(a == at) << axis;
            EXPECT_TRUE(a != at) << axis;
            EXPECT_TRUE(a == inside) << axis;
        }
    // The distance form: exactly the tolerance apart is unequal.
    XPoint a(0, 0, 0);
    EXPECT_FALSE(a == static_cast<const double*>(XPoint(kTol, 0, 0)));
    EXPECT_TRUE(a == static_cast<const double*>(XPoint(kTol - kStep, 0, 0)));
}

TEST_F(ToleranceEdges, LinesAndCirclesCompareStrictly) {
    XLine l(XPoint(0, 0, 0), XPoint(8, 0, 0), 1);
    EXPECT_FALSE(l == XLine(XPoint(0, 0, 0), XPoint(8 + kTol, 0, 0), 1));
    EXPECT_TRUE(l == XLine(XPoint(8 - kTol + kStep, 0, 0), XPoint(0, 0, 0), 1));   // swapped
    EXPECT_EQ(!XLine(XPoint(1, 1, 1), XPoint(1 + kTol, 1, 1), 1), 0);
    EXPECT_EQ(!XLine(XPoint(1, 1, 1), XPoint(1 - kTol + kStep, 1, 1), 1), 1);
    XCircle c(XPoint(1, 1, 0), 4);
    EXPECT_FALSE(c == XCircle(XPoint(1, 1, 0), 4 + kTol));
    EXPECT_TRUE(c == XCircle(XPoint(1, 1 - kTol + kStep, 0), 4));
    EXPECT_EQ(!XCircle(XPoint(), kTol), 0);
    EXPECT_EQ(!XCircle(XPoint(), kTol - kStep), 1);
}

TEST_F(ToleranceEdges, EndsOfALineReachExactlyTheTolerance) {
    const XPoint a(0, 0, 0), b(8, 0, 0);
    EXPECT_EQ(AT_pt_of_line(XPoint(-kTol, 0, 0), a, b), 1);
    EXPECT_EQ(AT_pt_of_line(XPoint(-kTol - kStep, 0, 0), a, b), 4);
    EXPECT_EQ(AT_pt_of_line(XPoint(8 + kTol, 0, 0), a, b), 2);
    EXPECT_EQ(AT_pt_of_line(XPoint(8 + kTol + kStep, 0, 0), a, b), 4);
    EXPECT_EQ(AT_pt_of_line(XPoint(kTol + kStep, 0, 0), a, b), 3);
    // Off the line: the distance comes through a cosine, so a hair's margin.
    EXPECT_EQ(AT_pt_of_line(XPoint(4, kTol * (1 - 1e-9), 0), a, b), 3);
    EXPECT_EQ(AT_pt_of_line(XPoint(4, -kTol * (1 + 1e-9), 0), a, b), 0);
    // Within the tolerance of a the distance is 0 by rule.
    EXPECT_EQ(AT_dist_pt_line(XPoint(0, kTol, 0), a, b), 0.0);
    EXPECT_GT(AT_dist_pt_line(XPoint(0, kTol + kStep, 0), a, b), kTol);
    EXPECT_EQ(AT_dist_pt_line(XPoint(1, 1, 0), a, XPoint(kTol, 0, 0)), -1.0);
    EXPECT_NEAR(AT_dist_pt_line(XPoint(1, 1, 0), a, XPoint(kTol + kStep, 0, 0)), 1.0, 1e-6);
}

TEST_F(ToleranceEdges, ArcRimAndEnds) {
    const XPoint c(0, 0, 0);
    EXPECT_EQ(AT_in_arc(XPoint(0, 4 + kTol, 0), c, 4, 0, kPi), 3);
    EXPECT_EQ(AT_in_arc(XPoint(0, 4 - kTol, 0), c, 4, 0, kPi), 3);
    EXPECT_EQ(AT_in_arc(XPoint(0, 4 + kTol + 16 * kStep, 0), c, 4, 0, kPi), 0);
    EXPECT_EQ(AT_in_arc(XPoint(0, 4 - kTol - 16 * kStep, 0), c, 4, 0, kPi), 0);
    // The start at angle 0 is (4, 0) exactly: the end test is strict per axis.
    EXPECT_EQ(AT_in_arc(XPoint(4, kTol - kStep, 0), c, 4, 0, 1), 1);
    EXPECT_EQ(AT_in_arc(XPoint(4, kTol, 0), c, 4, 0, 1), 3);
    EXPECT_EQ(AT_in_arc(XPoint(4, -kTol, 0), c, 4, 0, 1), 0);
    EXPECT_EQ(AT_in_arc(XPoint(4, -kTol + kStep, 0), c, 4, 0, 1), 1);
    // The sector's own flags on angles.
    XSector s(1.0, 2.0);
    EXPECT_EQ(s.AngleFlag(1.0 + kTol - kStep), 1);
    EXPECT_EQ(s.AngleFlag(1.0 + kTol), 3);
    EXPECT_EQ(s.AngleFlag(2.0 + kTol - kStep), 2);
    EXPECT_EQ(s.AngleFlag(2.0 + kTol), 0);
    EXPECT_EQ(!XSector(1.0, 1.0 + kTol), 0);
    EXPECT_EQ(!XSector(1.0, 1.0 + kTol - kStep), 1);
}

TEST_F(ToleranceEdges, ParallelLinesAtTheSquaredTolerance) {
    // det equals the rise e of the second line exactly: parallel below
    // _distSnap squared.
    XLine a(XPoint(0, 0, 0), XPoint(1, 0, 0), 0);
    const double sq = kTol * kTol;
    XPoint p;
    EXPECT_EQ(a.Intersection(XLine(XPoint(0, 1, 0), XPoint(1, 1 + sq, 0), 0), p), 1);
    EXPECT_EQ(a.Intersection(XLine(XPoint(0, 1, 0), XPoint(1, 1 + sq - kStep * kStep, 0), 0), p), 0);
    EXPECT_EQ(a.Intersection(XLine(XPoint(0, 1, 0), XPoint(1, 1 - sq, 0), 0), p), 1);
    // The first line's ends may differ in z by the tolerance, not more.
    XLine tilted(XPoint(0, 0, 0), XPoint(1, 0, kTol), 1);
    XLine steeper(XPoint(0, 0, 0), XPoint(1, 0, kTol + kStep), 1);
    XLine cross(XPoint(0.5, -1, 0), XPoint(0.5, 1, 0), 1);
    EXPECT_EQ(tilted.Intersection(cross, p), 1);
    EXPECT_EQ(steeper.Intersection(cross, p), 0);
}

TEST_F(ToleranceEdges, SidesHitsAndInsertions) {
    XCurveSegment s(XPoint(0, 0, 0), XPoint(8, 0, 0), 0, 1);
    EXPECT_EQ(s.OnWhichSide(XPoint(4, kTol, 0)), 0);
    EXPECT_EQ(s.OnWhichSide(XPoint(4, -kTol, 0)), 1);
    EXPECT_EQ(s.OnWhichSide(XPoint(4, kTol - kStep, 0)), 2);
    EXPECT_EQ(s.OnWhichSide(XPoint(4, -kTol + kStep, 0)), 2);

    XPoly2D p(0);
    p.AppendNode(XPoint(0, 0, 0), 0);
    p.AppendNode(XPoint(8, 0, 0), 0);
    p.AppendNode(XPoint(8, 8, 0), 0);
    EXPECT_EQ(p.HitTestOnCurve(XPoint(0, 0.5 - kStep, 0), 0.5), 1);
    EXPECT_EQ(p.HitTestOnCurve(XPoint(8, 8.5 - kStep, 0), 0.5), 3);
    // Off a segment the band is that of the point-on-line test, whose angle
    // test (_angSnap) is the narrower here.
    EXPECT_EQ(p.HitTestOnCurve(XPoint(4, 0.1, 0), 0.5), -1);
    EXPECT_EQ(p.HitTestOnCurve(XPoint(8.1, 4, 0), 0.5), -2);
    EXPECT_EQ(p.HitTestOnCurve(XPoint(4, 0.25, 0), 0.5), 0);
    EXPECT_EQ(p.HitTestOnCurve(XPoint(4, 0.75, 0), 0.5), 0);
    EXPECT_EQ(_distSnap, kTol);   // put back

    PointList list(XPoint(0, 0, 0), XPoint(8, 0, 0), 0);
    EXPECT_EQ(list.Insert(XPoint(kTol, 0, 0), 0), RTERROR);   // at the first end
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Insert(XPoint(kTol + kStep, 0, 0), 0), RTNORM);
    EXPECT_EQ(list.Insert(XPoint(8 - kTol, 0, 0), 0), RTERROR);
    EXPECT_EQ(list.Count(), 3);
}

TEST_F(ToleranceEdges, PointOnAPolylineNodeOrOutline) {
    XPoly2D sq(1);
    sq.AppendNode(XPoint(0, 0, 0), 0);
    sq.AppendNode(XPoint(8, 0, 0), 0);
    sq.AppendNode(XPoint(8, 8, 0), kPi);
    sq.AppendNode(XPoint(0, 8, 0), 0);
    EXPECT_EQ(XPoint(kTol - kStep, 0, 0) & sq, 5);
    EXPECT_EQ(XPoint(-kTol - kStep, -kTol - kStep, 0) & sq, 0);
    EXPECT_EQ(XPoint(kTol + kStep, kTol + kStep, 0) & sq, 3);
    // The arc bulges up from (8, 8) to (0, 8) about (4, 8) with radius 4.
    EXPECT_EQ(XPoint(4, 12 - kTol / 2, 0) & sq, 5);
    EXPECT_EQ(XPoint(4, 12 - 2 * kTol, 0) & sq, 3);
    EXPECT_EQ(XPoint(4, 12 + 2 * kTol, 0) & sq, 0);
}

// Random bulge outlines against the plain chord-by-chord count, away from
// the outline.
TEST(PointInPoly2DReference, AgreesWithFineChordsAwayFromTheOutline) {
    std::mt19937 rng(42);
    auto uni = [&rng](double lo, double hi) { return std::uniform_real_distribution<double>(lo, hi)(rng); };
    int inside = 0, compared = 0;
    for (int trial = 0; trial < 300; ++trial) {
        int n = 3 + trial % 10;
        bool clockwise = trial % 2;
        std::vector<reference::Node2> nodes;
        XPoly2D poly(1);
        for (int i = 0; i < n; ++i) {
            double a = 2 * kPi * (i + uni(0.1, 0.9)) / n * (clockwise ? -1 : 1);
            double rad = uni(20, 50);
            double bulge = uni(0, 1) < 0.5 ? 0.0 : uni(-0.8, 0.8);
            reference::Node2 node{rad * std::cos(a), rad * std::sin(a), bulge};
            nodes.push_back(node);
            poly.AppendNode(XPoint(node.x, node.y, 0), bulge);
        }
        auto ring = reference::FineOutline(nodes, 256);
        for (int k = 0; k < 25; ++k) {
            double x = uni(-60, 60), y = uni(-60, 60);
            if (reference::DistanceToFine(ring, x, y) < 0.05) continue;
            CaptureOutput warnings;
            int code = XPoint(x, y, 0) & poly;
            if (!warnings.Text().empty()) continue;   // a graze the counter itself reports
            ++compared;
            bool want = reference::InsideFine(ring, x, y);
            EXPECT_EQ(code, want ? 3 : 0) << trial << " " << x << " " << y;
            inside += want;
        }
    }
    EXPECT_GT(compared, 6000);
    EXPECT_GT(inside, 1500);
}
}  // namespace
