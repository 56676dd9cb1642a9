// The value stacks: object names, containers walked one item per call, and
// saved system variables with their message boxes.
#include <gtest/gtest.h>

#include <string>

#include "frame/object_stacks.h"
#include "frame/stacks_lisp.h"
#include "handler_call.h"
#include "host/db/session.h"
#include "host/lisp/session.h"
#include "host/test_support.h"
#include "platform/acedads.h"
#include "platform/dbmain.h"

using lumo::test::CallHandler;

namespace {

class ValueStackFns : public ::testing::Test {
protected:
    void SetUp() override {
        lumo::db::CloseSessionDatabase();
        EmptyValueStacks();
        lumo::lisp::InitInterpreter();
    }
    void TearDown() override {
        EmptyValueStacks();
        lumo::db::CloseSessionDatabase();
    }
    static void Run(const std::string& text) { ASSERT_TRUE(lumo::lisp::RunText(text)); }
    // The printed value of a LISP expression.
    static std::string Value(const std::string& text) {
        lumo::lisp::Ref last;
        lumo::lisp::RunText(text, &last);
        return lumo::lisp::ToString(last, true);
    }
    static int OsMode() {
        resbuf rb;
        acedGetVar("OSMODE", &rb);
        return rb.resval.rint;
    }
};

const char* kLayerTable = "(cdr (assoc 330 (entget (tblobjname \"LAYER\" \"0\"))))";

}  // namespace

TEST_F(ValueStackFns, AnEmptyObjectStackGivesNilAndPopsNothing) {
    EXPECT_EQ(CallHandler(lumo_objectstack_top, ""), "nil");
    EXPECT_EQ(CallHandler(lumo_objectstack_pop, ""), "nil");
    EXPECT_EQ(CallHandler(lumo_objectstack_depth, ""), "0");
    ads_name top;
    EXPECT_FALSE(ObjectStackTop(top));
}

TEST_F(ValueStackFns, ObjectsGoOnTopAndComeOffInTurn) {
    Run("(entmake '((0 . \"POINT\") (10 0.0 0.0 0.0))) (setq a (entlast))"
        "(entmake '((0 . \"POINT\") (10 1.0 0.0 0.0))) (setq b (entlast))");
    EXPECT_EQ(CallHandler(lumo_objectstack_push, "a"), "T");
    EXPECT_EQ(CallHandler(lumo_objectstack_push, "b"), "T");
    EXPECT_EQ(CallHandler(lumo_objectstack_push, "(namedobjdict)"), "T");
    EXPECT_EQ(CallHandler(lumo_objectstack_depth, ""), "3");
    EXPECT_EQ(CallHandler(lumo_objectstack_top, ""), Value("(namedobjdict)"));
    EXPECT_EQ(CallHandler(lumo_objectstack_top, "1"), "nil");
    CallHandler(lumo_objectstack_pop, "\"anything\"");
    EXPECT_EQ(CallHandler(lumo_objectstack_top, ""), Value("b"));
    CallHandler(lumo_objectstack_popall, "");
    EXPECT_EQ(CallHandler(lumo_objectstack_depth, ""), "0");
}

TEST_F(ValueStackFns, OnlyNamesOfObjectsArePushed) {
    Run("(entmake '((0 . \"POINT\") (10 0.0 0.0 0.0))) (setq a (entlast)) (entdel a)");
    EXPECT_EQ(CallHandler(lumo_objectstack_push, "\"x\""), "nil");
    EXPECT_EQ(CallHandler(lumo_objectstack_push, ""), "nil");
    EXPECT_EQ(CallHandler(lumo_objectstack_push, "a"), "nil");   // erased
    EXPECT_EQ(CallHandler(lumo_objectstack_depth, ""), "0");
}

TEST_F(ValueStackFns, WalkingTheLayerTableOfANewDrawing) {
    EXPECT_EQ(CallHandler(lumo_container_push, kLayerTable), "T");
    EXPECT_EQ(CallHandler(lumo_container_Depth, ""), "1");
    EXPECT_EQ(CallHandler(lumo_container_iter, ""), Value("(list \"0\" (tblobjname \"LAYER\" \"0\"))"));
    EXPECT_EQ(CallHandler(lumo_container_iter, ""), "nil");
    EXPECT_EQ(CallHandler(lumo_container_Depth, ""), "0");
    EXPECT_EQ(CallHandler(lumo_container_iter, ""), "nil");
}

