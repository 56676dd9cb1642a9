// Ten numbered slots of selection sets, kept for the whole process, each
// with a reading position for the functions that walk a slot's set.
#pragma once
#include <cstdint>

#include "platform/adsdef.h"

struct SelectionSlot {
    int16_t slot;
    ads_name set;
    int32_t position;   // the next entity to hand out
    SelectionSlot* next;
};

extern SelectionSlot* gSelectionSlots;   // appended at the tail
extern resbuf* gSlotNineSets;            // every set slot 9 ever held; never freed

// Stores `name` in the slot, freeing what the slot held before (slot 9
// keeps it instead). 0 on success, 1 when `name` is no valid set.
int SaveSlot(const int32_t* name, int slot);
// The record of a slot, or null when nothing was ever stored there.
SelectionSlot* FindSlot(int slot);
// Remembers a set of slot 9, once.
void RememberSlotNine(const int32_t* name);
