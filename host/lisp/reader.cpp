#include "host/lisp/reader.h"

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <string>

#include "host/lisp/builtins.h"

namespace lumo::lisp {

namespace {

constexpr int kMaxNesting = 10000;

bool IsDelimiter(char c) {
    return std::isspace(static_cast<unsigned char>(c)) || c == '(' || c == ')' || c == '\'' || c == '"' || c == ';';
}

}  // namespace

bool ParseNumber(std::string_view token, Ref& out) {
    if (token.empty()) return false;
    size_t i = 0;
    if (token[0] == '+' || token[0] == '-') i = 1;
    bool digits = false, real = false;
    for (size_t j = i; j < token.size(); ++j) {
        char c = token[j];
        if (std::isdigit(static_cast<unsigned char>(c))) digits = true;
        else if (c == '.' || c == 'e' || c == 'E') real = true;
        else if ((c == '+' || c == '-') && j > 0 && (token[j - 1] == 'e' || token[j - 1] == 'E')) continue;
        else return false;
    }
    if (!digits) return false;
    std::string text(token);
    char* end = nullptr;
    if (!real) {
        errno = 0;
        long long v = std::strtoll(text.c_str(), &end, 10);
        // Integers beyond 32 bits read as reals, as the host reads them.
        if (errno == 0 && *end == 0 && v >= INT32_MIN && v <= INT32_MAX) {
            out = MakeInt(static_cast<int32_t>(v));
            return true;
        }
    }
    double d = std::strtod(text.c_str(), &end);
    if (*end != 0) return false;
    out = MakeReal(d);
    return true;
}

void Reader::SkipBlanks() {
    while (m_pos < m_text.size()) {
        char c = m_text[m_pos];
        if (std::isspace(static_cast<unsigned char>(c))) {
            ++m_pos;
        } else if (c == ';') {
            if (m_pos + 1 < m_text.size() && m_text[m_pos + 1] == '|') {
                size_t close = m_text.find("|;", m_pos + 2);
                m_pos = close == std::string_view::npos ? m_text.size() : close + 2;
            } else {
                while (m_pos < m_text.size() && m_text[m_pos] != '\n') ++m_pos;
            }
        } else {
            break;
        }
    }
}

bool Reader::Next(Ref& out) {
    if (AtEnd()) return false;
    if (m_text[m_pos] == ')') {
        ++m_pos;
        Fail("extra right paren on input");
    }
    out = ReadForm();
    return true;
}

Ref Reader::ReadForm() {
    if (AtEnd()) Fail("malformed list on input");
    char c = m_text[m_pos];
    if (c == '(') {
        ++m_pos;
        if (++m_depth > kMaxNesting) Fail("malformed list on input");
        Ref list = ReadList();
        --m_depth;
        return list;
    }
    if (c == '\'') {
        ++m_pos;
        return ListOf({Sym("QUOTE"), ReadForm()});
    }
    if (c == '"') {
        ++m_pos;
        return ReadString();
    }
    if (c == ')') Fail("malformed list on input");
    return ReadAtom();
}

Ref Reader::ReadList() {
    ListBuilder items;
    bool any = false;
    for (;;) {
        if (AtEnd()) Fail("malformed list on input");
        char c = m_text[m_pos];
        if (c == ')') {
            ++m_pos;
            return items.Take();
        }
        if (c == '.' && any && m_pos + 1 < m_text.size() && IsDelimiter(m_text[m_pos + 1])) {
            ++m_pos;
            items.SetTail(ReadForm());
            if (AtEnd() || m_text[m_pos] != ')') Fail("malformed list on input");
            ++m_pos;
            return items.Take();
        }
        items.Add(ReadForm());
        any = true;
    }
}

Ref Reader::ReadString() {
    std::string s;
    while (m_pos < m_text.size()) {
        char c = m_text[m_pos++];
        if (c == '"') return MakeStr(std::move(s));
        if (c != '\\' || m_pos >= m_text.size()) {
            s += c;
            continue;
        }
        char e = m_text[m_pos++];
        switch (e) {
        case 'n': s += '\n'; break;
        case 't': s += '\t'; break;
        case 'r': s += '\r'; break;
        case 'e': s += '\x1b'; break;
        default:
            if (e >= '0' && e <= '7') {
                int v = e - '0';
                for (int k = 0; k < 2 && m_pos < m_text.size() && m_text[m_pos] >= '0' && m_text[m_pos] <= '7'; ++k)
                    v = v * 8 + (m_text[m_pos++] - '0');
                s += static_cast<char>(v);
            } else {
                s += e;  // \" \\ and any other escaped character stand for themselves
            }
        }
    }
    Fail("malformed string on input");
}

Ref Reader::ReadAtom() {
    size_t start = m_pos;
    while (m_pos < m_text.size() && !IsDelimiter(m_text[m_pos])) ++m_pos;
    std::string_view token = m_text.substr(start, m_pos - start);
    Ref number;
    if (ParseNumber(token, number)) return number;
    std::string upper(token);
    for (char& ch : upper) ch = static_cast<char>(std::toupper(static_cast<unsigned char>(ch)));
    if (upper == "NIL") return nullptr;
    return Sym(upper);
}

Ref ReadOne(std::string_view text) {
    Reader r(text);
    Ref out;
    r.Next(out);
    return out;
}

bool IsBalanced(std::string_view text) {
    int depth = 0;
    bool inString = false;
    for (size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (inString) {
            if (c == '\\') ++i;
            else if (c == '"') inString = false;
        } else if (c == '"') {
            inString = true;
        } else if (c == ';') {
            if (i + 1 < text.size() && text[i + 1] == '|') {
                size_t close = text.find("|;", i + 2);
                if (close == std::string_view::npos) return false;
                i = close + 1;
            } else {
                while (i < text.size() && text[i] != '\n') ++i;
            }
        } else if (c == '(') {
            ++depth;
        } else if (c == ')') {
            --depth;
        }
    }
    return !inString && depth <= 0;
}

}  // namespace lumo::lisp
