// Symbol tables (LAYER, LTYPE, STYLE, BLOCK_RECORD, APPID, UCS, VIEW, VPORT,
// DIMSTYLE), their records and iterators.
//
// Names compare without regard to case. Strings handed out through a char*&
// are the caller's, to be released with acutDelString.
#pragma once
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/acge.h"
#include "platform/dbmain.h"

class AcDbSymbolTableRecord;
class AcDbSymbolTableIterator;
class AcDbBlockTableRecordIterator;

// The table that a table object or record belongs to.
namespace lumo::db {
enum TableKind : uint8_t {
    kBlockTable, kLayerTable, kStyleTable, kLinetypeTable, kViewTable,
    kUcsTable, kVportTable, kAppidTable, kDimStyleTable, kTableCount,
};
}

class AcDbSymbolTable : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTable);
    explicit AcDbSymbolTable(lumo::db::TableKind kind = lumo::db::kLayerTable);

    Acad::ErrorStatus getAt(const char* name, AcDbObjectId& id, bool getErasedRecord = false) const;
    Acad::ErrorStatus getAt(const char* name, AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                            bool openErasedRecord = false) const;
    bool has(const char* name) const;
    bool has(AcDbObjectId id) const;
    // Adds a record made with new; the table's database takes it. The record
    // stays open for write until the caller closes it.
    Acad::ErrorStatus add(AcDbSymbolTableRecord* record);
    Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
    Acad::ErrorStatus newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;

    // Host internals.
    lumo::db::TableKind kind() const { return m_kind; }
    const std::vector<AcDbStub*>& records() const { return m_records; }
    AcDbStub* find(std::string_view name, bool erasedToo = false) const;
    void insert(AcDbStub* record);           // keeps the name index
    void rename(AcDbStub* record, std::string_view oldName);
    const lumo::db::Record& dxfRecord() const override;
    void* dxfData(int level) override;
    struct Data { int16_t maxCount = 0; };

private:
    lumo::db::TableKind m_kind;
    Data m_d;
    std::vector<AcDbStub*> m_records;
    std::unordered_map<std::string, AcDbStub*> m_index;   // upper-case names
};

class AcDbSymbolTableIterator {
public:
    virtual ~AcDbSymbolTableIterator() = default;
    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const;
    void step(bool forward = true, bool skipDeleted = true);
    Acad::ErrorStatus getRecordId(AcDbObjectId& id) const;
    Acad::ErrorStatus getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                                bool openErasedRecord = false) const;
    Acad::ErrorStatus seek(AcDbObjectId id);
    Acad::ErrorStatus seek(const AcDbSymbolTableRecord* record);

    // Host internals.
    AcDbSymbolTableIterator(const AcDbSymbolTable* table, bool atBeginning, bool skipDeleted);
private:
    void skip(bool forward);
    AcDbObjectId m_table;
    long m_pos = 0;
    bool m_skipDeleted = true;
};

class AcDbSymbolTableRecord : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord);
    AcDbSymbolTableRecord();

    Acad::ErrorStatus getName(char*& name) const;          // caller frees
    Acad::ErrorStatus getName(const char*& name) const;    // the record's own text
    Acad::ErrorStatus setName(const char* name);
    bool isDependent() const { return (m_common.flags & 16) != 0; }
    bool isResolved() const { return (m_common.flags & 32) != 0; }
    bool isRenamable() const;

    // Host internals.
    const std::string& name() const { return m_common.name; }
    int16_t flagBits() const { return m_common.flags; }
    void setFlagBits(int16_t flags) { m_common.flags = flags; }
    struct Common {
        std::string name;
        int16_t flags = 0;
    };
    void* dxfData(int level) override;

protected:
    Common m_common;
};

