// The host's selection sets. A set keeps its entities in the order they
// were added, each once. A set belongs to the module that made it until it
// frees it, or to LISP once it is handed to LISP. A set nobody holds goes at
// once if LISP never saw it; otherwise LISP's garbage collection takes it,
// which runs on (gc) and when a new set finds all kMaxOpenSets in use, as
// in the host. So a module may still read a set it gave to LISP for a
// while, and a module that never frees its sets runs out of them.
#pragma once
#include <cstdint>
#include <unordered_set>
#include <vector>

namespace lumo::host {

constexpr int kMaxOpenSets = 128;

struct SelectionSet {
    int32_t number = 0;
    std::vector<int32_t> members;      // entity serials, in order
    std::unordered_set<int32_t> index;
    bool moduleOwned = false;
    bool seenByLisp = false;
    int lispRefs = 0;

    bool Add(int32_t serial);
    bool Remove(int32_t serial);
    bool Contains(int32_t serial) const { return index.count(serial) != 0; }
};

// A new empty set held by a module, or null when kMaxOpenSets are open.
SelectionSet* NewSelectionSet();
SelectionSet* FindSelectionSet(const int32_t name[2]);
void NameOfSet(const SelectionSet& set, int32_t name[2]);
// The module gives up its hold (acedSSFree, or handing the set to LISP).
void ReleaseModuleHold(const int32_t name[2]);
int OpenSetCount();
// Frees the sets that neither a module nor a LISP value holds; the count.
int CollectSelectionSets();

// The set the last selection made, for "P".
void SetPreviousSelection(const std::vector<int32_t>& members);
const std::vector<int32_t>& PreviousSelection();

}  // namespace lumo::host
