// The walker over record tables: groups into objects and objects into groups.
//
// Reading takes the groups of one record in any order the sources use: a
// subclass marker moves to its section, and a group is matched against the
// fields of the current section first, then of all sections, so R12 files
// and entity lists without markers read the same. A group that no field
// claims is kept with its position (markers and fields are numbered in
// table order) and written back at that position.
#include "host/db/record.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "host/db/database_impl.h"
#include "host/db/extras.h"
#include "host/db/kept.h"
#include "platform/dbents.h"

namespace lumo::db {
namespace {

constexpr double kDegreesPerRadian = 57.29577951308232;

struct Slot {
    int section = -1;
    int field = -1;
    int pos = 0;     // position of the field (markers count)
    int index = 0;   // index among fields, the presence bit
};

int MarkerPos(const Record& r, int section) {
    int p = 0;
    for (int i = 0; i < section; ++i) p += 1 + r.sections[i].count;
    return p;
}

int FieldBase(const Record& r, int section) {
    int f = 0;
    for (int i = 0; i < section; ++i) f += r.sections[i].count;
    return f;
}

bool SearchSection(const Record& r, int s, int code, Slot& out) {
    const Section& sec = r.sections[s];
    for (int j = 0; j < sec.count; ++j) {
        if (sec.fields[j].code == code) {
            out = {s, j, MarkerPos(r, s) + 1 + j, FieldBase(r, s) + j};
            return true;
        }
    }
    return false;
}

bool FindField(const Record& r, int code, int cur, Slot& out) {
    if (cur >= 0 && SearchSection(r, cur, code, out)) return true;
    for (int s = 0; s < r.count; ++s)
        if (s != cur && SearchSection(r, s, code, out)) return true;
    return false;
}

bool FindMarker(const Record& r, std::string_view marker, int cur, int& out) {
    for (int s = cur + 1; s < r.count; ++s)
        if (r.sections[s].marker && marker == r.sections[s].marker) { out = s; return true; }
    for (int s = 0; s <= cur && s < r.count; ++s)
        if (r.sections[s].marker && marker == r.sections[s].marker) { out = s; return true; }
    return false;
}

TableKind TableOfKind(Kind k) {
    switch (k) {
    case Kind::LayerName: return kLayerTable;
    case Kind::LinetypeName: return kLinetypeTable;
    case Kind::StyleName: return kStyleTable;
    case Kind::DimStyleName: return kDimStyleTable;
    default: return kBlockTable;
    }
}

bool ResolveName(ReadContext& ctx, Kind kind, std::string_view name, AcDbObjectId& out) {
    if (!ctx.db) return false;
    TableKind table = TableOfKind(kind);
    if (name.empty()) {
        if (kind == Kind::LayerName) name = "0";
        else if (kind == Kind::LinetypeName) name = "BYLAYER";
        else if (kind == Kind::StyleName) name = "STANDARD";
        else if (kind == Kind::DimStyleName) name = "STANDARD";
    }
    auto& impl = ctx.db->impl();
    out = impl.FindRecord(table, name);
    if (out.isNull() && (table == kLayerTable || ctx.fromFile)) out = impl.MakeRecord(table, name);
    if (out.isNull()) {
        ctx.error = std::string("unknown ") + TableListName(table) + " name \"" + std::string(name) + "\"";
        return false;
    }
    return true;
}

bool Numeric(const Tag& t, double& v) {
    switch (t.kind) {
    case ValueKind::Real: v = t.v[0]; return true;
    case ValueKind::Short:
    case ValueKind::Long: v = static_cast<double>(t.i); return true;
    default: return false;
    }
}

bool ReadValue(AcDbObject& obj, const Field& f, const Tag& t, ReadContext& ctx) {
    char* base = static_cast<char*>(obj.dxfData(f.level)) + f.offset;
    bool ok = true;
    switch (f.kind) {
    case Kind::Text:
        ok = t.kind == ValueKind::Text;
        if (ok) reinterpret_cast<std::string*>(base)->assign(t.s);
        break;
    case Kind::Real:
    case Kind::Angle: {
        double v = 0;
        ok = Numeric(t, v);
        if (ok && f.kind == Kind::Angle && ctx.fromFile) v = RadiansFromDegrees(v);
        if (ok) *reinterpret_cast<double*>(base) = v;
        break;
    }
    case Kind::Int16:
    case Kind::Int32: {
        double v = 0;
        ok = (t.kind == ValueKind::Short || t.kind == ValueKind::Long) && Numeric(t, v);
        if (ok && f.kind == Kind::Int16) *reinterpret_cast<int16_t*>(base) = static_cast<int16_t>(t.i);
        if (ok && f.kind == Kind::Int32) *reinterpret_cast<int32_t*>(base) = static_cast<int32_t>(t.i);
        break;
    }
    case Kind::Point3:
    case Kind::Point2: {
        ok = t.kind == ValueKind::Point;
        if (!ok) break;
        auto* p = reinterpret_cast<double*>(base);
        p[0] = t.v[0];
        p[1] = t.v[1];
        if (f.kind == Kind::Point3) p[2] = t.dims >= 3 ? t.v[2] : 0.0;
        break;
    }
    case Kind::Ref:
        ok = t.kind == ValueKind::Name;
        if (ok) *reinterpret_cast<AcDbObjectId*>(base) = AcDbObjectId(t.ref);
        break;
    case Kind::LayerName:
    case Kind::LinetypeName:
    case Kind::StyleName:
    case Kind::DimStyleName:
    case Kind::BlockName: {
        ok = t.kind == ValueKind::Text;
        AcDbObjectId id;
        if (ok) {
            if (!ResolveName(ctx, f.kind, t.s, id)) return false;
            *reinterpret_cast<AcDbObjectId*>(base) = id;
        }
        break;
    }
    case Kind::Layout:
    case Kind::Custom: break;
    }
    if (!ok && ctx.error.empty()) ctx.error = "bad value of group " + std::to_string(t.code);
    return ok;
}

// Reads a {NAME ... } group of 102s.
void ReadAppGroup(AcDbObject& obj, TagCursor& in, ReadContext& ctx) {
    const Tag& open = in.Next();
    std::string_view name = open.s.substr(1);
    std::vector<OwnedTag> body;
    while (!in.Done()) {
        const Tag& t = in.Next();
        if (t.code == 102 && t.s == "}") break;
        body.emplace_back(t);
    }
    if (ctx.modify) return;   // entmod leaves reactors and dictionaries alone
    if (name == "ACAD_REACTORS") {
        auto& ex = obj.ensureExtras();
        for (const OwnedTag& t : body)
            if (t.kind == ValueKind::Name && t.ref) ex.reactors.push_back(t.ref);
    } else if (name == "ACAD_XDICTIONARY") {
        if (!ctx.fromFile) return;   // a new object can't take over a dictionary
        for (const OwnedTag& t : body)
            if (t.kind == ValueKind::Name && t.ref) obj.ensureExtras().xdict = t.ref;
    } else {
        auto& groups = obj.ensureExtras().appGroups;
        groups.emplace_back(open);
        for (OwnedTag& t : body) groups.push_back(std::move(t));
        groups.push_back(OwnedTag::Text(102, "}"));
    }
}

bool BracesBalance(const std::vector<OwnedTag>& tags) {
    int depth = 0;
    for (const OwnedTag& t : tags) {
        if (t.code != 1002) continue;
        if (t.s == "{") ++depth;
        else if (t.s == "}" && --depth < 0) return false;
    }
    return depth == 0;
}

bool ReadXData(AcDbObject& obj, TagCursor& in, ReadContext& ctx) {
    if (in.PeekIf(-3)) in.Next();
    std::vector<XDataApp> apps;
    while (!in.Done()) {
        const Tag& t = in.Next();
        if (t.code == 1001) {
            apps.push_back({std::string(t.s), {}});
        } else if (t.code >= 1000 && t.code <= 1071 && !apps.empty()) {
            apps.back().tags.emplace_back(t);
        } else if (ctx.fromFile) {
            OwnedTag kept(t);
            kept.anchor = 0xffff;
            obj.ensureExtras().unknown.push_back(std::move(kept));
        } else {
            ctx.error = "bad extended data group " + std::to_string(t.code);
            return false;
        }
    }
    auto& impl = ctx.db->impl();
    for (XDataApp& app : apps) {
        AcDbObjectId reg = impl.FindRecord(kAppidTable, app.name);
        if (reg.isNull()) {
            if (!ctx.fromFile) {
                ctx.error = "application \"" + app.name + "\" is not registered";
                return false;
            }
            impl.MakeRecord(kAppidTable, app.name);
        }
        if (!ctx.fromFile && !BracesBalance(app.tags)) {
            ctx.error = "unbalanced braces in extended data of " + app.name;
            return false;
        }
    }
    auto& mine = obj.ensureExtras().xdata;
    std::vector<XDataApp> merged = mine;
    for (XDataApp& app : apps) {
        auto it = std::find_if(merged.begin(), merged.end(),
                               [&](const XDataApp& a) { return SameName(a.name, app.name); });
        if (app.tags.empty()) {
            if (it != merged.end()) merged.erase(it);
        } else if (it != merged.end()) {
            it->tags = std::move(app.tags);
        } else {
            merged.push_back(std::move(app));
        }
    }
    if (!ctx.fromFile && XDataSize(merged) > kXDataLimit) {
        ctx.error = "extended data too large";
        return false;
    }
    mine = std::move(merged);
    return true;
}

uint64_t ParseHandle(std::string_view s) {
    uint64_t h = 0;
    for (char c : s) {
        int d = (c >= '0' && c <= '9') ? c - '0' : (c >= 'A' && c <= 'F') ? c - 'A' + 10
              : (c >= 'a' && c <= 'f') ? c - 'a' + 10 : -1;
        if (d < 0) return 0;
        h = h * 16 + static_cast<uint64_t>(d);
    }
    return h;
}

}  // namespace

double RadiansFromDegrees(double degrees) { return degrees / kDegreesPerRadian; }

double DegreesFromRadians(double radians) {
    double d = radians * kDegreesPerRadian;
    for (int digits = 15; digits <= 17; ++digits) {
        char buf[40];
        auto end = std::to_chars(buf, buf + sizeof buf, d, std::chars_format::general, digits).ptr;
        double shorter = 0;
        std::from_chars(buf, end, shorter);
        if (RadiansFromDegrees(shorter) == radians) return shorter;
    }
    return d;
}

bool ReadRecord(AcDbObject& obj, TagCursor& in, ReadContext& ctx) {
    const Record& rec = obj.dxfRecord();
    int cur = -1;             // current section
    int lastPos = 0;          // anchor of the next unknown group
    bool inUnknown = false;   // after a marker of no section of ours
    bool started = false;     // past the header groups
    bool clearedUnknown = false;
    uint64_t present = ctx.modify ? obj.present() : 0;

    auto keepUnknown = [&](const Tag& t) {
        auto& ex = obj.ensureExtras();
        if (ctx.modify && !clearedUnknown) {
            ex.unknown.clear();
            clearedUnknown = true;
        }
        OwnedTag kept(t);
        kept.anchor = static_cast<uint16_t>(lastPos);
        ex.unknown.push_back(std::move(kept));
    };

    while (!in.Done()) {
        const Tag& t = in.Peek();
        if (t.code == 0 || t.code == -1) { in.Next(); continue; }
        if (t.code == -3 || t.code == 1001) {
            if (!ReadXData(obj, in, ctx)) return false;
            break;
        }
        if (!started && t.code == rec.handleCode) {
            if (ctx.fromFile) ctx.handle = ParseHandle(t.s);
            in.Next();
            continue;
        }
        if (!started && t.code == 102 && t.kind == ValueKind::Text && !t.s.empty() && t.s[0] == '{') {
            ReadAppGroup(obj, in, ctx);
            continue;
        }
        if (!started && t.code == 330 && !ctx.sawOwner) {
            ctx.owner = t.ref;
            ctx.sawOwner = true;
            in.Next();
            continue;
        }
        started = true;
        if (t.code == 100) {
            int s = -1;
            if (t.kind == ValueKind::Text && FindMarker(rec, t.s, cur, s)) {
                cur = s;
                lastPos = MarkerPos(rec, s) + 1;
                inUnknown = false;
            } else {
                keepUnknown(t);
                inUnknown = true;
            }
            in.Next();
            continue;
        }
        Slot slot;
        bool found = !inUnknown && t.code < 1000 && FindField(rec, t.code, cur, slot);
        if (!found && !inUnknown && t.code < 1000) found = FindField(rec, kAnyCode, cur, slot);
        if (!found) {
            keepUnknown(t);
            in.Next();
            continue;
        }
        const Field& f = rec.sections[slot.section].fields[slot.field];
        if (f.kind == Kind::Custom) {
            uint32_t bit = 1u << (f.offset & 31);
            if (!(ctx.touched & bit)) {
                ctx.touched |= bit;
                if (rec.custom->clear) rec.custom->clear(obj, f.offset);
            }
            size_t before = in.Pos();
            if (!rec.custom->read(obj, f.offset, in, ctx)) {
                if (ctx.error.empty()) ctx.error = "bad group " + std::to_string(t.code);
                return false;
            }
            if (in.Pos() == before) in.Next();
        } else {
            if (!ReadValue(obj, f, t, ctx)) return false;
            in.Next();
        }
        if (slot.index < 64) present |= uint64_t{1} << slot.index;
        cur = slot.section;
        lastPos = slot.pos + 1;
    }
    obj.setPresent(present);
    return true;
}

bool HasRequired(const AcDbObject& obj) {
    const Record& rec = obj.dxfRecord();
    int index = 0;
    for (int s = 0; s < rec.count; ++s) {
        for (int j = 0; j < rec.sections[s].count; ++j, ++index) {
            if (!(rec.sections[s].fields[j].flags & kRequired) || index >= 64) continue;
            if (!(obj.present() & (uint64_t{1} << index))) return false;
        }
    }
    return true;
}

namespace {

bool IsDefault(const AcDbObject& obj, const Field& f) {
    const char* base = static_cast<const char*>(obj.dxfBlock(f.level)) + f.offset;
    switch (f.kind) {
    case Kind::Text: return *reinterpret_cast<const std::string*>(base) == (f.text ? f.text : "");
    case Kind::Real:
    case Kind::Angle: return *reinterpret_cast<const double*>(base) == f.def[0];
    case Kind::Int16: return *reinterpret_cast<const int16_t*>(base) == static_cast<int16_t>(f.def[0]);
    case Kind::Int32: return *reinterpret_cast<const int32_t*>(base) == static_cast<int32_t>(f.def[0]);
    case Kind::Point3: {
        auto* p = reinterpret_cast<const double*>(base);
        return p[0] == f.def[0] && p[1] == f.def[1] && p[2] == f.def[2];
    }
    case Kind::Point2: {
        auto* p = reinterpret_cast<const double*>(base);
        return p[0] == f.def[0] && p[1] == f.def[1];
    }
    case Kind::Ref: return reinterpret_cast<const AcDbObjectId*>(base)->isNull();
    case Kind::LayerName:
    case Kind::LinetypeName:
    case Kind::StyleName:
    case Kind::DimStyleName:
    case Kind::BlockName: {
        const auto* id = reinterpret_cast<const AcDbObjectId*>(base);
        return id->isNull() || SameName(AcDbDatabase::Impl::RecordName(*id), f.text ? f.text : "");
    }
    case Kind::Layout:
    case Kind::Custom: return false;
    }
    return true;
}

std::string LayoutName(const AcDbObject& obj) {
    AcDbStub* owner = obj.ownerId();
    while (owner && owner->object && AcDbEntity::cast(owner->object)) owner = owner->object->ownerId();   // a vertex's polyline
    AcDbDatabase* db = owner ? owner->database : nullptr;
    if (!db) return "Model";
    auto& impl = db->impl();
    if (AcDbObjectId(owner) == impl.modelSpace) return "Model";
    auto* block = owner->object ? AcDbBlockTableRecord::cast(owner->object) : nullptr;
    return LayoutNameOf(db, block ? block->getLayoutId() : AcDbObjectId());
}

void WriteValue(const AcDbObject& obj, const Field& f, TagSink& out) {
    const char* base = static_cast<const char*>(obj.dxfBlock(f.level)) + f.offset;
    Flavor fl = out.flavor();
    switch (f.kind) {
    case Kind::Text: out.Text(f.code, *reinterpret_cast<const std::string*>(base)); break;
    case Kind::Real: out.Real(f.code, *reinterpret_cast<const double*>(base)); break;
    case Kind::Angle: {
        double v = *reinterpret_cast<const double*>(base);
        out.Real(f.code, IsDxf(fl) ? DegreesFromRadians(v) : v);
        break;
    }
    case Kind::Int16: out.Int(f.code, *reinterpret_cast<const int16_t*>(base)); break;
    case Kind::Int32: out.Int(f.code, *reinterpret_cast<const int32_t*>(base)); break;
    case Kind::Point3: out.Point(f.code, reinterpret_cast<const double*>(base), 3); break;
    case Kind::Point2: out.Point(f.code, reinterpret_cast<const double*>(base), 2); break;
    case Kind::Ref: out.Ref(f.code, *reinterpret_cast<const AcDbObjectId*>(base)); break;
    case Kind::LayerName:
    case Kind::LinetypeName:
    case Kind::StyleName:
    case Kind::DimStyleName:
    case Kind::BlockName: {
        AcDbObjectId id = *reinterpret_cast<const AcDbObjectId*>(base);
        std::string_view fallback = f.text ? f.text : "";
        // An absent name means the default record: give its name as the
        // drawing spells it ("Standard", not "STANDARD").
        if (id.isNull() && !fallback.empty() && obj.database() && f.kind != Kind::LayerName)
            id = obj.database()->impl().FindRecord(TableOfKind(f.kind), fallback);
        const std::string& name = AcDbDatabase::Impl::RecordName(id);
        out.Text(f.code, id.isNull() || name.empty() ? fallback : std::string_view(name));
        break;
    }
    case Kind::Layout: out.Text(f.code, LayoutName(obj)); break;
    case Kind::Custom: obj.dxfRecord().custom->write(obj, f.offset, f.code, out); break;
    }
}

bool ShouldWrite(const AcDbObject& obj, const Field& f, int index, Flavor fl) {
    bool file = IsDxf(fl);
    if ((f.flags & kNoList) && !file) return false;
    if ((f.flags & kNot12) && fl == Flavor::Dxf12) return false;
    if ((f.flags & kOnly12) && fl != Flavor::Dxf12 && fl != Flavor::Table) return false;
    if ((f.flags & kNoTable) && fl == Flavor::Table) return false;
    if (f.kind == Kind::Custom) return true;
    if (f.flags & (kRequired | kAlways)) return true;
    if ((f.flags & kListed) && !file) return true;
    if (index < 64 && (obj.present() & (uint64_t{1} << index))) return true;
    if (f.kind == Kind::Layout) return false;
    return !IsDefault(obj, f);
}

// Unknown groups in anchor order, without disturbing the order of groups
// that share an anchor.
class UnknownWriter {
public:
    UnknownWriter(const ObjectExtras* ex, TagSink& out) : m_out(out) {
        if (!ex) return;
        for (const OwnedTag& t : ex->unknown) m_tags.push_back(&t);
        std::stable_sort(m_tags.begin(), m_tags.end(),
                         [](const OwnedTag* a, const OwnedTag* b) { return a->anchor < b->anchor; });
    }
    void Flush(int pos) {
        // R12 has no subclass markers: a kept record of a later file goes
        // without them.
        bool markers = m_out.flavor() != Flavor::Dxf12;
        for (; m_next < m_tags.size() && m_tags[m_next]->anchor <= pos; ++m_next)
            if (markers || m_tags[m_next]->code != 100) m_out.Put(m_tags[m_next]->view());
    }
    void FlushAll() { Flush(0x10000); }
private:
    TagSink& m_out;
    std::vector<const OwnedTag*> m_tags;
    size_t m_next = 0;
};

bool AppWanted(std::string_view name, const char* const* apps, int count) {
    for (int k = 0; k < count; ++k) {
        if (!apps[k]) continue;
        std::string_view want = apps[k];
        if (want == "*" || SameName(want, name)) return true;
        // a trailing '*' matches any tail
        if (!want.empty() && want.back() == '*' && name.size() >= want.size() - 1 &&
            SameName(name.substr(0, want.size() - 1), want.substr(0, want.size() - 1)))
            return true;
    }
    return false;
}

void WriteHeader(const AcDbObject& obj, const Record& rec, TagSink& out) {
    Flavor fl = out.flavor();
    char digits[20];
    char* end = std::to_chars(digits, digits + sizeof digits, obj.stub() ? obj.stub()->handle : 0, 16).ptr;
    for (char* p = digits; p < end; ++p)
        if (*p >= 'a' && *p <= 'f') *p = static_cast<char>(*p - 'a' + 'A');
    std::string_view hex(digits, static_cast<size_t>(end - digits));
    const ObjectExtras* ex = obj.extras();
    auto groups = [&] {
        if (!ex) return;
        for (const OwnedTag& t : ex->appGroups) out.Put(t.view());
        if (!ex->reactors.empty()) {
            out.Text(102, "{ACAD_REACTORS");
            for (AcDbStub* r : ex->reactors) out.Ref(330, r);
            out.Text(102, "}");
        }
        if (ex->xdict) {
            out.Text(102, "{ACAD_XDICTIONARY");
            out.Ref(360, ex->xdict);
            out.Text(102, "}");
        }
    };
    switch (fl) {
    case Flavor::Entget:
        out.Ref(-1, obj.stub());
        out.Text(0, DxfNameOf(obj, fl));
        groups();
        if (!obj.ownerId().isNull()) out.Ref(330, obj.ownerId());
        out.Text(rec.handleCode, hex);
        break;
    case Flavor::Dxf2000:
        out.Text(0, DxfNameOf(obj, fl));
        if (auto* table = AcDbSymbolTable::cast(&obj)) out.Text(2, TableDxfName(table->kind()));
        out.Text(rec.handleCode, hex);
        groups();
        out.Ref(330, obj.ownerId());
        break;
    case Flavor::Dxf12:
        out.Text(0, DxfNameOf(obj, fl));
        if (auto* table = AcDbSymbolTable::cast(&obj)) out.Text(2, TableDxfName(table->kind()));
        if (AcDbEntity::cast(&obj)) out.Text(5, hex);
        else if (AcDbSymbolTableRecord::cast(&obj)) out.Text(rec.handleCode, hex);
        break;
    case Flavor::Table:
        out.Text(0, DxfNameOf(obj, fl));
        break;
    }
}

}  // namespace

const char* DxfNameOf(const AcDbObject& obj, Flavor flavor) {
    const Record& rec = obj.dxfRecord();
    if (!rec.dxfName) return KeptDxfName(obj);
    if (flavor == Flavor::Dxf12 && rec.r12Name) return rec.r12Name;
    return rec.dxfName;
}

void WriteRecord(const AcDbObject& obj, TagSink& out, const char* const* apps, int appCount) {
    const Record& rec = obj.dxfRecord();
    Flavor fl = out.flavor();
    WriteHeader(obj, rec, out);
    bool markers = fl == Flavor::Dxf2000 || fl == Flavor::Entget;
    UnknownWriter unknown(obj.extras(), out);
    int pos = 0, index = 0;
    for (int s = 0; s < rec.count; ++s) {
        const Section& sec = rec.sections[s];
        unknown.Flush(pos);
        if (markers && sec.marker && *sec.marker) out.Text(100, sec.marker);
        ++pos;
        for (int j = 0; j < sec.count; ++j, ++pos, ++index) {
            unknown.Flush(pos);
            if (ShouldWrite(obj, sec.fields[j], index, fl)) WriteValue(obj, sec.fields[j], out);
        }
    }
    unknown.FlushAll();
    const ObjectExtras* ex = obj.extras();
    if (!ex || ex->xdata.empty() || fl == Flavor::Table) return;
    bool all = IsDxf(fl);
    bool opened = false;
    for (const XDataApp& app : ex->xdata) {
        if (!all && !AppWanted(app.name, apps, appCount)) continue;
        if (!all && !opened) {
            out.Int(-3, 0);
            opened = true;
        }
        out.Text(1001, app.name);
        for (const OwnedTag& t : app.tags) out.Put(t.view());
    }
}

namespace {
// Collects groups as owned tags, for copies of whole records.
class VectorSink : public TagSink {
public:
    VectorSink() : TagSink(Flavor::Entget) {}
    void Text(int code, std::string_view text) override { tags.push_back(OwnedTag::Text(code, text)); }
    void Real(int code, double value) override { tags.push_back(OwnedTag::Real(code, value)); }
    void Point(int code, const double* p, int dims) override {
        tags.push_back(OwnedTag::Point(code, p[0], p[1], dims > 2 ? p[2] : 0.0, dims));
    }
    void Int(int code, int64_t value) override { tags.push_back(OwnedTag::Int(code, value)); }
    void Ref(int code, AcDbStub* stub) override { tags.push_back(OwnedTag::Ref(code, stub)); }
    void Binary(int code, std::string_view hex) override {
        OwnedTag t = OwnedTag::Text(code, hex);
        t.kind = ValueKind::Binary;
        tags.push_back(std::move(t));
    }
    std::vector<OwnedTag> tags;
};
}  // namespace

bool CopyRecord(const AcDbObject& from, AcDbObject& to) {
    VectorSink sink;
    const char* all[] = {"*"};
    WriteRecord(from, sink, all, 1);
    std::vector<Tag> views;
    views.reserve(sink.tags.size());
    for (const OwnedTag& t : sink.tags) views.push_back(t.view());
    TagCursor in(views);
    ReadContext ctx;   // the owner read lands in ctx and stays the copy's own
    ctx.db = from.database() ? from.database() : acdbHostApplicationServices()->workingDatabase();
    bool ok = ReadRecord(to, in, ctx);
    to.setPresent(from.present());
    return ok;
}

}  // namespace lumo::db
