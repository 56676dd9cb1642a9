// Drive letters of the host and the mapping of Windows paths onto Linux ones.
//
// Every host operation that opens, lists or changes a file by name goes
// through MapPath, so that a module written for Windows finds its files:
//   - `\` and `/` both separate folders;
//   - a drive letter maps to a Linux folder (the drive table; C: is the
//     filesystem root until set, e.g. by `lumo --drive C=/some/dir`);
//   - a name that exists in another letter case is found, as Windows finds it
//     (the first such name in byte order, for a stable answer);
//   - a path that begins with `/` is a Linux path and is kept as it stands,
//     but for the case rule.
// Paths that do not exist yet (a file about to be created) map component by
// component as far as they exist and keep the rest as given.
#pragma once
#include <string>
#include <vector>

namespace lumo::win32 {

// Maps `letter` (either case) to `folder`, made absolute against the current
// folder; an empty folder removes the drive. False for a letter outside A-Z.
bool SetDrive(char letter, const std::string& folder);
// Reads the `--drive` option's value "C=/some/dir" (also "C:=/dir"); false
// when it is malformed, and then nothing changes.
bool ParseDriveOption(const std::string& option);
// The Linux folder of a drive (no trailing slash but for "/"), "" if unmapped.
std::string DriveFolder(char letter);
// The mapped letters, upper case, in order.
std::vector<char> DriveLetters();
// Back to the start: C: alone, mapped to "/".
void ResetDrives();

// The Linux path to open for a Windows path ("C:\tmp\A.txt", "\tmp\a",
// "sub\a.txt", "C:sub") or a Linux path. An unmapped drive letter gives "".
// A rooted path without a drive ("\tmp") lies on the current drive: the one
// whose folder holds the current folder, else the filesystem root.
std::string MapPath(const std::string& path);

// The Windows form "C:\dir\a.txt" of a Linux path that lies in a drive's
// folder (the deepest such folder wins); any other path is returned as given.
// Relative paths are taken against the current folder first.
std::string ToWindowsPath(const std::string& linuxPath);

// The drive letter (upper case) whose folder holds `linuxPath`, or 0.
char DriveOf(const std::string& linuxPath);

}  // namespace lumo::win32
