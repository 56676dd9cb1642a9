// Distances and angles as text: every units mode, precision and zero
// suppression, and reading each form back.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "host/ads/units.h"
#include "host/sysvars/sysvars.h"
#include "platform/acedads.h"

using lumo::host::FormatAngle;
using lumo::host::FormatDistance;
using lumo::host::ParseAngle;
using lumo::host::ParseDistance;
using lumo::host::UnitStyle;

namespace {

constexpr double kPi = std::numbers::pi;

std::string Dist(double v, int mode, int prec, int dimzin = 0, int unitmode = 0) {
    return FormatDistance(v, mode, prec, UnitStyle{dimzin, unitmode});
}
std::string Ang(double v, int mode, int prec, int dimzin = 0, int unitmode = 0) {
    return FormatAngle(v, mode, prec, UnitStyle{dimzin, unitmode});
}
double DistOf(const char* text, int mode) {
    double v = NAN;
    return ParseDistance(text, mode, &v) ? v : NAN;
}
double AngOf(const char* text, int mode) {
    double v = NAN;
    return ParseAngle(text, mode, &v) ? v : NAN;
}

}  // namespace

TEST(DistanceText, ScientificHasMantissaAndTwoDigitExponent) {
    EXPECT_EQ(Dist(15.0, 1, 4), "1.5000E+01");
    EXPECT_EQ(Dist(0.0, 1, 2), "0.00E+00");
    EXPECT_EQ(Dist(0.00125, 1, 3), "1.250E-03");
    EXPECT_EQ(Dist(1e100, 1, 1), "1.0E+100");
    EXPECT_EQ(Dist(-15.0, 1, 0), "-2E+01");
    EXPECT_EQ(Dist(9.99, 1, 1), "1.0E+01");  // the carry moves the exponent
}

TEST(DistanceText, ScientificDropsTrailingZerosWithDimzin8) {
    EXPECT_EQ(Dist(15.0, 1, 4, 8), "1.5E+01");
    EXPECT_EQ(Dist(10.0, 1, 4, 8), "1E+01");
}

TEST(DistanceText, DecimalRoundsHalfUpOnTheDigitsTheValueShows) {
    EXPECT_EQ(Dist(15.5, 2, 4), "15.5000");
    EXPECT_EQ(Dist(2.5, 2, 0), "3");
    EXPECT_EQ(Dist(0.125, 2, 2), "0.13");
    EXPECT_EQ(Dist(0.15, 2, 1), "0.2");
    EXPECT_EQ(Dist(9.9999, 2, 2), "10.00");
    EXPECT_EQ(Dist(0.004, 2, 2), "0.00");
    EXPECT_EQ(Dist(0.006, 2, 2), "0.01");
    EXPECT_EQ(Dist(-1.25, 2, 2), "-1.25");
}

TEST(DistanceText, NegativeValueThatRoundsToZeroHasNoSign) {
    EXPECT_EQ(Dist(-0.00001, 2, 4), "0.0000");
    EXPECT_EQ(Dist(-0.1, 4, 0), "0\"");
}

TEST(DistanceText, DecimalZeroSuppression) {
    EXPECT_EQ(Dist(0.5, 2, 4, 4), ".5000");
    EXPECT_EQ(Dist(-0.5, 2, 4, 4), "-.5000");
    EXPECT_EQ(Dist(12.5, 2, 4, 8), "12.5");
    EXPECT_EQ(Dist(2.0, 2, 4, 8), "2");
    EXPECT_EQ(Dist(0.5, 2, 4, 12), ".5");
    EXPECT_EQ(Dist(0.0, 2, 4, 12), "0");
    EXPECT_EQ(Dist(100.0, 2, 0, 8), "100");  // no point, no zeros to drop
}

TEST(DistanceText, DateRealKeepsItsDigitsAtAnyPrecision) {
    EXPECT_EQ(Dist(20261122.153045, 2, 6), "20261122.153045");
    EXPECT_EQ(Dist(20261122.153045, 2, 20), "20261122.15304500000000000000");
    EXPECT_EQ(Dist(20261122.153045, 2, 20, 8), "20261122.153045");
    EXPECT_EQ(Dist(20260101.0800001, 2, 20, 8), "20260101.0800001");
    EXPECT_EQ(Dist(1.0 / 3.0, 2, 20), "0.33333333333333300000");
}

