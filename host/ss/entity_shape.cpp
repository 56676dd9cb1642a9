#include "host/ss/entity_shape.h"

#include <algorithm>
#include <array>
#include <string>
#include <cmath>
#include <cstring>
#include <numbers>

#include "host/ads/transform.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"
#include "platform/dbents.h"
#include "platform/dbextents.h"
#include "platform/dbmain.h"

namespace lumo::host {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr int kArcSteps = 64;  // per full turn

const resbuf* Find(const resbuf* rb, int code) {
    for (; rb; rb = rb->rbnext)
        if (rb->restype == code) return rb;
    return nullptr;
}

double Real(const resbuf* list, int code, double fallback = 0) {
    const resbuf* rb = Find(list, code);
    return rb ? rb->resval.rreal : fallback;
}

int Short(const resbuf* list, int code) {
    const resbuf* rb = Find(list, code);
    return rb ? rb->resval.rint : 0;
}

// Object coordinates of a planar entity to world XY.
struct Ocs {
    double ax[3], ay[3], az[3];
    explicit Ocs(const resbuf* list) {
        double n[3] = {0, 0, 1};
        if (const resbuf* rb = Find(list, 210)) std::memcpy(n, rb->resval.rpoint, sizeof n);
        EcsAxes(n, ax, ay, az);
    }
    PlanPoint World(double x, double y, double z) const {
        return {x * ax[0] + y * ay[0] + z * az[0], x * ax[1] + y * ay[1] + z * az[1]};
    }
};

void AddArc(PlanPath& path, const Ocs& ocs, double cx, double cy, double z, double r, double a0, double sweep) {
    int steps = std::max(4, static_cast<int>(std::ceil(std::fabs(sweep) / (2 * kPi) * kArcSteps)));
    for (int i = 0; i <= steps; ++i) {
        double a = a0 + sweep * i / steps;
        path.push_back(ocs.World(cx + r * std::cos(a), cy + r * std::sin(a), z));
    }
}

// A bulged segment from p to q in object coordinates.
void AddBulge(PlanPath& path, const Ocs& ocs, const double p[2], const double q[2], double bulge, double z) {
    if (std::fabs(bulge) < 1e-6) {
        path.push_back(ocs.World(q[0], q[1], z));
        return;
    }
    double sweep = 4 * std::atan(bulge);
    double dx = q[0] - p[0], dy = q[1] - p[1], chord = std::hypot(dx, dy);
    if (chord < 1e-12) return;
    // The centre lies on the chord's left for a positive (counter-clockwise) bulge.
    double offset = chord / 2 * (1 - bulge * bulge) / (2 * bulge);
    double c[2] = {(p[0] + q[0]) / 2 - dy / chord * offset, (p[1] + q[1]) / 2 + dx / chord * offset};
    double r = std::hypot(p[0] - c[0], p[1] - c[1]);
    double a0 = std::atan2(p[1] - c[1], p[0] - c[0]);
    AddArc(path, ocs, c[0], c[1], z, r, a0, sweep);
}

void LwPolyline(const resbuf* list, std::vector<PlanPath>& out) {
    Ocs ocs(list);
    double z = Real(list, 38);
    std::vector<std::array<double, 3>> v;  // x, y, bulge
    for (const resbuf* rb = list; rb; rb = rb->rbnext) {
        if (rb->restype == 10) v.push_back({rb->resval.rpoint[0], rb->resval.rpoint[1], 0});
        else if (rb->restype == 42 && !v.empty()) v.back()[2] = rb->resval.rreal;
    }
    if (v.empty()) return;
    bool closed = Short(list, 70) & 1;
    PlanPath path{ocs.World(v[0][0], v[0][1], z)};
    size_t n = v.size();
    for (size_t i = 0; i + 1 < n + (closed ? 1 : 0); ++i) {
        const auto& a = v[i];
        const auto& b = v[(i + 1) % n];
        AddBulge(path, ocs, a.data(), b.data(), a[2], z);
    }
    out.push_back(std::move(path));
}

// An old-style polyline: its vertices follow it, up to the SEQEND.
void Polyline(const ads_name ent, const resbuf* list, std::vector<PlanPath>& out) {
    Ocs ocs(list);
    bool is3d = Short(list, 70) & (8 | 16 | 64);
    double z = Find(list, 10) ? Find(list, 10)->resval.rpoint[2] : 0;
    std::vector<std::array<double, 4>> v;
    ads_name cur = {ent[0], ent[1]}, next;
    while (acdbEntNext(cur, next) == RTNORM) {
        resbuf* vx = acdbEntGet(next);
        if (!vx) break;
        const resbuf* type = Find(vx, 0);
        bool vertex = type && std::strcmp(type->resval.rstring, "VERTEX") == 0;
        if (vertex && !(Short(vx, 70) & 16)) {  // spline frame points are not drawn
            const resbuf* at = Find(vx, 10);
            if (at) v.push_back({at->resval.rpoint[0], at->resval.rpoint[1], at->resval.rpoint[2], Real(vx, 42)});
        }
        acutRelRb(vx);
        if (!vertex) break;
        std::memcpy(cur, next, sizeof cur);
    }
    if (v.empty()) return;
    bool closed = Short(list, 70) & 1;
    PlanPath path;
    if (is3d) {
        for (const auto& p : v) path.push_back({p[0], p[1]});
        if (closed) path.push_back(path.front());
    } else {
        path.push_back(ocs.World(v[0][0], v[0][1], z));
        size_t n = v.size();
        for (size_t i = 0; i + 1 < n + (closed ? 1 : 0); ++i) {
            const auto& a = v[i];
            const auto& b = v[(i + 1) % n];
            AddBulge(path, ocs, a.data(), b.data(), a[3], z);
        }
    }
    out.push_back(std::move(path));
}

bool ExtentsBox(const ads_name ent, std::vector<PlanPath>& out) {
    AcDbObjectId id;
    if (acdbGetObjectId(id, ent) != Acad::eOk) return false;
    AcDbEntity* e = nullptr;
    if (acdbOpenAcDbEntity(e, id, AcDb::kForRead) != Acad::eOk) return false;
    AcDbExtents box;
    bool ok = e->getGeomExtents(box) == Acad::eOk && !box.isEmpty();
    e->close();
    if (!ok) return false;
    AcGePoint3d a = box.minPoint(), b = box.maxPoint();
    out.push_back({{a.x, a.y}, {b.x, a.y}, {b.x, b.y}, {a.x, b.y}, {a.x, a.y}});
    return true;
}

PlanPoint Corner(const resbuf* list, int code) {
    const resbuf* rb = Find(list, code);
    return rb ? PlanPoint{rb->resval.rpoint[0], rb->resval.rpoint[1]} : PlanPoint{0, 0};
}

double Cross(PlanPoint o, PlanPoint a, PlanPoint b) { return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x); }

