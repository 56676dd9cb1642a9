// The session's records behind object ids and entity names.
//
// A stub outlives its object: it stays for the whole process so that an
// ads_name or AcDbObjectId taken earlier can be checked instead of followed
// into freed memory. Serials count from 1 and are never reused.
#pragma once
#include <cstdint>

#include "platform/adsdef.h"

class AcDbObject;
class AcDbDatabase;

struct AcDbStub {
    AcDbObject* object = nullptr;      // null before the object is read, and after it is gone
    AcDbDatabase* database = nullptr;  // null once the database is gone
    uint64_t handle = 0;
    uint32_t serial = 0;
    uint32_t order = 0;                // place in the entity list of its space or block, from 1
};

namespace lumo::db {

// A new stub with the next serial of the session.
AcDbStub* NewStub(AcDbDatabase* db, uint64_t handle);
// The stub of a serial, or null for one never handed out.
AcDbStub* StubFromSerial(int64_t serial);
// The entity name of a stub: { serial, 1 }.
void NameOf(const AcDbStub* stub, ads_name out);
// The stub of an entity name, or null if the name isn't one; the object
// behind it may be gone (check stub->object).
AcDbStub* StubFromName(const ads_name name);
// The live object of a name, or null.
AcDbObject* ObjectFromName(const ads_name name);

}  // namespace lumo::db