TEST(DistanceText, EngineeringFeetAndDecimalInches) {
    EXPECT_EQ(Dist(15.5, 3, 4), "1'-3.5000\"");
    EXPECT_EQ(Dist(15.5, 3, 4, 0, 1), "1'3.5000\"");
    EXPECT_EQ(Dist(-15.5, 3, 2), "-1'-3.50\"");
    EXPECT_EQ(Dist(23.99999, 3, 2), "2'");  // inches round up to a whole foot
    EXPECT_EQ(Dist(15.5, 3, 4, 8), "1'-3.5\"");
}

TEST(DistanceText, FeetAndInchZerosFollowDimzinLowBits) {
    // 0: neither zero feet nor zero inches; 1: both; 2: zero feet; 3: zero inches.
    EXPECT_EQ(Dist(3.5, 3, 1, 0), "3.5\"");
    EXPECT_EQ(Dist(12.0, 3, 1, 0), "1'");
    EXPECT_EQ(Dist(3.5, 3, 1, 1), "0'-3.5\"");
    EXPECT_EQ(Dist(12.0, 3, 1, 1), "1'-0.0\"");
    EXPECT_EQ(Dist(3.5, 3, 1, 2), "0'-3.5\"");
    EXPECT_EQ(Dist(12.0, 3, 1, 2), "1'");
    EXPECT_EQ(Dist(3.5, 3, 1, 3), "3.5\"");
    EXPECT_EQ(Dist(12.0, 3, 1, 3), "1'-0.0\"");
    EXPECT_EQ(Dist(0.0, 3, 1, 0), "0.0\"");
    EXPECT_EQ(Dist(0.0, 4, 4, 0), "0\"");
    EXPECT_EQ(Dist(0.0, 4, 4, 1), "0'-0\"");
}

TEST(DistanceText, ArchitecturalFractionsOfPowersOfTwo) {
    EXPECT_EQ(Dist(15.5, 4, 4), "1'-3 1/2\"");
    EXPECT_EQ(Dist(15.5, 4, 4, 0, 1), "1'3-1/2\"");
    EXPECT_EQ(Dist(15.0625, 4, 4), "1'-3 1/16\"");
    EXPECT_EQ(Dist(15.0625, 4, 3), "1'-3 1/8\"");   // 1/16 rounds up to 1/8
    EXPECT_EQ(Dist(15.4, 4, 0), "1'-3\"");
    EXPECT_EQ(Dist(0.5, 4, 4), "1/2\"");
    EXPECT_EQ(Dist(0.5, 4, 4, 1), "0'-0 1/2\"");
    EXPECT_EQ(Dist(12.5, 4, 4), "1'-0 1/2\"");
    EXPECT_EQ(Dist(3.0, 4, 4), "3\"");
    EXPECT_EQ(Dist(24.0, 4, 4), "2'");
    EXPECT_EQ(Dist(11.999, 4, 4), "1'");
    EXPECT_EQ(Dist(-15.5, 4, 4), "-1'-3 1/2\"");
    EXPECT_EQ(Dist(1.0 / 256.0, 4, 20), "1/256\"");   // precision stops at 1/256
}

TEST(DistanceText, FractionalWholeAndFraction) {
    EXPECT_EQ(Dist(15.5, 5, 4), "15 1/2");
    EXPECT_EQ(Dist(15.5, 5, 4, 0, 1), "15-1/2");
    EXPECT_EQ(Dist(0.75, 5, 2), "3/4");
    EXPECT_EQ(Dist(15.0, 5, 4), "15");
    EXPECT_EQ(Dist(0.0, 5, 4), "0");
    EXPECT_EQ(Dist(-2.25, 5, 3), "-2 1/4");
}

TEST(DistanceText, RefusesBadModeAndPrecision) {
    EXPECT_EQ(Dist(1.0, 0, 2), "");
    EXPECT_EQ(Dist(1.0, 6, 2), "");
    EXPECT_EQ(Dist(1.0, 2, -2), "");
    EXPECT_EQ(Dist(INFINITY, 2, 2), "");
    EXPECT_EQ(Dist(NAN, 2, 2), "");
}

