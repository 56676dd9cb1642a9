// The ADS entity calls: entmake, entget, entmod, entdel, entnext and the
// sequences of complex entities and block definitions.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "host/db/session.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"
#include "platform/dbents.h"
#include "support/owned_list.h"

namespace {

// A fresh drawing for each test.
class AdsEntities : public ::testing::Test {
protected:
    void SetUp() override { lumo::db::CloseSessionDatabase(); }
    void TearDown() override { lumo::db::CloseSessionDatabase(); }
};

using Rb = testsupport::OwnedList;

const double kOrigin[3] = {0, 0, 0};
const double kOne[3] = {1, 1, 0};

int Make(resbuf* list) {
    Rb owned(list);
    return acdbEntMake(owned.p);
}

int MakeLine(const char* layer = "0") { return Make(acutBuildList(RTDXF0, "LINE", 8, layer, 10, kOrigin, 11, kOne, 0)); }

std::string TypeOf(const ads_name e) {
    Rb list(acdbEntGet(e));
    return list.Text(0);
}

bool Same(const ads_name a, const ads_name b) { return a[0] == b[0] && a[1] == b[1]; }

}  // namespace

TEST_F(AdsEntities, EntmakeLineAndEntgetGiveTheGroups) {
    ASSERT_EQ(MakeLine(), RTNORM);
    ads_name e;
    ASSERT_EQ(acdbEntLast(e), RTNORM);
    EXPECT_EQ(e[1], 1);
    EXPECT_GT(e[0], 0);
    Rb list(acdbEntGet(e));
    ASSERT_TRUE(list.p);
    EXPECT_EQ(list.p->restype, -1);
    EXPECT_TRUE(Same(list.p->resval.rlname, e));
    EXPECT_EQ(list.Text(0), "LINE");
    EXPECT_EQ(list.Text(8), "0");
    EXPECT_EQ(list.Text(410), "Model");
    EXPECT_DOUBLE_EQ(list.Find(11)->resval.rpoint[0], 1.0);
    EXPECT_TRUE(list.Find(210));
    EXPECT_TRUE(list.Find(330));
    EXPECT_FALSE(list.Find(-3));
}

TEST_F(AdsEntities, EntmakeMakesAMissingLayer) {
    ASSERT_EQ(MakeLine("NEWLAYER"), RTNORM);
    Rb layer(acdbTblSearch("LAYER", "newlayer", 0));
    ASSERT_TRUE(layer.p);
    EXPECT_EQ(layer.Text(2), "NEWLAYER");
}

TEST_F(AdsEntities, EntmakeRefusesListsAndLeavesTheDrawingAlone) {
    ads_name none;
    EXPECT_EQ(Make(acutBuildList(RTDXF0, "LINE", 10, kOrigin, 0)), RTREJ);                    // no end point
    EXPECT_EQ(Make(acutBuildList(RTDXF0, "CIRCLE", 10, kOrigin, 40, 0.0, 0)), RTREJ);         // no radius
    EXPECT_EQ(Make(acutBuildList(RTDXF0, "NOSUCHTHING", 10, kOrigin, 0)), RTREJ);
    EXPECT_EQ(Make(acutBuildList(8, "0", 10, kOrigin, 0)), RTREJ);                             // no type
    EXPECT_EQ(Make(acutBuildList(RTDXF0, "INSERT", 2, "NOBLOCK", 10, kOrigin, 0)), RTREJ);
    EXPECT_EQ(Make(acutBuildList(RTDXF0, "LINE", 6, "NOLTYPE", 10, kOrigin, 11, kOne, 0)), RTREJ);
    EXPECT_EQ(Make(acutBuildList(RTDXF0, "TEXT", 10, kOrigin, 40, 1.0, 1, "a", 7, "NOSTYLE", 0)), RTREJ);
    EXPECT_EQ(Make(acutBuildList(RTDXF0, "SEQEND", 0)), RTREJ);
    EXPECT_EQ(Make(acutBuildList(RTDXF0, "VERTEX", 10, kOrigin, 0)), RTREJ);
    EXPECT_EQ(Make(nullptr), RTREJ);
    EXPECT_EQ(acdbEntLast(none), RTERROR);
}

