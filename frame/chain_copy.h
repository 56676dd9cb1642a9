// Copying, comparing and building result-buffer chains node by node.
#pragma once
#include "platform/adsdef.h"

// The value type of a group code for list copies: finer than TypeOfCode
// (90..99 are RTLONG here). Negative codes and codes from 5000 up return
// themselves; 1004 (binary chunk) returns itself too.
int DxfValueType(int code);

// A fresh node with a copy of the value, or null for a type that isn't copied
// (RTVOID, RTNIL, RTANG among them).
resbuf* CopyNode(const resbuf* node);
// Fresh chains; nodes CopyNode refuses are dropped.
resbuf* CopyChain(const resbuf* chain);
resbuf* CopyRange(const resbuf* first, const resbuf* last);   // inclusive
resbuf* LastNode(resbuf* chain);
// A copy made apart from the host's allocator, node by node; still
// released with acutRelRb.
resbuf* CopyChainPlain(const resbuf* chain);
// RTLB, a plain copy of the chain, RTLE.
resbuf* WrapCopy(const resbuf* chain);
// A plain copy without a leading RTLB and the first RTLE.
void UnwrapCopy(const resbuf* in, resbuf** out);

// Node equality for list searches: reals exactly, points under the host
// geometry's tolerance, texts without regard to case if asked.
bool NodeEquals(const resbuf* a, const resbuf* b, int ignoreCase);

// Appends an RTSTR node holding a copy of `text`.
void AppendString(resbuf** chain, const char* text);
// Frees the texts of the RTSTR nodes, then the chain.
void FreeStringChain(resbuf* chain);
