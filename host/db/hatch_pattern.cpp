// Hatch patterns: where their definitions come from, and how the pattern
// lines follow angle, scale, spacing and doubling.
//
// A hatch keeps its pattern lines as a file does: already turned by the
// pattern angle and scaled. A change of angle or scale takes them back to
// the pattern's own units first, so a pattern read from a file changes as
// well as one the host knows.
#include <cmath>
#include <cstdio>
#include <fstream>
#include <string>

#include "host/db/stub.h"
#include "host/db/database_impl.h"
#include "platform/dbhatch.h"

namespace {

constexpr double kDegreesPerRadian = 57.29577951308232;
using Line = AcDbHatch::PatternLine;

// A few patterns of the standard file, in drawing units of inches, for
// when no pattern file is at hand.
struct Builtin {
    const char* name;
    const char* lines;   // definition lines as a pattern file writes them
};
constexpr Builtin kBuiltins[] = {
    {"ANSI31", "45, 0,0, 0,.125"},
    {"ANSI32", "45, 0,0, 0,.375\n45, .176776695,0, 0,.375"},
    {"ANSI37", "45, 0,0, 0,.125\n135, 0,0, 0,.125"},
    {"LINE", "0, 0,0, 0,.125"},
    {"NET", "0, 0,0, 0,.125\n90, 0,0, 0,.125"},
    {"DASH", "0, 0,0, .125,.125, .125,-.125"},
    {"DOTS", "0, 0,0, .03125,.0625, 0,-.0625"},
    {"BRICK", "0, 0,0, 0,.25\n90, 0,0, .25,.25, .25,-.25\n90, .25,0, .25,.25, -.25,.25"},
};

bool ParseLine(const std::string& text, Line& out) {
    std::vector<double> v;
    const char* p = text.c_str();
    while (*p) {
        char* end = nullptr;
        double x = std::strtod(p, &end);
        if (end == p) return false;
        v.push_back(x);
        p = end;
        while (*p == ' ' || *p == '\t') ++p;
        if (*p == ',') ++p;
        else if (*p && *p != '\r') return false;
        else break;
    }
    if (v.size() < 5) return false;
    out = Line();
    out.angle = v[0];
    out.base[0] = v[1];
    out.base[1] = v[2];
    out.offset[0] = v[3];
    out.offset[1] = v[4];
    out.dashes.assign(v.begin() + 5, v.end());
    return true;
}

std::string Trimmed(const std::string& s) {
    size_t a = s.find_first_not_of(" \t\r");
    size_t b = s.find_last_not_of(" \t\r");
    return a == std::string::npos ? std::string() : s.substr(a, b - a + 1);
}

// The definition of `name` in a pattern file; false if the file or the
// pattern isn't there.
bool FromFile(const char* path, const std::string& name, std::vector<Line>& out) {
    std::ifstream in(path);
    if (!in) return false;
    std::string line;
    bool inside = false;
    while (std::getline(in, line)) {
        line = Trimmed(line);
        if (line.empty() || line[0] == ';') continue;
        if (line[0] == '*') {
            if (inside) return true;
            std::string header = line.substr(1, line.find(',') == std::string::npos ? std::string::npos : line.find(',') - 1);
            inside = lumo::db::SameName(Trimmed(header), name);
            continue;
        }
        Line def;
        if (inside && ParseLine(line, def)) out.push_back(def);
    }
    return inside;
}

bool Definition(const std::string& name, std::vector<Line>& out) {
    out.clear();
    if (FromFile("acad.pat", name, out) && !out.empty()) return true;
    out.clear();
    for (const Builtin& b : kBuiltins) {
        if (!lumo::db::SameName(b.name, name)) continue;
        std::string all = b.lines;
        size_t pos = 0;
        while (pos <= all.size()) {
            size_t nl = all.find('\n', pos);
            Line def;
            if (ParseLine(all.substr(pos, nl == std::string::npos ? std::string::npos : nl - pos), def))
                out.push_back(def);
            if (nl == std::string::npos) break;
            pos = nl + 1;
        }
        return true;
    }
    return false;
}

void Rotate(double v[2], double angle, double scale) {
    double c = std::cos(angle), s = std::sin(angle);
    double x = v[0] * scale, y = v[1] * scale;
    v[0] = x * c - y * s;
    v[1] = x * s + y * c;
}

// Pattern-unit definitions placed at an angle (radians) and scale.
std::vector<Line> Placed(const std::vector<Line>& defs, double angle, double scale) {
    std::vector<Line> out = defs;
    for (Line& l : out) {
        l.angle += angle * kDegreesPerRadian;
        Rotate(l.base, angle, scale);
        Rotate(l.offset, angle, scale);
        for (double& d : l.dashes) d *= scale;
    }
    return out;
}

std::vector<Line> UserLines(double space, bool twice) {
    Line l;
    l.offset[1] = space;
    std::vector<Line> out{l};
    if (twice) {
        l.angle = 90;
        l.offset[0] = -space;
        l.offset[1] = 0;
        out.push_back(l);
    }
    return out;
}

}  // namespace

