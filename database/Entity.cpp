// Entity: names, the DXF list, making and matching entities.
#include "database/Entity.h"

#include <cstdarg>
#include <cstdio>

#include "database/PickSet.h"
#include "frame/ApplicationError.h"
#include "frame/TypeOfCode.h"
#include "frame/frame_state.h"
#include "platform/acdbads.h"
#include "platform/acedads.h"
#include "platform/acedgr.h"
#include "platform/acedss.h"
#include "platform/acutads.h"
#include "platform/crt.h"
#include "platform/dbmain.h"

const char* Entity::appName = gXdataAppName;

Entity::Entity(const int32_t* entity) { NewName(entity); }

Entity::Entity(const char* handle) { Handent(handle); }

Entity::Entity(const Entity& other) { NewName(other.name); }

Entity& Entity::operator=(const int32_t* entity) {
    NewName(entity);
    return *this;
}

Entity& Entity::operator=(const Entity& other) {
    if (this != &other) NewName(other.name);
    return *this;
}

void Entity::NewName(const int32_t* entity) {
    FreeGroups();
    name[0] = entity ? entity[0] : 0;
    name[1] = entity ? entity[1] : 0;
}

void Entity::FreeGroups() {
    groups.FreeGroups();
    exGroups = nullptr;
}

int Entity::UserSelect(const char* prompt, double* pickPoint) {
    FreeGroups();
    return acedEntSel(prompt, name, pickPoint);
}

int Entity::UserSelect(const char* prompt) {
    ads_point pick;
    return UserSelect(prompt, pick);
}

int Entity::Handent(const char* handle) {
    FreeGroups();
    return acdbHandEnt(handle, name);
}

int Entity::GetLast() {
    FreeGroups();
    return acdbEntLast(name);
}

int Entity::GetNext() {
    FreeGroups();
    ads_name from = {name[0], name[1]};
    return acdbEntNext(!*this ? nullptr : from, name);
}

int Entity::GetNext(const Entity& after) {
    FreeGroups();
    return acdbEntNext(!after ? nullptr : after.name, name);
}

int Entity::_GetGroups() {
    FreeGroups();
    resbuf* list = acdbEntGet(name);
    if (!list) return RTERROR;
    groups.Append(list);
    return RTNORM;
}

int Entity::GetGroups(int withApp) {
    FreeGroups();
    if (!withApp || !appName) return _GetGroups();
    resbuf apps;
    apps.rbnext = nullptr;
    apps.restype = RTSTR;
    apps.resval.rstring = const_cast<char*>(appName);
    resbuf* list = acdbEntGetX(name, &apps);
    if (!list) return RTERROR;
    groups.Append(list);
    return _MakeExGroups();
}

int Entity::GetGroups(const char* app) {
    const char* own = appName;
    appName = app;
    GetGroups(1);
    appName = own;
    return exGroups ? RTNORM : RTERROR;
}

int Entity::GetData(int code, void* out) {
    if (!groups && _GetGroups() != RTNORM) return RTERROR;
    return groups.GetData(code, out);
}

int Entity::SetData(int code, ...) {
    if (!groups && _GetGroups() != RTNORM) return RTERROR;
    va_list ap;
    va_start(ap, code);
    int status;
    switch (TypeOfCode(code)) {
    case RTENAME:
    case RTPICKS:
    case RTPOINT:
    case RT3DPOINT:
        status = groups.SetData(code, va_arg(ap, const void*));
        break;
    case RTSTR:
        status = groups.SetData(code, va_arg(ap, const char*));
        break;
    case RTSHORT:
        status = groups.SetData(code, va_arg(ap, int));
        break;
    case RTREAL:
    case RTANG:
    case RTORINT:
        status = groups.SetData(code, va_arg(ap, double));
        break;
    case RTLONG:
        status = groups.SetData(code, va_arg(ap, int32_t));
        break;
    default:  // RTNONE and the rest: the list reports it
        status = groups.SetData(code);
        break;
    }
    va_end(ap);
    return status;
}

int Entity::Modify() { return acdbEntMod(groups.Head()); }

int Entity::Make() {
    if (!groups) GetGroups(0);
    if (!groups) {
        ApplicationError("\nError in Entity::Make().\nZero groups.\n");
        return RTERROR;
    }
    return acdbEntMake(groups.Head());
}

