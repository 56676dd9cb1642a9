// Triangulation of polygons with edge visibility: the method's cases, the
// invariants on random simple polygons with and without holes, and the fast
// triangulator against the plain one.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "kernel/XPolygonEx.h"
#include "kernel/XPushPrec.h"
#include "reference/plain_trianglize.h"

namespace {
constexpr double kPi = std::numbers::pi;

XPolygonEx Polygon(const std::vector<XPoint>& pts, const std::vector<int>& vis = {}) {
    XPolygonEx p;
    for (size_t i = 0; i < pts.size(); ++i) p.AppendNode(pts[i], vis.empty() ? 1 : vis[i]);
    return p;
}

double TriangleArea(const XTriangle& t) {
    return std::fabs((t.pt[1].x - t.pt[0].x) * (t.pt[2].y - t.pt[0].y) -
                     (t.pt[2].x - t.pt[0].x) * (t.pt[1].y - t.pt[0].y)) / 2.0;
}

double Area(const DList<XTriangle>& tris) {
    double s = 0.0;
    for (const XTriangle& t : tris) s += TriangleArea(t);
    return s;
}

std::vector<XTriangle> Triangulate(const XPolygonEx& p) {
    DList<XTriangle> out;
    EXPECT_EQ(p.Trianglize(out, 1), RTNORM);
    std::vector<XTriangle> v;
    for (const XTriangle& t : out) v.push_back(t);
    return v;
}

// A random star-shaped polygon, counter-clockwise, whose corners keep away
// from straight and from spikes.
std::vector<XPoint> Star(std::mt19937& rng, int n, double rmin, double rmax, XPoint c = {}, double turn = 0.05) {
    std::uniform_real_distribution<double> ang(0.0, 2.0 * kPi), rad(rmin, rmax);
    for (;;) {
        std::vector<double> a(n);
        for (double& x : a) x = ang(rng);
        std::sort(a.begin(), a.end());
        std::vector<XPoint> pts;
        for (double x : a) {
            double r = rad(rng);
            pts.emplace_back(c.x + r * std::cos(x), c.y + r * std::sin(x), 0.0);
        }
        bool ok = true;
        for (int i = 0; i < n && ok; ++i) {
            double t = CornerAngle(pts[(i + n - 1) % n], pts[i], pts[(i + 1) % n]);
            ok = std::fabs(t - kPi) > turn && t > turn && t < 2 * kPi - turn &&
                 pts[i].Distance(pts[(i + 1) % n]) > 0.1;
        }
        if (ok) return pts;
    }
}

// A small convex polygon, counter-clockwise: a regular one, jittered.
std::vector<XPoint> Convex(std::mt19937& rng, int n, double r, XPoint c) {
    std::uniform_real_distribution<double> jitter(-0.2, 0.2), grow(0.0, 0.05);
    std::vector<XPoint> pts;
    for (int i = 0; i < n; ++i) {
        double a = (i + jitter(rng)) * 2.0 * kPi / n;
        double rr = r * (1.0 + grow(rng));
        pts.emplace_back(c.x + rr * std::cos(a), c.y + rr * std::sin(a), 0.0);
    }
    return pts;
}

using Edge = std::pair<std::pair<double, double>, std::pair<double, double>>;
Edge Key(const XPoint& a, const XPoint& b) {
    auto pa = std::make_pair(a.x, a.y), pb = std::make_pair(b.x, b.y);
    return pa < pb ? Edge{pa, pb} : Edge{pb, pa};
}

std::multiset<Edge> VisibleEdges(const std::vector<XTriangle>& tris) {
    std::multiset<Edge> s;
    for (const XTriangle& t : tris) {
        if (!(t.flags & 1)) s.insert(Key(t.pt[2], t.pt[1]));
        if (!(t.flags & 2)) s.insert(Key(t.pt[1], t.pt[0]));
        if (!(t.flags & 4)) s.insert(Key(t.pt[0], t.pt[2]));
    }
    return s;
}

std::multiset<Edge> Ring(const std::vector<XPoint>& pts) {
    std::multiset<Edge> s;
    for (size_t i = 0; i < pts.size(); ++i) s.insert(Key(pts[i], pts[(i + 1) % pts.size()]));
    return s;
}

double RingArea(const std::vector<XPoint>& pts) {
    double s = 0.0;
    for (size_t i = 0; i < pts.size(); ++i) {
        const XPoint &a = pts[i], &b = pts[(i + 1) % pts.size()];
        s += a.x * b.y - b.x * a.y;
    }
    return std::fabs(s) / 2.0;
}

// Equal, or both not a number.
bool Same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

bool SameTriangles(const DList<XTriangle>& a, const DList<XTriangle>& b) {
    if (a.Count() != b.Count()) return false;
    auto ia = a.begin();
    for (const XTriangle& t : b) {
        if (ia->flags != t.flags) return false;
        for (int k = 0; k < 3; ++k)
            if (!Same(ia->pt[k].x, t.pt[k].x) || !Same(ia->pt[k].y, t.pt[k].y) || !Same(ia->pt[k].z, t.pt[k].z))
                return false;
        ++ia;
    }
    return true;
}

// A comb of `teeth` deep notches over a base, counter-clockwise, with
// jittered widths and depths, teeth leaning by `lean`, then turned by `turn`
// and scaled, so the grid of edges sees thin, long and slanted cells.
std::vector<XPoint> Comb(std::mt19937& rng, int teeth, double lean, double turn, double scale) {
    std::uniform_real_distribution<double> jitter(-0.05, 0.05), depth(60.0, 100.0);
    std::vector<XPoint> pts;
    pts.emplace_back(0.0, -10.0, 0.0);
    pts.emplace_back(2.0 * teeth, -10.0, 0.0);
    for (int t = teeth - 1; t >= 0; --t) {
        double x = 2.0 * t, d = depth(rng);
        pts.emplace_back(x + 1.6 + jitter(rng) + lean * d, d + 0.3, 0.0);
        pts.emplace_back(x + 0.4 + jitter(rng) + lean * d, d + 0.1, 0.0);
        pts.emplace_back(x + 0.3 + jitter(rng), 0.2 + jitter(rng), 0.0);
        pts.emplace_back(x - 0.3 + jitter(rng), 0.1 + jitter(rng), 0.0);
    }
    double c = std::cos(turn), sn = std::sin(turn);
    for (XPoint& p : pts) p = XPoint(scale * (c * p.x - sn * p.y), scale * (sn * p.x + c * p.y), 0.0);
    return pts;
}

// A star-shaped ring of n vertices at jittered, evenly spread angles, with
// no care for straight corners.
std::vector<XPoint> JitteredRing(std::mt19937& rng, int n) {
    std::uniform_real_distribution<double> jitter(0.0, 0.8), rad(20.0, 100.0);
    std::vector<XPoint> pts;
    for (int i = 0; i < n; ++i) {
        double a = (i + jitter(rng)) * 2.0 * kPi / n, r = rad(rng);
        pts.emplace_back(r * std::cos(a), r * std::sin(a), 0.0);
    }
    return pts;
}

std::vector<int> RandomFlags(std::mt19937& rng, size_t n) {
    std::vector<int> vis;
    for (size_t i = 0; i < n; ++i) vis.push_back(rng() % 4 ? 1 : 0);
    return vis;
}

// The fast triangulator and the plain method on the same polygon.
void ExpectSameAsPlain(const std::vector<XPoint>& pts, const std::vector<int>& vis, const std::string& what) {
    XPolygonEx fast = Polygon(pts, vis), plain = Polygon(pts, vis);
    DList<XTriangle> a, b;
    fast._Trianglize(a);
    reference::PlainTrianglize(plain, b);
    ASSERT_TRUE(SameTriangles(a, b)) << what << ": " << a.Count() << " vs " << b.Count();
    EXPECT_EQ(fast.Count(), plain.Count()) << what;
}
}  // namespace

