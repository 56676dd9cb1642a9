// Where the LISP file functions meet the file system: every path LISP code
// names (open, findfile, load, vl-file-*) goes through LocalPath first.
#pragma once
#include <string>

namespace lumo::lisp {

// The path to hand to the operating system for a path as LISP code wrote it.
std::string LocalPath(const std::string& path);
// The folder of the current drawing (DWGPREFIX), with a trailing separator,
// or empty when the drawing has none.
std::string DrawingFolder();

}  // namespace lumo::lisp
