// The ADS calls on entities: entget, entmake, entmod, entdel, entnext ...
//
// A list is checked in full before the drawing changes: entmake builds the
// object apart and adds it only when every group was taken; entmod applies
// the list to a copy first and to the object only when the copy took it.
#include <algorithm>
#include <deque>

#include "host/db/ads_support.h"
#include "host/db/classes.h"
#include "host/db/extras.h"
#include "host/db/record.h"
#include "host/db/resbuf_sink.h"
#include "platform/acdbads.h"
#include "platform/dbdict.h"

using namespace lumo::db;

namespace lumo::db {

AcDbDatabase* WorkingDb() { return acdbHostApplicationServices()->workingDatabase(); }

AcDbObject* LiveObject(const ads_name name) {
    AcDbStub* s = StubFromName(name);
    if (!s || !s->object || !s->database || s->object->isErased()) return nullptr;
    return s->object;
}

bool ParseList(const resbuf* chain, ListTags& out) {
    out.tags.clear();
    out.scratch.clear();
    return TagsFromChain(chain, out.tags, out.scratch);
}

std::string ListType(const ListTags& list) {
    for (size_t k = 0; k < list.tags.size() && k < 3; ++k)
        if (list.tags[k].code == 0 && list.tags[k].kind == ValueKind::Text) return UpperName(list.tags[k].s);
    return {};
}

resbuf* EntityList(const AcDbObject& obj, const char* const* apps, int count) {
    ResbufSink sink(Flavor::Entget);
    WriteRecord(obj, sink, apps, count);
    return sink.Take();
}

}  // namespace lumo::db