TEST(Trianglize, TriangleGivesOneWithItsEdgeFlags) {
    auto t = Triangulate(Polygon({{0, 0}, {10, 0}, {0, 10}}, {1, 0, 1}));
    ASSERT_EQ(t.size(), 1u);
    EXPECT_EQ(t[0].flags, 2);   // edge 1 hidden: corner 1 to corner 0 of the reversed triangle
    EXPECT_EQ(t[0].pt[0].y, 10.0);
    EXPECT_EQ(t[0].pt[2].x, 0.0);
}

TEST(Trianglize, ConvexPolygonFansFromVertexZero) {
    std::vector<XPoint> hex;
    for (int i = 0; i < 6; ++i) hex.emplace_back(10 * std::cos(i * kPi / 3), 10 * std::sin(i * kPi / 3), 0);
    auto t = Triangulate(Polygon(hex));
    ASSERT_EQ(t.size(), 4u);
    for (const XTriangle& tri : t) EXPECT_EQ(tri.pt[2].x, hex[0].x);
    EXPECT_EQ(VisibleEdges(t), Ring(hex));
}

TEST(Trianglize, LShapeStaysInside) {
    std::vector<XPoint> l = {{0, 0}, {20, 0}, {20, 10}, {10, 10}, {10, 20}, {0, 20}};
    auto t = Triangulate(Polygon(l));
    ASSERT_EQ(t.size(), 4u);
    DList<XTriangle> all;
    double sum = 0.0;
    for (const XTriangle& tri : t) {
        sum += TriangleArea(tri);
        XPoint c((tri.pt[0].x + tri.pt[1].x + tri.pt[2].x) / 3, (tri.pt[0].y + tri.pt[1].y + tri.pt[2].y) / 3);
        EXPECT_FALSE(c.x > 10 && c.y > 10) << "centroid outside the L";
    }
    EXPECT_NEAR(sum, 300.0, 1e-9);
}

