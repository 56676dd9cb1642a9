// XAdsOStream: typed printing to the command line.
#include "frame/XAdsOStream.h"

#include <cstdio>

#include "platform/acutads.h"

XAdsOStream& XAdsOStream::operator<<(const char* text) {
    acutPrintf("%s", text ? text : "");
    return *this;
}

XAdsOStream& XAdsOStream::operator<<(int value) {
    acutPrintf("%d", value);
    return *this;
}

XAdsOStream& XAdsOStream::operator<<(long value) {
    acutPrintf("%ld", value);
    return *this;
}

// The numeric forms are formatted first and the result handed to acutPrintf
// as its format, as the command line has always received them.
XAdsOStream& XAdsOStream::operator<<(double value) {
    char text[80];
    std::snprintf(text, sizeof text, "%g", value);
    acutPrintf(text);
    return *this;
}

XAdsOStream& XAdsOStream::operator<<(const double* point) {
    char text[1024];
    std::snprintf(text, sizeof text, "(%g,%g,%g)", point[0], point[1], point[2]);
    acutPrintf(text);
    return *this;
}
