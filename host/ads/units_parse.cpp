// Reading distances and angles back from text, in every form the host's
// units modes write (see units.h), with blanks allowed around the parts.
#include <cctype>
#include <cmath>
#include <numbers>

#include "host/ads/units.h"
#include "platform/acedads.h"

namespace lumo::host {
namespace {

// A cursor over the text; every reader leaves it untouched on failure.
class Cursor {
public:
    explicit Cursor(std::string_view s) : m_s(s) {}
    bool AtEnd() { SkipBlanks(); return m_i >= m_s.size(); }
    void SkipBlanks() { while (m_i < m_s.size() && (m_s[m_i] == ' ' || m_s[m_i] == '\t')) ++m_i; }
    char Peek() const { return m_i < m_s.size() ? m_s[m_i] : '\0'; }
    bool Take(char c) {
        if (Peek() != c) return false;
        ++m_i;
        return true;
    }
    // A letter in either case.
    bool TakeLetter(char upper) {
        if (std::toupper(static_cast<unsigned char>(Peek())) != upper) return false;
        ++m_i;
        return true;
    }
    size_t Mark() const { return m_i; }
    void Reset(size_t mark) { m_i = mark; }

    // Unsigned decimal number, optionally with an exponent: "12", "1.5",
    // ".5", "1.5E+01".
    bool Number(double& out, bool allowExponent = true) {
        size_t start = m_i, i = m_i, digits = 0;
        while (i < m_s.size() && std::isdigit(static_cast<unsigned char>(m_s[i]))) ++i, ++digits;
        if (i < m_s.size() && m_s[i] == '.') {
            ++i;
            while (i < m_s.size() && std::isdigit(static_cast<unsigned char>(m_s[i]))) ++i, ++digits;
        }
        if (digits == 0) return false;
        if (allowExponent && i < m_s.size() && (m_s[i] == 'e' || m_s[i] == 'E')) {
            size_t j = i + 1;
            if (j < m_s.size() && (m_s[j] == '+' || m_s[j] == '-')) ++j;
            size_t k = j;
            while (k < m_s.size() && std::isdigit(static_cast<unsigned char>(m_s[k]))) ++k;
            if (k > j) i = k;
        }
        out = std::strtod(std::string(m_s.substr(start, i - start)).c_str(), nullptr);
        m_i = i;
        return true;
    }
    // Unsigned integer digits only.
    bool Integer(double& out) {
        size_t i = m_i;
        while (i < m_s.size() && std::isdigit(static_cast<unsigned char>(m_s[i]))) ++i;
        if (i == m_i) return false;
        out = std::strtod(std::string(m_s.substr(m_i, i - m_i)).c_str(), nullptr);
        m_i = i;
        return true;
    }

private:
    std::string_view m_s;
    size_t m_i = 0;
};

// "n/d" with integers; a zero denominator is no fraction.
bool Fraction(Cursor& c, double& out) {
    size_t mark = c.Mark();
    double num, den;
    if (c.Integer(num) && c.Take('/') && c.Integer(den) && den != 0.0) {
        out = num / den;
        return true;
    }
    c.Reset(mark);
    return false;
}

// A number with an optional fraction after it: "3", "3 1/2", "3-1/2", "1/2".
bool MixedNumber(Cursor& c, double& out, bool allowExponent) {
    double frac;
    if (Fraction(c, frac)) {
        out = frac;
        return true;
    }
    double whole;
    if (!c.Number(whole, allowExponent)) return false;
    size_t mark = c.Mark();
    if (c.Take('-') || c.Take(' ')) {
        c.SkipBlanks();
        if (Fraction(c, frac)) whole += frac;
        else c.Reset(mark);
    }
    out = whole;
    return true;
}

// Feet and inches: "1'", "1'-3\"", "1'3 1/2\"", "3\"", "3". In inches.
bool FeetInches(Cursor& c, double& out) {
    double feet = 0.0, inches = 0.0;
    size_t mark = c.Mark();
    bool hasFeet = false;
    double f = 0.0;
    if (MixedNumber(c, f, false)) {
        c.SkipBlanks();
        hasFeet = c.Take('\'');
    }
    if (hasFeet) {
        feet = f;
        c.SkipBlanks();
        c.Take('-');
        c.SkipBlanks();
    } else {
        c.Reset(mark);
    }
    bool hasInches = MixedNumber(c, inches, !hasFeet);
    if (hasInches) {
        c.SkipBlanks();
        c.Take('"');
    }
    if (!hasFeet && !hasInches) return false;
    out = feet * 12.0 + inches;
    return true;
}

bool Sign(Cursor& c) {
    c.SkipBlanks();
    if (c.Take('-')) return true;
    c.Take('+');
    return false;
}

// Degrees, minutes and seconds, "45d30'15.5\"", in degrees; a bare number
// is in units whose full circle is `full`, and "g" or "r" after a number
// names grads or radians.
bool AngleValue(Cursor& c, double full, double& deg) {
    double first;
    if (!c.Number(first, true)) return false;
    if (c.TakeLetter('G')) { deg = first * 360.0 / 400.0; return true; }
    if (c.TakeLetter('R')) { deg = first * 180.0 / std::numbers::pi; return true; }
    if (!c.TakeLetter('D')) { deg = first * 360.0 / full; return true; }
    deg = first;
    size_t mark = c.Mark();
    double part;
    if (c.Number(part, false) && c.Take('\'')) {
        deg += part / 60.0;
        mark = c.Mark();
    } else {
        c.Reset(mark);
    }
    if (c.Number(part, false) && c.Take('"')) deg += part / 3600.0;
    else c.Reset(mark);
    return true;
}

// "N 45d E": an angle off north or south towards east or west; a lone
// letter is that direction.
bool Bearing(Cursor& c, double& deg) {
    size_t mark = c.Mark();
    bool north = c.TakeLetter('N');
    if (!north && !c.TakeLetter('S')) {
        if (c.TakeLetter('E')) { deg = 0.0; return true; }
        if (c.TakeLetter('W')) { deg = 180.0; return true; }
        return false;
    }
    if (c.AtEnd()) { deg = north ? 90.0 : 270.0; return true; }
    double off;
    if (!AngleValue(c, 360.0, off)) { c.Reset(mark); return false; }
    c.SkipBlanks();
    bool east = c.TakeLetter('E');
    if (!east && !c.TakeLetter('W')) { c.Reset(mark); return false; }
    deg = north ? (east ? 90.0 - off : 90.0 + off) : (east ? 270.0 + off : 270.0 - off);
    return true;
}

}  // namespace

bool ParseDistance(std::string_view text, int mode, double* out) {
    if (mode < 1 || mode > 5 || !out) return false;
    Cursor c(text);
    bool negative = Sign(c);
    c.SkipBlanks();
    double v;
    bool ok = mode <= 2 ? c.Number(v, true) : mode == 5 ? MixedNumber(c, v, true) : FeetInches(c, v);
    if (!ok || !c.AtEnd() || !std::isfinite(v)) return false;
    *out = negative ? -v : v;
    return true;
}

bool ParseAngle(std::string_view text, int mode, double* out) {
    if (mode < 0 || mode > 4 || !out) return false;
    static const double kFull[] = {360.0, 360.0, 400.0, 2.0 * std::numbers::pi, 360.0};
    Cursor c(text);
    bool negative = Sign(c);
    c.SkipBlanks();
    double deg;
    if (!Bearing(c, deg) && !AngleValue(c, kFull[mode], deg)) return false;
    if (!c.AtEnd() || !std::isfinite(deg)) return false;
    constexpr double kTwoPi = 2.0 * std::numbers::pi;
    double a = std::fmod((negative ? -deg : deg) * std::numbers::pi / 180.0, kTwoPi);
    if (a < 0.0) a += kTwoPi;
    *out = a >= kTwoPi ? 0.0 : a;
    return true;
}

}  // namespace lumo::host

int acdbDisToF(const char* str, int unit, ads_real* v) {
    if (!str || !v) return RTERROR;
    if (unit == -1) unit = lumo::host::CurrentLinearUnits();
    return lumo::host::ParseDistance(str, unit, v) ? RTNORM : RTERROR;
}

int acdbAngToF(const char* str, int unit, ads_real* v) {
    if (!str || !v) return RTERROR;
    if (unit == -1) unit = lumo::host::CurrentAngularUnits();
    return lumo::host::ParseAngle(str, unit, v) ? RTNORM : RTERROR;
}
