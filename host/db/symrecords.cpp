// The records of the symbol tables other than blocks, and their tables.
#include <algorithm>

#include "host/db/stub.h"
#include "host/db/entity_fields.h"
#include "platform/crt.h"
#include "platform/dbsymtb.h"

ACRX_DEFINE_MEMBERS(AcDbLayerTableRecord, AcDbSymbolTableRecord)
ACRX_DEFINE_MEMBERS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord)
ACRX_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord)
ACRX_DEFINE_MEMBERS(AcDbRegAppTableRecord, AcDbSymbolTableRecord)
ACRX_DEFINE_MEMBERS(AcDbUCSTableRecord, AcDbSymbolTableRecord)
ACRX_DEFINE_MEMBERS(AcDbViewTableRecord, AcDbSymbolTableRecord)
ACRX_DEFINE_MEMBERS(AcDbViewportTableRecord, AcDbSymbolTableRecord)
ACRX_DEFINE_MEMBERS(AcDbDimStyleTableRecord, AcDbSymbolTableRecord)

using namespace lumo::db;

namespace {
constexpr Section kRecordSection{"AcDbSymbolTableRecord", nullptr, 0};
constexpr Field kNameOnly[] = {LUMO_RECORD_NAME_FIELDS};
}  // namespace

// ---------------------------------------------------------------------------
// LAYER

namespace {
using Layer = AcDbLayerTableRecord::Data;
constexpr Field kLayerFields[] = {
    LUMO_RECORD_NAME_FIELDS,
    FInt16(62, offsetof(Layer, color), 7, kAlways),
    FName(6, Kind::LinetypeName, offsetof(Layer, linetype), "CONTINUOUS", kAlways),
    FInt16(290, offsetof(Layer, plot), 1, kNot12 | kNoTable),
    FInt16(370, offsetof(Layer, lineweight), -3, kNot12 | kAlways | kNoTable),
    FRef(390, offsetof(Layer, plotStyle), kNot12 | kNoTable),
};
constexpr Section kLayerSections[] = {kRecordSection, MakeSection("AcDbLayerTableRecord", kLayerFields)};
constexpr Record kLayerRecord = MakeRecord("LAYER", "LAYER", kLayerSections);
}  // namespace

AcDbLayerTableRecord::AcDbLayerTableRecord() = default;
const Record& AcDbLayerTableRecord::dxfRecord() const { return kLayerRecord; }
void* AcDbLayerTableRecord::dxfData(int level) { return level == 1 ? &m_d : AcDbSymbolTableRecord::dxfData(level); }

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool on) {
    m_common.flags = static_cast<int16_t>(on ? (m_common.flags | 1) : (m_common.flags & ~1));
    return Acad::eOk;
}

void AcDbLayerTableRecord::setIsOff(bool on) {
    int16_t c = m_d.color < 0 ? static_cast<int16_t>(-m_d.color) : m_d.color;
    m_d.color = on ? static_cast<int16_t>(-c) : c;
}

void AcDbLayerTableRecord::setIsLocked(bool on) {
    m_common.flags = static_cast<int16_t>(on ? (m_common.flags | 4) : (m_common.flags & ~4));
}

AcCmColor AcDbLayerTableRecord::color() const {
    AcCmColor c;
    c.setColorIndex(static_cast<uint16_t>(m_d.color < 0 ? -m_d.color : m_d.color));
    return c;
}

void AcDbLayerTableRecord::setColor(const AcCmColor& color) {
    int16_t c = color.colorIndex();
    m_d.color = isOff() ? static_cast<int16_t>(-c) : c;
}

// ---------------------------------------------------------------------------
// LTYPE: the dashes repeat, so they are read and written by hooks.

