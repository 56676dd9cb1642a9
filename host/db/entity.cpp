// The properties every entity has: layer, linetype, colour, scale, weight,
// visibility.
#include "host/db/stub.h"
#include "host/db/database_impl.h"
#include "platform/crt.h"
#include "platform/dbmain.h"

ACRX_DEFINE_MEMBERS(AcDbEntity, AcDbObject)

AcDbEntity::AcDbEntity() = default;
AcDbEntity::~AcDbEntity() = default;

namespace {
AcDbDatabase* DbOf(const AcDbEntity* e) {
    return e->database() ? e->database() : acdbHostApplicationServices()->workingDatabase();
}
bool IsRecordOf(AcDbObjectId id, lumo::db::TableKind kind) {
    if (!id.isValid()) return false;
    auto* table = AcDbSymbolTable::cast(id.database()->impl().Table(kind));
    return table && table->has(id);
}
}  // namespace

char* AcDbEntity::layer() const { return _strdup(AcDbDatabase::Impl::RecordName(m_common.layer).c_str()); }

Acad::ErrorStatus AcDbEntity::setLayer(const char* name, bool) {
    if (!name) return Acad::eNullObjectPointer;
    AcDbObjectId id = DbOf(this)->impl().FindRecord(lumo::db::kLayerTable, name);
    if (id.isNull()) return Acad::eKeyNotFound;
    m_common.layer = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId layer, bool) {
    if (!IsRecordOf(layer, lumo::db::kLayerTable)) return Acad::eWrongObjectType;
    m_common.layer = layer;
    return Acad::eOk;
}

char* AcDbEntity::linetype() const {
    return _strdup(AcDbDatabase::Impl::RecordName(m_common.linetype).c_str());
}

Acad::ErrorStatus AcDbEntity::setLinetype(const char* name, bool) {
    if (!name) return Acad::eNullObjectPointer;
    AcDbObjectId id = DbOf(this)->impl().FindRecord(lumo::db::kLinetypeTable, name);
    if (id.isNull()) return Acad::eKeyNotFound;
    m_common.linetype = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLinetype(AcDbObjectId linetype, bool) {
    if (!IsRecordOf(linetype, lumo::db::kLinetypeTable)) return Acad::eWrongObjectType;
    m_common.linetype = linetype;
    return Acad::eOk;
}

AcCmColor AcDbEntity::color() const {
    AcCmColor c;
    c.setColorIndex(static_cast<uint16_t>(m_common.color));
    return c;
}

Acad::ErrorStatus AcDbEntity::setColor(const AcCmColor& color, bool doSubents) {
    return setColorIndex(static_cast<uint16_t>(color.colorIndex()), doSubents);
}

Acad::ErrorStatus AcDbEntity::setColorIndex(uint16_t color, bool) {
    if (color > 257) return Acad::eInvalidInput;
    m_common.color = static_cast<int16_t>(color);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLinetypeScale(double scale, bool) {
    if (!(scale > 0)) return Acad::eInvalidInput;
    m_common.ltscale = scale;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLineWeight(AcDb::LineWeight weight, bool) {
    m_common.lineweight = static_cast<int16_t>(weight);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility v, bool) {
    m_common.invisible = v == AcDb::kInvisible ? 1 : 0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setPropertiesFrom(const AcDbEntity* other, bool) {
    if (!other) return Acad::eNullObjectPointer;
    int16_t space = m_common.paperSpace;
    m_common = other->m_common;
    m_common.paperSpace = space;
    return Acad::eOk;
}

void AcDbEntity::setDatabaseDefaults(AcDbDatabase* db) {
    if (!db) db = DbOf(this);
    auto& impl = db->impl();
    m_common.layer = db->clayer();
    AcDbObjectId lt = impl.FindRecord(lumo::db::kLinetypeTable, impl.VarText("$CELTYPE", "BYLAYER"));
    m_common.linetype = lt.isNull() ? impl.FindRecord(lumo::db::kLinetypeTable, "BYLAYER") : lt;
    m_common.color = static_cast<int16_t>(impl.VarInt("$CECOLOR", 256));
    m_common.ltscale = impl.VarReal("$CELTSCALE", 1.0);
    m_common.lineweight = static_cast<int16_t>(impl.VarInt("$CELWEIGHT", -1));
    if (auto* text = AcDbText::cast(this)) text->setTextStyle(db->textstyle());
    if (auto* mtext = AcDbMText::cast(this)) mtext->setTextStyle(db->textstyle());
}

Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d&) { return Acad::eNotApplicable; }

void* AcDbEntity::dxfData(int level) { return level == 0 ? &m_common : nullptr; }
