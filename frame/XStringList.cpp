// XStringList.
#include "frame/XStringList.h"

#include <cstring>

#include "platform/crt.h"

namespace {

int Order(const char* a, const char* b, int exact) { return exact ? std::strcmp(a, b) : _stricmp(a, b); }

}  // namespace

// DList's own copy would clone through its base version of CloneItem: the
// copy is made here, once the derived table is in place.
XStringList::XStringList(const XStringList& other) : DList<char>() { CopyFrom(other); }

XStringList::XStringList(const char** texts, int n) {
    for (int i = 0; texts && i < n; ++i) Add(texts[i]);
}

XStringList& XStringList::operator=(const XStringList& other) {
    if (this != &other) {
        RemoveAll();
        SetOwns(1);
        CopyFrom(other);
    }
    return *this;
}

// DList's destructor would delete the texts as single chars.
XStringList::~XStringList() { RemoveAll(); }

void XStringList::Add(const char* text) { Append(CloneItem(text)); }

char* XStringList::CloneItem(const char* item) const {
    if (!item) return nullptr;
    size_t n = std::strlen(item) + 1;
    char* copy = new char[n];
    std::memcpy(copy, item, n);
    return copy;
}

int XStringList::Index(const char* text, int exact) const {
    if (!text) return -1;
    int i = 0;
    for (Node* n = HeadNode(); n; n = n->next, ++i)
        if (n->item && Order(n->item, text, exact) == 0) return i;
    return -1;
}

char* XStringList::MaxValue(int exact) const {
    char* best = nullptr;
    for (Node* n = HeadNode(); n; n = n->next)
        if (n->item && (!best || Order(n->item, best, exact) > 0)) best = n->item;
    return best;
}

char* XStringList::MinValue(int exact) const {
    char* best = nullptr;
    for (Node* n = HeadNode(); n; n = n->next)
        if (n->item && (!best || Order(n->item, best, exact) < 0)) best = n->item;
    return best;
}
