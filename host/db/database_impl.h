// The members of a drawing database, for the host's own code.
//
// Objects are reached through stubs (host/db/stub.h). The handle index maps
// handles to stubs and holds every stub of the database, also of objects
// erased or only referred to (a file may name a handle before the object).
// Entities of model and paper space are kept in one list in drawing order:
// entnext walks it and the ENTITIES section is written from it.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "host/db/stub.h"
#include "host/db/tags.h"
#include "platform/dbmain.h"
#include "platform/dbents.h"
#include "platform/dbsymtb.h"

namespace lumo::db {

// Open addressing from handle to stub; handle 0 marks a free slot.
class HandleIndex {
public:
    AcDbStub* Find(uint64_t handle) const;
    void Insert(AcDbStub* stub);
    size_t Size() const { return m_count; }
    template <class F> void ForEach(F&& f) const {
        for (AcDbStub* s : m_slots) if (s) f(s);
    }
    void Clear() { m_slots.clear(); m_count = 0; }
    void Remove(AcDbStub* stub);
private:
    void Grow();
    std::vector<AcDbStub*> m_slots;
    size_t m_count = 0;
};

struct HeaderVar {
    std::string name;          // with the leading '$'
    std::vector<OwnedTag> tags;
};

// A section kept as read (CLASSES, THUMBNAILIMAGE, unknown ones).
struct RawSection {
    std::string name;
    std::vector<OwnedTag> tags;
};

const char* TableDxfName(TableKind kind);      // "LAYER", "BLOCK_RECORD"
const char* TableListName(TableKind kind);     // as tblsearch names it: "LAYER", "BLOCK"
bool TableFromListName(std::string_view name, TableKind& kind);
// The table order of a file: VPORT, LTYPE, LAYER, STYLE, VIEW, UCS, APPID, DIMSTYLE, BLOCK_RECORD.
extern const TableKind kFileTableOrder[kTableCount];

// Names compare as the host does: ASCII letters without regard to case.
bool SameName(std::string_view a, std::string_view b);
// A new, empty table object of a kind.
AcDbSymbolTable* NewTable(TableKind kind);
std::string UpperName(std::string_view name);

// What the entity calls keep between calls on one drawing.
struct AdsState {
    AcDbEntity* complex = nullptr;              // a POLYLINE or INSERT waiting for its SEQEND
    std::vector<AcDbEntity*> parts;             // its vertices or attributes so far
    AcDbBlockBegin* block = nullptr;            // a BLOCK waiting for its ENDBLK
    std::vector<AcDbEntity*> blockEntities;
    std::string lastBlock;                      // the name the last ENDBLK gave its block
    int tableCursor[kTableCount] = {-1, -1, -1, -1, -1, -1, -1, -1, -1};
    std::vector<std::pair<AcDbStub*, size_t>> dictCursor;

    AdsState() = default;
    AdsState(const AdsState&) = delete;
    AdsState& operator=(const AdsState&) = delete;
    ~AdsState() { DropComplex(); DropBlock(); }
    void DropComplex();
    void DropBlock();
};

}  // namespace lumo::db

struct AcDbDatabase::Impl {
    explicit Impl(AcDbDatabase* db) : self(db) {}
    AcDbDatabase* self;
    lumo::db::HandleIndex handles;
    uint64_t nextHandle = 1;
    AcDbObjectId tables[lumo::db::kTableCount];
    AcDbObjectId nod;
    AcDbObjectId modelSpace;
    AcDbObjectId paperSpace;
    std::vector<AcDbStub*> entities;   // both spaces, drawing order
    std::vector<AcDbStub*> objects;    // the OBJECTS section, in order
    std::vector<lumo::db::HeaderVar> header;
    std::vector<lumo::db::RawSection> sections;
    std::string fileName;
    // While a file is read: objects made for it without a handle of the
    // file, which give way when the file names their handle later.
    std::vector<AcDbStub*>* provisional = nullptr;
    lumo::db::AdsState ads;

    // The stub of a handle, made on demand when `create`.
    AcDbStub* StubFor(uint64_t handle, bool create);
    // Adds an object: gives it a stub (with `handle`, or the next free one)
    // and an owner. The database owns the object from now on.
    AcDbStub* Add(AcDbObject* obj, AcDbObjectId owner, uint64_t handle = 0);
    // Takes note of a handle given from outside so new ones stay above it.
    void SeeHandle(uint64_t handle) { if (handle >= nextHandle) nextHandle = handle + 1; }

    AcDbSymbolTable* Table(lumo::db::TableKind kind) const;
    // A record by name; null id if there is none (erased records don't count).
    AcDbObjectId FindRecord(lumo::db::TableKind kind, std::string_view name) const;
    // Makes a record of that name with default settings.
    AcDbObjectId MakeRecord(lumo::db::TableKind kind, std::string_view name);
    // Adds a record made elsewhere to a table (with `handle` when read from
    // a file); a block record gets its BLOCK and ENDBLK.
    AcDbStub* AddRecord(AcDbSymbolTable* table, AcDbSymbolTableRecord* record, uint64_t handle = 0,
                        bool withEnds = true);
    // The name of a record, or "" for a null or dead id.
    static const std::string& RecordName(AcDbObjectId id);

    lumo::db::HeaderVar* FindVar(std::string_view name);
    const lumo::db::HeaderVar* FindVar(std::string_view name) const;
    void SetVar(std::string_view name, std::vector<lumo::db::OwnedTag> tags);
    double VarReal(std::string_view name, double def) const;
    int VarInt(std::string_view name, int def) const;
    std::string VarText(std::string_view name, std::string_view def) const;
    AcGePoint3d VarPoint(std::string_view name, const AcGePoint3d& def) const;

    // Places an entity in a block, and in the drawing order when the block is
    // a space.
    void PlaceEntity(AcDbStub* entity, AcDbBlockTableRecord* block);
    bool IsSpace(AcDbObjectId block) const { return block == modelSpace || block == paperSpace; }
    // Fills in what a drawing can't do without (tables, layer 0, spaces,
    // dictionaries ...), keeping what is there.
    void EnsureDefaults();
};
