// Text, attribute definitions, attributes and multiline text.
#include <cmath>

#include "host/db/stub.h"
#include "host/db/entity_fields.h"
#include "host/db/ocs.h"
#include "platform/crt.h"
#include "platform/dbents.h"

ACRX_DEFINE_MEMBERS(AcDbText, AcDbEntity)
ACRX_DEFINE_MEMBERS(AcDbAttributeDefinition, AcDbText)
ACRX_DEFINE_MEMBERS(AcDbAttribute, AcDbText)
ACRX_DEFINE_MEMBERS(AcDbMText, AcDbEntity)

using namespace lumo::db;

namespace {
using Text = AcDbText::Data;

// The "AcDbText" section that TEXT, ATTDEF and ATTRIB share.
#define LUMO_TEXT_FIELDS                                                           \
    FReal(39, offsetof(Text, thickness)),                                          \
    FPoint(10, offsetof(Text, position), 0, 0, 0, kRequired),                      \
    FReal(40, offsetof(Text, height), 0, kRequired),                               \
    FText(1, offsetof(Text, text), "", kRequired),                                 \
    FAngle(50, offsetof(Text, rotation), 0, kListed),                              \
    FReal(41, offsetof(Text, widthFactor), 1, kListed),                            \
    FAngle(51, offsetof(Text, oblique), 0, kListed),                               \
    FName(7, Kind::StyleName, offsetof(Text, style), "STANDARD", kListed),         \
    FInt16(71, offsetof(Text, generation), 0, kListed),                            \
    FInt16(72, offsetof(Text, horizontal), 0, kListed),                            \
    FPoint(11, offsetof(Text, alignment), 0, 0, 0, kListed),                       \
    FPoint(210, offsetof(Text, normal), 0, 0, 1, kListed)

constexpr Field kTextFields[] = {LUMO_TEXT_FIELDS};
constexpr Field kTextVertical[] = {FInt16(73, offsetof(Text, vertical), 0, kListed)};
constexpr Section kTextSections[] = {kEntitySection, MakeSection("AcDbText", kTextFields),
                                     MakeSection("AcDbText", kTextVertical)};
constexpr Record kTextRecord = MakeRecord("TEXT", "TEXT", kTextSections);

using Attdef = AcDbAttributeDefinition::Data;
constexpr Field kAttdefFields[] = {
    FText(3, offsetof(Attdef, prompt), "", kAlways, 2),
    FText(2, offsetof(Attdef, tag), "", kRequired, 2),
    FInt16(70, offsetof(Attdef, flags), 0, kAlways, 2),
    FInt16(73, offsetof(Attdef, fieldLength), 0, kListed, 2),
    FInt16(74, offsetof(Text, vertical), 0, kListed, 1),
};
constexpr Section kAttdefSections[] = {kEntitySection, MakeSection("AcDbText", kTextFields),
                                       MakeSection("AcDbAttributeDefinition", kAttdefFields)};
constexpr Record kAttdefRecord = MakeRecord("ATTDEF", "ATTDEF", kAttdefSections);

using Attrib = AcDbAttribute::Data;
constexpr Field kAttribFields[] = {
    FText(2, offsetof(Attrib, tag), "", kRequired, 2),
    FInt16(70, offsetof(Attrib, flags), 0, kAlways, 2),
    FInt16(73, offsetof(Attrib, fieldLength), 0, kListed, 2),
    FInt16(74, offsetof(Text, vertical), 0, kListed, 1),
};
constexpr Section kAttribSections[] = {kEntitySection, MakeSection("AcDbText", kTextFields),
                                       MakeSection("AcDbAttribute", kAttribFields)};
constexpr Record kAttribRecord = MakeRecord("ATTRIB", "ATTRIB", kAttribSections);
#undef LUMO_TEXT_FIELDS

int16_t SetBit(int16_t flags, int bit, bool on) { return static_cast<int16_t>(on ? (flags | bit) : (flags & ~bit)); }
}  // namespace

