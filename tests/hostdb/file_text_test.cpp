// Drawing files as the reader sees them: mapped, given back as it goes,
// and still read right when the file is larger than what is kept.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include "hostdb_support.h"
#include "host/db/database_impl.h"
#include "host/dxf/file_text.h"
#include "platform/dbents.h"
#include "platform/dbsymtb.h"

using namespace hostdb;

namespace {

TEST(FileText, MissingFileNamesItself) {
    lumo::dxf::FileText file;
    std::string error;
    EXPECT_FALSE(file.Open(TempPath("hb_nothing_here.dxf"), error));
    EXPECT_NE(error.find("hb_nothing_here.dxf: "), std::string::npos) << error;
}

TEST(FileText, EmptyFileIsEmptyTextAndAClearError) {
    std::string path = TempPath("hb_empty.dxf");
    WriteFile(path, "");
    lumo::dxf::FileText file;
    std::string error;
    ASSERT_TRUE(file.Open(path, error)) << error;
    EXPECT_TRUE(file.View().empty());
    AcDbDatabase db(false);
    EXPECT_EQ(db.readDxfFile(path.c_str()), Acad::eInvalidInput);
    EXPECT_EQ(db.readDxfFile(TempPath("hb_nothing_here.dxf").c_str()), Acad::eFileNotFound);
}

TEST(FileText, ReleasedTextReadsAgainFromTheFile) {
    std::string path = TempPath("hb_text.dxf");
    std::string text(3 << 20, 'x');
    for (size_t k = 0; k < text.size(); k += 4096) text[k] = static_cast<char>('a' + k / 4096 % 26);
    WriteFile(path, text);
    lumo::dxf::FileText file;
    std::string error;
    ASSERT_TRUE(file.Open(path, error)) << error;
    file.Release(2 << 20);
    EXPECT_EQ(file.View(), text);
}

// More lines than the reader keeps at once: the whole file comes in, and
// what the session saves is what it read.
TEST(FileText, LargeDrawingOpensWhole) {
    std::string path = TempPath("hb_large.dxf");
    std::string error;
    {
        AcDbDatabase db;
        AcDbBlockTable* blocks = nullptr;
        ASSERT_EQ(db.getBlockTable(blocks, AcDb::kForRead), Acad::eOk);
        AcDbBlockTableRecord* space = nullptr;
        ASSERT_EQ(blocks->getAt(ACDB_MODEL_SPACE, space, AcDb::kForWrite), Acad::eOk);
        blocks->close();
        for (int k = 0; k < 100000; ++k) {
            auto* line = new AcDbLine(AcGePoint3d(k, k * 0.5, 0), AcGePoint3d(k + 1.25, k * 0.5 + 3.75, 0));
            ASSERT_EQ(space->appendAcDbEntity(line), Acad::eOk);
            line->close();
        }
        space->close();
        ASSERT_TRUE(lumo::db::SaveDatabase(db, path, error)) << error;
    }
    struct stat st {};
    ASSERT_EQ(stat(path.c_str(), &st), 0);
    ASSERT_GT(st.st_size, 10 << 20);   // past the reader's first hand-back
    EXPECT_EQ(st.st_mode & 0777, 0666 & ~[] { mode_t m = umask(0); umask(m); return m; }());
    ASSERT_TRUE(lumo::db::OpenDrawing(path, error)) << error;
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    EXPECT_EQ(db->impl().entities.size(), 100000u);
    std::string saved = ReadFile(path);
    EXPECT_EQ(ToDxf(*db), saved);
    lumo::db::CloseSessionDatabase();
    std::remove(path.c_str());
}

}  // namespace