namespace {

const Tag* FindTag(const ListTags& list, int code) {
    for (const Tag& t : list.tags)
        if (t.code == code) return &t;
    return nullptr;
}

bool ReadList(AcDbObject& obj, const ListTags& list, bool modify) {
    TagCursor in(list.tags);
    ReadContext ctx;
    ctx.db = WorkingDb();
    ctx.modify = modify;
    return ReadRecord(obj, in, ctx);
}

// What the host refuses beyond the groups themselves.
bool Valid(AcDbObject& obj, const ListTags& list) {
    if (auto* c = AcDbCircle::cast(&obj)) return c->radius() > 0;
    if (auto* a = AcDbArc::cast(&obj)) return a->radius() > 0;
    if (auto* t = AcDbText::cast(&obj)) return t->height() > 0;
    if (auto* e = AcDbEllipse::cast(&obj)) return e->radiusRatio() > 0 && e->radiusRatio() <= 1 && !e->majorAxis().isZeroLength();
    if (auto* p = AcDbPolyline::cast(&obj)) return p->numVerts() > 0;
    if (auto* r = AcDbBlockReference::cast(&obj)) {
        AcGeScale3d s = r->scaleFactors();
        AcDbStub* b = r->blockTableRecord();
        auto* block = b && b->object ? AcDbBlockTableRecord::cast(b->object) : nullptr;
        return s.sx != 0 && s.sy != 0 && s.sz != 0 && block && !block->isLayout();
    }
    // a face or solid given three corners repeats the third
    if (!FindTag(list, 13)) {
        AcGePoint3d p;
        if (auto* f = AcDbFace::cast(&obj); f && f->getVertexAt(2, p) == Acad::eOk) f->setVertexAt(3, p);
        if (auto* t = AcDbTrace::cast(&obj); t && t->getPointAt(2, p) == Acad::eOk) t->setPointAt(3, p);
    }
    return true;
}

// The block of a new entity: paper space when the list says so, else the
// current space.
AcDbBlockTableRecord* SpaceFor(const ListTags& list) {
    AcDbDatabase* db = WorkingDb();
    const Tag* space = FindTag(list, 67);
    AcDbObjectId id = space ? (space->i ? db->paperSpaceId() : db->modelSpaceId()) : db->currentSpaceId();
    return AcDbBlockTableRecord::cast(static_cast<AcDbStub*>(id)->object);
}

void AddParts(AcDbDatabase::Impl& impl, AcDbEntity* owner, std::vector<AcDbEntity*>& parts, AcDbEntity* seqend) {
    lumo::db::ComplexParts* cp = owner->complexParts();
    for (AcDbEntity* p : parts) cp->subents.push_back(impl.Add(p, owner->objectId()));
    parts.clear();
    if (!seqend) {
        seqend = new AcDbSequenceEnd;
        seqend->setPropertiesFrom(owner);
    }
    cp->seqend = impl.Add(seqend, owner->objectId());
}

// Puts a finished entity where it goes: into the block being defined, or
// into the drawing.
AcDbStub* Commit(AcDbEntity* e, std::vector<AcDbEntity*> parts, AcDbEntity* seqend, const ListTags& list) {
    auto& impl = WorkingDb()->impl();
    if (impl.ads.block) {
        if (!parts.empty() || seqend) {
            // held with its parts: the parts follow it in the list
            impl.ads.blockEntities.push_back(e);
            for (AcDbEntity* p : parts) impl.ads.blockEntities.push_back(p);
            impl.ads.blockEntities.push_back(seqend ? seqend : new AcDbSequenceEnd);
        } else {
            impl.ads.blockEntities.push_back(e);
        }
        return nullptr;
    }
    AcDbBlockTableRecord* space = SpaceFor(list);
    AcDbStub* s = impl.Add(e, space->objectId());
    impl.PlaceEntity(s, space);
    if (e->complexParts() && (!parts.empty() || seqend || !AcDbBlockReference::cast(e))) AddParts(impl, e, parts, seqend);
    return s;
}

AcDbStub* EndBlock(const ListTags& list, bool& ok) {
    ok = false;
    AcDbDatabase* db = WorkingDb();
    auto& impl = db->impl();
    auto& ads = impl.ads;
    auto* end = new AcDbBlockEnd;
    end->setDatabaseDefaults(db);
    if (!ReadList(*end, list, false)) {
        delete end;
        return nullptr;
    }
    AcDbBlockBegin* begin = ads.block;
    std::string name = begin->data().name;
    if (name.empty() || name[0] == '*') {
        // anonymous: the host numbers it
        char letter = name.size() > 1 ? name[1] : 'U';
        for (int n = 1;; ++n) {
            std::string candidate = std::string("*") + letter + std::to_string(n);
            if (impl.FindRecord(kBlockTable, candidate).isNull()) {
                name = candidate;
                break;
            }
        }
        begin->data().flags |= 1;
    }
    auto* block = new AcDbBlockTableRecord;
    block->setName(name.c_str());
    AcDbStub* bs = impl.AddRecord(impl.Table(kBlockTable), block, 0, false);
    begin->data().name = name;
    block->setBlockBegin(impl.Add(begin, bs));
    block->setBlockEnd(impl.Add(end, bs));
    ads.block = nullptr;
    // entities, each complex one followed by its parts and SEQEND
    AcDbEntity* owner = nullptr;
    for (AcDbEntity* e : ads.blockEntities) {
        if (owner && (AcDbVertex::cast(e) || AcDbAttribute::cast(e))) {
            owner->complexParts()->subents.push_back(impl.Add(e, owner->objectId()));
            continue;
        }
        if (owner && AcDbSequenceEnd::cast(e)) {
            owner->complexParts()->seqend = impl.Add(e, owner->objectId());
            owner = nullptr;
            continue;
        }
        impl.PlaceEntity(impl.Add(e, bs), block);
        owner = e->complexParts() ? e : nullptr;
    }
    ads.blockEntities.clear();
    ads.lastBlock = name;
    ok = true;
    return bs;
}

bool IsRecordType(const std::string& type, TableKind& kind) {
    return type != "BLOCK" && type != "BLOCK_RECORD" && TableFromListName(type, kind);
}

// Makes what a list describes. `pending` tells that the list was taken but
// waits for more (a POLYLINE before its SEQEND).
AcDbStub* Make(const resbuf* chain, bool& ok, bool& pending) {
    ok = pending = false;
    AcDbDatabase* db = WorkingDb();
    auto& impl = db->impl();
    auto& ads = impl.ads;
    ListTags list;
    if (!ParseList(chain, list)) return nullptr;
    std::string type = ListType(list);
    if (type.empty()) return nullptr;

    if (type == "VERTEX" || type == "ATTRIB") {
        bool fits = ads.complex && (type == "VERTEX" ? !AcDbBlockReference::cast(ads.complex)
                                                     : AcDbBlockReference::cast(ads.complex) != nullptr);
        if (!fits) return nullptr;
        AcDbObject* obj = NewObjectForDxf(type, list.tags, Where::List, ads.complex);
        auto* e = AcDbEntity::cast(obj);
        e->setPropertiesFrom(ads.complex);
        if (!ReadList(*e, list, false) || !HasRequired(*e) || !Valid(*e, list)) {
            delete e;
            return nullptr;
        }
        ads.parts.push_back(e);
        ok = pending = true;
        return nullptr;
    }
    if (type == "SEQEND") {
        if (!ads.complex) return nullptr;
        auto* end = new AcDbSequenceEnd;
        end->setPropertiesFrom(ads.complex);
        if (!ReadList(*end, list, false)) {
            delete end;
            return nullptr;
        }
        AcDbEntity* e = ads.complex;
        std::vector<AcDbEntity*> parts = std::move(ads.parts);
        ads.complex = nullptr;
        ads.parts.clear();
        ok = true;
        return Commit(e, std::move(parts), end, list);
    }
    ads.DropComplex();   // anything else ends an unfinished complex entity
    if (type == "BLOCK") {
        if (ads.block) return nullptr;   // definitions don't nest
        auto* begin = new AcDbBlockBegin;
        begin->setDatabaseDefaults(db);
        const Tag* name = FindTag(list, 2);
        if (!ReadList(*begin, list, false) || !name ||
            (!begin->data().name.empty() && begin->data().name[0] != '*' &&
             (acdbSNValid(begin->data().name.c_str(), 0) != RTNORM ||
              !impl.FindRecord(kBlockTable, begin->data().name).isNull()))) {
            delete begin;
            return nullptr;
        }
        ads.block = begin;
        ok = pending = true;
        return nullptr;
    }
    if (type == "ENDBLK") {
        if (!ads.block) return nullptr;
        return EndBlock(list, ok);
    }
    TableKind kind;
    if (IsRecordType(type, kind)) {
        AcDbObject* obj = NewObjectForDxf(type, list.tags, Where::List);
        auto* rec = AcDbSymbolTableRecord::cast(obj);
        if (!rec || !ReadList(*rec, list, false) || acdbSNValid(rec->name().c_str(), 0) != RTNORM ||
            !impl.FindRecord(kind, rec->name()).isNull()) {
            delete obj;
            return nullptr;
        }
        ok = true;
        return impl.AddRecord(impl.Table(kind), rec);
    }
    AcDbObject* obj = NewObjectForDxf(type, list.tags, Where::List);
    if (!obj) return nullptr;
    auto* e = AcDbEntity::cast(obj);
    if (!e) {
        // a dictionary, xrecord or group, owned by no one until dictadd
        TagCursor in(list.tags);
        ReadContext ctx;
        ctx.db = db;
        if (!ReadRecord(*obj, in, ctx) || !HasRequired(*obj)) {
            delete obj;
            return nullptr;
        }
        AcDbObjectId owner = ctx.owner && ctx.owner->object && ctx.owner->database == db ? ctx.owner : nullptr;
        AcDbStub* s = impl.Add(obj, owner);
        impl.objects.push_back(s);
        ok = true;
        return s;
    }
    if (AcDbBlockBegin::cast(e) || AcDbBlockEnd::cast(e) || AcDbSequenceEnd::cast(e)) {
        delete e;
        return nullptr;
    }
    e->setDatabaseDefaults(db);
    if (!ReadList(*e, list, false) || !HasRequired(*e) || !Valid(*e, list)) {
        delete e;
        return nullptr;
    }
    bool complex = e->complexParts() && (!AcDbBlockReference::cast(e) || (FindTag(list, 66) && FindTag(list, 66)->i == 1));
    if (complex) {
        ads.complex = e;
        ok = pending = true;
        return nullptr;
    }
    ok = true;
    return Commit(e, {}, nullptr, list);
}

}  // namespace

