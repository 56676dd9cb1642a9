// The LISP number-list family: sorts with tolerance and element deletion.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "frame/numlist_lisp.h"
#include "handler_call.h"

using lumo::test::CallHandler;

TEST(ToleranceComparison, NearValuesCompareEqual) {
    EXPECT_EQ(CompareWithTolerance(1.0, 1.000001), 0);
    EXPECT_EQ(CompareWithTolerance(1.0, 1.0001), -1);
    EXPECT_EQ(CompareWithTolerance(2.0, 1.0), 1);
}

TEST(RealSort, DropsNearEqualValues) {
    EXPECT_EQ(CallHandler(lumo_realsort1, "3 1 1.000001 2"), "(1.0 2.0 3.0)");
    EXPECT_EQ(CallHandler(lumo_realsort2, "3 1 2.5"), "(1.0 2.5 3.0)");
    EXPECT_EQ(CallHandler(lumo_realsort2, "3 1 1.000001 2"), "(1.0 1.0 2.0 3.0)");
    EXPECT_EQ(CallHandler(lumo_realsort1, "5"), "(5.0)");
}

// Each value is measured against the one directly before it, dropped or not:
// a creeping run collapses to its first value.
TEST(RealSort, ARunOfCloseValuesKeepsOnlyItsFirst) {
    EXPECT_EQ(CallHandler(lumo_realsort1, "1.0 1.000008 1.000016 1.000024"), "(1.0)");
}

TEST(RealSort, AnythingButNumbersGivesNil) {
    EXPECT_EQ(CallHandler(lumo_realsort1, ""), "nil");
    EXPECT_EQ(CallHandler(lumo_realsort1, "1 \"a\" 2"), "nil");
    EXPECT_EQ(CallHandler(lumo_realsort2, "1 '(2 3)"), "nil");
}

TEST(ListSort, SortsPointsByXAndSublistsByTheirFirstMember) {
    EXPECT_EQ(CallHandler(lumo_rlistsort2, "'(3 \"c\") '(1 \"a\") '(2 \"b\")"),
              "((1 \"a\") (2 \"b\") (3 \"c\"))");
    EXPECT_EQ(CallHandler(lumo_rlistsort2, "'(3.0 0.0 0.0) '(1.0 5.0 0.0)"), "((1.0 5.0 0.0) (3.0 0.0 0.0))");
    EXPECT_EQ(CallHandler(lumo_rlistsort1, "'(1 \"a\") '(1.000001 \"b\") '(0 \"z\")"), "((0 \"z\") (1 \"a\"))");
    EXPECT_EQ(CallHandler(lumo_rlistsort2, "'(2 . \"b\") '(1 . \"a\")"), "((1 . \"a\") (2 . \"b\"))");
}

TEST(ListSort, RejectsOtherElements) {
    EXPECT_EQ(CallHandler(lumo_rlistsort1, "1 2"), "nil");
    EXPECT_EQ(CallHandler(lumo_rlistsort1, "'(1 2) 3"), "nil");
    EXPECT_EQ(CallHandler(lumo_rlistsort1, "'(\"a\" 2)"), "nil");
}

TEST(ListDelete, RemovesMatchesByTheFirstMember) {
    EXPECT_EQ(CallHandler(lumo_rlistdel1, "1 '(1 \"a\") '(2 \"b\") '(1 \"c\")"), "((2 \"b\"))");
    EXPECT_EQ(CallHandler(lumo_rlistdel2, "1 '(1 \"a\") '(2 \"b\") '(1 \"c\")"), "((2 \"b\") (1 \"c\"))");
    EXPECT_EQ(CallHandler(lumo_rlistdel1, "\"b\" '(\"a\" 1) '(\"b\" 2)"), "((\"a\" 1))");
    EXPECT_EQ(CallHandler(lumo_rlistdel1, "\"B\" '(\"a\" 1) '(\"b\" 2)"), "((\"a\" 1) (\"b\" 2))");
    EXPECT_EQ(CallHandler(lumo_rlistdel1, "2.0 '(1.0 2.0 3.0) '(2.0 0.0 0.0)"), "((1.0 2.0 3.0))");
    EXPECT_EQ(CallHandler(lumo_rlistdel1, "'(1.0 2.0 3.0) '((1.0 2.0 3.0) 7) '(1 2)"), "((1 2))");
}

// Of two matches side by side only the first goes: the second is unlinked
// from the removed element, not from the list.
TEST(ListDelete, NeighbouringMatchesLeaveTheSecond) {
    EXPECT_EQ(CallHandler(lumo_rlistdel1, "1 '(1 \"a\") '(1 \"b\") '(1 \"c\")"), "((1 \"b\"))");
    EXPECT_EQ(CallHandler(lumo_rlistdel1, "1 '(1 \"a\") '(1 \"b\") '(2) '(1 \"c\") '(1 \"d\")"),
              "((1 \"b\") (2) (1 \"d\"))");
}

TEST(ListDelete, RejectsPlainElementsAndListTargets) {
    EXPECT_EQ(CallHandler(lumo_rlistdel1, "1 2 '(1 2)"), "nil");
    EXPECT_EQ(CallHandler(lumo_rlistdel1, "'(1 2) '(1 2)"), "nil");
    EXPECT_EQ(CallHandler(lumo_rlistdel2, ""), "nil");
    EXPECT_EQ(CallHandler(lumo_rlistdel2, "1 '(2 3)"), "((2 3))");
    EXPECT_EQ(CallHandler(lumo_rlistdel1, "1 '(1 2)"), "nil");   // nothing remains
}

// Property: the sorted output of realsort2 is ordered and keeps every value.
TEST(RealSort, SortsAnyRunOfNumbers) {
    std::mt19937 rng(42);
    for (int round = 0; round < 50; ++round) {
        std::string args;
        int n = 1 + static_cast<int>(rng() % 12);
        for (int i = 0; i < n; ++i) args += std::to_string(static_cast<int>(rng() % 7)) + " ";
        std::string out = CallHandler(lumo_realsort2, args);
        std::vector<double> values;
        size_t pos = 1;
        while (pos < out.size() - 1) {
            size_t used = 0;
            values.push_back(std::stod(out.substr(pos), &used));
            pos += used + 1;
        }
        ASSERT_EQ(values.size(), static_cast<size_t>(n)) << out;
        for (size_t i = 1; i < values.size(); ++i) EXPECT_LE(values[i - 1], values[i]) << out;
    }
}
