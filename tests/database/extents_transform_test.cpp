// Boxes of entities (with and without a matrix) and transformations through
// their lists.
#include <gtest/gtest.h>

#include <cmath>

#include "database/Entity.h"
#include "database/PickSet.h"
#include "database_test_support.h"
#include "kernel/matrix_routines.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"

namespace {

using dbtest::FreshDrawing;
using dbtest::MakeFrom;

class Extents : public FreshDrawing {
protected:
    double min[3] = {0, 0, 0}, max[3] = {0, 0, 0};
    double shift[4][4];
    void SetUp() override {
        FreshDrawing::SetUp();
        AT_InitTranMat(shift, 100, 0, 0);
    }
    static Entity Make(resbuf* list) {
        ads_name e = {0, 0};
        EXPECT_TRUE(MakeFrom(list, e));
        return Entity(e);
    }
    void ExpectBox(double x0, double y0, double z0, double x1, double y1, double z1) const {
        const double want[6] = {x0, y0, z0, x1, y1, z1};
        for (int i = 0; i < 3; ++i) {
            EXPECT_NEAR(min[i], want[i], 1e-9) << "min " << i;
            EXPECT_NEAR(max[i], want[i + 3], 1e-9) << "max " << i;
        }
    }
};

const double kOrigin[3] = {0, 0, 0};
const double kFar[3] = {7, 3, 0};

TEST_F(Extents, LinesAndCirclesWithTheirThickness) {
    const double b[3] = {10, 5, 0}, c[3] = {5, 5, 0};
    Entity line = Make(acutBuildList(RTDXF0, "LINE", 10, kOrigin, 11, b, 39, 2.0, 0));
    EXPECT_EQ(line.GetExtend(min, max), RTNORM);
    EXPECT_NEAR(max[2], 2.0, 1e-9);   // the thickness rises above the line
    // Through a matrix the box of a thick entity is only approximate.
    EXPECT_EQ(line.GetExtend(min, max, shift), RTERROR);
    ExpectBox(100, 0, 0, 110, 5, 2);
    Entity circle = Make(acutBuildList(RTDXF0, "CIRCLE", 10, c, 40, 2.0, 0));
    EXPECT_EQ(circle.GetExtend(min, max, shift), RTNORM);
    ExpectBox(103, 3, 0, 107, 7, 0);
    Entity arc = Make(acutBuildList(RTDXF0, "ARC", 10, c, 40, 2.0, 50, 0.0, 51, M_PI / 2, 0));
    EXPECT_EQ(arc.GetExtend(min, max, shift), RTNORM);
    ExpectBox(105, 5, 0, 107, 7, 0);
}

TEST_F(Extents, FacesSolidsPointsAndTheSecondForm) {
    const double p[4][3] = {{0, 0, 0}, {4, 0, 0}, {4, 2, 1}, {0, 2, 0}};
    Entity solid = Make(acutBuildList(RTDXF0, "SOLID", 10, p[0], 11, p[1], 12, p[3], 13, p[2], 0));
    EXPECT_EQ(solid.GetExtend(min, max, shift), RTNORM);
    ExpectBox(100, 0, 0, 104, 2, 1);
    Entity face = Make(acutBuildList(RTDXF0, "3DFACE", 10, p[0], 11, p[1], 12, p[2], 13, p[3], 0));
    EXPECT_EQ(face.GetExtend(min, max, shift), RTNORM);
    ExpectBox(100, 0, 0, 104, 2, 1);
    Entity point = Make(acutBuildList(RTDXF0, "POINT", 10, p[2], 0));
    EXPECT_EQ(point.GetExtend(min, max, shift), RTNORM);
    ExpectBox(104, 2, 1, 104, 2, 1);
    double center[3], w = 0, h = 0;
    EXPECT_EQ(face.GetExtend(center, &w, &h, nullptr), RTNORM);
    EXPECT_NEAR(center[0], 2, 1e-9);
    EXPECT_NEAR(w, 4, 1e-9);
    EXPECT_NEAR(h, 2, 1e-9);
}

TEST_F(Extents, TextHasNoBoxThroughAMatrixAndATiltedEntityNone) {
    Entity text = Make(acutBuildList(RTDXF0, "TEXT", 10, kOrigin, 40, 2.5, 1, "Hi", 0));
    EXPECT_EQ(text.GetExtend(min, max), RTNORM);   // the host's own box
    EXPECT_EQ(text.GetExtend(min, max, shift), RTNONE);
    const double c[3] = {1, 1, 0}, down[3] = {0, 0, -1};
    Entity tilted = Make(acutBuildList(RTDXF0, "CIRCLE", 10, c, 40, 1.0, 210, down, 0));
    EXPECT_EQ(tilted.GetExtend(min, max, shift), RTNONE);
    EXPECT_EQ(Entity().GetExtend(min, max, shift), RTNONE);
}

TEST_F(Extents, PolylineWalkSkipsFramePointsAndFlagsBulges) {
    const double v[3][3] = {{0, 0, 0}, {10, 0, 0}, {50, 50, 0}};
    ASSERT_EQ(dbtest::Put(acutBuildList(RTDXF0, "POLYLINE", 66, 1, 70, 0, 0)), RTNORM);
    dbtest::Put(acutBuildList(RTDXF0, "VERTEX", 10, v[0], 0));
    dbtest::Put(acutBuildList(RTDXF0, "VERTEX", 10, v[1], 0));
    dbtest::Put(acutBuildList(RTDXF0, "VERTEX", 10, v[2], 70, 16 | 128, 0));   // not a frame point: 64 clear
    dbtest::Put(acutBuildList(RTDXF0, "SEQEND", 0));
    ads_name poly;
    acdbEntLast(poly);
    Entity polyline(poly);
    EXPECT_EQ(polyline.GetExtend(min, max, shift), RTNORM);
    ExpectBox(100, 0, 0, 110, 0, 0);
}

// A polyline without vertices has no box, and a set around it takes the
// box of the rest.
TEST_F(Extents, APolylineWithoutVerticesHasNoBox) {
    ASSERT_EQ(dbtest::Put(acutBuildList(RTDXF0, "POLYLINE", 66, 1, 70, 0, 0)), RTNORM);
    ASSERT_EQ(dbtest::Put(acutBuildList(RTDXF0, "SEQEND", 0)), RTNORM);
    ads_name poly;
    acdbEntLast(poly);
    Entity empty(poly);
    EXPECT_EQ(empty.GetExtend(min, max, nullptr), RTNONE);
    Entity line = Make(acutBuildList(RTDXF0, "LINE", 10, kOrigin, 11, kFar, 0));
    PickSet both(PickSet::kCreateEmpty | PickSet::kOwnsSet);
    both += empty;
    both += line;
    ASSERT_EQ(both.GetExtend(min, max), RTNORM);
    EXPECT_DOUBLE_EQ(max[0], kFar[0]);
    EXPECT_DOUBLE_EQ(min[0], 0.0);
}

TEST_F(Extents, AnInsertIsTheBoxOfItsBlockWhereItStands) {
    const double a[3] = {0, 0, 0}, b[3] = {2, 1, 0}, at[3] = {10, 10, 0};
    dbtest::Put(acutBuildList(RTDXF0, "BLOCK", 2, "BOX", 70, 0, 10, kOrigin, 0));
    dbtest::Put(acutBuildList(RTDXF0, "LINE", 10, a, 11, b, 0));
    dbtest::Put(acutBuildList(RTDXF0, "ENDBLK", 0));
    Entity insert = Make(acutBuildList(RTDXF0, "INSERT", 2, "BOX", 10, at, 41, 2.0, 42, 2.0, 0));
    EXPECT_EQ(insert.GetExtend(min, max, shift), RTNORM);
    ExpectBox(110, 10, 0, 114, 12, 0);
}

double Real(Entity& e, int code) {
    double v = 0;
    e._GetGroups();
    e.GetData(code, &v);
    return v;
}

TEST_F(Extents, TransformsMoveTheListsPoints) {
    double turn[4][4];
    AT_InitRotMatrix(M_PI / 2, turn);
    const double b[3] = {10, 0, 0}, c[3] = {0, 0, 0};
    Entity line = Make(acutBuildList(RTDXF0, "LINE", 10, kOrigin, 11, b, 0));
    EXPECT_EQ(line.XTransform(turn), RTNORM);
    double end[3];
    line._GetGroups();
    line.GetData(11, end);
    EXPECT_NEAR(end[0], 0, 1e-9);
    EXPECT_NEAR(end[1], 10, 1e-9);
    Entity arc = Make(acutBuildList(RTDXF0, "ARC", 10, c, 40, 5.0, 50, 0.0, 51, M_PI / 2, 0));
    EXPECT_EQ(arc.XTransform(turn), RTNORM);
    EXPECT_NEAR(Real(arc, 50), M_PI / 2, 1e-9);
    EXPECT_NEAR(Real(arc, 51), M_PI, 1e-9);
    EXPECT_NEAR(Real(arc, 40), 5, 1e-9);
    const double v0[3] = {1, 0, 0}, v1[3] = {2, 0, 0};
    Entity lw = Make(acutBuildList(RTDXF0, "LWPOLYLINE", 100, "AcDbEntity", 100, "AcDbPolyline", 90, 2, 70, 0,
                                   10, v0, 10, v1, 0));
    EXPECT_EQ(lw.XTransform(shift), RTNORM);
    double first[3] = {0, 0, 0};
    lw._GetGroups();
    lw.GetData(10, first);
    EXPECT_NEAR(first[0], 101, 1e-9);
    Entity circle = Make(acutBuildList(RTDXF0, "CIRCLE", 10, c, 40, 1.0, 0));
    EXPECT_NE(circle.XTransform(shift), RTNORM);   // circles are left as they are
    double center[3];
    circle._GetGroups();
    circle.GetData(10, center);
    EXPECT_NEAR(center[0], 0, 1e-9);
}

}  // namespace