TEST_F(ValueStackFns, TheWalkGoesOnFromWhereItStopped) {
    Run("(entmake '((0 . \"LAYER\") (2 . \"WALL\") (70 . 0) (62 . 1) (6 . \"CONTINUOUS\")))");
    CallHandler(lumo_container_push, kLayerTable);
    CallHandler(lumo_container_push, "(namedobjdict)");
    EXPECT_EQ(CallHandler(lumo_container_Depth, ""), "2");
    std::string first = CallHandler(lumo_container_iter, "");
    EXPECT_EQ(first.substr(0, 13), "(\"ACAD_GROUP\"");
    CallHandler(lumo_container_pop, "");
    EXPECT_EQ(CallHandler(lumo_container_iter, ""), Value("(list \"0\" (tblobjname \"LAYER\" \"0\"))"));
    EXPECT_EQ(CallHandler(lumo_container_iter, ""), Value("(list \"WALL\" (tblobjname \"LAYER\" \"WALL\"))"));
    EXPECT_EQ(CallHandler(lumo_container_iter, ""), "nil");
}

TEST_F(ValueStackFns, ABlockWalkNamesTheClassesOfItsEntities) {
    Run("(entmake '((0 . \"LINE\") (10 0.0 0.0 0.0) (11 1.0 1.0 0.0))) (setq a (entlast))");
    EXPECT_EQ(CallHandler(lumo_container_push, "(cdr (assoc 330 (entget a)))"), "T");
    EXPECT_EQ(CallHandler(lumo_container_iter, ""), Value("(list \"AcDbLine\" a)"));
    EXPECT_EQ(CallHandler(lumo_container_iter, ""), "nil");
}

TEST_F(ValueStackFns, OnlyContainersArePushed) {
    Run("(entmake '((0 . \"LINE\") (10 0.0 0.0 0.0) (11 1.0 1.0 0.0))) (setq a (entlast))");
    EXPECT_EQ(CallHandler(lumo_container_push, "a"), "nil");
    EXPECT_EQ(CallHandler(lumo_container_push, "(tblobjname \"LAYER\" \"0\")"), "nil");
    EXPECT_EQ(CallHandler(lumo_container_push, "(namedobjdict) (namedobjdict)"), "nil");
    EXPECT_EQ(CallHandler(lumo_container_push, ""), "nil");
    EXPECT_EQ(CallHandler(lumo_container_Depth, ""), "0");
}

TEST_F(ValueStackFns, AnExtendedRecordIsPushedAndPopsAtItsFirstWalk) {
    Run("(setq x (entmakex '((0 . \"XRECORD\") (100 . \"AcDbXrecord\") (1 . \"data\"))))"
        "(dictadd (namedobjdict) \"MYREC\" x)");
    EXPECT_EQ(CallHandler(lumo_container_push, "x"), "T");
    EXPECT_EQ(CallHandler(lumo_container_iter, ""), "nil");
    EXPECT_EQ(CallHandler(lumo_container_Depth, ""), "0");
}

TEST_F(ValueStackFns, PopAllEmptiesTheContainerStack) {
    CallHandler(lumo_container_push, kLayerTable);
    CallHandler(lumo_container_push, kLayerTable);
    CallHandler(lumo_container_PopAll, "");
    EXPECT_EQ(CallHandler(lumo_container_Depth, ""), "0");
    CallHandler(lumo_container_pop, "");
    EXPECT_EQ(CallHandler(lumo_container_Depth, ""), "0");
}

