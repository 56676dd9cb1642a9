// The LISP string family, lumo_gettime and lumo_getrandstr.
//
// Every handler builds a CString from its first argument and answers with
// CString's byte semantics. Arguments of a wrong type, or missing, give nil
// without a message.
#include "frame/strings_lisp.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "frame/LispList.h"
#include "frame/chain_copy.h"
#include "platform/acedads.h"
#include "platform/acutads.h"
#include "platform/afxstr.h"

namespace {

bool Is(const resbuf* rb, int type) { return rb && rb->restype == type; }
const char* Text(const resbuf* rb) { return rb->resval.rstring ? rb->resval.rstring : ""; }

int RetString(const CString& s) {
    acedRetStr(s);
    return RTNORM;
}

// Text and a short: the shape of Right, Left.
bool TextAndShort(const resbuf* a) { return Is(a, RTSTR) && Is(a->rbnext, RTSHORT); }

// Reals become integers by truncation; values past the range of the
// integer stop at its ends rather than wrap.
long TruncLong(double v) {
    if (!(v == v)) return 0;  // NaN
    if (v >= static_cast<double>(LONG_MAX)) return LONG_MAX;
    if (v <= static_cast<double>(LONG_MIN)) return LONG_MIN;
    return static_cast<long>(v);
}
int TruncInt(double v) {
    long n = TruncLong(v);
    return n > INT_MAX ? INT_MAX : n < INT_MIN ? INT_MIN : static_cast<int>(n);
}

// Returns the chain of texts as a list and frees it.
int RetStrings(resbuf* chain) {
    ReturnChain(chain, 0);
    FreeStringChain(chain);
    return RTNORM;
}

}  // namespace

int lumo_string_right() {
    const resbuf* a = acedGetArgs();
    if (!TextAndShort(a)) return RTNORM;
    return RetString(CString(Text(a)).Right(a->rbnext->resval.rint));
}

int lumo_string_left() {
    const resbuf* a = acedGetArgs();
    if (!TextAndShort(a)) return RTNORM;
    return RetString(CString(Text(a)).Left(a->rbnext->resval.rint));
}

int lumo_string_mid() {
    const resbuf* a = acedGetArgs();
    if (!TextAndShort(a)) return RTNORM;
    CString s(Text(a));
    int first = a->rbnext->resval.rint;
    const resbuf* count = a->rbnext->rbnext;
    if (Is(count, RTSHORT) && count->resval.rint >= 0) return RetString(s.Mid(first, count->resval.rint));
    return RetString(s.Mid(first));
}

int lumo_string_SpanIncluding() {
    const resbuf* a = acedGetArgs();
    if (!Is(a, RTSTR) || !Is(a->rbnext, RTSTR)) return RTNORM;
    return RetString(CString(Text(a)).SpanIncluding(Text(a->rbnext)));
}

int lumo_string_SpanExcluding() {
    const resbuf* a = acedGetArgs();
    if (!Is(a, RTSTR) || !Is(a->rbnext, RTSTR)) return RTNORM;
    return RetString(CString(Text(a)).SpanExcluding(Text(a->rbnext)));
}

int lumo_string_Reverse() {
    const resbuf* a = acedGetArgs();
    if (!Is(a, RTSTR) || a->rbnext) return RTNORM;
    CString s(Text(a));
    s.MakeReverse();
    return RetString(s);
}

int lumo_string_replace() {
    const resbuf* a = acedGetArgs();
    if (!Is(a, RTSTR) || !Is(a->rbnext, RTSTR) || !Is(a->rbnext->rbnext, RTSTR)) return RTNORM;
    CString s(Text(a));
    if (s.Replace(Text(a->rbnext), Text(a->rbnext->rbnext)) == 0) return RTNORM;
    return RetString(s);
}

// new, old, text: the order of the arguments is the reverse of replace's.
int lumo_string_Subst() {
    const resbuf* a = acedGetArgs();
    if (!Is(a, RTSTR) || !Is(a->rbnext, RTSTR) || !Is(a->rbnext->rbnext, RTSTR)) return RTNORM;
    const char* newText = Text(a);
    const char* oldText = Text(a->rbnext);
    CString s(Text(a->rbnext->rbnext));
    int at = s.Find(oldText);
    if (at < 0) return RTNORM;
    s.Delete(at, static_cast<int>(std::strlen(oldText)));
    s.Insert(at, newText);
    return RetString(s);
}

