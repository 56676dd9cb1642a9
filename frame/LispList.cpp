// LispList: the handlers' working list over a result-buffer chain.
#include "frame/LispList.h"

#include "frame/RBList.h"
#include "frame/chain_copy.h"
#include "frame/frame_state.h"
#include "platform/acedads.h"
#include "platform/acutads.h"

LispList::LispList(resbuf* chain) : head(chain), tail(LastNode(chain)) {}

LispList::~LispList() {
    if (head) acutRelRb(head);
}

void LispList::Assign(const LispList& source) { Assign(source.head); }

void LispList::Assign(const resbuf* source) {
    if (source == head) return;
    Clear();
    head = CopyChain(source);
    cursor = head;
    tail = LastNode(head);
}

void LispList::PushFront(resbuf* chain) {
    if (!chain) return;
    if (!head) {
        head = tail = cursor = chain;
        return;
    }
    LastNode(chain)->rbnext = head;
    head = chain;
    lastSublist = nullptr;
}

void LispList::PushBack(resbuf* node) {
    if (!node) return;
    if (!head) {
        head = tail = cursor = node;
        return;
    }
    tail->rbnext = node;
    tail = node;
}

void LispList::AppendChain(resbuf* chain) {
    if (!chain) return;
    if (head) tail->rbnext = chain;
    else head = chain;
    tail = LastNode(chain);
    cursor = head;
    lastSublist = nullptr;
}

void LispList::MoveFrom(LispList& other) {
    resbuf* chain = other.head;
    other.head = other.tail = other.cursor = other.lastSublist = nullptr;
    other.lastIndex = 0;
    AppendChain(chain);
}

resbuf* LispList::Detach(resbuf* node) {
    resbuf* prev = nullptr;
    for (resbuf* n = head; n; prev = n, n = n->rbnext) {
        if (n != node) continue;
        (prev ? prev->rbnext : head) = n->rbnext;
        if (tail == n) tail = prev;
        if (cursor == n || lastSublist == n) {
            cursor = lastSublist = nullptr;
            lastIndex = 0;
        }
        n->rbnext = nullptr;
        return n;
    }
    return nullptr;
}

void LispList::Wrap() {
    if (!head) return;
    resbuf* open = acutNewRb(RTLB);
    open->rbnext = head;
    head = open;
    tail->rbnext = acutNewRb(RTLE);
    tail = tail->rbnext;
}

void LispList::Clear() {
    if (head) acutRelRb(head);
    head = tail = lastSublist = cursor = nullptr;
    lastIndex = 0;
}

void LispList::Release() {
    if (head) acutRelRb(head);
    head = tail = nullptr;
}

int LispList::Count() const {
    int depth = 0;
    int count = 0;
    for (const resbuf* n = head; n; n = n->rbnext) {
        if (n->restype == RTLB) {
            ++depth;
        } else if (n->restype == RTLE) {
            if (depth == 1) ++count;
            if (depth > 0) --depth;
        } else if (depth == 0) {
            ++count;
        }
    }
    return count;
}

bool LispList::Locate(int index, resbuf** prevOut, resbuf** firstOut, resbuf** lastOut) {
    if (index < 0) return false;
    resbuf* n = head;
    resbuf* prev = nullptr;
    int running = -1;
    // Go on behind the element last fetched. Only a fetch leaves the cursor
    // there: after a copy, a chain put in front or behind, it stands at the
    // head (or the numbering moved), and the walk starts over.
    if (lastIndex < index && cursor && lastSublist) {
        prev = cursor;
        n = cursor->rbnext;
        running = lastIndex;
    }
    int depth = 0;
    resbuf* open = nullptr;
    resbuf* beforeOpen = nullptr;
    for (; n; prev = n, n = n->rbnext) {
        if (n->restype == RTLB) {
            if (depth++ == 0) {
                open = n;
                beforeOpen = prev;
            }
            continue;
        }
        if (n->restype == RTLE) {
            if (depth == 0) continue;  // a stray closing node counts nothing
            if (--depth == 0 && ++running == index) {
                *prevOut = beforeOpen;
                *firstOut = open;
                *lastOut = n;
                return true;
            }
            continue;
        }
        if (depth == 0 && ++running == index) {
            *prevOut = prev;
            *firstOut = *lastOut = n;
            return true;
        }
    }
    return false;
}

