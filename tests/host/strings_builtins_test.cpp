// The host's string functions as LISP code calls them: results, argument
// errors, byte strings, and wild-card matching.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "host/lisp/wcmatch.h"
#include "lisp_test_support.h"
#include "platform/acutads.h"

using lumo::lisp::WcMatch;
using lumo::test::Show;

TEST(StringBuiltins, JoinMeasureCut) {
    EXPECT_EQ(Show("(strcat \"a\" \"bc\" \"\")"), "\"abc\"");
    EXPECT_EQ(Show("(strcat)"), "\"\"");
    EXPECT_EQ(Show("(strlen \"abc\" \"de\")"), "5");
    EXPECT_EQ(Show("(strlen)"), "0");
    EXPECT_EQ(Show("(substr \"abcdef\" 2 3)"), "\"bcd\"");
    EXPECT_EQ(Show("(substr \"abcdef\" 4)"), "\"def\"");
    EXPECT_EQ(Show("(substr \"abc\" 5)"), "\"\"");
    EXPECT_EQ(Show("(substr \"abc\" 2 0)"), "\"\"");
    EXPECT_EQ(Show("(substr \"abc\" 2 99)"), "\"bc\"");
}

TEST(StringBuiltins, ArgumentErrorsAsTheHostReportsThem) {
    EXPECT_EQ(Show("(strcat \"a\" 1)"), "error: bad argument type: stringp 1");
    EXPECT_EQ(Show("(strlen nil)"), "error: bad argument type: stringp nil");
    EXPECT_EQ(Show("(substr \"abc\" 0)"), "error: bad argument value: positive 0");
    EXPECT_EQ(Show("(substr \"abc\" 1 -1)"), "error: bad argument value: non-negative -1");
    EXPECT_EQ(Show("(substr \"abc\" 1.0)"), "error: bad argument type: fixnump: 1.0");
    EXPECT_EQ(Show("(itoa 1.5)"), "error: bad argument type: fixnump: 1.5");
    EXPECT_EQ(Show("(ascii)"), "error: too few arguments");
    EXPECT_EQ(Show("(chr 65 66)"), "error: too many arguments");
    EXPECT_EQ(Show("(vl-string-elt \"abc\" 3)"), "error: bad argument value: string position out of range 3");
}

TEST(StringBuiltins, CaseFoldingTouchesAsciiOnly) {
    EXPECT_EQ(Show("(strcase \"Abc-z\")"), "\"ABC-Z\"");
    EXPECT_EQ(Show("(strcase \"AbC\" T)"), "\"abc\"");
    EXPECT_EQ(Show("(strcase \"AbC\" nil)"), "\"ABC\"");
    // Double-byte text (GB: 0xD6D0 0xCEC4) passes through untouched.
    EXPECT_EQ(Show("(strcase \"\\326\\320a\")"), "\"\xD6\xD0" "A\"");
    EXPECT_EQ(Show("(ascii \"\\326\")"), "214");
    EXPECT_EQ(Show("(strlen \"\\326\\320\")"), "2");
}

TEST(StringBuiltins, CharacterCodes) {
    EXPECT_EQ(Show("(ascii \"A\")"), "65");
    EXPECT_EQ(Show("(ascii \"\")"), "0");
    EXPECT_EQ(Show("(chr 65)"), "\"A\"");
    EXPECT_EQ(Show("(chr 0)"), "\"\"");
    EXPECT_EQ(Show("(vl-string->list \"AB\")"), "(65 66)");
    EXPECT_EQ(Show("(vl-list->string '(72 105))"), "\"Hi\"");
    EXPECT_EQ(Show("(vl-list->string nil)"), "\"\"");
    EXPECT_EQ(Show("(vl-string-elt \"abc\" 1)"), "98");
}

TEST(StringBuiltins, NumbersFromText) {
    EXPECT_EQ(Show("(itoa -42)"), "\"-42\"");
    EXPECT_EQ(Show("(atoi \"  42abc\")"), "42");
    EXPECT_EQ(Show("(atoi \"3.9\")"), "3");
    EXPECT_EQ(Show("(atoi \"-17\")"), "-17");
    EXPECT_EQ(Show("(atoi \"x1\")"), "0");
    EXPECT_EQ(Show("(atoi \"99999999999\")"), "2147483647");
    EXPECT_EQ(Show("(atof \"97.1\")"), "97.1");
    EXPECT_EQ(Show("(atof \"-.5x\")"), "-0.5");
    EXPECT_EQ(Show("(atof \"2e3\")"), "2000.0");
    EXPECT_EQ(Show("(atof \"abc\")"), "0.0");
    EXPECT_EQ(Show("(atof \"inf\")"), "0.0");
}

