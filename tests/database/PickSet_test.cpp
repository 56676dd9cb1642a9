// Sets as the module's class sees them: dragging sets, capture of new
// entities, filters by records, back references, anonymous blocks, boxes.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "database/DragPickSet.h"
#include "database/PickSet.h"
#include "database_test_support.h"
#include "frame/RBList.h"
#include "host/ads/input.h"
#include "host/ss/selection_sets.h"
#include "platform/acdbads.h"
#include "platform/acedss.h"
#include "platform/acutads.h"

namespace {

using dbtest::FreshDrawing;

class PickSets : public FreshDrawing {
protected:
    static Entity Line(double x) {
        const double a[3] = {x, 0, 0}, b[3] = {x, 10, 0};
        ads_name e = {0, 0};
        EXPECT_TRUE(dbtest::MakeFrom(acutBuildList(RTDXF0, "LINE", 10, a, 11, b, 0), e));
        return Entity(e);
    }
    static std::string TypeOf(const int32_t* e) {
        RBList list(acdbEntGet(e));
        char type[64] = "";
        list.GetData(0, type);
        return type;
    }
    static bool Alive(const int32_t* e) {
        resbuf* list = acdbEntGet(e);
        acutRelRb(list);
        return list != nullptr;
    }
};

TEST_F(PickSets, ADragSetHoldsItsPointOnlyWhileItLives) {
    Entity a = Line(0);
    PickSet set(PickSet::kCreateEmpty | PickSet::kOwnsSet);
    set += a;
    ads_name point;
    {
        DragPickSet drag(XPoint(5, 5, 0), set, PickSet::kOwnsSet);
        ASSERT_EQ(drag.Length(), 2);
        EXPECT_EQ(TypeOf(drag[0]), "POINT");
        std::memcpy(point, drag.BaseEntity(), sizeof point);
        EXPECT_TRUE(Alive(point));
    }
    EXPECT_FALSE(Alive(point));
    EXPECT_TRUE(Alive(a));
}

TEST_F(PickSets, MoveRotateAndScaleTakeTheUsersAnswers) {
    Entity a = Line(0);
    PickSet set(PickSet::kCreateEmpty | PickSet::kOwnsSet);
    set += a;
    lumo::host::SetAnswers({"10,0", "90", "2"});
    XPoint to;
    EXPECT_EQ(set.Move(XPoint(0, 0, 0), to), RTNORM);
    EXPECT_DOUBLE_EQ(to.x, 10);
    double angle = 0, end[3];
    EXPECT_EQ(set.Rotate(XPoint(10, 0, 0), &angle), RTNORM);   // the line now runs from (10 0) to (0 0)
    EXPECT_NEAR(angle, M_PI / 2, 1e-12);
    EXPECT_EQ(set.Scale(XPoint(10, 0, 0), nullptr), RTNORM);   // twice as long from (10 0)
    a._GetGroups();
    a.GetData(11, end);
    EXPECT_NEAR(end[0], -10, 1e-9);
    EXPECT_NEAR(end[1], 0, 1e-9);
    EXPECT_EQ(set.Length(), 1);   // the dragging points are gone
    lumo::host::SetAnswers({});
}

// Dragging one entity leaves no set open behind it, however often.
TEST_F(PickSets, AnEntityDraggedLeavesNoSetOpen) {
    Entity a = Line(0);
    int open = lumo::host::OpenSetCount();
    lumo::host::SetAnswers({"1,0", "90", "2"});
    XPoint to;
    double angle = 0, factor = 0;
    EXPECT_EQ(a.Move(XPoint(0, 0, 0), to), RTNORM);
    EXPECT_EQ(a.Rotate(XPoint(0, 0, 0), &angle), RTNORM);
    EXPECT_EQ(a.Scale(XPoint(0, 0, 0), &factor), RTNORM);
    EXPECT_EQ(lumo::host::OpenSetCount(), open);
    lumo::host::SetAnswers({});
}

TEST_F(PickSets, IncludeCapturesMainEntitiesMadeInBetween) {
    PickSet nothing;
    EXPECT_EQ(nothing.IncludeEnd(), RTNORM);
    EXPECT_TRUE(nothing.IsNull());
    PickSet made;
    ASSERT_EQ(made.IncludeBegin(), RTNORM);
    Entity a = Line(0);
    const double v[3] = {0, 0, 0};
    dbtest::Put(acutBuildList(RTDXF0, "POLYLINE", 66, 1, 70, 0, 0));
    dbtest::Put(acutBuildList(RTDXF0, "VERTEX", 10, v, 0));
    dbtest::Put(acutBuildList(RTDXF0, "VERTEX", 10, v, 0));
    dbtest::Put(acutBuildList(RTDXF0, "SEQEND", 0));
    ASSERT_EQ(made.IncludeEnd(), RTNORM);
    ASSERT_EQ(made.Length(), 2);
    EXPECT_EQ(TypeOf(made[0]), "LINE");
    EXPECT_EQ(TypeOf(made[1]), "POLYLINE");
    EXPECT_EQ(made.Flags() & PickSet::kHasIncludeMark, 0);
    ads_name last;
    acdbEntLast(last);
    EXPECT_EQ(TypeOf(last), "POLYLINE");   // the marker point is gone
}

TEST_F(PickSets, TagFiltersAndBackReferences) {
    Entity a = Line(0), b = Line(1), host = Line(2);
    a.SetInt(1, 7);
    a.SetInt(2, 8);
    a.Modify();
    b.SetInt(1, 7);
    b.Modify();
    PickSet set(PickSet::kCreateEmpty | PickSet::kOwnsSet);
    set += a;
    set += b;
    const int tags[2] = {1, 2};
    set.ExTagFilter(tags, 0);
    EXPECT_EQ(set.Length(), 2);   // no tags: nothing removed
    set.ExTagFilter(tags, 2);
    ASSERT_EQ(set.Length(), 1);
    EXPECT_EQ(set[0].Name()[0], a.Name()[0]);
    set += b;
    EXPECT_EQ(set.Bind(host), RTNORM);
    char handle[32] = "", hostHandle[32] = "";
    Entity reread(b.Name());
    reread.GetGroups(1);
    ASSERT_EQ(reread.GetString(20000, handle), RTNORM);
    host.GetData(5, hostHandle);
    EXPECT_STREQ(handle, hostHandle);
}

TEST_F(PickSets, AnAnonymousBlockReplacesTheSet) {
    Entity a = Line(0), b = Line(4);
    PickSet set(PickSet::kCreateEmpty | PickSet::kOwnsSet);
    set += a;
    set += b;
    double min[3], max[3];
    EXPECT_EQ(set.GetExtend(min, max), RTNORM);
    EXPECT_DOUBLE_EQ(max[0], 4);
    char name[256] = "";
    ASSERT_EQ(set.MakeAnonymous(XPoint(0, 0, 0), name, 1), RTNORM);
    EXPECT_EQ(std::string(name).substr(0, 2), "*U");
    EXPECT_FALSE(Alive(a));
    ads_name last;
    acdbEntLast(last);
    EXPECT_EQ(TypeOf(last), "INSERT");
    Entity insert(last);
    EXPECT_EQ(insert.GetExtend(min, max, nullptr), RTNORM);
    EXPECT_DOUBLE_EQ(max[1], 10);
    PickSet empty(PickSet::kCreateEmpty | PickSet::kOwnsSet);
    EXPECT_EQ(empty.GetExtend(min, max), RTNONE);
    EXPECT_EQ(empty.XTransform(nullptr), RTNONE);
}

TEST_F(PickSets, CopyingAnOwningSetWarnsAndAlgebraKeepsOrder) {
    Entity a = Line(0), b = Line(1);
    PickSet x(PickSet::kCreateEmpty | PickSet::kOwnsSet), y(PickSet::kCreateEmpty | PickSet::kOwnsSet);
    x += a;
    y += b;
    y += a;
    PickSet both = x + y, left = y - x, common = y * x;
    EXPECT_EQ(both.Length(), 2);
    EXPECT_EQ(both[1].Name()[0], b.Name()[0]);
    EXPECT_EQ(left.Length(), 1);
    EXPECT_EQ(common.Length(), 1);
    PickSet none;
    EXPECT_EQ(x += none, RTERROR);   // a null set can't be added
    for (PickSet* s : {&both, &left, &common}) s->Free();
}

}  // namespace
