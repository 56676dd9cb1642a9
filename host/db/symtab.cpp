// Symbol tables, their iterators and the common part of their records.
#include "host/db/database_impl.h"
#include "host/db/entity_fields.h"
#include "platform/crt.h"
#include "platform/dbsymtb.h"

ACRX_DEFINE_MEMBERS(AcDbSymbolTable, AcDbObject)
ACRX_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject)
ACRX_DEFINE_MEMBERS(AcDbBlockTable, AcDbSymbolTable)
ACRX_DEFINE_MEMBERS(AcDbLayerTable, AcDbSymbolTable)
ACRX_DEFINE_MEMBERS(AcDbTextStyleTable, AcDbSymbolTable)
ACRX_DEFINE_MEMBERS(AcDbLinetypeTable, AcDbSymbolTable)
ACRX_DEFINE_MEMBERS(AcDbViewTable, AcDbSymbolTable)
ACRX_DEFINE_MEMBERS(AcDbUCSTable, AcDbSymbolTable)
ACRX_DEFINE_MEMBERS(AcDbViewportTable, AcDbSymbolTable)
ACRX_DEFINE_MEMBERS(AcDbRegAppTable, AcDbSymbolTable)
ACRX_DEFINE_MEMBERS(AcDbDimStyleTable, AcDbSymbolTable)

using namespace lumo::db;

AcDbBlockTable::AcDbBlockTable() : AcDbSymbolTable(kBlockTable) {}
AcDbLayerTable::AcDbLayerTable() : AcDbSymbolTable(kLayerTable) {}
AcDbTextStyleTable::AcDbTextStyleTable() : AcDbSymbolTable(kStyleTable) {}
AcDbLinetypeTable::AcDbLinetypeTable() : AcDbSymbolTable(kLinetypeTable) {}
AcDbViewTable::AcDbViewTable() : AcDbSymbolTable(kViewTable) {}
AcDbUCSTable::AcDbUCSTable() : AcDbSymbolTable(kUcsTable) {}
AcDbViewportTable::AcDbViewportTable() : AcDbSymbolTable(kVportTable) {}
AcDbRegAppTable::AcDbRegAppTable() : AcDbSymbolTable(kAppidTable) {}
AcDbDimStyleTable::AcDbDimStyleTable() : AcDbSymbolTable(kDimStyleTable) {}

AcDbSymbolTable::AcDbSymbolTable(TableKind kind) : m_kind(kind) {}

AcDbStub* AcDbSymbolTable::find(std::string_view name, bool erasedToo) const {
    auto it = m_index.find(UpperName(name));
    if (it != m_index.end() && (erasedToo || !it->second->object || !it->second->object->isErased()))
        return it->second->object ? it->second : nullptr;
    if (it == m_index.end() && !erasedToo) return nullptr;
    for (AcDbStub* s : m_records) {
        if (!s->object) continue;
        auto* rec = static_cast<AcDbSymbolTableRecord*>(s->object);
        if ((erasedToo || !rec->isErased()) && SameName(rec->name(), name)) return s;
    }
    return nullptr;
}

void AcDbSymbolTable::insert(AcDbStub* record) {
    m_records.push_back(record);
    auto* rec = static_cast<AcDbSymbolTableRecord*>(record->object);
    AcDbStub*& slot = m_index[UpperName(rec->name())];
    if (!slot || !slot->object || slot->object->isErased()) slot = record;
}

void AcDbSymbolTable::rename(AcDbStub* record, std::string_view oldName) {
    auto it = m_index.find(UpperName(oldName));
    if (it != m_index.end() && it->second == record) m_index.erase(it);
    auto* rec = static_cast<AcDbSymbolTableRecord*>(record->object);
    AcDbStub*& slot = m_index[UpperName(rec->name())];
    if (!slot || !slot->object || slot->object->isErased()) slot = record;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const char* name, AcDbObjectId& id, bool getErasedRecord) const {
    id.setNull();
    if (!name) return Acad::eInvalidInput;
    AcDbStub* s = find(name, getErasedRecord);
    if (!s) return Acad::eKeyNotFound;
    id = s;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const char* name, AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                                         bool openErasedRecord) const {
    AcDbObjectId id;
    record = nullptr;
    Acad::ErrorStatus es = getAt(name, id, openErasedRecord);
    return es == Acad::eOk ? acdbOpenObject(record, id, mode, openErasedRecord) : es;
}

bool AcDbSymbolTable::has(const char* name) const { return name && find(name) != nullptr; }

bool AcDbSymbolTable::has(AcDbObjectId id) const {
    for (AcDbStub* s : m_records)
        if (s == static_cast<AcDbStub*>(id)) return true;
    return false;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record) {
    id.setNull();
    if (!record) return Acad::eNullObjectPointer;
    if (record->stub()) return Acad::eAlreadyInDb;
    AcDbDatabase* db = database();
    if (!db) return Acad::eNoDatabase;
    if (record->name().empty()) return Acad::eInvalidSymbolTableName;
    if (find(record->name())) return Acad::eDuplicateRecordName;
    AcDbStub* s = db->impl().AddRecord(this, record);
    record->openFor(AcDb::kForWrite);
    id = s;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record) {
    AcDbObjectId id;
    return add(id, record);
}

