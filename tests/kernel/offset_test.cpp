// Offsets, compression and splitting of bulge polylines.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "kernel/SplitPoly2D.h"
#include "kernel/XPoly2D.h"
#include "kernel/XPoly2D_offset.h"
#include "kernel/XPushPrec.h"
#include "platform/dbents.h"

namespace {
constexpr double kPi = std::numbers::pi;

XPoly2D Poly(std::initializer_list<std::pair<XPoint, double>> nodes, int closed) {
    XPoly2D p(closed);
    for (const auto& [pt, a] : nodes) p.AppendNode(pt, a);
    return p;
}

XPoly2D Square(double s) { return Poly({{{0, 0}, 0}, {{s, 0}, 0}, {{s, s}, 0}, {{0, s}, 0}}, 1); }

bool Near(const XPoint& a, const XPoint& b, double tol = 1e-9) { return a.Distance(b) < tol; }

// Signed distance from p to the carrier of edge i, positive on the right.
double RightOfEdge(const XPoly2D& poly, int i, const XPoint& p) {
    int n = poly.Count();
    XPoint a = *poly.Vertex((i + n) % n), b = *poly.Vertex((i + 1 + n) % n);
    double dx = b.x - a.x, dy = b.y - a.y;
    return ((p.x - a.x) * dy - (p.y - a.y) * dx) / std::hypot(dx, dy);
}
}  // namespace

TEST(Offset, CounterClockwiseSquareGrowsToTheCrossings) {
    XPoly2D out;
    ASSERT_EQ(OffsetPoly2D(Square(10), 1.0, out), RTNORM);
    ASSERT_EQ(out.Count(), 4);
    EXPECT_TRUE(Near(*out.Vertex(0), XPoint(-1, -1)));
    EXPECT_TRUE(Near(*out.Vertex(2), XPoint(11, 11)));
    EXPECT_EQ(out.closed, 1);
}

TEST(Offset, OpenEndsStaySquare) {
    XPoly2D open = Poly({{{0, 0}, 0}, {{10, 0}, 0}, {{10, 10}, 0}}, 0);
    XPoly2D out;
    ASSERT_EQ(OffsetPoly2D(open, 1.0, out), RTNORM);
    ASSERT_EQ(out.Count(), 3);
    EXPECT_TRUE(Near(*out.Vertex(0), XPoint(0, -1)));
    EXPECT_TRUE(Near(*out.Vertex(1), XPoint(11, -1)));
    EXPECT_TRUE(Near(*out.Vertex(2), XPoint(11, 10)));
}

TEST(Offset, BelowTheSnapCopies) {
    XPoly2D out;
    ASSERT_EQ(OffsetPoly2D(Square(10), 0.005, out), RTNORM);
    EXPECT_TRUE(Near(*out.Vertex(1), XPoint(10, 0)));
}

TEST(Offset, EmptyPolylineFails) {
    XPoly2D out;
    EXPECT_EQ(OffsetPoly2D(XPoly2D(1), 1.0, out), RTERROR);
    XPoly2D one = Poly({{{1, 1}, 0}}, 0);
    EXPECT_EQ(OffsetPoly2D(one, 1.0, out), RTNORM);
    EXPECT_EQ(out.Count(), 0);
}

// A 10 x 10 outline with quarter arcs of radius 2 at the corners.
XPoly2D Rounded() {
    double q = kPi / 2;
    return Poly({{{2, 0}, 0}, {{8, 0}, q}, {{10, 2}, 0}, {{10, 8}, q}, {{8, 10}, 0}, {{2, 10}, q},
                 {{0, 8}, 0}, {{0, 2}, q}},
                1);
}

