// Point lists, polygons, rectangles and the relation operators.
#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "host/test_support.h"
#include "kernel/PointList.h"
#include "kernel/XCurveSegment.h"
#include "kernel/XPoly.h"
#include "kernel/XPoly2D.h"
#include "kernel/XRectAngle.h"
#include "kernel/shape_relations.h"
#include "platform/acutads.h"

namespace {
constexpr double kPi = std::numbers::pi;

XPoly Square(double x0, double y0, double side, bool clockwise = false) {
    XPoly p;
    p.AppendPoint(XPoint(x0, y0, 0));
    if (clockwise) {
        p.AppendPoint(XPoint(x0, y0 + side, 0));
        p.AppendPoint(XPoint(x0 + side, y0 + side, 0));
        p.AppendPoint(XPoint(x0 + side, y0, 0));
    } else {
        p.AppendPoint(XPoint(x0 + side, y0, 0));
        p.AppendPoint(XPoint(x0 + side, y0 + side, 0));
        p.AppendPoint(XPoint(x0, y0 + side, 0));
    }
    return p;
}

TEST(XPointList, NewAppendFindsEqualPoints) {
    XPointList l;
    EXPECT_EQ(l.NewAppend(XPoint(0, 0, 0)), 0);
    EXPECT_EQ(l.NewAppend(XPoint(5, 0, 0)), 1);
    EXPECT_EQ(l.NewAppend(XPoint(0.005, 0, 0)), 0);
    EXPECT_EQ(l.Count(), 2);
    EXPECT_EQ(l.FindPoint(XPoint(5.009, 0, 0)), l.GetAt(1));
    EXPECT_EQ(l.FindPoint(XPoint(5.0101, 0, 0)), nullptr);
    double lo[3], hi[3];
    ASSERT_EQ(l.GetExtend(lo, hi), RTNORM);
    EXPECT_EQ(hi[0], 5);
    XPointList empty;
    EXPECT_EQ(empty.GetExtend(lo, hi), RTNONE);
    double c[3];
    l.Center(c);
    EXPECT_EQ(c[0], 2.5);
    l.SetElevation(3);
    EXPECT_EQ(l.GetAt(1)->z, 3);
    XPointList copy = l;
    copy.GetAt(0)->x = 9;
    EXPECT_EQ(l.GetAt(0)->x, 0);
}

TEST(XPoly, EdgesAreasAndShapes) {
    XPoly sq = Square(0, 0, 2);
    XLine e(1);
    ASSERT_EQ(sq.NthLine(3, e), RTNORM);
    EXPECT_EQ(e.end.x, 0);
    EXPECT_EQ(e.end.y, 0);
    EXPECT_EQ(sq.NthLine(4, e), RTERROR);
    EXPECT_EQ(sq.PathArea(), -4);   // counter-clockwise is negative
    EXPECT_EQ(Square(0, 0, 2, true).PathArea(), 4);
    EXPECT_EQ(sq.Area(), 4);
    EXPECT_EQ(XPoly().PathArea(), 0);
    EXPECT_EQ(sq.Type(), CellPoly);
    EXPECT_FALSE(!sq);
    XPoly two;
    two.AppendPoint(XPoint());
    two.AppendPoint(XPoint(1, 0, 0));
    EXPECT_TRUE(!two);
    EXPECT_EQ(sq.IsPoint(), 0);
    XPoly dots;
    dots.AppendPoint(XPoint(1, 1, 0));
    dots.AppendPoint(XPoint(1.005, 1, 0));
    EXPECT_EQ(dots.IsPoint(), 1);
    EXPECT_EQ(XPoly().IsPoint(), 0);
    XPoly line;
    line.AppendPoint(XPoint(0, 0, 0));
    line.AppendPoint(XPoint(0.001, 0, 0));
    line.AppendPoint(XPoint(5, 0, 0));
    line.AppendPoint(XPoint(12, 0, 0));
    EXPECT_EQ(line.IsLinear(), 1);
    EXPECT_EQ(sq.IsLinear(), 0);
    EXPECT_EQ(dots.IsLinear(), 0);
    CaptureOutput out;
    EXPECT_EQ(sq.IsPlan(), 0);
    EXPECT_EQ(out.Text(), "\nIsPlan Not finished!");
}

TEST(XPoly, RectangleRecognitionOnlyAlongTheAxes) {
    XPoly sq = Square(1, 1, 2);
    double c[3], w = 0, h = 0;
    ASSERT_EQ(sq.IsRectAngle(c, &w, &h), 1);
    EXPECT_EQ(c[0], 2);
    EXPECT_EQ(w, 2);
    EXPECT_EQ(sq.IsRectAngle(nullptr, nullptr, nullptr), 1);
    XPoly diamond;
    diamond.AppendPoint(XPoint(0, -1, 0));
    diamond.AppendPoint(XPoint(1, 0, 0));
    diamond.AppendPoint(XPoint(0, 1, 0));
    diamond.AppendPoint(XPoint(-1, 0, 0));
    EXPECT_EQ(diamond.IsRectAngle(c, &w, &h), 0);
    resbuf* chain = diamond.Polygon();
    XPoint centre;
    EXPECT_EQ(GetRectTangle(chain, centre, &w, &h), RTERROR);
    acutRelRb(chain);
    chain = sq.Polygon();
    EXPECT_EQ(GetRectTangle(chain, centre, &w, &h), RTNORM);
    EXPECT_EQ(centre.y, 2);
    acutRelRb(chain);
    EXPECT_EQ(GetRectTangle(nullptr, centre, &w, &h), RTERROR);
}

TEST(XPoly, ChainsOfPoints) {
    XPoly tri;
    tri.AppendPoint(XPoint(0, 0, 0));
    tri.AppendPoint(XPoint(1, 0, 0));
    tri.AppendPoint(XPoint(0, 1, 0));
    resbuf* poly = tri.Polygon();
    resbuf* fence = tri.Fence();
    int n = 0, m = 0;
    for (resbuf* r = poly; r; r = r->rbnext) {
        ++n;
        EXPECT_EQ(r->restype, RT3DPOINT);
    }
    for (resbuf* r = fence; r; r = r->rbnext) ++m;
    EXPECT_EQ(n, 3);
    EXPECT_EQ(m, 4);
    XPoly back(poly);
    EXPECT_EQ(back.Count(), 3);
    acutRelRb(poly);
    acutRelRb(fence);
}

TEST(PointInPoly, VertexEdgeAndJustOff) {
    XPoly sq = Square(0, 0, 10);
    EXPECT_EQ(XPoint(0, 0, 0) & sq, 5);
    EXPECT_EQ(XPoint(5, 0.009, 0) & sq, 5);
    EXPECT_EQ(XPoint(5, 0.02, 0) & sq, 3);
    EXPECT_EQ(XPoint(5, -0.02, 0) & sq, 0);
    EXPECT_EQ(XPoint(5, 5, 0) & sq, 3);
    EXPECT_EQ(XPoint(50, 5, 0) & sq, 0);
    XPoly two;
    two.AppendPoint(XPoint());
    two.AppendPoint(XPoint(1, 0, 0));
    EXPECT_EQ(XPoint(0.5, 0, 0) & two, 0);
}

TEST(PointInPoly, ARayThroughAVertexCountsOnce) {
    // A diamond whose vertex lies on the ray from (0, 0): the first vertex's
    // direction is 0, so the ray leaves at 0.11 pi.
    double a = 0.11 * kPi;
    XPoly p;
    p.AppendPoint(XPoint(4, 0, 0));
    p.AppendPoint(XPoint(5 * std::cos(a), 5 * std::sin(a), 0));   // on the ray
    p.AppendPoint(XPoint(-4, 0, 0));
    p.AppendPoint(XPoint(0, -4, 0));
    CaptureOutput out;
    EXPECT_EQ(XPoint(0, 0, 0) & p, 3);
    EXPECT_EQ(out.Text(), "");
}

TEST(XRectAngle, CornersAndPointCodesAtTheTolerance) {
    XRectAngle r(XPoint(10, 10, 2), XPoint(0, 0, 1));
    EXPECT_EQ(r.low.x, 0);
    EXPECT_EQ(r.up.y, 10);
    EXPECT_EQ(r.GetLowRight().z, 1);
    EXPECT_EQ(r.GetUpRight().z, 2);
    EXPECT_EQ(r.Area(), 100);
    EXPECT_EQ(r.Type(), CellRectAngle);
    XRectAngle c(XPoint(0, 0, 3), 4, 2);
    EXPECT_EQ(c.low.x, -2);
    EXPECT_EQ(c.up.y, 1);
    EXPECT_EQ(c.up.z, 3);
    EXPECT_EQ(XPoint(5, 5, 0) & r, 3);
    EXPECT_EQ(XPoint(10.01, 5, 0) & r, 5);   // exactly at up.x + t: boundary
    EXPECT_EQ(XPoint(10.02, 5, 0) & r, 0);
    EXPECT_EQ(XPoint(9.991, 5, 0) & r, 5);
    EXPECT_EQ(XPoint(9.98, 5, 0) & r, 3);
}

TEST(XRectAngle, RectangleRelationIsNotSymmetric) {
    XRectAngle big(XPoint(0, 0, 0), XPoint(10, 10, 0)), small(XPoint(2, 2, 0), XPoint(4, 4, 0));
    EXPECT_EQ(small & big, 3);
    EXPECT_EQ(big & small, 0);
    EXPECT_EQ(big & big, 5);
    XRectAngle overlap(XPoint(5, 5, 0), XPoint(15, 15, 0));
    EXPECT_EQ(overlap & big, 6);
    XRectAngle crossA(XPoint(-1, 4, 0), XPoint(11, 6, 0)), crossB(XPoint(4, -1, 0), XPoint(6, 11, 0));
    EXPECT_EQ(crossA & crossB, 0);   // a cross: no corner inside
    XRectAngle far(XPoint(20, 20, 0), XPoint(30, 30, 0));
    EXPECT_EQ(far & big, 0);
}

TEST(XRectAngle, LineCrossingsStopAtTwo) {
    XRectAngle r(XPoint(0, 0, 0), XPoint(10, 10, 0));
    XPoint a, b;
    EXPECT_EQ(r.Intersection(XLine(XPoint(-5, 5, 0), XPoint(15, 5, 0), 1), a, b), 2);
    EXPECT_EQ(a.x, 10);   // sides in the order low, right, up, left
    EXPECT_EQ(b.x, 0);
    // Touching a corner hits the two sides that meet there.
    EXPECT_EQ(r.Intersection(XLine(XPoint(5, -5, 0), XPoint(15, 5, 0), 1), a, b), 2);
    EXPECT_NEAR(a.x, 10, 1e-9);
    EXPECT_NEAR(b.x, 10, 1e-9);
    EXPECT_NEAR(b.y, 0, 1e-9);
    EXPECT_EQ(r.Intersection(XLine(XPoint(-5, 5, 1), XPoint(15, 5, 1), 1), a, b), 0);
    EXPECT_EQ(r.Intersection(XLine(XPoint(1, 1, 0), XPoint(2, 2, 0), 1), a, b), 0);
    XPoly2D out;
    r.AsPoly2D(out);
    EXPECT_EQ(out.Count(), 4);
    EXPECT_EQ(out.closed, 1);
    EXPECT_EQ(out.Vertex(2)->x, 10);
}

TEST(LineAgainstShapes, ThreePointCodesAndCrossings) {
    XPoly sq = Square(0, 0, 10);
    EXPECT_EQ(XLine(XPoint(0, 0, 0), XPoint(10, 0, 0), 1) & sq, 5);
    EXPECT_EQ(XLine(XPoint(2, 2, 0), XPoint(8, 8, 0), 1) & sq, 3);
    EXPECT_EQ(XLine(XPoint(5, 5, 0), XPoint(15, 5, 0), 1) & sq, 6);
    EXPECT_EQ(XLine(XPoint(20, 20, 0), XPoint(30, 30, 0), 1) & sq, 0);
    // Passing through with all three points outside goes unnoticed.
    EXPECT_EQ(XLine(XPoint(-5, 5, 0), XPoint(5, 15, 0), 1) & sq, 0);

    XPoly2D p2;
    XPointList pts;
    for (XPoint& v : sq) p2.AppendNode(v, 0.0);
    p2.closed = 1;
    EXPECT_EQ(XLine(XPoint(-5, 5, 0), XPoint(5, 15, 0), 1) & p2, 6);   // the crossings are seen here
    EXPECT_EQ(XLine(XPoint(2, 2, 0), XPoint(8, 8, 0), 1) & p2, 3);
    EXPECT_EQ(XLine(XPoint(20, 20, 0), XPoint(30, 30, 0), 1) & p2, 0);
    XRectAngle inside(XPoint(1, 1, 0), XPoint(9, 9, 0)), across(XPoint(5, 5, 0), XPoint(15, 15, 0));
    EXPECT_EQ(inside & p2, 3);
    EXPECT_EQ(across & p2, 6);
    XRectAngle same(XPoint(0, 0, 0), XPoint(10, 10, 0));
    EXPECT_EQ(same & p2, 5);
}

TEST(XLine, CrossingsWithAPolygonGoIntoThePointList) {
    XPoly sq = Square(0, 0, 10);
    XLine l(XPoint(-5, 5, 0), XPoint(15, 5, 0), 1);
    PointList list(l.start, l.end, 0);
    EXPECT_EQ(l.Intersection(sq, list), 2);
    ASSERT_EQ(list.Count(), 4);
    EXPECT_NEAR(list.GetAt(1)->x, 0, 1e-12);
    EXPECT_NEAR(list.GetAt(2)->x, 10, 1e-12);
}

TEST(PointList, InsertOnLinesArcsAndCircles) {
    PointList line(XPoint(0, 0, 0), XPoint(10, 0, 0), 0);
    EXPECT_EQ(line.kind, 0);
    EXPECT_EQ(line.Insert(XPoint(5, 0, 0), 0), RTNORM);
    EXPECT_EQ(line.Insert(XPoint(2, 0, 0), 0), RTNORM);
    EXPECT_EQ(line.GetAt(1)->x, 2);
    EXPECT_EQ(line.Insert(XPoint(5, 0, 0), 0), RTERROR);   // already there
    EXPECT_EQ(line.Count(), 4);
    EXPECT_EQ(line.Insert(XPoint(15, 0, 0), 0), RTERROR);
    EXPECT_EQ(line.Count(), 4);
    EXPECT_EQ(line.Insert(XPoint(15, 0, 0), 1), RTERROR);   // added all the same
    EXPECT_EQ(line.Count(), 5);
    EXPECT_EQ(line.Last()->x, 15);
    EXPECT_EQ(line.Insert(XPoint(-3, 0, 0), 1), RTERROR);
    EXPECT_EQ(line.First()->x, -3);
    EXPECT_EQ(line.Insert(XPoint(3, 4, 0), 1), RTERROR);
    EXPECT_EQ(line.Count(), 6);

    PointList arc(XPoint(10, 0, 0), XPoint(0, 10, 0), kPi / 2);
    EXPECT_EQ(arc.kind, 1);
    EXPECT_NEAR(arc.center.x, 0, 1e-9);
    EXPECT_EQ(arc.Insert(XPoint(10 * std::cos(1.0), 10 * std::sin(1.0), 0), 0), RTNORM);
    EXPECT_EQ(arc.Insert(XPoint(10 * std::cos(0.3), 10 * std::sin(0.3), 0), 0), RTNORM);
    EXPECT_NEAR(arc.GetAt(1)->x, 10 * std::cos(0.3), 1e-12);
    XPoly2D out;
    arc.AsPoly2D(out);
    ASSERT_EQ(out.Count(), 4);
    EXPECT_NEAR(out.Angle(0), 0.3, 1e-9);
    EXPECT_NEAR(out.Angle(1), 0.7, 1e-9);
    EXPECT_EQ(out.Angle(3), 0);

    PointList circle(XPoint(1, 0, 0), XPoint(-1, 0, 0), 2 * kPi);
    EXPECT_EQ(circle.kind, 2);
    EXPECT_EQ(circle.Count(), 1);
    XPoly2D full;
    circle.AsPoly2D(full);
    ASSERT_EQ(full.Count(), 2);
    EXPECT_EQ(full.Angle(0), kPi);
    EXPECT_EQ(full.closed, 1);
    EXPECT_EQ(circle.Insert(XPoint(0, 1, 0), 0), RTNORM);
    EXPECT_EQ(circle.Insert(XPoint(-1, 0, 0), 0), RTNORM);
    EXPECT_EQ(circle.Insert(XPoint(0, 1.005, 0), 0), RTERROR);
    EXPECT_EQ(circle.Insert(XPoint(0, 2, 0), 0), RTERROR);
    XPoly2D ring;
    circle.AsPoly2D(ring);
    ASSERT_EQ(ring.Count(), 3);
    EXPECT_NEAR(ring.Angle(0) + ring.Angle(1) + ring.Angle(2), 2 * kPi, 1e-12);
}

TEST(XSortedVertexList, SegmentsPerStretch) {
    XSortedVertexList list(XCurveSegment(XPoint(10, 0, 0), XPoint(0, 10, 0), kPi / 2, 1));
    list.InsertBeforeLast(XPoint(10 * std::cos(0.5), 10 * std::sin(0.5), 0));
    EXPECT_EQ(list.Count(), 3);
    XPoly2D out;
    EXPECT_EQ(list.AsPoly2D(out), RTNORM);
    ASSERT_EQ(out.Count(), 3);
    EXPECT_NEAR(out.Angle(0), 0.5, 1e-9);
    EXPECT_NEAR(out.Angle(1), kPi / 2 - 0.5, 1e-9);
    EXPECT_EQ(out.Angle(2), 0);
    EXPECT_EQ(out.closed, 0);
}
}  // namespace
