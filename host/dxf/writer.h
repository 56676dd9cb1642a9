// Writing a database as an ASCII DXF file, R12 (AC1009) or R2000 (AC1015).
#pragma once
#include <cstdio>
#include <string>

#include "host/db/session.h"

class AcDbDatabase;

namespace lumo::dxf {

struct WriteStats {
    size_t entities = 0;   // entities written, sub-entities included
    size_t skipped = 0;    // entities R12 has no form for
};

// Writes the whole drawing to `out`. An R12 file gets LWPOLYLINEs as
// POLYLINEs and leaves out what R12 can't hold (counted in `skipped`).
// False, with `error` set, when the stream fails.
bool WriteDxf(AcDbDatabase& db, db::DxfVersion version, std::FILE* out, std::string& error,
              WriteStats* stats = nullptr);

}  // namespace lumo::dxf
