// Entity: names, the loaded DXF list, making, matching and erasing.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "database/Entity.h"
#include "database_test_support.h"
#include "host/test_support.h"

namespace {

class EntityHandle : public dbtest::FreshDrawing {};

const double kOrigin[3] = {0, 0, 0};
const double kFar[3] = {4, 3, 0};

}  // namespace

TEST_F(EntityHandle, ANewEntityIsNullAndLoadsNothing) {
    Entity e;
    EXPECT_TRUE(!e);
    EXPECT_EQ(e._GetGroups(), RTERROR);
    EXPECT_EQ(e.GetGroups(1), RTERROR);
    EXPECT_FALSE(e.Is("LINE"));
}

TEST_F(EntityHandle, MakeTakesTheNewEntitysName) {
    Entity e;
    ASSERT_EQ(e.Make(RTDXF0, "LINE", 8, "WALLS", 10, kOrigin, 11, kFar, 0), RTNORM);
    ads_name last;
    acdbEntLast(last);
    EXPECT_EQ(e.Name()[0], last[0]);
    EXPECT_TRUE(e.Is("line"));
    EXPECT_FALSE(e.Is("ARC"));
    char layer[32] = "";
    EXPECT_EQ(e.GetData(8, layer), RTNORM);
    EXPECT_STREQ(layer, "WALLS");
}

TEST_F(EntityHandle, MakeReportsAListTheHostRefuses) {
    Entity e;
    CaptureOutput out;
    EXPECT_EQ(e.Make(RTDXF0, "CIRCLE", 10, kOrigin, 0), RTERROR);   // no radius
    EXPECT_NE(out.Text().find("Entity::Make(...) Error!"), std::string::npos);
    EXPECT_EQ(e.Make(5005, "x", 0), RTERROR);                        // not a group code
    EXPECT_NE(out.Text().find("Undocumented DXFcode"), std::string::npos);
    EXPECT_EQ(MakeEntity(0), RTERROR);
    EXPECT_EQ(MakeEntity(RTDXF0, "CIRCLE", 10, kOrigin, 40, 2.0, 0), RTNORM);
}

TEST_F(EntityHandle, MakeExLoadsTheApplicationsPlace) {
    Entity e;
    ASSERT_EQ(e.MakeEx(RTDXF0, "POINT", 10, kFar, 0), RTNORM);
    ASSERT_NE(e.ExGroups(), nullptr);
    EXPECT_EQ(e.ExGroups()->restype, 1001);
    e.SetInt(3, 4);
    EXPECT_EQ(e.Modify(), RTNORM);
}

TEST_F(EntityHandle, MatchBaseTakesTextsAsWildCards) {
    Entity e;
    ASSERT_EQ(e.Make(RTDXF0, "LINE", 8, "WALL-2", 62, 3, 10, kOrigin, 11, kFar, 0), RTNORM);
    EXPECT_TRUE(e.MatchBase(Groups(8, "WALL*")));
    EXPECT_FALSE(e.MatchBase(Groups(8, "DOOR*")));
    Groups color(3);
    color.restype = 62;
    EXPECT_TRUE(e.MatchBase(color));
    EXPECT_TRUE(e.MatchBase(RBList()));
    EXPECT_TRUE(e.MatchBase(RBList(RTDXF0, "LINE", 8, "W*", 0)));
    EXPECT_FALSE(e.MatchBase(RBList(RTDXF0, "LINE", 8, "X*", 0)));
    EXPECT_FALSE(e.MatchBase(Groups(7, "A")));   // no such group
}

TEST_F(EntityHandle, SetDataChangesTheListUntilModify) {
    Entity e;
    ASSERT_EQ(e.Make(RTDXF0, "CIRCLE", 8, "0", 10, kOrigin, 40, 1.0, 0), RTNORM);
    EXPECT_EQ(e.SetData(40, 2.5), RTNORM);
    EXPECT_EQ(e.SetData(8, "RINGS"), RTNORM);
    Entity before(e.Name());
    double radius = 0;
    before.GetData(40, &radius);
    EXPECT_EQ(radius, 1.0);
    ASSERT_EQ(e.Modify(), RTNORM);
    Entity after(e.Name());
    after.GetData(40, &radius);
    EXPECT_EQ(radius, 2.5);
    EXPECT_TRUE(after.MatchBase(Groups(8, "RINGS")));
}

TEST_F(EntityHandle, ChangingTheNameDropsTheList) {
    Entity a, b;
    ASSERT_EQ(a.Make(RTDXF0, "POINT", 10, kOrigin, 0), RTNORM);
    ASSERT_EQ(b.Make(RTDXF0, "LINE", 10, kOrigin, 11, kFar, 0), RTNORM);
    Entity e(a.Name());
    EXPECT_TRUE(e.Is("POINT"));
    e = b;
    EXPECT_TRUE(e.Is("LINE"));
    Entity copy(e);
    EXPECT_TRUE(copy.Is("LINE"));
    Entity walk(a.Name());
    ASSERT_EQ(walk.GetNext(), RTNORM);
    EXPECT_TRUE(walk.Is("LINE"));
    EXPECT_NE(walk.GetNext(), RTNORM);
    Entity first;
    EXPECT_EQ(first.GetNext(), RTNORM);
    EXPECT_TRUE(first.Is("POINT"));
    EXPECT_EQ(first.GetLast(), RTNORM);
    EXPECT_TRUE(first.Is("LINE"));
}

TEST_F(EntityHandle, HandlesLeadToTheEntity) {
    Entity e;
    ASSERT_EQ(e.Make(RTDXF0, "POINT", 10, kOrigin, 0), RTNORM);
    char handle[32] = "";
    ASSERT_EQ(e.GetData(5, handle), RTNORM);
    Entity byHandle(handle);
    EXPECT_EQ(byHandle.Name()[0], e.Name()[0]);
    Entity none;
    EXPECT_NE(none.Handent("FFFFFF"), RTNORM);
}

TEST_F(EntityHandle, EraseAndDeleteTakeTheEntityOut) {
    Entity e;
    ASSERT_EQ(e.Make(RTDXF0, "POINT", 10, kOrigin, 0), RTNORM);
    EXPECT_EQ(e.Erase(), RTNORM);
    EXPECT_EQ(e._GetGroups(), RTERROR);
    EXPECT_EQ(e.Delete(), RTNORM);   // a toggle: it comes back
    EXPECT_EQ(e._GetGroups(), RTNORM);
    EXPECT_EQ(e.Update(), RTNORM);
    Entity none;
    EXPECT_EQ(none.Erase(), RTERROR);
}

TEST_F(EntityHandle, AssignAppNameRegistersTheApplication) {
    const char* own = Entity::appName;
    CaptureOutput out;
    EXPECT_EQ(Entity::AssignAppName(""), RTERROR);
    EXPECT_NE(out.Text().find("Bad Application Name"), std::string::npos);
    EXPECT_EQ(Entity::AssignAppName("MYAPP"), RTNORM);
    EXPECT_STREQ(Entity::appName, "MYAPP");
    resbuf* found = acdbTblSearch("APPID", "MYAPP", 0);
    EXPECT_NE(found, nullptr);
    acutRelRb(found);
    EXPECT_EQ(Entity::AssignAppName("MYAPP"), RTNORM);   // registered already
    Entity e;
    ASSERT_EQ(e.MakeEx(RTDXF0, "POINT", 10, kOrigin, 0), RTNORM);
    EXPECT_STREQ(e.ExGroups()->resval.rstring, "MYAPP");
    Entity::appName = own;
}
