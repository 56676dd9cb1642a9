// A selection set with set algebra: a name, and whether this object made
// the set and frees it.
#pragma once
#include <cstdint>

#include "platform/adsdef.h"

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
    int Add(const int32_t* entity);       // creates the set when it has none
    int Remove(const int32_t* entity);    // RTERROR without a set
    bool Contains(const int32_t* entity) const;
    PickSet& operator+=(const PickSet& other);
    PickSet& operator-=(const PickSet& other);

    int Get(const char* mode, const void* p1 = nullptr, const void* p2 = nullptr, const resbuf* filter = nullptr);
    void Free();
    int Transform(ads_matrix matrix);
    int Delete();
    int Redraw(int mode);

protected:
    ads_name name = {0, 0};
    uint8_t flags = 0;

private:
    void WarnIfOwned(const PickSet& other) const;
    bool CreateEmpty();
};

// New sets built entity by entity, which the caller frees: all of a then
// b; a without b; the members of a that b holds.
PickSet operator+(const PickSet& a, const PickSet& b);
PickSet operator-(const PickSet& a, const PickSet& b);
PickSet operator*(const PickSet& a, const PickSet& b);
