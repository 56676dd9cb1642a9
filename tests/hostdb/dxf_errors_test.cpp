// Malformed files: a clear "<file>:<line>: <what>" message, never a crash,
// and the session's drawing stays as it was.
#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "host/db/kept.h"
#include "hostdb_support.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"
#include "platform/dbents.h"
#include "platform/dbsymtb.h"

using namespace hostdb;

namespace {

std::string Valid() {
    AcDbDatabase db;
    return ToDxf(db);
}

std::string ErrorOf(const std::string& text) {
    std::string error;
    EXPECT_FALSE(FromDxf(text, &error, "bad.dxf"));
    return error;
}

}  // namespace

TEST(DxfErrors, MissingEofIsReported) {
    std::string text = Valid();
    text.resize(text.rfind("  0\nEOF"));
    EXPECT_NE(ErrorOf(text).find("EOF missing"), std::string::npos);
}

TEST(DxfErrors, GroupCodeThatIsNoNumberNamesItsLine) {
    std::string text = Lines({"0", "SECTION", "2", "ENTITIES", "0", "LINE", "8", "0", "1x0", "1.0", "0", "ENDSEC",
                              "0", "EOF"});
    EXPECT_EQ(ErrorOf(text), "bad.dxf:9: group code expected, found \"1x0\"");
}

TEST(DxfErrors, BadNumberNamesTheValueLine) {
    std::string text = Lines({"0", "SECTION", "2", "ENTITIES", "0", "LINE", "8", "0", "10", "abc", "0", "ENDSEC",
                              "0", "EOF"});
    EXPECT_EQ(ErrorOf(text), "bad.dxf:10: number expected for group 10, found \"abc\"");
}

TEST(DxfErrors, BadHandleAndBadInteger) {
    EXPECT_NE(ErrorOf(Lines({"0", "SECTION", "2", "ENTITIES", "0", "LINE", "330", "XYZ", "0", "ENDSEC", "0", "EOF"}))
                  .find("handle expected"),
              std::string::npos);
    EXPECT_NE(ErrorOf(Lines({"0", "SECTION", "2", "ENTITIES", "0", "LINE", "62", "1.5", "0", "ENDSEC", "0", "EOF"}))
                  .find("integer expected"),
              std::string::npos);
}

TEST(DxfErrors, StructureErrors) {
    EXPECT_NE(ErrorOf(Lines({"0", "LINE", "0", "EOF"})).find("SECTION expected"), std::string::npos);
    EXPECT_NE(ErrorOf(Lines({"0", "SECTION", "2", "ENTITIES", "0", "VERTEX", "0", "ENDSEC", "0", "EOF"}))
                  .find("VERTEX without its POLYLINE"),
              std::string::npos);
    EXPECT_NE(ErrorOf(Lines({"0", "SECTION", "2", "BLOCKS", "0", "BLOCK", "2", "A", "0", "LINE", "0", "ENDSEC", "0",
                             "EOF"}))
                  .find("ENDBLK missing"),
              std::string::npos);
    EXPECT_NE(ErrorOf(Lines({"0", "SECTION", "2", "BLOCKS", "0", "BLOCK", "2", "A", "0", "ENDBLK", "0", "BLOCK", "2",
                             "A", "0", "ENDBLK", "0", "ENDSEC", "0", "EOF"}))
                  .find("defined twice"),
              std::string::npos);
    EXPECT_NE(ErrorOf(Lines({"0", "SECTION", "2", "ENTITIES"})).find("unexpected end of file"), std::string::npos);
    EXPECT_NE(ErrorOf(Lines({"0", "SECTION", "2"})).find("file ends after group code"), std::string::npos);
}

// A kind the host doesn't know may carry the name of a class it does, or one
// name may serve an entity and an object: none passes a checked cast as
// what it is not, so a table row of such a kind is an error, not a crash.
TEST(DxfErrors, KindsNamedAfterHostClassesStayKept) {
    lumo::db::KeptObject row("AcDbSymbolTableRecord");
    EXPECT_EQ(AcDbSymbolTableRecord::cast(&row), nullptr);
    EXPECT_STREQ(row.isA()->name(), "AcDbSymbolTableRecord");
    lumo::db::KeptEntity entity("LUMO_BOTH");
    lumo::db::KeptObject object("LUMO_BOTH");
    EXPECT_NE(AcDbEntity::cast(&entity), nullptr);
    EXPECT_EQ(AcDbEntity::cast(&object), nullptr);
    EXPECT_EQ(ErrorOf(Lines({"0", "SECTION", "2", "TABLES", "0", "TABLE", "2", "LAYER", "0", "AcDbLayerTableRecord",
                             "2", "X", "0", "ENDTAB", "0", "ENDSEC", "0", "EOF"})),
              "bad.dxf:9: AcDbLayerTableRecord in TABLE LAYER");
}