void AdsState::DropComplex() {
    delete complex;
    complex = nullptr;
    for (AcDbEntity* e : parts) delete e;
    parts.clear();
}

void AdsState::DropBlock() {
    delete block;
    block = nullptr;
    for (AcDbEntity* e : blockEntities) delete e;
    blockEntities.clear();
}

// ---------------------------------------------------------------------------

resbuf* acdbEntGetX(const ads_name ent, const resbuf* apps) {
    AcDbObject* obj = LiveObject(ent);
    if (!obj) return nullptr;
    std::vector<const char*> names;
    for (const resbuf* rb = apps; rb; rb = rb->rbnext)
        if (rb->restype == RTSTR && rb->resval.rstring) names.push_back(rb->resval.rstring);
    return EntityList(*obj, names.data(), static_cast<int>(names.size()));
}

resbuf* acdbEntGet(const ads_name ent) { return acdbEntGetX(ent, nullptr); }

int acdbEntMake(const resbuf* ent) {
    bool ok, pending;
    Make(ent, ok, pending);
    return ok ? RTNORM : RTREJ;
}

int acdbEntMakeX(const resbuf* ent, ads_name result) {
    result[0] = result[1] = 0;
    bool ok, pending;
    AcDbStub* s = Make(ent, ok, pending);
    if (!ok) return RTREJ;
    if (s) NameOf(s, result);
    return RTNORM;
}

