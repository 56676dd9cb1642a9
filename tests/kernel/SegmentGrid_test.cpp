// The grid of segments: a query offers every segment that comes within its
// reach, each once, and forgets the entries its visitor calls stale.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <set>
#include <vector>

#include "kernel/SegmentGrid.h"

namespace {
struct Seg {
    double ax, ay, bx, by;
};

double PointSeg(double px, double py, const Seg& s) {
    double dx = s.bx - s.ax, dy = s.by - s.ay, len = dx * dx + dy * dy;
    double t = len > 0.0 ? std::clamp(((px - s.ax) * dx + (py - s.ay) * dy) / len, 0.0, 1.0) : 0.0;
    return std::hypot(px - s.ax - t * dx, py - s.ay - t * dy);
}

double Orient(double ax, double ay, double bx, double by, double cx, double cy) {
    return (bx - ax) * (cy - ay) - (by - ay) * (cx - ax);
}

double SegSeg(const Seg& a, const Seg& b) {
    double o1 = Orient(a.ax, a.ay, a.bx, a.by, b.ax, b.ay), o2 = Orient(a.ax, a.ay, a.bx, a.by, b.bx, b.by);
    double o3 = Orient(b.ax, b.ay, b.bx, b.by, a.ax, a.ay), o4 = Orient(b.ax, b.ay, b.bx, b.by, a.bx, a.by);
    if (((o1 < 0) != (o2 < 0)) && ((o3 < 0) != (o4 < 0))) return 0.0;
    return std::min({PointSeg(a.ax, a.ay, b), PointSeg(a.bx, a.by, b), PointSeg(b.ax, b.ay, a),
                     PointSeg(b.bx, b.by, a)});
}

std::vector<Seg> RandomSegments(std::mt19937& rng, int n, double size, double maxLen) {
    std::uniform_real_distribution<double> coord(0.0, size), len(-maxLen, maxLen);
    std::vector<Seg> v;
    for (int i = 0; i < n; ++i) {
        double x = coord(rng), y = coord(rng);
        v.push_back({x, y, std::clamp(x + len(rng), 0.0, size), std::clamp(y + len(rng), 0.0, size)});
    }
    return v;
}

SegmentGrid Filed(const std::vector<Seg>& segs, double size) {
    SegmentGrid g;
    EXPECT_TRUE(g.Init(0.0, 0.0, size, size, static_cast<int>(segs.size()), static_cast<int>(segs.size())));
    for (size_t i = 0; i < segs.size(); ++i)
        g.Insert(static_cast<int>(i), 0, segs[i].ax, segs[i].ay, segs[i].bx, segs[i].by);
    return g;
}
}  // namespace

TEST(SegmentGrid, OffersEverySegmentWithinReachOnce) {
    std::mt19937 rng(42);
    for (int round = 0; round < 40; ++round) {
        double size = round % 2 ? 1000.0 : 1.0, maxLen = size * (round % 4 < 2 ? 0.02 : 0.5);
        auto segs = RandomSegments(rng, 300, size, maxLen);
        SegmentGrid g = Filed(segs, size);
        auto queries = RandomSegments(rng, 30, size, size * 0.3);
        double reach = size * (round % 3 == 0 ? 0.0 : 0.01);
        for (const Seg& q : queries) {
            std::multiset<int> offered;
            g.Visit(q.ax, q.ay, q.bx, q.by, reach, [&](int id, int) {
                offered.insert(id);
                return SegmentGrid::kKeep;
            });
            for (int id : offered) EXPECT_EQ(offered.count(id), 1u);
            for (size_t i = 0; i < segs.size(); ++i) {
                if (SegSeg(q, segs[i]) > reach) continue;
                EXPECT_EQ(offered.count(static_cast<int>(i)), 1u) << "round " << round << " segment " << i;
            }
        }
    }
}

TEST(SegmentGrid, OffersAVerticalAndAPointQuery) {
    SegmentGrid g;
    ASSERT_TRUE(g.Init(0.0, 0.0, 100.0, 100.0, 100, 3));
    g.Insert(0, 0, 10.0, 0.0, 10.0, 100.0);   // vertical
    g.Insert(1, 0, 0.0, 50.0, 100.0, 50.0);   // horizontal
    g.Insert(2, 0, 90.0, 90.0, 90.0, 90.0);   // a point
    std::set<int> seen;
    g.Visit(0.0, 20.0, 100.0, 20.0, 0.0, [&](int id, int) {
        seen.insert(id);
        return SegmentGrid::kKeep;
    });
    EXPECT_TRUE(seen.count(0));
    seen.clear();
    g.Visit(90.0, 90.0, 90.0, 90.0, 0.0, [&](int id, int) {
        seen.insert(id);
        return SegmentGrid::kKeep;
    });
    EXPECT_TRUE(seen.count(2));
}

TEST(SegmentGrid, DroppedEntriesAreGoneAndRefiledOnesFound) {
    SegmentGrid g;
    ASSERT_TRUE(g.Init(0.0, 0.0, 10.0, 10.0, 16, 2));
    g.Insert(0, 7, 0.0, 0.0, 10.0, 10.0);
    g.Insert(1, 3, 0.0, 10.0, 10.0, 0.0);
    g.Insert(0, 8, 0.0, 1.0, 10.0, 1.0);   // id 0 moved: tag 7 is stale
    int staleSeen = 0, visits = 0;
    auto drop = [&](int id, int tag) {
        ++visits;
        if (id == 0 && tag == 7) {
            ++staleSeen;
            return SegmentGrid::kDrop;
        }
        return SegmentGrid::kKeep;
    };
    g.Visit(0.0, 0.0, 10.0, 10.0, 0.5, drop);
    EXPECT_GT(staleSeen, 0);
    staleSeen = 0;
    g.Visit(0.0, 0.0, 10.0, 10.0, 0.5, drop);
    EXPECT_EQ(staleSeen, 0);
    bool stopped = g.Visit(0.0, 0.0, 10.0, 10.0, 0.5, [&](int, int) { return SegmentGrid::kStop; });
    EXPECT_TRUE(stopped);
    EXPECT_FALSE(g.Visit(20.0, 20.0, 30.0, 30.0, 0.0, [&](int, int) { return SegmentGrid::kStop; }));
}

// A box whose area overflows, though its sides don't, still gets a grid of
// about one cell a segment.
TEST(SegmentGrid, AHugeBoxKeepsASmallGrid) {
    SegmentGrid g;
    ASSERT_TRUE(g.Init(-1e300, 0.0, 1e300, 1e300, 8, 1));
    g.Insert(0, 1, 0.0, 0.0, 1e299, 1e299);
    bool found = false;
    g.Visit(0.0, 0.0, 1e299, 1e299, 0.0, [&](int id, int) {
        found = found || id == 0;
        return SegmentGrid::kKeep;
    });
    EXPECT_TRUE(found);
}

TEST(SegmentGrid, RefusesABoxThatIsNotFinite) {
    SegmentGrid g;
    EXPECT_FALSE(g.Init(0.0, 0.0, std::numeric_limits<double>::infinity(), 1.0, 10, 10));
    EXPECT_FALSE(g.Ready());
    EXPECT_FALSE(g.Init(0.0, std::nan(""), 1.0, 1.0, 10, 10));
    EXPECT_FALSE(g.Init(-1e308, -1e308, 1e308, 1e308, 10, 10));   // its width overflows
    EXPECT_TRUE(g.Init(5.0, 5.0, 5.0, 5.0, 10, 10));              // one cell
    EXPECT_TRUE(g.Ready());
}
