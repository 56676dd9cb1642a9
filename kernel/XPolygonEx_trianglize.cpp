// The triangulator of XPolygonEx.
//
// Each pass of the method drops coincident neighbours, spikes and straight
// corners, then looks for the first ear next to a reflex vertex, forwards,
// then backwards, and starts again after every ear; without an ear it fans.
// Run as written that is cubic. Here every scan visits only the vertices
// whose answer may have changed since they were last asked: an answer
// depends on a vertex's neighbours, on two edge flags and, for a diagonal,
// on the one edge found crossing it. A removal marks the two vertices on
// either side, a changed flag its two ends, a removed edge the diagonals it
// blocked. Vertices keep their order in the list, so "the first vertex of a
// scan" is the lowest id among the marked ones, and the triangles come out
// exactly as the plain method gives them.
//
// A diagonal is blocked by any edge that crosses it, so which one is found
// does not matter: on larger polygons the edges are filed in a grid and a
// diagonal asks only those that pass near it.
#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

#include "kernel/SegmentGrid.h"
#include "kernel/XLine.h"
#include "kernel/XPolygonEx.h"
#include "kernel/XPushPrec.h"
#include "kernel/point_position.h"
#include "platform/acutads.h"

namespace {
constexpr double kPi = std::numbers::pi;
// A corner above this is reflex; below it, convex.
constexpr double kReflex = 3.141591653589793;
// Below this many vertices a diagonal asks every edge.
constexpr int kGridFrom = 16;

// A set of ids 0 .. n-1 with ordered search both ways: a bit per id and a
// bit per word of ids.
class IdSet {
public:
    void Init(int n) {
        m_words.assign((n + 63) / 64, ~uint64_t{0});
        if (n % 64) m_words.back() = (uint64_t{1} << (n % 64)) - 1;
        m_summary.assign((m_words.size() + 63) / 64, 0);
        for (size_t w = 0; w < m_words.size(); ++w)
            if (m_words[w]) m_summary[w / 64] |= uint64_t{1} << (w % 64);
    }
    void Insert(int i) {
        m_words[i / 64] |= uint64_t{1} << (i % 64);
        m_summary[i / 4096] |= uint64_t{1} << ((i / 64) % 64);
    }
    void Erase(int i) {
        uint64_t& w = m_words[i / 64];
        w &= ~(uint64_t{1} << (i % 64));
        if (!w) m_summary[i / 4096] &= ~(uint64_t{1} << ((i / 64) % 64));
    }
    // The lowest id at or above i, or -1.
    int NextFrom(int i) const {
        if (i < 0) i = 0;
        int w = i / 64;
        if (w >= static_cast<int>(m_words.size())) return -1;
        uint64_t bits = m_words[w] & (~uint64_t{0} << (i % 64));
        if (bits) return w * 64 + std::countr_zero(bits);
        int s = (w + 1) / 64;
        if (s >= static_cast<int>(m_summary.size())) return -1;
        uint64_t sum = (w + 1) % 64 ? m_summary[s] & (~uint64_t{0} << ((w + 1) % 64)) : m_summary[s];
        while (!sum) {
            if (++s >= static_cast<int>(m_summary.size())) return -1;
            sum = m_summary[s];
        }
        w = s * 64 + std::countr_zero(sum);
        return w * 64 + std::countr_zero(m_words[w]);
    }
    // The highest id at or below i, or -1.
    int PrevFrom(int i) const {
        if (i < 0) return -1;
        int w = i / 64;
        if (w >= static_cast<int>(m_words.size())) {
            w = static_cast<int>(m_words.size()) - 1;
            i = w * 64 + 63;
        }
        uint64_t bits = m_words[w] & (~uint64_t{0} >> (63 - i % 64));
        if (bits) return w * 64 + 63 - std::countl_zero(bits);
        if (w == 0) return -1;
        int s = (w - 1) / 64;
        int bit = (w - 1) % 64;
        uint64_t sum = m_summary[s] & (~uint64_t{0} >> (63 - bit));
        while (!sum) {
            if (--s < 0) return -1;
            sum = m_summary[s];
        }
        w = s * 64 + 63 - std::countl_zero(sum);
        return w * 64 + 63 - std::countl_zero(m_words[w]);
    }

private:
    std::vector<uint64_t> m_words;
    std::vector<uint64_t> m_summary;
};

class EarClipper {
public:
    explicit EarClipper(XPolygonEx& poly) : m_poly(poly) {
        int n = poly.Count();
        m_pt.reserve(n);
        for (const XPoint& p : poly) m_pt.push_back(p);
        for (int i = 0; i < n; ++i) m_vis.push_back(poly.IsVisible(i));
        m_prev.resize(n);
        m_next.resize(n);
        for (int i = 0; i < n; ++i) {
            m_prev[i] = i ? i - 1 : n - 1;
            m_next[i] = i + 1 < n ? i + 1 : 0;
        }
        m_alive.assign(n, 1);
        m_count = n;
        m_head = 0;
        m_angle.resize(n);
        for (int i = 0; i < n && n >= 3; ++i) SetAngle(i);
        m_block.assign(n, Block{});
        m_blocked.resize(n);
        for (IdSet* s : {&m_coincident, &m_corner, &m_forward, &m_backward}) s->Init(n);
        if (n >= kGridFrom) FileEdges();
    }