int acdbEntMod(const resbuf* ent) {
    ListTags list;
    if (!ParseList(ent, list)) return RTREJ;
    const Tag* self = FindTag(list, -1);
    AcDbStub* stub = self ? self->ref : nullptr;
    AcDbObject* obj = stub && stub->database == WorkingDb() && stub->object && !stub->object->isErased() ? stub->object : nullptr;
    if (!obj || (obj->isOpen() && obj->isWriteEnabled())) return RTREJ;   // a caller holds it open
    std::string type = ListType(list);
    if (!type.empty() && !SameName(type, DxfNameOf(*obj, Flavor::Entget))) return RTREJ;
    // Try the list on a copy first: a list the host refuses changes nothing.
    AcDbObject* copy = NewObjectLike(*obj);
    bool ok = copy && CopyRecord(*obj, *copy) && ReadList(*copy, list, true) && Valid(*copy, list);
    auto* rec = AcDbSymbolTableRecord::cast(obj);
    std::string oldName = rec ? rec->name() : std::string();
    if (ok && rec) {
        const std::string& newName = static_cast<AcDbSymbolTableRecord*>(copy)->name();
        auto* table = AcDbSymbolTable::cast(static_cast<AcDbStub*>(rec->ownerId())->object);
        AcDbStub* other = table ? table->find(newName) : nullptr;
        ok = acdbSNValid(newName.c_str(), 0) == RTNORM && (!other || other == stub) &&
             (SameName(newName, oldName) || rec->isRenamable());
    }
    delete copy;
    if (!ok) return RTREJ;
    ReadList(*obj, list, true);
    if (rec && rec->name() != oldName)
        if (auto* table = AcDbSymbolTable::cast(static_cast<AcDbStub*>(rec->ownerId())->object)) table->rename(stub, oldName);
    if (auto* e = AcDbEntity::cast(obj)) {
        // an entity stays in its space, whatever 67 said
        auto& impl = WorkingDb()->impl();
        if (impl.IsSpace(e->ownerId()))
            static_cast<AcDbEntity::Common*>(e->dxfData(0))->paperSpace = e->ownerId() == impl.paperSpace ? 1 : 0;
    }
    return RTNORM;
}

int acdbEntUpd(const ads_name ent) { return AcDbEntity::cast(LiveObject(ent)) ? RTNORM : RTERROR; }