resbuf* LispList::Element(int index) {
    resbuf *prev, *first, *last;
    if (!Locate(index, &prev, &first, &last)) return nullptr;
    lastSublist = first;
    cursor = last;
    lastIndex = index;
    if (first == last) return CopyRange(first, last);
    if (first->rbnext == last) return nullptr;  // an empty sublist
    resbuf* inner = first->rbnext;
    resbuf* innerLast = inner;
    while (innerLast->rbnext != last) innerLast = innerLast->rbnext;
    return CopyRange(inner, innerLast);
}

int LispList::ElementTo(int index, LispList& out) {
    out.Clear();
    resbuf* chain = Element(index);
    if (!chain) return 0;
    out.AppendChain(chain);
    return 1;
}

resbuf* LispList::FindNth(int code, int n) const {
    for (resbuf* node = head; node; node = node->rbnext)
        if (node->restype == code && n-- == 0) return node;
    return nullptr;
}

int LispList::FindElement(const resbuf* pattern, resbuf** before, resbuf** found) {
    resbuf *prev, *first, *last;
    for (int i = 0; ; ++i) {
        // Always from the head: a search must not depend on the kept place.
        lastIndex = 0;
        cursor = nullptr;
        if (!Locate(i, &prev, &first, &last)) return 0;
        const resbuf* a = first == last ? first : first->rbnext;
        const resbuf* stop = first == last ? last->rbnext : last;
        const resbuf* p = pattern;
        bool match = true;
        for (; a != stop; a = a->rbnext, p = p->rbnext) {
            if (!p || !NodeEquals(a, p, ignoreCase)) {
                match = false;
                break;
            }
        }
        if (match) {
            *before = prev;
            *found = last;
            return 1;
        }
    }
}

int LispList::ReplaceElement(resbuf* replacement, const resbuf* pattern) {
    if (!replacement || !pattern || !head) return 0;
    resbuf *before, *found;
    if (!FindElement(pattern, &before, &found)) return 0;
    resbuf* first = before ? before->rbnext : head;
    resbuf* after = found->rbnext;
    (before ? before->rbnext : head) = replacement;
    resbuf* replacementEnd = LastNode(replacement);
    replacementEnd->rbnext = after;
    if (!after) tail = replacementEnd;
    found->rbnext = nullptr;
    acutRelRb(first);
    cursor = lastSublist = nullptr;
    lastIndex = 0;
    return 1;
}

int LispList::Return(int toUcs) const {
    if (!head) return 0;
    ReturnChain(head, toUcs);
    return 1;
}

LispList* LispList::NewChild() {
    auto* child = new LispList;
    children.Append(child);
    return child;
}

void ToUcs(resbuf* chain) {
    for (resbuf* n = chain; n; n = n->rbnext)
        if (n->restype == RTPOINT || n->restype == RT3DPOINT)
            acdbWcs2Ucs(n->resval.rpoint, n->resval.rpoint, false);
}

void ReturnChain(const resbuf* chain, int toUcs) {
    if (!chain) return;
    LispList copy(CopyChain(chain));
    if (toUcs) ToUcs(copy.Head());
    copy.Wrap();
    acedRetList(copy.Head());
}

void ReturnList(const LispList& list, int toUcs) {
    if (!list.IsEmpty()) ReturnChain(list.Head(), toUcs);
}

int ReturnPoint(double* point) {
    resbuf from;
    from.rbnext = nullptr;
    from.restype = RTSHORT;
    from.resval.rint = 0;
    acedTrans(point, &from, &gOutputSystem, 0, point);
    acedRetPoint(point);
    return RTNORM;
}
