// CString: the byte semantics of extraction, search, editing and trimming.
#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>

#include "platform/afxstr.h"

namespace {

std::string S(const CString& s) { return std::string(static_cast<LPCTSTR>(s), static_cast<size_t>(s.GetLength())); }

}  // namespace

TEST(CString, ConstructsFromTextsCharsAndLengths) {
    EXPECT_EQ(S(CString()), "");
    EXPECT_EQ(S(CString("abc")), "abc");
    EXPECT_EQ(S(CString(static_cast<LPCTSTR>(nullptr))), "");
    EXPECT_EQ(S(CString('x', 3)), "xxx");
    EXPECT_EQ(S(CString('x', 0)), "");
    EXPECT_EQ(S(CString("abcdef", 2)), "ab");
    CString a("abc");
    CString b(a);
    b.SetAt(0, 'z');
    EXPECT_EQ(S(a), "abc");   // copies are deep
    EXPECT_EQ(S(b), "zbc");
}

TEST(CString, PassesToPrintfAsItsText) {
    CString s("hello");
    char out[32];
    std::snprintf(out, sizeof out, "%s!", static_cast<LPCTSTR>(s));
    EXPECT_STREQ(out, "hello!");
    EXPECT_EQ(sizeof(CString), sizeof(char*));
}

TEST(CString, MidLeftRightClampTheirRanges) {
    CString s("abcdef");
    EXPECT_EQ(S(s.Mid(2)), "cdef");
    EXPECT_EQ(S(s.Mid(2, 2)), "cd");
    EXPECT_EQ(S(s.Mid(2, 0)), "");
    EXPECT_EQ(S(s.Mid(2, 100)), "cdef");
    EXPECT_EQ(S(s.Mid(-3, 2)), "ab");
    EXPECT_EQ(S(s.Mid(10)), "");
    EXPECT_EQ(S(s.Mid(6)), "");
    EXPECT_EQ(S(s.Left(2)), "ab");
    EXPECT_EQ(S(s.Left(-1)), "");
    EXPECT_EQ(S(s.Left(99)), "abcdef");
    EXPECT_EQ(S(s.Right(2)), "ef");
    EXPECT_EQ(S(s.Right(-1)), "");
    EXPECT_EQ(S(s.Right(99)), "abcdef");
}

TEST(CString, SpansTakeTheLeadingRun) {
    CString s("1234abc56");
    EXPECT_EQ(S(s.SpanIncluding("0123456789")), "1234");
    EXPECT_EQ(S(s.SpanIncluding("x")), "");
    EXPECT_EQ(S(s.SpanExcluding("cb")), "1234a");
    EXPECT_EQ(S(s.SpanExcluding("")), "1234abc56");
}

TEST(CString, FindCountsBytesFromZero) {
    CString s("abcabc");
    EXPECT_EQ(s.Find('c'), 2);
    EXPECT_EQ(s.Find('c', 3), 5);
    EXPECT_EQ(s.Find('z'), -1);
    EXPECT_EQ(s.Find("bc"), 1);
    EXPECT_EQ(s.Find("bc", 2), 4);
    EXPECT_EQ(s.Find("bc", 6), -1);
    EXPECT_EQ(s.Find("bc", 7), -1);
    EXPECT_EQ(s.Find("bc", -1), -1);
    EXPECT_EQ(s.Find(""), 0);
    EXPECT_EQ(s.ReverseFind('a'), 3);
    EXPECT_EQ(s.FindOneOf("xc"), 2);
    EXPECT_EQ(s.FindOneOf("xy"), -1);
}

TEST(CString, ReplaceCountsNonOverlappingMatches) {
    CString s("aaaa");
    EXPECT_EQ(s.Replace("aa", "b"), 2);
    EXPECT_EQ(S(s), "bb");
    CString t("abcb");
    EXPECT_EQ(t.Replace("b", "xyz"), 2);
    EXPECT_EQ(S(t), "axyzcxyz");
    EXPECT_EQ(t.Replace("", "q"), 0);
    EXPECT_EQ(t.Replace("nothing", "q"), 0);
    EXPECT_EQ(t.Replace("xyz", ""), 2);
    EXPECT_EQ(S(t), "ac");
    EXPECT_EQ(t.Replace('a', 'c'), 1);
    EXPECT_EQ(S(t), "cc");
    EXPECT_EQ(t.Remove('c'), 2);
    EXPECT_EQ(S(t), "");
}

TEST(CString, InsertAndDeleteClampTheirIndex) {
    CString s("abc");
    EXPECT_EQ(s.Insert(1, "XY"), 5);
    EXPECT_EQ(S(s), "aXYbc");
    s.Insert(-5, '<');
    s.Insert(100, '>');
    EXPECT_EQ(S(s), "<aXYbc>");
    EXPECT_EQ(s.Delete(1, 3), 4);
    EXPECT_EQ(S(s), "<bc>");
    s.Delete(-1, 1);   // a negative index counts as 0
    EXPECT_EQ(S(s), "bc>");
    s.Delete(1, 100);  // the count stops at the end
    EXPECT_EQ(S(s), "b");
    s.Delete(5, 1);
    EXPECT_EQ(S(s), "b");
    s.Delete(0, 0);
    EXPECT_EQ(S(s), "b");
}

TEST(CString, TrimTakesWhiteSpaceOrTheGivenSet) {
    CString s(" \t ab c \n");
    s.TrimLeft();
    EXPECT_EQ(S(s), "ab c \n");
    s.TrimRight();
    EXPECT_EQ(S(s), "ab c");
    CString t("xxyabcyx");
    t.TrimLeft("xy");
    EXPECT_EQ(S(t), "abcyx");
    t.TrimRight('x');
    EXPECT_EQ(S(t), "abcy");
    t.TrimRight("abcy");
    EXPECT_EQ(S(t), "");
}