TEST(Offset, RoundedRectangleGrowsItsArcs) {
    XPoly2D out;
    ASSERT_EQ(OffsetPoly2D(Rounded(), 1.0, out), RTNORM);
    ASSERT_EQ(out.Count(), 8);
    EXPECT_TRUE(Near(*out.Vertex(0), XPoint(2, -1), 1e-6));   // tangent joins
    EXPECT_TRUE(Near(*out.Vertex(2), XPoint(11, 2), 1e-6));
    EXPECT_NEAR(out.Angle(1), kPi / 2, 1e-9);
}

TEST(Offset, InwardBeyondTheCornerRadiusFails) {
    XPoly2D out;
    EXPECT_EQ(OffsetPoly2D(Rounded(), -2.5, out), RTERROR);
}

TEST(QuickOffset, SquareCornersMoveBySqrtTwo) {
    XPoly2D out;
    XPoly2D sq = Square(10);
    ASSERT_EQ(QuickOffsetPoly2D(sq, 1.0, out), RTNORM);
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(out.Vertex(i)->Distance(*sq.Vertex(i)), std::sqrt(2.0), 1e-9);
    EXPECT_TRUE(Near(*out.Vertex(0), XPoint(-1, -1)));
}

TEST(QuickOffset, ArcsAreRebuiltThroughTheOffsetMidpoint) {
    XPoly2D out;
    ASSERT_EQ(QuickOffsetPoly2D(Rounded(), 1.0, out), RTNORM);
    EXPECT_NEAR(out.Angle(1), kPi / 2, 1e-9);
    EXPECT_TRUE(Near(*out.Vertex(1), XPoint(8, -1), 1e-9));
}

TEST(OffsetProperty, ConvexPolygonVerticesLieAtDAndComeBack) {
    std::mt19937 rng(42);
    std::uniform_real_distribution<double> jitter(-0.3, 0.3), dist(0.5, 5.0);
    for (int round = 0; round < 200; ++round) {
        int n = 3 + static_cast<int>(rng() % 20);
        XPoly2D poly(1);
        for (int i = 0; i < n; ++i) {
            double a = (i + jitter(rng)) * 2 * kPi / n;
            poly.AppendNode(XPoint(100 * std::cos(a), 100 * std::sin(a)), 0.0);
        }
        double d = dist(rng);
        XPoly2D grown, back;
        ASSERT_EQ(OffsetPoly2D(poly, d, grown), RTNORM);
        ASSERT_EQ(grown.Count(), n);
        // A vertex of the offset lies at d from both sides that meet there.
        for (int i = 0; i < n; ++i) {
            EXPECT_NEAR(RightOfEdge(poly, i, *grown.Vertex(i)), d, 1e-7) << "round " << round;
            EXPECT_NEAR(RightOfEdge(poly, i - 1, *grown.Vertex(i)), d, 1e-7) << "round " << round;
        }
        ASSERT_EQ(OffsetPoly2D(grown, -d, back), RTNORM);
        for (int i = 0; i < n; ++i) EXPECT_TRUE(Near(*back.Vertex(i), *poly.Vertex(i), 1e-7)) << "round " << round;
    }
}

TEST(Compress, CollinearPointsLeaveTwo) {
    XPoly2D p = Poly({{{0, 0}, 0}, {{5, 0}, 0}, {{10, 0}, 0}}, 0);
    ASSERT_EQ(CompressPoly2D(p), RTNORM);
    ASSERT_EQ(p.Count(), 2);
    EXPECT_TRUE(Near(*p.Vertex(1), XPoint(10, 0)));
}

TEST(Compress, ConcentricArcsBecomeOne) {
    XPoly2D p = Poly({{{10, 0}, kPi / 4}, {{10 * std::cos(kPi / 4), 10 * std::sin(kPi / 4)}, kPi / 4}, {{0, 10}, 0}}, 0);
    ASSERT_EQ(CompressPoly2D(p), RTNORM);
    ASSERT_EQ(p.Count(), 2);
    EXPECT_NEAR(p.Angle(0), kPi / 2, 1e-9);
}

