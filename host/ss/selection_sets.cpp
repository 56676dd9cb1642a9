#include "host/ss/selection_sets.h"

#include <algorithm>
#include <map>
#include <memory>

#include "host/lisp/value.h"

namespace lumo::host {
namespace {

std::map<int32_t, std::unique_ptr<SelectionSet>>& Sets() {
    static auto& sets = *new std::map<int32_t, std::unique_ptr<SelectionSet>>;
    return sets;
}

int32_t gNextNumber = 1;
std::vector<int32_t> gPrevious;

bool Unheld(const SelectionSet& set) { return !set.moduleOwned && set.lispRefs <= 0; }

// Sets LISP has seen wait for the garbage collection.
void DropIfUnheld(SelectionSet& set) {
    if (Unheld(set) && !set.seenByLisp) Sets().erase(set.number);
}

void Retain(const int32_t name[2]) {
    if (SelectionSet* set = FindSelectionSet(name)) {
        ++set->lispRefs;
        set->seenByLisp = true;
    }
}

void Release(const int32_t name[2]) {
    SelectionSet* set = FindSelectionSet(name);
    if (!set) return;
    --set->lispRefs;
    DropIfUnheld(*set);
}

const bool kHooked = [] {
    lisp::gPicksetRetained = Retain;
    lisp::gPicksetReleased = Release;
    return true;
}();

}  // namespace

bool SelectionSet::Add(int32_t serial) {
    if (!index.insert(serial).second) return false;
    members.push_back(serial);
    return true;
}

bool SelectionSet::Remove(int32_t serial) {
    if (!index.erase(serial)) return false;
    members.erase(std::find(members.begin(), members.end(), serial));
    return true;
}

SelectionSet* NewSelectionSet() {
    (void)kHooked;
    if (OpenSetCount() >= kMaxOpenSets && CollectSelectionSets() == 0) return nullptr;
    auto set = std::make_unique<SelectionSet>();
    set->number = gNextNumber++;
    set->moduleOwned = true;
    SelectionSet* raw = set.get();
    Sets()[raw->number] = std::move(set);
    return raw;
}

SelectionSet* FindSelectionSet(const int32_t name[2]) {
    if (!name || name[0] <= 0 || name[1] != ~name[0]) return nullptr;
    auto it = Sets().find(name[0]);
    return it == Sets().end() ? nullptr : it->second.get();
}

void NameOfSet(const SelectionSet& set, int32_t name[2]) {
    // Both words differ from set to set, as the host's do: modules compare
    // set names word by word.
    name[0] = set.number;
    name[1] = ~set.number;
}

void ReleaseModuleHold(const int32_t name[2]) {
    SelectionSet* set = FindSelectionSet(name);
    if (!set) return;
    set->moduleOwned = false;
    DropIfUnheld(*set);
}

int OpenSetCount() { return static_cast<int>(Sets().size()); }

int CollectSelectionSets() {
    int freed = 0;
    for (auto it = Sets().begin(); it != Sets().end();) {
        if (Unheld(*it->second)) {
            it = Sets().erase(it);
            ++freed;
        } else {
            ++it;
        }
    }
    return freed;
}

void SetPreviousSelection(const std::vector<int32_t>& members) { gPrevious = members; }
const std::vector<int32_t>& PreviousSelection() { return gPrevious; }

}  // namespace lumo::host
