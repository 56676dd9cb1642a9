// Writing a database as an ASCII DXF file.
//
// Sections in the host's order: HEADER, CLASSES, TABLES, BLOCKS, ENTITIES,
// OBJECTS, then any section kept as read. Every record goes through the
// record walker, so what was read is written back in the same groups.
#include "host/dxf/writer.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "host/db/database_impl.h"
#include "host/db/record.h"
#include "platform/dbdict.h"
#include "platform/dbents.h"

namespace lumo::dxf {

namespace {

using namespace lumo::db;

constexpr size_t kFlushAt = 1 << 20;

// Formats groups into a buffer that goes to the stream a megabyte at a time.
class DxfSink : public TagSink {
public:
    DxfSink(Flavor flavor, std::FILE* out) : TagSink(flavor), m_out(out) { m_buf.reserve(kFlushAt + 4096); }
    bool Flush() {
        if (!m_buf.empty() && std::fwrite(m_buf.data(), 1, m_buf.size(), m_out) != m_buf.size()) m_failed = true;
        m_buf.clear();
        return !m_failed;
    }
    bool Failed() const { return m_failed; }

    void Text(int code, std::string_view text) override {
        Code(code);
        for (char c : text) {
            // A line break inside a value would end it: the host's caret form.
            if (static_cast<unsigned char>(c) < 32 && c != '\t') {
                m_buf.push_back('^');
                m_buf.push_back(static_cast<char>(c + 64));
            } else {
                m_buf.push_back(c);
            }
        }
        End();
    }
    void Real(int code, double value) override {
        Code(code);
        Number(value);
        End();
    }
    void Point(int code, const double* p, int dims) override {
        for (int k = 0; k < dims; ++k) Real(code + 10 * k, p[k]);
    }
    void Int(int code, int64_t value) override {
        Code(code);
        char b[24];
        auto r = std::to_chars(b, b + sizeof b, value);
        m_buf.append(b, r.ptr);
        End();
    }
    void Ref(int code, AcDbStub* stub) override {
        Code(code);
        char b[24];
        auto r = std::to_chars(b, b + sizeof b, stub ? stub->handle : 0, 16);
        for (char* p = b; p < r.ptr; ++p)
            if (*p >= 'a' && *p <= 'f') *p = static_cast<char>(*p - 32);
        m_buf.append(b, r.ptr);
        End();
    }
    void Binary(int code, std::string_view hex) override { Text(code, hex); }

private:
    void Code(int code) {
        if (code >= 0 && code < 10) m_buf.append("  ");
        else if (code >= 10 && code < 100) m_buf.push_back(' ');
        char b[8];
        auto r = std::to_chars(b, b + sizeof b, code);
        m_buf.append(b, r.ptr);
        m_buf.push_back('\n');
    }
    void Number(double v) {
        char b[40];
        auto r = std::to_chars(b, b + sizeof b, v);
        bool plain = true;
        for (char* p = b; p < r.ptr; ++p)
            if (*p == '.' || *p == 'e' || *p == 'n' || *p == 'i') plain = false;
        m_buf.append(b, r.ptr);
        if (plain) m_buf.append(".0");
    }
    void End() {
        m_buf.push_back('\n');
        if (m_buf.size() >= kFlushAt) Flush();
    }
    std::FILE* m_out;
    std::string m_buf;
    bool m_failed = false;
};

bool Live(const AcDbStub* s) { return s && s->object && !s->object->isErased(); }

class Writer {
public:
    Writer(AcDbDatabase& db, DxfVersion version, std::FILE* out, WriteStats& stats)
        : m_impl(db.impl()), m_r12(version == DxfVersion::R12),
          m_out(m_r12 ? Flavor::Dxf12 : Flavor::Dxf2000, out), m_stats(stats) {}
    bool Run();

private:
    void Section(const char* name) {
        m_out.Text(0, "SECTION");
        m_out.Text(2, name);
    }
    void EndSection() { m_out.Text(0, "ENDSEC"); }
    void ReserveHandles();
    void Header();
    void Tables();
    void Blocks();
    void Entities();
    void Objects();
    void Entity(AcDbStub* s);
    void SeqEnd(const AcDbEntity& owner);
    void LwPolylineAsPolyline(const AcDbPolyline& pl);
    void Common(const AcDbEntity& e, const char* type);
    uint64_t Handle() { return m_nextSynthetic++; }

