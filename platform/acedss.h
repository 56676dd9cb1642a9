// Selection sets of the host, as modules reach them.
#pragma once
#include "platform/adsdef.h"

// Selects entities: str null or "" asks the user; "X" all (with the filter),
// "I" the pickfirst set, "P" the previous set, "L" the last entity, "W" and
// "C" a window and a crossing window from pt1 to pt2, "WP", "CP" and "F" a
// window polygon, crossing polygon and fence through the points of the
// resbuf chain pt1. RTNORM with a new set in `ss`, RTERROR when nothing was
// selected or no set is left, RTCAN on Esc.
int acedSSGet(const char* str, const void* pt1, const void* pt2, const resbuf* filter, ads_name ss);
int acedSSFree(const ads_name ss);
int acedSSLength(const ads_name ss, int32_t* len);
// The entity at position i (from 0).
int acedSSName(const ads_name ss, int32_t i, ads_name entres);
// Adds an entity to a set; a null ss makes a new set, a null ename an empty one.
int acedSSAdd(const ads_name ename, const ads_name ss, ads_name result);
int acedSSDel(const ads_name ename, const ads_name ss);
int acedSSMemb(const ads_name ename, const ads_name ss);   // RTNORM when a member
// Transforms every entity of the set by the matrix.
int acedXformSS(const ads_name ss, ads_matrix genmat);
