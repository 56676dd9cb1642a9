// Blocks made of a drawing's entities.
#pragma once
#include "platform/adsdef.h"

class PickSet;
class XPoint;

// Defines a block of copies of the set's entities (with their vertices and
// attributes) with `base` as its base point. A name starting with "*U"
// makes an anonymous block; its real name goes to `nameOut` (256 bytes)
// when that isn't null. RTNORM or RTERROR.
int MakeBlock(const char* name, const PickSet& set, const XPoint& base, char* nameOut);
