#include "kernel/XPoly2D_entity.h"

#include "kernel/XArc.h"
#include "kernel/XLine.h"
#include "kernel/XPoly2D.h"
#include "kernel/bulge.h"
#include "kernel/entity_lists.h"
#include "platform/acedads.h"
#include "platform/dbents.h"
#include "platform/acutads.h"
#include "platform/dbmain.h"
#include "platform/dbsymtb.h"

namespace {
// The flag word bits of the old polyline.
constexpr int kClosed = 1;
constexpr int kCurveFit = 2;
constexpr int kSplineFit = 4;
constexpr int k3dPolyline = 8;
constexpr int kMesh = 16;
constexpr int kMeshClosedN = 32;
constexpr int kPolyface = 64;
constexpr int kLinetypeGen = 128;

// A mesh gives no nodes, but its flag word is kept as the polyline's.
int MeshFlags(const AcDbPolygonMesh& mesh) {
    return kMesh | (mesh.isMClosed() ? kClosed : 0) | (mesh.isNClosed() ? kMeshClosedN : 0) |
           (mesh.polyMeshType() != AcDb::kSimpleMesh ? kSplineFit : 0);
}

int Done(const XPoly2D& out) { return out.Count() > 0 ? RTNORM : RTERROR; }

// Every vertex of an old polyline, with its bulge when it has one.
template <class Vertex, class Polyline>
void ReadVertices(const Polyline& pl, XPoly2D& out, double (*bulgeOf)(const Vertex&)) {
    AcDbObjectIterator* it = pl.vertexIterator();
    if (!it) return;
    for (it->start(); !it->done(); it->step()) {
        const Vertex* v = Vertex::cast(it->entity());
        if (!v) break;
        AcGePoint3d p = v->position();
        out.AppendNode(XPoint(p), BulgeToAngle(bulgeOf(*v)));
    }
    delete it;
}
}  // namespace

int ReadPolyline(const AcDbPolyline* pl, XPoly2D& out) {
    out.Reset();
    if (!pl) return RTERROR;
    out.closed = (pl->isClosed() ? kClosed : 0) | (pl->hasPlinegen() ? kLinetypeGen : 0);
    double z = pl->elevation();
    for (unsigned int i = 0; i < pl->numVerts(); ++i) {
        AcGePoint2d p;
        double bulge = 0.0;
        if (pl->getPointAt(i, p) != Acad::eOk || pl->getBulgeAt(i, bulge) != Acad::eOk) break;
        out.AppendNode(XPoint(p.x, p.y, z), BulgeToAngle(bulge));
    }
    return Done(out);
}

int Read2dPolyline(const AcDb2dPolyline* pl, XPoly2D& out) {
    out.Reset();
    if (!pl) return RTERROR;
    int flags = (pl->isClosed() ? kClosed : 0) | (pl->isLinetypeGenerationOn() ? kLinetypeGen : 0);
    switch (pl->polyType()) {
    case AcDb::k2dFitCurvePoly: flags |= kCurveFit; break;
    case AcDb::k2dQuadSplinePoly:
    case AcDb::k2dCubicSplinePoly: flags |= kSplineFit; break;
    default: break;
    }
    out.closed = flags;
    if (flags & (kCurveFit | kSplineFit)) return RTERROR;
    ReadVertices<AcDb2dVertex>(*pl, out, [](const AcDb2dVertex& v) { return v.bulge(); });
    return Done(out);
}

// A 3D polyline passes the flag test of the plane polylines: its vertices
// are taken as they stand, all straight.
int Read3dPolyline(const AcDb3dPolyline* pl, XPoly2D& out) {
    out.Reset();
    if (!pl) return RTERROR;
    int flags = k3dPolyline | (pl->isClosed() ? kClosed : 0);
    if (pl->polyType() != AcDb::k3dSimplePoly) flags |= kSplineFit;
    out.closed = flags;
    if (flags & kSplineFit) return RTERROR;
    ReadVertices<AcDb3dPolylineVertex>(*pl, out, [](const AcDb3dPolylineVertex&) { return 0.0; });
    return Done(out);
}

int ReadPolyEntity(const ads_name name, XPoly2D& out) {
    out.Reset();
    AcDbObjectId id;
    if (acdbGetObjectId(id, name) != Acad::eOk) return RTERROR;
    AcDbEntity* ent = nullptr;
    if (acdbOpenAcDbEntity(ent, id, AcDb::kForRead) != Acad::eOk || !ent) return RTERROR;
    int result = RTERROR;
    if (const auto* lw = AcDbPolyline::cast(ent)) result = ReadPolyline(lw, out);
    else if (const auto* p2 = AcDb2dPolyline::cast(ent)) result = Read2dPolyline(p2, out);
    else if (const auto* p3 = AcDb3dPolyline::cast(ent)) result = Read3dPolyline(p3, out);
    else if (const auto* mesh = AcDbPolygonMesh::cast(ent)) out.closed = MeshFlags(*mesh);
    else if (AcDbPolyFaceMesh::cast(ent)) out.closed = kPolyface;
    ent->close();
    return result;
}

AcDbPolyline* NewPolyline(const XPoly2D& poly) {
    if (poly.Count() < 2) return nullptr;
    auto* pl = new AcDbPolyline(static_cast<unsigned int>(poly.Count()));
    unsigned int i = 0;
    auto angle = poly.angles.begin();
    for (const XPoint& p : poly) {
        double a = angle != poly.angles.end() ? *angle : 0.0;
        if (angle != poly.angles.end()) ++angle;
        pl->addVertexAt(i++, AcGePoint2d(p.x, p.y), AngleToBulge(a), -1.0, -1.0);
    }
    pl->setClosed(poly.closed != 0);
    resbuf thickness{};
    if (acedGetVar("THICKNESS", &thickness) == RTNORM && thickness.restype == RTREAL)
        pl->setThickness(thickness.resval.rreal);
    pl->setElevation(poly.First()->z);
    return pl;
}

namespace {
// New layers of a polyline take this colour.
constexpr int kNewLayerColor = 16;

}  // namespace

XPoly2D::XPoly2D(const ads_name ent) : closed(0) { ReadPolyEntity(ent, *this); }

int XPoly2D::Make(const char* layer) const {
    AcDbPolyline* pl = NewPolyline(*this);
    if (!pl) return RTERROR;
    if (layer && AssureLayerRecord(layer, kNewLayerColor) == RTNORM) pl->setLayer(layer);
    if (AppendToModelSpace(pl) != RTNORM) {
        delete pl;
        return RTERROR;
    }
    pl->close();
    return RTNORM;
}

int XPoly2D::MakeSegment(int i, const char* layer) const {
    XLine line(1);
    XArc arc;
    int kind = Nth(i, line, arc);
    if (kind == 5101) line.Make(layer);
    else if (kind == 5102) arc.Make(layer);
    return RTNORM;
}

int XPoly2D::MakeSegments(const char* layer) const {
    for (int i = 0; i < Count(); ++i) MakeSegment(i, layer);
    return RTNORM;
}

int XPoly2D::MakeVertex(int i, const char* layer) const {
    const XPoint* p = Vertex(i);
    if (!p || i < 0 || i >= Count()) return RTERROR;
    return MakeEntityFromGroups("VERTEX", layer, acutBuildList(10, &p->x, 42, AngleToBulge(Angle(i)), 0));
}
