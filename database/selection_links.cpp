#include "database/selection_links.h"

#include <cstdlib>

#include "platform/acedss.h"

SelectionLink* gSelectionLinks = nullptr;
int16_t gSelectionLinkMax = 5;
ads_name gLinkScratch = {0, 0};

namespace {

// Cuts the history behind `keep`, freeing the sets and records there.
void CutBehind(SelectionLink* keep) {
    for (SelectionLink *r = keep->next, *next; r; r = next) {
        next = r->next;
        acedSSFree(r->set);
        std::free(r);
    }
    keep->next = nullptr;
}

}  // namespace

bool SameSelection(const int32_t* a, const int32_t* b) {
    int32_t na = 0, nb = 0;
    if (acedSSLength(a, &na) != RTNORM || acedSSLength(b, &nb) != RTNORM || na != nb) return false;
    for (int32_t i = 0; i < na; ++i) {
        ads_name ea, eb;
        if (acedSSName(a, i, ea) != RTNORM || acedSSName(b, i, eb) != RTNORM) return false;
        if (ea[0] != eb[0] || ea[1] != eb[1]) return false;
    }
    return true;
}

int AddLink(const int32_t* name) {
    if (gSelectionLinks && SameSelection(name, gSelectionLinks->set)) {
        acedSSFree(name);
        return 0;
    }
    auto* record = static_cast<SelectionLink*>(std::calloc(1, sizeof(SelectionLink)));
    if (!record) return 0;
    record->set[0] = name[0];
    record->set[1] = name[1];
    // Counting the new record as the first, the one at the capacity is the
    // last to stay and those behind it fall out. The head's count falls with
    // them only when a record really goes, so that it stays the number of
    // links the reports show.
    SelectionLink** link = &gSelectionLinks;
    for (int position = 2; *link && position <= gSelectionLinkMax; ++position) link = &(*link)->next;
    int16_t count = gSelectionLinks ? gSelectionLinks->count : 0;
    SelectionLink* drop = *link;
    *link = nullptr;
    for (SelectionLink* next; drop; drop = next) {
        next = drop->next;
        --count;
        acedSSFree(drop->set);
        std::free(drop);
    }
    record->count = static_cast<int16_t>(count + 1);
    record->next = gSelectionLinks;
    gSelectionLinks = record;
    return 1;
}

bool NthLink(int k, ads_name out) {
    int i = 1;
    for (SelectionLink* r = gSelectionLinks; r; r = r->next, ++i) {
        if (i == k) {
            out[0] = r->set[0];
            out[1] = r->set[1];
            return true;
        }
    }
    return false;
}

int SetLinkCapacity(int capacity) {
    if (capacity >= 1 && capacity <= 9) gSelectionLinkMax = static_cast<int16_t>(capacity);
    int position = 1;
    for (SelectionLink* r = gSelectionLinks; r; r = r->next, ++position) {
        if (position == gSelectionLinkMax) {
            CutBehind(r);   // the head's count stays as it was
            break;
        }
    }
    return gSelectionLinkMax;
}

int LinkCount() { return gSelectionLinks ? gSelectionLinks->count : 0; }
