// Hatch lines: each pattern line family is cut by the boundary, taken as
// polygons (arcs and ellipses flattened, splines by their control polygons)
// under the even-odd rule, then broken into its dashes. And the transform
// of a hatch as a whole.
#include <algorithm>
#include <cmath>

#include "host/db/stub.h"
#include "host/db/ocs.h"
#include "platform/dbhatch.h"

namespace {

constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr double kTwoPi = 6.283185307179586;
constexpr int kArcSegments = 64;             // chords of a whole circle
constexpr size_t kMaxLines = 1000000;        // as many as the host's default allows
constexpr double kParallel = 1e-12;

struct Seg {
    AcGePoint2d a, b;
};

void AddArc(std::vector<Seg>& out, const AcGePoint2d& c, double rx, const AcGeVector2d& major, double ratio,
            double a0, double sweep) {
    int n = std::max(2, static_cast<int>(std::ceil(std::fabs(sweep) / kTwoPi * kArcSegments)));
    AcGeVector2d minor(-major.y * ratio, major.x * ratio);
    auto at = [&](double t) {
        return AcGePoint2d(c.x + (major.x * std::cos(t) + minor.x * std::sin(t)) * rx,
                           c.y + (major.y * std::cos(t) + minor.y * std::sin(t)) * rx);
    };
    AcGePoint2d prev = at(a0);
    for (int k = 1; k <= n; ++k) {
        AcGePoint2d next = at(a0 + sweep * k / n);
        out.push_back({prev, next});
        prev = next;
    }
}

void AddBulge(std::vector<Seg>& out, const AcGePoint2d& p, const AcGePoint2d& q, double bulge) {
    if (std::fabs(bulge) < 1e-12) {
        out.push_back({p, q});
        return;
    }
    double sweep = 4 * std::atan(bulge);
    double chord = p.distanceTo(q);
    if (chord <= 0) return;
    double r = chord / (2 * std::sin(std::fabs(sweep) / 2));
    AcGePoint2d mid((p.x + q.x) / 2, (p.y + q.y) / 2);
    AcGeVector2d u((q.x - p.x) / chord, (q.y - p.y) / chord);
    double h = chord * (1 - bulge * bulge) / (4 * bulge);   // to the centre, on the chord's left
    AcGePoint2d c(mid.x - u.y * h, mid.y + u.x * h);
    double a0 = std::atan2(p.y - c.y, p.x - c.x);
    AddArc(out, c, r, AcGeVector2d(1, 0), 1.0, a0, sweep);
}

void AddLoop(std::vector<Seg>& out, const AcDbHatch::Loop& loop) {
    if (loop.type & AcDbHatch::kPolyline) {
        size_t n = loop.vertices.size();
        for (size_t k = 0; k < n; ++k) {
            if (k + 1 == n && !loop.closed) break;
            double b = k < loop.bulges.size() ? loop.bulges[k] : 0.0;
            AddBulge(out, loop.vertices[k], loop.vertices[(k + 1) % n], b);
        }
        return;
    }
    for (const AcDbHatch::Edge& e : loop.edges) {
        switch (e.type) {
        case AcDbHatch::kLine: out.push_back({e.a, e.b}); break;
        case AcDbHatch::kCirArc:
        case AcDbHatch::kEllArc: {
            double s = e.start / kDegreesPerRadian, t = e.end / kDegreesPerRadian;
            double sweep = std::fmod(t - s, kTwoPi);
            if (sweep <= 0) sweep += kTwoPi;
            AcGeVector2d major(1, 0);
            double r = e.radius, ratio = 1;
            if (e.type == AcDbHatch::kEllArc) {
                r = std::hypot(e.b.x, e.b.y);
                if (r <= 0) break;
                major.set(e.b.x / r, e.b.y / r);
                ratio = e.radius;
            }
            if (e.ccw) AddArc(out, e.a, r, major, ratio, s, sweep);
            else AddArc(out, e.a, r, major, ratio, -s, -sweep);
            break;
        }
        case AcDbHatch::kSpline:
            for (size_t k = 1; k < e.controlPoints.size(); ++k) out.push_back({e.controlPoints[k - 1], e.controlPoints[k]});
            break;
        default: break;
        }
    }
}

double Cross(const AcGeVector2d& a, const AcGeVector2d& b) { return a.x * b.y - a.y * b.x; }

}  // namespace

