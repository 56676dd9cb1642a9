// The bulge polyline: storage, segments, measures, flattening, streams.
#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "kernel/XDirectionCurve.h"
#include "kernel/XPoly.h"
#include "kernel/XPoly2D.h"
#include "kernel/XPoly2D_stream.h"
#include "kernel/XPushPrec.h"
#include "memory_filer.h"

namespace {
constexpr double kPi = std::numbers::pi;

XPoly2D SquarePath(double side, int closed = 1) {   // counter-clockwise
    XPoly2D p(closed);
    p.AppendNode(XPoint(0, 0, 0), 0);
    p.AppendNode(XPoint(side, 0, 0), 0);
    p.AppendNode(XPoint(side, side, 0), 0);
    p.AppendNode(XPoint(0, side, 0), 0);
    return p;
}

XPoly2D Disc(double r) {   // a whole circle by two nodes
    XPoly2D p(1);
    p.AppendNode(XPoint(r, 0, 0), kPi);
    p.AppendNode(XPoint(-r, 0, 0), kPi);
    return p;
}

TEST(XPoly2D, StorageKeepsBothListsInStep) {
    XPoly2D p(0);
    EXPECT_TRUE(!p);
    p.AppendNode(XPoint(0, 0, 0), 0.5);
    p.AppendNode(XPoint(2, 0, 0), 0);
    EXPECT_FALSE(!p);
    p.InsertNodeAt(1, XPoint(1, 0, 0), 0.25);
    p.InsertNodeAt(10, XPoint(3, 0, 0), 0.75);
    ASSERT_EQ(p.Count(), 4);
    ASSERT_EQ(p.angles.Count(), 4);
    EXPECT_EQ(p.Vertex(1)->x, 1);
    EXPECT_EQ(p.Angle(1), 0.25);
    EXPECT_EQ(p.Angle(3), 0.75);
    EXPECT_EQ(p.Angle(99), 0);
    EXPECT_EQ(p.TotalSegments(), 3);
    EXPECT_TRUE(p.IsValid(2));
    EXPECT_FALSE(p.IsValid(3));
    p.closed = 1;
    EXPECT_TRUE(p.IsValid(3));
    EXPECT_EQ(p.TotalSegments(), 4);
    XPoly2D copy = p;
    copy.SetAngle(0, 9);
    copy.Vertex(0)->x = 9;
    EXPECT_EQ(p.Angle(0), 0.5);
    EXPECT_EQ(p.Vertex(0)->x, 0);
    p.Reset();
    EXPECT_EQ(p.Count(), 0);
    EXPECT_EQ(p.angles.Count(), 0);
    EXPECT_EQ(p.closed, 1);
    XPoly2D flags(0);
    flags.closed = 128 | 1;
    EXPECT_EQ(flags.IsClosed(), 1);
}

TEST(XPoly2D, AppendSegmentForwardBackwardAndWithEnd) {
    XCurveSegment arc(XPoint(1, 0, 0), XPoint(0, 1, 0), kPi / 2, 1);
    XPoly2D p(0);
    p.AppendSegment(arc, 0, 1);
    ASSERT_EQ(p.Count(), 2);
    EXPECT_EQ(p.Angle(0), kPi / 2);
    EXPECT_EQ(p.Vertex(1)->y, 1);
    p.AppendSegment(arc, 1, 0);
    ASSERT_EQ(p.Count(), 3);
    EXPECT_EQ(p.Vertex(2)->y, 1);
    EXPECT_EQ(p.Angle(2), -kPi / 2);
    XPoly2D closed(1);
    closed.AppendSegment(arc, 0, 1);   // no end node on a closed polyline
    EXPECT_EQ(closed.Count(), 1);
}

TEST(XPoly2D, NthLinesArcsAndDirectedCurves) {
    XPoly2D p(0);
    p.AppendNode(XPoint(0, 0, 0), 0);
    p.AppendNode(XPoint(2, 0, 0), -kPi);   // clockwise half circle to (4, 0)
    p.AppendNode(XPoint(4, 0, 0), 0);
    XLine line(1);
    XArc arc;
    EXPECT_EQ(p.Nth(0, line, arc), 5101);
    EXPECT_EQ(line.end.x, 2);
    ASSERT_EQ(p.Nth(1, line, arc), 5102);
    EXPECT_NEAR(arc.center.x, 3, 1e-12);
    EXPECT_NEAR(arc.radius, 1, 1e-12);
    EXPECT_EQ(p.Nth(2, line, arc), RTERROR);
    EXPECT_EQ(p.Nth(-1, line, arc), RTERROR);
    XCurveSegment s(0);
    ASSERT_EQ(p.Nth(1, s), RTNORM);
    EXPECT_EQ(s.bounded, 0);   // the flag stays
    EXPECT_NEAR(s.angle, kPi, 1e-12);   // counter-clockwise: the ends come reversed
    EXPECT_NEAR(s.start.x, 4, 1e-9);
    XDirectionCurve c(1);
    ASSERT_EQ(p.Nth(1, c), RTNORM);
    EXPECT_EQ(c.angle, -kPi);
    EXPECT_EQ(c.start.x, 2);
    EXPECT_NEAR(p.Distance(1), kPi, 1e-12);
    EXPECT_NEAR(p.Distance(), 2 + kPi, 1e-12);
    EXPECT_EQ(p.Distance(7), 0);
}

TEST(XPoly2D, BulgeOneIsAHalfCircle) {
    double angle = 4 * std::atan(1.0);
    XPoly2D p(0);
    p.AppendNode(XPoint(0, 0, 0), angle);
    p.AppendNode(XPoint(2, 0, 0), 0);
    XLine line(1);
    XArc arc;
    ASSERT_EQ(p.Nth(0, line, arc), 5102);
    EXPECT_NEAR(arc.Bulge(), kPi, 1e-12);
    EXPECT_NEAR(arc.radius, 1, 1e-12);
}

TEST(XPoly2D, AreasOfSquaresAndDiscs) {
    EXPECT_NEAR(SquarePath(2).PathArea(), -4, 1e-12);
    EXPECT_NEAR(SquarePath(2).Area(), 4, 1e-12);
    EXPECT_NEAR(Disc(3).Area(), 9 * kPi, 1e-12);
    EXPECT_NEAR(Disc(3).PathArea(), -9 * kPi, 1e-12);
    XPoly2D cw(1);
    cw.AppendNode(XPoint(-3, 0, 0), -kPi);
    cw.AppendNode(XPoint(3, 0, 0), -kPi);
    EXPECT_NEAR(cw.PathArea(), 9 * kPi, 1e-12);
    // A square with one side bulged outwards by a half circle.
    XPoly2D d = SquarePath(2);
    d.SetAngle(0, kPi);   // the bottom side bulges down, outwards of the counter-clockwise square
    EXPECT_NEAR(d.Area(), 4 + kPi / 2, 1e-12);
    d.SetAngle(0, -kPi);  // and clockwise it bulges in
    EXPECT_NEAR(d.Area(), 4 - kPi / 2, 1e-12);
}

TEST(XPoly2D, ExtentsIncludeArcBulges) {
    XPoly2D d = SquarePath(2);
    d.SetAngle(0, kPi);
    double lo[3], hi[3];
    ASSERT_EQ(d.GetExtend(lo, hi), RTNORM);
    EXPECT_NEAR(lo[1], -1, 1e-12);
    EXPECT_NEAR(hi[0], 2, 1e-12);
    XPoly2D one(0);
    one.AppendNode(XPoint(), 0);
    EXPECT_EQ(one.GetExtend(lo, hi), RTERROR);
    EXPECT_EQ(XPoly2D(1).GetExtend(lo, hi), RTERROR);
}

TEST(XPoly2D, MapToPolygonStepsPerArc) {
    XPoly2D q(0);   // a quarter circle of radius 10, then a line back
    q.AppendNode(XPoint(10, 0, 0), kPi / 2);
    q.AppendNode(XPoint(0, 10, 0), 0);
    XPoly out;
    EXPECT_EQ(q.MapToPolygon(out, 36), RTNORM);
    EXPECT_EQ(out.Count(), 9 + 1);
    EXPECT_NEAR(out.GetAt(1)->x, 10 * std::cos(kPi / 18), 1e-9);
    XPoly2D half(0);
    half.AppendNode(XPoint(1, 0, 0), kPi);
    half.AppendNode(XPoint(-1, 0, 0), 0);
    half.MapToPolygon(out, 1);   // steps truncate to 0 and become 1: the arc is its start
    ASSERT_EQ(out.Count(), 2);
    EXPECT_EQ(out.GetAt(0)->x, 1);
    // A clockwise arc walks from its own start.
    XPoly2D back(0);
    back.AppendNode(XPoint(0, 10, 0), -kPi / 2);
    back.AppendNode(XPoint(10, 0, 0), 0);
    back.MapToPolygon(out, 4);
    ASSERT_EQ(out.Count(), 2);
    EXPECT_NEAR(out.GetAt(0)->y, 10, 1e-9);
    // An open polyline's last arc has no segment and writes nothing.
    XPoly2D dangling(0);
    dangling.AppendNode(XPoint(0, 0, 0), 0);
    dangling.AppendNode(XPoint(1, 0, 0), 1.0);
    dangling.MapToPolygon(out, 36);
    EXPECT_EQ(out.Count(), 1);
}

TEST(XPoly2D, MapToPolygonByDeviation) {
    EXPECT_EQ(GetCirDivNum(10, 20), 1);
    EXPECT_EQ(GetCirDivNum(1000, 0.001), 200);
    EXPECT_EQ(GetCirDivNum(10, 0.1), 22);
    EXPECT_EQ(GetCirDivNum(10, 0), 200);
    EXPECT_EQ(GetCirDivNum(0, 0), 1 > 0 ? GetCirDivNum(0, 0) : 0);   // no crash on nonsense
    XPoly out;
    Disc(10).MapToPolygon1(out, 0.1);
    EXPECT_EQ(out.Count(), 22);
    XPoly2D tiny(0);
    tiny.AppendNode(XPoint(0, 0, 0), 0);
    tiny.AppendNode(XPoint(1, 0, 0), 0.005);   // sweep below _angSnap: its vertex is lost
    tiny.AppendNode(XPoint(2, 0, 0), 0);
    tiny.MapToPolygon1(out, 0.1);
    EXPECT_EQ(out.Count(), 2);
}

TEST(XPoly2D, AsOpenPolyEndsWhereTheCurveEnds) {
    XPoly out;
    SquarePath(1).AsOpenPoly(out, 36);
    ASSERT_EQ(out.Count(), 5);
    EXPECT_EQ(out.GetAt(4)->x, 0);
    Disc(1).AsOpenPoly(out, 4);
    ASSERT_EQ(out.Count(), 5);   // two steps per half, plus the closing point
    EXPECT_NEAR(out.GetAt(4)->x, 1, 1e-12);
    XPoly2D dangling(0);
    dangling.AppendNode(XPoint(0, 0, 0), 0);
    dangling.AppendNode(XPoint(1, 0, 0), 1.0);
    dangling.AsOpenPoly(out, 36);
    EXPECT_EQ(out.Count(), 2);
    Disc(10).AsOpenPoly1(out, 0.1);
    EXPECT_EQ(out.Count(), 23);
    XPoly2D flat;
    Disc(1).Disperse(flat, 4);
    EXPECT_EQ(flat.Count(), 4);
    EXPECT_EQ(flat.closed, 1);
    EXPECT_EQ(flat.HasArcSegment(), 0);
    XPoly2D flat1;
    Disc(10).Disperse1(flat1, 0.1);
    EXPECT_EQ(flat1.Count(), 22);
}

TEST(XPoly2D, HasArcSegmentIgnoresClockwiseArcs) {
    XPoly2D p = SquarePath(1);
    EXPECT_EQ(p.HasArcSegment(), 0);
    p.SetAngle(1, -1);
    EXPECT_EQ(p.HasArcSegment(), 0);
    p.SetAngle(2, 0.00002);
    EXPECT_EQ(p.HasArcSegment(), 1);
}

TEST(XPoly2D, PolarAlongAnOpenPath) {
    XPoly2D p(0);
    p.AppendNode(XPoint(0, 0, 0), 0);
    p.AppendNode(XPoint(10, 0, 0), kPi / 2);   // then a quarter circle of radius 10 to (20, 10)
    p.AppendNode(XPoint(20, 10, 0), 0);
    XPoint pt;
    double dir = -1;
    EXPECT_EQ(p.Polar(5, pt, &dir), 0);
    EXPECT_NEAR(pt.x, 5, 1e-12);
    EXPECT_NEAR(dir, 0, 1e-12);
    double total = p.Distance();
    EXPECT_NEAR(total, 10 + 5 * kPi, 1e-12);
    EXPECT_EQ(p.Polar(total, pt, &dir), 1);
    EXPECT_NEAR(pt.x, 20, 1e-9);
    EXPECT_NEAR(dir, kPi / 2, 1e-12);
    EXPECT_EQ(p.Polar(total + 0.009, pt, nullptr), 1);
    EXPECT_EQ(p.Polar(total + 0.02, pt, &dir), RTERROR);
    EXPECT_EQ(p.Polar(10 + 2.5 * kPi, pt, &dir), 1);   // halfway round the arc
    EXPECT_NEAR(pt.x, 10 + 10 * std::sin(kPi / 4), 1e-9);
    EXPECT_NEAR(dir, kPi / 4, 1e-9);
    EXPECT_EQ(p.Polar(-3, pt, &dir), 0);   // before the start
    EXPECT_NEAR(pt.x, -3, 1e-12);
    EXPECT_EQ(SquarePath(1).Polar(1, pt, &dir), RTERROR);
    XPoly2D cw(0);   // a clockwise arc: the heading is still the way of travel
    cw.AppendNode(XPoint(0, 10, 0), -kPi / 2);
    cw.AppendNode(XPoint(10, 0, 0), 0);
    EXPECT_EQ(cw.Polar(0, pt, &dir), 0);
    EXPECT_NEAR(pt.y, 10, 1e-9);
    EXPECT_NEAR(dir, 0, 1e-9);
}

TEST(XPoly2D, PolarMeasuresInSpaceAndInterpolatesZ) {
    XPoly2D p(0);
    p.AppendNode(XPoint(0, 0, 0), 0);
    p.AppendNode(XPoint(10, 0, 4), 0);
    XPoint pt;
    double dir;
    double len = std::sqrt(116.0);   // the segment's spatial length
    ASSERT_EQ(p.Polar(5, pt, &dir), 0);
    EXPECT_NEAR(pt.x, 10 - (len - 5), 1e-12);
    EXPECT_NEAR(pt.z, 4 * 5 / len, 1e-12);
}

TEST(XPoly2D, HitTestNamesVerticesAndSegments) {
    XPoly2D p = SquarePath(10);
    EXPECT_EQ(p.HitTestOnCurve(XPoint(0, 0, 0), 0.1), 1);
    EXPECT_EQ(p.HitTestOnCurve(XPoint(10, 10.05, 0), 0.1), 3);
    EXPECT_EQ(p.HitTestOnCurve(XPoint(5, 0.02, 0), 0.1), -1);
    EXPECT_EQ(p.HitTestOnCurve(XPoint(0.02, 5, 0), 0.1), -4);
    EXPECT_EQ(p.HitTestOnCurve(XPoint(5, 0.02, 0), 0.01), 0);
    EXPECT_EQ(p.HitTestOnCurve(XPoint(5, 0.009, 0), 0.01), -1);
    EXPECT_EQ(p.HitTestOnCurve(XPoint(5, 5, 0), 0.1), 0);
    EXPECT_EQ(_distSnap, 0.01);
}

TEST(XPoly2D, SelfIntersectionOfStraightSegments) {
    XPoly2D bow(1);
    bow.AppendNode(XPoint(0, 0, 0), 0);
    bow.AppendNode(XPoint(10, 10, 0), 0);
    bow.AppendNode(XPoint(10, 0, 0), 0);
    bow.AppendNode(XPoint(0, 10, 0), 0);
    EXPECT_EQ(bow.IsSelfIntersect(), 1);
    EXPECT_EQ(SquarePath(10).IsSelfIntersect(), 0);
    XPoly2D arcCross(0);   // an arc dipping across a line goes unnoticed
    arcCross.AppendNode(XPoint(0, 0, 0), 0);
    arcCross.AppendNode(XPoint(10, 0, 0), 0);
    arcCross.AppendNode(XPoint(10, 5, 0), 0);
    arcCross.AppendNode(XPoint(5, 5, 0), kPi);
    arcCross.AppendNode(XPoint(5, 1, 0), 0);   // a half circle bulging past x = 10... and below y = 0
    EXPECT_EQ(arcCross.IsSelfIntersect(), 0);
}

TEST(XPoly2D, ReverseRunsTheOtherWay) {
    XPoly2D p(0);
    p.AppendNode(XPoint(0, 0, 0), 0);
    p.AppendNode(XPoint(2, 0, 0), kPi / 2);
    p.AppendNode(XPoint(4, 2, 0), 0);
    ASSERT_EQ(p.Reverse(), RTNORM);
    ASSERT_EQ(p.Count(), 3);
    EXPECT_EQ(p.Vertex(0)->x, 4);
    EXPECT_EQ(p.Angle(0), -kPi / 2);
    EXPECT_EQ(p.Angle(1), 0);
    EXPECT_EQ(p.Vertex(2)->x, 0);
    p.Reverse();
    EXPECT_EQ(p.Vertex(0)->x, 0);
    EXPECT_EQ(p.Angle(1), kPi / 2);
    XPoly2D sq = SquarePath(1);
    double before = sq.PathArea();
    sq.Reverse();
    EXPECT_EQ(sq.Vertex(0)->x, 0);
    EXPECT_EQ(sq.Vertex(1)->y, 1);
    EXPECT_NEAR(sq.PathArea(), -before, 1e-12);
    XPoly2D one(0);
    one.AppendNode(XPoint(), 0);
    EXPECT_EQ(one.Reverse(), RTERROR);
}

TEST(XPoly2D, GetPointLandsInsideForSideZero) {
    XPoint inner = SquarePath(10).GetPoint(0, 1);
    EXPECT_NEAR(inner.x, 5, 1e-9);
    EXPECT_NEAR(inner.y, 1, 1e-9);
    XPoint outer = SquarePath(10).GetPoint(1, 1);
    EXPECT_NEAR(outer.y, -1, 1e-9);
    XPoly2D cw = SquarePath(10);
    cw.Reverse();
    EXPECT_NEAR(cw.GetPoint(0, 1).x, 1, 1e-9);   // the first segment runs up the left side
    EXPECT_EQ(XPoly2D(0).GetPoint(0, 1).x, 0);
}

TEST(XPoly2D, ExplodeAndLimitCycle) {
    XPoly2D p = Disc(2);
    p.SetAngle(1, -kPi);
    DList<XCurveSegment> out;
    ExplodePoly2D(p, out);
    ASSERT_EQ(out.Count(), 2);
    EXPECT_GT(out.GetAt(1)->angle, 0);   // counter-clockwise whatever the walk
    EXPECT_EQ(out.GetAt(0)->bounded, 1);
    EXPECT_EQ(LimitCycle(7, 5), 2);
    EXPECT_EQ(LimitCycle(-1, 5), 4);
    EXPECT_EQ(LimitCycle(-11, 5), 4);
    EXPECT_EQ(LimitCycle(3, 5), 3);
}

TEST(XPoly2DStream, RoundTripDropsZAndKeepsAngles) {
    XPoly2D p(1 | 128);
    p.AppendNode(XPoint(1, 2, 3), 0.5);
    p.AppendNode(XPoint(4, 5, 6), -1.25);
    MemoryFiler filer;
    ASSERT_EQ(WritePoly2D(&filer, p), Acad::eOk);
    EXPECT_EQ(filer.Size(), 1u + 2u + 2 * 24u);
    XPoly2D back(0);
    back.AppendNode(XPoint(9, 9, 9), 9);
    filer.Rewind();
    ASSERT_EQ(ReadPoly2D(&filer, back), Acad::eOk);
    ASSERT_EQ(back.Count(), 2);
    EXPECT_EQ(back.closed, 129);
    EXPECT_EQ(back.Vertex(0)->z, 0);
    EXPECT_EQ(back.Vertex(1)->x, 4);
    EXPECT_EQ(back.Angle(1), -1.25);
}

TEST(XPoly2DStream, RefusesTooManyNodesAndShortStreams) {
    XPoly2D big(0);
    for (int i = 0; i < 32768; ++i) big.AppendNode(XPoint(i, 0, 0), 0);
    MemoryFiler filer;
    EXPECT_EQ(WritePoly2D(&filer, big), Acad::eFilerError);
    EXPECT_EQ(filer.Size(), 0u);
    big.Reset();
    for (int i = 0; i < 32767; ++i) big.AppendNode(XPoint(i, 0, 0), 0);
    MemoryFiler ok;
    EXPECT_EQ(WritePoly2D(&ok, big), Acad::eOk);
    MemoryFiler cut;
    WritePoly2D(&cut, SquarePath(1));
    cut.Bytes().resize(cut.Size() - 4);
    cut.Rewind();
    XPoly2D back;
    EXPECT_EQ(ReadPoly2D(&cut, back), Acad::eFilerError);
    EXPECT_EQ(back.Count(), 3);
}
}  // namespace
