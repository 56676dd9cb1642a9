// Intersections, point-in-polyline and flattening.
#include <cmath>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "host/ads/output.h"

#include "kernel/XCurveSegment.h"
#include "kernel/XPoly.h"
#include "kernel/XPoly2D.h"
#include "kernel/shape_relations.h"
#include "platform/acdbads.h"

namespace {
constexpr double kPi = std::numbers::pi;

std::vector<XCurveSegment> RandomSegments(int n, bool arcs) {
    std::mt19937 rng(42);
    std::uniform_real_distribution<double> coord(-100, 100), sweep(0.2, 3);
    std::vector<XCurveSegment> out;
    for (int i = 0; i < n; ++i)
        out.emplace_back(XPoint(coord(rng), coord(rng), 0), XPoint(coord(rng), coord(rng), 0), arcs ? sweep(rng) : 0.0, 1);
    return out;
}

// A wavy closed outline of n nodes, every other segment an arc.
XPoly2D Outline(int n) {
    XPoly2D p(1);
    for (int i = 0; i < n; ++i) {
        double a = 2 * kPi * i / n;
        double r = 100 + 10 * std::sin(7 * a);
        p.AppendNode(XPoint(r * std::cos(a), r * std::sin(a), 0), i % 2 ? 0.0 : 0.01);
    }
    return p;
}

void BM_LineLineIntersection(benchmark::State& state) {
    auto segs = RandomSegments(1024, false);
    XPoint p;
    size_t i = 0;
    for (auto _ : state) {
        const XCurveSegment& a = segs[i & 1023];
        const XCurveSegment& b = segs[(i * 7 + 3) & 1023];
        benchmark::DoNotOptimize(a.XLine::Intersection(b.GetLine(), p));
        ++i;
    }
}
BENCHMARK(BM_LineLineIntersection);

void BM_LineArcIntersection(benchmark::State& state) {
    auto lines = RandomSegments(1024, false);
    auto arcs = RandomSegments(1024, true);
    XPoint a, b;
    size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(lines[i & 1023].Intersection(arcs[(i * 7 + 3) & 1023], a, b));
        ++i;
    }
}
BENCHMARK(BM_LineArcIntersection);

void BM_ArcArcIntersection(benchmark::State& state) {
    auto arcs = RandomSegments(1024, true);
    XPoint a, b;
    size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(arcs[i & 1023].Intersection(arcs[(i * 7 + 3) & 1023], a, b));
        ++i;
    }
}
BENCHMARK(BM_ArcArcIntersection);

void BM_PointInPoly2D(benchmark::State& state) {
    XPoly2D outline = Outline(static_cast<int>(state.range(0)));
    std::mt19937 rng(42);
    std::uniform_real_distribution<double> coord(-120, 120);
    std::vector<XPoint> probes;
    for (int i = 0; i < 64; ++i) probes.emplace_back(coord(rng), coord(rng), 0);
    size_t i = 0;
    for (auto _ : state) benchmark::DoNotOptimize(probes[i++ & 63] & outline);
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_PointInPoly2D)->RangeMultiplier(10)->Range(10, 100000)->Complexity(benchmark::oN);

void BM_PointInPoly(benchmark::State& state) {
    XPoly2D outline = Outline(static_cast<int>(state.range(0)));
    XPoly poly;
    outline.MapToPolygon(poly, 36);
    XPoint probe(3, 4, 0);
    // Dense outlines put vertices on the ray; the counter reports each one.
    std::string reports;
    lumo::host::BeginCapture(&reports);
    for (auto _ : state) {
        benchmark::DoNotOptimize(probe & poly);
        reports.clear();
    }
    lumo::host::EndCapture();
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_PointInPoly)->RangeMultiplier(10)->Range(10, 100000)->Complexity(benchmark::oN);

void BM_MapToPolygon1(benchmark::State& state) {
    XPoly2D outline = Outline(static_cast<int>(state.range(0)));
    for (int i = 0; i < outline.Count(); i += 2) outline.SetAngle(i, 1.0);
    XPoly out;
    for (auto _ : state) {
        outline.MapToPolygon1(out, 0.01);
        benchmark::DoNotOptimize(out.Count());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_MapToPolygon1)->RangeMultiplier(10)->Range(10, 100000)->Complexity(benchmark::oN);

void BM_PathArea(benchmark::State& state) {
    XPoly2D outline = Outline(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(outline.PathArea());
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_PathArea)->RangeMultiplier(10)->Range(10, 100000)->Complexity(benchmark::oN);
}  // namespace

namespace {
// A LWPOLYLINE of n nodes in a fresh drawing, read back into a bulge
// polyline; and the other way, a bulge polyline made into a new entity.
void BM_Poly2DFromEntity(benchmark::State& state) {
    XPoly2D outline = Outline(static_cast<int>(state.range(0)));
    if (outline.Make(nullptr) != RTNORM) {
        state.SkipWithError("the polyline was not made");
        return;
    }
    ads_name name;
    acdbEntLast(name);
    for (auto _ : state) {
        XPoly2D back(name);
        benchmark::DoNotOptimize(back.Count());
    }
    acdbEntDel(name);
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_Poly2DFromEntity)->RangeMultiplier(10)->Range(10, 100000)->Complexity(benchmark::oN);

void BM_Poly2DToEntity(benchmark::State& state) {
    XPoly2D outline = Outline(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(outline.Make(nullptr));
        state.PauseTiming();
        ads_name name;
        acdbEntLast(name);
        acdbEntDel(name);
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_Poly2DToEntity)->RangeMultiplier(10)->Range(10, 100000)->Complexity(benchmark::oN);
}  // namespace