Acad::ErrorStatus AcDbHatch::evaluateHatch(bool) {
    m_lines.clear();
    if (m_d.solid) return Acad::eOk;
    std::vector<Seg> segs;
    for (const Loop& loop : m_d.loops) {
        bool outer = loop.type & (kExternal | kOutermost);
        if (m_d.style == kIgnore && !(loop.type & kExternal)) continue;
        if (m_d.style == kOuter && !outer) continue;
        AddLoop(segs, loop);
    }
    if (segs.empty())
        for (const Loop& loop : m_d.loops) AddLoop(segs, loop);
    if (segs.empty()) return Acad::eOk;

    std::vector<double> ts;
    for (const PatternLine& pl : m_d.lines) {
        double a = pl.angle / kDegreesPerRadian;
        AcGeVector2d d(std::cos(a), std::sin(a)), n(-std::sin(a), std::cos(a));
        AcGeVector2d o(pl.offset[0], pl.offset[1]);
        AcGePoint2d base(pl.base[0], pl.base[1]);
        double step = o.dotProduct(n);
        if (std::fabs(step) < kParallel) continue;
        double lo = 1e300, hi = -1e300;
        for (const Seg& s : segs) {
            for (const AcGePoint2d& p : {s.a, s.b}) {
                double v = p.asVector().dotProduct(n);
                lo = std::min(lo, v);
                hi = std::max(hi, v);
            }
        }
        double b0 = base.asVector().dotProduct(n);
        double k0 = std::ceil((step > 0 ? lo - b0 : hi - b0) / step);
        double k1 = std::floor((step > 0 ? hi - b0 : lo - b0) / step);
        if (k1 - k0 > static_cast<double>(kMaxLines)) return Acad::eInvalidInput;
        double total = 0;
        for (double x : pl.dashes) total += std::fabs(x);
        for (double k = k0; k <= k1; ++k) {
            AcGePoint2d p = base + o * k;
            ts.clear();
            for (const Seg& s : segs) {
                AcGeVector2d e = s.b - s.a;
                double den = Cross(d, e);
                if (std::fabs(den) < kParallel) continue;
                AcGeVector2d w = s.a - p;
                double t = Cross(w, e) / den;
                double u = Cross(w, d) / den;
                if (u >= 0 && u < 1) ts.push_back(t);
            }
            std::sort(ts.begin(), ts.end());
            for (size_t i = 0; i + 1 < ts.size(); i += 2) {
                double t0 = ts[i], t1 = ts[i + 1];
                if (pl.dashes.empty() || total <= 0) {
                    m_lines.push_back(p + d * t0);
                    m_lines.push_back(p + d * t1);
                } else {
                    double pos = std::floor(t0 / total) * total;
                    for (size_t j = 0; pos < t1 && m_lines.size() < 2 * kMaxLines; j = (j + 1) % pl.dashes.size()) {
                        double len = std::fabs(pl.dashes[j]);
                        double s0 = std::max(pos, t0), s1 = std::min(pos + len, t1);
                        if (pl.dashes[j] >= 0 && s0 <= s1) {
                            m_lines.push_back(p + d * s0);
                            m_lines.push_back(p + d * s1);
                        }
                        pos += len;
                    }
                }
                if (m_lines.size() >= 2 * kMaxLines) return Acad::eOk;
            }
        }
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::transformBy(const AcGeMatrix3d& xform) {
    lumo::db::PlaneMap pm = lumo::db::MapPlane(m_d.normal, xform);
    if (!pm.ok) return Acad::eNotApplicable;
    double z = m_d.elevation.z;
    auto point = [&](AcGePoint2d& p) {
        AcGePoint3d q = pm.Point(AcGePoint3d(p.x, p.y, m_d.elevation.z));
        p.set(q.x, q.y);
        z = q.z;
    };
    auto vector = [&](AcGeVector2d& v) {
        AcGePoint2d tip(v.x, v.y), origin;
        point(tip);
        point(origin);
        v.set(tip.x - origin.x, tip.y - origin.y);
    };
    double turn = pm.angle * kDegreesPerRadian;
    for (Loop& loop : m_d.loops) {
        for (auto& p : loop.vertices) point(p);
        if (pm.mirrored)
            for (double& b : loop.bulges) b = -b;
        for (Edge& e : loop.edges) {
            if (e.type == kLine) {
                point(e.a);
                point(e.b);
            } else if (e.type == kCirArc || e.type == kEllArc) {
                point(e.a);
                if (e.type == kEllArc) {
                    AcGeVector2d axis(e.b.x, e.b.y);
                    vector(axis);
                    e.b.set(axis.x, axis.y);
                } else {
                    e.radius *= pm.scale;
                }
                if (e.type == kCirArc) {
                    // clockwise edges keep their angles mirrored
                    double delta = (e.ccw != 0) != pm.mirrored ? turn : -turn;
                    e.start += delta;
                    e.end += delta;
                }
                if (pm.mirrored) e.ccw = e.ccw ? 0 : 1;
            } else {
                for (auto& p : e.controlPoints) point(p);
                for (auto& p : e.fitPoints) point(p);
            }
        }
    }
    for (auto& p : m_d.seeds) point(p);
    for (PatternLine& l : m_d.lines) {
        AcGePoint2d base(l.base[0], l.base[1]);
        AcGeVector2d off(l.offset[0], l.offset[1]);
        point(base);
        vector(off);
        l.base[0] = base.x;
        l.base[1] = base.y;
        l.offset[0] = off.x;
        l.offset[1] = off.y;
        l.angle = pm.mirrored ? turn - l.angle : l.angle + turn;
        for (double& x : l.dashes) x *= pm.scale;
    }
    m_d.angle = pm.Angle(m_d.angle);
    m_d.scale *= pm.scale;
    m_d.space *= pm.scale;
    m_d.elevation.z = z;
    m_d.normal = pm.newNormal;
    return evaluateHatch();
}
