// Polylines of the drawing to bulge polylines and back.
#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "kernel/XPoly2D.h"
#include "kernel/XPoly2D_entity.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"
#include "platform/dbents.h"
#include "platform/dbmain.h"
#include "platform/dbsymtb.h"

namespace {
constexpr double kPi = std::numbers::pi;

// Appends an entity to the working drawing's model space; its name.
bool AddToModelSpace(AcDbEntity* ent, AcDbObjectId& id) {
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    AcDbBlockTable* table = nullptr;
    if (db->getBlockTable(table, AcDb::kForRead) != Acad::eOk) return false;
    AcDbBlockTableRecord* space = nullptr;
    Acad::ErrorStatus es = table->getAt(ACDB_MODEL_SPACE, space, AcDb::kForWrite);
    table->close();
    if (es != Acad::eOk) return false;
    es = space->appendAcDbEntity(id, ent);
    space->close();
    return es == Acad::eOk;
}

TEST(XPoly2DEntity, LightweightPolylineReadsBulgesAsAngles) {
    AcDbPolyline pl;
    pl.addVertexAt(0, AcGePoint2d(0, 0), 1.0);
    pl.addVertexAt(1, AcGePoint2d(2, 0), 9e-7);   // below 1e-6: straight
    pl.addVertexAt(2, AcGePoint2d(2, 2), -0.5);
    pl.setClosed(true);
    pl.setElevation(3);
    XPoly2D out(0);
    out.AppendNode(XPoint(7, 7, 7), 7);
    ASSERT_EQ(ReadPolyline(&pl, out), RTNORM);
    ASSERT_EQ(out.Count(), 3);
    EXPECT_EQ(out.closed, 1);
    EXPECT_NEAR(out.Angle(0), kPi, 1e-15);
    EXPECT_EQ(out.Angle(1), 0.0);
    EXPECT_NEAR(out.Angle(2), 4 * std::atan(-0.5), 1e-15);
    EXPECT_EQ(out.Vertex(2)->z, 3);
    EXPECT_EQ(ReadPolyline(nullptr, out), RTERROR);
    EXPECT_EQ(out.Count(), 0);
}

TEST(XPoly2DEntity, NewPolylineWritesTangentsOfQuarterAngles) {
    XPoly2D p(1);
    p.AppendNode(XPoint(0, 0, 5), kPi);
    p.AppendNode(XPoint(2, 0, 5), -kPi / 2);
    p.AppendNode(XPoint(2, 2, 5), 0);
    AcDbPolyline* pl = NewPolyline(p);
    ASSERT_NE(pl, nullptr);
    EXPECT_EQ(pl->numVerts(), 3u);
    EXPECT_TRUE(pl->isClosed());
    EXPECT_EQ(pl->elevation(), 5);
    double b = 0;
    pl->getBulgeAt(0, b);
    EXPECT_NEAR(b, 1, 1e-15);
    pl->getBulgeAt(1, b);
    EXPECT_NEAR(b, std::tan(-kPi / 8), 1e-15);
    XPoly2D back;
    ASSERT_EQ(ReadPolyline(pl, back), RTNORM);
    EXPECT_NEAR(back.Angle(1), -kPi / 2, 1e-12);
    EXPECT_NEAR(back.Area(), p.Area(), 1e-12);
    delete pl;
    XPoly2D one(0);
    one.AppendNode(XPoint(), 0);
    EXPECT_EQ(NewPolyline(one), nullptr);
}

// A mesh gives no nodes, but keeps its flag word (closed in M here).
TEST(XPoly2DEntity, MeshKeepsItsFlagWordAndNoNodes) {
    const double pts[4][3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 1}};
    auto put = [](resbuf* list) {
        int rc = acdbEntMake(list);
        acutRelRb(list);
        return rc;
    };
    ASSERT_EQ(put(acutBuildList(RTDXF0, "POLYLINE", 66, 1, 70, 17, 71, 2, 72, 2, 0)), RTNORM);
    for (const auto& p : pts) ASSERT_EQ(put(acutBuildList(RTDXF0, "VERTEX", 10, p, 70, 64, 0)), RTNORM);
    ASSERT_EQ(put(acutBuildList(RTDXF0, "SEQEND", 0)), RTNORM);
    ads_name mesh;
    ASSERT_EQ(acdbEntLast(mesh), RTNORM);
    XPoly2D out(mesh);
    EXPECT_EQ(out.Count(), 0);
    EXPECT_EQ(out.closed, 17);
    EXPECT_EQ(out.IsClosed(), 1);
}

TEST(XPoly2DEntity, OldPolylinesThroughTheirNames) {
    auto* pl = new AcDb2dPolyline();
    pl->makeClosed();
    AcDbObjectId id;
    ASSERT_TRUE(AddToModelSpace(pl, id));
    pl->appendVertex(new AcDb2dVertex(AcGePoint3d(0, 0, 0), 1.0));
    pl->appendVertex(new AcDb2dVertex(AcGePoint3d(4, 0, 0), 0.0));
    pl->appendVertex(new AcDb2dVertex(AcGePoint3d(4, 4, 0), 0.0));
    pl->close();
    ads_name name;
    ASSERT_EQ(acdbGetAdsName(name, id), Acad::eOk);
    XPoly2D out;
    ASSERT_EQ(ReadPolyEntity(name, out), RTNORM);
    ASSERT_EQ(out.Count(), 3);
    EXPECT_EQ(out.closed, 1);
    EXPECT_NEAR(out.Angle(0), kPi, 1e-15);
    EXPECT_EQ(out.Vertex(2)->y, 4);

    auto* p3 = new AcDb3dPolyline();
    AcDbObjectId id3;
    ASSERT_TRUE(AddToModelSpace(p3, id3));
    p3->appendVertex(new AcDb3dPolylineVertex(AcGePoint3d(0, 0, 1)));
    p3->appendVertex(new AcDb3dPolylineVertex(AcGePoint3d(1, 0, 2)));
    p3->close();
    ASSERT_EQ(acdbGetAdsName(name, id3), Acad::eOk);
    ASSERT_EQ(ReadPolyEntity(name, out), RTNORM);
    EXPECT_EQ(out.closed, 8);
    EXPECT_EQ(out.Vertex(1)->z, 2);

    auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0));
    AcDbObjectId idl;
    ASSERT_TRUE(AddToModelSpace(line, idl));
    line->close();
    ASSERT_EQ(acdbGetAdsName(name, idl), Acad::eOk);
    EXPECT_EQ(ReadPolyEntity(name, out), RTERROR);
    EXPECT_EQ(out.Count(), 0);
    ads_name bogus = {0, 0};
    EXPECT_EQ(ReadPolyEntity(bogus, out), RTERROR);
}
}  // namespace
