// Every object of a drawing: open state, erasure, owner, extended data,
// extension dictionary and reactors.
#include <algorithm>
#include <deque>

#include "host/db/classes.h"
#include "host/db/database_impl.h"
#include "host/db/extras.h"
#include "host/db/record.h"
#include "host/db/resbuf_sink.h"
#include "platform/dbdict.h"
#include "platform/dbsymtb.h"

ACRX_DEFINE_MEMBERS(AcDbObject, AcRxObject)

AcDbObject::AcDbObject() = default;

AcDbObject::~AcDbObject() { delete m_extras; }

AcDbObjectId AcDbObject::objectId() const { return AcDbObjectId(m_stub); }

Acad::ErrorStatus AcDbObject::setOwnerId(AcDbObjectId owner) {
    m_owner = owner;
    return Acad::eOk;
}

AcDbDatabase* AcDbObject::database() const { return m_stub ? m_stub->database : nullptr; }

void AcDbObject::getAcDbHandle(AcDbHandle& handle) const { handle = this->handle(); }

AcDbHandle AcDbObject::handle() const { return m_stub ? AcDbHandle(m_stub->handle) : AcDbHandle(); }

namespace {
bool Resident(const AcDbObject* o) { return o->stub() && o->stub()->database; }
}  // namespace

