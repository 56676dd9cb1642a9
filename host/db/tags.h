// Groups of drawing records (a code and a value) as the database, the DXF
// reader and writer and the entity functions pass them around.
//
// A `Tag` only views its text (a DXF file buffer, a resbuf chain); an
// `OwnedTag` keeps its own copy and is what an object stores for groups it
// has no member for. A point is one tag of two or three coordinates, as
// entget gives it, however many lines a file spreads it over.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "host/ads/value_kind.h"

struct AcDbStub;

namespace lumo::db {

using host::ValueKind;

// The value kind of a group code. 38 and 39 (elevation, thickness) hold
// reals, unlike the other codes below 40.
inline ValueKind TagKind(int code) {
    if (code == 38 || code == 39) return ValueKind::Real;
    return host::ValueKindOf(code);
}
// The first code of a point (10, 110, 210, 1010 ...), whose y and z come
// as code + 10 and code + 20 in a file.
inline bool IsPointCode(int code) {
    return (code >= 10 && code <= 18) || (code >= 110 && code <= 112) || code == 210 ||
           (code >= 1010 && code <= 1013);
}

struct Tag {
    int16_t code = 0;
    uint8_t dims = 0;          // coordinates of a point
    ValueKind kind = ValueKind::None;
    double v[3] = {0, 0, 0};   // a real in v[0], or a point
    int64_t i = 0;             // shorts and longs
    std::string_view s;        // texts; binary data as hexadecimal text
    AcDbStub* ref = nullptr;   // object references
    uint32_t line = 0;         // where a file had it, for messages
};

struct OwnedTag {
    int16_t code = 0;
    uint16_t anchor = 0;       // where an unknown group stood in its record
    uint8_t dims = 0;
    ValueKind kind = ValueKind::None;
    double v[3] = {0, 0, 0};
    int64_t i = 0;
    std::string s;
    AcDbStub* ref = nullptr;

    OwnedTag() = default;
    explicit OwnedTag(const Tag& t);
    Tag view() const;
    static OwnedTag Text(int code, std::string_view text);
    static OwnedTag Int(int code, int64_t value);
    static OwnedTag Real(int code, double value);
    static OwnedTag Point(int code, double x, double y, double z, int dims = 3);
    static OwnedTag Ref(int code, AcDbStub* stub);
};

// What a record is written for: a file of either version, an entity list
// (entget), or a table entry as tblsearch gives it.
enum class Flavor : uint8_t { Dxf12, Dxf2000, Entget, Table };

inline bool IsDxf(Flavor f) { return f == Flavor::Dxf12 || f == Flavor::Dxf2000; }

// Receives the groups of records in order.
class TagSink {
public:
    explicit TagSink(Flavor flavor) : m_flavor(flavor) {}
    virtual ~TagSink() = default;
    Flavor flavor() const { return m_flavor; }

    virtual void Text(int code, std::string_view text) = 0;
    virtual void Real(int code, double value) = 0;
    virtual void Point(int code, const double* p, int dims) = 0;
    virtual void Int(int code, int64_t value) = 0;
    virtual void Ref(int code, AcDbStub* stub) = 0;
    // Binary data given as hexadecimal text.
    virtual void Binary(int code, std::string_view hex) = 0;

    // Any tag, by its kind.
    void Put(const Tag& t);

private:
    Flavor m_flavor;
};

// A forward walk over the groups of one record.
class TagCursor {
public:
    explicit TagCursor(std::span<const Tag> tags) : m_tags(tags) {}
    bool Done() const { return m_pos >= m_tags.size(); }
    const Tag& Peek() const { return m_tags[m_pos]; }
    const Tag* PeekIf(int code) const {
        return m_pos < m_tags.size() && m_tags[m_pos].code == code ? &m_tags[m_pos] : nullptr;
    }
    const Tag& Next() { return m_tags[m_pos++]; }
    size_t Pos() const { return m_pos; }
    void Seek(size_t pos) { m_pos = pos; }
    std::span<const Tag> All() const { return m_tags; }
private:
    std::span<const Tag> m_tags;
    size_t m_pos = 0;
};

// Hexadecimal text <-> bytes, as files keep binary groups.
std::string HexToBytes(std::string_view hex, bool* ok = nullptr);
std::string BytesToHex(std::string_view bytes);

}  // namespace lumo::db
