#include "database/PickSet.h"

#include <algorithm>
#include <cstring>

#include "database/DragPickSet.h"
#include "database/block_making.h"
#include "database/box_measures.h"
#include "frame/ApplicationError.h"
#include "frame/RBList.h"
#include "kernel/XPoint.h"
#include "platform/dbents.h"
#include "platform/dbmain.h"
#include "platform/acdbads.h"
#include "platform/acedads.h"
#include "platform/acedgr.h"
#include "platform/acedss.h"
#include "platform/acutads.h"

PickSet::PickSet(int f) : flags(static_cast<uint8_t>(f)) {
    if (f & kCreateEmpty) CreateEmpty();
}

PickSet::PickSet(const int32_t* n) {
    if (n) name[0] = n[0], name[1] = n[1];
}

// Two objects that both think they own one set would free it twice.
void PickSet::WarnIfOwned(const PickSet& other) const {
    if (other.flags & kOwnsSet) acutPrintf("\nDangerous PickSet=!");
}

PickSet::PickSet(const PickSet& other) {
    name[0] = other.name[0];
    name[1] = other.name[1];
    WarnIfOwned(other);
}

PickSet& PickSet::operator=(const int32_t* n) {
    name[0] = n ? n[0] : 0;
    name[1] = n ? n[1] : 0;
    return *this;
}

PickSet& PickSet::operator=(const PickSet& other) {
    if (this == &other) return *this;
    name[0] = other.name[0];
    name[1] = other.name[1];
    WarnIfOwned(other);
    return *this;
}

PickSet::~PickSet() {
    if ((flags & kOwnsSet) && !IsNull()) acedSSFree(name);
    includeMark.FreeGroups();
}

bool PickSet::CreateEmpty() {
    if (acedSSAdd(nullptr, nullptr, name) == RTNORM) return true;
    ApplicationError("\nError in creating selection set.");
    return false;
}

int32_t PickSet::Length() const {
    int32_t n = 0;
    if (IsNull() || acedSSLength(name, &n) != RTNORM) return 0;
    return n;
}

int PickSet::EntityAt(int32_t i, ads_name out) const { return acedSSName(name, i, out); }

int PickSet::Add(const int32_t* entity) {
    if (IsNull() && !CreateEmpty()) return RTERROR;
    return acedSSAdd(entity, name, name);
}

int PickSet::Remove(const int32_t* entity) { return IsNull() ? RTERROR : acedSSDel(entity, name); }

bool PickSet::Contains(const int32_t* entity) const { return !IsNull() && acedSSMemb(entity, name) == RTNORM; }

Entity PickSet::operator[](int32_t i) const {
    ads_name e = {0, 0};
    EntityAt(i, e);
    return Entity(e);
}

int PickSet::operator+=(const AcDbObjectId& id) {
    ads_name e;
    return acdbGetAdsName(e, id) == Acad::eOk ? Add(e) : RTERROR;
}

int PickSet::operator-=(const AcDbObjectId& id) {
    ads_name e;
    return acdbGetAdsName(e, id) == Acad::eOk ? Remove(e) : RTERROR;
}

int PickSet::operator+=(const PickSet& other) {
    if (other.IsNull()) return RTERROR;
    ads_name e;
    for (int32_t i = 0, n = other.Length(); i < n; ++i)
        if (other.EntityAt(i, e) == RTNORM) Add(e);
    return RTNORM;
}

int PickSet::operator-=(const PickSet& other) {
    if (other.IsNull()) return RTERROR;
    ads_name e;
    for (int32_t i = 0, n = other.Length(); i < n; ++i)
        if (other.EntityAt(i, e) == RTNORM) Remove(e);
    return RTNORM;
}

int PickSet::Get(const char* mode, const void* p1, const void* p2) { return Get(mode, p1, p2, nullptr); }

int PickSet::Get(const char* mode, const void* p1, const void* p2, const RBList& filter) {
    return Get(mode, p1, p2, filter.Head());
}

int PickSet::Get(const char* mode, const void* p1, const void* p2, const resbuf* filter) {
    return acedSSGet(mode, p1, p2, filter, name);
}

void PickSet::Free() {
    if (IsNull()) return;
    acedSSFree(name);
    name[0] = name[1] = 0;
}

int PickSet::Transform(ads_matrix matrix) { return acedXformSS(name, matrix); }

int PickSet::XTransform(double m[4][4]) {
    int32_t n = Length();
    if (n == 0) return RTNONE;
    int result = RTNORM;
    for (int32_t i = 0; i < n; ++i)
        if ((*this)[i].XTransform(m) != RTNORM) result = RTERROR;
    return result;
}

int PickSet::Erase() {
    for (int32_t i = 0, n = Length(); i < n; ++i) (*this)[i].Erase();
    return RTNORM;
}

int PickSet::RemoveXData() {
    for (int32_t i = 0, n = Length(); i < n; ++i) (*this)[i].RemoveXData();
    return RTNORM;
}

void PickSet::AsIdArray(AcDbObjectIdArray& ids) const {
    ads_name e;
    for (int32_t i = 0, n = Length(); i < n; ++i) {
        AcDbObjectId id;
        if (EntityAt(i, e) == RTNORM && acdbGetObjectId(id, e) == Acad::eOk) ids.append(id);
    }
}

int PickSet::GetExtend(double* min, double* max) const {
    int32_t n = Length();
    if (n == 0) return RTNONE;
    int result = RTNONE;
    for (int32_t i = 0; i < n; ++i) {
        double lo[3], hi[3];
        int rc = (*this)[i].GetExtend(lo, hi, nullptr);
        if (rc == RTNONE) continue;
        for (int k = 0; k < 3; ++k) {
            min[k] = result == RTNONE ? lo[k] : std::min(min[k], lo[k]);
            max[k] = result == RTNONE ? hi[k] : std::max(max[k], hi[k]);
        }
        if (result == RTNONE) result = RTNORM;
        if (rc == RTERROR) result = RTERROR;
    }
    return result;
}

