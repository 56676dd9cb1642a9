// Distances and angles as text in the host's units modes: the one place that
// formats them (acdbRToS, acdbAngToS, rtos, angtos) and reads them back
// (acdbDisToF, acdbAngToF, distof, angtof).
//
// Linear modes: 1 scientific "1.5000E+01", 2 decimal "15.5000",
// 3 engineering "1'-3.5000\"", 4 architectural "1'-3 1/2\"", 5 fractional
// "15 1/2". Distances are in drawing units, which the feet-and-inch modes take
// as inches. Precision is the number of decimals, or for the fraction modes
// the power of two of the smallest denominator (8 at most, 1/256).
//
// Angle modes: 0 degrees "45.0000", 1 degrees/minutes/seconds "45d30'0\"",
// 2 grads "50.0000g", 3 radians "0.7854r", 4 surveyor's "N 45d0'0\" E".
// Angles are radians, counter-clockwise from the x axis; text always shows
// the angle brought into [0, 360) degrees. In the DMS forms precision 0 shows
// degrees, 1-2 adds minutes, 3-4 adds seconds, 5 and up adds decimals of
// seconds.
//
// DIMZIN: the low two bits choose which zero feet and zero inches are shown
// (0 neither, 1 both, 2 zero feet only, 3 zero inches only); 4 drops leading
// zeros ("0.5" as ".5"), 8 trailing zeros ("12.50" as "12.5") of decimals.
// UNITMODE 1 writes feet-and-inch, fraction and surveyor's text the way it is
// typed: "1'3-1/2\"", "15-1/2", "N45d0'0\"E".
#pragma once
#include <string>
#include <string_view>

#include "platform/adsdef.h"

namespace lumo::host {

struct UnitStyle {
    int dimzin = 0;
    int unitmode = 0;
};

// The largest precision honoured; larger values act as this one.
constexpr int kMaxUnitPrecision = 20;
// acdbRToS and acdbAngToS never write more than this many bytes, the
// terminating zero included.
constexpr int kUnitTextSize = 64;

// The system variables that decide the defaults (LUNITS, LUPREC, AUNITS,
// AUPREC) and the style (DIMZIN, UNITMODE); fixed defaults where one is unset.
int CurrentLinearUnits();
int CurrentLinearPrecision();
int CurrentAngularUnits();
int CurrentAngularPrecision();
UnitStyle CurrentUnitStyle();

// Empty when the mode is not one of the modes above, the precision is
// negative or the value is not finite.
std::string FormatDistance(double value, int mode, int prec, const UnitStyle& style);
std::string FormatAngle(double radians, int mode, int prec, const UnitStyle& style);

// Reads the whole text (blanks around it allowed) in the given mode; false,
// with *out untouched, when it is no valid distance or angle. Distances in
// modes 1 and 2 are plain numbers, mode 5 adds fractions ("15 1/2",
// "15-1/2", "3/4"), modes 3 and 4 add feet and inches ("1'", "1'-3 1/2\"",
// "1'3.5\"", "3\""). Angles accept every form above in every mode ("45d30'",
// "50g", "0.7854r", "N 45d E"); a bare number is read in the mode's unit.
// The angle comes back in [0, 2 pi).
bool ParseDistance(std::string_view text, int mode, double* out);
bool ParseAngle(std::string_view text, int mode, double* out);

}  // namespace lumo::host

// Reading text back into numbers, declared here beside their formatting
// counterparts of platform/acedads.h. unit -1 takes LUNITS or AUNITS.
int acdbDisToF(const char* str, int unit, ads_real* v);
int acdbAngToF(const char* str, int unit, ads_real* v);
