#include "database/PickSet.h"

#include "frame/ApplicationError.h"
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

PickSet& PickSet::operator+=(const PickSet& other) {
    ads_name e;
    for (int32_t i = 0, n = other.Length(); i < n; ++i)
        if (other.EntityAt(i, e) == RTNORM) Add(e);
    return *this;
}

PickSet& PickSet::operator-=(const PickSet& other) {
    ads_name e;
    for (int32_t i = 0, n = other.Length(); i < n; ++i)
        if (other.EntityAt(i, e) == RTNORM) Remove(e);
    return *this;
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
