// Opening and saving drawings as DXF files: the session's drawing for the
// lumo program, and any database through its own calls.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

#include "host/db/database_impl.h"
#include "host/db/session.h"
#include "host/dxf/file_text.h"
#include "host/dxf/reader.h"
#include "host/dxf/writer.h"

namespace lumo::db {

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
    // mkstemp makes the file private; a saved drawing gets the usual mode.
    mode_t mask = umask(0);
    umask(mask);
    (void)fchmod(fd, 0666 & ~mask);
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
    dxf::FileText file;
    if (!file.Open(path, error)) return false;
    auto* db = new AcDbDatabase(false);
    if (!dxf::ReadDxf(file.View(), path, *db, error, [&file](size_t at) { file.Release(at); })) {
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
    std::string error;
    lumo::dxf::FileText file;
    if (!file.Open(fileName, error)) return Acad::eFileNotFound;
    if (lumo::dxf::ReadDxf(file.View(), fileName, *this, error, [&file](size_t at) { file.Release(at); }))
        return Acad::eOk;
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
