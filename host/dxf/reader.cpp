// Reading an ASCII DXF file into a database.
//
// Each record's groups are gathered (views into the file's text, in one
// reused buffer), an object of the record's kind is made and filled by the
// record walker. Handles come from the file; an object that must be made
// before the file names it (a layer an entity mentions first) moves out of
// the way of a later handle of the file.
#include "host/dxf/reader.h"

#include <algorithm>
#include <vector>

#include "host/db/classes.h"
#include "host/db/database_impl.h"
#include "host/db/record.h"
#include "host/dxf/scanner.h"
#include "platform/dbdict.h"
#include "platform/dbents.h"
#include "platform/dbsymtb.h"

namespace lumo::dxf {

namespace {

using namespace lumo::db;

class Reader {
public:
    Reader(std::string_view text, const std::string& file, AcDbDatabase& db,
           const std::function<void(size_t)>& consumed)
        : m_scan(text, file, &db), m_impl(db.impl()) {
        m_impl.provisional = &m_provisional;
        m_scan.OnConsumed(consumed);
    }
    ~Reader() { m_impl.provisional = nullptr; }
    void Run();

private:
    [[noreturn]] void Fail(uint32_t line, const std::string& what) { m_scan.Fail(line, what); }
    Tag Need(const char* where);
    void Gather(const Tag& first);
    void Read(AcDbObject& obj, ReadContext& ctx);
    void Header();
    void Raw(const std::string& name);
    void Tables();
    void Blocks();
    void Entities();
    void Objects();
    void Entity(AcDbBlockTableRecord* block);
    void ComplexParts(AcDbEntity& owner);
    AcDbSymbolTable* EnsureTable(TableKind kind);
    void EnsureSpaces();
    AcDbBlockTableRecord* BlockNamed(std::string name);