TEST(CString, CaseAndReverse) {
    CString s("AbC1");
    s.MakeUpper();
    EXPECT_EQ(S(s), "ABC1");
    s.MakeLower();
    EXPECT_EQ(S(s), "abc1");
    s.MakeReverse();
    EXPECT_EQ(S(s), "1cba");
    EXPECT_EQ(CString("abc").CompareNoCase("ABC"), 0);
    EXPECT_LT(CString("abc").Compare("abd"), 0);
    EXPECT_GT(CString("b").Compare("abc"), 0);
    EXPECT_TRUE(CString("x") == "x");
    EXPECT_TRUE(CString("x") != CString("y"));
    EXPECT_TRUE(CString("a") < CString("b"));
}

TEST(CString, ConcatenationAndSelfAssignment) {
    CString s("ab");
    s += s;
    EXPECT_EQ(S(s), "abab");
    s += 'c';
    s += "de";
    EXPECT_EQ(S(s), "ababcde");
    EXPECT_EQ(S(CString("x") + "y" + 'z'), "xyz");
    EXPECT_EQ(S("w" + CString("v")), "wv");
    s = static_cast<LPCTSTR>(s) + 2;   // a text inside the string itself
    EXPECT_EQ(S(s), "abcde");
    s = s;
    EXPECT_EQ(S(s), "abcde");
}

TEST(CString, FormatGrowsToTheText) {
    CString s;
    s.Format("%s-%d-%.2f", "a", 42, 1.5);
    EXPECT_EQ(S(s), "a-42-1.50");
    std::string big(3000, 'q');
    s.Format("%s!", big.c_str());
    EXPECT_EQ(s.GetLength(), 3001);
}

TEST(CString, BufferWritingAndRelease) {
    CString s("abc");
    char* p = s.GetBuffer(10);
    std::snprintf(p, 11, "0123456789");
    s.ReleaseBuffer();
    EXPECT_EQ(S(s), "0123456789");
    p = s.GetBuffer(0);
    p[3] = 0;
    s.ReleaseBuffer();
    EXPECT_EQ(S(s), "012");
    s.GetBufferSetLength(2);
    EXPECT_EQ(S(s), "01");
    s.FreeExtra();
    EXPECT_EQ(S(s), "01");
    CString e;
    e.GetBuffer(5)[0] = 'k';
    e.ReleaseBuffer(1);
    EXPECT_EQ(S(e), "k");
}

// Property: Delete then Insert of the same bytes at the same index gives back
// the text, for any in-range index and count.
TEST(CString, DeleteThenInsertRestoresTheText) {
    std::mt19937 rng(42);
    for (int round = 0; round < 300; ++round) {
        std::string text;
        int n = static_cast<int>(rng() % 20);
        for (int i = 0; i < n; ++i) text += static_cast<char>('a' + rng() % 26);
        int at = n ? static_cast<int>(rng() % static_cast<unsigned>(n + 1)) : 0;
        int count = static_cast<int>(rng() % static_cast<unsigned>(n - at + 1));
        CString s(text.c_str());
        CString cut = s.Mid(at, count);
        s.Delete(at, count);
        EXPECT_EQ(s.GetLength(), n - count);
        s.Insert(at, cut);
        EXPECT_EQ(S(s), text);
        EXPECT_EQ(S(CString(text.c_str()).Left(at) + CString(text.c_str()).Mid(at)), text);
    }
}

// Every extraction, search and edit against a plain model of the clamping
// rules, with indices and counts reaching past both ends.
TEST(CString, AgreesWithAClampingModelOnAnyIndex) {
    std::mt19937 rng(42);
    auto clamp = [](int v, int lo, int hi) { return v < lo ? lo : v > hi ? hi : v; };
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        int n = static_cast<int>(rng() % 12);
        for (int i = 0; i < n; ++i) text += static_cast<char>('a' + rng() % 4);
        int a = static_cast<int>(rng() % 20) - 5;
        int b = static_cast<int>(rng() % 20) - 5;
        std::string part(static_cast<size_t>(rng() % 3), 'a');
        for (char& c : part) c = static_cast<char>('a' + rng() % 4);
        CString s(text.c_str());

        int first = clamp(a, 0, n);
        EXPECT_EQ(S(s.Mid(a, b)), text.substr(static_cast<size_t>(first), static_cast<size_t>(clamp(b, 0, n - first))));
        EXPECT_EQ(S(s.Mid(a)), text.substr(static_cast<size_t>(first)));
        EXPECT_EQ(S(s.Left(b)), text.substr(0, static_cast<size_t>(clamp(b, 0, n))));
        EXPECT_EQ(S(s.Right(b)), text.substr(static_cast<size_t>(n - clamp(b, 0, n))));

        size_t found = a < 0 || a > n ? std::string::npos : text.find(part, static_cast<size_t>(a));
        EXPECT_EQ(s.Find(part.c_str(), a), found == std::string::npos ? -1 : static_cast<int>(found));

        CString deleted(s);
        std::string modelDeleted = text;
        if (b > 0 && first < n) modelDeleted.erase(static_cast<size_t>(first), static_cast<size_t>(b));
        deleted.Delete(a, b);
        EXPECT_EQ(S(deleted), modelDeleted) << text << " Delete(" << a << ", " << b << ")";

        CString inserted(s);
        inserted.Insert(a, part.c_str());
        EXPECT_EQ(S(inserted), std::string(text).insert(static_cast<size_t>(first), part));
    }
}
