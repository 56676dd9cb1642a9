// XStringList: copies, lookups and the extreme texts.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "frame/XStringList.h"

namespace {

XStringList Make(std::vector<const char*> texts) {
    return XStringList(texts.data(), static_cast<int>(texts.size()));
}

}  // namespace

TEST(XStringList, ConstructsCopiesOfTheTexts) {
    char text[] = "abc";
    const char* texts[] = {text, "def"};
    XStringList list(texts, 2);
    text[0] = 'z';
    ASSERT_EQ(list.Count(), 2);
    EXPECT_STREQ(list[0], "abc");
    EXPECT_STREQ(list[1], "def");
    EXPECT_EQ(XStringList(texts, 0).Count(), 0);
    EXPECT_EQ(XStringList(texts, -3).Count(), 0);
}

TEST(XStringList, CopiesAreDeepAndKeepNulls) {
    XStringList a = Make({"one", nullptr, "three"});
    XStringList b(a);
    ASSERT_EQ(b.Count(), 3);
    EXPECT_NE(b[0], a[0]);
    EXPECT_STREQ(b[0], "one");
    EXPECT_EQ(b[1], nullptr);
    XStringList c = Make({"x"});
    c = a;
    ASSERT_EQ(c.Count(), 3);
    EXPECT_STREQ(c[2], "three");
    c = c;
    EXPECT_EQ(c.Count(), 3);
}

TEST(XStringList, IndexIsExactOrCaseBlind) {
    XStringList list = Make({"Alpha", "beta", "alpha"});
    EXPECT_EQ(list.Index("alpha", 1), 2);
    EXPECT_EQ(list.Index("alpha", 0), 0);
    EXPECT_EQ(list.Index("BETA", 0), 1);
    EXPECT_EQ(list.Index("BETA", 1), -1);
    EXPECT_EQ(list.Index(nullptr, 0), -1);
}

TEST(XStringList, MaxAndMinHandBackTheFirstOfEqualTexts) {
    XStringList list = Make({"b", "C", "a", "c"});
    EXPECT_EQ(list.MaxValue(1), list[3]);   // 'c' > 'b' > 'a' > 'C' by bytes
    EXPECT_EQ(list.MinValue(1), list[1]);
    EXPECT_EQ(list.MaxValue(0), list[1]);   // "C" and "c" are equal: the first stays
    EXPECT_EQ(list.MinValue(0), list[2]);
    XStringList empty;
    EXPECT_EQ(empty.MaxValue(1), nullptr);
    EXPECT_EQ(empty.MinValue(0), nullptr);
}

TEST(XStringList, OutOfRangeReadsTheTextUnderTheCursor) {
    XStringList list = Make({"a", "b", "c"});
    EXPECT_STREQ(list[1], "b");
    EXPECT_STREQ(list[7], "b");
    EXPECT_STREQ(list[-1], "b");
    EXPECT_STREQ(list[2], "c");
}

TEST(XStringList, ANonOwningListLeavesTheTexts) {
    char* text = new char[2]{'q', 0};
    {
        XStringList list;
        list.SetOwns(0);
        list.Append(text);
    }
    EXPECT_STREQ(text, "q");
    delete[] text;
}

// Property: Index finds the first equal text, as a plain scan does.
TEST(XStringList, IndexAgreesWithAPlainScan) {
    std::mt19937 rng(42);
    for (int round = 0; round < 200; ++round) {
        std::vector<std::string> texts;
        XStringList list;
        int n = static_cast<int>(rng() % 8);
        for (int i = 0; i < n; ++i) {
            texts.push_back(std::string(1, static_cast<char>("aAbB"[rng() % 4])));
            list.Add(texts.back().c_str());
        }
        std::string probe(1, "aAbBc"[rng() % 5]);
        int expected = -1;
        for (int i = 0; i < n && expected < 0; ++i)
            if (texts[static_cast<size_t>(i)] == probe) expected = i;
        EXPECT_EQ(list.Index(probe.c_str(), 1), expected);
    }
}
