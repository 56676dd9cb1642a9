// The few list operations by which the kernel's values become entities of
// the drawing or follow them: a new entity from groups, a copy of a model
// entity with some groups replaced, and a change in place.
#pragma once
#include "platform/adsdef.h"

// The layer rule of the drawing hooks: the given name, or with none the
// current "clayer". `out` holds at least kLayerNameSize characters.
inline constexpr int kLayerNameSize = 80;
void LayerOrCurrent(const char* layer, char* out);

// (0 type) (8 layer) and the groups, made with acdbEntMake; its result.
// Takes the groups chain and releases it.
int MakeEntityFromGroups(const char* type, const char* layer, resbuf* groups);
// The model's list with the extended data of all applications, the groups
// put over the ones it has, made anew; acdbEntMake's result. Releases groups.
int MakeEntityLike(const ads_name like, resbuf* groups);
// The entity's list with the groups put over, through acdbEntMod. With a
// type, group 0 must match it (regardless of case), else RTERROR. Releases
// groups.
int ModifyEntityGroups(const ads_name ent, resbuf* groups, const char* type);
// The value of a group of an entity list: the first node of that code.
const resbuf* FindGroup(const resbuf* list, int code);
// Makes the layer with the colour when the drawing lacks it; RTNORM when
// the layer exists afterwards.
int AssureLayerRecord(const char* name, int color);
// Appends a new entity to the working drawing's model space, or to the
// space in use (model or paper, by TILEMODE); RTNORM, after which the entity
// stays open for the caller to close.
class AcDbEntity;
int AppendToModelSpace(AcDbEntity* ent);
int AppendToCurrentSpace(AcDbEntity* ent);
