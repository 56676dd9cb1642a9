// Block table records, their iterator, and the BLOCK, ENDBLK and SEQEND
// entities that frame block definitions and complex entities.
#include "host/db/database_impl.h"
#include "host/db/entity_fields.h"
#include "platform/crt.h"
#include "platform/dbents.h"
#include "platform/dbsymtb.h"

ACRX_DEFINE_MEMBERS(AcDbBlockTableRecord, AcDbSymbolTableRecord)
ACRX_DEFINE_MEMBERS(AcDbBlockBegin, AcDbEntity)
ACRX_DEFINE_MEMBERS(AcDbBlockEnd, AcDbEntity)
ACRX_DEFINE_MEMBERS(AcDbSequenceEnd, AcDbEntity)

using namespace lumo::db;

namespace {
constexpr Field kBtrFields[] = {
    FText(2, offsetof(AcDbSymbolTableRecord::Common, name), "", kAlways, 0),
    FRef(340, offsetof(AcDbBlockTableRecord::Data, layout), kNot12),
};
constexpr Section kBtrSections[] = {{"AcDbSymbolTableRecord", nullptr, 0},
                                    MakeSection("AcDbBlockTableRecord", kBtrFields)};
constexpr Record kBtrRecord = MakeRecord("BLOCK_RECORD", nullptr, kBtrSections);

AcDbBlockBegin* BeginOf(const AcDbBlockTableRecord* b) {
    AcDbStub* s = b->blockBegin();
    return s && s->object ? static_cast<AcDbBlockBegin*>(s->object) : nullptr;
}
}  // namespace

AcDbBlockTableRecord::AcDbBlockTableRecord() = default;
AcDbBlockTableRecord::~AcDbBlockTableRecord() = default;
const Record& AcDbBlockTableRecord::dxfRecord() const { return kBtrRecord; }
void* AcDbBlockTableRecord::dxfData(int level) { return level == 1 ? &m_d : AcDbSymbolTableRecord::dxfData(level); }

void AcDbBlockTableRecord::adopt(AcDbStub* entity) { m_entities.push_back(entity); }

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity) {
    id.setNull();
    if (!entity) return Acad::eNullEntityPointer;
    AcDbDatabase* db = database();
    if (!db) return Acad::eNoDatabase;
    if (entity->stub()) return Acad::eAlreadyInDb;
    auto& impl = db->impl();
    auto* common = static_cast<AcDbEntity::Common*>(entity->dxfData(0));
    if (common->layer.isNull()) common->layer = db->clayer();
    if (common->linetype.isNull()) common->linetype = db->celtype();
    AcDbStub* s = impl.Add(entity, objectId());
    impl.PlaceEntity(s, this);
    if (auto* poly = AcDb2dPolyline::cast(entity)) {
        for (AcDb2dVertex* v : poly->pending()) poly->appendVertex(v);
        poly->pending().clear();
    }
    if (auto* parts = entity->complexParts(); parts && !parts->seqend && !AcDbBlockReference::cast(entity)) {
        auto* end = new AcDbSequenceEnd;
        end->setPropertiesFrom(entity);
        parts->seqend = impl.Add(end, entity->objectId());
    }
    entity->openFor(AcDb::kForWrite);
    id = s;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity) {
    AcDbObjectId id;
    return appendAcDbEntity(id, entity);
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning,
                                                    bool skipDeleted) const {
    iterator = new AcDbBlockTableRecordIterator(this, atBeginning, skipDeleted);
    return Acad::eOk;
}