namespace {
using Ltype = AcDbLinetypeTableRecord::Data;
enum LtypeSlot { kDashCount, kDashes };

Ltype& LtypeOf(AcDbObject& o) { return static_cast<AcDbLinetypeTableRecord&>(o).data(); }
const Ltype& LtypeOf(const AcDbObject& o) { return static_cast<const AcDbLinetypeTableRecord&>(o).data(); }

bool ReadLtype(AcDbObject& obj, int slot, TagCursor& in, ReadContext&) {
    Ltype& d = LtypeOf(obj);
    if (slot == kDashCount) {
        d.dashes.reserve(static_cast<size_t>(std::max<int64_t>(0, std::min<int64_t>(in.Next().i, 1024))));
        return true;
    }
    d.dashes.emplace_back();
    auto& dash = d.dashes.back();
    dash.length = in.Next().v[0];
    while (!in.Done()) {
        const Tag& t = in.Peek();
        switch (t.code) {
        case 74: dash.complex = static_cast<int16_t>(t.i); break;
        case 75: dash.shape = static_cast<int16_t>(t.i); break;
        case 340: dash.style = t.ref; break;
        case 46: dash.scale = t.v[0]; break;
        case 50: dash.rotation = t.v[0]; break;
        case 44: dash.offset[0] = t.v[0]; break;
        case 45: dash.offset[1] = t.v[0]; break;
        case 9: dash.text = t.s; break;
        default: return true;
        }
        in.Next();
    }
    return true;
}

void WriteLtype(const AcDbObject& obj, int slot, int, TagSink& out) {
    const Ltype& d = LtypeOf(obj);
    if (slot == kDashCount) {
        out.Int(73, static_cast<int64_t>(d.dashes.size()));
        return;
    }
    bool r12 = out.flavor() == Flavor::Dxf12;
    for (const auto& dash : d.dashes) {
        out.Real(49, dash.length);
        if (r12) continue;
        out.Int(74, dash.complex);
        if (!dash.complex) continue;
        if (dash.complex & 4) out.Int(75, dash.shape);
        out.Ref(340, dash.style);
        out.Real(46, dash.scale);
        out.Real(50, dash.rotation);
        out.Real(44, dash.offset[0]);
        out.Real(45, dash.offset[1]);
        if (dash.complex & 2) out.Text(9, dash.text);
    }
}

void ClearLtype(AcDbObject& obj, int slot) {
    if (slot == kDashes) LtypeOf(obj).dashes.clear();
}

constexpr CustomIO kLtypeIO{ReadLtype, WriteLtype, ClearLtype};
constexpr Field kLtypeFields[] = {
    LUMO_RECORD_NAME_FIELDS,
    FText(3, offsetof(Ltype, comments), "", kAlways),
    FInt16(72, offsetof(Ltype, alignment), 65, kAlways),
    FCustom(73, kDashCount),
    FReal(40, offsetof(Ltype, patternLength), 0, kAlways),
    FCustom(49, kDashes),
};
constexpr Section kLtypeSections[] = {kRecordSection, MakeSection("AcDbLinetypeTableRecord", kLtypeFields)};
constexpr Record kLtypeRecord = MakeRecord("LTYPE", "LTYPE", kLtypeSections, &kLtypeIO);
}  // namespace

AcDbLinetypeTableRecord::AcDbLinetypeTableRecord() = default;
const Record& AcDbLinetypeTableRecord::dxfRecord() const { return kLtypeRecord; }
void* AcDbLinetypeTableRecord::dxfData(int level) { return level == 1 ? &m_d : AcDbSymbolTableRecord::dxfData(level); }

