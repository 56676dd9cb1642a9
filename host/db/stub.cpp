// The session's records behind object ids and entity names.
#include "host/db/stub.h"

#include <cstddef>
#include <deque>

namespace lumo::db {

namespace {
// Stubs never move: a deque grows without relocating its elements.
std::deque<AcDbStub>& Stubs() {
    static auto* stubs = new std::deque<AcDbStub>;
    return *stubs;
}
}  // namespace

AcDbStub* NewStub(AcDbDatabase* db, uint64_t handle) {
    auto& stubs = Stubs();
    AcDbStub& s = stubs.emplace_back();
    s.database = db;
    s.handle = handle;
    s.serial = static_cast<uint32_t>(stubs.size());
    return &s;
}

AcDbStub* StubFromSerial(int64_t serial) {
    auto& stubs = Stubs();
    if (serial <= 0 || static_cast<uint64_t>(serial) > stubs.size()) return nullptr;
    return &stubs[static_cast<std::size_t>(serial - 1)];
}

void NameOf(const AcDbStub* stub, ads_name out) {
    out[0] = stub ? static_cast<int32_t>(stub->serial) : 0;
    out[1] = stub ? 1 : 0;
}

AcDbStub* StubFromName(const ads_name name) {
    if (!name || name[1] != 1) return nullptr;
    return StubFromSerial(static_cast<uint32_t>(name[0]));
}

AcDbObject* ObjectFromName(const ads_name name) {
    AcDbStub* s = StubFromName(name);
    return s ? s->object : nullptr;
}

}  // namespace lumo::db