Acad::ErrorStatus AcDbHatch::setPattern(HatchPatternType type, const char* name) {
    if (!name || type < kUserDefined || type > kCustomDefined) return Acad::eInvalidInput;
    if (type == kUserDefined) {
        m_d.patternType = kUserDefined;
        m_d.name = *name ? name : "_USER";
        m_d.solid = 0;
        m_d.lines = Placed(UserLines(m_d.space, m_d.isDouble != 0), m_d.angle, 1.0);
        return Acad::eOk;
    }
    if (lumo::db::SameName(name, "SOLID")) {
        m_d.patternType = static_cast<int16_t>(type);
        m_d.name = "SOLID";
        m_d.solid = 1;
        m_d.lines.clear();
        m_lines.clear();
        return Acad::eOk;
    }
    std::vector<Line> defs;
    if (!Definition(name, defs)) return Acad::eInvalidInput;
    m_d.patternType = static_cast<int16_t>(type);
    m_d.name = name;
    m_d.solid = 0;
    m_d.lines = Placed(defs, m_d.angle, m_d.scale);
    return Acad::eOk;
}

namespace {
// The lines of a hatch back in pattern units.
std::vector<Line> Unplaced(const AcDbHatch::Data& d) {
    std::vector<Line> out = d.lines;
    double inv = d.scale != 0 ? 1.0 / d.scale : 1.0;
    for (Line& l : out) {
        l.angle -= d.angle * kDegreesPerRadian;
        Rotate(l.base, -d.angle, inv);
        Rotate(l.offset, -d.angle, inv);
        for (double& x : l.dashes) x *= inv;
    }
    return out;
}
}  // namespace

Acad::ErrorStatus AcDbHatch::setPatternAngle(double angle) {
    if (!m_d.solid && m_d.patternType != kUserDefined) {
        std::vector<Line> defs = Unplaced(m_d);
        m_d.angle = angle;
        m_d.lines = Placed(defs, m_d.angle, m_d.scale);
    } else {
        m_d.angle = angle;
        if (!m_d.solid) m_d.lines = Placed(UserLines(m_d.space, m_d.isDouble != 0), m_d.angle, 1.0);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setPatternScale(double scale) {
    if (!(scale > 0)) return Acad::eInvalidInput;
    if (!m_d.solid && m_d.patternType != kUserDefined) {
        std::vector<Line> defs = Unplaced(m_d);
        m_d.scale = scale;
        m_d.lines = Placed(defs, m_d.angle, m_d.scale);
    } else {
        m_d.scale = scale;
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setPatternSpace(double space) {
    if (!(space > 0)) return Acad::eInvalidInput;
    m_d.space = space;
    if (!m_d.solid && m_d.patternType == kUserDefined)
        m_d.lines = Placed(UserLines(m_d.space, m_d.isDouble != 0), m_d.angle, 1.0);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setPatternDouble(bool on) {
    m_d.isDouble = on ? 1 : 0;
    if (!m_d.solid && m_d.patternType == kUserDefined)
        m_d.lines = Placed(UserLines(m_d.space, on), m_d.angle, 1.0);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::getPatternDefinitionAt(int index, double& angle, double& baseX, double& baseY,
                                                    double& offsetX, double& offsetY, AcGeDoubleArray& dashes) const {
    if (index < 0 || index >= numPatternDefinitions()) return Acad::eInvalidIndex;
    const Line& l = m_d.lines[static_cast<size_t>(index)];
    angle = l.angle / kDegreesPerRadian;
    baseX = l.base[0];
    baseY = l.base[1];
    offsetX = l.offset[0];
    offsetY = l.offset[1];
    dashes.setLogicalLength(0);
    for (double d : l.dashes) dashes.append(d);
    return Acad::eOk;
}
