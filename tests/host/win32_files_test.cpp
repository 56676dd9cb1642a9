// The Win32 and C runtime calls on files and folders, on real files.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "platform/crt_files.h"
#include "platform/win32_files.h"
#include "win32_test_folder.h"

using Win32Files = lumo::test::Win32Folder;

namespace {

std::vector<std::string> Find(const std::string& wildcard) {
    std::vector<std::string> names;
    _finddata_t data;
    intptr_t h = _findfirst(wildcard.c_str(), &data);
    if (h == -1) return names;
    do names.push_back(data.name);
    while (_findnext(h, &data) == 0);
    EXPECT_EQ(_findclose(h), 0);
    return names;
}

}  // namespace

TEST_F(Win32Files, FindListsMatchesInCaseBlindOrder) {
    Write("d/b.txt");
    Write("d/A.txt");
    Write("d/c.dat");
    Write("d/noext");
    Write("d/sub/x");
    EXPECT_EQ(Find("T:\\d\\*.*"), (std::vector<std::string>{".", "..", "A.txt", "b.txt", "c.dat", "noext", "sub"}));
    EXPECT_EQ(Find("T:\\D\\*.TXT"), (std::vector<std::string>{"A.txt", "b.txt"}));
    EXPECT_EQ(Find("T:/d/?.dat"), std::vector<std::string>{"c.dat"});
    EXPECT_EQ(Find("T:\\d\\noext.*"), std::vector<std::string>{"noext"});
    EXPECT_TRUE(Find("T:\\d\\*.zip").empty());
    EXPECT_TRUE(Find("T:\\missing\\*.*").empty());
    EXPECT_EQ(Find("T:\\*.*"), std::vector<std::string>{"d"});   // no dots at a drive's root
}

TEST_F(Win32Files, FindReportsKindAndSize) {
    Write("d/f.txt", "12345");
    Write("d/sub/x");
    _finddata_t data;
    intptr_t h = _findfirst("T:\\d\\f.txt", &data);
    ASSERT_NE(h, -1);
    EXPECT_EQ(data.size, 5u);
    EXPECT_EQ(data.attrib & _A_SUBDIR, 0u);
    EXPECT_NE(data.attrib & _A_ARCH, 0u);
    EXPECT_EQ(_findnext(h, &data), -1);
    EXPECT_EQ(_findclose(h), 0);
    EXPECT_EQ(_findclose(h), -1);
    h = _findfirst("T:\\d\\sub", &data);
    ASSERT_NE(h, -1);
    EXPECT_NE(data.attrib & _A_SUBDIR, 0u);
    _findclose(h);
}

TEST_F(Win32Files, FolderCallsTakeWindowsPaths) {
    EXPECT_EQ(_mkdir("T:\\New"), 0);
    EXPECT_TRUE(Exists("New"));
    EXPECT_EQ(_mkdir("T:\\new"), -1);   // exists in another case
    EXPECT_EQ(_chdir("T:\\NEW"), 0);
    char cwd[500];
    ASSERT_NE(_getcwd(cwd, sizeof cwd), nullptr);
    EXPECT_STREQ(cwd, "T:\\New");
    EXPECT_EQ(_getcwd(cwd, 3), nullptr);
    EXPECT_EQ(errno, ERANGE);
    char* owned = _getcwd(nullptr, 0);
    ASSERT_NE(owned, nullptr);
    EXPECT_STREQ(owned, "T:\\New");
    std::free(owned);
    EXPECT_EQ(_chdir(".."), 0);
    EXPECT_EQ(_rmdir("T:\\new"), 0);
    EXPECT_FALSE(Exists("New"));
    EXPECT_EQ(_rmdir("T:\\new"), -1);
}

TEST_F(Win32Files, OpenRemoveAndAccess) {
    FILE* f = _fsopen("T:\\a.txt", "wt", _SH_DENYNO);
    ASSERT_NE(f, nullptr);
    std::fputs("hello\n", f);
    std::fclose(f);
    EXPECT_EQ(Read("a.txt"), "hello\n");
    EXPECT_EQ(_access("T:\\A.TXT", 0), 0);
    EXPECT_EQ(_access("T:\\A.TXT", 6), 0);
    EXPECT_EQ(_fsopen("T:\\", "r", _SH_DENYNO), nullptr);   // a folder doesn't open
    EXPECT_EQ(_unlink("T:\\A.txt"), 0);
    EXPECT_EQ(_access("T:\\a.txt", 0), -1);
    EXPECT_EQ(_unlink("T:\\a.txt"), -1);
}

