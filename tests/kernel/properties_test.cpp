// Invariants over random inputs.
#include <cmath>
#include <numbers>
#include <random>

#include <gtest/gtest.h>

#include "host/test_support.h"
#include "kernel/XCurveSegment.h"
#include "kernel/XPoly.h"
#include "kernel/XPoly2D.h"
#include "kernel/XPushPrec.h"
#include "kernel/bulge.h"
#include "kernel/matrix_routines.h"
#include "kernel/point_position.h"
#include "kernel/shape_relations.h"
#include "kernel/vector_routines.h"
#include "platform/acge.h"
#include "platform/acutads.h"
#include "platform/adsdef.h"
#include "reference/std_angle_loop.h"

namespace {
constexpr double kPi = std::numbers::pi;

class Random {
public:
    double Uniform(double lo, double hi) { return std::uniform_real_distribution<double>(lo, hi)(m_rng); }
    XPoint Point(double extent) { return XPoint(Uniform(-extent, extent), Uniform(-extent, extent), 0); }

private:
    std::mt19937 m_rng{42};
};

// Distance from p to the carrier circle of an arc or to a segment.
double DistanceToCurve(const XPoint& p, const XCurveSegment& s) {
    if (s.GetCurveType() == CurveLine) {
        XLine l = s.GetLine();
        double len = l.Length();
        double t = ((p.x - l.start.x) * (l.end.x - l.start.x) + (p.y - l.start.y) * (l.end.y - l.start.y)) / (len * len);
        t = std::fmax(0.0, std::fmin(1.0, t));
        XPoint f(l.start.x + t * (l.end.x - l.start.x), l.start.y + t * (l.end.y - l.start.y), 0);
        return p.Distance2d(f);
    }
    XArc a = s.GetArc();
    return std::fabs(p.Distance2d(a.center) - a.radius);
}

TEST(Properties, IntersectionPointsLieOnBothCurves) {
    Random r;
    int found = 0;
    for (int trial = 0; trial < 3000; ++trial) {
        XCurveSegment a(r.Point(100), r.Point(100), trial % 3 == 0 ? 0.0 : r.Uniform(-3, 3), 1);
        XCurveSegment b(r.Point(100), r.Point(100), trial % 2 == 0 ? 0.0 : r.Uniform(-3, 3), 1);
        if (a.Length() < 1 || b.Length() < 1) continue;
        XPoint p[2];
        int n = a.Intersection(b, p[0], p[1]);
        if (n > 2) ADD_FAILURE() << "count " << n;
        int written = a.GetCurveType() == CurveLine && b.GetCurveType() == CurveLine ? std::min(n, 1) : n;
        for (int i = 0; i < written; ++i) {
            ++found;
            EXPECT_LT(DistanceToCurve(p[i], a), _distSnap) << trial;
            EXPECT_LT(DistanceToCurve(p[i], b), _distSnap) << trial;
            EXPECT_NE(p[i] & a, 0) << trial;
            EXPECT_NE(p[i] & b, 0) << trial;
        }
    }
    EXPECT_GT(found, 300);
}

TEST(Properties, PathAreaOfACounterClockwiseLoopIsMinusTheShoelaceArea) {
    Random r;
    for (int trial = 0; trial < 300; ++trial) {
        int n = 4 + trial % 20;
        // A polygon star-shaped about the origin, counter-clockwise: one
        // vertex in each of n equal angular slots, so no gap reaches pi.
        std::vector<double> angles;
        for (int i = 0; i < n; ++i) angles.push_back(2 * kPi * (i + r.Uniform(0, 0.9)) / n);
        XPoly2D path(1);
        XPoly poly;
        for (double a : angles) {
            double rad = r.Uniform(1, 50);
            XPoint v(rad * std::cos(a), rad * std::sin(a), 0);
            path.AppendNode(v, 0);
            poly.AppendPoint(v);
        }
        double shoelace = 0;
        for (int i = 0; i < n; ++i) {
            const XPoint& p = *poly.GetAt(i);
            const XPoint& q = *poly.GetAt((i + 1) % n);
            shoelace += p.x * q.y - q.x * p.y;
        }
        shoelace /= 2;
        EXPECT_LE(path.PathArea(), 0);
        EXPECT_NEAR(path.PathArea(), -shoelace, 1e-9 * (1 + std::fabs(shoelace)));
        EXPECT_NEAR(poly.PathArea(), -shoelace, 1e-9 * (1 + std::fabs(shoelace)));
        // Walking the segments in order from vertex 0 gives the same sum.
        XPoint walker = *path.First();
        double walked = 0;
        XCurveSegment s(1);
        for (int i = 0; i < n; ++i) {
            path.Nth(i, s);
            walked += s.PathArea(walker);
        }
        EXPECT_NEAR(walked, -shoelace, 1e-9 * (1 + std::fabs(shoelace)));
        path.Reverse();
        EXPECT_NEAR(path.PathArea(), shoelace, 1e-9 * (1 + std::fabs(shoelace)));
    }
}

TEST(Properties, ArcAreaMatchesItsFlattening) {
    Random r;
    for (int trial = 0; trial < 200; ++trial) {
        XPoly2D p(1);   // a chord closed by an arc of random sweep and sign
        double sweep = r.Uniform(0.2, 2 * kPi - 0.2) * (trial % 2 ? 1 : -1);
        XPoint a = r.Point(50), b = r.Point(50);
        if (a.Distance2d(b) < 1) continue;
        p.AppendNode(a, sweep);
        p.AppendNode(b, 0);
        XPoly fine;
        p.MapToPolygon(fine, 200000);
        EXPECT_NEAR(p.Area(), fine.Area(), 1e-5 * p.Area() + 1e-6) << trial;
        EXPECT_EQ(p.PathArea() < 0, fine.PathArea() < 0) << trial;
    }
}

TEST(Properties, FlatteningKeepsEveryChordWithinTheDeviation) {
    Random r;
    for (int trial = 0; trial < 300; ++trial) {
        double rad = r.Uniform(0.5, 500), dev = r.Uniform(0.001, 2);
        double sweep = r.Uniform(0.05, 2 * kPi - 0.05);
        XPoint c = r.Point(100);
        double start = r.Uniform(0, 2 * kPi);
        XPoint a(c, start, rad), b(c, start + sweep, rad);
        XPoly2D p(0);
        p.AppendNode(a, trial % 2 ? sweep : -sweep);   // run both ways
        p.AppendNode(b, 0);
        if (trial % 2 == 0) {
            p.Reset();
            p.AppendNode(b, -sweep);
            p.AppendNode(a, 0);
        }
        XPoly out;
        p.AsOpenPoly1(out, dev);
        int n = GetCirDivNum(rad, dev);
        ASSERT_GE(out.Count(), 2);
        bool capped = n == 200 || n == 1;
        for (int i = 0; i + 1 < out.Count(); ++i) {
            const XPoint& u = *out.GetAt(i);
            const XPoint& v = *out.GetAt(i + 1);
            XPoint mid((u.x + v.x) / 2, (u.y + v.y) / 2, 0);
            double sagitta = rad - mid.Distance2d(c);
            EXPECT_NEAR(u.Distance2d(c), rad, 1e-6 * rad);
            // The steps come from a whole-circle count, truncated per arc:
            // a chord may span up to twice the planned angle.
            if (!capped) {
                EXPECT_LE(sagitta, 4 * dev + 1e-9) << trial;
            }
        }
        EXPECT_LT(out.Last()->Distance2d(p.Vertex(1) ? *p.Vertex(1) : XPoint()), 1e-6 * rad + 1e-9);
    }
}

TEST(Properties, WholeCirclesFlattenWithinTheDeviation) {
    Random r;
    for (int trial = 0; trial < 200; ++trial) {
        double rad = r.Uniform(1, 100), dev = r.Uniform(0.01, 0.5);
        if (GetCirDivNum(rad, dev) >= 200) continue;
        XPoly2D disc(1);
        disc.AppendNode(XPoint(rad, 0, 0), kPi);
        disc.AppendNode(XPoint(-rad, 0, 0), kPi);
        XPoly out;
        disc.MapToPolygon1(out, dev);
        int n = out.Count();
        for (int i = 0; i < n; ++i) {
            const XPoint& u = *out.GetAt(i);
            const XPoint& v = *out.GetAt((i + 1) % n);
            double sagitta = rad - XPoint((u.x + v.x) / 2, (u.y + v.y) / 2, 0).Distance2d(XPoint());
            EXPECT_LE(sagitta, 2 * dev + 1e-9) << trial;
        }
    }
}

TEST(Properties, BulgeRoundTrips) {
    Random r;
    for (int trial = 0; trial < 2000; ++trial) {
        double b = r.Uniform(-20, 20);
        EXPECT_NEAR(AngleToBulge(BulgeToAngle(b)), b, 1e-9 * (1 + b * b));
        double a = r.Uniform(-2 * kPi + 1e-3, 2 * kPi - 1e-3);
        EXPECT_NEAR(BulgeToAngle(AngleToBulge(a)), std::fabs(AngleToBulge(a)) < kBulgeZero ? 0.0 : a, 1e-12);
    }
    EXPECT_EQ(BulgeToAngle(9.99e-7), 0.0);
    EXPECT_EQ(BulgeToAngle(-9.99e-7), 0.0);
    EXPECT_NE(BulgeToAngle(1e-6), 0.0);
    EXPECT_NEAR(BulgeToAngle(1), kPi, 1e-15);
    EXPECT_NEAR(AngleToBulge(-kPi), -1, 1e-15);
}

TEST(Properties, StdAngleFoldMatchesTheLoop) {
    Random r;
    for (int trial = 0; trial < 20000; ++trial) {
        double a = r.Uniform(-200, 200);
        if (trial % 4 == 0) a = std::round(a / (2 * kPi)) * 2 * kPi + r.Uniform(-0.01, 0.01);   // near the edges
        double fast = CT_std_angle(a), slow = reference::StdAngleLoop(a);
        // The two may pick neighbouring windows only where a turn lands within
        // a rounding step of the window's edge.
        if (std::fabs(fast - slow) > 1e-9) {
            EXPECT_NEAR(std::fabs(fast - slow), 2 * kPi, 1e-9) << a;
        }
        EXPECT_GE(fast, -0.001 - 1e-12);
        EXPECT_LE(fast, 2 * kPi + 0.001 + 1e-12);
    }
}

TEST(Properties, PointInPolygonAgreesBetweenTheTwoCounters) {
    Random r;
    int inside = 0, grazed = 0;
    for (int trial = 0; trial < 3000; ++trial) {
        int n = 3 + trial % 12;
        std::vector<double> angles;
        for (int i = 0; i < n; ++i) angles.push_back(r.Uniform(0, 2 * kPi));
        std::sort(angles.begin(), angles.end());   // a simple polygon, of either winding
        XPoly poly;
        XPoly2D path(1);
        for (double a : angles) {
            XPoint v(XPoint(), a, r.Uniform(5, 50));
            poly.AppendPoint(v);
            path.AppendNode(v, 0);
        }
        for (int k = 0; k < 20; ++k) {
            XPoint p = r.Point(60);
            CaptureOutput out;
            int a = p & poly, b = p & path;
            // A ray through a vertex confuses the polygon's counter: it says
            // so, or counts a vertex that the ray only touches once. The
            // polyline's counter turns its ray instead.
            // Its tolerance bands near a vertex are not consistent between
            // the two edges that meet there, so a ray passing a few _distSnap
            // from a vertex is left out too.
            double dir = acutAngle(XPoint(), *poly.First()) + 0.11 * kPi;
            bool touches = false;
            for (const XPoint& v : poly) {
                double dx = v.x - p.x, dy = v.y - p.y;
                double along = dx * std::cos(dir) + dy * std::sin(dir);
                double across = std::fabs(-dx * std::sin(dir) + dy * std::cos(dir));
                if (along > -0.1 && across < 5 * _distSnap) touches = true;
            }
            if (touches || !out.Text().empty()) {
                ++grazed;
                continue;
            }
            // Away from the outline both agree.
            bool nearEdge = false;
            for (int i = 0; i < n; ++i) {
                XLine e(1);
                poly.NthLine(i, e);
                XCurveSegment s(e.start, e.end, 0, 1);
                if (DistanceToCurve(p, s) < 0.1) nearEdge = true;
            }
            if (nearEdge) continue;
            EXPECT_EQ(a, b) << trial << " " << k;
            if (a == 3) ++inside;
        }
    }
    EXPECT_GT(inside, 100);
    EXPECT_LT(grazed, 600);   // of some 50,000 points
}

TEST(Properties, KernelMatricesAgreeWithTheHostMatrix) {
    Random r;
    for (int trial = 0; trial < 300; ++trial) {
        double ang = r.Uniform(-7, 7), sx = r.Uniform(0.1, 5), sy = r.Uniform(0.1, 5), sz = r.Uniform(0.1, 5);
        XPoint base = r.Point(50), ins = r.Point(50);
        double m[4][4];
        ConstructMatrix(base, ins, sx, sy, sz, ang, m);
        AcGeMatrix3d s;
        s.entry[0][0] = sx;
        s.entry[1][1] = sy;
        s.entry[2][2] = sz;
        AcGeMatrix3d ge = AcGeMatrix3d::translation(ins.AsAcGeVector3d()) *
                          AcGeMatrix3d::rotation(ang, AcGeVector3d::kZAxis) * s *
                          AcGeMatrix3d::translation(-base.AsAcGeVector3d());
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) EXPECT_NEAR(m[i][j], ge.entry[i][j], 1e-9);
        double inv[4][4];
        ASSERT_EQ(AT_amatrix(m, inv), RTNORM);
        AcGeMatrix3d gi = ge.inverse();
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) EXPECT_NEAR(inv[i][j], gi.entry[i][j], 1e-7 * (1 + std::fabs(gi.entry[i][j])));
        EXPECT_NEAR(ge.det(), sx * sy * sz, 1e-9 * sx * sy * sz);
    }
}
}  // namespace
