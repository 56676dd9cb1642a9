// The LISP family on one current entity: its DXF list is held between calls
// and read group by group, vertex by vertex, or changed and written back.
#pragma once
#include <cstdint>

#include "platform/adsdef.h"

extern resbuf* gCurrentEntityList;      // the current entity's DXF list, or null
extern char gCurrentEntityType[64];     // its code 0 text
extern resbuf* gEntityListCursor;       // where the next vertex is looked for
extern int32_t gEntityListOccurrence;   // which group of a code the next read takes
extern ads_name gRememberedEntity;      // the last entity taken from a slot
extern int32_t gRememberedValid;

// Releases the current list and clears the occurrence counter; for the end
// of a drawing, whose names the list holds.
void ReleaseCurrentEntityList();

int lumo_setenttodb();
int lumo_getentdxf();
int lumo_setsstodb();
int lumo_getentdata();
int lumo_getpolyvtx();   // also lumo_nextent
int lumo_modent();
int lumo_entdbsinit();
