// The ADS calls on entities, symbol tables and dictionaries, with the
// host's documented behaviour. Entity lists are chains whose restype is the
// DXF group code; the caller releases what these calls return with
// acutRelRb. Names follow the convention of platform/dbmain.h.
#pragma once
#include "platform/adsdef.h"

// The entity's list, or null for a name that leads to no entity (erased,
// gone, or no name at all). acdbEntGetX adds the extended data of the
// applications named in `apps` (RTSTR nodes; "*" stands for all) behind a
// -3 node.
resbuf* acdbEntGet(const ads_name ent);
resbuf* acdbEntGetX(const ads_name ent, const resbuf* apps);

// Makes an entity (or object, or table record) from a list in the current
// space, or in paper space with 67 of 1. POLYLINE ... VERTEX ... SEQEND and
// INSERT (66 of 1) ... ATTRIB ... SEQEND are held until the SEQEND; BLOCK ...
// ENDBLK makes a block definition. RTNORM, or RTREJ for a list the host
// refuses (nothing is made).
int acdbEntMake(const resbuf* ent);
// The same; `result` names what was made.
int acdbEntMakeX(const resbuf* ent, ads_name result);
// Changes the entity or object that -1 names by the groups of the list;
// extended data of an application given with no groups is removed.
int acdbEntMod(const resbuf* ent);
int acdbEntUpd(const ads_name ent);
// Erases an entity, or brings an erased one back.
int acdbEntDel(const ads_name ent);
// The first entity of the drawing (ent null), or the one after `ent`:
// vertices and attributes follow their POLYLINE or INSERT, then the SEQEND.
int acdbEntNext(const ads_name ent, ads_name result);
int acdbEntLast(ads_name result);
int acdbHandEnt(const char* handle, ads_name result);

// Symbol tables by the names "LAYER", "LTYPE", "VIEW", "STYLE", "BLOCK",
// "UCS", "APPID", "DIMSTYLE", "VPORT".
resbuf* acdbTblSearch(const char* tblname, const char* sym, int setnext);
resbuf* acdbTblNext(const char* tblname, int rewind);
int acdbTblObjName(const char* tblname, const char* sym, ads_name result);
int acdbRegApp(const char* appname);   // RTNORM; RTREJ when registered already or invalid

int acdbNamedObjDict(ads_name result);
resbuf* acdbDictSearch(const ads_name dict, const char* sym, int setnext);
resbuf* acdbDictNext(const ads_name dict, int rewind);
int acdbDictAdd(const ads_name dict, const char* sym, const ads_name newobj);
int acdbDictRemove(const ads_name dict, const char* sym);
int acdbDictRename(const ads_name dict, const char* oldsym, const char* newsym);

// RTNORM when the text is a valid symbol name; a non-zero `pipetest` lets
// a vertical bar stand inside the name.
int acdbSNValid(const char* tbstr, int pipetest);
// Size of extended data in bytes, and the room an entity has left.
int acdbXdSize(const resbuf* rb, int32_t* result);
int acdbXdRoom(const ads_name ent, int32_t* result);
