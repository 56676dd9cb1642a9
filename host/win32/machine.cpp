// The machine as the host's Win32 layer tells it: names, volumes, screen,
// speaker.
#include "host/win32/machine.h"

#include <pwd.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>

#include "host/win32/file_info.h"
#include "host/win32/path_map.h"
#include "platform/win32_system.h"

namespace lumo::win32 {
namespace {

MachineSettings RealMachine() {
    MachineSettings m;
    char host[256] = "";
    if (gethostname(host, sizeof host - 1) != 0 || !*host) std::strcpy(host, "LUMO");
    m.computerName = host;
    for (char& c : m.computerName) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    if (m.computerName.size() > MAX_COMPUTERNAME_LENGTH) m.computerName.resize(MAX_COMPUTERNAME_LENGTH);
    const passwd* pw = getpwuid(geteuid());
    const char* login = pw && pw->pw_name ? pw->pw_name : std::getenv("USER");
    m.userName = login && *login ? login : "user";
    return m;
}

std::vector<BeepRecord>& Beeps() {
    static std::vector<BeepRecord> beeps;
    return beeps;
}

bool ParseUnsigned(const std::string& text, int base, unsigned long& out) {
    if (text.empty()) return false;
    char* end = nullptr;
    errno = 0;
    out = std::strtoul(text.c_str(), &end, base);
    return !*end && errno == 0 && text[0] != '-';
}

}  // namespace

MachineSettings& Machine() {
    static MachineSettings machine = RealMachine();
    return machine;
}

void ResetMachine() { Machine() = RealMachine(); }

bool SetMachineSetting(const std::string& key, const std::string& value) {
    MachineSettings& m = Machine();
    unsigned long n = 0;
    if (key == "computer") m.computerName = value;
    else if (key == "user") m.userName = value;
    else if (key == "label") m.volumeLabel = value;
    else if (key == "filesystem") m.fileSystem = value;
    else if (key == "windows") m.windowsFolder = value;
    else if (key == "system") m.systemFolder = value;
    else if (key == "temp") m.tempFolder = value;
    else if (key == "ideserial") m.ideSerial = value;
    else if (key == "serial") {
        if (!ParseUnsigned(value, 16, n) || n > 0xFFFFFFFFul) return false;
        m.fixedSerial = true;
        m.volumeSerial = static_cast<uint32_t>(n);
    } else if (key == "screen") {
        size_t x = value.find_first_of("xX");
        unsigned long w = 0, h = 0;
        if (x == std::string::npos || !ParseUnsigned(value.substr(0, x), 10, w) ||
            !ParseUnsigned(value.substr(x + 1), 10, h) || w == 0 || h == 0 || w > 100000 || h > 100000)
            return false;
        m.screenWidth = static_cast<int>(w);
        m.screenHeight = static_cast<int>(h);
    } else {
        return false;
    }
    return true;
}

bool ParseMachineOption(const std::string& option) {
    size_t eq = option.find('=');
    return eq != std::string::npos && SetMachineSetting(option.substr(0, eq), option.substr(eq + 1));
}

const std::vector<BeepRecord>& BeepLog() { return Beeps(); }
void ClearBeepLog() { Beeps().clear(); }

}  // namespace lumo::win32

using namespace lumo::win32;

// The host doesn't hold the caller for the tone's duration: scripts run
// at full speed, and the record keeps what was asked.
BOOL Beep(DWORD frequency, DWORD duration) {
    if (frequency < 37 || frequency > 32767) return FALSE;
    Beeps().push_back({frequency, duration});
    if (isatty(STDOUT_FILENO)) (void)!write(STDOUT_FILENO, "\a", 1);
    return TRUE;
}

namespace {

BOOL CopyName(const std::string& name, LPSTR buffer, LPDWORD size, bool countTerminator) {
    if (!size) return FALSE;
    DWORD needed = static_cast<DWORD>(name.size()) + 1;
    if (!buffer || *size < needed) {
        *size = needed;
        return FALSE;
    }
    std::memcpy(buffer, name.c_str(), needed);
    *size = countTerminator ? needed : needed - 1;
    return TRUE;
}

// The Linux folder of a volume root: "C:\" or "C:/", a Linux folder ending
// with a slash, or the current drive for null; "" when it is none of these.
std::string VolumeFolder(LPCSTR root) {
    if (!root) {
        char letter = DriveOf(".");
        return DriveFolder(letter ? letter : 'C');
    }
    std::string r = root;
    if (r.size() == 3 && std::isalpha(static_cast<unsigned char>(r[0])) && r[1] == ':' && (r[2] == '\\' || r[2] == '/'))
        return DriveFolder(r[0]);
    if (r.size() > 1 && r[0] == '/' && r.back() == '/') return r;
    return {};
}

}  // namespace

BOOL GetComputerNameA(LPSTR buffer, LPDWORD size) { return CopyName(Machine().computerName, buffer, size, false); }
BOOL GetUserNameA(LPSTR buffer, LPDWORD size) { return CopyName(Machine().userName, buffer, size, true); }

BOOL GetVolumeInformationA(LPCSTR rootPath, LPSTR volumeName, DWORD volumeNameSize, LPDWORD serialNumber,
                           LPDWORD maxComponentLength, LPDWORD fileSystemFlags, LPSTR fileSystemName,
                           DWORD fileSystemNameSize) {
    std::string folder = VolumeFolder(rootPath);
    struct statvfs vfs;
    if (folder.empty() || statvfs(folder.c_str(), &vfs) != 0) return FALSE;
    const MachineSettings& m = Machine();
    if (volumeName && CopyOutWin(m.volumeLabel, volumeName, volumeNameSize) > m.volumeLabel.size()) return FALSE;
    if (fileSystemName && CopyOutWin(m.fileSystem, fileSystemName, fileSystemNameSize) > m.fileSystem.size())
        return FALSE;
    if (serialNumber) *serialNumber = m.fixedSerial ? m.volumeSerial : static_cast<DWORD>(vfs.f_fsid);
    if (maxComponentLength) *maxComponentLength = static_cast<DWORD>(vfs.f_namemax);
    if (fileSystemFlags) *fileSystemFlags = 0x3;   // case-sensitive search, case-preserved names
    return TRUE;
}

namespace {
int gScreen;  // the address is the screen's device context
}

HDC GetDC(HWND) { return reinterpret_cast<HDC>(&gScreen); }   // any window lies on the one screen
int ReleaseDC(HWND, HDC dc) { return dc == reinterpret_cast<HDC>(&gScreen); }

int GetDeviceCaps(HDC dc, int index) {
    if (dc != reinterpret_cast<HDC>(&gScreen)) return 0;
    const MachineSettings& m = Machine();
    const int dpi = 96;
    switch (index) {
        case HORZRES: return m.screenWidth;
        case VERTRES: return m.screenHeight;
        case HORZSIZE: return static_cast<int>(m.screenWidth * 25.4 / dpi + 0.5);
        case VERTSIZE: return static_cast<int>(m.screenHeight * 25.4 / dpi + 0.5);
        case BITSPIXEL: return 32;
        case LOGPIXELSX:
        case LOGPIXELSY: return dpi;
        default: return 0;
    }
}