    AcDbDatabase::Impl& m_impl;
    bool m_r12;
    DxfSink m_out;
    WriteStats& m_stats;
    uint64_t m_nextSynthetic = 0;
};

// Entities the file needs but the drawing lacks (SEQENDs, an R12 file's
// vertices) get handles above the drawing's, reserved before the header
// tells the next free handle.
void Writer::ReserveHandles() {
    size_t need = 0;
    auto count = [&](AcDbStub* s) {
        if (!Live(s)) return;
        auto* e = static_cast<AcDbEntity*>(s->object);
        if (m_r12)
            if (auto* pl = AcDbPolyline::cast(e)) need += pl->numVerts() + 2;
        auto* parts = e->complexParts();
        if (!parts || Live(parts->seqend) || AcDbPolyline::cast(e)) return;
        bool attributes = std::any_of(parts->subents.begin(), parts->subents.end(), Live);
        if (attributes || !AcDbBlockReference::cast(e)) ++need;
    };
    for (AcDbStub* s : m_impl.entities) count(s);
    if (AcDbSymbolTable* blocks = m_impl.Table(kBlockTable))
        for (AcDbStub* b : blocks->records())
            if (Live(b) && !m_impl.IsSpace(b))
                for (AcDbStub* s : static_cast<AcDbBlockTableRecord*>(b->object)->entities()) count(s);
    m_nextSynthetic = m_impl.nextHandle;
    m_impl.nextHandle += need;
}

std::string Hex(uint64_t h) {
    char b[24];
    auto r = std::to_chars(b, b + sizeof b, h, 16);
    std::string s(b, r.ptr);
    for (char& c : s)
        if (c >= 'a' && c <= 'f') c = static_cast<char>(c - 32);
    return s;
}

void Writer::Header() {
    Section("HEADER");
    m_out.Text(9, "$ACADVER");
    m_out.Text(1, m_r12 ? "AC1009" : "AC1015");
    if (m_r12) {
        m_out.Text(9, "$HANDLING");
        m_out.Int(70, 1);
    }
    m_out.Text(9, "$HANDSEED");
    m_out.Text(5, Hex(m_impl.nextHandle));
    for (const HeaderVar& var : m_impl.header) {
        if (var.name == "$ACADVER" || var.name == "$HANDLING" || var.name == "$HANDSEED") continue;
        m_out.Text(9, var.name);
        for (const OwnedTag& t : var.tags) m_out.Put(t.view());
    }
    EndSection();
}

void Writer::Tables() {
    Section("TABLES");
    for (TableKind kind : kFileTableOrder) {
        if (m_r12 && kind == kBlockTable) continue;
        AcDbSymbolTable* table = m_impl.Table(kind);
        if (!table) continue;
        int16_t live = 0;
        for (AcDbStub* s : table->records())
            if (Live(s)) ++live;
        static_cast<AcDbSymbolTable::Data*>(table->dxfData(1))->maxCount = live;
        WriteRecord(*table, m_out);
        for (AcDbStub* s : table->records())
            if (Live(s)) WriteRecord(*s->object, m_out);
        m_out.Text(0, "ENDTAB");
    }
    EndSection();
}

void Writer::Blocks() {
    Section("BLOCKS");
    AcDbSymbolTable* blocks = m_impl.Table(kBlockTable);
    for (AcDbStub* b : blocks ? blocks->records() : std::vector<AcDbStub*>{}) {
        if (!Live(b)) continue;
        auto* block = static_cast<AcDbBlockTableRecord*>(b->object);
        bool space = m_impl.IsSpace(b);
        if (!Live(block->blockBegin()) || !Live(block->blockEnd())) continue;
        WriteRecord(*block->blockBegin()->object, m_out);
        if (!space)
            for (AcDbStub* s : block->entities()) Entity(s);
        WriteRecord(*block->blockEnd()->object, m_out);
    }
    EndSection();
}

void Writer::Entities() {
    Section("ENTITIES");
    for (AcDbStub* s : m_impl.entities) Entity(s);
    EndSection();
}

void Writer::Objects() {
    Section("OBJECTS");
    AcDbStub* root = m_impl.nod;
    if (Live(root)) WriteRecord(*root->object, m_out);
    for (AcDbStub* s : m_impl.objects)
        if (s != root && Live(s)) WriteRecord(*s->object, m_out);
    EndSection();
}

void Writer::Common(const AcDbEntity& e, const char* type) {
    const auto* c = static_cast<const AcDbEntity::Common*>(e.dxfBlock(0));
    m_out.Text(0, type);
    m_out.Text(5, Hex(Handle()));
    if (!m_r12) {
        m_out.Ref(330, e.objectId());
        m_out.Text(100, "AcDbEntity");
    }
    if (c->paperSpace) m_out.Int(67, 1);
    const std::string& layer = AcDbDatabase::Impl::RecordName(c->layer);
    m_out.Text(8, layer.empty() ? "0" : layer);
    const std::string& lt = AcDbDatabase::Impl::RecordName(c->linetype);
    if (!lt.empty() && !SameName(lt, "BYLAYER")) m_out.Text(6, lt);
    if (c->color != 256) m_out.Int(62, c->color);
}

void Writer::SeqEnd(const AcDbEntity& owner) {
    Common(owner, "SEQEND");
}

void Writer::LwPolylineAsPolyline(const AcDbPolyline& pl) {
    const auto& d = pl.data();
    Common(pl, "POLYLINE");
    m_out.Int(66, 1);
    double origin[3] = {0, 0, d.elevation};
    m_out.Point(10, origin, 3);
    if (d.thickness != 0) m_out.Real(39, d.thickness);
    m_out.Int(70, (d.flags & 1) | (d.flags & 128));
    if (d.constantWidth != 0) {
        m_out.Real(40, d.constantWidth);
        m_out.Real(41, d.constantWidth);
    }
    if (d.normal != AcGeVector3d(0, 0, 1)) m_out.Point(210, &d.normal.x, 3);
    for (const auto& v : d.verts) {
        Common(pl, "VERTEX");
        double p[3] = {v.point.x, v.point.y, d.elevation};
        m_out.Point(10, p, 3);
        if (v.startWidth != 0 || v.endWidth != 0) {
            m_out.Real(40, v.startWidth);
            m_out.Real(41, v.endWidth);
        }
        if (v.bulge != 0) m_out.Real(42, v.bulge);
        m_out.Int(70, 0);
    }
    SeqEnd(pl);
    m_stats.entities += d.verts.size() + 2;
}

void Writer::Entity(AcDbStub* s) {
    if (!Live(s)) return;
    auto* e = static_cast<AcDbEntity*>(s->object);
    if (m_r12 && !e->dxfRecord().r12Name && e->dxfRecord().dxfName) {
        if (auto* pl = AcDbPolyline::cast(e)) LwPolylineAsPolyline(*pl);
        else ++m_stats.skipped;
        return;
    }
    WriteRecord(*e, m_out);
    ++m_stats.entities;
    lumo::db::ComplexParts* parts = e->complexParts();
    if (!parts) return;
    bool any = false;
    for (AcDbStub* sub : parts->subents) {
        if (!Live(sub)) continue;
        WriteRecord(*sub->object, m_out);
        ++m_stats.entities;
        any = true;
    }
    if (!any && AcDbBlockReference::cast(e)) return;   // no attributes: no SEQEND either
    if (Live(parts->seqend)) WriteRecord(*parts->seqend->object, m_out);
    else SeqEnd(*e);
    ++m_stats.entities;
}

bool Writer::Run() {
    ReserveHandles();
    Header();
    if (!m_r12) {
        bool classes = false;
        for (const RawSection& raw : m_impl.sections) {
            if (raw.name != "CLASSES") continue;
            Section("CLASSES");
            for (const OwnedTag& t : raw.tags) m_out.Put(t.view());
            EndSection();
            classes = true;
        }
        if (!classes) {
            Section("CLASSES");
            EndSection();
        }
    }
    Tables();
    Blocks();
    Entities();
    if (!m_r12) {
        Objects();
        for (const RawSection& raw : m_impl.sections) {
            if (raw.name == "CLASSES") continue;
            Section(raw.name.c_str());
            for (const OwnedTag& t : raw.tags) m_out.Put(t.view());
            EndSection();
        }
    }
    m_out.Text(0, "EOF");
    return m_out.Flush();
}

}  // namespace

bool WriteDxf(AcDbDatabase& db, DxfVersion version, std::FILE* out, std::string& error, WriteStats* stats) {
    WriteStats local;
    Writer writer(db, version, out, stats ? *stats : local);
    if (!writer.Run()) {
        error = "write failed";
        return false;
    }
    return true;
}

}  // namespace lumo::dxf
