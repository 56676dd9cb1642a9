// The ADS calls on symbol tables, registered applications and dictionaries.
#include <algorithm>
#include <cstring>

#include "host/db/ads_support.h"
#include "host/db/extras.h"
#include "host/db/record.h"
#include "host/db/resbuf_sink.h"
#include "platform/acdbads.h"
#include "platform/dbdict.h"

using namespace lumo::db;

namespace {

bool Alive(const AcDbStub* s) { return s && s->object && !s->object->isErased(); }

AcDbSymbolTable* TableNamed(const char* name, TableKind& kind) {
    if (!name || !TableFromListName(name, kind) || SameName(name, "BLOCK_RECORD")) return nullptr;
    return WorkingDb()->impl().Table(kind);
}

// tblnext walks the blocks a user made, not the spaces and layouts.
bool Listed(TableKind kind, AcDbStub* s) {
    if (!Alive(s)) return false;
    if (kind != kBlockTable) return true;
    return !static_cast<AcDbBlockTableRecord*>(s->object)->isLayout();
}

// A BLOCK entry as tblsearch gives it: the definition's header and its
// first entity under -2.
resbuf* BlockEntry(const AcDbBlockTableRecord& block) {
    ResbufSink sink(Flavor::Table);
    AcDbStub* b = block.blockBegin();
    const AcDbBlockBegin::Data* d = b && b->object ? &static_cast<AcDbBlockBegin*>(b->object)->data() : nullptr;
    sink.Text(0, "BLOCK");
    sink.Text(2, block.name());
    sink.Int(70, d ? d->flags : 0);
    AcGePoint3d base = block.origin();
    sink.Point(10, &base.x, 3);
    if (d && !d->xrefPath.empty()) sink.Text(1, d->xrefPath);
    for (AcDbStub* s : block.entities()) {
        if (Alive(s)) {
            sink.Ref(-2, s);
            break;
        }
    }
    return sink.Take();
}

resbuf* TableEntry(AcDbStub* s) {
    if (auto* block = AcDbBlockTableRecord::cast(s->object)) return BlockEntry(*block);
    ResbufSink sink(Flavor::Table);
    WriteRecord(*s->object, sink);
    return sink.Take();
}

size_t Index(const std::vector<AcDbStub*>& v, AcDbStub* s) {
    return static_cast<size_t>(std::find(v.begin(), v.end(), s) - v.begin());
}

AcDbDictionary* DictOf(const ads_name name) {
    AcDbObject* obj = LiveObject(name);
    return obj ? AcDbDictionary::cast(obj) : nullptr;
}

size_t& DictCursor(AcDbStub* dict) {
    auto& cursors = WorkingDb()->impl().ads.dictCursor;
    for (auto& c : cursors)
        if (c.first == dict) return c.second;
    cursors.push_back({dict, 0});
    return cursors.back().second;
}

resbuf* EntryList(AcDbStub* s) { return EntityList(*s->object, nullptr, 0); }

}  // namespace

resbuf* acdbTblSearch(const char* tblname, const char* sym, int setnext) {
    TableKind kind;
    AcDbSymbolTable* table = TableNamed(tblname, kind);
    if (!table || !sym) return nullptr;
    AcDbStub* s = table->find(sym);
    if (!s) return nullptr;
    if (setnext) WorkingDb()->impl().ads.tableCursor[kind] = static_cast<int>(Index(table->records(), s));
    return TableEntry(s);
}

resbuf* acdbTblNext(const char* tblname, int rewind) {
    TableKind kind;
    AcDbSymbolTable* table = TableNamed(tblname, kind);
    if (!table) return nullptr;
    int& cursor = WorkingDb()->impl().ads.tableCursor[kind];
    if (rewind) cursor = -1;
    const auto& recs = table->records();
    for (size_t k = static_cast<size_t>(cursor + 1); k < recs.size(); ++k) {
        if (!Listed(kind, recs[k])) continue;
        cursor = static_cast<int>(k);
        return TableEntry(recs[k]);
    }
    cursor = static_cast<int>(recs.size());
    return nullptr;
}

int acdbTblObjName(const char* tblname, const char* sym, ads_name result) {
    result[0] = result[1] = 0;
    TableKind kind;
    AcDbSymbolTable* table = TableNamed(tblname, kind);
    AcDbStub* s = table && sym ? table->find(sym) : nullptr;
    if (!s) return RTERROR;
    NameOf(s, result);
    return RTNORM;
}

