// Which class an entity or object of a DXF name is made of.
#include "host/db/classes.h"

#include <string>

#include "host/db/kept.h"
#include "platform/dbdict.h"
#include "platform/dbents.h"
#include "platform/dbhatch.h"
#include "platform/dbsymtb.h"

namespace lumo::db {

namespace {

template <class T> AcDbObject* Make() { return new T; }

struct ClassKind {
    const char* dxf;
    AcRxClass* (*desc)();
    AcDbObject* (*make)();
};

// Entities and objects by their DXF name; the first row of a name is what
// a record of that name becomes unless its groups say otherwise.
const ClassKind kKinds[] = {
    {"LINE", &AcDbLine::desc, &Make<AcDbLine>},
    {"CIRCLE", &AcDbCircle::desc, &Make<AcDbCircle>},
    {"ARC", &AcDbArc::desc, &Make<AcDbArc>},
    {"POINT", &AcDbPoint::desc, &Make<AcDbPoint>},
    {"SOLID", &AcDbSolid::desc, &Make<AcDbSolid>},
    {"TRACE", &AcDbTrace::desc, &Make<AcDbTrace>},
    {"3DFACE", &AcDbFace::desc, &Make<AcDbFace>},
    {"TEXT", &AcDbText::desc, &Make<AcDbText>},
    {"ATTDEF", &AcDbAttributeDefinition::desc, &Make<AcDbAttributeDefinition>},
    {"ATTRIB", &AcDbAttribute::desc, &Make<AcDbAttribute>},
    {"MTEXT", &AcDbMText::desc, &Make<AcDbMText>},
    {"INSERT", &AcDbBlockReference::desc, &Make<AcDbBlockReference>},
    {"INSERT", &AcDbMInsertBlock::desc, &Make<AcDbMInsertBlock>},
    {"SEQEND", &AcDbSequenceEnd::desc, &Make<AcDbSequenceEnd>},
    {"BLOCK", &AcDbBlockBegin::desc, &Make<AcDbBlockBegin>},
    {"ENDBLK", &AcDbBlockEnd::desc, &Make<AcDbBlockEnd>},
    {"LWPOLYLINE", &AcDbPolyline::desc, &Make<AcDbPolyline>},
    {"POLYLINE", &AcDb2dPolyline::desc, &Make<AcDb2dPolyline>},
    {"POLYLINE", &AcDb3dPolyline::desc, &Make<AcDb3dPolyline>},
    {"POLYLINE", &AcDbPolygonMesh::desc, &Make<AcDbPolygonMesh>},
    {"POLYLINE", &AcDbPolyFaceMesh::desc, &Make<AcDbPolyFaceMesh>},
    {"VERTEX", &AcDb2dVertex::desc, &Make<AcDb2dVertex>},
    {"VERTEX", &AcDb3dPolylineVertex::desc, &Make<AcDb3dPolylineVertex>},
    {"VERTEX", &AcDbPolygonMeshVertex::desc, &Make<AcDbPolygonMeshVertex>},
    {"VERTEX", &AcDbPolyFaceMeshVertex::desc, &Make<AcDbPolyFaceMeshVertex>},
    {"VERTEX", &AcDbFaceRecord::desc, &Make<AcDbFaceRecord>},
    {"ELLIPSE", &AcDbEllipse::desc, &Make<AcDbEllipse>},
    {"SPLINE", &AcDbSpline::desc, &Make<AcDbSpline>},
    {"HATCH", &AcDbHatch::desc, &Make<AcDbHatch>},
    {"REGION", &AcDbRegion::desc, &Make<AcDbRegion>},
    {"3DSOLID", &AcDb3dSolid::desc, &Make<AcDb3dSolid>},
    {"BODY", &AcDbBody::desc, &Make<AcDbBody>},
    {"DICTIONARY", &AcDbDictionary::desc, &Make<AcDbDictionary>},
    {"XRECORD", &AcDbXrecord::desc, &Make<AcDbXrecord>},
    {"GROUP", &AcDbGroup::desc, &Make<AcDbGroup>},
    {"LAYER", &AcDbLayerTableRecord::desc, &Make<AcDbLayerTableRecord>},
    {"LTYPE", &AcDbLinetypeTableRecord::desc, &Make<AcDbLinetypeTableRecord>},
    {"STYLE", &AcDbTextStyleTableRecord::desc, &Make<AcDbTextStyleTableRecord>},
    {"APPID", &AcDbRegAppTableRecord::desc, &Make<AcDbRegAppTableRecord>},
    {"UCS", &AcDbUCSTableRecord::desc, &Make<AcDbUCSTableRecord>},
    {"VIEW", &AcDbViewTableRecord::desc, &Make<AcDbViewTableRecord>},
    {"VPORT", &AcDbViewportTableRecord::desc, &Make<AcDbViewportTableRecord>},
    {"DIMSTYLE", &AcDbDimStyleTableRecord::desc, &Make<AcDbDimStyleTableRecord>},
    {"BLOCK_RECORD", &AcDbBlockTableRecord::desc, &Make<AcDbBlockTableRecord>},
};

// Entity kinds the host keeps as they are but knows by name (entmake
// accepts them).
constexpr const char* kKeptEntities[] = {
    "DIMENSION", "LEADER", "VIEWPORT", "MLINE", "XLINE", "RAY", "SHAPE", "TOLERANCE", "IMAGE",
    "WIPEOUT", "OLE2FRAME", "OLEFRAME", "MLEADER", "MULTILEADER", "ACAD_TABLE",
};

const Tag* Find(std::span<const Tag> tags, int code) {
    for (const Tag& t : tags)
        if (t.code == code) return &t;
    return nullptr;
}

bool HasMarker(std::span<const Tag> tags, std::string_view marker) {
    for (const Tag& t : tags)
        if (t.code == 100 && t.s == marker) return true;
    return false;
}

int Flags(std::span<const Tag> tags) {
    const Tag* t = Find(tags, 70);
    return t ? static_cast<int>(t->i) : 0;
}

AcDbObject* NewPolyline(std::span<const Tag> tags) {
    int f = Flags(tags);
    if ((f & 64) || HasMarker(tags, "AcDbPolyFaceMesh")) return new AcDbPolyFaceMesh;
    if ((f & 16) || HasMarker(tags, "AcDbPolygonMesh")) return new AcDbPolygonMesh;
    if ((f & 8) || HasMarker(tags, "AcDb3dPolyline")) return new AcDb3dPolyline;
    return new AcDb2dPolyline;
}

AcDbObject* NewVertex(std::span<const Tag> tags, const AcDbObject* parent) {
    int f = Flags(tags);
    if ((f & 128) && !(f & 64)) return new AcDbFaceRecord;
    if (parent) {
        if (AcDbPolyFaceMesh::cast(parent)) return new AcDbPolyFaceMeshVertex;
        if (AcDbPolygonMesh::cast(parent)) return new AcDbPolygonMeshVertex;
        if (AcDb3dPolyline::cast(parent)) return new AcDb3dPolylineVertex;
        if (AcDb2dPolyline::cast(parent)) return new AcDb2dVertex;
    }
    if ((f & 192) == 192) return new AcDbPolyFaceMeshVertex;
    if (f & 64) return new AcDbPolygonMeshVertex;
    if (f & 32) return new AcDb3dPolylineVertex;
    return new AcDb2dVertex;
}

bool IsMInsert(std::span<const Tag> tags) {
    if (HasMarker(tags, "AcDbMInsertBlock")) return true;
    const Tag* c = Find(tags, 70);
    const Tag* r = Find(tags, 71);
    return (c && c->i > 1) || (r && r->i > 1);
}

}  // namespace

AcDbObject* NewObjectForDxf(std::string_view name, std::span<const Tag> tags, Where where,
                            const AcDbObject* parent) {
    if (name == "POLYLINE") return NewPolyline(tags);
    if (name == "VERTEX") return NewVertex(tags, parent);
    if (name == "INSERT") return IsMInsert(tags) ? new AcDbMInsertBlock : new AcDbBlockReference;
    for (const ClassKind& k : kKinds)
        if (name == k.dxf) return k.make();
    if (where == Where::Objects) return new KeptObject(std::string(name));
    if (where == Where::Entities) return new KeptEntity(std::string(name));
    for (const char* kept : kKeptEntities)
        if (name == kept) return new KeptEntity(std::string(name));
    return nullptr;
}

AcDbObject* NewObjectLike(const AcDbObject& obj) {
    AcRxClass* cls = obj.isA();
    for (const ClassKind& k : kKinds)
        if (k.desc() == cls) return k.make();
    if (auto* e = dynamic_cast<const KeptEntity*>(&obj)) return new KeptEntity(e->dxfName());
    if (auto* o = dynamic_cast<const KeptObject*>(&obj)) return new KeptObject(o->dxfName());
    return nullptr;
}

}  // namespace lumo::db
