// What a result buffer of a given type or group code holds.
#include "host/ads/value_kind.h"

#include "platform/adsdef.h"

namespace lumo::host {

ValueKind ValueKindOf(int code) {
    switch (code) {
    case RTREAL: case RTANG: case RTORINT: return ValueKind::Real;
    case RTPOINT: case RT3DPOINT: return ValueKind::Point;
    case RTSHORT: return ValueKind::Short;
    case RTLONG: return ValueKind::Long;
    case RTSTR: return ValueKind::Text;
    case RTENAME: case RTPICKS: return ValueKind::Name;
    default: break;
    }
    if (code >= 5000) return ValueKind::None;
    if (code == -1 || code == -2) return ValueKind::Name;
    if (code == -4) return ValueKind::Text;
    if (code < 0) return ValueKind::None;
    if (code <= 9) return ValueKind::Text;
    if (code <= 37) return ValueKind::Point;   // 38 and 39, elevation and thickness, are reals
    if (code <= 59) return ValueKind::Real;
    if (code <= 79) return ValueKind::Short;
    if (code >= 90 && code <= 99) return ValueKind::Long;
    if (code == 100 || code == 101 || code == 102 || code == 105) return ValueKind::Text;
    if (code >= 110 && code <= 139) return ValueKind::Point;
    if (code >= 140 && code <= 149) return ValueKind::Real;
    if (code >= 160 && code <= 169) return ValueKind::Long;   // 64-bit in files; kept in 32 bits
    if (code >= 170 && code <= 179) return ValueKind::Short;
    if (code >= 210 && code <= 239) return ValueKind::Point;
    if (code >= 270 && code <= 289) return ValueKind::Short;
    if (code >= 290 && code <= 299) return ValueKind::Short;
    if (code >= 300 && code <= 309) return ValueKind::Text;
    if (code >= 310 && code <= 319) return ValueKind::Text;  // binary as hex text
    if (code >= 320 && code <= 369) return ValueKind::Name;
    if (code >= 370 && code <= 389) return ValueKind::Short;
    if (code >= 390 && code <= 399) return ValueKind::Name;
    if (code >= 400 && code <= 409) return ValueKind::Short;
    if (code >= 410 && code <= 419) return ValueKind::Text;
    if (code >= 420 && code <= 429) return ValueKind::Long;
    if (code >= 430 && code <= 439) return ValueKind::Text;
    if (code >= 440 && code <= 449) return ValueKind::Long;
    if (code >= 450 && code <= 459) return ValueKind::Long;
    if (code >= 460 && code <= 469) return ValueKind::Real;
    if (code >= 470 && code <= 479) return ValueKind::Text;
    if (code >= 480 && code <= 481) return ValueKind::Name;
    if (code == 999) return ValueKind::Text;
    if (code == 1004) return ValueKind::Binary;
    if (code >= 1000 && code <= 1009) return ValueKind::Text;
    if (code >= 1010 && code <= 1059) return code <= 1039 ? ValueKind::Point : ValueKind::Real;
    if (code >= 1060 && code <= 1070) return ValueKind::Short;
    if (code == 1071) return ValueKind::Long;
    return ValueKind::None;
}

}  // namespace lumo::host
