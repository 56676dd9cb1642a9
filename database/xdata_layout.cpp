// The module's records in extended data, as free functions on chains.
#include "database/xdata_layout.h"

#include <cstdint>
#include <cstring>

#include "frame/chain_copy.h"
#include "platform/acutads.h"

namespace {

bool IsBrace(const resbuf* node, const char* brace) {
    return node && node->restype == kXdBrace && node->resval.rstring &&
           std::strcmp(node->resval.rstring, brace) == 0;
}

resbuf* NewInteger(int code, int value) {
    resbuf* node = acutNewRb(code);
    if (node) node->resval.rint = static_cast<short>(value);
    return node;
}

resbuf* NewBrace(const char* brace) { return acutBuildList(kXdBrace, brace, 0); }

}  // namespace

bool IsOpeningBrace(const resbuf* node) { return IsBrace(node, "{"); }
bool IsClosingBrace(const resbuf* node) { return IsBrace(node, "}"); }

resbuf* FindTag(resbuf* chain, int tag, resbuf** previous) {
    int depth = 0;
    resbuf* before = nullptr;
    for (resbuf* node = chain; node;) {
        if (node->restype == kXdBrace) {
            if (IsOpeningBrace(node)) ++depth;
            else if (IsClosingBrace(node)) --depth;
        } else if (depth == 0 && node->restype == kXdInteger) {
            if (node->resval.rint == tag) {
                if (previous) *previous = before;
                return node;
            }
            resbuf* value = node->rbnext;
            if (value && !IsOpeningBrace(value)) {   // step over a plain value
                before = value;
                node = value->rbnext;
                continue;
            }
        }
        before = node;
        node = node->rbnext;
    }
    return nullptr;
}

resbuf* ValueEnd(resbuf* value) {
    if (!IsOpeningBrace(value)) return value;
    int depth = 0;
    for (resbuf* node = value; node; node = node->rbnext) {
        if (IsOpeningBrace(node)) ++depth;
        else if (IsClosingBrace(node) && --depth == 0) return node;
    }
    return nullptr;
}

int SetTagValue(resbuf*& chain, int tag, resbuf* node, const char* app) {
    if (!chain) {
        chain = acutBuildList(-3, 1001, app && *app ? app : "_TQ_HVAC", 0);
        if (!chain) {
            acutRelRb(node);
            return RTERROR;
        }
    }
    resbuf* before = nullptr;
    resbuf* tagNode = FindTag(chain, tag, &before);
    if (!tagNode) {
        if (!node) return RTNORM;
        resbuf* fresh = NewInteger(kXdInteger, tag);
        if (!fresh) {
            acutRelRb(node);
            return RTERROR;
        }
        fresh->rbnext = node;
        LastNode(chain)->rbnext = fresh;
        return RTNORM;
    }
    resbuf* oldValue = tagNode->rbnext;
    resbuf* oldEnd = oldValue ? ValueEnd(oldValue) : nullptr;
    if (oldValue && !oldEnd) {   // a bracket that never closes
        acutRelRb(node);
        return RTERROR;
    }
    resbuf* after = oldEnd ? oldEnd->rbnext : nullptr;
    if (oldEnd) oldEnd->rbnext = nullptr;
    acutRelRb(oldValue);
    if (!node) {   // the record goes, tag and all
        tagNode->rbnext = nullptr;
        acutRelRb(tagNode);
        if (before) before->rbnext = after;
        else chain = after;
        return RTNORM;
    }
    tagNode->rbnext = node;
    LastNode(node)->rbnext = after;
    return RTNORM;
}

resbuf* BuildStructRecord(int tag, const void* data, int size) {
    resbuf* head = NewInteger(kXdInteger, tag);
    resbuf* tail = head;
    auto add = [&tail](resbuf* node) {
        if (!tail || !node) {
            acutRelRb(node);
            return false;
        }
        tail->rbnext = node;
        tail = node;
        return true;
    };
    bool ok = add(NewBrace("{")) && add(NewInteger(kXdInteger, size));
    const auto* bytes = static_cast<const unsigned char*>(data);
    for (int at = 0; ok && at < size; at += 4) {
        int32_t word = 0;   // a short last word keeps its bytes low
        std::memcpy(&word, bytes + at, size - at < 4 ? size - at : 4);
        resbuf* node = acutNewRb(kXdLong);
        if (node) node->resval.rlong = word;
        ok = add(node);
    }
    if (ok) ok = add(NewBrace("}"));
    if (!ok) {
        acutRelRb(head);
        return nullptr;
    }
    return head;
}
