// Object ids, handles, entity names and opening objects by id.
#include <cstdio>
#include <cstdlib>

#include "host/db/stub.h"
#include "platform/dbmain.h"

const AcDbObjectId AcDbObjectId::kNull;

AcDbHandle::AcDbHandle(const char* hex) {
    if (!hex) return;
    uint64_t v = 0;
    for (const char* p = hex; *p; ++p) {
        char c = *p;
        int d = (c >= '0' && c <= '9') ? c - '0' : (c >= 'A' && c <= 'F') ? c - 'A' + 10
              : (c >= 'a' && c <= 'f') ? c - 'a' + 10 : -1;
        if (d < 0) return;   // not a handle: stays null
        v = v * 16 + static_cast<uint64_t>(d);
    }
    m_value = v;
}

bool AcDbHandle::getIntoAsciiBuffer(char* buffer) const {
    if (!buffer) return false;
    std::snprintf(buffer, 17, "%llX", static_cast<unsigned long long>(m_value));
    return true;
}

bool AcDbObjectId::isValid() const { return m_stub && m_stub->object && m_stub->database; }

bool AcDbObjectId::isErased() const { return isValid() && m_stub->object->isErased(); }

AcDbDatabase* AcDbObjectId::database() const { return m_stub ? m_stub->database : nullptr; }

AcDbHandle AcDbObjectId::handle() const { return m_stub ? AcDbHandle(m_stub->handle) : AcDbHandle(); }

AcRxClass* AcDbObjectId::objectClass() const { return isValid() ? m_stub->object->isA() : nullptr; }

int32_t AcDbObjectId::asOldId() const { return m_stub ? static_cast<int32_t>(m_stub->serial) : 0; }

AcDbObjectId& AcDbObjectId::setFromOldId(int32_t serial) {
    m_stub = lumo::db::StubFromSerial(serial);
    return *this;
}

bool AcDbObjectId::operator<(const AcDbObjectId& o) const { return asOldId() < o.asOldId(); }

void acutDelString(char*& text) {
    std::free(text);
    text = nullptr;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name) {
    id.setNull();
    AcDbStub* stub = lumo::db::StubFromName(name);
    if (!stub || !stub->object || !stub->database) return Acad::eInvalidAdsName;
    id = AcDbObjectId(stub);
    return Acad::eOk;
}

Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id) {
    name[0] = name[1] = 0;
    if (id.isNull()) return Acad::eNullObjectId;
    lumo::db::NameOf(id, name);
    return Acad::eOk;
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased) {
    object = nullptr;
    if (id.isNull()) return Acad::eNullObjectId;
    AcDbStub* stub = id;
    if (!stub->object || !stub->database) return Acad::eUnknownHandle;
    AcDbObject* obj = stub->object;
    if (obj->isErased() && !openErased) return Acad::eWasErased;
    Acad::ErrorStatus es = obj->openFor(mode);
    if (es == Acad::eOk) object = obj;
    return es;
}

Acad::ErrorStatus acdbOpenObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased) {
    return acdbOpenAcDbObject(object, id, mode, openErased);
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased) {
    entity = nullptr;
    AcDbObject* obj = nullptr;
    Acad::ErrorStatus es = acdbOpenAcDbObject(obj, id, mode, openErased);
    if (es != Acad::eOk) return es;
    entity = AcDbEntity::cast(obj);
    if (!entity) {
        obj->close();
        return Acad::eNotAnEntity;
    }
    return Acad::eOk;
}
