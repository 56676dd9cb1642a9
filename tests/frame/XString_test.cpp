// XString and strchr_new.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "frame/XString.h"

TEST(XString, SizedConstructionGivesAnEmptyText) {
    XString s;
    EXPECT_EQ(s.Length(), 0);
    EXPECT_TRUE(!s);
    XString one(1);
    EXPECT_STREQ(one.Text(), "");
}

TEST(XString, SizeBelowOneEndsTheProcess) {
    EXPECT_EXIT({ XString bad(0); }, testing::ExitedWithCode(1), "");
}

TEST(XString, FormatConstructor) {
    XString s("%s-%d", "a", 7);
    EXPECT_STREQ(s.Text(), "a-7");
    EXPECT_EQ(s.Length(), 3);
    XString empty("");
    ASSERT_NE(empty.Text(), nullptr);
    EXPECT_STREQ(empty.Text(), "");
    XString null(static_cast<const char*>(nullptr));
    EXPECT_EQ(null.Text(), nullptr);
    EXPECT_EQ(null.Length(), 0);
    EXPECT_TRUE(!null);
    std::string wide(400, 'w');
    XString cut("%s", wide.c_str());
    EXPECT_EQ(cut.Length(), 255);   // formatted in 256 bytes
}

TEST(XString, CopiesAndAssignmentsAreExact) {
    XString a("abc");
    XString b(a);
    b[0] = 'z';
    EXPECT_STREQ(a.Text(), "abc");
    EXPECT_STREQ(b.Text(), "zbc");
    XString null(static_cast<const char*>(nullptr));
    XString c(null);
    EXPECT_EQ(c.Text(), nullptr);
    b = a;
    EXPECT_STREQ(b.Text(), "abc");
    b = static_cast<const char*>(nullptr);
    EXPECT_EQ(b.Text(), nullptr);
    a = a.Text() + 1;   // a text inside its own buffer
    EXPECT_STREQ(a.Text(), "bc");
    a = a;
    EXPECT_STREQ(a.Text(), "bc");
}

TEST(XString, ComparisonsAreByteWise) {
    XString a("abc"), b("abd"), c("abc"), high("\xe4");
    EXPECT_EQ(a == c, 1);
    EXPECT_EQ(a == b, 0);
    EXPECT_EQ(a != c, 0);
    EXPECT_EQ(a != b, -1);
    EXPECT_EQ(b != a, 1);
    EXPECT_EQ(high != a, 1);   // bytes compare unsigned
    EXPECT_EQ(XString("Abc") == a, 0);
}

TEST(XString, ComparingANullTextEndsTheProcess) {
    XString a("a");
    XString null(static_cast<const char*>(nullptr));
    EXPECT_EXIT((void)(a == null), testing::ExitedWithCode(1), "");
    EXPECT_EXIT((void)(null != a), testing::ExitedWithCode(1), "");
}

TEST(XString, AppendingFormatsEachKind) {
    XString s(static_cast<const char*>(nullptr));
    s << "x=";   // a null buffer is made first
    s << 12 << " " << 34L << " " << 2.5;
    double p[3] = {1, 2.5, -3};
    s << " " << static_cast<const double*>(p);
    EXPECT_STREQ(s.Text(), "x=12 34 2.5 (1,2.5,-3)");
    EXPECT_EQ(s.StrChr('('), s.Text() + std::strlen("x=12 34 2.5 "));
    EXPECT_EQ(s.StrChr('#'), nullptr);
}

TEST(StrchrNew, FindsTheLastOccurrence) {
    const char* t = "a.b.c";
    EXPECT_EQ(strchr_new(t, '.', false), t + 3);
    EXPECT_EQ(strchr_new(t, '.', true), t + 3);
    EXPECT_EQ(strchr_new(t, 'z', true), nullptr);
    EXPECT_EQ(strchr_new(nullptr, '.', true), nullptr);
}

TEST(StrchrNew, IgnoresADotOfAFolderName) {
    const char* folder = "a.b\\c";
    EXPECT_EQ(strchr_new(folder, '.', true), nullptr);
    EXPECT_EQ(strchr_new(folder, '.', false), folder + 1);
    const char* file = "a.b\\c.d";
    EXPECT_EQ(strchr_new(file, '.', true), file + 5);
}

TEST(StrchrNew, PathCharactersAlwaysGiveTheLastOccurrence) {
    const char* path = "c:\\x\\y";
    EXPECT_EQ(strchr_new(path, '\\', true), path + 4);
    EXPECT_EQ(strchr_new(path, ':', true), path + 1);
    const char* slash = "a/b\\c";
    EXPECT_EQ(strchr_new(slash, '/', true), slash + 1);
}
