// Entity: the module's records in extended data, their layout node by node,
// the two tag searches, structures, and the round trip through the drawing.
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "database/Entity.h"
#include "database/xdata_layout.h"
#include "database_test_support.h"
#include "host/test_support.h"
#include "kernel/XPoint.h"

using dbtest::Describe;

namespace {

class EntityRecords : public dbtest::FreshDrawing {
protected:
    void SetUp() override {
        FreshDrawing::SetUp();
        ASSERT_TRUE(dbtest::MakeLine(line));
    }
    // The module's groups behind the 1001 node.
    static std::string Records(const Entity& e) { return e.ExGroups() ? Describe(e.ExGroups()->rbnext) : "<none>"; }
    ads_name line = {0, 0};
};

}  // namespace

TEST_F(EntityRecords, SetExDataAppendsTagAndValueByTheTagsType) {
    Entity e(line);
    EXPECT_EQ(e.SetExData(65, 3), RTNORM);
    EXPECT_EQ(Records(e), "1070:65 1070:3");
    EXPECT_EQ(e.SetExData(40, 1.5), RTNORM);
    EXPECT_EQ(e.SetExData(5, "x"), RTNORM);
    EXPECT_EQ(Records(e), "1070:65 1070:3 1070:40 1040:1.5 1070:5 1000:x");
    EXPECT_STREQ(e.ExGroups()->resval.rstring, "_PWH");
}

TEST_F(EntityRecords, SetExDataRefusesTagsWithoutAValueType) {
    Entity e(line);
    CaptureOutput out;
    EXPECT_EQ(e.SetExData(90, 1), RTERROR);
    EXPECT_NE(out.Text().find("This tag code 90 is not support by the::SetExdata."), std::string::npos);
    EXPECT_EQ(Records(e), "");
}

TEST_F(EntityRecords, SetExDataReplacesInPlaceAndChecksTheType) {
    Entity e(line);
    e.SetExData(5, "old");
    e.SetExData(5, "new");
    e.SetExData(65, 1);
    e.SetExData(65, 2);
    EXPECT_EQ(Records(e), "1070:5 1000:new 1070:65 1070:2");
    e.SetInt(7, 4);   // a text tag holding an integer
    CaptureOutput out;
    EXPECT_EQ(e.SetExData(7, "x"), RTERROR);
    EXPECT_NE(out.Text().find("Tag Code type does not match"), std::string::npos);
}

TEST_F(EntityRecords, GetExDataCopiesByTheTagsType) {
    Entity e(line);
    e.SetExData(5, "text");
    e.SetExData(40, 2.25);
    e.SetExData(65, -7);
    char text[16] = "";
    double real = 0;
    short integer = 0;
    EXPECT_EQ(e.GetExData(5, text), RTNORM);
    EXPECT_STREQ(text, "text");
    EXPECT_EQ(e.GetExData(40, &real), RTNORM);
    EXPECT_EQ(real, 2.25);
    EXPECT_EQ(e.GetExData(65, &integer), RTNORM);
    EXPECT_EQ(integer, -7);
    EXPECT_EQ(e.GetExData(66, &integer), RTERROR);
    CaptureOutput out;
    EXPECT_EQ(e.GetExData(90, &integer), RTERROR);
    EXPECT_NE(out.Text().find("not support by the::GetExdata."), std::string::npos);
}

TEST_F(EntityRecords, AnIntegerValueShadowsATagOnlyForTheWeakSearch) {
    Entity e(line);
    e.SetExData(65, 70);
    e.SetInt(70, 9);
    EXPECT_EQ(e.SearchByTagCode(70), e.SearchDataByTag(65));
    int value = 0;
    EXPECT_EQ(e.GetInt(70, value), RTNORM);
    EXPECT_EQ(value, 9);
    Entity fresh(line);
    fresh.SetExData(65, 70);
    EXPECT_EQ(fresh.GetInt(70, value), RTERROR);
}

TEST_F(EntityRecords, SetStructLaysOutBracesSizeAndWords) {
    Entity e(line);
    const unsigned char bytes[6] = {1, 2, 3, 4, 5, 6};
    ASSERT_EQ(e.SetStruct(bytes, 6, 12), RTNORM);
    EXPECT_EQ(Records(e), "1070:12 1002:{ 1070:6 1071:67305985 1071:1541 1002:}");
}

TEST_F(EntityRecords, GetStructReadsNoMoreThanAskedOrStored) {
    Entity e(line);
    const unsigned char bytes[6] = {1, 2, 3, 4, 5, 6};
    e.SetStruct(bytes, 6, 12);
    unsigned char four[8];
    std::memset(four, 0xEE, sizeof four);
    EXPECT_EQ(e.GetStruct(four, 4, 12), RTNORM);
    EXPECT_EQ(std::vector<int>(four, four + 8), (std::vector<int>{1, 2, 3, 4, 0xEE, 0xEE, 0xEE, 0xEE}));
    unsigned char eight[8];
    std::memset(eight, 0xEE, sizeof eight);
    EXPECT_EQ(e.GetStruct(eight, 8, 12), RTNORM);
    EXPECT_EQ(std::vector<int>(eight, eight + 8), (std::vector<int>{1, 2, 3, 4, 5, 6, 0xEE, 0xEE}));
    EXPECT_EQ(e.GetStruct(eight, 8, 13), RTERROR);
}

