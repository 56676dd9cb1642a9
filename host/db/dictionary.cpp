// Dictionaries and their iterator.
#include <algorithm>

#include "host/db/database_impl.h"
#include "host/db/record.h"
#include "platform/crt.h"
#include "platform/dbdict.h"

ACRX_DEFINE_MEMBERS(AcDbDictionary, AcDbObject)

using namespace lumo::db;

namespace {
using Dict = AcDbDictionary::Data;

bool ReadEntry(AcDbObject& obj, int, TagCursor& in, ReadContext& ctx) {
    const Tag& key = in.Next();
    if (key.kind != ValueKind::Text) return false;
    AcDbStub* id = nullptr;
    int16_t code = 0;
    if (!in.Done() && (in.Peek().code == 350 || in.Peek().code == 360)) {
        const Tag& ref = in.Next();
        id = ref.ref;
        code = ref.code;
        if (ref.code == 360) static_cast<AcDbDictionary&>(obj).setTreatElementsAsHard(true);
    }
    if (!id) {
        if (ctx.fromFile) return true;   // a file's entry without an object is dropped
        ctx.error = "dictionary entry without an object";
        return false;
    }
    static_cast<AcDbDictionary&>(obj).entries().push_back({std::string(key.s), id, code});
    return true;
}

void WriteEntries(const AcDbObject& obj, int, int, TagSink& out) {
    const auto& dict = static_cast<const AcDbDictionary&>(obj);
    int code = dict.isTreatElementsAsHard() ? 360 : 350;
    bool file = IsDxf(out.flavor());
    for (const auto& e : dict.entries()) {
        if (file && (!e.id->object || e.id->object->isErased())) continue;
        out.Text(3, e.key);
        out.Ref(e.code ? e.code : code, e.id);
    }
}

void ClearEntries(AcDbObject& obj, int) { static_cast<AcDbDictionary&>(obj).entries().clear(); }

constexpr CustomIO kDictIO{ReadEntry, WriteEntries, ClearEntries};
constexpr Field kDictFields[] = {
    FInt16(280, offsetof(Dict, hardOwner), 0),
    FInt16(281, offsetof(Dict, cloning), 1, kAlways),
    FCustom(3, 0),
};
constexpr Section kDictSections[] = {MakeSection("AcDbDictionary", kDictFields)};
constexpr Record kDictRecord = MakeRecord("DICTIONARY", nullptr, kDictSections, &kDictIO);

bool Live(AcDbStub* s) { return s && s->object && !s->object->isErased(); }
}  // namespace

AcDbDictionary::AcDbDictionary() = default;
const Record& AcDbDictionary::dxfRecord() const { return kDictRecord; }
void* AcDbDictionary::dxfData(int level) { return level == 1 ? &m_d : nullptr; }

const AcDbDictionary::Entry* AcDbDictionary::find(std::string_view key) const {
    for (const Entry& e : m_entries)
        if (SameName(e.key, key) && Live(e.id)) return &e;
    return nullptr;
}

