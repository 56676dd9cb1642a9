// Formatting of distances and angles in the host's units modes.
//
// A double holds 15 significant decimal digits; digits a format asks for
// beyond those would show the noise of the binary fraction
// (20261122.153045 at 20 places is 20261122.15304499864578247070), so they
// come out as zeros. Text taken apart by later code (the date key of CDATE)
// then holds the digits the value really has.
#include "host/ads/units.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <numbers>
#include <numeric>

#include "platform/acedads.h"

namespace lumo::host {
namespace {

constexpr int kSignificantDigits = 15;
// Magnitudes from here on go out in scientific form in every mode: the fixed
// forms would outgrow kUnitTextSize and the fraction counts their integers.
constexpr double kLargestFixed = 1e15;
constexpr int kMaxFractionPrecision = 8;

int ReadShortVar(const char* name, int fallback) {
    resbuf rb{};
    if (acedGetVar(name, &rb) != RTNORM) return fallback;
    if (rb.restype == RTSHORT) return rb.resval.rint;
    if (rb.restype == RTLONG) return rb.resval.rlong;
    return fallback;
}

// The 15 significant digits of a > 0 and the power of ten of the first.
void SignificantDigits(double a, std::string& digits, int& exp10) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*e", kSignificantDigits - 1, a);
    const char* e = std::strchr(buf, 'e');
    exp10 = e ? std::atoi(e + 1) : 0;
    digits.clear();
    for (const char* p = buf; *p && p != e; ++p)
        if (*p >= '0' && *p <= '9') digits += *p;
}

// Keeps the first `keep` digits, rounding half up on the decimal digits (so
// 2.5 gives 3 and 0.15 gives 0.2, as the value reads); a carry out of the
// first digit raises exp10.
void RoundDigits(std::string& digits, int& exp10, int keep) {
    if (keep >= static_cast<int>(digits.size())) return;
    if (keep < 0) {
        digits.clear();
        return;
    }
    bool up = digits[static_cast<size_t>(keep)] >= '5';
    digits.resize(static_cast<size_t>(keep));
    if (!up) return;
    int i = keep - 1;
    for (; i >= 0 && digits[static_cast<size_t>(i)] == '9'; --i) digits[static_cast<size_t>(i)] = '0';
    if (i >= 0) {
        ++digits[static_cast<size_t>(i)];
    } else {
        digits.insert(digits.begin(), '1');
        ++exp10;
    }
}

// Decimal text of a >= 0 with exactly prec decimals.
std::string Fixed(double a, int prec) {
    std::string digits;
    int exp10 = 0;
    if (a > 0.0) {
        SignificantDigits(a, digits, exp10);
        RoundDigits(digits, exp10, exp10 + 1 + prec);
    }
    std::string out;
    for (int place = std::max(exp10, 0); place >= -prec; --place) {
        if (place == -1) out += '.';
        int i = exp10 - place;
        out += i >= 0 && i < static_cast<int>(digits.size()) ? digits[static_cast<size_t>(i)] : '0';
    }
    return out;
}

// Scientific text of a >= 0: mantissa with prec decimals, E, signed exponent
// of at least two digits.
std::string Scientific(double a, int prec) {
    std::string digits = "0";
    int exp10 = 0;
    if (a > 0.0) {
        SignificantDigits(a, digits, exp10);
        RoundDigits(digits, exp10, prec + 1);
    }
    digits.resize(static_cast<size_t>(prec) + 1, '0');
    std::string out = digits.substr(0, 1);
    if (prec > 0) out += "." + digits.substr(1);
    char exp[16];
    std::snprintf(exp, sizeof exp, "E%c%02d", exp10 < 0 ? '-' : '+', std::abs(exp10));
    return out + exp;
}

// DIMZIN 4 and 8 on a decimal number text (an exponent or suffix after it stays).
std::string SuppressZeros(std::string s, int dimzin) {
    size_t end = s.find_first_not_of("0123456789.");
    std::string tail = end == std::string::npos ? "" : s.substr(end);
    s.resize(end == std::string::npos ? s.size() : end);
    if ((dimzin & 8) && s.find('.') != std::string::npos) {
        while (!s.empty() && s.back() == '0') s.pop_back();
        if (!s.empty() && s.back() == '.') s.pop_back();
    }
    if ((dimzin & 4) && s.size() > 1 && s[0] == '0' && s[1] == '.') s.erase(0, 1);
    if (s.empty() || s == ".") s = "0";
    return s + tail;
}

bool ShowsNonZero(const std::string& s) {
    size_t e = s.find_first_of("Ee");
    return s.find_first_of("123456789") < e;
}

// DIMZIN's low bits: 1 shows zero feet and zero inches, 2 zero feet only,
// 3 zero inches only, 0 neither.
bool ShowsZeroFeet(const UnitStyle& style) { return (style.dimzin & 3) == 1 || (style.dimzin & 3) == 2; }
bool ShowsZeroInches(const UnitStyle& style) { return (style.dimzin & 3) == 1 || (style.dimzin & 3) == 3; }

// Feet and inches joined; a value with neither shown shows its inches.
std::string FeetInches(long long feet, const std::string& inches, bool inchesZero, const UnitStyle& style) {
    bool showFeet = feet != 0 || ShowsZeroFeet(style);
    bool showInches = !inchesZero || ShowsZeroInches(style) || !showFeet;
    std::string out;
    if (showFeet) out = std::to_string(feet) + "'";
    if (showFeet && showInches && style.unitmode == 0) out += "-";
    if (showInches) out += inches + "\"";
    return out;
}

// Whole units and a fraction of 2^prec parts: "3 1/2", "3-1/2" under
// UNITMODE 1, "1/2" without a whole part when hideZeroWhole.
std::string WithFraction(long long whole, long long num, long long den, bool hideZeroWhole, const UnitStyle& style) {
    if (num == 0) return std::to_string(whole);
    long long g = std::gcd(num, den);
    std::string frac = std::to_string(num / g) + "/" + std::to_string(den / g);
    if (whole == 0 && hideZeroWhole) return frac;
    return std::to_string(whole) + (style.unitmode ? "-" : " ") + frac;
}

std::string Engineering(double a, int prec, const UnitStyle& style) {
    double feet = std::floor(a / 12.0);
    std::string inches = Fixed(a - 12.0 * feet, prec);
    if (std::atof(inches.c_str()) >= 12.0) {   // rounded up to a whole foot
        feet += 1.0;
        inches = Fixed(0.0, prec);
    }
    bool zero = !ShowsNonZero(inches);
    return FeetInches(static_cast<long long>(feet), SuppressZeros(inches, style.dimzin), zero, style);
}

std::string Architectural(double a, int prec, const UnitStyle& style) {
    long long den = 1LL << std::min(prec, kMaxFractionPrecision);
    long long n = std::llround(a * static_cast<double>(den));
    long long perFoot = 12 * den;
    long long feet = n / perFoot, rest = n % perFoot;
    std::string inches = WithFraction(rest / den, rest % den, den, feet == 0 && !ShowsZeroFeet(style), style);
    return FeetInches(feet, inches, rest == 0, style);
}

std::string Fractional(double a, int prec, const UnitStyle& style) {
    long long den = 1LL << std::min(prec, kMaxFractionPrecision);
    long long n = std::llround(a * static_cast<double>(den));
    return WithFraction(n / den, n % den, den, true, style);
}

// Degrees, minutes, seconds of a count of units of which `perDegree` make a
// degree; prec as for angle mode 1.
std::string Dms(long long n, long long perDegree, int prec) {
    long long deg = n / perDegree, rest = n % perDegree;
    std::string s = std::to_string(deg) + "d";
    if (prec == 0) return s;
    long long perMinute = perDegree / 60;
    s += std::to_string(rest / perMinute) + "'";
    if (prec <= 2) return s;
    long long perSecond = perMinute / 60;
    rest %= perMinute;
    s += std::to_string(rest / perSecond);
    if (prec >= 5) {
        std::string frac = std::to_string(rest % perSecond);
        s += "." + std::string(static_cast<size_t>(prec - 4) - frac.size(), '0') + frac;
    }
    return s + "\"";
}

long long DmsUnitsPerDegree(int prec) {
    if (prec == 0) return 1;
    if (prec <= 2) return 60;
    long long u = 3600;
    for (int i = 4; i < prec; ++i) u *= 10;
    return u;
}

std::string Surveyor(double deg, int prec, const UnitStyle& style) {
    long long u = DmsUnitsPerDegree(prec);
    long long full = 360 * u, n = std::llround(deg * static_cast<double>(u)) % full;
    const char* sep = style.unitmode ? "" : " ";
    if (n == 0) return "E";
    if (n == 90 * u) return "N";
    if (n == 180 * u) return "W";
    if (n == 270 * u) return "S";
    const char* ns = n < 180 * u ? "N" : "S";
    const char* ew = (n < 90 * u || n > 270 * u) ? "E" : "W";
    long long bearing = n < 90 * u ? 90 * u - n : n < 180 * u ? n - 90 * u : n < 270 * u ? 270 * u - n : n - 270 * u;
    return std::string(ns) + sep + Dms(bearing, u, prec) + sep + ew;
}

// Decimal text of a value in a unit whose full circle is `full`; a value
// that rounds to the full circle shows as 0.
std::string CircularDecimal(double v, double full, int prec, const UnitStyle& style) {
    std::string s = Fixed(v, prec);
    if (std::atof(s.c_str()) >= full) s = Fixed(0.0, prec);
    return SuppressZeros(s, style.dimzin);
}

}  // namespace

