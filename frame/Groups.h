// Groups: one result-buffer node with typed constructors. A pointer to a
// Groups is a pointer to a node, so chains of them go to and from the host
// unchanged.
#pragma once
#include <cstddef>
#include <cstdint>
#include <new>

#include "platform/adsdef.h"

class Groups : public resbuf {
public:
    // Nodes come from and go back to the host's allocator; deleting one
    // Groups releases the whole chain behind it. The release frees the
    // texts, so a deleted node skips the destructor, which would free its
    // text a second time (a destroying delete).
    static void* operator new(size_t size);
    static void operator delete(Groups* p, std::destroying_delete_t);
    static void operator delete(void* p);  // when a constructor throws

    Groups();                                   // RTSHORT 0, as an array element
    explicit Groups(int value);                 // RTSHORT, truncated to 16 bits
    explicit Groups(double value);              // RTREAL
    explicit Groups(const double* point);       // RT3DPOINT
    explicit Groups(const char* text);          // RTSTR, text duplicated
    explicit Groups(const int32_t* name);       // RTENAME, both words
    explicit Groups(long value);                // RTLONG
    // Extended-data forms: integers and reals always carry 1070 and 1040,
    // whatever the first argument says; the text form honours its code.
    Groups(int code, int value);
    Groups(int code, double value);
    Groups(int code, const char* text);
    Groups(const Groups& other);
    Groups& operator=(const Groups& other);
    ~Groups();

    bool operator==(const Groups& other) const;
    bool operator!=(const Groups& other) const { return !(*this == other); }

    Groups* Next() const { return static_cast<Groups*>(rbnext); }
};

static_assert(sizeof(Groups) == sizeof(resbuf), "a Groups is a node");
