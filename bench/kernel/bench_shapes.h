// The inputs of the triangulation and offset benchmarks, shared by ours and
// the peer libraries' so that every one of them works on the same shapes.
// Sizes grow with the vertex count so that neighbouring vertices stay well
// apart from the snapping distance.
#pragma once
#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include "kernel/XPoly.h"
#include "kernel/XPoly2D.h"
#include "kernel/XPolygonEx.h"

namespace bench_shapes {
constexpr double kPi = std::numbers::pi;

// A random star-shaped polygon, counter-clockwise: jittered angles, a
// five-lobed radius about R = max(100, n) and a radial jitter of up to one
// vertex spacing, so that about half the corners are reflex at every size.
inline XPolygonEx Star(int n) {
    std::mt19937 rng(42);
    double radius = std::max(100.0, static_cast<double>(n)), spacing = 2 * kPi * radius / n;
    std::uniform_real_distribution<double> jitter(0.0, 0.8), radial(-spacing, spacing);
    XPolygonEx p;
    for (int i = 0; i < n; ++i) {
        double a = (i + jitter(rng)) * 2 * kPi / n;
        double r = radius * (1.0 + 0.2 * std::sin(5 * a)) + radial(rng);
        p.AppendNode(XPoint(r * std::cos(a), r * std::sin(a)), 1);
    }
    return p;
}

// Teeth of width 1 and depth 100 over a base, counter-clockwise: 2 + 4 per
// tooth vertices.
inline XPolygonEx Comb(int n) {
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

// A closed wavy outline of n nodes, counter-clockwise, every other segment
// an arc of sweep 0.2 bulging outwards; chords of about 3 units.
inline XPoly2D WavyOutline(int n) {
    double radius = std::max(100.0, n / 2.0);
    XPoly2D p(1);
    for (int i = 0; i < n; ++i) {
        double a = 2 * kPi * i / n;
        double r = radius * (1.0 + 0.1 * std::sin(7 * a));
        p.AppendNode(XPoint(r * std::cos(a), r * std::sin(a)), i % 2 ? 0.2 : 0.0);
    }
    return p;
}

// The outline's corners with each arc flattened to chords, as the peers
// take it: 64 chords a whole turn.
inline std::vector<XPoint> Flattened(const XPoly2D& outline) {
    XPoly flat;
    outline.MapToPolygon(flat, 64);
    std::vector<XPoint> pts;
    for (const XPoint& p : flat) pts.push_back(p);
    if (pts.size() > 1 && pts.front().x == pts.back().x && pts.front().y == pts.back().y) pts.pop_back();
    return pts;
}

inline std::vector<XPoint> Vertices(const XPolygonEx& poly) {
    std::vector<XPoint> pts;
    for (const XPoint& p : poly) pts.push_back(p);
    return pts;
}

// The distance of the offset benchmarks: outwards.
constexpr double kOffset = 1.5;
}  // namespace bench_shapes
