// The value type of a group code for typed access; the order of the tests is
// part of the definition.
#include "frame/TypeOfCode.h"

#include "platform/adsdef.h"

int TypeOfCode(int code) {
    if (code >= RTNONE && code <= RTT) return code;
    if (code >= 11000) {
        if (code < 11100) return RTSHORT;
        if (code < 11200) return RTREAL;
        if (code < 11400) return RTSTR;
        if (code < 11500) return 5011;
        return RTNONE;
    }
    if (code == 1071) return RTLONG;
    if (code >= 1000 && code <= 10999) code %= 1000;
    if (code >= 20 && code <= 49) return RTREAL;
    if (code >= 10 && code <= 19) return RT3DPOINT;
    if (code >= 0 && code <= 9) return RTSTR;
    if (code >= 50 && code <= 59) return RTANG;
    if (code >= 60 && code <= 79) return RTSHORT;
    if (code == 100) return RTSTR;
    if (code >= 210 && code <= 239) return RT3DPOINT;
    if (code == 999) return RTSTR;
    if (code == -1 || code == -2) return RTENAME;
    if (code == -3) return RTSHORT;
    if (code == -4) return RTSTR;
    return RTNONE;
}