TEST_F(AdsEntities, ExtendedDataNeedsARegisteredApplication) {
    ASSERT_EQ(MakeLine(), RTNORM);
    ads_name e;
    acdbEntLast(e);
    Rb unregistered(acutBuildList(-1, e, -3, 1001, "NOAPP", 1000, "x", 0));
    EXPECT_EQ(acdbEntMod(unregistered.p), RTREJ);
    ASSERT_EQ(acdbRegApp("MYAPP"), RTNORM);
    EXPECT_EQ(acdbRegApp("MYAPP"), RTREJ);   // once only
    Rb xd(acutBuildList(-1, e, -3, 1001, "MYAPP", 1000, "hello", 1070, 7, 0));
    EXPECT_EQ(acdbEntMod(xd.p), RTNORM);
    Rb apps(acutBuildList(RTSTR, "MYAPP", 0));
    Rb list(acdbEntGetX(e, apps.p));
    ASSERT_TRUE(list.Find(-3));
    EXPECT_EQ(list.Text(1001), "MYAPP");
    EXPECT_EQ(list.Text(1000), "hello");
    EXPECT_EQ(list.Find(1070)->resval.rint, 7);
    Rb plain(acdbEntGet(e));
    EXPECT_FALSE(plain.Find(-3));   // without the application list
}

TEST_F(AdsEntities, AnEmptyApplicationSectionRemovesItsData) {
    ASSERT_EQ(MakeLine(), RTNORM);
    ads_name e;
    acdbEntLast(e);
    acdbRegApp("A1");
    acdbRegApp("A2");
    Rb both(acutBuildList(-1, e, -3, 1001, "A1", 1000, "one", 1001, "A2", 1000, "two", 0));
    ASSERT_EQ(acdbEntMod(both.p), RTNORM);
    Rb drop(acutBuildList(-1, e, -3, 1001, "A1", 0));
    ASSERT_EQ(acdbEntMod(drop.p), RTNORM);
    Rb all(acutBuildList(RTSTR, "*", 0));
    Rb list(acdbEntGetX(e, all.p));
    EXPECT_EQ(list.Text(1001), "A2");
    EXPECT_FALSE(list.Find(1001, 1));
}

TEST_F(AdsEntities, UnbalancedBracesAndOversizedDataAreRefused) {
    ASSERT_EQ(MakeLine(), RTNORM);
    ads_name e;
    acdbEntLast(e);
    acdbRegApp("APP");
    Rb braces(acutBuildList(-1, e, -3, 1001, "APP", 1002, "{", 1000, "x", 0));
    EXPECT_EQ(acdbEntMod(braces.p), RTREJ);
    std::string big(250, 'x');
    resbuf* huge = acutBuildList(-1, e, -3, 1001, "APP", 0);
    resbuf* tail = huge;
    while (tail->rbnext) tail = tail->rbnext;
    for (int k = 0; k < 70; ++k) {
        tail->rbnext = acutBuildList(1000, big.c_str(), 0);
        tail = tail->rbnext;
    }
    Rb owned(huge);
    EXPECT_EQ(acdbEntMod(owned.p), RTREJ);
    int32_t room = 0;
    EXPECT_EQ(acdbXdRoom(e, &room), RTNORM);
    EXPECT_EQ(room, 16383);
}

TEST_F(AdsEntities, EntmodChangesOnlyTheGivenGroups) {
    ASSERT_EQ(MakeLine(), RTNORM);
    ads_name e;
    acdbEntLast(e);
    double far[3] = {5, 6, 7};
    Rb change(acutBuildList(-1, e, 11, far, 8, "OTHER", 0));
    ASSERT_EQ(acdbEntMod(change.p), RTNORM);
    Rb list(acdbEntGet(e));
    EXPECT_EQ(list.Text(8), "OTHER");
    EXPECT_DOUBLE_EQ(list.Find(11)->resval.rpoint[2], 7.0);
    EXPECT_DOUBLE_EQ(list.Find(10)->resval.rpoint[0], 0.0);
    // a list the host refuses changes nothing
    Rb bad(acutBuildList(-1, e, 11, kOrigin, 6, "NOSUCH", 0));
    EXPECT_EQ(acdbEntMod(bad.p), RTREJ);
    Rb again(acdbEntGet(e));
    EXPECT_DOUBLE_EQ(again.Find(11)->resval.rpoint[2], 7.0);
    // nor may the type change
    Rb other(acutBuildList(-1, e, RTDXF0, "CIRCLE", 0));
    EXPECT_EQ(acdbEntMod(other.p), RTREJ);
    Rb noName(acutBuildList(8, "X", 0));
    EXPECT_EQ(acdbEntMod(noName.p), RTREJ);
}