namespace {

// The node of the first pair, read by the code's type; null (with the
// list's report) for a code a list can't hold.
Groups* FirstPair(int code, va_list ap) {
    bool known = code == RTDXF0 || (code >= -4 && code <= 1071);
    switch (known ? TypeOfCode(code == RTDXF0 ? 0 : code) : RTNONE) {
    case RTENAME:
    case RTPICKS:
    case RTPOINT:
    case RT3DPOINT: return RBList(code, va_arg(ap, const void*), 0).Release();
    case RTSTR: return RBList(code, va_arg(ap, const char*), 0).Release();
    case RTSHORT: return RBList(code, va_arg(ap, int), 0).Release();
    case RTREAL:
    case RTANG:
    case RTORINT: return RBList(code, va_arg(ap, double), 0).Release();
    case RTLONG: return RBList(code, va_arg(ap, int32_t), 0).Release();
    default: return RBList(code, 0).Release();
    }
}

// The list of pairs of code and value ended by 0, the first code given
// apart. A bad code anywhere leaves the list empty.
void BuildPairs(RBList& out, int code, va_list ap) {
    out.FreeGroups();
    if (code == 0) return;
    Groups* first = FirstPair(code, ap);
    if (!first) return;
    out.Append(first);
    out.BuildList(ap);
}

}  // namespace

int Entity::MakeFromPairs(int code, va_list ap) {
    BuildPairs(groups, code, ap);
    int status = !groups ? RTERROR : acdbEntMake(groups.Head());
    FreeGroups();
    if (status == RTNORM) status = acdbEntLast(name);
    if (status != RTNORM) {
        acutPrintf("\nEntity::Make(...) Error!");
        return RTERROR;
    }
    return RTNORM;
}

int Entity::Make(int code, ...) {
    va_list ap;
    va_start(ap, code);
    int status = MakeFromPairs(code, ap);
    va_end(ap);
    return status;
}

int Entity::MakeEx(int code, ...) {
    va_list ap;
    va_start(ap, code);
    int status = MakeFromPairs(code, ap);
    va_end(ap);
    return status == RTNORM ? GetGroups(1) : status;
}

int MakeEntity(int code, ...) {
    RBList list;
    va_list ap;
    va_start(ap, code);
    BuildPairs(list, code, ap);
    va_end(ap);
    if (!list) return RTERROR;
    return acdbEntMake(list.Head());
}

bool Entity::Is(const char* type) {
    if (!groups && _GetGroups() != RTNORM) return false;
    Groups* node = groups.SearchNode(0);
    return node && node->resval.rstring && type && _stricmp(node->resval.rstring, type) == 0;
}

int Entity::Delete() { return acdbEntDel(name); }

int Entity::Update() { return acdbEntUpd(name); }

int Entity::Redraw(int mode) { return acedRedraw(name, mode); }

int Entity::Erase() {
    AcDbObjectId id;
    if (acdbGetObjectId(id, name) != Acad::eOk) return RTERROR;
    AcDbObject* object = nullptr;
    if (acdbOpenAcDbObject(object, id, AcDb::kForWrite) != Acad::eOk) return RTERROR;
    if (!AcDbObject::cast(object)) {
        if (object->close() != Acad::eOk) acrx_abort("Failed AcDbObject::close()");
        return RTERROR;
    }
    Acad::ErrorStatus es = object->erase();
    if (object->close() != Acad::eOk) acrx_abort("Failed AcDbObject::close()");
    return es == Acad::eOk ? RTNORM : RTERROR;
}

bool Entity::In(const PickSet& set) const { return acedSSMemb(name, set) == RTNORM; }

bool Entity::MatchBase(const Groups& pattern) {
    if (!groups && GetGroups(0) != RTNORM) return false;
    Groups* node = groups.SearchNode(pattern.restype);
    if (!node) return false;
    if (TypeOfCode(pattern.restype) == RTSTR) {
        return node->resval.rstring && pattern.resval.rstring &&
               acutWcMatch(node->resval.rstring, pattern.resval.rstring) == RTNORM;
    }
    return *node == pattern;
}

bool Entity::MatchBase(const RBList& patterns) {
    for (Groups* p = patterns.Head(); p; p = p->Next())
        if (!MatchBase(*p)) return false;
    return true;
}
