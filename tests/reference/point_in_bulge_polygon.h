// A plain point-in-outline test for bulge polylines: each arc is cut into
// many short chords from its own centre, and the point's crossings of a
// horizontal ray are counted over all chords. Also the distance from a
// point to those chords, to keep test points off the outline.
#pragma once
#include <cmath>
#include <vector>

namespace reference {

struct Node2 {
    double x, y, angle;   // vertex and the included angle of the segment from it
};

// The outline as a closed chain of points; each arc in `perArc` chords.
inline std::vector<std::pair<double, double>> FineOutline(const std::vector<Node2>& nodes, int perArc) {
    std::vector<std::pair<double, double>> out;
    const size_t n = nodes.size();
    for (size_t i = 0; i < n; ++i) {
        const Node2& a = nodes[i];
        const Node2& b = nodes[(i + 1) % n];
        out.emplace_back(a.x, a.y);
        if (std::fabs(a.angle) <= 1e-6) continue;
        double mx = (a.x + b.x) / 2, my = (a.y + b.y) / 2;
        double dx = b.x - a.x, dy = b.y - a.y, len = std::hypot(dx, dy);
        double shift = (len / 2) / std::tan(a.angle / 2);   // to the left of a->b for a positive angle
        double cx = mx - dy / len * shift, cy = my + dx / len * shift;
        double r = std::hypot(a.x - cx, a.y - cy), from = std::atan2(a.y - cy, a.x - cx);
        for (int k = 1; k < perArc; ++k) {
            double t = from + a.angle * k / perArc;
            out.emplace_back(cx + r * std::cos(t), cy + r * std::sin(t));
        }
    }
    return out;
}

// Odd crossings of the ray to +x: inside.
inline bool InsideFine(const std::vector<std::pair<double, double>>& ring, double px, double py) {
    bool inside = false;
    const size_t n = ring.size();
    for (size_t i = 0, j = n - 1; i < n; j = i++) {
        auto [xi, yi] = ring[i];
        auto [xj, yj] = ring[j];
        if ((yi > py) != (yj > py) && px < (xj - xi) * (py - yi) / (yj - yi) + xi) inside = !inside;
    }
    return inside;
}

inline double DistanceToFine(const std::vector<std::pair<double, double>>& ring, double px, double py) {
    double best = 1e300;
    const size_t n = ring.size();
    for (size_t i = 0; i < n; ++i) {
        auto [ax, ay] = ring[i];
        auto [bx, by] = ring[(i + 1) % n];
        double vx = bx - ax, vy = by - ay, l2 = vx * vx + vy * vy;
        double t = l2 > 0 ? ((px - ax) * vx + (py - ay) * vy) / l2 : 0;
        t = std::fmax(0, std::fmin(1, t));
        best = std::fmin(best, std::hypot(px - ax - t * vx, py - ay - t * vy));
    }
    return best;
}

}  // namespace reference
