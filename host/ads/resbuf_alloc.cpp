// Result-buffer nodes: allocation, release and building of chains.
// Nodes and their texts come from malloc, so module code that copies nodes
// apart from these calls can still hand them back to acutRelRb.
#include <cstdarg>
#include <cstdlib>
#include <cstring>

#include "host/ads/value_kind.h"
#include "platform/acutads.h"
#include "platform/crt.h"

resbuf* acutNewRb(int type) {
    auto* node = static_cast<resbuf*>(std::calloc(1, sizeof(resbuf)));
    if (node) node->restype = static_cast<short>(type);
    return node;
}

int acutRelRb(resbuf* chain) {
    while (chain) {
        resbuf* next = chain->rbnext;
        switch (lumo::host::ValueKindOf(chain->restype)) {
        case lumo::host::ValueKind::Text:
            std::free(chain->resval.rstring);
            break;
        case lumo::host::ValueKind::Binary:
            std::free(chain->resval.rbinary.buf);
            break;
        default:
            break;
        }
        std::free(chain);
        chain = next;
    }
    return RTNORM;
}

// Pairs of a type and a value, ended by 0. RTDXF0 stands for group code 0.
resbuf* acutBuildList(int type, ...) {
    va_list ap;
    va_start(ap, type);
    resbuf* head = nullptr;
    resbuf** link = &head;
    for (; type != 0; type = va_arg(ap, int)) {
        int code = type == RTDXF0 ? 0 : type;
        resbuf* node = acutNewRb(code);
        *link = node;
        link = &node->rbnext;
        switch (lumo::host::ValueKindOf(code)) {
        case lumo::host::ValueKind::Text:
            node->resval.rstring = _strdup(va_arg(ap, const char*));
            break;
        case lumo::host::ValueKind::Real:
            node->resval.rreal = va_arg(ap, double);
            break;
        case lumo::host::ValueKind::Point:
            std::memcpy(node->resval.rpoint, va_arg(ap, const double*), sizeof node->resval.rpoint);
            break;
        case lumo::host::ValueKind::Short:
            node->resval.rint = static_cast<short>(va_arg(ap, int));
            break;
        case lumo::host::ValueKind::Long:
            node->resval.rlong = static_cast<int32_t>(va_arg(ap, int));
            break;
        case lumo::host::ValueKind::Name: {
            const int32_t* name = va_arg(ap, const int32_t*);
            node->resval.rlname[0] = name[0];
            node->resval.rlname[1] = name[1];
            break;
        }
        case lumo::host::ValueKind::Binary: {
            node->resval.rbinary.clen = static_cast<short>(va_arg(ap, int));
            const char* bytes = va_arg(ap, const char*);
            int n = node->resval.rbinary.clen;
            node->resval.rbinary.buf = n > 0 ? static_cast<char*>(std::malloc(n)) : nullptr;
            if (n > 0) std::memcpy(node->resval.rbinary.buf, bytes, n);
            break;
        }
        case lumo::host::ValueKind::None:
            break;
        }
    }
    va_end(ap);
    return head;
}
