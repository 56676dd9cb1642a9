// Block references (INSERT, MINSERT), their attributes, and the iterator
// over the sub-entities of complex entities.
#include <cmath>

#include "host/db/database_impl.h"
#include "host/db/entity_fields.h"
#include "host/db/ocs.h"
#include "platform/dbents.h"

ACRX_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity)
ACRX_DEFINE_MEMBERS(AcDbMInsertBlock, AcDbBlockReference)

using namespace lumo::db;

namespace {
using Insert = AcDbBlockReference::Data;

// 66 says whether attributes follow; it tells the truth, whatever was read.
bool ReadFollows(AcDbObject&, int, TagCursor& in, ReadContext&) {
    in.Next();
    return true;
}

void WriteFollows(const AcDbObject& obj, int, int code, TagSink& out) {
    for (AcDbStub* s : static_cast<const AcDbBlockReference&>(obj).subents) {
        if (s->object && !s->object->isErased()) {
            out.Int(code, 1);
            return;
        }
    }
}

constexpr CustomIO kInsertIO{ReadFollows, WriteFollows, nullptr};

#define LUMO_INSERT_FIELDS                                                   \
    FCustom(66, 0),                                                          \
    FName(2, Kind::BlockName, offsetof(Insert, block), "", kRequired),       \
    FPoint(10, offsetof(Insert, position), 0, 0, 0, kRequired),              \
    FReal(41, offsetof(Insert, scale[0]), 1, kListed),                       \
    FReal(42, offsetof(Insert, scale[1]), 1, kListed),                       \
    FReal(43, offsetof(Insert, scale[2]), 1, kListed),                       \
    FAngle(50, offsetof(Insert, rotation), 0, kListed),                      \
    FInt16(70, offsetof(Insert, columns), 1, kListed),                       \
    FInt16(71, offsetof(Insert, rows), 1, kListed),                          \
    FReal(44, offsetof(Insert, columnSpacing), 0, kListed),                  \
    FReal(45, offsetof(Insert, rowSpacing), 0, kListed),                     \
    FPoint(210, offsetof(Insert, normal), 0, 0, 1, kListed)

constexpr Field kInsertFields[] = {LUMO_INSERT_FIELDS};
#undef LUMO_INSERT_FIELDS
constexpr Section kInsertSections[] = {kEntitySection, MakeSection("AcDbBlockReference", kInsertFields)};
constexpr Record kInsertRecord = MakeRecord("INSERT", "INSERT", kInsertSections, &kInsertIO);
constexpr Section kMInsertSections[] = {kEntitySection, MakeSection("AcDbMInsertBlock", kInsertFields)};
constexpr Record kMInsertRecord = MakeRecord("INSERT", "INSERT", kMInsertSections, &kInsertIO);
}  // namespace

AcDbBlockReference::AcDbBlockReference() = default;
AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block) {
    m_d.position = position;
    m_d.block = block;
}
const Record& AcDbBlockReference::dxfRecord() const { return kInsertRecord; }
void* AcDbBlockReference::dxfData(int level) { return level == 1 ? &m_d : AcDbEntity::dxfData(level); }

Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& s) {
    if (s.sx == 0 || s.sy == 0 || s.sz == 0) return Acad::eInvalidInput;
    m_d.scale[0] = s.sx;
    m_d.scale[1] = s.sy;
    m_d.scale[2] = s.sz;
    return Acad::eOk;
}

AcGeMatrix3d AcDbBlockReference::blockTransform() const {
    AcGePoint3d base;
    AcDbStub* b = m_d.block;
    if (b && b->object)
        if (auto* block = AcDbBlockTableRecord::cast(b->object)) base = block->origin();
    AcGeMatrix3d scale;
    scale(0, 0) = m_d.scale[0];
    scale(1, 1) = m_d.scale[1];
    scale(2, 2) = m_d.scale[2];
    return AcGeMatrix3d::planeToWorld(m_d.normal) *
           AcGeMatrix3d::translation(m_d.position.asVector()) *
           AcGeMatrix3d::rotation(m_d.rotation, AcGeVector3d::kZAxis) * scale *
           AcGeMatrix3d::translation(-base.asVector());
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute) {
    id.setNull();
    if (!attribute) return Acad::eNullObjectPointer;
    AcDbDatabase* db = database();
    if (!db) return Acad::eNoDatabase;
    if (attribute->stub()) return Acad::eAlreadyInDb;
    auto& impl = db->impl();
    auto* common = static_cast<AcDbEntity::Common*>(attribute->dxfData(0));
    if (common->layer.isNull()) common->layer = m_common.layer;
    if (common->linetype.isNull()) common->linetype = m_common.linetype;
    AcDbStub* s = impl.Add(attribute, objectId());
    subents.push_back(s);
    if (!seqend) {
        auto* end = new AcDbSequenceEnd;
        end->setPropertiesFrom(this);
        seqend = impl.Add(end, objectId());
    }
    attribute->openFor(AcDb::kForWrite);
    id = s;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbAttribute* attribute) {
    AcDbObjectId id;
    return appendAttribute(id, attribute);
}

AcDbObjectIterator* AcDbBlockReference::attributeIterator() const { return new AcDbObjectIterator(subents); }

Acad::ErrorStatus AcDbBlockReference::transformBy(const AcGeMatrix3d& xform) {
    PlaneMap pm = MapPlane(m_d.normal, xform);
    if (!pm.ok) return Acad::eNotApplicable;
    m_d.position = pm.Point(m_d.position);
    for (double& s : m_d.scale) s *= pm.scale;
    if (pm.mirrored) m_d.scale[0] = -m_d.scale[0];
    m_d.rotation = pm.angle + (pm.mirrored ? -m_d.rotation : m_d.rotation);
    m_d.normal = pm.newNormal;
    for (AcDbStub* s : subents)
        if (s->object) static_cast<AcDbEntity*>(s->object)->transformBy(xform);
    return Acad::eOk;
}

AcDbMInsertBlock::AcDbMInsertBlock() = default;
const Record& AcDbMInsertBlock::dxfRecord() const { return kMInsertRecord; }

// ---------------------------------------------------------------------------

void AcDbObjectIterator::step(bool backwards, bool skipErased) {
    if (done()) return;
    do {
        if (backwards) {
            if (m_pos == 0) {
                m_pos = m_ids.size();
                return;
            }
            --m_pos;
        } else {
            ++m_pos;
        }
    } while (!done() && skipErased && (!m_ids[m_pos]->object || m_ids[m_pos]->object->isErased()));
}

AcDbEntity* AcDbObjectIterator::entity() const {
    if (done() || !m_ids[m_pos]->object) return nullptr;
    return AcDbEntity::cast(m_ids[m_pos]->object);
}

void AcDbObjectIterator::setPosition(AcDbObjectId id) {
    for (size_t i = 0; i < m_ids.size(); ++i)
        if (m_ids[i] == static_cast<AcDbStub*>(id)) m_pos = i;
}
