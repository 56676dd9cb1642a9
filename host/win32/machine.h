// What the host's Win32 layer tells about the machine, and the record of the
// tones it sounded.
//
// Each field starts from the real machine where Linux has an answer and from
// the documented default otherwise; the lumo program and tests may change
// them (SetMachineSetting takes the `--machine key=value` form).
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace lumo::win32 {

struct MachineSettings {
    std::string computerName;        // the host name, upper case, cut to 15 bytes
    std::string userName;            // the login name
    std::string volumeLabel = "LUMO";  // every drive's label
    bool fixedSerial = false;        // false: the serial comes from the drive's file system id
    uint32_t volumeSerial = 0;
    std::string fileSystem = "NTFS";
    std::string windowsFolder = "C:\\WINDOWS";
    std::string systemFolder = "C:\\WINDOWS\\system32";
    std::string tempFolder;          // empty: $TMPDIR or /tmp, in its Windows form
    int screenWidth = 1920;          // pixels; the host has no screen to ask
    int screenHeight = 1080;
    std::string ideSerial;           // the first IDE drive's serial; empty: no drive answers
};

// The settings in force; change them in place.
MachineSettings& Machine();
// Back to the start (the real machine and the defaults).
void ResetMachine();
// Sets one field by key: computer, user, label, serial (hex), filesystem,
// windows, system, temp, screen (WIDTHxHEIGHT), ideserial. False for an
// unknown key or a malformed value.
bool SetMachineSetting(const std::string& key, const std::string& value);
// "key=value"; false when there is no '=' or SetMachineSetting refuses.
bool ParseMachineOption(const std::string& option);

// Every Beep call the host accepted, in order.
struct BeepRecord {
    uint32_t frequency;
    uint32_t duration;
};
const std::vector<BeepRecord>& BeepLog();
void ClearBeepLog();

}  // namespace lumo::win32
