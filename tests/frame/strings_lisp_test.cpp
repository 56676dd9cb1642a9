// The LISP string family, called as the host calls it.
#include <gtest/gtest.h>

#include <cctype>
#include <string>

#include "frame/strings_lisp.h"
#include "frame_test_support.h"
#include "handler_call.h"

using lumo::test::CallHandler;

TEST(StringFunctions, RightLeftMid) {
    EXPECT_EQ(CallHandler(lumo_string_right, "\"abcdef\" 2"), "\"ef\"");
    EXPECT_EQ(CallHandler(lumo_string_left, "\"abcdef\" 2"), "\"ab\"");
    EXPECT_EQ(CallHandler(lumo_string_left, "\"abcdef\" 20"), "\"abcdef\"");
    EXPECT_EQ(CallHandler(lumo_string_mid, "\"abcdef\" 2"), "\"cdef\"");
    EXPECT_EQ(CallHandler(lumo_string_mid, "\"abcdef\" 2 -1"), "\"cdef\"");
    EXPECT_EQ(CallHandler(lumo_string_mid, "\"abcdef\" 2 0"), "\"\"");
    EXPECT_EQ(CallHandler(lumo_string_mid, "\"abcdef\" 2 3"), "\"cde\"");
    EXPECT_EQ(CallHandler(lumo_string_mid, "\"abcdef\" 2 \"x\""), "\"cdef\"");
}

TEST(StringFunctions, WrongOrMissingArgumentsGiveNilSilently) {
    CaptureOutput out;
    EXPECT_EQ(CallHandler(lumo_string_right, ""), "nil");
    EXPECT_EQ(CallHandler(lumo_string_right, "\"a\" 1.0"), "nil");
    EXPECT_EQ(CallHandler(lumo_string_left, "1 1"), "nil");
    EXPECT_EQ(CallHandler(lumo_string_mid, "\"abc\""), "nil");
    EXPECT_EQ(CallHandler(lumo_string_replace, "\"abc\" \"b\""), "nil");
    EXPECT_EQ(CallHandler(lumo_string_Insert, "\"abc\" 1 2"), "nil");
    EXPECT_EQ(CallHandler(lumo_string_Remove, "\"abc\" 1"), "nil");
    EXPECT_EQ(CallHandler(lumo_string_Remove, "\"abc\" 1.0 1"), "nil");
    EXPECT_EQ(CallHandler(lumo_string_join, "'(1 2) 3"), "nil");
    EXPECT_EQ(CallHandler(lumo_string_tok, "\"abc\""), "nil");
    EXPECT_EQ(out.Text(), "");
}

TEST(StringFunctions, Spans) {
    EXPECT_EQ(CallHandler(lumo_string_SpanIncluding, "\"123abc\" \"0123456789\""), "\"123\"");
    EXPECT_EQ(CallHandler(lumo_string_SpanExcluding, "\"abc;def\" \";,\""), "\"abc\"");
}

TEST(StringFunctions, ReverseTakesExactlyOneText) {
    EXPECT_EQ(CallHandler(lumo_string_Reverse, "\"abc\""), "\"cba\"");
    EXPECT_EQ(CallHandler(lumo_string_Reverse, "\"abc\" nil"), "nil");
    EXPECT_EQ(CallHandler(lumo_string_Reverse, "\"abc\" \"d\""), "nil");
}

TEST(StringFunctions, ReplaceAndSubst) {
    EXPECT_EQ(CallHandler(lumo_string_replace, "\"abcb\" \"b\" \"x\""), "\"axcx\"");
    EXPECT_EQ(CallHandler(lumo_string_replace, "\"abc\" \"z\" \"x\""), "nil");
    EXPECT_EQ(CallHandler(lumo_string_Subst, "\"x\" \"b\" \"abcb\""), "\"axcb\"");
    EXPECT_EQ(CallHandler(lumo_string_Subst, "\"x\" \"z\" \"abcb\""), "nil");
    EXPECT_EQ(CallHandler(lumo_string_Subst, "\"\" \"bc\" \"abcd\""), "\"ad\"");
}

