// Reads LISP forms from text, as the host's reader does.
#pragma once
#include <string_view>

#include "host/lisp/value.h"

namespace lumo::lisp {

class Reader {
public:
    explicit Reader(std::string_view text) : m_text(text) {}
    // Reads the next form; false at the end of the text. Malformed input
    // raises a LispError.
    bool Next(Ref& out);
    size_t Offset() const { return m_pos; }

private:
    Ref ReadForm();
    Ref ReadList();
    Ref ReadString();
    Ref ReadAtom();
    void SkipBlanks();
    bool AtEnd() { SkipBlanks(); return m_pos >= m_text.size(); }

    std::string_view m_text;
    size_t m_pos = 0;
    int m_depth = 0;
};

// Reads one form; nil for an empty text.
Ref ReadOne(std::string_view text);
// True when the text holds no unclosed list or string (the REPL reads on).
bool IsBalanced(std::string_view text);
// A number token as the reader sees it; false if the token is no number.
bool ParseNumber(std::string_view token, Ref& out);

}  // namespace lumo::lisp