// Every cut of a good file is a bad file, and none of them brings the
// reader down (the sanitizer build watches for reads past the end).
TEST(DxfErrors, EveryTruncationFailsCleanly) {
    std::string text = Valid();
    size_t eof = text.rfind("  0\nEOF");
    std::mt19937 rng(42);
    std::uniform_int_distribution<size_t> at(0, eof - 1);
    for (int k = 0; k < 300; ++k) {
        size_t cut = k < 100 ? eof * k / 100 : at(rng);
        std::string error;
        EXPECT_FALSE(FromDxf(text.substr(0, cut), &error)) << "cut at " << cut;
        EXPECT_EQ(error.rfind("test.dxf:", 0), 0u) << error;
    }
}

TEST(DxfErrors, GarbledBytesNeverCrash) {
    std::string text = Valid();
    std::mt19937 rng(42);
    std::uniform_int_distribution<size_t> at(0, text.size() - 1);
    std::uniform_int_distribution<int> byte(0, 255);
    int failures = 0;
    for (int k = 0; k < 200; ++k) {
        std::string bad = text;
        for (int j = 0; j < 3; ++j) bad[at(rng)] = static_cast<char>(byte(rng));
        std::string error;
        if (!FromDxf(bad, &error)) {
            ++failures;
            EXPECT_FALSE(error.empty());
        }
    }
    EXPECT_GT(failures, 0);
}

class SessionDrawing : public ::testing::Test {
protected:
    void SetUp() override { lumo::db::CloseSessionDatabase(); }
    void TearDown() override { lumo::db::CloseSessionDatabase(); }
};

TEST_F(SessionDrawing, BadFileLeavesTheDrawingAsItWas) {
    double a[3] = {0, 0, 0}, b[3] = {1, 1, 0};
    resbuf* line = acutBuildList(RTDXF0, "LINE", 10, a, 11, b, 0);
    ASSERT_EQ(acdbEntMake(line), RTNORM);
    acutRelRb(line);
    ads_name before, after;
    ASSERT_EQ(acdbEntLast(before), RTNORM);
    std::string path = TempPath("h3_bad.dxf");
    WriteFile(path, "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n 10\nxx\n");
    std::string error;
    EXPECT_FALSE(lumo::db::OpenDrawing(path, error));
    EXPECT_NE(error.find(path + ":8:"), std::string::npos) << error;
    ASSERT_EQ(acdbEntLast(after), RTNORM);
    EXPECT_EQ(before[0], after[0]);
    EXPECT_FALSE(lumo::db::OpenDrawing(TempPath("h3_no_such_file.dxf"), error));
    EXPECT_NE(error.find("No such file"), std::string::npos);
}

TEST_F(SessionDrawing, OpeningADrawingRetiresTheOldNames) {
    double a[3] = {0, 0, 0}, b[3] = {1, 1, 0};
    resbuf* line = acutBuildList(RTDXF0, "LINE", 10, a, 11, b, 0);
    ASSERT_EQ(acdbEntMake(line), RTNORM);
    acutRelRb(line);
    ads_name old;
    ASSERT_EQ(acdbEntLast(old), RTNORM);
    std::string path = TempPath("h3_good.dxf");
    WriteFile(path, Valid());
    std::string error;
    ASSERT_TRUE(lumo::db::OpenDrawing(path, error)) << error;
    EXPECT_EQ(acdbEntGet(old), nullptr);   // the name leads nowhere now, safely
    ads_name none;
    EXPECT_EQ(acdbEntLast(none), RTERROR);
}

TEST_F(SessionDrawing, FailedSaveLeavesNoFile) {
    std::string error;
    EXPECT_FALSE(lumo::db::SaveDrawing("/nonexistent-dir/x.dxf", error));
    EXPECT_NE(error.find("/nonexistent-dir/x.dxf"), std::string::npos);
    std::string path = TempPath("h3_saved.dxf");
    ASSERT_TRUE(lumo::db::SaveDrawing(path, error)) << error;
    std::ifstream in(path);
    std::string all((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_EQ(all.substr(all.size() - 8), "  0\nEOF\n");
}
