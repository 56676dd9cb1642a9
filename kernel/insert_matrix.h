// The placement matrix of a block reference.
#pragma once
#include "platform/adsdef.h"

// T(insertion) R(rotation) S(scales) T(-base point of the block): RTNORM, or
// RTERROR when the name is not a block reference.
int GetInsertMatrix(const ads_name name, double m[4][4]);
