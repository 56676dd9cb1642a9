// Curve segments and directed curves.
#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "host/test_support.h"
#include "kernel/XDirectionCurve.h"
#include "kernel/XPoly2D.h"
#include "kernel/XPushPrec.h"
#include "platform/acutads.h"

namespace {
constexpr double kPi = std::numbers::pi;

XCurveSegment QuarterArc() {   // radius 10 about the origin, from (10,0) to (0,10)
    return XCurveSegment(XPoint(10, 0, 0), XPoint(0, 10, 0), kPi / 2, 1);
}

TEST(XCurveSegment, KindsDisagreeJustBelowAWholeTurn) {
    XCurveSegment s(XPoint(), XPoint(1, 0, 0), 2 * kPi - 5e-6, 1);
    EXPECT_EQ(s.GetCurveType(), CurveCircle);
    EXPECT_TRUE(s.Is(CurveArc));
    EXPECT_TRUE(s.Is(CurveCircle));
    EXPECT_EQ(XCurveSegment(XPoint(), XPoint(1, 0, 0), 9e-7, 1).GetCurveType(), CurveLine);
    EXPECT_EQ(XCurveSegment(XPoint(), XPoint(1, 0, 0), -1.0, 1).GetCurveType(), CurveArc);
    EXPECT_FALSE(XCurveSegment(XPoint(), XPoint(1, 0, 0), 1.0, 1).Is(CurveLine));
}

TEST(XCurveSegment, AssignmentFromPrimitives) {
    XCurveSegment s(0);
    s = XLine(XPoint(0, 0, 0), XPoint(1, 0, 0), 0);
    EXPECT_EQ(s.angle, 0);
    EXPECT_EQ(s.bounded, 0);
    s.angle = 3;
    s = XArc(XPoint(), 2, 0, kPi / 2);
    EXPECT_EQ(s.bounded, 1);
    EXPECT_NEAR(s.angle, kPi / 2, 1e-12);
    EXPECT_NEAR(s.end.y, 2, 1e-12);
    s.bounded = 0;
    s = XCircle(XPoint(1, 1, 0), 3);
    EXPECT_EQ(s.bounded, 0);
    EXPECT_EQ(s.start.x, 4);
    EXPECT_EQ(s.end.x, -2);
    EXPECT_NEAR(s.GetCircle().radius, 3, 1e-12);
    // A full arc makes two equal points: a circle by kind with a degenerate circle.
    s = XArc(XPoint(), 2, 0, 2 * kPi);
    EXPECT_EQ(s.GetCurveType(), CurveCircle);
    EXPECT_NEAR(s.GetCircle().radius, 0, 1e-12);
}

TEST(XCurveSegment, EqualityByKind) {
    XCurveSegment a(XPoint(0, 10, 0), XPoint(-10, 0, 0), kPi / 2, 1), b = a;
    EXPECT_TRUE(a == b);
    b.end.y = 0.005;
    EXPECT_TRUE(a == b);
    b.end.y = 0.05;
    EXPECT_FALSE(a == b);
    // Angles compare without folding: an arc starting at 0 and one starting
    // just below 2 pi differ.
    XCurveSegment c = QuarterArc(), d = c;
    d.end.x = 0.005;
    EXPECT_FALSE(c == d);
    XCurveSegment line(XPoint(10, 0, 0), XPoint(0, 10, 0), 0, 1);
    EXPECT_FALSE(a == line);
    XCurveSegment swapped(XPoint(0, 10, 0), XPoint(10, 0, 0), 0, 1);
    EXPECT_TRUE(line == swapped);
    XCurveSegment c1(XPoint(1, 0, 0), XPoint(-1, 0, 0), 2 * kPi, 1), c2(XPoint(0, 1, 0), XPoint(0, -1, 0), 2 * kPi, 1);
    EXPECT_TRUE(c1 == c2);
}

TEST(XCurveSegment, LengthsMidpointsAndExtents) {
    XCurveSegment arc = QuarterArc();
    EXPECT_NEAR(arc.Length(), 5 * kPi, 1e-12);
    XPoint m = arc.MidPoint();
    EXPECT_NEAR(m.x, 10 / std::sqrt(2.0), 1e-12);
    XCurveSegment circle(XPoint(1, 0, 0), XPoint(-1, 0, 0), 2 * kPi, 1);
    EXPECT_NEAR(circle.Length(), 2 * kPi, 1e-12);
    EXPECT_EQ(circle.MidPoint().x, 1);
    XPoint lo, hi;
    arc.GetExtend(lo, hi);
    EXPECT_NEAR(lo.x, 0, 1e-12);
    EXPECT_NEAR(hi.y, 10, 1e-12);
    EXPECT_NEAR(arc.GetChordLength(5 * kPi), 10 * std::sqrt(2.0), 1e-12);
    XCurveSegment line(XPoint(), XPoint(3, 4, 0), 0, 1);
    EXPECT_EQ(line.Length(), 5);
    EXPECT_EQ(line.GetChordLength(-2), 2);
}

TEST(XCurveSegment, ProjectionAndSides) {
    XCurveSegment arc = QuarterArc();
    XPoint q;
    ASSERT_EQ(arc.ProjectToMe(XPoint(-20, 0, 0), q), RTNORM);   // the whole carrier circle
    EXPECT_NEAR(q.x, -10, 1e-9);
    EXPECT_EQ(arc.OnWhichSide(XPoint(0, 0, 0)), 0);   // the centre is left of a counter-clockwise run
    EXPECT_EQ(arc.OnWhichSide(XPoint(20, 20, 0)), 1);
    EXPECT_EQ(arc.OnWhichSide(XPoint(0, 10.005, 0)), 2);
    EXPECT_NEAR(arc.GetDist2Me(XPoint(0, 5, 0)), 5, 1e-9);
    EXPECT_NEAR(arc.Direction(XPoint(0, 10, 0)), kPi, 1e-12);
    EXPECT_NEAR(arc.OrthoDirection(XPoint(0, 10, 0)), kPi / 2, 1e-12);
}

TEST(XCurveSegment, IDirectionAndTheCircleMessage) {
    XCurveSegment line(XPoint(), XPoint(0, 5, 0), 0, 1);
    EXPECT_NEAR(line.IDirection(0), kPi / 2, 1e-12);
    EXPECT_NEAR(line.IDirection(1), 3 * kPi / 2, 1e-12);
    EXPECT_NEAR(QuarterArc().IDirection(0), kPi / 2, 1e-12);
    EXPECT_NEAR(QuarterArc().IDirection(1), 0, 1e-12);
    XCurveSegment circle(XPoint(1, 0, 0), XPoint(-1, 0, 0), 2 * kPi, 1);
    CaptureOutput out;
    EXPECT_EQ(circle.IDirection(0), 2 * kPi);
    EXPECT_EQ(out.Text(), "\nInvalid Call to IDirection() for Circle!");
}

TEST(XCurveSegment, PolarForwardBackwardAndOnArcs) {
    XCurveSegment line(XPoint(), XPoint(1, 0, 0), 0, 1);
    XPointDir2d p;
    ASSERT_EQ(line.Polar(2, p, 1), RTNORM);
    EXPECT_NEAR(p.x, 2, 1e-12);
    EXPECT_NEAR(p.direction, 0, 1e-12);
    ASSERT_EQ(line.Polar(-2, p, 1), RTNORM);
    EXPECT_NEAR(p.x, -2, 1e-12);
    EXPECT_NEAR(p.direction, kPi, 1e-12);
    ASSERT_EQ(line.Polar(0.25, p, 0), RTNORM);
    EXPECT_NEAR(p.x, 0.75, 1e-12);
    EXPECT_NEAR(p.direction, kPi, 1e-12);
    XCurveSegment arc = QuarterArc();
    ASSERT_EQ(arc.Polar(5 * kPi / 2, p, 1), RTNORM);   // a quarter of the way in angle terms: pi/4
    EXPECT_NEAR(p.x, 10 * std::cos(kPi / 4), 1e-9);
    EXPECT_NEAR(p.direction, 3 * kPi / 4, 1e-12);
    ASSERT_EQ(arc.Polar(5 * kPi / 2, p, 0), RTNORM);
    EXPECT_NEAR(p.direction, 7 * kPi / 4, 1e-12);   // travelling back towards the start
    XCurveSegment circle(XPoint(1, 0, 0), XPoint(-1, 0, 0), 2 * kPi, 1);
    EXPECT_EQ(circle.Polar(1, p, 1), RTERROR);
}

TEST(XCurveSegment, PathDistanceSignsBeforeAndAfter) {
    XCurveSegment line(XPoint(), XPoint(10, 0, 0), 0, 1);
    EXPECT_NEAR(line.PathDistance(XPoint(3, 2, 0), 1), 3, 1e-12);
    EXPECT_NEAR(line.PathDistance(XPoint(3, 2, 0), 0), 7, 1e-12);
    EXPECT_NEAR(line.PathDistance(XPoint(-4, 0, 0), 1), -4, 1e-12);
    EXPECT_NEAR(line.PathDistance(XPoint(14, 0, 0), 1), 14, 1e-12);
    EXPECT_NEAR(line.PathDistance(XPoint(0, 5, 0), 0), 10, 1e-12);   // at the start
    XCurveSegment arc = QuarterArc();
    EXPECT_NEAR(arc.PathDistance(XPoint(1, 1, 0), 1), 10 * kPi / 4, 1e-9);
    EXPECT_NEAR(arc.PathDistance(XPoint(0, -1, 0), 1), -10 * kPi / 2, 1e-9);
}

TEST(XCurveSegment, WalkingPathAreaOfAClosedChain) {
    // Counter-clockwise unit square walked from (0,0): minus the area.
    XCurveSegment sides[4] = {XCurveSegment(XPoint(0, 0, 0), XPoint(1, 0, 0), 0, 1),
                              XCurveSegment(XPoint(1, 1, 0), XPoint(1, 0, 0), 0, 1),   // stored backwards
                              XCurveSegment(XPoint(1, 1, 0), XPoint(0, 1, 0), 0, 1),
                              XCurveSegment(XPoint(0, 1, 0), XPoint(0, 0, 0), 0, 1)};
    XPoint walker(0, 0, 0);
    double sum = 0;
    for (const auto& s : sides) sum += s.PathArea(walker);
    EXPECT_NEAR(sum, -1, 1e-12);
    EXPECT_EQ(walker.x, 0);
    // A half disc: the arc from (1,0) to (-1,0), then the diameter back.
    XCurveSegment arc(XPoint(1, 0, 0), XPoint(-1, 0, 0), kPi, 1), base(XPoint(-1, 0, 0), XPoint(1, 0, 0), 0, 1);
    walker = XPoint(1, 0, 0);
    sum = arc.PathArea(walker) + base.PathArea(walker);
    EXPECT_NEAR(sum, -kPi / 2, 1e-12);
    walker = XPoint(-1, 0, 0);   // the other way round: the arc is negated
    sum = arc.PathArea(walker);
    EXPECT_NEAR(sum, kPi / 2, 1e-12);
}

TEST(XCurveSegment, OffsetSides) {
    XCurveSegment line(XPoint(), XPoint(10, 0, 0), 0, 1);
    EXPECT_NEAR(line.Offset(0, 5, 1).start.y, 5, 1e-12);
    EXPECT_NEAR(line.Offset(1, 5, 1).start.y, -5, 1e-12);
    EXPECT_NEAR(line.Offset(5, 1).start.y, -5, 1e-12);
    XCurveSegment arc = QuarterArc();
    XCurveSegment out = arc.Offset(1, 2, 0);
    EXPECT_NEAR(out.start.x, 12, 1e-9);
    EXPECT_EQ(out.bounded, 0);
    EXPECT_EQ(out.angle, arc.angle);
    XCurveSegment gone = arc.Offset(0, 9.995, 1);
    EXPECT_NEAR(gone.start.x, 0, 1e-9);
    EXPECT_NEAR(gone.end.y, 0, 1e-9);
    XCurveSegment circle(XPoint(1, 0, 0), XPoint(-1, 0, 0), 2 * kPi, 1);
    XCurveSegment big = circle.Offset(1, 1, 1);
    EXPECT_NEAR(big.GetCircle().radius, 2, 1e-9);
}

TEST(XCurveSegment, SubSegmentsAndIntersections) {
    XCurveSegment line(XPoint(), XPoint(10, 0, 0), 0, 1), out;
    EXPECT_EQ(line.GetSubSegment(XPoint(5, 0, 0), 2, out), RTNORM);
    EXPECT_NEAR(out.start.x, 4, 1e-12);
    XCurveSegment arc = QuarterArc();
    XPoint mid = arc.MidPoint();
    ASSERT_EQ(arc.GetSubSegment(mid, 2, out), RTNORM);
    EXPECT_NEAR(out.angle, 2 * std::asin(0.1), 1e-12);
    EXPECT_EQ(arc.GetSubSegment(XPoint(10, 0, 0), 2, out), RTERROR);
    arc.bounded = 0;
    EXPECT_EQ(arc.GetSubSegment(XPoint(10, 0, 0), 2, out), RTNORM);

    XPoint a, b;
    XCurveSegment cross(XPoint(-20, 5, 0), XPoint(20, 5, 0), 0, 1);
    EXPECT_EQ(QuarterArc().Intersection(cross, a, b), 1);
    EXPECT_GT(a.x, 0);
    XCurveSegment wholeCarrier = QuarterArc();
    wholeCarrier.bounded = 0;
    EXPECT_EQ(wholeCarrier.Intersection(cross, a, b), 2);
    XCurveSegment other(XPoint(0, 0, 0), XPoint(10, 10, 0), 0, 1);
    EXPECT_EQ(cross.Intersection(other, a, b), 1);
    EXPECT_NEAR(a.x, 5, 1e-12);
}

// An arc segment with flag 0 takes part with its whole circle, also against
// a bounded arc.
TEST(XCurveSegment, UnboundedArcMeetsABoundedArcOnItsWholeCircle) {
    XCurveSegment upper(XPoint(5, 0, 0), XPoint(-5, 0, 0), kPi, 1);
    XCurveSegment above(XPoint(5, 8, 0), XPoint(-5, 8, 0), kPi, 1);
    XPoint a, b;
    EXPECT_EQ(upper.Intersection(above, a, b), 0);   // the crossings lie below the upper arc's centre
    above.bounded = 0;
    ASSERT_EQ(upper.Intersection(above, a, b), 2);
    EXPECT_NEAR(std::fabs(a.x), 3, 1e-9);
    EXPECT_NEAR(a.y, 4, 1e-9);
    EXPECT_NEAR(a.x + b.x, 0, 1e-9);
}

TEST(XCurveSegment, TransformMirrorsAnArc) {
    XCurveSegment arc = QuarterArc();
    double mirror[4][4] = {{-1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    arc.TransformBy(mirror);
    EXPECT_NEAR(arc.angle, kPi / 2, 1e-12);
    EXPECT_NEAR(arc.start.y, 10, 1e-9);   // the ends swap so the arc stays counter-clockwise
    EXPECT_NEAR(arc.end.x, -10, 1e-9);
}

TEST(XCurveSegment, PointPositionOperator) {
    XCurveSegment circle(XPoint(1, 0, 0), XPoint(-1, 0, 0), 2 * kPi, 1);
    EXPECT_EQ(XPoint(0, 1.005, 0) & circle, 1);
    EXPECT_EQ(XPoint(0, 0.5, 0) & circle, 3);
    EXPECT_EQ(XPoint(0, 2, 0) & circle, 0);
    EXPECT_EQ(XPoint(0, 10, 0) & QuarterArc(), 2);
    EXPECT_EQ(XPoint(15, 0, 0) & XCurveSegment(XPoint(), XPoint(10, 0, 0), 0, 1), 4);
}

TEST(XCurveSegment, AsPoly2DAppends) {
    XPoly2D out(1);
    QuarterArc().AsPoly2D(out);
    ASSERT_EQ(out.Count(), 2);
    EXPECT_EQ(out.closed, 0);
    EXPECT_NEAR(out.Angle(0), kPi / 2, 1e-15);
    XCurveSegment(XPoint(1, 0, 0), XPoint(-1, 0, 0), 2 * kPi, 1).AsPoly2D(out);
    ASSERT_EQ(out.Count(), 4);
    EXPECT_EQ(out.closed, 1);
    EXPECT_EQ(out.Angle(3), kPi);
}

TEST(XDirectionCurve, MinusArcsRunClockwise) {
    XDirectionCurve cw(XPoint(10, 0, 0), XPoint(0, -10, 0), -kPi / 2, 1);
    EXPECT_EQ(cw.IsMinusArc(), 1);
    XArc arc = cw.GetArc();
    EXPECT_NEAR(arc.startAngle, 3 * kPi / 2, 1e-12);
    EXPECT_NEAR(arc.endAngle, 0, 1e-9);
    XCurveSegment n = cw.GetCurve();
    EXPECT_GT(n.angle, 0);
    EXPECT_NEAR(n.start.y, -10, 1e-12);
    // The centre is right of a clockwise run; the plain segment says left.
    XDirectionCurve d(XPoint(10, 0, 0), XPoint(0, -10, 0), -kPi / 2, 1);
    EXPECT_EQ(d.OnWhichSide(XPoint(0, 0, 0)), 1);
    XCurveSegment plain(XPoint(0, -10, 0), XPoint(10, 0, 0), kPi / 2, 1);
    EXPECT_EQ(plain.OnWhichSide(XPoint(0, 0, 0)), 0);
    EXPECT_EQ(d.OnWhichSide(XPoint(10, 0.005, 0)), -1);   // on the curve
    EXPECT_NEAR(d.IDirection(0), 3 * kPi / 2, 1e-12);
}

TEST(XDirectionCurve, ReverseAndConstructionFromArcs) {
    XDirectionCurve c(XArc(XPoint(), 1, 0, kPi / 2), 1);
    EXPECT_NEAR(c.start.y, 1, 1e-12);
    EXPECT_NEAR(c.angle, -kPi / 2, 1e-12);
    c.Reverse();
    EXPECT_NEAR(c.start.x, 1, 1e-12);
    EXPECT_NEAR(c.angle, kPi / 2, 1e-12);
    XCurveSegment& base = c;
    base.XCurveSegment::Reverse();   // the segment's own reverse keeps the angle
    EXPECT_NEAR(c.angle, kPi / 2, 1e-12);
}

TEST(XDirectionCurve, OffsetVanishesBelowDistSnap) {
    XDirectionCurve ccw(XArc(XPoint(), 5, 0, kPi / 2), 0);
    EXPECT_TRUE(!ccw.Offset(-5, 1));
    EXPECT_TRUE(!ccw.Offset(-4.995, 1));
    XDirectionCurve grown = ccw.Offset(1, 1);
    EXPECT_NEAR(grown.start.x, 6, 1e-9);
    XDirectionCurve cw(XArc(XPoint(), 5, 0, kPi / 2), 1);
    XDirectionCurve right = cw.Offset(1, 1);   // right of a clockwise run is inwards
    EXPECT_NEAR(right.start.y, 4, 1e-9);
    EXPECT_EQ(right.IsMinusArc(), 1);
    XDirectionCurve line(XPoint(), XPoint(0, 10, 0), 0, 1);
    EXPECT_NEAR(line.Offset(2, 0).start.x, 2, 1e-12);
}

TEST(XDirectionCurve, TransUCSFlipsOnlyOnAMirror) {
    double mirror[4][4] = {{-1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    double turn[4][4] = {{0, -1, 0, 0}, {1, 0, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    XDirectionCurve c(XArc(XPoint(), 1, 0, kPi / 2), 0);
    c.TransUCS(turn);
    EXPECT_GT(c.angle, 0);
    c.TransUCS(mirror);
    EXPECT_LT(c.angle, 0);
}

TEST(XDirectionCurve, AsPoly2DOfAMinusArcRunsItsOwnWay) {
    XDirectionCurve cw(XArc(XPoint(), 1, 0, kPi / 2), 1);
    XPoly2D out;
    cw.AsPoly2D(out);
    ASSERT_EQ(out.Count(), 2);
    EXPECT_NEAR(out.Vertex(0)->y, 1, 1e-12);
    EXPECT_NEAR(out.Angle(0), -kPi / 2, 1e-12);
}
}  // namespace
