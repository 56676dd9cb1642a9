// RBList: an owning chain of result-buffer nodes with typed access by group
// code; and the free functions on chains.
#pragma once
#include <cstdarg>

#include "frame/Groups.h"

class RBList {
public:
    RBList() = default;
    explicit RBList(const resbuf* chain);   // takes ownership
    // Pairs of a group code and a value, ended by a code of 0; RTDXF0 stands
    // for code 0. Codes outside -4..1071 end the call with an empty list.
    explicit RBList(int code, ...);
    // Copies are a programming error that must show: they print and do
    // nothing else.
    RBList(const RBList&);
    RBList& operator=(const RBList&);
    ~RBList();

    operator void*() const { return head; }
    bool operator!() const { return head == nullptr; }
    Groups* Head() const { return head; }
    // Hands the chain to the caller; the list ends empty.
    Groups* Release();

    void Append(resbuf* tail);
    void FreeGroups();
    Groups* SearchNode(int code) const;
    // Copies the value of the first node of `code` into `out`, which the
    // caller sizes (a text is copied whole). RTERROR when there is none.
    int GetData(int code, void* out) const;
    // Overwrites the value of the first node of `code`, or puts a new node
    // of that code in front. Values are passed as to the list constructor.
    int SetData(int code, ...);

    void BuildList(va_list ap);

private:
    // Appends one node of `code` with its value from `ap`; false at the end
    // code 0 or after a failure (which empties the list).
    bool AddPair(int code, va_list& ap);

    Groups* head = nullptr;
};

// The first node of `code` in the chain, or null.
resbuf* AT_get_resbuf(resbuf* chain, int code);
// Links `b` behind the last node of `a`; returns the head of the result.
resbuf* AT_link_list(resbuf* a, resbuf* b);
