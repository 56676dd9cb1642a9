// The drawing database: objects by handle, tables, header variables, and
// the session's working drawing.
#include <algorithm>
#include <cstring>

#include "host/db/database_impl.h"
#include "host/db/extras.h"
#include "host/db/session.h"
#include "platform/dbdict.h"
#include "platform/dbents.h"

ACRX_DEFINE_MEMBERS(AcDbDatabase, AcRxObject)

namespace lumo::db {

namespace {
constexpr const char* kTableDxf[kTableCount] = {
    "BLOCK_RECORD", "LAYER", "STYLE", "LTYPE", "VIEW", "UCS", "VPORT", "APPID", "DIMSTYLE",
};
constexpr const char* kTableList[kTableCount] = {
    "BLOCK", "LAYER", "STYLE", "LTYPE", "VIEW", "UCS", "VPORT", "APPID", "DIMSTYLE",
};
}  // namespace

const TableKind kFileTableOrder[kTableCount] = {
    kVportTable, kLinetypeTable, kLayerTable, kStyleTable, kViewTable,
    kUcsTable, kAppidTable, kDimStyleTable, kBlockTable,
};

const char* TableDxfName(TableKind kind) { return kTableDxf[kind]; }
const char* TableListName(TableKind kind) { return kTableList[kind]; }

bool TableFromListName(std::string_view name, TableKind& kind) {
    for (int k = 0; k < kTableCount; ++k) {
        if (SameName(name, kTableList[k]) || SameName(name, kTableDxf[k])) {
            kind = static_cast<TableKind>(k);
            return true;
        }
    }
    return false;
}

bool SameName(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        char x = a[i], y = b[i];
        if (x >= 'a' && x <= 'z') x = static_cast<char>(x - 32);
        if (y >= 'a' && y <= 'z') y = static_cast<char>(y - 32);
        if (x != y) return false;
    }
    return true;
}

std::string UpperName(std::string_view name) {
    std::string s(name);
    for (char& c : s)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    return s;
}

}  // namespace lumo::db

using namespace lumo::db;

AcDbStub* AcDbDatabase::Impl::StubFor(uint64_t handle, bool create) {
    if (handle == 0) return nullptr;
    AcDbStub* s = handles.Find(handle);
    if (!s && create) {
        s = NewStub(self, handle);
        handles.Insert(s);
        SeeHandle(handle);
    }
    return s;
}

AcDbStub* AcDbDatabase::Impl::Add(AcDbObject* obj, AcDbObjectId owner, uint64_t handle) {
    AcDbStub* s = handle ? handles.Find(handle) : nullptr;
    if (s && s->object) {
        if (provisional && std::find(provisional->begin(), provisional->end(), s) != provisional->end()) {
            // made for the file before the file named this handle: it moves
            SeeHandle(handle);
            handles.Remove(s);
            s->handle = nextHandle++;
            handles.Insert(s);
            s = nullptr;
        } else {
            s = nullptr;   // the file names a handle twice: the newcomer gets a fresh one
            handle = 0;
        }
    }
    if (!s) {
        bool fresh = handle == 0;
        if (fresh) handle = nextHandle;
        s = NewStub(self, handle);
        handles.Insert(s);
        if (fresh && provisional) provisional->push_back(s);
    }
    SeeHandle(handle);
    s->object = obj;
    obj->attach(s);
    obj->setOwner(owner);
    return s;
}

AcDbSymbolTable* AcDbDatabase::Impl::Table(TableKind kind) const {
    AcDbStub* s = tables[kind];
    return s && s->object ? AcDbSymbolTable::cast(s->object) : nullptr;
}

AcDbObjectId AcDbDatabase::Impl::FindRecord(TableKind kind, std::string_view name) const {
    AcDbSymbolTable* t = Table(kind);
    return t ? AcDbObjectId(t->find(name)) : AcDbObjectId();
}

const std::string& AcDbDatabase::Impl::RecordName(AcDbObjectId id) {
    static const std::string kNone;
    AcDbStub* s = id;
    if (!s || !s->object) return kNone;
    auto* rec = AcDbSymbolTableRecord::cast(s->object);
    return rec ? rec->name() : kNone;
}

namespace {

AcDbSymbolTableRecord* NewRecord(TableKind kind) {
    switch (kind) {
    case kBlockTable: return new AcDbBlockTableRecord;
    case kLayerTable: return new AcDbLayerTableRecord;
    case kStyleTable: return new AcDbTextStyleTableRecord;
    case kLinetypeTable: return new AcDbLinetypeTableRecord;
    case kViewTable: return new AcDbViewTableRecord;
    case kUcsTable: return new AcDbUCSTableRecord;
    case kVportTable: return new AcDbViewportTableRecord;
    case kAppidTable: return new AcDbRegAppTableRecord;
    case kDimStyleTable: return new AcDbDimStyleTableRecord;
    case kTableCount: break;
    }
    return nullptr;
}

}  // namespace

