// The LISP function table: names bound to handlers, and their dispatch.
#pragma once

// A handler reads its arguments with acedGetArgs, sets at most one result
// and returns a status that the dispatcher drops.
typedef int (*LispHandler)();

struct LispFunctionEntry {
    const char* name;      // as given to acedDefun
    LispHandler handler;
};

extern const LispFunctionEntry gLispFunctions[];
extern const int gLispFunctionCount;   // all rows
// Rows at the front of the table registered with acedRegFunc as well, so
// that acedInvoke reaches them; the host calls them directly.
extern const int gRegFuncRowCount;
// The plain rows' count: the dispatch limit.
int PlainRowCount();

// Defines every LISP name for the drawing: RTNORM, or RTERROR when the host
// refused a name (the rows behind it stay undefined).
int RegisterFunctions();
// Runs the handler of the function code the host is calling.
int DispatchFunction();