class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord);
    AcDbLayerTableRecord();
    bool isFrozen() const { return (m_common.flags & 1) != 0; }
    Acad::ErrorStatus setIsFrozen(bool on);
    bool isOff() const { return m_d.color < 0; }
    void setIsOff(bool on);
    bool isLocked() const { return (m_common.flags & 4) != 0; }
    void setIsLocked(bool on);
    bool VPDFLT() const { return (m_common.flags & 2) != 0; }
    AcCmColor color() const;
    void setColor(const AcCmColor& color);
    AcDbObjectId linetypeObjectId() const { return m_d.linetype; }
    void setLinetypeObjectId(AcDbObjectId id) { m_d.linetype = id; }
    bool isPlottable() const { return m_d.plot != 0; }
    Acad::ErrorStatus setIsPlottable(bool on) { m_d.plot = on ? 1 : 0; return Acad::eOk; }
    AcDb::LineWeight lineWeight() const { return static_cast<AcDb::LineWeight>(m_d.lineweight); }
    Acad::ErrorStatus setLineWeight(AcDb::LineWeight w) { m_d.lineweight = static_cast<int16_t>(w); return Acad::eOk; }

    struct Data {
        int16_t color = 7;
        int16_t plot = 1;
        int16_t lineweight = -3;
        AcDbObjectId linetype;
        AcDbObjectId plotStyle;
    };
    const lumo::db::Record& dxfRecord() const override;
    void* dxfData(int level) override;
private:
    Data m_d;
};

class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbLinetypeTableRecord);
    AcDbLinetypeTableRecord();
    Acad::ErrorStatus comments(char*& text) const;
    Acad::ErrorStatus comments(const char*& text) const { text = m_d.comments.c_str(); return Acad::eOk; }
    Acad::ErrorStatus setComments(const char* text);
    Acad::ErrorStatus asciiDescription(char*& text) const { return comments(text); }
    Acad::ErrorStatus setAsciiDescription(const char* text) { return setComments(text); }
    double patternLength() const { return m_d.patternLength; }
    Acad::ErrorStatus setPatternLength(double length) { m_d.patternLength = length; return Acad::eOk; }
    int numDashes() const { return static_cast<int>(m_d.dashes.size()); }
    Acad::ErrorStatus setNumDashes(int count);
    double dashLengthAt(int index) const;
    Acad::ErrorStatus setDashLengthAt(int index, double length);
    bool isScaledToFit() const { return m_d.alignment == 'S'; }

    struct Dash {
        double length = 0;
        int16_t complex = 0;       // 74: 0 plain, 2 text, 4 shape
        int16_t shape = 0;         // 75
        AcDbObjectId style;        // 340
        double scale = 1;          // 46
        double rotation = 0;       // 50
        double offset[2] = {0, 0}; // 44, 45
        std::string text;          // 9
    };
    struct Data {
        std::string comments;
        int16_t alignment = 65;
        double patternLength = 0;
        std::vector<Dash> dashes;
    };
    const lumo::db::Record& dxfRecord() const override;
    void* dxfData(int level) override;
    Data& data() { return m_d; }
    const Data& data() const { return m_d; }
private:
    Data m_d;
};

class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord);
    AcDbTextStyleTableRecord();
    double textSize() const { return m_d.textSize; }
    Acad::ErrorStatus setTextSize(double size) { m_d.textSize = size; return Acad::eOk; }
    double xScale() const { return m_d.xScale; }
    Acad::ErrorStatus setXScale(double scale) { m_d.xScale = scale; return Acad::eOk; }
    double obliquingAngle() const { return m_d.oblique; }
    Acad::ErrorStatus setObliquingAngle(double angle) { m_d.oblique = angle; return Acad::eOk; }
    double priorSize() const { return m_d.priorSize; }
    Acad::ErrorStatus setPriorSize(double size) { m_d.priorSize = size; return Acad::eOk; }
    uint8_t flagBits() const { return static_cast<uint8_t>(m_d.generation); }
    void setFlagBits(uint8_t bits) { m_d.generation = bits; }
    bool isShapeFile() const { return (m_common.flags & 1) != 0; }
    void setIsShapeFile(bool on);
    bool isVertical() const { return (m_common.flags & 4) != 0; }
    void setIsVertical(bool on);
    Acad::ErrorStatus fileName(char*& name) const;
    Acad::ErrorStatus fileName(const char*& name) const { name = m_d.font.c_str(); return Acad::eOk; }
    Acad::ErrorStatus setFileName(const char* name);
    Acad::ErrorStatus bigFontFileName(char*& name) const;
    Acad::ErrorStatus bigFontFileName(const char*& name) const { name = m_d.bigFont.c_str(); return Acad::eOk; }
    Acad::ErrorStatus setBigFontFileName(const char* name);

    struct Data {
        double textSize = 0;
        double xScale = 1;
        double oblique = 0;
        double priorSize = 2.5;
        int16_t generation = 0;
        std::string font = "txt";
        std::string bigFont;
    };
    const lumo::db::Record& dxfRecord() const override;
    void* dxfData(int level) override;
