// The LISP file and folder functions on real files, through drive-letter
// paths and plain host paths.
#include <gtest/gtest.h>

#include <string>

#include "frame/directory_lisp.h"
#include "frame_test_support.h"
#include "handler_call.h"
#include "host/win32_test_folder.h"

using lumo::test::CallHandler;
using FileFunctions = lumo::test::Win32Folder;

namespace {

// A LISP string of a host path (no backslashes to escape).
std::string Q(const std::string& text) { return "\"" + text + "\""; }

}  // namespace

TEST_F(FileFunctions, AttributesGetAndSet) {
    Write("f.txt");
    EXPECT_EQ(CallHandler(lumo_system_getfileAttributes, "\"T:\\\\f.txt\""), "32");
    EXPECT_EQ(CallHandler(lumo_system_getfileAttributes, Q(root)), "16");
    EXPECT_EQ(CallHandler(lumo_system_getfileAttributes, "\"T:\\\\none\""), "nil");
    EXPECT_EQ(CallHandler(lumo_system_setfileAttributes, "\"T:\\\\F.TXT\" 1"), "T");
    EXPECT_EQ(CallHandler(lumo_system_getfileAttributes, "\"T:\\\\f.txt\""), "33");
    EXPECT_EQ(CallHandler(lumo_system_setfileAttributes, "\"T:\\\\F.TXT\" 128"), "T");
    EXPECT_EQ(CallHandler(lumo_system_getfileAttributes, "\"T:\\\\f.txt\""), "32");
    EXPECT_EQ(CallHandler(lumo_system_setfileAttributes, "\"T:\\\\F.TXT\" 100000"), "T");   // a long
    EXPECT_EQ(CallHandler(lumo_system_setfileAttributes, "\"T:\\\\F.TXT\" 1.0"), "nil");
    EXPECT_EQ(CallHandler(lumo_system_setfileAttributes, "\"T:\\\\none\" 1"), "nil");
    EXPECT_EQ(CallHandler(lumo_system_getfileAttributes, "1"), "nil");
}

// Paths longer than the limits never reach the platform, even when the file
// exists.
TEST_F(FileFunctions, PathLengthLimits) {
    std::string at260 = std::string(260 - root.size() - 1, 'n');
    std::string at261 = std::string(261 - root.size() - 1, 'm');
    Write(at260);
    Write(at261);
    EXPECT_EQ(CallHandler(lumo_system_getfileAttributes, Q(root + "/" + at260)), "32");
    EXPECT_EQ(CallHandler(lumo_system_getfileAttributes, Q(root + "/" + at261)), "nil");
    EXPECT_EQ(CallHandler(lumo_system_setfileAttributes, Q(root + "/" + at261) + " 1"), "nil");
    EXPECT_EQ(CallHandler(lumo_system_createfolder, Q(root + "/" + std::string(248 - root.size() - 1, 'd'))), "T");
    EXPECT_EQ(CallHandler(lumo_system_createfolder, Q(root + "/" + std::string(249 - root.size() - 1, 'e'))), "nil");
    EXPECT_FALSE(Exists(std::string(249 - root.size() - 1, 'e')));
}

TEST_F(FileFunctions, CreateAndEnterFolders) {
    EXPECT_EQ(CallHandler(lumo_system_createfolder, "\"T:\\\\made\""), "T");
    EXPECT_EQ(CallHandler(lumo_system_createfolder, "\"T:\\\\MADE\""), "nil");
    EXPECT_EQ(CallHandler(lumo_system_setCurrentFolder, "\"T:\\\\Made\""), "T");
    EXPECT_EQ(CallHandler(lumo_getcdir, ""), "\"T:\\\\made\"");
    EXPECT_EQ(CallHandler(lumo_getcdir, "1"), "nil");
    EXPECT_EQ(CallHandler(lumo_system_setCurrentFolder, "\"T:\\\\nothing\""), "nil");
    EXPECT_EQ(CallHandler(lumo_system_setCurrentFolder, "1"), "nil");
}

TEST_F(FileFunctions, OlderFolderFunctions) {
    EXPECT_EQ(CallHandler(lumo_makedir, "\"T:\\\\old\""), "T");
    EXPECT_EQ(CallHandler(lumo_makedir, "\"T:\\\\old\""), "nil");
    EXPECT_EQ(CallHandler(lumo_chdir, "\"T:\\\\OLD\""), "T");
    EXPECT_EQ(CallHandler(lumo_getcdir, ""), "\"T:\\\\old\"");
    EXPECT_EQ(CallHandler(lumo_chdir, Q(root)), "T");
    EXPECT_EQ(CallHandler(lumo_rmdir, "\"old\""), "T");
    EXPECT_FALSE(Exists("old"));
    EXPECT_EQ(CallHandler(lumo_rmdir, "\"old\""), "nil");
    EXPECT_EQ(CallHandler(lumo_makedir, ""), "nil");
}

