// The Win32 calls on files, folders and drives. Paths may be Windows or Linux
// paths (see platform/crt_files.h). Failures set no error code that can be
// read back: callers test the result only.
#pragma once
#include "platform/win32.h"

#ifndef TRUE
#define TRUE 1
#define FALSE 0
#endif

typedef const char* LPCSTR;
typedef char* LPSTR;
typedef DWORD* LPDWORD;
struct SECURITY_ATTRIBUTES;
typedef SECURITY_ATTRIBUTES* LPSECURITY_ATTRIBUTES;

enum : DWORD { MAX_PATH = 260 };

enum : DWORD {
    FILE_ATTRIBUTE_READONLY = 0x01,
    FILE_ATTRIBUTE_HIDDEN = 0x02,
    FILE_ATTRIBUTE_SYSTEM = 0x04,
    FILE_ATTRIBUTE_DIRECTORY = 0x10,
    FILE_ATTRIBUTE_ARCHIVE = 0x20,
    FILE_ATTRIBUTE_NORMAL = 0x80,
    FILE_ATTRIBUTE_TEMPORARY = 0x100,
    INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF,
};

// Attributes of a file: DIRECTORY for folders, ARCHIVE for files, READONLY
// when the owner may not write, HIDDEN for a name that begins with a dot.
// INVALID_FILE_ATTRIBUTES when there is no such file.
DWORD GetFileAttributesA(LPCSTR path);
// READONLY takes away or gives back the write permission; the other
// attributes are accepted and have no effect on the host. FALSE when there
// is no such file.
BOOL SetFileAttributesA(LPCSTR path, DWORD attributes);

BOOL CreateDirectoryA(LPCSTR path, LPSECURITY_ATTRIBUTES security);   // FALSE if it exists
BOOL RemoveDirectoryA(LPCSTR path);                                 // empty folders only
BOOL SetCurrentDirectoryA(LPCSTR path);
DWORD GetCurrentDirectoryA(DWORD size, LPSTR buffer);
BOOL DeleteFileA(LPCSTR path);
// Fails when the new name exists, as on Windows.
BOOL MoveFileA(LPCSTR existing, LPCSTR newName);
BOOL CopyFileA(LPCSTR existing, LPCSTR newName, BOOL failIfExists);

// Folders of the machine. Each writes the folder and returns its length; a
// buffer too small gets nothing and the return is the size needed, the
// terminator included. The temporary folder ends with a backslash, or with a
// slash where it lies on no drive and so reads as a Linux path.
UINT GetWindowsDirectoryA(LPSTR buffer, UINT size);
UINT GetSystemDirectoryA(LPSTR buffer, UINT size);
DWORD GetTempPathA(DWORD size, LPSTR buffer);

// The roots of the drives, "C:\" each followed by a NUL, and a final NUL; the
// length without the final NUL, or the size needed if the buffer is short.
DWORD GetLogicalDriveStringsA(DWORD size, LPSTR buffer);
DWORD GetLogicalDrives();                                           // bit 0 is A:
