// The machine as the Win32 layer tells it: names, folders, volumes, screen,
// speaker and the IDE controller's ports.
#include <gtest/gtest.h>

#include <string>

#include "host/win32/machine.h"
#include "host/win32/path_map.h"
#include "platform/conio.h"
#include "platform/win32_system.h"

using namespace lumo::win32;

namespace {

struct MachineReset {
    ~MachineReset() {
        ResetMachine();
        ResetDrives();
        ClearBeepLog();
    }
};

}  // namespace

TEST(Win32Machine, NamesHonourTheBufferSize) {
    MachineReset reset;
    Machine().computerName = "BOX";
    Machine().userName = "ann";
    char buf[16];
    DWORD size = sizeof buf;
    ASSERT_TRUE(GetComputerNameA(buf, &size));
    EXPECT_STREQ(buf, "BOX");
    EXPECT_EQ(size, 3u);
    size = sizeof buf;
    ASSERT_TRUE(GetUserNameA(buf, &size));
    EXPECT_STREQ(buf, "ann");
    EXPECT_EQ(size, 4u);   // the terminator counts here
    size = 2;
    EXPECT_FALSE(GetComputerNameA(buf, &size));
    EXPECT_EQ(size, 4u);
}

TEST(Win32Machine, RealNamesAreNotEmpty) {
    MachineReset reset;
    EXPECT_FALSE(Machine().computerName.empty());
    EXPECT_LE(Machine().computerName.size(), 15u);
    EXPECT_FALSE(Machine().userName.empty());
}

TEST(Win32Machine, FoldersFromTheSettings) {
    MachineReset reset;
    char buf[261];
    EXPECT_EQ(GetWindowsDirectoryA(buf, sizeof buf), 10u);
    EXPECT_STREQ(buf, "C:\\WINDOWS");
    GetSystemDirectoryA(buf, sizeof buf);
    EXPECT_STREQ(buf, "C:\\WINDOWS\\system32");
    ASSERT_TRUE(SetMachineSetting("temp", "C:\\tmp"));
    GetTempPathA(sizeof buf, buf);
    EXPECT_STREQ(buf, "C:\\tmp\\");   // the temporary folder ends with a backslash
    EXPECT_EQ(GetWindowsDirectoryA(buf, 5), 11u);
}

TEST(Win32Machine, TemporaryFolderOnNoDriveEndsWithASlash) {
    MachineReset reset;
    char buf[261];
    ASSERT_TRUE(SetMachineSetting("temp", "/var/tmp"));
    GetTempPathA(sizeof buf, buf);
    EXPECT_STREQ(buf, "/var/tmp/");
    ASSERT_TRUE(SetMachineSetting("temp", "C:\\Temp\\"));
    GetTempPathA(sizeof buf, buf);
    EXPECT_STREQ(buf, "C:\\Temp\\");
}

TEST(Win32Machine, VolumeLabelAndSerial) {
    MachineReset reset;
    ASSERT_TRUE(SetMachineSetting("serial", "1a2b3c4d"));
    ASSERT_TRUE(SetMachineSetting("label", "DATA"));
    char label[15];
    DWORD serial = 0;
    char fs[16];
    ASSERT_TRUE(GetVolumeInformationA("C:\\", label, sizeof label, &serial, nullptr, nullptr, fs, sizeof fs));
    EXPECT_STREQ(label, "DATA");
    EXPECT_EQ(serial, 0x1A2B3C4Du);
    EXPECT_STREQ(fs, "NTFS");
    EXPECT_TRUE(GetVolumeInformationA(nullptr, nullptr, 0, &serial, nullptr, nullptr, nullptr, 0));
    EXPECT_FALSE(GetVolumeInformationA("C:", label, sizeof label, nullptr, nullptr, nullptr, nullptr, 0));
    EXPECT_FALSE(GetVolumeInformationA("Q:\\", label, sizeof label, nullptr, nullptr, nullptr, nullptr, 0));
    ASSERT_TRUE(SetMachineSetting("label", "A-VERY-LONG-LABEL"));
    EXPECT_FALSE(GetVolumeInformationA("C:\\", label, sizeof label, nullptr, nullptr, nullptr, nullptr, 0));
}

TEST(Win32Machine, SettingsRefuseMalformedValues) {
    MachineReset reset;
    EXPECT_FALSE(SetMachineSetting("serial", "xyz"));
    EXPECT_FALSE(SetMachineSetting("screen", "800"));
    EXPECT_FALSE(SetMachineSetting("screen", "0x600"));
    EXPECT_FALSE(SetMachineSetting("nosuchkey", "1"));
    EXPECT_FALSE(ParseMachineOption("user"));
    EXPECT_TRUE(ParseMachineOption("screen=800x600"));
    EXPECT_TRUE(ParseMachineOption("user=bob"));
    EXPECT_EQ(Machine().userName, "bob");
}

TEST(Win32Machine, ScreenCapabilities) {
    MachineReset reset;
    ASSERT_TRUE(SetMachineSetting("screen", "800x600"));
    HDC dc = GetDC(nullptr);
    ASSERT_NE(dc, nullptr);
    EXPECT_EQ(GetDeviceCaps(dc, HORZRES), 800);
    EXPECT_EQ(GetDeviceCaps(dc, VERTRES), 600);
    EXPECT_EQ(GetDeviceCaps(dc, LOGPIXELSX), 96);
    EXPECT_EQ(GetDeviceCaps(dc, 9999), 0);
    EXPECT_EQ(GetDeviceCaps(nullptr, HORZRES), 0);
    EXPECT_EQ(ReleaseDC(nullptr, dc), 1);
}

TEST(Win32Machine, BeepIsRecorded) {
    MachineReset reset;
    ClearBeepLog();
    EXPECT_FALSE(Beep(36, 10));
    EXPECT_TRUE(Beep(37, 10));
    EXPECT_TRUE(Beep(32767, 5));
    EXPECT_FALSE(Beep(32768, 5));
    ASSERT_EQ(BeepLog().size(), 2u);
    EXPECT_EQ(BeepLog()[0].frequency, 37u);
    EXPECT_EQ(BeepLog()[1].duration, 5u);
}

TEST(Win32Machine, IdeControllerAnswersFromTheSetting) {
    MachineReset reset;
    EXPECT_EQ(_inp(0x1F7), 0x00);   // no drive
    ASSERT_TRUE(SetMachineSetting("ideserial", "WD-123"));
    EXPECT_EQ(_inp(0x1F7), 0x50);
    _outp(0x1F6, 0xA0);
    _outp(0x1F7, 0xEC);
    EXPECT_EQ(_inp(0x1F7), 0x58);
    unsigned short words[256];
    for (unsigned short& w : words) w = _inpw(0x1F0);
    EXPECT_EQ(_inp(0x1F7), 0x50);   // the block is read
    std::string serial;
    for (int i = 10; i < 20; ++i) {
        serial += static_cast<char>(words[i] >> 8);
        serial += static_cast<char>(words[i] & 0xFF);
    }
    EXPECT_EQ(serial, "              WD-123");
    EXPECT_EQ(_inp(0x60), 0xFF);
}