Acad::ErrorStatus AcDbSymbolTable::newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning,
                                               bool skipDeleted) const {
    iterator = new AcDbSymbolTableIterator(this, atBeginning, skipDeleted);
    return Acad::eOk;
}

namespace {
constexpr Field kTableFields[] = {FInt16(70, offsetof(AcDbSymbolTable::Data, maxCount), 0, kAlways)};
constexpr Section kTableSections[] = {MakeSection("AcDbSymbolTable", kTableFields)};
constexpr Record kTableRecord = MakeRecord("TABLE", "TABLE", kTableSections);
}  // namespace

const Record& AcDbSymbolTable::dxfRecord() const { return kTableRecord; }
void* AcDbSymbolTable::dxfData(int level) { return level == 1 ? &m_d : nullptr; }

// ---------------------------------------------------------------------------

AcDbSymbolTableIterator::AcDbSymbolTableIterator(const AcDbSymbolTable* table, bool atBeginning, bool skipDeleted)
    : m_table(table->objectId()), m_skipDeleted(skipDeleted) {
    start(atBeginning, skipDeleted);
}

namespace {
const std::vector<AcDbStub*>* RecordsOf(AcDbObjectId table) {
    AcDbStub* s = table;
    auto* t = s && s->object ? AcDbSymbolTable::cast(s->object) : nullptr;
    return t ? &t->records() : nullptr;
}
bool Skippable(AcDbStub* s, bool skipDeleted) { return !s->object || (skipDeleted && s->object->isErased()); }
}  // namespace

void AcDbSymbolTableIterator::skip(bool forward) {
    const auto* recs = RecordsOf(m_table);
    if (!recs) return;
    long n = static_cast<long>(recs->size());
    while (m_pos >= 0 && m_pos < n && Skippable((*recs)[static_cast<size_t>(m_pos)], m_skipDeleted))
        m_pos += forward ? 1 : -1;
}

void AcDbSymbolTableIterator::start(bool atBeginning, bool skipDeleted) {
    m_skipDeleted = skipDeleted;
    const auto* recs = RecordsOf(m_table);
    m_pos = atBeginning || !recs ? 0 : static_cast<long>(recs->size()) - 1;
    skip(atBeginning);
}

bool AcDbSymbolTableIterator::done() const {
    const auto* recs = RecordsOf(m_table);
    return !recs || m_pos < 0 || m_pos >= static_cast<long>(recs->size());
}

void AcDbSymbolTableIterator::step(bool forward, bool skipDeleted) {
    if (done()) return;
    m_skipDeleted = skipDeleted;
    m_pos += forward ? 1 : -1;
    skip(forward);
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecordId(AcDbObjectId& id) const {
    id.setNull();
    if (done()) return Acad::eInvalidIndex;
    id = (*RecordsOf(m_table))[static_cast<size_t>(m_pos)];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                                                     bool openErasedRecord) const {
    AcDbObjectId id;
    record = nullptr;
    Acad::ErrorStatus es = getRecordId(id);
    return es == Acad::eOk ? acdbOpenObject(record, id, mode, openErasedRecord) : es;
}

Acad::ErrorStatus AcDbSymbolTableIterator::seek(AcDbObjectId id) {
    const auto* recs = RecordsOf(m_table);
    if (!recs) return Acad::eInvalidInput;
    for (size_t i = 0; i < recs->size(); ++i) {
        if ((*recs)[i] == static_cast<AcDbStub*>(id)) {
            m_pos = static_cast<long>(i);
            return Acad::eOk;
        }
    }
    return Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbSymbolTableIterator::seek(const AcDbSymbolTableRecord* record) {
    return record ? seek(record->objectId()) : Acad::eNullObjectPointer;
}

// ---------------------------------------------------------------------------

AcDbSymbolTableRecord::AcDbSymbolTableRecord() = default;

Acad::ErrorStatus AcDbSymbolTableRecord::getName(char*& name) const {
    name = _strdup(m_common.name.c_str());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const char*& name) const {
    name = m_common.name.c_str();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const char* name) {
    if (!name || !*name) return Acad::eInvalidInput;
    auto* table = ownerId().isValid() ? AcDbSymbolTable::cast(static_cast<AcDbStub*>(ownerId())->object) : nullptr;
    if (table) {
        AcDbStub* other = table->find(name);
        if (other && other != stub()) return Acad::eDuplicateRecordName;
    }
    std::string old = m_common.name;
    m_common.name = name;
    if (table && stub()) table->rename(stub(), old);
    return Acad::eOk;
}

bool AcDbSymbolTableRecord::isRenamable() const {
    const std::string& n = m_common.name;
    return !(SameName(n, "0") || SameName(n, "CONTINUOUS") || SameName(n, "BYLAYER") || SameName(n, "BYBLOCK") ||
             SameName(n, "*Model_Space") || SameName(n, "*Paper_Space"));
}

void* AcDbSymbolTableRecord::dxfData(int level) { return level == 0 ? &m_common : nullptr; }
