#include "host/ads/prompts.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <vector>

#include "host/ads/input.h"
#include "host/ads/output.h"
#include "platform/acedads.h"
#include "platform/crt.h"

namespace lumo::host {
namespace {

int gFlags = 0;
std::vector<std::string> gKeywords;
std::string gLastKeyword;

// Copies at most 132 bytes and the end mark, with no padding: callers'
// buffers are often just big enough for the answers they expect.
void CopyAnswer(const std::string& text, char* out) {
    if (!out) return;
    size_t n = std::min<size_t>(text.size(), 132);
    std::memcpy(out, text.data(), n);
    out[n] = 0;
}

std::string Upper(std::string s) {
    for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return s;
}

// A keyword matches its full name or any abbreviation that keeps its
// capital letters ("eXit" takes "x", "ex", "exit").
bool MatchKeyword(const std::string& answer, std::string& keyword) {
    const std::string a = Upper(answer);
    for (const std::string& k : gKeywords) {
        const std::string upper = Upper(k);
        if (a == upper) { keyword = k; return true; }
        std::string caps;
        for (char c : k) if (std::isupper(static_cast<unsigned char>(c))) caps += c;
        if (!caps.empty() && a == caps) { keyword = k; return true; }
        if (!caps.empty() && a.size() >= caps.size() && upper.compare(0, a.size(), a) == 0) { keyword = k; return true; }
    }
    return false;
}

double Number(const std::string& s, bool& ok) {
    char* end = nullptr;
    double v = std::strtod(s.c_str(), &end);
    ok = end != s.c_str() && *end == 0;
    return v;
}

}  // namespace

const std::string& LastKeyword() { return gLastKeyword; }

bool ParsePoint(const std::string& text, ads_point out) {
    std::vector<std::string> parts;
    std::stringstream in(text);
    for (std::string part; std::getline(in, part, ',');) parts.push_back(part);
    if (parts.size() < 2 || parts.size() > 3) return false;
    out[2] = 0;
    for (size_t i = 0; i < parts.size(); ++i) {
        bool ok = false;
        out[i] = Number(parts[i], ok);
        if (!ok) return false;
    }
    return true;
}

int Prompt(const char* prompt, bool (*parse)(const std::string&, void*), void* out, bool spaceEnds) {
    const int flags = gFlags;
    gFlags = 0;
    std::vector<std::string> keywords = std::move(gKeywords);
    gKeywords.clear();
    for (;;) {
        if (prompt) WriteOutput(prompt);
        std::string answer;
        if (!ReadInputLine(answer)) {
            WriteOutput("*Cancel*\n");
            return RTCAN;
        }
        if (spaceEnds) answer = answer.substr(0, answer.find(' '));
        WriteOutput(answer + "\n");
        if (answer.empty()) {
            if (flags & kNoNull) continue;
            return RTNONE;
        }
        gKeywords = keywords;
        std::string keyword;
        bool isKeyword = MatchKeyword(answer, keyword);
        gKeywords.clear();
        if (parse && parse(answer, out)) return RTNORM;
        if (isKeyword) {
            gLastKeyword = keyword;
            return RTKWORD;
        }
        if (flags & kArbitrary) {
            gLastKeyword = answer;
            return RTKWORD;
        }
        if (!keywords.empty() && !parse) WriteOutput("Invalid option keyword.\n");
    }
}

}  // namespace lumo::host

using namespace lumo::host;

int acedInitGet(int flags, const char* keywords) {
    gFlags = flags;
    gKeywords.clear();
    if (keywords) {
        std::stringstream in(keywords);
        for (std::string k; in >> k;) gKeywords.push_back(k);
    }
    return RTNORM;
}

int acedGetKword(const char* prompt, char* out) {
    int rc = Prompt(prompt, nullptr, nullptr);
    if (rc == RTKWORD) {
        CopyAnswer(gLastKeyword, out);
        return RTNORM;
    }
    if (rc == RTNONE && out) out[0] = 0;
    return rc;
}

int acedGetInput(char* out) {
    CopyAnswer(gLastKeyword, out);
    return RTNORM;
}

namespace {

bool TakeString(const std::string& text, void* out) {
    *static_cast<std::string*>(out) = text;
    return true;
}

bool TakeInt(const std::string& text, void* out) {
    char* end = nullptr;
    long v = std::strtol(text.c_str(), &end, 10);
    if (end == text.c_str() || *end || v < -32768 || v > 32767) {
        WriteOutput("Requires an integer value.\n");
        return false;
    }
    *static_cast<int*>(out) = static_cast<int>(v);
    return true;
}

bool TakeReal(const std::string& text, void* out) {
    bool ok = false;
    double v = Number(text, ok);
    if (!ok) {
        WriteOutput("Requires numeric value.\n");
        return false;
    }
    *static_cast<double*>(out) = v;
    return true;
}

bool TakePoint(const std::string& text, void* out) {
    if (ParsePoint(text, static_cast<double*>(out))) return true;
    WriteOutput("Invalid point.\n");
    return false;
}

}  // namespace

int acedGetString(int cronly, const char* prompt, char* out) {
    std::string text;
    // Typing stops at a space unless spaces are allowed; an empty answer is
    // an empty string, not a null input.
    int rc = Prompt(prompt, TakeString, &text, cronly == 0);
    if (rc == RTNONE) rc = RTNORM;
    if (rc == RTNORM) {
        CopyAnswer(text, out);
    }
    return rc;
}

namespace {

// Numbers are asked again while initget's zero and sign rules refuse them.
template <class T>
int GetNumber(const char* prompt, T* out, bool (*parse)(const std::string&, void*)) {
    const int flags = gFlags;
    for (;;) {
        int rc = Prompt(prompt, parse, out);
        if (rc != RTNORM) return rc;
        if ((flags & kNoZero) && *out == 0) WriteOutput("Value must be nonzero.\n");
        else if ((flags & kNoNegative) && *out < 0) WriteOutput("Value must be positive.\n");
        else return rc;
        gFlags = flags;
    }
}

}  // namespace

int acedGetInt(const char* prompt, int* out) { return GetNumber(prompt, out, TakeInt); }
int acedGetReal(const char* prompt, ads_real* out) { return GetNumber(prompt, out, TakeReal); }

int acedGetPoint(const ads_point, const char* prompt, ads_point out) {
    return Prompt(prompt, TakePoint, out);
}

int acedGetAngle(const ads_point base, const char* prompt, ads_real* out) {
    struct Ctx {
        const double* base;
        double* angle;
    } ctx{base, out};
    return Prompt(prompt, [](const std::string& text, void* data) {
        auto* c = static_cast<Ctx*>(data);
        double p[3];
        if (c->base && ParsePoint(text, p)) {
            *c->angle = std::atan2(p[1] - c->base[1], p[0] - c->base[0]);
            if (*c->angle < 0) *c->angle += 2 * M_PI;
            return true;
        }
        bool ok = false;
        double degrees = Number(text, ok);
        if (!ok) {
            WriteOutput("Requires valid numeric angle or second point.\n");
            return false;
        }
        *c->angle = degrees * M_PI / 180;
        return true;
    }, &ctx);
}
