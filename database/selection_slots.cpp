#include "database/selection_slots.h"

#include <cstdlib>

#include "platform/acedss.h"
#include "platform/acutads.h"

SelectionSlot* gSelectionSlots = nullptr;
resbuf* gSlotNineSets = nullptr;

namespace {

bool IsValidSet(const int32_t* name) {
    int32_t length = 0;
    return acedSSLength(name, &length) == RTNORM;
}

// Another slot's set is freed when replaced; slot 9 remembers its sets
// instead, so a caller may keep one there for a whole drawing.
void LetGo(SelectionSlot& record) {
    if (record.slot == 9) RememberSlotNine(record.set);
    else acedSSFree(record.set);
}

void Store(SelectionSlot& record, const int32_t* name) {
    record.set[0] = name[0];
    record.set[1] = name[1];
    record.position = 0;
}

}  // namespace

SelectionSlot* FindSlot(int slot) {
    for (SelectionSlot* s = gSelectionSlots; s; s = s->next)
        if (s->slot == slot) return s;
    return nullptr;
}

void RememberSlotNine(const int32_t* name) {
    resbuf** tail = &gSlotNineSets;
    for (; *tail; tail = &(*tail)->rbnext)
        if ((*tail)->resval.rlname[0] == name[0] && (*tail)->resval.rlname[1] == name[1]) return;
    resbuf* node = acutNewRb(RTENAME);
    if (!node) return;
    node->resval.rlname[0] = name[0];
    node->resval.rlname[1] = name[1];
    *tail = node;
}

int SaveSlot(const int32_t* name, int slot) {
    SelectionSlot* record = FindSlot(slot);
    if (!record) {
        if (!IsValidSet(name)) return 1;
        record = static_cast<SelectionSlot*>(std::calloc(1, sizeof(SelectionSlot)));
        if (!record) return 1;
        record->slot = static_cast<int16_t>(slot);
        Store(*record, name);
        SelectionSlot** tail = &gSelectionSlots;
        while (*tail) tail = &(*tail)->next;
        *tail = record;
        if (slot == 9) RememberSlotNine(name);
        return 0;
    }
    if (!IsValidSet(name)) {
        // Slot 9 takes even a dead name; the others lose their set.
        if (slot == 9) Store(*record, name);
        else acedSSFree(record->set);
        return 1;
    }
    if (name[0] == record->set[0] || name[1] == record->set[1]) {
        record->position = 0;   // the same set again: read it from the start
        return 0;
    }
    LetGo(*record);
    Store(*record, name);
    return 0;
}
