#include "kernel/SegmentGrid.h"

#include <cmath>
#include <limits>

bool SegmentGrid::Init(double x0, double y0, double x1, double y1, int segments, int ids) {
    m_levels.clear();
    m_entries.clear();
    if (!std::isfinite(x0) || !std::isfinite(y0) || !std::isfinite(x1) || !std::isfinite(y1) || x1 < x0 ||
        y1 < y0 || ids <= 0)
        return false;
    double w = x1 - x0, h = y1 - y0;
    if (!std::isfinite(w) || !std::isfinite(h)) return false;
    double n = segments > 0 ? segments : 1;
    // About one segment a finest cell, and never more cells a side than
    // segments, however flat the box.
    // (the square root taken in parts where the area overflows)
    double area = w * h / n;
    double side = std::fmax(std::isfinite(area) ? std::sqrt(area) : std::sqrt(w) * std::sqrt(h / n),
                            std::fmax(w, h) / n);
    if (!(side > 0.0) || !std::isfinite(side)) side = std::fmax(w, h) > 0.0 ? std::fmax(w, h) : 1.0;
    m_x0 = x0;
    m_y0 = y0;
    m_margin = 1e-9 * (std::fabs(x0) + std::fabs(y0) + w + h) + 1e-12;
    for (;;) {
        Level lv;
        lv.side = side;
        lv.inv = 1.0 / side;
        lv.cols = static_cast<int>(std::fmin(w / side, n)) + 1;
        lv.rows = static_cast<int>(std::fmin(h / side, n)) + 1;
        lv.head.assign(static_cast<size_t>(lv.cols) * lv.rows, -1);
        m_levels.push_back(std::move(lv));
        if (m_levels.back().cols <= 2 && m_levels.back().rows <= 2) break;
        side *= 2.0;
    }
    m_entries.reserve(static_cast<size_t>(n) * 4);
    m_seen.assign(ids, 0u);
    m_seenTag.assign(ids, 0);
    m_query = 0;
    return true;
}

int SegmentGrid::Cell(double v, double origin, double inv, int count) {
    double t = (v - origin) * inv;
    if (!(t >= 0.0)) return 0;
    if (t >= count) return count - 1;
    return static_cast<int>(t);
}

SegmentGrid::Span SegmentGrid::Columns(const Level& lv, double ax, double bx, double reach) const {
    double r = reach + m_margin;
    return {Cell(std::fmin(ax, bx) - r, m_x0, lv.inv, lv.cols), Cell(std::fmax(ax, bx) + r, m_x0, lv.inv, lv.cols)};
}

SegmentGrid::Span SegmentGrid::Rows(const Level& lv, double ax, double ay, double bx, double by, double reach,
                                    int c) const {
    constexpr double kInf = std::numeric_limits<double>::infinity();
    double r = reach + m_margin;
    // The part of the segment whose points lie within reach of the column;
    // the outer columns reach on to the grid's ends.
    double cx0 = c == 0 ? -kInf : m_x0 + c * lv.side - r;
    double cx1 = c == lv.cols - 1 ? kInf : m_x0 + (c + 1) * lv.side + r;
    double ylo, yhi;
    double dx = bx - ax;
    if (dx == 0.0) {
        ylo = std::fmin(ay, by);
        yhi = std::fmax(ay, by);
    } else {
        double t0 = (cx0 - ax) / dx, t1 = (cx1 - ax) / dx;
        if (t0 > t1) std::swap(t0, t1);
        t0 = std::fmax(0.0, std::fmin(1.0, t0));
        t1 = std::fmax(0.0, std::fmin(1.0, t1));
        double y0 = ay + t0 * (by - ay), y1 = ay + t1 * (by - ay);
        ylo = std::fmin(y0, y1);
        yhi = std::fmax(y0, y1);
    }
    return {Cell(ylo - r, m_y0, lv.inv, lv.rows), Cell(yhi + r, m_y0, lv.inv, lv.rows)};
}

void SegmentGrid::Insert(int id, int tag, double ax, double ay, double bx, double by) {
    double extent = std::fmax(std::fabs(bx - ax), std::fabs(by - ay));
    size_t at = 0;
    while (at + 1 < m_levels.size() && !(extent <= m_levels[at].side)) ++at;
    Level& lv = m_levels[at];
    Span cols = Columns(lv, ax, bx, 0.0);
    for (int c = cols.lo; c <= cols.hi; ++c) {
        Span rows = Rows(lv, ax, ay, bx, by, 0.0, c);
        for (int r = rows.lo; r <= rows.hi; ++r) {
            int32_t& head = lv.head[static_cast<size_t>(r) * lv.cols + c];
            m_entries.push_back(Entry{id, tag, head});
            head = static_cast<int32_t>(m_entries.size() - 1);
            ++lv.filed;
        }
    }
}