private:
    Data m_d;
};

class AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbRegAppTableRecord);
    AcDbRegAppTableRecord();
    const lumo::db::Record& dxfRecord() const override;
};

class AcDbUCSTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbUCSTableRecord);
    AcDbUCSTableRecord();
    AcGePoint3d origin() const { return m_d.origin; }
    void setOrigin(const AcGePoint3d& p) { m_d.origin = p; }
    AcGeVector3d xAxis() const { return m_d.xAxis; }
    void setXAxis(const AcGeVector3d& v) { m_d.xAxis = v; }
    AcGeVector3d yAxis() const { return m_d.yAxis; }
    void setYAxis(const AcGeVector3d& v) { m_d.yAxis = v; }

    struct Data {
        AcGePoint3d origin;
        AcGeVector3d xAxis{1, 0, 0};
        AcGeVector3d yAxis{0, 1, 0};
    };
    const lumo::db::Record& dxfRecord() const override;
    void* dxfData(int level) override;
private:
    Data m_d;
};

// Views, viewports and dimension styles keep their settings as read; only
// the name and flags are members.
class AcDbViewTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbViewTableRecord);
    AcDbViewTableRecord();
    const lumo::db::Record& dxfRecord() const override;
};

class AcDbViewportTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbViewportTableRecord);
    AcDbViewportTableRecord();
    const lumo::db::Record& dxfRecord() const override;
};

class AcDbDimStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbDimStyleTableRecord);
    AcDbDimStyleTableRecord();
    const lumo::db::Record& dxfRecord() const override;
};

class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord);
    AcDbBlockTableRecord();
    ~AcDbBlockTableRecord() override;

    // The record must be in a database. The entity stays open for write
    // until the caller closes it.
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;

    AcGePoint3d origin() const;
    Acad::ErrorStatus setOrigin(const AcGePoint3d& origin);
    Acad::ErrorStatus comments(char*& text) const;
    Acad::ErrorStatus setComments(const char* text);
    Acad::ErrorStatus pathName(char*& text) const;
    Acad::ErrorStatus setPathName(const char* text);
    bool isAnonymous() const;
    bool hasAttributeDefinitions() const;
    bool isFromExternalReference() const;
    bool isLayout() const;
    AcDbObjectId getLayoutId() const { return m_d.layout; }
    Acad::ErrorStatus setLayoutId(AcDbObjectId id) { m_d.layout = id; return Acad::eOk; }

    // Host internals: the entities in order, and the BLOCK and ENDBLK
    // entities that open and close the definition in a file.
    std::vector<AcDbStub*>& entities() { return m_entities; }
    const std::vector<AcDbStub*>& entities() const { return m_entities; }
    AcDbStub* blockBegin() const { return m_begin; }
    AcDbStub* blockEnd() const { return m_end; }
    void setBlockBegin(AcDbStub* s) { m_begin = s; }
    void setBlockEnd(AcDbStub* s) { m_end = s; }
    // Places an entity already in the database at the end of the block.
    void adopt(AcDbStub* entity);

    struct Data {
        AcDbObjectId layout;
    };
    const lumo::db::Record& dxfRecord() const override;
    void* dxfData(int level) override;
private:
    Data m_d;
    std::vector<AcDbStub*> m_entities;
    AcDbStub* m_begin = nullptr;
    AcDbStub* m_end = nullptr;
};