TEST_F(FileFunctions, RenameNeedsAFreeName) {
    Write("a.txt", "A");
    Write("b.txt", "B");
    EXPECT_EQ(CallHandler(lumo_system_filerename, "\"T:\\\\a.txt\""), "nil");
    EXPECT_EQ(CallHandler(lumo_system_filerename, "\"T:\\\\a.txt\" \"T:\\\\b.txt\""), "nil");
    EXPECT_EQ(CallHandler(lumo_system_filerename, "\"T:\\\\A.TXT\" \"T:\\\\c.txt\""), "T");
    EXPECT_EQ(Read("c.txt"), "A");
    EXPECT_FALSE(Exists("a.txt"));
}

TEST_F(FileFunctions, CopyAndMoveBothCopy) {
    Write("src.bin", std::string("one\ntwo\r\n\0three", 15));
    EXPECT_EQ(CallHandler(lumo_system_filecopy, "\"T:\\\\src.bin\" \"T:\\\\dst.bin\""), "T");
    EXPECT_EQ(Read("dst.bin"), std::string("one\ntwo\r\n\0three", 15));
    Write("dst.bin", "a much longer old text that must go");
    EXPECT_EQ(CallHandler(lumo_system_filecopy, Q(root + "/src.bin") + " \"T:\\\\dst.bin\""), "T");
    EXPECT_EQ(Read("dst.bin").size(), 15u);   // the target is replaced, not overwritten in place
    EXPECT_EQ(CallHandler(lumo_system_filecopy, "\"T:\\\\src.bin\" \"T:\\\\moved.bin\""), "T");
    EXPECT_TRUE(Exists("src.bin"));           // lumo_system_filemove runs this very handler
    EXPECT_EQ(CallHandler(lumo_system_filecopy, "\"T:\\\\none\" \"T:\\\\x\""), "nil");
    EXPECT_FALSE(Exists("x"));
    EXPECT_EQ(CallHandler(lumo_system_filecopy, "\"T:\\\\src.bin\""), "nil");
    EXPECT_EQ(CallHandler(lumo_system_filecopy, "\"T:\\\\src.bin\" \"T:\\\\nodir\\\\x\""), "nil");
}

TEST_F(FileFunctions, CopyOntoItselfInAnotherCaseIsRefused) {
    Write("same.txt", "keep");
    EXPECT_EQ(CallHandler(lumo_system_filecopy, "\"T:\\\\same.txt\" \"t:\\\\SAME.TXT\""), "nil");
    EXPECT_EQ(Read("same.txt"), "keep");
}

TEST_F(FileFunctions, Delete) {
    Write("gone.txt");
    EXPECT_EQ(CallHandler(lumo_system_filedel, "\"T:\\\\GONE.txt\""), "T");
    EXPECT_FALSE(Exists("gone.txt"));
    EXPECT_EQ(CallHandler(lumo_system_filedel, "\"T:\\\\gone.txt\""), "nil");
}

TEST_F(FileFunctions, DeltreeEmptiesTheFolder) {
    Write("top/tree/a.txt");
    Write("top/tree/sub/b.txt");
    Write("top/tree/sub/deeper/c.txt");
    Write("top/tree/.hidden");
    EXPECT_EQ(CallHandler(lumo_system_deltree, "\"T:\\\\top\\\\TREE\""), "T");
    EXPECT_TRUE(Exists("top/tree"));
    EXPECT_FALSE(Exists("top/tree/a.txt"));
    EXPECT_FALSE(Exists("top/tree/sub"));
    EXPECT_FALSE(Exists("top/tree/.hidden"));
    EXPECT_EQ(CallHandler(lumo_system_deltree, "\"T:\\\\top\\\\none\""), "nil");
}

TEST_F(FileFunctions, DeltreeDoesNotFollowLinks) {
    Write("keep/precious.txt");
    Write("top/tree/a.txt");
    std::filesystem::create_directory_symlink(root + "/keep", root + "/top/tree/link");
    EXPECT_EQ(CallHandler(lumo_system_deltree, "\"T:\\\\top\\\\tree\""), "T");
    EXPECT_TRUE(Exists("keep/precious.txt"));
    EXPECT_FALSE(Exists("top/tree/link"));
}

TEST_F(FileFunctions, DeltreeRefusesRootsAndDrivelessPaths) {
    Write("top/x.txt");
    EXPECT_EQ(CallHandler(lumo_system_deltree, "\"T:\\\\\""), "nil");
    EXPECT_EQ(CallHandler(lumo_system_deltree, "\"T:\\\\top\""), "nil");   // the folder part is "\" alone
    EXPECT_EQ(CallHandler(lumo_system_deltree, "\"T:top\""), "nil");
    EXPECT_EQ(CallHandler(lumo_system_deltree, Q(root + "/top")), "nil");
    EXPECT_EQ(CallHandler(lumo_system_deltree, "\"top\\\\x\""), "nil");
    EXPECT_TRUE(Exists("top/x.txt"));
}