TEST_F(AdsEntities, PolylineSequenceIsHeldUntilSeqend) {
    ASSERT_EQ(Make(acutBuildList(RTDXF0, "POLYLINE", 66, 1, 70, 1, 0)), RTNORM);
    ads_name last;
    EXPECT_EQ(acdbEntLast(last), RTERROR);   // nothing yet
    double p[3] = {5, 5, 0};
    ASSERT_EQ(Make(acutBuildList(RTDXF0, "VERTEX", 10, kOrigin, 0)), RTNORM);
    ASSERT_EQ(Make(acutBuildList(RTDXF0, "VERTEX", 10, p, 42, 1.0, 0)), RTNORM);
    ASSERT_EQ(Make(acutBuildList(RTDXF0, "SEQEND", 0)), RTNORM);
    ASSERT_EQ(acdbEntLast(last), RTNORM);
    EXPECT_EQ(TypeOf(last), "POLYLINE");
    ads_name v1, v2, end, after;
    ASSERT_EQ(acdbEntNext(last, v1), RTNORM);
    EXPECT_EQ(TypeOf(v1), "VERTEX");
    ASSERT_EQ(acdbEntNext(v1, v2), RTNORM);
    Rb second(acdbEntGet(v2));
    EXPECT_DOUBLE_EQ(second.Find(42)->resval.rreal, 1.0);
    ASSERT_EQ(acdbEntNext(v2, end), RTNORM);
    EXPECT_EQ(TypeOf(end), "SEQEND");
    EXPECT_EQ(acdbEntNext(end, after), RTERROR);
    // a vertex changes through entmod
    double q[3] = {9, 9, 0};
    Rb move(acutBuildList(-1, v2, 10, q, 0));
    EXPECT_EQ(acdbEntMod(move.p), RTNORM);
    Rb moved(acdbEntGet(v2));
    EXPECT_DOUBLE_EQ(moved.Find(10)->resval.rpoint[0], 9.0);
}

TEST_F(AdsEntities, AnotherEntityDropsAnUnfinishedSequence) {
    ASSERT_EQ(Make(acutBuildList(RTDXF0, "POLYLINE", 66, 1, 0)), RTNORM);
    ASSERT_EQ(Make(acutBuildList(RTDXF0, "VERTEX", 10, kOrigin, 0)), RTNORM);
    ASSERT_EQ(MakeLine(), RTNORM);
    EXPECT_EQ(Make(acutBuildList(RTDXF0, "SEQEND", 0)), RTREJ);
    ads_name first, next;
    ASSERT_EQ(acdbEntNext(nullptr, first), RTNORM);
    EXPECT_EQ(TypeOf(first), "LINE");
    EXPECT_EQ(acdbEntNext(first, next), RTERROR);
}