TEST(DistanceText, HugeValuesStayShortInEveryMode) {
    for (int mode = 1; mode <= 5; ++mode) {
        std::string s = Dist(-1.7e308, mode, 20);
        EXPECT_LT(s.size(), static_cast<size_t>(lumo::host::kUnitTextSize)) << mode;
        EXPECT_EQ(s[0], '-');
    }
}

TEST(AngleText, DegreesGradsRadians) {
    EXPECT_EQ(Ang(kPi / 4, 0, 4), "45.0000");
    EXPECT_EQ(Ang(kPi / 4, 0, 0), "45");
    EXPECT_EQ(Ang(kPi / 4, 2, 4), "50.0000g");
    EXPECT_EQ(Ang(kPi / 4, 3, 4), "0.7854r");
    EXPECT_EQ(Ang(kPi / 4, 3, 4, 4), ".7854r");
    EXPECT_EQ(Ang(kPi, 0, 4, 8), "180");
}

TEST(AngleText, AngleIsBroughtIntoOneTurn) {
    EXPECT_EQ(Ang(-kPi / 2, 0, 2), "270.00");
    EXPECT_EQ(Ang(5 * kPi, 0, 0), "180");
    EXPECT_EQ(Ang(2 * kPi - 1e-9, 0, 4), "0.0000");   // rounds to a full turn
    EXPECT_EQ(Ang(2 * kPi - 1e-9, 2, 2), "0.00g");
}

TEST(AngleText, DegreesMinutesSecondsByPrecision) {
    double a = 45.5 * kPi / 180;
    EXPECT_EQ(Ang(a, 1, 0), "46d");
    EXPECT_EQ(Ang(a, 1, 2), "45d30'");
    EXPECT_EQ(Ang(a, 1, 4), "45d30'0\"");
    EXPECT_EQ(Ang(kPi / 4, 1, 4), "45d0'0\"");
    EXPECT_EQ(Ang((10 + 5.0 / 60 + 7.25 / 3600) * kPi / 180, 1, 6), "10d5'7.25\"");
    EXPECT_EQ(Ang((10 + 59.0 / 60 + 59.9 / 3600) * kPi / 180, 1, 4), "11d0'0\"");  // carries
}

TEST(AngleText, SurveyorsBearings) {
    EXPECT_EQ(Ang(kPi / 4, 4, 4), "N 45d0'0\" E");
    EXPECT_EQ(Ang(kPi / 4, 4, 4, 0, 1), "N45d0'0\"E");
    EXPECT_EQ(Ang(120 * kPi / 180, 4, 2), "N 30d0' W");
    EXPECT_EQ(Ang(200 * kPi / 180, 4, 0), "S 70d W");
    EXPECT_EQ(Ang(300 * kPi / 180, 4, 0), "S 30d E");
    EXPECT_EQ(Ang(0.0, 4, 4), "E");
    EXPECT_EQ(Ang(kPi / 2, 4, 4), "N");
    EXPECT_EQ(Ang(kPi, 4, 4), "W");
    EXPECT_EQ(Ang(1.5 * kPi, 4, 4), "S");
}

TEST(DistanceParse, EachModeReadsItsForms) {
    EXPECT_DOUBLE_EQ(DistOf("15.5", 2), 15.5);
    EXPECT_DOUBLE_EQ(DistOf("  -.5  ", 2), -0.5);
    EXPECT_DOUBLE_EQ(DistOf("1.5000E+01", 1), 15.0);
    EXPECT_DOUBLE_EQ(DistOf("1.5e1", 2), 15.0);
    EXPECT_DOUBLE_EQ(DistOf("15 1/2", 5), 15.5);
    EXPECT_DOUBLE_EQ(DistOf("15-1/2", 5), 15.5);
    EXPECT_DOUBLE_EQ(DistOf("3/4", 5), 0.75);
    EXPECT_DOUBLE_EQ(DistOf("1'-3 1/2\"", 4), 15.5);
    EXPECT_DOUBLE_EQ(DistOf("1'3-1/2\"", 4), 15.5);
    EXPECT_DOUBLE_EQ(DistOf("1'-3.5\"", 3), 15.5);
    EXPECT_DOUBLE_EQ(DistOf("-1'-3.5\"", 3), -15.5);
    EXPECT_DOUBLE_EQ(DistOf("2'", 4), 24.0);
    EXPECT_DOUBLE_EQ(DistOf("1/2\"", 4), 0.5);
    EXPECT_DOUBLE_EQ(DistOf("7", 4), 7.0);
}