TEST_F(Win32Files, AttributesFollowKindAndPermission) {
    Write("f.txt");
    Write("d/x");
    Write(".hidden");
    EXPECT_EQ(GetFileAttributesA("T:\\f.txt"), static_cast<DWORD>(FILE_ATTRIBUTE_ARCHIVE));
    EXPECT_EQ(GetFileAttributesA("T:\\D"), static_cast<DWORD>(FILE_ATTRIBUTE_DIRECTORY));
    EXPECT_NE(GetFileAttributesA("T:\\.hidden") & FILE_ATTRIBUTE_HIDDEN, 0u);
    EXPECT_EQ(GetFileAttributesA("T:\\none"), static_cast<DWORD>(INVALID_FILE_ATTRIBUTES));
    EXPECT_TRUE(SetFileAttributesA("T:\\F.TXT", FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(GetFileAttributesA("T:\\f.txt"), static_cast<DWORD>(FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_READONLY));
    EXPECT_TRUE(SetFileAttributesA("T:\\f.txt", FILE_ATTRIBUTE_NORMAL));
    EXPECT_EQ(GetFileAttributesA("T:\\f.txt"), static_cast<DWORD>(FILE_ATTRIBUTE_ARCHIVE));
    EXPECT_FALSE(SetFileAttributesA("T:\\none", FILE_ATTRIBUTE_NORMAL));
}

TEST_F(Win32Files, CreateMoveCopyDelete) {
    EXPECT_TRUE(CreateDirectoryA("T:\\d", nullptr));
    EXPECT_FALSE(CreateDirectoryA("T:\\d", nullptr));
    EXPECT_FALSE(CreateDirectoryA("T:\\no\\deeper", nullptr));
    Write("d/a.txt", "abc");
    Write("d/b.txt", "b");
    EXPECT_FALSE(MoveFileA("T:\\d\\a.txt", "T:\\d\\B.TXT"));   // the new name is taken
    EXPECT_TRUE(MoveFileA("T:\\d\\a.txt", "T:\\d\\c.txt"));
    EXPECT_EQ(Read("d/c.txt"), "abc");
    EXPECT_FALSE(CopyFileA("T:\\d\\c.txt", "T:\\d\\b.txt", TRUE));
    EXPECT_TRUE(CopyFileA("T:\\d\\c.txt", "T:\\d\\b.txt", FALSE));
    EXPECT_EQ(Read("d/b.txt"), "abc");
    EXPECT_TRUE(DeleteFileA("T:\\d\\B.txt"));
    EXPECT_FALSE(Exists("d/b.txt"));
    EXPECT_FALSE(RemoveDirectoryA("T:\\d"));   // not empty
    EXPECT_TRUE(DeleteFileA("T:\\d\\c.txt"));
    EXPECT_TRUE(RemoveDirectoryA("T:\\d"));
}

TEST_F(Win32Files, CurrentFolderInWindowsForm) {
    Write("w/x");
    EXPECT_TRUE(SetCurrentDirectoryA("T:\\W"));
    char buf[300];
    DWORD n = GetCurrentDirectoryA(sizeof buf, buf);
    EXPECT_STREQ(buf, "T:\\w");
    EXPECT_EQ(n, 4u);
    EXPECT_EQ(GetCurrentDirectoryA(2, buf), 5u);   // the size needed
    EXPECT_FALSE(SetCurrentDirectoryA("T:\\nothing"));
}

TEST_F(Win32Files, LogicalDrivesListTheTable) {
    char buf[64];
    DWORD n = GetLogicalDriveStringsA(sizeof buf, buf);
    ASSERT_EQ(n, 8u);
    EXPECT_EQ(std::string(buf, n + 1), std::string("C:\\\0T:\\\0\0", 9));
    EXPECT_EQ(GetLogicalDriveStringsA(4, buf), 9u);
    EXPECT_EQ(GetLogicalDrives(), (1u << 2) | (1u << 19));
}
