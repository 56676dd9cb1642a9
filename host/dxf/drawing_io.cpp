// Opening and saving drawings as DXF files: the session's drawing for the
// lumo program, and any database through its own calls.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <unistd.h>

#include "host/db/database_impl.h"
#include "host/db/session.h"
#include "host/dxf/reader.h"
#include "host/dxf/writer.h"

namespace lumo::db {

bool Slurp(const std::string& path, std::string& text, std::string& error) {
    std::FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) {
        error = path + ": " + std::strerror(errno);
        return false;
    }
    char buf[1 << 16];
    size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) text.append(buf, n);
    bool ok = !std::ferror(f);
    std::fclose(f);
    if (!ok) error = path + ": read error";
    return ok;
}

namespace {

// Writes beside the target and renames, so the target is either the old
// file or the whole new one.
bool SaveTo(AcDbDatabase& db, const std::string& path, DxfVersion version, std::string& error) {
    std::string tmp = path + ".XXXXXX";
    int fd = mkstemp(tmp.data());
    if (fd < 0) {
        error = path + ": " + std::strerror(errno);
        return false;
    }
    std::FILE* f = fdopen(fd, "wb");
    if (!f) {
        error = path + ": " + std::strerror(errno);
        close(fd);
        unlink(tmp.c_str());
        return false;
    }
    std::string why;
    bool ok = dxf::WriteDxf(db, version, f, why);
    ok = std::fflush(f) == 0 && ok;
    ok = fsync(fileno(f)) == 0 && ok;
    ok = std::fclose(f) == 0 && ok;
    if (ok && std::rename(tmp.c_str(), path.c_str()) != 0) {
        ok = false;
        why = std::strerror(errno);
    }
    if (!ok) {
        unlink(tmp.c_str());
        error = path + ": " + (why.empty() ? std::string(std::strerror(errno)) : why);
    }
    return ok;
}

}  // namespace

bool OpenDrawing(const std::string& path, std::string& error) {
    std::string text;
    if (!Slurp(path, text, error)) return false;
    auto* db = new AcDbDatabase(false);
    if (!dxf::ReadDxf(text, path, *db, error)) {
        delete db;
        return false;
    }
    AdoptSessionDatabase(db);
    return true;
}

bool SaveDrawing(const std::string& path, std::string& error, DxfVersion version) {
    return SaveTo(*acdbHostApplicationServices()->workingDatabase(), path, version, error);
}

bool SaveDatabase(AcDbDatabase& db, const std::string& path, std::string& error, DxfVersion version) {
    return SaveTo(db, path, version, error);
}

}  // namespace lumo::db

Acad::ErrorStatus AcDbDatabase::readDxfFile(const char* fileName) {
    if (!fileName) return Acad::eInvalidInput;
    if (m_impl->handles.Size() != 0) return Acad::eInvalidInput;   // only into a database made empty
    std::string text, error;
    if (!lumo::db::Slurp(fileName, text, error)) return Acad::eFileNotFound;
    if (lumo::dxf::ReadDxf(text, fileName, *this, error)) return Acad::eOk;
    m_impl->handles.ForEach([](AcDbStub* s) {
        delete s->object;
        s->object = nullptr;
        s->database = nullptr;
    });
    delete m_impl;
    m_impl = new Impl(this);
    return Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbDatabase::dxfOut(const char* fileName, int, AcDb::AcDbDwgVersion version) {
    if (!fileName) return Acad::eInvalidInput;
    std::string error;
    auto v = version == AcDb::kDHL_1009 ? lumo::db::DxfVersion::R12 : lumo::db::DxfVersion::R2000;
    return lumo::db::SaveDatabase(*this, fileName, error, v) ? Acad::eOk : Acad::eFilerError;
}