int acdbEntDel(const ads_name ent) {
    AcDbStub* s = StubFromName(ent);
    if (!s || !s->object || s->database != WorkingDb()) return RTERROR;
    auto* e = AcDbEntity::cast(s->object);
    // only whole entities: not vertices, attributes or what frames a block
    if (!e || AcDbVertex::cast(e) || AcDbAttribute::cast(e) || AcDbSequenceEnd::cast(e) || AcDbBlockBegin::cast(e) ||
        AcDbBlockEnd::cast(e) || e->isOpen())
        return RTERROR;
    e->setErasedFlag(!e->isErased());
    return RTNORM;
}

namespace {

// The list of the space or block an entity is in, or null.
const std::vector<AcDbStub*>* ListOf(AcDbStub* s) {
    auto& impl = s->database->impl();
    AcDbStub* owner = s->object->ownerId();
    if (impl.IsSpace(owner)) return &impl.entities;
    auto* block = owner && owner->object ? AcDbBlockTableRecord::cast(owner->object) : nullptr;
    return block ? &block->entities() : nullptr;
}

bool Alive(const AcDbStub* s) { return s && s->object && !s->object->isErased(); }

AcDbStub* NextInList(const std::vector<AcDbStub*>& list, size_t from) {
    for (size_t k = from; k < list.size(); ++k)
        if (Alive(list[k])) return list[k];
    return nullptr;
}

// After an entity of a space or block: its parts, else the next entity.
AcDbStub* After(AcDbStub* s) {
    auto* e = AcDbEntity::cast(s->object);
    if (auto* parts = e ? e->complexParts() : nullptr) {
        for (AcDbStub* p : parts->subents)
            if (Alive(p)) return p;
        if (Alive(parts->seqend) && !AcDbBlockReference::cast(e)) return parts->seqend;
    }
    const auto* list = ListOf(s);
    return list && s->order ? NextInList(*list, s->order) : nullptr;
}

}  // namespace

int acdbEntNext(const ads_name given, ads_name result) {
    // Callers walk with one name for both (entnext(e, e)): read it first.
    ads_name ent = {0, 0};
    if (given) {
        ent[0] = given[0];
        ent[1] = given[1];
    }
    result[0] = result[1] = 0;
    AcDbStub* next = nullptr;
    if (ent[0] == 0 && ent[1] == 0) {
        next = NextInList(WorkingDb()->impl().entities, 0);
    } else {
        AcDbStub* s = StubFromName(ent);
        if (!s || !s->object || s->database != WorkingDb() || !AcDbEntity::cast(s->object)) return RTERROR;
        AcDbStub* owner = s->object->ownerId();
        auto* parent = owner && owner->object ? AcDbEntity::cast(owner->object) : nullptr;
        lumo::db::ComplexParts* parts = parent ? parent->complexParts() : nullptr;
        if (parts) {
            // a vertex, attribute or SEQEND: the next part, the SEQEND, then past the parent
            auto it = std::find(parts->subents.begin(), parts->subents.end(), s);
            if (it != parts->subents.end()) {
                for (++it; it != parts->subents.end() && !next; ++it)
                    if (Alive(*it)) next = *it;
                if (!next && Alive(parts->seqend)) next = parts->seqend;
            } else {
                const auto* list = ListOf(owner);
                next = list ? NextInList(*list, owner->order) : nullptr;
            }
        } else {
            next = After(s);
        }
    }
    if (!next) return RTERROR;
    NameOf(next, result);
    return RTNORM;
}

int acdbEntLast(ads_name result) {
    result[0] = result[1] = 0;
    const auto& list = WorkingDb()->impl().entities;
    for (auto it = list.rbegin(); it != list.rend(); ++it) {
        if (Alive(*it)) {
            NameOf(*it, result);
            return RTNORM;
        }
    }
    return RTERROR;
}

int acdbHandEnt(const char* handle, ads_name result) {
    result[0] = result[1] = 0;
    if (!handle || !*handle) return RTERROR;
    AcDbHandle h(handle);
    AcDbStub* s = h.isNull() ? nullptr : WorkingDb()->impl().StubFor(h.value(), false);
    if (!s || !s->object) return RTERROR;
    NameOf(s, result);
    return RTNORM;
}
