// Copying, comparing and building result-buffer chains node by node.
#include "frame/chain_copy.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

#include "frame/RBList.h"
#include "platform/acge.h"
#include "platform/acutads.h"
#include "platform/crt.h"

int DxfValueType(int code) {
    if (code < 0 || code >= 5000) return code;
    if (code <= 9) return RTSTR;
    if (code <= 19) return RT3DPOINT;
    if (code >= 38 && code <= 59) return RTREAL;
    if (code >= 60 && code <= 79) return RTSHORT;
    if (code >= 90 && code <= 99) return RTLONG;
    if (code == 100 || code == 102 || code == 105) return RTSTR;
    if (code >= 140 && code <= 147) return RTREAL;
    if (code >= 170 && code <= 179) return RTSHORT;
    if (code >= 210 && code <= 239) return RT3DPOINT;
    if (code >= 270 && code <= 289) return RTSHORT;
    if (code >= 300 && code <= 309) return RTSTR;
    if (code >= 310 && code <= 369) return RTENAME;
    if ((code >= 370 && code <= 379) || (code >= 400 && code <= 409)) return RTSHORT;
    if (code >= 410 && code <= 419) return RTSTR;
    if (code == 1004) return 1004;
    if (code >= 1000 && code <= 1009) return RTSTR;
    if (code >= 1010 && code <= 1013) return RT3DPOINT;
    if (code >= 1038 && code <= 1059) return RTREAL;
    if (code >= 1060 && code <= 1070) return RTSHORT;
    if (code == 1071) return RTLONG;
    return RTNONE;
}

namespace {

// Copies the value of `from` into `to` by the list copy's table; false for a
// type that isn't copied.
bool CopyValue(const resbuf* from, resbuf* to) {
    switch (DxfValueType(from->restype)) {
    case RTSHORT:
        to->resval.rint = from->resval.rint;
        return true;
    case RTREAL:
        to->resval.rreal = from->resval.rreal;
        return true;
    case RTLONG:
        to->resval.rlong = from->resval.rlong;
        return true;
    case RTSTR:
    case -4:
        to->resval.rstring = _strdup(from->resval.rstring);
        return true;
    case RTPOINT:
    case RT3DPOINT:
        std::memcpy(to->resval.rpoint, from->resval.rpoint, sizeof to->resval.rpoint);
        return true;
    case RTENAME:
    case RTPICKS:
    case -1:
    case -2:
        to->resval.rlname[0] = from->resval.rlname[0];
        to->resval.rlname[1] = from->resval.rlname[1];
        return true;
    case RTLB:
    case RTLE:
    case RTDOTE:
    case RTT:
    case -3:
        return true;
    case 1004: {
        short n = from->resval.rbinary.clen;
        to->resval.rbinary.clen = n;
        to->resval.rbinary.buf = nullptr;
        if (n > 0 && from->resval.rbinary.buf) {
            to->resval.rbinary.buf = static_cast<char*>(std::malloc(n));
            std::memcpy(to->resval.rbinary.buf, from->resval.rbinary.buf, n);
        }
        return true;
    }
    default:
        return false;
    }
}

}  // namespace

resbuf* CopyNode(const resbuf* node) {
    if (!node) return nullptr;
    resbuf* copy = acutNewRb(node->restype);
    if (!copy) return nullptr;
    if (!CopyValue(node, copy)) {
        acutRelRb(copy);
        return nullptr;
    }
    return copy;
}

resbuf* CopyRange(const resbuf* first, const resbuf* last) {
    if (!first || !last) return nullptr;
    resbuf* head = nullptr;
    resbuf* tail = nullptr;
    for (const resbuf* n = first; n; n = n->rbnext) {
        if (resbuf* copy = CopyNode(n)) {
            (tail ? tail->rbnext : head) = copy;
            tail = copy;
        }
        if (n == last) break;
    }
    return head;
}

resbuf* CopyChain(const resbuf* chain) { return CopyRange(chain, LastNode(const_cast<resbuf*>(chain))); }

resbuf* LastNode(resbuf* chain) {
    if (!chain) return nullptr;
    while (chain->rbnext) chain = chain->rbnext;
    return chain;
}

// Every text and binary chunk is duplicated, whatever its code, so that the
// two chains can be released apart.
resbuf* CopyChainPlain(const resbuf* chain) {
    resbuf* head = nullptr;
    resbuf* tail = nullptr;
    for (const resbuf* n = chain; n; n = n->rbnext) {
        auto* copy = static_cast<resbuf*>(std::malloc(sizeof(resbuf)));
        *copy = *n;
        copy->rbnext = nullptr;
        int type = DxfValueType(n->restype);
        if (type == RTSTR || type == -4) copy->resval.rstring = _strdup(n->resval.rstring);
        else if (type == 1004) CopyValue(n, copy);
        (tail ? tail->rbnext : head) = copy;
        tail = copy;
    }
    return head;
}

resbuf* WrapCopy(const resbuf* chain) {
    resbuf* open = acutNewRb(RTLB);
    open->rbnext = CopyChainPlain(chain);
    LastNode(open)->rbnext = acutNewRb(RTLE);
    return open;
}

void UnwrapCopy(const resbuf* in, resbuf** out) {
    resbuf* copy = CopyChainPlain(in);
    if (copy && copy->restype == RTLB) {
        resbuf* rest = copy->rbnext;
        copy->rbnext = nullptr;
        acutRelRb(copy);
        copy = rest;
        // Drop the first RTLE.
        for (resbuf** link = &copy; *link; link = &(*link)->rbnext) {
            if ((*link)->restype == RTLE) {
                resbuf* close = *link;
                *link = close->rbnext;
                close->rbnext = nullptr;
                acutRelRb(close);
                break;
            }
        }
    }
    *out = copy;
}

bool NodeEquals(const resbuf* a, const resbuf* b, int ignoreCase) {
    if (a->restype != b->restype) return false;
    int type = DxfValueType(a->restype);
    if (type < RTREAL || type > RTLONG) return true;
    const double* p = a->resval.rpoint;
    const double* q = b->resval.rpoint;
    switch (type) {
    case RTREAL:
        return a->resval.rreal == b->resval.rreal;
    case RTPOINT:
        return AcGePoint2d(p[0], p[1]) == AcGePoint2d(q[0], q[1]);
    case RT3DPOINT:
        return AcGePoint3d(p[0], p[1], p[2]) == AcGePoint3d(q[0], q[1], q[2]);
    case RTSHORT:
        return a->resval.rint == b->resval.rint;
    case RTLONG:
        return a->resval.rlong == b->resval.rlong;
    case RTSTR: {
        const char* s = a->resval.rstring ? a->resval.rstring : "";
        const char* t = b->resval.rstring ? b->resval.rstring : "";
        return ignoreCase ? _stricmp(s, t) == 0 : std::strcmp(s, t) == 0;
    }
    default:
        return true;
    }
}

void AppendString(resbuf** chain, const char* text) {
    resbuf* node = acutNewRb(RTSTR);
    node->resval.rstring = _strdup(text);
    *chain = AT_link_list(*chain, node);
}

void FreeStringChain(resbuf* chain) {
    for (resbuf* n = chain; n; n = n->rbnext) {
        if (n->restype == RTSTR) {
            std::free(n->resval.rstring);
            n->resval.rstring = nullptr;
        }
    }
    if (chain) acutRelRb(chain);
}
