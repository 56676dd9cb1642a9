// Groups of an ASCII DXF file.
#include "host/dxf/scanner.h"

#include <charconv>

#include "host/db/database_impl.h"

namespace lumo::dxf {

using db::Tag;
using db::ValueKind;

Scanner::Scanner(std::string_view text, std::string fileName, AcDbDatabase* db)
    : m_text(text), m_file(std::move(fileName)), m_db(db) {
    if (m_text.substr(0, 3) == "\xEF\xBB\xBF") m_pos = 3;   // a byte-order mark some writers put first
}

void Scanner::Fail(uint32_t line, const std::string& what) const {
    throw DxfError(m_file + ":" + std::to_string(line) + ": " + what);
}

std::string_view Scanner::NextLine() {
    size_t end = m_text.find('\n', m_pos);
    if (end == std::string_view::npos) end = m_text.size();
    std::string_view line = m_text.substr(m_pos, end - m_pos);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    m_pos = end < m_text.size() ? end + 1 : end;
    ++m_line;
    if (m_pos >= m_nextConsumed) {
        // A record's groups lie well within the margin.
        constexpr size_t kStep = 8 << 20, kMargin = 1 << 20;
        if (m_consumed && m_pos > kMargin) m_consumed(m_pos - kMargin);
        m_nextConsumed = m_pos + kStep;
    }
    return line;
}

namespace {
std::string_view Trim(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
    return s;
}
std::string Shown(std::string_view s) {
    std::string out(s.substr(0, 40));
    return out.size() < s.size() ? out + "..." : out;
}
}  // namespace

bool Scanner::NextRaw(Raw& raw) {
    if (m_haveRaw) {
        raw = m_raw;
        m_haveRaw = false;
        return true;
    }
    // Blank lines between groups are tolerated at the very end only.
    if (m_pos >= m_text.size()) return false;
    std::string_view codeText = Trim(NextLine());
    raw.line = m_line;
    if (codeText.empty() && m_pos >= m_text.size()) return false;
    int code = 0;
    auto [p, ec] = std::from_chars(codeText.data(), codeText.data() + codeText.size(), code);
    if (ec != std::errc() || p != codeText.data() + codeText.size())
        Fail(raw.line, "group code expected, found \"" + Shown(codeText) + "\"");
    if (code < -32768 || code > 32767) Fail(raw.line, "group code " + std::to_string(code) + " out of range");
    if (m_pos >= m_text.size()) Fail(raw.line, "file ends after group code " + std::to_string(code));
    raw.code = code;
    raw.value = NextLine();
    return true;
}

bool Scanner::PeekRaw(Raw& raw) {
    if (!m_haveRaw) {
        if (!NextRaw(m_raw)) return false;
        m_haveRaw = true;
    }
    raw = m_raw;
    return true;
}

double Scanner::ParseReal(const Raw& raw) {
    std::string_view s = Trim(raw.value);
    double v = 0;
    const char* b = s.data();
    if (!s.empty() && s.front() == '+') ++b;
    auto [p, ec] = std::from_chars(b, s.data() + s.size(), v);
    if (ec != std::errc() || p != s.data() + s.size() || s.empty())
        Fail(raw.line + 1, "number expected for group " + std::to_string(raw.code) + ", found \"" + Shown(raw.value) + "\"");
    return v;
}

void Scanner::Convert(const Raw& raw, Tag& tag) {
    tag = Tag();
    tag.code = static_cast<int16_t>(raw.code);
    tag.line = raw.line;
    tag.kind = db::TagKind(raw.code);
    switch (tag.kind) {
    case ValueKind::Text:
    case ValueKind::Binary:
    case ValueKind::None:
        tag.kind = tag.kind == ValueKind::None ? ValueKind::Text : tag.kind;
        tag.s = raw.value;
        break;
    case ValueKind::Real: tag.v[0] = ParseReal(raw); break;
    case ValueKind::Short:
    case ValueKind::Long: {
        std::string_view s = Trim(raw.value);
        int64_t v = 0;
        const char* b = s.data();
        if (!s.empty() && s.front() == '+') ++b;
        auto [p, ec] = std::from_chars(b, s.data() + s.size(), v);
        if (ec != std::errc() || p != s.data() + s.size() || s.empty()) {
            // Some writers give integers as reals ("1.0"); take them if whole.
            double d = ParseReal(raw);
            if (d != static_cast<double>(static_cast<int64_t>(d)))
                Fail(raw.line + 1, "integer expected for group " + std::to_string(raw.code));
            v = static_cast<int64_t>(d);
        }
        tag.i = v;
        break;
    }
    case ValueKind::Point: {
        tag.v[0] = ParseReal(raw);
        tag.dims = 1;
        Raw next;
        if (db::IsPointCode(raw.code) && PeekRaw(next) && next.code == raw.code + 10) {
            NextRaw(next);
            tag.v[1] = ParseReal(next);
            tag.dims = 2;
            if (PeekRaw(next) && next.code == raw.code + 20) {
                NextRaw(next);
                tag.v[2] = ParseReal(next);
                tag.dims = 3;
            }
        }
        break;
    }
    case ValueKind::Name: {
        std::string_view s = Trim(raw.value);
        uint64_t h = 0;
        auto [p, ec] = std::from_chars(s.data(), s.data() + s.size(), h, 16);
        if (ec != std::errc() || p != s.data() + s.size() || s.empty())
            Fail(raw.line + 1, "handle expected for group " + std::to_string(raw.code) + ", found \"" + Shown(raw.value) + "\"");
        tag.ref = h ? m_db->impl().StubFor(h, true) : nullptr;
        break;
    }
    }
}

bool Scanner::Next(Tag& tag) {
    if (m_haveTag) {
        tag = m_tag;
        m_haveTag = false;
        return true;
    }
    Raw raw;
    if (!NextRaw(raw)) return false;
    Convert(raw, tag);
    return true;
}

bool Scanner::Peek(Tag& tag) {
    if (!m_haveTag) {
        if (!Next(m_tag)) return false;
        m_haveTag = true;
    }
    tag = m_tag;
    return true;
}

}  // namespace lumo::dxf