TEST_F(EntityRecords, StructuresRefuseEmptySizesAndBadLayouts) {
    Entity e(line);
    int word = 1;
    EXPECT_EQ(e.SetStruct(&word, 0, 3), RTERROR);
    e.SetExData(65, 1);   // a plain record is no structure
    CaptureOutput out;
    EXPECT_EQ(e.GetStruct(&word, 4, 65), RTERROR);
    EXPECT_NE(out.Text().find("Error in ::GetStruct"), std::string::npos);
}

TEST_F(EntityRecords, SetStructReplacesTheFormerRecord) {
    Entity e(line);
    int a = 5, b[2] = {7, 8};
    e.SetStruct(&a, 4, 12);
    e.SetExData(65, 1);
    e.SetStruct(b, 8, 12);
    EXPECT_EQ(Records(e), "1070:65 1070:1 1070:12 1002:{ 1070:8 1071:7 1071:8 1002:}");
}

TEST_F(EntityRecords, DeleteTagRemovesWholeStructuresAndFailsOnALastTag) {
    Entity e(line);
    int word = 3;
    e.SetExData(65, 1);
    e.SetStruct(&word, 4, 12);
    e.SetExData(66, 2);
    EXPECT_EQ(e.DeleteTag(12), RTNORM);
    EXPECT_EQ(Records(e), "1070:65 1070:1 1070:66 1070:2");
    EXPECT_EQ(e.DeleteTag(2), RTERROR);   // the value 2 is the last node
    EXPECT_EQ(e.DeleteTag(99), RTERROR);
    EXPECT_EQ(e.DeleteTag(65), RTNORM);
    EXPECT_EQ(Records(e), "1070:66 1070:2");
}

TEST_F(EntityRecords, TypedSettersReplaceBracketedValuesAsOne) {
    Entity e(line);
    int word = 3;
    e.SetStruct(&word, 4, 12);
    e.SetInt(13, 1);
    e.SetReal(12, 0.5);   // the whole bracket goes
    EXPECT_EQ(Records(e), "1070:12 1040:0.5 1070:13 1070:1");
    e.SetString(13, "h", 1);
    EXPECT_EQ(Records(e), "1070:12 1040:0.5 1070:13 1005:h");
}

TEST_F(EntityRecords, FindTagStepsOverValuesAndBrackets) {
    Entity e(line);
    int word = 65;   // a size and a word that look like tags
    e.SetStruct(&word, 4, 12);
    e.SetInt(4, 65);
    e.SetInt(65, 8);
    int value = 0;
    EXPECT_EQ(e.GetInt(65, value), RTNORM);
    EXPECT_EQ(value, 8);
    EXPECT_EQ(e.GetInt(4, value), RTNORM);
    EXPECT_EQ(value, 65);
}

TEST_F(EntityRecords, RecordsSurviveTheDrawing) {
    {
        Entity e(line);
        const char blob[3] = {'a', 0, 'c'};
        const double sizes[2] = {1.25, -3.5};
        e.SetInt(1, 42);
        e.SetReal(2, 0.75);
        e.SetString(3, "text");
        e.SetPoint(4, XPoint(1, 2, 3));
        e.SetBinary(5, 3, blob);
        e.SetStruct(sizes, sizeof sizes, 6);
        ASSERT_EQ(e.Modify(), RTNORM);
    }
    Entity e(line);
    int i = 0;
    double r = 0;
    char text[16] = "";
    XPoint p;
    short length = 0;
    const char* bytes = nullptr;
    double sizes[2] = {0, 0};
    EXPECT_EQ(e.GetInt(1, i), RTNORM);
    EXPECT_EQ(i, 42);
    EXPECT_EQ(e.GetReal(2, r), RTNORM);
    EXPECT_EQ(r, 0.75);
    EXPECT_EQ(e.GetString(3, text), RTNORM);
    EXPECT_STREQ(text, "text");
    EXPECT_EQ(e.GetPoint(4, p), RTNORM);
    EXPECT_EQ(p.y, 2);
    EXPECT_EQ(e.GetRBinary(5, length, bytes), RTNORM);
    ASSERT_EQ(length, 3);
    EXPECT_EQ(bytes[2], 'c');
    EXPECT_EQ(e.GetStruct(sizes, sizeof sizes, 6), RTNORM);
    EXPECT_EQ(sizes[1], -3.5);
}