bool OnSegment(PlanPoint p, PlanPoint a, PlanPoint b) {
    return std::min(a.x, b.x) - 1e-12 <= p.x && p.x <= std::max(a.x, b.x) + 1e-12 &&
           std::min(a.y, b.y) - 1e-12 <= p.y && p.y <= std::max(a.y, b.y) + 1e-12;
}

bool SegmentsCross(PlanPoint a, PlanPoint b, PlanPoint c, PlanPoint d) {
    double d1 = Cross(c, d, a), d2 = Cross(c, d, b), d3 = Cross(a, b, c), d4 = Cross(a, b, d);
    if (((d1 > 0 && d2 < 0) || (d1 < 0 && d2 > 0)) && ((d3 > 0 && d4 < 0) || (d3 < 0 && d4 > 0))) return true;
    if (d1 == 0 && OnSegment(a, c, d)) return true;
    if (d2 == 0 && OnSegment(b, c, d)) return true;
    if (d3 == 0 && OnSegment(c, a, b)) return true;
    if (d4 == 0 && OnSegment(d, a, b)) return true;
    return false;
}

bool InsidePolygon(PlanPoint p, const PlanPath& poly) {
    bool inside = false;
    for (size_t i = 0, j = poly.size() - 1; i < poly.size(); j = i++) {
        const PlanPoint& a = poly[i];
        const PlanPoint& b = poly[j];
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x) inside = !inside;
    }
    return inside;
}

double SegmentDistance(PlanPoint p, PlanPoint a, PlanPoint b) {
    double dx = b.x - a.x, dy = b.y - a.y, len2 = dx * dx + dy * dy;
    double t = len2 > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / len2, 0.0, 1.0) : 0;
    return std::hypot(p.x - (a.x + t * dx), p.y - (a.y + t * dy));
}

bool AnyEdgeCrosses(const std::vector<PlanPath>& paths, const PlanPath& other, bool closed) {
    size_t edges = closed ? other.size() : other.size() - 1;
    for (const PlanPath& path : paths) {
        if (path.size() == 1) {
            for (size_t k = 0; k < edges; ++k)
                if (SegmentDistance(path[0], other[k], other[(k + 1) % other.size()]) < 1e-12) return true;
        }
        for (size_t i = 0; i + 1 < path.size(); ++i)
            for (size_t k = 0; k < edges; ++k)
                if (SegmentsCross(path[i], path[i + 1], other[k], other[(k + 1) % other.size()])) return true;
    }
    return false;
}

