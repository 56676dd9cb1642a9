// The LISP number-list family.
//
// The handlers reorder and unlink the nodes of the argument chain itself and
// return it through ReturnChain. The chain belongs to the host, which
// releases it from its head after the call: a LinkSnapshot puts every link
// back before the handler returns, so that no node is lost or freed twice.
#include "frame/numlist_lisp.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "frame/LispList.h"
#include "platform/acedads.h"

namespace {

const double kNearEqual = 1e-5;   // values closer than this count as one

// Every node's link as it was; restored on destruction.
class LinkSnapshot {
public:
    explicit LinkSnapshot(resbuf* chain) {
        for (resbuf* n = chain; n; n = n->rbnext) links.push_back({n, n->rbnext});
    }
    ~LinkSnapshot() {
        for (auto& [node, next] : links) node->rbnext = next;
    }
    LinkSnapshot(const LinkSnapshot&) = delete;
    LinkSnapshot& operator=(const LinkSnapshot&) = delete;

private:
    std::vector<std::pair<resbuf*, resbuf*>> links;
};

// One element of the run: a point node, or a sublist from its RTLB to the
// RTLE that closes it (a dotted pair included).
struct Element {
    double key = 0;
    resbuf* first = nullptr;
    resbuf* last = nullptr;
};

// The closing RTLE of the sublist opening at `open`, or null.
resbuf* CloseOf(resbuf* open) {
    int depth = 0;
    for (resbuf* n = open; n; n = n->rbnext) {
        if (n->restype == RTLB) ++depth;
        else if (n->restype == RTLE && --depth == 0) return n;
    }
    return nullptr;
}

bool IsNumber(const resbuf* n) { return n && (n->restype == RTSHORT || n->restype == RTREAL); }
double NumberOf(const resbuf* n) { return n->restype == RTSHORT ? n->resval.rint : n->resval.rreal; }

// A stable merge sort: whatever the comparison answers, it reads and writes
// only inside the array, which a non-transitive comparison can't promise of
// every library sort.
template <class T, class Less>
void MergeSort(std::vector<T>& items, Less less) {
    std::vector<T> scratch(items.size());
    for (size_t width = 1; width < items.size(); width *= 2) {
        for (size_t lo = 0; lo < items.size(); lo += 2 * width) {
            size_t mid = std::min(lo + width, items.size()), hi = std::min(lo + 2 * width, items.size());
            size_t i = lo, j = mid, k = lo;
            while (i < mid && j < hi) scratch[k++] = less(items[j], items[i]) ? items[j++] : items[i++];
            while (i < mid) scratch[k++] = items[i++];
            while (j < hi) scratch[k++] = items[j++];
        }
        items.swap(scratch);
    }
}

// Links the elements in order and returns their chain as the result;
// `dropNear` leaves out an element whose key lies within kNearEqual of the
// key directly before it in sorted order, kept or not.
void ReturnSorted(std::vector<Element>& elements, bool dropNear) {
    MergeSort(elements, [](const Element& a, const Element& b) { return CompareWithTolerance(a.key, b.key) < 0; });
    resbuf* head = nullptr;
    resbuf* tail = nullptr;
    for (size_t i = 0; i < elements.size(); ++i) {
        if (dropNear && i > 0 && std::fabs(elements[i].key - elements[i - 1].key) < kNearEqual) continue;
        if (tail) tail->rbnext = elements[i].first;
        else head = elements[i].first;
        tail = elements[i].last;
    }
    if (tail) tail->rbnext = nullptr;
    ReturnChain(head, 1);
}

int RealSort(bool dropNear) {
    resbuf* args = acedGetArgs();
    if (!args) return RTNORM;
    std::vector<Element> values;
    for (resbuf* n = args; n; n = n->rbnext) {
        if (!IsNumber(n)) return RTNORM;   // the earlier nodes stay converted
        if (n->restype == RTSHORT) {
            double v = n->resval.rint;
            n->restype = RTREAL;
            n->resval.rreal = v;
        }
        values.push_back({n->resval.rreal, n, n});
    }
    LinkSnapshot restore(args);
    ReturnSorted(values, dropNear);
    return RTNORM;
}

int ListSort(bool dropNear) {
    resbuf* args = acedGetArgs();
    if (!args || (args->restype != RTLB && args->restype != RTPOINT && args->restype != RT3DPOINT)) return RTNORM;
    std::vector<Element> elements;
    for (resbuf* n = args; n; n = n->rbnext) {
        if (n->restype == RTPOINT || n->restype == RT3DPOINT) {
            elements.push_back({n->resval.rpoint[0], n, n});
        } else if (n->restype == RTLB) {
            resbuf* close = CloseOf(n);
            if (!close || !IsNumber(n->rbnext)) return RTNORM;
            elements.push_back({NumberOf(n->rbnext), n, close});
            n = close;
        } else {
            return RTNORM;
        }
    }
    LinkSnapshot restore(args);
    ReturnSorted(elements, dropNear);
    return RTNORM;
}

bool SamePoint(const resbuf* a, const resbuf* b) {
    int dims = a->restype == RTPOINT ? 2 : 3;
    for (int i = 0; i < dims; ++i)
        if (a->resval.rpoint[i] != b->resval.rpoint[i]) return false;
    return true;
}

// Whether the element (first .. last) matches the plain target.
bool Matches(const resbuf* target, const Element& e) {
    const resbuf* first = e.first;
    if (first->restype == RTPOINT || first->restype == RT3DPOINT)
        return IsNumber(target) && NumberOf(target) == first->resval.rpoint[0];
    if (first->restype != RTLB) return false;
    const resbuf* member = first->rbnext;
    if (member == e.last) return false;   // nothing inside
    switch (target->restype) {
        case RTSHORT:
        case RTREAL: return IsNumber(member) && NumberOf(member) == NumberOf(target);
        case RTSTR:
            return member->restype == RTSTR && member->resval.rstring && target->resval.rstring &&
                   std::strcmp(member->resval.rstring, target->resval.rstring) == 0;
        case RTENAME:
            return member->restype == RTENAME && member->resval.rlname[0] == target->resval.rlname[0] &&
                   member->resval.rlname[1] == target->resval.rlname[1];
        case RTPOINT:
        case RT3DPOINT: return member->restype == target->restype && SamePoint(member, target);
        default: return false;
    }
}

int ListDelete(bool all) {
    resbuf* target = acedGetArgs();
    if (!target) return RTNORM;
    switch (target->restype) {
        case RTREAL: case RTSHORT: case RTSTR: case RTENAME: case RTPOINT: case RT3DPOINT: break;
        default: return RTNORM;   // a sublist or another kind of value
    }
    std::vector<Element> elements;
    for (resbuf* n = target->rbnext; n; n = n->rbnext) {
        switch (n->restype) {
            case RTSHORT: case RTREAL: case RTSTR: case RTENAME: return RTNORM;
            case RTLB: {
                resbuf* close = CloseOf(n);
                if (!close) return RTNORM;
                elements.push_back({0, n, close});
                n = close;
                break;
            }
            default: elements.push_back({0, n, n}); break;   // points; other values never match
        }
    }
    LinkSnapshot restore(target);
    // `mend` is the last node of the element looked at before. After a
    // removal it stays on the removed element, so a match right behind one
    // is unlinked from the removed element only and stays in the list. Kept
    // as is: that outcome is the family's documented behaviour.
    resbuf* mend = target;
    for (const Element& e : elements) {
        if (Matches(target, e)) {
            mend->rbnext = e.last->rbnext;
            if (!all) break;
        }
        mend = e.last;
    }
    ReturnChain(target->rbnext, 1);
    return RTNORM;
}

}  // namespace

int CompareWithTolerance(double a, double b) {
    if (std::fabs(a - b) < kNearEqual) return 0;
    return a > b ? 1 : -1;
}

int lumo_realsort1() { return RealSort(true); }
int lumo_realsort2() { return RealSort(false); }
int lumo_rlistsort1() { return ListSort(true); }
int lumo_rlistsort2() { return ListSort(false); }
int lumo_rlistdel1() { return ListDelete(true); }
int lumo_rlistdel2() { return ListDelete(false); }