TEST(DistanceParse, RefusesWhatTheModeDoesNotWrite) {
    EXPECT_TRUE(std::isnan(DistOf("", 2)));
    EXPECT_TRUE(std::isnan(DistOf("abc", 2)));
    EXPECT_TRUE(std::isnan(DistOf("1.5x", 2)));
    EXPECT_TRUE(std::isnan(DistOf("1'", 2)));    // feet only in modes 3 and 4
    EXPECT_TRUE(std::isnan(DistOf("1 1/2", 2)));
    EXPECT_TRUE(std::isnan(DistOf("1/0", 5)));
    EXPECT_TRUE(std::isnan(DistOf("1", 0)));
    EXPECT_TRUE(std::isnan(DistOf("1", 6)));
}

TEST(AngleParse, EveryFormInEveryMode) {
    EXPECT_NEAR(AngOf("45", 0), kPi / 4, 1e-12);
    EXPECT_NEAR(AngOf("45d30'", 1), 45.5 * kPi / 180, 1e-12);
    EXPECT_NEAR(AngOf("45d30'36\"", 1), 45.51 * kPi / 180, 1e-12);
    EXPECT_NEAR(AngOf("50g", 0), kPi / 4, 1e-12);
    EXPECT_NEAR(AngOf("50", 2), kPi / 4, 1e-12);
    EXPECT_NEAR(AngOf("0.7854r", 1), 0.7854, 1e-12);
    EXPECT_NEAR(AngOf("N 45d0'0\" E", 4), kPi / 4, 1e-12);
    EXPECT_NEAR(AngOf("n30dw", 4), 2 * kPi / 3, 1e-12);
    EXPECT_NEAR(AngOf("S 30d E", 0), 300 * kPi / 180, 1e-12);
    EXPECT_NEAR(AngOf("W", 4), kPi, 1e-12);
    EXPECT_NEAR(AngOf("-90", 0), 1.5 * kPi, 1e-12);
    EXPECT_NEAR(AngOf("45", 3), 45 - 7 * 2 * kPi, 1e-12);
    EXPECT_TRUE(std::isnan(AngOf("N 45d", 4)));
    EXPECT_TRUE(std::isnan(AngOf("45x", 0)));
    EXPECT_TRUE(std::isnan(AngOf("", 0)));
    EXPECT_TRUE(std::isnan(AngOf("45", 5)));
}

TEST(UnitsRoundTrip, FormattedTextReadsBackWithinItsPrecision) {
    std::mt19937 rng(42);
    std::uniform_real_distribution<double> value(-5000.0, 5000.0);
    for (int i = 0; i < 300; ++i) {
        double v = value(rng);
        for (int mode = 1; mode <= 5; ++mode) {
            for (int unitmode = 0; unitmode <= 1; ++unitmode) {
                std::string s = Dist(v, mode, 4, static_cast<int>(rng() % 16), unitmode);
                double back = DistOf(s.c_str(), mode);
                double tol = mode >= 4 ? 1.0 / 32 : mode == 1 ? std::fabs(v) * 1e-4 : 1e-4;
                EXPECT_NEAR(back, v, tol) << s;
            }
        }
        double a = std::fabs(v) / 100.0;
        for (int mode = 0; mode <= 4; ++mode) {
            std::string s = Ang(a, mode, 8, 0, static_cast<int>(rng() % 2));
            double back = AngOf(s.c_str(), mode);
            double diff = std::remainder(back - a, 2 * kPi);
            EXPECT_NEAR(diff, 0.0, 1e-6) << s;
        }
    }
}

