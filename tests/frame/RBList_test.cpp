// RBList, Groups and TypeOfCode: typed access to result-buffer chains.
#include <gtest/gtest.h>

#include <cstring>

#include "frame/RBList.h"
#include "frame/TypeOfCode.h"
#include "frame_test_support.h"

extern double _distSnap;

TEST(TypeOfCode, FoldsExtendedDataCodesAndKeepsTheOrderOfTests) {
    EXPECT_EQ(TypeOfCode(1071), RTLONG);
    EXPECT_EQ(TypeOfCode(1070), RTSHORT);
    EXPECT_EQ(TypeOfCode(1040), RTREAL);
    EXPECT_EQ(TypeOfCode(1000), RTSTR);
    EXPECT_EQ(TypeOfCode(1010), RT3DPOINT);
    EXPECT_EQ(TypeOfCode(1060), RTSHORT);   // 1060 folds onto 60
    EXPECT_EQ(TypeOfCode(90), RTNONE);      // coarser than the list copy's table
    EXPECT_EQ(TypeOfCode(-5), RTNONE);
    EXPECT_EQ(TypeOfCode(-1), RTENAME);
    EXPECT_EQ(TypeOfCode(-4), RTSTR);
    EXPECT_EQ(TypeOfCode(RTLB), RTLB);
    EXPECT_EQ(TypeOfCode(11050), RTSHORT);
    EXPECT_EQ(TypeOfCode(11150), RTREAL);
    EXPECT_EQ(TypeOfCode(11300), RTSTR);
    EXPECT_EQ(TypeOfCode(11450), 5011);
    EXPECT_EQ(TypeOfCode(11500), RTNONE);
}

TEST(Groups, TwoArgumentFormsFixTheirCodesButTheTextFormKeepsIt) {
    Groups i(7, 3);
    Groups r(7, 2.5);
    Groups t(1000, "x");
    EXPECT_EQ(i.restype, 1070);
    EXPECT_EQ(r.restype, 1040);
    EXPECT_EQ(t.restype, 1000);
    EXPECT_EQ(Groups(70000).resval.rint, static_cast<short>(70000));
}

TEST(Groups, EqualityFollowsTheValueType) {
    EXPECT_TRUE(Groups("a") == Groups("A"));
    double p[3] = {1, 2, 3}, q[3] = {1.005, 2, 3}, far[3] = {1.02, 2, 3};
    EXPECT_TRUE(Groups(p) == Groups(q));
    EXPECT_FALSE(Groups(p) == Groups(far));
    EXPECT_TRUE(Groups(1.0) == Groups(1.0 + 1e-9));
    EXPECT_FALSE(Groups(1.0) == Groups(1.0 + 1e-7));
    Groups a(1.0), b(1.0);
    a.restype = b.restype = RTORINT;
    EXPECT_FALSE(a == b);                   // never equal
    EXPECT_TRUE(Groups(5) != Groups(6));
    EXPECT_FALSE(Groups(5) == Groups(5L));  // RTSHORT against RTLONG
}

TEST(Groups, CopyDuplicatesTheTextAndKeepsTheLink) {
    Groups* head = new Groups("first");
    head->rbnext = new Groups("second");
    Groups copy(*head);
    EXPECT_NE(copy.resval.rstring, head->resval.rstring);
    EXPECT_STREQ(copy.resval.rstring, "first");
    EXPECT_EQ(copy.rbnext, head->rbnext);
    copy.rbnext = nullptr;
    delete head;  // releases the follower too; the sanitizer sees a leak otherwise
}

TEST(RBList, BuildsPairsInOrderAndSetDataPutsNewCodesInFront) {
    double pt[3] = {1, 2, 3};
    RBList built(8, "A", 10, pt, 0);
    ASSERT_TRUE(built.Head());
    EXPECT_EQ(built.Head()->restype, 8);
    ASSERT_TRUE(built.Head()->Next());
    EXPECT_EQ(built.Head()->Next()->restype, 10);
    EXPECT_FALSE(built.Head()->Next()->Next());

    RBList set;
    set.SetData(8, "A");
    set.SetData(10, pt);
    EXPECT_EQ(set.Head()->restype, 10);
    EXPECT_EQ(set.Head()->Next()->restype, 8);
    set.SetData(8, "B");  // in place
    char text[8];
    ASSERT_EQ(set.GetData(8, text), RTNORM);
    EXPECT_STREQ(text, "B");
}

TEST(RBList, EmptyAndRefusedLists) {
    RBList empty(0);
    EXPECT_TRUE(!empty);
    CaptureOutput capture;
    RBList refused(8, "A", RTSTR, "x", 0);
    EXPECT_TRUE(!refused);
    EXPECT_NE(capture.Text().find("Undocumented DXFcode. code=5005"), std::string::npos);
}

TEST(RBList, RtDxf0StandsForCodeZero) {
    RBList list(RTDXF0, "LINE", 8, "0", 0);
    ASSERT_TRUE(list.Head());
    EXPECT_EQ(list.Head()->restype, 0);
    EXPECT_STREQ(list.Head()->resval.rstring, "LINE");
}

TEST(RBList, GetDataByType) {
    RBList list(70, 5, 40, 2.5, 1071, 123456L, 0);
    int32_t n = 0;
    double d = 0;
    int32_t big = 0;
    EXPECT_EQ(list.GetData(70, &n), RTNORM);
    EXPECT_EQ(n, 5);
    EXPECT_EQ(list.GetData(40, &d), RTNORM);
    EXPECT_EQ(d, 2.5);
    EXPECT_EQ(list.GetData(1071, &big), RTNORM);
    EXPECT_EQ(big, 123456);
    EXPECT_EQ(list.GetData(41, &d), RTERROR);  // absent
    CaptureOutput capture;
    RBList withNone(90, 0);
    EXPECT_EQ(withNone.GetData(90, &n), RTERROR);
    EXPECT_NE(capture.Text().find("RTNONE"), std::string::npos);
}

TEST(RBList, CopyingIsReportedAndDoesNothing) {
    RBList a(8, "A", 0);
    CaptureOutput capture;
    RBList b;
    b = a;
    EXPECT_EQ(capture.Text(), "\nDangerous in RBList=!");
    EXPECT_TRUE(!b);
}

TEST(ChainFunctions, LinkAndSearch) {
    resbuf* a = new Groups(1);
    resbuf* b = new Groups(2.0);
    EXPECT_EQ(AT_link_list(nullptr, b), b);
    EXPECT_EQ(AT_link_list(a, b), a);
    EXPECT_EQ(AT_get_resbuf(a, RTREAL), b);
    EXPECT_EQ(AT_get_resbuf(a, RTSTR), nullptr);
    delete static_cast<Groups*>(a);
}
