// A grid of plane segments, for finding the few segments that may come
// near a given one without looking at all of them.
//
// The grid has levels of ever coarser cells, each twice the side of the one
// below; a segment is filed at the first level whose cells are at least as
// long as it, under every cell its line passes through there, so a long
// segment costs a few entries, not one per fine cell. Entries are never
// moved: a segment that changes is filed again under a new tag, and the
// caller's visitor tells a stale entry from a live one, which the grid then
// unlinks as it passes. A query visits, at each level that holds entries,
// every cell within `reach` of its segment, column by column, so its cost
// follows the segment's length rather than its bounding box.
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

class SegmentGrid {
public:
    enum Answer { kKeep, kDrop, kStop };

    // Finest cells for about `segments` segments over the box (x0, y0)-(x1,
    // y1); ids run from 0 to `ids` - 1. False, and the grid unusable, when
    // the box is not finite.
    bool Init(double x0, double y0, double x1, double y1, int segments, int ids);
    bool Ready() const { return !m_levels.empty(); }

    void Insert(int id, int tag, double ax, double ay, double bx, double by);

    // Calls visit(id, tag) for the entries filed near the segment a-b,
    // within reach of it, until it answers kStop; kDrop unlinks that entry.
    // An entry answered kKeep is not offered again in the same query under
    // the same tag. True when stopped.
    template <class Visitor>
    bool Visit(double ax, double ay, double bx, double by, double reach, Visitor&& visit) {
        ++m_query;
        if (m_query == 0) {   // the stamps wrapped: forget them all
            std::fill(m_seen.begin(), m_seen.end(), 0u);
            m_query = 1;
        }
        for (Level& lv : m_levels) {
            if (lv.filed == 0) continue;
            Span cols = Columns(lv, ax, bx, reach);
            for (int c = cols.lo; c <= cols.hi; ++c) {
                Span rows = Rows(lv, ax, ay, bx, by, reach, c);
                for (int r = rows.lo; r <= rows.hi; ++r)
                    if (VisitCell(lv.head[static_cast<size_t>(r) * lv.cols + c], visit)) return true;
            }
        }
        return false;
    }

private:
    struct Entry {
        int32_t id, tag, next;
    };
    struct Span {
        int lo, hi;
    };
    struct Level {
        double side = 1.0, inv = 1.0;
        int cols = 1, rows = 1;
        size_t filed = 0;
        std::vector<int32_t> head;
    };

    template <class Visitor>
    bool VisitCell(int32_t& head, Visitor& visit) {
        int32_t* link = &head;
        while (*link >= 0) {
            Entry& e = m_entries[*link];
            if (m_seen[e.id] == m_query && m_seenTag[e.id] == e.tag) {
                link = &e.next;
                continue;
            }
            Answer a = static_cast<Answer>(visit(e.id, e.tag));
            if (a == kDrop) {
                *link = e.next;
                continue;
            }
            m_seen[e.id] = m_query;
            m_seenTag[e.id] = e.tag;
            if (a == kStop) return true;
            link = &e.next;
        }
        return false;
    }

    Span Columns(const Level& lv, double ax, double bx, double reach) const;
    // The rows of column c that lie within reach of the segment.
    Span Rows(const Level& lv, double ax, double ay, double bx, double by, double reach, int c) const;
    static int Cell(double v, double origin, double inv, int count);

    double m_x0 = 0.0, m_y0 = 0.0;
    double m_margin = 0.0;   // for the rounding of the cell walk
    std::vector<Level> m_levels;
    std::vector<Entry> m_entries;
    std::vector<uint32_t> m_seen;
    std::vector<int32_t> m_seenTag;
    uint32_t m_query = 0;
};