TEST_F(EntityRecords, RemoveXDataDropsTheRecordsAndIsHarmlessWithout) {
    Entity plain(line);
    EXPECT_EQ(plain.RemoveXData(), RTNORM);
    Entity e(line);
    e.SetInt(1, 5);
    ASSERT_EQ(e.Modify(), RTNORM);
    Entity again(line);
    EXPECT_EQ(again.RemoveXData(), RTNORM);
    Entity check(line);
    int value = 0;
    EXPECT_EQ(check.GetInt(1, value), RTERROR);
    EXPECT_TRUE(check.Is("LINE"));
}

TEST_F(EntityRecords, MatchExComparesTheValueNodeOfATag) {
    Entity e(line);
    e.SetExData(65, 3);
    e.SetExData(5, "abc");
    e.SetExData(40, 0.5);
    EXPECT_TRUE(e.MatchEx(65, 3));
    EXPECT_FALSE(e.MatchEx(65, 4));
    EXPECT_TRUE(e.MatchEx(5, "abc"));
    EXPECT_FALSE(e.MatchEx(5, "ABC"));   // byte for byte
    EXPECT_TRUE(e.MatchEx(40, 0.5));
    Groups text(1000, "ABC");
    EXPECT_TRUE(e.MatchEx(5, &text));    // Groups equality ignores case
    RBList pairs(1070, 65, 1070, 3, 1070, 5, 1000, "abc", 0);
    EXPECT_TRUE(e.Match(pairs));
    RBList wrong(1070, 65, 1070, 4, 0);
    EXPECT_FALSE(e.Match(wrong));
    RBList odd(1070, 65, 0);
    CaptureOutput out;
    EXPECT_FALSE(e.Match(odd));
    EXPECT_NE(out.Text().find("Bad Extend data list!"), std::string::npos);
}

TEST_F(EntityRecords, AnotherApplicationsRecordsAreSeparate) {
    ASSERT_EQ(acdbRegApp("OTHER"), RTNORM);
    Entity e(line);
    e.SetInt(1, 5);
    ASSERT_EQ(e.Modify(), RTNORM);
    Entity other(line);
    EXPECT_EQ(other.GetGroups("OTHER"), RTNORM);
    EXPECT_STREQ(other.ExGroups()->resval.rstring, "OTHER");
    EXPECT_EQ(Records(other), "");
    EXPECT_STREQ(Entity::appName, "_PWH");
}

TEST(XdataLayout, SetTagValueStartsAnEmptyChainAndDeletesByNull) {
    resbuf* chain = nullptr;
    resbuf* node = acutNewRb(1070);
    node->resval.rint = 4;
    EXPECT_EQ(SetTagValue(chain, 9, node, ""), RTNORM);
    EXPECT_EQ(Describe(chain), "-3: 1001:_TQ_HVAC 1070:9 1070:4");
    EXPECT_EQ(SetTagValue(chain, 9, nullptr, "X"), RTNORM);
    EXPECT_EQ(Describe(chain), "-3: 1001:_TQ_HVAC");
    EXPECT_EQ(SetTagValue(chain, 8, nullptr, "X"), RTNORM);
    EXPECT_EQ(Describe(chain), "-3: 1001:_TQ_HVAC");
    acutRelRb(chain);
}

TEST(XdataLayout, StructuresPackAndUnpackEverySize) {
    std::mt19937 rng(42);
    for (int round = 0; round < 200; ++round) {
        int size = 1 + static_cast<int>(rng() % 64);
        std::vector<unsigned char> in(size);
        for (auto& b : in) b = static_cast<unsigned char>(rng());
        resbuf* record = BuildStructRecord(7, in.data(), size);
        ASSERT_NE(record, nullptr);
        int words = 0;
        std::vector<unsigned char> out;
        for (resbuf* n = record->rbnext->rbnext->rbnext; n && n->restype == 1071; n = n->rbnext, ++words) {
            unsigned char w[4];
            std::memcpy(w, &n->resval.rlong, 4);
            out.insert(out.end(), w, w + 4);
        }
        EXPECT_EQ(words, (size + 3) / 4);
        out.resize(size);
        EXPECT_EQ(out, in);
        EXPECT_EQ(record->rbnext->rbnext->resval.rint, size);
        acutRelRb(record);
    }
}

TEST(EntityRecordsUnregistered, ModifyIsRefusedAndTheEntityStays) {
    lumo::db::CloseSessionDatabase();
    ads_name line;
    ASSERT_TRUE(dbtest::MakeLine(line));
    Entity e(line);
    e.SetInt(1, 5);
    EXPECT_NE(e.Modify(), RTNORM);
    Entity plain(line);
    plain.RemoveXData();
    Entity check(line);
    EXPECT_TRUE(check.Is("LINE"));
    int value = 0;
    EXPECT_EQ(check.GetInt(1, value), RTERROR);
    lumo::db::CloseSessionDatabase();
}
