// XStringList: a list of texts with a cursor, over the module's DList.
//
// Texts are char arrays the list allocates with new[] (Add, the copies) and,
// when the list owns its items (the default), deletes with delete[]. Index
// access walks from the cursor as DList's does; an index out of range reads
// the text under the cursor, so callers check their bounds.
#pragma once
#include "frame/DList.h"

class XStringList : public DList<char> {
public:
    XStringList() = default;
    XStringList(const XStringList& other);             // deep copy; null texts stay null
    XStringList(const char** texts, int n);            // copies of n texts; n < 1: empty
    XStringList& operator=(const XStringList& other);  // former texts deleted first
    ~XStringList() override;

    // Appends a copy of `text` (null stays null).
    void Add(const char* text);

    // The lowest index whose text equals `text`: bytes if `exact`, else
    // without regard to case. -1 if none or `text` is null.
    int Index(const char* text, int exact) const;
    // The greatest (smallest) text, by strcmp if `exact`, else _stricmp: the
    // list's own pointer, the first of equal ones; null for an empty list.
    char* MaxValue(int exact) const;
    char* MinValue(int exact) const;

protected:
    void DeleteItem(char* item) override { delete[] item; }
    char* CloneItem(const char* item) const override;
};
