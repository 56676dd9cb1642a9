// The session's drawing as the lumo program opens and saves it.
#pragma once
#include <string>

class AcDbDatabase;

namespace lumo::db {

// Makes `db` the working drawing; the session owns it from now on and
// deletes the one it held. Null goes back to a new drawing on next use.
void AdoptSessionDatabase(AcDbDatabase* db);
void CloseSessionDatabase();

enum class DxfVersion { R12, R2000 };

// Reads a DXF file as the session's drawing. On failure the drawing stays as
// it was and `error` says "<file>:<line>: <what is wrong>".
bool OpenDrawing(const std::string& path, std::string& error);
// Writes the session's drawing. The file is written beside the target and
// renamed over it, so a failure leaves no partial file.
bool SaveDrawing(const std::string& path, std::string& error, DxfVersion version = DxfVersion::R2000);
bool SaveDatabase(AcDbDatabase& db, const std::string& path, std::string& error,
                  DxfVersion version = DxfVersion::R2000);

}  // namespace lumo::db