int PickSet::GetExtend(double* center, double* width, double* height, double* depth) const {
    double min[3], max[3];
    int rc = GetExtend(min, max);
    if (rc != RTNONE) MeasureBox(min, max, center, width, height, depth);
    return rc;
}

template <class Keep>
int PickSet::KeepOnly(Keep keep) {
    PickSet kept(kCreateEmpty);
    for (int32_t i = 0, n = Length(); i < n; ++i) {
        Entity e = (*this)[i];
        if (keep(e)) kept.Add(e);
    }
    Free();
    name[0] = kept.name[0];
    name[1] = kept.name[1];
    return RTNORM;
}

int PickSet::ExFilter(const RBList& tags) {
    return KeepOnly([&tags](Entity& e) { return e.Match(tags); });
}

int PickSet::ExTagFilter(const int* tags, int n) {
    if (n < 1) return RTNORM;
    for (int32_t i = Length() - 1; i >= 0; --i) {
        Entity e = (*this)[i];
        e.GetGroups(1);
        for (int k = 0; k < n; ++k) {
            Groups* tag = e.SearchByTagCode(tags[k]);
            if (!tag || !tag->rbnext) {
                Remove(e);
                break;
            }
        }
    }
    return RTNORM;
}

int PickSet::BaseFilter(RBList& groups) {
    return KeepOnly([&groups](Entity& e) { return e.MatchBase(groups); });
}

int PickSet::BaseExclude(RBList& groups) {
    for (int32_t i = Length() - 1; i >= 0; --i) {
        Entity e = (*this)[i];
        if (e.MatchBase(groups)) Remove(e);
    }
    return RTNORM;
}

int PickSet::Bind(const Entity& host) {
    Entity owner(host.Name());
    char handle[32] = "";
    if (owner.GetData(5, handle) != RTNORM) return RTERROR;
    for (int32_t i = 0, n = Length(); i < n; ++i) {
        Entity e = (*this)[i];
        e.SetString(20000, handle, 1);
        e.Modify();
    }
    return RTNORM;
}

int PickSet::MakeAnonymous(const XPoint& base, char* nameOut, int insert) {
    char block[256] = "";
    if (MakeBlock("*U", *this, base, block) != RTNORM) return RTERROR;
    if (insert) {
        RBList reference(RTDXF0, "INSERT", 2, block, 10, static_cast<const double*>(base), 0);
        acdbEntMake(reference.Head());
    }
    if (nameOut) std::strcpy(nameOut, block);
    Delete();
    return RTNORM;
}

int PickSet::IncludeBegin() {
    if (IsNull() && !CreateEmpty()) return RTERROR;
    XPoint origin;
    if (includeMark.Make(RTDXF0, "POINT", 10, static_cast<const double*>(origin), 0) != RTNORM) return RTERROR;
    flags |= kHasIncludeMark;
    return RTNORM;
}

int PickSet::IncludeEnd() {
    if (!includeMark) return RTNORM;
    ads_name current = {includeMark.Name()[0], includeMark.Name()[1]}, next;
    while (acdbEntNext(current, next) == RTNORM) {
        std::memcpy(current, next, sizeof current);
        RBList list(acdbEntGet(current));
        char type[256] = "";
        list.GetData(0, type);
        if (std::strcmp(type, "VERTEX") && std::strcmp(type, "SEQEND") && std::strcmp(type, "ATTRIB")) Add(current);
    }
    Remove(includeMark);
    if (flags & kHasIncludeMark) {
        flags &= static_cast<uint8_t>(~kHasIncludeMark);
        acdbEntDel(includeMark);
    }
    return RTNORM;
}

// A dragging set around this one, freed when done.
int PickSet::Move(const XPoint& base, XPoint& to) {
    return DragPickSet(base, *this, kOwnsSet).Move(base, to);
}

int PickSet::Rotate(const XPoint& base, double* angle) {
    return DragPickSet(base, *this, kOwnsSet).Rotate(base, angle);
}

int PickSet::Scale(const XPoint& base, double* factor) {
    return DragPickSet(base, *this, kOwnsSet).Scale(base, factor);
}

int PickSet::Delete() {
    ads_name e;
    for (int32_t i = 0, n = Length(); i < n; ++i)
        if (EntityAt(i, e) == RTNORM) acdbEntDel(e);
    return RTNORM;
}

int PickSet::Redraw(int mode) {
    ads_name e;
    for (int32_t i = 0, n = Length(); i < n; ++i)
        if (EntityAt(i, e) == RTNORM) acedRedraw(e, mode);
    return RTNORM;
}

// The host redraws a block reference with its contents.
int PickSet::RedrawAll(int mode) { return Redraw(mode); }

PickSet operator+(const PickSet& a, const PickSet& b) {
    PickSet result(PickSet::kCreateEmpty);
    result += a;
    result += b;
    return result;
}

PickSet operator-(const PickSet& a, const PickSet& b) {
    PickSet result(PickSet::kCreateEmpty);
    result += a;
    result -= b;
    return result;
}

PickSet operator*(const PickSet& a, const PickSet& b) {
    PickSet result(PickSet::kCreateEmpty);
    ads_name e;
    for (int32_t i = 0, n = a.Length(); i < n; ++i)
        if (a.EntityAt(i, e) == RTNORM && b.Contains(e)) result.Add(e);
    return result;
}
