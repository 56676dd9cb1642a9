// Random and degenerate polylines through every operation on them: none may
// crash, hang or read out of bounds (the sanitizer build watches), and what
// comes back from finite input is finite.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

#include "kernel/SplitPoly2D.h"
#include "kernel/XPoly.h"
#include "kernel/XPoly2D.h"
#include "kernel/XPolygonEx.h"
#include "kernel/XTriangle.h"

namespace {
constexpr double kPi = std::numbers::pi;

class RandomPolylines {
public:
    explicit RandomPolylines(unsigned start) : m_rng(start) {}

    // Up to a dozen nodes: coordinates from a small grid (so vertices repeat
    // and edges line up) or anywhere, arcs up to almost a full turn; with
    // `wild`, now and then an infinite, NaN or huge value.
    XPoly2D Next(bool wild) {
        XPoly2D p(static_cast<int>(m_rng() % 2));
        int n = static_cast<int>(m_rng() % 13);
        for (int i = 0; i < n; ++i) {
            XPoint at = m_rng() % 3 ? XPoint(Grid(), Grid()) : XPoint(Any(), Any());
            double angle = m_rng() % 2 ? 0.0 : Uniform(-1.99 * kPi, 1.99 * kPi);
            if (wild && m_rng() % 10 == 0) at.x = Wild();
            if (wild && m_rng() % 10 == 0) angle = Wild();
            p.AppendNode(at, angle);
        }
        return p;
    }
    double Uniform(double lo, double hi) { return std::uniform_real_distribution<double>(lo, hi)(m_rng); }

private:
    double Grid() { return static_cast<double>(m_rng() % 5); }
    double Any() { return Uniform(-100, 100); }
    double Wild() {
        const double kinds[] = {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN(),
                                1e300, -1e300, 1e-300, 1e9 * kPi};
        return kinds[m_rng() % 6];
    }
    std::mt19937 m_rng;
};

bool Finite(const XPoint& p) { return std::isfinite(p.x) && std::isfinite(p.y); }

bool AllFinite(const XPoly& poly) {
    for (int i = 0; i < poly.Count(); ++i)
        if (!Finite(*poly.GetAt(i))) return false;
    return true;
}

bool AllFinite(const XPoly2D& poly) {
    for (int i = 0; i < poly.Count(); ++i)
        if (!Finite(*poly.Vertex(i)) || !std::isfinite(poly.Angle(i))) return false;
    return true;
}

// Everything a polyline offers; `finite` says what the input was.
void Exercise(const XPoly2D& poly, bool finite, RandomPolylines& gen) {
    double d = gen.Uniform(-3, 3);
    XPoly2D out;
    EXPECT_TRUE(poly.Offset(d, out) != RTNORM || !finite || AllFinite(out));
    out.Reset();
    EXPECT_TRUE(poly.QuickOffset(d, out) != RTNORM || !finite || AllFinite(out));

    XPoly2D work = poly;
    work.Compress();
    EXPECT_TRUE(!finite || AllFinite(work));
    work = poly;
    if (work.Reverse() == RTNORM) {
        work.Reverse();
        ASSERT_EQ(work.Count(), poly.Count());
    }

    XPoly flat;
    poly.MapToPolygon(flat, static_cast<int>(gen.Uniform(-4, 64)));
    EXPECT_TRUE(!finite || AllFinite(flat));
    poly.AsOpenPoly1(flat, gen.Uniform(-0.1, 0.5));
    EXPECT_TRUE(!finite || AllFinite(flat));
    poly.MapToPolygon1(flat, 0.05);

    double lo[3], hi[3];
    poly.GetExtend(lo, hi);
    double area = poly.Area() + poly.PathArea() + poly.Distance();
    EXPECT_TRUE(!finite || std::isfinite(area));
    poly.IsSelfIntersect();
    poly.HitTestOnCurve(XPoint(1, 1), 1e-6);
    XPoint at;
    double dir = 0;
    poly.Polar(gen.Uniform(-1, 50), at, &dir);
    XPoly2D copy = poly;
    copy.GetPoint(static_cast<int>(gen.Uniform(0, 2)), gen.Uniform(-1, 50));

    XPoly2D a, b;
    SplitPoly2D(poly, XPoint(1, 0), XPoint(2, 3), a, b);

    XPolygonEx polygon(flat);
    DList<XTriangle> triangles;
    polygon.Trianglize(triangles, 1);
    if (finite) {
        for (int i = 0; i < triangles.Count(); ++i) {
            const XTriangle& t = *triangles.GetAt(i);
            EXPECT_TRUE(Finite(t.pt[0]) && Finite(t.pt[1]) && Finite(t.pt[2]));
        }
    }
}

}  // namespace

TEST(RandomPolylines, FiniteInputGivesFiniteOutput) {
    RandomPolylines gen(7);
    for (int round = 0; round < 1500; ++round) {
        XPoly2D poly = gen.Next(false);
        SCOPED_TRACE(round);
        Exercise(poly, true, gen);
    }
}

TEST(RandomPolylines, InfiniteAndNanValuesNeverCrash) {
    RandomPolylines gen(11);
    for (int round = 0; round < 1500; ++round) {
        XPoly2D poly = gen.Next(true);
        SCOPED_TRACE(round);
        Exercise(poly, false, gen);
    }
}