int lumo_string_Find() {
    const resbuf* a = acedGetArgs();
    if (!Is(a, RTSTR) || !Is(a->rbnext, RTSTR)) return RTNORM;
    const resbuf* start = a->rbnext->rbnext;
    int at = CString(Text(a)).Find(Text(a->rbnext), Is(start, RTSHORT) ? start->resval.rint : 0);
    if (at >= 0) acedRetInt(at);
    return RTNORM;
}

int lumo_string_Insert() {
    const resbuf* a = acedGetArgs();
    if (!TextAndShort(a) || !Is(a->rbnext->rbnext, RTSTR)) return RTNORM;
    CString s(Text(a));
    s.Insert(a->rbnext->resval.rint, Text(a->rbnext->rbnext));
    return RetString(s);
}

// (text index count) deletes a range; (text part) deletes as many bytes as
// the part is long where Find puts it. A part that isn't found has index -1,
// which Delete reads as 0: the bytes go from the front. Kept as is: callers
// rely on this outcome.
int lumo_string_Remove() {
    const resbuf* a = acedGetArgs();
    if (!Is(a, RTSTR) || !a->rbnext) return RTNORM;
    CString s(Text(a));
    const resbuf* second = a->rbnext;
    if (second->restype == RTSHORT) {
        if (!Is(second->rbnext, RTSHORT)) return RTNORM;
        s.Delete(second->resval.rint, second->rbnext->resval.rint);
    } else if (second->restype == RTSTR) {
        const char* part = Text(second);
        s.Delete(s.Find(part), static_cast<int>(std::strlen(part)));
    } else {
        return RTNORM;
    }
    return RetString(s);
}

int lumo_string_TrimRight() {
    const resbuf* a = acedGetArgs();
    if (!Is(a, RTSTR)) return RTNORM;
    CString s(Text(a));
    if (!a->rbnext) s.TrimRight();
    else if (Is(a->rbnext, RTSTR)) s.TrimRight(Text(a->rbnext));
    else return RTNORM;
    return RetString(s);
}

int lumo_string_TrimLeft() {
    const resbuf* a = acedGetArgs();
    if (!Is(a, RTSTR)) return RTNORM;
    CString s(Text(a));
    if (!a->rbnext) s.TrimLeft();
    else if (Is(a->rbnext, RTSTR)) s.TrimLeft(Text(a->rbnext));
    else return RTNORM;
    return RetString(s);
}

int lumo_string_FindOneOf() {
    const resbuf* a = acedGetArgs();
    if (!Is(a, RTSTR) || !Is(a->rbnext, RTSTR)) return RTNORM;
    int at = CString(Text(a)).FindOneOf(Text(a->rbnext));
    if (at >= 0) acedRetInt(at);
    return RTNORM;
}

int lumo_string_format() {
    const size_t kLimit = 5000;   // bytes, the terminator included
    std::string out;
    char piece[400];
    for (const resbuf* a = acedGetArgs(); a && out.size() < kLimit - 1; a = a->rbnext) {
        piece[0] = 0;
        switch (a->restype) {
            case RTREAL: {
                const resbuf* next = a->rbnext;
                if (Is(next, RTSHORT) && next->resval.rint >= 1 && next->resval.rint <= 5) {
                    char format[16];
                    std::snprintf(format, sizeof format, "%s%d%s", "%.", next->resval.rint, "f");
                    std::snprintf(piece, sizeof piece, format, a->resval.rreal);
                    a = next;   // the decimals are consumed
                } else {
                    std::snprintf(piece, sizeof piece, "%d", TruncInt(a->resval.rreal));
                }
                break;
            }
            case RTSHORT: std::snprintf(piece, sizeof piece, "%d", a->resval.rint); break;
            case RTLONG: std::snprintf(piece, sizeof piece, "%ld", static_cast<long>(a->resval.rlong)); break;
            case RTSTR: out += Text(a); break;
            default: break;   // other values are skipped
        }
        out += piece;
    }
    if (out.size() > kLimit - 1) out.resize(kLimit - 1);
    if (!out.empty()) acedRetStr(out.c_str());
    return RTNORM;
}

// strtok works on the argument's own text, as it stands in the chain.
int lumo_string_tok() {
    resbuf* a = acedGetArgs();
    if (!Is(a, RTSTR) || !Is(a->rbnext, RTSTR) || !a->resval.rstring) return RTNORM;
    const char* delimiters = Text(a->rbnext);
    resbuf* tokens = nullptr;
    for (char* t = std::strtok(a->resval.rstring, delimiters); t; t = std::strtok(nullptr, delimiters))
        AppendString(&tokens, t);
    return RetStrings(tokens);
}

