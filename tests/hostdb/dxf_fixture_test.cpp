// Drawings written by another program, read and written back: every record
// keeps its handle, kind and groups; and what the host writes passes a
// strict outside reader (skipped where that reader isn't installed).
#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <map>
#include <set>
#include <sys/wait.h>

#include "hostdb_support.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"
#include "platform/dbdict.h"
#include "platform/dbsymtb.h"

using namespace hostdb;
using lumo::db::DxfVersion;

namespace {

struct FileRecord {
    std::string type;
    std::vector<Group> groups;
};

// The records of a file by handle (5, or 105 for dimension styles).
std::map<std::string, FileRecord> Records(const std::string& text) {
    std::map<std::string, FileRecord> out;
    std::vector<Group> all = Groups(text);
    for (size_t k = 0; k < all.size();) {
        size_t end = k + 1;
        while (end < all.size() && all[end].first != 0) ++end;
        FileRecord rec{all[k].second, {all.begin() + static_cast<long>(k) + 1, all.begin() + static_cast<long>(end)}};
        for (const Group& g : rec.groups)
            if (rec.type == "SECTION") break;   // the header's $HANDSEED is no record
            else if (g.first == 5 || (g.first == 105 && rec.type == "DIMSTYLE")) {
                out[g.second] = rec;
                break;
            }
        k = end;
    }
    return out;
}

// A value as it reads: numbers compare by value, so "30" and "30.0" agree,
// and names of table records without regard to case, as the host finds them.
std::string Normal(const Group& g) {
    int c = g.first;
    if (c == 6 || c == 7 || c == 8) {
        std::string upper = g.second;
        for (char& ch : upper) ch = static_cast<char>(std::toupper(static_cast<unsigned char>(ch)));
        return upper;
    }
    bool real = (c >= 10 && c <= 59) || (c >= 110 && c <= 149) || (c >= 210 && c <= 239) || (c >= 460 && c <= 469) ||
                (c >= 1010 && c <= 1059);
    if (!real) return g.second;
    char* end = nullptr;
    double v = std::strtod(g.second.c_str(), &end);
    char b[32];
    std::snprintf(b, sizeof b, "%.9g", std::abs(v) < 1e-12 ? 0.0 : v);
    return b;
}

std::multiset<std::pair<int, std::string>> Bag(const std::vector<Group>& groups) {
    std::multiset<std::pair<int, std::string>> bag;
    for (const Group& g : groups) bag.emplace(g.first, Normal(g));
    return bag;
}

std::string Fixture(const char* name) { return std::string(LUMO_TEST_DATA) + "/" + name; }

std::string RoundTrip(const std::string& path, DxfVersion version) {
    std::string error;
    auto db = FromDxf(ReadFile(path), &error, path);
    EXPECT_TRUE(db) << error;
    return db ? ToDxf(*db, version) : std::string();
}

// Groups a file had that the written record lacks. Written records may
// gain groups (defaults the other program left out), never lose one. A
// vertex, attribute or SEQEND belongs to its polyline or insert, whatever
// owner the other program named.
std::string Lost(const FileRecord& before, const FileRecord& after) {
    auto a = Bag(before.groups), b = Bag(after.groups);
    bool part = before.type == "VERTEX" || before.type == "SEQEND" || before.type == "ATTRIB";
    std::string lost;
    for (const auto& g : a)
        if (b.count(g) < a.count(g) && !(part && g.first == 330))
            lost += " (" + std::to_string(g.first) + " " + g.second + ")";
    return lost;
}

void ExpectKept(const std::string& original, const std::string& written, const char* what) {
    auto before = Records(original), after = Records(written);
    ASSERT_GT(before.size(), 20u);
    for (const auto& [handle, rec] : before) {
        auto it = after.find(handle);
        ASSERT_NE(it, after.end()) << what << ": " << rec.type << " " << handle << " lost";
        EXPECT_EQ(it->second.type, rec.type) << handle;
        EXPECT_EQ(Lost(rec, it->second), "") << what << ": " << rec.type << " " << handle;
    }
}

void ExpectEveryRecordKept(const char* fixture, DxfVersion version) {
    std::string original = ReadFile(Fixture(fixture));
    ASSERT_FALSE(original.empty()) << fixture;
    std::string written = RoundTrip(Fixture(fixture), version);
    ExpectKept(original, written, fixture);
    // What was written reads back to the same text. An R12 file has no
    // dictionaries, so each reading makes them anew with new handles: there
    // the records compare instead.
    std::string error;
    auto again = FromDxf(written, &error);
    ASSERT_TRUE(again) << error;
    if (version == DxfVersion::R2000) EXPECT_EQ(ToDxf(*again, version), written);
    else ExpectKept(written, ToDxf(*again, version), "written again");
}

TEST(DxfFixtures, R2000FileKeepsEveryRecordHandleAndGroup) {
    ExpectEveryRecordKept("ezdxf_r2000.dxf", DxfVersion::R2000);
}

TEST(DxfFixtures, R12FileKeepsEveryRecordHandleAndGroup) {
    ExpectEveryRecordKept("ezdxf_r12.dxf", DxfVersion::R12);
}

TEST(DxfFixtures, R12FileWrittenAsR2000KeepsItsEntitiesAndHandles) {
    auto before = Records(ReadFile(Fixture("ezdxf_r12.dxf")));
    auto after = Records(RoundTrip(Fixture("ezdxf_r12.dxf"), DxfVersion::R2000));
    int entities = 0;
    for (const char* kind : {"LINE", "CIRCLE", "ARC", "POINT", "SOLID", "TRACE", "3DFACE", "TEXT", "POLYLINE",
                             "VERTEX", "SEQEND", "INSERT", "ATTRIB"})
        for (const auto& [handle, rec] : before)
            if (rec.type == kind) {
                ++entities;
                ASSERT_TRUE(after.count(handle)) << kind << " " << handle;
                EXPECT_EQ(after[handle].type, kind);
            }
    EXPECT_GT(entities, 30);
}

TEST(DxfFixtures, ForeignEntitiesAreReadAsTheirKinds) {
    std::string error;
    auto db = FromDxf(ReadFile(Fixture("ezdxf_r2000.dxf")), &error);
    ASSERT_TRUE(db) << error;
    std::map<std::string, int> kinds;
    AcDbBlockTable* blocks = nullptr;
    ASSERT_EQ(db->getBlockTable(blocks, AcDb::kForRead), Acad::eOk);
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(blocks->getAt(ACDB_MODEL_SPACE, space, AcDb::kForRead), Acad::eOk);
    blocks->close();
    AcDbBlockTableRecordIterator* it = nullptr;
    space->newIterator(it);
    for (; !it->done(); it->step()) {
        AcDbEntity* e = nullptr;
        ASSERT_EQ(it->getEntity(e, AcDb::kForRead), Acad::eOk);
        ++kinds[e->isA()->name()];
        e->close();
    }
    delete it;
    space->close();
    for (const char* cls : {"AcDbLine", "AcDbCircle", "AcDbArc", "AcDbPoint", "AcDbSolid", "AcDbTrace", "AcDbFace",
                            "AcDbText", "AcDb2dPolyline", "AcDb3dPolyline", "AcDbPolygonMesh", "AcDbPolyFaceMesh",
                            "AcDbBlockReference", "AcDbPolyline", "AcDbMText", "AcDbEllipse", "AcDbSpline",
                            "AcDbHatch", "AcDbXline", "AcDbDimension"})
        EXPECT_GE(kinds[cls], 1) << cls;
    EXPECT_EQ(kinds["AcDbLine"], 2);
    EXPECT_EQ(kinds["AcDbHatch"], 2);
}

// --- the strict outside check -------------------------------------------

std::string Python() {
    // The distribution's interpreter has the distribution's packages.
    return std::system("test -x /usr/bin/python3") == 0 ? "/usr/bin/python3" : "python3";
}

// Runs the checker on the files: 0 passed, 1 failed, 77 checker missing.
int StrictCheck(const std::vector<std::string>& files, std::string& output) {
    std::string script = std::string(LUMO_TEST_DATA) + "/../../scripts/check_dxf.py";
    std::string log = TempPath("hb_check.log");
    std::string cmd = Python() + " " + script;
    for (const std::string& f : files) cmd += " '" + f + "'";
    cmd += " > '" + log + "' 2>&1";
    int status = std::system(cmd.c_str());
    output = ReadFile(log);
    int code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return code == 127 ? 77 : code;   // no interpreter at all: skipped as well
}

// A drawing with what a LISP program makes most: a layer, entities of the
// common kinds, a block with an attribute and a reference to it.
void MakeSessionEntities() {
    double a[3] = {0, 0, 0}, b[3] = {10, 5, 0}, c[3] = {3, 4, 0};
    std::vector<resbuf*> lists = {
        acutBuildList(RTDXF0, "LINE", 8, "WALL", 10, a, 11, b, 0),
        acutBuildList(RTDXF0, "CIRCLE", 10, c, 40, 2.5, 0),
        acutBuildList(RTDXF0, "ARC", 10, c, 40, 1.5, 50, 0.5, 51, 2.0, 0),
        acutBuildList(RTDXF0, "TEXT", 10, a, 40, 2.0, 1, "Hello", 0),
        acutBuildList(RTDXF0, "BLOCK", 2, "TAG", 70, 2, 10, a, 0),
        acutBuildList(RTDXF0, "ATTDEF", 10, a, 40, 1.0, 1, "x", 2, "NUM", 3, "Number?", 70, 0, 0),
        acutBuildList(RTDXF0, "ENDBLK", 0),
        acutBuildList(RTDXF0, "INSERT", 2, "TAG", 10, b, 66, 1, 0),
        acutBuildList(RTDXF0, "ATTRIB", 10, b, 40, 1.0, 1, "A1", 2, "NUM", 70, 0, 0),
        acutBuildList(RTDXF0, "SEQEND", 0),
    };
    for (resbuf* rb : lists) {
        EXPECT_EQ(acdbEntMake(rb), RTNORM);
        acutRelRb(rb);
    }
}

class StrictReader : public ::testing::Test {
protected:
    void SetUp() override { lumo::db::CloseSessionDatabase(); }
    void TearDown() override { lumo::db::CloseSessionDatabase(); }
};

TEST_F(StrictReader, WrittenFilesPassTheStrictReaderAndAudit) {
    std::vector<std::string> files;
    std::string error;
    for (DxfVersion v : {DxfVersion::R2000, DxfVersion::R12}) {
        const char* suffix = v == DxfVersion::R12 ? "12.dxf" : "2000.dxf";
        AcDbDatabase fresh;
        files.push_back(TempPath(std::string("hb_new_") + suffix));
        ASSERT_TRUE(lumo::db::SaveDatabase(fresh, files.back(), error, v)) << error;
        for (const char* fixture : {"ezdxf_r2000.dxf", "ezdxf_r12.dxf"}) {
            files.push_back(TempPath(std::string("hb_") + fixture + "_as_" + suffix));
            WriteFile(files.back(), RoundTrip(Fixture(fixture), v));
        }
        MakeSessionEntities();
        files.push_back(TempPath(std::string("hb_made_") + suffix));
        ASSERT_TRUE(lumo::db::SaveDrawing(files.back(), error, v)) << error;
        lumo::db::CloseSessionDatabase();
    }
    std::string output;
    int result = StrictCheck(files, output);
    if (result == 77) GTEST_SKIP() << output;
    EXPECT_EQ(result, 0) << output;
}

TEST_F(StrictReader, TheCheckerRefusesABrokenFile) {
    // Guards the test above against a checker that passes everything.
    std::string path = TempPath("hb_broken.dxf");
    WriteFile(path, "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n 10\nnot a number\n  0\nENDSEC\n  0\nEOF\n");
    std::string output;
    int result = StrictCheck({path}, output);
    if (result == 77) GTEST_SKIP() << output;
    EXPECT_EQ(result, 1) << output;
}

}  // namespace