TEST(StringFunctions, FindAndFindOneOf) {
    EXPECT_EQ(CallHandler(lumo_string_Find, "\"abcabc\" \"c\""), "2");
    EXPECT_EQ(CallHandler(lumo_string_Find, "\"abcabc\" \"c\" 3"), "5");
    EXPECT_EQ(CallHandler(lumo_string_Find, "\"abcabc\" \"c\" 3.0"), "2");   // not a short: from 0
    EXPECT_EQ(CallHandler(lumo_string_Find, "\"abcabc\" \"z\""), "nil");
    EXPECT_EQ(CallHandler(lumo_string_FindOneOf, "\"abc\" \"xc\""), "2");
    EXPECT_EQ(CallHandler(lumo_string_FindOneOf, "\"abc\" \"xy\""), "nil");
}

TEST(StringFunctions, InsertAndRemove) {
    EXPECT_EQ(CallHandler(lumo_string_Insert, "\"abc\" 1 \"XY\""), "\"aXYbc\"");
    EXPECT_EQ(CallHandler(lumo_string_Insert, "\"abc\" 99 \"!\""), "\"abc!\"");
    EXPECT_EQ(CallHandler(lumo_string_Remove, "\"abcdef\" 1 2"), "\"adef\"");
    EXPECT_EQ(CallHandler(lumo_string_Remove, "\"abcdef\" \"cd\""), "\"abef\"");
}

// A part that isn't there has index -1, which Delete reads as 0.
TEST(StringFunctions, RemoveOfAMissingPartCutsTheFront) {
    EXPECT_EQ(CallHandler(lumo_string_Remove, "\"abcdef\" \"zz\""), "\"cdef\"");
    EXPECT_EQ(CallHandler(lumo_string_Remove, "\"ab\" \"zzz\""), "\"\"");
}

TEST(StringFunctions, Trims) {
    EXPECT_EQ(CallHandler(lumo_string_TrimRight, "\"ab  \""), "\"ab\"");
    EXPECT_EQ(CallHandler(lumo_string_TrimRight, "\"abxx\" \"x\""), "\"ab\"");
    EXPECT_EQ(CallHandler(lumo_string_TrimRight, "\"ab\" 1"), "nil");
    EXPECT_EQ(CallHandler(lumo_string_TrimLeft, "\"  ab\""), "\"ab\"");
    EXPECT_EQ(CallHandler(lumo_string_TrimLeft, "\"yxab\" \"xy\""), "\"ab\"");
    EXPECT_EQ(CallHandler(lumo_string_TrimLeft, "\"ab\" 'x"), "\"ab\"");   // a symbol passes as its name
}

TEST(StringFunctions, FormatJoinsByKind) {
    EXPECT_EQ(CallHandler(lumo_string_format, "\"a\" 1.5 2 3"), "\"a1.503\"");
    EXPECT_EQ(CallHandler(lumo_string_format, "1.9"), "\"1\"");
    EXPECT_EQ(CallHandler(lumo_string_format, "1.5 9"), "\"19\"");
    EXPECT_EQ(CallHandler(lumo_string_format, "-1.9 0"), "\"-10\"");
    EXPECT_EQ(CallHandler(lumo_string_format, "2.0 5"), "\"2.00000\"");
    EXPECT_EQ(CallHandler(lumo_string_format, "100000"), "\"100000\"");   // a long
    EXPECT_EQ(CallHandler(lumo_string_format, "'(1 \"b\") T"), "\"1b\"");
    EXPECT_EQ(CallHandler(lumo_string_format, "nil"), "nil");
    EXPECT_EQ(CallHandler(lumo_string_format, ""), "nil");
    EXPECT_EQ(CallHandler(lumo_string_format, "\"\""), "nil");
}