TEST_F(ValueStackFns, IsContainerTestsTheArgumentOrTheTopObject) {
    EXPECT_EQ(CallHandler(lumo_object_iscontainer, ""), "nil");
    EXPECT_EQ(CallHandler(lumo_object_iscontainer, "(namedobjdict)"), "T");
    EXPECT_EQ(CallHandler(lumo_object_iscontainer, "(tblobjname \"LAYER\" \"0\")"), "nil");
    EXPECT_EQ(CallHandler(lumo_object_iscontainer, "(namedobjdict) (namedobjdict)"), "nil");
    EXPECT_EQ(CallHandler(lumo_object_iscontainer, "\"x\""), "nil");
    CallHandler(lumo_objectstack_push, kLayerTable);
    EXPECT_EQ(CallHandler(lumo_object_iscontainer, ""), "T");
}

TEST_F(ValueStackFns, PoppingANameGoesBackToTheValueBeforeItsNewestPush) {
    ASSERT_EQ(OsMode(), 0);
    CallHandler(lumo_sysvar_push, "\"OSMODE\" 5");
    EXPECT_EQ(OsMode(), 5);
    CallHandler(lumo_sysvar_push, "\"OSMODE\" 7");
    EXPECT_EQ(OsMode(), 7);
    CallHandler(lumo_sysvar_pop, "\"osmode\"");   // case counts
    EXPECT_EQ(OsMode(), 7);
    CallHandler(lumo_sysvar_pop, "\"OSMODE\"");
    EXPECT_EQ(OsMode(), 5);
    CallHandler(lumo_sysvar_pop, "");
    EXPECT_EQ(OsMode(), 0);
    EXPECT_EQ(gValueStacks.sysVars, nullptr);
}

TEST_F(ValueStackFns, PopAllRestoresTheOldestValues) {
    CallHandler(lumo_sysvar_push, "\"OSMODE\" 5");
    CallHandler(lumo_sysvar_push, "\"TEXTSIZE\" 4.0");
    CallHandler(lumo_sysvar_push, "\"OSMODE\" 9");
    CallHandler(lumo_sysvar_push, "\"TEXTSIZE\"");   // saves only
    EXPECT_EQ(gValueStacks.sysVars->Depth(), 4);
    CallHandler(lumo_sysvar_pop, "");
    EXPECT_EQ(OsMode(), 0);
    EXPECT_EQ(Value("(getvar \"TEXTSIZE\")"), "2.5");
}

TEST_F(ValueStackFns, AValueOfAnotherTypePushesNothing) {
    CallHandler(lumo_sysvar_push, "\"OSMODE\" '(1 2)");
    CallHandler(lumo_sysvar_push, "1 2");
    EXPECT_EQ(gValueStacks.sysVars, nullptr);
    CallHandler(lumo_sysvar_pop, "\"OSMODE\"");   // before any push: nothing
    CallHandler(lumo_sysvar_pop, "12");
    EXPECT_EQ(gValueStacks.sysVars, nullptr);
}

TEST_F(ValueStackFns, FailuresShowAMessageBoxAndTheStateStands) {
    CaptureOutput out;
    CallHandler(lumo_sysvar_push, "\"NOSUCHVAR\"");
    EXPECT_NE(out.Text().find("Could not save state of system variable \"NOSUCHVAR\"."), std::string::npos);
    EXPECT_EQ(gValueStacks.sysVars->Depth(), 1);
    CallHandler(lumo_sysvar_push, "\"ACADVER\" \"16.0\"");
    EXPECT_NE(out.Text().find("Could not set system variable \"ACADVER\"."), std::string::npos);
    EXPECT_EQ(gValueStacks.sysVars->Depth(), 2);
    CallHandler(lumo_sysvar_pop, "");
    EXPECT_EQ(gValueStacks.sysVars, nullptr);
}

TEST_F(ValueStackFns, EmptyingTheStacksSetsTheVariablesBack) {
    CallHandler(lumo_objectstack_push, "(namedobjdict)");
    CallHandler(lumo_container_push, "(namedobjdict)");
    CallHandler(lumo_sysvar_push, "\"OSMODE\" 3");
    EmptyValueStacks();
    EXPECT_EQ(OsMode(), 0);
    EXPECT_EQ(CallHandler(lumo_objectstack_depth, ""), "0");
    EXPECT_EQ(CallHandler(lumo_container_Depth, ""), "0");
}
