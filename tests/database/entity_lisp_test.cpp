// The LISP family on one current entity, called as the host calls it.
#include <gtest/gtest.h>

#include <string>

#include "database/entity_lisp.h"
#include "database_test_support.h"
#include "frame/handler_call.h"
#include "host/lisp/session.h"

using lumo::test::CallHandler;

namespace {

class CurrentEntity : public dbtest::FreshDrawing {
protected:
    void SetUp() override {
        FreshDrawing::SetUp();
        ReleaseCurrentEntityList();
        gRememberedValid = 0;
    }
    void TearDown() override {
        ReleaseCurrentEntityList();
        FreshDrawing::TearDown();
    }
    // Evaluates LISP text for its effect.
    static void Run(const std::string& text) {
        lumo::lisp::InitInterpreter();
        ASSERT_TRUE(lumo::lisp::RunText(text));
    }
};

const char* kLine = "(entmake '((0 . \"LINE\") (8 . \"A\") (10 1.0 2.0 0.0) (11 4.0 6.0 0.0)))";
const char* kLw =
    "(entmake '((0 . \"LWPOLYLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbPolyline\") (90 . 3) (70 . 0)"
    " (10 0.0 0.0) (10 5.0 0.0) (10 5.0 7.0)))";

}  // namespace

TEST_F(CurrentEntity, SetenttodbTakesAnEntityAndGetentdxfReadsIt) {
    Run(kLine);
    EXPECT_EQ(CallHandler(lumo_setenttodb, "(entlast)"), "T");
    EXPECT_EQ(CallHandler(lumo_getentdxf, "0"), "\"LINE\"");
    EXPECT_EQ(CallHandler(lumo_getentdxf, "10"), "(1.0 2.0 0.0)");
    EXPECT_EQ(CallHandler(lumo_getentdxf, "-1"), CallHandler(lumo_getentdxf, "-1"));
    EXPECT_EQ(CallHandler(lumo_getentdxf, "62"), "nil");
    EXPECT_EQ(CallHandler(lumo_getentdxf, "8 T"), "\"A\"");
    EXPECT_EQ(CallHandler(lumo_getentdxf, "8 T"), "nil");   // only one group 8
    EXPECT_EQ(CallHandler(lumo_getentdxf, ""), "nil");
    EXPECT_EQ(CallHandler(lumo_getentdxf, "\"8\""), "nil");
    EXPECT_EQ(CallHandler(lumo_getentdxf, "8 1"), "nil");
}

TEST_F(CurrentEntity, AWrongArgumentDropsTheFormerList) {
    Run(kLine);
    CallHandler(lumo_setenttodb, "(entlast)");
    EXPECT_EQ(CallHandler(lumo_setenttodb, "\"x\""), "nil");
    EXPECT_EQ(gCurrentEntityList, nullptr);
    EXPECT_EQ(CallHandler(lumo_getentdxf, "0"), "nil");
    EXPECT_EQ(CallHandler(lumo_setenttodb, ""), "nil");   // nothing remembered
}

TEST_F(CurrentEntity, OccurrencesStepThroughRepeatedGroups) {
    Run(kLw);
    CallHandler(lumo_setenttodb, "(entlast)");
    EXPECT_EQ(CallHandler(lumo_getentdxf, "10 T"), "(0.0 0.0 0.0)");
    EXPECT_EQ(CallHandler(lumo_getentdxf, "10 T"), "(5.0 0.0 0.0)");
    EXPECT_EQ(CallHandler(lumo_entdbsinit, "1"), "nil");   // an argument leaves the counter
    EXPECT_EQ(CallHandler(lumo_getentdxf, "10 T"), "(5.0 7.0 0.0)");
    CallHandler(lumo_entdbsinit, "");
    EXPECT_EQ(CallHandler(lumo_getentdxf, "10 T"), "(0.0 0.0 0.0)");
}

TEST_F(CurrentEntity, GetpolyvtxWalksLightweightVertices) {
    Run(kLw);
    CallHandler(lumo_setenttodb, "(entlast)");
    EXPECT_EQ(CallHandler(lumo_getpolyvtx, ""), "(0.0 0.0 0.0)");
    EXPECT_EQ(CallHandler(lumo_getpolyvtx, ""), "(5.0 0.0 0.0)");
    EXPECT_EQ(CallHandler(lumo_getpolyvtx, "1"), "nil");
    EXPECT_EQ(CallHandler(lumo_getpolyvtx, ""), "(5.0 7.0 0.0)");
    EXPECT_EQ(CallHandler(lumo_getpolyvtx, ""), "nil");
    EXPECT_EQ(gEntityListOccurrence, 3);
}

TEST_F(CurrentEntity, GetpolyvtxWalksOldPolylinesEntityByEntity) {
    Run("(entmake '((0 . \"POLYLINE\") (66 . 1) (10 0.0 0.0 0.0)))"
        "(entmake '((0 . \"VERTEX\") (10 1.0 1.0 0.0)))"
        "(entmake '((0 . \"VERTEX\") (10 2.0 3.0 0.0)))"
        "(entmake '((0 . \"SEQEND\")))");
    CallHandler(lumo_setenttodb, "(entlast)");
    EXPECT_EQ(CallHandler(lumo_getpolyvtx, ""), "(1.0 1.0 0.0)");
    EXPECT_EQ(CallHandler(lumo_getentdxf, "0"), "\"VERTEX\"");
    EXPECT_STREQ(gCurrentEntityType, "POLYLINE");
    EXPECT_EQ(CallHandler(lumo_getpolyvtx, ""), "(2.0 3.0 0.0)");
    EXPECT_EQ(CallHandler(lumo_getpolyvtx, ""), "nil");   // the SEQEND has no point
    EXPECT_EQ(CallHandler(lumo_getentdxf, "0"), "\"SEQEND\"");
}