int lumo_string_split() {
    const resbuf* a = acedGetArgs();
    if (!Is(a, RTSTR) || !Is(a->rbnext, RTSTR)) return RTNORM;
    const char* text = Text(a);
    const char* separator = Text(a->rbnext);
    size_t n = std::strlen(separator);
    resbuf* pieces = nullptr;
    if (n) {   // an empty separator is found nowhere
        for (const char* at; (at = std::strstr(text, separator)); text = at + n)
            AppendString(&pieces, std::string(text, at).c_str());
    }
    AppendString(&pieces, text);
    return RetStrings(pieces);
}

int lumo_string_join() {
    const resbuf* a = acedGetArgs();
    if (!a) return RTNORM;
    std::vector<std::string> items;
    char piece[64];
    const resbuf* next = nullptr;
    if (a->restype == RTPOINT || a->restype == RT3DPOINT) {
        for (int i = 0; i < (a->restype == RTPOINT ? 2 : 3); ++i) {
            std::snprintf(piece, sizeof piece, "%ld", TruncLong(a->resval.rpoint[i]));
            items.push_back(piece);
        }
        next = a->rbnext;
    } else if (a->restype == RTLB) {
        const resbuf* m = a->rbnext;
        for (; m && m->restype != RTLE; m = m->rbnext) {
            switch (m->restype) {
                case RTREAL: std::snprintf(piece, sizeof piece, "%ld", TruncLong(m->resval.rreal)); break;
                case RTSHORT: std::snprintf(piece, sizeof piece, "%d", m->resval.rint); break;
                case RTLONG: std::snprintf(piece, sizeof piece, "%ld", static_cast<long>(m->resval.rlong)); break;
                case RTSTR: break;
                default: return RTNORM;
            }
            items.push_back(m->restype == RTSTR ? Text(m) : piece);
        }
        if (!m) return RTNORM;   // the list never closed
        next = m->rbnext;
    } else {
        return RTNORM;
    }
    if (!Is(next, RTSTR) || items.empty()) return RTNORM;
    std::string out = items[0];
    for (size_t i = 1; i < items.size(); ++i) out.append(Text(next)).append(items[i]);
    acedRetStr(out.c_str());
    return RTNORM;
}

void DateTimeString(char* out) {
    out[0] = 0;
    resbuf cdate{};
    if (acedGetVar("cdate", &cdate) != RTNORM || cdate.restype != RTREAL) return;
    char text[64] = "";
    if (acdbRToS(cdate.resval.rreal, 2, 20, text) != RTNORM) return;
    // "YYYYMMDD.HHMMSS...": the year, then the time of day behind the point.
    std::snprintf(out, 64, "%.4s%s", text, std::strlen(text) > 9 ? text + 9 : "");
}

int lumo_gettime() {
    if (acedGetArgs()) return RTNORM;
    char text[64];
    DateTimeString(text);
    acedRetStr(text);
    return RTNORM;
}

namespace {
uint32_t gRandState = 1000;   // the generator's state between calls
uint32_t gRandStart = 0;       // where the generator started for the last word

// atol of the module's 32-bit long: a number past the range stops at its end.
int32_t Atol32(const char* text) {
    long long n = std::strtoll(text, nullptr, 10);
    return static_cast<int32_t>(std::clamp<long long>(n, INT32_MIN, INT32_MAX));
}
}  // namespace

int lumo_getrandstr() {
    if (acedGetArgs()) return RTNORM;
    std::srand(gRandState);
    gRandState = static_cast<uint32_t>(std::rand() % 17545);
    char text[64];
    DateTimeString(text);
    uint32_t number = static_cast<uint32_t>(Atol32(text));
    // A state of 0 would divide by zero: the number itself is the start then.
    gRandStart = gRandState ? number % gRandState : number;
    std::srand(gRandStart);
    int n = std::rand() % 17575;
    const char* digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    char word[8];
    int length = 0;
    do {
        word[length++] = digits[n % 26];
        n /= 26;
    } while (n > 0);
    std::string out(word, static_cast<size_t>(length));
    acedRetStr(std::string(out.rbegin(), out.rend()).c_str());
    return RTNORM;
}
