// Triangulation of star-shaped polygons and of combs with deep notches, and
// the offset of polylines with arcs.
#include <benchmark/benchmark.h>

#include "bench/kernel/bench_shapes.h"
#include "kernel/XPoly2D.h"
#include "kernel/XPoly2D_offset.h"
#include "kernel/XPolygonEx.h"
#include "platform/adsdef.h"

namespace {
void Run(benchmark::State& state, const XPolygonEx& poly) {
    int expected = poly.Count() - 2;
    int made = 0;
    for (auto _ : state) {
        DList<XTriangle> out;
        poly.Trianglize(out, 1);
        made = out.Count();
        benchmark::DoNotOptimize(made);
    }
    state.counters["vertices"] = poly.Count();
    state.counters["triangles"] = made;
    // Corners dropped as straight or as spikes give fewer; never more.
    if (made > expected || made < expected / 2) state.SkipWithError("unexpected triangle count");
    state.SetComplexityN(poly.Count());
}

void BM_TrianglizeStar(benchmark::State& state) {
    Run(state, bench_shapes::Star(static_cast<int>(state.range(0))));
}
void BM_TrianglizeComb(benchmark::State& state) {
    Run(state, bench_shapes::Comb(static_cast<int>(state.range(0))));
}

void BM_OffsetWithArcs(benchmark::State& state) {
    XPoly2D p = bench_shapes::WavyOutline(static_cast<int>(state.range(0)));
    int rc = RTNORM, nodes = 0;
    for (auto _ : state) {
        XPoly2D out;
        rc = OffsetPoly2D(p, bench_shapes::kOffset, out);
        nodes = out.Count();
        benchmark::DoNotOptimize(nodes);
    }
    state.counters["vertices"] = p.Count();
    if (rc != RTNORM || nodes != p.Count()) state.SkipWithError("offset failed");
    state.SetComplexityN(p.Count());
}
}  // namespace

BENCHMARK(BM_TrianglizeStar)->RangeMultiplier(10)->Range(100, 100000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(BM_TrianglizeComb)->RangeMultiplier(10)->Range(100, 100000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(BM_OffsetWithArcs)->RangeMultiplier(10)->Range(100, 100000)->Unit(benchmark::kMillisecond)->Complexity();
