// Dictionaries, extended records and groups.
#pragma once
#include <string>
#include <vector>

#include "platform/dbmain.h"

namespace AcRx {
// Order of a dictionary walk: as entered, or by key.
enum DictIterType { kDictCollated = 0, kDictSorted = 1 };
}

class AcDbDictionaryIterator;

namespace lumo::db {
struct OwnedTag;
}

// Keys compare without regard to case. Entries are owned by the dictionary
// (hard or soft as the flag says).
class AcDbDictionary : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDictionary);
    AcDbDictionary();

    Acad::ErrorStatus getAt(const char* key, AcDbObject*& entry, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getAt(const char* key, AcDbObjectId& id) const;
    Acad::ErrorStatus nameAt(AcDbObjectId id, char*& key) const;   // caller frees
    bool has(const char* key) const;
    bool has(AcDbObjectId id) const;
    uint32_t numEntries() const;
    Acad::ErrorStatus remove(const char* key);
    Acad::ErrorStatus remove(const char* key, AcDbObjectId& id);
    Acad::ErrorStatus remove(AcDbObjectId id);
    bool setName(const char* oldKey, const char* newKey);
    // Puts an object under a key, replacing (and erasing) what was there.
    // An object not yet in a database is added to the dictionary's.
    Acad::ErrorStatus setAt(const char* key, AcDbObject* entry, AcDbObjectId& id);
    AcDbDictionaryIterator* newIterator(AcRx::DictIterType type = AcRx::kDictCollated) const;
    bool isTreatElementsAsHard() const { return m_d.hardOwner != 0; }
    void setTreatElementsAsHard(bool on) { m_d.hardOwner = on ? 1 : 0; }
    AcDb::DuplicateRecordCloning mergeStyle() const { return static_cast<AcDb::DuplicateRecordCloning>(m_d.cloning); }
    void setMergeStyle(AcDb::DuplicateRecordCloning style) { m_d.cloning = static_cast<int16_t>(style); }

    // Host internals.
    struct Entry {
        std::string key;
        AcDbStub* id;
        int16_t code = 0;   // 350 or 360 as a file gave it; 0 follows the flag
    };
    std::vector<Entry>& entries() { return m_entries; }
    const std::vector<Entry>& entries() const { return m_entries; }
    const Entry* find(std::string_view key) const;
    struct Data {
        int16_t hardOwner = 0;
        int16_t cloning = 1;
    };
    const lumo::db::Record& dxfRecord() const override;
    void* dxfData(int level) override;
private:
    Data m_d;
    std::vector<Entry> m_entries;
};

class AcDbDictionaryIterator {
public:
    const char* name() const;
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDb::OpenMode mode);
    AcDbObjectId objectId() const;
    bool done() const;
    bool next();
    bool setPosition(AcDbObjectId id);

    // Host internals: a snapshot of the entries at creation.
    AcDbDictionaryIterator(const AcDbDictionary* dict, AcRx::DictIterType type);
private:
    std::vector<AcDbDictionary::Entry> m_entries;
    size_t m_pos = 0;
};

// Extended record: a chain of groups under a dictionary key.
class AcDbXrecord : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbXrecord);
    AcDbXrecord();
    ~AcDbXrecord() override;
    // A copy of the data; the caller frees it.
    Acad::ErrorStatus rbChain(resbuf** chain, AcDbDatabase* db = nullptr) const;
    Acad::ErrorStatus setFromRbChain(const resbuf& chain, AcDbDatabase* db = nullptr);
    Acad::ErrorStatus setFromRbChain(const resbuf* chain, AcDbDatabase* db = nullptr);
    bool isXlateReferences() const { return true; }
    AcDb::DuplicateRecordCloning mergeStyle() const { return static_cast<AcDb::DuplicateRecordCloning>(m_d.cloning); }
    void setMergeStyle(AcDb::DuplicateRecordCloning style) { m_d.cloning = static_cast<int16_t>(style); }

    // Host internals.
    struct Data {
        int16_t cloning = 1;
    };
    std::vector<lumo::db::OwnedTag>& items() { return m_items; }
    const std::vector<lumo::db::OwnedTag>& items() const { return m_items; }
    const lumo::db::Record& dxfRecord() const override;
    void* dxfData(int level) override;
private:
    Data m_d;
    std::vector<lumo::db::OwnedTag> m_items;
};

class AcDbGroupIterator {
public:
    AcDbObjectId objectId() const;
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDb::OpenMode mode);
    bool done() const { return m_pos >= m_ids.size(); }
    bool next() { ++m_pos; return !done(); }
    explicit AcDbGroupIterator(std::vector<AcDbStub*> ids) : m_ids(std::move(ids)) {}
private:
    std::vector<AcDbStub*> m_ids;
    size_t m_pos = 0;
};

class AcDbGroup : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbGroup);
    AcDbGroup();
    explicit AcDbGroup(const char* description, bool selectable = true);

    const char* description() const { return m_d.description.c_str(); }
    Acad::ErrorStatus setDescription(const char* text);
    bool isSelectable() const { return m_d.selectable != 0; }
    Acad::ErrorStatus setSelectable(bool on) { m_d.selectable = on ? 1 : 0; return Acad::eOk; }
    bool isAnonymous() const { return m_d.unnamed != 0; }
    Acad::ErrorStatus setAnonymous() { m_d.unnamed = 1; return Acad::eOk; }
    // The key under which ACAD_GROUP keeps the group; caller frees.
    Acad::ErrorStatus getName(char*& name) const;
    Acad::ErrorStatus append(AcDbObjectId id);
    Acad::ErrorStatus prepend(AcDbObjectId id);
    Acad::ErrorStatus insertAt(uint32_t index, AcDbObjectId id);
    Acad::ErrorStatus remove(AcDbObjectId id);
    Acad::ErrorStatus removeAt(uint32_t index);
    Acad::ErrorStatus clear();
    uint32_t numEntities() const { return static_cast<uint32_t>(m_d.ids.size()); }
    bool has(const AcDbEntity* entity) const;
    uint32_t allEntityIds(AcArray<AcDbObjectId>& ids) const;
    AcDbGroupIterator* newIterator();

    struct Data {
        std::string description;
        int16_t unnamed = 0;
        int16_t selectable = 1;
        std::vector<AcDbStub*> ids;
    };
    const lumo::db::Record& dxfRecord() const override;
    void* dxfData(int level) override;
    Data& data() { return m_d; }
private:
    Data m_d;
};
