// Utility operations of the host: result-buffer chains, printing, strings.
#pragma once
#include "platform/adsdef.h"

resbuf* acutNewRb(int type);                     // one node, value zeroed
int acutRelRb(resbuf* chain);                    // releases the chain and its strings
resbuf* acutBuildList(int type, ...);            // pairs of type and value, ended by 0
int acutPrintf(const char* format, ...);
int acutWcMatch(const char* text, const char* pattern);   // RTNORM on a match, else RTERROR
ads_real acutAngle(const ads_point from, const ads_point to);
ads_real acutDistance(const ads_point a, const ads_point b);
void acutPolar(const ads_point base, ads_real angle, ads_real dist, ads_point out);
int acutCvUnit(ads_real value, const char* from, const char* to, ads_real* out);
