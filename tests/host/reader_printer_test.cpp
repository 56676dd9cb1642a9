#include <gtest/gtest.h>

#include "lisp_test_support.h"

using lumo::test::Show;

TEST(Reader, NumbersFollowTheHostsRules) {
    EXPECT_EQ(Show("42"), "42");
    EXPECT_EQ(Show("-7"), "-7");
    EXPECT_EQ(Show("2147483647"), "2147483647");
    EXPECT_EQ(Show("2147483648"), "2.14748e+09");  // past 32 bits: a real
    EXPECT_EQ(Show("1."), "1.0");
    EXPECT_EQ(Show(".5"), "0.5");
    EXPECT_EQ(Show("1e3"), "1000.0");
    EXPECT_EQ(Show("'1+"), "1+");
    EXPECT_EQ(Show("'-"), "-");
}

TEST(Reader, StringEscapesAndBytes) {
    EXPECT_EQ(Show("\"a\\tb\\\\c\\\"d\""), "\"a\\tb\\\\c\\\"d\"");
    EXPECT_EQ(lumo::lisp::ToString(lumo::test::Run("\"\\101\\102\""), false), "AB");
    EXPECT_EQ(lumo::lisp::ToString(lumo::test::Run("\"\\e\""), false), "\x1b");
    // GB-encoded bytes pass through unchanged.
    EXPECT_EQ(lumo::lisp::ToString(lumo::test::Run("\"\xd6\xd0\xce\xc4\""), false), "\xd6\xd0\xce\xc4");
}

TEST(Reader, SymbolsCommentsAndDottedPairs) {
    EXPECT_EQ(Show("'abc"), "ABC");
    EXPECT_EQ(Show("'(a . b)"), "(A . B)");
    EXPECT_EQ(Show("'(1 2 . 3)"), "(1 2 . 3)");
    EXPECT_EQ(Show("'(1 ; comment\n 2)"), "(1 2)");
    EXPECT_EQ(Show("'(1 ;| block\n comment |; 2)"), "(1 2)");
    EXPECT_EQ(Show("'(a .b)"), "(A .B)");
    EXPECT_EQ(Show("nil"), "nil");
    EXPECT_EQ(Show("'NIL"), "nil");
}

TEST(Reader, MalformedInputIsAnError) {
    EXPECT_EQ(Show("(+ 1 2"), "error: malformed list on input");
    EXPECT_EQ(Show(")"), "error: extra right paren on input");
    EXPECT_EQ(Show("\"abc"), "error: malformed string on input");
    EXPECT_TRUE(lumo::lisp::IsBalanced("(a \"(\" ;(\n)"));
    EXPECT_FALSE(lumo::lisp::IsBalanced("(a (b)"));
}

TEST(Printer, RealsHaveSixSignificantDigitsAndAPoint) {
    using lumo::lisp::FormatReal;
    EXPECT_EQ(FormatReal(1.0), "1.0");
    EXPECT_EQ(FormatReal(0.1), "0.1");
    EXPECT_EQ(FormatReal(3.14159265), "3.14159");
    EXPECT_EQ(FormatReal(100000.0), "100000.0");
    EXPECT_EQ(FormatReal(1234567.0), "1.23457e+06");
    EXPECT_EQ(FormatReal(1e20), "1.0e+20");
    EXPECT_EQ(FormatReal(-0.5), "-0.5");
}

TEST(Printer, HostObjectsPrintInTheHostsForms) {
    int32_t name[2] = {3, 1};
    EXPECT_EQ(lumo::lisp::ToString(lumo::lisp::MakeEname(name), true), "<Entity name: 7ff600000030>");
    EXPECT_EQ(Show("car").rfind("#<SUBR @", 0), 0u);
    EXPECT_EQ(Show("(defun sq (x) (* x x)) sq").rfind("#<USUBR @", 0), 0u);
    EXPECT_EQ(Show("(vl-catch-all-apply '/ '(1 0))"), "#<%catch-all-apply-error%>");
}
