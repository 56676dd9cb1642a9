// RBList: an owning chain of result-buffer nodes.
#include "frame/RBList.h"

#include <cstdlib>
#include <cstring>

#include "frame/ApplicationError.h"
#include "frame/TypeOfCode.h"
#include "frame/chain_copy.h"
#include "platform/acutads.h"
#include "platform/crt.h"

namespace {

// Reads one value of type `type` from the argument list into `node`.
// Returns false for a type that carries no value.
bool ReadValue(resbuf* node, int type, va_list& ap) {
    switch (type) {
    case RTENAME:
    case RTPICKS: {
        const int32_t* name = va_arg(ap, const int32_t*);
        node->resval.rlname[0] = name[0];
        node->resval.rlname[1] = name[1];
        return true;
    }
    case RT3DPOINT:
    case RTPOINT:
        std::memcpy(node->resval.rpoint, va_arg(ap, const double*), sizeof node->resval.rpoint);
        return true;
    case RTSTR:
        node->resval.rstring = _strdup(va_arg(ap, const char*));
        return true;
    case RTSHORT:
        node->resval.rint = static_cast<short>(va_arg(ap, int));
        return true;
    case RTREAL:
    case RTANG:
    case RTORINT:
        node->resval.rreal = va_arg(ap, double);
        return true;
    case RTLONG:
        node->resval.rlong = static_cast<int32_t>(va_arg(ap, long));
        return true;
    default:
        return false;
    }
}

}  // namespace

RBList::RBList(const resbuf* chain) : head(static_cast<Groups*>(const_cast<resbuf*>(chain))) {}

RBList::RBList(int code, ...) {
    va_list ap;
    va_start(ap, code);
    if (AddPair(code, ap)) BuildList(ap);
    va_end(ap);
}

void RBList::BuildList(va_list ap) {
    va_list args;
    va_copy(args, ap);
    while (AddPair(va_arg(args, int), args)) {
    }
    va_end(args);
}

bool RBList::AddPair(int code, va_list& ap) {
    if (code == 0) return false;
    if (code != RTDXF0 && (code < -4 || code > 1071)) {
        FreeGroups();
        ApplicationError("\nError in fuction BuildList.Undocumented DXFcode. code=%d\n", code);
        return false;
    }
    int dxf = code == RTDXF0 ? 0 : code;
    resbuf* node = acutNewRb(dxf);
    if (!node) {
        FreeGroups();
        ApplicationError("\nError in fuction BuildList.No enough memory.\n");
        return false;
    }
    Append(node);
    ReadValue(node, TypeOfCode(dxf), ap);
    return true;
}

RBList::RBList(const RBList&) { acutPrintf("\nDangerous in RBList!"); }

RBList& RBList::operator=(const RBList&) {
    acutPrintf("\nDangerous in RBList=!");
    return *this;
}

RBList::~RBList() { FreeGroups(); }

Groups* RBList::Release() {
    Groups* chain = head;
    head = nullptr;
    return chain;
}

void RBList::Append(resbuf* tail) { head = static_cast<Groups*>(AT_link_list(head, tail)); }

void RBList::FreeGroups() {
    if (head) acutRelRb(head);
    head = nullptr;
}

Groups* RBList::SearchNode(int code) const { return static_cast<Groups*>(AT_get_resbuf(head, code)); }

int RBList::GetData(int code, void* out) const {
    const Groups* node = SearchNode(code);
    if (!node) return RTERROR;
    switch (TypeOfCode(code)) {
    case RTNONE:
        ApplicationError("\nError in calling RBList::GetData.The type of this code is RTNONE.");
        return RTERROR;
    case RTSTR:
        std::strcpy(static_cast<char*>(out), node->resval.rstring ? node->resval.rstring : "");
        break;
    case RTSHORT:
        *static_cast<int32_t*>(out) = node->resval.rint;
        break;
    case RTPOINT:
    case RT3DPOINT:
        std::memcpy(out, node->resval.rpoint, 24);
        break;
    case RTLONG:
        std::memcpy(out, &node->resval.rlong, 4);
        break;
    default:  // reals, angles, names: 8 bytes
        std::memcpy(out, &node->resval, 8);
        break;
    }
    return RTNORM;
}

int RBList::SetData(int code, ...) {
    int type = TypeOfCode(code);
    if (type == RTNONE) {
        ApplicationError("\nError in calling RBList::SetData.The type of this code is RTNONE.");
        return RTERROR;
    }
    if (type >= 5011) return RTNORM;  // a type SetData doesn't know
    Groups* node = SearchNode(code);
    if (!node) {
        node = static_cast<Groups*>(acutNewRb(code));
        node->rbnext = head;
        head = node;
    } else if (type == RTSTR) {
        std::free(node->resval.rstring);
        node->resval.rstring = nullptr;
    }
    va_list ap;
    va_start(ap, code);
    ReadValue(node, type, ap);
    va_end(ap);
    return RTNORM;
}

resbuf* AT_get_resbuf(resbuf* chain, int code) {
    for (; chain; chain = chain->rbnext)
        if (chain->restype == code) return chain;
    return nullptr;
}

resbuf* AT_link_list(resbuf* a, resbuf* b) {
    if (!a) return b;
    LastNode(a)->rbnext = b;
    return a;
}