AcDbObjectId AcDbDatabase::Impl::MakeRecord(TableKind kind, std::string_view name) {
    AcDbSymbolTable* table = Table(kind);
    if (!table) return {};
    AcDbSymbolTableRecord* rec = NewRecord(kind);
    rec->setName(std::string(name).c_str());
    if (auto* layer = AcDbLayerTableRecord::cast(rec))
        layer->setLinetypeObjectId(FindRecord(kLinetypeTable, "CONTINUOUS"));
    return AddRecord(table, rec);
}

AcDbStub* AcDbDatabase::Impl::AddRecord(AcDbSymbolTable* table, AcDbSymbolTableRecord* rec, uint64_t handle,
                                        bool withEnds) {
    AcDbStub* s = Add(rec, table->objectId(), handle);
    table->insert(s);
    auto* block = AcDbBlockTableRecord::cast(rec);
    // a file brings its own BLOCK and ENDBLK
    if (!block || block->blockBegin() || provisional || !withEnds) return s;
    const std::string& name = rec->name();
    auto* begin = new AcDbBlockBegin;
    begin->data().name = name;
    if (!name.empty() && name[0] == '*' && !SameName(name, "*Model_Space") &&
        !(name.size() >= 12 && SameName(name.substr(0, 12), "*Paper_Space")))
        begin->data().flags |= 1;   // anonymous
    block->setBlockBegin(Add(begin, rec->objectId()));
    block->setBlockEnd(Add(new AcDbBlockEnd, rec->objectId()));
    AcDbObjectId zero = FindRecord(kLayerTable, "0");
    if (!zero.isNull()) {
        static_cast<AcDbEntity*>(block->blockBegin()->object)->setLayer(zero);
        static_cast<AcDbEntity*>(block->blockEnd()->object)->setLayer(zero);
    }
    return s;
}

HeaderVar* AcDbDatabase::Impl::FindVar(std::string_view name) {
    for (HeaderVar& v : header)
        if (SameName(v.name, name)) return &v;
    return nullptr;
}

const HeaderVar* AcDbDatabase::Impl::FindVar(std::string_view name) const {
    return const_cast<Impl*>(this)->FindVar(name);
}

void AcDbDatabase::Impl::SetVar(std::string_view name, std::vector<OwnedTag> tags) {
    if (HeaderVar* v = FindVar(name)) v->tags = std::move(tags);
    else header.push_back({std::string(name), std::move(tags)});
}

double AcDbDatabase::Impl::VarReal(std::string_view name, double def) const {
    const HeaderVar* v = FindVar(name);
    if (!v || v->tags.empty()) return def;
    const OwnedTag& t = v->tags.front();
    if (t.kind == ValueKind::Real) return t.v[0];
    if (t.kind == ValueKind::Short || t.kind == ValueKind::Long) return static_cast<double>(t.i);
    return def;
}

int AcDbDatabase::Impl::VarInt(std::string_view name, int def) const {
    const HeaderVar* v = FindVar(name);
    if (!v || v->tags.empty()) return def;
    const OwnedTag& t = v->tags.front();
    if (t.kind == ValueKind::Short || t.kind == ValueKind::Long) return static_cast<int>(t.i);
    return def;
}

std::string AcDbDatabase::Impl::VarText(std::string_view name, std::string_view def) const {
    const HeaderVar* v = FindVar(name);
    if (!v || v->tags.empty() || v->tags.front().kind != ValueKind::Text) return std::string(def);
    return v->tags.front().s;
}

AcGePoint3d AcDbDatabase::Impl::VarPoint(std::string_view name, const AcGePoint3d& def) const {
    const HeaderVar* v = FindVar(name);
    if (!v || v->tags.empty() || v->tags.front().kind != ValueKind::Point) return def;
    const OwnedTag& t = v->tags.front();
    return {t.v[0], t.v[1], t.dims > 2 ? t.v[2] : 0.0};
}