TEST(Trianglize, StraightCornerGoesOnlyBetweenEqualFlags) {
    auto same = Triangulate(Polygon({{0, 0}, {5, 0}, {10, 0}, {10, 10}, {0, 10}}));
    EXPECT_EQ(same.size(), 2u);
    auto mixed = Triangulate(Polygon({{0, 0}, {5, 0}, {10, 0}, {10, 10}, {0, 10}}, {1, 0, 1, 1, 1}));
    EXPECT_EQ(mixed.size(), 3u);
}

TEST(Trianglize, ClockwiseGivesTheTrianglesOfItsReversal) {
    std::vector<XPoint> l = {{0, 0}, {20, 0}, {20, 10}, {10, 10}, {10, 20}, {0, 20}};
    XPolygonEx ccw = Polygon(l), cw = Polygon(l);
    cw.Reverse();
    cw.Reverse();
    XPolygonEx rev = Polygon(l);
    rev.Reverse();
    DList<XTriangle> a, b;
    ccw.Trianglize(a, 1);
    XPolygonEx back = rev;
    back.Reverse();
    back.Trianglize(b, 1);
    EXPECT_TRUE(SameTriangles(a, b));
    DList<XTriangle> c;
    rev.Trianglize(c, 1);
    EXPECT_EQ(c.Count(), a.Count());
    EXPECT_NEAR(Area(c), Area(a), 1e-9);
}

TEST(Trianglize, SpikeAndDuplicatesAreDropped) {
    auto t = Triangulate(Polygon({{0, 0}, {10, 0}, {10, 0.001}, {10, 10}, {15, 10}, {10, 10}, {0, 10}}));
    EXPECT_EQ(t.size(), 2u);
    double s = 0.0;
    for (const XTriangle& tri : t) s += TriangleArea(tri);
    EXPECT_NEAR(s, 100.0 - 0.005, 1e-9);   // the first of two coincident vertices goes
}

TEST(Trianglize, FewerThanThreeVerticesGiveNothing) {
    DList<XTriangle> out;
    EXPECT_EQ(Polygon({{0, 0}, {1, 1}}).Trianglize(out, 1), RTNORM);
    EXPECT_EQ(out.Count(), 0);
    EXPECT_EQ(Polygon({{0, 0}, {1, 1}}).Trianglize(out, 0), RTERROR);   // no normal
}

TEST(Trianglize, NonPlanarPathMatchesPlanarInTheXYPlane) {
    std::vector<XPoint> l = {{0, 0}, {20, 0}, {20, 10}, {10, 10}, {10, 20}, {0, 20}};
    DList<XTriangle> a, b;
    Polygon(l).Trianglize(a, 1);
    Polygon(l).Trianglize(b, 0);
    ASSERT_EQ(a.Count(), b.Count());
    EXPECT_NEAR(Area(a), Area(b), 1e-9);
}

