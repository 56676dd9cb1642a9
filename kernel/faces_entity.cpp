// The faces' ties to the drawing: 3DFACE, polyface POLYLINE and SOLID
// entities, and polylines through the PLINE command.
#include <cstdlib>
#include <cstring>

#include "frame/tq_vars.h"
#include "kernel/X3DFace.h"
#include "kernel/XPface.h"
#include "kernel/XPoly2D.h"
#include "kernel/XPolygonEx.h"
#include "kernel/entity_lists.h"
#include "platform/acdbads.h"
#include "platform/acedads.h"
#include "platform/acutads.h"
#include "platform/dbents.h"

namespace {
// Chords per whole circle when a polyline becomes a polygon.
constexpr int kPolygonChords = 30;
// Group 70 of a polyface mesh, its vertices and its face records.
constexpr int kPolyfaceFlag = 64;
constexpr int kMeshVertexFlag = 192;
constexpr int kFaceRecordFlag = 128;

class EntityList {
public:
    explicit EntityList(const ads_name e) : m_list(acdbEntGet(e)) {}
    ~EntityList() {
        if (m_list) acutRelRb(m_list);
    }
    EntityList(const EntityList&) = delete;
    EntityList& operator=(const EntityList&) = delete;
    const resbuf* get() const { return m_list; }

private:
    resbuf* m_list;
};

resbuf* CornerGroups(const X3DFace& f) {
    return acutBuildList(10, &f.pt[0].x, 11, &f.pt[1].x, 12, &f.pt[2].x, 13, &f.pt[3].x, 70, f.flags & 15, 0);
}
}  // namespace

X3DFace::X3DFace(const ads_name entity, double m[4][4]) : X3DFace(EntityList(entity).get(), m) {}

X3DFace3C::X3DFace3C(const ads_name entity) : X3DFace(EntityList(entity).get(), nullptr) { Collapse(); }

int X3DFace::Make(const char* layer) const { return MakeEntityFromGroups("3DFACE", layer, CornerGroups(*this)); }

int X3DFace::Modify(const ads_name entity) const { return ModifyEntityGroups(entity, CornerGroups(*this), nullptr); }

XPolygonEx::XPolygonEx(const ads_name entity) {
    EntityList list(entity);
    const resbuf* g70 = FindGroup(list.get(), 70);
    int word = g70 ? g70->resval.rint : 0;
    if (word > 1) return;
    XPoly2D path(entity);
    if (path.Count() < 2) return;
    path.MapToPolygon(*this, kPolygonChords);
    if (word == 0) {
        if (Count() >= 2 && *First() == *Last()) {
            RemoveAt(Count() - 1);
            if (Count() < 3) return;   // no flags
        } else {
            RemoveAll();
            return;
        }
    }
    visible.RemoveAll();
    for (int i = 0; i < Count(); ++i) visible.Append(new int(1));
}

int XPolygonEx::Make(const char* layer) const {
    char savedLayer[512] = "", savedOsmode[64] = "";
    tq_getvar("CLAYER", savedLayer);
    tq_getvar("OSMODE", savedOsmode);
    resbuf value{};
    if (layer) {
        value.restype = RTSTR;
        value.resval.rstring = const_cast<char*>(layer);
        acedSetVar("CLAYER", &value);
    }
    value.restype = RTSHORT;
    value.resval.rint = 0;
    acedSetVar("OSMODE", &value);

    resbuf* cmd = acutBuildList(RTSTR, ".PLINE", 0);
    resbuf* tail = cmd;
    for (const XPoint& p : *this) {
        tail->rbnext = acutBuildList(RT3DPOINT, &p.x, 0);
        if (tail->rbnext) tail = tail->rbnext;
    }
    tail->rbnext = acutBuildList(RTSTR, "C", 0);
    int r = acedCmd(cmd);
    acutRelRb(cmd);

    value.restype = RTSHORT;
    value.resval.rint = std::atoi(savedOsmode);
    acedSetVar("OSMODE", &value);
    if (layer && savedLayer[0]) {
        value.restype = RTSTR;
        value.resval.rstring = savedLayer;
        acedSetVar("CLAYER", &value);
    }
    return r;
}

int XPolyFacet::Make(const char* layer) const {
    XPoint origin;
    return MakeEntityFromGroups("VERTEX", layer,
                                acutBuildList(70, kFaceRecordFlag, 10, &origin.x, 71, index[0], 72, index[1], 73,
                                              index[2], 74, index[3], 0));
}

int XPface::Make(const char* layer) const {
    XPoint origin;
    int r = MakeEntityFromGroups("POLYLINE", layer,
                                 acutBuildList(10, &origin.x, 66, 1, 70, kPolyfaceFlag, 71, Count(), 72, 1, 0));
    for (const XPoint& p : *this)
        r = MakeEntityFromGroups("VERTEX", layer, acutBuildList(10, &p.x, 70, kMeshVertexFlag, 0));
    for (const XPolyFacet& f : faces) r = f.Make(layer);
    return MakeEntityFromGroups("SEQEND", layer, nullptr) == RTNORM ? r : RTERROR;
}

int XTrianglePface::MakePolyface(const char* layer) const {
    XPface mesh;
    AsPface(mesh);
    return mesh.Make(layer);
}

int XTrianglePface::MakeSolid(const char* layer) const {
    int r = RTNORM;
    for (const XTriangle& t : *this)
        r = MakeEntityFromGroups("SOLID", layer,
                                 acutBuildList(10, &t.pt[0].x, 11, &t.pt[1].x, 12, &t.pt[2].x, 13, &t.pt[2].x, 0));
    return r;
}

XPface* ConstructPolyFace(const AcArray<void*>& faces) {
    auto* mesh = new XPface;
    for (int i = 0; i < faces.length(); ++i) {
        AcDbFace* face = AcDbFace::cast(static_cast<const AcRxObject*>(faces[i]));
        if (!face) continue;
        int index[4];
        for (uint16_t k = 0; k < 4; ++k) {
            AcGePoint3d p;
            bool shown = true;
            face->getVertexAt(k, p);
            face->isEdgeVisibleAt(k, shown);
            index[k] = mesh->VertexNumber(XPoint(p));
            if (!shown) index[k] = -index[k];
        }
        mesh->faces.Append(new XPolyFacet(index[0], index[1], index[2], index[3]));
    }
    if (mesh->IsEmpty() || mesh->faces.IsEmpty()) {
        delete mesh;
        return nullptr;
    }
    return mesh;
}
