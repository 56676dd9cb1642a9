// A selection set with set algebra: a name, and whether this object made
// the set and frees it.
#pragma once
#include <cstdint>

#include "database/Entity.h"
#include "platform/adsdef.h"
#include "platform/dbmain.h"

class RBList;
class XPoint;

class PickSet {
public:
    enum Flags : uint8_t { kCreateEmpty = 1, kOwnsSet = 2, kHasIncludeMark = 4 };

    // With kCreateEmpty an empty set is made at once.
    explicit PickSet(int flags = 0);
    // Refers to an existing set without owning it.
    explicit PickSet(const int32_t* name);
    PickSet(const PickSet& other);
    PickSet& operator=(const int32_t* name);
    PickSet& operator=(const PickSet& other);
    virtual ~PickSet();

    operator int32_t*() { return name; }
    operator const int32_t*() const { return name; }
    bool IsNull() const { return name[0] == 0 && name[1] == 0; }
    int Flags() const { return flags; }
    void SetFlags(int f) { flags = static_cast<uint8_t>(f); }

    int32_t Length() const;
    // The i-th entity's name; RTNORM or RTERROR.
    int EntityAt(int32_t i, ads_name out) const;
    Entity operator[](int32_t i) const;
    int Add(const int32_t* entity);       // creates the set when it has none
    int Remove(const int32_t* entity);    // RTERROR without a set
    bool Contains(const int32_t* entity) const;
    int operator+=(const Entity& entity) { return Add(entity); }
    int operator-=(const Entity& entity) { return Remove(entity); }
    int operator+=(const AcDbObjectId& id);
    int operator-=(const AcDbObjectId& id);
    // Entity by entity; RTERROR when the other set is null.
    int operator+=(const PickSet& other);
    int operator-=(const PickSet& other);

    int Get(const char* mode, const void* p1, const void* p2);
    int Get(const char* mode, const void* p1, const void* p2, const RBList& filter);
    int Get(const char* mode, const void* p1 = nullptr, const void* p2 = nullptr, const resbuf* filter = nullptr);
    void Free();
    int Transform(ads_matrix matrix);
    // Each entity through its list: RTNONE for an empty set, RTERROR when
    // any of them failed (the others are still done).
    int XTransform(double m[4][4]);
    int Erase();
    int Delete();
    int Redraw(int mode);
    int RedrawAll(int mode);
    int RemoveXData();
    void AsIdArray(AcDbObjectIdArray& ids) const;
    // The union of the entities' boxes: RTNONE when none has one, RTERROR
    // when some box is only approximate.
    int GetExtend(double* min, double* max) const;
    int GetExtend(double* center, double* width, double* height, double* depth) const;

    // Filters; each loads every entity's groups once.
    int ExFilter(const RBList& tags);             // keeps entities whose records match
    int ExTagFilter(const int* tags, int n);      // removes entities lacking a tag
    int BaseFilter(RBList& groups);               // keeps entities with these groups
    int BaseExclude(RBList& groups);              // removes them

    // Writes the host's handle on each entity as its back reference.
    int Bind(const Entity& host);
    // The set becomes an anonymous block at base, inserted there if asked;
    // its entities are deleted.
    int MakeAnonymous(const XPoint& base, char* nameOut, int insert);
    // Together these capture whatever is made between them.
    int IncludeBegin();
    int IncludeEnd();

    virtual int Move(const XPoint& base, XPoint& to);
    virtual int Rotate(const XPoint& base, double* angle);
    virtual int Scale(const XPoint& base, double* factor);

protected:
    ads_name name = {0, 0};
    uint8_t flags = 0;
    Entity includeMark;

private:
    void WarnIfOwned(const PickSet& other) const;
    bool CreateEmpty();
    // Keeps the entities the test accepts, in a new set that replaces this one.
    template <class Keep>
    int KeepOnly(Keep keep);
};

// New sets built entity by entity, which the caller frees: all of a then
// b; a without b; the members of a that b holds.
PickSet operator+(const PickSet& a, const PickSet& b);
PickSet operator-(const PickSet& a, const PickSet& b);
PickSet operator*(const PickSet& a, const PickSet& b);