int CurrentLinearUnits() { return ReadShortVar("LUNITS", 2); }
int CurrentLinearPrecision() { return ReadShortVar("LUPREC", 4); }
int CurrentAngularUnits() { return ReadShortVar("AUNITS", 0); }
int CurrentAngularPrecision() { return ReadShortVar("AUPREC", 0); }
UnitStyle CurrentUnitStyle() { return {ReadShortVar("DIMZIN", 0), ReadShortVar("UNITMODE", 0)}; }

std::string FormatDistance(double value, int mode, int prec, const UnitStyle& style) {
    if (mode < 1 || mode > 5 || prec < 0 || !std::isfinite(value)) return {};
    prec = std::min(prec, kMaxUnitPrecision);
    double a = std::fabs(value);
    std::string s;
    if (mode == 1 || a >= kLargestFixed) s = SuppressZeros(Scientific(a, prec), style.dimzin);
    else if (mode == 2) s = SuppressZeros(Fixed(a, prec), style.dimzin);
    else if (mode == 3) s = Engineering(a, prec, style);
    else if (mode == 4) s = Architectural(a, prec, style);
    else s = Fractional(a, prec, style);
    return value < 0 && ShowsNonZero(s) ? "-" + s : s;
}

std::string FormatAngle(double radians, int mode, int prec, const UnitStyle& style) {
    if (mode < 0 || mode > 4 || prec < 0 || !std::isfinite(radians)) return {};
    prec = std::min(prec, kMaxUnitPrecision);
    constexpr double kTwoPi = 2.0 * std::numbers::pi;
    double a = std::fmod(radians, kTwoPi);
    if (a < 0.0) a += kTwoPi;
    double deg = a * 180.0 / std::numbers::pi;
    switch (mode) {
        case 0: return CircularDecimal(deg, 360.0, prec, style);
        case 1: {
            prec = std::min(prec, kMaxFractionPrecision);
            long long u = DmsUnitsPerDegree(prec);
            return Dms(std::llround(deg * static_cast<double>(u)) % (360 * u), u, prec);
        }
        case 2: return CircularDecimal(a * 200.0 / std::numbers::pi, 400.0, prec, style) + "g";
        case 3: return SuppressZeros(Fixed(a, prec), style.dimzin) + "r";
        default: return Surveyor(deg, std::min(prec, kMaxFractionPrecision), style);
    }
}

}  // namespace lumo::host

using lumo::host::kUnitTextSize;

namespace {

int CopyOut(const std::string& s, char* out) {
    if (!out) return RTERROR;
    if (s.empty()) {
        out[0] = '\0';
        return RTERROR;
    }
    std::snprintf(out, kUnitTextSize, "%s", s.c_str());
    return RTNORM;
}

}  // namespace

int acdbRToS(ads_real value, int unit, int prec, char* out) {
    if (unit == -1) unit = lumo::host::CurrentLinearUnits();
    if (prec == -1) prec = lumo::host::CurrentLinearPrecision();
    return CopyOut(lumo::host::FormatDistance(value, unit, prec, lumo::host::CurrentUnitStyle()), out);
}

int acdbAngToS(ads_real value, int unit, int prec, char* out) {
    if (unit == -1) unit = lumo::host::CurrentAngularUnits();
    if (prec == -1) prec = lumo::host::CurrentAngularPrecision();
    return CopyOut(lumo::host::FormatAngle(value, unit, prec, lumo::host::CurrentUnitStyle()), out);
}
