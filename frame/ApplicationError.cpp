// The class library's report of a failure.
#include "frame/ApplicationError.h"

#include <cstdarg>
#include <cstdio>

#include "platform/acedads.h"

void ApplicationError(const char* format, ...) {
    char text[256];
    va_list ap;
    va_start(ap, format);
    std::vsnprintf(text, sizeof text, format, ap);  // bounded: a long text is cut
    va_end(ap);
    acdbFail(text);
}
