// The triangulator run literally: every pass scans the whole polygon by
// index and starts again after each removal that the method says restarts
// it. Cubic, and the yardstick for the fast one.
#pragma once
#include <cmath>
#include <numbers>

#include "kernel/XLine.h"
#include "kernel/XPolygonEx.h"
#include "kernel/XPushPrec.h"
#include "kernel/point_position.h"
#include "platform/acutads.h"

namespace reference {

inline bool PlainCrosses(const XPolygonEx& p, int from, int to, int k) {
    XLine diagonal(*p[from], *p[to], 1), edge(*p[k], *p[k + 1], 1);
    XPoint r;
    if (!diagonal.Intersection(edge, r)) return false;
    return AT_pt_of_line(r, diagonal.start, diagonal.end) == 3 && AT_pt_of_line(r, edge.start, edge.end) == 3;
}

// No edge k in first .. last (cyclic) crosses the diagonal.
inline bool PlainFree(const XPolygonEx& p, int from, int to, int first, int last) {
    for (int k = first; k <= last; ++k)
        if (PlainCrosses(p, from, to, k)) return false;
    return true;
}

inline int Inv(const XPolygonEx& p, int i) { return p.IsVisible(i) ? 0 : 1; }

inline int PlainTrianglize(XPolygonEx& p, DList<XTriangle>& out) {
    const double kPi = std::numbers::pi;
    const double L = 3.141591653589793;
    for (;;) {
        if (p.Count() < 3) return RTNORM;
        for (int i = 0; i < p.Count() && p.Count() >= 3;) {
            if (p.GetEdgeLength(i) < _distSnap) p.RemoveNode(i);
            else ++i;
        }
        bool restart = false;
        for (int i = 0; i < p.Count();) {
            if (p.Count() < 3) return RTNORM;
            double a = p.GetAngle(i);
            if (std::fabs(a) < _angSnap) {
                if (p.GetEdgeLength(i) > p.GetEdgeLength(i - 1)) p.SetVisible(i - 1, p.IsVisible(i));
                p.RemoveNode(i);
                restart = true;
                break;
            }
            if (std::fabs(a - kPi) < _angSnap && p.IsVisible(i - 1) == p.IsVisible(i)) p.RemoveNode(i);
            else ++i;
        }
        if (p.Count() < 3) return RTNORM;
        if (restart) continue;
        int n = p.Count();
        bool reflex = false, cut = false;
        for (int i = 0; i < n && !cut; ++i) {
            double a = p.GetAngle(i), b = p.GetAngle(i + 1);
            if (a > L) reflex = true;
            if (a > L && b < L && PlainFree(p, i, i + 2, i + 3, i + n - 2)) {
                out.Append(new XTriangle(*p[i + 2], *p[i + 1], *p[i], 4 + Inv(p, i) + 2 * Inv(p, i + 1)));
                p.SetVisible(i, 0);
                p.RemoveNode(i + 1);
                cut = true;
            }
        }
        if (cut) continue;
        if (reflex) {
            for (int i = n - 1; i >= 0 && !cut; --i) {
                double a = p.GetAngle(i), b = p.GetAngle(i - 1);
                if (a > L && b < L && PlainFree(p, i - 2, i, i + 1, i + n - 4)) {
                    out.Append(new XTriangle(*p[i], *p[i - 1], *p[i - 2], 4 + Inv(p, i - 2) + 2 * Inv(p, i - 1)));
                    p.SetVisible(i - 2, 0);
                    p.RemoveNode(i - 1);
                    cut = true;
                }
            }
            if (cut) continue;
        }
        while (p.Count() > 3) {
            out.Append(new XTriangle(*p[2], *p[1], *p[0], 4 + Inv(p, 0) + 2 * Inv(p, 1)));
            p.SetVisible(0, 0);
            p.RemoveNode(1);
        }
        out.Append(new XTriangle(*p[2], *p[1], *p[0], Inv(p, 0) + 2 * Inv(p, 1) + 4 * Inv(p, 2)));
        return RTNORM;
    }
}

}  // namespace reference
