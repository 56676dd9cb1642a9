// The class library's report of a failure: formatted, then handed to acdbFail.
#pragma once

// Formats into 256 bytes and calls acdbFail with the text; the caller goes on.
void ApplicationError(const char* format, ...)
#if defined(__GNUC__)
    __attribute__((format(printf, 1, 2)))
#endif
    ;