TEST(Compress, LineAndArcNeverMerge) {
    XPoly2D p = Poly({{{0, 0}, 0}, {{10, 0}, kPi / 2}, {{20, 0}, 0}}, 0);
    ASSERT_EQ(CompressPoly2D(p), RTNORM);
    EXPECT_EQ(p.Count(), 3);
}

TEST(Compress, ClosedRunAcrossTheStartMovesNodeZero) {
    XPoly2D p = Poly({{{5, 0}, 0}, {{10, 0}, 0}, {{10, 10}, 0}, {{0, 10}, 0}, {{0, 0}, 0}}, 1);
    ASSERT_EQ(CompressPoly2D(p), RTNORM);
    ASSERT_EQ(p.Count(), 4);
    EXPECT_TRUE(Near(*p.Vertex(0), XPoint(0, 0)));
}

TEST(Compress, AllEmptyFailsAndKeepsThePolyline) {
    XPoly2D p = Poly({{{1, 1}, 0}, {{1, 1}, 0}}, 0);
    EXPECT_EQ(CompressPoly2D(p), RTERROR);
    EXPECT_EQ(p.Count(), 2);
}

TEST(Reverse, TwiceRestoresAnOpenPolyline) {
    XPoly2D p = Poly({{{0, 0}, 0.5}, {{10, 0}, -0.3}, {{10, 10}, 0}}, 0);
    XPoly2D r = p;
    ASSERT_EQ(r.Reverse(), RTNORM);
    EXPECT_TRUE(Near(*r.Vertex(0), XPoint(10, 10)));
    EXPECT_NEAR(r.Angle(1), -0.5, 1e-12);
    r.Reverse();
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(Near(*r.Vertex(i), *p.Vertex(i)));
}

TEST(Split, BothPointsOnOneSegmentGiveOneStretch) {
    XPoly2D p = Poly({{{0, 0}, 0}, {{10, 0}, 0}, {{10, 10}, 0}}, 0);
    XPoly2D a, b;
    ASSERT_EQ(SplitPoly2D(p, XPoint(7, 1), XPoint(3, -1), a, b), RTNORM);
    ASSERT_EQ(a.Count(), 2);
    EXPECT_TRUE(Near(*a.Vertex(0), XPoint(3, 0)));   // b's cut leads on one segment
    EXPECT_TRUE(Near(*a.Vertex(1), XPoint(7, 0)));
}

TEST(Split, AcrossSegmentsAndAround) {
    XPoly2D sq = Square(10);
    XPoly2D a, b;
    ASSERT_EQ(SplitPoly2D(sq, XPoint(5, -1), XPoint(11, 5), a, b), RTNORM);
    ASSERT_EQ(a.Count(), 3);
    EXPECT_TRUE(Near(*a.Vertex(1), XPoint(10, 0)));
    ASSERT_EQ(b.Count(), 5);
    EXPECT_TRUE(Near(*b.Vertex(0), XPoint(10, 5)));
    EXPECT_TRUE(Near(*b.Vertex(4), XPoint(5, 0)));
}

TEST(Split, PointOffEverySegmentFails) {
    XPoly2D p = Poly({{{0, 0}, 0}, {{10, 0}, 0}}, 0);
    XPoly2D a, b;
    EXPECT_EQ(SplitPoly2D(p, XPoint(5, 1), XPoint(20, 0), a, b), RTERROR);
}

TEST(Split, SegmentsBecomeLinesAndArcs) {
    AcArray<void*> out;
    SplitPoly2D(Rounded(), out);
    ASSERT_EQ(out.length(), 8);
    EXPECT_NE(AcDbLine::cast(static_cast<AcRxObject*>(out[0])), nullptr);
    EXPECT_NE(AcDbArc::cast(static_cast<AcRxObject*>(out[1])), nullptr);
    for (int i = 0; i < out.length(); ++i) delete static_cast<AcDbEntity*>(out[i]);
}