TEST(ConnectPolygon, SquareAndIslandGiveBothCountsPlusTwo) {
    XPolygonEx outer = Polygon({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    XPolygonEx hole = Polygon({{4, 4}, {4, 6}, {6, 6}, {6, 4}});
    XPolygonEx out;
    EXPECT_EQ(ConnectPolygon(outer, hole, out), RTNORM);
    EXPECT_EQ(out.Count(), 10);
    // Four pairs tie; the first found stays.
    EXPECT_TRUE(*out[0] == XPoint(0, 0));
    EXPECT_TRUE(*out[4] == XPoint(0, 0));
    EXPECT_TRUE(*out[5] == XPoint(4, 4));
    EXPECT_EQ(out.IsVisible(3), 1);
    EXPECT_EQ(out.IsVisible(4), 0);
    EXPECT_EQ(out.IsVisible(9), 0);
    auto t = Triangulate(out);
    EXPECT_EQ(t.size(), 8u + 2u - 2u);
    double s = 0.0;
    for (const XTriangle& tri : t) s += TriangleArea(tri);
    EXPECT_NEAR(s, 96.0, 1e-9);
}

// With the angle tolerance as fine as this, no corner made along the way is
// dropped as straight, so the count and the area are exact.
constexpr double kFineAngle = 1e-9;

TEST(TrianglizeProperty, StarPolygonsCoverTheirAreaWithVisibleOriginalEdges) {
    XPushPrec fine(_distSnap, kFineAngle);
    std::mt19937 rng(42);
    for (int round = 0; round < 150; ++round) {
        int n = 3 + static_cast<int>(rng() % 60);
        auto pts = Star(rng, n, 20.0, 100.0);
        auto t = Triangulate(Polygon(pts));
        ASSERT_EQ(static_cast<int>(t.size()), n - 2) << "round " << round;
        double sum = 0.0;
        for (const XTriangle& tri : t) {
            EXPECT_GT(TriangleArea(tri), 1e-9);
            sum += TriangleArea(tri);
        }
        double area = RingArea(pts);
        EXPECT_NEAR(sum, area, 1e-9 * area) << "round " << round;
        EXPECT_EQ(VisibleEdges(t), Ring(pts)) << "round " << round;
    }
}

TEST(TrianglizeProperty, StarPolygonsWithAHoleGiveTwoMoreTriangles) {
    XPushPrec fine(_distSnap, kFineAngle);
    std::mt19937 rng(42);
    for (int round = 0; round < 100; ++round) {
        // Convex rings: the method tests crossings only and fans what has no
        // ear, so a hole among deep notches may be swallowed by an ear.
        int n = 8 + static_cast<int>(rng() % 40), m = 3 + static_cast<int>(rng() % 12);
        auto outer = Convex(rng, n, 100.0, XPoint(0.37, -0.21));
        auto inner = Convex(rng, m, 50.0, XPoint(1.13, 0.71));
        XPolygonEx hole = Polygon(inner);
        hole.Reverse();
        XPolygonEx merged;
        ConnectPolygon(Polygon(outer), hole, merged);
        auto t = Triangulate(merged);
        ASSERT_EQ(static_cast<int>(t.size()), n + m - 2 + 2) << "round " << round;
        double sum = 0.0;
        for (const XTriangle& tri : t) sum += TriangleArea(tri);
        double area = RingArea(outer) - RingArea(inner);
        EXPECT_NEAR(sum, area, 1e-9 * area) << "round " << round;
        auto ring = Ring(outer);
        for (const Edge& e : Ring(inner)) ring.insert(e);
        EXPECT_EQ(VisibleEdges(t), ring) << "round " << round;
    }
}

// At the default tolerance corners that come near straight on the way are
// dropped with their slivers: fewer triangles, never more, and a little area.
TEST(TrianglizeProperty, DefaultToleranceDropsOnlySlivers) {
    std::mt19937 rng(42);
    for (int round = 0; round < 100; ++round) {
        int n = 3 + static_cast<int>(rng() % 60);
        auto pts = Star(rng, n, 20.0, 100.0);
        auto t = Triangulate(Polygon(pts));
        EXPECT_LE(static_cast<int>(t.size()), n - 2);
        EXPECT_GE(static_cast<int>(t.size()), n - 2 - n / 4);
        double sum = 0.0;
        for (const XTriangle& tri : t) sum += TriangleArea(tri);
        double area = RingArea(pts);
        EXPECT_NEAR(sum, area, area * 0.02);
    }
}

// The fast triangulator against the plain method, on star polygons, random
// point clouds (self-crossing, so the backward search and the fan run),
// collinear runs, duplicates and spikes, with random flags.
TEST(TrianglizeProperty, FastMatchesThePlainMethodExactly) {
    std::mt19937 rng(42);
    std::uniform_real_distribution<double> coord(-50.0, 50.0);
    std::uniform_int_distribution<int> grid(-4, 4);
    for (int round = 0; round < 600; ++round) {
        int n = 3 + static_cast<int>(rng() % 40);
        std::vector<XPoint> pts;
        switch (round % 4) {
        case 0: pts = Star(rng, n, 10.0, 100.0); break;
        case 1:
            for (int i = 0; i < n; ++i) pts.emplace_back(coord(rng), coord(rng), 0.0);
            break;
        case 2:   // snapped to a coarse grid: straight corners, repeats, spikes
            for (int i = 0; i < n; ++i) pts.emplace_back(grid(rng) * 5.0, grid(rng) * 5.0, 0.0);
            break;
        default: {
            auto s = Star(rng, n, 10.0, 100.0);
            for (const XPoint& p : s) {
                pts.push_back(p);
                if (rng() % 3 == 0) pts.push_back(p);   // a coincident neighbour
            }
            break;
        }
        }
        ExpectSameAsPlain(pts, RandomFlags(rng, pts.size()), "round " + std::to_string(round));
    }
}

// Combs cut ear after ear between long edges; at small scales the snapping
// distance spans many cells and corners turn into spikes and straights.
TEST(TrianglizeProperty, FastMatchesThePlainMethodOnCombs) {
    std::mt19937 rng(42);
    std::uniform_real_distribution<double> lean(-0.3, 0.3), turn(0.0, 2.0 * kPi), scale(-1.5, 3.0);
    for (int round = 0; round < 60; ++round) {
        int teeth = 4 + static_cast<int>(rng() % 50);
        double l = round % 3 ? lean(rng) : 0.0, t = round % 2 ? turn(rng) : 0.0;
        auto pts = Comb(rng, teeth, l, t, std::pow(10.0, scale(rng)));
        ExpectSameAsPlain(pts, RandomFlags(rng, pts.size()), "comb " + std::to_string(round));
    }
}

// Hundreds of vertices: stars, and clouds whose edges cross everywhere, so
// most diagonals are blocked and asked again as edges go.
TEST(TrianglizeProperty, FastMatchesThePlainMethodOnLargerPolygons) {
    std::mt19937 rng(42);
    std::uniform_real_distribution<double> coord(-50.0, 50.0);
    for (int round = 0; round < 24; ++round) {
        std::vector<XPoint> pts;
        if (round % 2 == 0) {
            pts = JitteredRing(rng, 100 + static_cast<int>(rng() % 200));
        } else {
            int n = 40 + static_cast<int>(rng() % 80);
            for (int i = 0; i < n; ++i) pts.emplace_back(coord(rng), coord(rng), 0.0);
        }
        ExpectSameAsPlain(pts, RandomFlags(rng, pts.size()), "round " + std::to_string(round));
    }
}

// A snapping distance larger than the polygon's features.
TEST(TrianglizeProperty, FastMatchesThePlainMethodUnderACoarseSnap) {
    std::mt19937 rng(42);
    for (int round = 0; round < 20; ++round) {
        XPushPrec prec(round % 2 ? 0.5 : 2.0, 0.01);
        auto pts = round % 2 ? JitteredRing(rng, 60 + static_cast<int>(rng() % 60))
                             : Comb(rng, 10 + static_cast<int>(rng() % 20), 0.1, 0.3, 1.0);
        ExpectSameAsPlain(pts, RandomFlags(rng, pts.size()), "round " + std::to_string(round));
    }
}

// A coordinate that is not a number or infinite ends in the plain scan of
// every edge, with the plain method's triangles.
TEST(TrianglizeProperty, FastMatchesThePlainMethodWithNonFiniteCoordinates) {
    std::mt19937 rng(42);
    const double bad[] = {std::nan(""), std::numeric_limits<double>::infinity(), -1e308 * 10};
    for (int round = 0; round < 9; ++round) {
        auto pts = JitteredRing(rng, 30);
        XPoint& p = pts[rng() % pts.size()];
        (round % 3 == 0 ? p.x : round % 3 == 1 ? p.y : p.z) = bad[round / 3];
        ExpectSameAsPlain(pts, RandomFlags(rng, pts.size()), "round " + std::to_string(round));
    }
}