void AcDbDatabase::Impl::PlaceEntity(AcDbStub* entity, AcDbBlockTableRecord* block) {
    block->adopt(entity);
    entity->object->setOwner(block->objectId());
    if (!IsSpace(block->objectId())) {
        entity->order = static_cast<uint32_t>(block->entities().size());
        return;
    }
    entities.push_back(entity);
    entity->order = static_cast<uint32_t>(entities.size());
    if (auto* e = AcDbEntity::cast(entity->object))
        static_cast<AcDbEntity::Common*>(e->dxfData(0))->paperSpace = block->objectId() == paperSpace ? 1 : 0;
}

// ---------------------------------------------------------------------------

AcDbDatabase::AcDbDatabase(bool buildDefaultDrawing, bool) : m_impl(new Impl(this)) {
    if (buildDefaultDrawing) m_impl->EnsureDefaults();
}

AcDbDatabase::~AcDbDatabase() {
    // Stubs stay for the session; they no longer lead anywhere.
    m_impl->handles.ForEach([](AcDbStub* s) {
        delete s->object;
        s->object = nullptr;
        s->database = nullptr;
    });
    delete m_impl;
}

AcDbObjectId AcDbDatabase::blockTableId() const { return m_impl->tables[kBlockTable]; }
AcDbObjectId AcDbDatabase::layerTableId() const { return m_impl->tables[kLayerTable]; }
AcDbObjectId AcDbDatabase::textStyleTableId() const { return m_impl->tables[kStyleTable]; }
AcDbObjectId AcDbDatabase::linetypeTableId() const { return m_impl->tables[kLinetypeTable]; }
AcDbObjectId AcDbDatabase::viewTableId() const { return m_impl->tables[kViewTable]; }
AcDbObjectId AcDbDatabase::UCSTableId() const { return m_impl->tables[kUcsTable]; }
AcDbObjectId AcDbDatabase::viewportTableId() const { return m_impl->tables[kVportTable]; }
AcDbObjectId AcDbDatabase::regAppTableId() const { return m_impl->tables[kAppidTable]; }
AcDbObjectId AcDbDatabase::dimStyleTableId() const { return m_impl->tables[kDimStyleTable]; }
AcDbObjectId AcDbDatabase::namedObjectsDictionaryId() const { return m_impl->nod; }
AcDbObjectId AcDbDatabase::modelSpaceId() const { return m_impl->modelSpace; }
AcDbObjectId AcDbDatabase::paperSpaceId() const { return m_impl->paperSpace; }

AcDbObjectId AcDbDatabase::groupDictionaryId() const {
    AcDbStub* s = m_impl->nod;
    auto* nod = s && s->object ? AcDbDictionary::cast(s->object) : nullptr;
    const AcDbDictionary::Entry* e = nod ? nod->find("ACAD_GROUP") : nullptr;
    return e ? AcDbObjectId(e->id) : AcDbObjectId();
}

AcDbObjectId AcDbDatabase::currentSpaceId() const { return tilemode() ? m_impl->modelSpace : m_impl->paperSpace; }

#define LUMO_GET_TABLE(METHOD, TYPE, KIND)                                       \
    Acad::ErrorStatus AcDbDatabase::METHOD(TYPE*& table, AcDb::OpenMode mode) {   \
        return acdbOpenObject(table, m_impl->tables[KIND], mode);                 \
    }
LUMO_GET_TABLE(getBlockTable, AcDbBlockTable, kBlockTable)
LUMO_GET_TABLE(getLayerTable, AcDbLayerTable, kLayerTable)
LUMO_GET_TABLE(getTextStyleTable, AcDbTextStyleTable, kStyleTable)
LUMO_GET_TABLE(getLinetypeTable, AcDbLinetypeTable, kLinetypeTable)
LUMO_GET_TABLE(getViewTable, AcDbViewTable, kViewTable)
LUMO_GET_TABLE(getUCSTable, AcDbUCSTable, kUcsTable)
LUMO_GET_TABLE(getViewportTable, AcDbViewportTable, kVportTable)
LUMO_GET_TABLE(getRegAppTable, AcDbRegAppTable, kAppidTable)
LUMO_GET_TABLE(getDimStyleTable, AcDbDimStyleTable, kDimStyleTable)
#undef LUMO_GET_TABLE

Acad::ErrorStatus AcDbDatabase::getNamedObjectsDictionary(AcDbDictionary*& dict, AcDb::OpenMode mode) {
    return acdbOpenObject(dict, m_impl->nod, mode);
}