AcDbText::AcDbText() = default;
AcDbText::AcDbText(const AcGePoint3d& position, const char* text, AcDbObjectId style, double height,
                   double rotation) {
    m_t.position = position;
    m_t.text = text ? text : "";
    m_t.style = style;
    m_t.height = height;
    m_t.rotation = rotation;
}
const Record& AcDbText::dxfRecord() const { return kTextRecord; }
void* AcDbText::dxfData(int level) { return level == 1 ? &m_t : AcDbEntity::dxfData(level); }

char* AcDbText::textString() const { return _strdup(m_t.text.c_str()); }

Acad::ErrorStatus AcDbText::setTextString(const char* text) {
    if (!text) return Acad::eNullObjectPointer;
    m_t.text = text;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::mirrorInX(bool on) {
    m_t.generation = SetBit(m_t.generation, 2, on);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::mirrorInY(bool on) {
    m_t.generation = SetBit(m_t.generation, 4, on);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::transformBy(const AcGeMatrix3d& xform) {
    PlaneMap pm = MapPlane(m_t.normal, xform);
    if (!pm.ok) return Acad::eNotApplicable;
    m_t.position = pm.Point(m_t.position);
    m_t.alignment = pm.Point(m_t.alignment);
    m_t.height *= pm.scale;
    m_t.thickness *= pm.scale;
    m_t.rotation = pm.Angle(m_t.rotation);
    if (pm.mirrored) m_t.generation ^= 2;
    m_t.normal = pm.newNormal;
    return Acad::eOk;
}

AcDbAttributeDefinition::AcDbAttributeDefinition() = default;
AcDbAttributeDefinition::AcDbAttributeDefinition(const AcGePoint3d& position, const char* text, const char* tag,
                                                 const char* prompt, AcDbObjectId style)
    : AcDbText(position, text, style) {
    m_a.tag = tag ? tag : "";
    m_a.prompt = prompt ? prompt : "";
}
const Record& AcDbAttributeDefinition::dxfRecord() const { return kAttdefRecord; }
void* AcDbAttributeDefinition::dxfData(int level) { return level == 2 ? &m_a : AcDbText::dxfData(level); }
char* AcDbAttributeDefinition::prompt() const { return _strdup(m_a.prompt.c_str()); }
char* AcDbAttributeDefinition::tag() const { return _strdup(m_a.tag.c_str()); }

Acad::ErrorStatus AcDbAttributeDefinition::setPrompt(const char* text) {
    m_a.prompt = text ? text : "";
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAttributeDefinition::setTag(const char* text) {
    if (!text || !*text) return Acad::eInvalidInput;
    m_a.tag = text;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAttributeDefinition::setInvisible(bool on) {
    m_a.flags = SetBit(m_a.flags, 1, on);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAttributeDefinition::setConstant(bool on) {
    m_a.flags = SetBit(m_a.flags, 2, on);
    return Acad::eOk;
}

AcDbAttribute::AcDbAttribute() = default;
AcDbAttribute::AcDbAttribute(const AcGePoint3d& position, const char* text, const char* tag, AcDbObjectId style)
    : AcDbText(position, text, style) {
    m_a.tag = tag ? tag : "";
}
const Record& AcDbAttribute::dxfRecord() const { return kAttribRecord; }
void* AcDbAttribute::dxfData(int level) { return level == 2 ? &m_a : AcDbText::dxfData(level); }
char* AcDbAttribute::tag() const { return _strdup(m_a.tag.c_str()); }

Acad::ErrorStatus AcDbAttribute::setTag(const char* text) {
    if (!text || !*text) return Acad::eInvalidInput;
    m_a.tag = text;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAttribute::setInvisible(bool on) {
    m_a.flags = SetBit(m_a.flags, 1, on);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAttribute::setAttributeFromBlock(const AcDbAttributeDefinition* def, const AcGeMatrix3d& xform) {
    if (!def) return Acad::eNullObjectPointer;
    int16_t space = m_common.paperSpace;
    m_common = static_cast<const AcDbEntity::Common*>(def->dxfBlock(0))[0];
    m_common.paperSpace = space;
    m_t = *static_cast<const AcDbText::Data*>(def->dxfBlock(1));
    const auto* a = static_cast<const AcDbAttributeDefinition::Data*>(def->dxfBlock(2));
    m_a.tag = a->tag;
    m_a.flags = a->flags;
    m_a.fieldLength = a->fieldLength;
    return transformBy(xform);
}

// ---------------------------------------------------------------------------
// MTEXT: the text comes in pieces of 250 bytes under 3, the last under 1.

namespace {
using MText = AcDbMText::Data;
constexpr size_t kChunk = 250;

bool ReadContents(AcDbObject& obj, int, TagCursor& in, ReadContext&) {
    const Tag& t = in.Next();
    if (t.kind != ValueKind::Text) return false;
    static_cast<MText*>(obj.dxfData(1))->contents.append(t.s);
    return true;
}

void WriteContents(const AcDbObject& obj, int, int code, TagSink& out) {
    if (code != 1) return;   // the 3 pieces go out with the 1
    const std::string& s = static_cast<const MText*>(obj.dxfBlock(1))->contents;
    size_t pos = 0;
    for (; s.size() - pos > kChunk; pos += kChunk) out.Text(3, std::string_view(s).substr(pos, kChunk));
    out.Text(1, std::string_view(s).substr(pos));
}

void ClearContents(AcDbObject& obj, int) { static_cast<MText*>(obj.dxfData(1))->contents.clear(); }

constexpr CustomIO kMTextIO{ReadContents, WriteContents, ClearContents};
constexpr Field kMTextFields[] = {
    FPoint(10, offsetof(MText, location), 0, 0, 0, kRequired),
    FReal(40, offsetof(MText, height), 0, kAlways),
    FReal(41, offsetof(MText, width), 0, kAlways),
    FInt16(71, offsetof(MText, attachment), 1, kAlways),
    FInt16(72, offsetof(MText, drawingDirection), 1, kAlways),
    FCustom(3, 0),
    FCustom(1, 0, kRequired),
    FName(7, Kind::StyleName, offsetof(MText, style), "STANDARD", kListed),
    FPoint(210, offsetof(MText, normal), 0, 0, 1, kListed),
    FPoint(11, offsetof(MText, direction), 1, 0, 0, kListed),
    FReal(42, offsetof(MText, actualWidth)),
    FReal(43, offsetof(MText, actualHeight)),
    FAngle(50, offsetof(MText, rotation)),
    FInt16(73, offsetof(MText, spacingStyle), 1),
    FReal(44, offsetof(MText, spacingFactor), 1),
};
constexpr Section kMTextSections[] = {kEntitySection, MakeSection("AcDbMText", kMTextFields)};
constexpr Record kMTextRecord = MakeRecord("MTEXT", nullptr, kMTextSections, &kMTextIO);
}  // namespace

AcDbMText::AcDbMText() = default;
const Record& AcDbMText::dxfRecord() const { return kMTextRecord; }
void* AcDbMText::dxfData(int level) { return level == 1 ? &m_d : AcDbEntity::dxfData(level); }
char* AcDbMText::contents() const { return _strdup(m_d.contents.c_str()); }

int AcDbMText::setContents(const char* text) {
    m_d.contents = text ? text : "";
    return static_cast<int>(m_d.contents.size());
}

double AcDbMText::rotation() const {
    if (m_d.rotation != 0) return m_d.rotation;
    AcGeVector3d d = WorldToOcs(m_d.normal, AcGePoint3d(m_d.direction.x, m_d.direction.y, m_d.direction.z)).asVector() -
                     WorldToOcs(m_d.normal, AcGePoint3d::kOrigin).asVector();
    return std::atan2(d.y, d.x);
}

Acad::ErrorStatus AcDbMText::setRotation(double angle) {
    AcGePoint3d tip = OcsToWorld(m_d.normal, AcGePoint3d(std::cos(angle), std::sin(angle), 0));
    AcGePoint3d base = OcsToWorld(m_d.normal, AcGePoint3d::kOrigin);
    m_d.direction = tip - base;
    m_d.rotation = 0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::transformBy(const AcGeMatrix3d& xform) {
    PlaneMap pm = MapPlane(m_d.normal, xform);
    if (!pm.ok) return Acad::eNotApplicable;
    double angle = pm.Angle(rotation());
    m_d.location = xform * m_d.location;
    m_d.height *= pm.scale;
    m_d.width *= pm.scale;
    m_d.normal = pm.newNormal;
    return setRotation(angle);
}
