// The history of saved selection sets ("links"), newest first, reachable
// through the commands P1 to P9, and its capacity.
#pragma once
#include <cstdint>

#include "platform/adsdef.h"

struct SelectionLink {
    int16_t count;   // the number of links, valid at the head only
    ads_name set;
    SelectionLink* next;
};

extern SelectionLink* gSelectionLinks;
extern int16_t gSelectionLinkMax;   // 5 at start
extern ads_name gLinkScratch;       // the set a link is built in

// Saves `name` as the newest link: 1 if saved, 0 if it repeats the newest
// link (then `name` is freed).
int AddLink(const int32_t* name);
// Equal length and the same entity at every index.
bool SameSelection(const int32_t* a, const int32_t* b);
// The k-th newest link's set (1 the newest); false when there is none.
bool NthLink(int k, ads_name out);
// Sets the capacity (1 to 9; anything else leaves it) and cuts the history
// to it. The capacity.
int SetLinkCapacity(int capacity);
// The head's count, 0 with no links.
int LinkCount();
