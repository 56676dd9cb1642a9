// Groups of drawing records: owned copies and hexadecimal binary data.
#include "host/db/tags.h"

namespace lumo::db {

OwnedTag::OwnedTag(const Tag& t)
    : code(t.code), dims(t.dims), kind(t.kind), i(t.i), s(t.s), ref(t.ref) {
    v[0] = t.v[0];
    v[1] = t.v[1];
    v[2] = t.v[2];
}

Tag OwnedTag::view() const {
    Tag t;
    t.code = code;
    t.dims = dims;
    t.kind = kind;
    t.v[0] = v[0];
    t.v[1] = v[1];
    t.v[2] = v[2];
    t.i = i;
    t.s = s;
    t.ref = ref;
    return t;
}

OwnedTag OwnedTag::Text(int code, std::string_view text) {
    OwnedTag t;
    t.code = static_cast<int16_t>(code);
    t.kind = TagKind(code) == ValueKind::Binary ? ValueKind::Binary : ValueKind::Text;
    t.s = text;
    return t;
}

OwnedTag OwnedTag::Int(int code, int64_t value) {
    OwnedTag t;
    t.code = static_cast<int16_t>(code);
    t.kind = TagKind(code) == ValueKind::Long ? ValueKind::Long : ValueKind::Short;
    t.i = value;
    return t;
}

OwnedTag OwnedTag::Real(int code, double value) {
    OwnedTag t;
    t.code = static_cast<int16_t>(code);
    t.kind = ValueKind::Real;
    t.v[0] = value;
    return t;
}

OwnedTag OwnedTag::Point(int code, double x, double y, double z, int dims) {
    OwnedTag t;
    t.code = static_cast<int16_t>(code);
    t.kind = ValueKind::Point;
    t.dims = static_cast<uint8_t>(dims);
    t.v[0] = x;
    t.v[1] = y;
    t.v[2] = z;
    return t;
}

OwnedTag OwnedTag::Ref(int code, AcDbStub* stub) {
    OwnedTag t;
    t.code = static_cast<int16_t>(code);
    t.kind = ValueKind::Name;
    t.ref = stub;
    return t;
}

void TagSink::Put(const Tag& t) {
    switch (t.kind) {
    case ValueKind::Text: Text(t.code, t.s); break;
    case ValueKind::Real: Real(t.code, t.v[0]); break;
    case ValueKind::Point: Point(t.code, t.v, t.dims ? t.dims : 3); break;
    case ValueKind::Short:
    case ValueKind::Long: Int(t.code, t.i); break;
    case ValueKind::Name: Ref(t.code, t.ref); break;
    case ValueKind::Binary: Binary(t.code, t.s); break;
    case ValueKind::None: break;
    }
}

namespace {
int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}
}  // namespace

std::string HexToBytes(std::string_view hex, bool* ok) {
    std::string out;
    bool good = hex.size() % 2 == 0;
    out.reserve(hex.size() / 2);
    for (size_t k = 0; good && k + 1 < hex.size(); k += 2) {
        int hi = HexDigit(hex[k]), lo = HexDigit(hex[k + 1]);
        if (hi < 0 || lo < 0) good = false;
        else out.push_back(static_cast<char>(hi * 16 + lo));
    }
    if (ok) *ok = good;
    return out;
}

std::string BytesToHex(std::string_view bytes) {
    static const char kDigits[] = "0123456789ABCDEF";
    std::string out;
    out.reserve(bytes.size() * 2);
    for (unsigned char c : bytes) {
        out.push_back(kDigits[c >> 4]);
        out.push_back(kDigits[c & 15]);
    }
    return out;
}

}  // namespace lumo::db