// A block reference looks like its block's entities where it stands.
bool InsertPaths(const ads_name ent, const resbuf* list, std::vector<PlanPath>& out) {
    static int depth = 0;   // blocks inside blocks, as deep as drawings sensibly go
    const resbuf* name = Find(list, 2);
    if (!name || depth > 16) return false;
    AcDbObjectId id;
    AcDbBlockReference* ref = nullptr;
    if (acdbGetObjectId(id, ent) != Acad::eOk || acdbOpenObject(ref, id, AcDb::kForRead) != Acad::eOk) return false;
    AcGeMatrix3d m = ref->blockTransform();
    ref->close();
    resbuf* block = acdbTblSearch("BLOCK", name->resval.rstring, 0);
    const resbuf* first = Find(block, -2);
    ads_name current = {0, 0}, next;
    if (first) std::memcpy(current, first->resval.rlname, sizeof current);
    acutRelRb(block);
    if (!first) return false;
    ++depth;
    for (;;) {
        std::vector<PlanPath> inner;
        EntityPlanPaths(current, inner);
        for (PlanPath& path : inner) {
            for (PlanPoint& p : path) {
                AcGePoint3d q = m * AcGePoint3d(p.x, p.y, 0);
                p = {q.x, q.y};
            }
            out.push_back(std::move(path));
        }
        if (acdbEntNext(current, next) != RTNORM) break;   // the block's last entity
        std::memcpy(current, next, sizeof current);
    }
    --depth;
    return !out.empty();
}

}  // namespace

bool EntityPlanPaths(const ads_name ent, std::vector<PlanPath>& out) {
    out.clear();
    resbuf* list = acdbEntGet(ent);
    if (!list) return false;
    const resbuf* type = Find(list, 0);
    std::string kind = type && type->resval.rstring ? type->resval.rstring : "";
    Ocs ocs(list);
    if (kind == "LINE") {
        out.push_back({Corner(list, 10), Corner(list, 11)});
    } else if (kind == "POINT") {
        out.push_back({Corner(list, 10)});
    } else if (kind == "CIRCLE" || kind == "ARC") {
        const resbuf* c = Find(list, 10);
        double a0 = kind == "ARC" ? Real(list, 50) : 0, a1 = kind == "ARC" ? Real(list, 51) : 2 * kPi;
        double sweep = std::fmod(a1 - a0 + 4 * kPi, 2 * kPi);
        if (kind == "CIRCLE" || sweep < 1e-12) sweep = 2 * kPi;
        PlanPath path;
        if (c) AddArc(path, ocs, c->resval.rpoint[0], c->resval.rpoint[1], c->resval.rpoint[2], Real(list, 40), a0, sweep);
        out.push_back(std::move(path));
    } else if (kind == "LWPOLYLINE") {
        LwPolyline(list, out);
    } else if (kind == "POLYLINE") {
        Polyline(ent, list, out);
    } else if (kind == "SOLID" || kind == "TRACE" || kind == "3DFACE") {
        // Solids and traces keep their third and fourth corners crosswise
        // and in object coordinates; faces go round, in world coordinates.
        bool solid = kind != "3DFACE";
        const int order[4] = {10, 11, solid ? 13 : 12, solid ? 12 : 13};
        PlanPath path;
        for (int code : order) {
            const resbuf* rb = Find(list, code);
            if (!rb) continue;
            path.push_back(solid ? ocs.World(rb->resval.rpoint[0], rb->resval.rpoint[1], rb->resval.rpoint[2])
                                 : PlanPoint{rb->resval.rpoint[0], rb->resval.rpoint[1]});
        }
        if (!path.empty()) path.push_back(path.front());
        out.push_back(std::move(path));
    } else if (kind == "INSERT" && InsertPaths(ent, list, out)) {
    } else {
        ExtentsBox(ent, out);
    }
    acutRelRb(list);
    return true;
}

bool PathsInside(const std::vector<PlanPath>& paths, const PlanPath& polygon) {
    bool any = false;
    for (const PlanPath& path : paths)
        for (const PlanPoint& p : path) {
            if (!InsidePolygon(p, polygon)) return false;
            any = true;
        }
    return any && !AnyEdgeCrosses(paths, polygon, true);
}

bool PathsCross(const std::vector<PlanPath>& paths, const PlanPath& polygon) {
    for (const PlanPath& path : paths)
        for (const PlanPoint& p : path)
            if (InsidePolygon(p, polygon)) return true;
    return AnyEdgeCrosses(paths, polygon, true);
}

bool PathsCrossFence(const std::vector<PlanPath>& paths, const PlanPath& fence) {
    return fence.size() >= 2 && AnyEdgeCrosses(paths, fence, false);
}

double DistanceToPaths(const std::vector<PlanPath>& paths, PlanPoint p) {
    double best = 1e300;
    for (const PlanPath& path : paths) {
        if (path.size() == 1) best = std::min(best, std::hypot(p.x - path[0].x, p.y - path[0].y));
        for (size_t i = 0; i + 1 < path.size(); ++i) best = std::min(best, SegmentDistance(p, path[i], path[i + 1]));
    }
    return best;
}

}  // namespace lumo::host
