// The numbered selection slots as the current-entity family reaches them.
#include "database/pickset_slots.h"

#include "database/selection_slots.h"

int StoreSlotSelection(const ads_name set, int slot) { return SaveSlot(set, slot); }

bool GetSlotSelection(int slot, ads_name out, int32_t** position) {
    SelectionSlot* record = FindSlot(slot);
    if (!record) return false;
    out[0] = record->set[0];
    out[1] = record->set[1];
    if (position) *position = &record->position;
    return true;
}
