// The Win32 calls that tell about the machine: its names, volumes, screen,
// and the speaker.
#pragma once
#include "platform/win32_files.h"

// Sounds a tone; FALSE for a frequency outside 37..32767 Hz.
BOOL Beep(DWORD frequency, DWORD duration);

enum : DWORD { MAX_COMPUTERNAME_LENGTH = 15, UNLEN = 256 };
// On entry *size is the buffer's size. On success the name is written and
// *size is its length (GetUserNameA counts the terminator too, as Windows
// does); a short buffer gives FALSE and *size the size needed.
BOOL GetComputerNameA(LPSTR buffer, LPDWORD size);
BOOL GetUserNameA(LPSTR buffer, LPDWORD size);

// Label, serial and file system of the volume of a root such as "C:\"; a
// null root means the current drive. Any out may be null; a label or system
// name longer than its buffer gives FALSE.
BOOL GetVolumeInformationA(LPCSTR rootPath, LPSTR volumeName, DWORD volumeNameSize, LPDWORD serialNumber,
                           LPDWORD maxComponentLength, LPDWORD fileSystemFlags, LPSTR fileSystemName,
                           DWORD fileSystemNameSize);

// Device contexts, for the screen's capabilities only.
typedef struct HDC__* HDC;
HDC GetDC(HWND window);                    // null window: the screen
int ReleaseDC(HWND window, HDC dc);
enum { HORZSIZE = 4, VERTSIZE = 6, HORZRES = 8, VERTRES = 10, BITSPIXEL = 12, LOGPIXELSX = 88, LOGPIXELSY = 90 };
int GetDeviceCaps(HDC dc, int index);      // 0 for an index the host doesn't know