AcGePoint3d AcDbBlockTableRecord::origin() const {
    AcDbBlockBegin* b = BeginOf(this);
    return b ? b->data().base : AcGePoint3d();
}

Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& origin) {
    AcDbBlockBegin* b = BeginOf(this);
    if (!b) return Acad::eNotApplicable;
    b->data().base = origin;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::comments(char*& text) const {
    AcDbBlockBegin* b = BeginOf(this);
    text = _strdup(b ? b->data().description.c_str() : "");
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::setComments(const char* text) {
    AcDbBlockBegin* b = BeginOf(this);
    if (!b) return Acad::eNotApplicable;
    b->data().description = text ? text : "";
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::pathName(char*& text) const {
    AcDbBlockBegin* b = BeginOf(this);
    text = _strdup(b ? b->data().xrefPath.c_str() : "");
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::setPathName(const char* text) {
    AcDbBlockBegin* b = BeginOf(this);
    if (!b) return Acad::eNotApplicable;
    b->data().xrefPath = text ? text : "";
    return Acad::eOk;
}

bool AcDbBlockTableRecord::isAnonymous() const {
    AcDbBlockBegin* b = BeginOf(this);
    return b && (b->data().flags & 1);
}

bool AcDbBlockTableRecord::isFromExternalReference() const {
    AcDbBlockBegin* b = BeginOf(this);
    return b && (b->data().flags & 4);
}

bool AcDbBlockTableRecord::isLayout() const {
    return !m_d.layout.isNull() || SameName(name(), ACDB_MODEL_SPACE) ||
           (name().size() >= 12 && SameName(name().substr(0, 12), ACDB_PAPER_SPACE));
}

bool AcDbBlockTableRecord::hasAttributeDefinitions() const {
    for (AcDbStub* s : m_entities)
        if (s->object && !s->object->isErased() && AcDbAttributeDefinition::cast(s->object)) return true;
    return false;
}

// ---------------------------------------------------------------------------

AcDbBlockTableRecordIterator::AcDbBlockTableRecordIterator(const AcDbBlockTableRecord* block, bool atBeginning,
                                                           bool skipDeleted)
    : m_block(block->objectId()), m_skipDeleted(skipDeleted) {
    start(atBeginning, skipDeleted);
}

namespace {
const std::vector<AcDbStub*>* EntitiesOf(AcDbObjectId block) {
    AcDbStub* s = block;
    auto* b = s && s->object ? AcDbBlockTableRecord::cast(s->object) : nullptr;
    return b ? &b->entities() : nullptr;
}
}  // namespace

void AcDbBlockTableRecordIterator::skip(bool forward) {
    const auto* ents = EntitiesOf(m_block);
    if (!ents) return;
    long n = static_cast<long>(ents->size());
    while (m_pos >= 0 && m_pos < n) {
        AcDbStub* s = (*ents)[static_cast<size_t>(m_pos)];
        if (s->object && !(m_skipDeleted && s->object->isErased())) break;
        m_pos += forward ? 1 : -1;
    }
}

void AcDbBlockTableRecordIterator::start(bool atBeginning, bool skipDeleted) {
    m_skipDeleted = skipDeleted;
    const auto* ents = EntitiesOf(m_block);
    m_pos = atBeginning || !ents ? 0 : static_cast<long>(ents->size()) - 1;
    skip(atBeginning);
}

bool AcDbBlockTableRecordIterator::done() const {
    const auto* ents = EntitiesOf(m_block);
    return !ents || m_pos < 0 || m_pos >= static_cast<long>(ents->size());
}

void AcDbBlockTableRecordIterator::step(bool forward, bool skipDeleted) {
    if (done()) return;
    m_skipDeleted = skipDeleted;
    m_pos += forward ? 1 : -1;
    skip(forward);
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntityId(AcDbObjectId& id) const {
    id.setNull();
    if (done()) return Acad::eInvalidIndex;
    id = (*EntitiesOf(m_block))[static_cast<size_t>(m_pos)];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntity(AcDbEntity*& entity, AcDb::OpenMode mode,
                                                         bool openErased) const {
    AcDbObjectId id;
    entity = nullptr;
    Acad::ErrorStatus es = getEntityId(id);
    return es == Acad::eOk ? acdbOpenAcDbEntity(entity, id, mode, openErased) : es;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::seek(AcDbObjectId id) {
    const auto* ents = EntitiesOf(m_block);
    if (!ents) return Acad::eInvalidInput;
    for (size_t i = 0; i < ents->size(); ++i) {
        if ((*ents)[i] == static_cast<AcDbStub*>(id)) {
            m_pos = static_cast<long>(i);
            return Acad::eOk;
        }
    }
    return Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::seek(const AcDbEntity* entity) {
    return entity ? seek(entity->objectId()) : Acad::eNullEntityPointer;
}

// ---------------------------------------------------------------------------
// BLOCK: its name is the block record's, written under 2 and again under 3.

namespace {
using Begin = AcDbBlockBegin::Data;

bool ReadBeginName(AcDbObject& obj, int, TagCursor& in, ReadContext&) {
    const Tag& t = in.Next();
    auto& d = static_cast<AcDbBlockBegin&>(obj).data();
    if (t.code == 2) d.name = t.s;
    else d.name2 = t.s;
    return t.kind == ValueKind::Text;
}

void WriteBeginName(const AcDbObject& obj, int, int code, TagSink& out) {
    const auto& d = static_cast<const AcDbBlockBegin&>(obj).data();
    AcDbStub* owner = obj.ownerId();
    auto* block = owner && owner->object ? AcDbBlockTableRecord::cast(owner->object) : nullptr;
    const std::string& given = code == 2 ? d.name : d.name2;
    if (block && out.flavor() == Flavor::Dxf12 && block->isLayout() && !block->name().empty() &&
        block->name().front() == '*') {
        // R12 names its spaces with a dollar: "*" would make them anonymous.
        out.Text(code, !given.empty() && given.front() == '$' ? given : "$" + block->name().substr(1));
        return;
    }
    out.Text(code, block ? std::string_view(block->name()) : std::string_view(given));
}

constexpr CustomIO kBeginIO{ReadBeginName, WriteBeginName, nullptr};
constexpr Field kBeginFields[] = {
    FCustom(2, 0),
    FInt16(70, offsetof(Begin, flags), 0, kAlways),
    FPoint(10, offsetof(Begin, base), 0, 0, 0, kAlways),
    FCustom(3, 0),
    FText(1, offsetof(Begin, xrefPath), "", kAlways),
    FText(4, offsetof(Begin, description), ""),
};
constexpr Section kBeginSections[] = {kEntitySection, MakeSection("AcDbBlockBegin", kBeginFields)};
constexpr Record kBeginRecord = MakeRecord("BLOCK", "BLOCK", kBeginSections, &kBeginIO);

constexpr Section kEndSections[] = {kEntitySection, {"AcDbBlockEnd", nullptr, 0}};
constexpr Record kEndRecord = MakeRecord("ENDBLK", "ENDBLK", kEndSections);

constexpr Section kSeqendSections[] = {kEntitySection};
constexpr Record kSeqendRecord = MakeRecord("SEQEND", "SEQEND", kSeqendSections);
}  // namespace

AcDbBlockBegin::AcDbBlockBegin() = default;
const Record& AcDbBlockBegin::dxfRecord() const { return kBeginRecord; }
void* AcDbBlockBegin::dxfData(int level) { return level == 1 ? &m_d : AcDbEntity::dxfData(level); }

AcDbBlockEnd::AcDbBlockEnd() = default;
const Record& AcDbBlockEnd::dxfRecord() const { return kEndRecord; }

AcDbSequenceEnd::AcDbSequenceEnd() = default;
const Record& AcDbSequenceEnd::dxfRecord() const { return kSeqendRecord; }
