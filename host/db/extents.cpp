// World boxes of entities and of a drawing (EXTMIN, EXTMAX).
#include <algorithm>
#include <cmath>
#include <cstring>

#include "host/db/database_impl.h"
#include "host/db/ocs.h"
#include "platform/dbextents.h"
#include "platform/dbhatch.h"

void AcDbExtents::addPoint(const AcGePoint3d& p) {
    m_min.set(std::min(m_min.x, p.x), std::min(m_min.y, p.y), std::min(m_min.z, p.z));
    m_max.set(std::max(m_max.x, p.x), std::max(m_max.y, p.y), std::max(m_max.z, p.z));
}

void AcDbExtents::addExt(const AcDbExtents& other) {
    if (other.isEmpty()) return;
    addPoint(other.m_min);
    addPoint(other.m_max);
}

void AcDbExtents::transformBy(const AcGeMatrix3d& m) {
    if (isEmpty()) return;
    AcDbExtents out;
    for (int k = 0; k < 8; ++k)
        out.addPoint(m * AcGePoint3d(k & 1 ? m_max.x : m_min.x, k & 2 ? m_max.y : m_min.y, k & 4 ? m_max.z : m_min.z));
    *this = out;
}

namespace {

using lumo::db::OcsToWorld;

constexpr double kTwoPi = 6.283185307179586;
constexpr int kMaxNesting = 32;   // blocks inside blocks, as deep as a drawing sensibly goes
constexpr double kTextWidth = 0.7; // width of a character against the text height, for estimates

// An arc of a plane's system: its ends and the quadrant points it passes.
void AddArc(AcDbExtents& box, const AcGeVector3d& n, const AcGePoint3d& c, double r, double a0, double a1) {
    double sweep = std::fmod(a1 - a0, kTwoPi);
    if (sweep <= 0) sweep += kTwoPi;
    auto at = [&](double a) { return OcsToWorld(n, AcGePoint3d(c.x + r * std::cos(a), c.y + r * std::sin(a), c.z)); };
    box.addPoint(at(a0));
    box.addPoint(at(a0 + sweep));
    for (int q = 0; q < 8; ++q) {
        double a = q * kTwoPi / 4;
        double rel = std::fmod(a - a0 + 2 * kTwoPi, kTwoPi);
        if (rel < sweep) box.addPoint(at(a));
    }
}

void AddBulge(AcDbExtents& box, const AcGeVector3d& n, const AcGePoint2d& p, const AcGePoint2d& q, double b,
              double z) {
    box.addPoint(OcsToWorld(n, AcGePoint3d(p.x, p.y, z)));
    box.addPoint(OcsToWorld(n, AcGePoint3d(q.x, q.y, z)));
    if (std::fabs(b) < 1e-12) return;
    double chord = p.distanceTo(q);
    if (chord <= 0) return;
    double h = chord * (1 - b * b) / (4 * b);
    AcGeVector2d u((q.x - p.x) / chord, (q.y - p.y) / chord);
    AcGePoint3d c((p.x + q.x) / 2 - u.y * h, (p.y + q.y) / 2 + u.x * h, z);
    double r = std::hypot(p.x - c.x, p.y - c.y);
    double a0 = std::atan2(p.y - c.y, p.x - c.x), a1 = std::atan2(q.y - c.y, q.x - c.x);
    if (b > 0) AddArc(box, n, c, r, a0, a1);
    else AddArc(box, n, c, r, a1, a0);
}

void AddText(AcDbExtents& box, const AcGeVector3d& n, const AcGePoint3d& at, double height, double width,
             double rotation, size_t chars) {
    double w = width > 0 ? width : height * kTextWidth * static_cast<double>(chars);
    double c = std::cos(rotation), s = std::sin(rotation);
    for (auto [x, y] : {std::pair{0.0, 0.0}, {w, 0.0}, {0.0, height}, {w, height}})
        box.addPoint(OcsToWorld(n, AcGePoint3d(at.x + x * c - y * s, at.y + x * s + y * c, at.z)));
}

bool Box(const AcDbEntity& e, AcDbExtents& box, int depth);

void BlockBox(const AcDbBlockReference& ref, AcDbExtents& box, int depth) {
    AcDbStub* b = ref.blockTableRecord();
    auto* block = b && b->object ? AcDbBlockTableRecord::cast(b->object) : nullptr;
    if (!block || depth > kMaxNesting) return;
    AcDbExtents inner;
    for (AcDbStub* s : block->entities())
        if (s->object && !s->object->isErased()) Box(*static_cast<AcDbEntity*>(s->object), inner, depth + 1);
    inner.transformBy(ref.blockTransform());
    box.addExt(inner);
    for (AcDbStub* s : ref.subents)
        if (s->object && !s->object->isErased()) Box(*static_cast<AcDbEntity*>(s->object), box, depth + 1);
}

// A thick curve is a wall: its box reaches along the normal by the thickness.
void AddThick(AcDbExtents& box, const AcDbExtents& own, const AcGeVector3d& normal, double thickness) {
    box.addExt(own);
    if (thickness == 0 || own.isEmpty()) return;
    AcGeVector3d up = normal * thickness;
    box.addPoint(own.minPoint() + up);
    box.addPoint(own.maxPoint() + up);
}

bool Box(const AcDbEntity& e, AcDbExtents& box, int depth) {
    AcDbExtents before = box;
    if (auto* l = AcDbLine::cast(&e)) {
        AcDbExtents own;
        own.addPoint(l->startPoint());
        own.addPoint(l->endPoint());
        AddThick(box, own, l->normal(), l->thickness());
    } else if (auto* c = AcDbCircle::cast(&e)) {
        AcDbExtents own;
        AddArc(own, c->normal(), static_cast<const AcDbCircle::Data*>(c->dxfBlock(1))->center, c->radius(), 0, kTwoPi);
        AddThick(box, own, c->normal(), c->thickness());
    } else if (auto* a = AcDbArc::cast(&e)) {
        AcDbExtents own;
        AddArc(own, a->normal(), static_cast<const AcDbArc::Data*>(a->dxfBlock(1))->center, a->radius(),
               a->startAngle(), a->endAngle());
        AddThick(box, own, a->normal(), a->thickness());
    } else if (auto* p = AcDbPoint::cast(&e)) {
        box.addPoint(p->position());
    } else if (auto* pl = AcDbPolyline::cast(&e)) {
        const auto& d = pl->data();
        size_t n = d.verts.size();
        for (size_t k = 0; k < n; ++k) {
            if (k + 1 == n && !pl->isClosed()) {
                box.addPoint(OcsToWorld(d.normal, AcGePoint3d(d.verts[k].point.x, d.verts[k].point.y, d.elevation)));
                break;
            }
            AddBulge(box, d.normal, d.verts[k].point, d.verts[(k + 1) % n].point, d.verts[k].bulge, d.elevation);
        }
    } else if (auto* t = AcDbTrace::cast(&e)) {
        AcGePoint3d q;
        for (uint16_t k = 0; k < 4; ++k)
            if (t->getPointAt(k, q) == Acad::eOk) box.addPoint(q);
    } else if (auto* f = AcDbFace::cast(&e)) {
        AcGePoint3d q;
        for (uint16_t k = 0; k < 4; ++k)
            if (f->getVertexAt(k, q) == Acad::eOk) box.addPoint(q);
    } else if (auto* tx = AcDbText::cast(&e)) {
        AddText(box, tx->normal(), tx->position(), tx->height(), 0, tx->rotation(), std::strlen(tx->textStringConst()));
    } else if (auto* mt = AcDbMText::cast(&e)) {
        AcGePoint3d at = lumo::db::WorldToOcs(mt->normal(), mt->location());
        AddText(box, mt->normal(), at, mt->textHeight(), mt->width(), mt->rotation(), std::strlen(mt->contentsConst()));
    } else if (auto* r = AcDbBlockReference::cast(&e)) {
        BlockBox(*r, box, depth);
    } else if (auto* el = AcDbEllipse::cast(&e)) {
        AcGeVector3d major = el->majorAxis(), minor = el->minorAxis();
        double t0 = el->startParam(), t1 = el->endParam();
        for (int k = 0; k <= 64; ++k) {
            double t = t0 + (t1 - t0) * k / 64;
            box.addPoint(el->center() + major * std::cos(t) + minor * std::sin(t));
        }
    } else if (auto* sp = AcDbSpline::cast(&e)) {
        AcGePoint3d q;
        for (int k = 0; k < sp->numControlPoints(); ++k)
            if (sp->getControlPointAt(k, q) == Acad::eOk) box.addPoint(q);
        for (int k = 0; k < sp->numFitPoints(); ++k)
            if (sp->getFitPointAt(k, q) == Acad::eOk) box.addPoint(q);
    } else if (auto* h = AcDbHatch::cast(&e)) {
        for (const auto& loop : h->data().loops) {
            for (const auto& v : loop.vertices) box.addPoint(OcsToWorld(h->normal(), AcGePoint3d(v.x, v.y, h->elevation())));
            auto add = [&](double x, double y) { box.addPoint(OcsToWorld(h->normal(), AcGePoint3d(x, y, h->elevation()))); };
            for (const auto& edge : loop.edges) {
                if (edge.type == AcDbHatch::kLine) {
                    add(edge.a.x, edge.a.y);
                    add(edge.b.x, edge.b.y);
                } else if (edge.type == AcDbHatch::kCirArc || edge.type == AcDbHatch::kEllArc) {
                    double r = edge.type == AcDbHatch::kCirArc ? edge.radius : std::hypot(edge.b.x, edge.b.y);
                    add(edge.a.x - r, edge.a.y - r);
                    add(edge.a.x + r, edge.a.y + r);
                }
                for (const auto& cp : edge.controlPoints) add(cp.x, cp.y);
            }
        }
    } else if (const lumo::db::ComplexParts* parts = const_cast<AcDbEntity&>(e).complexParts()) {
        // old polylines: their vertices (2D ones in the polyline's plane)
        auto* p2 = AcDb2dPolyline::cast(&e);
        for (AcDbStub* s : parts->subents) {
            auto* v = s->object ? AcDbVertex::cast(s->object) : nullptr;
            if (!v || v->isErased() || (v->data().flags & 128 && !(v->data().flags & 64))) continue;
            box.addPoint(p2 ? p2->vertexPosition(static_cast<const AcDb2dVertex&>(*v)) : v->data().position);
        }
    }
    return box.minPoint() != before.minPoint() || box.maxPoint() != before.maxPoint() || !box.isEmpty();
}

}  // namespace

Acad::ErrorStatus AcDbEntity::getGeomExtents(AcDbExtents& extents) const {
    AcDbExtents box;
    Box(*this, box, 0);
    if (box.isEmpty()) return Acad::eInvalidExtents;
    extents = box;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::updateExt(bool) {
    AcDbExtents box;
    for (AcDbStub* s : m_impl->entities)
        if (s->object && !s->object->isErased() && s->object->ownerId() == m_impl->modelSpace)
            Box(*static_cast<AcDbEntity*>(s->object), box, 0);
    if (box.isEmpty()) box.set(AcGePoint3d(1e20, 1e20, 1e20), AcGePoint3d(-1e20, -1e20, -1e20));
    AcGePoint3d lo = box.minPoint(), hi = box.maxPoint();
    m_impl->SetVar("$EXTMIN", {lumo::db::OwnedTag::Point(10, lo.x, lo.y, lo.z)});
    m_impl->SetVar("$EXTMAX", {lumo::db::OwnedTag::Point(10, hi.x, hi.y, hi.z)});
    return Acad::eOk;
}