TEST(StringBuiltins, UnitsTextThroughTheHostsFormatting) {
    EXPECT_EQ(Show("(rtos 15.5 2 2)"), "\"15.50\"");
    EXPECT_EQ(Show("(rtos 15.5 4 4)"), "\"1'-3 1/2\\\"\"");
    EXPECT_EQ(Show("(rtos 15 1 4)"), "\"1.5000E+01\"");
    EXPECT_EQ(Show("(rtos 20261122.153045 2 6)"), "\"20261122.153045\"");
    EXPECT_EQ(Show("(rtos 1.0 9 2)"), "nil");
    EXPECT_EQ(Show("(angtos (/ pi 4) 1 4)"), "\"45d0'0\\\"\"");
    EXPECT_EQ(Show("(angtos pi 3 4)"), "\"3.1416r\"");
    EXPECT_EQ(Show("(distof \"1'-3 1/2\\\"\" 4)"), "15.5");
    EXPECT_EQ(Show("(distof \"abc\" 2)"), "nil");
    EXPECT_EQ(Show("(angtof \"50g\" 2)"), "0.785398");
    EXPECT_EQ(Show("(rtos \"1\")"), "error: bad argument type: numberp: \"1\"");
}

TEST(StringBuiltins, SearchAndSubstitute) {
    EXPECT_EQ(Show("(vl-string-search \"ab\" \"xxabxab\")"), "2");
    EXPECT_EQ(Show("(vl-string-search \"ab\" \"xxabxab\" 3)"), "5");
    EXPECT_EQ(Show("(vl-string-search \"zz\" \"xxab\")"), "nil");
    EXPECT_EQ(Show("(vl-string-search \"\" \"abc\")"), "0");
    EXPECT_EQ(Show("(vl-string-search \"a\" \"abc\" 9)"), "nil");
    EXPECT_EQ(Show("(vl-string-subst \"Z\" \"ab\" \"abab\")"), "\"Zab\"");
    EXPECT_EQ(Show("(vl-string-subst \"Z\" \"ab\" \"abab\" 1)"), "\"abZ\"");
    EXPECT_EQ(Show("(vl-string-subst \"Z\" \"q\" \"abab\")"), "\"abab\"");
    EXPECT_EQ(Show("(vl-string-position 98 \"abcb\")"), "1");
    EXPECT_EQ(Show("(vl-string-position 98 \"abcb\" 2)"), "3");
    EXPECT_EQ(Show("(vl-string-position 98 \"abcb\" nil T)"), "3");
    EXPECT_EQ(Show("(vl-string-position 122 \"abcb\")"), "nil");
    EXPECT_EQ(Show("(vl-string-position 122 \"azbdc az\" 3 T)"), "1");   // backwards from 3
    EXPECT_EQ(Show("(vl-string-position 122 \"azbdc az\" 0 T)"), "nil");
    EXPECT_EQ(Show("(vl-string-position 122 \"\" nil T)"), "nil");
    EXPECT_EQ(Show("(vl-string-mismatch \"abcd\" \"abxd\")"), "2");
    EXPECT_EQ(Show("(vl-string-mismatch \"xabc\" \"abd\" 1 0)"), "2");
    EXPECT_EQ(Show("(vl-string-mismatch \"ABc\" \"abC\" 0 0 T)"), "3");
}

TEST(StringBuiltins, TrimAndTranslate) {
    EXPECT_EQ(Show("(vl-string-trim \" \\t\" \"  a b \\t\")"), "\"a b\"");
    EXPECT_EQ(Show("(vl-string-left-trim \"x\" \"xxaxx\")"), "\"axx\"");
    EXPECT_EQ(Show("(vl-string-right-trim \"x\" \"xxaxx\")"), "\"xxa\"");
    EXPECT_EQ(Show("(vl-string-trim \"x\" \"xxx\")"), "\"\"");
    EXPECT_EQ(Show("(vl-string-translate \"abc\" \"12\" \"aabbcc\")"), "\"1122cc\"");
}

TEST(StringBuiltins, PrintedFormsAndSymbols) {
    EXPECT_EQ(Show("(vl-princ-to-string '(1 \"a\" 2.5))"), "\"(1 a 2.5)\"");
    EXPECT_EQ(Show("(vl-prin1-to-string \"a\")"), "\"\\\"a\\\"\"");
    EXPECT_EQ(Show("(vl-symbol-name 'abc)"), "\"ABC\"");
    EXPECT_EQ(Show("(vl-symbolp 'abc)"), "T");
    EXPECT_EQ(Show("(vl-symbolp nil)"), "nil");
    EXPECT_EQ(Show("(vl-symbolp \"abc\")"), "nil");
    EXPECT_EQ(Show("(vl-symbol-name \"abc\")"), "error: bad argument type: symbolp \"abc\"");
}

