// The interactive get functions shared by the ADS calls and LISP.
#pragma once
#include <string>

#include "platform/adsdef.h"

namespace lumo::host {

enum InitGetBits { kNoNull = 1, kNoZero = 2, kNoNegative = 4, kArbitrary = 128 };

// Reads an answer for a prompt after the usual initget checks. `parse`
// returns true when the text is acceptable (it prints its own complaint
// otherwise). Results: RTNORM, RTNONE (empty answer allowed), RTKWORD (a
// keyword, see LastKeyword), RTCAN (Esc).
int Prompt(const char* prompt, bool (*parse)(const std::string& text, void* out), void* out, bool spaceEnds = false);
const std::string& LastKeyword();
// Parses "x,y[,z]"; false if the text is no point.
bool ParsePoint(const std::string& text, ads_point out);

}  // namespace lumo::host
