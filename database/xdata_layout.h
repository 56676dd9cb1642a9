// The module's records in extended data, as free functions on chains.
//
// Behind the application's 1001 node stand records one after another. Each
// starts with a tag node (1070, the tag number). A plain record has one
// value node behind its tag; a bracketed record has a value between 1002
// "{" and 1002 "}"; a structure record is bracketed and holds 1070 with
// the size in bytes, then the bytes four to a 1071 node.
#pragma once
#include "platform/adsdef.h"

// Codes of extended data.
enum : short {
    kXdString = 1000, kXdAppName = 1001, kXdBrace = 1002, kXdBinary = 1004, kXdHandle = 1005,
    kXdPoint = 1010, kXdReal = 1040, kXdInteger = 1070, kXdLong = 1071,
};

// The node is 1002 with "{" (or "}").
bool IsOpeningBrace(const resbuf* node);
bool IsClosingBrace(const resbuf* node);

// The tag node of `tag` in the chain. Only a 1070 node outside all
// brackets is a tag, and the value behind a tag that doesn't match is
// stepped over unless it opens a bracket. `previous`, if given, receives
// the node ahead of the tag. Null when there is none.
resbuf* FindTag(resbuf* chain, int tag, resbuf** previous = nullptr);

// The last node of a value that starts at `value`: the value itself, or
// for a bracket the "}" that closes it at its own depth; null when the
// bracket is never closed.
resbuf* ValueEnd(resbuf* value);

// Replaces the value of the record `tag` with `node` (a node or a chain,
// which the chain takes over), or appends tag and node at the end. A null
// `node` deletes the record. An empty chain is started with -3 and a 1001
// of `app` ("_TQ_HVAC" for a null or empty name). RTNORM, or RTERROR when
// a bracket isn't closed or memory runs out.
int SetTagValue(resbuf*& chain, int tag, resbuf* node, const char* app);

// The nodes of a structure record of `size` bytes: tag, "{", size, the
// words, "}". Null when memory runs out.
resbuf* BuildStructRecord(int tag, const void* data, int size);
