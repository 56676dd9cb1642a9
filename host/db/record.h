// One table per record type drives everything: the DXF reader and writer,
// entget, entmake, entmod, tblsearch and selection filters all walk it.
//
// A record is a run of sections, each under a subclass marker (100 groups in
// an R2000 file and an entity list); a section is a run of fields. A field
// names a group code, how the value is kept, the member that keeps it (an
// offset into the member block of one class level, see
// AcDbObject::dxfData), its default and when it is written. Groups that no
// field claims are kept in order with their position and written back in
// the same place, so a record that is read and written loses nothing.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

#include "host/db/tags.h"

class AcDbObject;
class AcDbDatabase;

namespace lumo::db {

enum class Kind : uint8_t {
    Text,         // std::string
    Real,         // double
    Angle,        // double, radians; degrees in files
    Int16,        // int16_t
    Int32,        // int32_t
    Point3,       // double[3]
    Point2,       // double[2], written with two coordinates
    Ref,          // AcDbObjectId, a handle in files and a name in lists
    LayerName,    // AcDbObjectId of a record, written as its name
    LinetypeName,
    StyleName,
    DimStyleName,
    BlockName,
    Layout,       // 410: the name of the owner's layout, kept nowhere
    Custom,       // read and written by the record's hooks; offset is the slot
};

// The code of a custom field that takes every group no other field claims
// (the data of an xrecord).
constexpr int16_t kAnyCode = -32768;

// When a field is written and what reading asks of it.
enum FieldFlags : uint8_t {
    kRequired = 1,   // entmake fails without it; always written
    kAlways = 2,     // written even at its default
    kListed = 4,     // always in entity lists (entget), optional in files
    kNot12 = 8,      // not in R12 files
    kOnly12 = 16,    // only in R12 files and table entries (tblsearch)
    kNoList = 32,    // never in entity lists or table entries
    kNoTable = 64,   // not in table entries (tblsearch)
};

struct Field {
    int16_t code;
    Kind kind;
    uint8_t flags;
    uint8_t level;       // which member block (AcDbObject::dxfData)
    uint16_t offset;     // offset in that block, or the custom slot
    double def[3];
    const char* text;    // default of a text field
};

struct Section {
    const char* marker;  // the subclass name, e.g. "AcDbLine"
    const Field* fields;
    uint8_t count;
};

template <size_t N>
constexpr Section MakeSection(const char* marker, const Field (&fields)[N]) {
    static_assert(N < 256);
    return {marker, fields, static_cast<uint8_t>(N)};
}


class TagCursor;
struct ReadContext;

// Hooks for the parts of a record that repeat (vertices, loops, knots).
struct CustomIO {
    // Reads the group at the cursor, and any that belong to it; false on
    // data that can't be taken.
    bool (*read)(AcDbObject& obj, int slot, TagCursor& in, ReadContext& ctx);
    // `code` is the field's code, for a slot that two fields share.
    void (*write)(const AcDbObject& obj, int slot, int code, TagSink& out);
    // Called before the first read of a slot, so that an entmod that
    // brings the repeated part again replaces it as a whole.
    void (*clear)(AcDbObject& obj, int slot);
};

struct Record {
    const char* dxfName;     // "LINE"; null when the object tells it
    const char* r12Name;     // the name in R12 files, null if R12 has none
    const Section* sections;
    uint8_t count;
    const CustomIO* custom;
    int16_t handleCode = 5;  // DIMSTYLE records use 105
};

template <size_t N>
constexpr Record MakeRecord(const char* dxfName, const char* r12Name, const Section (&sections)[N],
                            const CustomIO* custom = nullptr, int handleCode = 5) {
    return {dxfName, r12Name, sections, static_cast<uint8_t>(N), custom, static_cast<int16_t>(handleCode)};
}

// Helpers for the constexpr tables.
constexpr Field FText(int code, size_t off, const char* def = "", uint8_t flags = 0, uint8_t level = 1) {
    return {static_cast<int16_t>(code), Kind::Text, flags, level, static_cast<uint16_t>(off), {0, 0, 0}, def};
}
constexpr Field FReal(int code, size_t off, double def = 0, uint8_t flags = 0, uint8_t level = 1) {
    return {static_cast<int16_t>(code), Kind::Real, flags, level, static_cast<uint16_t>(off), {def, 0, 0}, nullptr};
}
constexpr Field FAngle(int code, size_t off, double def = 0, uint8_t flags = 0, uint8_t level = 1) {
    return {static_cast<int16_t>(code), Kind::Angle, flags, level, static_cast<uint16_t>(off), {def, 0, 0}, nullptr};
}
constexpr Field FInt16(int code, size_t off, int def = 0, uint8_t flags = 0, uint8_t level = 1) {
    return {static_cast<int16_t>(code), Kind::Int16, flags, level, static_cast<uint16_t>(off),
            {static_cast<double>(def), 0, 0}, nullptr};
}
constexpr Field FInt32(int code, size_t off, int def = 0, uint8_t flags = 0, uint8_t level = 1) {
    return {static_cast<int16_t>(code), Kind::Int32, flags, level, static_cast<uint16_t>(off),
            {static_cast<double>(def), 0, 0}, nullptr};
}
constexpr Field FPoint(int code, size_t off, double x = 0, double y = 0, double z = 0, uint8_t flags = 0,
                       uint8_t level = 1) {
    return {static_cast<int16_t>(code), Kind::Point3, flags, level, static_cast<uint16_t>(off), {x, y, z}, nullptr};
}
constexpr Field FPoint2(int code, size_t off, double x = 0, double y = 0, uint8_t flags = 0, uint8_t level = 1) {
    return {static_cast<int16_t>(code), Kind::Point2, flags, level, static_cast<uint16_t>(off), {x, y, 0}, nullptr};
}
constexpr Field FRef(int code, size_t off, uint8_t flags = 0, uint8_t level = 1) {
    return {static_cast<int16_t>(code), Kind::Ref, flags, level, static_cast<uint16_t>(off), {0, 0, 0}, nullptr};
}
constexpr Field FName(int code, Kind kind, size_t off, const char* def, uint8_t flags = 0, uint8_t level = 1) {
    return {static_cast<int16_t>(code), kind, flags, level, static_cast<uint16_t>(off), {0, 0, 0}, def};
}
constexpr Field FCustom(int code, int slot, uint8_t flags = 0) {
    return {static_cast<int16_t>(code), Kind::Custom, flags, 0, static_cast<uint16_t>(slot), {0, 0, 0}, nullptr};
}

// What reading a record needs beside the groups.
struct ReadContext {
    AcDbDatabase* db = nullptr;
    bool fromFile = false;     // handles and owners come from the file
    bool modify = false;       // entmod: absent groups keep their values
    uint32_t touched = 0;      // custom slots read so far
    std::string error;         // the first problem met
    // Handle, owner and markers seen in the header, for the caller.
    uint64_t handle = 0;
    AcDbStub* owner = nullptr;
    bool sawOwner = false;
};

// Angles: files give degrees, entity lists and members radians. Degrees
// are written as the shortest decimal that reads back as the same radians,
// so a file's 30.0 stays 30.0.
double RadiansFromDegrees(double degrees);
double DegreesFromRadians(double radians);

// Fills the object from the groups of one record (the 0 group may lead).
// False, with ctx.error set, on a group of the wrong kind of value or a name
// that can't be resolved.
bool ReadRecord(AcDbObject& obj, TagCursor& in, ReadContext& ctx);
// Writes the object's groups for the sink's flavour. Entity lists start
// with -1 and carry extended data only for the applications in `apps`
// ("*" for all; null for none).
void WriteRecord(const AcDbObject& obj, TagSink& out, const char* const* apps = nullptr, int appCount = 0);
// The DXF name the object is written under for a flavour.
const char* DxfNameOf(const AcDbObject& obj, Flavor flavor);
// Whether every required field was given (entmake).
bool HasRequired(const AcDbObject& obj);

// Copies a whole object's data into another of the same class.
bool CopyRecord(const AcDbObject& from, AcDbObject& to);

}  // namespace lumo::db