Acad::ErrorStatus AcDbDatabase::getGroupDictionary(AcDbDictionary*& dict, AcDb::OpenMode mode) {
    return acdbOpenObject(dict, groupDictionaryId(), mode);
}

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObjectId& id, AcDbObject* object) {
    if (!object) return Acad::eNullObjectPointer;
    if (object->stub()) return Acad::eAlreadyInDb;
    AcDbStub* s = m_impl->Add(object, AcDbObjectId());
    m_impl->objects.push_back(s);
    object->openFor(AcDb::kForWrite);
    id = s;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObject* object) {
    AcDbObjectId id;
    return addAcDbObject(id, object);
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound,
                                                const AcDbHandle& handle, uint32_t) {
    id = m_impl->StubFor(handle.value(), createIfNotFound);
    return id.isNull() ? Acad::eUnknownHandle : Acad::eOk;
}

AcDbObjectId AcDbDatabase::clayer() const {
    AcDbObjectId id = m_impl->FindRecord(kLayerTable, m_impl->VarText("$CLAYER", "0"));
    return id.isNull() ? m_impl->FindRecord(kLayerTable, "0") : id;
}

Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId layer) {
    auto* table = m_impl->Table(kLayerTable);
    if (!table || !table->has(layer) || layer.isErased()) return Acad::eInvalidInput;
    m_impl->SetVar("$CLAYER", {OwnedTag::Text(8, Impl::RecordName(layer))});
    return Acad::eOk;
}

AcDbObjectId AcDbDatabase::celtype() const {
    AcDbObjectId id = m_impl->FindRecord(kLinetypeTable, m_impl->VarText("$CELTYPE", "BYLAYER"));
    return id.isNull() ? m_impl->FindRecord(kLinetypeTable, "BYLAYER") : id;
}

AcDbObjectId AcDbDatabase::textstyle() const {
    AcDbObjectId id = m_impl->FindRecord(kStyleTable, m_impl->VarText("$TEXTSTYLE", "STANDARD"));
    return id.isNull() ? m_impl->FindRecord(kStyleTable, "STANDARD") : id;
}

double AcDbDatabase::ltscale() const { return m_impl->VarReal("$LTSCALE", 1.0); }
double AcDbDatabase::textsize() const { return m_impl->VarReal("$TEXTSIZE", 2.5); }
double AcDbDatabase::thickness() const { return m_impl->VarReal("$THICKNESS", 0.0); }
AcDbHandle AcDbDatabase::handseed() const { return AcDbHandle(m_impl->nextHandle); }
int AcDbDatabase::tilemode() const { return m_impl->VarInt("$TILEMODE", 1); }
Acad::ErrorStatus AcDbDatabase::setTilemode(bool model) {
    m_impl->SetVar("$TILEMODE", {OwnedTag::Int(70, model ? 1 : 0)});
    return Acad::eOk;
}
AcGePoint3d AcDbDatabase::ucsorg() const { return m_impl->VarPoint("$UCSORG", AcGePoint3d(0, 0, 0)); }
AcGeVector3d AcDbDatabase::ucsxdir() const {
    AcGePoint3d p = m_impl->VarPoint("$UCSXDIR", AcGePoint3d(1, 0, 0));
    return {p.x, p.y, p.z};
}
AcGeVector3d AcDbDatabase::ucsydir() const {
    AcGePoint3d p = m_impl->VarPoint("$UCSYDIR", AcGePoint3d(0, 1, 0));
    return {p.x, p.y, p.z};
}
AcGePoint3d AcDbDatabase::extmin() const { return m_impl->VarPoint("$EXTMIN", AcGePoint3d(1e20, 1e20, 1e20)); }
AcGePoint3d AcDbDatabase::extmax() const { return m_impl->VarPoint("$EXTMAX", AcGePoint3d(-1e20, -1e20, -1e20)); }

const char* AcDbDatabase::originalFileName() const { return m_impl->fileName.c_str(); }

// ---------------------------------------------------------------------------

namespace {
AcDbDatabase* g_working = nullptr;
bool g_owned = false;
}  // namespace

AcDbDatabase* AcDbHostApplicationServices::workingDatabase() const {
    if (!g_working) {
        g_working = new AcDbDatabase(true);
        g_owned = true;
    }
    return g_working;
}

void AcDbHostApplicationServices::setWorkingDatabase(AcDbDatabase* db) {
    if (db == g_working) return;
    if (g_owned) delete g_working;
    g_working = db;
    g_owned = false;
}

AcDbHostApplicationServices* acdbHostApplicationServices() {
    static AcDbHostApplicationServices services;
    return &services;
}

namespace lumo::db {

void AdoptSessionDatabase(AcDbDatabase* db) {
    if (db == g_working) return;
    if (g_owned) delete g_working;
    g_working = db;
    g_owned = db != nullptr;
}

void CloseSessionDatabase() { AdoptSessionDatabase(nullptr); }

}  // namespace lumo::db
