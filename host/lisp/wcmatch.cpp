// Wild-card matching: each alternative compiles to a row of tokens, a star
// or a set of the bytes one position accepts, and is matched greedily with
// one backtrack point, which is exact for patterns of stars and single-byte
// sets and never worse than text length times pattern length.
#include "host/lisp/wcmatch.h"

#include <bitset>
#include <string>
#include <vector>

#include "platform/acutads.h"

namespace lumo::lisp {
namespace {

using ByteSet = std::bitset<256>;

struct Token {
    bool star = false;
    ByteSet accepts;
};

bool IsDigit(unsigned char c) { return c >= '0' && c <= '9'; }
bool IsLetter(unsigned char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

ByteSet SetOf(bool (*pred)(unsigned char)) {
    ByteSet s;
    for (int c = 0; c < 256; ++c) s[c] = pred(static_cast<unsigned char>(c));
    return s;
}
const ByteSet& Digits() { static const ByteSet s = SetOf(IsDigit); return s; }
const ByteSet& Letters() { static const ByteSet s = SetOf(IsLetter); return s; }
const ByteSet& Others() {
    static const ByteSet s = SetOf([](unsigned char c) { return !IsDigit(c) && !IsLetter(c); });
    return s;
}

ByteSet Single(unsigned char c) {
    ByteSet s;
    s[c] = true;
    return s;
}

// Reads a bracketed class starting at pattern[i] == '['. Returns false, with
// i untouched, when there is no closing bracket: the '[' is then literal.
bool ReadClass(std::string_view pattern, size_t& i, ByteSet& out) {
    size_t j = i + 1;
    bool negate = j < pattern.size() && pattern[j] == '~';
    if (negate) ++j;
    ByteSet set;
    bool first = true;
    for (; j < pattern.size(); first = false) {
        unsigned char c = static_cast<unsigned char>(pattern[j]);
        if (c == ']' && !first) break;  // a ']' first in the class is itself
        if (c == '`' && j + 1 < pattern.size()) c = static_cast<unsigned char>(pattern[++j]);
        ++j;
        if (j + 1 < pattern.size() && pattern[j] == '-' && pattern[j + 1] != ']') {
            unsigned char hi = static_cast<unsigned char>(pattern[j + 1]);
            j += 2;
            for (int x = c; x <= hi; ++x) set[x] = true;
            continue;
        }
        set[c] = true;
    }
    if (j >= pattern.size()) return false;
    i = j + 1;
    out = negate ? ~set : set;
    return true;
}

struct Alternative {
    bool negated = false;
    std::vector<Token> tokens;
};

// Compiles the alternative that starts at pattern[i]; leaves i past the
// comma that ends it, and says in `more` whether there was one.
Alternative Compile(std::string_view pattern, size_t& i, bool& more) {
    more = false;
    Alternative alt;
    if (i < pattern.size() && pattern[i] == '~') {
        alt.negated = true;
        ++i;
    }
    while (i < pattern.size()) {
        unsigned char c = static_cast<unsigned char>(pattern[i]);
        Token t;
        switch (c) {
            case ',': ++i; more = true; return alt;
            case '*':
                ++i;
                if (alt.tokens.empty() || !alt.tokens.back().star) {
                    t.star = true;
                    alt.tokens.push_back(t);
                }
                continue;
            case '?': t.accepts.set(); break;
            case '#': t.accepts = Digits(); break;
            case '@': t.accepts = Letters(); break;
            case '.': t.accepts = Others(); break;
            case '`':
                if (i + 1 < pattern.size()) c = static_cast<unsigned char>(pattern[++i]);
                t.accepts = Single(c);
                break;
            case '[':
                if (ReadClass(pattern, i, t.accepts)) {
                    alt.tokens.push_back(t);
                    continue;
                }
                t.accepts = Single(c);
                break;
            default: t.accepts = Single(c); break;
        }
        ++i;
        alt.tokens.push_back(t);
    }
    return alt;
}

bool MatchTokens(std::string_view text, const std::vector<Token>& tokens) {
    const size_t none = static_cast<size_t>(-1);
    size_t t = 0, p = 0, starP = none, starT = 0;
    while (t < text.size()) {
        if (p < tokens.size() && tokens[p].star) {
            starP = p++;
            starT = t;
        } else if (p < tokens.size() && tokens[p].accepts[static_cast<unsigned char>(text[t])]) {
            ++p;
            ++t;
        } else if (starP != none) {
            p = starP + 1;
            t = ++starT;
        } else {
            return false;
        }
    }
    while (p < tokens.size() && tokens[p].star) ++p;
    return p == tokens.size();
}

}  // namespace

bool WcMatch(std::string_view text, std::string_view pattern) {
    size_t i = 0;
    for (bool more = true; more;) {
        Alternative alt = Compile(pattern, i, more);
        if (MatchTokens(text, alt.tokens) != alt.negated) return true;
    }
    return false;
}

}  // namespace lumo::lisp

int acutWcMatch(const char* text, const char* pattern) {
    if (!text || !pattern) return RTERROR;
    return lumo::lisp::WcMatch(text, pattern) ? RTNORM : RTERROR;
}
