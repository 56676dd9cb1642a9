// The numbered selection slots as the current-entity family reaches them.
#pragma once
#include <cstdint>

#include "platform/adsdef.h"

// Stores the set in the slot: 0 on success, 1 when the name is no valid set.
int StoreSlotSelection(const ads_name set, int slot);
// The set of a slot and its reading position, which the caller may move;
// false when nothing was ever stored there.
bool GetSlotSelection(int slot, ads_name out, int32_t** position = nullptr);
