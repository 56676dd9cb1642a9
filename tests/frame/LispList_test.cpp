// LispList and the chain copies: elements, the kept place, searches.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <vector>

#include "frame/Groups.h"
#include "frame/LispList.h"
#include "frame/chain_copy.h"
#include "platform/acutads.h"

namespace {

// Builds a flat chain from type codes; RTSHORT nodes take successive values.
resbuf* Chain(std::initializer_list<int> codes) {
    resbuf* head = nullptr;
    resbuf** link = &head;
    for (int v : codes) {
        resbuf* n = (v == RTLB || v == RTLE || v == RTDOTE) ? acutNewRb(v) : acutNewRb(RTSHORT);
        if (n->restype == RTSHORT) n->resval.rint = static_cast<short>(v);
        *link = n;
        link = &n->rbnext;
    }
    return head;
}

std::vector<int> Values(const resbuf* chain) {
    std::vector<int> out;
    for (; chain; chain = chain->rbnext)
        out.push_back(chain->restype == RTSHORT ? chain->resval.rint : -chain->restype);
    return out;
}

// (1 (2 3) 4)
resbuf* Sample() { return Chain({1, RTLB, 2, 3, RTLE, 4}); }

}  // namespace

TEST(LispList, CountsElementsAtDepthZero) {
    LispList list(Sample());
    EXPECT_EQ(list.Count(), 3);
    LispList open(Chain({1, RTLB, 2}));
    EXPECT_EQ(open.Count(), 1);  // the unclosed sublist isn't counted
}

TEST(LispList, ElementCopiesWithoutTheEnclosingParentheses) {
    LispList list(Sample());
    resbuf* e = list.Element(1);
    EXPECT_EQ(Values(e), (std::vector<int>{2, 3}));
    acutRelRb(e);
    e = list.Element(2);
    EXPECT_EQ(Values(e), (std::vector<int>{4}));
    acutRelRb(e);
    EXPECT_EQ(list.Element(3), nullptr);
    e = list.Element(0);  // earlier index: starts again from the head
    EXPECT_EQ(Values(e), (std::vector<int>{1}));
    acutRelRb(e);
}

// Only a fetch leaves a place to go on from: a copy starting with a sublist,
// a chain put in front and one put behind all number from the head again.
TEST(LispList, ElementsAfterACopyOrAnAppendCountFromTheHead) {
    resbuf* source = Chain({RTLB, 1, 2, RTLE, 3});
    LispList copy;
    copy.Assign(source);
    acutRelRb(source);
    resbuf* e = copy.Element(1);
    EXPECT_EQ(Values(e), (std::vector<int>{3}));
    acutRelRb(e);

    LispList list(Chain({5, 6, 7}));
    acutRelRb(list.Element(2));
    list.AppendChain(Chain({8}));
    e = list.Element(3);
    EXPECT_EQ(Values(e), (std::vector<int>{8}));
    acutRelRb(e);
    list.PushFront(Chain({4}));
    e = list.Element(4);
    EXPECT_EQ(Values(e), (std::vector<int>{8}));
    acutRelRb(e);
}

TEST(LispList, EmptySublistYieldsNull) {
    LispList list(Chain({RTLB, RTLE, 7}));
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Element(0), nullptr);
    resbuf* e = list.Element(1);
    EXPECT_EQ(Values(e), (std::vector<int>{7}));
    acutRelRb(e);
}

TEST(LispList, FindNthSeesInsideSublists) {
    LispList list(Sample());
    resbuf* n = list.FindNth(RTSHORT, 2);
    ASSERT_TRUE(n);
    EXPECT_EQ(n->resval.rint, 3);
    EXPECT_EQ(list.FindNth(RTSHORT, 4), nullptr);
}

TEST(LispList, FindAndReplaceAnElement) {
    LispList list(Sample());
    resbuf* pattern = Chain({2, 3});
    resbuf *before = nullptr, *found = nullptr;
    ASSERT_EQ(list.FindElement(pattern, &before, &found), 1);
    EXPECT_EQ(before, list.Head());
    EXPECT_EQ(found->restype, RTLE);
    EXPECT_EQ(list.ReplaceElement(Chain({9}), pattern), 1);
    EXPECT_EQ(Values(list.Head()), (std::vector<int>{1, 9, 4}));
    resbuf* refused = Chain({8});
    EXPECT_EQ(list.ReplaceElement(refused, pattern), 0);  // gone now; a refused chain stays the caller's
    acutRelRb(refused);
    acutRelRb(pattern);
}

TEST(LispList, WrapPushAndDetach) {
    LispList list;
    list.PushBack(Chain({1}));
    list.PushBack(Chain({2}));
    list.PushFront(Chain({0}));
    list.Wrap();
    EXPECT_EQ(Values(list.Head()), (std::vector<int>{-RTLB, 0, 1, 2, -RTLE}));
    resbuf* two = list.FindNth(RTSHORT, 2);
    resbuf* detached = list.Detach(two);
    ASSERT_EQ(detached, two);
    acutRelRb(detached);
    EXPECT_EQ(Values(list.Head()), (std::vector<int>{-RTLB, 0, 1, -RTLE}));
}

TEST(ChainCopy, SnapsNothingButDropsWhatIsNotCopied) {
    resbuf* chain = Chain({1, 2});
    resbuf* voidNode = acutNewRb(RTVOID);
    chain->rbnext->rbnext = voidNode;
    resbuf* copy = CopyChain(chain);
    EXPECT_EQ(Values(copy), (std::vector<int>{1, 2}));
    acutRelRb(copy);
    acutRelRb(chain);
}

TEST(ChainCopy, BinaryChunksGetTheirOwnBytes) {
    resbuf* chunk = acutNewRb(1004);
    chunk->resval.rbinary.clen = 3;
    chunk->resval.rbinary.buf = static_cast<char*>(std::malloc(3));
    std::memcpy(chunk->resval.rbinary.buf, "abc", 3);
    resbuf* copy = CopyNode(chunk);
    ASSERT_TRUE(copy);
    EXPECT_NE(copy->resval.rbinary.buf, chunk->resval.rbinary.buf);
    EXPECT_EQ(std::memcmp(copy->resval.rbinary.buf, "abc", 3), 0);
    acutRelRb(copy);
    acutRelRb(chunk);
}

TEST(ChainCopy, ValueTypeTableDiffersFromTypedAccess) {
    EXPECT_EQ(DxfValueType(90), RTLONG);
    EXPECT_EQ(DxfValueType(330), RTENAME);
    EXPECT_EQ(DxfValueType(1004), 1004);
    EXPECT_EQ(DxfValueType(1005), RTSTR);
    EXPECT_EQ(DxfValueType(-3), -3);
    EXPECT_EQ(DxfValueType(80), RTNONE);
}

TEST(ChainCopy, NodeEqualityIgnoresCaseOnlyWhenAsked) {
    Groups a("Wall"), b("WALL");
    EXPECT_TRUE(NodeEquals(&a, &b, 1));
    EXPECT_FALSE(NodeEquals(&a, &b, 0));
    Groups x(1.0), y(1.0 + 1e-12);
    EXPECT_FALSE(NodeEquals(&x, &y, 1));  // reals compare exactly
}

TEST(ChainCopy, UnwrapDropsTheOuterParentheses) {
    resbuf* original = Chain({1, 2});
    resbuf* wrapped = WrapCopy(original);
    acutRelRb(original);
    resbuf* inner = nullptr;
    UnwrapCopy(wrapped, &inner);
    EXPECT_EQ(Values(inner), (std::vector<int>{1, 2}));
    acutRelRb(inner);
    acutRelRb(wrapped);
}