TEST_F(AdsEntities, InsertWithAttributesAndBlockDefinition) {
    ASSERT_EQ(Make(acutBuildList(RTDXF0, "BLOCK", 2, "DOOR", 10, kOrigin, 70, 2, 0)), RTNORM);
    ASSERT_EQ(MakeLine(), RTNORM);
    ASSERT_EQ(Make(acutBuildList(RTDXF0, "ATTDEF", 10, kOrigin, 40, 1.0, 1, "", 3, "Number?", 2, "NUM", 70, 0, 0)),
              RTNORM);
    ads_name none;
    EXPECT_EQ(acdbEntLast(none), RTERROR);   // block entities aren't drawing entities
    ads_name block;
    Rb endblk(acutBuildList(RTDXF0, "ENDBLK", 0));
    ASSERT_EQ(acdbEntMakeX(endblk.p, block), RTNORM);
    Rb def(acdbTblSearch("BLOCK", "DOOR", 0));
    ASSERT_TRUE(def.p);
    EXPECT_EQ(def.Text(2), "DOOR");
    const resbuf* first = def.Find(-2);
    ASSERT_TRUE(first);
    EXPECT_EQ(TypeOf(first->resval.rlname), "LINE");
    ads_name second, end;
    ASSERT_EQ(acdbEntNext(first->resval.rlname, second), RTNORM);
    EXPECT_EQ(TypeOf(second), "ATTDEF");
    EXPECT_EQ(acdbEntNext(second, end), RTERROR);

    ASSERT_EQ(Make(acutBuildList(RTDXF0, "INSERT", 66, 1, 2, "DOOR", 10, kOne, 0)), RTNORM);
    ASSERT_EQ(Make(acutBuildList(RTDXF0, "ATTRIB", 10, kOne, 40, 1.0, 1, "D7", 2, "NUM", 70, 0, 0)), RTNORM);
    ASSERT_EQ(Make(acutBuildList(RTDXF0, "SEQEND", 0)), RTNORM);
    ads_name insert, attrib, seqend;
    ASSERT_EQ(acdbEntLast(insert), RTNORM);
    Rb ins(acdbEntGet(insert));
    EXPECT_EQ(ins.Text(2), "DOOR");
    EXPECT_EQ(ins.Find(66)->resval.rint, 1);
    ASSERT_EQ(acdbEntNext(insert, attrib), RTNORM);
    EXPECT_EQ(TypeOf(attrib), "ATTRIB");
    ASSERT_EQ(acdbEntNext(attrib, seqend), RTNORM);
    EXPECT_EQ(TypeOf(seqend), "SEQEND");
}

TEST_F(AdsEntities, AnonymousBlocksAreNumbered) {
    ASSERT_EQ(Make(acutBuildList(RTDXF0, "BLOCK", 2, "*U", 10, kOrigin, 70, 1, 0)), RTNORM);
    ASSERT_EQ(MakeLine(), RTNORM);
    ASSERT_EQ(Make(acutBuildList(RTDXF0, "ENDBLK", 0)), RTNORM);
    Rb def(acdbTblSearch("BLOCK", "*U1", 0));
    ASSERT_TRUE(def.p);
    EXPECT_EQ(def.Find(70)->resval.rint & 1, 1);
    EXPECT_EQ(Make(acutBuildList(RTDXF0, "ENDBLK", 0)), RTREJ);   // no definition open
    EXPECT_EQ(Make(acutBuildList(RTDXF0, "BLOCK", 2, "*MODEL_SPACE", 10, kOrigin, 0)), RTNORM);
}

TEST_F(AdsEntities, EntdelTogglesAndEntnextSkipsErased) {
    MakeLine();
    MakeLine();
    MakeLine();
    ads_name a, b, c, x;
    acdbEntNext(nullptr, a);
    acdbEntNext(a, b);
    acdbEntNext(b, c);
    ASSERT_EQ(acdbEntDel(b), RTNORM);
    EXPECT_EQ(acdbEntGet(b), nullptr);
    ASSERT_EQ(acdbEntNext(a, x), RTNORM);
    EXPECT_TRUE(Same(x, c));
    ASSERT_EQ(acdbEntDel(b), RTNORM);   // back again
    Rb back(acdbEntGet(b));
    EXPECT_TRUE(back.p);
    ASSERT_EQ(acdbEntDel(c), RTNORM);
    ASSERT_EQ(acdbEntLast(x), RTNORM);
    EXPECT_TRUE(Same(x, b));
    // entnext from an erased entity goes on from where it stood
    ASSERT_EQ(acdbEntDel(b), RTNORM);
    EXPECT_EQ(acdbEntNext(b, x), RTERROR);
}

