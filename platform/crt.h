// The C runtime's string helpers that the module uses under their Windows names.
#pragma once
#include <cctype>
#include <cstdlib>
#include <cstring>

inline char* _strdup(const char* text) {
    if (!text) return nullptr;
    size_t n = std::strlen(text) + 1;
    char* copy = static_cast<char*>(std::malloc(n));
    if (copy) std::memcpy(copy, text, n);
    return copy;
}

// Case-insensitive comparison of bytes, ASCII letters folded to lower case.
inline int _strnicmp(const char* a, const char* b, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        int ca = std::tolower(static_cast<unsigned char>(a[i]));
        int cb = std::tolower(static_cast<unsigned char>(b[i]));
        if (ca != cb) return ca - cb;
        if (!ca) return 0;
    }
    return 0;
}

inline int _stricmp(const char* a, const char* b) { return _strnicmp(a, b, static_cast<size_t>(-1)); }

inline char* _strupr(char* text) {
    for (char* p = text; p && *p; ++p) *p = static_cast<char>(std::toupper(static_cast<unsigned char>(*p)));
    return text;
}

inline char* _strlwr(char* text) {
    for (char* p = text; p && *p; ++p) *p = static_cast<char>(std::tolower(static_cast<unsigned char>(*p)));
    return text;
}

// Splits a path into drive, folder, name and extension; any out may be null.
void _splitpath(const char* path, char* drive, char* dir, char* fname, char* ext);
