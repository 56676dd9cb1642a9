// Taking paths apart and joining them, as the C runtime of Windows does.
#include <cstring>

#include "platform/crt.h"

namespace {

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

// Copies [from, to) into `out` (if any), cut to `size - 1` bytes.
void CopyPart(char* out, size_t size, const char* from, const char* to) {
    if (!out) return;
    size_t n = static_cast<size_t>(to - from);
    if (n > size - 1) n = size - 1;
    std::memcpy(out, from, n);
    out[n] = 0;
}

}  // namespace

void _splitpath(const char* path, char* drive, char* dir, char* fname, char* ext) {
    if (!path) path = "";
    const char* p = path;
    if (p[0] && p[1] == ':') {
        CopyPart(drive, _MAX_DRIVE, p, p + 2);
        p += 2;
    } else {
        CopyPart(drive, _MAX_DRIVE, p, p);
    }
    const char* end = p + std::strlen(p);
    const char* name = p;  // behind the last separator
    const char* dot = nullptr;  // the last dot of the name
    for (const char* q = p; q < end; ++q) {
        if (IsSeparator(*q)) {
            name = q + 1;
            dot = nullptr;
        } else if (*q == '.') {
            dot = q;
        }
    }
    CopyPart(dir, _MAX_DIR, p, name);
    CopyPart(fname, _MAX_FNAME, name, dot ? dot : end);
    CopyPart(ext, _MAX_EXT, dot ? dot : end, end);
}

void _makepath(char* path, const char* drive, const char* dir, const char* fname, const char* ext) {
    if (!path) return;
    char* out = path;
    char* limit = path + _MAX_PATH - 1;
    auto put = [&](char c) {
        if (out < limit) *out++ = c;
    };
    auto puts = [&](const char* s) {
        for (; s && *s; ++s) put(*s);
    };
    if (drive && *drive) {
        put(drive[0]);
        put(':');
    }
    if (dir && *dir) {
        puts(dir);
        if (!IsSeparator(dir[std::strlen(dir) - 1])) put('\\');
    }
    puts(fname);
    if (ext && *ext) {
        if (*ext != '.') put('.');
        puts(ext);
    }
    *out = 0;
}