TEST_F(AdsEntities, HandentFindsEntitiesAndObjects) {
    MakeLine();
    ads_name e, found;
    acdbEntLast(e);
    Rb list(acdbEntGet(e));
    std::string handle = list.Text(5);
    ASSERT_EQ(acdbHandEnt(handle.c_str(), found), RTNORM);
    EXPECT_TRUE(Same(e, found));
    acdbEntDel(e);
    EXPECT_EQ(acdbHandEnt(handle.c_str(), found), RTNORM);   // erased ones too, in this session
    EXPECT_EQ(acdbHandEnt("FFFFFF", found), RTERROR);
    EXPECT_EQ(acdbHandEnt("XYZ", found), RTERROR);
    EXPECT_EQ(acdbHandEnt("", found), RTERROR);
}

TEST_F(AdsEntities, NamesOfOtherKindsAreRefused) {
    ads_name bogus = {0x7fffffff, 1}, pickset = {1, 2}, out;
    EXPECT_EQ(acdbEntGet(bogus), nullptr);
    EXPECT_EQ(acdbEntGet(pickset), nullptr);
    EXPECT_EQ(acdbEntDel(bogus), RTERROR);
    EXPECT_EQ(acdbEntNext(bogus, out), RTERROR);
    EXPECT_EQ(acdbEntUpd(bogus), RTERROR);
}

TEST_F(AdsEntities, LwPolylineAndTextKeepTheirGroups) {
    double p0[3] = {0, 0, 0}, p1[3] = {10, 0, 0};
    ASSERT_EQ(Make(acutBuildList(RTDXF0, "LWPOLYLINE", 90, 2, 70, 1, 10, p0, 42, 0.5, 10, p1, 0)), RTNORM);
    ads_name e;
    acdbEntLast(e);
    Rb list(acdbEntGet(e));
    EXPECT_EQ(list.Find(90)->resval.rlong, 2);
    EXPECT_DOUBLE_EQ(list.Find(42)->resval.rreal, 0.5);
    EXPECT_DOUBLE_EQ(list.Find(10, 1)->resval.rpoint[0], 10.0);
    ASSERT_EQ(Make(acutBuildList(RTDXF0, "TEXT", 10, p0, 40, 2.5, 1, "Hi", 50, 1.0, 0)), RTNORM);
    acdbEntLast(e);
    Rb text(acdbEntGet(e));
    EXPECT_DOUBLE_EQ(text.Find(50)->resval.rreal, 1.0);   // radians in lists
    EXPECT_EQ(text.Text(7), "Standard");
}

TEST_F(AdsEntities, ObjectsMadeWithEntmakexWaitForADictionary) {
    ads_name dict, xr;
    ASSERT_EQ(acdbNamedObjDict(dict), RTNORM);
    double p[3] = {1, 2, 3};
    Rb xlist(acutBuildList(RTDXF0, "XRECORD", 100, "AcDbXrecord", 1, "data", 10, p, 70, 3, 0));
    ASSERT_EQ(acdbEntMakeX(xlist.p, xr), RTNORM);
    ASSERT_EQ(acdbDictAdd(dict, "MYDATA", xr), RTNORM);
    EXPECT_EQ(acdbDictAdd(dict, "MYDATA", xr), RTERROR);   // the key is taken
    Rb found(acdbDictSearch(dict, "mydata", 0));
    ASSERT_TRUE(found.p);
    EXPECT_EQ(found.Text(0), "XRECORD");
    EXPECT_EQ(found.Text(1), "data");
    EXPECT_EQ(found.Find(70)->resval.rint, 3);
    ASSERT_EQ(acdbDictRename(dict, "MYDATA", "OURDATA"), RTNORM);
    EXPECT_EQ(acdbDictSearch(dict, "MYDATA", 0), nullptr);
    ASSERT_EQ(acdbDictRemove(dict, "OURDATA"), RTNORM);
    EXPECT_EQ(acdbDictSearch(dict, "OURDATA", 0), nullptr);
}

namespace {

TEST_F(AdsEntities, EntnextWalksWithOneNameForBoth) {
    for (int k = 0; k < 3; ++k) ASSERT_EQ(MakeLine(), RTNORM);
    ads_name e;
    int count = 0;
    for (int rc = acdbEntNext(nullptr, e); rc == RTNORM && count < 10; rc = acdbEntNext(e, e)) ++count;
    EXPECT_EQ(count, 3);
    EXPECT_EQ(e[0], 0);   // past the last: the name is cleared
}

}  // namespace
