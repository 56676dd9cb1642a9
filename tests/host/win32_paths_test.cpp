// The path mapping of the Win32 layer, and the C runtime's path splitting.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>
#include <string>

#include "host/win32/path_map.h"
#include "platform/crt.h"
#include "win32_test_folder.h"

using namespace lumo::win32;
using Win32Paths = lumo::test::Win32Folder;

TEST_F(Win32Paths, DriveLettersMapToTheirFolders) {
    Write("dir/a.txt");
    EXPECT_EQ(MapPath("T:\\dir\\a.txt"), root + "/dir/a.txt");
    EXPECT_EQ(MapPath("t:/dir/a.txt"), root + "/dir/a.txt");
    EXPECT_EQ(MapPath("T:\\"), root + "/");
    EXPECT_EQ(MapPath("T:"), root);
    EXPECT_EQ(MapPath("C:\\tmp"), "/tmp");
    EXPECT_EQ(MapPath("Q:\\x"), "");   // no such drive
}

TEST_F(Win32Paths, NamesAreFoundInAnyCase) {
    Write("Dir/Sub/File.TXT");
    EXPECT_EQ(MapPath("T:\\DIR\\sub\\file.txt"), root + "/Dir/Sub/File.TXT");
    EXPECT_EQ(MapPath(root + "/dir/SUB/file.txt"), root + "/Dir/Sub/File.TXT");
    // A missing name keeps the rest as given.
    EXPECT_EQ(MapPath("T:\\dir\\New\\x.txt"), root + "/Dir/New/x.txt");
}

TEST_F(Win32Paths, AnExactNameWinsOverOtherCases) {
    Write("abc");
    Write("ABC");
    EXPECT_EQ(MapPath("T:\\abc"), root + "/abc");
    EXPECT_EQ(MapPath("T:\\ABC"), root + "/ABC");
    EXPECT_EQ(MapPath("T:\\Abc"), root + "/ABC");   // the first in byte order
}

TEST_F(Win32Paths, LinuxPathsStayAsTheyAre) {
    Write("plain.txt");
    EXPECT_EQ(MapPath(root + "/plain.txt"), root + "/plain.txt");
    EXPECT_EQ(MapPath("/no/such/file"), "/no/such/file");
    EXPECT_EQ(MapPath(""), "");
}

TEST_F(Win32Paths, RelativeAndRootedPaths) {
    Write("d/e.txt");
    ASSERT_EQ(chdir(root.c_str()), 0);
    EXPECT_EQ(MapPath("D\\E.TXT"), "d/e.txt");
    EXPECT_EQ(MapPath("\\d\\e.txt"), root + "/d/e.txt");   // the current drive's root
    EXPECT_EQ(MapPath("T:d\\e.txt"), root + "/d/e.txt");
    EXPECT_EQ(DriveOf(root + "/d"), 'T');
}

TEST_F(Win32Paths, WindowsFormOfHostPaths) {
    EXPECT_EQ(ToWindowsPath(root + "/d/e.txt"), "T:\\d\\e.txt");
    EXPECT_EQ(ToWindowsPath(root), "T:\\");
    EXPECT_EQ(ToWindowsPath("/usr/lib"), "C:\\usr\\lib");
    ASSERT_TRUE(SetDrive('C', ""));   // without C: a folder outside every drive stays
    EXPECT_EQ(ToWindowsPath("/usr/lib"), "/usr/lib");
}

TEST_F(Win32Paths, TheDriveOptionAndTable) {
    EXPECT_TRUE(ParseDriveOption("D=" + root + "/sub"));
    EXPECT_TRUE(ParseDriveOption("e:=" + root));
    EXPECT_FALSE(ParseDriveOption("1=/x"));
    EXPECT_FALSE(ParseDriveOption("D"));
    EXPECT_FALSE(ParseDriveOption("D="));
    EXPECT_EQ(DriveFolder('d'), root + "/sub");
    EXPECT_EQ(DriveFolder('E'), root);
    EXPECT_EQ(DriveLetters(), (std::vector<char>{'C', 'D', 'E', 'T'}));
    ResetDrives();
    EXPECT_EQ(DriveLetters(), std::vector<char>{'C'});
    EXPECT_EQ(DriveFolder('C'), "/");
}

TEST(SplitPath, TakesAPathApart) {
    char drive[_MAX_DRIVE], dir[_MAX_DIR], name[_MAX_FNAME], ext[_MAX_EXT];
    _splitpath("C:\\a.b\\c\\file.tar.gz", drive, dir, name, ext);
    EXPECT_STREQ(drive, "C:");
    EXPECT_STREQ(dir, "\\a.b\\c\\");
    EXPECT_STREQ(name, "file.tar");
    EXPECT_STREQ(ext, ".gz");
    _splitpath("/usr/lib/x", drive, dir, name, ext);
    EXPECT_STREQ(drive, "");
    EXPECT_STREQ(dir, "/usr/lib/");
    EXPECT_STREQ(name, "x");
    EXPECT_STREQ(ext, "");
    _splitpath("C:\\", drive, dir, name, ext);
    EXPECT_STREQ(dir, "\\");
    EXPECT_STREQ(name, "");
    _splitpath("a.b\\c", nullptr, dir, name, nullptr);
    EXPECT_STREQ(dir, "a.b\\");
    EXPECT_STREQ(name, "c");
}

TEST(SplitPath, MakePathJoinsTheParts) {
    char path[_MAX_PATH];
    _makepath(path, "C", "\\dir", "file", "txt");
    EXPECT_STREQ(path, "C:\\dir\\file.txt");
    _makepath(path, "", "dir/", "f", ".c");
    EXPECT_STREQ(path, "dir/f.c");
    EXPECT_EQ(_mbscmp(reinterpret_cast<const unsigned char*>("\xe4"), reinterpret_cast<const unsigned char*>("a")) > 0,
              true);
}
