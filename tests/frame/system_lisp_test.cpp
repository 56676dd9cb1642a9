// The LISP system family over the host's Win32 layer.
#include <gtest/gtest.h>

#include <string>

#include "frame/system_lisp.h"
#include "frame_test_support.h"
#include "handler_call.h"
#include "host/win32/machine.h"
#include "host/win32/path_map.h"

using lumo::test::CallHandler;
using namespace lumo::win32;

namespace {

class SystemFunctions : public ::testing::Test {
protected:
    void TearDown() override {
        ResetMachine();
        ResetDrives();
        ClearBeepLog();
    }
};

}  // namespace

TEST_F(SystemFunctions, BeepRefusesLowFrequenciesWithAMessage) {
    CaptureOutput out;
    EXPECT_EQ(CallHandler(lumo_system_beep, "36 100"), "nil");
    EXPECT_EQ(out.Text(), "\nfrequency must be between 37 and 32767 Hz!");
    EXPECT_TRUE(BeepLog().empty());
    EXPECT_EQ(CallHandler(lumo_system_beep, "37 100"), "T");
    ASSERT_EQ(BeepLog().size(), 1u);
    EXPECT_EQ(BeepLog()[0].frequency, 37u);
    EXPECT_EQ(BeepLog()[0].duration, 100u);
    EXPECT_EQ(CallHandler(lumo_system_beep, "440"), "nil");
    EXPECT_EQ(CallHandler(lumo_system_beep, "440.0 10"), "nil");
}

TEST_F(SystemFunctions, NamesTakeNoArgument) {
    Machine().computerName = "WORKSTATION";
    Machine().userName = "ann";
    EXPECT_EQ(CallHandler(lumo_system_ComputerName, ""), "\"WORKSTATION\"");
    EXPECT_EQ(CallHandler(lumo_system_UserName, ""), "\"ann\"");
    EXPECT_EQ(CallHandler(lumo_system_ComputerName, "1"), "nil");
    EXPECT_EQ(CallHandler(lumo_system_UserName, "nil"), "nil");
}

TEST_F(SystemFunctions, VolumeNameAndSerial) {
    ASSERT_TRUE(SetMachineSetting("label", "DATA"));
    ASSERT_TRUE(SetMachineSetting("serial", "1A2B3C4D"));
    EXPECT_EQ(CallHandler(lumo_system_VolumeName, "\"C:\\\\\""), "\"DATA\"");
    EXPECT_EQ(CallHandler(lumo_system_getSerial, "\"C:\\\\\""), "\"1A2B-3C4D\"");
    ASSERT_TRUE(SetMachineSetting("serial", "ABC"));
    EXPECT_EQ(CallHandler(lumo_system_getSerial, "\"C:\\\\\""), "\"ABC-\"");
    ASSERT_TRUE(SetMachineSetting("serial", "123456"));
    EXPECT_EQ(CallHandler(lumo_system_getSerial, "\"C:\\\\\""), "\"1234-56\"");
    EXPECT_EQ(CallHandler(lumo_system_VolumeName, "\"Q:\\\\\""), "nil");
    ASSERT_TRUE(SetMachineSetting("label", "FIFTEEN-LETTERS"));   // no room in 15 bytes
    EXPECT_EQ(CallHandler(lumo_system_VolumeName, "\"C:\\\\\""), "nil");
}

TEST_F(SystemFunctions, VolumeQueriesComplainOfOtherArguments) {
    CaptureOutput out;
    EXPECT_EQ(CallHandler(lumo_system_VolumeName, "1"), "nil");
    EXPECT_EQ(out.Text(), "\nExpect a strings!");
    EXPECT_EQ(CallHandler(lumo_system_getSerial, "1"), "nil");
    EXPECT_EQ(out.Text(), "\nExpect a strings!\nExpect a String!");
    EXPECT_EQ(CallHandler(lumo_system_getSerial, ""), "nil");   // nothing at all: no message
    EXPECT_EQ(out.Text(), "\nExpect a strings!\nExpect a String!");
}

TEST_F(SystemFunctions, IdeSerialFromTheSetting) {
    EXPECT_EQ(CallHandler(lumo_system_getideserial, ""), "nil");
    ASSERT_TRUE(SetMachineSetting("ideserial", "WD-WMAM9ABC"));
    EXPECT_EQ(CallHandler(lumo_system_getideserial, ""), "\"WD-WMAM9ABC\"");
    ASSERT_TRUE(SetMachineSetting("ideserial", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"));
    EXPECT_EQ(CallHandler(lumo_system_getideserial, ""), "\"ABCDEFGHIJKLMNOPQRST\"");
    EXPECT_EQ(CallHandler(lumo_system_getideserial, "1"), "nil");
}

TEST_F(SystemFunctions, ScreenResolution) {
    ASSERT_TRUE(SetMachineSetting("screen", "1280x1024"));
    EXPECT_EQ(CallHandler(lumo_system_getscreenResolution, ""), "(1280 1024)");
    ASSERT_TRUE(SetMachineSetting("screen", "40000x30000"));
    EXPECT_EQ(CallHandler(lumo_system_getscreenResolution, ""), "(40000 30000)");
    EXPECT_EQ(CallHandler(lumo_system_getscreenResolution, "1"), "nil");
}

TEST_F(SystemFunctions, Folders) {
    ASSERT_TRUE(SetMachineSetting("temp", "C:\\tmp"));
    EXPECT_EQ(CallHandler(lumo_system_WinFolder, ""), "\"C:\\\\WINDOWS\"");
    EXPECT_EQ(CallHandler(lumo_system_WinSysFolder, ""), "\"C:\\\\WINDOWS\\\\system32\"");
    EXPECT_EQ(CallHandler(lumo_system_TempFolder, ""), "\"C:\\\\tmp\\\\\"");
    EXPECT_EQ(CallHandler(lumo_system_TempFolder, "1"), "nil");
    ASSERT_TRUE(SetMachineSetting("windows", std::string(300, 'w')));   // longer than the buffer
    EXPECT_EQ(CallHandler(lumo_system_WinFolder, ""), "nil");
}

TEST_F(SystemFunctions, LogicalDrives) {
    EXPECT_EQ(CallHandler(lumo_system_getLogicalDrive, ""), "(\"C:\\\\\")");
    ASSERT_TRUE(SetDrive('D', "/tmp"));
    ASSERT_TRUE(SetDrive('z', "/"));
    EXPECT_EQ(CallHandler(lumo_system_getLogicalDrive, ""), "(\"C:\\\\\" \"D:\\\\\" \"Z:\\\\\")");
    EXPECT_EQ(CallHandler(lumo_system_getLogicalDrive, "1"), "nil");
}
