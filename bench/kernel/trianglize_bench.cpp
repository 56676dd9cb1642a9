// Triangulation of star-shaped polygons and of combs with deep notches, and
// the offset of polylines with arcs.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include "kernel/XPoly2D.h"
#include "kernel/XPoly2D_offset.h"
#include "kernel/XPolygonEx.h"

namespace {
constexpr double kPi = std::numbers::pi;

XPolygonEx StarPolygon(int n) {
    std::mt19937 rng(42);
    std::uniform_real_distribution<double> ang(0.0, 2 * kPi), rad(50.0, 100.0);
    std::vector<double> a(n);
    for (double& x : a) x = ang(rng);
    std::sort(a.begin(), a.end());
    XPolygonEx p;
    for (double x : a) {
        double r = rad(rng);
        p.AppendNode(XPoint(r * std::cos(x), r * std::sin(x)), 1);
    }
    return p;
}

// Teeth of width 1 and depth 100 over a base, counter-clockwise.
XPolygonEx Comb(int n) {
    int teeth = std::max(1, (n - 2) / 4);
    XPolygonEx p;
    p.AppendNode(XPoint(0, -10), 1);
    p.AppendNode(XPoint(2.0 * teeth, -10), 1);
    for (int t = teeth - 1; t >= 0; --t) {
        double x = 2.0 * t;
        p.AppendNode(XPoint(x + 1.6, 100.3), 1);
        p.AppendNode(XPoint(x + 0.4, 100.1), 1);
        p.AppendNode(XPoint(x + 0.3, 0.2), 1);
        p.AppendNode(XPoint(x - 0.3, 0.1), 1);
    }
    return p;
}

void Run(benchmark::State& state, const XPolygonEx& poly) {
    for (auto _ : state) {
        DList<XTriangle> out;
        poly.Trianglize(out, 1);
        benchmark::DoNotOptimize(out.Count());
    }
    state.SetComplexityN(poly.Count());
}

void BM_TrianglizeStar(benchmark::State& state) { Run(state, StarPolygon(static_cast<int>(state.range(0)))); }
void BM_TrianglizeComb(benchmark::State& state) { Run(state, Comb(static_cast<int>(state.range(0)))); }

void BM_OffsetWithArcs(benchmark::State& state) {
    int n = static_cast<int>(state.range(0));
    XPoly2D p(1);
    for (int i = 0; i < n; ++i) {
        double a = 2 * kPi * i / n;
        p.AppendNode(XPoint(100 * std::cos(a), 100 * std::sin(a)), i % 2 ? 0.2 : 0.0);
    }
    for (auto _ : state) {
        XPoly2D out;
        benchmark::DoNotOptimize(OffsetPoly2D(p, 1.5, out));
    }
    state.SetComplexityN(n);
}
}  // namespace

BENCHMARK(BM_TrianglizeStar)->RangeMultiplier(10)->Range(100, 100000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(BM_TrianglizeComb)->RangeMultiplier(10)->Range(100, 100000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(BM_OffsetWithArcs)->RangeMultiplier(10)->Range(100, 100000)->Unit(benchmark::kMillisecond)->Complexity();
