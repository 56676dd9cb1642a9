// A fresh temporary folder for tests of the Win32 layer, mapped as a drive
// letter, and removed with its contents afterwards.
#pragma once
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "host/win32/path_map.h"

namespace lumo::test {

class Win32Folder : public ::testing::Test {
protected:
    void SetUp() override {
        char pattern[] = "/tmp/lumo-win32-XXXXXX";
        ASSERT_NE(mkdtemp(pattern), nullptr);
        root = std::filesystem::canonical(pattern).string();
        char cwd[4096];
        ASSERT_NE(getcwd(cwd, sizeof cwd), nullptr);
        savedCwd = cwd;
        lumo::win32::ResetDrives();
        ASSERT_TRUE(lumo::win32::SetDrive('T', root));
    }
    void TearDown() override {
        ASSERT_EQ(chdir(savedCwd.c_str()), 0);
        lumo::win32::ResetDrives();
        std::error_code ignored;
        std::filesystem::permissions(root, std::filesystem::perms::owner_all, ignored);
        for (auto& e : std::filesystem::recursive_directory_iterator(root, ignored))
            std::filesystem::permissions(e.path(), std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(root, ignored);
    }
    // Writes `text` to the host path root/relative, making its folders.
    void Write(const std::string& relative, const std::string& text = "x") {
        std::filesystem::path p = std::filesystem::path(root) / relative;
        std::filesystem::create_directories(p.parent_path());
        std::ofstream(p) << text;
    }
    std::string Read(const std::string& relative) {
        std::ifstream in(std::filesystem::path(root) / relative);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    bool Exists(const std::string& relative) {
        return std::filesystem::exists(std::filesystem::symlink_status(std::filesystem::path(root) / relative));
    }
    std::string root;
    std::string savedCwd;
};

}  // namespace lumo::test