TEST(StringFunctions, FormatStopsAtItsLimit) {
    std::string args;
    for (int i = 0; i < 30; ++i) args += "\"" + std::string(200, 'a') + "\" ";
    std::string result = CallHandler(lumo_string_format, args);
    EXPECT_EQ(result.size(), 4999u + 2);   // quotes around 4999 bytes
}

TEST(StringFunctions, SplitKeepsEmptyPieces) {
    EXPECT_EQ(CallHandler(lumo_string_split, "\"a,,b\" \",\""), "(\"a\" \"\" \"b\")");
    EXPECT_EQ(CallHandler(lumo_string_split, "\"a,b,\" \",\""), "(\"a\" \"b\" \"\")");
    EXPECT_EQ(CallHandler(lumo_string_split, "\"abc\" \",\""), "(\"abc\")");
    EXPECT_EQ(CallHandler(lumo_string_split, "\"a::b\" \"::\""), "(\"a\" \"b\")");
    EXPECT_EQ(CallHandler(lumo_string_split, "\"aaa\" \"aa\""), "(\"\" \"a\")");
    EXPECT_EQ(CallHandler(lumo_string_split, "\"abc\" \"\""), "(\"abc\")");
}

TEST(StringFunctions, TokDropsEmptyTokens) {
    EXPECT_EQ(CallHandler(lumo_string_tok, "\"a,,b\" \",\""), "(\"a\" \"b\")");
    EXPECT_EQ(CallHandler(lumo_string_tok, "\" a b \" \" \""), "(\"a\" \"b\")");
    EXPECT_EQ(CallHandler(lumo_string_tok, "\",,,\" \",\""), "nil");
}

TEST(StringFunctions, JoinListsAndPoints) {
    EXPECT_EQ(CallHandler(lumo_string_join, "'(1 2.7 \"x\") \"-\""), "\"1-2-x\"");
    EXPECT_EQ(CallHandler(lumo_string_join, "'(1.5 2.5 3.9) \",\""), "\"1,2,3\"");   // passes as a 3D point
    EXPECT_EQ(CallHandler(lumo_string_join, "'(-1.5 2.5) \",\""), "\"-1,2\"");
    EXPECT_EQ(CallHandler(lumo_string_join, "'(\"a\") \"-\""), "\"a\"");
    EXPECT_EQ(CallHandler(lumo_string_join, "'(100000 \"b\") \"\""), "\"100000b\"");
    EXPECT_EQ(CallHandler(lumo_string_join, "'(1 (2)) \"-\""), "nil");
    EXPECT_EQ(CallHandler(lumo_string_join, "nil \"-\""), "nil");
    EXPECT_EQ(CallHandler(lumo_string_join, "\"abc\" \"-\""), "nil");
}

TEST(TimeFunctions, GettimeIsTheYearAndTheTimeOfDay) {
    std::string t = CallHandler(lumo_gettime, "");
    ASSERT_GE(t.size(), 2u + 4u);
    EXPECT_EQ(t.front(), '"');
    std::string body = t.substr(1, t.size() - 2);
    for (char c : body) EXPECT_TRUE(std::isdigit(static_cast<unsigned char>(c))) << body;
    EXPECT_EQ(body.substr(0, 2), "20");
    EXPECT_EQ(CallHandler(lumo_gettime, "1"), "nil");
}

TEST(TimeFunctions, RandstrIsUpToThreeCapitals) {
    for (int i = 0; i < 20; ++i) {
        std::string w = CallHandler(lumo_getrandstr, "");
        ASSERT_GE(w.size(), 3u) << w;
        ASSERT_LE(w.size(), 5u) << w;
        for (size_t k = 1; k + 1 < w.size(); ++k) EXPECT_TRUE(w[k] >= 'A' && w[k] <= 'Z') << w;
    }
    EXPECT_EQ(CallHandler(lumo_getrandstr, "\"x\""), "nil");
}
