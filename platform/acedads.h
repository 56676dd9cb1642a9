// Editor and database operations of the host reached from LISP handlers.
#pragma once
#include "platform/adsdef.h"

// LISP functions defined by a module.
int acedDefun(const char* name, short code);     // 0 on failure
int acedUndef(const char* name, short code);
int acedGetFunCode();
resbuf* acedGetArgs();                            // belongs to the host
int acedRegFunc(int (*handler)(), int code);      // RTNORM on success
int acedInvoke(const resbuf* args, resbuf** result);
int acedRetInt(int value);
int acedRetReal(ads_real value);
int acedRetPoint(const ads_point point);
int acedRetStr(const char* text);
int acedRetName(const ads_name name, int type);   // type RTENAME or RTPICKS
int acedRetList(const resbuf* list);
int acedRetVal(const resbuf* value);
int acedRetT();
int acedRetNil();
int acedRetVoid();

// Commands, system variables, coordinate systems.
int acedCommand(int type, ...);                   // pairs of type and value, ended by 0
int acedCmd(const resbuf* list);
int acedGetVar(const char* name, resbuf* out);
int acedSetVar(const char* name, const resbuf* value);
int acedTrans(const ads_point pt, const resbuf* from, const resbuf* to, int disp, ads_point out);
bool acdbWcs2Ucs(ads_point in, ads_point out, bool vec);
bool acdbUcs2Wcs(ads_point in, ads_point out, bool vec);
int acedUsrBrk();                                 // 1 when the user pressed Esc
int acdbFail(const char* message);               // reports a module's failure
int acedAlert(const char* text);
int acedPrompt(const char* text);

// Formatting of numbers as the host's units settings give them.
int acdbRToS(ads_real value, int unit, int prec, char* out);
int acdbAngToS(ads_real value, int unit, int prec, char* out);

// Interactive input, answered by the user (or the scripted answers).
int acedInitGet(int flags, const char* keywords);
int acedGetKword(const char* prompt, char* out);
int acedGetString(int cronly, const char* prompt, char* out);
int acedGetInt(const char* prompt, int* out);
int acedGetReal(const char* prompt, ads_real* out);
int acedGetPoint(const ads_point base, const char* prompt, ads_point out);
// An angle in radians: typed in degrees, or a point whose direction from
// the base gives it.
int acedGetAngle(const ads_point base, const char* prompt, ads_real* out);
int acedGetInput(char* out);
// Asks for one entity by a pick; the picked point comes back in `point`.
int acedEntSel(const char* prompt, ads_name entity, ads_point point);
