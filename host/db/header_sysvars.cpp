// System variables that the drawing keeps in its header: getvar reads the
// working drawing's $VARIABLE, setvar writes it, so a drawing read from a
// file shows its own settings and a saved one keeps the changes.
#include <cstdio>
#include <cstdlib>

#include "host/db/database_impl.h"
#include "host/sysvars/sysvars.h"

namespace lumo::db {

namespace {

using host::SysVarDef;
using host::SysVarValue;

AcDbDatabase::Impl& Drawing() { return acdbHostApplicationServices()->workingDatabase()->impl(); }

enum class Check { None, Layer, Linetype, Style, Positive };

struct HeaderVarDef {
    const char* name;   // without the '$'
    short type;         // RTSTR, RTREAL, RTSHORT, RTPOINT, RT3DPOINT
    int code;           // the group its value has in the header
    bool readOnly;
    Check check;
};

constexpr HeaderVarDef kVars[] = {
    {"CLAYER", RTSTR, 8, false, Check::Layer},      {"CELTYPE", RTSTR, 6, false, Check::Linetype},
    {"TEXTSTYLE", RTSTR, 7, false, Check::Style},   {"DIMSTYLE", RTSTR, 2, true, Check::None},
    {"CECOLOR", RTSTR, 62, false, Check::None},     {"LTSCALE", RTREAL, 40, false, Check::Positive},
    {"CELTSCALE", RTREAL, 40, false, Check::Positive}, {"TEXTSIZE", RTREAL, 40, false, Check::Positive},
    {"PDSIZE", RTREAL, 40, false, Check::None},     {"THICKNESS", RTREAL, 40, false, Check::None},
    {"ELEVATION", RTREAL, 40, false, Check::None},  {"ANGBASE", RTREAL, 50, false, Check::None},
    {"PDMODE", RTSHORT, 70, false, Check::None},    {"TILEMODE", RTSHORT, 70, false, Check::None},
    {"LUNITS", RTSHORT, 70, false, Check::None},    {"LUPREC", RTSHORT, 70, false, Check::None},
    {"AUNITS", RTSHORT, 70, false, Check::None},    {"AUPREC", RTSHORT, 70, false, Check::None},
    {"ANGDIR", RTSHORT, 70, false, Check::None},    {"DIMZIN", RTSHORT, 70, false, Check::None},
    {"INSUNITS", RTSHORT, 70, false, Check::None},  {"MEASUREMENT", RTSHORT, 70, false, Check::None},
    {"ORTHOMODE", RTSHORT, 70, false, Check::None}, {"OSMODE", RTSHORT, 70, false, Check::None},
    {"EXTMIN", RT3DPOINT, 10, true, Check::None},   {"EXTMAX", RT3DPOINT, 10, true, Check::None},
    {"INSBASE", RT3DPOINT, 10, false, Check::None}, {"UCSORG", RT3DPOINT, 10, true, Check::None},
    {"UCSXDIR", RT3DPOINT, 10, true, Check::None},  {"UCSYDIR", RT3DPOINT, 10, true, Check::None},
    {"LIMMIN", RTPOINT, 10, false, Check::None},    {"LIMMAX", RTPOINT, 10, false, Check::None},
    {"DWGCODEPAGE", RTSTR, 3, true, Check::None},
};

// CECOLOR is a text to getvar ("BYLAYER", "BYBLOCK", "1") and a number in the header.
std::string ColorText(int c) { return c == 256 ? "BYLAYER" : c == 0 ? "BYBLOCK" : std::to_string(c); }

bool ColorNumber(const std::string& s, int& c) {
    if (SameName(s, "BYLAYER")) c = 256;
    else if (SameName(s, "BYBLOCK")) c = 0;
    else {
        char* end = nullptr;
        long v = std::strtol(s.c_str(), &end, 10);
        if (s.empty() || *end || v < 1 || v > 255) return false;
        c = static_cast<int>(v);
    }
    return true;
}

SysVarValue Get(const HeaderVarDef& d, const SysVarValue& fallback) {
    // The extents follow the drawing: read, they are brought up to date.
    if (d.code == 10 && (SameName(d.name, "EXTMIN") || SameName(d.name, "EXTMAX")))
        acdbHostApplicationServices()->workingDatabase()->updateExt(true);
    const HeaderVar* var = Drawing().FindVar(std::string("$") + d.name);
    if (!var || var->tags.empty()) return fallback;
    const OwnedTag& t = var->tags.front();
    SysVarValue v = fallback;
    v.type = d.type;
    if (d.code == 62 && (t.kind == ValueKind::Short || t.kind == ValueKind::Long)) {
        v.s = ColorText(static_cast<int>(t.i));
        return v;
    }
    switch (d.type) {
    case RTSTR:
        if (t.kind == ValueKind::Text) v.s = t.s;
        break;
    case RTREAL:
        if (t.kind == ValueKind::Real) v.r = t.v[0];
        break;
    case RTSHORT:
        if (t.kind == ValueKind::Short || t.kind == ValueKind::Long) v.i = static_cast<int>(t.i);
        break;
    default:
        if (t.kind == ValueKind::Point) {
            v.p[0] = t.v[0];
            v.p[1] = t.v[1];
            v.p[2] = t.dims > 2 ? t.v[2] : 0;
        }
        break;
    }
    return v;
}

bool Set(const HeaderVarDef& d, const SysVarValue& v) {
    auto& impl = Drawing();
    OwnedTag tag;
    switch (d.type) {
    case RTSTR: {
        if (d.code == 62) {
            int c = 0;
            if (!ColorNumber(v.s, c)) return false;
            tag = OwnedTag::Int(62, c);
            break;
        }
        TableKind kind = d.check == Check::Layer ? kLayerTable : d.check == Check::Linetype ? kLinetypeTable : kStyleTable;
        AcDbObjectId id = d.check == Check::None ? AcDbObjectId() : impl.FindRecord(kind, v.s);
        if (d.check != Check::None && id.isNull()) return false;
        if (d.check == Check::Layer && static_cast<AcDbLayerTableRecord*>(static_cast<AcDbStub*>(id)->object)->isFrozen())
            return false;
        tag = OwnedTag::Text(d.code, id.isNull() ? v.s : AcDbDatabase::Impl::RecordName(id));
        break;
    }
    case RTREAL:
        if (d.check == Check::Positive && !(v.r > 0)) return false;
        tag = OwnedTag::Real(d.code, v.r);
        break;
    case RTSHORT: tag = OwnedTag::Int(d.code, v.i); break;
    default: tag = OwnedTag::Point(d.code, v.p[0], v.p[1], v.p[2], d.type == RTPOINT ? 2 : 3); break;
    }
    impl.SetVar(std::string("$") + d.name, {tag});
    return true;
}

bool RegisterAll() {
    for (const HeaderVarDef& d : kVars) {
        SysVarValue fallback;
        host::GetSysVar(d.name, fallback);
        fallback.type = d.type;
        SysVarDef def;
        def.initial = fallback;
        def.readOnly = d.readOnly;
        def.get = [&d, fallback] { return Get(d, fallback); };
        def.set = [&d](const SysVarValue& v) { return Set(d, v); };  // read-only ones only when forced
        host::RegisterSysVar(d.name, std::move(def));
    }
    return true;
}

[[maybe_unused]] const bool kRegistered = RegisterAll();

}  // namespace

}  // namespace lumo::db