Acad::ErrorStatus AcDbLinetypeTableRecord::comments(char*& text) const {
    text = _strdup(m_d.comments.c_str());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setComments(const char* text) {
    m_d.comments = text ? text : "";
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setNumDashes(int count) {
    if (count < 0 || count > 12) return Acad::eInvalidInput;
    m_d.dashes.resize(static_cast<size_t>(count));
    return Acad::eOk;
}

double AcDbLinetypeTableRecord::dashLengthAt(int index) const {
    return index >= 0 && index < numDashes() ? m_d.dashes[static_cast<size_t>(index)].length : 0.0;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setDashLengthAt(int index, double length) {
    if (index < 0 || index >= numDashes()) return Acad::eInvalidIndex;
    m_d.dashes[static_cast<size_t>(index)].length = length;
    return Acad::eOk;
}

// ---------------------------------------------------------------------------
// STYLE

namespace {
using Style = AcDbTextStyleTableRecord::Data;
constexpr Field kStyleFields[] = {
    LUMO_RECORD_NAME_FIELDS,
    FReal(40, offsetof(Style, textSize), 0, kAlways),
    FReal(41, offsetof(Style, xScale), 1, kAlways),
    FAngle(50, offsetof(Style, oblique), 0, kAlways),
    FInt16(71, offsetof(Style, generation), 0, kAlways),
    FReal(42, offsetof(Style, priorSize), 2.5, kAlways),
    FText(3, offsetof(Style, font), "txt", kAlways),
    FText(4, offsetof(Style, bigFont), "", kAlways),
};
constexpr Section kStyleSections[] = {kRecordSection, MakeSection("AcDbTextStyleTableRecord", kStyleFields)};
constexpr Record kStyleRecord = MakeRecord("STYLE", "STYLE", kStyleSections);
}  // namespace

AcDbTextStyleTableRecord::AcDbTextStyleTableRecord() = default;
const Record& AcDbTextStyleTableRecord::dxfRecord() const { return kStyleRecord; }
void* AcDbTextStyleTableRecord::dxfData(int level) { return level == 1 ? &m_d : AcDbSymbolTableRecord::dxfData(level); }

void AcDbTextStyleTableRecord::setIsShapeFile(bool on) {
    m_common.flags = static_cast<int16_t>(on ? (m_common.flags | 1) : (m_common.flags & ~1));
}

void AcDbTextStyleTableRecord::setIsVertical(bool on) {
    m_common.flags = static_cast<int16_t>(on ? (m_common.flags | 4) : (m_common.flags & ~4));
}

Acad::ErrorStatus AcDbTextStyleTableRecord::fileName(char*& name) const {
    name = _strdup(m_d.font.c_str());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const char* name) {
    m_d.font = name ? name : "";
    return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::bigFontFileName(char*& name) const {
    name = _strdup(m_d.bigFont.c_str());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setBigFontFileName(const char* name) {
    m_d.bigFont = name ? name : "";
    return Acad::eOk;
}

// ---------------------------------------------------------------------------
// APPID, UCS; VIEW, VPORT and DIMSTYLE keep their settings as read.

namespace {
constexpr Section kAppidSections[] = {kRecordSection, MakeSection("AcDbRegAppTableRecord", kNameOnly)};
constexpr Record kAppidRecord = MakeRecord("APPID", "APPID", kAppidSections);

using Ucs = AcDbUCSTableRecord::Data;
constexpr Field kUcsFields[] = {
    LUMO_RECORD_NAME_FIELDS,
    FPoint(10, offsetof(Ucs, origin), 0, 0, 0, kAlways),
    FPoint(11, offsetof(Ucs, xAxis), 1, 0, 0, kAlways),
    FPoint(12, offsetof(Ucs, yAxis), 0, 1, 0, kAlways),
};
constexpr Section kUcsSections[] = {kRecordSection, MakeSection("AcDbUCSTableRecord", kUcsFields)};
constexpr Record kUcsRecord = MakeRecord("UCS", "UCS", kUcsSections);

constexpr Section kViewSections[] = {kRecordSection, MakeSection("AcDbViewTableRecord", kNameOnly)};
constexpr Record kViewRecord = MakeRecord("VIEW", "VIEW", kViewSections);
constexpr Section kVportSections[] = {kRecordSection, MakeSection("AcDbViewportTableRecord", kNameOnly)};
constexpr Record kVportRecord = MakeRecord("VPORT", "VPORT", kVportSections);
constexpr Section kDimSections[] = {kRecordSection, MakeSection("AcDbDimStyleTableRecord", kNameOnly)};
constexpr Record kDimRecord = MakeRecord("DIMSTYLE", "DIMSTYLE", kDimSections, nullptr, 105);
}  // namespace

AcDbRegAppTableRecord::AcDbRegAppTableRecord() = default;
const Record& AcDbRegAppTableRecord::dxfRecord() const { return kAppidRecord; }

AcDbUCSTableRecord::AcDbUCSTableRecord() = default;
const Record& AcDbUCSTableRecord::dxfRecord() const { return kUcsRecord; }
void* AcDbUCSTableRecord::dxfData(int level) { return level == 1 ? &m_d : AcDbSymbolTableRecord::dxfData(level); }

AcDbViewTableRecord::AcDbViewTableRecord() = default;
const Record& AcDbViewTableRecord::dxfRecord() const { return kViewRecord; }

AcDbViewportTableRecord::AcDbViewportTableRecord() = default;
const Record& AcDbViewportTableRecord::dxfRecord() const { return kVportRecord; }

AcDbDimStyleTableRecord::AcDbDimStyleTableRecord() = default;
const Record& AcDbDimStyleTableRecord::dxfRecord() const { return kDimRecord; }