TEST(WildCards, ClassesOfCharacters) {
    EXPECT_TRUE(WcMatch("A12", "@##"));
    EXPECT_FALSE(WcMatch("AB2", "@##"));
    EXPECT_TRUE(WcMatch("a-b", "a.b"));
    EXPECT_FALSE(WcMatch("a1b", "a.b"));
    EXPECT_TRUE(WcMatch("\xD6\xD0", ".."));   // high bytes are not alphanumeric
    EXPECT_TRUE(WcMatch("abc", "a?c"));
    EXPECT_FALSE(WcMatch("ac", "a?c"));
}

TEST(WildCards, StarsAndAlternatives) {
    EXPECT_TRUE(WcMatch("Name", "N*"));
    EXPECT_TRUE(WcMatch("Name", "*"));
    EXPECT_TRUE(WcMatch("", "*"));
    EXPECT_TRUE(WcMatch("", ""));
    EXPECT_FALSE(WcMatch("a", ""));
    EXPECT_TRUE(WcMatch("abcabd", "*ab?"));
    EXPECT_TRUE(WcMatch("TCH_WALL", "TCH_*"));
    EXPECT_FALSE(WcMatch("tch_wall", "TCH_*"));   // case-sensitive
    EXPECT_TRUE(WcMatch("Name", "X*,*me"));
    EXPECT_FALSE(WcMatch("Name", "X*,Y*"));
    EXPECT_TRUE(WcMatch("", "a,"));   // an empty last alternative
}

TEST(WildCards, BracketsNegationAndEscapes) {
    EXPECT_TRUE(WcMatch("b", "[abc]"));
    EXPECT_FALSE(WcMatch("d", "[abc]"));
    EXPECT_TRUE(WcMatch("m", "[a-z]"));
    EXPECT_FALSE(WcMatch("M", "[a-z]"));
    EXPECT_TRUE(WcMatch("d", "[~abc]"));
    EXPECT_FALSE(WcMatch("a", "[~abc]"));
    EXPECT_TRUE(WcMatch("]", "[]]"));
    EXPECT_TRUE(WcMatch("-", "[a-]"));
    EXPECT_TRUE(WcMatch("[x", "[x"));   // no closing bracket: literal
    EXPECT_TRUE(WcMatch("Other", "~N*"));
    EXPECT_FALSE(WcMatch("Name", "~N*"));
    EXPECT_TRUE(WcMatch("a*b", "a`*b"));
    EXPECT_FALSE(WcMatch("axb", "a`*b"));
    EXPECT_TRUE(WcMatch("a,b", "a`,b"));
    EXPECT_TRUE(WcMatch("#", "`#"));
    EXPECT_FALSE(WcMatch("1", "`#"));
}

TEST(WildCards, LispAndAdsEntries) {
    EXPECT_EQ(Show("(wcmatch \"Name\" \"N*\")"), "T");
    EXPECT_EQ(Show("(wcmatch \"Name\" \"n*\")"), "nil");
    EXPECT_EQ(Show("(wcmatch 1 \"*\")"), "error: bad argument type: stringp 1");
    EXPECT_EQ(acutWcMatch("TCH_X", "TCH_*"), RTNORM);
    EXPECT_EQ(acutWcMatch("LINE", "TCH_*"), RTERROR);
    EXPECT_EQ(acutWcMatch(nullptr, "*"), RTERROR);
}

// Without brackets, escapes or negation a pattern of letters, ? and * must
// agree with a plain recursive matcher.
namespace {
bool Reference(const char* t, const char* p) {
    if (!*p) return !*t;
    if (*p == '*') return Reference(t, p + 1) || (*t && Reference(t + 1, p));
    return *t && (*p == '?' || *p == *t) && Reference(t + 1, p + 1);
}
}  // namespace

TEST(WildCards, AgreesWithAPlainMatcherOnRandomPatterns) {
    std::mt19937 rng(42);
    const char text_alpha[] = "ab";
    const char pat_alpha[] = "ab?*";
    for (int i = 0; i < 3000; ++i) {
        std::string t, p;
        for (size_t n = rng() % 8; n > 0; --n) t += text_alpha[rng() % 2];
        for (size_t n = rng() % 6; n > 0; --n) p += pat_alpha[rng() % 4];
        EXPECT_EQ(WcMatch(t, p), Reference(t.c_str(), p.c_str())) << t << " / " << p;
    }
}
