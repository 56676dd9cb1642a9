// The mark in the drawing's entity sequence, and the sets of what came
// after it.
#pragma once
#include "platform/adsdef.h"

extern ads_name gMarkEntity;   // both words 0: no mark
extern ads_name gGetSsSet;     // the set lumo_getss reuses without a slot

// Takes the drawing's last entity as the mark, or clears the mark in a
// drawing without entities.
void SetMark();
void ClearMark();
// Every entity after the mark, or all of them without a mark, as a new set
// in `out`. False when the set cannot be made.
bool CollectSinceMark(ads_name out);
