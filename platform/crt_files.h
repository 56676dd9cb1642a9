// The C runtime's calls on files and folders under their Windows names. Every
// path may be a Windows path ("C:\dir\a.txt", either separator, any letter
// case) or a plain Linux one; the host maps it onto its own files.
#pragma once
#include <cstdint>
#include <cstdio>
#include <ctime>

// Folders. Each returns 0 on success and -1 with errno set on failure.
// _getcwd writes the current folder in its Windows form ("C:\work") when the
// folder lies on a drive; a null buffer is malloc'ed (at least `maxlen` bytes)
// and belongs to the caller. Null with ERANGE when `maxlen` is too small.
char* _getcwd(char* buffer, int maxlen);
int _mkdir(const char* path);
int _chdir(const char* path);
int _rmdir(const char* path);

// Files. _fsopen is fopen with a sharing mode, which the host ignores; text
// and binary modes behave alike, as the host's files have no CR/LF rule.
enum { _SH_DENYRW = 0x10, _SH_DENYWR = 0x20, _SH_DENYRD = 0x30, _SH_DENYNO = 0x40 };
FILE* _fsopen(const char* filename, const char* mode, int shflag);
int _unlink(const char* filename);                       // remove a file
int _access(const char* path, int mode);                 // 0 exists, 2 write, 4 read, 6 both

// Directory search: `filespec` is a folder and a name pattern with `*` and
// `?`, matched without regard to case; "*.*" matches every name. Entries come
// in case-insensitive name order, "." and ".." first except at a drive's root.
typedef uint32_t _fsize_t;
enum : unsigned {
    _A_NORMAL = 0x00, _A_RDONLY = 0x01, _A_HIDDEN = 0x02, _A_SYSTEM = 0x04,
    _A_SUBDIR = 0x10, _A_ARCH = 0x20,
};
struct _finddata_t {
    unsigned attrib;
    time_t time_create;
    time_t time_access;
    time_t time_write;
    _fsize_t size;
    char name[260];
};
// A handle, or -1 (errno ENOENT) when nothing matches.
intptr_t _findfirst(const char* filespec, _finddata_t* fileinfo);
int _findnext(intptr_t handle, _finddata_t* fileinfo);    // 0, or -1 at the end
int _findclose(intptr_t handle);                          // 0, or -1 for a bad handle
