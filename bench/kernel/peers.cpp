// The triangulation and offset benchmarks run by two peer libraries on the
// very shapes of trianglize_bench.cpp, to set our times beside theirs:
// GEOS's constrained Delaunay triangulation, buffer and offset curve, and
// Clipper's offset. Clipper has no triangulation. Arcs reach the peers
// flattened, 64 chords a turn; both peers join with mitres, as our offset
// does by intersecting neighbours.
#include <benchmark/benchmark.h>
#include <geos_c.h>
#include <polyclipping/clipper.hpp>

#include <cmath>
#include <vector>

#include "bench/kernel/bench_shapes.h"

namespace {
constexpr double kMitreLimit = 5.0;
// Clipper works on integers: a thousandth of a unit.
constexpr double kClipperScale = 1000.0;

void Quiet(const char*, ...) {}

// One GEOS context for the whole run.
GEOSContextHandle_t Geos() {
    static GEOSContextHandle_t ctx = [] {
        GEOSContextHandle_t c = GEOS_init_r();
        GEOSContext_setNoticeHandler_r(c, Quiet);
        GEOSContext_setErrorHandler_r(c, Quiet);
        return c;
    }();
    return ctx;
}

// The closed ring of the points, first point repeated.
GEOSCoordSequence* Ring(const std::vector<XPoint>& pts) {
    GEOSContextHandle_t g = Geos();
    unsigned n = static_cast<unsigned>(pts.size());
    GEOSCoordSequence* seq = GEOSCoordSeq_create_r(g, n + 1, 2);
    for (unsigned i = 0; i <= n; ++i) GEOSCoordSeq_setXY_r(g, seq, i, pts[i % n].x, pts[i % n].y);
    return seq;
}

GEOSGeometry* Polygon(const std::vector<XPoint>& pts) {
    GEOSContextHandle_t g = Geos();
    return GEOSGeom_createPolygon_r(g, GEOSGeom_createLinearRing_r(g, Ring(pts)), nullptr, 0);
}

GEOSGeometry* ClosedLine(const std::vector<XPoint>& pts) { return GEOSGeom_createLineString_r(Geos(), Ring(pts)); }

void GeosTriangulation(benchmark::State& state, const XPolygonEx& poly) {
    GEOSContextHandle_t g = Geos();
    GEOSGeometry* in = Polygon(bench_shapes::Vertices(poly));
    int made = 0;
    for (auto _ : state) {
        GEOSGeometry* out = GEOSConstrainedDelaunayTriangulation_r(g, in);
        made = out ? GEOSGetNumGeometries_r(g, out) : -1;
        if (out) GEOSGeom_destroy_r(g, out);
        benchmark::DoNotOptimize(made);
    }
    GEOSGeom_destroy_r(g, in);
    state.counters["vertices"] = poly.Count();
    state.counters["triangles"] = made;
    if (made < 0) state.SkipWithError("triangulation failed");
    state.SetComplexityN(poly.Count());
}

void BM_TrianglizeStar_GEOS(benchmark::State& state) {
    GeosTriangulation(state, bench_shapes::Star(static_cast<int>(state.range(0))));
}
void BM_TrianglizeComb_GEOS(benchmark::State& state) {
    GeosTriangulation(state, bench_shapes::Comb(static_cast<int>(state.range(0))));
}

// The outline grown into a polygon, mitred.
void BM_OffsetWithArcs_GEOSBuffer(benchmark::State& state) {
    GEOSContextHandle_t g = Geos();
    auto pts = bench_shapes::Flattened(bench_shapes::WavyOutline(static_cast<int>(state.range(0))));
    GEOSGeometry* in = Polygon(pts);
    GEOSBufferParams* params = GEOSBufferParams_create_r(g);
    GEOSBufferParams_setJoinStyle_r(g, params, GEOSBUF_JOIN_MITRE);
    GEOSBufferParams_setMitreLimit_r(g, params, kMitreLimit);
    bool ok = true;
    for (auto _ : state) {
        GEOSGeometry* out = GEOSBufferWithParams_r(g, in, params, bench_shapes::kOffset);
        ok = out != nullptr;
        if (out) GEOSGeom_destroy_r(g, out);
    }
    GEOSBufferParams_destroy_r(g, params);
    GEOSGeom_destroy_r(g, in);
    state.counters["vertices"] = static_cast<double>(pts.size());
    if (!ok) state.SkipWithError("buffer failed");
    state.SetComplexityN(state.range(0));
}

// The outline as a closed line, offset to its outer side.
void BM_OffsetWithArcs_GEOSOffsetCurve(benchmark::State& state) {
    GEOSContextHandle_t g = Geos();
    auto pts = bench_shapes::Flattened(bench_shapes::WavyOutline(static_cast<int>(state.range(0))));
    GEOSGeometry* in = ClosedLine(pts);
    bool ok = true;
    for (auto _ : state) {
        // Negative goes right of travel: outwards on a counter-clockwise ring.
        GEOSGeometry* out =
            GEOSOffsetCurve_r(g, in, -bench_shapes::kOffset, 8, GEOSBUF_JOIN_MITRE, kMitreLimit);
        ok = out != nullptr;
        if (out) GEOSGeom_destroy_r(g, out);
    }
    GEOSGeom_destroy_r(g, in);
    state.counters["vertices"] = static_cast<double>(pts.size());
    if (!ok) state.SkipWithError("offset curve failed");
    state.SetComplexityN(state.range(0));
}

void BM_OffsetWithArcs_Clipper(benchmark::State& state) {
    auto pts = bench_shapes::Flattened(bench_shapes::WavyOutline(static_cast<int>(state.range(0))));
    ClipperLib::Path path;
    for (const XPoint& p : pts)
        path.emplace_back(static_cast<ClipperLib::cInt>(std::llround(p.x * kClipperScale)),
                          static_cast<ClipperLib::cInt>(std::llround(p.y * kClipperScale)));
    size_t paths = 0;
    for (auto _ : state) {
        ClipperLib::ClipperOffset co(kMitreLimit);
        co.AddPath(path, ClipperLib::jtMiter, ClipperLib::etClosedPolygon);
        ClipperLib::Paths out;
        co.Execute(out, bench_shapes::kOffset * kClipperScale);
        paths = out.size();
        benchmark::DoNotOptimize(paths);
    }
    state.counters["vertices"] = static_cast<double>(pts.size());
    if (paths == 0) state.SkipWithError("offset gave nothing");
    state.SetComplexityN(state.range(0));
}
}  // namespace

BENCHMARK(BM_TrianglizeStar_GEOS)->RangeMultiplier(10)->Range(100, 100000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(BM_TrianglizeComb_GEOS)->RangeMultiplier(10)->Range(100, 100000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(BM_OffsetWithArcs_GEOSBuffer)
    ->RangeMultiplier(10)
    ->Range(100, 100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK(BM_OffsetWithArcs_GEOSOffsetCurve)
    ->RangeMultiplier(10)
    ->Range(100, 100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK(BM_OffsetWithArcs_Clipper)
    ->RangeMultiplier(10)
    ->Range(100, 100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
