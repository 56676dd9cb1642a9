// The process-wide value stacks and the walks over containers.
//
// A walk keeps no iterator between calls: each call starts a new one and
// steps it to the kept index, so a walk costs the square of the item count
// and survives anything LISP does between two calls.
#include "frame/object_stacks.h"

#include <string>

#include "platform/acutads.h"
#include "platform/dbdict.h"
#include "platform/dbmain.h"
#include "platform/dbsymtb.h"

ValueStacks gValueStacks;

ValueStacks::~ValueStacks() {
    if (sysVars) sysVars->Discard();
    delete sysVars;
}

SysVarStack& ValueStacks::SysVars() {
    if (!sysVars) sysVars = new SysVarStack;
    return *sysVars;
}

void ValueStacks::PopAllSysVars() {
    delete sysVars;
    sysVars = nullptr;
}

void ValueStacks::Clear() {
    objects.RemoveAll();
    containers.RemoveAll();
    PopAllSysVars();
}

bool ObjectStackTop(ads_name out) {
    ADSName* top = gValueStacks.objects.Last();
    if (!top) return false;
    *top > out;
    return true;
}

void EmptyValueStacks() { gValueStacks.Clear(); }

namespace {

// Closes what a test opened; a close that fails leaves the database in a
// state nothing can repair.
void CloseOrAbort(AcDbObject* object) {
    if (object->close() != Acad::eOk) acrx_abort("Failed AcDbObject::close()");
}

AcDbObject* OpenForRead(const ads_name name) {
    AcDbObjectId id;
    if (acdbGetObjectId(id, name) != Acad::eOk) return nullptr;
    AcDbObject* object = nullptr;
    if (acdbOpenAcDbObject(object, id, AcDb::kForRead) != Acad::eOk) return nullptr;
    return object;
}

// Appends `text` and the object's name as the walk's item.
resbuf* MakeItem(const char* text, AcDbObjectId id) {
    ads_name name = {0, 0};
    if (acdbGetAdsName(name, id) != Acad::eOk) return nullptr;
    return acutBuildList(RTSTR, text ? text : "", RTENAME, name, 0);
}

resbuf* TableItem(const AcDbSymbolTable* table, int32_t index) {
    AcDbSymbolTableIterator* it = nullptr;
    if (table->newIterator(it, true, true) != Acad::eOk || !it) return nullptr;
    for (int32_t i = 0; i < index && !it->done(); ++i) it->step(true, true);
    resbuf* item = nullptr;
    AcDbSymbolTableRecord* record = nullptr;
    if (!it->done() && it->getRecord(record, AcDb::kForRead) == Acad::eOk) {
        const char* text = nullptr;
        record->getName(text);
        std::string name = text ? text : "";
        AcDbObjectId id = record->objectId();
        CloseOrAbort(record);
        item = MakeItem(name.c_str(), id);
    }
    delete it;
    return item;
}

resbuf* DictionaryItem(const AcDbDictionary* dict, int32_t index) {
    AcDbDictionaryIterator* it = dict->newIterator(AcRx::kDictSorted);
    if (!it) return nullptr;
    // an entry without an object ends the walk, wherever it stands
    for (int32_t i = 0; i < index && !it->done() && !it->objectId().isNull(); ++i) it->next();
    resbuf* item = nullptr;
    if (!it->done() && !it->objectId().isNull()) item = MakeItem(it->name(), it->objectId());
    delete it;
    return item;
}

// The class name of an entity, as the items of groups and blocks show it.
std::string ClassNameOf(AcDbObjectId id) {
    AcDbObject* object = nullptr;
    if (acdbOpenAcDbObject(object, id, AcDb::kForRead) != Acad::eOk) return "";
    std::string name = object->isA()->name();
    CloseOrAbort(object);
    return name;
}

resbuf* GroupItem(AcDbGroup* group, int32_t index) {
    AcDbGroupIterator* it = group->newIterator();
    if (!it) return nullptr;
    for (int32_t i = 0; i < index && !it->done(); ++i) it->next();
    resbuf* item = nullptr;
    if (!it->done()) item = MakeItem(ClassNameOf(it->objectId()).c_str(), it->objectId());
    delete it;
    return item;
}

resbuf* BlockItem(const AcDbBlockTableRecord* block, int32_t index) {
    AcDbBlockTableRecordIterator* it = nullptr;
    if (block->newIterator(it, true, true) != Acad::eOk || !it) return nullptr;
    for (int32_t i = 0; i < index && !it->done(); ++i) it->step(true, true);
    resbuf* item = nullptr;
    AcDbObjectId id;
    if (!it->done() && it->getEntityId(id) == Acad::eOk) item = MakeItem(ClassNameOf(id).c_str(), id);
    delete it;
    return item;
}

bool IsSymbolTableClass(const AcRxClass* cls) {
    return cls == AcDbLayerTable::desc() || cls == AcDbBlockTable::desc() || cls == AcDbUCSTable::desc() ||
           cls == AcDbRegAppTable::desc() || cls == AcDbDimStyleTable::desc() ||
           cls == AcDbTextStyleTable::desc() || cls == AcDbViewTable::desc() ||
           cls == AcDbViewportTable::desc() || cls == AcDbLinetypeTable::desc();
}

}  // namespace

bool IsDatabaseObject(const ads_name name) {
    AcDbObject* object = OpenForRead(name);
    if (!object) return false;
    bool yes = AcDbObject::cast(object) != nullptr;
    CloseOrAbort(object);
    return yes;
}

bool IsContainer(const ads_name name) {
    AcDbObject* object = OpenForRead(name);
    if (!object) return false;
    bool yes = AcDbObject::cast(object) &&
               (object->isKindOf(AcDbSymbolTable::desc()) || object->isKindOf(AcDbDictionary::desc()) ||
                object->isKindOf(AcDbXrecord::desc()) || object->isKindOf(AcDbBlockTableRecord::desc()));
    CloseOrAbort(object);
    return yes;
}

resbuf* ContainerItem(const ContainerEntry& entry) {
    AcDbObject* object = OpenForRead(entry.name);
    if (!object) return nullptr;
    const AcRxClass* cls = object->isA();
    resbuf* item = nullptr;
    if (IsSymbolTableClass(cls)) item = TableItem(static_cast<AcDbSymbolTable*>(object), entry.next);
    else if (cls == AcDbDictionary::desc()) item = DictionaryItem(static_cast<AcDbDictionary*>(object), entry.next);
    else if (cls == AcDbGroup::desc()) item = GroupItem(static_cast<AcDbGroup*>(object), entry.next);
    else if (cls == AcDbBlockTableRecord::desc())
        item = BlockItem(static_cast<AcDbBlockTableRecord*>(object), entry.next);
    CloseOrAbort(object);
    return item;
}
