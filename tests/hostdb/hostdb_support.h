// Helpers for the drawing database tests: DXF text in and out of databases,
// and files' groups as plain pairs to compare.
#pragma once
#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "host/db/session.h"
#include "host/dxf/reader.h"
#include "host/dxf/writer.h"
#include "platform/dbmain.h"

namespace hostdb {

using Group = std::pair<int, std::string>;

// The groups of DXF text, values as written (trailing blanks of numbers
// trimmed).
inline std::vector<Group> Groups(const std::string& text) {
    std::vector<Group> out;
    size_t pos = 0;
    auto line = [&]() {
        size_t end = text.find('\n', pos);
        if (end == std::string::npos) end = text.size();
        std::string s = text.substr(pos, end - pos);
        if (!s.empty() && s.back() == '\r') s.pop_back();
        pos = end + 1;
        return s;
    };
    while (pos < text.size()) {
        std::string code = line();
        if (pos > text.size()) break;
        std::string value = line();
        out.emplace_back(std::stoi(code), value);
    }
    return out;
}

inline std::string ToDxf(AcDbDatabase& db, lumo::db::DxfVersion version = lumo::db::DxfVersion::R2000,
                         lumo::dxf::WriteStats* stats = nullptr) {
    std::FILE* f = std::tmpfile();
    std::string error;
    lumo::dxf::WriteDxf(db, version, f, error, stats);
    std::string text;
    std::rewind(f);
    char buf[4096];
    size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) text.append(buf, n);
    std::fclose(f);
    return text;
}

// A database read from text; null with `error` set when the text is bad.
inline std::unique_ptr<AcDbDatabase> FromDxf(const std::string& text, std::string* error = nullptr,
                                             const std::string& name = "test.dxf") {
    auto db = std::make_unique<AcDbDatabase>(false);
    std::string why;
    if (!lumo::dxf::ReadDxf(text, name, *db, why)) {
        if (error) *error = why;
        return nullptr;
    }
    return db;
}

// Joins lines into DXF text ("0\nLINE\n..." from {"0", "LINE", ...}).
inline std::string Lines(std::initializer_list<const char*> lines) {
    std::string s;
    for (const char* l : lines) {
        s += l;
        s += '\n';
    }
    return s;
}

// A path in the test's temporary folder.
inline std::string TempPath(const std::string& name) { return ::testing::TempDir() + name; }

inline void WriteFile(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

inline std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

}  // namespace hostdb