int acdbRegApp(const char* appname) {
    if (!appname || acdbSNValid(appname, 0) != RTNORM) return RTREJ;
    auto& impl = WorkingDb()->impl();
    if (!impl.FindRecord(kAppidTable, appname).isNull()) return RTREJ;
    return impl.MakeRecord(kAppidTable, appname).isNull() ? RTREJ : RTNORM;
}

int acdbNamedObjDict(ads_name result) {
    NameOf(WorkingDb()->impl().nod, result);
    return RTNORM;
}

resbuf* acdbDictSearch(const ads_name dict, const char* sym, int setnext) {
    AcDbDictionary* d = DictOf(dict);
    if (!d || !sym) return nullptr;
    const AcDbDictionary::Entry* e = d->find(sym);
    if (!e) return nullptr;
    if (setnext) DictCursor(d->stub()) = static_cast<size_t>(e - d->entries().data()) + 1;
    return EntryList(e->id);
}

resbuf* acdbDictNext(const ads_name dict, int rewind) {
    AcDbDictionary* d = DictOf(dict);
    if (!d) return nullptr;
    size_t& cursor = DictCursor(d->stub());
    if (rewind) cursor = 0;
    const auto& entries = d->entries();
    while (cursor < entries.size()) {
        AcDbStub* s = entries[cursor++].id;
        if (Alive(s)) return EntryList(s);
    }
    return nullptr;
}

int acdbDictAdd(const ads_name dict, const char* sym, const ads_name newobj) {
    AcDbDictionary* d = DictOf(dict);
    AcDbObject* obj = LiveObject(newobj);
    if (!d || !obj || !sym || !*sym || d->find(sym) || AcDbEntity::cast(obj) || obj->database() != d->database())
        return RTERROR;
    AcDbObjectId id;
    if (d->setAt(sym, obj, id) != Acad::eOk) return RTERROR;
    obj->addPersistentReactor(d->objectId());
    return RTNORM;
}

int acdbDictRemove(const ads_name dict, const char* sym) {
    AcDbDictionary* d = DictOf(dict);
    AcDbObjectId id;
    if (!d || !sym || d->remove(sym, id) != Acad::eOk) return RTERROR;
    if (AcDbObject* obj = static_cast<AcDbStub*>(id)->object) obj->removePersistentReactor(d->objectId());
    return RTNORM;
}

int acdbDictRename(const ads_name dict, const char* oldsym, const char* newsym) {
    AcDbDictionary* d = DictOf(dict);
    return d && d->setName(oldsym, newsym) ? RTNORM : RTERROR;
}

int acdbSNValid(const char* tbstr, int pipetest) {
    if (!tbstr || !*tbstr) return RTERROR;
    size_t n = std::strlen(tbstr);
    if (n > 255) return RTERROR;
    for (size_t k = 0; k < n; ++k) {
        unsigned char c = static_cast<unsigned char>(tbstr[k]);
        if (c < 32 || std::strchr("<>/\\\":;?*,=`", c)) return RTERROR;
        if (c == '|' && (!pipetest || k == 0 || k + 1 == n)) return RTERROR;
    }
    return RTNORM;
}

int acdbXdSize(const resbuf* rb, int32_t* result) {
    if (!result) return RTERROR;
    ListTags list;
    if (!ParseList(rb, list)) return RTERROR;
    std::vector<XDataApp> apps;
    for (const Tag& t : list.tags) {
        if (t.code == -3) continue;
        if (t.code == 1001) apps.push_back({std::string(t.s), {}});
        else if (t.code >= 1000 && t.code <= 1071 && !apps.empty()) apps.back().tags.emplace_back(t);
        else return RTERROR;
    }
    *result = static_cast<int32_t>(XDataSize(apps));
    return RTNORM;
}

int acdbXdRoom(const ads_name ent, int32_t* result) {
    AcDbObject* obj = LiveObject(ent);
    if (!obj || !result) return RTERROR;
    size_t used = obj->extras() ? XDataSize(obj->extras()->xdata) : 0;
    *result = static_cast<int32_t>(kXDataLimit - std::min(used, kXDataLimit));
    return RTNORM;
}
