// The top level of the interpreter: forms typed or loaded, errors reported
// the way the host reports them.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "host/lisp/value.h"

namespace lumo::lisp {

// Binds the builtins; call once before evaluating.
void InitInterpreter();

// Evaluates one form at top level. An error calls the user's *error* with
// its message, or prints "; error: <message>"; returns false then.
bool EvalTopLevel(const Ref& form, Ref* value = nullptr);
// Reads and evaluates every form of a text at top level; stops at the first
// error and returns false.
bool RunText(std::string_view text, Ref* last = nullptr);
// Reports an error that reached the top level.
void ReportError(const std::string& message);

// Folders searched by load and findfile after the current one.
std::vector<std::string>& SupportPath();
// The path of a file found in the current folder or the support path; empty
// if there is none.
std::string FindFile(const std::string& name);
// Reads a whole file; false if it cannot be read.
bool ReadWholeFile(const std::string& path, std::string& out);
// Evaluates a LISP file's forms; errors propagate to the caller.
Ref LoadFile(const std::string& path);

}  // namespace lumo::lisp