    Scanner m_scan;
    AcDbDatabase::Impl& m_impl;
    std::vector<Tag> m_tags;
    std::vector<AcDbStub*> m_provisional;
};

Tag Reader::Need(const char* where) {
    Tag t;
    if (!m_scan.Next(t)) Fail(m_scan.Line(), std::string("unexpected end of file in ") + where);
    return t;
}

// The groups of one record: `first` (its 0 group) and all up to the next 0.
void Reader::Gather(const Tag& first) {
    m_tags.clear();
    m_tags.push_back(first);
    Tag t;
    while (m_scan.Peek(t) && t.code != 0) {
        m_scan.Next(t);
        if (t.code != 999) m_tags.push_back(t);
    }
    if (!m_scan.Peek(t)) Fail(m_scan.Line(), "unexpected end of file in " + std::string(first.s));
}

void Reader::Read(AcDbObject& obj, ReadContext& ctx) {
    ctx.db = m_impl.self;
    ctx.fromFile = true;
    TagCursor in(m_tags);
    if (!ReadRecord(obj, in, ctx)) {
        delete &obj;
        Fail(m_tags.front().line, ctx.error + " in " + std::string(m_tags.front().s));
    }
}

void Reader::Run() {
    Tag t;
    bool eof = false;
    while (m_scan.Next(t)) {
        if (t.code == 999) continue;
        if (t.code != 0) Fail(t.line, "0 group expected, found group " + std::to_string(t.code));
        if (t.s == "EOF") {
            eof = true;
            break;
        }
        if (t.s != "SECTION") Fail(t.line, "SECTION expected, found \"" + std::string(t.s) + "\"");
        Tag name = Need("SECTION");
        if (name.code != 2) Fail(name.line, "section name expected");
        std::string section(name.s);
        if (section == "HEADER") Header();
        else if (section == "TABLES") Tables();
        else if (section == "BLOCKS") Blocks();
        else if (section == "ENTITIES") Entities();
        else if (section == "OBJECTS") Objects();
        else Raw(section);
    }
    if (!eof) Fail(m_scan.Line(), "unexpected end of file: EOF missing");
    m_impl.provisional = nullptr;
    if (m_impl.modelSpace.isNull()) m_impl.modelSpace = m_impl.FindRecord(kBlockTable, ACDB_MODEL_SPACE);
    if (m_impl.paperSpace.isNull()) m_impl.paperSpace = m_impl.FindRecord(kBlockTable, ACDB_PAPER_SPACE);
    m_impl.EnsureDefaults();
}

void Reader::Header() {
    Tag t = Need("HEADER");
    while (true) {
        if (t.code == 0) {
            if (t.s == "ENDSEC") return;
            Fail(t.line, "ENDSEC expected in HEADER");
        }
        if (t.code != 9) Fail(t.line, "variable name (group 9) expected in HEADER");
        HeaderVar var{std::string(t.s), {}};
        for (t = Need("HEADER"); t.code != 9 && t.code != 0; t = Need("HEADER"))
            if (t.code != 999) var.tags.emplace_back(t);
        if (var.name == "$HANDSEED" && !var.tags.empty()) {
            uint64_t next = AcDbHandle(var.tags.front().s.c_str()).value();
            if (next > 1) m_impl.SeeHandle(next - 1);
        }
        if (HeaderVar* old = m_impl.FindVar(var.name)) *old = std::move(var);
        else m_impl.header.push_back(std::move(var));
    }
}

void Reader::Raw(const std::string& name) {
    RawSection raw{name, {}};
    for (Tag t = Need(name.c_str()); !(t.code == 0 && t.s == "ENDSEC"); t = Need(name.c_str())) {
        if (t.code == 0 && t.s == "EOF") Fail(t.line, "ENDSEC missing in " + name);
        raw.tags.emplace_back(t);
    }
    m_impl.sections.push_back(std::move(raw));
}

AcDbSymbolTable* Reader::EnsureTable(TableKind kind) {
    if (AcDbSymbolTable* t = m_impl.Table(kind)) return t;
    AcDbSymbolTable* table = NewTable(kind);
    m_impl.tables[kind] = m_impl.Add(table, AcDbObjectId());
    return table;
}

// Files without tables (entities-only R12) still name layers, styles and
// blocks, and their entities need a space.
void Reader::EnsureSpaces() {
    for (int k = 0; k < kTableCount; ++k) EnsureTable(static_cast<TableKind>(k));
    if (m_impl.modelSpace.isNull()) m_impl.modelSpace = BlockNamed(ACDB_MODEL_SPACE)->objectId();
    if (m_impl.paperSpace.isNull()) m_impl.paperSpace = BlockNamed(ACDB_PAPER_SPACE)->objectId();
}

AcDbBlockTableRecord* Reader::BlockNamed(std::string name) {
    if (SameName(name, "$MODEL_SPACE")) name = ACDB_MODEL_SPACE;
    if (SameName(name, "$PAPER_SPACE")) name = ACDB_PAPER_SPACE;
    AcDbObjectId id = m_impl.FindRecord(kBlockTable, name);
    if (id.isNull()) id = m_impl.MakeRecord(kBlockTable, name);
    return AcDbBlockTableRecord::cast(static_cast<AcDbStub*>(id)->object);
}

void Reader::Tables() {
    for (Tag t = Need("TABLES"); !(t.code == 0 && t.s == "ENDSEC"); t = Need("TABLES")) {
        if (t.code != 0 || t.s != "TABLE") Fail(t.line, "TABLE expected, found \"" + std::string(t.s) + "\"");
        Gather(t);
        if (m_tags.size() < 2 || m_tags[1].code != 2) Fail(t.line, "table name expected");
        std::string name(m_tags[1].s);
        m_tags.erase(m_tags.begin() + 1);
        TableKind kind;
        bool known = TableFromListName(name, kind) && name != "BLOCK";
        AcDbSymbolTable* table = nullptr;
        if (known) {
            if (m_impl.Table(kind)) {
                table = m_impl.Table(kind);   // a second TABLE of the kind adds to the first
            } else {
                table = NewTable(kind);
                ReadContext ctx;
                Read(*table, ctx);
                m_impl.tables[kind] = m_impl.Add(table, AcDbObjectId(), ctx.handle);
            }
        }
        for (Tag r = Need("TABLE"); !(r.code == 0 && r.s == "ENDTAB"); r = Need("TABLE")) {
            if (r.code != 0) Fail(r.line, "0 group expected in TABLE " + name);
            if (r.s == "ENDSEC") Fail(r.line, "ENDTAB missing in TABLE " + name);
            Gather(r);
            if (!table) continue;   // a table of a kind the host doesn't know is dropped
            AcDbObject* obj = NewObjectForDxf(r.s, m_tags, Where::Objects);
            auto* rec = AcDbSymbolTableRecord::cast(obj);
            if (!rec) {
                delete obj;
                Fail(r.line, std::string(r.s) + " in TABLE " + name);
            }
            ReadContext ctx;
            Read(*rec, ctx);
            m_impl.AddRecord(table, rec, ctx.handle);
        }
    }
    if (m_impl.modelSpace.isNull()) m_impl.modelSpace = m_impl.FindRecord(kBlockTable, ACDB_MODEL_SPACE);
    if (m_impl.paperSpace.isNull()) m_impl.paperSpace = m_impl.FindRecord(kBlockTable, ACDB_PAPER_SPACE);
}

void Reader::Blocks() {
    EnsureSpaces();
    for (Tag t = Need("BLOCKS"); !(t.code == 0 && t.s == "ENDSEC"); t = Need("BLOCKS")) {
        if (t.code != 0 || t.s != "BLOCK") Fail(t.line, "BLOCK expected, found \"" + std::string(t.s) + "\"");
        Gather(t);
        auto* begin = new AcDbBlockBegin;
        ReadContext ctx;
        Read(*begin, ctx);
        AcDbBlockTableRecord* block = nullptr;
        if (ctx.owner && ctx.owner->object) block = AcDbBlockTableRecord::cast(ctx.owner->object);
        if (!block) block = BlockNamed(begin->data().name);
        if (block->blockBegin()) {
            delete begin;
            Fail(t.line, "block \"" + block->name() + "\" defined twice");
        }
        block->setBlockBegin(m_impl.Add(begin, block->objectId(), ctx.handle));
        while (true) {
            Tag next;
            if (!m_scan.Peek(next)) Fail(m_scan.Line(), "unexpected end of file in BLOCK " + block->name());
            if (next.code == 0 && next.s == "ENDBLK") {
                Gather(Need("BLOCK"));
                auto* end = new AcDbBlockEnd;
                ReadContext endCtx;
                Read(*end, endCtx);
                block->setBlockEnd(m_impl.Add(end, block->objectId(), endCtx.handle));
                break;
            }
            if (next.code == 0 && (next.s == "ENDSEC" || next.s == "BLOCK"))
                Fail(next.line, "ENDBLK missing in BLOCK " + block->name());
            Entity(block);
        }
    }
}

void Reader::Entities() {
    EnsureSpaces();
    while (true) {
        Tag t;
        if (!m_scan.Peek(t)) Fail(m_scan.Line(), "unexpected end of file in ENTITIES");
        if (t.code == 0 && t.s == "ENDSEC") {
            m_scan.Next(t);
            return;
        }
        Entity(nullptr);
    }
}

void Reader::Entity(AcDbBlockTableRecord* block) {
    Tag first = Need("ENTITIES");
    if (first.code != 0) Fail(first.line, "0 group expected, found group " + std::to_string(first.code));
    if (first.s == "VERTEX" || first.s == "SEQEND" || first.s == "ATTRIB")
        Fail(first.line, std::string(first.s) + " without its POLYLINE or INSERT");
    if (first.s == "EOF" || first.s == "SECTION") Fail(first.line, "ENDSEC missing");
    Gather(first);
    AcDbObject* obj = NewObjectForDxf(first.s, m_tags, Where::Entities);
    auto* entity = AcDbEntity::cast(obj);
    if (!entity) {
        delete obj;
        Fail(first.line, std::string(first.s) + " is no entity");
    }
    ReadContext ctx;
    Read(*obj, ctx);
    if (!block) {
        AcDbObject* owner = ctx.owner ? ctx.owner->object : nullptr;
        block = owner ? AcDbBlockTableRecord::cast(owner) : nullptr;
        if (!block) {
            bool paper = static_cast<AcDbEntity::Common*>(entity->dxfData(0))->paperSpace != 0;
            AcDbStub* space = paper ? m_impl.paperSpace : m_impl.modelSpace;
            block = AcDbBlockTableRecord::cast(space->object);
        }
    }
    AcDbStub* s = m_impl.Add(obj, block->objectId(), ctx.handle);
    m_impl.PlaceEntity(s, block);
    bool follows = AcDbPolyline::cast(entity) == nullptr && entity->complexParts() &&
                   (!AcDbBlockReference::cast(entity) ||
                    std::any_of(m_tags.begin(), m_tags.end(), [](const Tag& t) { return t.code == 66 && t.i == 1; }));
    if (follows) ComplexParts(*entity);
}

void Reader::ComplexParts(AcDbEntity& owner) {
    lumo::db::ComplexParts* parts = owner.complexParts();
    const char* sub = AcDbBlockReference::cast(&owner) ? "ATTRIB" : "VERTEX";
    while (true) {
        Tag next;
        if (!m_scan.Peek(next) || next.code != 0) return;
        if (next.s == "SEQEND") {
            Gather(Need("SEQEND"));
            auto* end = new AcDbSequenceEnd;
            ReadContext ctx;
            Read(*end, ctx);
            parts->seqend = m_impl.Add(end, owner.objectId(), ctx.handle);
            return;
        }
        if (next.s != sub) return;   // no SEQEND: the writer puts one back
        Gather(Need(sub));
        AcDbObject* obj = NewObjectForDxf(sub, m_tags, Where::Entities, &owner);
        ReadContext ctx;
        Read(*obj, ctx);
        parts->subents.push_back(m_impl.Add(obj, owner.objectId(), ctx.handle));
    }
}

void Reader::Objects() {
    for (Tag t = Need("OBJECTS"); !(t.code == 0 && t.s == "ENDSEC"); t = Need("OBJECTS")) {
        if (t.code != 0) Fail(t.line, "0 group expected in OBJECTS");
        if (t.s == "EOF") Fail(t.line, "ENDSEC missing in OBJECTS");
        Gather(t);
        AcDbObject* obj = NewObjectForDxf(t.s, m_tags, Where::Objects);
        ReadContext ctx;
        Read(*obj, ctx);
        AcDbStub* s = m_impl.Add(obj, AcDbObjectId(ctx.owner), ctx.handle);
        m_impl.objects.push_back(s);
        if (m_impl.nod.isNull() && !ctx.owner && AcDbDictionary::cast(obj)) m_impl.nod = s;
    }
}

}  // namespace

bool ReadDxf(std::string_view text, const std::string& fileName, AcDbDatabase& db, std::string& error,
             const std::function<void(size_t)>& consumed) {
    try {
        Reader reader(text, fileName, db, consumed);
        reader.Run();
        db.impl().fileName = fileName;
        return true;
    } catch (const DxfError& e) {
        error = e.what();
        return false;
    }
}

}  // namespace lumo::dxf
