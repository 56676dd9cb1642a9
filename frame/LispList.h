// LispList: the handlers' working list over a result-buffer chain.
//
// An element is one value at depth 0: a single node, or a sublist from its
// RTLB to the RTLE that closes it. Element() keeps its place, so a forward
// index loop costs one pass over the chain; asking for the same or an
// earlier index starts again from the head.
#pragma once
#include "frame/DList.h"
#include "platform/adsdef.h"

class LispList {
public:
    LispList() = default;
    explicit LispList(resbuf* chain);   // takes over the chain
    LispList(const LispList&) = delete;
    LispList& operator=(const LispList&) = delete;
    virtual ~LispList();

    // Replaces the contents with a copy of the source; no effect when the
    // source is this list's own chain.
    void Assign(const LispList& source);
    void Assign(const resbuf* source);

    void PushFront(resbuf* chain);
    void PushBack(resbuf* node);          // one node
    void AppendChain(resbuf* chain);      // a chain of any length
    void MoveFrom(LispList& other);       // `other` ends empty
    resbuf* Detach(resbuf* node);         // null if the node isn't here
    void Wrap();                          // RTLB in front, RTLE behind
    void Clear();
    void Release();                       // frees the chain, clears head and tail only
    bool IsEmpty() const { return head == nullptr; }

    int Count() const;
    // A fresh chain of the element's nodes without its enclosing RTLB and
    // RTLE; null past the end and for an empty sublist.
    resbuf* Element(int index);
    int ElementTo(int index, LispList& out);
    // The n-th node (from 0) of `code` at any depth.
    resbuf* FindNth(int code, int n) const;
    // The first element whose nodes match the pattern's as far as the element
    // reaches: `before` is the node ahead of it, `found` its last node.
    int FindElement(const resbuf* pattern, resbuf** before, resbuf** found);
    // Links `replacement` in place of the element matching `pattern`, which
    // is released. The list takes the replacement chain.
    int ReplaceElement(resbuf* replacement, const resbuf* pattern);

    // Sets the handler's result to this list (points to the UCS if asked).
    // Returns 1, or 0 for an empty list, which sets no value.
    int Return(int toUcs) const;

    // A list that lives as long as this one (if it owns its children).
    LispList* NewChild();

    resbuf* Head() const { return head; }
    resbuf* Tail() const { return tail; }
    void SetIgnoreCase(int on) { ignoreCase = on; }
    void SetOwnsChildren(int on) { children.SetOwns(on); }

private:
    // Walks to element `index` from the kept place; on success sets `first`
    // and `last` to the element's outer nodes (RTLB/RTLE for a sublist) and
    // `prev` to the node ahead of it.
    bool Locate(int index, resbuf** prev, resbuf** first, resbuf** last);

    resbuf* head = nullptr;
    resbuf* tail = nullptr;
    resbuf* lastSublist = nullptr;
    resbuf* cursor = nullptr;
    int ignoreCase = 1;
    int lastIndex = 0;
    DList<LispList> children;
};

// Sets the handler's result to a copy of `chain` as a list; a null chain sets
// no value. The caller keeps its chain.
void ReturnChain(const resbuf* chain, int toUcs);
void ReturnList(const LispList& list, int toUcs);
// Converts the point in place from WCS to the output system and returns it.
int ReturnPoint(double* point);
// Converts every RTPOINT and RT3DPOINT node of the chain to the UCS in place.
void ToUcs(resbuf* chain);