Acad::ErrorStatus AcDbObject::openFor(AcDb::OpenMode mode) {
    if (m_flags & kOpenWrite) return Acad::eWasOpenForWrite;
    if (mode == AcDb::kForWrite) {
        if (m_readers > 0) return Acad::eWasOpenForRead;
        m_flags |= kOpenWrite;
    } else if (mode == AcDb::kForNotify) {
        m_flags |= kOpenNotify;
    } else {
        if (m_readers == 255) return Acad::eWasOpenForRead;
        ++m_readers;
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::close() {
    if (!Resident(this)) return Acad::eOk;   // not in a database: nothing is held
    if (m_flags & kOpenWrite) {
        m_flags &= ~kOpenWrite;
        return Acad::eOk;
    }
    if (m_readers > 0) {
        --m_readers;
        return Acad::eOk;
    }
    if (m_flags & kOpenNotify) {
        m_flags &= ~kOpenNotify;
        return Acad::eOk;
    }
    return Acad::eNotOpenForRead;
}

Acad::ErrorStatus AcDbObject::upgradeOpen() {
    if (m_flags & kOpenWrite) return Acad::eOk;
    if (m_readers != 1) return Acad::eWasOpenForRead;
    m_readers = 0;
    m_flags |= kOpenWrite;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::downgradeOpen() {
    if (!(m_flags & kOpenWrite)) return Acad::eWasNotOpenForWrite;
    m_flags &= ~kOpenWrite;
    m_readers = 1;
    return Acad::eOk;
}

bool AcDbObject::isReadEnabled() const { return !Resident(this) || isOpen(); }

bool AcDbObject::isWriteEnabled() const { return !Resident(this) || (m_flags & kOpenWrite); }

bool AcDbObject::isNotifyEnabled() const { return (m_flags & kOpenNotify) != 0; }

bool AcDbObject::isNewObject() const { return false; }

void AcDbObject::assertWriteEnabled(bool, bool) {}

namespace {
// Records a drawing can't do without.
bool Protected(const AcDbObject* obj) {
    auto* rec = AcDbSymbolTableRecord::cast(obj);
    if (!rec) return AcDbSymbolTable::cast(obj) != nullptr;
    auto* db = obj->database();
    if (!db) return false;
    const std::string& n = rec->name();
    using lumo::db::SameName;
    if (AcDbLayerTableRecord::cast(obj)) return SameName(n, "0") || obj->objectId() == db->clayer();
    if (AcDbLinetypeTableRecord::cast(obj))
        return SameName(n, "CONTINUOUS") || SameName(n, "BYLAYER") || SameName(n, "BYBLOCK");
    if (AcDbBlockTableRecord::cast(obj)) return obj->objectId() == db->modelSpaceId() || obj->objectId() == db->paperSpaceId();
    return false;
}
}  // namespace

Acad::ErrorStatus AcDbObject::erase(bool erasing) {
    if (Resident(this) && !(m_flags & kOpenWrite)) return Acad::eNotOpenForWrite;
    if (erasing == isErased()) return erasing ? Acad::eWasErased : Acad::eWasNotErased;
    if (erasing && Protected(this)) return Acad::eCannotBeErasedByCaller;
    setErasedFlag(erasing);
    return Acad::eOk;
}

lumo::db::ObjectExtras& AcDbObject::ensureExtras() {
    if (!m_extras) m_extras = new lumo::db::ObjectExtras;
    return *m_extras;
}

resbuf* AcDbObject::xData(const char* regappName) const {
    if (!m_extras) return nullptr;
    lumo::db::ResbufSink sink;
    for (const auto& app : m_extras->xdata) {
        if (regappName && !lumo::db::SameName(app.name, regappName)) continue;
        sink.Text(1001, app.name);
        for (const auto& t : app.tags) sink.Put(t.view());
    }
    return sink.Take();
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* xdata) {
    std::vector<lumo::db::Tag> tags;
    std::deque<std::string> scratch;
    if (!lumo::db::TagsFromChain(xdata, tags, scratch)) return Acad::eInvalidResBuf;
    if (tags.empty() || tags.front().code != 1001) return Acad::eInvalidInput;
    AcDbDatabase* db = database() ? database() : acdbHostApplicationServices()->workingDatabase();
    lumo::db::TagCursor in(tags);
    lumo::db::ReadContext ctx;
    ctx.db = db;
    ctx.modify = true;
    // Only the extended data is read: the cursor starts at the first 1001.
    uint64_t keep = m_present;
    bool ok = lumo::db::ReadRecord(*this, in, ctx);
    m_present = keep;
    return ok ? Acad::eOk : Acad::eInvalidInput;
}

AcDbObjectId AcDbObject::extensionDictionary() const {
    return m_extras ? AcDbObjectId(m_extras->xdict) : AcDbObjectId();
}

Acad::ErrorStatus AcDbObject::createExtensionDictionary() {
    AcDbDatabase* db = database();
    if (!db) return Acad::eNoDatabase;
    if (m_extras && m_extras->xdict && m_extras->xdict->object) return Acad::eAlreadyInDb;
    auto* dict = new AcDbDictionary;
    dict->setTreatElementsAsHard(true);
    AcDbStub* s = db->impl().Add(dict, objectId());
    dict->addPersistentReactor(objectId());
    ensureExtras().xdict = s;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::releaseExtensionDictionary() {
    if (!m_extras || !m_extras->xdict) return Acad::eOk;
    AcDbObject* obj = m_extras->xdict->object;
    auto* dict = obj ? AcDbDictionary::cast(obj) : nullptr;
    if (dict && dict->numEntries() > 0) return Acad::eInvalidInput;
    if (obj) obj->setErasedFlag(true);
    m_extras->xdict = nullptr;
    return Acad::eOk;
}

void AcDbObject::addPersistentReactor(AcDbObjectId id) {
    auto& r = ensureExtras().reactors;
    if (std::find(r.begin(), r.end(), static_cast<AcDbStub*>(id)) == r.end()) r.push_back(id);
}

Acad::ErrorStatus AcDbObject::removePersistentReactor(AcDbObjectId id) {
    if (!m_extras) return Acad::eKeyNotFound;
    auto& r = m_extras->reactors;
    auto it = std::find(r.begin(), r.end(), static_cast<AcDbStub*>(id));
    if (it == r.end()) return Acad::eKeyNotFound;
    r.erase(it);
    return Acad::eOk;
}

AcRxObject* AcDbObject::clone() const {
    AcDbObject* copy = lumo::db::NewObjectLike(*this);
    if (copy && !lumo::db::CopyRecord(*this, *copy)) {
        delete copy;
        return nullptr;
    }
    return copy;
}

const lumo::db::Record& AcDbObject::dxfRecord() const {
    static constexpr lumo::db::Record kRecord{"OBJECT", nullptr, nullptr, 0, nullptr, 5};
    return kRecord;
}

void* AcDbObject::dxfData(int) { return nullptr; }

namespace lumo::db {

XDataApp* ObjectExtras::FindApp(std::string_view name) {
    for (XDataApp& a : xdata)
        if (SameName(a.name, name)) return &a;
    return nullptr;
}

// As the host counts: the application's name and each group's value.
size_t XDataSize(const std::vector<XDataApp>& apps) {
    size_t n = 0;
    for (const XDataApp& a : apps) {
        n += 2 + a.name.size();
        for (const OwnedTag& t : a.tags) {
            switch (t.kind) {
            case ValueKind::Text:
            case ValueKind::Binary: n += 2 + t.s.size(); break;
            case ValueKind::Point: n += 24; break;
            case ValueKind::Real: n += 8; break;
            case ValueKind::Long: n += 4; break;
            default: n += 2; break;
            }
            n += 1;
        }
    }
    return n;
}

}  // namespace lumo::db