Acad::ErrorStatus AcDbDictionary::getAt(const char* key, AcDbObjectId& id) const {
    id.setNull();
    const Entry* e = key ? find(key) : nullptr;
    if (!e) return Acad::eKeyNotFound;
    id = e->id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::getAt(const char* key, AcDbObject*& entry, AcDb::OpenMode mode) const {
    AcDbObjectId id;
    entry = nullptr;
    Acad::ErrorStatus es = getAt(key, id);
    return es == Acad::eOk ? acdbOpenObject(entry, id, mode) : es;
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId id, char*& key) const {
    key = nullptr;
    for (const Entry& e : m_entries) {
        if (e.id == static_cast<AcDbStub*>(id) && Live(e.id)) {
            key = _strdup(e.key.c_str());
            return Acad::eOk;
        }
    }
    return Acad::eKeyNotFound;
}

bool AcDbDictionary::has(const char* key) const { return key && find(key); }

bool AcDbDictionary::has(AcDbObjectId id) const {
    return std::any_of(m_entries.begin(), m_entries.end(),
                       [&](const Entry& e) { return e.id == static_cast<AcDbStub*>(id) && Live(e.id); });
}

uint32_t AcDbDictionary::numEntries() const {
    return static_cast<uint32_t>(std::count_if(m_entries.begin(), m_entries.end(), [](const Entry& e) { return Live(e.id); }));
}

Acad::ErrorStatus AcDbDictionary::remove(const char* key, AcDbObjectId& id) {
    id.setNull();
    for (auto it = m_entries.begin(); key && it != m_entries.end(); ++it) {
        if (SameName(it->key, key) && Live(it->id)) {
            id = it->id;
            it->id->object->setOwner(AcDbObjectId());
            m_entries.erase(it);
            return Acad::eOk;
        }
    }
    return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcDbDictionary::remove(const char* key) {
    AcDbObjectId id;
    return remove(key, id);
}

Acad::ErrorStatus AcDbDictionary::remove(AcDbObjectId id) {
    for (auto it = m_entries.begin(); it != m_entries.end(); ++it) {
        if (it->id == static_cast<AcDbStub*>(id)) {
            if (it->id->object) it->id->object->setOwner(AcDbObjectId());
            m_entries.erase(it);
            return Acad::eOk;
        }
    }
    return Acad::eKeyNotFound;
}

bool AcDbDictionary::setName(const char* oldKey, const char* newKey) {
    if (!oldKey || !newKey || !*newKey || find(newKey)) return false;
    for (Entry& e : m_entries) {
        if (SameName(e.key, oldKey) && Live(e.id)) {
            e.key = newKey;
            return true;
        }
    }
    return false;
}

Acad::ErrorStatus AcDbDictionary::setAt(const char* key, AcDbObject* entry, AcDbObjectId& id) {
    id.setNull();
    if (!key || !*key || !entry) return Acad::eInvalidInput;
    AcDbDatabase* db = database();
    if (!db) return Acad::eNoDatabase;
    if (!entry->stub()) {
        AcDbStub* s = db->impl().Add(entry, objectId());
        db->impl().objects.push_back(s);
        entry->openFor(AcDb::kForWrite);
    } else if (entry->database() != db) {
        return Acad::eWrongDatabase;
    }
    entry->setOwner(objectId());
    for (Entry& e : m_entries) {
        if (SameName(e.key, key) && Live(e.id)) {
            if (e.id != entry->stub()) e.id->object->setErasedFlag(true);
            e.id = entry->stub();
            id = e.id;
            return Acad::eOk;
        }
    }
    m_entries.push_back({key, entry->stub()});
    id = entry->stub();
    return Acad::eOk;
}

AcDbDictionaryIterator* AcDbDictionary::newIterator(AcRx::DictIterType type) const {
    return new AcDbDictionaryIterator(this, type);
}

AcDbDictionaryIterator::AcDbDictionaryIterator(const AcDbDictionary* dict, AcRx::DictIterType type) {
    for (const auto& e : dict->entries())
        if (Live(e.id)) m_entries.push_back(e);
    if (type == AcRx::kDictSorted)
        std::stable_sort(m_entries.begin(), m_entries.end(), [](const auto& a, const auto& b) {
            return UpperName(a.key) < UpperName(b.key);
        });
}

const char* AcDbDictionaryIterator::name() const { return done() ? nullptr : m_entries[m_pos].key.c_str(); }

Acad::ErrorStatus AcDbDictionaryIterator::getObject(AcDbObject*& object, AcDb::OpenMode mode) {
    object = nullptr;
    if (done()) return Acad::eInvalidIndex;
    return acdbOpenObject(object, m_entries[m_pos].id, mode);
}

AcDbObjectId AcDbDictionaryIterator::objectId() const { return done() ? AcDbObjectId() : AcDbObjectId(m_entries[m_pos].id); }

bool AcDbDictionaryIterator::done() const { return m_pos >= m_entries.size(); }

bool AcDbDictionaryIterator::next() {
    if (!done()) ++m_pos;
    return !done();
}

bool AcDbDictionaryIterator::setPosition(AcDbObjectId id) {
    for (size_t i = 0; i < m_entries.size(); ++i) {
        if (m_entries[i].id == static_cast<AcDbStub*>(id)) {
            m_pos = i;
            return true;
        }
    }
    return false;
}