    int Run(DList<XTriangle>& out) {
        for (;;) {
            if (m_count < 3) break;
            DropCoincident();
            int r = DropCorners();
            if (r == kFinished) break;
            if (r == kRestart) continue;
            if (ForwardEar(out) || (m_reflex > 0 && BackwardEar(out))) continue;
            Fan(out);
            break;
        }
        WriteBack();
        return RTNORM;
    }

private:
    enum { kDone, kRestart, kFinished };
    struct Block {
        int u = -1, v = -1;            // the crossing edge (u, v)
        int prev = -1, a = -1, b = -1;  // the window it was found for
    };

    // Only finite coordinates have a cell, and only they keep a crossing
    // near both lines; with any other every edge is asked.
    void FileEdges() {
        double x0 = m_pt[0].x, x1 = x0, y0 = m_pt[0].y, y1 = y0;
        for (const XPoint& p : m_pt) {
            if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z)) return;
            x0 = std::fmin(x0, p.x);
            x1 = std::fmax(x1, p.x);
            y0 = std::fmin(y0, p.y);
            y1 = std::fmax(y1, p.y);
        }
        int n = static_cast<int>(m_pt.size());
        if (!m_grid.Init(x0, y0, x1, y1, n, n)) return;
        for (int i = 0; i < n; ++i) FileEdge(i);
    }

    // The edge from u, tagged with its end: once that end is gone the
    // entry is stale, and the end never comes back.
    void FileEdge(int u) {
        int v = m_next[u];
        m_grid.Insert(u, v, m_pt[u].x, m_pt[u].y, m_pt[v].x, m_pt[v].y);
    }

    void SetAngle(int i) {
        double a = CornerAngle(m_pt[m_prev[i]], m_pt[i], m_pt[m_next[i]]);
        if (m_angle[i] > kReflex) --m_reflex;
        m_angle[i] = a;
        if (a > kReflex) ++m_reflex;
    }

    void Mark(int i) {
        if (!m_alive[i]) return;
        m_coincident.Insert(i);
        m_corner.Insert(i);
        m_forward.Insert(i);
        m_backward.Insert(i);
    }

    // The diagonals blocked by the edge from u are to be asked again.
    void ReleaseBlocked(int u) {
        for (int j : m_blocked[u]) {
            if (!m_alive[j] || m_block[j].u != u) continue;
            m_block[j].u = -1;
            m_forward.Insert(j);
            m_backward.Insert(m_next[m_next[j]]);
        }
        m_blocked[u].clear();
    }

    void Remove(int x) {
        int p = m_prev[x], q = m_next[x];
        ReleaseBlocked(p);
        ReleaseBlocked(x);
        m_next[p] = q;
        m_prev[q] = p;
        m_alive[x] = 0;
        if (m_grid.Ready()) FileEdge(p);
        if (m_angle[x] > kReflex) --m_reflex;
        m_angle[x] = 0.0;
        --m_count;
        if (x == m_head) m_head = q;
        for (IdSet* s : {&m_coincident, &m_corner, &m_forward, &m_backward}) s->Erase(x);
        if (m_count >= 3) {
            SetAngle(p);
            SetAngle(q);
        }
        Mark(m_prev[p]);
        Mark(p);
        Mark(q);
        Mark(m_next[q]);
    }

    // Coincident neighbours; a removal asks the same place again.
    void DropCoincident() {
        for (int i = m_coincident.NextFrom(0); i >= 0 && m_count >= 3; i = m_coincident.NextFrom(i + 1)) {
            m_coincident.Erase(i);
            if (acutDistance(m_pt[i], m_pt[m_next[i]]) < _distSnap) Remove(i);
        }
    }

    // Spikes (a new pass) and straight corners between equal flags.
    int DropCorners() {
        for (int i = m_corner.NextFrom(0); i >= 0; i = m_corner.NextFrom(i + 1)) {
            if (m_count < 3) return kFinished;
            m_corner.Erase(i);
            double a = m_angle[i];
            int p = m_prev[i];
            if (std::fabs(a) < _angSnap) {
                if (acutDistance(m_pt[i], m_pt[m_next[i]]) > acutDistance(m_pt[p], m_pt[i])) m_vis[p] = m_vis[i];
                Remove(i);
                return m_count < 3 ? kFinished : kRestart;
            }
            if (std::fabs(a - kPi) < _angSnap && m_vis[p] == m_vis[i]) Remove(i);
        }
        return m_count < 3 ? kFinished : kDone;
    }

    // No edge but the four at its ends crosses the diagonal from j to the
    // vertex after next.
    bool DiagonalFree(int j) {
        if (m_count < 5) return true;
        int k = m_next[m_next[j]];
        Block& blk = m_block[j];
        if (blk.u >= 0 && m_alive[blk.u] && m_next[blk.u] == blk.v && blk.prev == m_prev[j] &&
            blk.a == m_next[j] && blk.b == k)
            return false;
        const XPoint &A = m_pt[j], &B = m_pt[k];
        // A crossing lies within _distSnap of both segments: far boxes never cross.
        double slack = 4.0 * _distSnap;
        double x0 = std::fmin(A.x, B.x) - slack, x1 = std::fmax(A.x, B.x) + slack;
        double y0 = std::fmin(A.y, B.y) - slack, y1 = std::fmax(A.y, B.y) + slack;
        XLine diagonal(A, B, 1);
        auto blocks = [&](int u) {
            const XPoint &C = m_pt[u], &D = m_pt[m_next[u]];
            if ((C.x < x0 && D.x < x0) || (C.x > x1 && D.x > x1) || (C.y < y0 && D.y < y0) ||
                (C.y > y1 && D.y > y1))
                return false;
            if (!Crosses(diagonal, C, D)) return false;
            blk = Block{u, m_next[u], m_prev[j], m_next[j], k};
            m_blocked[u].push_back(j);
            return true;
        };
        int stop = m_prev[j];
        if (!m_grid.Ready()) {
            for (int u = m_next[k]; u != stop; u = m_next[u])
                if (blocks(u)) return false;
            return true;
        }
        // The four edges at the diagonal's ends are not asked. A crossing
        // lies within _distSnap of both lines, so the edge passes within
        // twice that of the diagonal.
        int m = m_next[j];
        bool blocked = m_grid.Visit(A.x, A.y, B.x, B.y, 3.0 * _distSnap, [&](int u, int tag) {
            if (!m_alive[u] || m_next[u] != tag) return SegmentGrid::kDrop;
            if (u == stop || u == j || u == m || u == k) return SegmentGrid::kKeep;
            return blocks(u) ? SegmentGrid::kStop : SegmentGrid::kKeep;
        });
        return !blocked;
    }

    static bool Crosses(const XLine& diagonal, const XPoint& c, const XPoint& d) {
        XLine edge(c, d, 1);
        XPoint r;
        if (!diagonal.Intersection(edge, r)) return false;
        return AT_pt_of_line(r, diagonal.start, diagonal.end) == 3 && AT_pt_of_line(r, c, d) == 3;
    }

    void Emit(DList<XTriangle>& out, int c0, int c1, int c2, int flags) {
        out.Append(new XTriangle(m_pt[c0], m_pt[c1], m_pt[c2], flags));
    }

    // Cuts the ear at the vertex between i and k: the edge from i becomes
    // the invisible diagonal.
    void CutEar(DList<XTriangle>& out, int i, int m, int k) {
        Emit(out, k, m, i, 4 + (m_vis[i] ? 0 : 1) + (m_vis[m] ? 0 : 2));
        m_vis[i] = 0;
        Remove(m);
    }

    bool ForwardEar(DList<XTriangle>& out) {
        for (int j = m_forward.NextFrom(0); j >= 0; j = m_forward.NextFrom(j + 1)) {
            m_forward.Erase(j);
            int m = m_next[j];
            if (m_angle[j] > kReflex && m_angle[m] < kReflex && DiagonalFree(j)) {
                CutEar(out, j, m, m_next[m]);
                return true;
            }
        }
        return false;
    }

    bool BackwardEar(DList<XTriangle>& out) {
        int last = static_cast<int>(m_pt.size()) - 1;
        for (int y = m_backward.PrevFrom(last); y >= 0; y = m_backward.PrevFrom(y - 1)) {
            m_backward.Erase(y);
            int m = m_prev[y];
            if (m_angle[y] > kReflex && m_angle[m] < kReflex && DiagonalFree(m_prev[m])) {
                CutEar(out, m_prev[m], m, y);
                return true;
            }
        }
        return false;
    }

    void Fan(DList<XTriangle>& out) {
        while (m_count > 3) {
            int p0 = m_head, p1 = m_next[p0], p2 = m_next[p1];
            Emit(out, p2, p1, p0, 4 + (m_vis[p0] ? 0 : 1) + (m_vis[p1] ? 0 : 2));
            m_vis[p0] = 0;
            m_next[p0] = p2;
            m_prev[p2] = p0;
            m_alive[p1] = 0;
            --m_count;
        }
        int p0 = m_head, p1 = m_next[p0], p2 = m_next[p1];
        Emit(out, p2, p1, p0, (m_vis[p0] ? 0 : 1) + (m_vis[p1] ? 0 : 2) + (m_vis[p2] ? 0 : 4));
    }

    // The polygon ends as the method leaves it.
    void WriteBack() {
        m_poly.Reset();
        if (m_count <= 0) return;
        int i = m_head;
        for (int k = 0; k < m_count; ++k, i = m_next[i]) m_poly.AppendNode(m_pt[i], m_vis[i]);
    }

    XPolygonEx& m_poly;
    std::vector<XPoint> m_pt;
    std::vector<int> m_vis, m_prev, m_next;
    std::vector<char> m_alive;
    std::vector<double> m_angle;
    std::vector<Block> m_block;
    std::vector<std::vector<int>> m_blocked;   // by edge start: the diagonals it blocks
    IdSet m_coincident, m_corner, m_forward, m_backward;
    SegmentGrid m_grid;
    int m_count = 0, m_head = 0, m_reflex = 0;
};
}  // namespace

int XPolygonEx::_Trianglize(DList<XTriangle>& out) {
    if (Count() < 3) return RTNORM;
    EarClipper clipper(*this);
    return clipper.Run(out);
}
