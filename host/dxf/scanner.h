// Groups of an ASCII DXF file: a code line and a value line each, turned
// into typed tags. Values are views into the file's text.
#pragma once
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "host/db/tags.h"

class AcDbDatabase;

namespace lumo::dxf {

// A malformed file: the message is "<file>:<line>: <what is wrong>".
struct DxfError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

class Scanner {
public:
    // `db` turns handles into stubs (made on first mention).
    Scanner(std::string_view text, std::string fileName, AcDbDatabase* db);

    // The next tag; false at the end of the text. A point's coordinates,
    // which a file gives as separate groups, come as one tag.
    bool Next(db::Tag& tag);
    // The tag that Next would give, without taking it; false at the end.
    bool Peek(db::Tag& tag);
    uint32_t Line() const { return m_line; }
    // Called now and then with an offset the scanner has gone well past, so
    // that the memory of the text before it can be given back.
    void OnConsumed(std::function<void(size_t)> consumed) { m_consumed = std::move(consumed); }
    [[noreturn]] void Fail(uint32_t line, const std::string& what) const;

private:
    struct Raw {
        int code = 0;
        std::string_view value;
        uint32_t line = 0;
    };
    bool NextRaw(Raw& raw);
    bool PeekRaw(Raw& raw);
    std::string_view NextLine();
    void Convert(const Raw& raw, db::Tag& tag);
    double ParseReal(const Raw& raw);

    std::string_view m_text;
    size_t m_pos = 0;
    size_t m_nextConsumed = 0;
    std::function<void(size_t)> m_consumed;
    uint32_t m_line = 0;
    std::string m_file;
    AcDbDatabase* m_db;
    bool m_haveRaw = false;
    Raw m_raw;
    bool m_haveTag = false;
    db::Tag m_tag;
};

}  // namespace lumo::dxf