TEST(AdsUnits, ExplicitUnitsFillTheCallersBuffer) {
    char out[lumo::host::kUnitTextSize];
    ASSERT_EQ(acdbRToS(15.5, 4, 4, out), RTNORM);
    EXPECT_STREQ(out, "1'-3 1/2\"");
    ASSERT_EQ(acdbAngToS(kPi / 4, 2, 4, out), RTNORM);
    EXPECT_STREQ(out, "50.0000g");
    EXPECT_EQ(acdbRToS(1.0, 7, 2, out), RTERROR);
    EXPECT_STREQ(out, "");
    EXPECT_EQ(acdbAngToS(1.0, 5, 2, out), RTERROR);
    EXPECT_EQ(acdbRToS(1.0, 2, 2, nullptr), RTERROR);
}

TEST(AdsUnits, TextToNumbers) {
    double v = 0;
    EXPECT_EQ(acdbDisToF("1'-3 1/2\"", 4, &v), RTNORM);
    EXPECT_DOUBLE_EQ(v, 15.5);
    EXPECT_EQ(acdbDisToF("x", 2, &v), RTERROR);
    EXPECT_DOUBLE_EQ(v, 15.5);   // untouched on failure
    EXPECT_EQ(acdbAngToF("50g", 0, &v), RTNORM);
    EXPECT_NEAR(v, kPi / 4, 1e-12);
    EXPECT_EQ(acdbDisToF(nullptr, 2, &v), RTERROR);
    EXPECT_EQ(acdbAngToF("1", 2, nullptr), RTERROR);
}

namespace {

// Sets system variables for one test and puts the old values back.
class ScopedVars {
public:
    void Set(const char* name, int value) {
        lumo::host::SysVarValue old;
        ASSERT_TRUE(lumo::host::GetSysVar(name, old)) << name;
        m_saved.emplace_back(name, old);
        ASSERT_TRUE(lumo::host::SetSysVar(name, lumo::host::ShortVar(value), true)) << name;
    }
    ~ScopedVars() {
        for (auto it = m_saved.rbegin(); it != m_saved.rend(); ++it) lumo::host::SetSysVar(it->first, it->second, true);
    }
private:
    std::vector<std::pair<std::string, lumo::host::SysVarValue>> m_saved;
};

std::string RToS(double v, int unit, int prec) {
    char out[lumo::host::kUnitTextSize];
    return acdbRToS(v, unit, prec, out) == RTNORM ? out : "<error>";
}
std::string AngToS(double v, int unit, int prec) {
    char out[lumo::host::kUnitTextSize];
    return acdbAngToS(v, unit, prec, out) == RTNORM ? out : "<error>";
}

}  // namespace

TEST(AdsUnits, MinusOneTakesTheDrawingsUnitsAndPrecision) {
    ScopedVars vars;
    vars.Set("LUNITS", 4);
    vars.Set("LUPREC", 3);
    vars.Set("AUNITS", 2);
    vars.Set("AUPREC", 1);
    EXPECT_EQ(RToS(15.5, -1, -1), "1'-3 1/2\"");
    EXPECT_EQ(RToS(15.5, 2, -1), "15.500");
    EXPECT_EQ(RToS(15.5, -1, 0), "1'-4\"");
    EXPECT_EQ(AngToS(kPi / 4, -1, -1), "50.0g");
    EXPECT_EQ(AngToS(kPi / 4, 0, -1), "45.0");
    double v = 0;
    EXPECT_EQ(acdbDisToF("1'-3\"", -1, &v), RTNORM);
    EXPECT_DOUBLE_EQ(v, 15.0);
    EXPECT_EQ(acdbAngToF("100", -1, &v), RTNORM);
    EXPECT_NEAR(v, kPi / 2, 1e-12);
}

TEST(AdsUnits, DimzinComesFromTheSystemVariable) {
    ScopedVars vars;
    vars.Set("DIMZIN", 8);
    EXPECT_EQ(RToS(12.5, 2, 4), "12.5");
    EXPECT_EQ(RToS(20261122.153045, 2, 20), "20261122.153045");
    vars.Set("DIMZIN", 1);
    EXPECT_EQ(RToS(3.5, 3, 1), "0'-3.5\"");
}
