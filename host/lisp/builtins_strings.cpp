// Strings: the host's string, character and number-text functions with the
// vl-string family. Strings are bytes: case folding and character classes
// touch ASCII only, so double-byte text passes through unchanged.
#include <algorithm>
#include <charconv>
#include <climits>
#include <cstdint>
#include <string>

#include "host/ads/units.h"
#include "host/lisp/builtins.h"
#include "host/lisp/printer.h"
#include "host/lisp/wcmatch.h"
#include "platform/acedads.h"

namespace lumo::lisp {
namespace {

// An optional argument: absent or nil gives the default.
bool Given(Args a, size_t i) { return a.size() > i && a[i]; }
int32_t OptInt(Args a, size_t i, int32_t fallback) { return Given(a, i) ? IntArg(a[i]) : fallback; }

[[noreturn]] void BadValue(const std::string& what, const Ref& v) {
    Fail("bad argument value: " + what + ToString(v, true));
}

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v'; }

Ref Strcat(Args a) {
    std::string out;
    for (const Ref& v : a) out += StrArg(v);
    return MakeStr(std::move(out));
}

Ref Strlen(Args a) {
    size_t n = 0;
    for (const Ref& v : a) n += StrArg(v).size();
    return MakeInt(static_cast<int32_t>(n));
}

Ref Substr(Args a) {
    ArgCount(a, 2, 3);
    const std::string& s = StrArg(a[0]);
    int32_t start = IntArg(a[1]);
    if (start < 1) BadValue("positive ", a[1]);
    int32_t len = OptInt(a, 2, INT32_MAX);
    if (len < 0) BadValue("non-negative ", a[2]);
    size_t from = static_cast<size_t>(start) - 1;
    if (from >= s.size()) return MakeStr("");
    return MakeStr(s.substr(from, static_cast<size_t>(len)));
}

Ref Strcase(Args a) {
    ArgCount(a, 1, 2);
    std::string s = StrArg(a[0]);
    bool lower = Given(a, 1);
    for (char& c : s) c = lower ? Lower(c) : Upper(c);
    return MakeStr(std::move(s));
}

Ref Ascii(Args a) {
    ArgCount(a, 1, 1);
    const std::string& s = StrArg(a[0]);
    return MakeInt(s.empty() ? 0 : static_cast<unsigned char>(s[0]));
}

Ref Chr(Args a) {
    ArgCount(a, 1, 1);
    char c = static_cast<char>(IntArg(a[0]) & 0xFF);
    return MakeStr(c ? std::string(1, c) : std::string());
}

Ref Itoa(Args a) {
    ArgCount(a, 1, 1);
    return MakeStr(std::to_string(IntArg(a[0])));
}

// Leading blanks, a sign and digits; anything after them is ignored, and a
// text without digits reads as 0. Values past 32 bits stop at the limit.
Ref Atoi(Args a) {
    ArgCount(a, 1, 1);
    const std::string& s = StrArg(a[0]);
    size_t i = 0;
    while (i < s.size() && IsBlank(s[i])) ++i;
    bool negative = i < s.size() && s[i] == '-';
    if (i < s.size() && (s[i] == '-' || s[i] == '+')) ++i;
    int64_t v = 0;
    for (; i < s.size() && s[i] >= '0' && s[i] <= '9'; ++i) v = std::min<int64_t>(v * 10 + (s[i] - '0'), int64_t{INT32_MAX} + 1);
    v = negative ? -v : std::min<int64_t>(v, INT32_MAX);
    return MakeInt(static_cast<int32_t>(v));
}

// The longest leading decimal number, "12", "-1.5", ".5", "2e3"; 0.0 when
// there is none.
Ref Atof(Args a) {
    ArgCount(a, 1, 1);
    const std::string& s = StrArg(a[0]);
    size_t i = 0;
    while (i < s.size() && IsBlank(s[i])) ++i;
    bool negative = i < s.size() && s[i] == '-';
    if (i < s.size() && (s[i] == '-' || s[i] == '+')) ++i;
    double v = 0.0;
    const char* first = s.data() + i;
    if (first < s.data() + s.size() && (*first == '.' || (*first >= '0' && *first <= '9')))
        std::from_chars(first, s.data() + s.size(), v, std::chars_format::general);
    return MakeReal(negative ? -v : v);
}

// rtos and angtos go through the same formatting the module reaches:
// (f value [units [precision]]).
Ref FormatWith(Args a, int (*format)(ads_real, int, int, char*)) {
    ArgCount(a, 1, 3);
    double v = NumArg(a[0]);
    char out[host::kUnitTextSize];
    if (format(v, OptInt(a, 1, -1), OptInt(a, 2, -1), out) != RTNORM) return nullptr;
    return MakeStr(out);
}

Ref Rtos(Args a) { return FormatWith(a, acdbRToS); }
Ref Angtos(Args a) { return FormatWith(a, acdbAngToS); }

Ref Distof(Args a) {
    ArgCount(a, 1, 2);
    double v = 0.0;
    if (acdbDisToF(StrArg(a[0]).c_str(), OptInt(a, 1, -1), &v) != RTNORM) return nullptr;
    return MakeReal(v);
}

Ref Angtof(Args a) {
    ArgCount(a, 1, 2);
    double v = 0.0;
    if (acdbAngToF(StrArg(a[0]).c_str(), OptInt(a, 1, -1), &v) != RTNORM) return nullptr;
    return MakeReal(v);
}

Ref Wcmatch(Args a) {
    ArgCount(a, 2, 2);
    return MakeBool(WcMatch(StrArg(a[0]), StrArg(a[1])));
}

// A start position: absent or nil is 0, a negative one counts as 0.
size_t StartArg(Args a, size_t i) { return static_cast<size_t>(std::max(OptInt(a, i, 0), 0)); }

Ref VlStringSearch(Args a) {
    ArgCount(a, 2, 3);
    const std::string& pattern = StrArg(a[0]);
    const std::string& s = StrArg(a[1]);
    size_t start = StartArg(a, 2);
    if (start > s.size()) return nullptr;
    size_t at = s.find(pattern, start);
    return at == std::string::npos ? Ref() : MakeInt(static_cast<int32_t>(at));
}

// Replaces the first occurrence only.
Ref VlStringSubst(Args a) {
    ArgCount(a, 3, 4);
    const std::string& with = StrArg(a[0]);
    const std::string& pattern = StrArg(a[1]);
    std::string s = StrArg(a[2]);
    size_t start = StartArg(a, 3);
    size_t at = start > s.size() ? std::string::npos : s.find(pattern, start);
    if (at != std::string::npos) s.replace(at, pattern.size(), with);
    return MakeStr(std::move(s));
}

Ref Trim(Args a, bool left, bool right) {
    ArgCount(a, 2, 2);
    const std::string& chars = StrArg(a[0]);
    const std::string& s = StrArg(a[1]);
    size_t from = 0, to = s.size();
    if (left) while (from < to && chars.find(s[from]) != std::string::npos) ++from;
    if (right) while (to > from && chars.find(s[to - 1]) != std::string::npos) --to;
    return MakeStr(s.substr(from, to - from));
}
Ref VlStringTrim(Args a) { return Trim(a, true, true); }
Ref VlStringLeftTrim(Args a) { return Trim(a, true, false); }
Ref VlStringRightTrim(Args a) { return Trim(a, false, true); }

// Each character found in the source set becomes the one at the same place
// of the destination set; one past its end stays as it is.
Ref VlStringTranslate(Args a) {
    ArgCount(a, 3, 3);
    const std::string& from = StrArg(a[0]);
    const std::string& to = StrArg(a[1]);
    std::string s = StrArg(a[2]);
    for (char& c : s) {
        size_t at = from.find(c);
        if (at != std::string::npos && at < to.size()) c = to[at];
    }
    return MakeStr(std::move(s));
}

Ref VlStringToList(Args a) {
    ArgCount(a, 1, 1);
    ListBuilder out;
    for (char c : StrArg(a[0])) out.Add(MakeInt(static_cast<unsigned char>(c)));
    return out.Take();
}

Ref VlListToString(Args a) {
    ArgCount(a, 1, 1);
    std::string s;
    for (const Ref& item : ToVector(ListArg(a[0]))) s += static_cast<char>(IntArg(item) & 0xFF);
    return MakeStr(std::move(s));
}

Ref VlPrincToString(Args a) { ArgCount(a, 1, 1); return MakeStr(ToString(a[0], false)); }
Ref VlPrin1ToString(Args a) { ArgCount(a, 1, 1); return MakeStr(ToString(a[0], true)); }

Ref VlSymbolName(Args a) {
    ArgCount(a, 1, 1);
    return MakeStr(SymArg(a[0]).name);
}

Ref VlSymbolp(Args a) { ArgCount(a, 1, 1); return MakeBool(a[0].Is(Type::Sym)); }

// From the end the search runs backwards from the start position (from the
// last character when there is none).
Ref VlStringPosition(Args a) {
    ArgCount(a, 2, 4);
    char c = static_cast<char>(IntArg(a[0]) & 0xFF);
    const std::string& s = StrArg(a[1]);
    size_t at = std::string::npos;
    if (Given(a, 3)) {
        if (!s.empty()) at = s.rfind(c, Given(a, 2) ? StartArg(a, 2) : s.size() - 1);
    } else {
        size_t start = StartArg(a, 2);
        if (start < s.size()) at = s.find(c, start);
    }
    return at == std::string::npos ? Ref() : MakeInt(static_cast<int32_t>(at));
}

Ref VlStringElt(Args a) {
    ArgCount(a, 2, 2);
    const std::string& s = StrArg(a[0]);
    int32_t i = IntArg(a[1]);
    if (i < 0 || static_cast<size_t>(i) >= s.size()) BadValue("string position out of range ", a[1]);
    return MakeInt(static_cast<unsigned char>(s[static_cast<size_t>(i)]));
}

// The length of the common prefix of the two strings from their positions.
Ref VlStringMismatch(Args a) {
    ArgCount(a, 2, 5);
    const std::string& x = StrArg(a[0]);
    const std::string& y = StrArg(a[1]);
    size_t i = StartArg(a, 2), j = StartArg(a, 3);
    bool fold = Given(a, 4);
    int32_t n = 0;
    for (; i < x.size() && j < y.size(); ++i, ++j, ++n) {
        char p = x[i], q = y[j];
        if (fold ? Upper(p) != Upper(q) : p != q) break;
    }
    return MakeInt(n);
}

const BuiltinTable kStrings{{
    {"strcat", Strcat}, {"strlen", Strlen}, {"substr", Substr}, {"strcase", Strcase},
    {"ascii", Ascii}, {"chr", Chr}, {"itoa", Itoa}, {"atoi", Atoi}, {"atof", Atof},
    {"rtos", Rtos}, {"angtos", Angtos}, {"distof", Distof}, {"angtof", Angtof},
    {"wcmatch", Wcmatch}, {"vl-string-search", VlStringSearch}, {"vl-string-subst", VlStringSubst},
    {"vl-string-trim", VlStringTrim}, {"vl-string-left-trim", VlStringLeftTrim},
    {"vl-string-right-trim", VlStringRightTrim}, {"vl-string-translate", VlStringTranslate},
    {"vl-string->list", VlStringToList}, {"vl-list->string", VlListToString},
    {"vl-princ-to-string", VlPrincToString}, {"vl-prin1-to-string", VlPrin1ToString},
    {"vl-symbol-name", VlSymbolName}, {"vl-symbolp", VlSymbolp},
    {"vl-string-position", VlStringPosition}, {"vl-string-elt", VlStringElt},
    {"vl-string-mismatch", VlStringMismatch},
}};

}  // namespace
}  // namespace lumo::lisp
