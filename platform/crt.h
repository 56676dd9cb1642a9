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

// Byte comparison of multibyte texts: bytes compare unsigned, as strcmp does.
inline int _mbscmp(const unsigned char* a, const unsigned char* b) {
    return std::strcmp(reinterpret_cast<const char*>(a), reinterpret_cast<const char*>(b));
}

// The sizes of the parts of a path, terminators included.
enum { _MAX_PATH = 260, _MAX_DRIVE = 3, _MAX_DIR = 256, _MAX_FNAME = 256, _MAX_EXT = 256 };

// Splits a path into drive ("C:"), folder (with its trailing separator), name
// and extension (with its dot); any out may be null. Both `\` and `/` are
// separators; the parts are cut to the _MAX_ sizes.
void _splitpath(const char* path, char* drive, char* dir, char* fname, char* ext);
// Joins the parts again; a separator is added behind a folder lacking one and
// a dot ahead of an extension lacking one.
void _makepath(char* path, const char* drive, const char* dir, const char* fname, const char* ext);
