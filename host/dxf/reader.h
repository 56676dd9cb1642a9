// Reading an ASCII DXF file (R12 or R2000 and later) into a database.
#pragma once
#include <functional>
#include <string>
#include <string_view>

class AcDbDatabase;

namespace lumo::dxf {

// Fills an empty database (made with AcDbDatabase(false)) from the text of
// a file, then gives it what the file left out. False with `error` set to
// "<file>:<line>: <what is wrong>" on a malformed file; the database is then
// to be thrown away. `consumed`, if given, hears now and then of an offset
// the reader is done with.
bool ReadDxf(std::string_view text, const std::string& fileName, AcDbDatabase& db, std::string& error,
             const std::function<void(size_t)>& consumed = {});

}  // namespace lumo::dxf
