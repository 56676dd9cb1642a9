// The host's file functions on real files in a fresh folder, and its point
// geometry functions.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "host/lisp/session.h"
#include "host/win32/path_map.h"
#include "lisp_test_support.h"

using lumo::test::Show;
namespace fs = std::filesystem;

namespace {

class FileBuiltins : public ::testing::Test {
protected:
    void SetUp() override {
        char tmpl[] = "/tmp/lumo_files_XXXXXX";
        ASSERT_NE(mkdtemp(tmpl), nullptr);
        m_dir = tmpl;
    }
    void TearDown() override {
        std::error_code ec;
        fs::remove_all(m_dir, ec);
        lumo::lisp::SupportPath().clear();
    }
    // A LISP string literal of a path in the folder.
    std::string Q(const std::string& name) const { return "\"" + m_dir + "/" + name + "\""; }
    void Write(const std::string& name, const std::string& text) const {
        std::ofstream(m_dir + "/" + name, std::ios::binary) << text;
    }
    std::string Read(const std::string& name) const {
        std::ifstream in(m_dir + "/" + name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    std::string m_dir;
};

}  // namespace

TEST_F(FileBuiltins, WriteThenReadLinesAndCharacters) {
    EXPECT_EQ(Show("(setq f (open " + Q("a.txt") + " \"w\")) (write-line \"one\" f) (write-char 50 f)"
                   " (write-line \"\" f) (close f)"), "nil");
    EXPECT_EQ(Read("a.txt"), "one\n2\n");
    EXPECT_EQ(Show("(setq f (open " + Q("a.txt") + " \"a\")) (write-line \"three\" f) (close f)"), "nil");
    EXPECT_EQ(Show("(setq f (open " + Q("a.txt") + " \"r\"))"
                   " (list (read-line f) (read-char f) (read-char f) (read-line f) (read-line f))"),
              "(\"one\" 50 10 \"three\" nil)");
    EXPECT_EQ(Show("(close f) (read-line f)"), "nil");   // a closed file reads nothing
}

TEST_F(FileBuiltins, CarriageReturnsEndLinesToo) {
    Write("dos.txt", "ab\r\ncd\r\n");
    EXPECT_EQ(Show("(setq f (open " + Q("dos.txt") + " \"r\")) (list (read-line f) (read-char f) (read-char f) (read-char f))"),
              "(\"ab\" 99 100 10)");
    Show("(close f)");
}

TEST_F(FileBuiltins, OpenRefusesWhatItCannotOpen) {
    EXPECT_EQ(Show("(open " + Q("missing.txt") + " \"r\")"), "nil");
    EXPECT_EQ(Show("(open " + Q("a.txt") + " \"x\")"), "nil");
    EXPECT_EQ(Show("(open " + Q("no/such/dir.txt") + " \"w\")"), "nil");
    EXPECT_EQ(Show("(open \"" + m_dir + "\" \"r\")"), "nil");   // a folder is no file
    EXPECT_EQ(Show("(open 1 \"r\")"), "error: bad argument type: stringp 1");
    EXPECT_EQ(Show("(read-line \"f\")"), "error: bad argument type: streamp \"f\"");
    EXPECT_EQ(Show("(type (setq f (open " + Q("n.txt") + " \"W\")))"), "FILE");
    Show("(close f)");
}

TEST_F(FileBuiltins, FindfileSearchesTheSupportPath) {
    Write("lib.lsp", "(setq loaded-value 42)");
    EXPECT_EQ(Show("(findfile \"lib.lsp\")"), "nil");
    lumo::lisp::SupportPath().push_back(m_dir);
    EXPECT_EQ(Show("(findfile \"lib.lsp\")"), Q("lib.lsp"));
    EXPECT_EQ(Show("(findfile " + Q("lib.lsp") + ")"), Q("lib.lsp"));
    EXPECT_EQ(Show("(findfile \"nothing.lsp\")"), "nil");
    EXPECT_EQ(Show("(load \"lib\") loaded-value"), "42");
    EXPECT_EQ(Show("(load \"nothing\" 'failed)"), "FAILED");
}

TEST_F(FileBuiltins, CopyRenameDelete) {
    Write("src.txt", "hello");
    EXPECT_EQ(Show("(vl-file-copy " + Q("src.txt") + " " + Q("dst.txt") + ")"), "5");
    EXPECT_EQ(Show("(vl-file-copy " + Q("src.txt") + " " + Q("dst.txt") + ")"), "nil");   // no overwrite
    EXPECT_EQ(Show("(vl-file-copy " + Q("src.txt") + " " + Q("dst.txt") + " T)"), "5");
    EXPECT_EQ(Read("dst.txt"), "hellohello");
    EXPECT_EQ(Show("(vl-file-copy " + Q("none.txt") + " " + Q("x.txt") + ")"), "nil");
    EXPECT_EQ(Show("(vl-file-rename " + Q("dst.txt") + " " + Q("src.txt") + ")"), "nil");  // target exists
    EXPECT_EQ(Show("(vl-file-rename " + Q("dst.txt") + " " + Q("moved.txt") + ")"), "T");
    EXPECT_TRUE(fs::exists(m_dir + "/moved.txt"));
    EXPECT_EQ(Show("(vl-file-delete " + Q("moved.txt") + ")"), "T");
    EXPECT_EQ(Show("(vl-file-delete " + Q("moved.txt") + ")"), "nil");
    EXPECT_FALSE(fs::exists(m_dir + "/moved.txt"));
}

TEST_F(FileBuiltins, DirectoryListings) {
    Write("b.LSP", "");
    Write("a.lsp", "");
    Write("readme", "");
    fs::create_directory(m_dir + "/sub");
    EXPECT_EQ(Show("(vl-file-directory-p \"" + m_dir + "\")"), "T");
    EXPECT_EQ(Show("(vl-file-directory-p " + Q("a.lsp") + ")"), "nil");
    EXPECT_EQ(Show("(vl-directory-files \"" + m_dir + "\" \"*.lsp\" 1)"), "(\"a.lsp\" \"b.LSP\")");
    EXPECT_EQ(Show("(vl-directory-files \"" + m_dir + "\" nil 1)"), "(\"a.lsp\" \"b.LSP\" \"readme\")");
    EXPECT_EQ(Show("(vl-directory-files \"" + m_dir + "\" nil -1)"), "(\".\" \"..\" \"sub\")");
    EXPECT_EQ(Show("(length (vl-directory-files \"" + m_dir + "\"))"), "6");
    EXPECT_EQ(Show("(vl-directory-files " + Q("nope") + ")"), "nil");
}

TEST_F(FileBuiltins, WindowsPathsGoThroughTheDriveTable) {
    ASSERT_TRUE(lumo::win32::SetDrive('Q', m_dir));
    Write("Data.TXT", "x\n");
    EXPECT_EQ(Show("(setq f (open \"Q:\\\\data.txt\" \"r\")) (read-line f)"), "\"x\"");
    Show("(close f)");
    EXPECT_EQ(Show("(findfile \"q:/DATA.txt\")"), Q("Data.TXT"));
    EXPECT_EQ(Show("(vl-file-copy \"Q:\\\\data.txt\" \"Q:\\\\copy.txt\")"), "2");
    EXPECT_EQ(Read("copy.txt"), "x\n");
    EXPECT_EQ(Show("(vl-file-directory-p \"Q:\\\\\")"), "T");
    EXPECT_EQ(Show("(open \"Z:\\\\a.txt\" \"r\")"), "nil");   // no such drive
    EXPECT_EQ(Show("(findfile \"Z:\\\\a.txt\")"), "nil");
    lumo::win32::ResetDrives();
}

TEST(FileNames, PartsOfWindowsAndLinuxPaths) {
    EXPECT_EQ(Show("(vl-filename-base \"c:\\\\acad\\\\draw.dwg\")"), "\"draw\"");
    EXPECT_EQ(Show("(vl-filename-extension \"c:\\\\acad\\\\draw.dwg\")"), "\".dwg\"");
    EXPECT_EQ(Show("(vl-filename-directory \"c:\\\\acad\\\\draw.dwg\")"), "\"c:\\\\acad\"");
    EXPECT_EQ(Show("(vl-filename-directory \"c:\\\\draw.dwg\")"), "\"c:\\\\\"");
    EXPECT_EQ(Show("(vl-filename-base \"/a.b/c\")"), "\"c\"");
    EXPECT_EQ(Show("(vl-filename-extension \"/a.b/c\")"), "nil");
    EXPECT_EQ(Show("(vl-filename-extension \"x.tar.gz\")"), "\".gz\"");
    EXPECT_EQ(Show("(vl-filename-directory \"draw.dwg\")"), "\"\"");
    EXPECT_EQ(Show("(vl-filename-directory \"/tmp/x/\")"), "\"/tmp/x\"");
}

TEST(FileNames, TemporaryNamesAreNewEachTime) {
    std::string a = Show("(vl-filename-mktemp \"pre.txt\" \"/tmp\")");
    std::string b = Show("(vl-filename-mktemp \"pre.txt\" \"/tmp\")");
    EXPECT_NE(a, b);
    EXPECT_EQ(a.substr(0, 9), "\"/tmp/pre");
    EXPECT_EQ(a.substr(a.size() - 5), ".txt\"");
    EXPECT_EQ(a.size(), std::string("\"/tmp/pre000.txt\"").size());
    EXPECT_EQ(Show("(vl-filename-extension (vl-filename-mktemp nil \"/tmp\" \".lsp\"))"), "\".lsp\"");
}

TEST(Environment, SetAndGet) {
    EXPECT_EQ(Show("(setenv \"LUMO_TEST_VAR\" \"v1\")"), "\"v1\"");
    EXPECT_EQ(Show("(getenv \"LUMO_TEST_VAR\")"), "\"v1\"");
    EXPECT_EQ(Show("(getenv \"LUMO_SURELY_UNSET_VAR\")"), "nil");
    ::unsetenv("LUMO_TEST_VAR");
}

TEST(Geometry, PolarAngleDistance) {
    EXPECT_EQ(Show("(polar '(1 1 3.5) (/ pi 4) (sqrt 2))"), "(2.0 2.0 3.5)");
    EXPECT_EQ(Show("(polar '(1 1) pi 2)"), "(-1.0 1.0)");
    EXPECT_EQ(Show("(angle '(1 1) '(1 3))"), "1.5708");
    EXPECT_EQ(Show("(angle '(0 0 5) '(-1 0 0))"), "3.14159");
    EXPECT_EQ(Show("(angle '(1 1) '(1 1))"), "0.0");
    EXPECT_EQ(Show("(distance '(0 0 0) '(3 4 12))"), "13.0");
    EXPECT_EQ(Show("(distance '(0 0) '(3 4 12))"), "5.0");   // 2D if either is
    EXPECT_EQ(Show("(distance '(0 0) \"a\")"), "error: bad argument type: 2D/3D point: \"a\"");
}

TEST(Geometry, IntersOfSegmentsAndLines) {
    EXPECT_EQ(Show("(inters '(1 1) '(9 9) '(4 1) '(4 2))"), "nil");
    EXPECT_EQ(Show("(inters '(1 1) '(9 9) '(4 1) '(4 2) T)"), "nil");
    EXPECT_EQ(Show("(inters '(1 1) '(9 9) '(4 1) '(4 2) nil)"), "(4.0 4.0)");
    EXPECT_EQ(Show("(inters '(0 0) '(2 2) '(0 2) '(2 0))"), "(1.0 1.0)");
    EXPECT_EQ(Show("(inters '(0 0) '(2 0) '(2 0) '(2 5))"), "(2.0 0.0)");   // touching ends
    EXPECT_EQ(Show("(inters '(0 0) '(1 0) '(0 1) '(1 1) nil)"), "nil");     // parallel
    EXPECT_EQ(Show("(inters '(0 0 0) '(2 2 2) '(0 2 2) '(2 0 0))"), "(1.0 1.0 1.0)");
    EXPECT_EQ(Show("(inters '(0 0 0) '(2 0 0) '(1 -1 1) '(1 1 1) nil)"), "nil");   // skew
    EXPECT_EQ(Show("(inters '(0 0 5) '(2 2 5) '(0 2) '(2 0))"), "(1.0 1.0)");   // 2D when one is
}

TEST(Geometry, TransBetweenSystems) {
    EXPECT_EQ(Show("(trans '(1 2 3) 0 0)"), "(1.0 2.0 3.0)");
    EXPECT_EQ(Show("(trans '(1 2) 1 0)"), "(1.0 2.0 0.0)");
    EXPECT_EQ(Show("(trans '(1 0 0) '(0 0 1) 0)"), "(1.0 0.0 0.0)");
    EXPECT_EQ(Show("(trans '(1 2 3) 7 0)"), "nil");
    EXPECT_EQ(Show("(trans '(1 2 3) \"x\" 0)"), "nil");
}