TEST_F(CurrentEntity, GetpolyvtxWantsAPolylineOrInsert) {
    Run(kLine);
    CallHandler(lumo_setenttodb, "(entlast)");
    EXPECT_EQ(CallHandler(lumo_getpolyvtx, ""), "nil");
    ReleaseCurrentEntityList();
    EXPECT_EQ(CallHandler(lumo_getpolyvtx, ""), "nil");
}

TEST_F(CurrentEntity, ModentReplacesGroupsAndWritesThemBack) {
    Run(kLine);
    CallHandler(lumo_setenttodb, "(entlast)");
    EXPECT_EQ(CallHandler(lumo_modent, "8 \"B\" 10 '(7.0 8.0 0.0) 62 \"red\""), "T");
    EXPECT_EQ(CallHandler(lumo_getentdxf, "8"), "\"B\"");
    ReleaseCurrentEntityList();
    CallHandler(lumo_setenttodb, "(entlast)");
    EXPECT_EQ(CallHandler(lumo_getentdxf, "8"), "\"B\"");
    EXPECT_EQ(CallHandler(lumo_getentdxf, "10"), "(7.0 8.0 0.0)");
}

TEST_F(CurrentEntity, ModentTakesShortsForRealsAndSkipsWrongTypes) {
    Run("(entmake '((0 . \"CIRCLE\") (10 0.0 0.0 0.0) (40 . 1.0)))");
    CallHandler(lumo_setenttodb, "(entlast)");
    EXPECT_EQ(CallHandler(lumo_modent, "40 3"), "T");
    EXPECT_EQ(CallHandler(lumo_getentdxf, "40"), "3.0");
    EXPECT_EQ(CallHandler(lumo_modent, "40 \"x\""), "nil");
    EXPECT_EQ(CallHandler(lumo_modent, "62 1"), "nil");   // no group 62 to replace
    EXPECT_EQ(CallHandler(lumo_modent, ""), "nil");
    ReleaseCurrentEntityList();
    EXPECT_EQ(CallHandler(lumo_modent, "40 3"), "nil");
}

TEST_F(CurrentEntity, SlotsHandOutTheirEntitiesOneByOne) {
    Run(kLine);
    Run(kLine);
    EXPECT_EQ(CallHandler(lumo_setsstodb, "(ssget \"X\") 3"), "T");
    std::string first = CallHandler(lumo_getentdata, "3");
    EXPECT_NE(first, "nil");
    EXPECT_EQ(CallHandler(lumo_getentdxf, "0"), "\"LINE\"");
    std::string second = CallHandler(lumo_getentdata, "3");
    EXPECT_NE(second, "nil");
    EXPECT_NE(first, second);
    EXPECT_EQ(CallHandler(lumo_getentdata, "3"), "nil");   // the end of the set
    // The remembered entity comes back with no argument.
    ReleaseCurrentEntityList();
    EXPECT_EQ(CallHandler(lumo_setenttodb, ""), "T");
    EXPECT_EQ(CallHandler(lumo_getentdxf, "-1"), second);
}

TEST_F(CurrentEntity, SetsstodbChecksItsArguments) {
    Run(kLine);
    EXPECT_EQ(CallHandler(lumo_setsstodb, "(ssget \"X\") 10"), "nil");
    EXPECT_EQ(CallHandler(lumo_setsstodb, "(ssget \"X\") -1"), "nil");
    EXPECT_EQ(CallHandler(lumo_setsstodb, "(ssget \"X\") 2 3"), "nil");
    EXPECT_EQ(CallHandler(lumo_setsstodb, "(entlast) 2"), "nil");
    EXPECT_EQ(CallHandler(lumo_setsstodb, "(ssget \"X\")"), "nil");
    EXPECT_EQ(CallHandler(lumo_getentdata, "7"), "nil");     // never stored
    EXPECT_EQ(CallHandler(lumo_getentdata, "2 1"), "nil");
    EXPECT_EQ(CallHandler(lumo_getentdata, "\"2\""), "nil");
}

TEST_F(CurrentEntity, SetsstodbForgetsTheRememberedEntity) {
    Run(kLine);
    CallHandler(lumo_setsstodb, "(ssget \"X\") 4");
    EXPECT_NE(CallHandler(lumo_getentdata, "4"), "nil");
    EXPECT_EQ(gRememberedValid, 1);
    CallHandler(lumo_setsstodb, "(ssget \"X\") 4");
    EXPECT_EQ(gRememberedValid, 0);
    EXPECT_EQ(CallHandler(lumo_setenttodb, ""), "nil");
}

TEST_F(CurrentEntity, ReleasingTheListClearsTheCounter) {
    Run(kLw);
    CallHandler(lumo_setenttodb, "(entlast)");
    CallHandler(lumo_getentdxf, "10 T");
    ReleaseCurrentEntityList();
    EXPECT_EQ(gCurrentEntityList, nullptr);
    EXPECT_EQ(gEntityListOccurrence, 0);
}