class AcDbBlockTableRecordIterator {
public:
    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const;
    void step(bool forward = true, bool skipDeleted = true);
    Acad::ErrorStatus getEntityId(AcDbObjectId& id) const;
    Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode, bool openErased = false) const;
    Acad::ErrorStatus seek(AcDbObjectId id);
    Acad::ErrorStatus seek(const AcDbEntity* entity);

    // Host internals.
    AcDbBlockTableRecordIterator(const AcDbBlockTableRecord* block, bool atBeginning, bool skipDeleted);
private:
    void skip(bool forward);
    AcDbObjectId m_block;
    long m_pos = 0;
    bool m_skipDeleted = true;
};

// The typed tables: the same calls with the record class of the table.
#define LUMO_SYMBOL_TABLE(TABLE, RECORD, ITERATOR)                                                \
    class RECORD;                                                                                 \
    class ITERATOR : public AcDbSymbolTableIterator {                                             \
    public:                                                                                       \
        using AcDbSymbolTableIterator::AcDbSymbolTableIterator;                                   \
        using AcDbSymbolTableIterator::getRecord;                                                 \
        Acad::ErrorStatus getRecord(RECORD*& record, AcDb::OpenMode mode,                         \
                                    bool openErasedRecord = false) const {                        \
            AcDbObjectId id;                                                                      \
            record = nullptr;                                                                     \
            Acad::ErrorStatus es = getRecordId(id);                                               \
            return es == Acad::eOk ? acdbOpenObject(record, id, mode, openErasedRecord) : es;     \
        }                                                                                         \
    };                                                                                            \
    class TABLE : public AcDbSymbolTable {                                                        \
    public:                                                                                       \
        ACRX_DECLARE_MEMBERS(TABLE);                                                              \
        TABLE();                                                                                  \
        using AcDbSymbolTable::getAt;                                                             \
        using AcDbSymbolTable::add;                                                               \
        using AcDbSymbolTable::newIterator;                                                       \
        Acad::ErrorStatus getAt(const char* name, RECORD*& record, AcDb::OpenMode mode,           \
                                bool openErasedRecord = false) const {                            \
            AcDbObjectId id;                                                                      \
            record = nullptr;                                                                     \
            Acad::ErrorStatus es = getAt(name, id, openErasedRecord);                             \
            return es == Acad::eOk ? acdbOpenObject(record, id, mode, openErasedRecord) : es;     \
        }                                                                                         \
        Acad::ErrorStatus newIterator(ITERATOR*& iterator, bool atBeginning = true,               \
                                      bool skipDeleted = true) const {                            \
            iterator = new ITERATOR(this, atBeginning, skipDeleted);                              \
            return Acad::eOk;                                                                     \
        }                                                                                         \
    };

LUMO_SYMBOL_TABLE(AcDbBlockTable, AcDbBlockTableRecord, AcDbBlockTableIterator)
LUMO_SYMBOL_TABLE(AcDbLayerTable, AcDbLayerTableRecord, AcDbLayerTableIterator)
LUMO_SYMBOL_TABLE(AcDbTextStyleTable, AcDbTextStyleTableRecord, AcDbTextStyleTableIterator)
LUMO_SYMBOL_TABLE(AcDbLinetypeTable, AcDbLinetypeTableRecord, AcDbLinetypeTableIterator)
LUMO_SYMBOL_TABLE(AcDbViewTable, AcDbViewTableRecord, AcDbViewTableIterator)
LUMO_SYMBOL_TABLE(AcDbUCSTable, AcDbUCSTableRecord, AcDbUCSTableIterator)
LUMO_SYMBOL_TABLE(AcDbViewportTable, AcDbViewportTableRecord, AcDbViewportTableIterator)
LUMO_SYMBOL_TABLE(AcDbRegAppTable, AcDbRegAppTableRecord, AcDbRegAppTableIterator)
LUMO_SYMBOL_TABLE(AcDbDimStyleTable, AcDbDimStyleTableRecord, AcDbDimStyleTableIterator)
#undef LUMO_SYMBOL_TABLE

// The block names of model and paper space.
#define ACDB_MODEL_SPACE "*Model_Space"
#define ACDB_PAPER_SPACE "*Paper_Space"
