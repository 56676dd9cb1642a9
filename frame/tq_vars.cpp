// System-variable access of the older C layer.
#include "frame/tq_vars.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/acedads.h"

int tq_getvar(const char* name, char* out) {
    resbuf value;
    value.rbnext = nullptr;
    int status = acedGetVar(name, &value);
    out[0] = '\0';
    if (status != RTNORM) return status;
    switch (value.restype) {
    case RTSTR:
        std::strcpy(out, value.resval.rstring ? value.resval.rstring : "");
        std::free(value.resval.rstring);
        break;
    case RTSHORT:
        std::sprintf(out, "%d", value.resval.rint);
        break;
    case RTLONG:
        std::sprintf(out, "%ld", static_cast<long>(value.resval.rlong));
        break;
    case RTREAL:
    case RTANG:
        std::sprintf(out, "%.17g", value.resval.rreal);
        break;
    case RTPOINT:
    case RT3DPOINT:
        std::sprintf(out, "%.17g,%.17g,%.17g", value.resval.rpoint[0], value.resval.rpoint[1],
                     value.resval.rpoint[2]);
        break;
    default:
        break;
    }
    return RTNORM;
}
