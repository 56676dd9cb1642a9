// XString and strchr_new.
#include "frame/XString.h"

#include <unistd.h>

#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace {

const int kDefaultSize = 256;

char* CopyOf(const char* source) {
    size_t n = std::strlen(source) + 1;
    char* copy = new char[n];
    std::memcpy(copy, source, n);
    return copy;
}

}  // namespace

XString::XString(int size) : text(nullptr) {
    if (size < 1) _exit(1);
    text = new char[static_cast<size_t>(size)];
    text[0] = 0;
}

XString::XString(const char* format, ...) : text(nullptr) {
    if (!format) return;
    char buffer[kDefaultSize];
    va_list args;
    va_start(args, format);
    std::vsnprintf(buffer, sizeof buffer, format, args);
    va_end(args);
    text = CopyOf(buffer);
}

XString::XString(const XString& source) : text(source.text ? CopyOf(source.text) : nullptr) {}

XString::~XString() { delete[] text; }

int XString::Length() const { return text ? static_cast<int>(std::strlen(text)) : 0; }

char* XString::StrChr(char c) const { return text ? std::strchr(text, c) : nullptr; }

bool XString::operator!() const { return !text || !*text; }

XString& XString::operator=(const char* source) {
    char* copy = source ? CopyOf(source) : nullptr;   // the source may be our own text
    delete[] text;
    text = copy;
    return *this;
}

XString& XString::operator=(const XString& source) {
    if (this != &source) *this = source.text;
    return *this;
}

int XString::operator==(const XString& other) const {
    if (!text || !other.text) _exit(1);
    return std::strcmp(text, other.text) == 0;
}

int XString::operator!=(const XString& other) const {
    if (!text || !other.text) _exit(1);
    int order = std::strcmp(text, other.text);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

XString& XString::operator<<(const char* more) {
    if (!text) {
        text = new char[kDefaultSize];
        text[0] = 0;
    }
    if (more) std::strcat(text, more);
    return *this;
}

XString& XString::operator<<(int value) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%d", value);
    return *this << buffer;
}

XString& XString::operator<<(long value) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%ld", value);
    return *this << buffer;
}

XString& XString::operator<<(double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%g", value);
    return *this << buffer;
}

XString& XString::operator<<(const double* point) {
    if (!point) return *this;
    char buffer[192];
    std::snprintf(buffer, sizeof buffer, "(%g,%g,%g)", point[0], point[1], point[2]);
    return *this << buffer;
}

char* strchr_new(const char* text, int c, bool nameOnly) {
    if (!text) return nullptr;
    char* last = const_cast<char*>(std::strrchr(text, c));
    if (!last || !nameOnly) return last;
    if (c && std::strchr("\\/:*?\"<>|", c)) return last;
    return std::strchr(last, '\\') ? nullptr : last;
}
