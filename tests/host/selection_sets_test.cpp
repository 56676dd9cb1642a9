// Selection sets from the module's side: ownership, the cap on open sets,
// and filters on entity lists.
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "host/ss/selection_sets.h"
#include "host/ss/ss_filter.h"
#include "lisp_test_support.h"
#include "platform/acdbads.h"
#include "platform/acedss.h"
#include "platform/acutads.h"

namespace {

void MakeLine() {
    ads_point a = {0, 0, 0}, b = {1, 0, 0};
    resbuf* line = acutBuildList(RTDXF0, "LINE", 8, "0", 10, a, 11, b, 0);
    ASSERT_EQ(acdbEntMake(line), RTNORM);
    acutRelRb(line);
}

}  // namespace

TEST(SelectionSets, AModuleHoldsAtMostTheHostsNumberOfSets) {
    MakeLine();
    const int before = lumo::host::OpenSetCount();
    std::vector<std::array<int32_t, 2>> held;
    ads_name ss;
    while (acedSSGet("X", nullptr, nullptr, nullptr, ss) == RTNORM) held.push_back({ss[0], ss[1]});
    EXPECT_EQ(static_cast<int>(held.size()) + before, lumo::host::kMaxOpenSets);
    ASSERT_EQ(acedSSFree(held.back().data()), RTNORM);
    EXPECT_EQ(acedSSFree(held.back().data()), RTERROR);  // gone
    held.pop_back();
    EXPECT_EQ(acedSSGet("X", nullptr, nullptr, nullptr, ss), RTNORM);
    held.push_back({ss[0], ss[1]});
    for (auto& name : held) acedSSFree(name.data());
    EXPECT_EQ(lumo::host::OpenSetCount(), before);
}

TEST(SelectionSets, ASetHandedToLispLivesUntilTheGarbageCollectionAfterItsValues) {
    MakeLine();
    ads_name ss;
    ASSERT_EQ(acedSSGet("X", nullptr, nullptr, nullptr, ss), RTNORM);
    const int open = lumo::host::OpenSetCount();
    {
        lumo::lisp::Ref value = lumo::lisp::MakePickset(ss);
        lumo::host::ReleaseModuleHold(ss);
        EXPECT_EQ(lumo::host::CollectSelectionSets(), 0);   // still referred to
        int32_t len = 0;
        EXPECT_EQ(acedSSLength(ss, &len), RTNORM);
        EXPECT_GE(len, 1);
    }
    int32_t len = 0;
    EXPECT_EQ(acedSSLength(ss, &len), RTNORM);   // dropped, not yet collected
    EXPECT_EQ(lumo::host::CollectSelectionSets(), 1);
    EXPECT_EQ(lumo::host::OpenSetCount(), open - 1);
    EXPECT_EQ(acedSSLength(ss, &len), RTERROR);
}

TEST(SelectionSets, DroppedLispSetsAreCollectedWhenTheCapIsReachedButHeldOnesShow) {
    MakeLine();
    ads_name ss;
    for (int i = 0; i < 3 * lumo::host::kMaxOpenSets; ++i) {   // LISP drops each at once
        ASSERT_EQ(acedSSGet("X", nullptr, nullptr, nullptr, ss), RTNORM) << i;
        lumo::lisp::Ref value = lumo::lisp::MakePickset(ss);
        lumo::host::ReleaseModuleHold(ss);
    }
    std::vector<std::array<int32_t, 2>> held;   // a module that never frees runs out
    while (acedSSGet("X", nullptr, nullptr, nullptr, ss) == RTNORM) held.push_back({ss[0], ss[1]});
    EXPECT_LE(held.size(), static_cast<size_t>(lumo::host::kMaxOpenSets));
    for (auto& name : held) acedSSFree(name.data());
    EXPECT_EQ(acedSSGet("X", nullptr, nullptr, nullptr, ss), RTNORM);
    acedSSFree(ss);
}

TEST(SelectionSets, AddDeleteAndMembershipKeepOrderAndUniqueness) {
    lumo::host::SelectionSet set;
    EXPECT_TRUE(set.Add(5));
    EXPECT_TRUE(set.Add(3));
    EXPECT_FALSE(set.Add(5));
    EXPECT_EQ(set.members, (std::vector<int32_t>{5, 3}));
    EXPECT_TRUE(set.Remove(5));
    EXPECT_FALSE(set.Remove(5));
    EXPECT_EQ(set.members, (std::vector<int32_t>{3}));
}

TEST(SelectionFilter, LogicalGroupsMustBalance) {
    lumo::host::SelectionFilter f;
    resbuf* good = acutBuildList(-4, "<NOT", -4, "<OR", RTDXF0, "LINE", RTDXF0, "ARC", -4, "OR>", -4, "NOT>", 0);
    resbuf* open = acutBuildList(-4, "<AND", RTDXF0, "LINE", 0);
    resbuf* stray = acutBuildList(RTDXF0, "LINE", -4, "AND>", 0);
    resbuf* xorThree = acutBuildList(-4, "<XOR", 8, "A", 8, "B", 8, "C", -4, "XOR>", 0);
    EXPECT_TRUE(f.Parse(good));
    EXPECT_FALSE(f.Parse(open));
    EXPECT_FALSE(f.Parse(stray));
    EXPECT_FALSE(f.Parse(xorThree));
    resbuf* circle = acutBuildList(RTDXF0, "CIRCLE", 8, "0", 0);
    resbuf* line = acutBuildList(RTDXF0, "LINE", 8, "0", 0);
    ASSERT_TRUE(f.Parse(good));
    EXPECT_TRUE(f.Matches(circle));
    EXPECT_FALSE(f.Matches(line));
    for (resbuf* rb : {good, open, stray, xorThree, circle, line}) acutRelRb(rb);
}
